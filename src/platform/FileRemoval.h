// The only interface that can remove or move a user's files. It is handed to safety/ and to nothing else.
//
// Invariants of every implementation:
// 1. Work is done relative to the folder that `pin` opened. No path is resolved a second time, so an entry
//    that was judged is the entry that goes, wherever links are swapped meanwhile.
// 2. No symbolic link is followed below a pinned entry, and no mount point is crossed: a link goes as a link,
//    a folder with another disk mounted in it is reported.
// 3. An entry leaves its place by one rename. It is therefore wholly in its place or wholly gone from it;
//    what could not be removed afterwards returns to its place, or beside it under a free name where that
//    has been taken meanwhile, and is reported. A folder that its file system can't rename, as one of an
//    overlay's lower layers, goes entry by entry from its place, and so does one whose other name the caller
//    can't note down.
// 4. Nothing is ever overwritten: every rename that gives something a name is exclusive.
// 5. What is moved to another device is copied completely and synced before its original leaves its place,
//    and nothing that is not in the copy is removed from the original. Where the original can't leave or the
//    other disk has no room for it, nothing is copied.
// 6. Before the first rename the caller is told where the entry goes; if the caller cannot note that down,
//    nothing happens, or it is asked about another way. What was planned before is a forecast: the caller is
//    told again, and of what has changed.
// 7. What leaves its place is what was reviewed. Its folder is compared when it is pinned, it as the last
//    thing before the rename or removal and the first thing after a rename; what differs stays, or goes back.
// Callable from any thread; calls block on the disk.
#pragma once

#include "platform/EntryIdentity.h"
#include "platform/Result.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brimlet {

/// An entry held through an open descriptor of the folder that contains it.
class PinnedEntry {
public:
    virtual ~PinnedEntry() = default;

    /// The absolute path with every link among the parents resolved; the entry itself is not.
    virtual const std::string& resolvedPath() const = 0;
};

/// What is about to happen to an entry: enough to find it again after a crash. Equal plans do the same.
struct PlannedMove {
    std::string destination;          ///< where it will be; empty while only scratch is about to be made
    FileIdentity identity;            ///< of what will be at `destination`
    std::vector<std::string> scratch; ///< entries of ours that must be gone when the move is over
    std::string setAside; ///< what the original is called while it is removed or replaced by its copy, or
                          ///< empty
    std::string remark{}; ///< a sentence on what the copy at `destination` lacks, or empty
    bool operator==(const PlannedMove&) const = default;
};

/// The last numbers that were planned for names in the Trash, by the names without them.
using PlannedNumbers = std::unordered_map<std::string, unsigned>;

/// Told before anything is renamed or made; an error given back stops the move with nothing changed. Told
/// again when the destination had to change; the last one counts.
using BeforeMove = std::function<Failure(const PlannedMove&)>;

/// What became of a removal for good.
struct RemovalOutcome {
    Failure failure;                 ///< why not all of it went; nothing when all did
    bool isPartly = false;           ///< something went nevertheless
    std::string rest;                ///< where what stayed is; empty when nothing happened
    std::vector<std::string> stayed; ///< the first of what would not go, by their paths in the entry
    std::size_t stayedCount = 0;     ///< how many would not go
};

struct TrashArrival {
    std::string trashPath;
    FileIdentity identity; ///< of what lies there
    Failure leftBehind;    ///< why a part of the original is still in its place although the copy is complete
};

/// What is said of an entry that is not, or no longer, what was reviewed.
PlatformError changedSinceReview();

class FileRemoval {
public:
    virtual ~FileRemoval() = default;

    /// Opens the folder that contains an entry. Refused when that is another than was reviewed. A relative
    /// path, one with "." or ".." in it or with a NUL byte is refused, and so is scratch of a move that is
    /// under way and what lies in it.
    /// neighbour   pinned before, or null: an entry of the same folder is pinned through what that holds
    /// open,
    ///             as long as that was opened a moment ago
    virtual Result<std::unique_ptr<PinnedEntry>> pin(std::string_view path, const PlacedIdentity& reviewed,
                                                     const PinnedEntry* neighbour) = 0;

    /// What remove() would do now with the entry at a path, so that many such plans are noted at once.
    /// Changes nothing; empty when nothing can be told, and for a folder that is another than was reviewed.
    virtual PlannedMove planRemoval(std::string_view path, const PlacedIdentity& reviewed) = 0;

    /// The same for moveToTrash().
    /// numbers   of the names planned before, so that no two plans take the same; kept up
    virtual PlannedMove planTrashing(std::string_view path, const PlacedIdentity& reviewed,
                                     PlannedNumbers& numbers) = 0;

    /// Removes a file or a folder with all that is in it. On an error, or when told to stop, what is left is
    /// in its place. planned   what planRemoval gave, or empty; followed where it still holds
    virtual RemovalOutcome remove(const PinnedEntry& entry, const PlannedMove& planned,
                                  const BeforeMove& before, const std::stop_token& stop) = 0;

    /// Moves an entry into the user's Trash under its name or, when that is taken, under a free one. What
    /// lies there already is refused. Told to stop, a copy from another disk ends and is undone.
    /// planned   what planTrashing gave, or empty; followed where it still holds
    virtual Result<TrashArrival> moveToTrash(const PinnedEntry& entry, const PlannedMove& planned,
                                             const BeforeMove& before, const std::stop_token& stop) = 0;

    /// Moves what lies directly in the user's Trash to `originalPath`, whose missing parents are made. Fails
    /// when anything is there, and when what lies in the Trash is not `arrived`, where that is known.
    virtual Failure moveBack(std::string_view trashPath, std::string_view originalPath,
                             const std::optional<FileIdentity>& arrived, const BeforeMove& before) = 0;

    /// The identity of what is at a path, or nothing when its folder is there and holds no such entry.
    virtual Result<std::optional<FileIdentity>> identity(std::string_view path) = 0;

    /// Removes scratch that an interrupted move left. Only what bears a scratch name is touched. Gone already
    /// counts as done where its folder is there to tell.
    virtual Failure removeScratch(std::string_view path, const std::stop_token& stop) = 0;

    /// Ends a move of a file that was interrupted between its two names, as it is made where no rename is
    /// exclusive: takes the old one away. Does nothing unless both are names of one file.
    virtual Failure dropOldName(std::string_view oldPath, std::string_view newPath) = 0;

    /// Gives what an interrupted removal or move left set aside its name back, or a free one like it where
    /// that is taken, in the folder where it lies. Only what bears a scratch name is touched. Gone already
    /// counts as done where its folder is there to tell.
    virtual Failure returnToPlace(std::string_view setAside, std::string_view originalPath) = 0;
};

} // namespace brimlet
