// SPDX-License-Identifier: MIT
// Point in polygon against the plain walk over all edges.
#include "geometry/PolygonMeasures.h"
#include "tests/reference/PlainPointInPolygon.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace geom::test {
namespace {

constexpr std::uint64_t SEED = 20261;
constexpr int ROUNDS = 200000;

// A walk of short or long steps on a coarse grid: long stays on one side of a line through grid
// points as well as frequent changes.
template <typename Point, typename Draw>
std::vector<Point> Walk(Random& random, Draw draw) {
    const int n = random.Between(0, 60);
    const int stay = random.Between(1, 30);
    std::vector<Point> ring;
    for (int i = 0; i < n; ++i) {
        Point next = draw();
        if (!ring.empty() && !random.OneIn(stay)) {
            next.y = ring.back().y;
        }
        ring.push_back(next);
    }
    return ring;
}

double Coordinate(Random& random) {
    constexpr double ODD[] = {std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::max(),
                              0x1p-1074,
                              -0.0};
    return random.OneIn(60) ? ODD[random.Below(6)] : random.Between(-8, 8) * 0.25;
}

TEST(PointInPolygon, SkippedRunsChangeNothing) {
    SCOPED_TRACE(SEED);
    Random random(SEED);
    int inside = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        const auto draw = [&random] { return Vec2d(Coordinate(random), Coordinate(random)); };
        const std::vector<Vec2d> ring = Walk<Vec2d>(random, draw);
        const Vec2d p = draw();
        const bool expected = PlainPointInPolygon(p, ring);
        ASSERT_EQ(PointInPolygon(p, ring.data(), ring.size()), expected) << "round " << round;
        inside += expected ? 1 : 0;
    }
    EXPECT_GT(inside, ROUNDS / 20);
}

TEST(PointInPolygon, SkippedRunsChangeNothingForIntegers) {
    SCOPED_TRACE(SEED);
    Random random(SEED);
    int inside = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        const int reach = random.OneIn(4) ? std::numeric_limits<int>::max() / 2 : 8;
        const auto draw = [&random, reach] {
            return tagPOINT{random.Between(-reach, reach), random.Between(-reach, reach)};
        };
        const std::vector<tagPOINT> ring = Walk<tagPOINT>(random, draw);
        const tagPOINT p = draw();
        const bool expected = PlainPointInPolygon(p, ring);
        ASSERT_EQ(PointInPolygon(p, ring.data(), ring.size()), expected) << "round " << round;
        inside += expected ? 1 : 0;
    }
    EXPECT_GT(inside, ROUNDS / 20);
}

} // namespace
} // namespace geom::test
