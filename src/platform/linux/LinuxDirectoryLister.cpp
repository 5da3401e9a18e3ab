#include "platform/linux/LinuxDirectoryLister.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace brimlet {

namespace {

using OpenDirectory = std::unique_ptr<DIR, int (*)(DIR*)>;

OpenDirectory openDirectory(const std::string& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0)
        return {nullptr, closedir};
    DIR* directory = fdopendir(descriptor);
    if (directory == nullptr)
        close(descriptor);
    return {directory, closedir};
}

ListedChild examined(int folder, const char* name) {
    ListedChild child{name, std::nullopt, std::nullopt};
    struct stat status {};
    if (fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return child;
    child.modified =
        static_cast<double>(status.st_mtim.tv_sec) + static_cast<double>(status.st_mtim.tv_nsec) / 1e9;
    if (!S_ISDIR(status.st_mode))
        child.fileBytes = std::int64_t{status.st_blocks} * 512;
    return child;
}

} // namespace

std::optional<std::vector<ListedChild>> LinuxDirectoryLister::children(const std::string& folder) const {
    const OpenDirectory directory = openDirectory(folder);
    if (directory == nullptr)
        return std::nullopt;
    std::vector<ListedChild> entries;
    for (;;) {
        errno = 0;
        const dirent* entry = readdir(directory.get());
        if (entry == nullptr)
            break;
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            entries.push_back(examined(dirfd(directory.get()), entry->d_name));
    }
    if (errno != 0)
        return std::nullopt;
    return entries;
}

} // namespace brimlet
