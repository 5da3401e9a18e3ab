#include "safety/JournalRecovery.h"

#include "core/walk/MeasureTree.h"
#include "safety/HistoryFormat.h"

#include <algorithm>

namespace brimlet {

namespace {

/// A folder that is gone for good never answers again.
bool isGivenUp(const Intent& intent) {
    constexpr double longestWait = 30.0 * 24 * 3600;
    const bool holdsNothingWanted = intent.move.setAside.empty() || intent.kind == IntentKind::remove;
    return holdsNothingWanted && historyDateNow() - intent.entry.date > longestWait;
}

} // namespace

bool JournalRecovery::hasJournals() {
    const auto listed = m_store.names();
    const auto* names = std::get_if<std::vector<std::string>>(&listed);
    return names != nullptr &&
           std::any_of(names->begin(), names->end(), [](const auto& name) { return isJournalName(name); });
}

void JournalRecovery::adoptJournals() {
    if (!hasJournals()) // the lock would make a folder where there is none
        return;
    const auto lock = m_store.lock(); // a new journal is another's from its first moment
    const auto listed = m_store.names();
    const auto* names = std::get_if<std::vector<std::string>>(&listed);
    if (errorIn(lock) != nullptr || names == nullptr)
        return;
    for (const std::string& name : *names) {
        if (!isJournalName(name))
            continue;
        Result<std::unique_ptr<RecordLog>> adopted = m_store.adoptLog(name);
        auto* log = std::get_if<std::unique_ptr<RecordLog>>(&adopted);
        if (log == nullptr || *log == nullptr)
            continue;
        const Result<std::string> text = (*log)->content();
        if (errorIn(text) == nullptr)
            m_runs.push_back(
                {name, std::move(*log), intentsFromText(*std::get_if<std::string>(&text)), {}, true});
    }
}

RecoveredEntries JournalRecovery::complete() {
    adoptJournals();
    RecoveredEntries found;
    for (DeadRun& run : m_runs) {
        bool isOver = false;
        for (const Intent& intent : run.intents) {
            const std::size_t before = found.count();
            run.isAnswered = (completeIntent(intent, isOver, found) || isGivenUp(intent)) && run.isAnswered;
            if (found.count() > before)
                run.yielded.push_back(intent.entry.id);
        }
    }
    return found;
}

void JournalRecovery::forget() {
    for (DeadRun& run : m_runs) {
        std::string text;
        for (const Uuid& entry : run.yielded)
            text += recordedText(entry);
        if (!text.empty())
            (void)run.log->append(text, Durability::survivesCrash);
        run.yielded.clear();
    }
}

void JournalRecovery::tidy(const std::stop_token& stop) {
    for (const DeadRun& run : m_runs) {
        bool isFinished = run.isAnswered && run.yielded.empty();
        for (const Intent& intent : run.intents) {
            for (const std::string& path : intent.move.scratch)
                isFinished = (!m_removal.removeScratch(path, stop) || isGivenUp(intent)) && isFinished;
        }
        if (isFinished)
            (void)m_store.remove(run.name);
    }
    m_runs.clear();
}

/// Whether nothing of this intent is left to be found out at another start.
/// isOver   whether the run had died before the turn of this forecast; set when that shows
bool JournalRecovery::completeIntent(const Intent& intent, bool& isOver, RecoveredEntries& found) {
    if (intent.isDropped)
        return true;
    bool isAnswered = true;
    bool mayHaveBeenAside = false;
    HistoryEntry entry = intent.entry;
    if (!intent.move.setAside.empty()) {
        const auto aside = m_removal.identity(intent.move.setAside);
        mayHaveBeenAside = aside != Result<std::optional<FileIdentity>>();
        const bool isTold = mayHaveBeenAside && errorIn(aside) == nullptr;
        if (isTold && intent.kind == IntentKind::remove && !intent.isRecorded)
            entry.size -= measureTree(intent.move.setAside).bytes;
        isAnswered = hasReturned(intent);
    }
    if (intent.isRecorded)
        return isAnswered;
    if (intent.isDone) {
        found.deleted.push_back(intent.entry);
        return isAnswered;
    }
    if (intent.kind != IntentKind::remove)
        return completeMove(intent, found) && isAnswered;
    if (!mayHaveBeenAside)
        return completeRemoval(intent, isOver, found) && isAnswered;
    if (entry.size > 0 && entry.size < intent.entry.size) // a part of it went
        found.deleted.push_back(std::move(entry));
    return isAnswered;
}

/// What was moved is where it was meant to go, or was never moved.
bool JournalRecovery::completeMove(const Intent& intent, RecoveredEntries& found) {
    if (intent.move.destination.empty())
        return true;
    const auto answer = m_removal.identity(intent.move.destination);
    const auto* there = std::get_if<std::optional<FileIdentity>>(&answer);
    if (there == nullptr) // the disk may answer another start
        return false;
    if (*there != intent.move.identity)
        return true;
    HistoryEntry entry = intent.entry;
    const bool isRestore = intent.kind == IntentKind::restore;
    const std::string& from = isRestore ? entry.trashPath.value_or(std::string()) : entry.originalPath;
    (void)m_removal.dropOldName(from, intent.move.destination);
    if (isRestore) {
        found.restored.push_back(entry.id);
        return true;
    }
    entry.trashPath = intent.move.destination;
    entry.identity = intent.move.identity;
    found.deleted.push_back(std::move(entry));
    return true;
}

/// What was to go for good is gone, or its turn never came.
bool JournalRecovery::completeRemoval(const Intent& intent, bool& isOver, RecoveredEntries& found) {
    const auto answer = m_removal.identity(intent.entry.originalPath);
    const auto* there = std::get_if<std::optional<FileIdentity>>(&answer);
    if (there == nullptr)
        return false;
    const bool isForecast = !intent.isBegun;
    isOver = isOver || (isForecast && *there && *there == intent.move.identity);
    // A folder goes under another name; what is called so now is another one.
    const bool isAnother = !intent.move.setAside.empty() && *there != intent.move.identity;
    if ((!*there || isAnother) && !(isOver && isForecast))
        found.deleted.push_back(intent.entry);
    return true;
}

bool JournalRecovery::hasReturned(const Intent& intent) {
    const bool isRestore = intent.kind == IntentKind::restore;
    const std::string place =
        isRestore ? intent.entry.trashPath.value_or(std::string()) : intent.entry.originalPath;
    return !m_removal.returnToPlace(intent.move.setAside, place);
}

} // namespace brimlet
