#include "views/nodes/NodeColumns.h"

#include "core/Localized.h"
#include "support/SyntheticTree.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <thread>

namespace brimlet {
namespace {

constexpr double now = 1'800'000'000;
const std::atomic<bool> notCancelled = false;

std::vector<std::string> namesInOrder(const std::vector<std::string>& names, SortDirection direction) {
    test::SyntheticTree tree;
    for (const std::string& name : names)
        tree.file(tree.root(), name, 1);
    const auto scan = tree.finish();
    NodeColumns columns(scan, scan->files);
    std::vector<std::string> sorted;
    for (const std::uint32_t row :
         columns.rows({}, {NodeColumn::name, direction}, NodeBits(), now, notCancelled, notCancelled).order)
        sorted.emplace_back(columns.node(row)->name);
    return sorted;
}

TEST(NodeColumns, namesSortAsPeopleReadThem) {
    const std::vector<std::string> sorted = {"",       "IMG_2.jpg", "img_10.jpg", "IMG_010b.jpg", "resume",
                                             "résumé", "resumf",    "Zebra",      "zebra 1",      "\xff"};
    std::vector<std::string> shuffled = {sorted[9], sorted[4], sorted[1], sorted[0], sorted[8],
                                         sorted[2], sorted[6], sorted[3], sorted[7], sorted[5]};
    EXPECT_EQ(namesInOrder(shuffled, SortDirection::ascending), sorted);
    std::ranges::reverse(shuffled);
    std::vector<std::string> descending = sorted;
    std::ranges::reverse(descending);
    EXPECT_EQ(namesInOrder(shuffled, SortDirection::descending), descending);
}

TEST(NodeColumns, equalNamesInOtherCaseKeepTheirOrder) {
    EXPECT_EQ(namesInOrder({"b", "B", "a", "A", "b"}, SortDirection::descending),
              (std::vector<std::string>{"b", "B", "b", "a", "A"}));
}

/// What a row sorts by, read from the node itself.
double plainKey(const FileNode& node, NodeColumn column) {
    const auto titleRank = [](const auto& all, std::string_view title) {
        return static_cast<double>(
            std::ranges::count_if(all, [&](auto one) { return look(one).title < title; }));
    };
    switch (column) {
    case NodeColumn::size:
        return static_cast<double>(node.size);
    case NodeColumn::kind:
        return titleRank(allFileKinds(), look(node.kind).title);
    case NodeColumn::category:
        return titleRank(allStorageBuckets(), look(node.bucket).title);
    case NodeColumn::modified:
        return node.modified;
    case NodeColumn::lastOpened:
        return node.accessed;
    case NodeColumn::fileCount:
    case NodeColumn::name:
        break;
    }
    return static_cast<double>(node.fileCount);
}

TEST(NodeColumns, everyColumnSortsStablyInBothDirections) {
    for (std::uint32_t seed = 1; seed <= 5; ++seed) {
        const auto scan = test::randomScan(seed, {.directories = 20, .files = 3'000, .distinctSizes = 3});
        scan->files[5]->modified = -12.5;
        scan->files[6]->modified = 0;
        NodeColumns columns(scan, scan->files);
        for (const NodeColumn column :
             {NodeColumn::size, NodeColumn::kind, NodeColumn::category, NodeColumn::modified,
              NodeColumn::lastOpened, NodeColumn::fileCount}) {
            for (const SortDirection direction : {SortDirection::ascending, SortDirection::descending}) {
                std::vector<std::uint32_t> expected(scan->files.size());
                for (std::size_t i = 0; i < expected.size(); ++i)
                    expected[i] = static_cast<std::uint32_t>(i);
                std::ranges::stable_sort(expected, [&](std::uint32_t a, std::uint32_t b) {
                    const double keyA = plainKey(*scan->files[a], column);
                    const double keyB = plainKey(*scan->files[b], column);
                    return direction == SortDirection::ascending ? keyA < keyB : keyA > keyB;
                });
                EXPECT_EQ(
                    columns.rows({}, {column, direction}, NodeBits(), now, notCancelled, notCancelled).order,
                    expected)
                    << "seed " << seed << " column " << static_cast<int>(column);
            }
        }
    }
}

TEST(NodeColumns, listsWhatMatchesAndIsNotDeleted) {
    const auto scan = test::randomScan(11);
    NodeColumns columns(scan, scan->files);
    FileFilter filter;
    filter.query = "FILE-1";
    filter.minSize = 50'000;
    NodeBits deleted(columns.count());
    for (std::size_t i = 0; i < columns.count(); i += 3)
        deleted.set(i);
    const NodeRows rows = columns.rows(filter, {}, deleted, now, notCancelled, notCancelled);

    std::int64_t expectedSize = 0;
    std::int64_t expectedLargest = 0;
    std::size_t expectedCount = 0;
    for (std::size_t i = 0; i < columns.count(); ++i) {
        const bool listed = i % 3 != 0 && filter.matches(*scan->files[i], now);
        EXPECT_EQ(rows.listed[i], listed) << i;
        expectedCount += listed ? 1 : 0;
        expectedSize += listed ? scan->files[i]->size : 0;
        expectedLargest = listed ? std::max(expectedLargest, scan->files[i]->size) : expectedLargest;
    }
    EXPECT_GT(expectedCount, 10U);
    EXPECT_EQ(rows.order.size(), expectedCount);
    EXPECT_EQ(rows.totalSize, expectedSize);
    EXPECT_EQ(rows.largestSize, expectedLargest);
}

TEST(NodeColumns, interruptedPreparationIsTakenUpAgain) {
    constexpr std::uint32_t count = 40'000; // several pieces to sort
    test::SyntheticTree tree;
    for (std::uint32_t i = 0; i < count; ++i)
        tree.file(tree.root(), "file " + std::to_string(count + i * 7'919 % count), 1);
    const auto scan = tree.finish();
    std::vector<std::uint32_t> expected(count);
    std::iota(expected.begin(), expected.end(), 0U);
    std::ranges::sort(expected, {}, [&](std::uint32_t row) { return scan->files[row]->name; });
    NodeColumns columns(scan, scan->files);
    for (const int microseconds : {0, 300, 3'000, 10'000}) {
        std::atomic<bool> interrupted = microseconds == 0;
        const std::jthread interrupting([&] {
            std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
            interrupted = true;
        });
        columns.prepareNames(interrupted);
    }
    const NodeSort byName{NodeColumn::name, SortDirection::ascending};
    EXPECT_EQ(columns.rows({}, byName, NodeBits(), now, notCancelled, notCancelled).order, expected);
}

TEST(NodeColumns, anEmptyListGivesNoRows) {
    const auto scan = test::SyntheticTree().finish();
    NodeColumns columns(scan, {});
    EXPECT_TRUE(
        columns.rows({}, {NodeColumn::name, {}}, NodeBits(), now, notCancelled, notCancelled).order.empty());
}

} // namespace
} // namespace brimlet
