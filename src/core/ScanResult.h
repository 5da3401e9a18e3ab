// What a finished scan leaves behind, and the small values around it.
//
// A result is built once by Scanner, handed to the main thread and from then on touched only there. It is
// shared: whoever keeps nodes keeps their ScanResult alive.
#pragma once

#include "core/FileNode.h"
#include "core/NodeArena.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <variant>
#include <vector>

namespace brimlet {

/// The last report of a running scan.
struct ScanProgressSnapshot {
    std::int64_t files = 0;
    std::int64_t bytes = 0;
    std::string currentPath; ///< normalised
    bool operator==(const ScanProgressSnapshot&) const = default;
};

struct ScanResult {
    NodeArena arena;              ///< owns all nodes
    FileNode* root = nullptr;     ///< never null in a result that Scanner returned
    std::string rootPath;         ///< as the scan got it
    std::vector<FileNode*> files; ///< all file nodes in walk order, deleted ones included
    std::map<StorageBucket, std::int64_t>
        bucketTotals; ///< allocated bytes, directories' own included; may sink below 0
    std::map<FileKind, std::int64_t> kindTotals; ///< allocated bytes of files, small ones included
    std::map<FileKind, std::int64_t> kindCounts; ///< files, small ones included
    std::int64_t totalFiles = 0;                 ///< hard-link repeats left out
    std::int64_t totalDirectories = 0;           ///< directories entered, the root included
    std::int64_t unreadableDirectories =
        0;                             ///< unreadable directories, entries that could not be examined, errors
    std::int64_t hardLinksSkipped = 0; ///< repeat links to a file already counted
    double duration = 0;               ///< seconds the walk took
    std::chrono::system_clock::time_point finishedAt;

    ScanResult() = default;
    ScanResult(const ScanResult&) = delete;
    ScanResult& operator=(const ScanResult&) = delete;

    /// The node at a path without the data volume's prefix, or null. Case-sensitive; doubled slashes are
    /// ignored.
    FileNode* nodeAtPath(std::string_view path) const;

    /// The nodes at exactly these node paths, without those that lie below another of them. Paths without a
    /// node are left out. Looks only at the folders that lead to a given path.
    /// thread  any, while the main thread marks: reads only what never changes after the scan
    std::vector<FileNode*> nodesAtNodePaths(const std::unordered_set<std::string>& paths) const;

    /// Marks nodes as deleted and takes their sizes off their ancestors and `bucketTotals`. What lies below a
    /// deleted node changes nothing above that. Marking twice counts once for the ancestors, and each time
    /// for `bucketTotals`. Each node costs as many steps as it has ancestors; between two nodes the tree is
    /// whole, so that a long list can be marked in pieces.
    void markNodesDeleted(std::span<FileNode* const> nodes);
    void markDeleted(const std::unordered_set<std::string>& paths);

    /// Undoes `markDeleted` for what has been put back in its place: it counts for its ancestors and
    /// `bucketTotals` again. Where the folder that it lies in had gone too, that was made anew and holds
    /// nothing else. Nodes that aren't marked change nothing.
    void markNodesRestored(std::span<FileNode* const> nodes);
    void markRestored(const std::unordered_set<std::string>& paths);
};

/// What a scan covers.
class ScanTarget {
public:
    static ScanTarget wholeDisk() { return ScanTarget(Whole{}); }
    static ScanTarget home() { return ScanTarget(Home{}); }
    static ScanTarget folder(std::string path) { return ScanTarget(std::move(path)); }

    bool isWholeDisk() const { return std::holds_alternative<Whole>(m_value); }
    bool isHome() const { return std::holds_alternative<Home>(m_value); }
    bool isFolder() const { return std::holds_alternative<std::string>(m_value); }

    /// Where the walk starts. The whole disk is the data volume where there is one, else "/".
    std::string path(std::string_view homeFolder) const;

    /// "Entire disk", "Home folder" or the folder's last path component.
    std::string label() const;

    bool operator==(const ScanTarget&) const = default;

private:
    struct Whole {
        bool operator==(const Whole&) const = default;
    };
    struct Home {
        bool operator==(const Home&) const = default;
    };
    using Value = std::variant<Whole, Home, std::string>;
    explicit ScanTarget(Value value)
        : m_value(std::move(value)) {}

    Value m_value;
};

} // namespace brimlet
