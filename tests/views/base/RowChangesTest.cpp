#include "views/base/RowChanges.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace brimlet {
namespace {

using Keys = std::vector<int>;

/// What a view holds after it has followed the changes.
Keys followed(Keys rows, const Keys& now, const RowChanges& changes) {
    for (const RowRun& run : changes.removed)
        rows.erase(rows.begin() + run.first, rows.begin() + run.last + 1);
    for (const RowRun& run : changes.inserted)
        rows.insert(rows.begin() + run.first, now.begin() + run.first, now.begin() + run.last + 1);
    return rows;
}

int countIn(const std::vector<RowRun>& runs) {
    int count = 0;
    for (const RowRun& run : runs)
        count += run.last - run.first + 1;
    return count;
}

TEST(RowChanges, leadFromAnyListToAnyOther) {
    constexpr unsigned seed = 20'260'714;
    std::mt19937 random(seed);
    const auto drawn = [&] {
        Keys keys(random() % 12);
        std::ranges::generate(keys, [&] { return static_cast<int>(random() % 8); });
        return keys;
    };
    for (int round = 0; round < 5'000; ++round) {
        const Keys before = drawn();
        const Keys now = drawn();
        ASSERT_EQ(followed(before, now, rowChanges(before, now)), now)
            << "seed " << seed << ", round " << round;
    }
}

TEST(RowChanges, touchOnlyWhatCameAndWent) {
    EXPECT_EQ(rowChanges<int>({1, 2, 3}, {1, 2, 3}), RowChanges{});
    EXPECT_EQ(rowChanges<int>({1, 2, 3}, {9, 8, 1, 2, 3}), (RowChanges{{}, {{0, 1}}}));
    EXPECT_EQ(rowChanges<int>({1, 2, 3, 4, 5}, {1, 4, 7}), (RowChanges{{{4, 4}, {1, 2}}, {{2, 2}}}));
    constexpr unsigned seed = 7;
    std::mt19937 random(seed);
    Keys before(300);
    std::ranges::generate(before, [next = 0]() mutable { return next++; });
    Keys now = before;
    std::erase_if(now, [&](int) { return random() % 5 == 0; });
    const auto left = static_cast<int>(now.size());
    now.insert(now.begin() + 40, {1'000, 1'001, 1'002});
    const RowChanges changes = rowChanges(before, now);
    EXPECT_EQ(countIn(changes.removed), 300 - left);
    EXPECT_EQ(countIn(changes.inserted), 3);
}

} // namespace
} // namespace brimlet
