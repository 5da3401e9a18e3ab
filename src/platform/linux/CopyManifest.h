// What a copy holds of its original: every file as it was when it was read.
#pragma once

#include "platform/linux/FileSystemCalls.h"

#include <set>
#include <tuple>

namespace brimlet {

class CopyManifest {
public:
    void add(const FileStatus& file) { m_files.insert(keyOf(file)); }

    /// Whether the copy holds this file, unchanged since.
    bool holds(const FileStatus& file) const { return m_files.contains(keyOf(file)); }

private:
    using Key = std::tuple<std::uint64_t, std::int64_t, time_t, long>;
    static Key keyOf(const FileStatus& file) {
        return {file.inode, file.size, file.modified.tv_sec, file.modified.tv_nsec};
    }

    std::set<Key> m_files;
};

} // namespace brimlet
