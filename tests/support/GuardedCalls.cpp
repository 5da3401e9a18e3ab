#include "support/GuardedCalls.h"

#include "core/Paths.h"

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace brimlet::test {

namespace {

/// The path of an open descriptor; empty when it is too long.
std::string pathOf(int descriptor) {
    std::array<char, PATH_MAX> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), path.data(), path.size());
    return length < 0 ? std::string() : std::string(path.data(), static_cast<std::size_t>(length));
}

} // namespace

GuardedCalls::GuardedCalls(std::string allowed)
    : m_allowed(std::move(allowed)) {}

void GuardedCalls::failAt(int n, int errnoValue, Repeat repeat) {
    behave();
    m_failAt = n;
    m_error = errnoValue;
    m_repeat = repeat;
}

void GuardedCalls::failCalls(std::string call, int errnoValue) {
    behave();
    m_failingCall = std::move(call);
    m_error = errnoValue;
}

void GuardedCalls::dieAt(int n) {
    behave();
    m_dieAt = n;
}

void GuardedCalls::behave() {
    m_count = 0;
    m_failAt = 0;
    m_dieAt = 0;
    m_failingCall.clear();
}

/// Climbs from a folder whose path is too long to be told, up to the allowed one or one that was found below
/// it before. A file can't be climbed from; the folder it was made in has been checked when it was.
bool GuardedCalls::climbsToAllowed(int folder) {
    using Identity = std::pair<dev_t, ino_t>;
    struct stat goal {};
    if (fstat(folder, &goal) == 0 && !S_ISDIR(goal.st_mode))
        return true;
    if (stat(m_allowed.c_str(), &goal) != 0)
        return false;
    std::vector<Identity> climbed;
    int at = openat(folder, ".", O_PATH | O_DIRECTORY | O_CLOEXEC);
    bool found = false;
    while (at >= 0 && !found) {
        struct stat here {};
        const bool known = fstat(at, &here) == 0;
        const Identity identity(here.st_dev, here.st_ino);
        found = known && (identity == Identity(goal.st_dev, goal.st_ino) || m_below.contains(identity));
        const bool top = !known || (!climbed.empty() && climbed.back() == identity);
        climbed.push_back(identity);
        const int up = found || top ? -1 : openat(at, "..", O_PATH | O_DIRECTORY | O_CLOEXEC);
        close(at);
        at = up;
    }
    if (found)
        m_below.insert(climbed.begin(), climbed.end());
    return found;
}

void GuardedCalls::guard(const SystemCall& call, int folder) {
    // Making a folder that is there changes nothing.
    const bool makesNothing = std::string_view(call.call) == "makeFolder" &&
                              faccessat(folder, call.name, F_OK, AT_SYMLINK_NOFOLLOW) == 0;
    const std::string path = pathOf(folder);
    const bool inside =
        path.empty() ? climbsToAllowed(folder) : path == m_allowed || isBelow(path, m_allowed);
    if (makesNothing || (inside && std::string_view(call.name).find('/') == std::string_view::npos))
        return;
    std::fprintf(stderr, "guard: %s of \"%s\" in %s is outside %s\n", call.call, call.name, path.c_str(),
                 m_allowed.c_str());
    std::abort();
}

bool GuardedCalls::crossesDisks(const SystemCall& call) const {
    if (m_otherDisk.empty() || call.secondFolder < 0)
        return false;
    const auto onOtherDisk = [&](int folder) {
        const std::string path = pathOf(folder);
        return path == m_otherDisk || isBelow(path, m_otherDisk);
    };
    return onOtherDisk(call.folder) != onOtherDisk(call.secondFolder);
}

int GuardedCalls::before(const SystemCall& call) {
    const std::lock_guard lock(m_mutex);
    if (onCall)
        onCall(call);
    if (call.changes) {
        guard(call, call.folder);
        if (call.secondFolder >= 0)
            guard(call, call.secondFolder);
    }
    const int number = ++m_count;
    if (m_dieAt == number)
        kill(getpid(), SIGKILL);
    if (m_failAt > 0 && (number == m_failAt || (m_repeat == Repeat::fromThenOn && number > m_failAt)))
        return -m_error;
    if (!m_failingCall.empty() && m_failingCall == call.call)
        return -m_error;
    if (m_lacksExclusiveRename && call.flags == RENAME_NOREPLACE)
        return -EINVAL;
    if (m_lacksHardLinks && std::string_view(call.call) == "makeHardLink")
        return -EPERM;
    return crossesDisks(call) ? -EXDEV : 0;
}

} // namespace brimlet::test
