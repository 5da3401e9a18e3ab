#include "core/walk/ParallelFor.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

namespace brimlet {

void parallelFor(std::size_t count, std::size_t threads, const std::function<void(std::size_t)>& body) {
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t index = next++; index < count; index = next++)
            body(index);
    };
    std::vector<std::jthread> others;
    try {
        for (std::size_t i = 1; i < std::min(threads, count); ++i)
            others.emplace_back(work);
    } catch (const std::system_error&) {
        // No more threads to be had: those there are do the work.
    }
    work();
}

std::size_t diskThreads() {
    return std::clamp<std::size_t>(2 * std::size_t{std::thread::hardware_concurrency()}, 4, 16);
}

} // namespace brimlet
