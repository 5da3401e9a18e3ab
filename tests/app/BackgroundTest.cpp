// What goes on behind the window: searches, proposals, removals, and the end of all of them.
#include "app/background/SearchedList.h"
#include "app/background/TreeUpdates.h"
#include "app/background/WorkGate.h"
#include "app/state/JunkState.h"
#include "app/state/RemovalState.h"
#include "app/state/ScanState.h"
#include "support/HeldWork.h"
#include "support/MadeUpJunk.h"
#include "support/SyntheticTree.h"
#include "support/TestApp.h"
#include "support/Timing.h"

#include <algorithm>
#include <atomic>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QSignalSpy>
#include <thread>

namespace brimlet {
namespace {

using namespace std::chrono_literals;
using test::eventually;
using test::handleEvents;
using test::HeldWork;
using test::TestApp;
using testing::ElementsAre;

using Names = std::vector<std::string>;

/// A list of three names whose searches are held.
class SearchedNames : public testing::Test {
protected:
    std::atomic<int> searches = 0;
    HeldWork disk;
    Names published;
    int loadingChanges = 0;
    SearchedList<Names> list{work,
                             [this](const std::stop_token&) {
                                 ++searches;
                                 disk.hold();
                                 return Names{"a", "b", "c"};
                             },
                             {[this](Names found) { published = std::move(found); },
                              [this] { ++loadingChanges; },
                              [](Names& found, const auto& gone) {
                                  std::erase_if(found, [&](const auto& name) { return gone.contains(name); });
                              }}};
    BackgroundWork work;
};

TEST_F(SearchedNames, leaveOutWhatWasDeletedAndNotRestoredSinceTheSearchBegan) {
    list.deleted({"c"}); // before the search: it has seen the disk without it, or with a new one
    list.load();
    ASSERT_TRUE(eventually([&] { return searches == 1; }));
    list.deleted({"a", "b"});
    list.restored({"b"});
    disk.release();
    ASSERT_TRUE(eventually([&] { return !list.isLoading(); }));
    EXPECT_THAT(published, ElementsAre("b", "c"));
    EXPECT_EQ(loadingChanges, 2);
}

TEST_F(SearchedNames, cancelledSearchPublishesNothingAndALaterOneDoes) {
    bool called = false;
    list.load([&] { called = true; });
    ASSERT_TRUE(eventually([&] { return searches == 1; }));
    list.cancel();
    EXPECT_FALSE(list.isLoading());
    list.load();
    handleEvents();
    EXPECT_EQ(searches, 1) << "one search at a time";
    disk.release();
    ASSERT_TRUE(eventually([&] { return !list.isLoading(); }));
    EXPECT_EQ(searches, 2);
    EXPECT_EQ(published.size(), 3U);
    EXPECT_FALSE(called);
}

TEST(WorkGate, letsNothingInOnceItHasSaidThatNothingIsAtWork) {
    for (int round = 0; round < 200; ++round) {
        WorkGate gate;
        std::atomic<bool> isQuiet = false;
        std::atomic<bool> broke = false;
        std::jthread worker([&] {
            while (gate.enter()) {
                broke = broke || isQuiet;
                gate.leave();
            }
        });
        while (!gate.shut())
            std::this_thread::yield();
        isQuiet = true;
        worker.join();
        EXPECT_FALSE(broke);
    }
}

std::vector<PlanItem> itemsNamed(const char* name) {
    return {{std::string("/Users/sam/") + name, name, 1, Removal::trash, {Risk::safe, "because"}}};
}

PlanDraft heldDraft(const char* name, HeldWork& work) {
    return {name, 1, 1, [name, &work](const std::stop_token&) {
                work.hold();
                return itemsNamed(name);
            }};
}

TEST(Proposals, onlyTheNewestIsPublished) {
    TestApp app;
    HeldWork first;
    HeldWork second;
    AppState& state = app.state();
    state.removal()->proposePlan(heldDraft("first", first));
    state.removal()->proposePlan(heldDraft("second", second));
    EXPECT_EQ(state.removal()->proposal()->title, "second");
    second.release();
    ASSERT_TRUE(eventually([&] { return state.removal()->plan() != nullptr; }));
    first.release();
    state.junk()->load(); // takes as long as what was released
    ASSERT_TRUE(eventually([&] { return !state.junk()->isLoading(); }));
    handleEvents();
    EXPECT_EQ(state.removal()->plan()->title, "second");
}

TEST(Proposals, cancelledSheetStaysAwayHoweverManyAreStillJudged) {
    TestApp app;
    HeldWork judging;
    AppState& state = app.state();
    for (const char* name : {"first", "second", "third"})
        state.removal()->proposePlan(heldDraft(name, judging));
    ASSERT_TRUE(eventually([&] { return judging.begun() == 3; }));
    state.removal()->cancelPlan();
    EXPECT_FALSE(state.removal()->hasPlan());
    QSignalSpy changed(state.removal(), &RemovalState::planChanged);
    judging.release();
    state.endWork(20s);
    handleEvents();
    EXPECT_FALSE(state.removal()->hasPlan());
    EXPECT_EQ(changed.count(), 0);
}

TEST(Proposals, draftOfNothingOrWithoutItemsLeavesNoSheet) {
    TestApp app;
    AppState& state = app.state();
    state.removal()->proposePlan(std::vector<PlanItem>(), "Nothing");
    EXPECT_FALSE(state.removal()->hasPlan());
    state.removal()->proposePlan(
        {"Gone meanwhile", 3, 0, [](const auto&) { return std::vector<PlanItem>(); }});
    EXPECT_TRUE(state.removal()->hasPlan());
    EXPECT_TRUE(eventually([&] { return !state.removal()->hasPlan(); }));
}

TEST(TreeUpdates, areMadeInTheOrderOfAskingHoweverLongTheFirst) {
    test::SyntheticTree tree("/Users/sam");
    std::unordered_set<std::string> all;
    for (int i = 0; i < 5'000; ++i) {
        tree.file(tree.root(), std::to_string(i), 1'000'000);
        all.insert("/Users/sam/" + std::to_string(i));
    }
    const std::shared_ptr<ScanResult> scan = tree.finish();
    const std::int64_t before = scan->root->size;
    TreeUpdates updates;
    const auto one = std::make_shared<const std::unordered_set<std::string>>(
        std::unordered_set<std::string>{"/Users/sam/4999"});
    int done = 0;
    updates.markDeleted(scan, std::make_shared<const std::unordered_set<std::string>>(all), [&] { ++done; });
    updates.markRestored(scan, one, [&] { ++done; });
    updates.markDeleted(nullptr, one, [&] { ++done; });
    ASSERT_TRUE(eventually([&] { return done == 3; }));
    EXPECT_EQ(
        std::ranges::count(scan->root->children, true, [](const FileNode* node) { return node->deleted; }),
        4'999);
    EXPECT_EQ(scan->root->size, before - 4'999'000'000);
}

/// Runs that are held, and noted in the order in which they begin.
class Removing : public testing::Test {
protected:
    void SetUp() override {
        app.deletionRun = [this](const auto& requests, const std::stop_token& stop) {
            {
                const std::scoped_lock lock(m_mutex);
                m_begun.push_back(requests.front().path);
            }
            disk.hold();
            wasStopped = stop.stop_requested();
            ExecutedRun run;
            for (const DeletionRequest& request : requests)
                run.report.deletedPaths.push_back(request.path);
            return run;
        };
    }
    void remove(const std::string& path) {
        app.state().removal()->runDeletion(
            [path] {
                return std::vector{DeletionRequest{{}, path, 1, Removal::trash}};
            },
            RunNotice::shown, [this](const auto&) { ++ended; });
    }
    Names begun() {
        const std::scoped_lock lock(m_mutex);
        return m_begun;
    }

    TestApp app;
    HeldWork disk;
    std::atomic<bool> wasStopped = false;
    int ended = 0;

private:
    std::mutex m_mutex;
    Names m_begun;
};

TEST_F(Removing, waitsForNoSearchAndKeepsTheOrderOfAsking) {
    HeldWork hung;
    for (int i = 0; i < 2 * BackgroundWork::manyThreads; ++i)
        app.state().runInBackground([&] { hung.hold(); });
    for (const char* path : {"/one", "/two", "/three"})
        remove(path);
    ASSERT_TRUE(eventually([&] { return begun().size() == 1; }));
    disk.release();
    ASSERT_TRUE(eventually([&] { return ended == 3; }));
    EXPECT_THAT(begun(), ElementsAre("/one", "/two", "/three"));
    hung.release();
    app.state().endWork(20s);
}

TEST_F(Removing, quitWaitsForTheItemAtHandAndBeginsNothingMore) {
    QSignalSpy ready(&app.state(), &AppState::quitReady);
    remove("/at hand");
    remove("/waiting");
    ASSERT_TRUE(eventually([&] { return begun().size() == 1; }));
    EXPECT_FALSE(app.state().readyToQuit());
    EXPECT_TRUE(app.state().isFinishing());
    remove("/too late");
    handleEvents();
    EXPECT_EQ(ready.count(), 0);
    disk.release();
    ASSERT_TRUE(eventually([&] { return ready.count() > 0; }));
    EXPECT_TRUE(wasStopped);
    EXPECT_TRUE(app.state().readyToQuit());
    app.state().endWork(20s);
    handleEvents();
    EXPECT_THAT(begun(), ElementsAre("/at hand"));
    EXPECT_EQ(ended, 1) << "what was done is in the history and on the screen";
}

TEST_F(Removing, quitWaitsForNothingElse) {
    HeldWork hung;
    app.junkSearch = [&] {
        hung.hold();
        return std::vector<JunkFinding>();
    };
    app.state().junk()->load();
    app.state().scan()->startScan(ScanTarget::home());
    app.state().removal()->proposePlan(heldDraft("hung", hung));
    app.walks.begun(0);
    ASSERT_TRUE(eventually([&] { return hung.begun() == 2; }));
    EXPECT_TRUE(app.state().readyToQuit());
    EXPECT_FALSE(app.state().isFinishing());
    EXPECT_LT(test::milliseconds([&] { app.state().endWork(100ms); }), 1'000);
    hung.release();
    app.walks.releaseAll();
    app.state().endWork(20s);
}

} // namespace
} // namespace brimlet
