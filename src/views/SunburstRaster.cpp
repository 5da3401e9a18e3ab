#include "views/SunburstRaster.h"

#include <algorithm>
#include <cmath>
#include <thread>

namespace brimlet {

namespace {

constexpr float circle = static_cast<float>(fullCircle);

/// Slots are thinner than the thinnest segment, so that a pixel looks at two or three segments at most.
constexpr int slotCount = 2048;

constexpr float strokeWidth = 1.0F; ///< points, half of it on each side of an outline
constexpr float ringGap = 1.5F;     ///< points

/// The angle of a direction from twelve o'clock, clockwise, 0 to 2π. The polynomial for the arc tangent is
/// within 2e-6 of the truth, far below a hundredth of a pixel on the largest screen.
float clockAngle(float dx, float dy) {
    const float across = std::abs(dx);
    const float along = std::abs(dy);
    const float ratio = std::min(across, along) / std::max(std::max(across, along), 1e-20F);
    const float square = ratio * ratio;
    float angle = -0.0117212F;
    angle = angle * square + 0.05265332F;
    angle = angle * square - 0.11643287F;
    angle = angle * square + 0.19354346F;
    angle = angle * square - 0.33262347F;
    angle = (angle * square + 0.99997726F) * ratio;
    if (across > along)
        angle = circle / 4 - angle;
    if (dy > 0)
        angle = circle / 2 - angle;
    return dx < 0 ? circle - angle : angle;
}

float coverage(float pixelsInside) {
    return std::clamp(pixelsInside + 0.5F, 0.0F, 1.0F);
}

std::uint32_t premultiplied(std::uint32_t color, float alpha) {
    const auto channel = [&](int shift) {
        return static_cast<std::uint32_t>(static_cast<float>((color >> shift) & 0xFFU) * alpha / 255.0F +
                                          0.5F)
               << shift;
    };
    return static_cast<std::uint32_t>(alpha + 0.5F) << 24 | channel(16) | channel(8) | channel(0);
}

} // namespace

SunburstLens SunburstLens::between(const SunburstLens& from, const SunburstLens& to, double progress) {
    return {std::lerp(from.angleOffset, to.angleOffset, progress),
            std::lerp(from.angleScale, to.angleScale, progress),
            std::lerp(from.ringOffset, to.ringOffset, progress)};
}

/// The measures of one drawing, in pixels.
struct SunburstRaster::Frame {
    float centreX;
    float centreY;
    float ringWidth;
    float radius; ///< of the whole map
    float gap;
    float halfStroke;
    float angleOffset;
    float angleScale;
    float ringOffset;
};

SunburstRaster::SunburstRaster(const std::vector<Arc>& arcs, const std::vector<double>& opacities,
                               int maxDepth)
    : m_rings(static_cast<std::size_t>(maxDepth) + 1)
    , m_maxDepth(maxDepth) {
    for (std::size_t i = 0; i < arcs.size(); ++i) {
        const Arc& arc = arcs[i];
        m_rings[static_cast<std::size_t>(arc.depth)].segments.push_back(
            {static_cast<float>(arc.start), static_cast<float>(arc.end),
             static_cast<std::uint32_t>(std::lround(opacities[i] * 255)), arc.color});
    }
    for (Ring& ring : m_rings) {
        ring.firstOfSlot.resize(slotCount);
        std::size_t segment = 0;
        for (int slot = 0; slot < slotCount; ++slot) {
            const float slotStart = circle * static_cast<float>(slot) / slotCount;
            while (segment < ring.segments.size() && ring.segments[segment].end <= slotStart)
                ++segment;
            ring.firstOfSlot[static_cast<std::size_t>(slot)] = static_cast<std::uint16_t>(segment);
        }
    }
}

void SunburstRaster::draw(QImage& target, const SunburstLens& lens) const {
    const auto ratio = static_cast<float>(target.devicePixelRatio());
    const SunburstGeometry geometry(target.width(), target.height(), m_maxDepth);
    const auto ringWidth = static_cast<float>(geometry.ringWidth());
    const Frame frame{static_cast<float>(geometry.centreX()),
                      static_cast<float>(geometry.centreY()),
                      ringWidth,
                      ringWidth * static_cast<float>(m_maxDepth + 1),
                      ringGap * ratio,
                      strokeWidth * ratio / 2,
                      static_cast<float>(lens.angleOffset),
                      static_cast<float>(lens.angleScale),
                      static_cast<float>(lens.ringOffset)};
    target.detach();
    const int workers = static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, 8U));
    const auto rowOf = [&](int part) { return target.height() * part / workers; };
    std::vector<std::jthread> threads;
    for (int part = 1; part < workers; ++part)
        threads.emplace_back([&, part] { drawRows(target, frame, rowOf(part), rowOf(part + 1)); });
    drawRows(target, frame, 0, rowOf(1));
}

void SunburstRaster::drawRows(QImage& target, const Frame& frame, int firstRow, int lastRow) const {
    for (int y = firstRow; y < lastRow; ++y) {
        // The image was detached before the threads began; constScanLine never copies.
        auto* line = reinterpret_cast<std::uint32_t*>(const_cast<uchar*>(target.constScanLine(y)));
        std::fill_n(line, target.width(), 0U);
        const float dy = static_cast<float>(y) + 0.5F - frame.centreY;
        const float chord = std::sqrt(std::max(frame.radius * frame.radius - dy * dy, 0.0F));
        const int first = std::max(static_cast<int>(frame.centreX - chord), 0);
        const int last = std::min(static_cast<int>(frame.centreX + chord) + 1, target.width());
        for (int x = first; x < last; ++x) {
            const float dx = static_cast<float>(x) + 0.5F - frame.centreX;
            const float radius = std::sqrt(dx * dx + dy * dy);
            if (radius >= frame.ringWidth && radius < frame.radius)
                line[x] = pixel(frame, dx, dy, radius);
        }
    }
}

std::uint32_t SunburstRaster::pixel(const Frame& frame, float dx, float dy, float radius) const {
    const float mapRadius = radius - frame.ringOffset * frame.ringWidth;
    const int depth = static_cast<int>(mapRadius / frame.ringWidth);
    if (mapRadius < 0 || depth < 1 || depth > m_maxDepth)
        return 0;
    const float angle = (clockAngle(dx, dy) - frame.angleOffset) / frame.angleScale;
    if (!(angle >= 0 && angle < circle))
        return 0;
    const Segment* segment = segmentAt(m_rings[static_cast<std::size_t>(depth)], angle);
    if (segment == nullptr)
        return 0;
    const float inner = mapRadius - frame.ringWidth * static_cast<float>(depth);
    const float outer = frame.ringWidth - frame.gap - inner;
    const float pixelsPerRadian = radius * frame.angleScale;
    const float side = std::min(angle - segment->start, segment->end - angle) * pixelsPerRadian;
    // A segment that goes all the way round has no sides.
    const bool isClosed = segment->end - segment->start >= circle - 1e-4F;
    const float covered = coverage(std::min(inner, outer) - frame.halfStroke) *
                          (isClosed ? 1.0F : coverage(side - frame.halfStroke));
    return premultiplied(segment->color, static_cast<float>(segment->alpha) * covered);
}

const SunburstRaster::Segment* SunburstRaster::segmentAt(const Ring& ring, float angle) const {
    const auto slot = std::min(static_cast<std::size_t>(angle * (slotCount / circle)),
                               static_cast<std::size_t>(slotCount - 1));
    for (std::size_t i = ring.firstOfSlot[slot]; i < ring.segments.size(); ++i) {
        const Segment& segment = ring.segments[i];
        if (angle < segment.end)
            return angle >= segment.start ? &segment : nullptr;
    }
    return nullptr;
}

} // namespace brimlet
