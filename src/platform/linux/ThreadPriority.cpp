#include "platform/ThreadPriority.h"

#include <sched.h>
#include <sys/resource.h>

namespace brimlet {

namespace {

/// What is `nice`st: about a seventieth of a core while the window wants all of it.
constexpr int lowestPriority = 19;

} // namespace

void yieldToTheWindow() {
    thread_local bool yields = false;
    if (yields)
        return;
    yields = true;
    // Nothing is done about a refusal: the work goes on, only less politely. Either call is for the thread
    // alone. Not SCHED_IDLE: that keeps no core at all while other programs want them, and holds up the
    // window no less.
    const sched_param none{};
    sched_setscheduler(0, SCHED_BATCH, &none);
    setpriority(PRIO_PROCESS, 0, lowestPriority);
}

} // namespace brimlet
