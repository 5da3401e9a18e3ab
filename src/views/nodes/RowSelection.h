// Which rows of a sorted, filtered list are selected, and how mouse and keyboard change that.
//
// Nodes are known by their position in the unsorted list, so a selection survives a new order; rows are where
// they stand on screen. Main thread.
#pragma once

#include "views/nodes/NodeColumns.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace brimlet {

/// What a click or a key does to what was selected before.
enum class SelectionMode {
    replace, ///< only what is pointed at
    toggle,  ///< add it, or take it away
    extend,  ///< everything from the anchor to it
};

class RowSelection {
public:
    /// Starts afresh for another list.
    void reset(std::shared_ptr<const NodeColumns> columns);

    /// Takes over new sizes of the same nodes at the same positions.
    void setColumns(std::shared_ptr<const NodeColumns> columns) { m_columns = std::move(columns); }

    /// Takes over a new order of the same list; what it no longer holds is no longer selected.
    void setRows(std::shared_ptr<const NodeRows> rows);

    void choose(std::size_t row, SelectionMode mode);
    void selectAll();
    void clear();

    bool isSelected(std::size_t row) const { return m_selected[m_rows->order[row]]; }
    std::int64_t count() const { return m_count; }
    std::int64_t totalSize() const { return m_totalSize; }

    /// The row that the keyboard is at; empty before the first choice and when it left the list.
    std::optional<std::size_t> currentRow() const { return m_currentRow; }

    /// Positions of the selected nodes, in the order of the rows.
    std::vector<std::uint32_t> selectedInOrder() const;

    /// The same as a value, to be gone through elsewhere.
    const std::shared_ptr<const NodeRows>& rows() const { return m_rows; }
    const NodeBits& selected() const { return m_selected; }

    /// The topmost selected row.
    std::optional<std::size_t> firstSelectedRow() const;

private:
    std::optional<std::size_t> rowOf(std::optional<std::uint32_t> position) const;
    void recount();

    std::shared_ptr<const NodeColumns> m_columns;
    std::shared_ptr<const NodeRows> m_rows = std::make_shared<NodeRows>();
    NodeBits m_selected;
    std::int64_t m_count = 0;
    std::int64_t m_totalSize = 0;
    std::optional<std::uint32_t> m_anchor;  ///< position of the node that a range starts at
    std::optional<std::uint32_t> m_current; ///< position of the node that the keyboard is at
    std::optional<std::size_t> m_currentRow;
};

} // namespace brimlet
