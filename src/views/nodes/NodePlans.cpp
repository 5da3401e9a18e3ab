#include "views/nodes/NodePlans.h"

#include "core/Paths.h"

#include <algorithm>

namespace brimlet {

namespace {

/// So many are reviewed before a look whether anybody still wants to know.
constexpr std::size_t pieceSize = 10'000;

} // namespace

std::vector<FileNode*> explorerStackFor(FileNode& node) {
    std::vector<FileNode*> stack;
    for (FileNode* step = node.isDirectory ? &node : node.parent; step != nullptr; step = step->parent)
        stack.push_back(step);
    std::ranges::reverse(stack);
    return stack;
}

std::vector<FileNode*> largestChildren(const FileNode& node, std::size_t count) {
    // A folder may have half a million children: they are looked at once, and not sorted.
    std::vector<FileNode*> largest;
    for (FileNode* child : node.children) {
        if (child->deleted || (largest.size() == count && child->size <= largest.back()->size))
            continue;
        if (largest.size() == count)
            largest.pop_back();
        largest.insert(std::ranges::upper_bound(largest, child->size, std::greater(), &FileNode::size),
                       child);
    }
    return largest;
}

NodeChoice::NodeChoice(std::shared_ptr<const ScanResult> scan, std::vector<FileNode*> nodes) {
    auto columns = std::make_shared<NodeColumns>(std::move(scan), std::move(nodes));
    columns->readSizes();
    auto rows = std::make_shared<NodeRows>();
    m_selected = NodeBits(columns->count());
    for (std::size_t i = 0; i < columns->count(); ++i) {
        rows->order.push_back(static_cast<std::uint32_t>(i));
        m_selected.set(i);
        m_totalSize += columns->size(i);
    }
    m_count = columns->count();
    m_first = m_count > 0 ? columns->node(0) : nullptr;
    m_columns = std::move(columns);
    m_rows = std::move(rows);
}

NodeChoice::NodeChoice(std::shared_ptr<const NodeColumns> columns, const RowSelection& selection)
    : m_columns(std::move(columns))
    , m_rows(selection.rows())
    , m_selected(selection.selected())
    , m_count(static_cast<std::size_t>(selection.count()))
    , m_totalSize(selection.totalSize()) {
    if (const auto row = selection.firstSelectedRow())
        m_first = m_columns->node(m_rows->order[*row]);
}

const std::shared_ptr<const ScanResult>& NodeChoice::scan() const {
    static const std::shared_ptr<const ScanResult> none;
    return m_columns ? m_columns->scan() : none;
}

std::vector<PlanItem> NodeChoice::planItems(const ItemReview& review, const std::stop_token& stop) const {
    std::vector<std::uint32_t> positions;
    std::vector<std::string> paths;
    positions.reserve(m_count);
    paths.reserve(m_count);
    for (const std::uint32_t position : m_rows->order) {
        if (!m_selected[position])
            continue;
        positions.push_back(position);
        paths.push_back(m_columns->node(position)->path());
    }
    std::vector<PlanItem> items;
    items.reserve(positions.size());
    for (std::size_t first = 0; first < positions.size() && !stop.stop_requested(); first += pieceSize) {
        const std::size_t end = std::min(first + pieceSize, positions.size());
        const std::vector<std::string> piece(paths.begin() + static_cast<std::ptrdiff_t>(first),
                                             paths.begin() + static_cast<std::ptrdiff_t>(end));
        std::vector<ReviewedItem> reviewed = review.review(piece);
        for (std::size_t i = first; i < end; ++i) {
            std::string name(lastPathComponent(paths[i]));
            ReviewedItem& one = reviewed[i - first];
            items.push_back({std::move(paths[i]), std::move(name), m_columns->size(positions[i]),
                             Removal::trash, std::move(one.verdict), one.identity});
        }
    }
    return items;
}

} // namespace brimlet
