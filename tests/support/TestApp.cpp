#include "support/TestApp.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

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

void handleEvents() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

} // namespace brimlet::test
