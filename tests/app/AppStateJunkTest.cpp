#include "app/state/JunkState.h"
#include "app/state/NoticeState.h"
#include "app/state/QuickCleanState.h"
#include "app/state/RemovalState.h"
#include "support/CatalogueRule.h"
#include "support/MadeUpJunk.h"
#include "support/TestApp.h"
#include "tables/SystemTables.h"

#include <deque>
#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mutex>
#include <QCoreApplication>

namespace brimlet {
namespace {

using namespace std::chrono_literals;
using test::eventually;
using test::madeUpFinding;
using ::testing::ElementsAre;

using Junk = std::vector<JunkFinding>;

/// Searches end when the test says what they found, each on its own.
class SearchesInHand {
public:
    Junk next() {
        std::future<Junk> found;
        {
            const std::scoped_lock lock(m_mutex);
            found = m_searches.at(m_started++).get_future();
        }
        return found.get();
    }
    void finish(std::size_t search, Junk found) {
        m_finished = std::max(m_finished, search + 1);
        m_searches.at(search).set_value(std::move(found));
    }
    /// The position of the search that is or will be the next to be finished.
    std::size_t coming() const { return m_finished; }

    /// Lets a failed test end.
    void finishAll() {
        for (std::promise<Junk>& search : m_searches) {
            try {
                search.set_value({});
            } catch (const std::future_error&) {
                continue; // has been finished
            }
        }
    }
    std::size_t started() {
        const std::scoped_lock lock(m_mutex);
        return m_started;
    }

private:
    std::mutex m_mutex;
    std::deque<std::promise<Junk>> m_searches{8};
    std::size_t m_started = 0;
    std::size_t m_finished = 0;
};

class AppStateJunk : public ::testing::Test {
protected:
    Junk mixedJunk() const {
        return {madeUpFinding("user-caches", {{"a", 300}, {"b", 200}}),
                madeUpFinding("old-installers", {{"x.dmg", 100}})};
    }
    void find(std::size_t search, Junk found) {
        ASSERT_TRUE(eventually([&] { return searches.started() > search; }));
        searches.finish(search, std::move(found));
        ASSERT_TRUE(eventually([&] { return !state.junk()->isLoading(); }));
    }
    void reachReview(Junk found) {
        state.quickClean()->setSmartPhase(SmartPhase::scanning);
        state.quickClean()->startSmartScan();
        clock.advance(2s);
        find(searches.coming(), std::move(found));
        ASSERT_EQ(state.quickClean()->smartPhase(), SmartPhase::review);
    }

    void TearDown() override { searches.finishAll(); }

    SearchesInHand searches;
    std::vector<DeletionRequest> asked;
    DeletionReport report;
    test::TestApp app;
    test::FakePreferences& preferences = app.preferences;
    test::FakeStageClock& clock = app.clock;
    AppState& state = preparedState();

private:
    AppState& preparedState() {
        app.junkSearch = [this] { return searches.next(); };
        app.deletionRun = [this](const std::vector<DeletionRequest>& requests, const std::stop_token&) {
            asked = requests;
            return ExecutedRun{report, {}, {}, nullptr};
        };
        return app.state();
    }
};

TEST_F(AppStateJunk, scanningLastsItsShortestTimeHoweverFastTheDisk) {
    state.quickClean()->setSmartPhase(SmartPhase::scanning);
    state.quickClean()->startSmartScan();
    EXPECT_TRUE(state.junk()->isLoading());
    find(0, mixedJunk());
    clock.advance(1599ms);
    EXPECT_EQ(state.quickClean()->smartPhase(), SmartPhase::scanning);
    clock.advance(1ms);
    EXPECT_EQ(state.quickClean()->smartPhase(), SmartPhase::review);
    EXPECT_EQ(state.quickClean()->smartSelectedSize(), 500) << "a review rule starts unticked";
}

TEST_F(AppStateJunk, slowScanIsReviewedAtOnce) {
    reachReview(mixedJunk());
}

TEST_F(AppStateJunk, cleanAsksForTickedItemsOnceAndEndsWithAReportAndAFreshList) {
    preferences.setValue("permanentDelete", true);
    reachReview(mixedJunk());
    state.quickClean()->setRuleSelected(QStringLiteral("old-installers"), true);
    state.quickClean()->setRuleSelected(QStringLiteral("user-caches"), false);
    report.movedToTrash = 100;
    report.deletedPaths = {"/junk/old-installers/x.dmg"};

    state.quickClean()->startSmartClean();
    state.quickClean()->startSmartClean(); // a double press
    EXPECT_EQ(state.quickClean()->smartPhase(), SmartPhase::cleaning);
    ASSERT_TRUE(eventually([&] { return state.junk()->findings()[1].items.empty(); }));
    EXPECT_EQ(state.quickClean()->smartPhase(), SmartPhase::cleaning) << "the stage can be read";
    EXPECT_EQ(state.quickClean()->lastReport(), nullptr);
    ASSERT_TRUE(eventually([&] { return state.notice()->toast().has_value(); }));
    clock.advance(1200ms);

    EXPECT_EQ(state.quickClean()->smartPhase(), SmartPhase::done);
    ASSERT_NE(state.quickClean()->lastReport(), nullptr);
    EXPECT_EQ(*state.quickClean()->lastReport(), report);
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0].path, "/junk/old-installers/x.dmg");
    EXPECT_EQ(asked[0].removal, Removal::trash) << "the rule's way, whatever the preference says";
    find(1, {madeUpFinding("trash", {{"x.dmg", 100}})});
    EXPECT_EQ(state.junk()->findings().front().rule.id, "trash");
    EXPECT_EQ(state.quickClean()->smartPhase(), SmartPhase::done);
}

TEST_F(AppStateJunk, cleanWithNothingTickedChangesNothing) {
    reachReview({madeUpFinding("old-installers", {{"x.dmg", 100}})});
    state.quickClean()->startSmartClean();
    EXPECT_EQ(state.quickClean()->smartPhase(), SmartPhase::review);
    EXPECT_TRUE(asked.empty());
}

TEST_F(AppStateJunk, ticksOutliveStartingOverAndANewScan) {
    reachReview(mixedJunk());
    state.quickClean()->setRuleSelected(QStringLiteral("trash"), false);
    state.quickClean()->setSmartPhase(SmartPhase::idle);
    reachReview(mixedJunk());
    EXPECT_FALSE(state.quickClean()->smartSelection().contains("trash"));
    EXPECT_TRUE(state.quickClean()->smartSelection().contains("user-caches"));
}

TEST_F(AppStateJunk, searchesNeverPileUpAndOnlyTheLastIsPublished) {
    for (int i = 0; i < 10; ++i)
        state.junk()->load();
    state.quickClean()->setSmartPhase(SmartPhase::scanning);
    state.quickClean()->startSmartScan();
    clock.advance(2s);
    ASSERT_TRUE(eventually([&] { return searches.started() == 1; }));
    searches.finish(0, {});
    ASSERT_TRUE(eventually([&] { return searches.started() == 2; }));
    EXPECT_EQ(state.quickClean()->smartPhase(), SmartPhase::scanning)
        << "what was asked for last is not there yet";
    find(1, mixedJunk());
    EXPECT_EQ(state.quickClean()->smartPhase(), SmartPhase::review);
    EXPECT_EQ(state.junk()->findings().size(), 2U);
    EXPECT_EQ(searches.started(), 2U);
}

TEST_F(AppStateJunk, whatIsRemovedWhileASearchRunsIsNotPublishedByIt) {
    state.junk()->load();
    ASSERT_TRUE(eventually([&] { return searches.started() == 1; }));
    ASSERT_TRUE(test::removeDeleted(state, {"/junk/user-caches/a", "/junk/old-installers/x.dmg"}));
    find(0, mixedJunk());
    ASSERT_EQ(state.junk()->findings().size(), 1U);
    EXPECT_EQ(state.junk()->findings()[0].total(), 200);
}

TEST_F(AppStateJunk, removedItemsLeaveTheListAndAnEmptiedFindingStays) {
    reachReview(mixedJunk());
    ASSERT_TRUE(
        test::removeDeleted(state, {"/junk/user-caches/b", "/junk/old-installers/x.dmg", "/elsewhere"}));
    ASSERT_EQ(state.junk()->findings().size(), 2U);
    EXPECT_EQ(state.junk()->findings()[0].total(), 300);
    EXPECT_TRUE(state.junk()->findings()[1].items.empty());
}

TEST_F(AppStateJunk, planForChosenItemsCarriesTheRulesRemovalAndAFreshVerdict) {
    const JunkRule& caches = test::macRule("user-caches");
    const JunkItem item{"/Users/sam/Library/Caches/com.example.a", caches.id, 70, 3, {}};
    const JunkItem folder{"/Users/sam/Library/Caches", caches.id, 70, 3, {}};
    state.junk()->proposePlan({{item, caches.removal}, {folder, Removal::trash}});
    EXPECT_TRUE(state.removal()->hasPlan()) << "the sheet opens at once";
    ASSERT_TRUE(eventually([&] { return state.removal()->plan() != nullptr; }));

    const SafetyPolicy policy(app.homeFolder, macosTables().safety, macosTables().junk.rules, app.bundles,
                              app.running);
    const DeletionPlan& plan = *state.removal()->plan();
    EXPECT_EQ(plan.title, "Clean Junk");
    ASSERT_FALSE(plan.items.empty());
    for (const PlanItem& row : plan.items)
        EXPECT_EQ(row.verdict, policy.verdict(row.path));
    EXPECT_EQ(plan.items.back().removal, Removal::trash);
}

} // namespace
} // namespace brimlet
