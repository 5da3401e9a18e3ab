// Starting, stopping and replacing scans.
#include "app/state/AccessState.h"
#include "app/state/NavigationState.h"
#include "app/state/NoticeState.h"
#include "app/state/PreferencesState.h"
#include "app/state/ScanState.h"
#include "support/SyntheticTree.h"
#include "support/TemporaryTree.h"
#include "support/TestApp.h"

#include <algorithm>
#include <atomic>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QSignalSpy>

namespace brimlet {
namespace {

using test::eventually;
using test::handleEvents;
using test::TestApp;
using testing::UnorderedElementsAre;

std::shared_ptr<ScanResult> resultOf(std::string_view root) {
    return test::SyntheticTree(root).finish();
}

/// A scanner that was cancelled gives nothing, whatever it is asked to walk.
bool isCancelled(Scanner& scanner) {
    const test::TemporaryTree tree;
    return scanner.scan(tree.root(), {}, {}) == nullptr;
}

TEST(AppStateScan, publishesTheFinishedScan) {
    TestApp app;
    AppState& state = app.state();
    state.scan()->startScan(ScanTarget::folder("/Users/sam/Movies"));
    EXPECT_TRUE(state.scan()->isScanning());
    EXPECT_EQ(app.walks.begun(0).rootPath, "/Users/sam/Movies");

    app.volumes.info->available = 7;
    const auto result = resultOf("/Users/sam/Movies");
    app.walks.finish(0, result);
    ASSERT_TRUE(eventually([&] { return !state.scan()->isScanning(); }));
    EXPECT_EQ(state.scan()->scan(), result);
    EXPECT_EQ(state.navigation()->explorerStack(), std::vector<FileNode*>{result->root});
    EXPECT_EQ(state.scan()->revision(), 1);
    EXPECT_EQ(state.scan()->volume()->available, 7);
}

TEST(AppStateScan, lateResultOfAReplacedScanIsDropped) {
    TestApp app;
    AppState& state = app.state();
    state.scan()->startScan(ScanTarget::folder("/first"));
    Scanner& first = *app.walks.begun(0).scanner;
    state.scan()->startScan(ScanTarget::folder("/second"));
    app.walks.begun(1);
    EXPECT_TRUE(isCancelled(first));

    app.walks.finish(0, resultOf("/first"));
    const auto second = resultOf("/second");
    app.walks.finish(1, second);
    ASSERT_TRUE(eventually([&] { return !state.scan()->isScanning(); }));
    EXPECT_EQ(state.scan()->scan(), second);
    EXPECT_EQ(state.scan()->revision(), 1);
}

TEST(AppStateScan, lateResultBeforeTheNewOneLeavesTheNewScanRunning) {
    TestApp app;
    AppState& state = app.state();
    QSignalSpy scanning(state.scan(), &ScanState::isScanningChanged);
    state.scan()->startScan(ScanTarget::folder("/first"));
    app.walks.begun(0);
    state.scan()->startScan(ScanTarget::folder("/second"));
    app.walks.begun(1).progress(5, 50, "/second/a");
    app.walks.finish(0, resultOf("/first"));
    ASSERT_TRUE(eventually([&] { return state.scan()->progress().files == 5; }));
    handleEvents();
    EXPECT_TRUE(state.scan()->isScanning());
    EXPECT_EQ(state.scan()->scan(), nullptr);
    EXPECT_EQ(scanning.count(), 1);
}

TEST(AppStateScan, stoppedScanChangesNothingAtItsEnd) {
    TestApp app;
    AppState& state = app.state();
    state.scan()->startScan(ScanTarget::home());
    Scanner& scanner = *app.walks.begun(0).scanner;
    state.scan()->cancelScan();
    EXPECT_FALSE(state.scan()->isScanning());
    EXPECT_TRUE(isCancelled(scanner));

    const auto volumeReads = std::count(app.log.begin(), app.log.end(), "volume /");
    app.walks.finish(0, resultOf("/Users/sam"));
    // The next scan's end is handed back after the stopped one's.
    state.scan()->startScan(ScanTarget::folder("/next"));
    app.walks.finish(1, nullptr);
    ASSERT_TRUE(eventually([&] { return !state.scan()->isScanning(); }));
    EXPECT_EQ(state.scan()->scan(), nullptr);
    EXPECT_EQ(state.scan()->revision(), 0);
    EXPECT_EQ(std::count(app.log.begin(), app.log.end(), "volume /"), volumeReads + 1);
}

TEST(AppStateScan, scanWithoutAResultKeepsThePreviousOne) {
    TestApp app;
    AppState& state = app.state();
    const auto result = resultOf("/Users/sam");
    state.scan()->startScan(ScanTarget::home());
    app.walks.finish(0, result);
    ASSERT_TRUE(eventually([&] { return state.scan()->hasScan(); }));
    state.scan()->startScan(ScanTarget::folder("/vanished"));
    app.walks.finish(1, nullptr);
    ASSERT_TRUE(eventually([&] { return !state.scan()->isScanning(); }));
    EXPECT_EQ(state.scan()->scan(), result);
    EXPECT_EQ(state.scan()->revision(), 1);
}

TEST(AppStateScan, progressOfAStoppedScanIsNotShown) {
    TestApp app;
    AppState& state = app.state();
    state.scan()->startScan(ScanTarget::home());
    app.walks.begun(0).progress(10, 1'000, "/Users/sam/Documents");
    ASSERT_TRUE(eventually([&] { return state.scan()->progress().files == 10; }));
    EXPECT_EQ(state.scan()->progressPath(), "~/Documents");

    state.scan()->cancelScan();
    app.walks.begun(0).progress(20, 2'000, "/Users/sam/Movies");
    state.scan()->startScan();
    EXPECT_EQ(state.scan()->progress(), ScanProgressSnapshot());
    app.walks.begun(1).progress(3, 30, "/a");
    ASSERT_TRUE(eventually([&] { return state.scan()->progress().files == 3; }));
}

TEST(AppStateScan, onlyTargetsThatNeedAccessAreHeldBackUntilSkipped) {
    TestApp app;
    app.probe.granted = false;
    AppState& state = app.state();
    state.scan()->startScan(ScanTarget::home());
    EXPECT_TRUE(state.access()->showAccessOnboarding());
    EXPECT_FALSE(state.scan()->isScanning());

    state.scan()->startScan(ScanTarget::folder("/Users/sam/Movies"));
    EXPECT_TRUE(state.scan()->isScanning());
    app.walks.begun(0);
    state.scan()->cancelScan();

    state.scan()->startScan(ScanTarget::wholeDisk());
    EXPECT_FALSE(state.scan()->isScanning());
    state.access()->scanWithoutAccess();
    EXPECT_FALSE(state.access()->showAccessOnboarding());
    EXPECT_TRUE(state.scan()->isScanning());
    EXPECT_EQ(state.scan()->scanTarget(), ScanTarget::wholeDisk());
    EXPECT_EQ(app.preferences.values["accessOnboardingSkipped"], PreferenceValue(true));

    state.scan()->startScan(ScanTarget::home());
    EXPECT_FALSE(state.access()->showAccessOnboarding());
}

TEST(AppStateScan, exclusionsOfTheMomentGoIntoTheScan) {
    TestApp app;
    app.preferences.values["excludedPaths"] = std::string("/Users/sam/Big\n\n/Volumes/x\n/Volumes/x\n");
    app.state().scan()->startScan(ScanTarget::home());
    EXPECT_THAT(app.walks.begun(0).excluded, UnorderedElementsAre("/Users/sam/Big", "/Volumes/x"));
    app.state().preferences()->setExcludedRaw("");
    app.state().scan()->startScan();
    EXPECT_TRUE(app.walks.begun(1).excluded.empty());
}

TEST(AppStateScan, chosenFolderBecomesTheTarget) {
    TestApp app;
    app.state().scan()->chooseFolderToScan();
    EXPECT_FALSE(app.state().scan()->isScanning());
    app.panels.choice = "/Users/sam/\xff";
    app.state().scan()->chooseFolderToScan();
    EXPECT_EQ(app.walks.begun(0).rootPath, "/Users/sam/\xff");
}

TEST(AppStateScan, placesThatCannotBeScannedEndInAClearState) {
    const test::TemporaryTree tree;
    for (const std::string& place : {tree.path("missing"), tree.file("plain"), std::string("relative")}) {
        TestApp app;
        app.scanWalk = [](Scanner& scanner, const auto& path, const auto& excluded, const auto& progress) {
            return scanner.scan(path, excluded, progress);
        };
        app.homeFolder = place;
        app.state().scan()->startScan(ScanTarget::home());
        EXPECT_TRUE(eventually([&] { return !app.state().scan()->isScanning(); })) << place;
        EXPECT_FALSE(app.state().scan()->hasScan()) << place;
        ASSERT_TRUE(app.state().notice()->toast().has_value()) << place;
        EXPECT_THAT(app.state().notice()->toast()->message,
                    testing::HasSubstr("“Home folder” couldn’t be scanned."));
    }
}

TEST(AppStateScan, whatIsDeletedWhileAScanRunsIsLeftOutOfIt) {
    TestApp app;
    test::SyntheticTree tree("/Users/sam");
    FileNode* film = tree.file(tree.root(), "film.mov", 4'000'000);
    app.state().scan()->startScan(ScanTarget::home());
    app.walks.begun(0);
    ASSERT_TRUE(test::removeDeleted(app.state(), {"/Users/sam/film.mov"}));
    app.walks.finish(0, tree.finish());
    EXPECT_TRUE(eventually([&] { return film->deleted; }));
}

TEST(AppStateScan, homeFolderThatIsALinkIsScannedWhereItLeads) {
    const test::TemporaryTree tree;
    tree.file("real/film.mov", 1'000'000);
    tree.symbolicLink("home", "real");
    TestApp app;
    app.scanWalk = [](Scanner& scanner, const auto& path, const auto& excluded, const auto& progress) {
        return scanner.scan(path, excluded, progress);
    };
    app.homeFolder = tree.path("home");
    app.state().scan()->startScan(ScanTarget::home());
    ASSERT_TRUE(eventually([&] { return !app.state().scan()->isScanning(); }));
    ASSERT_TRUE(app.state().scan()->hasScan());
    EXPECT_EQ(app.state().scan()->scan()->totalFiles, 1);
    EXPECT_FALSE(app.state().notice()->toast().has_value());
}

TEST(AppStateScan, closingTheApplicationEndsARunningScan) {
    const test::TemporaryTree tree;
    auto app = std::make_unique<TestApp>();
    std::atomic<bool> cancelled = false;
    app->scanWalk = [&](Scanner& scanner, const auto&, const auto&, const auto&) {
        while (scanner.scan(tree.root(), {}, {}) != nullptr) {
        }
        cancelled = true;
        return std::shared_ptr<ScanResult>();
    };
    app->state().scan()->startScan(ScanTarget::home());
    app.reset();
    EXPECT_TRUE(cancelled);
}

} // namespace
} // namespace brimlet
