#include "safety/DeletionHistory.h"

#include "core/Localized.h"
#include "safety/HistoryFormat.h"
#include "safety/JournalRecovery.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>

namespace brimlet {

namespace {

constexpr std::string_view fileName = "history.json";

UuidSet identifiersOf(const std::vector<HistoryEntry>& entries) {
    UuidSet identifiers;
    for (const HistoryEntry& entry : entries)
        identifiers.insert(entry.id);
    return identifiers;
}

std::string damagedName(int attempt) {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&now, &parts);
    std::array<char, 32> stamp{};
    const std::size_t length = std::strftime(stamp.data(), stamp.size(), "%Y%m%d-%H%M%S", &parts);
    const std::string counted = attempt == 0 ? "" : "-" + std::to_string(attempt + 1);
    return "history.damaged-" + std::string(stamp.data(), length) + counted + ".json";
}

/// Whether the same call may succeed a moment later, so that nothing is wrong with the file.
bool isPassing(const PlatformError& error) {
    const auto codes = {EMFILE, ENFILE, ENOMEM, EINTR, EAGAIN, EIO, ESTALE, ETIMEDOUT, ENXIO, ENODEV};
    return std::any_of(codes.begin(), codes.end(), [&](int code) { return error == errorFromErrno(code); });
}

PlatformError refusal(std::string_view sentence) {
    return {ErrorDomain::posix, EEXIST, std::nullopt, localized(sentence)};
}

} // namespace

std::string historyFolder(const std::string& homeFolder) {
    return homeFolder + "/Library/Application Support/Brimlet";
}

DeletionHistory::DeletionHistory(RecordStore& store, FileRemoval& removal)
    : m_store(store)
    , m_removal(removal) {
    m_entries = readFile().entries;
    m_base = identifiersOf(m_entries);
    recover();
}

std::string DeletionHistory::filePath() const {
    return m_store.folder() + "/" + std::string(fileName);
}

DeletionHistory::File DeletionHistory::readFile() {
    const auto bytes = m_store.read(fileName);
    if (const PlatformError* error = errorIn(bytes))
        return {isPassing(*error) ? FileState::unknown : FileState::damaged, {}};
    const auto* text = std::get_if<std::optional<std::string>>(&bytes);
    if (!*text)
        return {FileState::missing, {}};
    auto entries = historyFromText(**text);
    if (!entries)
        return {FileState::damaged, {}};
    return {FileState::whole, std::move(*entries)};
}

bool DeletionHistory::keepDamagedFile() {
    constexpr int mostAttempts = 100; // of one second
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const Failure failure = m_store.rename(fileName, damagedName(attempt));
        if (!failure)
            return true;
        if (failure->code != EEXIST)
            return false;
    }
    return false;
}

bool DeletionHistory::save() {
    const auto lock = m_store.lock();
    if (errorIn(lock) != nullptr)
        return false;
    const File file = readFile();
    if (file.state == FileState::unknown || (file.state == FileState::damaged && !keepDamagedFile()))
        return false;
    // A file that is gone or damaged says nothing about what others took away.
    std::vector<HistoryEntry> merged =
        file.state == FileState::whole ? mergedHistory(m_base, m_entries, file.entries) : m_entries;
    applyRestored(merged);
    if (m_store.replace(fileName, historyText(merged)))
        return false;
    m_entries = std::move(merged);
    m_base = identifiersOf(m_entries);
    return true;
}

bool DeletionHistory::append(const std::vector<HistoryEntry>& entries) {
    m_entries.insert(m_entries.begin(), entries.begin(), entries.end());
    trimHistory(m_entries);
    return save();
}

bool DeletionHistory::record(const ExecutedRun& run) {
    const bool saved = run.entries.empty() || append(run.entries);
    if (saved && run.journal)
        run.journal->settle(m_removal);
    return saved;
}

bool DeletionHistory::clear() {
    m_entries.clear();
    return save();
}

/// Also entries that this process could not read, or that another has added: the next write marks them.
void DeletionHistory::markRestored(const Uuid& id) {
    m_restored.insert(id);
    applyRestored(m_entries);
}

void DeletionHistory::applyRestored(std::vector<HistoryEntry>& entries) const {
    for (HistoryEntry& entry : entries)
        entry.restored = entry.restored || m_restored.contains(entry.id);
}

Failure DeletionHistory::restore(const HistoryEntry& entry) {
    if (!entry.trashPath)
        return std::nullopt;
    RunJournal journal(m_store);
    const auto note = [&](const PlannedMove& move) {
        return journal.note({IntentKind::restore, entry, move});
    };
    if (auto failure = m_removal.moveBack(*entry.trashPath, entry.originalPath, note)) {
        journal.settle(m_removal);
        return failure;
    }
    markRestored(entry.id);
    if (save())
        journal.settle(m_removal);
    return std::nullopt;
}

bool DeletionHistory::isThere(const std::string& path) const {
    const auto identity = m_removal.identity(path);
    const auto* found = std::get_if<std::optional<FileIdentity>>(&identity);
    return found != nullptr && found->has_value();
}

/// Whether what lies at the entry's place in the Trash can be what it put there: no later entry has used the
/// name again or taken it away.
bool DeletionHistory::holdsItsPlace(const HistoryEntry& entry) const {
    for (const HistoryEntry& later : m_entries) { // newest first
        if (later.id == entry.id)
            break;
        if (later.trashPath == entry.trashPath || (!later.restored && later.originalPath == entry.trashPath))
            return false;
    }
    return true;
}

bool DeletionHistory::canRestore(const HistoryEntry& entry) const {
    return !entry.restored && entry.trashPath && holdsItsPlace(entry) && isThere(*entry.trashPath) &&
           !isThere(entry.originalPath);
}

Failure DeletionHistory::restoreIfPossible(const HistoryEntry& entry) {
    if (entry.restored)
        return refusal("It has been restored already.");
    if (!entry.trashPath)
        return refusal("It was deleted permanently.");
    if (!holdsItsPlace(entry) || !isThere(*entry.trashPath))
        return refusal("It is no longer in the Trash.");
    if (isThere(entry.originalPath))
        return refusal("Something else is in its place now.");
    return restore(entry);
}

void DeletionHistory::recover() {
    JournalRecovery recovery(m_store, m_removal);
    const RecoveredEntries found = recovery.complete();
    if (found.count() == 0)
        return;
    UuidSet known = identifiersOf(m_entries);
    std::vector<HistoryEntry> missing;
    std::copy_if(found.deleted.begin(), found.deleted.end(), std::back_inserter(missing),
                 [&](const HistoryEntry& entry) { return !known.contains(entry.id); });
    for (const Uuid& id : found.restored)
        markRestored(id);
    if (append(missing))
        recovery.forget();
}

} // namespace brimlet
