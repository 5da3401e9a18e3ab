// The identity of an entry as far as its file system keeps it: without what may become another while the
// entry stays the same.
//
// An overlay copies what lies in a lower layer before it changes it; the copy has another birth, and, where
// the layers lie on several disks, another device and inode. FAT knows no inodes: their numbers are made up
// and given anew when an entry has left the system's memory. Immutable; any thread.
#pragma once

#include "platform/linux/FileSystemCalls.h"

namespace brimlet {

class KeptIdentity {
public:
    /// Looks at the file system of an open folder.
    KeptIdentity(FileSystemCalls& calls, int folder, const FileStatus& folderStatus)
        : KeptIdentity(calls.fileSystemType(folder), folderStatus.device) {}

    /// type   as statfs(2) tells it, or a negative errno
    KeptIdentity(long type, std::uint64_t device);

    /// Of the folder, or of an entry in it.
    EntryIdentity of(const FileStatus& status) const;

private:
    bool m_keepsBirth = true;
    bool m_keepsInodes = true;
    bool m_isLayered = false;
    std::uint64_t m_device;
};

} // namespace brimlet
