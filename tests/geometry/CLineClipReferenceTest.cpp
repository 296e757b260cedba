// SPDX-License-Identifier: MIT
// Polylines against rectangles, compared with the plain walk from segment to segment.
#include "geometry/CLineClip.h"
#include "tests/reference/PlainLineRuns.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace geom::test {
namespace {

constexpr std::uint64_t SEED = 20263;
constexpr int ROUNDS = 50000;

bool SameNumber(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b);
}

bool SameRuns(const LineRuns& a, const LineRuns& b) {
    bool same = a.size() == b.size();
    for (std::size_t i = 0; same && i < a.size(); ++i) {
        same = a[i].size() == b[i].size();
        for (std::size_t j = 0; same && j < a[i].size(); ++j) {
            same = SameNumber(a[i][j].x, b[i][j].x) && SameNumber(a[i][j].y, b[i][j].y);
        }
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

double Coordinate(Random& random) {
    constexpr double ODD[] = {std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::max(),
                              0x1p-1074,
                              -0.0};
    return random.OneIn(200) ? ODD[random.Below(6)] : random.Between(-12, 12) * 0.25;
}

// Mostly short steps, so that the line stays long inside or beyond one side.
std::vector<Vec2d> Walk(Random& random) {
    const int n = random.Between(2, 80);
    const int stay = random.Between(1, 40);
    std::vector<Vec2d> line;
    for (int i = 0; i < n; ++i) {
        Vec2d next(Coordinate(random), Coordinate(random));
        if (!line.empty() && !random.OneIn(stay)) {
            next = line.back() + Vec2d(random.Between(-0.1, 0.1), random.Between(-0.1, 0.1));
        }
        line.push_back(next);
    }
    return line;
}

// Clips even to a rectangle whose sides are reversed.
CLineClip Clipper(Random& random) {
    const auto side = [&random] { return random.Between(-10, 10) * 0.25; };
    Box2d box(side(), side(), side(), side());
    if (!random.OneIn(8)) {
        box.Normalize();
    }
    CLineClip clip(box);
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
        const std::vector<Vec2d> line = Walk(random);
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
