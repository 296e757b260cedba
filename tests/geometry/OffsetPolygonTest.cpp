// SPDX-License-Identifier: MIT
#include "geometry/OffsetPolygon.h"

#include "geometry/PolygonMeasures.h"
#include "tests/reference/PlainRings.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/LeaksAllowed.h"
#include "tests/support/RingPolygons.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <limits>
#include <new>
#include <random>

namespace geom {
namespace {

using test::AllocationProbe;
using test::Box;
using test::DistanceToBoundary;
using test::ExpectError;
using test::Joined;
using test::LeaksAllowed;
using test::Raw;
using test::Reversed;

using Points = std::vector<Vec2d>;
using Counts = std::vector<unsigned int>;

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double ARC_STEP = 10 * kit::DEG_TO_RAD;

Polygon2 Ring(const Points& points) {
    return Raw(points, {static_cast<unsigned int>(points.size())});
}

Points Regular(int n, double radius, double turn = 0.0) {
    Points ring;
    for (int i = 0; i < n; ++i) {
        const double angle = turn + kit::TWO_PI * i / n;
        ring.push_back(radius * Vec2d(std::cos(angle), std::sin(angle)));
    }
    return ring;
}

Polygon2 Offset(const Polygon2& in, double distance) {
    Polygon2 out;
    OffsetPolygon(in, distance, out);
    return out;
}

// What an inscribed arc of a turn covers, for radius 1: full steps and a rest.
double ArcSector(double turn) {
    const double steps = std::floor(turn / ARC_STEP);
    return 0.5 * (steps * std::sin(ARC_STEP) + std::sin(turn - steps * ARC_STEP));
}

// The area of a convex ring grown by a distance, its corners rounded by inscribed arcs.
double GrownArea(const Points& ring, double distance) {
    double area = PolygonArea(ring.data(), ring.size()) +
                  PolygonPerimeter(ring.data(), ring.size()) * distance;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vec2d e1 = ring[(i + 1) % ring.size()] - ring[i];
        const Vec2d e2 = ring[(i + 2) % ring.size()] - ring[(i + 1) % ring.size()];
        const double turn = std::atan2(e1.x * e2.y - e1.y * e2.x, e1.Dot(e2));
        area += ArcSector(turn) * distance * distance;
    }
    return area;
}

// The convex hull, counter-clockwise (Andrew, 1979).
Points Hull(Points points) {
    std::sort(points.begin(), points.end(),
              [](Vec2d a, Vec2d b) { return a.x < b.x || (a.x == b.x && a.y < b.y); });
    Points hull;
    for (int pass = 0; pass < 2; ++pass) {
        const std::size_t base = hull.size();
        for (const Vec2d& p : points) {
            while (hull.size() >= base + 2) {
                const Vec2d a = hull[hull.size() - 2];
                const Vec2d b = hull.back();
                if ((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x) > 0) {
                    break;
                }
                hull.pop_back();
            }
            hull.push_back(p);
        }
        hull.pop_back();
        std::reverse(points.begin(), points.end());
    }
    return hull;
}

// How far the farthest vertex lies outside a polygon.
double Excess(const Polygon2& polygon, const Polygon2& around) {
    double most = 0.0;
    for (const Vec2d& p : polygon.Points()) {
        if (!PointInPolygon(p, around)) {
            most = std::max(most, DistanceToBoundary(around, p));
        }
    }
    return most;
}

TEST(OffsetPolygon, EmptyInputGivesEmptyOutput) {
    for (const Polygon2& nothing :
         {Polygon2(), Raw({}, {0}), Raw({{1, 1}}, {}), Ring({{1, 1}}), Ring({{1, 1}, {2, 2}})}) {
        for (const double distance : {1.0, -1.0, 0.0}) {
            Polygon2 out = Ring(Box(0, 0, 1, 1));
            OffsetPolygon(nothing, distance, out);
            EXPECT_TRUE(out.Points().empty());
            EXPECT_TRUE(out.Counts().empty());
        }
    }
}

TEST(OffsetPolygon, GrownSquareIsRounded) {
    const Polygon2 grown = Offset(Ring(Box(0, 0, 1, 1)), 1);
    ASSERT_EQ(grown.Counts().size(), 1U);
    EXPECT_NEAR(PolygonArea(grown), 1 + 4 + 36 * 0.5 * std::sin(ARC_STEP), 1e-12);
    for (const Vec2d& p : grown.Points()) {
        const double dx = std::max({0.0 - p.x, p.x - 1.0, 0.0});
        const double dy = std::max({0.0 - p.y, p.y - 1.0, 0.0});
        EXPECT_NEAR(std::hypot(dx, dy), 1.0, 1e-14);
    }
}

TEST(OffsetPolygon, ShrunkSquareKeepsItsCorners) {
    const Polygon2 shrunk = Offset(Ring(Box(0, 0, 1, 1)), -0.25);
    ASSERT_EQ(shrunk.Counts(), Counts{4});
    EXPECT_NEAR(PolygonArea(shrunk), 0.25, 1e-6);
    for (const Vec2d& p : shrunk.Points()) {
        EXPECT_NEAR(std::fabs(p.x - 0.5), 0.25, 1e-7);
        EXPECT_NEAR(std::fabs(p.y - 0.5), 0.25, 1e-7);
    }
}

TEST(OffsetPolygon, GrownConvexPolygonsHaveTheAreaOfTheRoundedOnes) {
    std::mt19937 random(501);
    std::cout << "seed 501\n";
    std::uniform_real_distribution<double> coordinate(0.0, 100.0);
    double worst = 0.0;
    double worstArcLoss = 0.0;
    for (int run = 0; run < 500; ++run) {
        Points cloud(3 + random() % 40);
        for (Vec2d& p : cloud) {
            p = {coordinate(random), coordinate(random)};
        }
        const Points ring = Hull(cloud);
        const double d = std::pow(10.0, -2 + 4 * coordinate(random) / 100);
        const Polygon2 grown = Offset(Ring(ring), d);
        EXPECT_EQ(grown.Counts().size(), 1U);
        const double area = PolygonArea(grown);
        const double expected = GrownArea(ring, d);
        worst = std::max(worst, std::fabs(area - expected) / expected);
        const double round = PolygonArea(ring.data(), ring.size()) +
                             PolygonPerimeter(ring.data(), ring.size()) * d + kit::PI * d * d;
        EXPECT_LE(area, round * (1 + 1e-12));
        worstArcLoss = std::max(worstArcLoss, (round - area) / (kit::PI * d * d));
    }
    std::cout << "500 convex polygons: relative difference of the areas at most " << worst
              << ", arcs lose at most " << worstArcLoss << " of the disc\n";
    EXPECT_LE(worst, 1e-9);
    EXPECT_LE(worstArcLoss, 1 - std::sin(ARC_STEP) / ARC_STEP + 1e-9);
}

// Shrinks and grows again; returns how far the result reaches out of the original, in units of
// the distance, beyond the precision of crossings.
class Opening {
public:
    void Run(const Points& ring, double distance) {
        const Polygon2 original = Ring(ring);
        const Polygon2 opened = Offset(Offset(original, -distance), distance);
        double magnitude = 0.0;
        for (const Vec2d& p : ring) {
            magnitude = std::max({magnitude, std::fabs(p.x), std::fabs(p.y)});
        }
        m_compared += !opened.empty();
        const double excess = Excess(opened, original);
        m_excess = std::max(m_excess, excess / magnitude);
        m_arcExcess = std::max(m_arcExcess, (excess - PRECISION * magnitude) / distance);
    }
    std::size_t Compared() const { return m_compared; }
    double RelativeToCoordinates() const { return m_excess; }
    double RelativeToDistance() const { return m_arcExcess; }

    static constexpr double PRECISION = 1e-7;

private:
    std::size_t m_compared = 0;
    double m_excess = 0.0;
    double m_arcExcess = 0.0;
};

TEST(OffsetPolygon, ShrinkingAndGrowingAConvexPolygonStaysInside) {
    std::mt19937 random(502);
    std::cout << "seed 502\n";
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    Opening opening;
    for (int run = 0; run < 1000; ++run) {
        Points cloud(3 + random() % 40);
        const Vec2d shift(run % 2 * 1e4, run % 3 * -1e3);
        for (Vec2d& p : cloud) {
            p = shift + Vec2d(100 * unit(random), 100 * unit(random));
        }
        opening.Run(Hull(cloud), 0.1 + 20 * unit(random));
    }
    std::cout << opening.Compared() << " polygons: farthest point outside "
              << opening.RelativeToCoordinates() << " of the coordinates\n";
    EXPECT_LE(opening.RelativeToCoordinates(), Opening::PRECISION);
    EXPECT_GE(opening.Compared(), 700U);
}

TEST(OffsetPolygon, ShrinkingAndGrowingAConcavePolygonStaysInsideButForTheArcs) {
    // Around a concave corner the shrunk outline is an arc of chords, which come nearer to the
    // corner than the distance; grown back, they reach beyond the corner by as much.
    std::mt19937 random(504);
    std::cout << "seed 504\n";
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    Opening opening;
    for (int run = 0; run < 300; ++run) {
        const int n = 4 + static_cast<int>(random() % 30);
        Points star;
        for (int i = 0; i < n; ++i) {
            const double angle = kit::TWO_PI * i / n;
            star.push_back((100 - 80 * unit(random)) * Vec2d(std::cos(angle), std::sin(angle)));
        }
        opening.Run(star, 1 + 14 * unit(random));
    }
    std::cout << opening.Compared() << " polygons: farthest point outside "
              << opening.RelativeToDistance() << " of the distance\n";
    EXPECT_LE(opening.RelativeToDistance(), 1 - std::cos(ARC_STEP / 2));
    EXPECT_GE(opening.Compared(), 200U);
}

TEST(OffsetPolygon, HolesShrinkWhenThePolygonGrows) {
    const Polygon2 frame = Raw(Joined(Box(0, 0, 10, 10), Reversed(Box(3, 3, 7, 7))), {4, 4});
    const Polygon2 grown = Offset(frame, 1);
    ASSERT_EQ(grown.Counts().size(), 2U);
    EXPECT_NEAR(PolygonArea(grown), GrownArea(Box(0, 0, 10, 10), 1) - 4, 1e-5);
    const Polygon2 shrunk = Offset(frame, -1);
    ASSERT_EQ(shrunk.Counts().size(), 2U);
    EXPECT_NEAR(PolygonArea(shrunk), 64 - GrownArea(Box(3, 3, 7, 7), 1), 1e-5);
}

TEST(OffsetPolygon, HoleVanishesWhenThePolygonGrowsOverIt) {
    const Polygon2 frame = Raw(Joined(Box(0, 0, 10, 10), Reversed(Box(3, 3, 7, 7))), {4, 4});
    const Polygon2 grown = Offset(frame, 2.5);
    EXPECT_EQ(grown.Counts().size(), 1U);
    EXPECT_NEAR(PolygonArea(grown), GrownArea(Box(0, 0, 10, 10), 2.5), 1e-6);
}

TEST(OffsetPolygon, FrameVanishesWhenItShrinksBeyondItsWidth) {
    const Polygon2 frame = Raw(Joined(Box(0, 0, 10, 10), Reversed(Box(3, 3, 7, 7))), {4, 4});
    EXPECT_TRUE(Offset(frame, -2).empty());
    EXPECT_TRUE(Offset(Ring(Box(0, 0, 1, 1)), -0.5).empty());
    EXPECT_TRUE(Offset(Ring(Box(0, 0, 1, 1)), -0.75).empty());
    EXPECT_TRUE(Offset(Ring(Box(0, 0, 1, 1)), -10).empty());
}

TEST(OffsetPolygon, TouchingAndNearRingsGrowTogether) {
    const Polygon2 touching = Raw(Joined(Box(0, 0, 2, 2), Box(2, 0, 4, 2)), {4, 4});
    EXPECT_EQ(Offset(touching, 0.5).Counts().size(), 1U);
    EXPECT_NEAR(PolygonArea(Offset(touching, 0.5)), GrownArea(Box(0, 0, 4, 2), 0.5), 1e-6);
    const Polygon2 corners = Raw(Joined(Box(0, 0, 2, 2), Box(2, 2, 4, 4)), {4, 4});
    EXPECT_EQ(Offset(corners, 0.5).Counts().size(), 1U);
    const Polygon2 near = Raw(Joined(Box(0, 0, 2, 2), Box(2.5, 0, 4, 2)), {4, 4});
    EXPECT_EQ(Offset(near, 0.2).Counts().size(), 2U);
    EXPECT_EQ(Offset(near, 0.3).Counts().size(), 1U);
}

TEST(OffsetPolygon, ShrinkingCutsTheNeck) {
    // Two squares joined by a neck of width 1.
    const Polygon2 dumbbell = Ring({{0, 0},
                                    {4, 0},
                                    {4, 1.5},
                                    {6, 1.5},
                                    {6, 0},
                                    {10, 0},
                                    {10, 4},
                                    {6, 4},
                                    {6, 2.5},
                                    {4, 2.5},
                                    {4, 4},
                                    {0, 4}});
    EXPECT_EQ(Offset(dumbbell, -0.4).Counts().size(), 1U);
    const Polygon2 cut = Offset(dumbbell, -0.6);
    ASSERT_EQ(cut.Counts().size(), 2U);
    EXPECT_NEAR(PolygonArea(cut), 2 * 2.8 * 2.8, 0.2)
        << "the corners of the neck are rounded into the squares";
    EXPECT_LE(Excess(cut, dumbbell), 0.0);
}

TEST(OffsetPolygon, ConcaveChainIsFollowedAtTheDistance) {
    const Polygon2 comb = Ring({{0, 0},
                                {10, 0},
                                {10, 5},
                                {8, 5},
                                {8, 1},
                                {6, 1},
                                {6, 5},
                                {4, 5},
                                {4, 1},
                                {2, 1},
                                {2, 5},
                                {0, 5}});
    const Polygon2 grown = Offset(comb, 0.5);
    ASSERT_EQ(grown.Counts().size(), 1U);
    for (const Vec2d& p : grown.Points()) {
        EXPECT_FALSE(PointInPolygon(p, comb));
        EXPECT_NEAR(DistanceToBoundary(comb, p), 0.5, 1e-6);
    }
    EXPECT_EQ(Offset(comb, 1.5).Counts().size(), 1U) << "the gaps close";
    const Polygon2 shrunk = Offset(comb, -0.4);
    ASSERT_EQ(shrunk.Counts().size(), 1U);
    for (const Vec2d& p : shrunk.Points()) {
        EXPECT_TRUE(PointInPolygon(p, comb));
        EXPECT_GE(DistanceToBoundary(comb, p), 0.4 - 1e-6);
    }
    EXPECT_EQ(Offset(comb, -0.6).Counts().size(), 3U) << "the bar goes, the teeth stay";
}

TEST(OffsetPolygon, DistancesOfProbesDecideMembership) {
    std::mt19937 random(503);
    std::cout << "seed 503\n";
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::size_t probes = 0;
    std::size_t differences = 0;
    for (int run = 0; run < 200; ++run) {
        Points star;
        for (int i = 0; i < 12; ++i) {
            const double angle = kit::TWO_PI * i / 12;
            star.push_back((40 + 60 * unit(random)) * Vec2d(std::cos(angle), std::sin(angle)));
        }
        const Polygon2 original = Ring(star);
        for (const double d : {8.0, -8.0}) {
            const Polygon2 moved = Offset(original, d);
            for (int k = 0; k < 200; ++k) {
                const Vec2d p(250 * unit(random) - 125, 250 * unit(random) - 125);
                const bool inside = PointInPolygon(p, original);
                const double signedDistance = DistanceToBoundary(original, p) * (inside ? -1 : 1);
                // Arcs fall short of the distance by 0.4 % of it.
                if (std::fabs(signedDistance - d) < 0.05) {
                    continue;
                }
                ++probes;
                differences += PointInPolygon(p, moved) != (signedDistance < d);
            }
        }
    }
    std::cout << probes << " probes, " << differences << " differences\n";
    EXPECT_EQ(differences, 0U);
    EXPECT_GE(probes, 70000U);
}

TEST(OffsetPolygon, ClockwiseRingAloneOffsetsToNothing) {
    EXPECT_TRUE(Offset(Ring(Reversed(Box(0, 0, 1, 1))), 1).empty());
    EXPECT_TRUE(Offset(Ring(Reversed(Box(0, 0, 1, 1))), -0.1).empty());
}

TEST(OffsetPolygon, HoleWoundLikeItsOuterRingIsFilled) {
    const Polygon2 frame = Raw(Joined(Box(0, 0, 10, 10), Box(3, 3, 7, 7)), {4, 4});
    const Polygon2 grown = Offset(frame, 1);
    EXPECT_EQ(grown.Counts().size(), 1U);
    EXPECT_NEAR(PolygonArea(grown), GrownArea(Box(0, 0, 10, 10), 1), 1e-9);
}

TEST(OffsetPolygon, ShrunkFarBeyondItsWidthARegularPolygonLeavesSpuriousRings) {
    EXPECT_TRUE(Offset(Ring(Regular(100, 1)), -1.01).empty());
    const Polygon2 spurious = Offset(Ring(Regular(100, 1)), -10);
    EXPECT_FALSE(spurious.empty());
    EXPECT_LE(PolygonArea(spurious), 0.1);
}

TEST(OffsetPolygon, SelfIntersectionsAreRemovedFirst) {
    const Polygon2 twice = Raw(Joined(Box(0, 0, 2, 2), Box(1, 1, 3, 3)), {4, 4});
    const Polygon2 grown = Offset(twice, 0.25);
    EXPECT_EQ(grown.Counts().size(), 1U);
    EXPECT_NEAR(PolygonArea(grown),
                7 + 12 * 0.25 + 6 * 9 * 0.5 * std::sin(ARC_STEP) * 0.0625 - 2 * 0.0625, 1e-6)
        << "six rounded corners, two with the edges overlapping";
}

TEST(OffsetPolygon, DistanceZeroOnlyCleans) {
    const Polygon2 frame = Raw(Joined(Box(0, 0, 10, 10), Reversed(Box(3, 3, 7, 7))), {4, 4});
    for (const double zero : {0.0, -0.0}) {
        const Polygon2 same = Offset(frame, zero);
        EXPECT_EQ(same.Counts(), (Counts{4, 4}));
        EXPECT_EQ(PolygonArea(same), 84.0);
    }
}

TEST(OffsetPolygon, OutputMayBeTheInput) {
    Polygon2 polygon = Ring(Box(0, 0, 1, 1));
    const Polygon2 expected = Offset(polygon, 1);
    OffsetPolygon(polygon, 1, polygon);
    EXPECT_EQ(polygon.Points(), expected.Points());
    EXPECT_EQ(polygon.Counts(), expected.Counts());
}

TEST(OffsetPolygon, WhenAStageFailsTheOutputIsUnchanged) {
    const struct {
        const char* name;
        double coordinate;
        double distance;
    } rows[] = {
        {"coordinate that is no number", NOT_A_NUMBER, 1},
        {"infinite coordinate", INFINITE, 1},
        {"coordinate too large at first", 1e151, 1},
        {"coordinate too large after the move", 1, 1e151},
        {"distance that is no number", 1, NOT_A_NUMBER},
        {"infinite distance", 1, INFINITE},
        {"infinite distance inwards", 1, -INFINITE},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Polygon2 in = Ring({{0, 0}, {1, 0}, {row.coordinate, 1}, {0, 1}});
        Polygon2 out = Ring(Box(5, 5, 6, 6));
        ExpectError([&] { OffsetPolygon(in, row.distance, out); }, "Geometry",
                    "RemoveSelfIntersections", 53, "a coordinate is too large");
        EXPECT_EQ(out.Points(), Box(5, 5, 6, 6));
        EXPECT_EQ(out.Counts(), Counts{4});
        Polygon2 same = in;
        ExpectError([&] { OffsetPolygon(same, row.distance, same); }, "Geometry",
                    "RemoveSelfIntersections", 53);
        EXPECT_EQ(same.Points().size(), 4U);
        EXPECT_EQ(same.Points()[1], Vec2d(1, 0));
        EXPECT_EQ(same.Counts(), Counts{4});
    }
}

TEST(OffsetPolygon, FailedAllocationLeavesTheOutputUnchanged) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap is not ours";
    }
    const Points frame = Joined(Box(0, 0, 10, 10), Reversed(Box(3, 3, 7, 7)));
    std::size_t failures = 0;
    testing::internal::CaptureStderr();
    for (std::size_t k = 0;; ++k) {
        Polygon2 polygon = Raw(frame, {4, 4});
        bool failed = false;
        {
            const LeaksAllowed leaks; // the tessellator's own
            const AllocationProbe probe(k);
            try {
                OffsetPolygon(polygon, 1, polygon);
            } catch (const std::bad_alloc&) {
                failed = true;
            } catch (const Exception&) {
                failed = true;
            }
            EXPECT_EQ(probe.Failed(), failed);
        }
        if (!failed) {
            break;
        }
        ++failures;
        EXPECT_EQ(polygon.Points(), frame);
        EXPECT_EQ(polygon.Counts(), (Counts{4, 4}));
    }
    testing::internal::GetCapturedStderr();
    EXPECT_GE(failures, 50U);
}

} // namespace
} // namespace geom
