#include "views/nodes/NodeColumns.h"

#include "core/Localized.h"
#include "core/TextFold.h"

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>

#include <QString>

namespace brimlet {

namespace {

constexpr std::size_t cancelCheckInterval = 4096;

/// A key that orders as an unsigned number the way a double orders.
std::uint64_t orderedBits(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value == 0 ? 0.0 : value);
    constexpr std::uint64_t sign = std::uint64_t{1} << 63;
    return (bits & sign) != 0 ? ~bits : bits | sign;
}

std::uint64_t orderedBits(std::int64_t value) {
    return static_cast<std::uint64_t>(value) ^ (std::uint64_t{1} << 63);
}

/// The place of each category's title among the titles in the user's language.
template <typename Category, std::size_t count>
std::array<std::uint64_t, count> titleRanks(const std::array<Category, count>& all) {
    std::array<std::string, count> titles;
    for (const Category one : all)
        titles[static_cast<std::size_t>(one)] = foldedText(localized(look(one).title));
    std::array<std::uint64_t, count> ranks{};
    for (std::size_t i = 0; i < count; ++i)
        ranks[i] = static_cast<std::uint64_t>(
            std::ranges::count_if(titles, [&](const std::string& title) { return title < titles[i]; }));
    return ranks;
}

struct KeyedRow {
    std::uint64_t key;
    std::uint32_t row;
};

/// Sorts by key, byte by byte from the lowest, skipping bytes that all keys share. Stable.
void radixSort(std::vector<KeyedRow>& rows) {
    std::vector<KeyedRow> sorted(rows.size());
    for (int shift = 0; shift < 64; shift += 8) {
        std::array<std::size_t, 257> starts{};
        for (const KeyedRow& one : rows)
            ++starts[(one.key >> shift & 0xFF) + 1];
        if (std::ranges::find(starts, rows.size()) != starts.end())
            continue;
        std::partial_sum(starts.begin(), starts.end(), starts.begin());
        for (const KeyedRow& one : rows)
            sorted[starts[one.key >> shift & 0xFF]++] = one;
        rows.swap(sorted);
    }
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Numbers so written that their bytes order by value: without leading zeros, and their length first.
std::string withOrderedNumbers(std::string_view text) {
    std::string ordered;
    ordered.reserve(text.size() + 4);
    for (std::size_t i = 0; i < text.size();) {
        if (!isDigit(text[i])) {
            ordered += text[i++];
            continue;
        }
        while (i + 1 < text.size() && text[i] == '0' && isDigit(text[i + 1]))
            ++i;
        const std::size_t start = i;
        while (i < text.size() && isDigit(text[i]))
            ++i;
        ordered += '0';
        ordered += static_cast<char>(i - start);
        ordered += text.substr(start, i - start);
    }
    return ordered;
}

/// A text whose bytes order as people order names: numbers by value, accents deciding only between names that
/// are otherwise equal.
std::string orderText(std::string_view foldedName) {
    if (std::ranges::all_of(foldedName, [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return withOrderedNumbers(foldedName);
    const QString accented = QString::fromUtf8(foldedName.data(), static_cast<qsizetype>(foldedName.size()))
                                 .normalized(QString::NormalizationForm_D);
    QString plain;
    std::ranges::copy_if(accented, std::back_inserter(plain), [](QChar c) { return !c.isMark(); });
    return withOrderedNumbers(plain.toStdString()) + '\0' + accented.toStdString();
}

constexpr std::size_t lookInterval = 4096; ///< rows between two looks at whether the work is still wanted

/// Sorts, stopping between pieces of a few milliseconds; false when it did.
template <class Row, class Before>
bool sortInPieces(std::vector<Row>& rows, const Before& isBefore, const std::atomic<bool>& interrupted) {
    constexpr std::size_t pieceRows = 16'384;
    const auto at = [&](std::size_t i) {
        return rows.begin() + static_cast<std::ptrdiff_t>(std::min(i, rows.size()));
    };
    for (std::size_t i = 0; i < rows.size(); i += pieceRows) {
        if (interrupted)
            return false;
        std::sort(at(i), at(i + pieceRows), isBefore);
    }
    for (std::size_t sorted = pieceRows; sorted < rows.size(); sorted *= 2) {
        for (std::size_t i = 0; i < rows.size(); i += 2 * sorted) {
            if (interrupted)
                return false;
            std::inplace_merge(at(i), at(i + sorted), at(i + 2 * sorted), isBefore);
        }
    }
    return true;
}

} // namespace

NodeBits& NodeBits::operator&=(const NodeBits& other) {
    for (std::size_t i = 0; i < m_words.size(); ++i)
        m_words[i] &= i < other.m_words.size() ? other.m_words[i] : 0;
    return *this;
}

NodeColumns::NodeColumns(std::shared_ptr<const ScanResult> scan, std::vector<FileNode*> nodes)
    : m_scan(std::move(scan))
    , m_nodes(std::move(nodes)) {}

void NodeColumns::readSizes(std::size_t end) {
    if (m_sizes.capacity() < m_nodes.size()) {
        m_sizes.reserve(m_nodes.size());
        m_fileCounts.reserve(m_nodes.size());
    }
    for (std::size_t i = m_sizes.size(); i < end; ++i) {
        m_sizes.push_back(m_nodes[i]->size);
        m_fileCounts.push_back(m_nodes[i]->fileCount);
    }
}

bool needsNames(const FileFilter& filter, const NodeSort& sort) {
    return !filter.query.empty() || sort.column == NodeColumn::name;
}

bool NodeColumns::prepareNames(const std::atomic<bool>& interrupted) {
    if (m_namesReady)
        return true;
    m_nameStarts.clear();
    m_foldedNames.clear();
    m_nameStarts.reserve(count() + 1);
    for (const FileNode* node : m_nodes) {
        if (m_nameStarts.size() % lookInterval == 0 && interrupted)
            return false;
        m_nameStarts.push_back(m_foldedNames.size());
        m_foldedNames += foldedText(node->name);
    }
    m_nameStarts.push_back(m_foldedNames.size());
    m_namesReady = rankNames(interrupted);
    return m_namesReady;
}

bool NodeColumns::nameBeginsWith(std::size_t i, std::string_view folded) const {
    return m_namesReady ? foldedName(i).starts_with(folded)
                        : foldedText(m_nodes[i]->name).starts_with(folded);
}

bool NodeColumns::rankNames(const std::atomic<bool>& interrupted) {
    struct NamedRow {
        std::uint64_t beginning; ///< the first eight bytes of the text, which decide most comparisons
        std::string text;
        std::uint32_t row;
    };
    std::vector<NamedRow> named;
    named.reserve(count());
    for (std::size_t i = 0; i < count(); ++i) {
        if (i % lookInterval == 0 && interrupted)
            return false;
        std::string text = orderText(foldedName(i));
        std::uint64_t beginning = 0;
        for (std::size_t at = 0; at < 8; ++at)
            beginning = beginning << 8 | (at < text.size() ? static_cast<unsigned char>(text[at]) : 0U);
        named.push_back({beginning, std::move(text), static_cast<std::uint32_t>(i)});
    }
    const auto isBefore = [](const NamedRow& a, const NamedRow& b) {
        return a.beginning != b.beginning ? a.beginning < b.beginning : a.text < b.text;
    };
    if (!sortInPieces(named, isBefore, interrupted))
        return false;
    m_nameRanks.resize(count());
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < named.size(); ++i) {
        if (i > 0 && named[i].text != named[i - 1].text)
            ++rank;
        m_nameRanks[named[i].row] = rank;
    }
    return true;
}

std::string_view NodeColumns::foldedName(std::size_t i) const {
    return std::string_view(m_foldedNames).substr(m_nameStarts[i], m_nameStarts[i + 1] - m_nameStarts[i]);
}

std::uint64_t NodeColumns::sortKey(std::size_t i, NodeColumn column) const {
    static const auto kindRanks = titleRanks(allFileKinds());
    static const auto bucketRanks = titleRanks(allStorageBuckets());
    switch (column) {
    case NodeColumn::name:
        return m_nameRanks[i];
    case NodeColumn::size:
        return orderedBits(m_sizes[i]);
    case NodeColumn::kind:
        return kindRanks[static_cast<std::size_t>(m_nodes[i]->kind)];
    case NodeColumn::category:
        return bucketRanks[static_cast<std::size_t>(m_nodes[i]->bucket)];
    case NodeColumn::modified:
        return orderedBits(m_nodes[i]->modified);
    case NodeColumn::lastOpened:
        return orderedBits(m_nodes[i]->accessed);
    case NodeColumn::fileCount:
        return orderedBits(m_fileCounts[i]);
    }
    return 0;
}

std::vector<std::uint32_t> NodeColumns::matching(const FileFilter& filter, const NodeBits& deleted,
                                                 double now, const std::atomic<bool>& cancelled) {
    const bool searches = !filter.query.empty();
    const bool listsAll = filter == FileFilter();
    FileMatcher matcher(filter, now);
    std::vector<std::uint32_t> rows;
    rows.reserve(count());
    for (std::size_t i = 0; i < count(); ++i) {
        if (i % cancelCheckInterval == 0 && cancelled)
            return {};
        if (!deleted[i] &&
            (listsAll || matcher.matches(*m_nodes[i], searches ? foldedName(i) : std::string_view())))
            rows.push_back(static_cast<std::uint32_t>(i));
    }
    return rows;
}

NodeRows NodeColumns::rows(const FileFilter& filter, const NodeSort& sort, const NodeBits& deleted,
                           double now, const std::atomic<bool>& cancelled,
                           const std::atomic<bool>& interrupted) {
    readSizes();
    if (needsNames(filter, sort) && !prepareNames(interrupted))
        return {};
    NodeRows result;
    result.order = matching(filter, deleted, now, cancelled);
    result.listed = NodeBits(count());
    const std::uint64_t flip = sort.direction == SortDirection::descending ? ~std::uint64_t{0} : 0;
    std::vector<KeyedRow> keyed;
    keyed.reserve(result.order.size());
    for (const std::uint32_t row : result.order) {
        keyed.push_back({sortKey(row, sort.column) ^ flip, row});
        result.listed.set(row);
        result.totalSize += m_sizes[row];
        result.largestSize = std::max(result.largestSize, m_sizes[row]);
    }
    if (!cancelled)
        radixSort(keyed);
    std::ranges::transform(keyed, result.order.begin(), &KeyedRow::row);
    return result;
}

} // namespace brimlet
