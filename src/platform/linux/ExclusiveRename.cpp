#include "platform/linux/ExclusiveRename.h"

#include "platform/linux/Descriptor.h"
#include "platform/linux/TreeRemover.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>

namespace brimlet {

namespace {

/// A name reserved by an empty folder, or a second name for a file: either is made only where nothing is.
int renameByReserving(FileSystemCalls& calls, int folder, const char* name, int newFolder,
                      const char* newName) {
    FileStatus status;
    int result = calls.status(folder, name, status);
    if (result < 0)
        return result;
    if (status.isFolder()) {
        result = calls.makeFolder(newFolder, newName, 0700);
        if (result == 0)
            result = calls.rename(folder, name, newFolder, newName, 0);
        if (result < 0 && result != -EEXIST)
            calls.unlink(newFolder, newName, AT_REMOVEDIR);
        return result;
    }
    result = calls.makeHardLink(folder, name, newFolder, newName);
    if (result == 0) {
        result = calls.unlink(folder, name, 0);
        if (result < 0)
            calls.unlink(newFolder, newName, 0);
    }
    return result;
}

int renameOnce(FileSystemCalls& calls, int folder, const char* name, int newFolder, const char* newName) {
    const int result = calls.rename(folder, name, newFolder, newName, RENAME_NOREPLACE);
    if (result == -EINVAL || result == -ENOSYS)
        return renameByReserving(calls, folder, name, newFolder, newName);
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
