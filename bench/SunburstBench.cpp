// The radial map: building the segments of a large folder, asking what lies under the pointer, and drawing.
// Run as: sunburst-bench
#include "support/SyntheticTree.h"
#include "support/Timing.h"
#include "views/map/SunburstArcs.h"
#include "views/map/SunburstRaster.h"

#include <cstdio>

using namespace brimlet;

namespace {

constexpr int rings = 5;

/// A folder whose segments are as many as five full rings can hold.
std::vector<Arc> manyArcs(std::size_t count) {
    static FileNode node;
    std::vector<Arc> arcs;
    const std::size_t inRing = count / rings;
    for (std::size_t i = 0; i < count; ++i) {
        const double start = fullCircle * static_cast<double>(i % inRing) / static_cast<double>(inRing);
        arcs.push_back({&node, static_cast<int>(i / inRing) + 1, start,
                        start + fullCircle / static_cast<double>(inRing),
                        static_cast<std::uint32_t>(0x5B8CFF + i * 0x10101)});
    }
    return arcs;
}

void measureArcs() {
    for (const bool flat : {false, true}) {
        const auto scan = test::randomScan(1, {.directories = flat ? 0 : 5'000, .files = 100'000});
        std::vector<Arc> arcs;
        const double milliseconds =
            test::medianMilliseconds(20, [&] { arcs = collectArcs(*scan->root, rings); });
        std::printf("collectArcs, 100,000 descendants%-22s %8.2f ms   (limit 5; %zu arcs)\n",
                    flat ? ", all in one folder" : " in 5,000 folders", milliseconds, arcs.size());
    }
}

void measureHits() {
    const std::vector<Arc> arcs = manyArcs(7'500);
    const SunburstGeometry geometry(1600, 1200, rings);
    constexpr int points = 1'000;
    const Arc* seen = nullptr;
    const double milliseconds = test::medianMilliseconds(10, [&] {
        for (int i = 0; i < points; ++i) {
            const Arc* hit = geometry.hit(arcs, 200 + (i * 37) % 1'200, (i * 53) % 1'200);
            seen = hit != nullptr ? hit : seen;
        }
    });
    std::printf("hit test among 7,500 arcs%29s %8.2f µs   (limit 20)%s\n", "", milliseconds * 1'000 / points,
                seen == nullptr ? " nothing hit!" : "");
}

void measureDrawing() {
    const std::vector<Arc> arcs = manyArcs(2'000);
    const std::vector<double> opacities(arcs.size(), 0.8);
    QImage image(1600, 1200, QImage::Format_ARGB32_Premultiplied);
    const double milliseconds =
        test::medianMilliseconds(20, [&] { SunburstRaster(arcs, opacities, rings).draw(image); });
    std::printf("full repaint of 2,000 arcs, 1600×1200%17s %8.2f ms   (limit 16)\n", "", milliseconds);
    QImage fine(3200, 2400, QImage::Format_ARGB32_Premultiplied);
    fine.setDevicePixelRatio(2);
    const double fineMilliseconds =
        test::medianMilliseconds(10, [&] { SunburstRaster(arcs, opacities, rings).draw(fine); });
    std::printf("the same at two pixels a point%24s %8.2f ms\n", "", fineMilliseconds);
}

} // namespace

int main() {
    measureArcs();
    measureHits();
    measureDrawing();
}
