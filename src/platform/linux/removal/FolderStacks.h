// What several hands have still to enter while they remove one tree.
//
// Each hand goes down depth first on a stack of its own and takes from another's only what lies nearest to
// the top of the tree. So no more folders are open than lie on the way to each hand, and of those only the
// deepest stay open: one that was closed is opened again through the folder below it by whoever leaves that.
// One mutex guards all; it is held for moments.
#pragma once

#include "platform/linux/Descriptor.h"

#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace brimlet {

/// A folder that is to be entered, by its name in the one above.
struct FolderToEnter {
    std::string name;
    int passes = 0; ///< how often it has been emptied before
};

/// A folder of the tree, or the one that holds the tree. `name`, `above`, `depth` and `status` don't change;
/// the rest belongs to FolderStacks, but for `permission`, which TreeRemover guards.
struct EmptiedFolder {
    enum class Permission { untried, given, refused };

    std::shared_ptr<EmptiedFolder> above; ///< none above the tree
    std::string name;
    FileStatus status;
    std::size_t depth = 0; ///< 0 for the folder that holds the tree
    int passes = 0;
    Permission permission = Permission::untried;

    std::shared_ptr<const Descriptor> opened; ///< none while closed
    std::vector<FolderToEnter> folders;       ///< still to be entered
    std::size_t unfinished = 1; ///< itself while it is emptied, and the folders in it that are not done with
    bool isLost = false;        ///< something in it stays
};
using FolderPointer = std::shared_ptr<EmptiedFolder>;

/// One folder to be entered, taken by a hand.
struct FolderJob {
    FolderPointer above;
    std::shared_ptr<const Descriptor> opened; ///< of `above`
    FolderToEnter folder;
};

class FolderStacks {
public:
    explicit FolderStacks(std::size_t hands)
        : m_stacks(hands) {}

    /// Adds folders in `above`, to be entered by `hand` or whoever has nothing to do. Gives how many `above`
    /// has to be entered now.
    std::size_t add(std::size_t hand, const FolderPointer& above, std::vector<FolderToEnter> folders);

    /// The next folder for a hand to enter. Waits while others may still find some; nothing when all is done.
    std::optional<FolderJob> take(std::size_t hand);

    /// One piece of work in a folder is over. True when it was the last one: the folder is the caller's then.
    bool release(EmptiedFolder& folder);

    /// Says that something in a folder stays.
    void lose(EmptiedFolder& folder);

    /// Closes the folder so far above this one that it must not stay open.
    void closeFarAbove(const EmptiedFolder& folder);

    std::shared_ptr<const Descriptor> opened(const EmptiedFolder& folder);
    void reopen(EmptiedFolder& folder, std::shared_ptr<const Descriptor> opened);

    /// Gives up a closed folder that can't be reached again, with what was to be entered in it.
    void abandon(EmptiedFolder& folder);

    /// Lets all hands go.
    void end();

private:
    std::optional<FolderJob> takeOwn(std::vector<FolderPointer>& stack);
    static std::optional<FolderJob> takeNearTop(const std::vector<FolderPointer>& stack);
    static FolderJob jobIn(const FolderPointer& folder);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::vector<FolderPointer>> m_stacks; ///< one a hand; the deepest folder last
    std::size_t m_waiting = 0;
    bool m_isOver = false;
};

} // namespace brimlet
