// What a run is about to do, noted before it does it.
//
// Protocol. Each run has a log of its own beside the history, "run-<identifier>.journal", locked while the
// run's process lives. Before an item is renamed its intent is appended, one JSON object on a line: the
// history entry to be, the identity by which the item will be known at its destination, and the scratch
// entries that the move makes. An intent that replaces an earlier one has the same entry identifier; the last
// one counts. The log goes when the history holds the run's entries and no scratch is left. A log without a
// living owner is what recovery reads. One thread at a time.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/RecordStore.h"
#include "safety/DeletionRecords.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

enum class IntentKind : std::uint8_t { remove, trash, restore };

struct Intent {
    IntentKind kind = IntentKind::trash;
    HistoryEntry entry; ///< as it will stand in the history when the move is done
    PlannedMove move;
    bool isRecorded = false; ///< the history has taken the entry over; only the tidying is left
};

class RunJournal {
public:
    /// store   must outlive the journal
    explicit RunJournal(RecordStore& store);

    /// Appends an intent. A move into or out of the Trash is on the disk when this returns; a removal need
    /// only survive the process, unless it makes scratch.
    Failure note(const Intent& intent);

    /// Says that a noted removal is over: its scratch may go together with the folder that held it.
    void removalDone(const Uuid& entry);

    /// Ends the journal, once the history holds what came of its intents. It stays when scratch is left on
    /// the disk.
    void settle(FileRemoval& removal);

private:
    RecordStore& m_store;
    std::string m_name;
    std::unique_ptr<RecordLog> m_log; ///< made at the first note
    struct Scratch {
        std::string path;
        Uuid entry; ///< whose move has made it
        bool isDone = false;
    };

    std::vector<Scratch> m_scratch;
};

/// Whether a file of the store is a journal.
bool isJournalName(std::string_view name);

/// The intents of a journal, the last one of each entry, in order of their first notes. A line that was cut
/// off was never acted on and is passed over. Scratch of intents that were replaced is kept in those that
/// replaced them.
std::vector<Intent> intentsFromText(std::string_view text);

/// A line that says that the history has taken an entry over.
std::string recordedText(const Uuid& entry);

/// One line, with a line feed on both sides so that a cut-off one before it does no harm.
std::string intentText(const Intent& intent);

} // namespace brimlet
