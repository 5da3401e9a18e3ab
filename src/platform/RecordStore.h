// A folder of the application's own small files, written so that a crash leaves each the old or the new one.
//
// The folder is the store's alone; names are plain file names. Processes exclude each other through lock(). A
// log belongs to the process that made it for as long as that lives. On a full disk the store still writes,
// as long as makeRoom() finds something to give. Callable from any thread; blocks on the disk.
#pragma once

#include "platform/Result.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

/// Whether a call returns only when its bytes are on the disk, and survive a power cut.
enum class Durability { survivesCrash, survivesPowerCut };

/// A file that only grows. Unlocked when destroyed; it stays on the disk.
class RecordLog {
public:
    virtual ~RecordLog() = default;

    /// On an error some of the bytes may have been written.
    virtual Failure append(std::string_view bytes, Durability durability) = 0;

    /// All that was appended, by whom ever.
    virtual Result<std::string> content() = 0;
};

/// Held as long as it lives.
class RecordLock {
public:
    virtual ~RecordLock() = default;
};

class RecordStore {
public:
    virtual ~RecordStore() = default;

    /// The folder's absolute path.
    virtual const std::string& folder() const = 0;

    /// Waits until no other process or thread holds the lock.
    virtual Result<std::unique_ptr<RecordLock>> lock() = 0;

    /// The bytes of a file; nothing when there is no such file.
    virtual Result<std::optional<std::string>> read(std::string_view name) = 0;

    /// Replaces a file's content as a whole and syncs it. Only under the lock.
    virtual Failure replace(std::string_view name, std::string_view bytes) = 0;

    /// Gives a file another name; fails when that is taken.
    virtual Failure rename(std::string_view name, std::string_view newName) = 0;

    /// Gone already counts as done.
    virtual Failure remove(std::string_view name) = 0;

    /// The names of all files in the folder.
    virtual Result<std::vector<std::string>> names() = 0;

    /// A new log. Only under the lock.
    virtual Result<std::unique_ptr<RecordLog>> createLog(std::string_view name) = 0;

    /// Gives back to the disk what is kept for when it is full. False when there was nothing to give.
    virtual bool makeRoom() { return false; }

    /// A log whose process has ended; null while that still runs.
    virtual Result<std::unique_ptr<RecordLog>> adoptLog(std::string_view name) = 0;
};

} // namespace brimlet
