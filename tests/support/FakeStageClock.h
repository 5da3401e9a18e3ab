// Time that stands still until a test moves it; what is due then runs.
#pragma once

#include "app/background/StageClock.h"

#include <map>
#include <QObject>
#include <QPointer>
#include <utility>

namespace brimlet::test {

class FakeStageClock final : public StageClock {
public:
    Time now() const override { return m_now; }
    void callAfter(std::chrono::milliseconds delay, QObject& context, std::function<void()> action) override {
        m_waiting.emplace(m_now + delay, Call{&context, std::move(action)});
    }
    void advance(std::chrono::milliseconds by) {
        m_now += by;
        while (!m_waiting.empty() && m_waiting.begin()->first <= m_now) {
            const Call call = m_waiting.extract(m_waiting.begin()).mapped();
            if (call.context)
                call.action();
        }
    }

private:
    struct Call {
        QPointer<QObject> context;
        std::function<void()> action;
    };
    Time m_now{};
    std::multimap<Time, Call> m_waiting;
};

} // namespace brimlet::test
