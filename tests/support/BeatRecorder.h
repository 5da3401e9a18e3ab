// How evenly the main thread goes on: the times from one beat of a timer to the next, with all that happens
// between them, waiting for a core included.
#pragma once

#include <algorithm>
#include <chrono>
#include <QObject>
#include <QTimer>
#include <vector>

namespace brimlet::test {

/// Main thread; beats while its events are handled.
class BeatRecorder {
public:
    BeatRecorder() {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(beatMilliseconds);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
    }

    void start() {
        m_gaps.clear();
        m_last = Clock::now();
        m_timer.start();
    }
    void stop() { m_timer.stop(); }

    std::size_t count() const { return m_gaps.size(); }

    /// Milliseconds that so many percent of the gaps don't exceed; 100 for the worst.
    double percentile(std::size_t percent) const {
        if (m_gaps.empty())
            return 0;
        std::vector<double> sorted = m_gaps;
        std::ranges::sort(sorted);
        return sorted[std::min(sorted.size() - 1, sorted.size() * percent / 100)];
    }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr int beatMilliseconds = 4;

    void beat() {
        const auto now = Clock::now();
        m_gaps.push_back(std::chrono::duration<double, std::milli>(now - m_last).count());
        m_last = now;
    }

    QTimer m_timer;
    Clock::time_point m_last;
    std::vector<double> m_gaps;
};

} // namespace brimlet::test
