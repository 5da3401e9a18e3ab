#include "core/FileNode.h"

#include <vector>

namespace brimlet {

std::string FileNode::path() const {
    std::vector<const FileNode*> chain;
    std::size_t length = 0;
    for (const FileNode* node = this; node != nullptr; node = node->parent) {
        chain.push_back(node);
        length += node->name.size() + 1;
    }
    std::string result;
    result.reserve(length);
    result = chain.back()->name;
    for (auto it = chain.rbegin() + 1; it != chain.rend(); ++it) {
        if (!result.ends_with('/'))
            result += '/';
        result += (*it)->name;
    }
    return result;
}

bool isGone(const FileNode& node) {
    for (const FileNode* at = &node; at != nullptr; at = at->parent) {
        if (at->deleted)
            return true;
    }
    return false;
}

} // namespace brimlet
