#include "junk/JunkSelection.h"

#include "support/MadeUpJunk.h"

#include <gtest/gtest.h>
#include <random>

namespace brimlet {
namespace {

using test::longFinding;
using test::madeUpFinding;

TEST(JunkSelection, boxOfARuleTellsNoneSomeAndAllOfItsItems) {
    const std::vector<JunkFinding> junk = {madeUpFinding("user-caches", {{"a", 30}, {"b", 20}}),
                                           madeUpFinding("trash", {{"a", 7}})};
    JunkSelection selection;
    selection.adopt(junk);
    EXPECT_EQ(selection.state(0, junk[0]), TickState::off);

    selection.toggle(0, junk[0].items[1]);
    EXPECT_EQ(selection.state(0, junk[0]), TickState::partly);
    EXPECT_EQ(selection.state(1, junk[1]), TickState::off);

    selection.toggleAll(0, junk[0]);
    EXPECT_EQ(selection.state(0, junk[0]), TickState::on);
    EXPECT_EQ(selection.count(), 2U);
    EXPECT_EQ(selection.size(), 50);

    selection.toggleAll(0, junk[0]);
    EXPECT_EQ(selection.state(0, junk[0]), TickState::off);
    EXPECT_EQ(selection.size(), 0);
}

TEST(JunkSelection, whatLeavesTheListIsNoLongerCounted) {
    std::vector<JunkFinding> junk = {madeUpFinding("user-caches", {{"a", 30}, {"b", 20}, {"c", 10}})};
    JunkSelection selection;
    selection.adopt(junk);
    selection.toggleAll(0, junk[0]);

    junk[0].items.erase(junk[0].items.begin());
    junk[0].items[0].size = 25;
    selection.adopt(junk);
    EXPECT_EQ(selection.count(), 2U);
    EXPECT_EQ(selection.size(), 35);
    EXPECT_EQ(selection.state(0, junk[0]), TickState::on);

    junk[0].items.clear();
    selection.adopt(junk);
    EXPECT_EQ(selection.count(), 0U);
    EXPECT_EQ(selection.state(0, junk[0]), TickState::off) << "an emptied finding stays in the list";
}

TEST(JunkSelection, countsStayTrueOverRandomSteps) {
    constexpr std::uint32_t seed = 20261122;
    std::mt19937 random(seed);
    const std::vector<JunkFinding> junk = {longFinding("user-caches", 9), longFinding("trash", 4)};
    JunkSelection selection;
    selection.adopt(junk);
    for (int step = 0; step < 2'000; ++step) {
        const std::size_t position = random() % junk.size();
        const JunkFinding& finding = junk[position];
        if (random() % 5 == 0)
            selection.toggleAll(position, finding);
        else
            selection.toggle(position, finding.items[random() % finding.items.size()]);

        std::int64_t size = 0;
        std::size_t count = 0;
        for (std::size_t other = 0; other < junk.size(); ++other) {
            std::size_t chosen = 0;
            for (const JunkItem& item : junk[other].items) {
                chosen += selection.contains(item) ? 1 : 0;
                size += selection.contains(item) ? item.size : 0;
            }
            count += chosen;
            const TickState expected = chosen == 0                          ? TickState::off
                                       : chosen == junk[other].items.size() ? TickState::on
                                                                            : TickState::partly;
            ASSERT_EQ(selection.state(other, junk[other]), expected) << "seed " << seed << " step " << step;
        }
        ASSERT_EQ(selection.size(), size) << "seed " << seed << " step " << step;
        ASSERT_EQ(selection.count(), count) << "seed " << seed << " step " << step;
    }
}

} // namespace
} // namespace brimlet
