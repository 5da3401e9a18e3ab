#include "platform/RecentRunningApplications.h"

#include <utility>

namespace brimlet {

RecentRunningApplications::RecentRunningApplications(const RunningApplications& running,
                                                     Clock::duration maxAge,
                                                     std::function<Clock::time_point()> now)
    : m_running(running)
    , m_maxAge(maxAge)
    , m_now(std::move(now)) {}

std::vector<std::string> RecentRunningApplications::identifiers() const {
    const std::scoped_lock lock(m_mutex);
    const Clock::time_point now = m_now();
    if (!m_askedAt || now - *m_askedAt > m_maxAge) {
        m_identifiers = m_running.identifiers();
        m_askedAt = now;
    }
    return m_identifiers;
}

} // namespace brimlet
