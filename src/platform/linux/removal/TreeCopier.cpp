#include "platform/linux/removal/TreeCopier.h"

#include "core/Localized.h"
#include "platform/linux/removal/TreeRemover.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

namespace brimlet {

namespace {
constexpr int readFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK;
constexpr int writeFlags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW;

/// Whether a file is still what was seen of it before.
bool isUnchanged(const FileStatus& before, const FileStatus& now) {
    const auto isEqual = [](const timespec& a, const timespec& b) {
        return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
    };
    return now.isSameFile(before) && now.size == before.size && isEqual(now.modified, before.modified) &&
           isEqual(now.changed, before.changed);
}

PlatformError stoppedBeforeMoved() {
    return {ErrorDomain::posix, ECANCELED, std::nullopt,
            localized("Stopped before it was moved. It is where it was.")};
}
} // namespace

TreeCopier::TreeCopier(FileSystemCalls& calls, CopyManifest& manifest, std::stop_token stop)
    : m_calls(calls)
    , m_manifest(manifest)
    , m_stop(std::move(stop))
    , m_listing(calls)
    , m_sources(calls)
    , m_targets(calls)
    , m_sync(calls) {}

Failure TreeCopier::copy(int parent, const std::string& name, int target, const std::string& newName) {
    FileStatus status;
    int result = m_calls.status(parent, name.c_str(), status);
    m_device = status.device;
    m_target = target;
    if (result == 0)
        result = copyEntry(parent, name, target, newName);
    while (result == 0 && !m_levels.empty()) {
        Level& level = m_levels.back();
        if (level.names.empty()) {
            result = finishFolder();
        } else {
            const std::string next = std::move(level.names.back());
            level.names.pop_back();
            result = copyEntry(m_sources.deepest(), next, m_targets.deepest(), next);
        }
    }
    if (result == 0)
        result = finishCopy();
    if (result == -EXDEV)
        return mountedInside();
    if (result == -ECANCELED)
        return stoppedBeforeMoved();
    return result < 0 ? Failure(errorFromErrno(-result)) : std::nullopt;
}

int TreeCopier::copyEntry(int from, const std::string& name, int to, const std::string& newName) {
    if (m_stop.stop_requested())
        return -ECANCELED;
    FileStatus status;
    if (const int result = m_calls.status(from, name.c_str(), status); result < 0)
        return result;
    // An overlay's files may bear the numbers of other devices.
    if (status.isMountPoint || (status.isFolder() && status.device != m_device))
        return -EXDEV;
    if (status.isFolder())
        return copyFolder(from, name, to, newName);
    if (!m_manifest.add(status))
        return -EBUSY;
    return status.links > 1 ? copyLinked(from, name, status, to, newName)
                            : copyLeaf(from, name, status, to, newName);
}

int TreeCopier::copyFolder(int from, const std::string& name, int to, const std::string& newName) {
    Descriptor source(m_calls, m_calls.open(from, name.c_str(), readFlags | O_DIRECTORY));
    if (!source.isOpen())
        return source.number();
    Level level;
    if (const int result = m_calls.status(source.number(), "", level.status); result < 0)
        return result;
    if (level.status.isMountPoint || level.status.device != m_device)
        return -EXDEV;
    int count = 0;
    while ((count = m_listing.readOn(source.number())) > 0) {
        for (const ListedEntry& entry : m_listing.batch())
            level.names.emplace_back(entry.name);
    }
    if (count < 0)
        return count;
    if (const int result = m_calls.makeFolder(to, newName.c_str(), S_IRWXU); result < 0)
        return result;
    Descriptor target(m_calls, m_calls.open(to, newName.c_str(), readFlags | O_DIRECTORY));
    if (!target.isOpen())
        return target.number();
    FileStatus targetStatus;
    if (const int result = m_calls.status(target.number(), "", targetStatus); result < 0)
        return result;
    m_sources.descend(std::move(source), level.status);
    m_targets.descend(std::move(target), targetStatus);
    m_levels.push_back(std::move(level));
    return 0;
}

int TreeCopier::finishFolder() {
    const FileStatus status = m_levels.back().status;
    m_levels.pop_back();
    if (const int result = copyMetadata(m_calls, m_sources.deepest(), status, m_targets.deepest(), m_losses);
        result < 0)
        return result;
    int result = m_sources.ascend();
    Descriptor finished;
    if (result == 0)
        result = m_targets.ascend(&finished);
    return result < 0 ? result : m_sync.addFolder(std::move(finished));
}

int TreeCopier::finishCopy() {
    const int result = m_sync.finish();
    return result == 0 && m_hasUnopened ? m_calls.syncFileSystem(m_target) : result;
}

int TreeCopier::copyFile(int from, const std::string& name, const FileStatus& status, int to,
                         const std::string& newName) {
    const Descriptor source(m_calls, m_calls.open(from, name.c_str(), readFlags));
    if (!source.isOpen())
        return source.number();
    FileStatus opened;
    int result = m_calls.status(source.number(), "", opened);
    if (result < 0)
        return result;
    if (!isUnchanged(status, opened))
        return -EBUSY;
    Descriptor target(m_calls, m_calls.open(to, newName.c_str(), writeFlags, S_IRUSR | S_IWUSR));
    if (!target.isOpen())
        return target.number();
    result = copyContents(m_calls, source.number(), target.number(), status.size, m_stop);
    if (result == 0)
        result = copyMetadata(m_calls, source.number(), status, target.number(), m_losses);
    if (result == 0)
        result = m_calls.status(source.number(), "", opened);
    if (result < 0)
        return result;
    return isUnchanged(status, opened) ? m_sync.addFile(std::move(target)) : -EBUSY;
}

int TreeCopier::copyLeaf(int from, const std::string& name, const FileStatus& status, int to,
                         const std::string& newName) {
    if (status.isRegularFile())
        return copyFile(from, name, status, to, newName);
    m_hasUnopened = true;
    return status.isLink() ? copyLink(from, name, status, to, newName) : copyNode(status, to, newName);
}

// The first of several names is copied into a folder of its own; there all of them find it, however deep they
// are.
int TreeCopier::copyLinked(int from, const std::string& name, const FileStatus& status, int to,
                           const std::string& newName) {
    if (!m_links.isOpen()) {
        if (const int result = m_calls.makeFolder(m_target, linksFolder, S_IRWXU); result < 0)
            return result;
        m_links = Descriptor(m_calls, m_calls.open(m_target, linksFolder, readFlags | O_DIRECTORY));
        if (!m_links.isOpen())
            return m_links.number();
    }
    const auto known =
        m_linkNames.emplace(std::pair(status.device, status.inode), std::to_string(m_linkNames.size()));
    const std::string& first = known.first->second;
    if (known.second) {
        if (const int result = copyLeaf(from, name, status, m_links.number(), first); result < 0)
            return result;
    }
    const auto link = [&] {
        return m_calls.makeHardLink(m_links.number(), first.c_str(), to, newName.c_str());
    };
    int linked = link();
    const auto isImpossible = [&] {
        return linked == -EPERM || linked == -ENOTSUP || linked == -ENOSYS || linked == -EMLINK;
    };
    if (isImpossible())
        linked = link();
    if (!isImpossible())
        return linked;
    m_losses.hardLinks = true;
    return copyLeaf(from, name, status, to, newName);
}

int TreeCopier::copyLink(int from, const std::string& name, const FileStatus& status, int to,
                         const std::string& newName) {
    std::string destination(static_cast<std::size_t>(status.size) + 1, '\0');
    const ssize_t length = m_calls.readLink(from, name.c_str(), destination.data(), destination.size());
    if (length < 0)
        return static_cast<int>(length);
    if (static_cast<std::size_t>(length) >= destination.size())
        return -EBUSY;
    destination.resize(static_cast<std::size_t>(length));
    const int result = m_calls.makeSymbolicLink(destination.c_str(), to, newName.c_str());
    return result < 0 ? result : copyMetadataByName(m_calls, status, to, newName.c_str(), m_losses);
}

int TreeCopier::copyNode(const FileStatus& status, int to, const std::string& newName) {
    int result = m_calls.makeNode(to, newName.c_str(), status.mode & (S_IFMT | 0777), status.specialDevice);
    if (result < 0)
        return result;
    // The process's mask has taken bits away.
    const Descriptor node(m_calls, m_calls.open(to, newName.c_str(), O_PATH | O_NOFOLLOW));
    result = node.isOpen() ? m_calls.setModeOfPath(node.number(), status.mode & 0777) : node.number();
    return result < 0 ? result : copyMetadataByName(m_calls, status, to, newName.c_str(), m_losses);
}

} // namespace brimlet
