// What removal does to real trees: links, depth, permissions, mounts, names.

#include "core/walk/MeasureTree.h"
#include "platform/linux/LinuxEntryLookup.h"
#include "platform/linux/MountPoints.h"
#include "platform/ScratchName.h"
#include "platform/ThreadPriority.h"
#include "support/DeletionStage.h"
#include "support/Privileges.h"
#include "support/RandomTree.h"
#include "support/TreeSnapshot.h"
#include "tables/SystemTables.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sched.h>
#include <set>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace brimlet::test {
namespace {

namespace fs = std::filesystem;

/// Makes a chain of folders deeper than any path may be long, with a file in each. Returns the depth.
int makeDeepTree(const std::string& top) {
    constexpr int depth = 2000;
    const std::string name(40, 'd');
    EXPECT_EQ(mkdir(top.c_str(), 0755), 0);
    int at = open(top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (int level = 0; level < depth; ++level) {
        close(openat(at, "file", O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
        EXPECT_EQ(mkdirat(at, name.c_str(), 0755), 0);
        const int below = openat(at, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        close(at);
        at = below;
    }
    close(at);
    return depth;
}

/// At most this many open files, as long as it lives.
class FewDescriptors {
public:
    explicit FewDescriptors(rlim_t most) {
        getrlimit(RLIMIT_NOFILE, &m_before);
        const rlimit few{most, m_before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &few);
    }
    ~FewDescriptors() { setrlimit(RLIMIT_NOFILE, &m_before); }
    FewDescriptors(const FewDescriptors&) = delete;
    FewDescriptors& operator=(const FewDescriptors&) = delete;

private:
    rlimit m_before{};
};

std::string pathOf(int descriptor) {
    std::error_code error;
    return fs::read_symlink("/proc/self/fd/" + std::to_string(descriptor), error).native();
}

TEST(GuardDeathTest, abortsBeforeAnythingOutsideIsChanged) {
    DeletionStage stage;
    const std::string outside = stage.tree.fileWithText("outside/canary", "alive");
    EXPECT_DEATH((void)stage.run(outside, Removal::permanent), "guard: unlink of \"canary\"");
    EXPECT_DEATH((void)stage.run(outside, Removal::trash), "guard: rename of \"canary\"");
    EXPECT_DEATH((void)stage.run(stage.tree.path("outside"), Removal::permanent),
                 "guard: rename of \"outside\"");
    EXPECT_TRUE(stage.tree.exists("outside/canary"));
}

TEST(Removal, linksGoAsLinksAtEveryDepth) {
    for (const Removal how : {Removal::permanent, Removal::trash}) {
        DeletionStage stage;
        stage.tree.fileWithText("outside/folder/canary", "alive");
        const auto outside = snapshotOf(stage.tree.path("outside"));
        stage.tree.directory("home/item/a/b/c");
        for (const char* at : {"home/item/", "home/item/a/", "home/item/a/b/c/"}) {
            stage.tree.symbolicLink(std::string(at) + "toFolder", stage.tree.path("outside/folder"));
            stage.tree.symbolicLink(std::string(at) + "toFile", stage.tree.path("outside/folder/canary"));
            stage.tree.symbolicLink(std::string(at) + "up", "../../..");
        }
        EXPECT_TRUE(stage.run(stage.home("item"), how).report.failures.empty());
        stage.tree.symbolicLink("home/itself", stage.tree.path("outside/folder"));
        EXPECT_TRUE(stage.run(stage.home("itself"), how).report.failures.empty());
        EXPECT_FALSE(stage.tree.exists("home/item"));
        EXPECT_FALSE(stage.tree.exists("home/itself"));
        EXPECT_EQ(snapshotOf(stage.tree.path("outside")), outside);
    }
}

TEST(Removal, anyTreeGoesWhollyAndComesBackWhole) {
    for (std::uint32_t seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        DeletionStage stage;
        const TemporaryTree source;
        const RandomTree made(source, seed);
        fs::rename(source.root(), stage.home("item"));
        const auto whole = snapshotOf(stage.home("item"));
        ASSERT_GT(whole.size(), 10U);
        if (seed % 2 == 0)
            stage.calls.separate(stage.trash());
        const ExecutedRun run = stage.run(stage.home("item"), Removal::trash);
        ASSERT_TRUE(run.report.failures.empty()) << run.report.failures.front().reason;
        EXPECT_EQ(snapshotOf(stage.trash("item")), whole);
        EXPECT_FALSE(DeletionHistory(stage.store, stage.removal).restore(run.entries.front()));
        EXPECT_EQ(snapshotOf(stage.home("item")), whole);
        EXPECT_TRUE(stage.trashNames().empty());
        EXPECT_TRUE(stage.run(stage.home("item"), Removal::permanent).report.failures.empty());
        EXPECT_FALSE(stage.tree.exists("home/item"));
        EXPECT_FALSE(stage.hasScratch());
    }
}

TEST(Removal, depthIsBoundedNeitherByPathsNorByDescriptors) {
    DeletionStage stage;
    makeDeepTree(stage.home("deep"));
    const FewDescriptors few(128);
    stage.calls.separate(stage.trash());
    const ExecutedRun moved = stage.run(stage.home("deep"), Removal::trash);
    ASSERT_TRUE(moved.report.failures.empty()) << moved.report.failures.front().reason;
    const ExecutedRun removed = stage.run(stage.trash("deep"), Removal::permanent);
    ASSERT_TRUE(removed.report.failures.empty()) << removed.report.failures.front().reason;
    EXPECT_TRUE(stage.trashNames().empty());
}

TEST(Removal, foldersOfOnesOwnNeedNoPermission) {
    for (const mode_t mode : {0000, 0500, 0300, 0400}) {
        for (const Removal how : {Removal::permanent, Removal::trash}) {
            DeletionStage stage;
            stage.tree.fileWithText("home/item/sub/file", "text");
            chmod(stage.home("item/sub").c_str(), mode);
            chmod(stage.home("item").c_str(), mode);
            const OrdinaryRights ordinary;
            const ExecutedRun run = stage.run(stage.home("item"), how);
            EXPECT_TRUE(run.report.failures.empty()) << std::oct << mode;
            EXPECT_FALSE(stage.tree.exists("home/item"));
            if (how == Removal::trash) {
                struct stat status {};
                stat(stage.trash("item").c_str(), &status);
                EXPECT_EQ(status.st_mode & 07777, mode) << "a folder keeps its mode in the Trash";
            }
        }
    }
}

TEST(Removal, aParentWithoutPermissionLeavesTheItemWhole) {
    for (const Removal how : {Removal::permanent, Removal::trash}) {
        DeletionStage stage;
        stage.tree.fileWithText("home/locked/item/file", "text");
        const auto whole = snapshotOf(stage.home("locked/item"));
        chmod(stage.home("locked").c_str(), 0500);
        const OrdinaryRights ordinary;
        const ExecutedRun run = stage.run(stage.home("locked/item"), how);
        ASSERT_EQ(run.report.failures.size(), 1U);
        EXPECT_EQ(run.report.failures.front().reason,
                  "No permission. It may need Full Disk Access, or it belongs to another user.");
        EXPECT_EQ(snapshotOf(stage.home("locked/item")), whole);
    }
}

TEST(Removal, whatCannotGoStaysInItsPlaceAndIsReported) {
    DeletionStage stage;
    stage.tree.fileWithText("home/item/stuck/file", "text");
    stage.tree.fileWithText("home/item/other", "text");
    stage.calls.onCall = [&](const SystemCall& call) {
        if (std::string_view(call.call) == "unlink" && std::string_view(call.name) == "file")
            stage.calls.failAt(1, EPERM);
    };
    const ExecutedRun run = stage.run(stage.home("item"), Removal::permanent);
    ASSERT_EQ(run.report.failures.size(), 1U);
    EXPECT_EQ(run.report.failures.front().reason, "Protected by macOS or in use. Still there: stuck/file.");
    EXPECT_TRUE(stage.tree.exists("home/item/stuck/file"));
    EXPECT_FALSE(stage.tree.exists("home/item/other"));
    EXPECT_FALSE(stage.hasScratch());
}

TEST(Removal, ofManyThatStayTheFirstAreNamedAndTheRestCounted) {
    DeletionStage stage;
    for (int i = 0; i < 5; ++i)
        stage.tree.fileWithText("home/item/stuck" + std::to_string(i), "text");
    stage.calls.onCall = [&](const SystemCall& call) {
        stage.calls.behave();
        if (std::string_view(call.call) == "unlink" && std::string_view(call.name).starts_with("stuck"))
            stage.calls.failAt(1, EPERM);
    };
    const ExecutedRun run = stage.run(stage.home("item"), Removal::permanent);
    ASSERT_EQ(run.report.failures.size(), 1U);
    EXPECT_TRUE(run.report.failures.front().reason.ends_with(" and more: 2."))
        << run.report.failures.front().reason;
    EXPECT_EQ(run.report.freed, 0);
    EXPECT_TRUE(run.parts.empty());
}

TEST(Removal, whatWentOfAnItemCountsAlthoughTheRestStayed) {
    DeletionStage stage;
    stage.tree.file("home/item/large", 1 << 20);
    stage.tree.file("home/item/kept/a", 8192);
    stage.tree.hardLink("home/item/kept/b", "home/item/kept/a");
    stage.tree.file("home/item/kept/c", 4096);
    const std::int64_t before = measureTree(stage.home("item")).bytes;
    stage.calls.onCall = [&](const SystemCall& call) {
        stage.calls.behave();
        const std::string_view name = call.name;
        if (std::string_view(call.call) == "unlink" && name != "a" && name != "large")
            stage.calls.failAt(1, EPERM);
    };
    const ExecutedRun run =
        stage.executor.execute({DeletionStage::request(stage.home("item"), Removal::permanent, before)});
    const std::int64_t freed = before - measureTree(stage.home("item")).bytes;
    EXPECT_GE(freed, 1 << 20);
    EXPECT_LT(freed, (1 << 20) + 8192) << "a file with another name left takes its bytes";
    EXPECT_EQ(run.report.freed, freed);
    EXPECT_TRUE(run.report.deletedPaths.empty());
    EXPECT_TRUE(run.entries.empty());
    EXPECT_EQ(run.report.failures.front().reason,
              "Protected by macOS or in use. Still there: kept/b, kept/c.");
    stage.calls.onCall = {};
    stage.calls.behave();
    DeletionHistory history(stage.store, stage.removal);
    ASSERT_TRUE(history.record(run));
    ASSERT_EQ(stage.historyOnDisk().size(), 1U);
    EXPECT_EQ(stage.historyOnDisk().front().size, freed);
    EXPECT_FALSE(stage.historyOnDisk().front().trashPath);
}

TEST(Removal, aStopLeavesTheRestInItsPlaceAndTellsWhatWent) {
    for (const std::size_t threads : {1, 3}) {
        DeletionStage stage;
        LinuxFileRemoval removal(stage.home(), stage.calls, {threads, 0});
        DeletionExecutor executor(
            macosTables().safety, removal, stage.store,
            [](std::string_view) {
                return SafetyVerdict{Risk::safe, "safe"};
            },
            [] { return ProtectedPlaces({}, LinuxEntryLookup()); });
        for (int i = 0; i < 40; ++i)
            stage.tree.file("home/large/" + std::to_string(i) + "/file", 4096);
        const std::int64_t large = measureTree(stage.home("large")).bytes;
        for (const char* name : {"first", "last", "later/folder/file"})
            stage.tree.fileWithText("home/" + std::string(name), "text");
        std::stop_source stop;
        std::atomic<int> unlinked = 0;
        stage.calls.onCall = [&](const SystemCall& call) {
            if (std::string_view(call.name) == "file" && ++unlinked == 10)
                stop.request_stop();
        };
        std::vector<DeletionRequest> requests;
        for (const char* name : {"first", "large", "last"})
            requests.push_back(DeletionStage::request(stage.home(name), Removal::permanent, large));
        requests.push_back(DeletionStage::request(stage.home("later"), Removal::trash));
        const ExecutedRun run = executor.execute(requests, stop.get_token());
        EXPECT_EQ(run.report.deletedPaths, std::vector<std::string>{stage.home("first")});
        ASSERT_EQ(run.report.failures.size(), 3U);
        EXPECT_EQ(run.report.failures[0].reason, "Stopped before all of it was removed.");
        EXPECT_EQ(run.report.failures[1].reason, "The removal was stopped before this.");
        ASSERT_EQ(run.parts.size(), 1U);
        EXPECT_EQ(run.parts.front().size, large - measureTree(stage.home("large")).bytes);
        EXPECT_TRUE(stage.tree.exists("home/large")) << "what is left has its name";
        EXPECT_GE(snapshotOf(stage.home("large")).size(), 20U);
        EXPECT_TRUE(stage.tree.exists("home/last"));
        EXPECT_TRUE(stage.tree.exists("home/later/folder/file"));
        EXPECT_FALSE(stage.hasScratch());
        stage.calls.onCall = {};
        DeletionHistory(stage.store, stage.removal).record(run);
        for (const std::string& name : valueOf(stage.store.names()))
            EXPECT_FALSE(isJournalName(name)) << "nothing is left to be completed";
    }
}

TEST(Removal, aBatchIsNotedWithOneSync) {
    DeletionStage stage;
    std::vector<DeletionRequest> requests;
    for (int i = 0; i < 300; ++i) {
        const std::string name = std::to_string(i);
        stage.tree.fileWithText("home/" + name + "/same", "text");
        requests.push_back(DeletionStage::request(stage.home(name + "/same"), Removal::trash));
        requests.push_back(DeletionStage::request(stage.home(name), Removal::permanent));
    }
    int syncs = 0;
    int looks = 0;
    stage.calls.onCall = [&](const SystemCall& call) {
        syncs += std::string_view(call.call).starts_with("sync") ? 1 : 0;
        looks += std::string_view(call.name).starts_with("same ") ? 1 : 0;
    };
    const ExecutedRun run = stage.executor.execute(requests);
    EXPECT_EQ(run.report.deletedPaths.size(), 600U);
    EXPECT_LE(syncs, 4) << "the journal's folder, and each of two batches";
    EXPECT_LE(looks, 3 * 300) << "the names taken before are not counted through again";
    EXPECT_EQ(stage.trashNames().size(), 300U);
}

TEST(Removal, aRestWhoseNameWasTakenIsReportedUnderAnother) {
    DeletionStage stage;
    stage.tree.fileWithText("home/item/stuck/file", "text");
    stage.calls.onCall = [&](const SystemCall& call) {
        if (std::string_view(call.call) != "unlink" || std::string_view(call.name) != "file")
            return;
        std::filesystem::create_directory(stage.home("item")); // its application is still at work
        stage.calls.failAt(1, EPERM);
    };
    const ExecutedRun run = stage.run(stage.home("item"), Removal::permanent);
    ASSERT_EQ(run.report.failures.size(), 1U);
    EXPECT_EQ(
        run.report.failures.front().reason,
        "Protected by macOS or in use. Still there: stuck/file. What could not be removed is now called " +
            stage.home("item 2"));
    EXPECT_TRUE(stage.tree.exists("home/item 2/stuck/file"));
    EXPECT_FALSE(stage.hasScratch());
}

/// Nobody could find again what is set aside without a note of it.
TEST(Removal, whatCannotBeNotedGoesFromItsPlace) {
    DeletionStage stage;
    stage.tree.fileWithText("home/item/kept/file", "text");
    stage.tree.fileWithText("home/item/gone", "text");
    stage.tree.fileWithText("home/other/file", "text");
    bool isRenamed = false;
    stage.calls.onCall = [&](const SystemCall& call) {
        stage.calls.behave();
        const std::string_view name = call.call;
        isRenamed = isRenamed || name == "rename";
        if (name == "write" || (name == "unlink" && std::string_view(call.name) == "file" &&
                                pathOf(call.folder).ends_with("kept")))
            stage.calls.failAt(1, EPERM);
    };
    const ExecutedRun run =
        stage.executor.execute({DeletionStage::request(stage.home("item"), Removal::permanent),
                                DeletionStage::request(stage.home("other"), Removal::permanent)});
    stage.calls.onCall = {};
    stage.calls.behave();
    EXPECT_FALSE(isRenamed);
    ASSERT_EQ(run.report.failures.size(), 1U);
    EXPECT_EQ(run.report.failures.front().reason, "Protected by macOS or in use. Still there: kept/file.");
    EXPECT_EQ(run.report.deletedPaths, std::vector<std::string>{stage.home("other")});
    EXPECT_TRUE(stage.tree.exists("home/item/kept/file"));
    EXPECT_FALSE(stage.tree.exists("home/item/gone"));
}

TEST(Removal, whatTakesAFoldersPlaceWhenItGoesInItStays) {
    DeletionStage stage;
    stage.tree.fileWithText("home/item/file", "text");
    stage.tree.fileWithText("home/Documents/file", "precious");
    int looks = 0;
    stage.calls.onCall = [&](const SystemCall& call) {
        stage.calls.behave();
        const std::string_view name = call.call;
        if (name == "write")
            stage.calls.failAt(1, ENOSPC);
        if (name != "open" || std::string_view(call.name) != "item" || ++looks > 1)
            return;
        fs::rename(stage.home("item"), stage.home("Away"));
        fs::rename(stage.home("Documents"), stage.home("item"));
    };
    const ExecutedRun run =
        stage.executor.execute({DeletionStage::request(stage.home("item"), Removal::permanent)});
    stage.calls.onCall = {};
    stage.calls.behave();
    EXPECT_EQ(looks, 1);
    ASSERT_EQ(run.report.failures.size(), 1U);
    EXPECT_TRUE(run.report.failures.front().reason.starts_with("It has changed since it was reviewed."));
    EXPECT_TRUE(stage.tree.exists("home/item/file"));
    EXPECT_TRUE(stage.tree.exists("home/Away/file"));
}

/// In the window's process removals run on threads that give way to it; the command line's don't.
TEST(Removal, itsThreadsGiveWayAsTheirCallerDoes) {
    for (const bool yields : {true, false}) {
        DeletionStage stage;
        LinuxFileRemoval removal(stage.home(), stage.calls, {3, 0});
        for (int i = 0; i < 60; ++i)
            stage.tree.file("home/item/" + std::to_string(i) + "/file", 16);
        std::set<std::thread::id> threads; // filled under the calls' lock
        std::set<int> policies;
        stage.calls.onCall = [&](const SystemCall&) {
            threads.insert(std::this_thread::get_id());
            policies.insert(sched_getscheduler(0));
            std::this_thread::sleep_for(std::chrono::microseconds(200)); // leaves the others something to do
        };
        std::thread([&] {
            if (yields)
                yieldToTheWindow();
            const PlacedIdentity reviewed = LinuxEntryLookup().find(stage.home("item"))->identity;
            const auto pinned = valueOf(removal.pin(stage.home("item"), reviewed, nullptr));
            EXPECT_FALSE(
                removal.remove(*pinned, {}, [](const PlannedMove&) { return Failure(); }, {}).failure);
        }).join();
        EXPECT_GT(threads.size(), 1U);
        EXPECT_EQ(policies, std::set<int>{yields ? SCHED_BATCH : SCHED_OTHER});
    }
}

TEST(Removal, oneThreadDoesItAllWhereNoOtherCanBeStarted) {
    DeletionStage stage;
    LinuxFileRemoval removal(stage.home(), stage.calls, {2, 0});
    for (int i = 0; i < 40; ++i)
        stage.tree.file("home/item/" + std::to_string(i / 10) + "/" + std::to_string(i) + "/file", 16);
    const PlacedIdentity reviewed = LinuxEntryLookup().find(stage.home("item"))->identity;
    const bool hasRun = withoutThreads([&] {
        const auto pinned = valueOf(removal.pin(stage.home("item"), reviewed, nullptr));
        EXPECT_FALSE(removal.remove(*pinned, {}, [](const PlannedMove&) { return Failure(); }, {}).failure);
    });
    if (!hasRun)
        GTEST_SKIP() << "nothing here keeps a thread from starting";
    EXPECT_FALSE(stage.tree.exists("home/item"));
}

TEST(Removal, whatBelongsToAnotherMoveIsNoItem) {
    DeletionStage stage;
    const std::string scratch = ".Trash/" + scratchName();
    stage.tree.fileWithText("home/" + scratch + "/item/file", "half a copy");
    for (const std::string& path : {scratch, scratch + "/item", scratch + "/item/file"}) {
        const ExecutedRun run = stage.run(stage.home(path), Removal::permanent);
        ASSERT_EQ(run.report.failures.size(), 1U);
        EXPECT_EQ(run.report.failures.front().reason, "This belongs to a removal that is under way.");
    }
    EXPECT_TRUE(stage.tree.exists("home/" + scratch + "/item/file"));
}

TEST(MountPoints, areReadAsTheSystemWritesThem) {
    EXPECT_EQ(mountPointsFromText("22 1 8:1 / / rw - ext4 /dev/sda rw\n"
                                  "23 22 0:5 / /media/My\\040Disk\\134\\0124 rw shared:1 - ext4 x rw\n"
                                  "cut off\n"),
              (std::vector<std::string>{"/", "/media/My Disk\\\n4"}));
    EXPECT_FALSE(MountTable().holdsBelow("/proc/self"));
    EXPECT_TRUE(MountTable().holdsBelow("/"));
}

TEST(Removal, neverCrossesOntoAMountedDisk) {
    const bool allowed = withOwnMounts([] {
        DeletionStage stage;
        stage.tree.directory("home/item/inside/disk");
        stage.tree.directory("outside/bound");
        stage.tree.directory("home/item/bind");
        stage.tree.fileWithText("outside/bound/canary", "alive");
        const std::string disk = stage.home("item/inside/disk");
        ASSERT_EQ(mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=1m"), 0);
        ASSERT_EQ(mount(stage.tree.path("outside/bound").c_str(), stage.home("item/bind").c_str(), nullptr,
                        MS_BIND, nullptr),
                  0);
        stage.tree.fileWithText("home/item/inside/disk/canary", "alive");
        stage.tree.fileWithText("home/item/a file", "text");
        for (const char* path : {"item", "item/bind", "item/inside/disk"}) {
            const ExecutedRun run = stage.run(stage.home(path), Removal::permanent);
            ASSERT_EQ(run.report.failures.size(), 1U) << path;
            EXPECT_EQ(run.report.failures.front().reason, "Another disk is mounted here. Eject it first.");
        }
        for (const std::string& path : {disk, stage.home("item")})
            EXPECT_EQ(stage.run(path, Removal::trash).report.failures.size(), 1U) << path;
        EXPECT_TRUE(stage.tree.exists("home/item/inside/disk/canary"));
        EXPECT_TRUE(stage.tree.exists("home/item/a file")) << "the disk is found before anything goes";
        EXPECT_TRUE(stage.tree.exists("outside/bound/canary"));
        EXPECT_FALSE(stage.hasScratch());
        umount(stage.home("item/bind").c_str());
        umount(disk.c_str());
    });
    if (!allowed)
        GTEST_SKIP() << "mounting is not permitted here";
}

TEST(Removal, pathsThatLeadAroundAreRefusedWithASentence) {
    DeletionStage stage;
    stage.tree.fileWithText("home/file", "text");
    const struct {
        std::string path;
        std::string reason;
    } cases[] = {
        {"home/file", "The path is not absolute."},
        {"", "The path is not absolute."},
        {stage.home("./file"), "The path has “.” or “..” in it."},
        {stage.home("sub/../file"), "The path has “.” or “..” in it."},
        {stage.home("file/.."), "The path has “.” or “..” in it."},
        {stage.home("file") + std::string(1, '\0') + "x", "The path has a NUL byte in it."},
        {"/", "Protected by macOS or in use."},
        {stage.home("missing"), "No longer exists."},
        {stage.home("missing/file"), "No longer exists."},
    };
    for (const auto& one : cases) {
        for (const Removal how : {Removal::permanent, Removal::trash}) {
            const ExecutedRun run = stage.run(one.path, how);
            ASSERT_EQ(run.report.failures.size(), 1U) << one.path;
            EXPECT_EQ(run.report.failures.front().reason, one.reason) << one.path;
            EXPECT_EQ(run.report.failures.front().path, one.path);
        }
    }
    EXPECT_TRUE(stage.tree.exists("home/file"));
}

TEST(Removal, theStricterOfTwoVerdictsCounts) {
    DeletionStage stage;
    stage.tree.fileWithText("home/precious/file", "text");
    stage.tree.directory("home/links");
    stage.tree.symbolicLink("home/links/first", "../links/second");
    stage.tree.symbolicLink("home/links/second", stage.home("precious"));
    stage.verdicts[stage.home("precious/file")] = {Risk::protected_, "Not this one."};
    for (const char* path : {"precious/file", "precious//file/", "links/first/file", "links/second/file"}) {
        const ExecutedRun run = stage.run(stage.home(path), Removal::permanent);
        ASSERT_EQ(run.report.skippedProtected.size(), 1U) << path;
        EXPECT_EQ(run.report.skippedProtected.front().reason, "Not this one.");
        EXPECT_EQ(run.report.skippedProtected.front().path, stage.home(path));
    }
    EXPECT_TRUE(stage.tree.exists("home/precious/file"));
}

TEST(Removal, anyNameGoesToTheTrashAndBack) {
    DeletionStage stage;
    std::string everyByte;
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '/' && everyByte.size() < 254)
            everyByte += static_cast<char>(byte);
    }
    const std::string names[] = {everyByte, "\xff", "line\nbreak",        "caf\xe9", "café.txt", " ",
                                 "-rf",     "...",  std::string(255, 'n')};
    for (const std::string& name : names) {
        const std::string path = stage.home(name);
        stage.tree.fileWithText("home/" + name, "content of " + name);
        const auto whole = snapshotOf(path);
        ASSERT_EQ(stage.run(path, Removal::trash).report.deletedPaths.size(), 1U) << name;
        DeletionHistory afterRestart(stage.store, stage.removal);
        ASSERT_EQ(afterRestart.entries().front().originalPath, path);
        EXPECT_FALSE(afterRestart.restoreIfPossible(afterRestart.entries().front()));
        EXPECT_EQ(snapshotOf(path), whole);
        EXPECT_TRUE(stage.historyOnDisk().front().restored);
    }
}

} // namespace
} // namespace brimlet::test
