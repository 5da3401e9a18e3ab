// The log of everything that was deleted, and the way back from the Trash.
//
// One file, "history.json", read at creation and replaced as a whole after every change. Invariants:
// 1. The file is always the old list or the new one. A file that doesn't decode is kept beside it before the
//    first write ("history.damaged-<date>.json"); while the file can't be looked at, for want of permission
//    too, nothing is written.
// 2. Other processes' entries survive: each write happens under the store's lock and merges what the file
//    holds.
// 3. A failed write leaves the file as it was and the journals where they are. The list in memory keeps the
//    change: the next write carries it, or the next start completes it.
// 4. Recovery completes what runs that died had begun: an entry whose item has arrived at its noted place,
//    with its noted identity, is added, others are dropped, what was set aside has its name back, scratch is
//    removed.
// One thread at a time; blocks on the disk.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/RecordStore.h"
#include "safety/DeletionExecutor.h"
#include "safety/DeletionRecords.h"
#include "safety/history/HistoryFile.h"
#include "safety/history/HistoryRestore.h"
#include "safety/JournalRecovery.h"

#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace brimlet {

/// What is done about interrupted runs when a history is made. Who only reads changes nothing; who wants no
/// wait recovers elsewhere and hands over what was found.
enum class HistoryStart { recovers, fileOnly };

class DeletionHistory {
public:
    /// Loads the file and, unless told otherwise, completes what was interrupted. Both must outlive the
    /// history.
    DeletionHistory(RecordStore& store, FileRemoval& removal, HistoryStart start = HistoryStart::recovers);

    /// Newest first.
    const std::vector<HistoryEntry>& entries() const { return m_entries; }

    /// The file's absolute path.
    std::string filePath() const { return m_file.path(); }

    /// Puts new entries in front, in their order, and saves. False when the file could not be written.
    bool append(const std::vector<HistoryEntry>& entries);

    /// Takes over what a recovery found, and lets it forget that when it is written.
    void take(const RecoveredEntries& found, JournalRecovery& recovery);

    /// Appends what a run removed, and ends its journal when that is written.
    bool record(const ExecutedRun& run);

    /// Whether an entry's item is still in the Trash, was not put back, and has its place free. Looks at the
    /// disk.
    bool canRestore(const HistoryEntry& entry) const;

    /// Moves entries' items back to where they were, as HistoryRestore does, and marks them.
    RestoreOutcome restore(const std::vector<HistoryEntry>& entries);

    /// Work that moves entries' items back: to be called once, on any thread, while the history goes on being
    /// used on its own. What it gives is handed to adopt().
    std::function<RestoreOutcome(const std::stop_token&)> restoring(std::vector<HistoryEntry> entries) const;

    /// Marks what came back.
    void adopt(const RestoreOutcome& outcome);

    /// Moves one entry's item back to where it was. An entry without a place in the Trash counts as done.
    Failure restore(const HistoryEntry& entry);

    /// Like restore, but also refuses an entry that was deleted for good.
    Failure restoreIfPossible(const HistoryEntry& entry);

    /// Forgets all entries, and saves. What is in the Trash stays there.
    bool clear();

    /// Writes the list, merged with what other processes wrote. False when that failed.
    bool save();

private:
    HistorySnapshot snapshot() const { return {m_entries, m_base, m_restored}; }
    void markRestored(const UuidSet& entries);

    RecordStore& m_store;
    FileRemoval& m_removal;
    HistoryFile m_file;
    std::vector<HistoryEntry> m_entries;
    mutable std::optional<TrashPlaces> m_places; ///< of m_entries, made when asked for
    UuidSet m_base;     ///< the identifiers in the file when it was last read or written
    UuidSet m_restored; ///< what this process has put back
};

} // namespace brimlet
