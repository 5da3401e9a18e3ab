#include "core/walk/ParallelFor.h"

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <vector>

namespace brimlet {
namespace {

TEST(ParallelForTest, eachPieceIsDoneOnceWithinTheThreads) {
    for (const std::size_t threads : {0U, 1U, 3U, 16U}) {
        for (const std::size_t count : {0U, 1U, 2U, 1000U}) {
            std::vector<std::atomic<int>> done(count);
            std::atomic<std::size_t> running = 0;
            std::atomic<std::size_t> most = 0;
            parallelFor(count, threads, [&](std::size_t i) {
                const std::size_t here = ++running;
                for (std::size_t seen = most; seen < here && !most.compare_exchange_weak(seen, here);) {
                }
                ++done[i];
                --running;
            });
            EXPECT_TRUE(std::ranges::all_of(done, [](const auto& times) { return times == 1; }));
            EXPECT_LE(most, std::max<std::size_t>(threads, 1));
        }
    }
    EXPECT_GE(diskThreads(), 4U);
    EXPECT_LE(diskThreads(), 16U);
}

} // namespace
} // namespace brimlet
