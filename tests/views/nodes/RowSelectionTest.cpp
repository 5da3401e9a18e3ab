#include "views/nodes/RowSelection.h"

#include "support/SyntheticTree.h"

#include <gtest/gtest.h>

namespace brimlet {
namespace {

/// Ten files "0" to "9" of 100 to 109 bytes, shown from "0" to "9".
class RowSelectionTest : public testing::Test {
protected:
    RowSelectionTest() {
        test::SyntheticTree tree;
        for (int i = 0; i < 10; ++i)
            tree.file(tree.root(), std::to_string(i), 100 + i);
        m_scan = tree.finish();
        m_columns = std::make_shared<NodeColumns>(m_scan, m_scan->files);
        m_selection.reset(m_columns);
        show({}, SortDirection::ascending);
    }

    void show(const FileFilter& filter, SortDirection direction) {
        m_selection.setRows(
            std::make_shared<NodeRows>(m_columns->rows(filter, {NodeColumn::size, direction}, NodeBits(), 0,
                                                       std::atomic<bool>(false), std::atomic<bool>(false))));
    }

    /// The selected names, in the order shown.
    std::string selected() const {
        std::string names;
        for (const std::uint32_t position : m_selection.selectedInOrder())
            names += m_columns->node(position)->name;
        return names;
    }

    std::shared_ptr<ScanResult> m_scan;
    std::shared_ptr<NodeColumns> m_columns;
    RowSelection m_selection;
};

TEST_F(RowSelectionTest, clicksReplaceToggleAndExtend) {
    m_selection.choose(3, SelectionMode::replace);
    EXPECT_EQ(selected(), "3");
    m_selection.choose(6, SelectionMode::extend);
    EXPECT_EQ(selected(), "3456");
    m_selection.choose(1, SelectionMode::extend);
    EXPECT_EQ(selected(), "123") << "a range turns about its anchor";
    m_selection.choose(8, SelectionMode::toggle);
    EXPECT_EQ(selected(), "1238");
    m_selection.choose(2, SelectionMode::toggle);
    EXPECT_EQ(selected(), "138");
    m_selection.choose(4, SelectionMode::extend);
    EXPECT_EQ(selected(), "234") << "the last toggled row is the anchor";
    m_selection.choose(9, SelectionMode::replace);
    EXPECT_EQ(selected(), "9");
}

TEST_F(RowSelectionTest, staysWithItsNodesThroughANewOrder) {
    m_selection.choose(2, SelectionMode::replace);
    m_selection.choose(4, SelectionMode::toggle);
    show({}, SortDirection::descending);
    EXPECT_EQ(selected(), "42");
    EXPECT_EQ(m_selection.currentRow(), 5U);
    EXPECT_EQ(m_selection.firstSelectedRow(), 5U);
    EXPECT_EQ(m_selection.totalSize(), 206);
    m_selection.choose(7, SelectionMode::extend);
    EXPECT_EQ(selected(), "432");
}

TEST_F(RowSelectionTest, keepsOnlyWhatIsStillListed) {
    m_selection.selectAll();
    EXPECT_EQ(m_selection.count(), 10);
    FileFilter large;
    large.minSize = 107;
    show(large, SortDirection::ascending);
    EXPECT_EQ(selected(), "789");
    EXPECT_EQ(m_selection.totalSize(), 107 + 108 + 109);
    show({}, SortDirection::ascending);
    EXPECT_EQ(selected(), "789") << "what left does not come back selected";
}

TEST_F(RowSelectionTest, aRangeWhoseAnchorLeftStartsWhereItEnds) {
    m_selection.choose(0, SelectionMode::replace);
    FileFilter large;
    large.minSize = 105;
    show(large, SortDirection::ascending);
    EXPECT_EQ(m_selection.currentRow(), std::nullopt);
    EXPECT_EQ(m_selection.firstSelectedRow(), std::nullopt);
    m_selection.choose(2, SelectionMode::extend);
    EXPECT_EQ(selected(), "7");
}

} // namespace
} // namespace brimlet
