// Presses of the pointer in quick succession: each reaches what it is meant for, and nothing else.
#include "app/state/NavigationState.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>
#include <QQmlComponent>
#include <QQuickItem>
#include <QTest>

namespace brimlet::test {
namespace {

/// Two places over the window of which the first gives way to the second when it is clicked.
constexpr auto relay = R"(
import QtQuick
Item {
    property int first: 0
    property int second: 0
    property bool stays: false

    width: 100; height: 100; z: 10
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        visible: parent.stays || parent.first === 0
        onClicked: ++parent.first
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        visible: !parent.stays && parent.first > 0
        onClicked: ++parent.second
    }
})";

class QuickPresses : public testing::Test {
protected:
    std::unique_ptr<QQuickItem> makeRelay() {
        QQmlComponent component(&home.window().engine());
        component.setData(relay, {});
        std::unique_ptr<QQuickItem> item(qobject_cast<QQuickItem*>(component.create()));
        item->setParentItem(window().contentItem());
        return item;
    }
    QQuickWindow& window() { return home.window().window(); }

    TestHome home;
};

TEST_F(QuickPresses, ofADoubleClickReachOnlyWhatWasThereAtTheFirst) {
    const auto item = makeRelay();
    QTest::mouseDClick(&window(), Qt::LeftButton, {}, QPoint(50, 50));
    handleEvents();
    EXPECT_EQ(item->property("first").toInt(), 1);
    EXPECT_EQ(item->property("second").toInt(), 0);
    QTest::mouseClick(&window(), Qt::LeftButton, {}, QPoint(50, 50));
    EXPECT_EQ(item->property("second").toInt(), 1) << "a later click means what is there now";

    const auto resting = makeRelay();
    resting->setProperty("stays", true);
    QTest::mouseDClick(&window(), Qt::LeftButton, {}, QPoint(50, 50));
    EXPECT_EQ(resting->property("first").toInt(), 2);
}

TEST_F(QuickPresses, ofTwoButtonsOrAtTwoPlacesAreTwoGestures) {
    const auto item = makeRelay();
    QTest::mousePress(&window(), Qt::LeftButton, {}, QPoint(20, 50));
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, QPoint(20, 50));
    QTest::mousePress(&window(), Qt::RightButton, {}, QPoint(20, 50));
    QTest::mouseRelease(&window(), Qt::RightButton, {}, QPoint(20, 50));
    QTest::mousePress(&window(), Qt::RightButton, {}, QPoint(80, 50));
    QTest::mouseRelease(&window(), Qt::RightButton, {}, QPoint(80, 50));
    EXPECT_EQ(item->property("first").toInt(), 1);
    EXPECT_EQ(item->property("second").toInt(), 2);
}

TEST_F(QuickPresses, behindAMenuOrASheetThatHasJustGoneAreNotLost) {
    home.fill();
    home.window().appearance().setReducedMotion(false);
    home.state().navigation()->setSection(AppSection::junk);
    WindowDriver& driver = home.driver();
    ASSERT_TRUE(driver.click("App caches", QAccessible::CheckBox));
    const QPoint clean = driver.middleOf("Clean…", QAccessible::Button);
    const QPoint menu = driver.middleOf("Menu", QAccessible::Button);
    for (const char* sheet : {"first", "second"}) {
        QTest::mouseClick(&window(), Qt::LeftButton, {}, clean);
        ASSERT_TRUE(eventually([&] { return driver.focused() == "Cancel"; })) << sheet;
        driver.key(Qt::Key_Escape);
    }
    for (const char* time : {"first", "second"}) {
        QTest::mouseClick(&window(), Qt::LeftButton, {}, menu);
        EXPECT_TRUE(driver.await("Quit Brimlet")) << time;
        driver.key(Qt::Key_Escape);
    }
    QTest::mouseClick(&window(), Qt::LeftButton, {}, clean);
    EXPECT_TRUE(driver.await("Clean Junk"));
}

} // namespace
} // namespace brimlet::test
