#include "safety/history/DeletionHistory.h"

#include <algorithm>

namespace brimlet {

namespace {

UuidSet identifiersOf(const std::vector<HistoryEntry>& entries) {
    UuidSet identifiers;
    for (const HistoryEntry& entry : entries)
        identifiers.insert(entry.id);
    return identifiers;
}

} // namespace

DeletionHistory::DeletionHistory(RecordStore& store, FileRemoval& removal, HistoryStart start)
    : m_store(store)
    , m_removal(removal)
    , m_file(store) {
    m_entries = m_file.read().entries;
    m_base = identifiersOf(m_entries);
    if (start == HistoryStart::fileOnly)
        return;
    JournalRecovery recovery(m_store, m_removal);
    take(recovery.complete(), recovery);
    recovery.tidy({});
}

bool DeletionHistory::save() {
    m_places.reset();
    std::optional<std::vector<HistoryEntry>> written = m_file.write(snapshot());
    if (!written)
        return false;
    m_entries = std::move(*written);
    m_base = identifiersOf(m_entries);
    return true;
}

bool DeletionHistory::append(const std::vector<HistoryEntry>& entries) {
    m_entries.insert(m_entries.begin(), entries.begin(), entries.end());
    trimHistory(m_entries);
    return save();
}

bool DeletionHistory::record(const ExecutedRun& run) {
    std::vector<HistoryEntry> entries = run.entries;
    entries.insert(entries.end(), run.parts.begin(), run.parts.end());
    const bool saved = entries.empty() || append(entries);
    if (saved && run.journal)
        run.journal->settle(m_removal);
    return saved;
}

bool DeletionHistory::clear() {
    m_entries.clear();
    return save();
}

/// Also entries that this process could not read, or that another has added: the next write marks them.
void DeletionHistory::markRestored(const UuidSet& entries) {
    m_restored.insert(entries.begin(), entries.end());
    m_places.reset();
    applyRestored(m_entries, m_restored);
}

std::function<RestoreOutcome(const std::stop_token&)>
DeletionHistory::restoring(std::vector<HistoryEntry> entries) const {
    return [&store = m_store, &removal = m_removal, known = snapshot(),
            entries = std::move(entries)](const std::stop_token& stop) {
        return HistoryRestore(store, removal, known).run(entries, stop);
    };
}

void DeletionHistory::adopt(const RestoreOutcome& outcome) {
    markRestored(outcome.known);
}

RestoreOutcome DeletionHistory::restore(const std::vector<HistoryEntry>& entries) {
    RestoreOutcome outcome = restoring(entries)({});
    adopt(outcome);
    return outcome;
}

Failure DeletionHistory::restore(const HistoryEntry& entry) {
    return entry.trashPath ? restoreIfPossible(entry) : std::nullopt;
}

Failure DeletionHistory::restoreIfPossible(const HistoryEntry& entry) {
    const RestoreOutcome outcome = restore(std::vector<HistoryEntry>{entry});
    return outcome.refused.empty() ? Failure() : outcome.refused.front().error;
}

bool DeletionHistory::canRestore(const HistoryEntry& entry) const {
    if (!m_places)
        m_places.emplace(m_entries);
    return errorIn(restorable(entry, *m_places, m_removal)) == nullptr;
}

void DeletionHistory::take(const RecoveredEntries& found, JournalRecovery& recovery) {
    if (found.count() == 0)
        return;
    UuidSet known = identifiersOf(m_entries);
    std::vector<HistoryEntry> missing;
    std::copy_if(found.deleted.begin(), found.deleted.end(), std::back_inserter(missing),
                 [&](const HistoryEntry& entry) { return !known.contains(entry.id); });
    markRestored({found.restored.begin(), found.restored.end()});
    if (append(missing))
        recovery.forget();
}

} // namespace brimlet
