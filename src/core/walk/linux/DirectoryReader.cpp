#include "core/walk/DirectoryReader.h"

#include "core/WholeNumber.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brimlet {

namespace {

EntryStatus reduced(const struct stat& status) {
    EntryStatus result;
    result.device = status.st_dev;
    result.inode = status.st_ino;
    result.links = status.st_nlink;
    result.allocatedBytes =
        bytesOfBlocks(static_cast<std::uint64_t>(std::max<blkcnt_t>(status.st_blocks, 0)), 512);
    result.logicalBytes = status.st_size;
    result.modified = status.st_mtim.tv_sec;
    result.accessed = status.st_atim.tv_sec;
    if (S_ISDIR(status.st_mode))
        result.type = EntryStatus::Type::directory;
    else if (S_ISREG(status.st_mode))
        result.type = EntryStatus::Type::regular;
    return result;
}

std::optional<EntryStatus> statusAt(int directory, const char* name) {
    struct stat status {};
    if (fstatat(directory, name, &status, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0)
        return std::nullopt;
    return reduced(status);
}

OpenedDirectory openAt(int parent, const char* name, OpenFor purpose) {
    constexpr int always = O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    int descriptor = -1;
    if (purpose == OpenFor::passing) {
        descriptor = openat(parent, name, always | O_PATH);
    } else {
        // Looking at a folder should not change when it was last used; only its owner may ask for that.
        descriptor = openat(parent, name, always | O_RDONLY | O_NONBLOCK | O_NOATIME);
        if (descriptor < 0 && errno == EPERM)
            descriptor = openat(parent, name, always | O_RDONLY | O_NONBLOCK);
    }
    if (descriptor >= 0)
        return {OpenOutcome::opened, DirectoryDescriptor(descriptor)};
    return {errno == EMFILE || errno == ENFILE ? OpenOutcome::outOfDescriptors : OpenOutcome::failed, {}};
}

bool isDot(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

} // namespace

std::optional<EntryStatus> statusOfPath(const char* path) {
    return statusAt(AT_FDCWD, path);
}

void DirectoryDescriptor::reset() {
    if (m_descriptor >= 0)
        close(m_descriptor);
    m_descriptor = -1;
}

OpenedDirectory openDirectory(const char* path, OpenFor purpose) {
    return openAt(AT_FDCWD, path, purpose);
}

OpenedDirectory openDirectory(const DirectoryDescriptor& parent, const char* name, OpenFor purpose) {
    return openAt(parent.value(), name, purpose);
}

OpenedDirectory duplicate(const DirectoryDescriptor& directory) {
    const int descriptor = fcntl(directory.value(), F_DUPFD_CLOEXEC, 0);
    if (descriptor < 0)
        return {OpenOutcome::outOfDescriptors, {}};
    return {OpenOutcome::opened, DirectoryDescriptor(descriptor)};
}

bool isSameDirectory(const DirectoryDescriptor& directory, std::uint64_t device, std::uint64_t inode) {
    struct stat status {};
    return fstat(directory.value(), &status) == 0 && status.st_dev == device && status.st_ino == inode;
}

std::size_t descriptorLimit() {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return 256;
    return limit.rlim_cur;
}

DirectoryReader::DirectoryReader()
    : m_buffer(std::make_unique_for_overwrite<std::byte[]>(bufferBytes)) {}

void DirectoryReader::begin(const DirectoryDescriptor& directory) {
    m_descriptor = directory.value();
    m_position = 0;
    m_end = 0;
}

bool DirectoryReader::fill() {
    const ssize_t read = getdents64(m_descriptor, m_buffer.get(), bufferBytes);
    m_position = 0;
    m_end = read > 0 ? static_cast<std::size_t>(read) : 0;
    return m_end > 0;
}

const DirectoryEntry* DirectoryReader::next() {
    while (m_position < m_end || fill()) {
        const auto* entry = reinterpret_cast<const dirent64*>(m_buffer.get() + m_position);
        m_position += entry->d_reclen;
        if (isDot(entry->d_name))
            continue;
        m_entry.name = entry->d_name;
        m_entry.status = statusAt(m_descriptor, entry->d_name);
        return &m_entry;
    }
    return nullptr;
}

} // namespace brimlet
