#include "platform/linux/removal/ExclusiveRename.h"

#include "platform/linux/Descriptor.h"
#include "platform/linux/removal/TreeRemover.h"
#include "platform/ScratchName.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

namespace brimlet {

namespace {

/// Whether a file system or the system's rules have no hard link for this file.
bool isUnlinkable(int result) {
    return result == -EPERM || result == -ENOTSUP || result == -ENOSYS || result == -EMLINK;
}

enum class Entry { folder, other };

/// Takes a name by making an empty entry where nothing is, and renames over that.
int renameOntoReservation(FileSystemCalls& calls, int folder, const char* name, int newFolder,
                          const char* newName, Entry entry) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW;
    const Descriptor file(
        calls, entry == Entry::folder ? -1 : calls.open(newFolder, newName, flags, S_IRUSR | S_IWUSR));
    const int reserved =
        entry == Entry::folder ? calls.makeFolder(newFolder, newName, S_IRWXU) : file.number();
    if (reserved < 0)
        return reserved;
    const int result = calls.rename(folder, name, newFolder, newName, 0);
    const int how = entry == Entry::folder ? AT_REMOVEDIR : 0;
    if (result < 0 && calls.unlink(newFolder, newName, how) < 0)
        calls.unlink(newFolder, newName, how);
    return result;
}

/// Steps that are exclusive themselves: a second name for a file, or a reservation.
int renameBySteps(FileSystemCalls& calls, int folder, const char* name, int newFolder, const char* newName) {
    if (isScratchName(newName)) // nothing else is called so
        return calls.rename(folder, name, newFolder, newName, 0);
    FileStatus status;
    int result = calls.status(folder, name, status);
    if (result < 0)
        return result;
    if (status.isFolder())
        return renameOntoReservation(calls, folder, name, newFolder, newName, Entry::folder);
    result = calls.makeHardLink(folder, name, newFolder, newName);
    if (isUnlinkable(result))
        return renameOntoReservation(calls, folder, name, newFolder, newName, Entry::other);
    if (result == 0) {
        result = calls.unlink(folder, name, 0);
        if (result < 0)
            calls.unlink(newFolder, newName, 0);
    }
    return result;
}

int renameOnce(FileSystemCalls& calls, int folder, const char* name, int newFolder, const char* newName) {
    const int result = calls.rename(folder, name, newFolder, newName, RENAME_NOREPLACE);
    if (result == -EINVAL || result == -ENOSYS || result == -ENOTSUP)
        return renameBySteps(calls, folder, name, newFolder, newName);
    return result;
}

} // namespace

// A folder that gets another parent has its ".." changed, which needs write permission on the folder itself.
int renameExclusively(FileSystemCalls& calls, int folder, const std::string& name, int newFolder,
                      const std::string& newName) {
    const int result = renameOnce(calls, folder, name.c_str(), newFolder, newName.c_str());
    if (result != -EACCES)
        return result;
    const Descriptor moved(calls, calls.open(folder, name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW));
    FileStatus status;
    if (!moved.isOpen() || calls.status(moved.number(), "", status) < 0 || status.isMountPoint ||
        permitOwner(calls, moved.number(), status) < 0)
        return result;
    const int second = renameOnce(calls, folder, name.c_str(), newFolder, newName.c_str());
    const mode_t mode = status.mode & 07777;
    if (calls.setModeOfPath(moved.number(), mode) < 0)
        calls.setModeOfPath(moved.number(), mode);
    return second;
}

} // namespace brimlet
