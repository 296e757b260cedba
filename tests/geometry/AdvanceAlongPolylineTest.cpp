// SPDX-License-Identifier: MIT
#include "geometry/Geometry.h"
#include "tests/support/Exceptions.h"
#include "tests/support/Floats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace geom {
namespace {

using namespace test;

constexpr unsigned SEED = 8302;
constexpr double TWO_TO_32 = 4294967296.0;

const std::vector<Vec2d> SQUARE = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};

struct Place {
    std::size_t index;
    Vec2d position;
    bool arrived;
};

Place Advance(const std::vector<Vec2d>& pts, bool closed, double distance, std::size_t index,
              Vec2d position) {
    const bool arrived =
        AdvanceAlongPolyline(pts.data(), pts.size(), closed, distance, index, position);
    return {index, position, arrived};
}

void ExpectPlace(const Place& place, bool arrived, std::size_t index, const Vec2d& position) {
    EXPECT_EQ(place.arrived, arrived);
    EXPECT_EQ(place.index, index);
    EXPECT_EQ(place.position, position);
}

TEST(AdvanceAlongPolyline, WithinASegment) {
    ExpectPlace(Advance(SQUARE, false, 0.25, 0, {0.5, 0}), true, 0, {0.75, 0});
    ExpectPlace(Advance(SQUARE, true, 0.25, 3, {0, 0.5}), true, 3, {0, 0.25});
}

TEST(AdvanceAlongPolyline, AcrossVertices) {
    ExpectPlace(Advance(SQUARE, false, 1.75, 0, {0.5, 0}), true, 2, {0.75, 1});
}

TEST(AdvanceAlongPolyline, EndingOnAVertexBelongsToItsNextSegment) {
    ExpectPlace(Advance(SQUARE, false, 0.5, 0, {0.5, 0}), true, 1, {1, 0});
    ExpectPlace(Advance(SQUARE, false, 1, 0, {0, 0}), true, 1, {1, 0});
    ExpectPlace(Advance(SQUARE, true, 1, 3, {0, 1}), true, 0, {0, 0});
    // Exactly to the end of an open polyline is not beyond it.
    ExpectPlace(Advance(SQUARE, false, 3, 0, {0, 0}), true, 3, {0, 1});
}

TEST(AdvanceAlongPolyline, OpenPolylineEnds) {
    ExpectPlace(Advance(SQUARE, false, 99, 0, {0.5, 0}), false, 3, {0, 1});
    ExpectPlace(Advance(SQUARE, false, 1, 3, {0, 1}), false, 3, {0, 1});
    ExpectPlace(Advance(SQUARE, false, INF, 0, {0, 0}), false, 3, {0, 1});
    ExpectPlace(Advance(SQUARE, false, LARGEST, 0, {0, 0}), false, 3, {0, 1});
}

TEST(AdvanceAlongPolyline, ClosedPolylineGoesAround) {
    ExpectPlace(Advance(SQUARE, true, 3.5, 0, {0, 0}), true, 3, {0, 0.5});
    ExpectPlace(Advance(SQUARE, true, 4, 0, {0, 0}), true, 0, {0, 0});
    ExpectPlace(Advance(SQUARE, true, 4.5, 0, {0, 0}), true, 0, {0.5, 0});
    ExpectPlace(Advance(SQUARE, true, 4000002.25, 1, {1, 0.5}), true, 3, {0, 0.25});
}

TEST(AdvanceAlongPolyline, NothingToWalk) {
    for (const double distance : {0.0, -0.0, -1.0, -INF, NOT_A_NUMBER}) {
        for (const bool closed : {false, true}) {
            ExpectPlace(Advance(SQUARE, closed, distance, 2, {0.5, 1}), true, 2, {0.5, 1});
            ExpectPlace(Advance(SQUARE, closed, distance, 3, {0, 1}), true, 3, {0, 1});
        }
    }
}

TEST(AdvanceAlongPolyline, RepeatedVerticesAreSteppedOver) {
    const std::vector<Vec2d> pts = {{0, 0}, {0, 0}, {2, 0}, {2, 0}, {2, 0}, {5, 0}};
    ExpectPlace(Advance(pts, false, 3, 0, {0, 0}), true, 4, {3, 0});
    ExpectPlace(Advance(pts, false, 2, 0, {0, 0}), true, 2, {2, 0});
    ExpectPlace(Advance(pts, true, 11, 0, {0, 0}), true, 1, {1, 0});
    ExpectPlace(Advance(pts, true, 101, 0, {0, 0}), true, 1, {1, 0}); // ten rounds
}

TEST(AdvanceAlongPolyline, PositionOnTheNextVertexCountsAsBeingThere) {
    ExpectPlace(Advance(SQUARE, false, 0.5, 0, {1, 0}), true, 1, {1, 0.5});
}

TEST(AdvanceAlongPolyline, ClosedPolylineOfOnePointRepeatedEndsWithoutArriving) {
    const std::vector<Vec2d> pts(5, Vec2d(3, 3));
    ExpectPlace(Advance(pts, true, 1, 0, {3, 3}), false, 4, {3, 3});
    ExpectPlace(Advance(pts, true, 1, 2, {3, 3}), false, 1, {3, 3});
    ExpectPlace(Advance(pts, false, 1, 0, {3, 3}), false, 4, {3, 3});
    // A position apart is walked in from.
    ExpectPlace(Advance(pts, true, 5, 4, {3, 2}), false, 4, {3, 3});
    ExpectPlace(Advance(pts, true, 0.5, 4, {3, 2}), true, 4, {3, 2.5});
    const std::vector<Vec2d> two(2, Vec2d(3, 3));
    ExpectPlace(Advance(two, true, 1, 0, {3, 3}), false, 1, {3, 3});
}

// The way in is too short to be noticed beside the distance, but it is no round.
TEST(AdvanceAlongPolyline, ClosedPolylineOfOnePointRepeatedEndsAlsoAfterATinyWayIn) {
    const std::vector<Vec2d> pts(3, Vec2d(0, 0));
    for (std::size_t start = 0; start < pts.size(); ++start) {
        ExpectPlace(Advance(pts, true, 1, start, {1e-20, 0}), false, start, {0, 0});
    }
}

TEST(AdvanceAlongPolyline, TwoPointsClosedGoBackAndForth) {
    const std::vector<Vec2d> pts = {{0, 0}, {2, 0}};
    ExpectPlace(Advance(pts, true, 3, 0, {0, 0}), true, 1, {1, 0});
    ExpectPlace(Advance(pts, true, 5, 0, {0, 0}), true, 0, {1, 0});
}

TEST(AdvanceAlongPolyline, ArgumentErrorsComeInOrder) {
    std::size_t index = 9;
    Vec2d pos(5, 5);
    const Vec2d* none = nullptr;
    ExpectError([&] { AdvanceAlongPolyline(none, 0, false, 1, index, pos); }, "Geometry",
                "Geometry", 338);
    ExpectError([&] { AdvanceAlongPolyline(SQUARE.data(), 0, false, 1, index, pos); }, "Geometry",
                "Geometry", 339);
    ExpectError([&] { AdvanceAlongPolyline(SQUARE.data(), 1, false, 1, index, pos); }, "Geometry",
                "Geometry", 339);
    ExpectError([&] { AdvanceAlongPolyline(SQUARE.data(), 4, false, 1, index, pos); }, "Geometry",
                "Geometry", 340);
    index = 4;
    ExpectError([&] { AdvanceAlongPolyline(SQUARE.data(), 4, true, 0, index, pos); }, "Geometry",
                "Geometry", 340);
    EXPECT_EQ(index, 4U);
    EXPECT_EQ(pos, Vec2d(5, 5));
}

void ExpectEndless(const std::vector<Vec2d>& pts, double distance, const Vec2d& start) {
    std::size_t index = 0;
    Vec2d pos = start;
    ExpectError([&] { AdvanceAlongPolyline(pts.data(), pts.size(), true, distance, index, pos); },
                "Geometry", "Geometry", 341);
    EXPECT_EQ(index, 0U);
    EXPECT_EQ(pos, start);
}

TEST(AdvanceAlongPolyline, MoreThanFourBillionRoundsAreAnError) {
    ExpectEndless(SQUARE, INF, {0.5, 0});
    ExpectEndless(SQUARE, LARGEST, {0.5, 0});
    ExpectEndless(SQUARE, std::nextafter(TWO_TO_32 * 4, INF), {0.5, 0});
    // The closing segment counts, and the error comes even when the first step would be enough.
    ExpectEndless({{0, 0}, {1, 0}}, std::nextafter(TWO_TO_32 * 2, INF), {-1e12, 0});
    const std::vector<Vec2d> samePoint(4, Vec2d(1, 1));
    ExpectEndless(samePoint, INF, {1, 1});
}

TEST(AdvanceAlongPolyline, ExactlyFourBillionRoundsOfALongWayInAreWalked) {
    // The position lies so far off that the first step takes up nearly all of the distance.
    const std::vector<Vec2d> pts = {{0, 0}, {1, 0}};
    std::size_t index = 1;
    Vec2d pos(-8589934590.0, 0);
    EXPECT_TRUE(AdvanceAlongPolyline(pts.data(), 2, true, TWO_TO_32 * 2, index, pos));
    EXPECT_EQ(index, 0U);
    EXPECT_EQ(pos, Vec2d(0, 0));
}

// Segments so short that their squared length is 0: the distance never shrinks.
TEST(AdvanceAlongPolyline, RoundsThatDoNotShortenTheDistanceAreAnError) {
    ExpectEndless({{0, 0}, {1e-170, 0}, {0, 1e-170}}, 1.0, {0, 0});
    ExpectEndless({{0, 0}, {1e-170, 0}, {1e-170, 0}}, 1.0, {0.5e-170, 0});
}

// Beyond 2^53 a step of 1 is half the distance between neighbouring doubles and rounds away.
TEST(AdvanceAlongPolyline, MillionsOfStepsTooShortToBeNoticedAreAnError) {
    std::vector<Vec2d> zigzag;
    for (int i = 0; i < (1 << 21) + 2; ++i) {
        zigzag.emplace_back(i % 2, 0);
    }
    const double distance = std::ldexp(1.0, 53) + 4;
    ASSERT_LT(distance, TWO_TO_32 * static_cast<double>(zigzag.size()));
    ExpectEndless(zigzag, distance, {0, 0});
}

TEST(AdvanceAlongPolyline, VerticesThatAreNotFiniteEndTheWalk) {
    const std::vector<Vec2d> noNumber = {{0, 0}, {NOT_A_NUMBER, 0}, {1, 0}};
    const std::vector<Vec2d> infinite = {{0, 0}, {INF, 0}, {1, 0}};
    for (const bool closed : {false, true}) {
        const Place lost = Advance(noNumber, closed, 1, 0, {0, 0});
        EXPECT_TRUE(lost.arrived);
        EXPECT_EQ(lost.index, 1U);
        EXPECT_TRUE(Advance(infinite, closed, 1, 0, {0, 0}).arrived);
    }
    const std::vector<Vec2d> huge = {{-LARGEST, 0}, {LARGEST, 0}};
    EXPECT_TRUE(Advance(huge, true, 1e308, 0, {-LARGEST, 0}).arrived);
}

// On polylines along the axes with whole coordinates every step is exact, so the position is
// known from the arc length.
Vec2d AtArcLength(const std::vector<Vec2d>& pts, double arc) {
    for (std::size_t i = 0;; ++i) {
        const Vec2d& a = pts[i % pts.size()];
        const Vec2d& b = pts[(i + 1) % pts.size()];
        const double length = std::fabs(b.x - a.x) + std::fabs(b.y - a.y);
        if (arc <= length && length > 0) {
            return a + (b - a) * (arc / length);
        }
        arc -= length;
    }
}

TEST(AdvanceAlongPolyline, StepsAddUpToTheArcLength) {
    std::mt19937_64 random(SEED);
    int rounds = 0;
    for (int repeat = 0; repeat < 500; ++repeat) {
        std::vector<Vec2d> pts = {{0, 0}};
        for (int i = 0; i < 6; ++i) { // powers of 2, so that every fraction is exact
            const double step =
                std::ldexp(random() % 2 == 0 ? 1.0 : -1.0, static_cast<int>(random() % 4));
            pts.push_back(pts.back() + (i % 2 == 0 ? Vec2d(step, 0) : Vec2d(0, step)));
        }
        pts.emplace_back(0, pts.back().y); // back to the first point along the axes
        double total = 0.0;
        for (std::size_t i = 0; i < pts.size(); ++i) {
            const Vec2d d = pts[(i + 1) % pts.size()] - pts[i];
            total += std::fabs(d.x) + std::fabs(d.y);
        }
        std::size_t index = 0;
        Vec2d pos = pts[0];
        double arc = 0.0;
        for (int step = 0; step < 30; ++step) {
            const double distance = static_cast<double>(random() % 64) / 8;
            arc += distance;
            ASSERT_TRUE(AdvanceAlongPolyline(pts.data(), pts.size(), true, distance, index, pos));
            const Vec2d expected = AtArcLength(pts, std::fmod(arc, total));
            ASSERT_NEAR(pos.x, expected.x, 1e-12) << "seed " << SEED;
            ASSERT_NEAR(pos.y, expected.y, 1e-12) << "seed " << SEED;
        }
        rounds += arc > total ? 1 : 0;
    }
    EXPECT_GT(rounds, 100);
}

} // namespace
} // namespace geom
