#include "shell/QuitSignals.h"

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <unistd.h>
#include <utility>

namespace brimlet {

namespace {

constexpr std::array quitting = {SIGTERM, SIGINT};

/// A handler can reach nothing else.
std::atomic<int> writeEnd = -1;

void noteSignal(int) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(writeEnd, &byte, 1);
}

} // namespace

QuitSignals::QuitSignals(std::function<void()> wanted) {
    if (pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals keep their usual effect
    writeEnd = m_pipe[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, qApp,
                     [end = m_pipe[0], wanted = std::move(wanted)] {
                         char byte = 0;
                         if (read(end, &byte, 1) == 1)
                             wanted();
                     });
    struct sigaction once {};
    once.sa_handler = noteSignal;
    once.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    for (const int signal : quitting)
        sigaction(signal, &once, nullptr);
}

QuitSignals::~QuitSignals() {
    for (const int signal : quitting)
        std::signal(signal, SIG_DFL);
    m_notifier.reset();
    for (const int end : m_pipe) {
        if (end >= 0)
            close(end);
    }
}

} // namespace brimlet
