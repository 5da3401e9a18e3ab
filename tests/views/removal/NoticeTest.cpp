// What the notice and the sheet tell about the items of a removal.
#include "app/state/NoticeState.h"
#include "app/state/RemovalState.h"
#include "support/FilledWindow.h"
#include "views/removal/PlanModel.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace brimlet {
namespace {

using test::eventually;

TEST(Notice, tellsWhatTheCopiesLackOnce) {
    test::FilledWindow filled;
    const std::string lacks = "The other disk can't store all of its attributes, so some were left out.";
    filled.app.deletionRun = [&](const std::vector<DeletionRequest>& requests, const std::stop_token&) {
        ExecutedRun run;
        for (const char* name : {"one", "two"})
            run.report.remarks.push_back({Uuid::random(), std::string("/Users/sam/") + name, lacks});
        run.report.movedToTrash = requests.front().size;
        return run;
    };
    filled.window();
    filled.showMixedPlan();
    ASSERT_TRUE(filled.driver().click("Delete", QAccessible::Button));
    ASSERT_TRUE(eventually([&] { return filled.state().notice()->toast().has_value(); }));
    EXPECT_EQ(filled.state().notice()->toast()->detail, lacks);
}

TEST(Sheet, showsWhatAnItemIsWhateverItIsCalled) {
    test::TestApp app;
    PlanModel model;
    model.setState(&app.state());
    std::vector<PlanItem> items(2);
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i].name = i == 0 ? "Folder.pdf" : "a file without a suffix";
        items[i].path = "/Users/sam/" + items[i].name;
        items[i].identity =
            PlacedIdentity{{1, 2 + i, static_cast<std::uint32_t>(i == 0 ? S_IFDIR : S_IFREG)}, {}};
        items[i].verdict = {Risk::safe, "It can go."};
    }
    app.state().removal()->proposePlan(items, "Delete Items");
    ASSERT_TRUE(eventually([&] { return model.rowCount() == 3; }));
    for (int row = 1; row <= 2; ++row) {
        const QModelIndex index = model.index(row);
        EXPECT_EQ(model.data(index, PlanModel::directory).toBool(),
                  model.data(index, PlanModel::name).toString() == "Folder.pdf");
    }
}

} // namespace
} // namespace brimlet
