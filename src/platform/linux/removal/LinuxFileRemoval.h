// Removal and Trash on Linux. Callable from any thread.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/linux/FileSystemCalls.h"
#include "platform/linux/MountPoints.h"
#include "platform/linux/PathWalk.h"
#include "platform/linux/removal/TreeRemover.h"

#include <string>

namespace brimlet {

class LinuxFileRemoval : public FileRemoval {
public:
    /// homeFolder  holds the Trash; absolute
    /// calls       must outlive the removal
    /// threads     remove large trees
    LinuxFileRemoval(std::string homeFolder, FileSystemCalls& calls,
                     RemovalThreads threads = usualRemovalThreads());

    Result<std::unique_ptr<PinnedEntry>> pin(std::string_view path, const PlacedIdentity& reviewed,
                                             const PinnedEntry* neighbour) override;
    PlannedMove planRemoval(std::string_view path, const PlacedIdentity& reviewed) override;
    PlannedMove planTrashing(std::string_view path, const PlacedIdentity& reviewed,
                             PlannedNumbers& numbers) override;
    RemovalOutcome remove(const PinnedEntry& entry, const PlannedMove& planned, const BeforeMove& before,
                          const std::stop_token& stop) override;
    Result<TrashArrival> moveToTrash(const PinnedEntry& entry, const PlannedMove& planned,
                                     const BeforeMove& before, const std::stop_token& stop) override;
    Failure moveBack(std::string_view trashPath, std::string_view originalPath,
                     const std::optional<FileIdentity>& arrived, const BeforeMove& before) override;
    Result<std::optional<FileIdentity>> identity(std::string_view path) override;
    Failure removeScratch(std::string_view path, const std::stop_token& stop) override;
    Failure dropOldName(std::string_view oldPath, std::string_view newPath) override;
    Failure returnToPlace(std::string_view setAside, std::string_view originalPath) override;

private:
    RemovalOutcome removeFile(const WalkedEntry& entry, const BeforeMove& before);
    RemovalOutcome removeInPlace(const WalkedEntry& entry, const std::stop_token& stop);
    RemovalOutcome removeSetAside(const WalkedEntry& entry, const std::string& aside,
                                  const std::stop_token& stop);

    std::string m_homeFolder;
    FileSystemCalls& m_calls;
    RemovalThreads m_threads;
    MountTable m_mounts;
};

} // namespace brimlet
