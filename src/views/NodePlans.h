// What a screen does with the nodes that its user has chosen, as plain values.
#pragma once

#include "core/FileNode.h"
#include "safety/DeletionRecords.h"
#include "safety/SafetyPolicy.h"

#include <span>
#include <vector>

namespace brimlet {

/// Where the Explorer goes for a node: from the root down to it, or for a file to its folder. Empty for a
/// file without a parent.
std::vector<FileNode*> explorerStackFor(FileNode& node);

/// Up to `count` children that are not deleted, largest first; equal sizes keep their order.
std::vector<FileNode*> largestChildren(const FileNode& node, std::size_t count);

/// One item a node, to the Trash, at the path as scanned.
/// thread  any that keeps the ScanResult, as long as no node is a folder
std::vector<PlanItem> planItems(std::span<FileNode* const> nodes, const SafetyPolicy& policy);

} // namespace brimlet
