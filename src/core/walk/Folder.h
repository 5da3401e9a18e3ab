// A directory that a walk has met and not yet finished with.
//
// A folder's record lives until it has been read and all folders below it are gone; so its chain of parents
// is always there: for opening it again, and for telling whether a directory holds itself. Records are passed
// between the threads of one walk; who holds a folder that is not yet read owns that reference.
#pragma once

#include "core/walk/DirectoryReader.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

namespace brimlet {

struct FileNode;
struct PathHead;

/// What a scan ties to a folder; other walks leave it empty.
struct FolderTag {
    FileNode* node = nullptr;
    const PathHead* pathHead = nullptr;
};

struct Folder {
    Folder(std::string_view folderName, Folder* parentFolder, const EntryStatus& status,
           const FolderTag& folderTag);

    const std::string name; ///< last path component; of the first one the whole path
    Folder* const parent;   ///< null for the first one
    const std::uint64_t device;
    const std::uint64_t inode;
    const std::uint32_t depth; ///< 0 for the first one

    const FolderTag tag;

    /// Kept open while folders below it are still to be opened, where descriptors allow. Belongs to
    /// FolderOpener.
    DirectoryDescriptor kept;
    std::atomic<std::uint32_t> unopened = 0; ///< folders directly below that are still to be opened

    /// Whether a directory with this status is the folder itself or one it stands in.
    bool isInside(const EntryStatus& status) const;

    /// The full path, put together on every call.
    std::string path() const;

    /// A folder directly below, not yet read.
    Folder* newChild(std::string_view childName, const EntryStatus& status, const FolderTag& childTag);

    /// Gives the caller's reference back; the record goes with the last one, and so may its parents'.
    static void release(Folder* folder);

private:
    std::atomic<std::uint32_t> m_users = 1; ///< folders below, and one while it isn't read
};

} // namespace brimlet
