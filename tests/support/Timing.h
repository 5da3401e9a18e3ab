// Wall-clock timing for benchmarks.
#pragma once

#include <algorithm>
#include <chrono>
#include <limits>
#include <vector>

namespace brimlet::test {

template <typename Action>
double milliseconds(Action action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
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
