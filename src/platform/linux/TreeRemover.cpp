#include "platform/linux/TreeRemover.h"

#include "core/Localized.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brimlet {

namespace {

// File systems may leave out entries while a folder shrinks, and others may fill it: it is listed again, but
// not for ever.
constexpr int mostPasses = 8;

constexpr int otherDevice = -EXDEV; // stands for mountedInside()

} // namespace

PlatformError mountedInside() {
    return {ErrorDomain::posix, EXDEV, std::nullopt,
            localized("Another disk is mounted here. Eject it first.")};
}

int permitOwner(FileSystemCalls& calls, int folder, const FileStatus& status) {
    if (status.owner != geteuid() || (status.mode & S_IRWXU) == S_IRWXU)
        return -EACCES;
    return calls.setModeOfPath(folder, (status.mode & 07777) | S_IRWXU);
}

TreeRemover::TreeRemover(FileSystemCalls& calls, const CopyManifest* copied)
    : m_calls(calls)
    , m_copied(copied)
    , m_listing(calls)
    , m_ladder(calls) {}

Failure TreeRemover::remove(int parent, const std::string& name) {
    m_parent = parent;
    m_failure.reset();
    FileStatus status;
    if (const int result = m_calls.status(parent, name.c_str(), status); result < 0)
        return errorFromErrno(-result);
    if (status.isMountPoint)
        return mountedInside();
    m_device = status.device;
    if (!status.isFolder()) {
        removeEntry(name);
        return m_failure;
    }
    enter(name);
    while (!m_levels.empty()) {
        Level& level = m_levels.back();
        if (!level.listed) {
            list();
        } else if (level.folders.empty()) {
            leave();
        } else {
            const std::string folder = std::move(level.folders.back());
            level.folders.pop_back();
            enter(folder);
        }
    }
    return m_failure;
}

void TreeRemover::fail(int result) {
    if (!m_levels.empty())
        m_levels.back().lost = true;
    if (!m_failure)
        m_failure = result == otherDevice ? mountedInside() : errorFromErrno(-result);
}

void TreeRemover::list() {
    m_levels.back().listed = true;
    int count = 0;
    while ((count = m_listing.readOn(deepest())) > 0) {
        for (const ListedEntry& entry : m_listing.batch()) {
            if (entry.type == DT_DIR)
                m_levels.back().folders.emplace_back(entry.name);
            else
                removeEntry(entry.name);
        }
    }
    if (count < 0)
        fail(count);
}

bool TreeRemover::mayRemove(const std::string& name) {
    if (m_copied == nullptr)
        return true;
    FileStatus status;
    const int result = m_calls.status(deepest(), name.c_str(), status);
    if (result < 0)
        return false;
    return status.isFolder() || m_copied->holds(status);
}

void TreeRemover::removeEntry(const std::string& name) {
    if (!mayRemove(name))
        return fail(-EBUSY);
    const int result = unlink(name.c_str(), 0);
    if (result == 0 || (result == -ENOENT && !m_levels.empty()))
        return;
    // Some systems say EPERM for a folder.
    FileStatus status;
    const bool mayBeFolder = !m_levels.empty() && (result == -EISDIR || result == -EPERM);
    if (mayBeFolder && m_calls.status(deepest(), name.c_str(), status) == 0 && status.isFolder())
        m_levels.back().folders.push_back(name);
    else
        fail(result);
}

int TreeRemover::unlink(const char* name, int flags) {
    int result = m_calls.unlink(deepest(), name, flags);
    if (result == -EACCES && permitDeepest())
        result = m_calls.unlink(deepest(), name, flags);
    return result;
}

/// Tries once for permission in the folder that is being emptied. Whether it was given.
bool TreeRemover::permitDeepest() {
    if (m_levels.empty() || m_levels.back().permitted)
        return false;
    m_levels.back().permitted = true;
    return permitOwner(m_calls, deepest(), m_levels.back().status) == 0;
}

int TreeRemover::checkFolder(int folder, FileStatus& status) {
    const int result = m_calls.status(folder, "", status);
    if (result == 0 && (status.isMountPoint || status.device != m_device))
        return otherDevice;
    return result;
}

int TreeRemover::openFolder(const std::string& name) {
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK;
    int opened = m_calls.open(deepest(), name.c_str(), flags);
    if (opened == -EACCES && permitDeepest())
        opened = m_calls.open(deepest(), name.c_str(), flags);
    if (opened != -EACCES)
        return opened;
    const int pinned = m_calls.open(deepest(), name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW);
    if (pinned < 0)
        return opened;
    const Descriptor folder(m_calls, pinned);
    FileStatus status;
    if (const int result = checkFolder(pinned, status); result < 0)
        return result;
    if (permitOwner(m_calls, pinned, status) < 0)
        return opened;
    return m_calls.open(deepest(), name.c_str(), flags);
}

void TreeRemover::enter(const std::string& name, int passes) {
    const int opened = openFolder(name);
    if (opened == -ELOOP || opened == -ENOTDIR) { // has become a link or a file since it was listed
        const int result = mayRemove(name) ? unlink(name.c_str(), 0) : -EBUSY;
        if (result < 0 && result != -ENOENT)
            fail(result);
        return;
    }
    if (opened == -ENOENT && !m_levels.empty())
        return;
    if (opened < 0)
        return fail(opened);
    Descriptor folder(m_calls, opened);
    Level level;
    level.name = name;
    level.passes = passes;
    if (const int result = checkFolder(opened, level.status); result < 0)
        return fail(result);
    m_ladder.descend(std::move(folder), level.status);
    m_levels.push_back(std::move(level));
}

void TreeRemover::leave() {
    const Level left = std::move(m_levels.back());
    m_levels.pop_back();
    if (const int result = m_ladder.ascend(); result < 0) {
        m_levels.clear();
        return fail(result);
    }
    if (left.lost) {
        if (!m_levels.empty())
            m_levels.back().lost = true;
        return;
    }
    const int result = unlink(left.name.c_str(), AT_REMOVEDIR);
    if (result == -ENOTEMPTY && left.passes < mostPasses)
        return enter(left.name, left.passes + 1);
    if (result < 0 && result != -ENOENT)
        fail(result);
}

} // namespace brimlet
