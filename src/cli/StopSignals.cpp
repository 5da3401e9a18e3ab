#include "cli/StopSignals.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>

namespace brimlet {

namespace {

constexpr std::uint64_t fromSignal = 1;
constexpr std::uint64_t fromEnd = std::uint64_t{1} << 32;

std::atomic<int> eventOfSignals = -1; // a handler has nothing else to go by

void handle(int) {
    const int error = errno;
    (void)!write(eventOfSignals.load(), &fromSignal, sizeof fromSignal);
    errno = error;
}

} // namespace

// A handler may do hardly anything; it wakes a thread that asks for the stop.
StopSignals::StopSignals()
    : m_event(eventfd(0, EFD_CLOEXEC)) {
    eventOfSignals = m_event;
    m_waiter = std::thread([this] {
        std::uint64_t sum = 0;
        while (read(m_event, &sum, sizeof sum) < 0 && errno == EINTR)
            ;
        if (sum % fromEnd != 0)
            m_source.request_stop();
    });
    struct sigaction action {};
    action.sa_handler = handle;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < std::size(signals); ++i)
        sigaction(signals[i], &action, &m_before[i]);
}

StopSignals::~StopSignals() {
    for (std::size_t i = 0; i < std::size(signals); ++i)
        sigaction(signals[i], &m_before[i], nullptr);
    (void)!write(m_event, &fromEnd, sizeof fromEnd);
    m_waiter.join();
    eventOfSignals = -1;
    close(m_event);
}

} // namespace brimlet
