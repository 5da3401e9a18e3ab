#include "junk/QuickClean.h"

#include "support/MadeUpJunk.h"
#include "tables/SystemTables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brimlet {
namespace {

using test::madeUpFinding;

std::vector<JunkFinding> mixedJunk() {
    return {madeUpFinding("ios-backups", {{"phone", 900}}),
            madeUpFinding("user-caches", {{"a", 300}, {"b", 200}}), madeUpFinding("trash", {{"old", 40}})};
}

TEST(QuickClean, ticksOnlyWhatTheCatalogueOffersAndNeverAReviewRule) {
    const RuleSelection selection = defaultSelection(macosTables().junk.rules);
    for (const JunkRule& rule : macosTables().junk.rules) {
        EXPECT_EQ(selection.contains(rule.id), rule.inSmartClean) << rule.id;
        EXPECT_FALSE(selection.contains(rule.id) && rule.risk != Risk::safe) << rule.id;
    }
}

TEST(QuickClean, asksForTheItemsOfSelectedRulesInListOrderEachInItsRulesWay) {
    const std::vector<JunkFinding> junk = mixedJunk();
    const RuleSelection selection = {"trash", "ios-backups", "a rule that found nothing"};

    const std::vector<DeletionRequest> requests = cleanRequests(junk, selection);

    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].path, "/junk/ios-backups/phone");
    EXPECT_EQ(requests[0].size, 900);
    EXPECT_EQ(requests[0].removal, Removal::trash);
    EXPECT_EQ(requests[1].path, "/junk/trash/old");
    EXPECT_EQ(requests[1].removal, Removal::permanent);
    EXPECT_NE(requests[0].id, requests[1].id);
    EXPECT_EQ(selectedSize(junk, selection), 940);
}

TEST(QuickClean, nothingSelectedMeansNoRequestsAndNoBytes) {
    const std::vector<JunkFinding> junk = mixedJunk();
    EXPECT_TRUE(cleanRequests(junk, {}).empty());
    EXPECT_EQ(selectedSize(junk, {}), 0);
}

TEST(QuickClean, stepsFollowThePhase) {
    using enum StepState;
    struct Case {
        SmartPhase phase;
        std::array<StepState, 3> steps;
    };
    constexpr Case cases[] = {
        {SmartPhase::idle, {present, ahead, ahead}},
        {SmartPhase::scanning, {present, ahead, ahead}},
        {SmartPhase::review, {finished, present, ahead}},
        {SmartPhase::cleaning, {finished, finished, present}},
        {SmartPhase::done, {finished, finished, finished}},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(stepStates(one.phase), one.steps) << caseName(one.phase);
        EXPECT_EQ(smartPhaseFromCaseName(caseName(one.phase)), one.phase);
    }
    EXPECT_EQ(smartPhaseFromCaseName("reviewing"), std::nullopt);
}

} // namespace
} // namespace brimlet
