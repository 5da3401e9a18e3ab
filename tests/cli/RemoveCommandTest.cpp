// `remove`, `history` and `restore` of the built program, each in a home folder of its own.

#include "core/walk/MeasureTree.h"
#include "platform/ScratchName.h"
#include "safety/HistoryFormat.h"
#include "safety/RunJournal.h"
#include "support/Program.h"
#include "support/TemporaryTree.h"
#include "support/TreeSnapshot.h"
#include "json/Json.h"

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brimlet {
namespace {

using test::Outcome;
using testing::HasSubstr;
using testing::Not;

class RemoveCommandTest : public testing::Test {
protected:
    test::TemporaryTree home;
    std::string safe = home.file("Downloads/old.txt", 10'000);
    std::string review = home.file("Documents/letter.txt", 5'000);
    std::string protectedFolder = home.directory("Library/Caches");

    Outcome run(const std::vector<std::string>& arguments, std::string_view input = {}) const {
        return test::runProgram(BRIMLET_CLI, arguments, {{"HOME", home.root()}}, input);
    }
    Json runJson(const std::vector<std::string>& arguments) const {
        const Outcome outcome = run(arguments);
        auto document = readJson(outcome.output);
        EXPECT_TRUE(document) << outcome.output << outcome.error;
        return document.value_or(Json());
    }
    Json history() const { return runJson({"history", "--json"}); }
};

TEST_F(RemoveCommandTest, dryRunShowsThePlanByRiskAndChangesNothing) {
    const auto before = test::snapshotOf(home.root());
    const Outcome outcome = run({"remove", "--dry-run", review, protectedFolder, safe});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_EQ(test::snapshotOf(home.root()), before);
    std::size_t last = 0;
    for (const std::string& text :
         {std::string("Safe\n"), safe, std::string("Make sure you don’t need it."),
          std::string("Review (left out without --include-review)\n"), review, std::string("Personal file."),
          std::string("Protected (never removed)\n"), protectedFolder}) {
        const std::size_t at = outcome.output.find(text, last);
        ASSERT_NE(at, std::string::npos) << text << " is missing or too early in\n" << outcome.output;
        last = at;
    }
    EXPECT_THAT(run({"remove", "--dry-run", "--include-review", review}).output, HasSubstr("Review\n"));
}

TEST_F(RemoveCommandTest, dryRunJsonIsThePlanWithoutNestedItems) {
    const std::string folder = home.path("Documents");
    const Json plan = runJson({"remove", "--dry-run", "--json", folder + "/", review, safe});
    ASSERT_EQ(plan.at("items").size(), 2U);
    const Json& first = plan.at("items")[0];
    EXPECT_EQ(bytesOf(first.at("path")), folder);
    EXPECT_EQ(bytesOf(first.at("name")), "Documents");
    EXPECT_EQ(first.at("size"), measureTree(folder).bytes);
    EXPECT_EQ(first.at("removal"), "trash");
    EXPECT_EQ(first.at("verdict").at("risk"), "protected");
    EXPECT_EQ(plan.at("items")[1].at("verdict").at("risk"), "safe");
}

TEST_F(RemoveCommandTest, onlyAYesGoesAhead) {
    for (const char* answer : {"", "n\n", "\n", "perhaps\n"}) {
        const Outcome outcome = run({"remove", safe}, answer);
        EXPECT_EQ(outcome.status, 2) << answer;
        EXPECT_THAT(outcome.error, HasSubstr("to the Trash? [y/N]"));
        EXPECT_TRUE(home.exists("Downloads/old.txt")) << answer;
    }
    EXPECT_EQ(run({"remove", safe}, "y\n").status, 0);
    EXPECT_FALSE(home.exists("Downloads/old.txt"));
    EXPECT_TRUE(home.exists(".Trash/old.txt"));
}

TEST_F(RemoveCommandTest, onlyWhatIsSafeOrAcceptedLeavesItsPlace) {
    const Outcome outcome = run({"remove", "--yes", safe, review, protectedFolder});
    EXPECT_EQ(outcome.status, 1) << "some items stay";
    EXPECT_TRUE(home.exists(".Trash/old.txt"));
    EXPECT_TRUE(home.exists("Documents/letter.txt"));
    EXPECT_TRUE(home.exists("Library/Caches"));
    EXPECT_EQ(run({"remove", "--yes", protectedFolder}).status, 2) << "nothing was done";
    EXPECT_EQ(run({"remove", "--yes", "--include-review", review, protectedFolder}).status, 1);
    EXPECT_TRUE(home.exists(".Trash/letter.txt"));
    EXPECT_TRUE(home.exists("Library/Caches"));
}

TEST_F(RemoveCommandTest, aLinkOnTheWayDoesNotHideWhatIsProtected) {
    home.directory("Library/Mail/V10");
    home.symbolicLink("Downloads/link", home.path("Library"));
    const std::string hidden = home.path("Downloads/link/Caches");
    EXPECT_EQ(run({"remove", "--yes", "--include-review", hidden}).status, 2);
    EXPECT_TRUE(home.exists("Library/Caches"));
}

TEST_F(RemoveCommandTest, reportTellsWhatBecameOfEachPath) {
    const std::int64_t size = measureTree(safe).bytes;
    const Json moved = runJson({"remove", "--yes", "--json", safe, home.path("Downloads/nothing")});
    EXPECT_EQ(moved.at("freed"), 0);
    EXPECT_EQ(moved.at("movedToTrash"), size);
    ASSERT_EQ(moved.at("deletedPaths").size(), 1U);
    EXPECT_EQ(bytesOf(moved.at("deletedPaths")[0]), safe);
    ASSERT_EQ(moved.at("failures").size(), 1U);
    EXPECT_EQ(moved.at("failures")[0].at("reason"), "No longer exists.");
    EXPECT_EQ(moved.at("skippedProtected").size(), 0U);
}

TEST_F(RemoveCommandTest, permanentRemovalHasNoWayBack) {
    const std::int64_t size = measureTree(safe).bytes;
    const Json report = runJson({"remove", "--yes", "--json", "--permanent", safe});
    EXPECT_EQ(report.at("freed"), size);
    EXPECT_EQ(report.at("movedToTrash"), 0);
    EXPECT_FALSE(home.exists(".Trash/old.txt"));
    const Json entries = history();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_FALSE(entries[0].contains("trashPath"));
    EXPECT_EQ(run({"restore", entries[0].at("id").get<std::string>()}).status, 2);
    EXPECT_EQ(run({"restore", "--last"}).status, 2);
}

TEST_F(RemoveCommandTest, anInterruptLeavesTheRestInItsPlace) {
    constexpr int files = 40'000;
    for (int i = 0; i < files; ++i)
        home.file("Downloads/large/" + std::to_string(i / 200) + "/" + std::to_string(i), 0);
    const std::string large = home.path("Downloads/large");
    const Outcome outcome = test::runInterrupted(
        BRIMLET_CLI, {"remove", "--yes", "--json", "--permanent", large, safe}, {{"HOME", home.root()}});
    EXPECT_NE(outcome.status, 0);
    const auto report = readJson(outcome.output);
    ASSERT_TRUE(report) << outcome.output << outcome.error;
    EXPECT_EQ(report->at("failures").size(), 2U);
    EXPECT_GT(measureTree(large).files, 0);
    EXPECT_TRUE(home.exists("Downloads/old.txt"));
    const auto left = test::snapshotOf(home.path("Downloads"));
    EXPECT_TRUE(std::none_of(left.begin(), left.end(), [](const auto& entry) {
        return entry.first.find(".brimlet-") != std::string::npos;
    }));
}

TEST_F(RemoveCommandTest, anInterruptedRestoreTellsWhatCameBackAndLeavesTheRest) {
    constexpr int files = 1'500;
    std::vector<std::string> arguments = {"remove", "--yes"};
    for (int i = 0; i < files; ++i)
        arguments.push_back(home.file("Downloads/" + std::to_string(i) + ".txt", 0));
    ASSERT_EQ(run(arguments).status, 0);
    arguments = {"restore"};
    for (const Json& entry : history())
        arguments.push_back(entry.at("id").get<std::string>());
    const Outcome outcome = test::runInterrupted(BRIMLET_CLI, arguments, {{"HOME", home.root()}});
    EXPECT_THAT(outcome.error, HasSubstr("The restore was stopped before this."));
    for (const Json& entry : history()) {
        const bool isBack = std::filesystem::exists(bytesOf(entry.at("originalPath")));
        EXPECT_EQ(isBack, entry.at("restored").get<bool>()) << entry;
        EXPECT_NE(isBack, std::filesystem::exists(bytesOf(entry.at("trashPath")))) << entry;
    }
    arguments = {"restore", "--last"};
    EXPECT_EQ(run(arguments).status, 0) << "the rest can come back later";
}

TEST_F(RemoveCommandTest, onlyARemovalCompletesWhatWasInterrupted) {
    const std::string aside = scratchName();
    home.fileWithText("Downloads/" + aside + "/rest", "text");
    HistoryEntry entry;
    entry.date = historyDateNow();
    entry.originalPath = home.path("Downloads/large");
    home.fileWithText(
        "Library/Application Support/Brimlet/run-dead.journal",
        intentText({IntentKind::remove, entry, {{}, "1-1.1", {}, home.path("Downloads/" + aside)}}));
    const auto before = test::snapshotOf(home.root());
    for (const char* command : {"history", "junk", "scan"})
        EXPECT_EQ(run({command}).status, 0) << command;
    EXPECT_EQ(test::snapshotOf(home.root()), before) << "who only reads changes nothing";
    EXPECT_EQ(run({"remove", "--yes", safe}).status, 0);
    EXPECT_TRUE(home.exists("Downloads/large/rest"));
    EXPECT_EQ(history().size(), 1U) << "of what was interrupted nothing is claimed";
}

TEST_F(RemoveCommandTest, theApplicationsSettingMakesRemovalPermanent) {
    home.fileWithText("Library/Preferences/com.brimlet.mac.json", R"({"permanentDelete": true})");
    const Outcome outcome = run({"remove", safe}, "y\n");
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_THAT(outcome.error, HasSubstr("permanently? [y/N]"));
    EXPECT_FALSE(home.exists("Downloads/old.txt"));
    EXPECT_FALSE(home.exists(".Trash/old.txt"));
}

TEST_F(RemoveCommandTest, anyNameComesBackWhole) {
    const std::vector<std::string> names = {"caf\xE9\n\x01", std::string(255, '\xFF'), "-rf",
                                            "\"\\ \xE2\x80\xAE"};
    for (const std::string& name : names) {
        home.fileWithText("Downloads/" + name, name);
        const auto whole = test::snapshotOf(home.path("Downloads"));
        ASSERT_EQ(run({"remove", "--yes", home.path("Downloads/" + name)}).status, 0);
        EXPECT_EQ(bytesOf(history().at(0).at("originalPath")), home.path("Downloads/" + name));
        EXPECT_NE(test::snapshotOf(home.path("Downloads")), whole);
        EXPECT_EQ(run({"restore", "--last"}).status, 0);
        EXPECT_EQ(test::snapshotOf(home.path("Downloads")), whole);
        EXPECT_EQ(history().at(0).at("restored"), true);
    }
}

TEST_F(RemoveCommandTest, restoreNeverOverwrites) {
    run({"remove", "--yes", safe});
    home.fileWithText("Downloads/old.txt", "newer");
    const auto before = test::snapshotOf(safe);
    const Outcome refused = run({"restore", "--last"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.error, HasSubstr("Something else is in its place now."));
    EXPECT_EQ(test::snapshotOf(safe), before);
    EXPECT_TRUE(home.exists(".Trash/old.txt"));
    EXPECT_EQ(history().at(0).at("restored"), false);
}

TEST_F(RemoveCommandTest, entriesAreRestoredByTheirIdentifiers) {
    const std::string other = home.file("Downloads/other.txt", 10);
    run({"remove", "--yes", safe});
    run({"remove", "--yes", other});
    const Json entries = history();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(bytesOf(entries[0].at("originalPath")), other) << "the newest comes first";
    const auto older = entries[1].at("id").get<std::string>();
    const Outcome outcome = run({"restore", older, "no-identifier"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.error, HasSubstr("There is no entry no-identifier in the history."));
    EXPECT_TRUE(home.exists("Downloads/old.txt"));
    EXPECT_FALSE(home.exists("Downloads/other.txt"));
    EXPECT_EQ(run({"restore", older}).status, 2) << "it is back already";
    const Outcome table = run({"history"});
    EXPECT_THAT(table.output,
                testing::MatchesRegex(".*in Trash *[^\n]*other.txt\n.*restored *[^\n]*old.txt\n"));
}

TEST_F(RemoveCommandTest, aFolderAboveTheHomeFolderStays) {
    const test::TemporaryTree disk;
    disk.file("users/me/Documents/letter.txt", 5'000);
    const std::map<std::string, std::string> environment = {{"HOME", disk.path("users/me")}};
    const Outcome plan =
        test::runProgram(BRIMLET_CLI, {"remove", "--dry-run", disk.path("users")}, environment);
    EXPECT_THAT(plan.output, HasSubstr("Protected (never removed)"));
    EXPECT_THAT(plan.output, HasSubstr("It contains your home folder."));
    for (const bool isPermanent : {false, true}) {
        std::vector<std::string> arguments = {"remove", "--include-review", "--yes", disk.path("users")};
        if (isPermanent)
            arguments.emplace_back("--permanent");
        const Outcome outcome = test::runProgram(BRIMLET_CLI, arguments, environment);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.output, HasSubstr("It contains your home folder."));
        EXPECT_TRUE(disk.exists("users/me/Documents/letter.txt"));
    }
}

TEST_F(RemoveCommandTest, inAnothersHomeFolderNothingIsRemovedOrRecorded) {
    ASSERT_EQ(run({"remove", "--yes", safe}).status, 0);
    constexpr uid_t another = 65'534;
    if (chmod(home.root().c_str(), 0755) != 0 || chown(home.root().c_str(), another, another) != 0)
        GTEST_SKIP() << "only root can give a folder away";
    const auto before = test::snapshotOf(home.root());
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"remove", "--include-review", "--yes", review},
          {"restore", "--last"},
          {"history"}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments.front();
        EXPECT_THAT(outcome.error, HasSubstr("belongs to another user"));
        EXPECT_EQ(outcome.output, "");
    }
    EXPECT_EQ(test::snapshotOf(home.root()), before);
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"scan", home.root()}, {"measure", review}, {"junk"}, {"verdict", review}})
        EXPECT_EQ(run(arguments).status, 0) << arguments.front();
}

TEST_F(RemoveCommandTest, wrongUseIsStatus2) {
    for (const std::vector<std::string>& use :
         std::vector<std::vector<std::string>>{{"remove"},
                                               {"restore"},
                                               {"restore", "--last", "id"},
                                               {"restore", "--last"},
                                               {"history", "more"}}) {
        const Outcome outcome = run(use);
        EXPECT_EQ(outcome.status, 2) << testing::PrintToString(use);
        EXPECT_THAT(outcome.error, Not(testing::IsEmpty()));
    }
}

} // namespace
} // namespace brimlet
