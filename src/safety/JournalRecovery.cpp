#include "safety/JournalRecovery.h"

#include "safety/HistoryFormat.h"

#include <algorithm>

namespace brimlet {

namespace {

/// A folder that is gone for good never answers again.
bool isGivenUp(const Intent& intent) {
    constexpr double longestWait = 30.0 * 24 * 3600;
    return intent.move.setAside.empty() && historyDateNow() - intent.entry.date > longestWait;
}

} // namespace

bool JournalRecovery::hasJournals() {
    const auto listed = m_store.names();
    const auto* names = std::get_if<std::vector<std::string>>(&listed);
    return names != nullptr &&
           std::any_of(names->begin(), names->end(), [](const auto& name) { return isJournalName(name); });
}

RecoveredEntries JournalRecovery::complete() {
    RecoveredEntries found;
    if (!hasJournals()) // the lock would make a folder where there is none
        return found;
    const auto lock = m_store.lock();
    const auto listed = m_store.names();
    const auto* names = std::get_if<std::vector<std::string>>(&listed);
    if (errorIn(lock) != nullptr || names == nullptr)
        return found;
    for (const std::string& name : *names) {
        if (!isJournalName(name))
            continue;
        Result<std::unique_ptr<RecordLog>> adopted = m_store.adoptLog(name);
        auto* log = std::get_if<std::unique_ptr<RecordLog>>(&adopted);
        if (log == nullptr || *log == nullptr)
            continue;
        const Result<std::string> text = (*log)->content();
        if (errorIn(text) != nullptr)
            continue;
        completeRun(name, std::move(*log), intentsFromText(*std::get_if<std::string>(&text)), found);
    }
    return found;
}

void JournalRecovery::completeRun(const std::string& name, std::unique_ptr<RecordLog> log,
                                  const std::vector<Intent>& intents, RecoveredEntries& found) {
    bool isFinished = true;
    std::vector<Uuid> yielded;
    for (const Intent& intent : intents) {
        const std::size_t before = found.count();
        isFinished = (completeIntent(intent, found) || isGivenUp(intent)) && isFinished;
        if (found.count() > before)
            yielded.push_back(intent.entry.id);
    }
    if (!isFinished)
        m_unfinished.emplace_back(std::move(log), std::move(yielded));
    else if (yielded.empty())
        (void)m_store.remove(name);
    else
        m_finished.emplace_back(name, std::move(log));
}

void JournalRecovery::forget() {
    for (const auto& [log, yielded] : m_unfinished) {
        for (const Uuid& entry : yielded)
            (void)log->append(recordedText(entry), Durability::survivesCrash);
    }
    m_unfinished.clear();
    for (const auto& [name, log] : m_finished)
        (void)m_store.remove(name);
    m_finished.clear();
}

/// Whether nothing of this intent is left to be done at another start.
bool JournalRecovery::completeIntent(const Intent& intent, RecoveredEntries& found) {
    const bool isTidy = tidy(intent);
    HistoryEntry entry = intent.entry;
    const bool isRemoval = intent.kind == IntentKind::remove;
    const std::string& place = isRemoval ? entry.originalPath : intent.move.destination;
    if (place.empty() || intent.isRecorded)
        return isTidy;
    const auto answer = m_removal.identity(place);
    const auto* there = std::get_if<std::optional<FileIdentity>>(&answer);
    if (there == nullptr) // the disk may answer another start
        return false;
    if (isRemoval) {
        // A folder was set aside by its identity; what is called so now is another one.
        const bool isAnother = !intent.move.scratch.empty() && *there != intent.move.identity;
        if (isTidy && (!*there || isAnother))
            found.deleted.push_back(std::move(entry));
    } else if (*there == intent.move.identity) {
        if (intent.kind == IntentKind::restore) {
            found.restored.push_back(entry.id);
        } else {
            entry.trashPath = place;
            found.deleted.push_back(std::move(entry));
        }
    }
    return isTidy;
}

bool JournalRecovery::tidy(const Intent& intent) {
    bool isTidy = true;
    if (!intent.move.setAside.empty()) {
        const std::string& place = intent.kind == IntentKind::restore
                                       ? intent.entry.trashPath.value_or(std::string())
                                       : intent.entry.originalPath;
        isTidy = !m_removal.returnToPlace(intent.move.setAside, place);
    }
    for (const std::string& path : intent.move.scratch)
        isTidy = !m_removal.removeScratch(path) && isTidy;
    return isTidy;
}

} // namespace brimlet
