// A tree corrected after deletions says what a fresh scan would say.
#include "core/Scanner.h"
#include "support/TemporaryTree.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>

namespace brimlet {
namespace {

/// Folders in folders and files on both sides of the listing threshold.
std::vector<std::string> makeTree(const test::TemporaryTree& tree, std::mt19937& random) {
    std::vector<std::string> folders = {""};
    for (int i = 0; i < 25; ++i) {
        folders.push_back(folders[random() % folders.size()] + "folder" + std::to_string(i) + "/");
        tree.directory(folders.back());
    }
    for (int i = 0; i < 60; ++i)
        tree.file(folders[random() % folders.size()] + "file" + std::to_string(i),
                  random() % 2 == 0 ? 700'000 : 9'000);
    return folders;
}

void expectSameTree(const FileNode& corrected, const FileNode& fresh) {
    ASSERT_EQ(corrected.name, fresh.name);
    const std::string path = corrected.path();
    // A folder's own blocks may shrink with its entries, which only a scan sees.
    EXPECT_EQ(corrected.logicalSize, fresh.logicalSize) << path;
    EXPECT_EQ(corrected.fileCount, fresh.fileCount) << path;
    EXPECT_EQ(corrected.size, fresh.size) << path;
    std::vector<const FileNode*> left;
    std::ranges::copy_if(corrected.children, std::back_inserter(left),
                         [](const FileNode* one) { return !one->deleted; });
    ASSERT_EQ(left.size(), fresh.children.size()) << path;
    std::vector<const FileNode*> right(fresh.children.begin(), fresh.children.end());
    std::ranges::sort(left, {}, &FileNode::name);
    std::ranges::sort(right, {}, &FileNode::name);
    for (std::size_t i = 0; i < left.size(); ++i)
        ASSERT_NO_FATAL_FAILURE(expectSameTree(*left[i], *right[i]));
}

TEST(CorrectedTree, agreesWithAFreshScanAfterRandomDeletions) {
    for (std::uint32_t seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const test::TemporaryTree tree;
        makeTree(tree, random);
        const auto scan = Scanner().scan(tree.root(), {}, {});
        ASSERT_NE(scan, nullptr);
        for (int round = 0; round < 6; ++round) {
            std::vector<FileNode*> candidates = {scan->root};
            for (std::size_t i = 0; i < candidates.size(); ++i) {
                for (FileNode* child : candidates[i]->children) {
                    if (!child->deleted)
                        candidates.push_back(child);
                }
            }
            if (candidates.size() < 2)
                break;
            const std::string gone = candidates[1 + random() % (candidates.size() - 1)]->path();
            std::filesystem::remove_all(gone);
            scan->markDeleted({gone});
            const auto fresh = Scanner().scan(tree.root(), {}, {});
            ASSERT_NO_FATAL_FAILURE(expectSameTree(*scan->root, *fresh->root)) << "without " << gone;
        }
    }
}

} // namespace
} // namespace brimlet
