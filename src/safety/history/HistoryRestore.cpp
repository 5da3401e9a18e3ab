#include "safety/history/HistoryRestore.h"

#include "core/Localized.h"

#include <cerrno>
#include <utility>

namespace brimlet {

namespace {

PlatformError refusal(std::string_view sentence) {
    return {ErrorDomain::posix, EEXIST, std::nullopt, localized(sentence)};
}

/// The newest knowledge: the file's, and what this process could not write yet.
std::vector<HistoryEntry> knownEntries(const HistorySnapshot& known, const HistoryFile::Content& file) {
    if (file.state != HistoryFile::State::whole)
        return known.entries;
    std::vector<HistoryEntry> entries = mergedHistory(known.base, known.entries, file.entries);
    applyRestored(entries, known.restored);
    return entries;
}

} // namespace

TrashPlaces::TrashPlaces(const std::vector<HistoryEntry>& entries)
    : m_entries(entries) {
    for (std::size_t i = 0; i < entries.size(); ++i) { // newest first, and the first one stays
        const HistoryEntry& entry = entries[i];
        m_positions.emplace(entry.id, i);
        if (entry.trashPath)
            m_newest.emplace(*entry.trashPath, i);
        if (!entry.restored)
            m_newest.emplace(entry.originalPath, i);
    }
}

bool TrashPlaces::isHeldBy(const HistoryEntry& entry) const {
    const auto newest = m_newest.find(*entry.trashPath);
    if (newest == m_newest.end())
        return true;
    const auto position = m_positions.find(entry.id);
    return position != m_positions.end() && position->second <= newest->second;
}

bool TrashPlaces::isRestored(const HistoryEntry& entry) const {
    const auto position = m_positions.find(entry.id);
    return entry.restored || (position != m_positions.end() && m_entries[position->second].restored);
}

Result<FileIdentity> restorable(const HistoryEntry& entry, const TrashPlaces& places, FileRemoval& removal) {
    if (places.isRestored(entry))
        return refusal("It has been restored already.");
    if (!entry.trashPath)
        return refusal("It was deleted permanently.");
    auto lying = removal.identity(*entry.trashPath);
    const auto* identity = std::get_if<std::optional<FileIdentity>>(&lying);
    if (!places.isHeldBy(entry) || identity == nullptr || !*identity)
        return refusal("It is no longer in the Trash.");
    if (entry.identity && **identity != *entry.identity)
        return refusal("Something else has its name in the Trash now.");
    const auto there = removal.identity(entry.originalPath);
    const auto* taken = std::get_if<std::optional<FileIdentity>>(&there);
    if (taken != nullptr && *taken)
        return refusal("Something else is in its place now.");
    return **identity;
}

HistoryRestore::HistoryRestore(RecordStore& store, FileRemoval& removal, HistorySnapshot known)
    : m_store(store)
    , m_removal(removal)
    , m_file(store)
    , m_journal(store)
    , m_known(std::move(known)) {}

RestoreOutcome HistoryRestore::run(const std::vector<HistoryEntry>& wanted, const std::stop_token& stop) {
    judge(wanted);
    const Failure unnoted = noteAll();
    for (const Candidate& candidate : m_candidates) {
        Failure failure = unnoted;
        if (!failure)
            failure =
                stop.stop_requested() ? refusal("The restore was stopped before this.") : moveBack(candidate);
        if (failure) {
            m_outcome.refused.push_back({*candidate.entry, std::move(*failure)});
        } else {
            m_outcome.restored.push_back(*candidate.entry);
            m_outcome.known.insert(candidate.entry->id);
        }
    }
    m_outcome.isSaved = m_outcome.known.empty() || save();
    if (m_outcome.isSaved)
        m_journal.settle(m_removal);
    return std::move(m_outcome);
}

void HistoryRestore::judge(const std::vector<HistoryEntry>& wanted) {
    const std::vector<HistoryEntry> entries = knownEntries(m_known, m_file.readLocked());
    const TrashPlaces places(entries);
    for (const HistoryEntry& entry : wanted) {
        Result<FileIdentity> identity = restorable(entry, places, m_removal);
        if (const PlatformError* error = errorIn(identity)) {
            m_outcome.refused.push_back({entry, *error});
            if (places.isRestored(entry))
                m_outcome.known.insert(entry.id);
        } else {
            m_candidates.push_back({&entry, valueOf(std::move(identity))});
        }
    }
}

Failure HistoryRestore::noteAll() {
    std::vector<Intent> intents;
    for (const auto& [entry, identity] : m_candidates)
        intents.push_back({IntentKind::restore, *entry, {entry->originalPath, identity, {}, {}}});
    return intents.empty() ? std::nullopt : m_journal.note(intents);
}

Failure HistoryRestore::moveBack(const Candidate& candidate) {
    std::string remark;
    const auto note = [&](const PlannedMove& move) -> Failure {
        remark = move.remark;
        const bool isNoted =
            move.identity == candidate.identity && move.scratch.empty() && move.setAside.empty();
        const Intent intent{IntentKind::restore, *candidate.entry, move};
        return isNoted ? std::nullopt : m_journal.note({&intent, 1});
    };
    const HistoryEntry& entry = *candidate.entry;
    const auto move = [&] {
        return m_removal.moveBack(*entry.trashPath, entry.originalPath, candidate.identity, note);
    };
    Failure failure = move();
    // On a full disk even a rename may need a block, for its folder.
    if (failure == errorFromErrno(ENOSPC) && m_store.makeRoom())
        failure = move();
    if (!failure && !remark.empty())
        m_outcome.remarks.push_back({Uuid::random(), entry.originalPath, std::move(remark)});
    return failure;
}

bool HistoryRestore::save() {
    m_known.restored.insert(m_outcome.known.begin(), m_outcome.known.end());
    return m_file.write(m_known).has_value();
}

} // namespace brimlet
