#include "views/map/SunburstArcs.h"

#include "core/WholeNumber.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace brimlet {

namespace {

constexpr std::array<std::uint32_t, 12> palette = {0x5B8CFF, 0x34C3A0, 0xF5B83D, 0xFF6B8A,
                                                   0xB57BFF, 0xFF9F43, 0x3DD6F5, 0x7BE07B,
                                                   0xE879F9, 0x60A5FA, 0xFACC15, 0x2DD4BF};

class ArcCollector {
public:
    explicit ArcCollector(int maxDepth)
        : m_maxDepth(maxDepth) {}

    /// color  null in the first ring
    void collect(const FileNode& folder, int depth, const std::uint32_t* color, double start, double span) {
        if (depth > m_maxDepth || folder.size < 1)
            return;
        double cursor = start;
        std::size_t rank = 0;
        for (FileNode* child : visibleChildren(folder, span)) {
            const double childSpan = share(span, *child, folder);
            const std::uint32_t childColor = color != nullptr ? *color : palette[rank % palette.size()];
            m_arcs.push_back({child, depth, cursor, cursor + childSpan, childColor});
            if (child->isDirectory)
                collect(*child, depth + 1, &childColor, cursor, childSpan);
            cursor += childSpan;
            ++rank;
        }
    }

    std::vector<Arc> takeArcs() { return std::move(m_arcs); }

private:
    static double share(double span, const FileNode& child, const FileNode& parent) {
        return span * static_cast<double>(child.size) / static_cast<double>(parent.size);
    }

    /// The children wide enough for a segment, largest first. A child's angle grows with its size, so leaving
    /// out the thin ones before sorting is the same as ending the walk at the first of them.
    static std::vector<FileNode*> visibleChildren(const FileNode& folder, double span) {
        std::vector<FileNode*> visible;
        for (FileNode* child : folder.children) {
            if (!child->deleted && child->size >= 1 && share(span, *child, folder) >= thinnestArc)
                visible.push_back(child);
        }
        std::ranges::stable_sort(visible, std::greater(), &FileNode::size);
        return visible;
    }

    int m_maxDepth;
    std::vector<Arc> m_arcs;
};

bool isAtOrBelow(const FileNode* node, const FileNode* top) {
    while (node != nullptr && node != top)
        node = node->parent;
    return node == top;
}

} // namespace

std::vector<Arc> collectArcs(FileNode& root, int maxDepth) {
    ArcCollector collector(maxDepth);
    collector.collect(root, 1, nullptr, 0, fullCircle);
    return collector.takeArcs();
}

SunburstGeometry::SunburstGeometry(double width, double height, int maxDepth)
    : m_centreX(width * 0.5)
    , m_centreY(height * 0.5)
    , m_ringWidth(std::min(width, height) * 0.5 / (maxDepth + 1)) {}

bool SunburstGeometry::isInCentre(double x, double y) const {
    return std::hypot(x - m_centreX, y - m_centreY) < m_ringWidth;
}

const Arc* SunburstGeometry::hit(const std::vector<Arc>& arcs, double x, double y) const {
    const double dx = x - m_centreX;
    const double dy = y - m_centreY;
    const double ring = std::hypot(dx, dy) / m_ringWidth;
    if (!(ring >= 1) || ring >= 1'000)
        return nullptr;
    const int depth = wholeNumber<int>(ring);
    double angle = std::atan2(dx, -dy);
    if (angle < 0)
        angle += fullCircle;
    const auto hit = std::ranges::find_if(
        arcs, [&](const Arc& arc) { return arc.depth == depth && arc.start <= angle && angle < arc.end; });
    return hit != arcs.end() ? &*hit : nullptr;
}

double arcOpacity(const Arc& arc, const FileNode* hovered) {
    if (hovered != nullptr && !isAtOrBelow(arc.node, hovered))
        return 0.25;
    return std::max(1.0 - 0.12 * (arc.depth - 1), 0.45);
}

} // namespace brimlet
