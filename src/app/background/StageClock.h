// The passing of time as the stages of a flow see it, so that a test can let seconds pass at once.
#pragma once

#include <chrono>
#include <functional>

class QObject;

namespace brimlet {

/// Main thread.
class StageClock {
public:
    using Time = std::chrono::steady_clock::time_point;

    virtual ~StageClock() = default;

    virtual Time now() const = 0;

    /// Calls `action` once after the delay, unless `context` is gone by then.
    virtual void callAfter(std::chrono::milliseconds delay, QObject& context,
                           std::function<void()> action) = 0;
};

/// The real one, over Qt's event loop.
class SystemStageClock final : public StageClock {
public:
    Time now() const override { return std::chrono::steady_clock::now(); }
    void callAfter(std::chrono::milliseconds delay, QObject& context, std::function<void()> action) override;
};

} // namespace brimlet
