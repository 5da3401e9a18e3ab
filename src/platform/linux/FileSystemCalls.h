// The system calls through which files are changed, one function each, and nothing else.
//
// Each gives the call's result or a negative errno, and repeats a call that a signal interrupted. Every call
// passes `before` first: the one place where a test counts calls, refuses them or lets the process die.
// Stateless; callable from any thread.
#pragma once

#include "platform/EntryIdentity.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <time.h>

namespace brimlet {

/// What the callers need of a file's metadata.
struct FileStatus {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    mode_t mode = 0;
    uid_t owner = 0;
    gid_t group = 0;
    std::uint64_t links = 0;
    std::int64_t size = 0;
    std::int64_t allocatedBytes = 0;
    dev_t specialDevice = 0;
    timespec accessed{};
    timespec modified{};
    timespec changed{}; ///< contents or metadata, as the system keeps it
    timespec born{};
    bool isMountPoint = false;

    bool isFolder() const;
    bool isRegularFile() const;
    bool isLink() const;
    bool isSameFile(const FileStatus& other) const { return device == other.device && inode == other.inode; }
    EntryIdentity identity() const;
};

/// What a disk has room for, in bytes.
struct DiskSpace {
    std::int64_t total = 0; ///< 0 where the file system doesn't say
    std::int64_t available = 0;
};

/// One call that is about to be made.
struct SystemCall {
    const char* call;      ///< the function's name below
    bool changes;          ///< whether it can change a file
    int folder;            ///< the descriptor worked on, or relative to which `name` is taken
    const char* name = ""; ///< empty when the descriptor itself is worked on
    int secondFolder = -1; ///< of a rename or link: the new place
    const char* secondName = "";
    unsigned flags = 0; ///< of a rename
};

class FileSystemCalls {
public:
    FileSystemCalls() = default;
    virtual ~FileSystemCalls() = default;
    FileSystemCalls(const FileSystemCalls&) = delete;
    FileSystemCalls& operator=(const FileSystemCalls&) = delete;

    int open(int folder, const char* name, int flags, mode_t mode = 0);
    /// Opens an absolute path none of whose components may be a link.
    int openWithoutLinks(const char* path, int flags);
    int status(int folder, const char* name, FileStatus& status);
    ssize_t listFolder(int folder, char* buffer, std::size_t bytes);
    int rewindFolder(int folder);
    int unlink(int folder, const char* name, int flags);
    int rename(int folder, const char* name, int newFolder, const char* newName, unsigned flags);
    int makeFolder(int folder, const char* name, mode_t mode);
    int makeNode(int folder, const char* name, mode_t mode, dev_t device);
    int makeSymbolicLink(const char* target, int folder, const char* name);
    int makeHardLink(int folder, const char* name, int newFolder, const char* newName);
    ssize_t readLink(int folder, const char* name, char* buffer, std::size_t bytes);

    ssize_t read(int file, char* buffer, std::size_t bytes, std::int64_t offset);
    ssize_t write(int file, const char* bytes, std::size_t count);
    ssize_t writeAt(int file, const char* bytes, std::size_t count, std::int64_t offset);
    std::int64_t seek(int file, std::int64_t offset, int whence);
    int truncate(int file, std::int64_t bytes);
    int sync(int file);
    int syncData(int file);
    int syncFileSystem(int file);
    /// Begins to write a file's pages to the disk and doesn't wait for them.
    int startWriting(int file);
    /// Closes a file that was written. On an error what was written may be lost; it is closed all the same.
    int closeWritten(int file);
    /// Gives a file blocks of its own up to `bytes`, unwritten.
    int allocate(int file, std::int64_t bytes);
    int lock(int file, int operation);
    /// Whether this process may add and remove entries of a folder: 0, -EROFS, -EACCES…
    int checkWritable(int folder);
    int space(int file, DiskSpace& space);
    /// The kind of file system that a file is on, as statfs(2) numbers it.
    long fileSystemType(int file);

    int setMode(int file, mode_t mode);
    /// Also through a descriptor that was opened with O_PATH.
    int setModeOfPath(int file, mode_t mode);
    int setOwner(int folder, const char* name, uid_t owner, gid_t group);
    int setTimes(int folder, const char* name, const timespec (&times)[2]);
    ssize_t listAttributes(int file, char* buffer, std::size_t bytes);
    ssize_t readAttribute(int file, const char* attribute, char* buffer, std::size_t bytes);
    int writeAttribute(int file, const char* attribute, const char* bytes, std::size_t count);

    /// Never fails as far as a caller is concerned.
    void close(int file);

protected:
    /// Called before each call. A negative errno is given back in the call's place.
    virtual int before(const SystemCall& call);

    /// Whether status() may trust the kernel about mount points; one before 5.8 says nothing of them.
    bool m_kernelTellsMountPoints = true;

private:
    template <class Call>
    auto perform(const SystemCall& about, Call call);
};

} // namespace brimlet
