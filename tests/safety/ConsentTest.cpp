// Consent is given to a thing: what has taken its place since, or at the last moment, stays.

#include "platform/linux/LinuxEntryLookup.h"
#include "safety/ItemReview.h"
#include "support/DeletionStage.h"
#include "support/TreeSnapshot.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace brimlet::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* changed = "It has changed since it was reviewed.";
constexpr Removal bothWays[] = {Removal::permanent, Removal::trash};

std::string onlyFailure(const ExecutedRun& run) {
    EXPECT_TRUE(run.entries.empty());
    EXPECT_TRUE(run.report.deletedPaths.empty());
    EXPECT_EQ(run.report.failures.size(), 1U);
    return run.report.failures.empty() ? std::string() : run.report.failures.front().reason;
}

/// What may happen to "home/Cache/item" between review and removal. Each leaves something at that path.
struct Change {
    const char* name;
    std::function<void(const DeletionStage&)> happen;
};

const Change changes[] = {
    {"its folder became a link",
     [](const DeletionStage& stage) {
         fs::rename(stage.home("Cache"), stage.home("Away"));
         stage.tree.symbolicLink("home/Cache", stage.home("Documents"));
     }},
    {"its folder became another",
     [](const DeletionStage& stage) {
         fs::rename(stage.home("Cache"), stage.home("Away"));
         fs::rename(stage.home("Documents"), stage.home("Cache"));
     }},
    {"its folder was made anew around it",
     [](const DeletionStage& stage) {
         fs::rename(stage.home("Cache"), stage.home("Away"));
         stage.tree.directory("home/Cache");
         fs::rename(stage.home("Away/item"), stage.home("Cache/item"));
     }},
    {"it became another of its kind",
     [](const DeletionStage& stage) {
         fs::rename(stage.home("Cache/item"), stage.home("Away"));
         fs::rename(stage.home("Documents/item"), stage.home("Cache/item"));
     }},
    {"it was made anew, perhaps with the same inode",
     [](const DeletionStage& stage) {
         fs::remove_all(stage.home("Cache/item"));
         stage.tree.fileWithText("home/Cache/item/new", "precious");
     }},
    {"it became a file",
     [](const DeletionStage& stage) {
         fs::remove_all(stage.home("Cache/item"));
         stage.tree.fileWithText("home/Cache/item", "precious");
     }},
    {"it became a link",
     [](const DeletionStage& stage) {
         fs::remove_all(stage.home("Cache/item"));
         stage.tree.symbolicLink("home/Cache/item", stage.home("Documents"));
     }},
};

TEST(Consent, whatIsAnotherThanWasReviewedStays) {
    for (const Change& change : changes) {
        for (const Removal how : bothWays) {
            SCOPED_TRACE(change.name);
            DeletionStage stage;
            stage.tree.fileWithText("home/Cache/item/file", "cached");
            stage.tree.fileWithText("home/Documents/item/file", "precious");
            const DeletionRequest request = DeletionStage::request(stage.home("Cache/item"), how);
            change.happen(stage);
            const auto before = snapshotOf(stage.home());
            EXPECT_EQ(onlyFailure(stage.executor.execute({request})), changed);
            EXPECT_EQ(snapshotOf(stage.home()), before);
        }
    }
}

TEST(Consent, whatWasNotThereWasNotReviewed) {
    for (const Removal how : bothWays) {
        DeletionStage stage;
        const DeletionRequest request = DeletionStage::request(stage.home("late"), how);
        EXPECT_EQ(onlyFailure(stage.executor.execute({request})), "No longer exists.");
        stage.tree.fileWithText("home/late", "precious");
        EXPECT_EQ(onlyFailure(stage.executor.execute({request})), changed);
        EXPECT_TRUE(stage.tree.exists("home/late"));
    }
}

TEST(Consent, whatChangesInsideItIsStillTheSame) {
    DeletionStage stage;
    stage.tree.fileWithText("home/Cache/item/file", "cached");
    const DeletionRequest request = DeletionStage::request(stage.home("Cache/item"), Removal::permanent);
    stage.tree.fileWithText("home/Cache/item/more", "cached");
    stage.tree.fileWithText("home/Cache/beside", "cached");
    fs::rename(stage.home("Cache"), stage.home("Moved"));
    stage.tree.symbolicLink("home/Cache", "Moved");
    EXPECT_EQ(stage.executor.execute({request}).entries.size(), 1U);
    EXPECT_TRUE(stage.tree.exists("home/Moved/beside"));
    EXPECT_FALSE(stage.tree.exists("home/Moved/item"));
}

/// The kernel knows no rename of "this very entry": what slips in between the last look and the rename goes
/// back to where it was.
TEST(Consent, whatSlipsInAtTheLastMomentGoesBack) {
    for (const Removal how : bothWays) {
        for (const bool isOtherDisk : {false, true}) {
            DeletionStage stage;
            stage.tree.fileWithText("home/Cache/item/file", "cached");
            stage.tree.fileWithText("home/Documents/file", "precious");
            if (isOtherDisk)
                stage.calls.separate(stage.trash());
            const DeletionRequest request = DeletionStage::request(stage.home("Cache/item"), how);
            bool isSwapped = false;
            stage.calls.onCall = [&](const SystemCall& call) {
                if (isSwapped || std::string_view(call.call) != "rename" ||
                    std::string_view(call.name) != "item")
                    return;
                isSwapped = true;
                fs::rename(stage.home("Cache/item"), stage.home("Away"));
                fs::rename(stage.home("Documents"), stage.home("Cache/item"));
            };
            EXPECT_EQ(onlyFailure(stage.executor.execute({request})), changed);
            EXPECT_TRUE(isSwapped);
            EXPECT_TRUE(stage.tree.exists("home/Cache/item/file"));
            EXPECT_EQ(snapshotOf(stage.home("Cache/item")).size(), 2U);
            EXPECT_TRUE(stage.trashNames().empty());
            EXPECT_FALSE(stage.hasScratch());
        }
    }
}

TEST(Consent, aPlaceBehindALinkIsNoRiskierThanWasAccepted) {
    const struct {
        Risk there;
        Risk accepted;
        bool goes;
    } cases[] = {{Risk::safe, Risk::safe, true},
                 {Risk::review, Risk::safe, false},
                 {Risk::review, Risk::review, true},
                 {Risk::protected_, Risk::review, false}};
    for (const auto& one : cases) {
        DeletionStage stage;
        stage.tree.fileWithText("home/Documents/item", "text");
        stage.tree.symbolicLink("home/Cache", stage.home("Documents"));
        stage.verdicts[stage.home("Documents/item")] = {one.there, "Where it lies."};
        DeletionRequest request = DeletionStage::request(stage.home("Cache/item"), Removal::permanent);
        request.acceptedRisk = one.accepted;
        const ExecutedRun run = stage.executor.execute({request});
        EXPECT_EQ(run.entries.size(), one.goes ? 1U : 0U);
        EXPECT_EQ(stage.tree.exists("home/Documents/item"), !one.goes);
        EXPECT_EQ(run.report.skippedProtected.size(), one.there == Risk::protected_ ? 1U : 0U);
    }
}

TEST(ItemReview, tellsTheStricterVerdictAndWhatIsThere) {
    DeletionStage stage;
    stage.tree.fileWithText("home/Documents/item", "text");
    stage.tree.symbolicLink("home/Cache", "Documents");
    const LinuxEntryLookup entries;
    const ItemReview review(
        [&](std::string_view path) {
            return path == stage.home("Documents/item") ? SafetyVerdict{Risk::review, "Personal."}
                                                        : SafetyVerdict{Risk::safe, "Cache."};
        },
        [&] { return ProtectedPlaces({}, entries); }, entries);
    const auto items = review.review({stage.home("Cache/item"), stage.home("Cache"), stage.home("gone"),
                                      "relative", "/", stage.home("Documents/../Documents/item")});
    ASSERT_EQ(items.size(), 6U);
    EXPECT_EQ(items[0].verdict, (SafetyVerdict{Risk::review, "Personal."}));
    EXPECT_EQ(items[0].identity, entries.find(stage.home("Documents/item"))->identity);
    EXPECT_EQ(items[1].verdict.risk, Risk::safe) << "a link is removed as a link";
    EXPECT_NE(items[1].identity, std::nullopt);
    for (std::size_t i = 2; i < items.size(); ++i)
        EXPECT_EQ(items[i].identity, std::nullopt) << i;
}

TEST(ItemReview, opensEachFolderOnceForAllItsItems) {
    DeletionStage stage;
    stage.tree.symbolicLink("home/link", "0");
    std::vector<std::string> paths;
    for (const char* folder : {"0", "link", "1"}) {
        for (int item = 0; item < 50; ++item)
            paths.push_back(stage.home(std::string(folder) + "/" + std::to_string(item)));
    }
    for (int folder = 0; folder < 2; ++folder) {
        for (int item = 0; item < 50; item += 2)
            stage.tree.file("home/" + std::to_string(folder) + "/" + std::to_string(item));
    }
    std::shuffle(paths.begin(), paths.end(), std::mt19937(1));
    int opened = 0;
    stage.calls.onCall = [&](const SystemCall& call) {
        opened += std::string_view(call.call) == "open" ? 1 : 0;
    };
    const LinuxEntryLookup entries(stage.calls);
    const auto judge = [](std::string_view path) { return SafetyVerdict{Risk::safe, std::string(path)}; };
    const ItemReview review(
        judge, [&] { return ProtectedPlaces({}, entries); }, entries);
    const std::vector<ReviewedItem> items = review.review(paths);
    EXPECT_EQ(opened, 3);
    ASSERT_EQ(items.size(), paths.size());
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const auto alone = LinuxEntryLookup().find(paths[i]);
        EXPECT_EQ(items[i].verdict.reason, paths[i]) << "each answer stands at the place of its path";
        EXPECT_EQ(items[i].identity, alone ? std::optional(alone->identity) : std::nullopt) << paths[i];
    }
    EXPECT_EQ(std::ranges::count_if(items, [](const auto& item) { return item.identity.has_value(); }), 75);
}

} // namespace
} // namespace brimlet::test
