// The radial map of a folder as plain values: segments, geometry and hit test. Pure functions.
//
// Angles are radians from twelve o'clock, growing clockwise; a full circle is 2π. Segments stand in
// depth-first pre-order: one, then all below it, then its next sibling.
#pragma once

#include "core/FileNode.h"

#include <cstdint>
#include <vector>

namespace brimlet {

inline constexpr double fullCircle = 6.283185307179586;

/// A child thinner than this gets no segment, nor do its smaller siblings.
inline constexpr double thinnestArc = 0.004;

/// One ring segment.
struct Arc {
    FileNode* node = nullptr;
    int depth = 1; ///< ring number; 1 is next to the centre disc
    double start = 0;
    double end = 0;
    std::uint32_t color = 0; ///< 0xRRGGBB, before opacity
};

/// The segments below a folder: each child's share of its parent's angle, largest first. First-ring segments
/// take the palette in order, and all below keep that colour.
std::vector<Arc> collectArcs(FileNode& root, int maxDepth);

/// Where the rings lie in an area of `width` × `height` points.
class SunburstGeometry {
public:
    SunburstGeometry(double width, double height, int maxDepth);

    double centreX() const { return m_centreX; }
    double centreY() const { return m_centreY; }

    /// Also the radius of the centre disc.
    double ringWidth() const { return m_ringWidth; }
    double innerRadius(int depth) const { return m_ringWidth * depth; }
    double outerRadius(int depth) const { return m_ringWidth + m_ringWidth * depth - ringGap; }

    bool isInCentre(double x, double y) const;

    /// The first segment of the list under a point, or null.
    const Arc* hit(const std::vector<Arc>& arcs, double x, double y) const;

private:
    static constexpr double ringGap = 1.5;
    double m_centreX;
    double m_centreY;
    double m_ringWidth;
};

/// How opaque a segment is drawn: paler outwards, and pale everywhere but at `hovered` and below it.
/// hovered  may be null
double arcOpacity(const Arc& arc, const FileNode* hovered);

} // namespace brimlet
