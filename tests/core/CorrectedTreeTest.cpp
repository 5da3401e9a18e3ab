// A tree corrected after deletions and restores says what a fresh scan would say.
#include "core/walk/Scanner.h"
#include "support/TemporaryTree.h"
#include "tables/SystemTables.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace brimlet {
namespace {

/// Folders in folders and files on both sides of the listing threshold.
void makeTree(const test::TemporaryTree& tree, std::mt19937& random) {
    std::vector<std::string> folders = {"scanned/"};
    for (int i = 0; i < 25; ++i) {
        folders.push_back(folders[random() % folders.size()] + "folder" + std::to_string(i) + "/");
        tree.directory(folders.back());
    }
    for (int i = 0; i < 60; ++i)
        tree.file(folders[random() % folders.size()] + "file" + std::to_string(i),
                  random() % 2 == 0 ? 700'000 : 9'000);
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

/// A scanned folder beside a Trash: what is deleted moves there, and back.
class CorrectedTree : public testing::TestWithParam<std::uint32_t> {
protected:
    CorrectedTree() {
        makeTree(m_disk, m_random);
        m_scan = Scanner(macosTables().folders).scan(m_scanned, {}, {});
    }

    std::size_t below(std::size_t limit) { return m_random() % limit; }

    std::vector<FileNode*> nodesWhere(const std::function<bool(const FileNode&)>& isWanted) const {
        std::vector<FileNode*> wanted;
        std::vector<FileNode*> all = {m_scan->root};
        for (std::size_t i = 0; i < all.size(); ++i) {
            all.insert(all.end(), all[i]->children.begin(), all[i]->children.end());
            if (i > 0 && isWanted(*all[i]))
                wanted.push_back(all[i]);
        }
        return wanted;
    }

    void moveToTrash() {
        const auto left = nodesWhere([](const FileNode& node) { return !isGone(node); });
        if (left.empty())
            return;
        const std::string path = left[below(left.size())]->path();
        const std::string place = m_trash + "/" + std::to_string(m_moves++);
        std::filesystem::rename(path, place);
        m_trashed.emplace_back(path, place);
        m_scan->markDeleted({path});
    }

    /// Something that went to the Trash with its folder goes for good.
    void removeFromTrash() {
        const auto inTrash = nodesWhere([](const FileNode& node) { return isGone(*node.parent); });
        if (inTrash.empty())
            return;
        const std::string path = inTrash[below(inTrash.size())]->path();
        for (const auto& [original, place] : m_trashed) {
            if (path.starts_with(original + "/"))
                std::filesystem::remove_all(place + path.substr(original.size()));
        }
        m_scan->markDeleted({path});
    }

    void restore() {
        if (m_trashed.empty())
            return;
        const auto entry = m_trashed.begin() + static_cast<std::ptrdiff_t>(below(m_trashed.size()));
        const std::filesystem::path path = entry->first;
        // A node stands for the last thing that had its name.
        const bool hasSuccessor = std::any_of(entry + 1, m_trashed.end(),
                                              [&](const auto& later) { return later.first == entry->first; });
        if (hasSuccessor || std::filesystem::exists(path))
            return;
        std::filesystem::create_directories(path.parent_path());
        std::filesystem::rename(entry->second, path);
        m_scan->markRestored({path.string()});
        m_trashed.erase(entry);
    }

    std::mt19937 m_random{GetParam()};
    test::TemporaryTree m_disk;
    const std::string m_trash = m_disk.directory("trash");
    const std::string m_scanned = m_disk.directory("scanned");
    std::shared_ptr<ScanResult> m_scan;
    std::vector<std::pair<std::string, std::string>> m_trashed; ///< where it was, where it is
    int m_moves = 0;
};

TEST_P(CorrectedTree, agreesWithAFreshScanAfterEveryStep) {
    ASSERT_NE(m_scan, nullptr);
    for (int step = 0; step < 40; ++step) {
        const std::size_t choice = below(5);
        if (choice < 2)
            moveToTrash();
        else if (choice < 4)
            restore();
        else
            removeFromTrash();
        SCOPED_TRACE("step " + std::to_string(step) + ", choice " + std::to_string(choice));
        const auto fresh = Scanner(macosTables().folders).scan(m_scanned, {}, {});
        ASSERT_NO_FATAL_FAILURE(expectSameTree(*m_scan->root, *fresh->root));
        ASSERT_FALSE(HasFailure());
        std::int64_t inBuckets = 0;
        for (const auto& [bucket, bytes] : m_scan->bucketTotals)
            inBuckets += bytes;
        ASSERT_EQ(inBuckets, m_scan->root->size);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, CorrectedTree, testing::Range(1U, 9U));

} // namespace
} // namespace brimlet
