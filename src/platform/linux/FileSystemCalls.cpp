#include "platform/linux/FileSystemCalls.h"

#include "platform/linux/MountPoints.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <linux/openat2.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace brimlet {

namespace {

timespec timeOf(const statx_timestamp& stamp) {
    return {stamp.tv_sec, static_cast<long>(stamp.tv_nsec)};
}

} // namespace

bool FileStatus::isFolder() const {
    return S_ISDIR(mode);
}

bool FileStatus::isRegularFile() const {
    return S_ISREG(mode);
}

bool FileStatus::isLink() const {
    return S_ISLNK(mode);
}

EntryIdentity FileStatus::identity() const {
    return {device, inode, mode & S_IFMT, born.tv_sec, static_cast<std::uint32_t>(born.tv_nsec)};
}

int FileSystemCalls::before(const SystemCall&) {
    return 0;
}

template <class Call>
auto FileSystemCalls::perform(const SystemCall& about, Call call) {
    using Value = decltype(call());
    for (;;) {
        Value result = before(about);
        if (result == 0) {
            result = call();
            if (result < 0)
                result = -errno;
        }
        if (result != -EINTR)
            return result;
    }
}

int FileSystemCalls::open(int folder, const char* name, int flags, mode_t mode) {
    const bool changes = (flags & O_PATH) == 0 && (flags & (O_CREAT | O_TRUNC | O_WRONLY | O_RDWR)) != 0;
    return perform({"open", changes, folder, name},
                   [=] { return ::openat(folder, name, flags | O_CLOEXEC, mode); });
}

int FileSystemCalls::openWithoutLinks(const char* path, int flags) {
    open_how how{};
    how.flags = static_cast<std::uint64_t>(flags) | O_CLOEXEC;
    how.resolve = RESOLVE_NO_SYMLINKS;
    return perform({"openWithoutLinks", false, AT_FDCWD, path}, [&] {
        return static_cast<int>(::syscall(SYS_openat2, AT_FDCWD, path, &how, sizeof how));
    });
}

int FileSystemCalls::status(int folder, const char* name, FileStatus& status) {
    struct statx raw {};
    const int result = perform({"status", false, folder, name}, [&] {
        return ::statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_EMPTY_PATH | AT_NO_AUTOMOUNT,
                       STATX_BASIC_STATS | STATX_BTIME, &raw);
    });
    if (result < 0)
        return result;
    status.device = makedev(raw.stx_dev_major, raw.stx_dev_minor);
    status.inode = raw.stx_ino;
    status.mode = raw.stx_mode;
    status.owner = raw.stx_uid;
    status.group = raw.stx_gid;
    status.links = raw.stx_nlink;
    status.size = static_cast<std::int64_t>(raw.stx_size);
    status.allocatedBytes = static_cast<std::int64_t>(raw.stx_blocks) * 512;
    status.specialDevice = makedev(raw.stx_rdev_major, raw.stx_rdev_minor);
    status.accessed = timeOf(raw.stx_atime);
    status.modified = timeOf(raw.stx_mtime);
    status.changed = timeOf(raw.stx_ctime);
    status.born = (raw.stx_mask & STATX_BTIME) != 0 ? timeOf(raw.stx_btime) : timespec{};
    const bool isTold = m_kernelTellsMountPoints && (raw.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0;
    status.isMountPoint = isTold ? (raw.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0
                                 : status.isFolder() && isMountPoint(folder, name);
    return 0;
}

ssize_t FileSystemCalls::listFolder(int folder, char* buffer, std::size_t bytes) {
    return perform({"listFolder", false, folder},
                   [=]() -> ssize_t { return ::syscall(SYS_getdents64, folder, buffer, bytes); });
}

int FileSystemCalls::rewindFolder(int folder) {
    return static_cast<int>(
        perform({"rewindFolder", false, folder}, [=] { return ::lseek(folder, 0, SEEK_SET); }));
}

int FileSystemCalls::unlink(int folder, const char* name, int flags) {
    return perform({"unlink", true, folder, name}, [=] { return ::unlinkat(folder, name, flags); });
}

int FileSystemCalls::rename(int folder, const char* name, int newFolder, const char* newName,
                            unsigned flags) {
    return perform({"rename", true, folder, name, newFolder, newName, flags},
                   [=] { return ::renameat2(folder, name, newFolder, newName, flags); });
}

int FileSystemCalls::makeFolder(int folder, const char* name, mode_t mode) {
    return perform({"makeFolder", true, folder, name}, [=] { return ::mkdirat(folder, name, mode); });
}

int FileSystemCalls::makeNode(int folder, const char* name, mode_t mode, dev_t device) {
    return perform({"makeNode", true, folder, name}, [=] { return ::mknodat(folder, name, mode, device); });
}

int FileSystemCalls::makeSymbolicLink(const char* target, int folder, const char* name) {
    return perform({"makeSymbolicLink", true, folder, name},
                   [=] { return ::symlinkat(target, folder, name); });
}

int FileSystemCalls::makeHardLink(int folder, const char* name, int newFolder, const char* newName) {
    return perform({"makeHardLink", true, folder, name, newFolder, newName},
                   [=] { return ::linkat(folder, name, newFolder, newName, 0); });
}

ssize_t FileSystemCalls::readLink(int folder, const char* name, char* buffer, std::size_t bytes) {
    return perform({"readLink", false, folder, name},
                   [=] { return ::readlinkat(folder, name, buffer, bytes); });
}

ssize_t FileSystemCalls::read(int file, char* buffer, std::size_t bytes, std::int64_t offset) {
    return perform({"read", false, file}, [=] { return ::pread(file, buffer, bytes, offset); });
}

ssize_t FileSystemCalls::write(int file, const char* bytes, std::size_t count) {
    return perform({"write", true, file}, [=] { return ::write(file, bytes, count); });
}

ssize_t FileSystemCalls::writeAt(int file, const char* bytes, std::size_t count, std::int64_t offset) {
    return perform({"writeAt", true, file}, [=] { return ::pwrite(file, bytes, count, offset); });
}

std::int64_t FileSystemCalls::seek(int file, std::int64_t offset, int whence) {
    return perform({"seek", false, file}, [=]() -> std::int64_t { return ::lseek(file, offset, whence); });
}

int FileSystemCalls::truncate(int file, std::int64_t bytes) {
    return perform({"truncate", true, file}, [=] { return ::ftruncate(file, bytes); });
}

int FileSystemCalls::sync(int file) {
    return perform({"sync", false, file}, [=] { return ::fsync(file); });
}

int FileSystemCalls::syncData(int file) {
    return perform({"syncData", false, file}, [=] { return ::fdatasync(file); });
}

int FileSystemCalls::syncFileSystem(int file) {
    return perform({"syncFileSystem", false, file}, [=] { return ::syncfs(file); });
}

int FileSystemCalls::startWriting(int file) {
    return perform({"startWriting", false, file},
                   [=] { return ::sync_file_range(file, 0, 0, SYNC_FILE_RANGE_WRITE); });
}

// Linux closes a descriptor whatever it answers, so an interrupted close must not be repeated.
int FileSystemCalls::closeWritten(int file) {
    const int refused = before({"closeWritten", false, file});
    const int result = ::close(file) < 0 && errno != EINTR ? -errno : 0;
    return refused < 0 && refused != -EINTR ? refused : result;
}

int FileSystemCalls::allocate(int file, std::int64_t bytes) {
    return perform({"allocate", true, file}, [=] { return ::fallocate(file, 0, 0, bytes); });
}

int FileSystemCalls::checkWritable(int folder) {
    return perform({"checkWritable", false, folder},
                   [=] { return ::faccessat(folder, ".", W_OK | X_OK, AT_EACCESS); });
}

int FileSystemCalls::space(int file, DiskSpace& space) {
    struct statvfs raw {};
    const int result = perform({"space", false, file}, [&] { return ::fstatvfs(file, &raw); });
    if (result < 0)
        return result;
    const auto block = static_cast<std::int64_t>(raw.f_frsize);
    space.total = static_cast<std::int64_t>(raw.f_blocks) * block;
    // What is kept for the administrator is there for the administrator.
    space.available = static_cast<std::int64_t>(geteuid() == 0 ? raw.f_bfree : raw.f_bavail) * block;
    return 0;
}

long FileSystemCalls::fileSystemType(int file) {
    struct statfs raw {};
    return perform({"fileSystemType", false, file},
                   [&]() -> long { return ::fstatfs(file, &raw) < 0 ? -1 : static_cast<long>(raw.f_type); });
}

int FileSystemCalls::lock(int file, int operation) {
    return perform({"lock", false, file}, [=] { return ::flock(file, operation); });
}

int FileSystemCalls::setMode(int file, mode_t mode) {
    return perform({"setMode", true, file}, [=] { return ::fchmod(file, mode); });
}

int FileSystemCalls::setModeOfPath(int file, mode_t mode) {
    std::array<char, 40> path{};
    std::snprintf(path.data(), path.size(), "/proc/self/fd/%d", file);
    return perform({"setModeOfPath", true, file}, [&] { return ::chmod(path.data(), mode); });
}

int FileSystemCalls::setOwner(int folder, const char* name, uid_t owner, gid_t group) {
    return perform({"setOwner", true, folder, name}, [=] {
        return ::fchownat(folder, name, owner, group, AT_SYMLINK_NOFOLLOW | AT_EMPTY_PATH);
    });
}

int FileSystemCalls::setTimes(int folder, const char* name, const timespec (&times)[2]) {
    return perform({"setTimes", true, folder, name}, [&] {
        return *name == '\0' ? ::futimens(folder, times)
                             : ::utimensat(folder, name, times, AT_SYMLINK_NOFOLLOW);
    });
}

ssize_t FileSystemCalls::listAttributes(int file, char* buffer, std::size_t bytes) {
    return perform({"listAttributes", false, file}, [=] { return ::flistxattr(file, buffer, bytes); });
}

ssize_t FileSystemCalls::readAttribute(int file, const char* attribute, char* buffer, std::size_t bytes) {
    return perform({"readAttribute", false, file},
                   [=] { return ::fgetxattr(file, attribute, buffer, bytes); });
}

int FileSystemCalls::writeAttribute(int file, const char* attribute, const char* bytes, std::size_t count) {
    return perform({"writeAttribute", true, file},
                   [=] { return ::fsetxattr(file, attribute, bytes, count, 0); });
}

void FileSystemCalls::close(int file) {
    ::close(file);
}

} // namespace brimlet
