#include "platform/PropertyListGuard.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace brimlet {

namespace {

constexpr std::size_t headerBytes = 8;
constexpr std::size_t trailerBytes = 32;
constexpr std::size_t maximumDepth = 128;
constexpr std::size_t maximumObjects = 1 << 18;
constexpr std::size_t maximumContainersInXml = 4096;
constexpr std::ptrdiff_t maximumReferencesInXml = 4096;

/// An object's cost is about the memory it takes once parsed, with everything it refers to.
constexpr std::uint64_t maximumCost = std::uint64_t{64} * 1024 * 1024;
constexpr std::uint64_t objectCost = 128;

/// The unsigned big-endian number in `width` bytes at `offset`; empty where it doesn't fit.
std::optional<std::uint64_t> number(std::string_view bytes, std::uint64_t offset, std::uint64_t width) {
    if (width < 1 || width > 8 || offset > bytes.size() || bytes.size() - offset < width)
        return std::nullopt;
    std::uint64_t value = 0;
    for (std::uint64_t i = offset; i < offset + width; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

/// Walks a binary list from its root. Object 0 to `m_objectCount` - 1 stand where the offset table says.
class BinaryWalk {
public:
    explicit BinaryWalk(std::string_view bytes)
        : m_bytes(bytes) {}

    bool isHarmless() {
        if (m_bytes.size() < headerBytes + trailerBytes)
            return false;
        const std::size_t trailer = m_bytes.size() - trailerBytes;
        m_offsetWidth = *number(m_bytes, trailer + 6, 1);
        m_referenceWidth = *number(m_bytes, trailer + 7, 1);
        const std::uint64_t objectCount = *number(m_bytes, trailer + 8, 8);
        const std::uint64_t root = *number(m_bytes, trailer + 16, 8);
        m_offsetTable = *number(m_bytes, trailer + 24, 8);
        if (m_offsetWidth < 1 || m_offsetWidth > 8 || m_referenceWidth < 1 || m_referenceWidth > 8)
            return false;
        if (objectCount > maximumObjects || m_offsetTable > trailer ||
            objectCount * m_offsetWidth > trailer - m_offsetTable)
            return false;
        m_costs.assign(objectCount, unknownCost);
        return cost(root, 0).has_value();
    }

private:
    static constexpr std::uint64_t unknownCost = 0;
    static constexpr std::uint64_t openCost = UINT64_MAX; ///< being walked: met again, it contains itself

    /// What an object's first bytes say.
    struct Head {
        unsigned type = 0;
        std::uint64_t count = 0;   ///< low bits, or the count that follows them
        std::uint64_t content = 0; ///< offset of what comes after
    };

    std::optional<Head> head(std::uint64_t offset) const {
        const auto marker = number(m_bytes, offset, 1);
        if (!marker)
            return std::nullopt;
        Head head{static_cast<unsigned>(*marker >> 4), *marker & 0xF, offset + 1};
        if (head.type < 0x4 || head.type == 0x8 || head.count != 0xF)
            return head;
        const auto lengthMarker = number(m_bytes, head.content, 1);
        if (!lengthMarker || *lengthMarker >> 4 != 0x1 || (*lengthMarker & 0xF) > 3)
            return std::nullopt;
        const std::uint64_t width = std::uint64_t{1} << (*lengthMarker & 0xF);
        const auto count = number(m_bytes, head.content + 1, width);
        if (!count)
            return std::nullopt;
        return Head{head.type, *count, head.content + 1 + width};
    }

    /// How many bytes an object's own content takes; empty for a kind that lists of files don't have.
    std::optional<std::uint64_t> contentBytes(const Head& head) const {
        if (head.count > m_bytes.size())
            return std::nullopt;
        switch (head.type) {
        case 0x0: // null, false, true
            return 0;
        case 0x1: // integer
        case 0x2: // real
        case 0x3: // date
            return head.count <= 4 ? std::optional(std::uint64_t{1} << head.count) : std::nullopt;
        case 0x4: // data
        case 0x5: // ASCII
            return head.count;
        case 0x6: // UTF-16
            return head.count * 2;
        case 0x8: // unique identifier
            return head.count + 1;
        case 0xA: // array
            return head.count * m_referenceWidth;
        case 0xD: // dictionary: keys, then values
            return head.count * 2 * m_referenceWidth;
        default:
            return std::nullopt;
        }
    }

    /// The cost of an object with everything below it; empty where it isn't harmless.
    std::optional<std::uint64_t> cost(std::uint64_t object, std::size_t depth) {
        if (object >= m_costs.size() || depth >= maximumDepth || m_costs[object] == openCost)
            return std::nullopt;
        if (m_costs[object] != unknownCost)
            return m_costs[object];
        const auto offset = number(m_bytes, m_offsetTable + object * m_offsetWidth, m_offsetWidth);
        const auto objectHead = offset ? head(*offset) : std::nullopt;
        const auto own = objectHead ? contentBytes(*objectHead) : std::nullopt;
        if (!own || objectHead->content > m_bytes.size() || m_bytes.size() - objectHead->content < *own)
            return std::nullopt;
        m_costs[object] = openCost;
        std::uint64_t sum = objectCost + *own;
        const std::uint64_t references = objectHead->type >= 0xA ? *own / m_referenceWidth : 0;
        for (std::uint64_t i = 0; i < references; ++i) {
            const auto child = number(m_bytes, objectHead->content + i * m_referenceWidth, m_referenceWidth);
            const auto childCost = cost(*child, depth + 1);
            if (!childCost || (sum += *childCost) > maximumCost)
                return std::nullopt;
        }
        return m_costs[object] = sum;
    }

    std::string_view m_bytes;
    std::uint64_t m_offsetWidth = 0;
    std::uint64_t m_referenceWidth = 0;
    std::uint64_t m_offsetTable = 0;
    std::vector<std::uint64_t> m_costs; ///< by object
};

std::size_t occurrences(std::string_view text, std::string_view piece) {
    std::size_t count = 0;
    for (std::size_t at = text.find(piece); at != std::string_view::npos; at = text.find(piece, at + 1))
        ++count;
    return count;
}

} // namespace

bool isHarmlessBinaryPropertyList(std::string_view bytes) {
    return BinaryWalk(bytes).isHarmless();
}

bool isHarmlessXmlPropertyList(std::string_view bytes) {
    return occurrences(bytes, "<array") + occurrences(bytes, "<dict") <= maximumContainersInXml &&
           std::ranges::count(bytes, '&') <= maximumReferencesInXml;
}

} // namespace brimlet
