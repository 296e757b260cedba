// SPDX-License-Identifier: MIT
#include "geometry/PolygonMeasures.h"

#include "tests/reference/PlainRings.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/RingPolygons.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <limits>
#include <new>
#include <random>

namespace geom {
namespace {

using test::AllocationProbe;
using test::Box;
using test::Joined;
using test::Raw;
using test::Reversed;

using Points = std::vector<Vec2d>;
using Counts = std::vector<unsigned int>;

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double LARGEST = std::numeric_limits<double>::max();
constexpr unsigned int MOST = std::numeric_limits<unsigned int>::max();
constexpr std::int32_t LOWEST = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t HIGHEST = std::numeric_limits<std::int32_t>::max();

const Points SQUARE = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
const std::vector<tagPOINT> DEVICE_SQUARE = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};

bool Inside(const Vec2d& p, const Points& ring) {
    return PointInPolygon(p, ring.data(), ring.size());
}

bool Inside(const tagPOINT& p, const std::vector<tagPOINT>& ring) {
    return PointInPolygon(p, ring.data(), ring.size());
}

// ---- point in polygon ----------------------------------------------------------------------

TEST(PointInPolygon, LeftAndBottomEdgesBelongToTheInside) {
    const struct {
        const char* name;
        Vec2d p;
        bool inside;
    } rows[] = {
        {"middle", {0.5, 0.5}, true},          {"left edge", {0, 0.5}, true},
        {"bottom edge", {0.5, 0}, true},       {"right edge", {1, 0.5}, false},
        {"top edge", {0.5, 1}, false},         {"lower left corner", {0, 0}, true},
        {"lower right corner", {1, 0}, false}, {"upper right corner", {1, 1}, false},
        {"upper left corner", {0, 1}, false},  {"left of it", {-1, 0.5}, false},
        {"above it", {0.5, 2}, false},         {"right of it", {2, 0.5}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Inside(row.p, SQUARE), row.inside);
        EXPECT_EQ(Inside(row.p, Reversed(SQUARE)), row.inside);
        const tagPOINT q{static_cast<std::int32_t>(10 * row.p.x),
                         static_cast<std::int32_t>(10 * row.p.y)};
        EXPECT_EQ(Inside(q, DEVICE_SQUARE), row.inside);
    }
}

TEST(PointInPolygon, EmptyRingsContainNothing) {
    EXPECT_FALSE(PointInPolygon(Vec2d(0, 0), SQUARE.data(), 0));
    EXPECT_FALSE(PointInPolygon(Vec2d(0, 0), static_cast<const Vec2d*>(nullptr), 4));
    EXPECT_FALSE(PointInPolygon(tagPOINT{0, 0}, DEVICE_SQUARE.data(), 0));
    EXPECT_FALSE(PointInPolygon(tagPOINT{0, 0}, static_cast<const tagPOINT*>(nullptr), 4));
    EXPECT_FALSE(Inside(Vec2d(0, 0), Points{{0, 0}}));
    EXPECT_FALSE(Inside(Vec2d(0.5, 0.5), Points{{0, 0}, {1, 1}}));
}

TEST(PointInPolygon, NestedRingsAreAHoleWhicheverWayTheyTurn) {
    const Points outer = Box(0, 0, 10, 10);
    const Points inner = Box(3, 3, 7, 7);
    const Counts counts = {4, 0, 4};
    for (const Points& hole : {inner, Reversed(inner)}) {
        const Points both = Joined(outer, hole);
        EXPECT_TRUE(PointInPolygon(Vec2d(1, 5), both.data(), counts.data(), 3));
        EXPECT_FALSE(PointInPolygon(Vec2d(5, 5), both.data(), counts.data(), 3));
        EXPECT_TRUE(PointInPolygon(Vec2d(5, 5), both.data(), counts.data(), 2));
        EXPECT_FALSE(PointInPolygon(Vec2d(5, 5), both.data(), counts.data(), 0));
        const Polygon2 polygon = Raw(both, counts);
        EXPECT_TRUE(PointInPolygon(Vec2d(1, 5), polygon));
        EXPECT_FALSE(PointInPolygon(Vec2d(5, 5), polygon));
    }
}

TEST(PointInPolygon, NestedDeviceRingsAreAHole) {
    std::vector<tagPOINT> both = DEVICE_SQUARE;
    both.insert(both.end(), {{3, 3}, {7, 3}, {7, 7}, {3, 7}});
    const long counts[] = {4, 0, -5, 4};
    EXPECT_TRUE(PointInPolygon(tagPOINT{1, 5}, both.data(), counts, 4));
    EXPECT_FALSE(PointInPolygon(tagPOINT{5, 5}, both.data(), counts, 4));
    EXPECT_TRUE(PointInPolygon(tagPOINT{5, 5}, both.data(), counts, 1));
    EXPECT_FALSE(PointInPolygon(tagPOINT{5, 5}, both.data(), counts, 0));
}

TEST(PointInPolygon, NullArraysContainNothing) {
    const unsigned int counts[] = {4};
    const long longCounts[] = {4};
    const Vec2d* none = nullptr;
    const tagPOINT* noDevicePoints = nullptr;
    const unsigned int* noCounts = nullptr;
    const long* noLongCounts = nullptr;
    EXPECT_FALSE(PointInPolygon(Vec2d(0, 0), none, counts, 1));
    EXPECT_FALSE(PointInPolygon(Vec2d(0, 0), SQUARE.data(), noCounts, 1));
    EXPECT_FALSE(PointInPolygon(tagPOINT{0, 0}, noDevicePoints, longCounts, 1));
    EXPECT_FALSE(PointInPolygon(tagPOINT{0, 0}, DEVICE_SQUARE.data(), noLongCounts, 1));
}

TEST(PointInPolygon, PolygonsWithoutPointsOrRingsContainNothing) {
    EXPECT_FALSE(PointInPolygon(Vec2d(0.5, 0.5), Polygon2()));
    EXPECT_FALSE(PointInPolygon(Vec2d(0.5, 0.5), Raw(SQUARE, {})));
    EXPECT_FALSE(PointInPolygon(Vec2d(0.5, 0.5), Raw({}, {4})));
}

TEST(PointInPolygon, CountsBeyondAPolygonsPointsAreCutShort) {
    EXPECT_TRUE(PointInPolygon(Vec2d(0.5, 0.5), Raw(SQUARE, {MOST, MOST, 7})));
    EXPECT_FALSE(PointInPolygon(Vec2d(5, 0.5), Raw(SQUARE, {MOST})));
    EXPECT_TRUE(PointInPolygon(Vec2d(0.5, 0.5), Raw(Joined(SQUARE, SQUARE), {4})))
        << "points beyond the counts are ignored";
}

TEST(PointInPolygon, UnrolledLoopEqualsThePlainOneForEveryRemainder) {
    std::mt19937 random(301);
    std::cout << "seed 301\n";
    std::size_t inside = 0;
    std::size_t tests = 0;
    for (std::size_t n = 0; n <= 21; ++n) {
        for (int run = 0; run < 1000; ++run) {
            Points ring(n);
            std::vector<tagPOINT> device(n);
            for (std::size_t i = 0; i < n; ++i) {
                device[i] = {static_cast<std::int32_t>(random() % 7),
                             static_cast<std::int32_t>(random() % 7)};
                ring[i] = device[i];
            }
            const tagPOINT q{static_cast<std::int32_t>(random() % 7),
                             static_cast<std::int32_t>(random() % 7)};
            const bool expected = test::PlainPointInRing(Vec2d(q), ring);
            EXPECT_EQ(Inside(Vec2d(q), ring), expected);
            EXPECT_EQ(Inside(q, device), test::PlainPointInRing(q, device));
            inside += expected;
            ++tests;
        }
    }
    std::cout << tests << " rings, " << inside << " probes inside\n";
    EXPECT_GE(inside, 3000U);
}

TEST(PointInPolygon, EveryPointOfATiledPlaneIsInExactlyOneTile) {
    // Two triangles for each square of a slanted lattice.
    std::vector<Points> tiles;
    const auto corner = [](int i, int j) { return Vec2d(2 * i + j, 3 * j - i); };
    for (int i = 0; i < 6; ++i) {
        for (int j = 0; j < 6; ++j) {
            tiles.push_back({corner(i, j), corner(i + 1, j), corner(i + 1, j + 1)});
            tiles.push_back({corner(i, j), corner(i + 1, j + 1), corner(i, j + 1)});
        }
    }
    int inside = 0;
    for (int x = -2; x < 20; ++x) {
        for (int y = -8; y < 20; ++y) {
            int hits = 0;
            for (const Points& tile : tiles) {
                hits += Inside(Vec2d(x, y), tile);
            }
            EXPECT_LE(hits, 1);
            inside += hits;
        }
    }
    EXPECT_EQ(inside, 36 * 7) << "as many whole points as the area";
}

TEST(PointInPolygon, CoordinatesThatAreNotFiniteAreCrossedByNoRay) {
    EXPECT_FALSE(Inside(Vec2d(NOT_A_NUMBER, 0.5), SQUARE));
    EXPECT_FALSE(Inside(Vec2d(0.5, NOT_A_NUMBER), SQUARE));
    EXPECT_FALSE(Inside(Vec2d(INFINITE, 0.5), SQUARE));
    EXPECT_TRUE(Inside(Vec2d(0.5, 0.5), {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, NOT_A_NUMBER}}) ==
                test::PlainPointInRing(Vec2d(0.5, 0.5),
                                       {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, NOT_A_NUMBER}}));
    const double specials[] = {0, 1, -1, NOT_A_NUMBER, INFINITE, -INFINITE, LARGEST, -LARGEST};
    std::mt19937 random(302);
    for (int run = 0; run < 20000; ++run) {
        Points ring(random() % 7);
        for (Vec2d& v : ring) {
            v = {specials[random() % 8], specials[random() % 8]};
        }
        const Vec2d p(specials[random() % 8], specials[random() % 8]);
        EXPECT_EQ(Inside(p, ring), test::PlainPointInRing(p, ring));
    }
}

TEST(PointInPolygon, DeviceCrossingIsRoundedToTheNearestInteger) {
    // The right edge from (0,0) to (3,2) passes (1.5,1). Half is rounded away from the edge's
    // second vertex, so the result depends on the ring's direction.
    const std::vector<tagPOINT> up = {{0, 0}, {3, 2}, {-9, 2}, {-9, 0}};
    EXPECT_TRUE(Inside(tagPOINT{0, 1}, up));
    EXPECT_FALSE(Inside(tagPOINT{1, 1}, up));
    const std::vector<tagPOINT> down(up.rbegin(), up.rend());
    EXPECT_TRUE(Inside(tagPOINT{1, 1}, down));
    EXPECT_FALSE(Inside(tagPOINT{2, 1}, down));
}

TEST(PointInPolygon, DeviceDifferencesBeyondThirtyTwoBitsWrap) {
    const std::vector<tagPOINT> huge = {
        {LOWEST, LOWEST}, {HIGHEST, LOWEST}, {HIGHEST, HIGHEST}, {LOWEST, HIGHEST}};
    // Vertical edges are met where they stand, however far apart their ends.
    EXPECT_TRUE(Inside(tagPOINT{0, 0}, huge));
    EXPECT_TRUE(Inside(tagPOINT{LOWEST, LOWEST}, huge));
    EXPECT_FALSE(Inside(tagPOINT{HIGHEST, 5}, huge));
    EXPECT_FALSE(Inside(tagPOINT{7, HIGHEST}, huge));
    // The heights of the slanted edges, 2^32 - 1, wrap to -1 and 1; the scaled products do not
    // fit and count as -1, so the edges are met at -1 and 9.
    const std::vector<tagPOINT> slanted = {{0, LOWEST}, {10, HIGHEST}, {-10, HIGHEST}};
    EXPECT_FALSE(Inside(tagPOINT{-2, 0}, slanted));
    EXPECT_TRUE(Inside(tagPOINT{-1, 0}, slanted));
    EXPECT_TRUE(Inside(tagPOINT{8, 0}, slanted));
    EXPECT_FALSE(Inside(tagPOINT{9, 0}, slanted));
}

// ---- perimeter -----------------------------------------------------------------------------

TEST(PolygonPerimeter, ClosingEdgeIsCountedOnce) {
    EXPECT_EQ(PolygonPerimeter(SQUARE.data(), 4), 4.0);
    const Points closed = Joined(SQUARE, {{0, 0}});
    EXPECT_EQ(PolygonPerimeter(closed.data(), 5), 4.0);
}

TEST(PolygonPerimeter, SmallRings) {
    EXPECT_EQ(PolygonPerimeter(nullptr, 4), 0.0);
    EXPECT_EQ(PolygonPerimeter(SQUARE.data(), 0), 0.0);
    EXPECT_EQ(PolygonPerimeter(SQUARE.data(), 1), 0.0);
    EXPECT_EQ(PolygonPerimeter(SQUARE.data(), 2), 2.0) << "there and back";
    EXPECT_EQ(PolygonPerimeter(SQUARE.data(), 3), 2.0 + std::sqrt(2.0));
}

TEST(PolygonPerimeter, SeveralRingsAdd) {
    const Points both = Joined(SQUARE, {{0, 0}, {0, 5}, {0, 0}});
    const unsigned int counts[] = {4, 0, 3};
    EXPECT_EQ(PolygonPerimeter(both.data(), counts, 3), 14.0);
    EXPECT_EQ(PolygonPerimeter(both.data(), counts, 1), 4.0);
    EXPECT_EQ(PolygonPerimeter(both.data(), counts, 0), 0.0);
    EXPECT_EQ(PolygonPerimeter(both.data(), nullptr, 3), 0.0);
    EXPECT_EQ(PolygonPerimeter(nullptr, counts, 3), 0.0);
}

TEST(Perimeter, OfAPolygon) {
    EXPECT_EQ(Perimeter(Polygon2()), 0.0);
    EXPECT_EQ(Perimeter(Raw(SQUARE, {})), 0.0);
    EXPECT_EQ(Perimeter(Raw({}, {4})), 0.0);
    EXPECT_EQ(Perimeter(Raw(Joined(SQUARE, Box(0, 0, 2, 2)), {4, 4})), 12.0);
    EXPECT_EQ(Perimeter(Raw(SQUARE, {MOST, 3})), 4.0) << "counts beyond the points";
    EXPECT_EQ(Perimeter(Raw(Joined(SQUARE, SQUARE), {4})), 4.0);
}

TEST(Perimeter, CoordinatesThatAreNotFiniteGiveNoFiniteLength) {
    EXPECT_TRUE(std::isnan(Perimeter(Raw({{0, 0}, {1, NOT_A_NUMBER}, {1, 1}}, {3}))));
    EXPECT_EQ(Perimeter(Raw({{0, 0}, {INFINITE, 0}, {1, 1}}, {3})), INFINITE);
}

// ---- area ----------------------------------------------------------------------------------

TEST(PolygonArea, SignSaysWhichWayTheRingTurns) {
    EXPECT_EQ(PolygonArea(SQUARE.data(), 4), 1.0);
    EXPECT_EQ(PolygonArea(Reversed(SQUARE).data(), 4), -1.0);
    const Points closed = Joined(SQUARE, {{0, 0}});
    EXPECT_EQ(PolygonArea(closed.data(), 5), 1.0);
}

TEST(PolygonArea, FewerThanThreeVerticesHaveNone) {
    EXPECT_EQ(PolygonArea(nullptr, 4), 0.0);
    for (std::size_t n = 0; n < 3; ++n) {
        EXPECT_EQ(PolygonArea(SQUARE.data(), n), 0.0);
    }
    EXPECT_EQ(PolygonArea(SQUARE.data(), 3), 0.5);
}

TEST(PolygonArea, FarFromTheOriginNothingIsLost) {
    Points far = SQUARE;
    for (Vec2d& p : far) {
        p += Vec2d(0x1p40, 0x1p50);
    }
    EXPECT_EQ(PolygonArea(far.data(), 4), 1.0);
}

TEST(PolygonArea, OppositeHolesSubtract) {
    const Points both = Joined(Box(0, 0, 10, 10), Reversed(Box(3, 3, 7, 7)));
    const unsigned int counts[] = {4, 0, 4};
    EXPECT_EQ(PolygonArea(both.data(), counts, 3), 84.0);
    EXPECT_EQ(PolygonArea(both.data(), counts, 1), 100.0);
    EXPECT_EQ(PolygonArea(both.data(), counts, 0), 0.0);
    EXPECT_EQ(PolygonArea(both.data(), nullptr, 3), 0.0);
    EXPECT_EQ(PolygonArea(nullptr, counts, 3), 0.0);
    EXPECT_EQ(PolygonArea(Raw(both, {4, 0, 4})), 84.0);
    EXPECT_EQ(PolygonArea(Raw(both, {4})), 100.0);
    EXPECT_EQ(PolygonArea(Raw(both, {4, MOST, MOST})), 84.0);
    EXPECT_EQ(PolygonArea(Raw(both, {})), 0.0);
    EXPECT_EQ(PolygonArea(Raw({}, {4})), 0.0);
    EXPECT_EQ(PolygonArea(Polygon2()), 0.0);
}

TEST(PolygonArea, IsThePlainSumToTheBit) {
    std::mt19937 random(303);
    std::cout << "seed 303\n";
    std::uniform_real_distribution<double> coordinate(-1e3, 1e6);
    for (int run = 0; run < 5000; ++run) {
        Points ring(random() % 12);
        for (Vec2d& p : ring) {
            p = {coordinate(random), coordinate(random)};
        }
        EXPECT_EQ(PolygonArea(ring.data(), ring.size()), test::PlainRingArea(ring));
    }
}

TEST(PolygonArea, CoordinatesThatAreNotFiniteGiveNoFiniteArea) {
    Points ring = SQUARE;
    ring[1].x = NOT_A_NUMBER;
    EXPECT_TRUE(std::isnan(PolygonArea(ring.data(), 4)));
    ring[3].y = INFINITE;
    EXPECT_TRUE(std::isnan(PolygonArea(ring.data(), 4)));
}

TEST(Measures, AllocateNothing) {
    const Polygon2 polygon = Raw(Joined(SQUARE, Box(0, 0, 2, 2)), {4, 4});
    const AllocationProbe probe;
    EXPECT_EQ(PolygonArea(polygon) + Perimeter(polygon), 17.0);
    EXPECT_TRUE(PointInPolygon(Vec2d(1.5, 1.5), polygon));
    EXPECT_TRUE(RectPolyIntersect({0.5, 0.5, 3, 3}, SQUARE.data(), 4));
    EXPECT_EQ(probe.Count(), 0U);
}

// ---- triangulated area ---------------------------------------------------------------------

TEST(TriangulatedPolygonArea, DoesNotDependOnTheDirection) {
    EXPECT_EQ(TriangulatedPolygonArea(SQUARE.data(), 4), 1.0);
    EXPECT_EQ(TriangulatedPolygonArea(Reversed(SQUARE).data(), 4), 1.0);
    const Points closed = Joined(SQUARE, {{0, 0}});
    EXPECT_EQ(TriangulatedPolygonArea(closed.data(), 5), 1.0);
}

TEST(TriangulatedPolygonArea, HolesSubtractWhicheverWayTheyTurn) {
    const unsigned int counts[] = {4, 4};
    for (const Points& hole : {Box(3, 3, 7, 7), Reversed(Box(3, 3, 7, 7))}) {
        const Points both = Joined(Box(0, 0, 10, 10), hole);
        EXPECT_EQ(TriangulatedPolygonArea(both.data(), counts, 2), 84.0);
    }
}

TEST(TriangulatedPolygonArea, LobesOfAFigureEightAdd) {
    const Points eight = {{0, 0}, {2, 2}, {2, 0}, {0, 2}};
    EXPECT_EQ(PolygonArea(eight.data(), 4), 0.0);
    EXPECT_EQ(TriangulatedPolygonArea(eight.data(), 4), 2.0);
}

TEST(TriangulatedPolygonArea, NothingHasNoArea) {
    const unsigned int counts[] = {4};
    const unsigned int zero[] = {0, 0};
    EXPECT_EQ(TriangulatedPolygonArea(nullptr, 4), 0.0);
    EXPECT_EQ(TriangulatedPolygonArea(SQUARE.data(), 0), 0.0);
    EXPECT_EQ(TriangulatedPolygonArea(SQUARE.data(), 1), 0.0);
    EXPECT_EQ(TriangulatedPolygonArea(SQUARE.data(), 2), 0.0);
    EXPECT_EQ(TriangulatedPolygonArea(nullptr, counts, 1), 0.0);
    EXPECT_EQ(TriangulatedPolygonArea(SQUARE.data(), nullptr, 1), 0.0);
    EXPECT_EQ(TriangulatedPolygonArea(SQUARE.data(), counts, 0), 0.0);
    EXPECT_EQ(TriangulatedPolygonArea(SQUARE.data(), zero, 2), 0.0);
}

TEST(TriangulatedPolygonArea, EqualsTheSignedAreaOfSimpleRings) {
    std::mt19937 random(304);
    std::cout << "seed 304\n";
    std::uniform_real_distribution<double> radius(1.0, 10.0);
    for (int run = 0; run < 300; ++run) {
        const std::size_t n = 3 + random() % 60;
        Points star(n);
        for (std::size_t i = 0; i < n; ++i) {
            const double angle = kit::TWO_PI * static_cast<double>(i) / static_cast<double>(n);
            star[i] = radius(random) * Vec2d(std::cos(angle), std::sin(angle));
        }
        const double area = PolygonArea(star.data(), n);
        EXPECT_NEAR(TriangulatedPolygonArea(star.data(), n), area, area * 1e-12);
    }
}

TEST(TriangulatedPolygonArea, FailedAllocationsPass) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap is not ours";
    }
    std::size_t failures = 0;
    for (std::size_t k = 0;; ++k) {
        const AllocationProbe probe(k);
        try {
            EXPECT_EQ(TriangulatedPolygonArea(SQUARE.data(), 4), 1.0);
        } catch (const Exception&) {
            ++failures;
        } catch (const std::bad_alloc&) {
            ++failures;
        }
        if (!probe.Failed()) {
            break;
        }
        ASSERT_LT(k, 1000U);
    }
    EXPECT_GE(failures, 5U);
}

// ---- rectangle against polygon -------------------------------------------------------------

bool Overlap(const Box2d& box, const Points& ring) {
    return RectPolyIntersect(box, ring.data(), ring.size());
}

TEST(RectPolyIntersect, Situations) {
    const Points triangle = {{0, 0}, {10, 0}, {10, 10}};
    const Points closed = Joined(triangle, {{0, 0}});
    const struct {
        const char* name;
        Box2d box;
        Points ring;
        bool overlap;
    } rows[] = {
        {"box inside a large polygon", {8, 1, 9, 2}, triangle, true},
        {"polygon inside the box", {-5, -5, 15, 15}, triangle, true},
        {"apart", {20, 20, 21, 21}, triangle, false},
        {"apart beside the slanted edge", {1, 8, 2, 9}, triangle, false},
        {"edge through the left side", {9, 4, 12, 6}, {{0, 5}, {10, 5}, {0, 6}}, true},
        {"edge through the right side", {-2, 4, 1, 6}, {{0.5, 5}, {10, 5}, {0.5, 9}}, true},
        {"edge through the bottom side", {4, 1, 6, 3}, {{5, 0}, {5, 2}, {9, 0}}, true},
        {"edge through the top side", {4, 1, 6, 3}, {{5, 4}, {5, 2}, {9, 4}}, true},
        {"edge through the whole box", {4, 1, 6, 3}, {{0, 2}, {10, 2}, {5, -9}}, true},
        {"closing edge alone is missed", {4, 5, 6, 7}, triangle, false},
        {"closing edge repeated is found", {4, 5, 6, 7}, closed, true},
        {"crossing at a corner alone", {5, 5, 7, 7}, {{4, 6}, {6, 4}, {3, 3}}, false},
        {"polygon starts on the box's border", {0, 0, 1, 1}, {{1, 1}, {2, 1}, {2, 2}}, true},
        {"point box inside", {8, 1, 8, 1}, triangle, true},
        {"point box on the right edge", {10, 5, 10, 5}, triangle, false},
        {"point box on the first vertex", {0, 0, 0, 0}, SQUARE, true},
        {"one vertex in the box", {0, 0, 2, 2}, {{2, 2}}, true},
        {"one vertex outside", {0, 0, 2, 2}, {{3, 2}}, false},
        {"no vertex", {0, 0, 2, 2}, {}, false},
        {"no vertex, point box", {0, 0, 0, 0}, {}, false},
        {"two vertices across", {0, 0, 2, 2}, {{-1, 1}, {3, 1}}, true},
        {"no numbers", {0, 0, 2, 2}, {{NOT_A_NUMBER, 1}, {3, NOT_A_NUMBER}}, false},
        {"box of no numbers", {NOT_A_NUMBER, 0, 2, 2}, triangle, false},
        {"infinite edge", {0, 0, 2, 2}, {{-INFINITE, 1}, {INFINITE, 1}}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Overlap(row.box, row.ring), row.overlap);
    }
    EXPECT_FALSE(RectPolyIntersect({0, 0, 1, 1}, nullptr, 4));
}

TEST(RectPolyIntersect, SideTestsAreHalfOpenInTheEdgesExtent) {
    // A side is crossed by an edge that ends on it from the smaller side, not by one that only
    // begins there towards the larger.
    EXPECT_TRUE(Overlap({0, 0, 2, 2}, {{-3, 0}, {0, 1}, {-3, 2}})) << "ends on the side";
    EXPECT_FALSE(Overlap({0, 0, 2, 2}, {{5, 0}, {2, 1}, {5, 2}}))
        << "starts on the right side, all of it to the right";
}

TEST(RectPolyIntersect, AgreesWithProbesOnClosedRings) {
    // Whatever has a common point in its interiors must be reported when the ring is closed
    // explicitly, except where edges pass through corners only; so coordinates are drawn where
    // that cannot happen.
    std::mt19937 random(305);
    std::cout << "seed 305\n";
    std::uniform_real_distribution<double> coordinate(0.0, 10.0);
    std::size_t overlaps = 0;
    std::size_t apart = 0;
    for (int run = 0; run < 3000; ++run) {
        Points ring(3 + random() % 4);
        for (Vec2d& p : ring) {
            p = {coordinate(random), coordinate(random)};
        }
        ring.push_back(ring[0]);
        Box2d box(coordinate(random), coordinate(random), coordinate(random), coordinate(random));
        box.Normalize();
        bool common = false;
        for (int i = 1; i < 20 && !common; ++i) {
            for (int j = 1; j < 20 && !common; ++j) {
                common = Inside(Vec2d(box.minX + (box.maxX - box.minX) * i / 20,
                                      box.minY + (box.maxY - box.minY) * j / 20),
                                ring);
            }
        }
        const bool reported = Overlap(box, ring);
        if (common) {
            EXPECT_TRUE(reported);
            ++overlaps;
        }
        apart += !reported;
    }
    std::cout << overlaps << " overlaps, " << apart << " apart\n";
    EXPECT_GE(overlaps, 500U);
    EXPECT_GE(apart, 500U);
}

} // namespace
} // namespace geom
