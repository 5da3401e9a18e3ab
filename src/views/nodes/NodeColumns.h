// A list of nodes laid out for sorting and filtering off the main thread, and the orders that come of it.
//
// The tree belongs to the main thread. What a deletion can change (`size` and `fileCount` of folders,
// `deleted`) is copied here; other fields never change after the scan and may be read from any thread.
#pragma once

#include "core/FileFilter.h"
#include "core/ScanResult.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

/// One bit a node of the list.
class NodeBits {
public:
    NodeBits() = default;
    explicit NodeBits(std::size_t count)
        : m_words((count + 63) / 64) {}

    bool operator[](std::size_t i) const {
        return i / 64 < m_words.size() && (m_words[i / 64] >> i % 64 & 1U) != 0;
    }
    void set(std::size_t i) { m_words[i / 64] |= std::uint64_t{1} << i % 64; }
    void clear(std::size_t i) { m_words[i / 64] &= ~(std::uint64_t{1} << i % 64); }
    void clearAll() { m_words.assign(m_words.size(), 0); }
    NodeBits& operator&=(const NodeBits& other);

    /// Calls with each set position, in order.
    template <typename Visit>
    void forEach(Visit visit) const {
        for (std::size_t word = 0; word < m_words.size(); ++word) {
            for (std::uint64_t bits = m_words[word]; bits != 0; bits &= bits - 1)
                visit(word * 64 + static_cast<std::size_t>(__builtin_ctzll(bits)));
        }
    }

private:
    std::vector<std::uint64_t> m_words;
};

/// The columns that a table of nodes can be sorted by.
enum class NodeColumn { name, size, kind, category, modified, lastOpened, fileCount };

enum class SortDirection { ascending, descending };

struct NodeSort {
    NodeColumn column = NodeColumn::size;
    SortDirection direction = SortDirection::descending;
    bool operator==(const NodeSort&) const = default;
};

/// Rows in display order. A row is a position in the list of nodes.
struct NodeRows {
    std::vector<std::uint32_t> order;
    NodeBits listed; ///< the same rows, by position
    std::int64_t totalSize = 0;
    std::int64_t largestSize = 0;
};

/// Whether rows can't be filtered and sorted so before the names are prepared.
bool needsNames(const FileFilter& filter, const NodeSort& sort);

class NodeColumns {
public:
    /// scan  kept alive
    NodeColumns(std::shared_ptr<const ScanResult> scan, std::vector<FileNode*> nodes);

    /// Copies what may change later, once, of the nodes before `end`. Called on the main thread where `nodes`
    /// holds folders; for files, whose sizes stay, `rows` does what is left. Before that `size` and
    /// `fileCount` may not be asked for.
    void readSizes(std::size_t end);
    void readSizes() { readSizes(count()); }

    std::size_t count() const { return m_nodes.size(); }
    FileNode* node(std::size_t i) const { return m_nodes[i]; }
    std::int64_t size(std::size_t i) const { return m_sizes[i]; }
    std::int64_t fileCount(std::size_t i) const { return m_fileCounts[i]; }
    const std::shared_ptr<const ScanResult>& scan() const { return m_scan; }

    /// Whether a name begins with a text that foldedText has folded. Any thread; quick once the names are
    /// prepared.
    bool nameBeginsWith(std::size_t i, std::string_view folded) const;

    /// Folds and ranks the names once; sorting by name and searching need it. One thread at a time.
    /// interrupted  looked at now and then; once set, nothing is prepared, and false given
    bool prepareNames(const std::atomic<bool>& interrupted);

    /// The rows that match, sorted; equal keys keep the order of the list in both directions.
    /// deleted    positions to leave out
    /// cancelled  looked at now and then; once set, the result is worthless
    /// interrupted  the same, for prepareNames: what it has begun serves the next request too
    NodeRows rows(const FileFilter& filter, const NodeSort& sort, const NodeBits& deleted, double now,
                  const std::atomic<bool>& cancelled, const std::atomic<bool>& interrupted);

private:
    std::vector<std::uint32_t> matching(const FileFilter& filter, const NodeBits& deleted, double now,
                                        const std::atomic<bool>& cancelled);
    std::uint64_t sortKey(std::size_t i, NodeColumn column) const;
    bool rankNames(const std::atomic<bool>& interrupted);
    std::string_view foldedName(std::size_t i) const;

    std::shared_ptr<const ScanResult> m_scan;
    std::vector<FileNode*> m_nodes;
    std::vector<std::int64_t> m_sizes;
    std::vector<std::int64_t> m_fileCounts;

    std::atomic<bool> m_namesReady = false;
    std::string m_foldedNames; ///< all names one after the other
    std::vector<std::size_t> m_nameStarts;
    std::vector<std::uint32_t> m_nameRanks; ///< equal names have equal ranks
};

} // namespace brimlet
