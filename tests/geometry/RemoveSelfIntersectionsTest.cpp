// SPDX-License-Identifier: MIT
#include "geometry/RemoveSelfIntersections.h"

#include "geometry/PolygonMeasures.h"
#include "tests/reference/PlainRings.h"
#include "tests/support/Exceptions.h"
#include "tests/support/RingPolygons.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <limits>
#include <random>
#include <thread>

namespace geom {
namespace {

using test::Box;
using test::DistanceToBoundary;
using test::ExpectError;
using test::Joined;
using test::Raw;
using test::Reversed;

using Points = std::vector<Vec2d>;
using Counts = std::vector<unsigned int>;

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

constexpr unsigned int ODD = 100130;
constexpr unsigned int NONZERO = 100131;
constexpr unsigned int POSITIVE = 100132;
constexpr unsigned int NEGATIVE = 100133;
constexpr unsigned int ABS_GEQ_TWO = 100134;

Polygon2 Cleaned(const Polygon2& in, unsigned int rule,
                 RSI_NormalDir normal = RSI_NORMAL_POSITIVE_Z) {
    Polygon2 out;
    RemoveSelfIntersections(in, out, rule, normal);
    return out;
}

// The ring's points from its smallest on, to compare rings whatever point they start with.
Points FromSmallest(const Points& ring) {
    const auto first = std::min_element(ring.begin(), ring.end(), [](Vec2d a, Vec2d b) {
        return a.x < b.x || (a.x == b.x && a.y < b.y);
    });
    Points turned(first, ring.end());
    turned.insert(turned.end(), ring.begin(), first);
    return turned;
}

int Winding(const Polygon2& polygon, const Vec2d& p) {
    int winding = 0;
    const Vec2d* ring = polygon.Points().data();
    for (const unsigned int n : polygon.Counts()) {
        winding += test::PlainWindingNumber(p, ring, n);
        ring += n;
    }
    return winding;
}

bool Selects(unsigned int rule, int winding) {
    switch (rule) {
    case ODD: return winding % 2 != 0;
    case NONZERO: return winding != 0;
    case POSITIVE: return winding > 0;
    case NEGATIVE: return winding < 0;
    default: return std::abs(winding) >= 2;
    }
}

TEST(RemoveSelfIntersections, FigureEightBecomesItsTwoLobes) {
    const Polygon2 out = Cleaned(Raw({{0, 0}, {2, 2}, {2, 0}, {0, 2}}, {4}), ODD);
    ASSERT_EQ(out.Counts(), (Counts{3, 3}));
    std::vector<Points> lobes = {FromSmallest({out.Points().begin(), out.Points().begin() + 3}),
                                 FromSmallest({out.Points().begin() + 3, out.Points().end()})};
    std::sort(lobes.begin(), lobes.end(),
              [](const Points& a, const Points& b) { return a[0].x < b[0].x; });
    EXPECT_EQ(lobes[0], (Points{{0, 0}, {1, 1}, {0, 2}}));
    EXPECT_EQ(lobes[1], (Points{{1, 1}, {2, 0}, {2, 2}}));
}

TEST(RemoveSelfIntersections, OverlappingSquaresBecomeOneOutline) {
    const Polygon2 out = Cleaned(Raw(Joined(Box(0, 0, 2, 2), Box(1, 1, 3, 3)), {4, 4}), NONZERO);
    ASSERT_EQ(out.Counts(), (Counts{8}));
    EXPECT_EQ(FromSmallest(out.Points()),
              (Points{{0, 0}, {2, 0}, {2, 1}, {3, 1}, {3, 3}, {1, 3}, {1, 2}, {0, 2}}));
}

TEST(RemoveSelfIntersections, EmptyInputGivesEmptyOutput) {
    for (const Polygon2& nothing : {Polygon2(), Raw({}, {0, 0}), Raw({{1, 1}}, {}), Raw({}, {4})}) {
        Polygon2 out = Raw(Box(0, 0, 1, 1), {4});
        RemoveSelfIntersections(nothing, out, ODD, RSI_NORMAL_POSITIVE_Z);
        EXPECT_TRUE(out.Points().empty());
        EXPECT_TRUE(out.Counts().empty());
    }
}

TEST(RemoveSelfIntersections, RingsWithoutAreaVanish) {
    for (const Points& ring : {Points{{1, 1}}, Points{{1, 1}, {2, 2}},
                               Points{{1, 1}, {1, 1}, {1, 1}}, Points{{0, 0}, {1, 1}, {2, 2}}}) {
        for (unsigned int rule = ODD; rule <= ABS_GEQ_TWO; ++rule) {
            EXPECT_TRUE(Cleaned(Raw(ring, {static_cast<unsigned int>(ring.size())}), rule).empty());
        }
    }
}

TEST(RemoveSelfIntersections, SimpleRingKeepsItsPointsAndTurnsCounterClockwise) {
    const Points square = Box(0, 0, 1, 1);
    for (const Points& ring : {square, Reversed(square)}) {
        const Polygon2 out = Cleaned(Raw(ring, {4}), ODD);
        ASSERT_EQ(out.Counts(), Counts{4});
        EXPECT_EQ(FromSmallest(out.Points()), square);
    }
}

TEST(RemoveSelfIntersections, NegativeNormalTurnsWindingNumbersAndRings) {
    const Polygon2 square = Raw(Box(0, 0, 1, 1), {4});
    EXPECT_TRUE(Cleaned(square, POSITIVE, RSI_NORMAL_NEGATIVE_Z).empty());
    EXPECT_TRUE(Cleaned(square, NEGATIVE, RSI_NORMAL_POSITIVE_Z).empty());
    const Polygon2 out = Cleaned(square, NEGATIVE, RSI_NORMAL_NEGATIVE_Z);
    ASSERT_EQ(out.Counts(), Counts{4});
    EXPECT_EQ(out.RingOrientation(0), Polygon2::Clockwise);
    EXPECT_EQ(Cleaned(square, ODD, RSI_NORMAL_NEGATIVE_Z).RingOrientation(0), Polygon2::Clockwise);
}

TEST(RemoveSelfIntersections, HolesRunClockwise) {
    const Points rings = Joined(Box(0, 0, 10, 10), Box(3, 3, 7, 7));
    const Polygon2 out = Cleaned(Raw(rings, {4, 4}), ODD);
    ASSERT_EQ(out.Counts(), (Counts{4, 4}));
    EXPECT_EQ(PolygonArea(out), 84.0);
    EXPECT_EQ(Cleaned(Raw(rings, {4, 4}), POSITIVE).Counts(), Counts{4})
        << "a hole wound like its outer ring is filled";
    EXPECT_EQ(PolygonArea(Cleaned(Raw(rings, {4, 4}), ABS_GEQ_TWO)), 16.0);
}

TEST(RemoveSelfIntersections, OutputMayBeTheInput) {
    Polygon2 polygon = Raw(Joined(Box(0, 0, 2, 2), Box(1, 1, 3, 3)), {4, 4});
    const Polygon2 expected = Cleaned(polygon, NONZERO);
    RemoveSelfIntersections(polygon, polygon, NONZERO, RSI_NORMAL_POSITIVE_Z);
    EXPECT_EQ(polygon.Points(), expected.Points());
    EXPECT_EQ(polygon.Counts(), expected.Counts());
}

TEST(RemoveSelfIntersections, CountsThatDoNotAddUpAreCutShortOrLeaveTheRest) {
    EXPECT_EQ(PolygonArea(Cleaned(Raw(Box(0, 0, 1, 1), {4000000000U, 5}), ODD)), 1.0);
    const Points rings = Joined(Box(0, 0, 1, 1), Points(3, Vec2d(NOT_A_NUMBER, 0)));
    EXPECT_EQ(PolygonArea(Cleaned(Raw(rings, {4}), ODD)), 1.0)
        << "points beyond the counts are not looked at";
}

TEST(RemoveSelfIntersections, UnknownWindingRuleIsAnError) {
    Polygon2 out = Raw(Box(0, 0, 1, 1), {4});
    for (const unsigned int rule : {100129U, 100135U, 0U, 4294967295U}) {
        ExpectError([&] { RemoveSelfIntersections(Polygon2(), out, rule, RSI_NORMAL_POSITIVE_Z); },
                    "Geometry", "RemoveSelfIntersections", 116);
    }
    EXPECT_EQ(out.Points(), Box(0, 0, 1, 1));
}

TEST(RemoveSelfIntersections, UnknownNormalDirectionIsAnError) {
    Polygon2 out = Raw(Box(0, 0, 1, 1), {4});
    for (const unsigned int normal : {2U, 4294967295U}) {
        ExpectError(
            [&] {
                RemoveSelfIntersections(Polygon2(), out, ODD, static_cast<RSI_NormalDir>(normal));
            },
            "Geometry", "RemoveSelfIntersections", 117);
    }
    ExpectError([&] { RemoveSelfIntersections(Polygon2(), out, 7, static_cast<RSI_NormalDir>(2)); },
                "Geometry", "RemoveSelfIntersections", 116);
    EXPECT_EQ(out.Points(), Box(0, 0, 1, 1));
}

TEST(RemoveSelfIntersections, CoordinatesThatAreTooLargeOrNoNumbersAreRefused) {
    for (const double bad : {1.1e150, -1.1e150, INFINITE, -INFINITE, NOT_A_NUMBER}) {
        for (std::size_t at = 0; at < 8; ++at) {
            Polygon2 polygon = Raw(Joined(Box(0, 0, 1, 1), Box(0, 0, 2, 2)), {4, 4});
            (at % 2 == 0 ? polygon.Points()[at].x : polygon.Points()[at].y) = bad;
            const Points before = polygon.Points();
            ExpectError(
                [&] { RemoveSelfIntersections(polygon, polygon, ODD, RSI_NORMAL_POSITIVE_Z); },
                "Geometry", "RemoveSelfIntersections", 53, "a coordinate is too large");
            EXPECT_EQ(polygon.Counts(), (Counts{4, 4}));
            EXPECT_EQ(polygon.Points().size(), before.size());
        }
    }
    EXPECT_EQ(Cleaned(Raw(Box(0, 0, 1e150, 1e150), {4}), ODD).Counts(), Counts{4});
}

TEST(RemoveSelfIntersections, RegionIsTheOneThatTheWindingRuleSelects) {
    std::mt19937 random(401);
    std::cout << "seed 401\n";
    std::uniform_real_distribution<double> coordinate(0.0, 100.0);
    std::size_t probes = 0;
    std::size_t selected = 0;
    std::size_t differences = 0;
    for (int run = 0; run < 400; ++run) {
        const bool grid = run % 2 == 0;
        Points points;
        Counts counts(1 + random() % 4);
        for (unsigned int& count : counts) {
            count = 3 + static_cast<unsigned int>(random() % 10);
            for (unsigned int i = 0; i < count; ++i) {
                const Vec2d p(coordinate(random), coordinate(random));
                points.push_back(grid ? Vec2d(std::floor(p.x / 12), std::floor(p.y / 12)) : p);
            }
        }
        const Polygon2 in = Raw(points, counts);
        const double size = grid ? 8.0 : 100.0;
        for (unsigned int rule = ODD; rule <= ABS_GEQ_TWO; ++rule) {
            const Polygon2 out = Cleaned(in, rule);
            for (int k = 0; k < 40; ++k) {
                const Vec2d p(coordinate(random) * size / 100, coordinate(random) * size / 100);
                if (DistanceToBoundary(in, p) < 1e-4 * size) {
                    continue; // closer than crossings are computed
                }
                const bool expected = Selects(rule, Winding(in, p));
                ++probes;
                selected += expected;
                differences += Winding(out, p) != (expected ? 1 : 0);
            }
        }
    }
    std::cout << probes << " probes, " << selected << " inside, " << differences
              << " differences\n";
    // Where three edges nearly meet in one point the tessellator sometimes leaves a lobe that is
    // covered twice.
    EXPECT_LE(differences, probes / 10000);
    EXPECT_GE(selected, 10000U);
}

TEST(RemoveSelfIntersections, OutputIsCleanAlready) {
    std::mt19937 random(402);
    std::cout << "seed 402\n";
    std::uniform_real_distribution<double> coordinate(0.0, 100.0);
    for (int run = 0; run < 100; ++run) {
        Points ring(20);
        for (Vec2d& p : ring) {
            p = {coordinate(random), coordinate(random)};
        }
        const Polygon2 once = Cleaned(Raw(ring, {20}), ODD);
        const Polygon2 twice = Cleaned(once, POSITIVE);
        EXPECT_NEAR(PolygonArea(twice), PolygonArea(once), 1e-2);
        double positive = 0.0;
        for (std::size_t i = 0; i < twice.Counts().size(); ++i) {
            positive += twice.RingOrientation(i) == Polygon2::CounterClockwise;
        }
        EXPECT_GE(positive, 1.0);
    }
}

TEST(RemoveSelfIntersections, ThreadsMayCallItTogether) {
    const Polygon2 in = Raw(Joined(Box(0, 0, 2, 2), Box(1, 1, 3, 3)), {4, 4});
    std::vector<std::thread> threads;
    std::vector<int> wrong(4, 0);
    for (std::size_t t = 0; t < wrong.size(); ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < 200; ++i) {
                wrong[t] += PolygonArea(Cleaned(in, NONZERO)) != 7.0;
                try {
                    Cleaned(Raw({{0, 0}, {INFINITE, 0}, {0, 1}}, {3}), ODD);
                    ++wrong[t];
                } catch (const Exception& e) {
                    wrong[t] += e.Line() != 53;
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, std::vector<int>(4, 0));
}

} // namespace
} // namespace geom
