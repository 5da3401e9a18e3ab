// The one way to spread equal pieces of work over threads.
#pragma once

#include <cstddef>
#include <functional>

namespace brimlet {

/// Calls body(0) … body(count - 1), several at once, and returns when all have returned. The calling thread
/// works too; at most `threads` calls run at once. Pieces are taken in order. `body` must not throw.
void parallelFor(std::size_t count, std::size_t threads, const std::function<void(std::size_t)>& body);

/// A number of threads that keeps a disk's queue filled while some of them wait: twice the cores, 4 to 16.
std::size_t diskThreads();

} // namespace brimlet
