// SPDX-License-Identifier: MIT
// Polylines against rectangles, compared with the plain walk from segment to segment.
#include "geometry/CLineClip.h"
#include "tests/reference/PlainLineRuns.h"
#include "tests/support/RandomWalks.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace geom::test {
namespace {

constexpr std::uint64_t SEED = 20263;
constexpr int ROUNDS = 50000;

bool SameRuns(const LineRuns& a, const LineRuns& b) {
    bool same = a.size() == b.size();
    for (std::size_t i = 0; same && i < a.size(); ++i) {
        same = SameBits(a[i], b[i]);
    }
    return same;
}

LineRuns RunsOf(const std::vector<Vec2d>& pts, const std::vector<unsigned int>& counts) {
    LineRuns runs;
    auto next = pts.begin();
    for (const unsigned int n : counts) {
        runs.emplace_back(next, next + n);
        next += n;
    }
    EXPECT_TRUE(next == pts.end());
    return runs;
}

// Clips even to a rectangle whose sides are reversed.
CLineClip Clipper(Random& random) {
    CLineClip clip(RandomRectangle(random));
    clip.SetClipEnabled(true);
    return clip;
}

TEST(CLineClip, BlocksOfPointsChangeNothing) {
    SCOPED_TRACE(SEED);
    Random random(SEED);
    int cut = 0;
    std::vector<Vec2d> pts;
    std::vector<unsigned int> counts;
    for (int round = 0; round < ROUNDS; ++round) {
        const std::vector<Vec2d> line = RandomWalk(random, 2);
        const CLineClip clip = Clipper(random);
        const LineRuns expected = PlainLineRuns(clip, line);
        clip.ClipPolyline(line.data(), line.size(), pts, counts);
        ASSERT_TRUE(SameRuns(RunsOf(pts, counts), expected)) << "round " << round;
        LineRuns delivered;
        clip.ClipPolyline(line.data(), line.size(), [&](const Vec2d* run, std::size_t n) {
            delivered.emplace_back(run, run + n);
        });
        ASSERT_TRUE(SameRuns(delivered, expected)) << "round " << round;
        cut += expected.size() > 1 ? 1 : 0;
    }
    EXPECT_GT(cut, ROUNDS / 10);
}

// A run of each length at each place, before and behind a point elsewhere.
TEST(CLineClip, RunsEndAnywhereInABlock) {
    const Vec2d places[] = {{5, 1},           {1, -1},  {-1, 1}, {1, 5},
                            {2, 2},           {4, 4},   {0, 0},  {5, 5},
                            {5, -1},          {-1, -1}, {-1, 5}, {NOT_A_NUMBER, 1},
                            {1, NOT_A_NUMBER}};
    std::vector<Vec2d> pts;
    std::vector<unsigned int> counts;
    const CLineClip clip(Box2d(-0.0, 0, 4, 4));
    for (const Vec2d& stay : places) {
        for (const Vec2d& elsewhere : places) {
            for (std::size_t before = 0; before <= 20; ++before) {
                std::vector<Vec2d> line(before, stay);
                line.push_back(elsewhere);
                line.insert(line.end(), 40 - before, stay);
                clip.ClipPolyline(line.data(), line.size(), pts, counts);
                ASSERT_TRUE(SameRuns(RunsOf(pts, counts), PlainLineRuns(clip, line)))
                    << before << " points at " << stay.x << ' ' << stay.y << ", then "
                    << elsewhere.x << ' ' << elsewhere.y;
            }
        }
    }
}

} // namespace
} // namespace geom::test
