// SPDX-License-Identifier: MIT
#include "geometry/detail/OffsetRings.h"

#include "geometry/Curves.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/RingPolygons.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>

namespace geom {
namespace {

using test::AllocationProbe;

using Points = std::vector<Vec2d>;
using Counts = std::vector<unsigned int>;

const Points SQUARE = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};

Polygon2 Moved(const Points& points, const Counts& counts, double distance) {
    Polygon2 polygon = test::Raw(points, counts);
    detail::OffsetRings(polygon, distance);
    return polygon;
}

TEST(OffsetRings, NothingStaysNothing) {
    EXPECT_TRUE(Moved({}, {}, 1).empty());
    EXPECT_TRUE(Moved(SQUARE, {}, 1).Points().empty());
    EXPECT_TRUE(Moved({}, {0, 0}, 1).Counts().empty());
}

TEST(OffsetRings, GrownSquareHasAnArcAtEachCorner) {
    const Polygon2 grown = Moved(SQUARE, {4}, 1);
    Points expected;
    const double step = 10 * kit::DEG_TO_RAD;
    // Around (1,0), (1,1), (0,1) and at last (0,0), each from the moved incoming edge to the
    // moved outgoing one.
    CircularArc({1, 0}, 1, std::atan2(-1.0, 0.0), std::atan2(0.0, 1.0) - std::atan2(-1.0, 0.0),
                expected, step);
    CircularArc({1, 1}, 1, 0, std::atan2(1.0, 0.0), expected, step);
    CircularArc({0, 1}, 1, std::atan2(1.0, -0.0), std::atan2(0.0, -1.0) - std::atan2(1.0, -0.0),
                expected, step);
    const double left = std::atan2(-0.0, -1.0); // -pi
    CircularArc({0, 0}, 1, left, std::atan2(-1.0, 0.0) - left, expected, step);
    ASSERT_EQ(grown.Counts().size(), 1U);
    EXPECT_EQ(grown.Points().size(), grown.Counts()[0]);
    for (const Vec2d& p : expected) {
        double nearest = 1.0;
        for (const Vec2d& q : grown.Points()) {
            nearest = std::min(nearest, p.DistanceSquared(q));
        }
        EXPECT_LE(nearest, 1e-30) << p.x << " " << p.y;
    }
    EXPECT_GE(grown.Counts()[0], 40U);
    EXPECT_LE(grown.Counts()[0], 44U) << "an arc's exact end may follow its last step closely";
    EXPECT_EQ(grown.Points()[0],
              (Vec2d(1, 0) + Vec2d(std::cos(-kit::HALF_PI), std::sin(-kit::HALF_PI))));
}

TEST(OffsetRings, ShrunkSquareRunsBackThroughEachCorner) {
    const Polygon2 shrunk = Moved(SQUARE, {4}, -0.25);
    EXPECT_EQ(shrunk.Counts(), Counts{12});
    EXPECT_EQ(shrunk.Points(), (Points{{1, 0.25},
                                       {1, 0},
                                       {0.75, 0}, //
                                       {0.75, 1},
                                       {1, 1},
                                       {1, 0.75}, //
                                       {0, 0.75},
                                       {0, 1},
                                       {0.25, 1}, //
                                       {0.25, 0},
                                       {0, 0},
                                       {0, 0.25}}));
}

TEST(OffsetRings, ClockwiseRingRoundsItsCornersWhenItShrinks) {
    const Points clockwise(SQUARE.rbegin(), SQUARE.rend());
    const Polygon2 moved = Moved(clockwise, {4}, -0.25);
    ASSERT_EQ(moved.Counts().size(), 1U);
    EXPECT_GE(moved.Counts()[0], 40U);
    for (const Vec2d& p : moved.Points()) {
        const double dx = std::max({0.0 - p.x, p.x - 1.0, 0.0});
        const double dy = std::max({0.0 - p.y, p.y - 1.0, 0.0});
        EXPECT_NEAR(std::hypot(dx, dy), 0.25, 1e-15) << "a quarter outside the square";
    }
    EXPECT_EQ(moved.RingOrientation(0), Polygon2::Clockwise);
    EXPECT_EQ(Moved(clockwise, {4}, 0.25).Counts(), Counts{12});
}

TEST(OffsetRings, RingsOfFewerThanThreePointsAreDropped) {
    Points points = {{5, 5}, {6, 6}};
    points.insert(points.end(), SQUARE.begin(), SQUARE.end());
    points.emplace_back(9, 9);
    const Polygon2 moved = Moved(points, {2, 0, 4, 1}, -0.25);
    EXPECT_EQ(moved.Counts(), Counts{12});
    EXPECT_EQ(moved.Points()[0], Vec2d(1, 0.25));
    EXPECT_TRUE(Moved({{0, 0}, {1, 0}}, {2}, 1).empty());
}

TEST(OffsetRings, EdgesWithoutLengthAddNothing) {
    const Polygon2 plain = Moved(SQUARE, {4}, -0.25);
    const Polygon2 doubled = Moved({{0, 0}, {1, 0}, {1, 0}, {1, 1}, {0, 1}}, {5}, -0.25);
    EXPECT_EQ(doubled.Counts(), Counts{9}) << "neither corner at the doubled point is moved";
    EXPECT_TRUE(Moved({{1, 1}, {1, 1}, {1, 1}}, {3}, 1).empty());
    EXPECT_EQ(plain.Counts(), Counts{12});
}

TEST(OffsetRings, DistanceZeroKeepsTheCorners) {
    EXPECT_EQ(Moved(SQUARE, {4}, 0.0).Points(), (Points{{1, 0}, {1, 1}, {0, 1}, {0, 0}}));
    EXPECT_EQ(Moved(SQUARE, {4}, -0.0).Points(), (Points{{1, 0}, {1, 1}, {0, 1}, {0, 0}}));
    const Points clockwise(SQUARE.rbegin(), SQUARE.rend());
    EXPECT_EQ(Moved(clockwise, {4}, 0.0).Points(), (Points{{1, 1}, {1, 0}, {0, 0}, {0, 1}}));
}

TEST(OffsetRings, StraightCornerGivesOnePointWhenGrowing) {
    const Points ring = {{0, 0}, {1, 0}, {2, 0}, {2, 2}, {0, 2}};
    const Polygon2 grown = Moved(ring, {5}, 1);
    EXPECT_EQ(grown.Points()[0], Vec2d(1, 0) + Vec2d(std::cos(-kit::HALF_PI), -1));
    EXPECT_GT(grown.Points()[1].x, 1.9);
}

TEST(OffsetRings, DistanceThatIsNotFiniteGivesBoundedOutput) {
    for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_LE(Moved(SQUARE, {4}, bad).Points().size(), 200U);
    }
}

TEST(OffsetRings, CountsBeyondThePointsAreCutShort) {
    EXPECT_EQ(Moved(SQUARE, {4000000000U, 7}, -0.25).Counts(), Counts{12});
}

TEST(OffsetRings, FailedAllocationChangesNothing) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap is not ours";
    }
    std::size_t failures = 0;
    for (const double distance : {0.25, -0.25}) {
        for (std::size_t k = 0;; ++k) {
            Polygon2 polygon;
            polygon.Points() = SQUARE;
            polygon.Counts() = {4};
            bool failed = false;
            {
                const AllocationProbe probe(k);
                try {
                    detail::OffsetRings(polygon, distance);
                } catch (const std::bad_alloc&) {
                    failed = true;
                }
                EXPECT_EQ(probe.Failed(), failed);
            }
            if (!failed) {
                break;
            }
            ++failures;
            EXPECT_EQ(polygon.Points(), SQUARE);
            EXPECT_EQ(polygon.Counts(), Counts{4});
        }
    }
    EXPECT_GE(failures, 4U);
}

} // namespace
} // namespace geom
