// Judging and removing as the commands do it: the user's own Trash, history and safety policy.
#pragma once

#include "platform/linux/FileSystemCalls.h"
#include "platform/linux/LinuxBundleReader.h"
#include "platform/linux/LinuxDirectoryLister.h"
#include "platform/linux/LinuxEntryLookup.h"
#include "platform/linux/LinuxRunningApplications.h"
#include "platform/linux/removal/LinuxFileRemoval.h"
#include "platform/linux/removal/LinuxRecordStore.h"
#include "safety/DeletionExecutor.h"
#include "safety/history/DeletionHistory.h"
#include "safety/ItemReview.h"
#include "safety/SafetyPolicy.h"
#include "tables/SystemTables.h"

#include <optional>
#include <string>
#include <string_view>
#include <thread>

namespace brimlet {

/// The safety policy over the user's home folder. Changes nothing on the disk.
class PathAssessor {
public:
    /// ofSystem   must outlive the assessor
    explicit PathAssessor(const SystemTables& ofSystem);

    const SystemTables& system;
    FileSystemCalls calls;
    LinuxBundleReader bundles;
    LinuxRunningApplications running;
    SafetyPolicy policy;
    PathJudge judge;
    LinuxEntryLookup entries;
    LinuxDirectoryLister lister;
    PlacesSource places;
    ItemReview review;
    LinuxFileRemoval removal;
};

/// Making it makes the folder of the history and completes what was interrupted; what that left to be tidied
/// goes in the background, as far as it comes while the engine lives.
class DeletionEngine {
public:
    /// assessor   must outlive the engine
    explicit DeletionEngine(PathAssessor& assessor);

    LinuxRecordStore records;
    DeletionExecutor executor;
    DeletionHistory history;

private:
    JournalRecovery m_recovery;
    std::jthread m_tidying;
};

/// Why nothing may be removed, restored or recorded in this home folder; empty where that is allowed.
std::optional<std::string> refusalOfHome();

/// A relative path counts from the working folder, and slashes at the end go, which shells add; nothing else
/// about a path is changed.
std::string absoluteAsGiven(std::string path);

} // namespace brimlet
