// Removes a tree relative to an open folder, by several threads where it is large.
//
// 1. Every call names one entry of an open folder; there is no path.
// 2. A link is removed, never opened. What was a folder when listed and is a link when opened is removed as
//    a link.
// 3. A folder on another device or mount than the tree's own is not entered, not changed, and reported.
// 4. An error ends nothing but what it happened to: all else is removed, and the first error is given back.
// 5. Folders of the user's own that lack permission are given it through their descriptor.
// 6. A folder that was closed on the way down is opened again only if ".." leads to the very folder that was
//    left; one that was moved away meanwhile stays, with what is in it.
// Depth is bounded by memory only, open descriptors by the number of threads. One remover serves one tree.
#pragma once

#include "platform/linux/removal/CopyManifest.h"
#include "platform/linux/removal/FolderListing.h"
#include "platform/linux/removal/FolderStacks.h"
#include "platform/Result.h"

#include <mutex>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace brimlet {

/// How many threads remove one tree, and from what size on they are called.
struct RemovalThreads {
    std::size_t most = 1;
    std::size_t entriesBefore = 256; ///< removed by the first thread before the others are worth their start
};

/// As many threads as the process has processors to run on, and one where that is unknown.
RemovalThreads usualRemovalThreads();

struct RemovalTerms {
    const CopyManifest* copied = nullptr; ///< when given, files that it does not hold stay
    RemovalThreads threads;
    std::stop_token stop;                                 ///< asked between any two entries
    std::optional<EntryIdentity> reviewed = std::nullopt; ///< when given, a folder that is another stays
};

class TreeRemover {
public:
    /// calls   must outlive the remover, as must what the terms name
    explicit TreeRemover(FileSystemCalls& calls, RemovalTerms terms = {});

    /// Removes the entry `name` of `parent` with all that is in it.
    Failure remove(int parent, const std::string& name);

    /// Whether anything was removed.
    bool hasRemoved() const;

    /// The first entries that stayed because of errors, below the tree's top, and how many there are.
    const std::vector<std::string>& stayed() const { return m_stayed; }
    std::size_t stayedCount() const { return m_stayedCount; }

private:
    struct Hand {
        std::size_t number;
        FolderListing listing;
        std::size_t removed = 0;
    };

    Failure removeFile(int parent, const std::string& name);
    void removeFolder(int parent, const std::string& name);
    void work(Hand& hand);
    void enter(Hand& hand, const FolderJob& job);
    int openFolder(const FolderJob& job);
    int checkFolder(int folder, FileStatus& status);
    void removeFormerFolder(Hand& hand, const FolderJob& job);
    std::vector<FolderToEnter> empty(Hand& hand, EmptiedFolder& folder, int opened);
    int removeEntry(EmptiedFolder& folder, int opened, const char* name);
    bool mayRemove(int folder, const char* name);
    int unlink(EmptiedFolder& folder, int opened, const char* name, int flags);
    bool permit(EmptiedFolder& folder, int opened);
    void finish(Hand& hand, FolderPointer folder);
    void leave(Hand& hand, EmptiedFolder& folder);
    bool isThere(const EmptiedFolder& above, int opened, const std::string& name);
    std::shared_ptr<const Descriptor> openedAbove(EmptiedFolder& folder);
    void callOthers();
    bool isStopped(EmptiedFolder& folder);
    void fail(EmptiedFolder& above, const std::string& name, int result);

    FileSystemCalls& m_calls;
    RemovalTerms m_terms;
    FolderStacks m_stacks;
    std::vector<Hand> m_hands; ///< more than the first once others were called, also where none came
    std::vector<std::thread> m_threads;
    std::uint64_t m_device = 0;
    std::mutex m_mutex; ///< guards what follows, and the folders' permissions
    Failure m_failure;
    std::vector<std::string> m_stayed;
    std::size_t m_stayedCount = 0;
};

/// Opens the user's own folder up to reading and changing, through an open descriptor. A negative errno when
/// it is another user's or has all permission already.
int permitOwner(FileSystemCalls& calls, int folder, const FileStatus& status);

/// What is said when a folder holds another disk.
PlatformError mountedInside();

/// What is said when the user has stopped a removal.
PlatformError stoppedByUser();

} // namespace brimlet
