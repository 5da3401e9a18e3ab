// Scans and measurements of random trees against the plain fts loop, field by field.

#include "core/walk/MeasureTree.h"
#include "core/walk/Scanner.h"
#include "support/FtsWalk.h"
#include "support/Privileges.h"
#include "support/RandomTree.h"
#include "support/TemporaryTree.h"
#include "tables/SystemTables.h"

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brimlet {
namespace {

using test::OrdinaryRights;
using test::RandomTree;
using test::TemporaryTree;

constexpr std::uint32_t baseSeed = 20'260'101;

using Paths = std::unordered_set<std::string>;

Paths absolute(const Paths& relative, const std::string& root) {
    Paths paths;
    for (const std::string& path : relative)
        paths.insert(path.empty() ? root : (root == "/" ? "" : root) + "/" + path);
    return paths;
}

void expectSameAsFts(const std::string& root, const Paths& excluded) {
    ASSERT_TRUE(test::ftsScan(root, excluded)); // settles the access times of the folders
    const auto expected = test::ftsScan(root, excluded);
    const auto actual = Scanner(macosTables().folders).scan(root, excluded, {});
    ASSERT_TRUE(actual);
    EXPECT_EQ(test::differences(*actual, *expected), "");
    EXPECT_EQ(measureTree(root), test::ftsMeasure(root));
}

class RandomTrees : public testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomTrees, areScannedAsByTheSequentialWalk) {
    for (std::uint32_t i = 0; i < 20; ++i) {
        const std::uint32_t seed = baseSeed + GetParam() * 20 + i;
        SCOPED_TRACE("seed " + std::to_string(seed));
        const TemporaryTree tree;
        const RandomTree random(tree, seed);
        const OrdinaryRights rights;
        expectSameAsFts(tree.root(), absolute(random.excluded, tree.root()));
        expectSameAsFts(tree.root() + "/", {});
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomTrees, testing::Range<std::uint32_t>(0, 12));

TEST(WholeDisk, isBucketedByItsPathsAsByTheSequentialWalk) {
    for (std::uint32_t i = 0; i < 30; ++i) {
        const TemporaryTree tree;
        tree.file("System/Volumes/Data/Users/a/Library/Caches/x/y", 600'000);
        tree.directory("System/Volumes/Data/Library/Caches");
        const RandomTree random(tree, baseSeed + 1'000 + i);
        Paths excluded = absolute(random.excluded, "/");
        excluded.insert("/Library/Caches");
        const bool allowed = test::withOwnMounts([&] {
            SCOPED_TRACE("tree " + std::to_string(i));
            ASSERT_EQ(chroot(tree.root().c_str()), 0);
            ASSERT_EQ(chdir("/"), 0);
            for (const char* root : {"/", "/System", "/System/Volumes/Data", "/System/Volumes/Data/Users/a"})
                expectSameAsFts(root, excluded);
            expectSameAsFts("/", {"/"});
        });
        if (!allowed)
            GTEST_SKIP() << "changing the root folder needs root";
    }
}

TEST(MountedFileSystems, areMetAndNotEnteredAndCyclesAreLeftOut) {
    const TemporaryTree tree;
    for (std::uint32_t i = 0; i < 10; ++i)
        tree.file("a/b/file" + std::to_string(i), 5'000);
    for (const char* mountPoint : {"a/other", "a/b/loop", "twice", "file-mount"})
        tree.directory(mountPoint);
    tree.file("a/file-from-elsewhere");
    const bool allowed = test::withOwnMounts([&] {
        ASSERT_EQ(mount("none", tree.path("a/other").c_str(), "tmpfs", 0, nullptr), 0);
        tree.file("a/other/inside", 1'000'000);
        tree.directory("a/other/folder/below");
        ASSERT_EQ(mount(tree.path("a").c_str(), tree.path("a/b/loop").c_str(), nullptr, MS_BIND, nullptr), 0);
        ASSERT_EQ(mount(tree.path("a/b").c_str(), tree.path("twice").c_str(), nullptr, MS_BIND, nullptr), 0);
        ASSERT_EQ(mount(tree.path("a/other/inside").c_str(), tree.path("a/file-from-elsewhere").c_str(),
                        nullptr, MS_BIND, nullptr),
                  0);
        expectSameAsFts(tree.root(), {});
        expectSameAsFts(tree.path("a/other"), {});
        const auto result = Scanner(macosTables().folders).scan(tree.root(), {}, {});
        const FileNode* other = result->nodeAtPath(tree.path("a/other"));
        ASSERT_NE(other, nullptr);
        EXPECT_TRUE(other->children.empty());
        EXPECT_EQ(result->nodeAtPath(tree.path("a/b/loop")), nullptr);
        EXPECT_NE(result->nodeAtPath(tree.path("a/file-from-elsewhere")), nullptr);
    });
    if (!allowed)
        GTEST_SKIP() << "mounting needs root";
}

} // namespace
} // namespace brimlet
