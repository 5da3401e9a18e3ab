// Which files of a scan are listed. A plain value that screens edit and the application state keeps.
#pragma once

#include "core/FileNode.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace brimlet {

struct FileFilter {
    std::string query;        ///< UTF-8; with a "/" it is looked for in normalised paths, else in names
    std::set<FileKind> kinds; ///< empty: every kind
    std::optional<StorageBucket> bucket;
    std::int64_t minSize = 0; ///< least `size`, in bytes
    std::optional<int> modifiedOlderThanDays;
    std::optional<std::string> pathPrefix; ///< normalised; compared as plain text, not by path component
    bool hideProtected = false;            ///< carried for the screens; matching doesn't read it

    /// Whether the node is listed. The caller leaves out deleted nodes.
    /// now  seconds since 1970
    bool matches(const FileNode& node, double now) const;

    bool operator==(const FileFilter&) const = default;
};

/// A filter made ready for many nodes. Fastest when nodes of one folder follow each other.
/// thread  one at a time; reads only fields of a node that never change after the scan
class FileMatcher {
public:
    /// filter  must outlive the matcher
    FileMatcher(const FileFilter& filter, double now);

    /// foldedName  the node's name through `foldedText`
    bool matches(const FileNode& node, std::string_view foldedName);

private:
    bool matchesQuery(const FileNode& node, std::string_view foldedName);
    bool hasPathPrefix(const FileNode& node);
    void enterFolder(const FileNode* folder);

    const FileFilter& m_filter;
    double m_latestModified = 0;
    std::string m_needle; ///< the folded query
    bool m_searchesPaths = false;

    const FileNode* m_folder = nullptr; ///< whose paths the three fields below describe
    std::string m_folderPath;           ///< normalised, ends in a slash
    std::string m_foldedFolderPath;
    bool m_folderHasNeedle = false;
    std::string m_buffer;
};

} // namespace brimlet
