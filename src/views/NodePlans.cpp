#include "views/NodePlans.h"

#include "core/Paths.h"

#include <algorithm>

namespace brimlet {

std::vector<FileNode*> explorerStackFor(FileNode& node) {
    std::vector<FileNode*> stack;
    for (FileNode* step = node.isDirectory ? &node : node.parent; step != nullptr; step = step->parent)
        stack.push_back(step);
    std::ranges::reverse(stack);
    return stack;
}

std::vector<FileNode*> largestChildren(const FileNode& node, std::size_t count) {
    std::vector<FileNode*> children;
    std::ranges::copy_if(node.children, std::back_inserter(children),
                         [](const FileNode* child) { return !child->deleted; });
    std::ranges::stable_sort(children, std::greater(), &FileNode::size);
    children.resize(std::min(children.size(), count));
    return children;
}

std::vector<PlanItem> planItems(std::span<FileNode* const> nodes, const SafetyPolicy& policy) {
    std::vector<PlanItem> items;
    items.reserve(nodes.size());
    for (const FileNode* node : nodes) {
        std::string path = node->path();
        std::string name(lastPathComponent(path));
        SafetyVerdict verdict = policy.verdict(path);
        items.push_back({std::move(path), std::move(name), node->size, Removal::trash, std::move(verdict)});
    }
    return items;
}

} // namespace brimlet
