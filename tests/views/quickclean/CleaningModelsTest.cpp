// The models behind Quick Clean, the sheet, Junk and History, without a window.
#include "app/state/JunkState.h"
#include "app/state/NoticeState.h"
#include "app/state/PreferencesState.h"
#include "app/state/QuickCleanState.h"
#include "app/state/RemovalState.h"
#include "support/MadeUpJunk.h"
#include "support/TestApp.h"
#include "support/Timing.h"
#include "views/history/HistoryModel.h"
#include "views/junk/JunkModel.h"
#include "views/quickclean/ReviewModel.h"
#include "views/quickclean/SmartCleanModel.h"
#include "views/removal/PlanModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace brimlet {
namespace {

using test::eventually;
using test::longFinding;
using test::madeUpFinding;
using test::TestApp;
using ::testing::ElementsAre;

constexpr auto reporting =
    QAbstractItemModelTester::FailureReportingMode::Warning; // a warning fails the test

QStringList column(const QAbstractItemModel& model, int role) {
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts.append(model.index(row, 0).data(role).toString());
    return texts;
}

void publish(TestApp& app, std::vector<JunkFinding> junk) {
    app.junkSearch = [junk = std::move(junk)] { return junk; };
    app.state().junk()->load();
    ASSERT_TRUE(eventually([&] { return !app.state().junk()->isLoading(); }));
}

TEST(JunkModel, opensARuleToAtMostThreeHundredItemsAndSaysHowManyMore) {
    TestApp app;
    publish(app, {longFinding("npm-cache", 1'302), madeUpFinding("user-caches", {{"a", 5}})});
    JunkModel model;
    const QAbstractItemModelTester tester(&model, reporting);
    model.setState(&app.state());
    EXPECT_EQ(column(model, JunkModel::kind), (QStringList{"group", "rule", "group", "rule"}));
    EXPECT_EQ(column(model, JunkModel::title),
              (QStringList{"System Junk", "App caches", "Developer", "npm cache"}));

    model.setExpanded(3, true);
    ASSERT_EQ(model.rowCount(), 4 + 301);
    EXPECT_EQ(model.index(304).data(JunkModel::title).toString(), "… and 1,002 more");
    model.toggleTick(3);
    EXPECT_EQ(model.selectedCount(), 1'302) << "also what isn't listed";
    model.toggleTick(4);
    EXPECT_EQ(model.index(3).data(JunkModel::tick).toInt(), 1);
    EXPECT_EQ(model.index(4).data(JunkModel::tick).toInt(), 0);
    model.toggleTick(304);
    model.toggleTick(2);
    EXPECT_EQ(model.selectedCount(), 1'301) << "a heading and the last line have no box";

    model.setExpanded(3, false);
    EXPECT_EQ(model.rowCount(), 4);
    ASSERT_TRUE(test::removeDeleted(app.state(), {"/junk/npm-cache/item 7", "/junk/user-caches/a"}));
    EXPECT_EQ(model.selectedCount(), 1'300);
    EXPECT_EQ(model.index(1).data(JunkModel::size).toLongLong(), 0);
}

TEST(JunkModel, revealsAndPlansTheItemsThatItShows) {
    TestApp app;
    publish(app, {madeUpFinding("old-installers", {{"x.dmg", 9}, {"y.pkg", 4}})});
    JunkModel model;
    model.setState(&app.state());
    model.setExpanded(1, true);
    model.reveal(3);
    model.reveal(1);
    EXPECT_EQ(std::ranges::count_if(app.log, [](const auto& line) { return line.starts_with("reveal"); }), 1);
    EXPECT_EQ(app.log.back(), "reveal /junk/old-installers/y.pkg");

    model.toggleTick(3);
    model.clean();
    ASSERT_TRUE(eventually([&] { return app.state().removal()->plan() != nullptr; }));
    ASSERT_EQ(app.state().removal()->plan()->items.size(), 1U);
    EXPECT_EQ(app.state().removal()->plan()->items[0].path, "/junk/old-installers/y.pkg");
    EXPECT_EQ(app.state().removal()->plan()->items[0].removal, Removal::trash);
}

TEST(ReviewModel, groupsFindingsInTheHeadingsOrder) {
    TestApp app;
    publish(app, {madeUpFinding("ios-backups", {{"phone", 900}}), madeUpFinding("user-logs", {{"log", 80}}),
                  madeUpFinding("user-caches", {{"a", 30}})});
    ReviewModel model;
    const QAbstractItemModelTester tester(&model, reporting);
    model.setState(&app.state());
    EXPECT_EQ(column(model, ReviewModel::title), (QStringList{"System Junk", "iPhone & iPad"}));
    EXPECT_EQ(model.index(0).data(ReviewModel::total).toLongLong(), 110);
    QStringList rules;
    for (const QVariant& rule : model.index(0).data(ReviewModel::findings).toList())
        rules.append(rule.value<ReviewRule>().ruleId);
    EXPECT_EQ(rules, (QStringList{"user-logs", "user-caches"}));
}

PlanItem planItem(const char* name, std::int64_t size, Risk risk) {
    return {std::string("/Users/sam/") + name, name, size, Removal::trash, {risk, "because"}};
}

TEST(PlanModel, sortsRowsByRiskAndCountsReviewOnlyWhenAccepted) {
    TestApp app;
    PlanModel model;
    const QAbstractItemModelTester tester(&model, reporting);
    model.setState(&app.state());
    app.state().removal()->proposePlan({planItem("lock", 1, Risk::protected_),
                                        planItem("b", 20, Risk::review), planItem("a", 300, Risk::safe),
                                        planItem("c", 4'000, Risk::review)},
                                       "Clean Junk");
    EXPECT_EQ(model.checkingNote(), "Checking 4 item(s) · 4 KB…");
    EXPECT_FALSE(model.canDelete());
    ASSERT_TRUE(eventually([&] { return app.state().removal()->plan() != nullptr; }));
    EXPECT_EQ(model.checkingNote(), "");
    EXPECT_EQ(column(model, PlanModel::name),
              (QStringList{"Safe", "a", "Review", "b", "c", "Protected", "lock"}));
    EXPECT_EQ(model.index(2).data(PlanModel::size).toLongLong(), 4'020);
    EXPECT_EQ(model.total(), 300);
    EXPECT_EQ(model.reviewConsent(), "I’ve reviewed the 2 item(s) marked **Review** and want to delete them");
    EXPECT_EQ(model.protectedNote(), "1 protected item(s) won’t be touched.");
    model.setAcceptedReview(true);
    EXPECT_EQ(model.total(), 4'320);
    app.state().removal()->proposePlan({planItem("b", 20, Risk::review)}, "Clean Junk");
    EXPECT_FALSE(model.acceptedReview()) << "each plan asks anew";
}

TEST(PlanModel, deletesOnlyWhereSomethingWouldGo) {
    struct Case {
        std::vector<PlanItem> items;
        bool before;
        bool accepted;
    };
    const Case cases[] = {{{planItem("a", 1, Risk::safe)}, true, true},
                          {{planItem("a", 1, Risk::review)}, false, true},
                          {{planItem("a", 1, Risk::protected_)}, false, false}};
    for (const Case& one : cases) {
        TestApp app;
        PlanModel model;
        model.setState(&app.state());
        app.state().removal()->proposePlan(one.items, "Clean Junk");
        ASSERT_TRUE(eventually([&] { return app.state().removal()->plan() != nullptr; }));
        EXPECT_EQ(model.canDelete(), one.before);
        model.setAcceptedReview(true);
        EXPECT_EQ(model.canDelete(), one.accepted);
    }
}

TEST(PlanModel, speaksOfPermanentDeletionWhereThatIsWanted) {
    TestApp app;
    PlanModel model;
    model.setState(&app.state());
    EXPECT_EQ(model.deleteLabel(), "Delete");
    QSignalSpy changed(&model, &PlanModel::explanationChanged);
    app.state().preferences()->setPermanentDelete(true);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(model.deleteLabel(), "Delete Permanently");
    EXPECT_EQ(model.explanation(), "These will be deleted permanently. They can't be recovered.");
}

TEST(HistoryModel, tellsTheMethodAndWhetherTheWayBackIsOpen) {
    TestApp app;
    const auto entry = [&](const char* name, const char* inTrash, bool restored = false) {
        HistoryEntry made;
        made.originalPath = app.disk.path(name);
        if (inTrash != nullptr)
            made.trashPath = app.disk.path(inTrash);
        made.restored = restored;
        return made;
    };
    app.disk.file(".Trash/back", 10);
    app.disk.file(".Trash/taken", 10);
    app.disk.file("taken", 10);
    const HistoryEntry first = entry("back", ".Trash/back");
    app.history.append({first, entry("taken", ".Trash/taken"), entry("emptied", ".Trash/emptied"),
                        entry("gone", nullptr), entry("was back", ".Trash/back", true)});
    HistoryModel model;
    const QAbstractItemModelTester tester(&model, reporting);
    model.setState(&app.state());
    ASSERT_TRUE(eventually(
        [&] { return model.count() == 5 && app.state().removal()->removals().isRestorable(first.id); }));
    EXPECT_EQ(column(model, HistoryModel::method),
              (QStringList{"Trash", "Trash", "Trash", "Deleted", "Restored"}));
    EXPECT_EQ(column(model, HistoryModel::restorable),
              (QStringList{"true", "false", "false", "false", "false"}));

    model.select(1, HistoryModel::Replace);
    model.select(4, HistoryModel::Extend);
    model.select(2, HistoryModel::Toggle);
    EXPECT_EQ(column(model, HistoryModel::selected), (QStringList{"false", "true", "false", "true", "true"}));
    model.restore(0);
    ASSERT_TRUE(eventually([&] { return model.index(0).data(HistoryModel::method) == "Restored"; }));
    EXPECT_TRUE(app.disk.exists("back"));
    EXPECT_EQ(model.index(1).data(HistoryModel::selected).toBool(), true) << "the selection stays";
}

TEST(SmartCleanModel, reportHasALineForEachThingThatHappened) {
    struct Case {
        DeletionReport report;
        QString title;
        QStringList lines;
    };
    const DeletionFailure failure;
    const Case cases[] = {
        {{}, "Zero KB cleaned", {"You now have 5 KB free."}},
        {{2'000, 0, {"/a"}, {}, {failure}, {}}, "2 KB cleaned", {"You now have 5 KB free."}},
        {{2'000, 3'000, {"/a"}, {failure, failure}, {}, {}},
         "5 KB cleaned",
         {"3 KB is in the Trash until you empty it.",
          "2 item(s) were in use or protected and were left untouched.", "You now have 5 KB free."}},
    };
    for (const Case& one : cases) {
        TestApp app;
        app.volumes.info = VolumeInfo{"Disk", 9'000, 5'000, 5'000};
        publish(app, {madeUpFinding("trash", {{"old", 1}})});
        app.deletionRun = [&](const auto&, const auto&) { return ExecutedRun{one.report, {}, {}, nullptr}; };
        SmartCleanModel model;
        model.setState(&app.state());
        EXPECT_EQ(model.cleanedLine(), "");
        app.state().quickClean()->startSmartClean();
        ASSERT_TRUE(eventually([&] { return app.state().notice()->toast().has_value(); }));
        app.clock.advance(std::chrono::seconds(2));
        EXPECT_EQ(model.cleanedLine(), one.title);
        EXPECT_EQ(model.reportLines(), one.lines);
    }
}

} // namespace
} // namespace brimlet
