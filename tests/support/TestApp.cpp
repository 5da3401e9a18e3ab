#include "support/TestApp.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <utility>

namespace brimlet::test {

namespace {
constexpr int patienceMilliseconds = 20'000;
}

bool eventually(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(patienceMilliseconds);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(1);
    }
    return true;
}

bool removeDeleted(AppState& state, std::unordered_set<std::string> paths) {
    const auto isDone = std::make_shared<bool>(false);
    state.removeDeleted(std::make_shared<const std::unordered_set<std::string>>(std::move(paths)),
                        [isDone] { *isDone = true; });
    return eventually([&] { return *isDone; });
}

void handleEvents() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

} // namespace brimlet::test
