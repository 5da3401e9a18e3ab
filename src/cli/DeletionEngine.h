// Judging and removing as the commands do it: the user's own Trash, history and safety policy.
#pragma once

#include "platform/linux/FileSystemCalls.h"
#include "platform/linux/LinuxBundleReader.h"
#include "platform/linux/LinuxFileRemoval.h"
#include "platform/linux/LinuxRecordStore.h"
#include "platform/linux/LinuxRunningApplications.h"
#include "safety/DeletionExecutor.h"
#include "safety/DeletionHistory.h"
#include "safety/SafetyPolicy.h"

#include <string>
#include <string_view>

namespace brimlet {

/// The safety policy over the user's home folder. Changes nothing on the disk.
class PathAssessor {
public:
    PathAssessor();

    /// The stricter of the verdicts on a path as given and on the path without links that it leads to.
    SafetyVerdict verdict(const std::string& path);

    FileSystemCalls calls;
    LinuxBundleReader bundles;
    LinuxRunningApplications running;
    SafetyPolicy policy;
    PathJudge judge;
    LinuxFileRemoval removal;
};

/// Making it makes the folder of the history and completes what was interrupted.
class DeletionEngine {
public:
    /// assessor   must outlive the engine
    explicit DeletionEngine(PathAssessor& assessor);

    LinuxRecordStore records;
    DeletionExecutor executor;
    DeletionHistory history;
};

/// A relative path counts from the working folder, and slashes at the end go, which shells add; nothing else
/// about a path is changed.
std::string absoluteAsGiven(std::string path);

} // namespace brimlet
