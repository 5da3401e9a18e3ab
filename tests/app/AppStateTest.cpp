// Creation and navigation of the central state.
#include "app/state/AccessState.h"
#include "app/state/NavigationState.h"
#include "app/state/NoticeState.h"
#include "app/state/PreferencesState.h"
#include "app/state/RemovalState.h"
#include "app/state/ScanState.h"
#include "support/SyntheticTree.h"
#include "support/TestApp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QSignalSpy>

namespace brimlet {
namespace {

using test::handleEvents;
using test::TestApp;
using testing::ElementsAre;

TEST(AppState, isCreatedInItsOrder) {
    TestApp app;
    app.preferences.values["autoScan"] = std::string("home");
    app.state();
    app.walks.begun(0);
    EXPECT_THAT(app.log,
                ElementsAre("volume /", "read excludedPaths", "read permanentDelete", "volume /",
                            "read lastAutoClean", "read lastAutoCleanBytes", "read accessOnboardingSkipped",
                            "probe", "read initialSection", "read autoScan", "probe", "probe"));
}

TEST(AppState, beginsWithItsInitialValues) {
    TestApp app;
    const AppState& state = app.state();
    EXPECT_EQ(state.navigation()->section(), AppSection::smartClean);
    EXPECT_EQ(state.scan()->scanTarget(), ScanTarget::wholeDisk());
    EXPECT_FALSE(state.scan()->isScanning());
    EXPECT_EQ(state.scan()->progress(), ScanProgressSnapshot());
    EXPECT_EQ(state.scan()->scan(), nullptr);
    EXPECT_EQ(state.scan()->revision(), 0);
    EXPECT_EQ(state.scan()->volume(), app.volumes.info);
    EXPECT_TRUE(state.navigation()->explorerStack().empty());
    EXPECT_FALSE(state.removal()->hasPlan());
    EXPECT_FALSE(state.notice()->toast().has_value());
    EXPECT_TRUE(state.access()->hasFullDiskAccess());
    EXPECT_FALSE(state.preferences()->permanentDelete());
    EXPECT_FALSE(state.access()->showAccessOnboarding());
}

TEST(AppState, opensOnThePreferredSection) {
    const std::vector<std::pair<PreferenceValue, AppSection>> cases = {
        {std::string("history"), AppSection::history},
        {std::string("smartClean"), AppSection::smartClean},
        {std::string("nowhere"), AppSection::smartClean},
        {std::string("History"), AppSection::smartClean},
        {true, AppSection::smartClean},
    };
    for (const auto& [stored, expected] : cases) {
        TestApp app;
        app.preferences.values["initialSection"] = stored;
        EXPECT_EQ(app.state().navigation()->section(), expected);
    }
}

TEST(AppState, scansByItselfOnlyWhereToldTo) {
    struct Case {
        const char* stored;
        std::optional<std::string> root;
    };
    const std::string disk = ScanTarget::wholeDisk().path("/Users/sam");
    for (const Case& each : {Case{"home", "/Users/sam"}, {"disk", disk}, {"", {}}, {"Home", {}}}) {
        TestApp app;
        app.preferences.values["autoScan"] = std::string(each.stored);
        EXPECT_EQ(app.state().scan()->isScanning(), each.root.has_value()) << each.stored;
        if (each.root) {
            EXPECT_EQ(app.walks.begun(0).rootPath, *each.root);
        }
    }
}

TEST(AppState, automaticScanWithoutAccessRaisesTheSheetInstead) {
    TestApp app;
    app.probe.granted = false;
    app.preferences.values["autoScan"] = std::string("disk");
    EXPECT_TRUE(app.state().access()->showAccessOnboarding());
    EXPECT_FALSE(app.state().scan()->isScanning());
}

TEST(AppState, unknownSectionIsIgnored) {
    TestApp app;
    QSignalSpy changed(app.state().navigation(), &NavigationState::sectionChanged);
    app.state().navigation()->setSectionRaw("junk");
    app.state().navigation()->setSectionRaw("rubbish");
    EXPECT_EQ(app.state().navigation()->section(), AppSection::junk);
    EXPECT_EQ(changed.count(), 1);
}

TEST(AppState, changedPreferencesAreStoredAndPublished) {
    TestApp app;
    QSignalSpy excluded(app.state().preferences(), &PreferencesState::excludedRawChanged);
    QSignalSpy permanent(app.state().preferences(), &PreferencesState::permanentDeleteChanged);
    app.state().preferences()->setExcludedRaw("/Users/sam/Big");
    app.state().preferences()->setPermanentDelete(true);
    EXPECT_EQ(app.preferences.values["excludedPaths"], PreferenceValue(std::string("/Users/sam/Big")));
    EXPECT_EQ(app.preferences.values["permanentDelete"], PreferenceValue(true));
    EXPECT_EQ(excluded.count(), 1);
    EXPECT_EQ(permanent.count(), 1);
}

TEST(AppState, excludedFoldersAreKeptWithoutTheVolumesPrefix) {
    TestApp app;
    app.state().preferences()->excludeFolder("/System/Volumes/Data/Users/sam/Big");
    app.state().preferences()->excludeFolder("/Users/sam/Other");
    EXPECT_EQ(app.preferences.values["excludedPaths"],
              PreferenceValue(std::string("/Users/sam/Big\n/Users/sam/Other")));
    app.state().preferences()->includeFolderAgain(0);
    EXPECT_EQ(app.state().preferences()->excludedRaw(), "/Users/sam/Other");
    EXPECT_FALSE(app.state().notice()->toast().has_value());
    app.state().preferences()->excludeFolder("/Users/sam/two\nlines");
    EXPECT_EQ(app.state().preferences()->excludedRaw(), "/Users/sam/Other");
    ASSERT_TRUE(app.state().notice()->toast().has_value()) << "a refusal is told";
    EXPECT_EQ(app.state().notice()->toast()->message,
              "This folder can’t be excluded: its path has a line break in it.");
}

TEST(AppState, removingNothingChangesNothing) {
    TestApp app;
    QSignalSpy revision(app.state().scan(), &ScanState::revisionChanged);
    ASSERT_TRUE(test::removeDeleted(app.state(), {}));
    EXPECT_EQ(app.state().scan()->revision(), 0);
    EXPECT_EQ(revision.count(), 0);
}

TEST(AppState, removedPathsLeaveTheTreeAndItsTotals) {
    TestApp app;
    test::SyntheticTree tree("/Users/sam");
    FileNode* movies = tree.directory(tree.root(), "Movies");
    FileNode* film = tree.file(movies, "film.mov", 4'000'000);
    tree.file(tree.root(), "kept.zip", 2'000'000);
    app.state().scan()->startScan(ScanTarget::home());
    app.walks.finish(0, tree.finish());
    ASSERT_TRUE(test::eventually([&] { return app.state().scan()->hasScan(); }));
    const std::int64_t before = app.state().scan()->scan()->root->size;

    QSignalSpy scanChanged(app.state().scan(), &ScanState::scanChanged);
    ASSERT_TRUE(test::removeDeleted(app.state(), {"/Users/sam/Movies/film.mov"}));
    EXPECT_TRUE(film->deleted);
    EXPECT_EQ(app.state().scan()->scan()->root->size, before - 4'000'000);
    EXPECT_EQ(app.state().scan()->revision(), 2);
    EXPECT_EQ(scanChanged.count(), 1);
}

TEST(AppState, removalWithoutAScanStillRaisesTheRevision) {
    TestApp app;
    ASSERT_TRUE(test::removeDeleted(app.state(), {"/Users/sam/gone"}));
    EXPECT_EQ(app.state().scan()->revision(), 1);
}

} // namespace
} // namespace brimlet
