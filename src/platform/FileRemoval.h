// The only interface that can remove or move a user's files. It is handed to safety/ and to nothing else.
//
// Invariants of every implementation:
// 1. Work is done relative to the folder that `pin` opened. No path is resolved a second time, so an entry
//    that was judged is the entry that goes, wherever links are swapped meanwhile.
// 2. No symbolic link is followed below a pinned entry, and no mount point is crossed: a link goes as a link,
//    a folder with another disk mounted in it is reported.
// 3. An entry leaves its place by one rename. It is therefore wholly in its place or wholly gone from it;
//    what could not be removed afterwards returns to its place, or beside it under a free name where that
//    has been taken meanwhile, and is reported.
// 4. Nothing is ever overwritten: every rename that gives something a name is exclusive.
// 5. What is moved to another device is copied completely and synced before its original leaves its place,
//    and nothing that is not in the copy is removed from the original.
// 6. Before the first rename the caller is told where the entry goes; if the caller cannot note that down,
//    nothing happens.
// Callable from any thread; calls block on the disk.
#pragma once

#include "platform/Result.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

/// Tells a file from every other one of its disk, through renames and restarts. Compared, never parsed.
using FileIdentity = std::string;

/// An entry held through an open descriptor of the folder that contains it.
class PinnedEntry {
public:
    virtual ~PinnedEntry() = default;

    /// The absolute path with every link among the parents resolved; the entry itself is not.
    virtual const std::string& resolvedPath() const = 0;
};

/// What is about to happen to an entry: enough to find it again after a crash.
struct PlannedMove {
    std::string destination;          ///< where it will be; empty while only scratch is about to be made
    FileIdentity identity;            ///< of what will be at `destination`
    std::vector<std::string> scratch; ///< entries of ours that must be gone when the move is over
    std::string setAside; ///< what the original is called until its copy is known to hold all of it, or empty
};

/// Told before anything is renamed or made; an error given back stops the move with nothing changed. Told
/// again when the destination had to change; the last one counts.
using BeforeMove = std::function<Failure(const PlannedMove&)>;

struct TrashArrival {
    std::string trashPath;
    Failure leftBehind; ///< why a part of the original is still in its place although the copy is complete
};

class FileRemoval {
public:
    virtual ~FileRemoval() = default;

    /// Opens the folder that contains an entry. A relative path, one with "." or ".." in it or with a NUL
    /// byte is refused, and so is scratch of a move that is under way and what lies in it.
    virtual Result<std::unique_ptr<PinnedEntry>> pin(std::string_view path) = 0;

    /// Removes a file or a folder with all that is in it. On an error what is left is in its place.
    virtual Failure remove(const PinnedEntry& entry, const BeforeMove& before) = 0;

    /// Moves an entry into the user's Trash under its name or, when that is taken, under a free one. What
    /// lies there already is refused.
    virtual Result<TrashArrival> moveToTrash(const PinnedEntry& entry, const BeforeMove& before) = 0;

    /// Moves what lies directly in the user's Trash to `originalPath`, whose missing parents are made. Fails
    /// when anything is there.
    virtual Failure moveBack(std::string_view trashPath, std::string_view originalPath,
                             const BeforeMove& before) = 0;

    /// The identity of what is at a path, or nothing when its folder is there and holds no such entry.
    virtual Result<std::optional<FileIdentity>> identity(std::string_view path) = 0;

    /// Removes scratch that an interrupted move left. Only what bears a scratch name is touched. Gone already
    /// counts as done where its folder is there to tell.
    virtual Failure removeScratch(std::string_view path) = 0;

    /// Gives an original that an interrupted move left set aside its name back, or a free one like it where
    /// that is taken, in the folder where it lies. Only what bears a scratch name is touched. Gone already
    /// counts as done where its folder is there to tell.
    virtual Failure returnToPlace(std::string_view setAside, std::string_view originalPath) = 0;
};

} // namespace brimlet
