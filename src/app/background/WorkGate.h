// Lets pieces of work through one at a time, until it is shut for good. Callable from any thread.
#pragma once

#include <atomic>

namespace brimlet {

class WorkGate {
public:
    /// Whether the work may begin. The worker that was let through calls `leave` at its end.
    bool enter() {
        State expected = State::open;
        return m_state.compare_exchange_strong(expected, State::occupied);
    }

    void leave() {
        State expected = State::occupied;
        if (!m_state.compare_exchange_strong(expected, State::open))
            m_state = State::shut;
    }

    /// Lets nothing through from now on. Whether nothing is at work any more.
    bool shut() {
        State now = m_state;
        while (now == State::open || now == State::occupied) {
            const State next = now == State::open ? State::shut : State::closing;
            if (m_state.compare_exchange_weak(now, next))
                break;
        }
        return isShut();
    }

    bool isShut() const { return m_state == State::shut; }

private:
    enum class State {
        open,
        occupied,
        closing, ///< occupied, and shut afterwards
        shut,
    };

    std::atomic<State> m_state = State::open;
};

} // namespace brimlet
