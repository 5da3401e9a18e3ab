// Removal and Trash on Linux. Stateless but for its configuration; callable from any thread.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/linux/FileSystemCalls.h"

#include <string>

namespace brimlet {

class LinuxFileRemoval : public FileRemoval {
public:
    /// homeFolder  holds the Trash; absolute
    /// calls       must outlive the removal
    LinuxFileRemoval(std::string homeFolder, FileSystemCalls& calls);

    Result<std::unique_ptr<PinnedEntry>> pin(std::string_view path) override;
    Failure remove(const PinnedEntry& entry, const BeforeMove& before) override;
    Result<TrashArrival> moveToTrash(const PinnedEntry& entry, const BeforeMove& before) override;
    Failure moveBack(std::string_view trashPath, std::string_view originalPath,
                     const BeforeMove& before) override;
    Result<std::optional<FileIdentity>> identity(std::string_view path) override;
    Failure removeScratch(std::string_view path) override;
    Failure returnToPlace(std::string_view setAside, std::string_view originalPath) override;

private:
    std::string m_homeFolder;
    FileSystemCalls& m_calls;
};

} // namespace brimlet
