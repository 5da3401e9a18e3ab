// Looks after the journals of runs that died: what they had begun is either true by now or never happened.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/RecordStore.h"
#include "safety/RunJournal.h"

#include <memory>
#include <string>
#include <utility>
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

    /// Finds what dead runs did and removes their scratch. Journals that yield entries stay until forget(),
    /// those about which the disk gives no answer until another start, or for a month where nothing of the
    /// user's is set aside.
    RecoveredEntries complete();

    /// Removes the journals, once the history holds what complete() gave. Those that stay say so from now on.
    void forget();

private:
    bool hasJournals();
    void completeRun(const std::string& name, std::unique_ptr<RecordLog> log,
                     const std::vector<Intent>& intents, RecoveredEntries& found);
    bool completeIntent(const Intent& intent, RecoveredEntries& found);
    bool tidy(const Intent& intent);

    RecordStore& m_store;
    FileRemoval& m_removal;
    std::vector<std::pair<std::string, std::unique_ptr<RecordLog>>>
        m_finished; ///< kept locked until forgotten
    std::vector<std::pair<std::unique_ptr<RecordLog>, std::vector<Uuid>>>
        m_unfinished; ///< with the entries that they yielded
};

} // namespace brimlet
