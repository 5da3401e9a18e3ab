// Timing for benchmarks and for tests of what takes long.
#pragma once

#include <algorithm>
#include <chrono>
#include <ctime>
#include <limits>
#include <vector>

namespace brimlet::test {

template <typename Action>
double milliseconds(Action action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// What the calling thread has worked so far; other programs don't lengthen it.
inline double processorMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// The median of several runs: what a user meets, not the luckiest moment.
template <typename Action>
double medianMilliseconds(int runs, Action action) {
    std::vector<double> times;
    times.reserve(static_cast<std::size_t>(runs));
    for (int i = 0; i < runs; ++i)
        times.push_back(milliseconds(action));
    std::ranges::nth_element(times, times.begin() + runs / 2);
    return times[static_cast<std::size_t>(runs) / 2];
}

} // namespace brimlet::test
