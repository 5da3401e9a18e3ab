// Lists whose rows come and go while someone reads them.
#include "app/state/JunkState.h"
#include "app/state/RemovalState.h"
#include "support/MadeUpJunk.h"
#include "support/TestHome.h"
#include "views/history/HistoryModel.h"
#include "views/junk/JunkModel.h"

#include <gtest/gtest.h>
#include <QAbstractItemModelTester>
#include <QQuickItem>
#include <QSignalSpy>

namespace brimlet {
namespace {

using test::eventually;
using test::madeUpFinding;
using test::TestApp;
using test::TestWindow;

constexpr auto reporting =
    QAbstractItemModelTester::FailureReportingMode::Warning; // a warning fails the test

HistoryEntry entryNamed(int number) {
    HistoryEntry entry;
    entry.originalPath = "/Users/sam/item " + std::to_string(number);
    entry.size = 1'000 * number;
    return entry;
}

void fillHistory(TestApp& app, int count) {
    std::vector<HistoryEntry> entries;
    for (int number = 0; number < count; ++number)
        entries.push_back(entryNamed(number));
    app.history.append(entries);
}

/// As after a run that has deleted these.
bool recordAsDeleted(TestApp& app, std::vector<HistoryEntry> entries) {
    const std::size_t expected = app.state().removal()->history().size() + entries.size();
    app.deletionRun = [entries = std::move(entries)](const auto&, const auto&) {
        return ExecutedRun{{}, entries, {}, nullptr};
    };
    app.state().removal()->runDeletion([] { return std::vector<DeletionRequest>(); }, RunNotice::quiet, {});
    return eventually([&] { return app.state().removal()->history().size() == expected; });
}

TEST(ListChanges, theHistoryTellsOnlyWhatIsNew) {
    TestApp app;
    fillHistory(app, 5);
    HistoryModel model;
    const QAbstractItemModelTester tester(&model, reporting);
    model.setState(&app.state());
    ASSERT_TRUE(eventually([&] { return model.rowCount() == 5; }));
    model.select(1, HistoryModel::Replace);
    const QString chosen = model.index(1).data(HistoryModel::name).toString();
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    const QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);

    ASSERT_TRUE(recordAsDeleted(app, {entryNamed(100), entryNamed(101)}));

    EXPECT_EQ(resets.count(), 0);
    ASSERT_EQ(inserted.count(), 1);
    EXPECT_EQ(inserted[0][1].toInt(), 0);
    EXPECT_EQ(inserted[0][2].toInt(), 1);
    EXPECT_EQ(model.index(3).data(HistoryModel::name).toString(), chosen);
    model.select(5, HistoryModel::Extend);
    int selected = 0;
    for (int row = 0; row < model.rowCount(); ++row)
        selected += model.index(row).data(HistoryModel::selected).toBool() ? 1 : 0;
    EXPECT_EQ(selected, 3) << "a range still begins at the row that was chosen";
    app.state().removal()->clearHistory();
    EXPECT_TRUE(eventually([&] { return model.rowCount() == 0; }));
    EXPECT_EQ(resets.count(), 0);
}

TEST(ListChanges, aNewJunkSearchLeavesTheRowsThatItFindsAgain) {
    TestApp app;
    const auto search = [&](std::vector<JunkFinding> junk) {
        app.junkSearch = [junk = std::move(junk)] { return junk; };
        app.state().junk()->load();
        ASSERT_TRUE(eventually([&] { return !app.state().junk()->isLoading(); }));
    };
    search({madeUpFinding("user-caches", {{"a", 5}, {"b", 4}, {"c", 3}}),
            madeUpFinding("user-logs", {{"old.log", 2}}), madeUpFinding("npm-cache", {{"x", 1}})});
    JunkModel model;
    const QAbstractItemModelTester tester(&model, reporting);
    model.setState(&app.state());
    model.setExpanded(1, true);
    ASSERT_EQ(model.rowCount(), 8);
    QStringList cameOrWent;
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QObject::connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved,
                     [&](const auto&, int first, int last) {
                         cameOrWent << QStringLiteral("-%1..%2").arg(first).arg(last);
                     });
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, [&](const auto&, int first, int last) {
        cameOrWent << QStringLiteral("+%1..%2").arg(first).arg(last);
    });

    search({madeUpFinding("npm-cache", {{"x", 1}}),
            madeUpFinding("user-caches", {{"a", 5}, {"c", 3}, {"d", 9}})});

    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(cameOrWent, (QStringList{"-5..5", "-3..3", "+4..4"}));
    EXPECT_EQ(model.index(4).data(JunkModel::title).toString(), "d");
    EXPECT_EQ(model.index(1).data(JunkModel::size).toLongLong(), 17);
}

TEST(ListChanges, theHistoryKeepsItsPlaceInTheWindow) {
    TestApp app;
    fillHistory(app, 200);
    app.preferences.values["initialSection"] = std::string("history");
    TestWindow window(app);
    QQuickItem* const list = window.driver().await("Deleted items");
    ASSERT_NE(list, nullptr);
    ASSERT_TRUE(eventually([&] { return list->property("count").toInt() == 200; }));
    test::handleEvents();
    QMetaObject::invokeMethod(list, "positionViewAtIndex", Q_ARG(int, 100), Q_ARG(int, 0));
    test::handleEvents();
    QQuickItem* const row = window.driver().find("item 101, 101 KB, Deleted");
    ASSERT_NE(row, nullptr);
    const double before = row->mapToScene({0, 0}).y();

    ASSERT_TRUE(recordAsDeleted(app, {entryNamed(1'000), entryNamed(1'001)}));
    test::handleEvents();

    QQuickItem* const after = window.driver().find("item 101, 101 KB, Deleted");
    ASSERT_NE(after, nullptr);
    EXPECT_NEAR(after->mapToScene({0, 0}).y(), before, 1);
}

} // namespace
} // namespace brimlet
