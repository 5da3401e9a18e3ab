#include "platform/linux/removal/ChangeWatch.h"

#include <array>
#include <fcntl.h>
#include <string>
#include <sys/inotify.h>
#include <unistd.h>

namespace brimlet {

ChangeWatch::ChangeWatch(FileSystemCalls& calls, int folder, const char* name) {
    // A path of the descriptor leads to the very entry, whatever bears its name by then.
    const Descriptor entry(calls, calls.open(folder, name, O_PATH | O_NOFOLLOW));
    if (!entry.isOpen())
        return;
    const std::string path = "/proc/self/fd/" + std::to_string(entry.number());
    m_events = Descriptor(calls, inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (m_events.isOpen() && inotify_add_watch(m_events.number(), path.c_str(), IN_MODIFY | IN_ATTRIB) < 0)
        m_events.close();
}

bool ChangeWatch::sawChange() {
    std::array<char, 4096> events{};
    return m_events.isOpen() && ::read(m_events.number(), events.data(), events.size()) > 0;
}

} // namespace brimlet
