#include "core/ScanResult.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace brimlet {
namespace {

/// A small tree with sizes that add up: every directory has 10 bytes of its own and 1 of small files.
///
/// root ┬ a ┬ b ─ big (100)
///      │   └ c
///      └ ab
class ScanResultTest : public testing::Test {
protected:
    void build(std::string_view rootPath) {
        m_result.rootPath = rootPath;
        m_big = node("big", 100);
        m_b = directory("b", {m_big});
        m_c = directory("c", {});
        m_a = directory("a", {m_b, m_c});
        m_ab = directory("ab", {});
        m_result.root = directory(rootPath, {m_a, m_ab});
        m_result.files = {m_big};
        m_result.bucketTotals = {{StorageBucket::other, m_result.root->size}};
    }

    FileNode* node(std::string_view name, std::int64_t size) {
        FileNode* made = m_result.arena.newNode(name);
        made->size = size;
        made->logicalSize = size;
        made->fileCount = 1;
        return made;
    }

    FileNode* directory(std::string_view name, const std::vector<FileNode*>& children) {
        FileNode* made = m_result.arena.newNode(name);
        made->isDirectory = true;
        made->size = 11;
        made->smallFilesSize = 1;
        made->fileCount = 1;
        made->children = m_result.arena.newChildren(children.size());
        for (std::size_t i = 0; i < children.size(); ++i) {
            made->children[i] = children[i];
            children[i]->parent = made;
            made->size += children[i]->size;
            made->logicalSize += children[i]->logicalSize;
            made->fileCount += children[i]->fileCount;
        }
        return made;
    }

    ScanResult m_result;
    FileNode* m_big = nullptr;
    FileNode* m_a = nullptr;
    FileNode* m_b = nullptr;
    FileNode* m_c = nullptr;
    FileNode* m_ab = nullptr;
};

TEST_F(ScanResultTest, nodePathStartsWithTheRootsNameAndHasSingleSlashes) {
    build("/");
    EXPECT_EQ(m_result.root->path(), "/");
    EXPECT_EQ(m_big->path(), "/a/b/big");
}

TEST_F(ScanResultTest, findsNodesByPathsWithoutTheDataVolume) {
    build("/System/Volumes/Data");
    EXPECT_EQ(m_big->path(), "/System/Volumes/Data/a/b/big");
    EXPECT_EQ(m_result.nodeAtPath("/"), m_result.root);
    EXPECT_EQ(m_result.nodeAtPath("/a/b/big"), m_big);
    EXPECT_EQ(m_result.nodeAtPath("//a//b/"), m_b);
    EXPECT_EQ(m_result.nodeAtPath("/a/B"), nullptr);
    EXPECT_EQ(m_result.nodeAtPath("a"), nullptr);
    EXPECT_EQ(m_result.nodeAtPath("/a/b/big/x"), nullptr);
}

TEST_F(ScanResultTest, findsNothingOutsideTheRoot) {
    build("/Users/bob");
    EXPECT_EQ(m_result.nodeAtPath("/Users/bob"), m_result.root);
    EXPECT_EQ(m_result.nodeAtPath("/Users/bob/"), m_result.root);
    EXPECT_EQ(m_result.nodeAtPath("/Users/bob/ab"), m_ab);
    EXPECT_EQ(m_result.nodeAtPath("/Users/boba"), nullptr);
    EXPECT_EQ(m_result.nodeAtPath("/Users"), nullptr);
}

TEST_F(ScanResultTest, deletionTakesSizesOffEveryAncestorOnce) {
    for (const char* rootPath : {"/", "/Users/bob", "/Users/bob/"}) {
        build(rootPath);
        const std::int64_t total = m_result.root->size;
        for (int round = 1; round <= 2; ++round) {
            m_result.markDeleted({m_b->path()});
            EXPECT_TRUE(m_b->deleted);
            EXPECT_FALSE(m_big->deleted);
            EXPECT_EQ(m_b->size, 111);
            EXPECT_EQ(m_a->size, 22);
            EXPECT_EQ(m_a->fileCount, 2);
            EXPECT_EQ(m_result.root->size, total - 111);
            EXPECT_EQ(m_result.root->logicalSize, 0);
            EXPECT_EQ(m_result.bucketTotals[StorageBucket::other], total - 111 * round);
        }
    }
}

TEST_F(ScanResultTest, deletionChargesTheDirectorysOwnBucketAndMayGoBelowZero) {
    build("/r");
    m_a->bucket = StorageBucket::junk;
    m_result.markDeleted({"/r/a"});
    EXPECT_EQ(m_result.bucketTotals[StorageBucket::junk], -m_a->size);
}

TEST_F(ScanResultTest, deletionMatchesWholeNodePathsOnly) {
    build("/System/Volumes/Data");
    const std::int64_t total = m_result.root->size;
    m_result.markDeleted({});
    m_result.markDeleted({"/a/b", "/System/Volumes/Data/a/small", "/System/Volumes/Data/a/",
                          "/System/Volumes/Data/A", "/System/Volumes/Data/a/b/big/x"});
    EXPECT_EQ(m_result.root->size, total);
    m_result.markDeleted({"/System/Volumes/Data/a/b/big", "/System/Volumes/Data/ab"});
    EXPECT_TRUE(m_big->deleted);
    EXPECT_TRUE(m_ab->deleted);
    EXPECT_FALSE(m_a->deleted);
    EXPECT_EQ(m_result.root->size, total - 100 - 11);
}

TEST_F(ScanResultTest, whatLiesBelowADeletedFolderChangesNothingAboveIt) {
    build("/r");
    m_a->bucket = StorageBucket::junk;
    m_result.markDeleted({"/r/a"});
    const std::int64_t left = m_result.root->size;
    m_result.markDeleted({"/r/a/b/big"});
    m_result.markDeleted({"/r/a/b/big", "/r/a/c"});
    EXPECT_EQ(m_result.root->size, left);
    EXPECT_EQ(m_result.bucketTotals[StorageBucket::junk], -133);
    EXPECT_EQ(m_a->size, 22);
    EXPECT_EQ(m_b->size, 11);

    m_result.markRestored({"/r/a", "/r/ab", "/r/no"});
    EXPECT_EQ(m_result.root->size, left + 22);
    EXPECT_FALSE(m_a->deleted);
    EXPECT_TRUE(m_c->deleted);
    EXPECT_EQ(m_result.bucketTotals[StorageBucket::junk], -133 + 22);
}

TEST_F(ScanResultTest, folderMadeAnewForWhatIsPutBackHoldsNothingElse) {
    build("/r");
    m_result.markDeleted({"/r/a/c"});
    m_result.markDeleted({"/r/a"});
    const std::int64_t left = m_result.root->size;
    m_result.markRestored({"/r/a/c"});
    EXPECT_FALSE(m_a->deleted);
    EXPECT_TRUE(m_b->deleted);
    EXPECT_EQ(m_a->size, 10 + m_c->size);
    EXPECT_EQ(m_a->smallFilesCount, 0);
    EXPECT_EQ(m_result.root->size, left + m_a->size);
    EXPECT_EQ(m_result.bucketTotals[StorageBucket::other], m_result.root->size);
}

TEST_F(ScanResultTest, nodesAreFoundByTheirExactPathsOutermostOnly) {
    build("/r");
    using Nodes = std::vector<FileNode*>;
    const auto found = [&](const std::unordered_set<std::string>& paths) {
        Nodes nodes = m_result.nodesAtNodePaths(paths);
        std::ranges::sort(nodes, {}, &FileNode::name);
        return nodes;
    };
    EXPECT_EQ(found({"/r/a", "/r/a/b/big", "/r/ab", "/r/a-b"}), (Nodes{m_a, m_ab}));
    EXPECT_EQ(found({"/r/a/b", "/r/a/b/big", "/r/a/c", "/r/a//c", "/r/a/c/"}), (Nodes{m_b, m_c}));
    EXPECT_EQ(found({"/", "/r/", "/rr", "/r/a/b/big/x", "r/a"}), Nodes());
    EXPECT_EQ(found({"/r", "/r/a"}), Nodes{m_result.root});
}

TEST_F(ScanResultTest, deletedRootHasNoAncestorsToChange) {
    build("/r");
    m_result.markDeleted({"/r"});
    EXPECT_TRUE(m_result.root->deleted);
    EXPECT_EQ(m_result.bucketTotals[StorageBucket::other], 0);
}

TEST(ScanTarget, hasAPathAndALabel) {
    EXPECT_EQ(ScanTarget::home().path("/Users/bob"), "/Users/bob");
    EXPECT_EQ(ScanTarget::home().label(), "Home folder");
    EXPECT_EQ(ScanTarget::wholeDisk().label(), "Entire disk");
    EXPECT_EQ(ScanTarget::folder("/a/b").path("/Users/bob"), "/a/b");
    EXPECT_EQ(ScanTarget::folder("/a/b").label(), "b");
    EXPECT_EQ(ScanTarget::folder("/a/b/").label(), "b");
    EXPECT_EQ(ScanTarget::folder("/").label(), "/");
    EXPECT_EQ(ScanTarget::folder("/a"), ScanTarget::folder("/a"));
    EXPECT_NE(ScanTarget::folder("/a"), ScanTarget::folder("/b"));
    EXPECT_NE(ScanTarget::home(), ScanTarget::wholeDisk());
}

} // namespace
} // namespace brimlet
