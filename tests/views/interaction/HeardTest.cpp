// What a screen reader is told while the window is used by keyboard.
#include "app/state/JunkState.h"
#include "app/state/NavigationState.h"
#include "app/state/NoticeState.h"
#include "app/state/QuickCleanState.h"
#include "app/state/RemovalState.h"
#include "app/state/ScanState.h"
#include "support/SyntheticTree.h"
#include "support/TestHome.h"
#include "views/interaction/Assistive.h"

#include <gtest/gtest.h>
#include <QPointer>
#include <QQuickItem>
#include <QTest>

namespace brimlet {
namespace {

using test::accessibleName;
using test::eventually;
using test::TestApp;
using test::TestHome;
using test::TestWindow;

/// Writes down what the window tells from now on.
class Listener {
public:
    explicit Listener(TestWindow& window) {
        auto* assistive =
            window.engine().singletonInstance<Assistive*>(qmlTypeId("Brimlet", 1, 0, "Assistive"));
        QObject::connect(assistive, &Assistive::said, &m_context,
                         [this](const QString& words) { said << words; });
        QObject::connect(assistive, &Assistive::shown, &m_context,
                         [this](QQuickItem* alert) { shown << accessibleName(alert); });
        QObject::connect(assistive, &Assistive::focused, &m_context,
                         [this](QQuickItem* item) { m_focused = item; });
    }

    QStringList said;
    QStringList shown;

    /// What was told last to have the focus; null where it is no more.
    QAccessibleInterface* focused() const { return QAccessible::queryAccessibleInterface(m_focused.data()); }

private:
    QPointer<QQuickItem> m_focused;
    QObject m_context;
};

QString name(QAccessibleInterface* element) {
    return element != nullptr ? element->text(QAccessible::Name) : QString();
}

QAccessibleInterface* underTheKeys(TestWindow& window) {
    return QAccessible::queryAccessibleInterface(window.window().activeFocusItem());
}

TEST(Heard, theTableTellsEachRowThatTheKeysReach) {
    TestApp app;
    app.preferences.values["initialSection"] = std::string("large");
    TestWindow window(app);
    test::SyntheticTree tree("/Users/sam");
    for (int number = 1; number <= 60; ++number)
        tree.file(tree.root(), "film " + std::to_string(number) + ".mov",
                  10'000'000'000 - number * 1'000'000);
    app.state().scan()->startScan(ScanTarget::folder("/Users/sam"));
    app.walks.begun(0);
    app.walks.finish(0, tree.finish());
    ASSERT_TRUE(eventually([&] { return !app.state().scan()->isScanning(); }));
    ASSERT_TRUE(window.driver().click("film 2.mov, 10 GB"));
    window.driver().middleOf("Deselect"); // until the bar has its room
    Listener heard(window);

    window.driver().key(Qt::Key_Up);
    ASSERT_EQ(name(heard.focused()), "film 1.mov, 10 GB");
    EXPECT_EQ(heard.focused()->role(), QAccessible::ListItem);
    EXPECT_TRUE(heard.focused()->state().selected);
    EXPECT_TRUE(heard.focused()->state().focusable);
    EXPECT_TRUE(heard.focused()->state().focused);
    const QString description = heard.focused()->text(QAccessible::Description);
    EXPECT_TRUE(description.startsWith("Review, MOV, ")) << description.toStdString();
    EXPECT_EQ(name(underTheKeys(window)), "Files");
    EXPECT_EQ(underTheKeys(window)->role(), QAccessible::List);

    window.driver().key(Qt::Key_End);
    EXPECT_TRUE(eventually([&] { return name(heard.focused()) == "film 60.mov, 9.94 GB"; }))
        << "it was out of sight";
    window.driver().key(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_TRUE(eventually([&] { return name(heard.focused()) == "film 59.mov, 9.94 GB"; }));
}

TEST(Heard, junkRowsTellTheirRiskAndThatTheyAreTicked) {
    TestHome home;
    home.fill();
    home.window();
    home.state().navigation()->setSection(AppSection::junk);
    ASSERT_TRUE(eventually(
        [&] { return !home.state().junk()->findings().empty() && !home.state().junk()->isLoading(); }));
    test::WindowDriver& driver = home.driver();
    ASSERT_TRUE(driver.tabTo("Scan Again"));
    driver.key(Qt::Key_Tab);
    driver.key(Qt::Key_End);
    QAccessibleInterface* rule = underTheKeys(home.window());
    ASSERT_EQ(name(rule), "Installers in Downloads, 1 items");
    EXPECT_TRUE(rule->text(QAccessible::Description).startsWith("Review. "));
    EXPECT_TRUE(rule->state().checkable);
    EXPECT_FALSE(rule->state().checked);
    driver.key(Qt::Key_Space);
    EXPECT_TRUE(rule->state().checked);
    driver.key(Qt::Key_Right);
    driver.key(Qt::Key_Down);
    QAccessibleInterface* item = underTheKeys(home.window());
    EXPECT_TRUE(name(item).startsWith("Old.dmg, "));
    EXPECT_TRUE(item->state().checked);
}

TEST(Heard, eachStageOfQuickCleanIsSaid) {
    TestHome home;
    home.fill();
    Listener heard(home.window());
    ASSERT_TRUE(home.scan());
    const QString ready =
        QString::fromStdString(formatBytes(home.state().quickClean()->smartSelectedSize())) +
        " ready to clean";
    EXPECT_EQ(heard.said, (QStringList{"Looking for files you don’t need…", ready}));
    ASSERT_TRUE(home.driver().tabTo("App caches"));
    EXPECT_TRUE(underTheKeys(home.window())->state().checked);
    home.driver().key(Qt::Key_Space);
    EXPECT_FALSE(underTheKeys(home.window())->state().checked);

    ASSERT_TRUE(home.clean());
    const QString cleaned =
        QString::fromStdString(formatBytes(home.state().quickClean()->lastReport()->freed)) + " cleaned";
    EXPECT_EQ(heard.said.mid(2), (QStringList{"Cleaning…", cleaned}));
}

TEST(Heard, theSheetIsReadRowByRow) {
    TestApp app;
    TestWindow window(app);
    std::vector<PlanItem> items;
    for (int number = 1; number <= 30; ++number) {
        const std::string itemName = "item " + std::to_string(number);
        items.push_back({"/Users/sam/" + itemName,
                         itemName,
                         1'000,
                         Removal::trash,
                         {Risk::review, "Only you can know."}});
    }
    app.state().removal()->proposePlan(items, "Delete Items");
    ASSERT_TRUE(eventually([&] { return window.driver().focused() == "Cancel"; }));
    ASSERT_TRUE(window.driver().tabTo("Review, 30 · 30 KB")) << window.driver().focused().toStdString();
    window.driver().key(Qt::Key_Down);
    ASSERT_EQ(name(underTheKeys(window)), "item 1, 1 KB");
    EXPECT_EQ(underTheKeys(window)->text(QAccessible::Description), "Review. Only you can know. ~/item 1");
    EXPECT_TRUE(underTheKeys(window)->state().focused);
    window.driver().key(Qt::Key_End);
    EXPECT_EQ(window.driver().focused(), "item 30, 1 KB");
    window.driver().key(Qt::Key_PageUp);
    EXPECT_NE(window.driver().focused(), "item 30, 1 KB");
}

TEST(Heard, aNoticeIsToldEachTime) {
    TestApp app;
    TestWindow window(app);
    Listener heard(window);
    for (const char* message : {"1 item(s) restored", "2 item(s) restored"}) {
        Toast toast;
        toast.message = message;
        app.state().notice()->setToast(toast);
        test::handleEvents();
        EXPECT_TRUE(heard.shown.contains(message)) << message;
    }
}

} // namespace
} // namespace brimlet
