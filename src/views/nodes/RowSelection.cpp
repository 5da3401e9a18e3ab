#include "views/nodes/RowSelection.h"

#include <algorithm>

namespace brimlet {

void RowSelection::reset(std::shared_ptr<const NodeColumns> columns) {
    *this = RowSelection();
    m_columns = std::move(columns);
    m_selected = NodeBits(m_columns->count());
}

void RowSelection::setRows(std::shared_ptr<const NodeRows> rows) {
    m_rows = std::move(rows);
    m_selected &= m_rows->listed;
    recount();
    m_currentRow = rowOf(m_current);
    if (m_anchor && !m_rows->listed[*m_anchor])
        m_anchor.reset();
}

void RowSelection::choose(std::size_t row, SelectionMode mode) {
    const std::uint32_t position = m_rows->order[row];
    const std::size_t anchorRow = mode == SelectionMode::extend ? rowOf(m_anchor).value_or(row) : row;
    if (mode == SelectionMode::toggle) {
        m_selected[position] ? m_selected.clear(position) : m_selected.set(position);
    } else {
        m_selected.clearAll();
        for (std::size_t i = std::min(row, anchorRow); i <= std::max(row, anchorRow); ++i)
            m_selected.set(m_rows->order[i]);
    }
    recount();
    m_anchor = m_rows->order[anchorRow];
    m_current = position;
    m_currentRow = row;
}

void RowSelection::selectAll() {
    m_selected = m_rows->listed;
    recount();
}

void RowSelection::clear() {
    m_selected.clearAll();
    recount();
}

std::vector<std::uint32_t> RowSelection::selectedInOrder() const {
    std::vector<std::uint32_t> selected;
    selected.reserve(static_cast<std::size_t>(m_count));
    std::ranges::copy_if(m_rows->order, std::back_inserter(selected),
                         [&](std::uint32_t position) { return m_selected[position]; });
    return selected;
}

std::optional<std::size_t> RowSelection::firstSelectedRow() const {
    if (m_count == 0)
        return {};
    const auto first =
        std::ranges::find_if(m_rows->order, [&](std::uint32_t position) { return m_selected[position]; });
    return static_cast<std::size_t>(first - m_rows->order.begin());
}

std::optional<std::size_t> RowSelection::rowOf(std::optional<std::uint32_t> position) const {
    if (!position || !m_rows->listed[*position])
        return {};
    const auto found = std::ranges::find(m_rows->order, *position);
    return static_cast<std::size_t>(found - m_rows->order.begin());
}

void RowSelection::recount() {
    m_count = 0;
    m_totalSize = 0;
    m_selected.forEach([&](std::size_t position) {
        ++m_count;
        m_totalSize += m_columns->size(position);
    });
}

} // namespace brimlet
