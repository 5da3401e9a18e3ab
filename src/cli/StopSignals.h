// Ctrl-C and SIGTERM as a request to stop: what is at hand ends in order, and the report is printed.
#pragma once

#include <csignal>
#include <stop_token>
#include <thread>

namespace brimlet {

/// As long as it lives, the first SIGINT, SIGTERM or SIGHUP asks to stop; a second one ends the process as
/// ever. One at a time.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    std::stop_token token() const { return m_source.get_token(); }

private:
    static constexpr int signals[] = {SIGINT, SIGTERM, SIGHUP};

    std::stop_source m_source;
    int m_event;
    struct sigaction m_before[std::size(signals)]{};
    std::thread m_waiter;
};

} // namespace brimlet
