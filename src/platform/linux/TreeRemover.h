// Removes a tree relative to an open folder.
//
// 1. Every call names one entry of an open folder; there is no path.
// 2. A link is removed, never opened. What was a folder when listed and is a link when opened is removed as
//    a link.
// 3. A folder on another device or mount than the tree's own is not entered, not changed, and reported.
// 4. An error ends nothing but what it happened to: all else is removed, and the first error is given back.
// 5. Folders of the user's own that lack permission are given it through their descriptor.
// Depth is bounded by memory only. One remover serves one thread.
#pragma once

#include "platform/linux/CopyManifest.h"
#include "platform/linux/FolderLadder.h"
#include "platform/linux/FolderListing.h"
#include "platform/Result.h"

#include <string>
#include <vector>

namespace brimlet {

class TreeRemover {
public:
    /// calls    must outlive the remover
    /// copied   when given, files that it does not hold stay; must outlive the remover
    explicit TreeRemover(FileSystemCalls& calls, const CopyManifest* copied = nullptr);

    /// Removes the entry `name` of `parent` with all that is in it.
    Failure remove(int parent, const std::string& name);

private:
    struct Level {
        std::string name;
        FileStatus status;
        std::vector<std::string> folders; ///< still to be entered
        bool listed = false;
        bool permitted = false; ///< whether permission has been tried for
        bool lost = false;      ///< an entry could not be removed
        int passes = 0;
    };

    int deepest() const { return m_ladder.empty() ? m_parent : m_ladder.deepest(); }
    void fail(int result);
    void list();
    void removeEntry(const std::string& name);
    bool mayRemove(const std::string& name);
    int unlink(const char* name, int flags);
    bool permitDeepest();
    void enter(const std::string& name, int passes = 0);
    int openFolder(const std::string& name);
    int checkFolder(int folder, FileStatus& status);
    void leave();

    FileSystemCalls& m_calls;
    const CopyManifest* m_copied;
    FolderListing m_listing;
    FolderLadder m_ladder;
    std::vector<Level> m_levels;
    int m_parent = -1;
    std::uint64_t m_device = 0;
    Failure m_failure;
};

/// Opens the user's own folder up to reading and changing, through an open descriptor. A negative errno when
/// it is another user's or has all permission already.
int permitOwner(FileSystemCalls& calls, int folder, const FileStatus& status);

/// What is said when a folder holds another disk.
PlatformError mountedInside();

} // namespace brimlet
