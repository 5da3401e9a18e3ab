// What a screen does with the nodes that its user has chosen, as plain values.
#pragma once

#include "core/FileNode.h"
#include "safety/DeletionRecords.h"
#include "safety/ItemReview.h"
#include "views/nodes/NodeColumns.h"
#include "views/nodes/RowSelection.h"

#include <cstdint>
#include <memory>
#include <stop_token>
#include <vector>

namespace brimlet {

/// Where the Explorer goes for a node: from the root down to it, or for a file to its folder. Empty for a
/// file without a parent.
std::vector<FileNode*> explorerStackFor(FileNode& node);

/// Up to `count` children that are not deleted, largest first; equal sizes keep their order.
std::vector<FileNode*> largestChildren(const FileNode& node, std::size_t count);

/// The rows of a table that its user has chosen: cheap to take, however many they are.
class NodeChoice {
public:
    NodeChoice() = default;

    /// All of these nodes, in their order. Main thread.
    NodeChoice(std::shared_ptr<const ScanResult> scan, std::vector<FileNode*> nodes);

    /// What a table's selection holds, topmost first.
    NodeChoice(std::shared_ptr<const NodeColumns> columns, const RowSelection& selection);

    std::size_t count() const { return m_count; }
    std::int64_t totalSize() const { return m_totalSize; }
    FileNode* first() const { return m_first; } ///< null where there is none
    const std::shared_ptr<const ScanResult>& scan() const;

    /// One plan row a node, to the Trash, at the path as scanned, with the size as the table showed it,
    /// reviewed now. Any thread; blocks on the disk.
    /// stop  looked at now and then; once set, what is given is worthless
    std::vector<PlanItem> planItems(const ItemReview& review, const std::stop_token& stop) const;

private:
    std::shared_ptr<const NodeColumns> m_columns; ///< keeps the nodes
    std::shared_ptr<const NodeRows> m_rows;
    NodeBits m_selected;
    std::size_t m_count = 0;
    std::int64_t m_totalSize = 0;
    FileNode* m_first = nullptr;
};

} // namespace brimlet
