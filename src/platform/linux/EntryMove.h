// One entry's way to another folder: a rename where that is possible, else a complete copy that replaces it.
//
// Across devices: copy under a scratch name in the target folder; sync; give the copy its name; set the
// original aside by one rename; remove it, but nothing of it that the copy doesn't hold. An error before the
// original is set aside undoes the copy. An error after that leaves what is left of the original in its
// place, and the copy.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/linux/CopyManifest.h"
#include "platform/linux/PathWalk.h"

#include <string>

namespace brimlet {

/// Whether a taken name ends the move or makes it look for another.
enum class NameChoice { exact, numbered };

class EntryMove {
public:
    /// All must outlive the move.
    EntryMove(FileSystemCalls& calls, const WalkedEntry& source, const WalkedFolder& target,
              const BeforeMove& before)
        : m_calls(calls)
        , m_source(source)
        , m_target(target)
        , m_before(before) {}

    /// Moves the entry in under `name`.
    Result<TrashArrival> perform(const std::string& name, NameChoice choice);

private:
    Result<std::string> place(int folder, const std::string& name, PlannedMove plan);
    Result<std::string> freeName();
    Result<TrashArrival> copyAcross();
    Result<std::string> copyAndPlace(int scratch, CopyManifest& manifest, PlannedMove plan);
    Failure setOriginalAside(int scratch, const std::string& placed, const std::string& aside);
    Failure removeOriginal(const std::string& aside, const CopyManifest& manifest);
    void discard(const std::string& scratch);
    std::string targetPath(const std::string& name) const;

    FileSystemCalls& m_calls;
    const WalkedEntry& m_source;
    const WalkedFolder& m_target;
    const BeforeMove& m_before;
    std::string m_name;
    NameChoice m_choice = NameChoice::exact;
    unsigned m_number = 1;
};

/// The identity of a file: its inode and the moment of its birth, which together outlast renames and
/// restarts.
FileIdentity identityOf(const FileStatus& status);

/// Moves an entry that was set aside back to its name in the same folder, or to a free one like it where that
/// is taken; gives the name. Tries each twice, since what it mends must not fail for a passing error.
Result<std::string> returnToName(FileSystemCalls& calls, int folder, const std::string& aside,
                                 const std::string& name);

/// Returns what `failure` left of an original. Gives the failure, or where the rest is when it could not have
/// its own name.
PlatformError returnRest(FileSystemCalls& calls, const WalkedEntry& original, const std::string& aside,
                         const PlatformError& failure);

} // namespace brimlet
