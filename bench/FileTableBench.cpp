// The table of all files with 500,000 rows: how long until a keystroke's, a sort's or a selection's result is
// on screen, and the longest stretch of the main thread that it takes. Run as: file-table-bench
#include "app/state/ScanState.h"
#include "core/TextFold.h"
#include "support/SyntheticTree.h"
#include "support/TestApp.h"
#include "support/Timing.h"
#include "views/base/LocaleFold.h"
#include "views/files/FileListModel.h"

#include <cstdio>
#include <functional>
#include <QCoreApplication>

using namespace brimlet;

namespace {

constexpr int rowCount = 500'000;
constexpr double answerLimit = 150;
constexpr double blockLimit = 16;

struct Measured {
    double answer = 0;       ///< milliseconds from the wish to the rows
    double longestBlock = 0; ///< of the main thread, within that
};

/// Runs the main thread's events one batch at a time and times each.
Measured measure(const std::function<void()>& wish, FileListModel& model, bool waitsForRows) {
    bool answered = !waitsForRows;
    const auto connection =
        QObject::connect(&model, &FileListModel::rowsChanged, &model, [&] { answered = true; });
    Measured measured;
    measured.answer = test::milliseconds([&] {
        measured.longestBlock = test::milliseconds(wish);
        while (!answered) {
            const double block = test::milliseconds([] { QCoreApplication::processEvents(); });
            measured.longestBlock = std::max(measured.longestBlock, block);
        }
    });
    QObject::disconnect(connection);
    return measured;
}

int report(const char* what, const Measured& measured) {
    const bool kept = measured.answer <= answerLimit && measured.longestBlock <= blockLimit;
    std::printf("%-46s %8.1f ms %12.2f ms %s\n", what, measured.answer, measured.longestBlock,
                kept ? "" : "  over the limit");
    return kept ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    setTextFold(foldForLocale);
    test::TestApp app;
    AppState& state = app.state();
    FilterEditor filter;
    FileListModel model;
    model.setFilter(&filter);
    model.setState(&state);
    state.scan()->startScan(ScanTarget::folder("/root"));
    app.walks.begun(0);
    app.walks.finish(0, test::randomScan(1, {.directories = 40'000, .files = rowCount}));
    test::eventually([&] { return model.count() == rowCount; });

    std::printf("%d files; at most %.0f ms and %.0f ms\n%-46s %11s %15s\n", rowCount, answerLimit, blockLimit,
                "", "answer", "main thread");
    int over = 0;
    const auto step = [&](const char* what, const std::function<void()>& wish, bool waits = true) {
        over += report(what, measure(wish, model, waits));
    };
    std::printf("%-46s %8.1f ms\n", "names made ready in the background, once", test::milliseconds([&] {
                    filter.setQuery(QStringLiteral("zzz"));
                    while (model.count() != 0)
                        QCoreApplication::processEvents();
                }));
    for (const char* query : {"f", "fi", "fil", "file-12", "9.jpg", "folder 12/fi", ""})
        step((std::string("filter \"") + query + "\"").c_str(),
             [&] { filter.setQuery(QString::fromUtf8(query)); });
    step("filter by size", [&] { filter.setSizeIndex(2); });
    step("no filter by size", [&] { filter.setSizeIndex(0); });
    const char* columns[] = {"name", "size", "kind", "category", "modified", "last opened", "file count"};
    for (int column = 0; column < NodeTableModel::Risk; ++column) {
        for (const char* direction : {"one way", "the other way"})
            step((std::string("sort by ") + columns[column] + ", " + direction).c_str(),
                 [&] { model.sortBy(column); });
    }
    step(
        "select all", [&] { model.selectAll(); }, false);
    step("sort with all selected", [&] { model.sortBy(NodeTableModel::Size); });
    step("read the tree again after a deletion",
         [&] { test::removeDeleted(state, {state.scan()->scan()->files.front()->path()}); });
    return over == 0 ? 0 : 1;
}
