// Looks after the journals of runs that died: what they had begun is either true by now or never happened,
// and what they had set aside gets its name back.
//
// complete(), then forget() once the history holds what that gave, then tidy(). The store's lock is held only
// while the journals are taken over; they stay this recovery's as long as it lives. One thread at a time, but
// each step may be on another.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/RecordStore.h"
#include "safety/RunJournal.h"

#include <memory>
#include <stop_token>
#include <string>
#include <vector>

namespace brimlet {

struct RecoveredEntries {
    std::vector<HistoryEntry> deleted; ///< whose item is where it was meant to go, or gone for good
    std::vector<Uuid> restored;        ///< whose item is back in its place
    std::size_t count() const { return deleted.size() + restored.size(); }
};

class JournalRecovery {
public:
    /// Both must outlive the recovery.
    JournalRecovery(RecordStore& store, FileRemoval& removal)
        : m_store(store)
        , m_removal(removal) {}

    /// Finds what dead runs did and gives back what they had set aside. Some renames and looks for each item,
    /// and a walk through each folder that was about to be removed, to tell what went of it; nothing is
    /// removed.
    RecoveredEntries complete();

    /// Says that the history holds what complete() gave: it is not given again.
    void forget();

    /// Removes the scratch of dead runs, which may be large, and their journals. Those that yielded entries
    /// which were not forgotten stay; so do those about which the disk gives no answer, for a month where
    /// nothing of the user's is set aside. What is left when stopped is for another start.
    void tidy(const std::stop_token& stop);

private:
    struct DeadRun {
        std::string name;
        std::unique_ptr<RecordLog> log; ///< locked
        std::vector<Intent> intents;
        std::vector<Uuid> yielded;
        bool isAnswered = true; ///< the disk has told what became of every item
    };

    bool hasJournals();
    void adoptJournals();
    bool completeIntent(const Intent& intent, bool& isOver, RecoveredEntries& found);
    bool completeMove(const Intent& intent, RecoveredEntries& found);
    bool completeRemoval(const Intent& intent, bool& isOver, RecoveredEntries& found);
    bool hasReturned(const Intent& intent);

    RecordStore& m_store;
    FileRemoval& m_removal;
    std::vector<DeadRun> m_runs;
};

} // namespace brimlet
