// Who goes first where threads wait for a core: the window, or the work behind it.
#pragma once

namespace brimlet {

/// Lets the calling thread, and every thread that it starts from now on, give way to threads of normal
/// priority: it gets what they leave, and a little of a core in any case. For all work that no frame waits
/// for. There is no way back for the thread; calls after the first cost nothing. Any thread.
void yieldToTheWindow();

} // namespace brimlet
