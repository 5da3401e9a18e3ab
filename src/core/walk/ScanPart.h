// What one thread of a scan has built: nodes of the folders it read, sums that don't depend on the order of
// the walk, and a note of every file with several hard links, since only the finished tree tells which of its
// paths comes first.
#pragma once

#include "core/FolderRules.h"
#include "core/NodeArena.h"
#include "core/walk/ParallelWalk.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace brimlet {

/// The leading components of a folder's normalised path, as far as its bucket depends on them. The views
/// point at names of nodes, or at the root's path.
struct PathHead {
    std::array<std::string_view, FolderRules::mostPathComponents> components;
    std::size_t count = 0;
};

/// Sums over files and folders, by category.
struct ScanTotals {
    struct Sum {
        std::int64_t bytes = 0;
        std::int64_t entries = 0;
    };
    std::array<Sum, storageBucketCount> buckets{};
    std::array<Sum, fileKindCount> kinds{};

    void addDirectory(StorageBucket bucket, std::int64_t bytes);
    void addFile(StorageBucket bucket, FileKind kind, std::int64_t bytes);
    void add(const ScanTotals& other);
};

/// A file with several hard links, at one of its paths.
struct LinkedFile {
    std::uint64_t key = 0;
    std::int64_t size = 0;
    std::int64_t logicalSize = 0;
    std::uint32_t position = 0; ///< how many of its folder's children come before it
    FileKind kind = FileKind::other;
    bool hasNode = false; ///< then it is the child at `position`
};

/// The linked files directly in one folder, in reading order.
struct LinkedFilesOfFolder {
    FileNode* folder = nullptr;
    std::vector<LinkedFile> files;
};

class ScanPart : public FolderVisitor {
public:
    /// excluded  normalised paths of directories to leave out
    /// Both must outlive this.
    ScanPart(const FolderRules& rules, const std::unordered_set<std::string>& excluded);

    /// The node of the folder that the scan starts from.
    FolderTag root(std::string_view path, const EntryStatus& status);

    void begin(const Folder& folder) override;
    void file(const DirectoryEntry& entry) override;
    bool directory(const DirectoryEntry& entry, FolderTag& tag) override;
    void unexaminable() override { ++errors; }
    void unreadable() override;
    void end() override;
    WalkCount counted() const override;

    NodeArena arena;
    ScanTotals totals; ///< linked files left out
    std::deque<LinkedFilesOfFolder> linkedFiles;
    std::int64_t directories = 0;
    std::int64_t errors = 0;

private:
    bool isExcluded(const FileNode& parent, std::string_view name) const;
    FileNode* newDirectory(std::string_view name, const EntryStatus& status);
    void noteLinkedFile(const EntryStatus& status, FileKind kind, bool hasNode);
    const PathHead* headBelow(const PathHead& parent, const FileNode& node);

    const FolderRules& m_rules;
    const std::unordered_set<std::string>& m_excluded;
    std::unordered_set<std::string> m_excludedNames; ///< last components, to look before a path is built
    std::deque<PathHead> m_heads;
    WalkCount m_counted;
    double m_linkedFiles = 0; ///< a file with n links counts as 1/n at each of them until the walk has ended
    double m_linkedBytes = 0;

    const Folder* m_folder = nullptr;
    FileNode* m_node = nullptr;
    std::vector<FileNode*> m_children;
    std::vector<LinkedFile> m_linked;
};

} // namespace brimlet
