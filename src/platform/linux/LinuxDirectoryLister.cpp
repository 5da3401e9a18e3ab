#include "platform/linux/LinuxDirectoryLister.h"

#include "platform/linux/KeptIdentity.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>

namespace brimlet {

namespace {

using OpenDirectory = std::unique_ptr<DIR, int (*)(DIR*)>;

OpenDirectory openDirectory(FileSystemCalls& calls, const std::string& folder) {
    const int descriptor = calls.open(AT_FDCWD, folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    if (descriptor < 0)
        return {nullptr, closedir};
    DIR* directory = fdopendir(descriptor);
    if (directory == nullptr)
        calls.close(descriptor);
    return {directory, closedir};
}

ListedChild examined(FileSystemCalls& calls, int folder, const FileStatus& folderStatus,
                     const KeptIdentity& kept, const char* name) {
    ListedChild child{name, std::nullopt, std::nullopt, std::nullopt};
    FileStatus status;
    if (calls.status(folder, name, status) < 0)
        return child;
    child.modified =
        static_cast<double>(status.modified.tv_sec) + static_cast<double>(status.modified.tv_nsec) / 1e9;
    if (!status.isFolder())
        child.fileBytes = status.allocatedBytes;
    child.identity = PlacedIdentity{kept.of(status), kept.of(folderStatus)};
    return child;
}

} // namespace

std::optional<std::vector<ListedChild>> LinuxDirectoryLister::children(const std::string& folder) const {
    FileSystemCalls calls;
    const OpenDirectory directory = openDirectory(calls, folder);
    FileStatus status;
    if (directory == nullptr || calls.status(dirfd(directory.get()), "", status) < 0)
        return std::nullopt;
    const KeptIdentity kept(calls, dirfd(directory.get()), status);
    std::vector<ListedChild> entries;
    for (;;) {
        errno = 0;
        const dirent* entry = readdir(directory.get());
        if (entry == nullptr)
            break;
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            entries.push_back(examined(calls, dirfd(directory.get()), status, kept, entry->d_name));
    }
    if (errno != 0)
        return std::nullopt;
    return entries;
}

} // namespace brimlet
