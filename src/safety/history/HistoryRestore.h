// Puts back what lies in the Trash: many items at once, away from the thread that owns the history.
//
// 1. What the file holds is read again before anything is judged: another process may have used the Trash.
// 2. What comes back is what went in: the identity that the history keeps is compared with what lies there,
//    and again as the last thing before it is moved.
// 3. All intents are noted with one sync before the first item is moved, and the history is written once
//    after the last. If the process dies between, the next start completes the entries.
#pragma once

#include "platform/FileRemoval.h"
#include "safety/history/HistoryFile.h"
#include "safety/RunJournal.h"

#include <cstddef>
#include <map>
#include <optional>
#include <stop_token>
#include <string_view>
#include <vector>

namespace brimlet {

/// An entry that stayed in the Trash, or is not there, and why.
struct RefusedRestore {
    HistoryEntry entry;
    PlatformError error; ///< for DeletionExecutor::reason
};

struct RestoreOutcome {
    std::vector<HistoryEntry> restored; ///< what came back, in the order asked for
    std::vector<RefusedRestore> refused;
    std::vector<DeletionFailure> remarks; ///< on what came back all the same: what its copy lacks
    UuidSet known;       ///< all entries asked for that are back in their places, by whomever
    bool isSaved = true; ///< whether the file says so; if not, the next start completes it
};

/// Tells whose place in the Trash is whose, among many entries.
class TrashPlaces {
public:
    /// entries   newest first; must outlive the object
    explicit TrashPlaces(const std::vector<HistoryEntry>& entries);

    /// Whether what lies at an entry's place in the Trash can be what it put there: no later entry has used
    /// the name again or taken it away.
    bool isHeldBy(const HistoryEntry& entry) const;

    /// Whether an entry has come back, as it says itself or as the list says.
    bool isRestored(const HistoryEntry& entry) const;

private:
    const std::vector<HistoryEntry>& m_entries;
    std::map<Uuid, std::size_t> m_positions;
    std::map<std::string_view, std::size_t>
        m_newest; ///< entry that last used or emptied a place in the Trash
};

/// Why an entry can't come back, as far as the disk and the list tell. Looks at the disk; without an error,
/// gives the identity of what lies in the Trash.
Result<FileIdentity> restorable(const HistoryEntry& entry, const TrashPlaces& places, FileRemoval& removal);

/// One restore of many entries; used once.
class HistoryRestore {
public:
    /// known   what the caller knows of the history
    /// store, removal   must outlive the object
    HistoryRestore(RecordStore& store, FileRemoval& removal, HistorySnapshot known);

    /// stop    ends it after the item at hand; what had not begun is refused with a sentence
    RestoreOutcome run(const std::vector<HistoryEntry>& wanted, const std::stop_token& stop);

private:
    struct Candidate {
        const HistoryEntry* entry;
        FileIdentity identity; ///< of what lies in the Trash
    };

    void judge(const std::vector<HistoryEntry>& wanted);
    Failure noteAll();
    Failure moveBack(const Candidate& candidate);
    bool save();

    RecordStore& m_store;
    FileRemoval& m_removal;
    HistoryFile m_file;
    RunJournal m_journal;
    HistorySnapshot m_known;
    std::vector<Candidate> m_candidates;
    RestoreOutcome m_outcome;
};

} // namespace brimlet
