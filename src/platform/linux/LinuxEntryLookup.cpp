#include "platform/linux/LinuxEntryLookup.h"

#include "core/Paths.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/KeptIdentity.h"
#include "platform/linux/PathWalk.h"

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

} // namespace

// The folder is opened once, so that both identities and the path are of one and the same place.
std::optional<FoundEntry> LinuxEntryLookup::find(const std::string& path) const {
    const std::vector<std::string_view> components = pathComponents(path);
    if (refusalOfForm(path) || components.empty())
        return std::nullopt;
    const std::string name(components.back());
    const std::string above =
        path.substr(0, static_cast<std::size_t>(components.back().data() - path.data()));
    FileSystemCalls calls;
    const Descriptor folder(calls, calls.open(AT_FDCWD, above.c_str(), O_PATH | O_DIRECTORY));
    FileStatus folderStatus;
    FileStatus entryStatus;
    if (!folder.isOpen() || calls.status(folder.number(), "", folderStatus) < 0 ||
        calls.status(folder.number(), name.c_str(), entryStatus) < 0)
        return std::nullopt;
    const std::string folderPath = pathOf(calls, folder);
    if (folderPath.empty())
        return std::nullopt;
    const KeptIdentity kept(calls, folder.number(), folderStatus);
    return FoundEntry{(folderPath == "/" ? "" : folderPath) + "/" + name,
                      {kept.of(entryStatus), kept.of(folderStatus)}};
}

} // namespace brimlet
