#include "cli/ScanReport.h"

#include "core/ByteFormat.h"
#include "core/Localized.h"
#include "core/Paths.h"
#include "core/WholeNumber.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

namespace brimlet {

namespace {

/// Wider lines are harder to follow, not easier.
constexpr std::size_t widestLine = 100;
constexpr std::size_t indent = 2;
constexpr std::uint32_t folderColor = 0x5B8CFF;

bool isMostlyOneFolder(const FileNode& folder) {
    return std::any_of(folder.children.begin(), folder.children.end(), [&](const FileNode* child) {
        return child->isDirectory && child->size > folder.size - folder.size / 5;
    });
}

std::vector<const FileNode*> largest(std::vector<const FileNode*> nodes, std::size_t limit) {
    std::stable_sort(nodes.begin(), nodes.end(),
                     [](const FileNode* a, const FileNode* b) { return a->size > b->size; });
    nodes.resize(std::min(nodes.size(), limit));
    return nodes;
}

std::string percent(double share) {
    const auto whole = wholeNumber<std::int64_t>(std::round(share * 100));
    return whole == 0 ? "<1%" : std::to_string(whole) + "%";
}

std::string counted(std::int64_t count, std::string_view one, std::string_view many) {
    return formatCount(count) + " " + localized(count == 1 ? one : many);
}

std::string seconds(double duration) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), duration < 10 ? "%.2f s" : "%.0f s", duration);
    return text.data();
}

class ScanReport {
public:
    ScanReport(const ScanResult& result, std::string_view homeFolder, const Terminal& terminal)
        : m_result(result)
        , m_homeFolder(homeFolder)
        , m_terminal(terminal)
        , m_width(std::min(terminal.width, widestLine)) {}

    std::string text(std::size_t top) {
        addSummary();
        addBuckets();
        addNodes(localized("Largest folders"), largestFolders(m_result, top));
        addNodes(localized("Largest files"), largestFiles(m_result, top));
        return m_text;
    }

private:
    void addLine(const std::string& line) { m_text += line + "\n"; }

    void addTitle(std::string_view title) { addLine("\n" + bold(title, m_terminal)); }

    void addSummary() {
        const std::string total = formatBytes(m_result.root->size);
        const std::size_t left = m_width > total.size() + 2 ? m_width - total.size() - 2 : 0;
        const std::string path = fitted(printable(displayPath(m_result.rootPath, m_homeFolder)), left);
        addLine(bold(total, m_terminal) + "  " + path);
        addLine(counted(m_result.totalFiles, "file", "files") + " in " +
                counted(m_result.totalDirectories, "folder", "folders") + ", measured in " +
                seconds(m_result.duration));
        if (m_result.unreadableDirectories > 0) {
            addLine(
                counted(m_result.unreadableDirectories, "item could not be read", "items could not be read"));
        }
        if (m_result.hardLinksSkipped > 0) {
            addLine(counted(m_result.hardLinksSkipped, "further hard link to a file already counted",
                            "further hard links to files already counted"));
        }
    }

    void addBuckets() {
        std::vector<std::pair<StorageBucket, std::int64_t>> totals(m_result.bucketTotals.begin(),
                                                                   m_result.bucketTotals.end());
        std::stable_sort(totals.begin(), totals.end(),
                         [](const auto& a, const auto& b) { return a.second > b.second; });
        std::size_t titleColumns = 0;
        std::size_t sizeColumns = 0;
        for (const auto& [bucket, bytes] : totals) {
            titleColumns = std::max(titleColumns, columnsOf(localized(look(bucket).title)));
            sizeColumns = std::max(sizeColumns, columnsOf(formatBytes(bytes)));
        }
        addTitle(localized("Space by use"));
        const double whole = std::max<double>(1, static_cast<double>(m_result.root->size));
        const std::size_t used = indent + titleColumns + 2 + sizeColumns + 2 + 4 + 2;
        for (const auto& [bucket, bytes] : totals) {
            if (bytes <= 0)
                continue;
            const double share = static_cast<double>(bytes) / whole;
            std::string line = std::string(indent, ' ');
            line += padded(localized(look(bucket).title), titleColumns) + "  ";
            line += padded(formatBytes(bytes), sizeColumns, Align::right) + "  ";
            line += padded(percent(share), 4, Align::right);
            if (m_width >= used + 10)
                line += "  " + colored(bar(share, m_width - used), look(bucket).color, m_terminal);
            addLine(line);
        }
    }

    void addNodes(std::string_view title, const std::vector<const FileNode*>& nodes) {
        if (nodes.empty())
            return;
        addTitle(title);
        std::size_t sizeColumns = 0;
        for (const FileNode* node : nodes)
            sizeColumns = std::max(sizeColumns, columnsOf(formatBytes(node->size)));
        const std::size_t barColumns = m_width >= 60 ? 10 : 0;
        const std::size_t used = indent + sizeColumns + 2 + (barColumns > 0 ? barColumns + 2 : 0);
        const auto whole = static_cast<double>(std::max<std::int64_t>(1, nodes.front()->size));
        for (const FileNode* node : nodes) {
            std::string line = std::string(indent, ' ');
            line += padded(formatBytes(node->size), sizeColumns, Align::right) + "  ";
            if (barColumns > 0) {
                const std::string drawn =
                    padded(bar(static_cast<double>(node->size) / whole, barColumns), barColumns);
                line += colored(drawn, node->isDirectory ? folderColor : look(node->kind).color, m_terminal) +
                        "  ";
            }
            addLine(line + fitted(shownPath(*node), std::max<std::size_t>(m_width, used + 8) - used));
        }
    }

    /// Below the root, which the first line names.
    std::string shownPath(const FileNode& node) const {
        const std::string path = node.path();
        const std::size_t root = m_result.root->name.size();
        const std::size_t slash = m_result.root->name.ends_with('/') ? 0 : 1;
        return printable(std::string_view(path).substr(std::min(path.size(), root + slash))) +
               (node.isDirectory ? "/" : "");
    }

    const ScanResult& m_result;
    const std::string_view m_homeFolder;
    const Terminal& m_terminal;
    const std::size_t m_width;
    std::string m_text;
};

} // namespace

std::vector<const FileNode*> largestFolders(const ScanResult& result, std::size_t limit) {
    std::vector<const FileNode*> folders;
    std::vector<const FileNode*> work = {result.root};
    while (!work.empty()) {
        const FileNode* node = work.back();
        work.pop_back();
        if (node != result.root && !isMostlyOneFolder(*node))
            folders.push_back(node);
        for (const FileNode* child : node->children)
            if (child->isDirectory && !child->deleted)
                work.push_back(child);
    }
    return largest(std::move(folders), limit);
}

std::vector<const FileNode*> largestFiles(const ScanResult& result, std::size_t limit) {
    return largest({result.files.begin(), result.files.end()}, limit);
}

std::string scanReport(const ScanResult& result, std::size_t top, std::string_view homeFolder,
                       const Terminal& terminal) {
    return ScanReport(result, homeFolder, terminal).text(top);
}

} // namespace brimlet
