// How long a frame takes while a long list scrolls by most of a page: from the change to the rendered
// picture. The real window over made-up data, drawn by the software renderer. Run as: scroll-bench
#include "app/state/JunkState.h"
#include "app/state/NavigationState.h"
#include "app/state/RemovalState.h"
#include "app/state/ScanState.h"
#include "support/MadeUpJunk.h"
#include "support/SyntheticTree.h"
#include "support/TestWindow.h"
#include "support/Timing.h"
#include "tables/SystemTables.h"
#include "views/junk/JunkModel.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <QQuickItem>
#include <QWheelEvent>

using namespace brimlet;

namespace {

constexpr int windowWidth = 1200;
constexpr int windowHeight = 780;
constexpr int frameCount = 200;
constexpr int pixelsAFrame = 700;
constexpr double frameLimit = 16.7; ///< milliseconds at the 95th percentile: 60 pictures a second

double percentile(std::vector<double>& values, std::size_t percent) {
    std::ranges::sort(values);
    return values[std::min(values.size() - 1, values.size() * percent / 100)];
}

/// Each frame has whatever events it brings about, and the picture, which must be another one.
int report(const char* what, QQuickWindow& window, const std::function<void()>& scroll) {
    QImage before = window.grabWindow();
    std::vector<double> frames;
    std::vector<double> work; // of the main thread, which also renders; other programs don't lengthen it
    for (int i = 0; i < frameCount; ++i) {
        QImage after;
        const double workBefore = test::processorMilliseconds();
        frames.push_back(test::milliseconds([&] {
            scroll();
            QCoreApplication::processEvents();
            after = window.grabWindow();
        }));
        work.push_back(test::processorMilliseconds() - workBefore);
        if (after == before)
            qFatal("The list doesn't scroll");
        before = after;
    }
    const double late = percentile(frames, 95);
    std::printf("%-38s %8.1f %8.1f %8.1f %8.1f %8.1f%s\n", what, percentile(frames, 50), late,
                percentile(frames, 100), percentile(work, 50), percentile(work, 95),
                late <= frameLimit ? "" : "  over the limit");
    return late <= frameLimit ? 0 : 1;
}

QQuickItem* require(QQuickItem* item) {
    if (item == nullptr)
        qFatal("The list isn't there");
    return item;
}

/// Scrolls a list until its end, then the same way again.
int reportList(const char* what, test::TestWindow& window, const QString& name) {
    QQuickItem* list = require(window.driver().await(name, QAccessible::List));
    return report(what, window.window(), [list] {
        const double top = list->property("originY").toDouble();
        const double bottom = top + list->property("contentHeight").toDouble() - list->height();
        const double wanted = list->property("contentY").toDouble() + pixelsAFrame;
        list->setProperty("contentY", wanted > bottom ? top : wanted);
    });
}

int reportFiles() {
    constexpr int rows = 500'000;
    test::TestApp app;
    app.preferences.values["initialSection"] = std::string("large");
    test::TestWindow window(app);
    window.resize(windowWidth, windowHeight);
    app.state().scan()->startScan(ScanTarget::folder("/root"));
    app.walks.begun(0);
    app.walks.finish(0, test::randomScan(1, {.directories = 40'000, .files = rows}));
    const QQuickItem* table = require(window.driver().await("Files", QAccessible::Table));
    const QPointF middle = table->mapToScene(QPointF(table->width() / 2, table->height() / 2));
    return report("Large & Old, 500,000 rows", window.window(), [&] {
        QWheelEvent wheel(middle, window.window().mapToGlobal(middle), {0, -pixelsAFrame}, {0, -pixelsAFrame},
                          Qt::NoButton, Qt::NoModifier, Qt::ScrollUpdate, false);
        QCoreApplication::sendEvent(&window.window(), &wheel);
    });
}

int reportJunk() {
    constexpr std::size_t ruleCount = 10;
    constexpr std::int64_t itemsOfRule = 5'000;
    test::TestApp app;
    app.junkSearch = [] {
        std::vector<JunkFinding> junk;
        for (const JunkRule& rule : macosTables().junk.rules.first(ruleCount))
            junk.push_back(test::longFinding(rule.id, itemsOfRule));
        return junk;
    };
    test::TestWindow window(app);
    window.resize(windowWidth, windowHeight);
    app.state().navigation()->setSection(AppSection::junk);
    app.state().junk()->load();
    test::eventually([&] { return !app.state().junk()->isLoading(); });
    const QQuickItem* list = require(window.driver().await("Found junk", QAccessible::List));
    auto* model = qobject_cast<JunkModel*>(list->property("model").value<QObject*>());
    for (int row = model->rowCount() - 1; row >= 0; --row)
        model->setExpanded(row, true);
    const QByteArray what = "Junk, " + QByteArray::number(model->rowCount()) + " rows of 50,000 items";
    return reportList(what.constData(), window, "Found junk");
}

int reportSheet() {
    test::TestApp app;
    test::TestWindow window(app);
    window.resize(windowWidth, windowHeight);
    std::vector<PlanItem> items;
    for (const JunkItem& item : test::longFinding("user-caches", 40'000).items)
        items.push_back({item.path, "item", item.size, Removal::trash, {Risk::safe, "because"}});
    app.state().removal()->proposePlan(items, "Clean Junk");
    test::eventually([&] { return app.state().removal()->plan() != nullptr; });
    return reportList("confirmation sheet, 40,000 rows", window, "Items of the plan");
}

/// Every item is in the Trash and can be put back.
int reportHistory() {
    constexpr int rows = 5'000;
    test::TestApp app;
    std::vector<HistoryEntry> entries;
    for (int i = 0; i < rows; ++i) {
        const std::string name = "item " + std::to_string(i);
        app.disk.file(".Trash/" + name, 10);
        entries.push_back(
            {Uuid::random(), 8e8 - i, app.disk.path(name), app.disk.path(".Trash/" + name), 10});
    }
    app.history.append(entries);
    test::TestWindow window(app);
    window.resize(windowWidth, windowHeight);
    app.state().navigation()->setSection(AppSection::history);
    return reportList("History, 5,000 rows", window, "Deleted items");
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir runtimeFolder; // a session's own folder; a bare machine has none
    qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toLocal8Bit());
    test::prepareWindowTests();
    const QApplication application(argc, argv);
    test::prepareWindow();
    std::printf("%d frames of %d px, window %d×%d; at most %.1f ms at the 95th percentile\n%-38s %8s %8s %8s "
                "%8s %8s\n",
                frameCount, pixelsAFrame, windowWidth, windowHeight, frameLimit, "", "median", "95th",
                "worst", "work", "95th");
    int over = 0;
    for (int (*part)() : {reportFiles, reportJunk, reportSheet, reportHistory})
        over += part();
    return over == 0 ? 0 : 1;
}
