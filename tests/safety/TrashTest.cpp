// The Trash: whose it is, what things are called in it, and how they get there from other disks.

#include "platform/linux/NumberedName.h"
#include "support/DeletionStage.h"
#include "support/Privileges.h"
#include "support/TreeSnapshot.h"

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
            DeletionExecutor executor(stage.removal, stage.store, [](std::string_view) {
                return SafetyVerdict{Risk::safe, "safe"};
            });
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

/// A stage with another disk, a memory file system, at home/disk.
void onAnotherDisk(const char* options, const std::function<void(DeletionStage&)>& body) {
    const bool allowed = withOwnMounts([&] {
        DeletionStage stage;
        const std::string disk = stage.tree.directory("home/disk");
        ASSERT_EQ(mount("tmpfs", disk.c_str(), "tmpfs", 0, options), 0);
        body(stage);
        umount2(disk.c_str(), MNT_DETACH);
    });
    if (!allowed)
        GTEST_SKIP() << "mounting is not permitted here";
}

TEST(OtherDisk, aCopyKeepsAllThatAFileIs) {
    onAnotherDisk("size=64m", [](DeletionStage& stage) {
        stage.tree.fileWithText("home/disk/item/file", "text");
        stage.tree.hardLink("home/disk/item/name", "home/disk/item/file");
        stage.tree.symbolicLink("home/disk/item/link", "nowhere");
        ASSERT_EQ(mkfifo(stage.home("disk/item/fifo").c_str(), 0640), 0);
        const std::string sparse = stage.tree.sparseFile("home/disk/item/sparse", 32 << 20);
        const int file = open(sparse.c_str(), O_WRONLY | O_CLOEXEC);
        EXPECT_EQ(pwrite(file, "middle", 6, 16 << 20), 6);
        close(file);
        const bool hasAttributes =
            setxattr(stage.home("disk/item/file").c_str(), "user.colour", "blue", 4, 0) == 0;
        chmod(stage.home("disk/item/file").c_str(), 04711);
        stage.tree.setTimes("home/disk/item/file", 1000000.25, 2000000.123456789);
        stage.tree.setTimes("home/disk/item", 1000001, 2000001.5);
        chmod(stage.home("disk/item").c_str(), 0555);
        const auto whole = snapshotOf(stage.home("disk/item"));
        ASSERT_TRUE(stage.run(stage.home("disk/item"), Removal::trash).report.failures.empty());
        EXPECT_EQ(snapshotOf(stage.trash("item")), whole);
        EXPECT_FALSE(stage.tree.exists("home/disk/item"));
        struct stat status {};
        stat(stage.trash("item/sparse").c_str(), &status);
        EXPECT_LT(status.st_blocks * 512, 2 << 20) << "holes stay holes";
        stat(stage.trash("item").c_str(), &status);
        EXPECT_EQ(status.st_mtim.tv_nsec, 500000000);
        char colour[8] = {};
        if (hasAttributes) {
            EXPECT_EQ(getxattr(stage.trash("item/file").c_str(), "user.colour", colour, sizeof colour), 4);
        }
        chmod(stage.trash("item").c_str(), 0755);
    });
}

TEST(OtherDisk, fullOrReadOnlyLeavesTheItemWhole) {
    onAnotherDisk("size=256k", [](DeletionStage& stage) {
        // Back onto the full disk, then away from one that can't be changed.
        stage.tree.file("home/disk/item/large", 100 << 10);
        const auto whole = snapshotOf(stage.home("disk/item"));
        const ExecutedRun run = stage.run(stage.home("disk/item"), Removal::trash);
        ASSERT_EQ(run.entries.size(), 1U);
        stage.tree.file("home/disk/filler", 200 << 10);
        DeletionHistory history(stage.store, stage.removal);
        const Failure full = history.restore(run.entries.front());
        ASSERT_TRUE(full);
        EXPECT_EQ(full->code, ENOSPC);
        EXPECT_EQ(snapshotOf(stage.trash("item")), whole);
        EXPECT_FALSE(stage.tree.exists("home/disk/item"));
        EXPECT_FALSE(stage.hasScratch());
        const std::string disk = stage.home("disk");
        ASSERT_EQ(mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, "size=256k"), 0);
        for (const Removal how : {Removal::permanent, Removal::trash}) {
            const ExecutedRun refused = stage.run(stage.home("disk/filler"), how);
            EXPECT_EQ(refused.report.failures.size(), 1U);
            EXPECT_TRUE(stage.tree.exists("home/disk/filler"));
        }
        EXPECT_EQ(stage.trashNames(), std::vector<std::string>{"item"});
    });
}

TEST(OtherDisk, whatChangesWhileItIsCopiedIsNotLost) {
    DeletionStage stage;
    stage.tree.fileWithText("home/item/file", "old");
    stage.calls.separate(stage.trash());
    bool done = false;
    stage.calls.onCall = [&](const SystemCall& call) {
        if (done || std::string_view(call.call) != "writeAt")
            return;
        done = true;
        stage.tree.fileWithText("home/item/file", "newer");
    };
    const ExecutedRun run = stage.run(stage.home("item"), Removal::trash);
    ASSERT_EQ(run.report.failures.size(), 1U);
    EXPECT_TRUE(stage.tree.exists("home/item/file"));
    EXPECT_TRUE(stage.trashNames().empty());
}

TEST(OtherDisk, whatAppearsAfterTheCopyStays) {
    DeletionStage stage;
    stage.tree.fileWithText("home/item/sub/file", "text");
    stage.calls.separate(stage.trash());
    bool done = false;
    stage.calls.onCall = [&](const SystemCall& call) {
        if (done || std::string_view(call.call) != "syncFileSystem")
            return;
        done = true;
        stage.tree.fileWithText("home/item/sub/late", "written late");
    };
    const ExecutedRun run = stage.run(stage.home("item"), Removal::trash);
    EXPECT_EQ(run.report.failures.size(), 1U);
    EXPECT_EQ(run.report.deletedPaths.size(), 1U);
    EXPECT_TRUE(stage.tree.exists("home/item/sub/late"));
    EXPECT_FALSE(stage.tree.exists("home/item/sub/file"));
    EXPECT_EQ(stage.trashNames(), std::vector<std::string>{"item"});
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
