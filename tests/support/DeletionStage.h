// A home folder with the whole deletion engine on top of it, behind the guard.
#pragma once

#include "platform/linux/removal/LinuxFileRemoval.h"
#include "platform/linux/removal/LinuxRecordStore.h"
#include "safety/DeletionExecutor.h"
#include "safety/history/DeletionHistory.h"
#include "support/GuardedCalls.h"
#include "support/TemporaryTree.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet::test {

class DeletionStage {
public:
    DeletionStage();

    TemporaryTree tree; ///< "home" may be changed, "outside" may not
    GuardedCalls calls;
    LinuxFileRemoval removal;
    LinuxRecordStore store;
    std::map<std::string, SafetyVerdict> verdicts; ///< by path; what is not listed is safe
    std::string protectedFolder;                   ///< protected with all below it, when not empty
    std::vector<ProtectedPlaces::Place> places;    ///< what no item may hold
    DeletionExecutor executor;

    SafetyVerdict verdict(std::string_view path) const;
    std::string home(std::string_view relative = "") const;
    std::string trash(std::string_view name = "") const;

    /// For what is at the path now, accepted as safe.
    static DeletionRequest request(std::string path, Removal removal, std::int64_t size = 1);

    /// Runs one request and records it in a history of its own.
    ExecutedRun run(const std::string& path, Removal removal);

    /// The names in the Trash, scratch included, sorted; none when there is no Trash.
    std::vector<std::string> trashNames() const;

    /// Whether scratch is anywhere below home.
    bool hasScratch() const;

    /// What the history file holds; fails the test when it doesn't decode.
    std::vector<HistoryEntry> historyOnDisk() const;
};

} // namespace brimlet::test
