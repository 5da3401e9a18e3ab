#include "core/walk/ScanAssembly.h"

#include "core/walk/InodeSet.h"

#include <span>
#include <unordered_map>
#include <vector>

namespace brimlet {

namespace {

class ScanAssembly {
public:
    ScanAssembly(FileNode& root, std::deque<ScanPart>& parts)
        : m_result(std::make_shared<ScanResult>()) {
        m_result->root = &root;
        for (ScanPart& part : parts) {
            m_result->arena.adopt(std::move(part.arena));
            m_totals.add(part.totals);
            m_result->totalDirectories += part.directories;
            m_result->unreadableDirectories += part.errors;
            for (const LinkedFilesOfFolder& linked : part.linkedFiles)
                m_linkedFiles.emplace(linked.folder, linked.files);
        }
    }

    std::shared_ptr<ScanResult> run() {
        walk();
        fillTotals();
        return m_result;
    }

private:
    /// A directory entered and not yet left.
    struct Level {
        FileNode* node;
        std::span<const LinkedFile> linked; ///< those still to come
        std::size_t next = 0;               ///< index of the next child
        std::size_t kept = 0;               ///< children before `next` that stay
    };

    Level enter(FileNode* node) const {
        const auto linked = m_linkedFiles.find(node);
        return {node, linked != m_linkedFiles.end() ? linked->second : std::span<const LinkedFile>()};
    }

    void walk() {
        std::vector<Level> levels = {enter(m_result->root)};
        while (!levels.empty()) {
            if (FileNode* below = advance(levels.back())) {
                levels.push_back(enter(below));
                continue;
            }
            FileNode& node = *levels.back().node;
            node.children = node.children.first(levels.back().kept);
            levels.pop_back();
            if (!levels.empty())
                addTo(*levels.back().node, node);
        }
    }

    /// Goes on until a directory, which is returned, or to the end.
    FileNode* advance(Level& level) {
        for (;;) {
            bool keepsChild = true;
            while (!level.linked.empty() && level.linked.front().position == level.next) {
                const LinkedFile& file = level.linked.front();
                level.linked = level.linked.subspan(1);
                const bool isFirst = count(*level.node, file);
                if (file.hasNode) {
                    keepsChild = isFirst;
                    break;
                }
            }
            if (level.next == level.node->children.size())
                return nullptr;
            FileNode* child = level.node->children[level.next++];
            if (!keepsChild)
                continue;
            level.node->children[level.kept++] = child;
            if (child->isDirectory)
                return child;
            m_result->files.push_back(child);
        }
    }

    /// Returns whether this is the first path of the file.
    bool count(FileNode& folder, const LinkedFile& file) {
        if (!m_seen.insert(file.key)) {
            ++m_result->hardLinksSkipped;
            return false;
        }
        folder.size += file.size;
        folder.logicalSize += file.logicalSize;
        ++folder.fileCount;
        m_totals.addFile(bucketForFile(folder.bucket, file.kind), file.kind, file.size);
        if (!file.hasNode) {
            folder.smallFilesSize += file.size;
            ++folder.smallFilesCount;
        }
        return true;
    }

    static void addTo(FileNode& parent, const FileNode& child) {
        parent.size += child.size;
        parent.logicalSize += child.logicalSize;
        parent.fileCount += child.fileCount;
    }

    void fillTotals() {
        for (const StorageBucket bucket : allStorageBuckets()) {
            const ScanTotals::Sum& sum = m_totals.buckets[static_cast<std::size_t>(bucket)];
            if (sum.entries > 0)
                m_result->bucketTotals[bucket] = sum.bytes;
        }
        for (const FileKind kind : allFileKinds()) {
            const ScanTotals::Sum& sum = m_totals.kinds[static_cast<std::size_t>(kind)];
            if (sum.entries == 0)
                continue;
            m_result->kindTotals[kind] = sum.bytes;
            m_result->kindCounts[kind] = sum.entries;
        }
        m_result->totalFiles = m_result->root->fileCount;
    }

    std::shared_ptr<ScanResult> m_result;
    ScanTotals m_totals;
    std::unordered_map<const FileNode*, std::span<const LinkedFile>> m_linkedFiles;
    InodeSet m_seen;
};

} // namespace

std::shared_ptr<ScanResult> assembleScan(FileNode& root, std::deque<ScanPart>& parts) {
    return ScanAssembly(root, parts).run();
}

} // namespace brimlet
