#include "core/FileFilter.h"

#include "core/Paths.h"
#include "core/TextFold.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace brimlet {

namespace {

constexpr double secondsPerDay = 86'400.0;

bool contains(std::string_view text, std::string_view needle) {
    return memmem(text.data(), text.size(), needle.data(), needle.size()) != nullptr;
}

} // namespace

bool FileFilter::matches(const FileNode& node, double now) const {
    return FileMatcher(*this, now).matches(node, query.empty() ? std::string() : foldedText(node.name));
}

FileMatcher::FileMatcher(const FileFilter& filter, double now)
    : m_filter(filter)
    , m_latestModified(filter.modifiedOlderThanDays ? now - *filter.modifiedOlderThanDays * secondsPerDay
                                                    : std::numeric_limits<double>::infinity())
    , m_needle(foldedText(filter.query))
    , m_searchesPaths(filter.query.find('/') != std::string::npos) {}

bool FileMatcher::matches(const FileNode& node, std::string_view foldedName) {
    return node.size >= m_filter.minSize && (m_filter.kinds.empty() || m_filter.kinds.contains(node.kind)) &&
           (!m_filter.bucket || node.bucket == *m_filter.bucket) &&
           (!m_filter.modifiedOlderThanDays || node.modified <= m_latestModified) &&
           (m_filter.query.empty() || matchesQuery(node, foldedName)) &&
           (!m_filter.pathPrefix || hasPathPrefix(node));
}

bool FileMatcher::matchesQuery(const FileNode& node, std::string_view foldedName) {
    if (!m_searchesPaths)
        return contains(foldedName, m_needle);
    if (node.parent == nullptr)
        return contains(foldedText(normalisedPath(node.name)), m_needle);
    enterFolder(node.parent);
    if (m_folderHasNeedle)
        return true;
    // Only a find that ends in the name is left, so the folder's last bytes are enough.
    const std::size_t tail = std::min(m_foldedFolderPath.size(), m_needle.size());
    m_buffer.assign(m_foldedFolderPath, m_foldedFolderPath.size() - tail, tail);
    m_buffer += foldedName;
    return contains(m_buffer, m_needle);
}

bool FileMatcher::hasPathPrefix(const FileNode& node) {
    const std::string& prefix = *m_filter.pathPrefix;
    if (node.parent == nullptr)
        return normalisedPath(node.name).starts_with(prefix);
    enterFolder(node.parent);
    if (m_folderPath.starts_with(prefix))
        return true;
    return prefix.starts_with(m_folderPath) &&
           node.name.starts_with(std::string_view(prefix).substr(m_folderPath.size()));
}

void FileMatcher::enterFolder(const FileNode* folder) {
    if (folder == m_folder)
        return;
    m_folder = folder;
    std::string path = folder->path();
    if (!path.ends_with('/'))
        path += '/';
    m_folderPath = normalisedPath(path);
    if (m_searchesPaths) {
        m_foldedFolderPath = foldedText(m_folderPath);
        m_folderHasNeedle = contains(m_foldedFolderPath, m_needle);
    }
}

} // namespace brimlet
