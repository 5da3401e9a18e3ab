// From a full disk to a clean one and back, through the window, on real files.
#include "app/state/JunkState.h"
#include "app/state/NavigationState.h"
#include "app/state/NoticeState.h"
#include "app/state/QuickCleanState.h"
#include "app/state/RemovalState.h"
#include "support/MadeUpJunk.h"
#include "support/TestHome.h"
#include "support/Timing.h"

#include <cstdio>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QQuickItem>
#include <set>

namespace brimlet {
namespace {

using test::eventually;
using test::TestHome;
using ::testing::IsEmpty;

using Snapshot = std::map<std::string, std::string>;

/// The snapshot without the entries at these paths and below them.
Snapshot without(Snapshot entries, const std::vector<std::string>& paths, const std::string& root) {
    std::erase_if(entries, [&](const auto& entry) {
        return std::any_of(paths.begin(), paths.end(), [&](const std::string& path) {
            const std::string whole = root + entry.first;
            return whole == path || whole.starts_with(path + "/");
        });
    });
    return entries;
}

/// Paths of entries that are in only one of the snapshots, or differ.
std::set<std::string> differences(const Snapshot& left, const Snapshot& right) {
    std::set<std::string> paths;
    for (const auto& [one, other] : {std::pair(&left, &right), {&right, &left}}) {
        for (const auto& [path, entry] : *one) {
            const auto found = other->find(path);
            if (found == other->end() || found->second != entry)
                paths.insert(path);
        }
    }
    return paths;
}

std::vector<std::string> listedPaths(const AppState& state) {
    std::vector<std::string> paths;
    for (const DeletionRequest& request :
         cleanRequests(state.junk()->findings(), state.quickClean()->smartSelection()))
        paths.push_back(request.path);
    return paths;
}

TEST(Cleaning, removesWhatWasReviewedAndNothingElse) {
    TestHome home;
    home.fill();
    ASSERT_TRUE(home.scan());
    const std::vector<std::string> listed = listedPaths(home.state());
    EXPECT_EQ(listed.size(), 4U) << "two caches, a log and the Trash";
    home.disk.file("Library/Caches/com.example.late/new", 20'000);
    home.disk.file(".Trash/late", 20'000);
    const Snapshot before = home.snapshot();

    ASSERT_TRUE(home.clean());

    EXPECT_THAT(differences(home.snapshot(), without(before, listed, home.disk.root())), IsEmpty());
    EXPECT_TRUE(home.driver().await(
        QString::fromStdString(formatBytes(home.state().quickClean()->lastReport()->freed)) + " cleaned"));
    home.driver().click("Done", QAccessible::Button);
    ASSERT_TRUE(home.scan());
    EXPECT_EQ(listedPaths(home.state()).size(), 2U) << "what came after the first review";
}

TEST(Cleaning, tickedReviewRuleGoesToTheTrashAndUndoBringsItBack) {
    TestHome home;
    home.fill();
    const Snapshot before = home.snapshot();
    ASSERT_TRUE(home.scan());
    for (const char* rule : {"App caches", "Logs and crash reports", "Trash", "Installers in Downloads"})
        ASSERT_TRUE(home.driver().click(rule, QAccessible::CheckBox)) << rule;
    ASSERT_TRUE(home.clean());
    EXPECT_FALSE(home.disk.exists("Downloads/Old.dmg"));
    EXPECT_TRUE(home.disk.exists(".Trash/Old.dmg"));
    EXPECT_TRUE(home.driver().shows(
        QString::fromStdString(formatBytes(home.state().quickClean()->lastReport()->movedToTrash)) +
        " is in the Trash until you empty it."));

    ASSERT_TRUE(home.driver().click("Undo", QAccessible::Button));
    EXPECT_TRUE(home.driver().await("1 item(s) restored"));
    EXPECT_THAT(differences(home.snapshot(), before), IsEmpty());
}

TEST(Cleaning, itemWhoseApplicationHasStartedStaysAndIsTold) {
    TestHome home;
    home.fill();
    const std::string bundle = home.disk.path("Applications/Editor.app");
    home.disk.file("Applications/Editor.app/Contents/Info.plist", 9'000);
    home.app.bundles.byPath[bundle] = "com.example.editor";
    home.window();
    home.state().junk()->proposePlan({{{bundle, "", 9'000, 1, {}}, Removal::trash}});
    ASSERT_TRUE(home.driver().await("Delete", QAccessible::Button));
    ASSERT_TRUE(home.driver().await("I’ve reviewed the 1 item(s) marked Review and want to delete them"));
    home.driver().click("I’ve reviewed the 1 item(s) marked Review and want to delete them");
    home.app.running.open = {"com.example.editor"};
    home.driver().click("Delete", QAccessible::Button);

    ASSERT_TRUE(home.driver().await("Nothing was deleted"));
    EXPECT_TRUE(home.driver().shows("1 item(s) couldn't be deleted. Details in History."));
    EXPECT_TRUE(home.disk.exists("Applications/Editor.app/Contents/Info.plist"));
    home.driver().click("History", QAccessible::ListItem);
    EXPECT_TRUE(home.driver().await("Couldn’t be deleted in the last operation"));
    EXPECT_TRUE(home.driver().shows("~/Applications/Editor.app"));
}

TEST(Cleaning, itemsThatTheSystemRefusesAreCountedAndStay) {
    TestHome home;
    home.fill();
    const Snapshot before = home.snapshot();
    ASSERT_TRUE(home.scan());
    home.guarded.failCalls("unlink", EACCES);
    ASSERT_TRUE(home.clean());
    EXPECT_THAT(differences(home.snapshot(), before), IsEmpty());
    EXPECT_TRUE(home.driver().await("Zero KB cleaned"));
    EXPECT_TRUE(home.driver().shows("4 item(s) were in use or protected and were left untouched."));
}

TEST(Cleaning, historyRestoresAfterARestartAndIsCleared) {
    const auto disk = std::make_shared<test::TemporaryTree>();
    {
        TestHome home(disk);
        home.fill();
        ASSERT_TRUE(home.scan());
        home.driver().click("Installers in Downloads", QAccessible::CheckBox);
        ASSERT_TRUE(home.clean());
    }
    TestHome home(disk);
    home.window();
    home.driver().click("History", QAccessible::ListItem);
    ASSERT_TRUE(home.driver().await("Restore", QAccessible::Button));
    ASSERT_TRUE(home.driver().click("Restore", QAccessible::Button));
    EXPECT_TRUE(home.driver().await("Restored"));
    EXPECT_TRUE(disk->exists("Downloads/Old.dmg"));
    EXPECT_FALSE(disk->exists(".Trash/Old.dmg"));
    EXPECT_TRUE(home.driver().awaitGone("Restore"));
    EXPECT_EQ(home.state().removal()->history().size(), 5U);

    const Snapshot before = home.snapshot();
    home.driver().click("Clear History", QAccessible::Button);
    EXPECT_TRUE(home.driver().await("Nothing has been deleted yet."));
    EXPECT_THAT(differences(home.snapshot(), before), IsEmpty());
    std::ifstream file(home.app.history.filePath());
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "[]");
}

TEST(Cleaning, junkGoesThroughTheSheetWhoseSafeButtonIsTheDefault) {
    TestHome home;
    home.fill();
    home.window();
    home.driver().click("Junk", QAccessible::ListItem);
    ASSERT_TRUE(home.driver().await("Installers in Downloads", QAccessible::CheckBox));
    home.driver().click("Installers in Downloads", QAccessible::CheckBox);
    for (const Qt::Key closing : {Qt::Key_Return, Qt::Key_Escape}) {
        ASSERT_TRUE(home.driver().click("Clean…", QAccessible::Button));
        ASSERT_TRUE(home.driver().await("Total: Zero KB"));
        EXPECT_EQ(home.driver().focused(), "Cancel");
        EXPECT_FALSE(home.driver().find("Delete", QAccessible::Button)->isEnabled());
        home.driver().key(closing);
        EXPECT_TRUE(home.driver().awaitGone("Cancel"));
        EXPECT_FALSE(home.state().removal()->plan());
    }
    home.driver().click("Clean…", QAccessible::Button);
    ASSERT_TRUE(home.driver().await("I’ve reviewed the 1 item(s) marked Review and want to delete them"));
    ASSERT_TRUE(home.driver().click("I’ve reviewed the 1 item(s) marked Review and want to delete them"));
    ASSERT_TRUE(home.driver().click("Delete", QAccessible::Button));
    EXPECT_TRUE(eventually([&] { return home.disk.exists(".Trash/Old.dmg"); }));
    EXPECT_TRUE(home.driver().awaitGone("Clean…")) << "what is gone is no longer selected";
    EXPECT_TRUE(home.disk.exists("Library/Caches/com.example.maps/tile"));
}

TEST(Cleaning, quickCleanByKeyboardAlone) {
    TestHome home;
    home.fill();
    test::WindowDriver& driver = home.driver();
    ASSERT_TRUE(driver.tabTo("Menu")); // behind it comes the screen's own "Scan"
    ASSERT_TRUE(driver.tabTo("Scan"));
    driver.key(Qt::Key_Return);
    ASSERT_TRUE(home.reachReview());
    ASSERT_TRUE(driver.tabTo("Installers in Downloads"));
    driver.key(Qt::Key_Space);
    driver.key(Qt::Key_Return);
    ASSERT_TRUE(home.reachReport());
    EXPECT_FALSE(home.disk.exists("Downloads/Old.dmg"));
    EXPECT_FALSE(home.disk.exists("Library/Caches/com.example.maps"));

    EXPECT_EQ(driver.focused(), "Done");
    driver.key(Qt::Key_Return);
    EXPECT_EQ(home.state().quickClean()->smartPhase(), SmartPhase::idle);
}

TEST(Cleaning, junkAndHistoryByKeyboardAlone) {
    TestHome home;
    home.fill();
    test::WindowDriver& driver = home.driver();
    while (home.state().navigation()->section() != AppSection::junk)
        driver.key(Qt::Key_Down);
    ASSERT_TRUE(driver.tabTo("Scan Again"));
    driver.key(Qt::Key_Return);
    ASSERT_TRUE(eventually([&] { return !home.state().junk()->isLoading(); }));
    driver.key(Qt::Key_Tab); // to the list, whose current row has the keyboard
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_Right, Qt::Key_Down, Qt::Key_Space})
        driver.key(key);
    ASSERT_TRUE(driver.tabTo("Clean…"));
    driver.key(Qt::Key_Return);
    ASSERT_TRUE(driver.await("I’ve reviewed the 1 item(s) marked Review and want to delete them"));
    ASSERT_TRUE(eventually([&] { return driver.focused() == "Cancel"; }));
    ASSERT_TRUE(driver.tabTo("I’ve reviewed the 1 item(s) marked Review and want to delete them"));
    driver.key(Qt::Key_Space);
    ASSERT_TRUE(driver.tabTo("Delete"));
    driver.key(Qt::Key_Return);
    ASSERT_TRUE(eventually([&] { return home.state().notice()->toast().has_value(); }));
    ASSERT_TRUE(home.disk.exists(".Trash/Old.dmg"));

    home.state().navigation()->setSection(AppSection::history);
    ASSERT_TRUE(driver.tabTo("Clear History"));
    driver.key(Qt::Key_Tab);
    driver.key(Qt::Key_Home);
    driver.key(Qt::Key_End, Qt::ShiftModifier);
    driver.key(Qt::Key_Return);
    EXPECT_TRUE(driver.await("1 item(s) restored"));
    EXPECT_TRUE(home.disk.exists("Downloads/Old.dmg"));
}

} // namespace
} // namespace brimlet
