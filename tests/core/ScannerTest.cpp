// What a walk must survive, and how it is watched and stopped.

#include "core/walk/Scanner.h"

#include "core/walk/MeasureTree.h"
#include "support/FtsWalk.h"
#include "support/Privileges.h"
#include "support/TemporaryTree.h"
#include "tables/SystemTables.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace brimlet {
namespace {

using test::TemporaryTree;

/// While it lives, the process may open so many descriptors more than it has.
class DescriptorLimit {
public:
    explicit DescriptorLimit(rlim_t more) {
        getrlimit(RLIMIT_NOFILE, &m_previous);
        const int lowestFree = dup(0);
        close(lowestFree);
        const rlimit limit = {static_cast<rlim_t>(lowestFree) + more, m_previous.rlim_max};
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~DescriptorLimit() { setrlimit(RLIMIT_NOFILE, &m_previous); }
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;

private:
    rlimit m_previous{};
};

std::size_t threadsOfProcess() {
    std::size_t threads = 0;
    DIR* tasks = opendir("/proc/self/task");
    while (const dirent* task = readdir(tasks))
        threads += task->d_name[0] != '.' ? 1 : 0;
    closedir(tasks);
    return threads;
}

/// Sees how many threads the process has beyond those there were, this watch's own left out.
class ThreadWatch {
public:
    ThreadWatch()
        : m_before(threadsOfProcess() + 1)
        , m_thread([this] {
            for (; !m_ended; std::this_thread::yield()) {
                const std::size_t threads = threadsOfProcess();
                m_most = std::max(m_most, threads);
                ++m_looks;
                m_looksWithMore += threads > m_before ? 1 : 0;
            }
        }) {}
    ~ThreadWatch() { end(); }
    ThreadWatch(const ThreadWatch&) = delete;
    ThreadWatch& operator=(const ThreadWatch&) = delete;

    std::size_t mostAdded() {
        end();
        return m_most > m_before ? m_most - m_before : 0;
    }

    /// How often, of all times it looked, there were more.
    double shareOfTime() {
        end();
        return static_cast<double>(m_looksWithMore) / static_cast<double>(std::max(m_looks, 1));
    }

private:
    void end() {
        m_ended = true;
        if (m_thread.joinable())
            m_thread.join();
    }

    const std::size_t m_before;
    std::size_t m_most = 0;
    int m_looks = 0;
    int m_looksWithMore = 0;
    std::atomic<bool> m_ended = false;
    std::thread m_thread;
};

/// Folders in folders, with a file in each: wide enough that several threads join.
void fillWide(const TemporaryTree& tree, int width) {
    for (int i = 0; i < width; ++i)
        for (int j = 0; j < width; ++j)
            tree.file("w" + std::to_string(i) + "/" + std::to_string(j) + "/file", 10);
}

/// A chain of folders too long for any path, each with a file and a folder beside the next one. Removed by
/// the object's end, since nothing that works with paths can.
class DeepChain {
public:
    DeepChain(const TemporaryTree& tree, int levels)
        : m_levels(levels)
        , m_top(tree.directory("chain")) {
        int current = open(m_top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        for (int i = 0; i < levels; ++i) {
            close(openat(current, "file", O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
            mkdirat(current, "aside", 0755);
            mkdirat(current, m_name.c_str(), 0755);
            current = replaced(current, m_name.c_str());
        }
        close(current);
    }
    ~DeepChain() {
        int current = open(m_top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        for (int i = 0; i < m_levels; ++i)
            current = replaced(current, m_name.c_str());
        for (int i = 0; i < m_levels; ++i) {
            current = replaced(current, "..");
            unlinkat(current, "file", 0);
            unlinkat(current, "aside", AT_REMOVEDIR);
            unlinkat(current, m_name.c_str(), AT_REMOVEDIR);
        }
        close(current);
    }
    DeepChain(const DeepChain&) = delete;
    DeepChain& operator=(const DeepChain&) = delete;

private:
    static int replaced(int descriptor, const char* name) {
        const int next = openat(descriptor, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        close(descriptor);
        return next;
    }

    const int m_levels;
    const std::string m_top;
    const std::string m_name = std::string(200, 'd');
};

TEST(Scanner, givesNothingWhereTheRootIsNoFolder) {
    const TemporaryTree tree;
    tree.file("file");
    tree.symbolicLink("link", tree.root());
    for (const std::string& path :
         {tree.path("nothing"), tree.path("file"), tree.path("link"), std::string()})
        EXPECT_EQ(Scanner(macosTables().folders).scan(path, {}, {}), nullptr) << path;
    EXPECT_EQ(measureTree(tree.path("nothing")), TreeMeasure{});
    EXPECT_EQ(measureTree(tree.path("file")), (TreeMeasure{0, 1}));
    EXPECT_EQ(measureTree(tree.path("link")), test::ftsMeasure(tree.path("link")));
}

TEST(Scanner, keepsARootThatCantBeRead) {
    const TemporaryTree tree;
    tree.file("closed/file", 10);
    chmod(tree.path("closed").c_str(), 0);
    const test::OrdinaryRights rights;
    const auto result = Scanner(macosTables().folders).scan(tree.path("closed"), {}, {});
    ASSERT_TRUE(result);
    EXPECT_TRUE(result->root->unreadable);
    EXPECT_EQ(result->unreadableDirectories, 1);
    EXPECT_EQ(result->totalDirectories, 1);
}

TEST(Scanner, givesAFileItsNodeFrom512KiBOfBlocks) {
    const TemporaryTree tree;
    tree.file("large", 524'288);
    tree.file("small", 524'288 - 4'096);
    tree.sparseFile("sparse", 1'000'000'000);
    const auto result = Scanner(macosTables().folders).scan(tree.root(), {}, {});
    ASSERT_EQ(result->files.size(), 1U);
    EXPECT_EQ(result->files[0]->path(), tree.path("large"));
    EXPECT_EQ(result->root->smallFilesSize, 524'288 - 4'096);
    EXPECT_EQ(result->root->smallFilesCount, 2U);
    EXPECT_EQ(result->root->logicalSize, 1'000'000'000 + 2 * 524'288 - 4'096);
}

TEST(Scanner, neverOpensFifosOrDevices) {
    const TemporaryTree tree;
    mkfifo(tree.path("fifo").c_str(), 0600);
    const auto result =
        Scanner(macosTables().folders).scan(tree.root(), {}, {}); // opening it would wait for a writer
    EXPECT_EQ(result->totalFiles, 1);
    EXPECT_EQ(measureTree(tree.path("fifo")).files, 1);
}

TEST(Scanner, reachesFoldersDeeperThanAnyPath) {
    constexpr int levels = 3'000;
    const TemporaryTree tree;
    const DeepChain chain(tree, levels);
    const auto result = Scanner(macosTables().folders).scan(tree.root(), {}, {});
    ASSERT_TRUE(result);
    EXPECT_EQ(result->totalFiles, levels);
    EXPECT_EQ(result->totalDirectories, 2 * levels + 2);
    EXPECT_EQ(result->unreadableDirectories, 0);
    EXPECT_EQ(measureTree(tree.root()), (TreeMeasure{result->root->size, levels}));
}

TEST(Scanner, losesNoFolderWhenDescriptorsRunOut) {
    const TemporaryTree tree;
    fillWide(tree, 30);
    const DeepChain chain(tree, 100);
    const auto expected = Scanner(macosTables().folders).scan(tree.root(), {}, {});
    for (const rlim_t more : {3, 4, 8, 12, 20}) {
        const DescriptorLimit limit(more);
        const auto result = Scanner(macosTables().folders).scan(tree.root(), {}, {});
        ASSERT_TRUE(result);
        EXPECT_EQ(test::differences(*result, *expected), "") << more;
        EXPECT_EQ(measureTree(tree.root()).bytes, expected->root->size) << more;
    }
}

TEST(Scanner, endsWithoutAnyDescriptor) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer's own checks need descriptors";
#endif
    const TemporaryTree tree;
    tree.file("a/b/file", 10);
    const DescriptorLimit limit(0);
    const auto result = Scanner(macosTables().folders).scan(tree.root(), {}, {});
    ASSERT_TRUE(result);
    EXPECT_TRUE(result->root->unreadable);
}

TEST(Scanner, survivesATreeThatChangesUnderIt) {
    const TemporaryTree tree;
    const TemporaryTree outside;
    outside.file("secret", 4'000'000);
    fillWide(tree, 12);
    std::atomic<bool> ended = false;
    // Folders vanish, become files and become links to somewhere else, over and over.
    std::thread changing([&] {
        for (int i = 0; !ended; ++i) {
            const std::string victim = tree.path("w" + std::to_string(i % 12));
            const std::string moved = tree.path("moved");
            if (rename(victim.c_str(), moved.c_str()) != 0)
                continue;
            if (i % 3 == 0)
                symlink(outside.root().c_str(), victim.c_str());
            else if (i % 3 == 1)
                close(open(victim.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
            std::this_thread::yield();
            unlink(victim.c_str());
            rename(moved.c_str(), victim.c_str());
        }
    });
    for (int i = 0; i < 150; ++i) {
        const auto result = Scanner(macosTables().folders).scan(tree.root(), {}, {});
        ASSERT_TRUE(result);
        EXPECT_TRUE(result->files.empty()) << "a link was followed";
        EXPECT_LT(measureTree(tree.root()).bytes, 4'000'000) << "a link was followed";
    }
    ended = true;
    changing.join();
}

TEST(Scanner, leavesNothingOpenAndNoThreadBehind) {
    const TemporaryTree tree;
    fillWide(tree, 30);
    const int before = dup(0);
    close(before);
    std::thread([] {}).join(); // a sanitizer starts one of its own with the first
    const std::size_t threads = threadsOfProcess();
    Scanner(macosTables().folders).scan(tree.root(), {}, {});
    measureTree(tree.root());
    Scanner cancelled(macosTables().folders);
    cancelled.cancel();
    cancelled.scan(tree.root(), {}, {});
    const int after = dup(0);
    close(after);
    EXPECT_EQ(after, before);
    EXPECT_EQ(threadsOfProcess(), threads);
}

TEST(Scanner, givesNothingOnceCancelled) {
    const TemporaryTree tree;
    fillWide(tree, 40);
    Scanner early(macosTables().folders);
    early.cancel();
    EXPECT_EQ(early.scan(tree.root(), {}, {}), nullptr);
    // At any moment: all or nothing, and at once.
    const auto whole = Scanner(macosTables().folders).scan(tree.root(), {}, {});
    for (int i = 0; i < 60; ++i) {
        Scanner scanner(macosTables().folders);
        std::thread cancelling([&] {
            std::this_thread::sleep_for(std::chrono::microseconds(100 * i));
            scanner.cancel();
        });
        const auto result = scanner.scan(tree.root(), {}, {});
        EXPECT_EQ(result ? test::differences(*result, *whole) : "", "");
        cancelling.join();
    }
}

TEST(Scanner, reportsProgressThatNeverFallsAndStopsWithTheScan) {
    const std::string root = "/usr"; // large on every machine
    std::int64_t reports = 0;
    std::int64_t lastFiles = 0;
    std::int64_t lastBytes = 0;
    bool running = true;
    const auto started = std::chrono::steady_clock::now();
    for (int i = 0; i < 5; ++i) {
        lastFiles = 0;
        lastBytes = 0;
        const auto result =
            Scanner(macosTables().folders)
                .scan(root, {}, [&](std::int64_t files, std::int64_t bytes, std::string_view path) {
                    EXPECT_TRUE(running);
                    EXPECT_GE(files, lastFiles);
                    EXPECT_GE(bytes, lastBytes);
                    EXPECT_TRUE(path.starts_with(root)) << path;
                    lastFiles = files;
                    lastBytes = bytes;
                    ++reports;
                    std::this_thread::sleep_for(std::chrono::milliseconds(50));
                });
        EXPECT_LE(lastFiles, result->totalFiles);
        EXPECT_LE(lastBytes, result->root->size);
    }
    running = false;
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - started;
    EXPECT_LE(static_cast<double>(reports), 1 + elapsed.count() * 12.5);
    EXPECT_TRUE(reports > 0 || elapsed.count() < 1) << "silent for " << elapsed.count() << " s";
}

TEST(MeasureTree, mayRunOnManyThreadsAtOnce) {
    constexpr std::size_t callerCount = 16;
    const TemporaryTree tree;
    fillWide(tree, 30);
    const TreeMeasure expected = test::ftsMeasure(tree.root());
    ThreadWatch watch;
    std::vector<std::thread> callers;
    for (std::size_t i = 0; i < callerCount; ++i) {
        callers.emplace_back([&] {
            for (int j = 0; j < 10; ++j)
                EXPECT_EQ(measureTree(tree.root()), expected);
        });
    }
    for (std::thread& caller : callers)
        caller.join();
    EXPECT_LE(watch.mostAdded(), callerCount + 128);
}

TEST(MeasureTree, startsNoThreadForASmallFolder) {
    const TemporaryTree tree;
    fillWide(tree, 2);
    std::thread([] {}).join(); // a sanitizer starts one of its own with the first
    ThreadWatch watch;
    for (int i = 0; i < 5'000; ++i)
        measureTree(tree.root());
    // A walk that the machine holds up may take some along.
    EXPECT_LE(watch.shareOfTime(), 0.2);
}

} // namespace
} // namespace brimlet
