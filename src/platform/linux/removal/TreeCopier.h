// Copies a tree onto another device, completely or not at all as far as its caller is concerned.
//
// Kept are contents with their holes, links as links, hard links among the tree's own entries, special files,
// modes, times to the nanosecond, extended attributes, and owners where the process may set them; of these,
// what the other disk can't store is told by losses(). A file that changes while it is read fails the copy,
// and so does a disk mounted inside the tree. No link is followed.
// A copy is on the disk when it is done: each file is synced and its closing checked, then each folder.
// Depth is bounded by memory only. One copier serves one copy.
#pragma once

#include "platform/linux/removal/CopyManifest.h"
#include "platform/linux/removal/DiskSync.h"
#include "platform/linux/removal/FileCopy.h"
#include "platform/linux/removal/FolderLadder.h"
#include "platform/linux/removal/FolderListing.h"
#include "platform/Result.h"

#include <map>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

namespace brimlet {

class TreeCopier {
public:
    /// Made beside a copy that has hard links, to find them again; to be removed when the copy is complete.
    static constexpr const char* linksFolder = "links";

    /// calls     must outlive the copier
    /// manifest  receives what has been copied; must outlive the copier
    /// stop      asked between entries and within a file; stopping fails the copy
    TreeCopier(FileSystemCalls& calls, CopyManifest& manifest, std::stop_token stop = {});

    /// Copies the entry `name` of `parent` into the empty folder `target`, as `newName`. On an error what has
    /// been copied so far is left there.
    Failure copy(int parent, const std::string& name, int target, const std::string& newName);

    /// What the copy lacks although it is complete.
    const CopyLosses& losses() const { return m_losses; }

private:
    struct Level {
        FileStatus status;
        std::vector<std::string> names; ///< still to be copied
    };

    int copyEntry(int from, const std::string& name, int to, const std::string& newName);
    int copyFolder(int from, const std::string& name, int to, const std::string& newName);
    int copyFile(int from, const std::string& name, const FileStatus& status, int to,
                 const std::string& newName);
    int copyLeaf(int from, const std::string& name, const FileStatus& status, int to,
                 const std::string& newName);
    int copyLinked(int from, const std::string& name, const FileStatus& status, int to,
                   const std::string& newName);
    int copyLink(int from, const std::string& name, const FileStatus& status, int to,
                 const std::string& newName);
    int copyNode(const FileStatus& status, int to, const std::string& newName);
    int finishFolder();
    int finishCopy();

    FileSystemCalls& m_calls;
    CopyManifest& m_manifest;
    std::stop_token m_stop;
    FolderListing m_listing;
    FolderLadder m_sources;
    FolderLadder m_targets;
    std::vector<Level> m_levels;
    /// By device and inode: a first copy's name in m_links.
    std::map<std::pair<std::uint64_t, std::uint64_t>, std::string> m_linkNames;
    Descriptor m_links;
    DiskSync m_sync;
    CopyLosses m_losses;
    bool m_hasUnopened = false; ///< links or special files, which can't be synced one by one
    int m_target = -1;
    std::uint64_t m_device = 0;
};

} // namespace brimlet
