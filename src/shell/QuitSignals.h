// Makes the system's wish that the program end (SIGTERM, SIGINT) a quit like the user's own. A second signal
// ends the process at once. One at a time; main thread; needs an application object.
#pragma once

#include <array>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace brimlet {

class QuitSignals {
public:
    /// wanted  called from the event loop
    explicit QuitSignals(std::function<void()> wanted);
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

private:
    std::array<int, 2> m_pipe = {-1, -1};
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace brimlet
