// Long work off the main thread: values go in, a value comes back on the main thread.
//
// Main thread. When the object goes, results that have not been handed back are dropped; it waits for work
// that still runs, so its owner cancels first what can be cancelled.
#pragma once

#include <functional>
#include <memory>
#include <QMetaObject>
#include <QObject>
#include <QThreadPool>
#include <utility>

namespace brimlet {

class BackgroundWork {
public:
    BackgroundWork() { m_threads.setMaxThreadCount(threadCount); }

    /// Runs `work()` on a background thread, then `then(result)` on the main thread. `work` owns all that it
    /// touches.
    template <typename Work, typename Then>
    void run(Work work, Then then) {
        m_threads.start([this, work = std::move(work), then = std::move(then)]() mutable {
            auto result = std::make_shared<std::invoke_result_t<Work>>(work());
            handBack([then = std::move(then), result]() mutable { then(std::move(*result)); });
        });
    }

    /// Calls `action` on the main thread, in the order of the calls. Any thread, while work runs.
    void handBack(std::function<void()> action) {
        QMetaObject::invokeMethod(&m_mainThread, std::move(action), Qt::QueuedConnection);
    }

private:
    /// Work mostly waits for the disk; more threads than this only wait for each other.
    static constexpr int threadCount = 8;

    QObject m_mainThread;
    QThreadPool m_threads; // Goes first: nothing may hand back to a context that is gone.
};

} // namespace brimlet
