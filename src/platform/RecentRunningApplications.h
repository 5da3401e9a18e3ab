// Which applications were open a moment ago: for lists that ask for each of their rows. What decides over a
// removal asks afresh instead.
#pragma once

#include "platform/RunningApplications.h"

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>

namespace brimlet {

class RecentRunningApplications final : public RunningApplications {
public:
    using Clock = std::chrono::steady_clock;

    /// running   must outlive this
    /// maxAge    how old an answer may be
    RecentRunningApplications(const RunningApplications& running, Clock::duration maxAge,
                              std::function<Clock::time_point()> now = Clock::now);

    std::vector<std::string> identifiers() const override;

private:
    const RunningApplications& m_running;
    Clock::duration m_maxAge;
    std::function<Clock::time_point()> m_now;
    mutable std::mutex m_mutex;
    mutable std::vector<std::string> m_identifiers;
    mutable std::optional<Clock::time_point> m_askedAt;
};

} // namespace brimlet
