#include "app/background/SlicedWork.h"

#include <chrono>
#include <utility>

namespace brimlet {

namespace {

/// Leaves most of a frame to everything else.
constexpr std::chrono::milliseconds sliceLength{3};

} // namespace

SlicedWork::SlicedWork() {
    m_next.setSingleShot(true);
    QObject::connect(&m_next, &QTimer::timeout, &m_next, [this] { goOn(); });
}

void SlicedWork::run(Step step, std::function<void()> then) {
    m_loops.push_back({std::move(step), std::move(then)});
    if (m_loops.size() == 1)
        goOn();
}

void SlicedWork::drop() {
    m_loops.clear();
    m_next.stop();
}

void SlicedWork::goOn() {
    const auto end = std::chrono::steady_clock::now() + sliceLength;
    while (m_loops.front().step()) {
        if (std::chrono::steady_clock::now() >= end) {
            m_next.start();
            return;
        }
    }
    const std::function<void()> then = std::move(m_loops.front().then);
    m_loops.pop_front();
    if (!m_loops.empty())
        m_next.start();
    if (then)
        then();
}

} // namespace brimlet
