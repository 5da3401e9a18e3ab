#include "safety/history/HistoryFile.h"

#include "safety/HistoryFormat.h"

#include <array>
#include <cerrno>
#include <ctime>
#include <functional>

namespace brimlet {

namespace {

constexpr std::string_view fileName = "history.json";

std::string damagedName(int attempt) {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&now, &parts);
    std::array<char, 32> stamp{};
    const std::size_t length = std::strftime(stamp.data(), stamp.size(), "%Y%m%d-%H%M%S", &parts);
    const std::string counted = attempt == 0 ? "" : "-" + std::to_string(attempt + 1);
    return "history.damaged-" + std::string(stamp.data(), length) + counted + ".json";
}

} // namespace

void applyRestored(std::vector<HistoryEntry>& entries, const UuidSet& restored) {
    for (HistoryEntry& entry : entries)
        entry.restored = entry.restored || restored.contains(entry.id);
}

std::string HistoryFile::path() const {
    return m_store.folder() + "/" + std::string(fileName);
}

// An error says nothing about what the file holds: a disk that doesn't answer may do so later, and a file of
// another user isn't ours to replace.
HistoryFile::Content HistoryFile::read() {
    const auto bytes = m_store.read(fileName);
    if (const PlatformError* error = errorIn(bytes))
        return {*error == errorFromErrno(EISDIR) ? State::damaged : State::unknown, {}};
    const auto* text = std::get_if<std::optional<std::string>>(&bytes);
    if (!*text)
        return {State::missing, {}};
    if (!m_written.empty() && std::hash<std::string_view>()(**text) == m_writtenHash)
        return {State::whole, m_written};
    auto entries = historyFromText(**text);
    if (!entries)
        return {State::damaged, {}};
    return {State::whole, std::move(*entries)};
}

HistoryFile::Content HistoryFile::readLocked() {
    const auto lock = m_store.lock();
    return errorIn(lock) != nullptr ? Content{State::unknown, {}} : read();
}

bool HistoryFile::keepDamagedFile() {
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

std::optional<std::vector<HistoryEntry>> HistoryFile::write(const HistorySnapshot& snapshot) {
    const auto lock = m_store.lock();
    if (errorIn(lock) != nullptr)
        return std::nullopt;
    const Content file = read();
    if (file.state == State::unknown || (file.state == State::damaged && !keepDamagedFile()))
        return std::nullopt;
    // A file that is gone or damaged says nothing about what others took away.
    std::vector<HistoryEntry> merged = file.state == State::whole
                                           ? mergedHistory(snapshot.base, snapshot.entries, file.entries)
                                           : snapshot.entries;
    applyRestored(merged, snapshot.restored);
    const std::string text = historyText(merged);
    if (m_store.replace(fileName, text))
        return std::nullopt;
    m_writtenHash = std::hash<std::string_view>()(text);
    m_written = merged;
    return merged;
}

} // namespace brimlet
