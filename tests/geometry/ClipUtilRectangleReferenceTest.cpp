// SPDX-License-Identifier: MIT
// Polygons and polylines against rectangles, in every form, compared with the plain clip of one
// contour, or one segment, after the other.
#include "geometry/ClipUtil.h"
#include "tests/reference/PlainLineRuns.h"
#include "tests/reference/PlainRectangleClip.h"
#include "tests/support/RandomWalks.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace geom::test {
namespace {

constexpr std::uint64_t SEED = 20264;
constexpr int ROUNDS = 8000;

struct Flat {
    std::vector<Vec2d> pts;
    std::vector<unsigned int> counts;
};

bool Same(const Flat& a, const Flat& b) {
    return a.counts == b.counts && SameBits(a.pts, b.pts);
}

Flat Flattened(const GpcPolygon& polygon, bool close) {
    Flat flat;
    polygon.GetPolyPolygon(flat.pts, flat.counts, close);
    return flat;
}

bool Same(const GpcPolygon& a, const GpcPolygon& b) {
    const Box2d& box = a.GetBBox();
    const Box2d& other = b.GetBBox();
    return Same(Flattened(a, false), Flattened(b, false)) && SameBits(box.minX, other.minX) &&
           SameBits(box.minY, other.minY) && SameBits(box.maxX, other.maxX) &&
           SameBits(box.maxY, other.maxY);
}

// Some rings are closed by their first point again, and some are empty.
Flat Rings(Random& random) {
    Flat flat;
    for (int i = random.Between(0, 5); i > 0; --i) {
        std::vector<Vec2d> ring = RandomWalk(random, 0);
        if (!ring.empty() && random.OneIn(2)) {
            ring.push_back(ring.front());
        }
        flat.pts.insert(flat.pts.end(), ring.begin(), ring.end());
        flat.counts.push_back(static_cast<unsigned int>(ring.size()));
    }
    return flat;
}

Flat Clipped(const Flat& rings, const Box2d& box, Flat out, bool close) {
    ClipPolyPolygonToRect(rings.pts.data(), rings.counts.data(), rings.counts.size(), box, out.pts,
                          out.counts, close);
    return out;
}

Flat Clipped(const GpcPolygon& polygon, const Box2d& box, Flat out, bool close) {
    ClipGPolygonToRect(polygon, box, out.pts, out.counts, close);
    return out;
}

TEST(ClipGPolygonToRect, EveryFormGivesWhatThePlainClipGives) {
    SCOPED_TRACE(SEED);
    Random random(SEED);
    int cut = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        const Flat rings = Rings(random);
        const Box2d box = RandomRectangle(random);
        const GpcPolygon subject(rings.pts.data(), rings.counts.data(), rings.counts.size());
        GpcPolygon left;
        PlainRectangleClip(subject, box, left);
        const bool close = random.OneIn(2);
        const Flat used = {{{7, 7}, {8, 8}, {9, 7}}, {1, 2}};
        const Flat expected = left.GetNumContours() != 0 ? Flattened(left, close) : used;
        ASSERT_TRUE(Same(Clipped(rings, box, used, close), expected)) << "round " << round;
        ASSERT_TRUE(Same(Clipped(subject, box, used, close), expected)) << "round " << round;

        GpcPolygon result(used.pts.data(), used.counts.data(), used.counts.size());
        GpcPolygon both(result);
        ClipGPolygonToRect(subject, box, result);
        PlainRectangleClip(subject, box, both);
        ASSERT_TRUE(Same(result, both)) << "round " << round;
        cut += left.GetTotalVertexCount() != subject.GetTotalVertexCount() ? 1 : 0;
    }
    EXPECT_GT(cut, ROUNDS / 2);
}

TEST(ClipPolyPolygonToRect, InputMayLieAnywhereInTheOutput) {
    SCOPED_TRACE(SEED);
    Random random(SEED);
    for (int round = 0; round < ROUNDS / 10; ++round) {
        const Flat rings = Rings(random);
        const Box2d box = RandomRectangle(random);
        const Flat expected = Clipped(rings, box, rings, true);
        Flat out = rings;
        out.pts.reserve(random.OneIn(2) ? 10000 : 0);
        ClipPolyPolygonToRect(out.pts.data(), out.counts.data(), out.counts.size(), box, out.pts,
                              out.counts, true);
        ASSERT_TRUE(Same(out, expected)) << "round " << round;
    }
}

TEST(ClipPolylinesToRect, AppendsWhatThePlainClipGives) {
    SCOPED_TRACE(SEED);
    Random random(SEED);
    int appended = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        Flat lines, out;
        for (int i = random.Between(1, 5); i > 0; --i) {
            const std::vector<Vec2d> line = RandomWalk(random, 2);
            lines.pts.insert(lines.pts.end(), line.begin(), line.end());
            lines.counts.push_back(static_cast<unsigned int>(line.size()));
        }
        Box2d box = RandomRectangle(random);
        const bool inPlace = random.OneIn(4);
        out = inPlace ? lines : Flat{{{7, 7}, {8, 8}}, {2}};
        Flat expected = out;
        const Flat& input = inPlace ? out : lines;
        ClipPolylinesToRect(input.pts.data(), input.counts.data(), lines.counts.size(), box,
                            out.pts, out.counts);

        box.Normalize();
        CLineClip clip(box);
        clip.SetClipEnabled(true);
        auto next = lines.pts.begin();
        for (const unsigned int n : lines.counts) {
            for (const std::vector<Vec2d>& run : PlainLineRuns(clip, {next, next + n})) {
                expected.pts.insert(expected.pts.end(), run.begin(), run.end());
                expected.counts.push_back(static_cast<unsigned int>(run.size()));
                ++appended;
            }
            next += n;
        }
        ASSERT_TRUE(Same(out, expected)) << "round " << round;
    }
    EXPECT_GT(appended, ROUNDS);
}

} // namespace
} // namespace geom::test
