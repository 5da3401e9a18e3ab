// The panels that let the user choose a place on disk, in the window that shows them.
#include "support/TestWindow.h"

#include <algorithm>
#include <optional>
#include <QQuickItem>
#include <QTest>
#include <QUrl>

namespace brimlet::test {
namespace {

QUrl urlOf(const std::string& path) {
    return QUrl::fromLocalFile(QString::fromStdString(path));
}

/// The button of a panel that the toolkit draws; such have no accessible names here. Null where there is
/// none.
QQuickItem* panelButton(TestWindow& window, const QString& text) {
    const QList<QQuickItem*> items = window.driver().visibleItems();
    const auto found = std::ranges::find_if(items, [&](const QQuickItem* item) {
        return item->inherits("QQuickButton") && item->property("text") == text;
    });
    return found != items.end() ? *found : nullptr;
}

/// Waits for it and clicks it. False where it doesn't come.
bool clickPanelButton(TestWindow& window, const QString& text) {
    QQuickItem* button = nullptr;
    if (!eventually([&] { return (button = panelButton(window, text)) != nullptr && button->width() > 0; }))
        return false;
    QTest::mouseClick(&window.window(), Qt::LeftButton, Qt::NoModifier,
                      button->mapToScene({button->width() / 2, button->height() / 2}).toPoint());
    return true;
}

/// Asks for a file to save, as an export does.
struct SaveQuestion {
    explicit SaveQuestion(TestWindow& window) {
        window.panels().chooseFileToSave("list.csv", [this](std::optional<std::string> path) {
            ++answers;
            chosen = std::move(path);
        });
    }

    int answers = 0;
    std::optional<std::string> chosen;
};

TEST(Panels, scansAChosenFolder) {
    TestApp app;
    TestWindow window(app);
    WindowDriver& driver = window.driver();
    driver.click("Scan: Entire disk", QAccessible::Button);
    driver.click("Choose Folder…", QAccessible::MenuItem);
    EXPECT_TRUE(eventually([&] { return panelButton(window, "Cancel") != nullptr; })) << "no panel opens";
    EXPECT_TRUE(panelButton(window, "Scan"));
    window.panels().acceptFolder(QUrl::fromEncoded("file:///Users/sam/My%20Films%E9/"));
    EXPECT_EQ(app.walks.begun(0).rootPath, "/Users/sam/My Films\xe9");
    window.panels().acceptFolder(QUrl("file:///late"));
    EXPECT_EQ(app.walks.count(), 1U);
}

TEST(Panels, savePanelSavesUnderTheSuggestedName) {
    TestApp app;
    TestWindow window(app);
    const SaveQuestion question(window);
    ASSERT_TRUE(clickPanelButton(window, "Save"));
    EXPECT_TRUE(eventually([&] { return question.answers == 1; }));
    EXPECT_EQ(question.chosen, app.disk.path("list.csv"));
}

TEST(Panels, askBeforeAFileIsReplaced) {
    TestApp app;
    const std::string taken = app.disk.file("list.csv", 3);
    TestWindow window(app);
    WindowDriver& driver = window.driver();
    const QString title = QStringLiteral("“list.csv” already exists. Do you want to replace it?");
    const SaveQuestion question(window);
    ASSERT_TRUE(clickPanelButton(window, "Save"));
    ASSERT_TRUE(driver.await(title, QAccessible::Dialog));
    EXPECT_EQ(question.answers, 0);

    driver.key(Qt::Key_Return); // the safe button: another name is asked for
    EXPECT_TRUE(driver.awaitGone(title));
    EXPECT_TRUE(eventually([&] { return panelButton(window, "Save") != nullptr; }));
    EXPECT_EQ(question.answers, 0);

    window.panels().acceptFile(urlOf(taken));
    ASSERT_TRUE(driver.await(title, QAccessible::Dialog));
    driver.click("Replace", QAccessible::Button);
    EXPECT_TRUE(eventually([&] { return question.answers == 1; }));
    EXPECT_EQ(question.chosen, taken);
}

TEST(Panels, aFreeNameIsTakenWithoutAQuestion) {
    TestApp app;
    app.disk.symbolicLink("dangling.csv", "nowhere");
    TestWindow window(app);
    const SaveQuestion free(window);
    window.panels().acceptFile(urlOf(app.disk.path("free.csv")));
    EXPECT_EQ(free.chosen, app.disk.path("free.csv"));
    const SaveQuestion link(window);
    window.panels().acceptFile(urlOf(app.disk.path("dangling.csv")));
    EXPECT_EQ(link.answers, 0); // a link that leads nowhere is a file to lose as well
    window.panels().reject();
    EXPECT_EQ(link.answers, 1);
    EXPECT_EQ(link.chosen, std::nullopt);
}

} // namespace
} // namespace brimlet::test
