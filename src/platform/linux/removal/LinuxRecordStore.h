// Record files on Linux: replaced through a temporary file, fsync, rename and fsync of the folder; locked
// with flock. A file "reserve" holds a few MiB of the disk. It goes when a write finds the disk full, and
// comes back with the next log for which there is room.
#pragma once

#include "platform/linux/PathWalk.h"
#include "platform/RecordStore.h"

#include <string>

namespace brimlet {

class LinuxRecordStore : public RecordStore {
public:
    /// folder   absolute; made with its parents now, or whenever a file is first written if that fails
    /// calls    must outlive the store, which must outlive its logs
    /// missing  who only reads makes no folder
    LinuxRecordStore(std::string folder, FileSystemCalls& calls,
                     MissingFolders missing = MissingFolders::make);

    const std::string& folder() const override { return m_folder; }
    Result<std::unique_ptr<RecordLock>> lock() override;
    Result<std::optional<std::string>> read(std::string_view name) override;
    Failure replace(std::string_view name, std::string_view bytes) override;
    Failure rename(std::string_view name, std::string_view newName) override;
    Failure remove(std::string_view name) override;
    Result<std::vector<std::string>> names() override;
    Result<std::unique_ptr<RecordLog>> createLog(std::string_view name) override;
    Result<std::unique_ptr<RecordLog>> adoptLog(std::string_view name) override;
    bool makeRoom() override;

    /// Takes the reserve where it is missing and the disk has room. The folder must be there and
    /// the user's own.
    void keepReserve();

private:
    Result<Descriptor> openFolder(MissingFolders missing = MissingFolders::fail);

    std::string m_folder;
    FileSystemCalls& m_calls;
};

} // namespace brimlet
