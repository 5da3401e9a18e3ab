#include "core/ScanResult.h"

#include "core/Localized.h"
#include "core/Paths.h"

#include <algorithm>
#include <span>
#include <sys/stat.h>
#include <unordered_map>

namespace brimlet {

namespace {

enum class Change { takenOff, added };

/// Carries a node's sizes to what holds it, up to the nearest folder that is deleted: what holds that one
/// does without it already. Returns whether the change reached the root.
bool changeAncestors(const FileNode& node, Change change) {
    const std::int64_t sign = change == Change::added ? 1 : -1;
    for (FileNode* ancestor = node.parent; ancestor != nullptr; ancestor = ancestor->parent) {
        ancestor->size += sign * node.size;
        ancestor->logicalSize += sign * node.logicalSize;
        ancestor->fileCount += sign * node.fileCount;
        if (ancestor->deleted)
            return false;
    }
    return true;
}

/// Leaves a folder its own blocks only.
void empty(FileNode& folder) {
    for (FileNode* child : folder.children) {
        if (!child->deleted)
            folder.size -= child->size;
        child->deleted = true;
    }
    folder.size -= folder.smallFilesSize;
    folder.logicalSize = 0;
    folder.fileCount = 0;
    folder.smallFilesSize = 0;
    folder.smallFilesCount = 0;
}

/// The folders that a node lies in and that went with the outermost deleted one; that one first.
std::vector<FileNode*> goneFoldersAbove(const FileNode& node) {
    std::vector<FileNode*> folders;
    std::size_t gone = 0;
    for (FileNode* ancestor = node.parent; ancestor != nullptr; ancestor = ancestor->parent) {
        folders.push_back(ancestor);
        if (ancestor->deleted)
            gone = folders.size();
    }
    folders.resize(gone);
    std::ranges::reverse(folders);
    return folders;
}

/// Orders paths so that all that lies below a folder follows it at once: a slash comes before any other byte.
bool comesBefore(std::string_view left, std::string_view right) {
    const std::size_t shared = std::min(left.size(), right.size());
    const char* const leftBytes = left.data();
    const char* const rightBytes = right.data();
    for (std::size_t i = 0; i < shared; ++i) {
        if (leftBytes[i] == rightBytes[i])
            continue;
        if (leftBytes[i] == '/' || rightBytes[i] == '/')
            return leftBytes[i] == '/';
        return static_cast<unsigned char>(leftBytes[i]) < static_cast<unsigned char>(rightBytes[i]);
    }
    return left.size() < right.size();
}

/// Finds the nodes at sorted paths, folder by folder.
class NodeSearch {
public:
    explicit NodeSearch(const std::unordered_set<std::string>& paths)
        : m_paths(paths.begin(), paths.end()) {
        std::ranges::sort(m_paths, comesBefore);
    }

    std::vector<FileNode*> run(FileNode& root) {
        const std::string rootPath = root.path();
        const std::string prefix = rootPath.ends_with('/') ? rootPath : rootPath + '/';
        const auto isAtOrBelow = [&](std::string_view path) {
            return path == rootPath || path.starts_with(prefix);
        };
        std::erase_if(m_paths, [&](std::string_view path) { return !isAtOrBelow(path); });
        if (std::ranges::find(m_paths, rootPath) != m_paths.end())
            return {&root};
        m_work.push_back({&root, m_paths, prefix.size()});
        while (!m_work.empty()) {
            const Folder folder = m_work.back();
            m_work.pop_back();
            lookInto(folder);
        }
        return std::move(m_found);
    }

private:
    using Paths = std::span<const std::string_view>;

    struct Folder {
        FileNode* node;
        Paths paths;             ///< those at or below its children
        std::size_t prefixBytes; ///< of its own path with a slash
    };

    void lookInto(const Folder& folder) {
        const std::unordered_map<std::string_view, Paths> wanted = pathsByChild(folder);
        for (FileNode* child : folder.node->children) {
            const auto found = wanted.find(child->name);
            if (found == wanted.end())
                continue;
            const std::size_t childBytes = folder.prefixBytes + child->name.size();
            if (found->second.front().size() == childBytes)
                m_found.push_back(child);
            else if (child->isDirectory)
                m_work.push_back({child, found->second, childBytes + 1});
        }
    }

    static std::unordered_map<std::string_view, Paths> pathsByChild(const Folder& folder) {
        std::unordered_map<std::string_view, Paths> byChild;
        for (Paths rest = folder.paths; !rest.empty();) {
            const auto childName = [&](std::string_view path) {
                const std::string_view below = path.substr(folder.prefixBytes);
                return below.substr(0, below.find('/'));
            };
            const std::string_view name = childName(rest.front());
            const auto end =
                std::ranges::find_if(rest, [&](std::string_view path) { return childName(path) != name; });
            const auto count = static_cast<std::size_t>(end - rest.begin());
            byChild.emplace(name, rest.first(count));
            rest = rest.subspan(count);
        }
        return byChild;
    }

    std::vector<std::string_view> m_paths;
    std::vector<Folder> m_work;
    std::vector<FileNode*> m_found;
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

std::vector<FileNode*> ScanResult::nodesAtNodePaths(const std::unordered_set<std::string>& paths) const {
    if (paths.empty() || root == nullptr)
        return {};
    return NodeSearch(paths).run(*root);
}

void ScanResult::markNodesDeleted(std::span<FileNode* const> nodes) {
    for (FileNode* node : nodes) {
        const bool isInTree = node->deleted ? node->parent == nullptr || !isGone(*node->parent)
                                            : changeAncestors(*node, Change::takenOff);
        node->deleted = true;
        if (isInTree)
            bucketTotals[node->bucket] -= node->size;
    }
}

void ScanResult::markDeleted(const std::unordered_set<std::string>& paths) {
    markNodesDeleted(nodesAtNodePaths(paths));
}

void ScanResult::markNodesRestored(std::span<FileNode* const> nodes) {
    const auto countAgain = [this](FileNode& node) {
        node.deleted = false;
        changeAncestors(node, Change::added);
        bucketTotals[node.bucket] += node.size;
    };
    for (FileNode* node : nodes) {
        if (!node->deleted)
            continue;
        for (FileNode* folder : goneFoldersAbove(*node)) {
            empty(*folder);
            countAgain(*folder);
        }
        countAgain(*node);
    }
}

void ScanResult::markRestored(const std::unordered_set<std::string>& paths) {
    markNodesRestored(nodesAtNodePaths(paths));
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
