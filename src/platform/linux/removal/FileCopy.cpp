#include "platform/linux/removal/FileCopy.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace brimlet {

namespace {

constexpr std::size_t blockBytes = std::size_t{1} << 20;

int copyRange(FileSystemCalls& calls, int from, int to, std::int64_t at, std::int64_t end,
              std::vector<char>& block, const std::stop_token& stop) {
    while (at < end) {
        if (stop.stop_requested())
            return -ECANCELED;
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

constexpr std::string_view capabilities = "security.capability";

/// Whether an attribute is the system's own, which sets it on the copy as it sees fit.
bool isSystemOnly(std::string_view attribute) {
    return (attribute.starts_with("security.") && attribute != capabilities) ||
           attribute.starts_with("trusted.");
}

/// Whether a file system says so of what it has no place for, or the system of what this user may not set.
bool isNotStorable(int result) {
    constexpr int answers[] = {ENOTSUP, EPERM, EINVAL, ERANGE, E2BIG, EOVERFLOW};
    return std::find(std::begin(answers), std::end(answers), -result) != std::end(answers);
}

/// Takes a step twice where it fails, and notes a loss where the disk can't store it.
template <class Step>
int storeIfPossible(CopyLosses& losses, Step step) {
    int result = step();
    if (isNotStorable(result))
        result = step();
    if (!isNotStorable(result))
        return result;
    losses.attributes = true;
    return 0;
}

/// A file system without room for one attribute says that it has none left; a full disk says so of all.
bool hasRoom(FileSystemCalls& calls, int file) {
    constexpr std::int64_t enough = 1 << 20; // far above the largest attribute
    DiskSpace space;
    return calls.space(file, space) == 0 && space.available > enough;
}

int copyAttribute(FileSystemCalls& calls, int from, int to, const char* attribute, CopyLosses& losses) {
    ssize_t size = calls.readAttribute(from, attribute, nullptr, 0);
    if (size < 0)
        return isSystemOnly(attribute) ? 0 : static_cast<int>(size);
    std::string value(static_cast<std::size_t>(size), '\0');
    size = calls.readAttribute(from, attribute, value.data(), value.size());
    if (size < 0)
        return static_cast<int>(size);
    const auto write = [&] {
        const int result = calls.writeAttribute(to, attribute, value.data(), static_cast<std::size_t>(size));
        return result == -ENOSPC && hasRoom(calls, to) ? -E2BIG : result;
    };
    return isSystemOnly(attribute) ? (write(), 0) : storeIfPossible(losses, write);
}

/// except   an attribute that is left out
int copyAttributes(FileSystemCalls& calls, int from, int to, std::string_view except, CopyLosses& losses) {
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
        const char* name = names.c_str() + at;
        const int result = name == except ? 0 : copyAttribute(calls, from, to, name, losses);
        if (result < 0)
            return result;
    }
    return 0;
}

/// 1 where the copy has its original's owner and group, 0 where it can't have them.
int setOwner(FileSystemCalls& calls, const FileStatus& original, int to, CopyLosses& losses) {
    FileStatus copy;
    if (const int result = calls.status(to, "", copy); result < 0)
        return result;
    if (copy.owner == original.owner && copy.group == original.group)
        return 1;
    const bool hadLost = std::exchange(losses.attributes, false);
    const int result =
        storeIfPossible(losses, [&] { return calls.setOwner(to, "", original.owner, original.group); });
    const bool isSet = result == 0 && !losses.attributes;
    losses.attributes = losses.attributes || hadLost;
    return result < 0 ? result : static_cast<int>(isSet);
}

} // namespace

int copyContents(FileSystemCalls& calls, int from, int to, std::int64_t bytes, const std::stop_token& stop) {
    std::vector<char> block(std::min(blockBytes, static_cast<std::size_t>(std::max<std::int64_t>(bytes, 1))));
    std::int64_t at = 0;
    while (at < bytes) {
        std::int64_t data = calls.seek(from, at, SEEK_DATA);
        if (data == -ENXIO) // nothing but a hole from here on
            break;
        if (data == -EINVAL) // a file system that knows no holes
            return copyRange(calls, from, to, at, bytes, block, stop);
        if (data < 0)
            return static_cast<int>(data);
        const std::int64_t hole = calls.seek(from, data, SEEK_HOLE);
        if (hole < 0)
            return static_cast<int>(hole);
        data = std::min(data, bytes);
        if (const int result = copyRange(calls, from, to, data, std::min(hole, bytes), block, stop);
            result < 0)
            return result;
        at = hole;
    }
    return calls.truncate(to, bytes);
}

// A change of owner takes file capabilities away, so it comes first. Attributes may need write permission, so
// they come before the mode; an access list may change the mode, so the mode comes after them.
int copyMetadata(FileSystemCalls& calls, int from, const FileStatus& original, int to, CopyLosses& losses) {
    const int isOwners = setOwner(calls, original, to, losses);
    if (isOwners < 0)
        return isOwners;
    // A program must not run with rights that its owner didn't give.
    const bool keepsRights = isOwners == 1;
    const mode_t rights = keepsRights ? 0 : S_ISUID | S_ISGID;
    int result = copyAttributes(calls, from, to, keepsRights ? "" : capabilities, losses);
    if (result == 0)
        result = storeIfPossible(losses, [&] { return calls.setMode(to, original.mode & 07777 & ~rights); });
    const timespec times[2] = {original.accessed, original.modified};
    return result < 0 ? result : storeIfPossible(losses, [&] { return calls.setTimes(to, "", times); });
}

int copyMetadataByName(FileSystemCalls& calls, const FileStatus& original, int folder, const char* name,
                       CopyLosses& losses) {
    const int result =
        storeIfPossible(losses, [&] { return calls.setOwner(folder, name, original.owner, original.group); });
    const timespec times[2] = {original.accessed, original.modified};
    return result < 0 ? result : storeIfPossible(losses, [&] { return calls.setTimes(folder, name, times); });
}

} // namespace brimlet
