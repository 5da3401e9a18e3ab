// The Trash: whose it is, what things are called in it, and how they get there from other disks.

#include "platform/linux/LinuxEntryLookup.h"
#include "platform/linux/removal/NumberedName.h"
#include "support/DeletionStage.h"
#include "support/Privileges.h"
#include "support/TreeSnapshot.h"
#include "tables/SystemTables.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>

namespace brimlet::test {
namespace {

TEST(NumberedName, isWhatADesktopGives) {
    const std::string umlauts = [] {
        std::string text;
        while (text.size() < 254)
            text += "ü";
        return text;
    }();
    const struct {
        std::string name;
        unsigned number;
        std::string expected;
    } cases[] = {
        {"name.ext", 1, "name.ext"},
        {"name.ext", 2, "name 2.ext"},
        {"archive.tar.gz", 12, "archive.tar 12.gz"},
        {"name", 2, "name 2"},
        {".hidden", 2, ".hidden 2"},
        {"dot.", 2, "dot. 2"},
        {std::string(255, 'a'), 2, std::string(253, 'a') + " 2"},
        {std::string(251, 'a') + ".ext", 10, std::string(248, 'a') + " 10.ext"},
        {"a." + std::string(253, 'e'), 2, "a." + std::string(251, 'e') + " 2"},
        {umlauts, 2, umlauts.substr(0, 252) + " 2"},
        {std::string(255, '\xbf'), 2, std::string(253, '\xbf') + " 2"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(numberedName(one.name, one.number), one.expected);
}

TEST(Trash, whatLiesInItStaysAsItIs) {
    DeletionStage stage;
    stage.tree.fileWithText("home/file", "text");
    stage.run(stage.home("file"), Removal::trash);
    const ExecutedRun again = stage.run(stage.trash("file"), Removal::trash);
    ASSERT_EQ(again.report.failures.size(), 1U);
    EXPECT_EQ(again.report.failures.front().reason, "It is in the Trash already.");
    EXPECT_EQ(stage.trashNames(), std::vector<std::string>{"file"});
}

TEST(Trash, isMadeForTheUserAlone) {
    DeletionStage stage;
    stage.tree.fileWithText("home/file", "text");
    const ExecutedRun run = stage.run(stage.home("file"), Removal::trash);
    ASSERT_EQ(run.entries.size(), 1U);
    EXPECT_EQ(run.entries.front().trashPath, stage.trash("file"));
    struct stat status {};
    ASSERT_EQ(stat(stage.trash().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700U);
}

TEST(Trash, isRefusedWhenItIsNotTheUsersFolder) {
    const auto refuses = [](const DeletionStage& made) {
        auto& stage = const_cast<DeletionStage&>(made);
        stage.tree.fileWithText("home/item/file", "text");
        const auto whole = snapshotOf(stage.home("item"));
        const ExecutedRun run = stage.run(stage.home("item"), Removal::trash);
        ASSERT_EQ(run.report.failures.size(), 1U);
        EXPECT_EQ(run.report.failures.front().reason,
                  "The Trash is a link or belongs to another user, so nothing was moved into it.");
        EXPECT_EQ(snapshotOf(stage.home("item")), whole);
        EXPECT_TRUE(std::filesystem::is_empty(stage.tree.path("outside")));
    };
    DeletionStage link;
    link.tree.symbolicLink("home/.Trash", link.tree.path("outside"));
    refuses(link);
    DeletionStage file;
    file.tree.file("home/.Trash");
    refuses(file);
    DeletionStage foreign;
    if (chown(foreign.tree.directory("home/.Trash").c_str(), 65534, 65534) == 0)
        refuses(foreign);
}

TEST(Trash, aThousandEqualNamesMovedAtOnceAllArrive) {
    DeletionStage stage;
    constexpr int threads = 4;
    constexpr int each = 250;
    for (int i = 0; i < threads * each; ++i)
        stage.tree.fileWithText("home/" + std::to_string(i) + "/same.txt", std::to_string(i));
    std::vector<ExecutedRun> runs(threads);
    std::vector<std::thread> movers;
    for (int thread = 0; thread < threads; ++thread) {
        movers.emplace_back([&, thread] {
            DeletionExecutor executor(
                macosTables().safety, stage.removal, stage.store,
                [](std::string_view) {
                    return SafetyVerdict{Risk::safe, "safe"};
                },
                [] { return ProtectedPlaces({}, LinuxEntryLookup()); });
            std::vector<DeletionRequest> requests;
            for (int i = thread * each; i < (thread + 1) * each; ++i)
                requests.push_back(
                    DeletionStage::request(stage.home(std::to_string(i) + "/same.txt"), Removal::trash));
            runs[static_cast<std::size_t>(thread)] = executor.execute(requests);
        });
    }
    for (std::thread& mover : movers)
        mover.join();
    std::set<std::string> contents;
    for (const ExecutedRun& run : runs) {
        EXPECT_TRUE(run.report.failures.empty());
        for (const HistoryEntry& entry : run.entries) {
            std::string content;
            std::ifstream(*entry.trashPath) >> content;
            EXPECT_EQ(entry.originalPath, stage.home(content + "/same.txt"));
            contents.insert(content);
        }
    }
    EXPECT_EQ(contents.size(), static_cast<std::size_t>(threads * each));
}

TEST(Trash, worksWithoutAnExclusiveRename) {
    DeletionStage stage;
    stage.calls.onCall = [&](const SystemCall& call) {
        stage.calls.behave();
        if (std::string_view(call.call) == "rename" && call.secondFolder >= 0 && call.flags != 0)
            stage.calls.failAt(1, EINVAL);
    };
    for (int i = 0; i < 3; ++i) {
        stage.tree.fileWithText("home/folder/file", "text");
        EXPECT_TRUE(stage.run(stage.home("folder"), Removal::trash).report.failures.empty());
        stage.tree.fileWithText("home/single", "text");
        EXPECT_TRUE(stage.run(stage.home("single"), Removal::trash).report.failures.empty());
    }
    EXPECT_EQ(stage.trashNames(),
              (std::vector<std::string>{"folder", "folder 2", "folder 3", "single", "single 2", "single 3"}));
}

TEST(MoveBack, neverOverwritesAndOnlyFromTheTrash) {
    DeletionStage stage;
    stage.tree.fileWithText("home/sub/file", "old");
    const ExecutedRun run = stage.run(stage.home("sub/file"), Removal::trash);
    DeletionHistory history(stage.store, stage.removal);
    stage.tree.fileWithText("home/sub/file", "new");
    const auto before = snapshotOf(stage.home("sub"));
    EXPECT_TRUE(history.restore(run.entries.front()));
    EXPECT_EQ(history.restoreIfPossible(run.entries.front())->description,
              "Something else is in its place now.");
    EXPECT_EQ(snapshotOf(stage.home("sub")), before);
    std::filesystem::remove_all(stage.home("sub"));
    EXPECT_FALSE(history.restoreIfPossible(run.entries.front())) << "a missing folder is made again";
    EXPECT_TRUE(stage.tree.exists("home/sub/file"));
    HistoryEntry foreign = run.entries.front();
    foreign.trashPath = stage.home("sub/file");
    foreign.originalPath = stage.home("moved");
    EXPECT_TRUE(history.restore(foreign));
    EXPECT_FALSE(stage.tree.exists("home/moved"));
}

} // namespace
} // namespace brimlet::test
