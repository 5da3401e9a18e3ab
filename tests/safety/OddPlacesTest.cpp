// Removal where something ordinary is missing: on full, small, read-only and layered disks, and on file
// systems and kernels that lack a call. Where mounting isn't permitted, what needs it is skipped.

#include "platform/linux/KeptIdentity.h"
#include "platform/linux/MountPoints.h"
#include "platform/ScratchName.h"
#include "support/DeletionStage.h"
#include "support/Privileges.h"
#include "support/Program.h"
#include "support/TreeSnapshot.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <linux/magic.h>
#include <memory>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace brimlet::test {
namespace {

constexpr const char* capabilities = "security.capability";

/// Mounts a file system and puts it away with the object.
class Mount {
public:
    Mount(const std::string& source, std::string place, const char* type, unsigned long flags,
          const std::string& options)
        : m_place(std::move(place))
        , m_isThere(mount(source.c_str(), m_place.c_str(), type, flags, options.c_str()) == 0) {}
    ~Mount() {
        if (m_isThere)
            umount2(m_place.c_str(), MNT_DETACH);
    }
    Mount(const Mount&) = delete;
    Mount& operator=(const Mount&) = delete;

    bool isThere() const { return m_isThere; }

private:
    std::string m_place;
    bool m_isThere;
};

/// Runs a body that mounts; skips the test where that is not permitted.
void whereMountingIsPermitted(const std::function<void()>& body) {
    if (!withOwnMounts(body))
        GTEST_SKIP() << "mounting is not permitted here";
}

void expectDone(const ExecutedRun& run) {
    EXPECT_EQ(run.entries.size(), 1U);
    for (const DeletionFailure& failure : run.report.failures)
        ADD_FAILURE() << failure.path << ": " << failure.reason;
}

TEST(Overlay, foldersOfALowerLayerGoAndComeBack) {
    whereMountingIsPermitted([] {
        DeletionStage stage;
        for (const char* item : {"trashed", "gone"}) {
            stage.tree.fileWithText(std::string("home/") + item + "/sub/file", "text");
            stage.tree.hardLink(std::string("home/") + item + "/name",
                                std::string("home/") + item + "/sub/file");
        }
        const std::string home = stage.home();
        const Mount layers("overlay", home, "overlay", 0,
                           "lowerdir=" + home + ",upperdir=" + stage.tree.directory("upper") +
                               ",workdir=" + stage.tree.directory("work"));
        if (!layers.isThere())
            GTEST_SKIP() << "no overlay here";
        ASSERT_EQ(rename(stage.home("trashed").c_str(), stage.home("renamed").c_str()), -1);
        ASSERT_EQ(errno, EXDEV) << "this overlay renames lower folders";
        const auto whole = snapshotOf(stage.home("trashed"));
        const ExecutedRun trashed = stage.run(stage.home("trashed"), Removal::trash);
        expectDone(trashed);
        EXPECT_FALSE(stage.tree.exists("home/trashed"));
        EXPECT_EQ(snapshotOf(stage.trash("trashed")), whole);
        expectDone(stage.run(stage.home("gone"), Removal::permanent));
        EXPECT_FALSE(stage.tree.exists("home/gone"));
        EXPECT_FALSE(stage.hasScratch());
        EXPECT_FALSE(DeletionHistory(stage.store, stage.removal).restore(trashed.entries.front()));
        EXPECT_EQ(snapshotOf(stage.home("trashed")), whole);
    });
}

/// Files of layers on two disks may have one number.
TEST(Overlay, filesOfSeveralDisksAreToldApartInACopy) {
    whereMountingIsPermitted([] {
        DeletionStage stage;
        std::vector<std::unique_ptr<Mount>> disks;
        for (const char* disk : {"first", "second", "top"}) {
            disks.push_back(
                std::make_unique<Mount>("tmpfs", stage.tree.directory(disk), "tmpfs", 0, "size=1m"));
            if (!disks.back()->isThere())
                GTEST_SKIP() << "no tmpfs here";
            stage.tree.fileWithText(std::string(disk) + "/tree/" + disk, disk);
            stage.tree.hardLink(std::string(disk) + "/tree/other name of " + disk,
                                std::string(disk) + "/tree/" + disk);
        }
        struct stat first {};
        struct stat second {};
        ASSERT_EQ(stat(stage.tree.path("first/tree/first").c_str(), &first), 0);
        ASSERT_EQ(stat(stage.tree.path("second/tree/second").c_str(), &second), 0);
        ASSERT_EQ(first.st_ino, second.st_ino) << "the disks number alike";
        const std::string place = stage.tree.directory("home/layers");
        const Mount layers("overlay", place, "overlay", 0,
                           "lowerdir=" + stage.tree.path("first") + ":" + stage.tree.path("second") +
                               ",upperdir=" + stage.tree.directory("top/upper") +
                               ",workdir=" + stage.tree.directory("top/work") + ",xino=off");
        if (!layers.isThere())
            GTEST_SKIP() << "no overlay here";
        const auto whole = snapshotOf(place + "/tree");
        expectDone(stage.run(place + "/tree", Removal::trash));
        EXPECT_EQ(snapshotOf(stage.home(".Trash/tree")), whole);
    });
}

/// An overlay copies a file of a lower layer before it renames it, and a folder before anything in it
/// changes: the copies are younger than what was reviewed.
TEST(Overlay, singleFilesOfALowerLayerGoAndComeBack) {
    for (const bool onOtherDisk : {false, true}) {
        whereMountingIsPermitted([&] {
            DeletionStage stage;
            const std::string home = stage.home();
            const Mount lower("tmpfs", onOtherDisk ? home : "nowhere", "tmpfs", 0, "size=1m");
            for (const char* name : {"first", "second", "third", "sub/fourth", "sub/fifth"})
                stage.tree.fileWithText("home/" + std::string(name), name);
            const Mount layers("overlay", home, "overlay", 0,
                               "lowerdir=" + home + ",upperdir=" + stage.tree.directory("upper") +
                                   ",workdir=" + stage.tree.directory("work"));
            if (!layers.isThere())
                GTEST_SKIP() << "no overlay here";
            const auto whole = snapshotOf(stage.home("first"));
            std::vector<DeletionRequest> requests;
            for (const auto& [name, how] :
                 {std::pair("first", Removal::trash), std::pair("second", Removal::permanent),
                  std::pair("third", Removal::trash), std::pair("sub/fourth", Removal::permanent),
                  std::pair("sub/fifth", Removal::trash)})
                requests.push_back(DeletionStage::request(stage.home(name), how));
            const ExecutedRun run = stage.executor.execute(requests);
            for (const DeletionFailure& failure : run.report.failures)
                ADD_FAILURE() << failure.path << ": " << failure.reason;
            ASSERT_EQ(run.entries.size(), requests.size());
            DeletionHistory history(stage.store, stage.removal);
            history.record(run);
            EXPECT_EQ(snapshotOf(stage.trash("first")), whole);
            EXPECT_FALSE(stage.tree.exists("home/second"));
            EXPECT_FALSE(history.restoreIfPossible(run.entries.front()));
            EXPECT_EQ(snapshotOf(stage.home("first")), whole);
        });
    }
}

TEST(Overlay, whatIsAnotherThanWasReviewedStays) {
    whereMountingIsPermitted([] {
        DeletionStage stage;
        const std::string home = stage.home();
        stage.tree.fileWithText("home/item", "reviewed");
        stage.tree.fileWithText("home/other", "another");
        const Mount layers("overlay", home, "overlay", 0,
                           "lowerdir=" + home + ",upperdir=" + stage.tree.directory("upper") +
                               ",workdir=" + stage.tree.directory("work"));
        if (!layers.isThere())
            GTEST_SKIP() << "no overlay here";
        const DeletionRequest request = DeletionStage::request(stage.home("item"), Removal::permanent);
        std::filesystem::rename(stage.home("other"), stage.home("item"));
        const ExecutedRun run = stage.executor.execute({request});
        ASSERT_EQ(run.report.failures.size(), 1U);
        EXPECT_EQ(run.report.failures.front().reason, "It has changed since it was reviewed.");
        EXPECT_TRUE(stage.tree.exists("home/item"));
    });
}

TEST(KeptIdentity, leavesOutWhatTheFileSystemMakesAnew) {
    FileStatus before;
    before.device = 7;
    before.inode = 12;
    before.mode = S_IFREG;
    before.born = {100, 5};
    FileStatus copied = before; // what an overlay shows of a file that it has copied up
    copied.born = {200, 0};
    FileStatus moved = copied; // likewise, from a layer on a disk of its own
    moved.device = 8;
    moved.inode = 99;
    FileStatus forgotten = before; // what FAT shows after the file has left the memory
    forgotten.inode = 13;
    FileStatus folder = before;
    folder.mode = S_IFDIR;
    const struct {
        const char* where;
        long type;
        std::uint64_t device; ///< of the folder
        std::vector<FileStatus> same;
        std::vector<FileStatus> others;
    } cases[] = {
        {"ext4", EXT4_SUPER_MAGIC, 7, {before}, {copied, moved, forgotten, folder}},
        {"overlay", OVERLAYFS_SUPER_MAGIC, 7, {before, copied}, {moved, forgotten, folder}},
        {"overlay of several disks", OVERLAYFS_SUPER_MAGIC, 6, {before, copied, moved}, {folder}},
        {"FAT", MSDOS_SUPER_MAGIC, 7, {before, forgotten}, {copied, moved, folder}},
        {"exFAT", EXFAT_SUPER_MAGIC, 7, {before, forgotten}, {copied, moved, folder}},
        {"unknown", -EIO, 7, {before}, {copied, moved, forgotten, folder}},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.where);
        const EntryIdentity reviewed = KeptIdentity(one.type, one.device).of(before);
        for (const FileStatus& now : one.same)
            EXPECT_TRUE(reviewed.isOf(now.identity()));
        for (const FileStatus& now : one.others)
            EXPECT_FALSE(reviewed.isOf(now.identity()));
    }
}

TEST(NoExclusiveRename, nothingIsOverwrittenAndNoReservationStays) {
    for (const bool hasLinks : {true, false}) {
        DeletionStage stage;
        stage.calls.lackExclusiveRename();
        if (!hasLinks)
            stage.calls.lackHardLinks();
        for (int i = 0; i < 3; ++i) {
            stage.tree.fileWithText("home/folder/file", "text");
            expectDone(stage.run(stage.home("folder"), Removal::trash));
            stage.tree.fileWithText("home/single", "text" + std::to_string(i));
            expectDone(stage.run(stage.home("single"), Removal::trash));
            stage.tree.symbolicLink("home/link", "nowhere");
            expectDone(stage.run(stage.home("link"), Removal::trash));
            stage.tree.fileWithText("home/gone/file", "text");
            expectDone(stage.run(stage.home("gone"), Removal::permanent));
        }
        EXPECT_EQ(stage.trashNames(),
                  (std::vector<std::string>{"folder", "folder 2", "folder 3", "link", "link 2", "link 3",
                                            "single", "single 2", "single 3"}));
        DeletionHistory history(stage.store, stage.removal);
        const HistoryEntry last = history.entries()[2]; // the third "single"
        EXPECT_FALSE(history.restoreIfPossible(last));
        EXPECT_EQ(snapshotOf(stage.home("single")).size(), 1U);
        EXPECT_TRUE(history.restore(history.entries()[6])) << "another has its place";
        stage.calls.failCalls("unlink", EIO); // also what would undo the first step fails
        stage.tree.fileWithText("home/busy", "text");
        const auto whole = snapshotOf(stage.home("busy"));
        stage.run(stage.home("busy"), Removal::trash);
        EXPECT_TRUE(snapshotOf(stage.home("busy")) == whole || snapshotOf(stage.trash("busy")) == whole ||
                    hasLinks);
    }
}

/// What goes to a disk that a test mounts comes from "home/item", which has all that a disk may not store.
std::string richItem(DeletionStage& stage) {
    const std::string item = stage.tree.fileWithText("home/item/file", "text");
    chmod(item.c_str(), 0640);
    return item;
}

TEST(OtherDisk, whatTheDiskCannotStoreIsLeftOutAndSaid) {
    const struct {
        const char* call;
        int error;
        const char* remark;
    } cases[] = {
        {"writeAttribute", ENOTSUP,
         "The other disk can't store all of its attributes, so some were left out."},
        {"writeAttribute", ENOSPC,
         "The other disk can't store all of its attributes, so some were left out."},
        {"setMode", EPERM, "The other disk can't store all of its attributes, so some were left out."},
        {"setTimes", EINVAL, "The other disk can't store all of its attributes, so some were left out."},
        {"makeHardLink", EPERM,
         "The other disk has no hard links, so its linked files are separate files now."},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.call);
        DeletionStage stage;
        const std::string item = richItem(stage);
        stage.tree.hardLink("home/item/name", "home/item/file");
        if (setxattr(item.c_str(), "user.colour", "blue", 4, 0) != 0)
            GTEST_SKIP() << "no extended attributes here";
        stage.calls.separate(stage.trash());
        stage.calls.failCalls(one.call, one.error);
        const ExecutedRun run = stage.run(stage.home("item"), Removal::trash);
        expectDone(run);
        ASSERT_EQ(run.report.remarks.size(), 1U);
        EXPECT_EQ(run.report.remarks.front().reason, one.remark);
        EXPECT_EQ(run.report.remarks.front().path, stage.home("item"));
        EXPECT_EQ(snapshotOf(stage.trash("item")).size(), 3U);
        EXPECT_FALSE(stage.tree.exists("home/item"));
        stage.calls.behave();
        stage.tree.fileWithText("home/plain", "text");
        EXPECT_TRUE(stage.run(stage.home("plain"), Removal::trash).report.remarks.empty());
    }
}

TEST(OtherDisk, aProgramKeepsTheCapabilitiesOfItsFile) {
    DeletionStage stage;
    const std::string program = stage.tree.fileWithText("home/item/program", "text");
    const vfs_cap_data granted{VFS_CAP_REVISION_2 | VFS_CAP_FLAGS_EFFECTIVE, {{1U << CAP_NET_RAW, 0}, {}}};
    constexpr uid_t other = 65534;
    if (chown(program.c_str(), other, other) != 0 ||
        setxattr(program.c_str(), capabilities, &granted, sizeof granted, 0) != 0)
        GTEST_SKIP() << "only the administrator grants capabilities";
    stage.calls.separate(stage.trash());
    const ExecutedRun run = stage.run(stage.home("item"), Removal::trash);
    expectDone(run);
    EXPECT_TRUE(run.report.remarks.empty());
    vfs_cap_data copied{};
    EXPECT_EQ(getxattr(stage.trash("item/program").c_str(), capabilities, &copied, sizeof copied),
              static_cast<ssize_t>(sizeof copied));
    EXPECT_EQ(copied.data[0].permitted, granted.data[0].permitted);
    struct stat status {};
    ASSERT_EQ(stat(stage.trash("item/program").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, other);
}

TEST(OtherDisk, whatItsOwnerMayNotBeGivenRunsWithNoRights) {
    DeletionStage stage;
    const std::string program = stage.tree.fileWithText("home/item", "text");
    const vfs_cap_data granted{VFS_CAP_REVISION_2, {{1U << CAP_NET_RAW, 0}, {}}};
    chmod(program.c_str(), 06755);
    if (chown(program.c_str(), 65534, 65534) != 0 || chmod(program.c_str(), 06755) != 0 ||
        setxattr(program.c_str(), capabilities, &granted, sizeof granted, 0) != 0)
        GTEST_SKIP() << "only the administrator grants capabilities";
    stage.calls.separate(stage.trash());
    stage.calls.failCalls("setOwner", EPERM);
    EXPECT_EQ(stage.run(stage.home("item"), Removal::trash).report.remarks.size(), 1U);
    struct stat status {};
    ASSERT_EQ(stat(stage.trash("item").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0755U);
    EXPECT_LT(getxattr(stage.trash("item").c_str(), capabilities, nullptr, 0), 0);
}

/// A run over an item of another disk that must be refused before anything is written.
void expectNothingCopied(DeletionStage& stage, const std::function<Failure()>& move, const char* sentence) {
    bool isWritten = false;
    stage.calls.onCall = [&](const SystemCall& call) {
        const std::string_view name = call.call;
        isWritten = isWritten || name == "writeAt" || (name == "makeFolder" && isScratchName(call.name));
    };
    const Failure failure = move();
    stage.calls.onCall = nullptr;
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->description, sentence);
    EXPECT_FALSE(isWritten);
    EXPECT_FALSE(stage.hasScratch());
}

Failure refusalOf(const ExecutedRun& run) {
    if (run.report.failures.empty())
        return std::nullopt;
    return PlatformError{ErrorDomain::posix, EIO, std::nullopt, run.report.failures.front().reason};
}

TEST(OtherDisk, aReadOnlyOrTooSmallOneIsRefusedBeforeAnythingIsCopied) {
    whereMountingIsPermitted([] {
        DeletionStage stage;
        const std::string disk = stage.tree.directory("home/disk");
        const Mount mounted("tmpfs", disk, "tmpfs", 0, "size=2m");
        ASSERT_TRUE(mounted.isThere());
        stage.tree.file("home/disk/item/large", 1 << 20);
        const auto whole = snapshotOf(stage.home("disk/item"));
        ASSERT_EQ(mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, "size=2m"), 0);
        expectNothingCopied(
            stage, [&] { return refusalOf(stage.run(stage.home("disk/item"), Removal::trash)); },
            "Its disk is read-only, so it can't leave it.");
        EXPECT_EQ(snapshotOf(stage.home("disk/item")), whole);
        ASSERT_EQ(mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT, "size=2m"), 0);
        const ExecutedRun run = stage.run(stage.home("disk/item"), Removal::trash);
        expectDone(run);
        stage.tree.file("home/disk/filler", 1536 << 10);
        DeletionHistory history(stage.store, stage.removal);
        expectNothingCopied(
            stage, [&] { return history.restore(run.entries.front()); },
            "There is not enough room for it on the other disk.");
        EXPECT_EQ(snapshotOf(stage.trash("item")), whole);
    });
}

/// Writes until the disk takes no more.
void fill(const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    const std::string block(1 << 16, 'x');
    for (std::size_t bytes = block.size(); bytes > 0;) {
        if (write(file, block.data(), bytes) <= 0)
            bytes /= 2;
    }
    fsync(file);
    close(file);
}

/// Trash and back on a disk without a byte to spare; the store has had room before.
void expectMovesOnAFullDisk(DeletionStage& stage) {
    constexpr int items = 40;
    stage.store.keepReserve();
    for (int i = 0; i < items; ++i)
        stage.tree.fileWithText("home/items/" + std::to_string(i) + "/file", "text");
    fill(stage.home("filler"));
    fill(stage.home("filler of folders"));
    std::vector<DeletionRequest> requests;
    for (int i = 0; i < items; ++i)
        requests.push_back(DeletionStage::request(stage.home("items/" + std::to_string(i)), Removal::trash));
    ExecutedRun run = stage.executor.execute(requests);
    for (const DeletionFailure& failure : run.report.failures)
        ADD_FAILURE() << failure.path << ": " << failure.reason;
    EXPECT_EQ(run.entries.size(), static_cast<std::size_t>(items));
    DeletionHistory history(stage.store, stage.removal);
    EXPECT_TRUE(history.record(run));
    EXPECT_EQ(stage.historyOnDisk().size(), static_cast<std::size_t>(items));
    for (const HistoryEntry& entry : run.entries)
        EXPECT_FALSE(history.restore(entry)) << entry.originalPath;
    EXPECT_TRUE(stage.tree.exists("home/items/0/file"));
}

TEST(FullDisk, movesToTheTrashAndBackStillWork) {
    whereMountingIsPermitted([] {
        DeletionStage stage;
        const Mount memory("tmpfs", stage.home(), "tmpfs", 0, "size=16m");
        ASSERT_TRUE(memory.isThere());
        std::filesystem::create_directories(stage.store.folder());
        expectMovesOnAFullDisk(stage);
    });
}

TEST(FullDisk, theSameOnADiskWithBlocksForFolders) {
    whereMountingIsPermitted([] {
        DeletionStage stage;
        const std::string image = stage.tree.sparseFile("image", 64 << 20);
        if (runProgram("/usr/sbin/mkfs.ext4", {"-q", "-F", image}).status != 0 ||
            runProgram("/usr/bin/mount", {"-o", "loop", image, stage.home()}).status != 0)
            GTEST_SKIP() << "no ext4 in a file here";
        std::filesystem::create_directories(stage.store.folder());
        expectMovesOnAFullDisk(stage);
        umount2(stage.home().c_str(), MNT_DETACH);
    });
}

TEST(FullDisk, theReserveIsTakenOnceAndGivenBackOnce) {
    DeletionStage stage;
    stage.tree.fileWithText("home/file", "text");
    stage.run(stage.home("file"), Removal::trash);
    struct stat status {};
    ASSERT_EQ(stat((stage.store.folder() + "/reserve").c_str(), &status), 0);
    EXPECT_GE(status.st_blocks * 512, 4 << 20);
    EXPECT_TRUE(stage.store.makeRoom());
    EXPECT_FALSE(stage.store.makeRoom());
    stage.calls.failCalls("allocate", ENOSPC);
    stage.store.keepReserve();
    EXPECT_FALSE(stage.store.makeRoom()) << "half a reserve is none";
}

TEST(OlderKernel, mountedDisksAreFoundAllTheSame) {
    whereMountingIsPermitted([] {
        DeletionStage stage;
        stage.calls.actAsOlderKernel();
        stage.tree.fileWithText("home/item/plain/file", "text");
        stage.tree.directory("home/item/bound");
        stage.tree.fileWithText("outside/bound/canary", "alive");
        // The same device: only the kernel's list of mounts tells them apart.
        const Mount bound(stage.tree.path("outside/bound"), stage.home("item/bound"), nullptr, MS_BIND, "");
        ASSERT_TRUE(bound.isThere());
        for (const char* path : {"item/bound", "item"}) {
            const ExecutedRun run = stage.run(stage.home(path), Removal::permanent);
            ASSERT_EQ(run.report.failures.size(), 1U) << path;
            EXPECT_EQ(run.report.failures.front().reason, "Another disk is mounted here. Eject it first.");
        }
        EXPECT_TRUE(stage.tree.exists("outside/bound/canary"));
        stage.tree.fileWithText("home/other/sub/file", "text");
        expectDone(stage.run(stage.home("other"), Removal::permanent));
    });
}

} // namespace
} // namespace brimlet::test
