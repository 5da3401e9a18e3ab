// Long work off the main thread: values go in, a value comes back on the main thread.
//
// Main thread. When the object goes, results that have not been handed back are dropped; it waits for work
// that still runs, so its owner cancels first what can be cancelled. Work that hangs can't be waited for: the
// program then ends without destroying what that work touches (see waitFor).
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <QMetaObject>
#include <QObject>
#include <QThreadPool>
#include <utility>

#include "platform/ThreadPriority.h"

namespace brimlet {

class BackgroundWork {
public:
    /// Work mostly waits for the disk, and a piece that hangs keeps its thread for good: there are many.
    static constexpr int manyThreads = 32;

    /// With one thread, pieces of work run one after the other, in the order of the calls.
    explicit BackgroundWork(int threads = manyThreads) { m_threads.setMaxThreadCount(threads); }

    /// Runs `work()` on a background thread, then `then(result)` on the main thread. `work` owns all that it
    /// touches.
    template <typename Work, typename Then>
    void run(Work work, Then then) {
        m_threads.start([this, work = std::move(work), then = std::move(then)]() mutable {
            yieldToTheWindow();
            auto result = std::make_shared<std::invoke_result_t<Work>>(work());
            handBack([then = std::move(then), result]() mutable { then(std::move(*result)); });
        });
    }

    /// Calls `action` on the main thread, in the order of the calls. Any thread, while work runs.
    void handBack(std::function<void()> action) {
        QMetaObject::invokeMethod(&m_mainThread, std::move(action), Qt::QueuedConnection);
    }

    /// Waits until nothing runs any more, or the time is over. True when nothing does.
    bool waitFor(std::chrono::milliseconds patience) {
        return m_threads.waitForDone(static_cast<int>(patience.count()));
    }

private:
    QObject m_mainThread;
    QThreadPool m_threads; // Goes first: nothing may hand back to a context that is gone.
};

} // namespace brimlet
