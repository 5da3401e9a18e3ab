// Texts fit: in every window size, with longer and with larger texts, and mirrored.
#include "app/state/AccessState.h"
#include "app/state/JunkState.h"
#include "app/state/NavigationState.h"
#include "app/state/NoticeState.h"
#include "app/state/QuickCleanState.h"
#include "app/state/RemovalState.h"
#include "app/state/ScanState.h"
#include "support/FilledWindow.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QFont>
#include <QQuickItem>
#include <QTranslator>

namespace brimlet {
namespace {

using test::eventually;
using test::FilledWindow;
using test::TestApp;
using test::TestWindow;

/// Makes every text 40 % longer, as a wordier language would.
class WordyTranslator final : public QTranslator {
public:
    QString translate(const char* /*context*/, const char* source, const char* /*disambiguation*/,
                      int /*count*/) const override {
        const QString text = QString::fromUtf8(source);
        const auto extra = static_cast<qsizetype>(std::ceil(static_cast<double>(text.size()) * 0.4));
        const QString filler = QStringLiteral(" eno mälir usto").repeated(extra / 15 + 1);
        return text + filler.left(extra);
    }
    bool isEmpty() const override { return false; }
};

std::shared_ptr<ScanResult> mixedResult() {
    test::SyntheticTree tree("/Users/sam");
    const std::array<const char*, 8> names = {"film.mov", "song.m4a", "photo.heic", "report.pdf",
                                              "old.zip",  "disk.dmg", "main.cpp",   "data.bin"};
    std::int64_t size = 3'333'333'333'333;
    for (const char* name : names)
        tree.file(tree.root(), name, size /= 4);
    return tree.finish();
}

void expectTextsToFit(TestWindow& window, const std::string& where) {
    test::handleEvents();
    const QStringList faults = window.driver().layoutFaults();
    EXPECT_TRUE(faults.isEmpty()) << where << ":\n" << faults.join(QLatin1Char('\n')).toStdString();
}

void visitStates(TestApp& app, TestWindow& window, const std::string& where) {
    for (const AppSectionLook& section : allSections()) {
        window.state().navigation()->setSection(section.section);
        expectTextsToFit(window, where + ", " + std::string(section.title));
    }
    window.state().navigation()->setSection(AppSection::overview);
    window.state().scan()->startScan(ScanTarget::home());
    expectTextsToFit(window, where + ", onboarding");
    window.state().access()->scanWithoutAccess();
    app.walks.begun(app.walks.count() > 0 ? app.walks.count() - 1 : 0)
        .progress(12'345'678, 9'876'543'210'000, "/Users/sam/" + std::string(300, 'x'));
    test::eventually([&] { return window.state().scan()->progress().files > 0; });
    expectTextsToFit(window, where + ", scanning");
    app.walks.finish(app.walks.count() - 1, mixedResult());
    test::eventually([&] { return window.state().scan()->hasScan(); });
    expectTextsToFit(window, where + ", scanned");
}

struct Size {
    int width;
    int height;
};

class Layout : public testing::TestWithParam<Size> {};

TEST_P(Layout, textsFit) {
    TestApp app;
    app.probe.granted = false;
    TestWindow window(app);
    window.resize(GetParam().width, GetParam().height);
    visitStates(app, window, "plain");
}

TEST_P(Layout, longerTextsFit) {
    WordyTranslator wordy;
    QCoreApplication::installTranslator(&wordy);
    {
        TestApp app;
        app.probe.granted = false;
        TestWindow window(app);
        window.resize(GetParam().width, GetParam().height);
        visitStates(app, window, "wordy");
    }
    QCoreApplication::removeTranslator(&wordy);
}

void visitSections(FilledWindow& filled, const std::string& where) {
    filled.finishScan();
    for (const AppSectionLook& section : allSections()) {
        filled.state().navigation()->setSection(section.section);
        eventually([&] { return !filled.state().junk()->isLoading(); });
        expectTextsToFit(filled.window(), where + ", " + std::string(section.title));
    }
    filled.state().navigation()->setSection(AppSection::explorer);
    filled.driver().click("Map");
    expectTextsToFit(filled.window(), where + ", map");
    filled.driver().click("List");
    filled.driver().key(Qt::Key_A, Qt::ControlModifier);
    expectTextsToFit(filled.window(), where + ", all rows selected");
}

void visitCleaning(FilledWindow& filled, const std::string& where) {
    filled.reachReview();
    expectTextsToFit(filled.window(), where + ", review");
    filled.showMixedPlan();
    expectTextsToFit(filled.window(), where + ", sheet");
    filled.state().removal()->cancelPlan();
    filled.reachReport();
    expectTextsToFit(filled.window(), where + ", report");
    filled.state().navigation()->setSection(AppSection::history);
    expectTextsToFit(filled.window(), where + ", history with failures");
    filled.state().navigation()->setSection(AppSection::duplicates); // with room for the notice
    filled.showNotice();
    expectTextsToFit(filled.window(), where + ", notice");
    filled.state().notice()->setToast(std::nullopt);
}

class FilledLayout : public testing::TestWithParam<Size> {};

TEST_P(FilledLayout, screensFitAtEveryTextSize) {
    FilledWindow filled;
    filled.window().resize(GetParam().width, GetParam().height);
    for (const double scale : {1.0, 1.5, 2.0}) {
        filled.window().appearance().fixTextScale(scale);
        const std::string where = "text times " + std::to_string(scale);
        visitSections(filled, where);
        visitCleaning(filled, where);
        filled.state().quickClean()->setSmartPhase(SmartPhase::idle);
    }
}

TEST_P(FilledLayout, mirroredScreensFit) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    {
        FilledWindow filled;
        filled.window().resize(GetParam().width, GetParam().height);
        visitSections(filled, "mirrored");
        visitCleaning(filled, "mirrored");
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

/// The middle of a control, as a share of the window's width.
double placeOf(FilledWindow& filled, const char* name, QAccessible::Role role = QAccessible::NoRole) {
    const QQuickItem* item = filled.driver().await(name, role);
    if (item == nullptr)
        return -1;
    return item->mapToScene(QPointF(item->width() / 2, 0)).x() / filled.window().window().width();
}

TEST(HistoryLayout, restoreIsInSightInTheSmallestWindow) {
    FilledWindow filled;
    filled.window().resize(900, 600);
    filled.state().navigation()->setSection(AppSection::history);
    const QQuickItem* button = filled.driver().awaitRest("Restore", QAccessible::Button);
    const QQuickItem* clear = filled.driver().awaitRest("Clear History", QAccessible::Button);
    ASSERT_TRUE(button != nullptr && clear != nullptr);
    const auto end = [](const QQuickItem* item) { return item->mapToScene(QPointF(item->width(), 0)).x(); };
    EXPECT_LE(end(button), end(clear));
}

TEST(LayoutDirection, mirrorsWhileTheProgramRuns) {
    FilledWindow filled;
    filled.window().resize(900, 600);
    filled.finishScan();
    filled.state().navigation()->setSection(AppSection::large);
    const auto look = [&] {
        test::handleEvents();
        filled.window().window().grabWindow();
        return std::vector<double>{placeOf(filled, "Large & Old", QAccessible::ListItem),
                                   placeOf(filled, "Menu"), placeOf(filled, "Name"),
                                   placeOf(filled, "Export to CSV", QAccessible::Button)};
    };
    const std::vector<double> plain = look();
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const std::vector<double> mirrored = look();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    for (std::size_t i = 0; i < plain.size(); ++i)
        EXPECT_NEAR(mirrored[i], 1 - plain[i], 0.05) << i;
}

TEST(LayoutDirection, arrowKeysFollowIt) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    {
        FilledWindow filled;
        filled.window();
        filled.state().navigation()->setSection(AppSection::junk);
        ASSERT_TRUE(filled.driver().await("App caches"));
        ASSERT_TRUE(filled.driver().tabTo("Scan Again"));
        filled.driver().key(Qt::Key_Tab);
        ASSERT_FALSE(filled.driver().shows("small, 1 MB"));
        filled.driver().key(Qt::Key_Left);
        EXPECT_TRUE(filled.driver().await("small, 1 MB")) << "opens towards the end of the line";
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST(LayoutDirection, columnsGetWiderTowardsTheirEdge) {
    for (const auto& [direction, key] :
         {std::pair(Qt::LeftToRight, Qt::Key_Right), std::pair(Qt::RightToLeft, Qt::Key_Left)}) {
        QGuiApplication::setLayoutDirection(direction);
        FilledWindow filled;
        filled.finishScan();
        filled.state().navigation()->setSection(AppSection::large);
        ASSERT_TRUE(filled.driver().tabTo("Category"));
        const QQuickItem* title = filled.window().window().activeFocusItem();
        const double before = title->width();
        filled.driver().key(key, Qt::ControlModifier);
        EXPECT_GT(title->width(), before) << direction;
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST(TextSize, followsTheSystemWhileTheProgramRuns) {
    FilledWindow filled;
    filled.window();
    filled.state().navigation()->setSection(AppSection::history);
    const auto height = [&] { return filled.driver().await("Clear History", QAccessible::Button)->height(); };
    const double before = height();
    const QFont usual = QGuiApplication::font();
    QFont large = usual;
    large.setPointSize(22);
    QApplication::setFont(large);
    EXPECT_TRUE(eventually([&] { return height() > 1.5 * before; }));
    QApplication::setFont(usual);
    EXPECT_TRUE(eventually([&] { return height() == before; }));
}

std::string nameOfSize(const testing::TestParamInfo<Size>& size) {
    return std::to_string(size.param.width) + "x" + std::to_string(size.param.height);
}

INSTANTIATE_TEST_SUITE_P(Sizes, Layout,
                         testing::Values(Size{900, 600}, Size{1200, 780}, Size{1920, 1080}, Size{2560, 1440}),
                         nameOfSize);
INSTANTIATE_TEST_SUITE_P(Sizes, FilledLayout, testing::Values(Size{900, 600}, Size{1200, 780}), nameOfSize);

} // namespace
} // namespace brimlet
