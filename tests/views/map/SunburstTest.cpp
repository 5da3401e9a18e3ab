#include "support/SyntheticTree.h"
#include "views/map/SunburstArcs.h"
#include "views/map/SunburstRaster.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace brimlet {
namespace {

constexpr int rings = 5;
constexpr double tolerance = 1e-9;

TEST(SunburstArcs, nothingToShowGivesNoArcs) {
    test::SyntheticTree empty;
    EXPECT_TRUE(collectArcs(*empty.finish()->root, rings).empty());
    test::SyntheticTree onlySmall;
    onlySmall.smallFiles(onlySmall.root(), 3, 1'000);
    EXPECT_TRUE(collectArcs(*onlySmall.finish()->root, rings).empty());
}

TEST(SunburstArcs, largestFirstEqualSizesInOrderColoursByRank) {
    test::SyntheticTree tree;
    FileNode* folder = tree.directory(tree.root(), "folder");
    FileNode* inner = tree.file(folder, "inner", 200);
    FileNode* small = tree.file(tree.root(), "small", 50);
    FileNode* twinA = tree.file(tree.root(), "twin a", 100);
    FileNode* twinB = tree.file(tree.root(), "twin b", 100);
    tree.smallFiles(tree.root(), 1, 50);
    const auto scan = tree.finish();

    const std::vector<Arc> arcs = collectArcs(*scan->root, rings);
    ASSERT_EQ(arcs.size(), 5U);
    const FileNode* order[] = {folder, inner, twinA, twinB, small};
    const std::uint32_t colors[] = {0x5B8CFF, 0x5B8CFF, 0x34C3A0, 0xF5B83D, 0xFF6B8A};
    for (std::size_t i = 0; i < arcs.size(); ++i) {
        EXPECT_EQ(arcs[i].node, order[i]) << i;
        EXPECT_EQ(arcs[i].color, colors[i]) << i;
        EXPECT_EQ(arcs[i].depth, i == 1 ? 2 : 1) << i;
    }
    EXPECT_DOUBLE_EQ(arcs[0].end, fullCircle * 0.4);
    EXPECT_DOUBLE_EQ(arcs[4].end, fullCircle * 0.9) << "the small files leave a free stretch";
}

TEST(SunburstArcs, theFirstChildThatIsTooThinEndsTheWalk) {
    test::SyntheticTree tree;
    tree.file(tree.root(), "large", 990'000);
    FileNode* kept = tree.file(tree.root(), "kept", 640);
    tree.file(tree.root(), "thin", 600);
    tree.file(tree.directory(tree.root(), "also thin"), "below", 600);
    tree.smallFiles(tree.root(), 9, 1'000'000 - 990'000 - 640 - 1'200);
    const std::vector<Arc> arcs = collectArcs(*tree.finish()->root, rings);
    ASSERT_EQ(arcs.size(), 2U);
    EXPECT_EQ(arcs[1].node, kept);
}

TEST(SunburstArcs, deletedChildrenTakeNoAngleAndNoColour) {
    test::SyntheticTree tree;
    tree.file(tree.root(), "gone", 600);
    FileNode* stays = tree.file(tree.root(), "stays", 400);
    const auto scan = tree.finish();
    scan->markDeleted({"/root/gone"});
    const std::vector<Arc> arcs = collectArcs(*scan->root, rings);
    ASSERT_EQ(arcs.size(), 1U);
    EXPECT_EQ(arcs[0].node, stays);
    EXPECT_EQ(arcs[0].color, 0x5B8CFFU);
    EXPECT_DOUBLE_EQ(arcs[0].end, fullCircle);
}

TEST(SunburstArcs, theThirteenthColourIsTheFirst) {
    test::SyntheticTree tree;
    for (int i = 0; i < 13; ++i)
        tree.file(tree.root(), std::to_string(i), 1'000 - i);
    const std::vector<Arc> arcs = collectArcs(*tree.finish()->root, rings);
    ASSERT_EQ(arcs.size(), 13U);
    EXPECT_EQ(arcs[12].color, arcs[0].color);
}

TEST(SunburstArcs, ringsNeverOverlapAndChildrenStayWithinTheirParents) {
    for (std::uint32_t seed = 1; seed <= 30; ++seed) {
        const auto scan = test::randomScan(seed, {.directories = 300, .files = 2'000, .distinctSizes = 50});
        const std::vector<Arc> arcs = collectArcs(*scan->root, rings);
        std::vector<double> ringEnd(rings + 1, 0);
        std::vector<const Arc*> line; // the segments around the current one, one for each ring
        double firstRing = 0;
        for (const Arc& arc : arcs) {
            ASSERT_GE(arc.depth, 1);
            ASSERT_LE(arc.depth, rings);
            ASSERT_GE(arc.end - arc.start, thinnestArc - tolerance) << "seed " << seed;
            auto& end = ringEnd[static_cast<std::size_t>(arc.depth)];
            ASSERT_GE(arc.start, end - tolerance) << "seed " << seed;
            end = arc.end;
            ASSERT_GE(line.size() + 1, static_cast<std::size_t>(arc.depth));
            line.resize(static_cast<std::size_t>(arc.depth) - 1);
            if (!line.empty()) {
                ASSERT_EQ(arc.node->parent, line.back()->node) << "seed " << seed;
                ASSERT_GE(arc.start, line.back()->start - tolerance) << "seed " << seed;
                ASSERT_LE(arc.end, line.back()->end + tolerance) << "seed " << seed;
                ASSERT_EQ(arc.color, line.back()->color);
            } else {
                firstRing += arc.end - arc.start;
            }
            line.push_back(&arc);
        }
        EXPECT_LE(firstRing, fullCircle + tolerance) << "seed " << seed;
        EXPECT_GT(arcs.size(), 50U);
    }
}

/// Whether a point lies in a segment, by walking there from twelve o'clock.
bool liesIn(const Arc& arc, double dx, double dy, double ringWidth) {
    const double distance = std::sqrt(dx * dx + dy * dy);
    double angle = std::acos(std::clamp(-dy / distance, -1.0, 1.0));
    if (dx < 0)
        angle = fullCircle - angle;
    return distance >= ringWidth * arc.depth && distance < ringWidth * (arc.depth + 1) &&
           angle >= arc.start && angle < arc.end;
}

TEST(SunburstGeometry, hitTestAgreesWithPlainPolarGeometry) {
    for (std::uint32_t seed = 1; seed <= 10; ++seed) {
        const auto scan = test::randomScan(seed);
        const std::vector<Arc> arcs = collectArcs(*scan->root, rings);
        const SunburstGeometry geometry(900, 620, rings);
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> across(0, 900);
        std::uniform_real_distribution<double> down(0, 620);
        int hits = 0;
        for (int i = 0; i < 3'000; ++i) {
            const double x = across(random);
            const double y = down(random);
            const auto expected = std::ranges::find_if(
                arcs, [&](const Arc& arc) { return liesIn(arc, x - 450, y - 310, 310.0 / 6); });
            const Arc* hit = geometry.hit(arcs, x, y);
            ASSERT_EQ(hit, expected == arcs.end() ? nullptr : &*expected)
                << "seed " << seed << " at " << x << ", " << y;
            hits += hit != nullptr ? 1 : 0;
        }
        EXPECT_GT(hits, 300) << "seed " << seed;
    }
}

TEST(SunburstGeometry, edgesBelongToTheSegmentThatBegins) {
    std::vector<FileNode> nodes(2);
    const std::vector<Arc> arcs = {{&nodes[0], 1, 0, fullCircle / 4, 0},
                                   {&nodes[1], 1, fullCircle / 4, fullCircle / 2, 0}};
    const SunburstGeometry geometry(120, 200, rings);
    ASSERT_EQ(geometry.ringWidth(), 10);
    struct Case {
        const char* what;
        double x;
        double y;
        const FileNode* node;
        bool centre;
    };
    const Case cases[] = {
        {"the very centre", 60, 100, nullptr, true},
        {"just inside the disc", 60, 90.001, nullptr, true},
        {"on the disc's edge, straight up", 60, 90, &nodes[0], false},
        {"three o'clock ends the first and begins the second", 75, 100, &nodes[1], false},
        {"six o'clock ends the second", 60, 115, nullptr, false},
        {"just before twelve", 59.999, 85, nullptr, false},
        {"beyond the last ring", 60, 100 - 61, nullptr, false},
    };
    for (const Case& one : cases) {
        const Arc* hit = geometry.hit(arcs, one.x, one.y);
        EXPECT_EQ(hit != nullptr ? hit->node : nullptr, one.node) << one.what;
        EXPECT_EQ(geometry.isInCentre(one.x, one.y), one.centre) << one.what;
    }
    EXPECT_DOUBLE_EQ(geometry.innerRadius(2), 20);
    EXPECT_DOUBLE_EQ(geometry.outerRadius(2), 28.5);
    EXPECT_EQ(SunburstGeometry(0, 0, rings).hit(arcs, 1, 1), nullptr);
}

TEST(SunburstArcs, hoveringKeepsANodeAndWhatIsBelowIt) {
    test::SyntheticTree tree;
    FileNode* folder = tree.directory(tree.directory(tree.root(), "top"), "folder");
    tree.file(folder, "file", 100);
    tree.file(tree.root(), "other", 50);
    const auto scan = tree.finish();
    const std::vector<Arc> arcs = collectArcs(*scan->root, rings);
    ASSERT_EQ(arcs.size(), 4U);
    const double plain[] = {1.0, 0.88, 0.76, 1.0};
    const double hovered[] = {0.25, 0.88, 0.76, 0.25};
    for (std::size_t i = 0; i < arcs.size(); ++i) {
        EXPECT_DOUBLE_EQ(arcOpacity(arcs[i], nullptr), plain[i]) << i;
        EXPECT_DOUBLE_EQ(arcOpacity(arcs[i], folder), hovered[i]) << i;
    }
    EXPECT_DOUBLE_EQ(arcOpacity({folder, 9, 0, 1, 0}, nullptr), 0.45);
}

/// Whether a pixel shows a colour at an opacity; what premultiplied bytes round away is let pass.
bool shows(const QImage& image, double x, double y, std::uint32_t color, double opacity) {
    const QRgb pixel = image.pixel(static_cast<int>(x), static_cast<int>(y));
    const auto near = [&](int seen, int shift) {
        return std::abs(seen - static_cast<int>(color >> shift & 0xFFU) * opacity) <= 1;
    };
    return std::abs(qAlpha(pixel) - 255 * opacity) <= 1 && near(qRed(pixel), 16) && near(qGreen(pixel), 8) &&
           near(qBlue(pixel), 0);
}

TEST(SunburstRaster, drawsEachSegmentWhereTheHitTestFindsIt) {
    const auto scan = test::randomScan(3, {.directories = 100, .files = 500});
    const std::vector<Arc> arcs = collectArcs(*scan->root, rings);
    std::vector<double> opacities;
    for (const Arc& arc : arcs)
        opacities.push_back(arcOpacity(arc, nullptr));
    for (const double ratio : {1.0, 2.0}) {
        QImage image(static_cast<int>(700 * ratio), static_cast<int>(500 * ratio),
                     QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        SunburstRaster(arcs, opacities, rings).draw(image);
        const SunburstGeometry geometry(700, 500, rings);
        int checked = 0;
        for (std::size_t i = 0; i < arcs.size(); ++i) {
            const Arc& arc = arcs[i];
            const double middle = (geometry.innerRadius(arc.depth) + geometry.outerRadius(arc.depth)) / 2;
            if ((arc.end - arc.start) * middle < 5)
                continue;
            const double angle = (arc.start + arc.end) / 2;
            const double x = 350 + std::sin(angle) * middle;
            const double y = 250 - std::cos(angle) * middle;
            ASSERT_EQ(geometry.hit(arcs, x, y), &arc);
            EXPECT_TRUE(shows(image, x * ratio, y * ratio, arc.color, opacities[i])) << i;
            const double gap = geometry.outerRadius(arc.depth) + 0.75;
            EXPECT_TRUE(shows(image, (350 + std::sin(angle) * gap) * ratio,
                              (250 - std::cos(angle) * gap) * ratio, 0, 0))
                << i;
            ++checked;
        }
        EXPECT_GT(checked, 30);
        EXPECT_TRUE(shows(image, 350 * ratio, 250 * ratio, 0, 0)) << "the centre";
        EXPECT_TRUE(shows(image, 1, 1, 0, 0)) << "a corner";
    }
}

TEST(SunburstRaster, aLensOnASegmentShowsItsInsideAllTheWayRound) {
    test::SyntheticTree tree;
    FileNode* folder = tree.directory(tree.root(), "folder");
    tree.file(folder, "file", 400);
    tree.file(tree.root(), "other", 600);
    const auto scan = tree.finish();
    const std::vector<Arc> arcs = collectArcs(*scan->root, rings);
    ASSERT_EQ(arcs.size(), 3U); // other, folder, file
    const double scale = fullCircle / (arcs[1].end - arcs[1].start);
    const SunburstLens lens{-arcs[1].start * scale, scale, -1.0};
    QImage image(240, 240, QImage::Format_ARGB32_Premultiplied);
    SunburstRaster(arcs, {1, 1, 1}, rings).draw(image, lens);
    for (const auto& [x, y] : {std::pair(150, 120), std::pair(90, 120), std::pair(120, 150)})
        EXPECT_TRUE(shows(image, x, y, arcs[2].color, 1)) << x << ", " << y;
    const SunburstLens half = SunburstLens::between(lens, {}, 0.5);
    EXPECT_DOUBLE_EQ(half.ringOffset, -0.5);
}

} // namespace
} // namespace brimlet
