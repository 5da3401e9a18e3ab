// The entries of an open folder, in batches as the kernel gives them.
#pragma once

#include "platform/linux/FileSystemCalls.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace brimlet {

struct ListedEntry {
    const char* name = nullptr; ///< valid until the next batch
    std::uint64_t inode = 0;
    unsigned char type = 0; ///< DT_DIR and the like; a hint that may be out of date or DT_UNKNOWN
};

class FolderListing {
public:
    /// calls   must outlive the listing
    explicit FolderListing(FileSystemCalls& calls);

    /// Reads on in a folder. Gives the number of entries now in batch(), 0 at the end, or a negative errno.
    /// "." and ".." are left out.
    int readOn(int folder);

    /// In ascending order of inodes, in which the disk is touched least.
    const std::vector<ListedEntry>& batch() const { return m_batch; }

private:
    FileSystemCalls& m_calls;
    std::unique_ptr<char[]> m_buffer; // left as it is until the kernel fills it
    std::vector<ListedEntry> m_batch;
};

} // namespace brimlet
