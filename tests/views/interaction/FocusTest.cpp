// The item with the keyboard is in sight, and what is shortened can be read in full, by keyboard too.
#include "app/state/JunkState.h"
#include "app/state/NavigationState.h"
#include "app/state/QuickCleanState.h"
#include "app/state/RemovalState.h"
#include "support/FilledWindow.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <QQuickItem>
#include <QTest>
#include <set>

namespace brimlet {
namespace {

using test::eventually;
using test::FilledWindow;
using test::handleEvents;
using test::WindowDriver;

QRectF sceneRect(const QQuickItem& item) {
    return item.mapRectToScene(QRectF(0, 0, item.width(), item.height()));
}

/// The part of the window where an item can be seen at all.
QRectF sightOf(const QQuickItem& item) {
    QRectF sight(0, 0, item.window()->width(), item.window()->height());
    for (const QQuickItem* up = item.parentItem(); up != nullptr; up = up->parentItem()) {
        if (up->clip())
            sight &= sceneRect(*up);
    }
    return sight;
}

/// What the keyboard acts on: a list's current row, else the item with the focus.
QQuickItem* keyboardItem(QQuickWindow& window) {
    QQuickItem* focused = window.activeFocusItem();
    auto* row = focused != nullptr ? focused->property("currentItem").value<QQuickItem*>() : nullptr;
    return row != nullptr ? row : focused;
}

class Focus : public testing::Test {
protected:
    WindowDriver& driver() { return filled.driver(); }
    QQuickWindow& quickWindow() { return filled.window().window(); }

    /// Tabs once round and says which stops can't be seen, by their names.
    std::set<std::string> unseenStops(Qt::Key key = Qt::Key_Tab) {
        std::set<std::string> unseen;
        const QQuickItem* first = nullptr;
        int stops = 0;
        for (; stops < 150; ++stops) {
            driver().key(key);
            quickWindow().grabWindow();
            QQuickItem* item = keyboardItem(quickWindow());
            if (item == nullptr || item == first)
                break;
            if (first == nullptr)
                first = item;
            const QRectF rect = sceneRect(*item);
            const QRectF sight = sightOf(*item);
            const bool tooLarge = rect.width() > sight.width() + 1 || rect.height() > sight.height() + 1;
            if (!sight.adjusted(-1, -1, 1, 1).contains(rect) && !(tooLarge && sight.intersects(rect)))
                unseen.insert(test::accessibleName(item).toStdString());
        }
        EXPECT_GT(stops, 3) << "the keyboard gets nowhere";
        return unseen;
    }

    FilledWindow filled;
};

using Names = std::set<std::string>;

TEST_F(Focus, isInSightOnEveryScreenAndSheet) {
    filled.window().resize(900, 600);
    for (const double scale : {1.0, 1.5, 2.0}) {
        filled.window().appearance().fixTextScale(scale);
        const std::string size = ", text times " + std::to_string(scale);
        filled.finishScan();
        for (const AppSection section : {AppSection::overview, AppSection::explorer, AppSection::types,
                                         AppSection::large, AppSection::junk, AppSection::history}) {
            filled.state().navigation()->setSection(section);
            eventually([&] { return !filled.state().junk()->isLoading(); });
            EXPECT_EQ(unseenStops(), Names()) << look(section).title << size;
            EXPECT_EQ(unseenStops(Qt::Key_Backtab), Names()) << look(section).title << ", backwards" << size;
        }
        filled.reachReview();
        EXPECT_EQ(unseenStops(), Names()) << "review" << size;
        EXPECT_EQ(unseenStops(Qt::Key_Backtab), Names()) << "review, backwards" << size;
        filled.showMixedPlan();
        EXPECT_EQ(unseenStops(), Names()) << "sheet" << size;
        filled.state().removal()->cancelPlan();
        filled.reachReport();
        EXPECT_EQ(unseenStops(), Names()) << "report" << size;
        filled.state().quickClean()->setSmartPhase(SmartPhase::idle);
    }
}

TEST_F(Focus, keysScrollThePageAroundIt) {
    filled.window().resize(900, 600);
    filled.reachReview();
    ASSERT_TRUE(driver().tabTo("App caches"));
    quickWindow().grabWindow(); // the first frame after the focus has moved brings it into sight once more
    const QQuickItem* box = driver().awaitRest("App caches", QAccessible::CheckBox);
    ASSERT_NE(box, nullptr);
    const double top = sceneRect(*box).top();
    driver().key(Qt::Key_Down);
    EXPECT_LT(sceneRect(*box).top(), top);
    driver().key(Qt::Key_PageDown);
    EXPECT_LT(sceneRect(*box).top(), top - 100);
    driver().key(Qt::Key_End);
    EXPECT_FALSE(sightOf(*box).intersects(sceneRect(*box)));
    driver().key(Qt::Key_Home);
    driver().key(Qt::Key_PageUp);
    EXPECT_GE(sceneRect(*box).top(), top);
}

TEST_F(Focus, everyColumnIsReachedByKeyWheelAndBar) {
    filled.window().resize(900, 600);
    filled.finishScan();
    filled.state().navigation()->setSection(AppSection::large);
    handleEvents();
    quickWindow().grabWindow();
    const auto inSight = [&](const char* title) {
        const QQuickItem* header = driver().await(title);
        return header != nullptr && sightOf(*header).adjusted(-1, -1, 1, 1).contains(sceneRect(*header));
    };
    ASSERT_TRUE(inSight("Name"));
    ASSERT_FALSE(inSight("Risk"));
    const auto* table = driver().await("Files", QAccessible::List);
    ASSERT_NE(table, nullptr);
    QTest::mouseClick(&quickWindow(), Qt::LeftButton, {}, sceneRect(*table).center().toPoint());
    for (int press = 0; press < 8; ++press)
        driver().key(Qt::Key_Right);
    EXPECT_TRUE(inSight("Risk"));
    for (int press = 0; press < 8; ++press)
        driver().key(Qt::Key_Left);
    EXPECT_TRUE(inSight("Name"));

    const QPointF middle = sceneRect(*table).center();
    for (int turn = 0; turn < 8; ++turn) {
        QWheelEvent wheel(middle, quickWindow().mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                          Qt::ShiftModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&quickWindow(), &wheel);
    }
    EXPECT_TRUE(inSight("Risk"));
    EXPECT_FALSE(inSight("Name"));
    ASSERT_TRUE(driver().tabTo("Name"));
    EXPECT_TRUE(inSight("Name")) << "a title that gets the keyboard comes into sight";
}

TEST_F(Focus, panelBesideTheMapScrollsByWheelAndKeys) {
    filled.window().resize(900, 600);
    filled.window().appearance().fixTextScale(1.5);
    filled.finishScan();
    filled.state().navigation()->setSection(AppSection::explorer);
    ASSERT_TRUE(driver().click("Map"));
    QQuickItem* panel = driver().await("About sam");
    ASSERT_NE(panel, nullptr);
    quickWindow().grabWindow();
    const auto isAtEnd = [&] {
        const auto value = [&](const char* name) { return panel->property(name).toDouble(); };
        return value("contentY") > 0 && value("contentY") + panel->height() >= value("contentHeight") - 1;
    };
    ASSERT_FALSE(isAtEnd());
    const QPointF middle = sceneRect(*panel).center();
    for (int turn = 0; turn < 30; ++turn) {
        QWheelEvent wheel(middle, quickWindow().mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        wheel.setTimestamp(static_cast<quint64>(turn + 1) * 20);
        QCoreApplication::sendEvent(&quickWindow(), &wheel);
    }
    EXPECT_TRUE(eventually(isAtEnd));
    for (int press = 0; press < 20 && quickWindow().activeFocusItem() != panel; ++press)
        driver().key(Qt::Key_Tab);
    ASSERT_EQ(quickWindow().activeFocusItem(), panel);
    driver().key(Qt::Key_Home);
    EXPECT_EQ(panel->property("contentY").toDouble(), 0);
    driver().key(Qt::Key_End);
    EXPECT_TRUE(isAtEnd());
}

TEST_F(Focus, returnsToTheListWhenTheSelectionBarGoes) {
    filled.finishScan();
    for (const AppSection section : {AppSection::large, AppSection::explorer}) {
        filled.state().navigation()->setSection(section);
        ASSERT_TRUE(driver().await("Files", QAccessible::List));
        driver().await("Files", QAccessible::List)->forceActiveFocus();
        driver().key(Qt::Key_A, Qt::ControlModifier);
        ASSERT_TRUE(driver().click("Deselect"));
        EXPECT_TRUE(driver().awaitGone("Deselect"));
        EXPECT_EQ(driver().focused(), "Files") << look(section).title;
    }
    filled.state().navigation()->setSection(AppSection::junk);
    ASSERT_TRUE(driver().click("App caches", QAccessible::CheckBox));
    ASSERT_TRUE(driver().tabTo("Deselect"));
    driver().key(Qt::Key_Return);
    EXPECT_TRUE(driver().awaitGone("Deselect"));
    EXPECT_EQ(driver().focused(), "Found junk");
}

TEST_F(Focus, reachesTheButtonThatClearsTheSearch) {
    filled.finishScan();
    filled.state().navigation()->setSection(AppSection::large);
    ASSERT_TRUE(driver().click("Search by name (use / to search paths)"));
    driver().key(Qt::Key_Q);
    ASSERT_TRUE(driver().await("Clear search"));
    driver().key(Qt::Key_Tab);
    ASSERT_EQ(driver().focused(), "Clear search");
    driver().key(Qt::Key_Space);
    EXPECT_TRUE(driver().awaitGone("Clear search"));
    EXPECT_EQ(driver().focused(), "Search by name (use / to search paths)");
}

TEST_F(Focus, shortenedTextIsReadInFullByPointerAndByKeyboard) {
    filled.window().resize(900, 600);
    filled.window();
    filled.state().navigation()->setSection(AppSection::history);
    ASSERT_TRUE(driver().tabTo("Clear History"));
    driver().key(Qt::Key_Tab);
    driver().key(Qt::Key_Down);
    QQuickItem* row = keyboardItem(quickWindow());
    ASSERT_NE(row, nullptr);
    const QString name = row->property("name").toString();
    const auto tells = [&](const QString& text) {
        const auto items = driver().visibleItems();
        return std::any_of(items.begin(), items.end(), [&](const QQuickItem* item) {
            return item->inherits("QQuickText") && item->property("text").toString().contains(text) &&
                   !item->property("truncated").toBool();
        });
    };
    EXPECT_FALSE(tells(name));
    EXPECT_TRUE(eventually([&] { return tells(name); })) << "with the keyboard";
    driver().key(Qt::Key_Escape);
    EXPECT_FALSE(tells(name));
    QTest::mouseMove(&quickWindow(), sceneRect(*row).center().toPoint());
    QTest::mouseMove(&quickWindow(), sceneRect(*row).center().toPoint() - QPoint(60, 8));
    EXPECT_TRUE(eventually([&] { return tells(name); })) << "under the pointer";
}

TEST_F(Focus, reasonOfAVerdictIsNeverCutOnTheSheet) {
    filled.window().resize(900, 600);
    for (const double scale : {1.0, 2.0}) {
        filled.window().appearance().fixTextScale(scale);
        filled.showMixedPlan();
        quickWindow().grabWindow();
        int reasons = 0;
        for (const QQuickItem* item : driver().visibleItems()) {
            if (!item->inherits("QQuickText") || !item->property("text").toString().startsWith("Belongs to"))
                continue;
            ++reasons;
            EXPECT_FALSE(item->property("truncated").toBool());
            EXPECT_LE(item->property("contentHeight").toDouble(), item->height() + 1);
        }
        EXPECT_GT(reasons, 0);
        filled.state().removal()->cancelPlan();
        handleEvents();
    }
}

} // namespace
} // namespace brimlet
