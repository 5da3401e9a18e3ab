// One directory, or one file of at least 512 KiB, of a finished scan.
//
// Nodes live in the NodeArena of their ScanResult and never move, so a node's address is its identity.
// A scan's threads build them; after the hand-over only the main thread reads and writes them.
// Invariant: a directory's `size` = its own blocks + `smallFilesSize` + the sizes of its children that are
// not `deleted`.
#pragma once

#include "core/FileKind.h"
#include "core/StorageBucket.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace brimlet {

/// Allocated bytes from which a file gets a node of its own.
inline constexpr std::int64_t fileNodeThreshold = std::int64_t{512} * 1024;

struct FileNode {
    std::string_view name; ///< last path component, any bytes; for the root the path the scan started from
    FileNode* parent = nullptr;      ///< null for the root
    std::span<FileNode*> children;   ///< subdirectories and large files, in directory-reading order
    std::int64_t size = 0;           ///< allocated bytes, own and all below
    std::int64_t logicalSize = 0;    ///< sum of the files' `st_size`
    std::int64_t fileCount = 0;      ///< non-directory entries below; 1 for a file
    double modified = 0;             ///< whole seconds since 1970
    double accessed = 0;             ///< whole seconds since 1970
    std::int64_t smallFilesSize = 0; ///< allocated bytes of the direct files that have no node
    std::uint32_t smallFilesCount = 0;
    FileKind kind = FileKind::other;
    StorageBucket bucket = StorageBucket::other;
    bool isDirectory : 1 = false;
    bool isPackage : 1 = false;  ///< a directory that is shown as one item
    bool unreadable : 1 = false; ///< the directory could not be listed
    bool deleted : 1 = false;    ///< removed since the scan; the node stays in place and readers skip it

    /// The full path, put together on every call. On a whole-disk scan it carries the data volume's prefix.
    std::string path() const;
};

/// Whether a node or a folder that holds it has been deleted.
bool isGone(const FileNode& node);

static_assert(sizeof(FileNode) <= 96, "a scan of millions of folders must stay small");

} // namespace brimlet
