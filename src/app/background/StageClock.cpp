#include "app/background/StageClock.h"

#include <QTimer>
#include <utility>

namespace brimlet {

void SystemStageClock::callAfter(std::chrono::milliseconds delay, QObject& context,
                                 std::function<void()> action) {
    QTimer::singleShot(delay, &context, std::move(action));
}

} // namespace brimlet
