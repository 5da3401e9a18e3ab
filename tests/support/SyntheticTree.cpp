#include "support/SyntheticTree.h"
#include "tables/SystemTables.h"

#include <array>
#include <cmath>

namespace brimlet::test {

SyntheticTree::SyntheticTree(std::string_view rootPath) {
    m_result->rootPath = rootPath;
    m_result->root = m_result->arena.newNode(rootPath);
    m_result->root->isDirectory = true;
}

FileNode* SyntheticTree::directory(FileNode* parent, std::string_view name) {
    FileNode* node = m_result->arena.newNode(name);
    node->isDirectory = true;
    node->isPackage = macosTables().folders.isPackage(name);
    node->kind = macosTables().folders.kind(name);
    node->bucket = macosTables().folders.bucket(name, {}, parent->bucket).value_or(StorageBucket::other);
    node->parent = parent;
    m_children[parent].push_back(node);
    return node;
}

FileNode* SyntheticTree::file(FileNode* parent, std::string_view name, std::int64_t size, double modified) {
    FileNode* node = m_result->arena.newNode(name);
    node->kind = fileKindForName(name);
    node->bucket = bucketForFile(parent->bucket, node->kind);
    node->parent = parent;
    node->size = size;
    node->logicalSize = size - size / 7;
    node->fileCount = 1;
    node->modified = modified;
    node->accessed = modified + 3'600;
    m_children[parent].push_back(node);
    return node;
}

void SyntheticTree::smallFiles(FileNode* directory, std::uint32_t count, std::int64_t size) {
    directory->smallFilesCount += count;
    directory->smallFilesSize += size;
    m_result->kindCounts[FileKind::other] += count;
    m_result->kindTotals[FileKind::other] += size;
}

std::shared_ptr<ScanResult> SyntheticTree::finish() {
    addUp(*m_result->root);
    m_result->totalFiles = m_result->root->fileCount;
    return m_result;
}

void SyntheticTree::addUp(FileNode& node) {
    if (!node.isDirectory) {
        m_result->files.push_back(&node);
        m_result->kindTotals[node.kind] += node.size;
        ++m_result->kindCounts[node.kind];
        m_result->bucketTotals[node.bucket] += node.size;
        return;
    }
    ++m_result->totalDirectories;
    node.size = node.smallFilesSize;
    node.logicalSize = node.smallFilesSize;
    node.fileCount = node.smallFilesCount;
    m_result->bucketTotals[node.bucket] += node.smallFilesSize;
    const std::vector<FileNode*>& children = m_children[&node];
    node.children = m_result->arena.newChildren(children.size());
    std::copy(children.begin(), children.end(), node.children.begin());
    for (FileNode* child : children) {
        addUp(*child);
        node.size += child->size;
        node.logicalSize += child->logicalSize;
        node.fileCount += child->fileCount;
        node.modified = std::max(node.modified, child->modified);
        node.accessed = std::max(node.accessed, child->accessed);
    }
}

std::shared_ptr<ScanResult> randomScan(std::uint32_t seed, const RandomScanShape& shape) {
    constexpr std::array<std::string_view, 8> extensions = {".mov", ".JPG", ".pdf", ".zip",
                                                            ".dmg", ".cpp", "",     ".flac"};
    std::mt19937 random(seed);
    const auto below = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    SyntheticTree tree;
    std::vector<FileNode*> directories = {tree.root()};
    for (int i = 0; i < shape.directories; ++i)
        directories.push_back(
            tree.directory(directories[below(directories.size())],
                           "Folder " + std::to_string(below(5'000)) + (below(20) == 0 ? ".app" : "")));
    for (int i = 0; i < shape.files; ++i) {
        const double spread = std::pow(10.0, static_cast<double>(below(6'000)) / 1'000.0);
        const auto size = static_cast<std::int64_t>(
            static_cast<double>(below(static_cast<std::size_t>(shape.distinctSizes)) + 1) * spread);
        const double modified = 1.4e9 + static_cast<double>(below(300'000'000));
        tree.file(directories[below(directories.size())],
                  "File-" + std::to_string(below(1'000'000)) +
                      std::string(extensions[below(extensions.size())]),
                  size, modified);
    }
    return tree.finish();
}

} // namespace brimlet::test
