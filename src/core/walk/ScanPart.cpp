#include "core/walk/ScanPart.h"

#include "core/Paths.h"
#include "core/WholeNumber.h"

#include <algorithm>
#include <optional>

namespace brimlet {

namespace {

std::optional<StorageBucket> inheritedFrom(StorageBucket parent) {
    return parent == StorageBucket::other ? std::nullopt : std::optional(parent);
}

void setTimes(FileNode& node, const EntryStatus& status) {
    node.modified = static_cast<double>(status.modified);
    node.accessed = static_cast<double>(status.accessed);
}

} // namespace

void ScanTotals::addDirectory(StorageBucket bucket, std::int64_t bytes) {
    Sum& sum = buckets[static_cast<std::size_t>(bucket)];
    sum.bytes += bytes;
    ++sum.entries;
}

void ScanTotals::addFile(StorageBucket bucket, FileKind kind, std::int64_t bytes) {
    addDirectory(bucket, bytes);
    Sum& sum = kinds[static_cast<std::size_t>(kind)];
    sum.bytes += bytes;
    ++sum.entries;
}

void ScanTotals::add(const ScanTotals& other) {
    const auto addAll = [](auto& sums, const auto& others) {
        for (std::size_t i = 0; i < sums.size(); ++i) {
            sums[i].bytes += others[i].bytes;
            sums[i].entries += others[i].entries;
        }
    };
    addAll(buckets, other.buckets);
    addAll(kinds, other.kinds);
}

ScanPart::ScanPart(const FolderRules& rules, const std::unordered_set<std::string>& excluded)
    : m_rules(rules)
    , m_excluded(excluded) {
    for (const std::string& path : excluded)
        m_excludedNames.emplace(lastPathComponent(path));
    // The data volume itself is the one directory whose normalised path ends in another name.
    if (excluded.contains("/"))
        m_excludedNames.emplace(lastPathComponent(dataVolumePrefix));
}

FolderTag ScanPart::root(std::string_view path, const EntryStatus& status) {
    FileNode* node = newDirectory(path, status);
    PathHead& head = m_heads.emplace_back();
    const std::vector<std::string_view> components = pathComponents(normalisedPath(node->name));
    head.count = std::min(components.size(), m_rules.depth());
    std::copy_n(components.begin(), head.count, head.components.begin());
    // The whole path is the root's name, and rules on names are applied to it as they are to any other.
    node->bucket =
        m_rules.bucket(node->name, {head.components.data(), head.count}, {}).value_or(node->bucket);
    totals.addDirectory(node->bucket, node->size);
    return {node, &head};
}

FileNode* ScanPart::newDirectory(std::string_view name, const EntryStatus& status) {
    FileNode* node = arena.newNode(name);
    node->isDirectory = true;
    node->isPackage = m_rules.isPackage(name);
    node->kind = m_rules.kind(name);
    node->size = status.allocatedBytes;
    setTimes(*node, status);
    ++directories;
    return node;
}

const PathHead* ScanPart::headBelow(const PathHead& parent, const FileNode& node) {
    if (parent.count == m_rules.depth())
        return &parent;
    PathHead& head = m_heads.emplace_back(parent);
    if (node.name == lastPathComponent(dataVolumePrefix) && node.path() == dataVolumePrefix)
        head.count = 0;
    else
        head.components[head.count++] = node.name;
    return &head;
}

bool ScanPart::isExcluded(const FileNode& parent, std::string_view name) const {
    if (m_excluded.empty() || !m_excludedNames.contains(std::string(name)))
        return false;
    std::string path = parent.path();
    if (!path.ends_with('/'))
        path += '/';
    path += name;
    return m_excluded.contains(std::string(normalisedPath(path)));
}

void ScanPart::begin(const Folder& folder) {
    m_folder = &folder;
    m_node = folder.tag.node;
}

bool ScanPart::directory(const DirectoryEntry& entry, FolderTag& tag) {
    if (isExcluded(*m_node, entry.name))
        return false;
    FileNode* node = newDirectory(entry.name, *entry.status);
    node->parent = m_node;
    const PathHead* head = headBelow(*m_folder->tag.pathHead, *node);
    const auto bucket =
        m_rules.bucket(node->name, {head->components.data(), head->count}, inheritedFrom(m_node->bucket));
    node->bucket = bucket.value_or(StorageBucket::other);
    totals.addDirectory(node->bucket, node->size);
    m_children.push_back(node);
    tag = {node, head};
    return true;
}

void ScanPart::file(const DirectoryEntry& entry) {
    const EntryStatus& status = *entry.status;
    const FileKind kind = fileKindForName(entry.name);
    const bool hasNode = status.allocatedBytes >= fileNodeThreshold;
    if (status.isSharedFile())
        noteLinkedFile(status, kind, hasNode);
    else {
        m_node->size += status.allocatedBytes;
        m_node->logicalSize += status.logicalBytes;
        ++m_node->fileCount;
        totals.addFile(bucketForFile(m_node->bucket, kind), kind, status.allocatedBytes);
        ++m_counted.files;
        m_counted.bytes += status.allocatedBytes;
        if (!hasNode) {
            m_node->smallFilesSize += status.allocatedBytes;
            ++m_node->smallFilesCount;
        }
    }
    if (!hasNode)
        return;
    FileNode* node = arena.newNode(entry.name);
    node->parent = m_node;
    node->kind = kind;
    node->bucket = bucketForFile(m_node->bucket, kind);
    node->size = status.allocatedBytes;
    node->logicalSize = status.logicalBytes;
    node->fileCount = 1;
    setTimes(*node, status);
    m_children.push_back(node);
}

void ScanPart::noteLinkedFile(const EntryStatus& status, FileKind kind, bool hasNode) {
    m_linked.push_back({status.linkKey(), status.allocatedBytes, status.logicalBytes,
                        static_cast<std::uint32_t>(m_children.size()), kind, hasNode});
    m_linkedFiles += 1.0 / static_cast<double>(status.links);
    m_linkedBytes += static_cast<double>(status.allocatedBytes) / static_cast<double>(status.links);
}

void ScanPart::unreadable() {
    ++errors;
    m_node->unreadable = true;
}

void ScanPart::end() {
    m_node->children = arena.newChildren(m_children.size());
    std::copy(m_children.begin(), m_children.end(), m_node->children.begin());
    m_children.clear();
    if (!m_linked.empty())
        linkedFiles.push_back({m_node, m_linked});
    m_linked.clear();
}

WalkCount ScanPart::counted() const {
    return {m_counted.files + wholeNumber<std::int64_t>(m_linkedFiles),
            m_counted.bytes + wholeNumber<std::int64_t>(m_linkedBytes)};
}

} // namespace brimlet
