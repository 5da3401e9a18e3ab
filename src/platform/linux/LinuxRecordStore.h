// Record files on Linux: replaced through a temporary file, fsync, rename and fsync of the folder; locked
// with flock.
#pragma once

#include "platform/linux/PathWalk.h"
#include "platform/RecordStore.h"

#include <string>

namespace brimlet {

class LinuxRecordStore : public RecordStore {
public:
    /// folder  absolute; made with its parents now, or whenever a file is first written if that fails
    /// calls   must outlive the store and its logs
    LinuxRecordStore(std::string folder, FileSystemCalls& calls);

    const std::string& folder() const override { return m_folder; }
    Result<std::unique_ptr<RecordLock>> lock() override;
    Result<std::optional<std::string>> read(std::string_view name) override;
    Failure replace(std::string_view name, std::string_view bytes) override;
    Failure rename(std::string_view name, std::string_view newName) override;
    Failure remove(std::string_view name) override;
    Result<std::vector<std::string>> names() override;
    Result<std::unique_ptr<RecordLog>> createLog(std::string_view name) override;
    Result<std::unique_ptr<RecordLog>> adoptLog(std::string_view name) override;

private:
    Result<Descriptor> openFolder(MissingFolders missing = MissingFolders::fail);

    std::string m_folder;
    FileSystemCalls& m_calls;
};

} // namespace brimlet
