// Copied files and folders on their way to the disk.
//
// Each is held open until the disk has confirmed it, since an error of writing may be told to no later
// opener. The writing of many begins before the first is waited for, and several are waited for at once:
// disks confirm many together about as fast as one. Used by one thread.
#pragma once

#include "platform/linux/Descriptor.h"

#include <vector>

namespace brimlet {

class DiskSync {
public:
    /// calls   must outlive it
    explicit DiskSync(FileSystemCalls& calls);

    /// Takes a written file over. 0, or a negative errno of any file or folder taken over before.
    int addFile(Descriptor file);

    /// Takes a folder over, all of whose entries have been made.
    int addFolder(Descriptor folder);

    /// Waits until all that was taken over is on the disk, and closes it.
    int finish();

private:
    int finishIfMany();

    FileSystemCalls& m_calls;
    std::size_t m_most; ///< descriptors to hold
    std::vector<Descriptor> m_files;
    std::vector<Descriptor> m_folders;
};

/// Makes the entries of a folder survive a power cut. File systems that can't do that for folders count as
/// having done it.
int syncFolder(FileSystemCalls& calls, int folder);

} // namespace brimlet
