// What a copy holds of its original: every file as it was when it was read.
//
// A file that was written since differs in its size or its times; whoever puts the modification time back
// still changes the time of the last change. Filled by one thread, then asked by several.
#pragma once

#include "platform/linux/FileSystemCalls.h"

#include <atomic>
#include <map>
#include <tuple>
#include <utility>

namespace brimlet {

class CopyManifest {
public:
    /// Notes a file before it is read. False when it is one of several names of a file that has changed since
    /// the first of them was noted.
    bool add(const FileStatus& file) {
        const auto [noted, isNew] = m_files.try_emplace(keyOf(file), file);
        return isNew || noted->second.isSame(file, Moment::ofChange);
    }

    /// Whether the copy holds this file, unchanged since. Removing one name of several changes a file's time
    /// of change, so this counts only until a first name has been found unchanged.
    bool holds(const FileStatus& file) const {
        const auto noted = m_files.find(keyOf(file));
        if (noted == m_files.end() ||
            !noted->second.isSame(file, noted->second.found ? Moment::ofWriting : Moment::ofChange))
            return false;
        noted->second.found = true;
        return true;
    }

    /// Holds nothing from now on.
    void forget() { m_files.clear(); }

private:
    enum class Moment { ofWriting, ofChange };
    using Time = std::tuple<time_t, long>;
    using Key = std::pair<std::uint64_t, std::uint64_t>;
    /// An overlay's files may bear the numbers of several devices.
    static Key keyOf(const FileStatus& file) { return {file.device, file.inode}; }
    static Time momentOf(const timespec& time) { return {time.tv_sec, time.tv_nsec}; }

    struct Noted {
        explicit Noted(const FileStatus& file)
            : size(file.size)
            , modified(momentOf(file.modified))
            , changed(momentOf(file.changed)) {}
        bool isSame(const FileStatus& file, Moment latest) const {
            return file.size == size && momentOf(file.modified) == modified &&
                   (latest == Moment::ofWriting || momentOf(file.changed) == changed);
        }

        std::int64_t size;
        Time modified;
        Time changed;
        mutable std::atomic<bool> found = false;
    };

    std::map<Key, Noted> m_files;
};

} // namespace brimlet
