#include "platform/linux/FileCopy.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace brimlet {

namespace {

constexpr std::size_t blockBytes = std::size_t{1} << 20;

int copyRange(FileSystemCalls& calls, int from, int to, std::int64_t at, std::int64_t end,
              std::vector<char>& block) {
    while (at < end) {
        const auto wanted = std::min<std::int64_t>(end - at, static_cast<std::int64_t>(block.size()));
        const ssize_t got = calls.read(from, block.data(), static_cast<std::size_t>(wanted), at);
        if (got == 0)
            return -EBUSY; // has become shorter meanwhile
        if (got < 0)
            return static_cast<int>(got);
        for (ssize_t done = 0; done < got;) {
            const ssize_t put =
                calls.writeAt(to, block.data() + done, static_cast<std::size_t>(got - done), at + done);
            if (put < 0)
                return static_cast<int>(put);
            done += put;
        }
        at += got;
    }
    return 0;
}

/// Whether an attribute may stay behind when the system refuses it to this user or on that disk.
bool isSystemOnly(std::string_view attribute) {
    return attribute.starts_with("security.") || attribute.starts_with("trusted.");
}

int copyAttribute(FileSystemCalls& calls, int from, int to, const char* attribute) {
    ssize_t size = calls.readAttribute(from, attribute, nullptr, 0);
    if (size < 0)
        return isSystemOnly(attribute) ? 0 : static_cast<int>(size);
    std::string value(static_cast<std::size_t>(size), '\0');
    size = calls.readAttribute(from, attribute, value.data(), value.size());
    if (size < 0)
        return static_cast<int>(size);
    const int result = calls.writeAttribute(to, attribute, value.data(), static_cast<std::size_t>(size));
    return result < 0 && isSystemOnly(attribute) ? 0 : result;
}

int copyAttributes(FileSystemCalls& calls, int from, int to) {
    ssize_t size = calls.listAttributes(from, nullptr, 0);
    if (size == -ENOTSUP)
        return 0;
    if (size <= 0)
        return static_cast<int>(size);
    std::string names(static_cast<std::size_t>(size), '\0');
    size = calls.listAttributes(from, names.data(), names.size());
    if (size < 0)
        return static_cast<int>(size);
    names.resize(static_cast<std::size_t>(size));
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) {
        if (const int result = copyAttribute(calls, from, to, names.c_str() + at); result < 0)
            return result;
    }
    return 0;
}

/// The mode that a copy may have: without the owner, a program must not run as somebody else.
int setOwnerAndMode(FileSystemCalls& calls, const FileStatus& original, int to) {
    mode_t mode = original.mode & 07777;
    FileStatus copy;
    if (const int result = calls.status(to, "", copy); result < 0)
        return result;
    if (copy.owner != original.owner || copy.group != original.group) {
        const int result = calls.setOwner(to, "", original.owner, original.group);
        if (result == -EPERM || result == -EINVAL)
            mode &= ~static_cast<mode_t>(S_ISUID | S_ISGID);
        else if (result < 0)
            return result;
    }
    return calls.setMode(to, mode);
}

} // namespace

int copyContents(FileSystemCalls& calls, int from, int to, std::int64_t bytes) {
    std::vector<char> block(std::min(blockBytes, static_cast<std::size_t>(std::max<std::int64_t>(bytes, 1))));
    std::int64_t at = 0;
    while (at < bytes) {
        std::int64_t data = calls.seek(from, at, SEEK_DATA);
        if (data == -ENXIO) // nothing but a hole from here on
            break;
        if (data == -EINVAL) // a file system that knows no holes
            return copyRange(calls, from, to, at, bytes, block);
        if (data < 0)
            return static_cast<int>(data);
        const std::int64_t hole = calls.seek(from, data, SEEK_HOLE);
        if (hole < 0)
            return static_cast<int>(hole);
        data = std::min(data, bytes);
        if (const int result = copyRange(calls, from, to, data, std::min(hole, bytes), block); result < 0)
            return result;
        at = hole;
    }
    return calls.truncate(to, bytes);
}

int copyMetadata(FileSystemCalls& calls, int from, const FileStatus& original, int to) {
    // Attributes may need write permission, so they come before the mode; an access list may change the mode,
    // so the mode comes after them.
    int result = copyAttributes(calls, from, to);
    if (result == 0)
        result = setOwnerAndMode(calls, original, to);
    const timespec times[2] = {original.accessed, original.modified};
    return result == 0 ? calls.setTimes(to, "", times) : result;
}

int copyMetadataByName(FileSystemCalls& calls, const FileStatus& original, int folder, const char* name) {
    const int result = calls.setOwner(folder, name, original.owner, original.group);
    if (result < 0 && result != -EPERM && result != -EINVAL)
        return result;
    const timespec times[2] = {original.accessed, original.modified};
    return calls.setTimes(folder, name, times);
}

} // namespace brimlet
