// Draws the radial map into an image by asking each pixel what lies there: constant cost a pixel however many
// segments, smooth edges from the pixel's distance to them.
#pragma once

#include "views/map/SunburstArcs.h"

#include <cstdint>
#include <vector>

#include <QImage>

namespace brimlet {

/// A part of the map shown in place of the whole, for the moments between two folders. The identity shows the
/// map as it is.
struct SunburstLens {
    double angleOffset = 0; ///< where the map's angle 0 is drawn
    double angleScale = 1;  ///< drawn angle = angleOffset + angleScale × the map's angle
    double ringOffset = 0;  ///< drawn ring = the map's ring + ringOffset

    /// Between `from` (0) and `to` (1).
    static SunburstLens between(const SunburstLens& from, const SunburstLens& to, double progress);
};

class SunburstRaster {
public:
    /// arcs       as `collectArcs` gives them
    /// opacities  one for each arc, 0 to 1
    SunburstRaster(const std::vector<Arc>& arcs, const std::vector<double>& opacities, int maxDepth);

    /// Fills the image with the map, centred, transparent where there is none. Uses the cores there are.
    /// target      premultiplied ARGB; its device pixel ratio says how many pixels make a point
    void draw(QImage& target, const SunburstLens& lens = {}) const;

private:
    struct Segment {
        float start;
        float end;
        float alpha;         ///< 0 to 255
        std::uint32_t color; ///< 0xRRGGBB
        std::uint32_t pixel; ///< both, as a pixel that it covers whole
        bool isClosed;       ///< goes all the way round and so has no sides
    };
    struct Ring {
        std::vector<Segment> segments;          ///< by angle
        std::vector<std::uint16_t> firstOfSlot; ///< of each slot of the circle, the first segment ending in
                                                ///< or after it
    };
    struct Frame;
    struct Polar {
        float radius; ///< pixels
        float angle;  ///< of the map
    };
    /// Where the last pixel was: its neighbour is most often in the same segment.
    struct Cursor {
        int depth = 0;
        const Segment* segment = nullptr;
    };

    void drawRows(QImage& target, const Frame& frame, int firstRow, int lastRow) const;
    std::uint32_t pixel(const Frame& frame, const Polar& point, Cursor& cursor) const;
    const Segment* segmentAt(const Ring& ring, float angle) const;

    std::vector<Ring> m_rings;
    int m_maxDepth;
};

} // namespace brimlet
