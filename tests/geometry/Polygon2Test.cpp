// SPDX-License-Identifier: MIT
#include "geometry/Polygon2.h"

#include "tests/reference/PlainRings.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/RingPolygons.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <limits>
#include <random>

namespace geom {
namespace {

using test::AllocationProbe;
using test::ExpectError;
using test::Raw;

using Points = std::vector<Vec2d>;
using Counts = std::vector<unsigned int>;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr unsigned int MOST = std::numeric_limits<unsigned int>::max();

Polygon2 Taken(const Points& points, const Counts& counts) {
    Polygon2Data data{points, counts};
    Polygon2 polygon;
    polygon.Take(data);
    return polygon;
}

void ExpectContents(const Polygon2& polygon, const Points& points, const Counts& counts) {
    EXPECT_EQ(polygon.Points(), points);
    EXPECT_EQ(polygon.Counts(), counts);
}

// Points that can be told apart: (first, 0), (first + 1, 0), ...
Points Numbered(int first, int count) {
    Points points;
    for (int i = 0; i < count; ++i) {
        points.emplace_back(first + i, 0);
    }
    return points;
}

const Points SQUARE = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};

TEST(Polygon2, IsEmptyWithoutPointsOrWithoutRings) {
    EXPECT_TRUE(Polygon2().empty());
    EXPECT_TRUE(Raw({{0, 0}}, {}).empty());
    EXPECT_TRUE(Raw({}, {3}).empty());
    EXPECT_FALSE(Raw({{0, 0}}, {1}).empty());
}

TEST(Polygon2, CopiesAreDeep) {
    Polygon2 polygon = Raw(SQUARE, {4});
    const Polygon2 copy = polygon;
    Polygon2 assigned;
    assigned = polygon;
    polygon.Points()[0] = {9, 9};
    polygon.clear();
    ExpectContents(polygon, {}, {});
    ExpectContents(copy, SQUARE, {4});
    ExpectContents(assigned, SQUARE, {4});
    const Polygon2& same = assigned;
    assigned = same;
    ExpectContents(assigned, SQUARE, {4});
}

TEST(Polygon2, TakeDropsDuplicatesAndTheClosingPoint) {
    ExpectContents(Taken({{0, 0}, {0, 0}, {1, 0}, {1, 1}, {0, 0}}, {5}), {{0, 0}, {1, 0}, {1, 1}},
                   {3});
}

TEST(Polygon2, TakeRemovesEmptyRings) {
    ExpectContents(Taken(Numbered(0, 7), {3, 0, 4}), Numbered(0, 7), {3, 4});
    ExpectContents(Taken({}, {0, 0}), {}, {});
}

TEST(Polygon2, TakeLeavesTheGiverWithEmptiedArrays) {
    Polygon2 polygon = Raw(SQUARE, {4});
    Polygon2Data data{Numbered(0, 3), {3}};
    const Vec2d* block = data.points.data();
    polygon.Take(data);
    EXPECT_EQ(polygon.Points().data(), block) << "taken over, not copied";
    EXPECT_TRUE(data.points.empty());
    EXPECT_TRUE(data.counts.empty());
    EXPECT_GE(data.points.capacity(), 4U) << "the polygon's own former room";
    ExpectContents(polygon, Numbered(0, 3), {3});
}

TEST(Polygon2, TakeFromItsOwnArraysEmptiesThem) {
    Polygon2 polygon = Raw(SQUARE, {4});
    // A polygon starts with its two arrays, so that a host can hand it over as its own data.
    polygon.Take(reinterpret_cast<Polygon2Data&>(polygon));
    ExpectContents(polygon, {}, {});
}

TEST(Polygon2, CleanUpsAllocateNothing) {
    Polygon2 polygon = Raw(Numbered(0, 10), {2, 4, 0, 4});
    Polygon2Data data{{{0, 0}, {0, 0}, {1, 0}, {0, 0}}, {4, 0}};
    const AllocationProbe probe;
    polygon.RemoveDuplicatePoints();
    polygon.RemoveDegenerateRings(3);
    polygon.Reverse();
    polygon.RemoveRing(0);
    polygon.Take(data);
    polygon.clear();
    EXPECT_EQ(probe.Count(), 0U);
}

TEST(Polygon2, RemoveRingErasesItsPointsAndItsCount) {
    const Points points = Numbered(0, 9);
    Polygon2 polygon = Raw(points, {2, 4, 3});
    polygon.RemoveRing(1);
    Points expected = Numbered(0, 2);
    const Points tail = Numbered(6, 3);
    expected.insert(expected.end(), tail.begin(), tail.end());
    ExpectContents(polygon, expected, {2, 3});
    polygon.RemoveRing(0);
    ExpectContents(polygon, tail, {3});
    polygon.RemoveRing(0);
    ExpectContents(polygon, {}, {});
}

TEST(Polygon2, RemoveRingOfAnEmptyRingErasesOnlyTheCount) {
    Polygon2 polygon = Raw(SQUARE, {0, 4, 0});
    polygon.RemoveRing(2);
    polygon.RemoveRing(0);
    ExpectContents(polygon, SQUARE, {4});
}

TEST(Polygon2, RingIndexOutOfRangeIsAnError) {
    Polygon2 polygon = Raw(SQUARE, {4});
    for (const std::size_t ring : {std::size_t{1}, std::size_t{2}, ~std::size_t{0}}) {
        ExpectError([&] { polygon.RemoveRing(ring); }, "Geometry", "Polygon2", 132);
        ExpectError([&] { polygon.RingOrientation(ring); }, "Geometry", "Polygon2", 132);
    }
    ExpectContents(polygon, SQUARE, {4});
    ExpectError([] { Polygon2().RemoveRing(0); }, "Geometry", "Polygon2", 132);
}

TEST(Polygon2, RemoveDegenerateRingsKeepsTheOrderOfTheOthers) {
    Polygon2 polygon = Raw(Numbered(0, 7), {2, 4, 1});
    polygon.RemoveDegenerateRings(3);
    ExpectContents(polygon, Numbered(2, 4), {4});

    polygon = Raw(Numbered(0, 12), {3, 0, 2, 5, 2});
    polygon.RemoveDegenerateRings(3);
    Points expected = Numbered(0, 3);
    const Points second = Numbered(5, 5);
    expected.insert(expected.end(), second.begin(), second.end());
    ExpectContents(polygon, expected, {3, 5});
}

TEST(Polygon2, RemoveDegenerateRingsAtTheLimits) {
    Polygon2 polygon = Raw(SQUARE, {0, 4, 0});
    polygon.RemoveDegenerateRings(0);
    ExpectContents(polygon, SQUARE, {0, 4, 0});
    polygon.RemoveDegenerateRings(1);
    ExpectContents(polygon, SQUARE, {4});
    polygon.RemoveDegenerateRings(4);
    ExpectContents(polygon, SQUARE, {4});
    polygon.RemoveDegenerateRings(~std::size_t{0});
    ExpectContents(polygon, {}, {});
    polygon.RemoveDegenerateRings(3);
    ExpectContents(polygon, {}, {});
}

TEST(Polygon2, RingOrientationFollowsTheSignOfTheArea) {
    EXPECT_EQ(Polygon2().RingOrientation(0), Polygon2::Degenerate);
    EXPECT_EQ(Polygon2().RingOrientation(7), Polygon2::Degenerate);
    EXPECT_EQ(Raw({}, {4}).RingOrientation(9), Polygon2::Degenerate);
    Polygon2 polygon = Raw(SQUARE, {4});
    EXPECT_EQ(polygon.RingOrientation(0), Polygon2::CounterClockwise);
    polygon.Reverse();
    EXPECT_EQ(polygon.RingOrientation(0), Polygon2::Clockwise);
    EXPECT_EQ(Raw({{0, 0}, {1, 1}, {2, 2}}, {3}).RingOrientation(0), Polygon2::Degenerate);
    EXPECT_EQ(Raw({{0, 0}, {1, 0}}, {2}).RingOrientation(0), Polygon2::Degenerate);
    EXPECT_EQ(Raw({{0, 0}}, {0, 1}).RingOrientation(0), Polygon2::Degenerate);
    EXPECT_EQ(Raw({{0, 0}, {1, NOT_A_NUMBER}, {1, 1}}, {3}).RingOrientation(0),
              Polygon2::Degenerate);
}

TEST(Polygon2, RingOrientationLooksAtTheGivenRing) {
    Points points = SQUARE;
    points.insert(points.end(), SQUARE.rbegin(), SQUARE.rend());
    const Polygon2 polygon = Raw(points, {4, 0, 4});
    EXPECT_EQ(polygon.RingOrientation(0), Polygon2::CounterClockwise);
    EXPECT_EQ(polygon.RingOrientation(1), Polygon2::Degenerate);
    EXPECT_EQ(polygon.RingOrientation(2), Polygon2::Clockwise);
    static_assert(Polygon2::Clockwise == 0 && Polygon2::CounterClockwise == 1 &&
                  Polygon2::Degenerate == 2);
}

TEST(Polygon2, ReverseTurnsEachRingInItsPlace) {
    Polygon2 polygon = Raw(Numbered(0, 6), {3, 0, 1, 2});
    polygon.Reverse();
    ExpectContents(polygon, {{2, 0}, {1, 0}, {0, 0}, {3, 0}, {5, 0}, {4, 0}}, {3, 0, 1, 2});
}

TEST(Polygon2, RemoveDuplicatePointsCases) {
    const Vec2d a(0, 0), b(1, 0), c(1, 1), n(NOT_A_NUMBER, 0);
    const struct {
        const char* name;
        Points points;
        Counts counts;
        Points expected;
        Counts expectedCounts;
    } rows[] = {
        {"nothing to do", {a, b, c}, {3}, {a, b, c}, {3}},
        {"run in the middle", {a, b, b, b, c}, {5}, {a, b, c}, {3}},
        {"all points equal", {a, a, a}, {3}, {a}, {1}},
        {"one point", {a}, {1}, {a}, {1}},
        {"two equal points", {a, a}, {2}, {a}, {1}},
        {"there and back", {a, b, a}, {3}, {a, b}, {2}},
        {"closing run", {a, b, c, a, a}, {5}, {a, b, c}, {3}},
        {"only one closing point goes", {a, b, a, c, a}, {5}, {a, b, a, c}, {4}},
        {"equal points of neighbouring rings stay", {a, b, b, c}, {2, 2}, {a, b, b, c}, {2, 2}},
        {"several rings", {a, a, b, b, c, c, b}, {3, 0, 4}, {a, b, b, c}, {2, 0, 2}},
        {"empty rings stay", {}, {0, 0}, {}, {0, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Polygon2 polygon = Raw(row.points, row.counts);
        polygon.RemoveDuplicatePoints();
        ExpectContents(polygon, row.expected, row.expectedCounts);
    }
    Polygon2 polygon = Raw({n, n, n}, {3});
    polygon.RemoveDuplicatePoints();
    EXPECT_EQ(polygon.Counts(), Counts{3}) << "what is no number equals nothing";
}

TEST(Polygon2, TheFirstOfEqualPointsIsKept) {
    Polygon2 polygon = Raw({{0.0, 1}, {-0.0, 1}, {2, 2}}, {3});
    polygon.RemoveDuplicatePoints();
    ASSERT_EQ(polygon.Points().size(), 2U);
    EXPECT_FALSE(std::signbit(polygon.Points()[0].x));
}

TEST(Polygon2, PointsBeyondTheCountsAreKeptBehindTheRings) {
    const Points tail = {{7, 7}, {7, 7}, {8, 8}};
    Points points = {{0, 0}, {0, 0}, {1, 0}, {1, 1}};
    points.insert(points.end(), tail.begin(), tail.end());
    Polygon2 polygon = Raw(points, {4});
    polygon.RemoveDuplicatePoints();
    ExpectContents(polygon, {{0, 0}, {1, 0}, {1, 1}, {7, 7}, {7, 7}, {8, 8}}, {3});
    polygon.Reverse();
    ExpectContents(polygon, {{1, 1}, {1, 0}, {0, 0}, {7, 7}, {7, 7}, {8, 8}}, {3});
    polygon.RemoveDegenerateRings(4);
    ExpectContents(polygon, tail, {});
    ExpectContents(Taken(points, {4}), {{0, 0}, {1, 0}, {1, 1}, {7, 7}, {7, 7}, {8, 8}}, {3});
    polygon = Raw(points, {2, 2});
    polygon.RemoveRing(1);
    ExpectContents(polygon, {{0, 0}, {0, 0}, {7, 7}, {7, 7}, {8, 8}}, {2});
}

TEST(Polygon2, CountsBeyondThePointsAreCutShort) {
    ExpectContents(Taken(Numbered(0, 5), {2, 9, 4}), Numbered(0, 5), {2, 3});
    ExpectContents(Taken(SQUARE, {MOST, MOST, MOST}), SQUARE, {4});
    ExpectContents(Taken({}, {3}), {}, {});
    Polygon2 polygon = Raw(SQUARE, {1, MOST, 2});
    polygon.Reverse();
    ExpectContents(polygon, {{0, 0}, {0, 1}, {1, 1}, {1, 0}}, {1, MOST, 2});
    EXPECT_EQ(polygon.RingOrientation(1), Polygon2::Clockwise);
    EXPECT_EQ(polygon.RingOrientation(2), Polygon2::Degenerate);
    polygon.RemoveDegenerateRings(2);
    ExpectContents(polygon, {{0, 1}, {1, 1}, {1, 0}}, {3});
    polygon = Raw(SQUARE, {1, MOST, 2});
    polygon.RemoveRing(2);
    ExpectContents(polygon, SQUARE, {1, MOST});
    polygon.RemoveRing(1);
    ExpectContents(polygon, {{0, 0}}, {1});
}

TEST(Polygon2, CleanUpsAgreeWithThePlainOnes) {
    std::mt19937 random(201);
    std::cout << "seed 201\n";
    std::size_t changed = 0;
    for (int run = 0; run < 20000; ++run) {
        test::PlainRings rings(random() % 6);
        Points points;
        Counts counts;
        Points cleaned, kept;
        Counts cleanedCounts, keptCounts;
        const std::size_t least = random() % 5;
        for (Points& ring : rings) {
            ring.resize(random() % 8);
            for (Vec2d& p : ring) {
                p = Vec2d(static_cast<double>(random() % 2), static_cast<double>(random() % 2));
            }
            points.insert(points.end(), ring.begin(), ring.end());
            counts.push_back(static_cast<unsigned int>(ring.size()));
            const Points clean = test::PlainWithoutDuplicates(ring);
            cleaned.insert(cleaned.end(), clean.begin(), clean.end());
            if (!clean.empty()) {
                cleanedCounts.push_back(static_cast<unsigned int>(clean.size()));
            }
            if (ring.size() >= least) {
                kept.insert(kept.end(), ring.begin(), ring.end());
                keptCounts.push_back(static_cast<unsigned int>(ring.size()));
            }
        }
        ExpectContents(Taken(points, counts), cleaned, cleanedCounts);
        Polygon2 polygon = Raw(points, counts);
        polygon.RemoveDegenerateRings(least);
        ExpectContents(polygon, kept, keptCounts);
        changed += cleaned.size() != points.size();
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GE(changed, 10000U);
}

TEST(Polygon2, ManyRingsAreCleanedInLinearTime) {
    // A million rings: moving all points behind each shortened ring would take hours.
    Polygon2Data data;
    for (int ring = 0; ring < 1000000; ++ring) {
        const double x = ring;
        data.points.insert(data.points.end(), {{x, 0}, {x, 0}, {x, 1}, {x, 0}});
        data.counts.push_back(4);
    }
    Polygon2 polygon;
    polygon.Take(data);
    EXPECT_EQ(polygon.Points().size(), 2000000U);
    polygon.Reverse();
    EXPECT_EQ(polygon.Points()[0], Vec2d(0, 1));
    polygon.RemoveDegenerateRings(3);
    EXPECT_TRUE(polygon.empty());
}

} // namespace
} // namespace geom
