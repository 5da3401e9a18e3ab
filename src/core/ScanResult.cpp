#include "core/ScanResult.h"

#include "core/Localized.h"
#include "core/Paths.h"

#include <algorithm>
#include <sys/stat.h>

namespace brimlet {

namespace {

void takeOffAncestors(const FileNode& node) {
    for (FileNode* ancestor = node.parent; ancestor != nullptr; ancestor = ancestor->parent) {
        ancestor->size -= node.size;
        ancestor->logicalSize -= node.logicalSize;
        ancestor->fileCount -= node.fileCount;
    }
}

/// The paths in order, so that those below a folder stand in one run.
class SortedPaths {
public:
    explicit SortedPaths(const std::unordered_set<std::string>& paths)
        : m_paths(paths.begin(), paths.end()) {
        std::sort(m_paths.begin(), m_paths.end());
    }

    bool anyBelow(const std::string& folder) const {
        const std::string prefix = folder.ends_with('/') ? folder : folder + "/";
        const auto it = std::lower_bound(m_paths.begin(), m_paths.end(), prefix);
        return it != m_paths.end() && it->starts_with(prefix);
    }

private:
    std::vector<std::string_view> m_paths;
};

bool exists(std::string_view path) {
    struct stat status {};
    return ::stat(std::string(path).c_str(), &status) == 0;
}

} // namespace

FileNode* ScanResult::nodeAtPath(std::string_view path) const {
    const std::string_view base = normalisedPath(rootPath);
    const bool isInside =
        path == base || isBelow(path, base) || (base.ends_with('/') && path.starts_with(base));
    if (root == nullptr || !isInside)
        return nullptr;
    FileNode* node = root;
    for (const std::string_view part : pathComponents(path.substr(base.size()))) {
        const auto child = std::find_if(node->children.begin(), node->children.end(),
                                        [&](const FileNode* one) { return one->name == part; });
        if (child == node->children.end())
            return nullptr;
        node = *child;
    }
    return node;
}

void ScanResult::markDeleted(const std::unordered_set<std::string>& paths) {
    if (paths.empty() || root == nullptr)
        return;
    const SortedPaths sorted(paths);
    std::vector<FileNode*> work = {root};
    while (!work.empty()) {
        FileNode* node = work.back();
        work.pop_back();
        const std::string path = node->path();
        if (paths.contains(path)) {
            if (!node->deleted) {
                node->deleted = true;
                takeOffAncestors(*node);
            }
            bucketTotals[node->bucket] -= node->size;
        } else if (node->isDirectory && sorted.anyBelow(path)) {
            work.insert(work.end(), node->children.begin(), node->children.end());
        }
    }
}

std::string ScanTarget::path(std::string_view homeFolder) const {
    if (isHome())
        return std::string(homeFolder);
    if (isWholeDisk())
        return exists(dataVolumePrefix) ? std::string(dataVolumePrefix) : "/";
    return std::get<std::string>(m_value);
}

std::string ScanTarget::label() const {
    if (isHome())
        return localized("Home folder");
    if (isWholeDisk())
        return localized("Entire disk");
    const std::vector<std::string_view> components = pathComponents(std::get<std::string>(m_value));
    return std::string(components.empty() ? "/" : components.back());
}

} // namespace brimlet
