#include "views/map/SunburstRaster.h"

#include "core/WholeNumber.h"

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

/// A segment thinner than this is filled evenly in place of having sides: the sides of many would make a
/// pattern with the pixels.
constexpr float sliverPixels = 3.0F;

/// The angle of a direction from twelve o'clock, clockwise, 0 to 2π. The polynomial for the arc tangent is
/// within 2e-6 of the truth, far below a hundredth of a pixel on the largest screen. Free of branches, so
/// that the compiler works on several pixels at once.
inline float clockAngle(float dx, float dy) {
    const float across = std::abs(dx);
    const float along = std::abs(dy);
    const float shorter = across < along ? across : along;
    const float longer = across < along ? along : across;
    const float ratio = shorter / (longer + 1e-20F);
    const float square = ratio * ratio;
    float angle = -0.0117212F;
    angle = angle * square + 0.05265332F;
    angle = angle * square - 0.11643287F;
    angle = angle * square + 0.19354346F;
    angle = angle * square - 0.33262347F;
    angle = (angle * square + 0.99997726F) * ratio;
    angle = across > along ? circle / 4 - angle : angle;
    angle = dy > 0 ? circle / 2 - angle : angle;
    return dx < 0 ? circle - angle : angle;
}

float coverage(float pixelsInside) {
    return std::clamp(pixelsInside + 0.5F, 0.0F, 1.0F);
}

std::uint32_t premultiplied(std::uint32_t color, float alpha) {
    // Never negative, and once a pixel: a call to round would be felt.
    const auto rounded = [](float value) {
        return static_cast<std::uint32_t>(value + 0.5F); // NOLINT(bugprone-incorrect-roundings)
    };
    const auto channel = [&](int shift) {
        return rounded(static_cast<float>((color >> shift) & 0xFFU) * alpha / 255.0F) << shift;
    };
    return rounded(alpha) << 24 | channel(16) | channel(8) | channel(0);
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
        const auto alpha = static_cast<float>(opacities[i] * 255);
        m_rings[static_cast<std::size_t>(arc.depth)].segments.push_back(
            {static_cast<float>(arc.start), static_cast<float>(arc.end), alpha, arc.color,
             premultiplied(arc.color, alpha), arc.end - arc.start >= fullCircle - 1e-4});
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
    std::vector<Polar> points(static_cast<std::size_t>(target.width()));
    for (int y = firstRow; y < lastRow; ++y) {
        // The image was detached before the threads began; constScanLine never copies.
        auto* line = reinterpret_cast<std::uint32_t*>(const_cast<uchar*>(target.constScanLine(y)));
        std::fill_n(line, target.width(), 0U);
        const float dy = static_cast<float>(y) + 0.5F - frame.centreY;
        const float chord = std::sqrt(std::max(frame.radius * frame.radius - dy * dy, 0.0F));
        const int first = std::max(wholeNumber<int>(frame.centreX - chord), 0);
        const int last = std::min(wholeNumber<int>(frame.centreX + chord) + 1, target.width());
        for (int x = first; x < last; ++x) {
            const float dx = static_cast<float>(x) + 0.5F - frame.centreX;
            points[static_cast<std::size_t>(x)] = {
                std::sqrt(dx * dx + dy * dy), (clockAngle(dx, dy) - frame.angleOffset) / frame.angleScale};
        }
        Cursor cursor;
        for (int x = first; x < last; ++x)
            line[x] = pixel(frame, points[static_cast<std::size_t>(x)], cursor);
    }
}

std::uint32_t SunburstRaster::pixel(const Frame& frame, const Polar& point, Cursor& cursor) const {
    const float mapRadius = point.radius - frame.ringOffset * frame.ringWidth;
    if (mapRadius < frame.ringWidth || point.radius < frame.ringWidth || point.radius >= frame.radius)
        return 0;
    const int depth = wholeNumber<int>(mapRadius / frame.ringWidth);
    if (depth > m_maxDepth || !(point.angle >= 0 && point.angle < circle))
        return 0;
    if (cursor.depth != depth || cursor.segment == nullptr || point.angle < cursor.segment->start ||
        point.angle >= cursor.segment->end)
        cursor = {depth, segmentAt(m_rings[static_cast<std::size_t>(depth)], point.angle)};
    if (cursor.segment == nullptr)
        return 0;
    const Segment& segment = *cursor.segment;
    const float inner = mapRadius - frame.ringWidth * static_cast<float>(depth);
    const float across = std::min(inner, frame.ringWidth - frame.gap - inner);
    const float arcLength = (segment.end - segment.start) * point.radius * frame.angleScale;
    if (arcLength < sliverPixels && !segment.isClosed) {
        const float share = std::max(arcLength - 2 * frame.halfStroke, 0.0F) / arcLength;
        return premultiplied(segment.color, segment.alpha * share * coverage(across - frame.halfStroke));
    }
    const float side = segment.isClosed ? across
                                        : std::min(point.angle - segment.start, segment.end - point.angle) *
                                              point.radius * frame.angleScale;
    if (std::min(across, side) >= frame.halfStroke + 0.5F)
        return segment.pixel;
    const float covered = coverage(across - frame.halfStroke) * coverage(side - frame.halfStroke);
    return premultiplied(segment.color, segment.alpha * covered);
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
