#include "platform/linux/removal/TrashFolder.h"

#include "core/Localized.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brimlet {

namespace {

constexpr const char* trashName = ".Trash";

PlatformError foreignTrash() {
    return {ErrorDomain::posix, ENOTDIR, std::nullopt,
            localized("The Trash is a link or belongs to another user, so nothing was moved into it.")};
}

} // namespace

Result<WalkedFolder> openTrash(FileSystemCalls& calls, std::string_view homeFolder) {
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK;
    Result<WalkedFolder> home = walkToFolder(calls, homeFolder);
    const auto* walked = std::get_if<WalkedFolder>(&home);
    if (walked == nullptr)
        return home;
    int opened = calls.open(walked->folder.number(), trashName, flags);
    if (opened == -ENOENT) {
        const int made = calls.makeFolder(walked->folder.number(), trashName, S_IRWXU);
        if (made < 0 && made != -EEXIST)
            return errorFromErrno(-made);
        opened = calls.open(walked->folder.number(), trashName, flags);
    }
    if (opened == -ENOTDIR || opened == -ELOOP)
        return foreignTrash();
    if (opened < 0)
        return errorFromErrno(-opened);
    Descriptor trash(calls, opened);
    FileStatus status;
    if (const int result = calls.status(opened, "", status); result < 0)
        return errorFromErrno(-result);
    if (status.owner != geteuid())
        return foreignTrash();
    return WalkedFolder{std::move(trash), (walked->path == "/" ? "" : walked->path) + "/" + trashName};
}

} // namespace brimlet
