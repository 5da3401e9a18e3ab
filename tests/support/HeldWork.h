// Work that waits until the test lets it go on, as if the disk did not answer.
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>

namespace brimlet::test {

class HeldWork {
public:
    ~HeldWork() { release(); }

    /// Called by the work; returns once `release` has been called.
    void hold() {
        const std::shared_ptr<State> state = m_state; // outlives a test that goes first
        std::unique_lock lock(state->mutex);
        ++state->begun;
        state->changed.wait(lock, [&] { return state->isReleased; });
    }

    void release() {
        const std::scoped_lock lock(m_state->mutex);
        m_state->isReleased = true;
        m_state->changed.notify_all();
    }

    int begun() {
        const std::scoped_lock lock(m_state->mutex);
        return m_state->begun;
    }

private:
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        int begun = 0;
        bool isReleased = false;
    };
    std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace brimlet::test
