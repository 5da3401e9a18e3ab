// Moves between disks: copies that are whole and on the disk before their original goes.

#include "platform/ScratchName.h"
#include "support/DeletionStage.h"
#include "support/Privileges.h"
#include "support/TreeSnapshot.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <mutex>
#include <set>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>

namespace brimlet::test {
namespace {

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

TEST(OtherDisk, aStopUndoesTheCopyAndLeavesTheOriginal) {
    for (const char* item : {"folder", "large"}) {
        int stops = 0;
        for (int n = 1; n <= 6; ++n) {
            DeletionStage stage;
            for (int i = 0; i < 6; ++i)
                stage.tree.fileWithText("home/folder/" + std::to_string(i) + "/file", "text");
            stage.tree.file("home/large", 7 << 20); // seven blocks
            stage.tree.fileWithText("home/last", "text");
            stage.calls.separate(stage.trash());
            const auto whole = snapshotOf(stage.home(item));
            std::stop_source stop;
            int written = 0;
            stage.calls.onCall = [&](const SystemCall& call) {
                if (std::string_view(call.call) == "writeAt" && ++written == n)
                    stop.request_stop();
            };
            const ExecutedRun run =
                stage.executor.execute({DeletionStage::request(stage.home(item), Removal::trash),
                                        DeletionStage::request(stage.home("last"), Removal::trash)},
                                       stop.get_token());
            stage.calls.onCall = nullptr;
            EXPECT_TRUE(stage.tree.exists("home/last"));
            EXPECT_FALSE(stage.hasScratch());
            if (!run.entries.empty()) // the copy was complete before anybody asked
                continue;
            ++stops;
            EXPECT_EQ(written, n) << "nothing is written after the stop";
            EXPECT_EQ(run.report.failures.front().reason, "Stopped before it was moved. It is where it was.");
            EXPECT_EQ(snapshotOf(stage.home(item)), whole);
            EXPECT_TRUE(stage.trashNames().empty());
        }
        EXPECT_GE(stops, 5) << item;
    }
}

TEST(OtherDisk, whatAppearsAfterTheCopyStays) {
    DeletionStage stage;
    stage.tree.fileWithText("home/item/sub/file", "text");
    stage.calls.separate(stage.trash());
    bool done = false;
    stage.calls.onCall = [&](const SystemCall& call) {
        if (done || std::string_view(call.call) != "closeWritten")
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

std::string pathOf(int descriptor) {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), error).native();
}

/// What a move syncs and closes with a check before it sets the original aside, by path.
struct Written {
    std::multiset<std::string> synced;
    std::multiset<std::string> closed;
    bool isOver = false;
    std::mutex mutex; ///< several threads sync

    explicit Written(DeletionStage& stage) {
        stage.calls.onCall = [this](const SystemCall& call) {
            const std::lock_guard held(mutex);
            const std::string_view name = call.call;
            isOver = isOver || (name == "rename" && isScratchName(call.secondName));
            if (!isOver && name == "sync")
                synced.insert(pathOf(call.folder));
            if (!isOver && name == "closeWritten")
                closed.insert(pathOf(call.folder));
        };
    }

    /// Of the path `relative` in a copy, wherever that is being made.
    std::size_t count(const std::multiset<std::string>& among, const std::string& relative) const {
        return static_cast<std::size_t>(std::count_if(among.begin(), among.end(), [&](const auto& path) {
            return path.ends_with(relative) && path.find("/.brimlet-") != std::string::npos;
        }));
    }
};

TEST(OtherDisk, theCopyIsOnTheDiskBeforeTheOriginalGoes) {
    DeletionStage stage;
    constexpr int files = 150; // more than are waited for at once
    for (int i = 0; i < files; ++i)
        stage.tree.fileWithText("home/far/deep/item/sub/" + std::to_string(i), "text");
    stage.tree.hardLink("home/far/deep/item/name", "home/far/deep/item/sub/0");
    stage.tree.directory("home/far/deep/item/empty");
    stage.calls.separate(stage.trash());
    const auto expectAll = [&](const Written& written) {
        EXPECT_TRUE(written.isOver);
        for (int i = 1; i < files; ++i) {
            const std::string path = "/item/sub/" + std::to_string(i);
            EXPECT_EQ(written.count(written.synced, path), 1U) << path;
            EXPECT_EQ(written.count(written.closed, path), 1U) << path;
        }
        EXPECT_EQ(written.closed.size(), static_cast<std::size_t>(files)) << "with the file of two names";
        for (const char* folder : {"/item", "/item/sub", "/item/empty"})
            EXPECT_EQ(written.count(written.synced, folder), 1U) << folder;
    };
    Written there(stage);
    const ExecutedRun run = stage.run(stage.home("far/deep/item"), Removal::trash);
    ASSERT_EQ(run.entries.size(), 1U);
    expectAll(there);
    EXPECT_EQ(there.synced.count(stage.trash()), 1U);
    std::filesystem::remove_all(stage.home("far"));
    DeletionHistory history(stage.store, stage.removal);
    Written back(stage);
    EXPECT_FALSE(history.restore(run.entries.front()));
    expectAll(back);
    for (const char* folder : {"far/deep", "far", ""})
        EXPECT_EQ(back.synced.count(stage.home(folder)), 1U) << "made for the item: " << folder;
    stage.calls.onCall = nullptr;
}

TEST(OtherDisk, aDiskThatFailsAtTheLastMomentCostsNothing) {
    for (const int error : {EIO, ENOSPC, EDQUOT}) {
        DeletionStage stage;
        stage.tree.fileWithText("home/item", "text");
        stage.calls.separate(stage.trash());
        const auto whole = snapshotOf(stage.home("item"));
        stage.calls.failCalls("closeWritten", error);
        EXPECT_EQ(stage.run(stage.home("item"), Removal::trash).report.failures.size(), 1U);
        EXPECT_EQ(snapshotOf(stage.home("item")), whole);
        EXPECT_TRUE(stage.trashNames().empty());
        stage.calls.behave();
        const ExecutedRun run = stage.run(stage.home("item"), Removal::trash);
        ASSERT_EQ(run.entries.size(), 1U);
        stage.calls.failCalls("closeWritten", error);
        EXPECT_TRUE(DeletionHistory(stage.store, stage.removal).restore(run.entries.front()));
        EXPECT_EQ(snapshotOf(stage.trash("item")), whole);
        EXPECT_FALSE(stage.tree.exists("home/item"));
        EXPECT_FALSE(stage.hasScratch());
    }
}

/// Lets the clock go on by which files are dated.
void awaitNextTick() {
    const auto tick = [] {
        timespec now{};
        clock_gettime(CLOCK_REALTIME_COARSE, &now);
        return std::pair(now.tv_sec, now.tv_nsec);
    };
    for (const auto start = tick(); tick() == start;)
        std::this_thread::sleep_for(std::chrono::microseconds(200));
}

/// Writes other text of the same length into a file and puts its time of modification back. Whether it was
/// there.
bool editSecretly(const std::string& path, std::string_view text) {
    struct stat before {};
    const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    fstat(file, &before);
    EXPECT_EQ(pwrite(file, text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
    const timespec times[2] = {before.st_atim, before.st_mtim};
    futimens(file, times);
    close(file);
    return true;
}

bool anyFileHolds(const std::string& folder, const std::string& text) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        std::string content;
        if (entry.is_regular_file() && std::ifstream(entry.path()) >> content && content == text)
            return true;
    }
    return false;
}

TEST(OtherDisk, anEditThatKeepsTheDateIsNotLost) {
    const struct {
        const char* item;
        const char* file; ///< what is written to
    } cases[] = {{"item/file", "item/file"}, {"item", "item/linked"}};
    for (const auto& one : cases) {
        bool isReached = true;
        int edits = 0;
        for (int n = 1; isReached && !HasFailure(); ++n) {
            SCOPED_TRACE(std::string(one.item) + " " + one.file + ", before call " + std::to_string(n));
            DeletionStage stage;
            stage.tree.fileWithText("home/item/file", "first");
            stage.tree.fileWithText("home/item/linked", "first");
            stage.tree.hardLink("home/item/another", "home/item/linked");
            stage.calls.separate(stage.trash());
            awaitNextTick();
            bool isEdited = false;
            stage.calls.behave();
            stage.calls.onCall = [&](const SystemCall&) {
                if (stage.calls.count() + 1 == n && !isEdited)
                    isEdited = editSecretly(stage.home(one.file), "later");
            };
            stage.run(stage.home(one.item), Removal::trash);
            isReached = stage.calls.count() >= n;
            stage.calls.onCall = nullptr;
            if (isEdited) {
                EXPECT_TRUE(anyFileHolds(stage.home(), "later"));
                ++edits;
            }
        }
        EXPECT_GT(edits, 30);
    }
}

} // namespace
} // namespace brimlet::test
