// One entry's way to another folder: a rename where that is possible, else a complete copy that replaces it.
//
// Across devices: copy under a scratch name in the target folder, file by file onto the disk; give the copy
// its name; sync the folder that holds it now; set the original aside by one rename; remove it, but nothing
// of it that the copy doesn't hold. An error before the original is set aside undoes the copy. An error after
// that leaves what is left of the original in its place, and the copy.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/linux/MountPoints.h"
#include "platform/linux/PathWalk.h"
#include "platform/linux/removal/ChangeWatch.h"
#include "platform/linux/removal/CopyManifest.h"

#include <optional>
#include <stop_token>
#include <string>
#include <utility>

namespace brimlet {

/// Whether a taken name ends the move or makes it look for another.
enum class NameChoice { exact, numbered };

class EntryMove {
public:
    /// All must outlive the move. stop   ends and undoes a copy; once it is complete the move is done
    EntryMove(FileSystemCalls& calls, MountTable& mounts, const WalkedEntry& source,
              const WalkedFolder& target, const BeforeMove& before, std::stop_token stop = {})
        : m_calls(calls)
        , m_mounts(mounts)
        , m_source(source)
        , m_target(target)
        , m_before(before)
        , m_stop(std::move(stop)) {}

    /// Moves the entry in under `name`, or a numbered one like it.
    /// planned   a numbered name to be tried first, or empty
    Result<TrashArrival> perform(const std::string& name, NameChoice choice, const std::string& planned = {});

private:
    Result<std::string> place(int folder, const std::string& name, PlannedMove plan);
    Failure renameIn(int folder, const std::string& name, const std::string& newName);
    Result<std::string> nextName();
    Result<TrashArrival> copyAcross();
    Result<std::string> copyAndPlace(int scratch, CopyManifest& manifest, PlannedMove plan);
    Failure setOriginalAside(int scratch, const std::string& placed, const std::string& aside,
                             CopyManifest& manifest);
    Failure refusalOfCopy();
    int renameAside(const std::string& aside, CopyManifest& manifest);
    int syncTarget(int scratch);
    Failure removeOriginal(const std::string& aside, const CopyManifest& manifest);
    void discard(const std::string& scratch);
    std::string targetPath(const std::string& name) const;

    FileSystemCalls& m_calls;
    MountTable& m_mounts;
    const WalkedEntry& m_source;
    const WalkedFolder& m_target;
    const BeforeMove& m_before;
    std::stop_token m_stop;
    std::string m_name;
    std::string m_planned;
    NameChoice m_choice = NameChoice::exact;
    std::optional<ChangeWatch> m_watch; ///< of the original, from before it is read
    FileIdentity m_arrived;             ///< of what was placed
    bool m_staysInPlace = false;        ///< the original can't be set aside and goes entry by entry
};

/// The identity of a file: its inode and the moment of its birth, which together outlast renames and
/// restarts.
FileIdentity identityOf(const EntryIdentity& entry);

/// Likewise for an entry of an open folder; as far as the file system keeps it.
EntryIdentity keptIdentity(FileSystemCalls& calls, int folder, const FileStatus& status);

/// Moves an entry that was set aside back to its name in the same folder, or to a free one like it where that
/// is taken; gives the name. Tries each twice, since what it mends must not fail for a passing error.
Result<std::string> returnToName(FileSystemCalls& calls, int folder, const std::string& aside,
                                 const std::string& name);

/// What is left of an original that would not go as a whole.
struct Rest {
    PlatformError error; ///< why it stayed, or where it is when it could not have its own name
    std::string path;
};

/// Returns what `failure` left of an original.
Rest returnRest(FileSystemCalls& calls, const WalkedEntry& original, const std::string& aside,
                const PlatformError& failure);

} // namespace brimlet
