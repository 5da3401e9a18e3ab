#include "platform/linux/LinuxEntryLookup.h"

#include "core/Paths.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/KeptIdentity.h"
#include "platform/linux/PathWalk.h"

#include <algorithm>
#include <array>
#include <climits>
#include <fcntl.h>
#include <string_view>
#include <vector>

namespace brimlet {

namespace {

/// The path of an open folder without links; empty where the system doesn't tell it.
std::string pathOf(FileSystemCalls& calls, const Descriptor& folder) {
    const std::string link = "/proc/self/fd/" + std::to_string(folder.number());
    std::array<char, PATH_MAX> target{};
    const ssize_t length = calls.readLink(AT_FDCWD, link.c_str(), target.data(), target.size());
    if (length <= 0 || target.front() != '/' || length == std::ssize(target))
        return {};
    return {target.data(), static_cast<std::size_t>(length)};
}

/// A folder held open, so that its identity, its path and its entries are of one and the same place.
class OpenFolder {
public:
    OpenFolder(FileSystemCalls& calls, const std::string& path)
        : m_calls(calls)
        , m_folder(calls, calls.open(AT_FDCWD, path.c_str(), O_PATH | O_DIRECTORY)) {
        FileStatus status;
        if (!m_folder.isOpen() || calls.status(m_folder.number(), "", status) < 0)
            return;
        m_path = pathOf(calls, m_folder);
        m_kept.emplace(calls, m_folder.number(), status);
        m_identity = m_kept->of(status);
    }

    std::optional<FoundEntry> find(const std::string& name) const {
        FileStatus status;
        if (m_path.empty() || m_calls.status(m_folder.number(), name.c_str(), status) < 0)
            return std::nullopt;
        return FoundEntry{(m_path == "/" ? "" : m_path) + "/" + name, {m_kept->of(status), m_identity}};
    }

private:
    FileSystemCalls& m_calls;
    Descriptor m_folder;
    std::string m_path; ///< empty where it can't be opened or told
    std::optional<KeptIdentity> m_kept;
    EntryIdentity m_identity;
};

struct AskedEntry {
    std::string_view folder;
    std::string_view name; ///< empty where the path can't be looked up
    std::size_t index;
};

AskedEntry askedEntry(const std::string& path, std::size_t index) {
    const std::vector<std::string_view> components = pathComponents(path);
    if (refusalOfForm(path) || components.empty())
        return {{}, {}, index};
    const auto length = static_cast<std::size_t>(components.back().data() - path.data());
    return {std::string_view(path).substr(0, length), components.back(), index};
}

} // namespace

void LinuxEntryLookup::findEach(const std::vector<std::string>& paths, const Found& found) const {
    std::vector<AskedEntry> asked;
    asked.reserve(paths.size());
    for (const std::string& path : paths)
        asked.push_back(askedEntry(path, asked.size()));
    std::ranges::stable_sort(asked, {}, &AskedEntry::folder);
    std::optional<OpenFolder> folder;
    std::string_view opened;
    for (const AskedEntry& entry : asked) {
        if (entry.name.empty()) {
            found(entry.index, std::nullopt);
            continue;
        }
        if (!folder || opened != entry.folder)
            folder.emplace(m_calls, std::string(entry.folder));
        opened = entry.folder;
        found(entry.index, folder->find(std::string(entry.name)));
    }
}

} // namespace brimlet
