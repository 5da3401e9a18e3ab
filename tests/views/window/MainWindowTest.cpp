// The main window as its user meets it, by mouse and keyboard.
#include "app/state/AccessState.h"
#include "app/state/NavigationState.h"
#include "app/state/NoticeState.h"
#include "app/state/QuickCleanState.h"
#include "app/state/ScanState.h"
#include "support/SyntheticTree.h"
#include "support/TestWindow.h"

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>

namespace brimlet {
namespace {

using test::eventually;
using test::TestApp;
using test::TestWindow;
using test::WindowDriver;
using testing::Contains;

std::shared_ptr<ScanResult> sampleResult(std::string_view root = "/Users/sam") {
    test::SyntheticTree tree(root);
    FileNode* movies = tree.directory(tree.root(), "Movies");
    tree.file(movies, "holiday.mov", 4'000'000'000);
    tree.file(tree.root(), "archive.zip", 1'000'000'000);
    return tree.finish();
}

TEST(MainWindow, choosesSectionsByMouseAndArrows) {
    TestApp app;
    TestWindow window(app);
    ASSERT_TRUE(window.driver().click("History", QAccessible::ListItem));
    EXPECT_EQ(window.state().navigation()->section(), AppSection::history);
    window.driver().key(Qt::Key_Up);
    EXPECT_EQ(window.state().navigation()->section(), AppSection::duplicates);
    window.driver().key(Qt::Key_Down);
    window.driver().key(Qt::Key_Down);
    EXPECT_EQ(window.state().navigation()->section(), AppSection::history);
}

TEST(MainWindow, opensEverySectionWithoutAWarning) {
    TestApp app;
    TestWindow window(app);
    for (const AppSectionLook& section : allSections()) {
        const QString title = QString::fromStdString(std::string(section.title));
        window.driver().click(title, QAccessible::ListItem);
        EXPECT_EQ(window.state().navigation()->section(), section.section);
        test::handleEvents();
    }
}

TEST(MainWindow, startsStopsAndRestartsAScan) {
    TestApp app;
    app.preferences.values["initialSection"] = std::string("overview");
    TestWindow window(app);
    WindowDriver& driver = window.driver();
    driver.click("Home Folder Only", QAccessible::Button);
    app.walks.begun(0).progress(1'234, 5'600'000'000, "/Users/sam/Movies");
    EXPECT_TRUE(driver.await("1,234 files · 5.6 GB"));
    EXPECT_TRUE(driver.shows("~/Movies"));

    driver.click("Stop", QAccessible::Button);
    EXPECT_FALSE(window.state().scan()->isScanning());
    EXPECT_TRUE(driver.await("Scan", QAccessible::Button));
    driver.click("Scan", QAccessible::Button);
    app.walks.begun(1);
    app.walks.finish(0, sampleResult("/late"));
    app.walks.finish(1, sampleResult());
    EXPECT_TRUE(driver.await("Rescan", QAccessible::Button));
    EXPECT_TRUE(driver.await("Total: 5 GB"));
    EXPECT_EQ(window.state().scan()->scan()->rootPath, "/Users/sam");

    driver.click("Rescan", QAccessible::Button);
    driver.click("Stop", QAccessible::Button);
    EXPECT_TRUE(driver.shows("Total: 5 GB"));
}

TEST(MainWindow, onboardingHoldsTheScanUntilItIsSkipped) {
    TestApp app;
    app.probe.granted = false;
    app.preferences.values["initialSection"] = std::string("overview");
    TestWindow window(app);
    WindowDriver& driver = window.driver();
    driver.click("Scan Entire Disk", QAccessible::Button);
    ASSERT_TRUE(driver.await("Let Brimlet see your whole disk", QAccessible::Dialog));
    EXPECT_EQ(app.walks.count(), 0U);

    driver.click("Open Settings", QAccessible::Button);
    EXPECT_THAT(app.log, Contains("open " + std::string(macosTables().access.settings)));
    EXPECT_TRUE(window.state().access()->showAccessOnboarding());

    driver.key(Qt::Key_Escape);
    EXPECT_TRUE(driver.awaitGone("Let Brimlet see your whole disk"));
    EXPECT_FALSE(window.state().access()->showAccessOnboarding());
    EXPECT_EQ(app.walks.count(), 0U);

    driver.click("Scan Entire Disk", QAccessible::Button);
    driver.click("Scan Without Access", QAccessible::Button);
    EXPECT_TRUE(driver.awaitGone("Let Brimlet see your whole disk"));
    EXPECT_EQ(app.walks.begun(0).rootPath, ScanTarget::wholeDisk().path(app.homeFolder));
    EXPECT_TRUE(window.state().access()->accessOnboardingSkipped());
}

TEST(MainWindow, onboardingIsReadWithoutMarkupAndEndsWithItsButtons) {
    TestApp app;
    app.probe.granted = false;
    TestWindow window(app);
    window.resize(900, 600);
    window.state().scan()->startScan(ScanTarget::home());
    WindowDriver& driver = window.driver();
    EXPECT_TRUE(driver.await("Under “Full Disk Access”, turn on Brimlet (or add it with +)."));
    const QQuickItem* button = driver.awaitRest("Open Settings", QAccessible::Button);
    const QQuickItem* sheet = driver.await("Let Brimlet see your whole disk", QAccessible::Dialog);
    ASSERT_TRUE(button != nullptr && sheet != nullptr);
    EXPECT_NEAR(button->mapToItem(sheet, QPointF(button->width(), 0)).x(), sheet->width(), 1);
}

TEST(MainWindow, bannerAsksForAccessAgain) {
    TestApp app;
    app.probe.granted = false;
    app.preferences.values["initialSection"] = std::string("overview");
    app.preferences.values["accessOnboardingSkipped"] = true;
    TestWindow window(app);
    window.state().scan()->startScan(ScanTarget::home());
    app.walks.finish(0, sampleResult());
    WindowDriver& driver = window.driver();
    ASSERT_TRUE(driver.await("Grant Full Disk Access"));
    driver.click("I’ve Done It", QAccessible::Button);
    EXPECT_TRUE(driver.shows("Grant Full Disk Access"));
    app.probe.granted = true;
    driver.click("I’ve Done It", QAccessible::Button);
    EXPECT_TRUE(driver.awaitGone("Grant Full Disk Access"));
}

TEST(MainWindow, menuEntriesAndShortcutsStartScans) {
    struct Case {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        ScanTarget target;
    };
    for (const Case& each : {Case{Qt::Key_R, Qt::ControlModifier, ScanTarget::wholeDisk()},
                             {Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier, ScanTarget::home()}}) {
        TestApp app;
        TestWindow window(app);
        window.driver().key(each.key, each.modifiers);
        EXPECT_EQ(app.walks.begun(0).rootPath, each.target.path(app.homeFolder));
    }
    TestApp app;
    TestWindow window(app);
    window.state().navigation()->setSection(AppSection::history);
    window.driver().key(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(window.state().navigation()->section(), AppSection::smartClean);
    window.driver().click("Menu", QAccessible::Button);
    window.driver().click("Scan Home Folder", QAccessible::MenuItem);
    EXPECT_EQ(app.walks.begun(0).rootPath, "/Users/sam");
}

TEST(MainWindow, menusWorkByKeyboard) {
    TestApp app;
    TestWindow window(app);
    WindowDriver& driver = window.driver();
    ASSERT_TRUE(driver.tabTo("Scan: Entire disk"));
    driver.key(Qt::Key_Return);
    ASSERT_TRUE(driver.await("Home Folder", QAccessible::MenuItem));
    driver.key(Qt::Key_Down);
    driver.key(Qt::Key_Down);
    driver.key(Qt::Key_Return);
    EXPECT_EQ(app.walks.begun(0).rootPath, app.homeFolder);
    EXPECT_TRUE(driver.awaitGone("Home Folder"));

    driver.key(Qt::Key_F10);
    ASSERT_TRUE(driver.await("Quit Brimlet", QAccessible::MenuItem));
    driver.key(Qt::Key_Escape);
    EXPECT_TRUE(driver.awaitGone("Quit Brimlet"));
}

TEST(MainWindow, updateDialogShowsTheAnswer) {
    TestApp app;
    TestWindow window(app);
    WindowDriver& driver = window.driver();
    driver.click("Menu", QAccessible::Button);
    driver.click("Check for Updates…", QAccessible::MenuItem);
    ASSERT_TRUE(driver.await("Checking for updates…"));
    window.updates().pending.at(0)(NewerVersion{"2.0", "https://example.org/get"});
    ASSERT_TRUE(driver.await("Get the Update", QAccessible::Button));
    driver.key(Qt::Key_Return);
    EXPECT_THAT(app.log, Contains("open https://example.org/get"));
    EXPECT_TRUE(driver.awaitGone("Brimlet 2.0 is available"));
}

TEST(MainWindow, footerTurnsRedBelowATenthFree) {
    struct Case {
        std::int64_t free;
        const char* color;
    };
    for (const Case& each : {Case{99, "#e5484d"}, {100, "#6e5bff"}, {600, "#6e5bff"}}) {
        TestApp app;
        app.volumes.info = VolumeInfo{"Macintosh HD", 1'000, 0, each.free};
        TestWindow window(app);
        const QQuickItem* bar = window.driver().await("Disk usage");
        ASSERT_NE(bar, nullptr);
        EXPECT_EQ(bar->property("fillColor").value<QColor>(), QColor(each.color)) << each.free;
    }
}

TEST(MainWindow, footerIsEmptyWithoutFigures) {
    TestApp app;
    app.volumes.info = VolumeInfo{"Data", 4'000'000'000'000, 1, 1'500'000'000'000};
    TestWindow window(app);
    EXPECT_TRUE(window.driver().shows("Data"));
    EXPECT_TRUE(window.driver().shows("1.5 TB free"));
    app.volumes.info.reset();
    window.state().scan()->startScan(ScanTarget::home());
    app.walks.finish(0, nullptr);
    EXPECT_TRUE(window.driver().awaitGone("Disk usage"));
    EXPECT_FALSE(window.driver().shows("Zero KB free"));
}

TEST(MainWindow, everyNoticeHasItsOwnEightSeconds) {
    TestApp app;
    TestWindow window(app);
    const auto shownFor = [&](const QString& name) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_TRUE(window.driver().awaitGone(name));
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    Toast first;
    first.message = "First";
    window.state().notice()->setToast(first);
    ASSERT_TRUE(window.driver().await("First"));
    QTest::qWait(4'000);
    Toast second;
    second.message = "Second";
    second.detail = "With a detail";
    window.state().notice()->setToast(second);
    ASSERT_TRUE(window.driver().await("Second"));
    EXPECT_TRUE(window.driver().shows("With a detail"));
    EXPECT_FALSE(window.driver().shows("First"));
    EXPECT_FALSE(window.driver().shows("Undo"));
    const double seconds = shownFor("Second");
    EXPECT_GT(seconds, 7.5);
    EXPECT_LT(seconds, 12);
}

TEST(MainWindow, noticeOffersUndoOnlyWhereItCan) {
    TestApp app;
    TestWindow window(app);
    HistoryEntry entry;
    entry.originalPath = app.disk.path("a.txt");
    entry.trashPath = app.disk.file(".Trash/a.txt", 10);
    Toast toast;
    toast.message = "Moved to Trash";
    toast.undoable = std::make_shared<const std::vector<HistoryEntry>>(1, entry);
    window.state().notice()->setToast(toast);
    window.driver().click("Undo", QAccessible::Button);
    ASSERT_TRUE(test::eventually([&] { return window.state().notice()->toast().has_value(); }));
    EXPECT_TRUE(app.disk.exists("a.txt"));
    EXPECT_EQ(window.state().notice()->toast()->message, "1 item(s) restored");

    window.state().notice()->setToast(Toast{});
    window.driver().click("Close", QAccessible::Button);
    EXPECT_FALSE(window.state().notice()->toast().has_value());
}

TEST(MainWindow, clicksOnTheNoticeMeanNothingBelowIt) {
    TestApp app;
    TestWindow window(app);
    QQuickItem* scan = window.driver().await("Scan", QAccessible::Button);
    ASSERT_NE(scan, nullptr);
    Toast toast;
    toast.message = "Moved to Trash";
    window.state().notice()->setToast(toast);
    QQuickItem* notice = window.driver().await("Moved to Trash", QAccessible::AlertMessage);
    ASSERT_NE(notice, nullptr);
    // A notice may come to lie over any control.
    const QPointF spot = notice->mapToScene(QPointF(notice->width() / 4, notice->height() / 2));
    scan->setPosition(scan->parentItem()->mapFromScene(spot) - QPointF(scan->width(), scan->height()) / 2);
    QTest::mouseClick(&window.window(), Qt::LeftButton, {}, spot.toPoint());
    test::handleEvents();
    EXPECT_EQ(window.state().quickClean()->smartPhase(), SmartPhase::idle);
}

TEST(MainWindow, theButtonOfAnOpenMenuClosesIt) {
    TestApp app;
    TestWindow window(app);
    for (const char* button : {"Menu", "Scan: Entire disk"}) {
        const QString entry = QLatin1String(button) == "Menu" ? "Settings…" : "Choose Folder…";
        window.driver().click(button, QAccessible::Button);
        EXPECT_TRUE(window.driver().await(entry, QAccessible::MenuItem));
        window.driver().click(button, QAccessible::Button);
        EXPECT_TRUE(window.driver().awaitGone(entry));
        window.driver().click(button, QAccessible::Button);
        EXPECT_TRUE(window.driver().await(entry, QAccessible::MenuItem));
        QTest::mouseClick(&window.window(), Qt::LeftButton, {}, QPoint(500, 700));
        EXPECT_TRUE(window.driver().awaitGone(entry)) << "a click elsewhere closes it too";
    }
}

TEST(MainWindow, theFirstScreenRestsAfterSomeBreaths) {
    TestApp app;
    TestWindow window(app);
    window.appearance().setReducedMotion(false);
    auto* breathing = window.window().findChild<QObject*>("breathing");
    ASSERT_NE(breathing, nullptr);
    EXPECT_TRUE(breathing->property("running").toBool());
    EXPECT_GT(breathing->property("loops").toInt(), 0) << "they end";
    QMetaObject::invokeMethod(breathing, "stop");
    EXPECT_FALSE(breathing->property("running").toBool());
    QTest::qWait(1'500); // the ring has filled
    int frames = 0;
    QObject::connect(&window.window(), &QQuickWindow::frameSwapped, &window.window(), [&] { ++frames; });
    QTest::qWait(500);
    EXPECT_EQ(frames, 0);
}

TEST(MainWindow, everythingIsReachedByTab) {
    TestApp app;
    app.preferences.values["initialSection"] = std::string("overview");
    TestWindow window(app);
    for (const char* name :
         {"Overview", "Scan: Entire disk", "Scan", "Menu", "Scan Entire Disk", "Home Folder Only"})
        EXPECT_TRUE(window.driver().tabTo(name)) << name;
    window.driver().key(Qt::Key_Space);
    EXPECT_EQ(app.walks.begun(0).rootPath, "/Users/sam");
}

TEST(MainWindow, sheetKeepsTheKeyboardAndGivesItBack) {
    TestApp app;
    app.probe.granted = false;
    app.preferences.values["initialSection"] = std::string("overview");
    TestWindow window(app);
    WindowDriver& driver = window.driver();
    ASSERT_TRUE(driver.tabTo("Home Folder Only"));
    driver.key(Qt::Key_Return);
    ASSERT_TRUE(eventually([&] { return driver.focused() == "Open Settings"; }))
        << driver.focused().toStdString();
    EXPECT_FALSE(driver.tabTo("Home Folder Only", 10));
    ASSERT_TRUE(driver.tabTo("Scan Without Access"));
    driver.key(Qt::Key_Return);
    EXPECT_TRUE(window.state().scan()->isScanning());
}

} // namespace
} // namespace brimlet
