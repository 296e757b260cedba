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

} // namespace
} // namespace geom::test
