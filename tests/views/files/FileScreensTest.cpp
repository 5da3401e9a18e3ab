// Large & Old, By File Type and the Explorer as their user meets them, by mouse and keyboard.
#include "support/SyntheticTree.h"
#include "support/TemporaryTree.h"
#include "support/TestWindow.h"
#include "views/map/SunburstView.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <QQuickItem>
#include <QTest>

namespace brimlet {
namespace {

using test::TestApp;
using test::TestWindow;
using test::WindowDriver;

/// A window whose scan of a home folder has ended:
/// Movies (c.mov 3 GB, b.mov 2 GB, a.mov 1 GB), Tool.app (500 MB), notes.txt (100 MB)
class FileScreens : public testing::Test {
protected:
    FileScreens() {
        m_app.preferences.values["initialSection"] = std::string("large");
        m_window.emplace(m_app);
        test::SyntheticTree tree("/Users/sam");
        FileNode* movies = tree.directory(tree.root(), "Movies");
        tree.file(movies, "c.mov", 3'000'000'000);
        tree.file(movies, "b.mov", 2'000'000'000);
        tree.file(movies, "a.mov", 1'000'000'000);
        tree.file(tree.directory(tree.root(), "Tool.app"), "tool", 500'000'000);
        tree.file(tree.root(), "notes.txt", 100'000'000);
        finishScan(tree.finish());
    }

    void finishScan(std::shared_ptr<ScanResult> result) {
        state().startScan(ScanTarget::folder("/Users/sam"));
        m_app.walks.begun(m_walks);
        m_app.walks.finish(m_walks++, std::move(result));
        test::eventually([&] { return !state().isScanning(); });
        test::handleEvents();
    }

    AppState& state() { return m_window->state(); }
    WindowDriver& driver() { return m_window->driver(); }

    QPoint centreOf(const QString& name) {
        const QQuickItem* item = driver().await(name);
        return item == nullptr ? QPoint()
                               : item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
    }

    void click(const QString& name, Qt::KeyboardModifiers modifiers = {},
               Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&m_window->window(), button, modifiers, centreOf(name));
        test::handleEvents();
    }

    TestApp m_app;
    std::optional<TestWindow> m_window;
    std::size_t m_walks = 0;
};

TEST_F(FileScreens, rowsAreSelectedByMouse) {
    click("c.mov, 3 GB");
    EXPECT_TRUE(driver().await("1 selected · 3 GB"));
    click("a.mov, 1 GB", Qt::ShiftModifier);
    EXPECT_TRUE(driver().await("3 selected · 6 GB"));
    click("b.mov, 2 GB", Qt::ControlModifier);
    EXPECT_TRUE(driver().await("2 selected · 4 GB"));
    QTest::mousePress(&m_window->window(), Qt::LeftButton, {}, centreOf("tool, 500 MB"));
    QTest::mouseMove(&m_window->window(), centreOf("notes.txt, 100 MB"));
    QTest::mouseRelease(&m_window->window(), Qt::LeftButton, {}, centreOf("notes.txt, 100 MB"));
    EXPECT_TRUE(driver().await("2 selected · 600 MB"));
    driver().click("Deselect");
    EXPECT_TRUE(driver().awaitGone("2 selected · 600 MB"));
}

TEST_F(FileScreens, rowsAreSelectedByKeyboard) {
    click("c.mov, 3 GB");
    driver().key(Qt::Key_Down);
    driver().key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_TRUE(driver().await("2 selected · 3 GB"));
    driver().key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(driver().await("5 selected · 6.6 GB"));
    driver().key(Qt::Key_End);
    EXPECT_TRUE(driver().await("1 selected · 100 MB"));
    driver().key(Qt::Key_Home);
    EXPECT_TRUE(driver().await("1 selected · 3 GB"));
    driver().key(Qt::Key_T);
    EXPECT_TRUE(driver().await("1 selected · 500 MB")) << "typing a name goes there";
    driver().key(Qt::Key_Escape);
    EXPECT_TRUE(driver().awaitGone("1 selected · 500 MB"));
}

TEST_F(FileScreens, cellsExplainThemselvesUnderThePointer) {
    const QPoint row = centreOf("c.mov, 3 GB");
    const QPoint name(row.x() - driver().await("c.mov, 3 GB")->width() / 2 + 100, row.y());
    QTest::mouseMove(&m_window->window(), name - QPoint(0, 1));
    QTest::mouseMove(&m_window->window(), name);
    EXPECT_TRUE(driver().await("/Users/sam/Movies/c.mov"));
}

TEST_F(FileScreens, aMenuLeftOpenDoesNotActOnATreeThatIsGone) {
    click("c.mov, 3 GB", {}, Qt::RightButton);
    EXPECT_TRUE(driver().await("Copy Path", QAccessible::MenuItem));
    test::SyntheticTree tree("/Users/sam");
    tree.file(tree.directory(tree.root(), "Movies"), "new.mov", 1'000'000'000);
    finishScan(tree.finish());
    EXPECT_TRUE(driver().awaitGone("Copy Path"));
    EXPECT_TRUE(driver().await("new.mov, 1 GB"));
}

TEST_F(FileScreens, whatLayInADeletedFolderLeavesWithIt) {
    state().setExplorerStack({state().scan()->root, state().scan()->nodeAtPath("/Users/sam/Movies")});
    ASSERT_TRUE(test::removeDeleted(state(), {"/Users/sam/Movies"}));
    EXPECT_TRUE(driver().awaitGone("c.mov, 3 GB"));
    EXPECT_TRUE(driver().shows("notes.txt, 100 MB"));
    EXPECT_EQ(state().explorerStack(), std::vector<FileNode*>{state().scan()->root});
}

TEST_F(FileScreens, theMenuActsOnTheSelection) {
    click("c.mov, 3 GB");
    click("b.mov, 2 GB", Qt::ShiftModifier);
    click("b.mov, 2 GB", {}, Qt::RightButton);
    EXPECT_TRUE(driver().await("Quick Look"));
    EXPECT_FALSE(driver().shows("Open in Explorer"));
    EXPECT_TRUE(driver().await("Delete 2 Items…", QAccessible::MenuItem));
    driver().click("Show in Finder", QAccessible::MenuItem);
    EXPECT_EQ(m_app.log.back(), "reveal /Users/sam/Movies/c.mov");
    click("notes.txt, 100 MB", {}, Qt::RightButton);
    driver().click("Delete…", QAccessible::MenuItem);
    ASSERT_TRUE(test::eventually([&] { return state().plan() != nullptr; }));
    EXPECT_EQ(state().plan()->items.size(), 1U);
    EXPECT_EQ(state().plan()->items[0].path, "/Users/sam/notes.txt");
}

TEST_F(FileScreens, typingInTheSearchFieldNarrowsTheList) {
    ASSERT_TRUE(driver().click("Search by name (use / to search paths)"));
    for (const char letter : {'.', 'M', 'o', 'v'})
        QTest::keyClick(&m_window->window(), letter);
    EXPECT_TRUE(driver().await("3 files · 6 GB"));
    EXPECT_TRUE(driver().awaitGone("notes.txt, 100 MB"));
    driver().click("Clear search");
    EXPECT_TRUE(driver().await("5 files · 6.6 GB"));
    driver().click("Documents");
    EXPECT_TRUE(driver().await("1 files · 100 MB"));
    EXPECT_EQ(state().largeFilter().kinds, std::set{FileKind::document});
}

TEST_F(FileScreens, spaceShowsWhatIsInAFileAndHidesItAgain) {
    const test::TemporaryTree disk;
    disk.fileWithText("letter.txt", "Dear reader");
    test::SyntheticTree tree(disk.root());
    tree.file(tree.root(), "letter.txt", 700'000);
    tree.file(tree.root(), "film.mov", 600'000);
    finishScan(tree.finish());
    click("letter.txt, 700 KB");
    driver().key(Qt::Key_Space);
    EXPECT_TRUE(driver().await("Dear reader"));
    driver().key(Qt::Key_Down);
    EXPECT_TRUE(driver().awaitGone("Dear reader")) << "the preview goes with the selection";
    EXPECT_TRUE(driver().await("Preview of film.mov"));
    driver().key(Qt::Key_Space);
    EXPECT_TRUE(driver().awaitGone("Preview of film.mov"));
}

TEST_F(FileScreens, deletedFilesLeaveAndTheRestStaysSelected) {
    click("c.mov, 3 GB");
    driver().key(Qt::Key_A, Qt::ControlModifier);
    ASSERT_TRUE(test::removeDeleted(state(), {"/Users/sam/Movies/c.mov", "/Users/sam/notes.txt"}));
    EXPECT_TRUE(driver().await("3 selected · 3.5 GB"));
    EXPECT_TRUE(driver().await("3 files · 3.5 GB"));
    EXPECT_FALSE(driver().shows("notes.txt, 100 MB"));
}

TEST_F(FileScreens, aKindsTileShowsItsFiles) {
    state().setSection(AppSection::types);
    EXPECT_TRUE(driver().await("3 files · 6 GB"));
    driver().click("Documents, 100 MB, 1 files");
    EXPECT_TRUE(driver().await("notes.txt, 100 MB"));
    EXPECT_TRUE(driver().awaitGone("c.mov, 3 GB"));
}

TEST_F(FileScreens, theExplorerGoesInAndUp) {
    state().setSection(AppSection::explorer);
    QTest::mouseDClick(&m_window->window(), Qt::LeftButton, {}, centreOf("Movies, 6 GB"));
    EXPECT_TRUE(driver().await("c.mov, 3 GB"));
    driver().click("~", QAccessible::Button);
    EXPECT_TRUE(driver().await("Tool.app, 500 MB"));
    QTest::mouseDClick(&m_window->window(), Qt::LeftButton, {}, centreOf("Tool.app, 500 MB"));
    EXPECT_EQ(m_app.log.back(), "reveal /Users/sam/Tool.app");
    click("Movies, 6 GB");
    driver().key(Qt::Key_Return);
    EXPECT_TRUE(driver().await("c.mov, 3 GB"));
    driver().key(Qt::Key_BracketLeft, Qt::ControlModifier);
    EXPECT_TRUE(driver().await("Tool.app, 500 MB"));
}

TEST_F(FileScreens, goingUpSelectsTheFolderOneComesFrom) {
    state().setSection(AppSection::explorer);
    state().setExplorerStack({state().scan()->root, state().scan()->nodeAtPath("/Users/sam/Movies")});
    EXPECT_TRUE(driver().await("c.mov, 3 GB"));
    driver().click("Back", QAccessible::Button);
    EXPECT_TRUE(driver().await("1 selected · 6 GB"));
    state().setExplorerStack({state().scan()->root, state().scan()->nodeAtPath("/Users/sam/Movies")});
    EXPECT_TRUE(driver().awaitGone("1 selected · 6 GB")) << "going in begins with nothing selected";
}

TEST_F(FileScreens, aNewFilterIsReadFromTheTop) {
    test::SyntheticTree tree("/Users/sam");
    for (int number = 0; number < 200; ++number) {
        tree.file(tree.root(), "film " + std::to_string(number) + ".mov", 9'000'000'000 - number * 1'000'000);
        tree.file(tree.root(), "page " + std::to_string(number) + ".pdf", 8'000'000'000 - number * 1'000'000);
    }
    finishScan(tree.finish());
    click("film 0.mov, 9 GB");
    driver().key(Qt::Key_End);
    EXPECT_TRUE(driver().await("page 199.pdf, 7.8 GB"));
    driver().click("Documents");
    EXPECT_TRUE(driver().await("page 0.pdf, 8 GB"));

    state().setSection(AppSection::types);
    click("film 0.mov, 9 GB");
    driver().key(Qt::Key_End);
    EXPECT_TRUE(driver().awaitGone("film 0.mov, 9 GB"));
    driver().click("Documents, 1.58 TB, 200 files");
    EXPECT_TRUE(driver().await("page 0.pdf, 8 GB"));
}

TEST_F(FileScreens, aLargeFolderIsNotCalledEmptyBeforeItsRowsAreThere) {
    test::SyntheticTree tree("/Users/sam");
    FileNode* many = tree.directory(tree.root(), "Many");
    for (int number = 0; number < 3'000; ++number)
        tree.file(many, "file " + std::to_string(number), 1'000'000);
    finishScan(tree.finish());
    state().setSection(AppSection::explorer);
    test::handleEvents();
    state().setExplorerStack({state().scan()->root, many});
    EXPECT_FALSE(driver().shows("No folder and no large file lies directly in here."));
    EXPECT_TRUE(driver().await("file 0, 1 MB"));
}

TEST_F(FileScreens, columnsAreResizedByKeyboard) {
    ASSERT_TRUE(driver().tabTo("Risk"));
    const QQuickItem* title = m_window->window().activeFocusItem();
    const double before = title->width();
    driver().key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_GT(title->width(), before);
    driver().key(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(title->width(), before);
    for (int press = 0; press < 40; ++press)
        driver().key(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_GT(title->width(), 20) << "a column stays one";
}

class MapScreen : public FileScreens {
protected:
    MapScreen() {
        state().setSection(AppSection::explorer);
        driver().click("Map");
        driver().middleOf("Map of sam"); // once it has its place
        m_map = qobject_cast<SunburstView*>(driver().await("Map of sam"));
    }

    QPoint pointIn(const FileNode* node) const {
        const auto arc = std::ranges::find(m_map->arcs(), node, &Arc::node);
        const double angle = (arc->start + arc->end) / 2;
        const double radius = m_map->ringWidth() * (arc->depth + 0.5);
        return m_map
            ->mapToScene(QPointF(m_map->width() / 2 + radius * std::sin(angle),
                                 m_map->height() / 2 - radius * std::cos(angle)))
            .toPoint();
    }

    FileNode* node(std::string_view path) { return state().scan()->nodeAtPath(path); }

    SunburstView* m_map = nullptr;
};

TEST_F(MapScreen, tellsWhatIsUnderThePointerAndOpensFoldersOnly) {
    ASSERT_NE(m_map, nullptr);
    FileNode* movies = node("/Users/sam/Movies");
    QTest::mouseMove(&m_window->window(), pointIn(movies));
    EXPECT_TRUE(driver().await("91%"));
    EXPECT_EQ(m_map->hovered(), movies);
    QTest::mouseClick(&m_window->window(), Qt::LeftButton, {}, pointIn(node("/Users/sam/Tool.app")));
    EXPECT_EQ(state().explorerStack().size(), 1U);
    QTest::mouseClick(&m_window->window(), Qt::LeftButton, {}, pointIn(movies));
    EXPECT_EQ(state().explorerStack().back(), movies);
    QTest::mouseClick(&m_window->window(), Qt::LeftButton, {},
                      m_map->mapToScene(QPointF(m_map->width() / 2, m_map->height() / 2)).toPoint());
    EXPECT_EQ(state().explorerStack().size(), 1U);
}

TEST_F(MapScreen, isWalkedByKeyboard) {
    ASSERT_NE(m_map, nullptr);
    m_map->forceActiveFocus(Qt::TabFocusReason);
    FileNode* movies = node("/Users/sam/Movies");
    EXPECT_EQ(m_map->hovered(), movies);
    driver().key(Qt::Key_Up);
    EXPECT_EQ(m_map->hovered(), node("/Users/sam/Movies/c.mov"));
    driver().key(Qt::Key_Right);
    EXPECT_EQ(m_map->hovered(), node("/Users/sam/Movies/b.mov"));
    driver().key(Qt::Key_Down);
    EXPECT_EQ(m_map->hovered(), movies);
    driver().key(Qt::Key_Left);
    EXPECT_EQ(m_map->hovered(), node("/Users/sam/notes.txt")) << "a ring goes round";
    driver().key(Qt::Key_Return);
    EXPECT_EQ(state().explorerStack().size(), 1U);
    driver().key(Qt::Key_Right);
    driver().key(Qt::Key_Return);
    EXPECT_EQ(state().explorerStack().back(), movies);
    driver().key(Qt::Key_Backspace);
    driver().key(Qt::Key_Backspace);
    EXPECT_EQ(state().explorerStack().size(), 1U);
}

TEST_F(MapScreen, aPointerThatRestsDoesNotTakeTheKeysPlace) {
    ASSERT_NE(m_map, nullptr);
    FileNode* movies = node("/Users/sam/Movies");
    QTest::mouseMove(&m_window->window(), pointIn(movies));
    EXPECT_TRUE(driver().await("91%"));
    m_map->forceActiveFocus(Qt::TabFocusReason);
    driver().key(Qt::Key_Up);
    QTest::mouseMove(&m_window->window(), pointIn(movies)); // as each new picture brings it about
    test::handleEvents();
    EXPECT_EQ(m_map->hovered(), node("/Users/sam/Movies/c.mov"));
}

TEST_F(MapScreen, onlyAClickOnOneSegmentOpensIt) {
    ASSERT_NE(m_map, nullptr);
    FileNode* movies = node("/Users/sam/Movies");
    QTest::mousePress(&m_window->window(), Qt::LeftButton, {}, pointIn(node("/Users/sam/notes.txt")));
    QTest::mouseRelease(&m_window->window(), Qt::LeftButton, {}, pointIn(movies));
    EXPECT_EQ(state().explorerStack().size(), 1U) << "pressed elsewhere";
    QTest::mouseDClick(&m_window->window(), Qt::LeftButton, {}, pointIn(movies));
    EXPECT_EQ(state().explorerStack().size(), 2U) << "what lies there afterwards is not meant";
}

TEST_F(MapScreen, namesEverySegmentForAssistiveTools) {
    ASSERT_NE(m_map, nullptr);
    QAccessibleInterface* map = QAccessible::queryAccessibleInterface(m_map);
    ASSERT_NE(map, nullptr);
    ASSERT_EQ(map->childCount(), static_cast<int>(m_map->arcs().size()));
    EXPECT_EQ(map->child(0)->text(QAccessible::Name), "Movies, 6 GB, 91%");
    EXPECT_EQ(map->child(0)->parent()->object(), m_map);
    EXPECT_TRUE(map->child(0)->rect().intersects(map->rect()));
    EXPECT_EQ(map->child(2)->text(QAccessible::Name), "b.mov, 2 GB, 30%");
    EXPECT_EQ(map->indexOfChild(map->child(2)), 2);
    m_map->forceActiveFocus(Qt::TabFocusReason);
    driver().key(Qt::Key_Up);
    EXPECT_EQ(map->focusChild(), map->child(1));
    EXPECT_TRUE(map->child(1)->state().focused);
    map->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(state().explorerStack().back(), node("/Users/sam/Movies"));
}

} // namespace
} // namespace brimlet
