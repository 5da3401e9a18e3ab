// Long loops over what belongs to the main thread, a few milliseconds at a time, so that no frame waits.
//
// 1. Loops run one after the other, in the order of the calls. Between two slices events are handled, so that
// a
//    loop must leave what others read whole after each step.
// 2. A loop that fits into one slice is done when `run` returns, unless another is still under way.
// Main thread.
#pragma once

#include <deque>
#include <functional>
#include <QTimer>

namespace brimlet {

class SlicedWork {
public:
    /// Does a little, far less than a millisecond's worth. Returns whether anything is left to do.
    using Step = std::function<bool()>;

    SlicedWork();

    /// then  called once the loop has ended; may be empty
    void run(Step step, std::function<void()> then);

    /// Forgets what is under way; what was to follow it isn't called.
    void drop();

    bool isBusy() const { return !m_loops.empty(); }

private:
    struct Loop {
        Step step;
        std::function<void()> then;
    };

    void goOn();

    std::deque<Loop> m_loops; ///< the first one is under way
    QTimer m_next;
};

} // namespace brimlet
