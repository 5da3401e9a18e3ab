// The log of everything that was deleted, and the way back from the Trash.
//
// One file, "history.json", read at creation and replaced as a whole after every change. Invariants:
// 1. The file is always the old list or the new one. A file that doesn't decode is kept beside it before the
//    first write ("history.damaged-<date>.json"); while the file can't be looked at, nothing is written.
// 2. Other processes' entries survive: each write happens under the store's lock and merges what the file
//    holds.
// 3. A failed write leaves the file as it was and the journals where they are. The list in memory keeps the
//    change: the next write carries it, or the next start completes it.
// 4. Creation completes what runs that died had begun: an entry whose item has arrived at its noted place,
//    with its noted identity, is added, others are dropped, scratch is removed.
// One thread at a time; blocks on the disk.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/RecordStore.h"
#include "safety/DeletionExecutor.h"
#include "safety/DeletionRecords.h"
#include "safety/HistoryMerge.h"

#include <string>
#include <vector>

namespace brimlet {

/// Where the application and the command line keep the history: "Library/Application Support/Brimlet" of the
/// home folder.
std::string historyFolder(const std::string& homeFolder);

class DeletionHistory {
public:
    /// Loads the file and completes what was interrupted. Both must outlive the history.
    DeletionHistory(RecordStore& store, FileRemoval& removal);

    /// Newest first.
    const std::vector<HistoryEntry>& entries() const { return m_entries; }

    /// The file's absolute path.
    std::string filePath() const;

    /// Puts new entries in front, in their order, and saves. False when the file could not be written.
    bool append(const std::vector<HistoryEntry>& entries);

    /// Appends what a run removed, and ends its journal when that is written.
    bool record(const ExecutedRun& run);

    /// Whether an entry's item is still in the Trash, was not put back, and has its place free. Looks at the
    /// disk.
    bool canRestore(const HistoryEntry& entry) const;

    /// Moves one entry's item back to where it was. An entry without a place in the Trash counts as done.
    Failure restore(const HistoryEntry& entry);

    /// Like restore, but first refuses an entry that was restored, was deleted for good, has left the Trash,
    /// or whose place is taken.
    Failure restoreIfPossible(const HistoryEntry& entry);

    /// Forgets all entries, and saves. What is in the Trash stays there.
    bool clear();

    /// Writes the list, merged with what other processes wrote. False when that failed.
    bool save();

private:
    enum class FileState {
        missing,
        whole,
        damaged, ///< can't be read, or doesn't decode
        unknown, ///< another try may read it
    };
    struct File {
        FileState state = FileState::missing;
        std::vector<HistoryEntry> entries;
    };

    File readFile();
    bool keepDamagedFile();
    void recover();
    bool holdsItsPlace(const HistoryEntry& entry) const;
    bool isThere(const std::string& path) const;
    void markRestored(const Uuid& id);
    void applyRestored(std::vector<HistoryEntry>& entries) const;

    RecordStore& m_store;
    FileRemoval& m_removal;
    std::vector<HistoryEntry> m_entries;
    UuidSet m_base;     ///< the identifiers in the file when it was last read or written
    UuidSet m_restored; ///< what this process has put back
};

} // namespace brimlet
