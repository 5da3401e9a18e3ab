// What a run is about to do, noted before it does it.
//
// Protocol. Each run has a log of its own beside the history, "run-<identifier>.journal", locked while the
// run's process lives. Before an item is renamed its intent is appended, one JSON object on a line: the
// history entry to be, the identity by which the item will be known at its destination, the scratch entries
// that the move makes, and what the item is called while it is removed. Intents of many items are appended
// together; that an intent stands there does not say that its turn has come, but forecasts are carried out in
// the order in which they stand. One that came to nothing is dropped by a line of its own. An intent that
// replaces an earlier one has the same entry identifier; the last one counts. The log goes when the history
// holds the run's entries and no scratch is left. A log without a living owner is what recovery reads. One
// thread at a time.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/RecordStore.h"
#include "safety/DeletionRecords.h"
#include "safety/HistoryMerge.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brimlet {

enum class IntentKind : std::uint8_t { remove, trash, restore };

struct Intent {
    IntentKind kind = IntentKind::trash;
    HistoryEntry entry; ///< as it will stand in the history when the move is done
    PlannedMove move;
    bool isRecorded = false; ///< the history has taken the entry over; only the tidying is left
    bool isBegun = false;    ///< noted in its turn, not as a forecast
    bool isDropped = false;  ///< nothing was done, and nothing will be
    bool isDone = false;     ///< what the entry says has happened, whatever lies there
};

class RunJournal {
public:
    /// store   must outlive the journal
    explicit RunJournal(RecordStore& store);

    /// Appends intents with one write and at most one sync. Moves into or out of the Trash are on the disk
    /// when this returns; a removal need only survive the process, unless it makes scratch or sets aside. On
    /// an error none counts as noted.
    Failure note(std::span<const Intent> intents);

    /// Says that nothing of a noted move is left to look for: it has done all, or never began.
    void close(const Uuid& entry);

    /// Says that a noted move came to nothing. Costs a write.
    void drop(const Uuid& entry);

    /// Ends the journal, once the history holds what came of its intents. It stays when scratch is left on
    /// the disk.
    void settle(FileRemoval& removal);

private:
    Failure open();

    RecordStore& m_store;
    std::string m_name;
    std::unique_ptr<RecordLog> m_log;                               ///< made at the first note
    std::unordered_multimap<Uuid, std::string, UuidHash> m_scratch; ///< by the entry whose move makes it
};

/// Whether a file of the store is a journal.
bool isJournalName(std::string_view name);

/// The intents of a journal, the last one of each entry, in order of their first notes. A line that was cut
/// off was never acted on and is passed over. Scratch of intents that were replaced is kept in those that
/// replaced them.
std::vector<Intent> intentsFromText(std::string_view text);

/// A line that says that the history has taken an entry over.
std::string recordedText(const Uuid& entry);

/// A line that says that an intent came to nothing.
std::string droppedText(const Uuid& entry);

/// One line, with a line feed on both sides so that a cut-off one before it does no harm.
std::string intentText(const Intent& intent);

} // namespace brimlet
