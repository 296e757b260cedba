// SPDX-License-Identifier: MIT
#include "geometry/Curves.h"

#include "tests/support/AllocationProbe.h"

#include <boost/numeric/conversion/cast.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <stdexcept>

namespace geom {
namespace {

using kit::HALF_PI;
using kit::ONE_PI;
using kit::PI;
using kit::TWO_PI;
using test::AllocationProbe;

using Points = std::vector<Vec2d>;

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double SMALLEST = std::numeric_limits<double>::denorm_min();

Points Arc(const Vec2d& center, double radius, double start, double sweep, double step) {
    Points out;
    CircularArc(center, radius, start, sweep, out, step);
    return out;
}

void ExpectNear(const Vec2d& a, const Vec2d& b, double tolerance) {
    EXPECT_NEAR(a.x, b.x, tolerance);
    EXPECT_NEAR(a.y, b.y, tolerance);
}

// ---- circular arcs -------------------------------------------------------------------------

TEST(CircularArc, QuarterTurnInTwoStepsEndsOnTheExactPoint) {
    EXPECT_EQ(Arc({0, 0}, 1, 0, PI / 2, PI / 4), (Points{{1, 0},
                                                         {0.7071067811865476, 0.7071067811865475},
                                                         {2.220446049250313e-16, 1},
                                                         {6.123233995736766e-17, 1}}));
}

TEST(CircularArc, StepThatDoesNotDivideTheSweepLeavesAShorterRest) {
    EXPECT_EQ(Arc({0, 0}, 1, 0, PI / 2, 1.0),
              (Points{{1, 0}, {std::cos(1.0), std::sin(1.0)}, {6.123233995736766e-17, 1}}));
}

TEST(CircularArc, EndPointThatEqualsTheLastTurnedPointIsNotRepeated) {
    // One step of exactly the sweep: the turned point is computed from the same sine.
    EXPECT_EQ(Arc({0, 0}, 1, 0, 0.5, 0.5), (Points{{1, 0}, {std::cos(0.5), std::sin(0.5)}}));
}

TEST(CircularArc, ZeroSweepIsOnePoint) {
    EXPECT_EQ(Arc({3, 4}, 2, 0, 0, 0.1), (Points{{5, 4}}));
}

TEST(CircularArc, RadiusZeroIsTheCentre) {
    EXPECT_EQ(Arc({3, 4}, 0, 1, 2, 0.1), (Points{{3, 4}}));
    EXPECT_EQ(Arc({3, 4}, -0.0, 1, 2, 0), (Points{{3, 4}}));
}

TEST(CircularArc, NegativeSweepRunsClockwise) {
    const Points arc = Arc({0, 0}, 1, 0, -1.0, 0.5);
    ASSERT_GE(arc.size(), 3U);
    EXPECT_EQ(arc[1], Vec2d(std::cos(0.5), -std::sin(0.5)));
    EXPECT_EQ(arc.back(), Vec2d(std::cos(-1.0), std::sin(-1.0)));
    for (const Vec2d& p : arc) {
        EXPECT_LE(p.y, 0.0);
    }
}

TEST(CircularArc, NegativeRadiusIsMirroredAtTheCentre) {
    EXPECT_EQ(Arc({0, 0}, -2, 0, 0.5, 0.5),
              (Points{{-2, -0.0}, {-2 * std::cos(0.5), -2 * std::sin(0.5)}}));
}

TEST(CircularArc, AppendsToWhatIsThere) {
    Points out = {{9, 9}};
    CircularArc({0, 0}, 1, 0, 0, out, 1);
    EXPECT_EQ(out, (Points{{9, 9}, {1, 0}}));
}

TEST(CircularArc, CentreMayBeAnElementOfTheOutput) {
    Points out = {{10, 20}};
    out.shrink_to_fit();
    CircularArc(out[0], 1, 0, 6, out, 0.25);
    Points expected = {{10, 20}};
    CircularArc(Vec2d(10, 20), 1, 0, 6, expected, 0.25);
    EXPECT_EQ(out, expected);
}

TEST(CircularArc, PointsLieOnTheCircleAtEqualSteps) {
    const Points arc = Arc({5, -3}, 7, 0.3, TWO_PI, kit::DEG_TO_RAD);
    ASSERT_GE(arc.size(), 361U);
    for (std::size_t i = 0; i < 360; ++i) {
        const double angle = 0.3 + static_cast<double>(i) * kit::DEG_TO_RAD;
        ExpectNear(arc[i], {5 + 7 * std::cos(angle), -3 + 7 * std::sin(angle)}, 1e-13);
    }
}

TEST(CircularArc, UselessStepGivesStartAndEndOnly) {
    const Vec2d end(std::cos(1.0), std::sin(1.0));
    for (const double step :
         {0.0, -0.0, -1.0, NOT_A_NUMBER, -INFINITE, INFINITE, SMALLEST, 1.0 / 0x1p60}) {
        SCOPED_TRACE(step);
        EXPECT_EQ(Arc({0, 0}, 1, 0, 1.0, step), (Points{{1, 0}, end}));
    }
}

TEST(CircularArc, SweepThatIsNotFiniteGivesStartAndAnEndThatIsNoNumber) {
    for (const double sweep : {INFINITE, -INFINITE, NOT_A_NUMBER}) {
        const Points arc = Arc({0, 0}, 1, 0, sweep, 0.1);
        ASSERT_EQ(arc.size(), 2U);
        EXPECT_EQ(arc[0], Vec2d(1, 0));
        EXPECT_TRUE(std::isnan(arc[1].x) && std::isnan(arc[1].y));
    }
}

TEST(CircularArc, BadCentreRadiusOrStartGivesAsManyPointsThatAreNoNumbers) {
    EXPECT_EQ(Arc({NOT_A_NUMBER, 0}, 1, 0, 1, 0.25).size(), 6U);
    EXPECT_EQ(Arc({0, 0}, INFINITE, 0.1, 1, 0.25).size(), 6U);
    EXPECT_EQ(Arc({0, 0}, NOT_A_NUMBER, 0, 1, 0.25).size(), 6U);
    EXPECT_EQ(Arc({0, 0}, 1, INFINITE, 1, 0.25).size(), 6U);
}

TEST(CircularArc, ImpossibleCountFailsBeforeAnythingIsAppended) {
    Points out = {{9, 9}};
    for (const double step : {0x1p-59, 0x1p-56}) {
        if (step > 0x1p-59 && !AllocationProbe::Works()) {
            continue; // a heap that is not ours may end the program instead
        }
        bool failed = false;
        try {
            CircularArc({0, 0}, 1, 0, 1, out, step);
        } catch (const std::bad_alloc&) {
            failed = true;
        } catch (const std::length_error&) {
            failed = true;
        }
        EXPECT_TRUE(failed);
        EXPECT_EQ(out, (Points{{9, 9}}));
    }
}

TEST(CircularArc, FailedAllocationChangesNothing) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap is not ours";
    }
    for (const double radius : {1.0, 0.0}) {
        Points out = {{9, 9}};
        out.shrink_to_fit();
        {
            const AllocationProbe probe(0);
            EXPECT_THROW(CircularArc({0, 0}, radius, 0, 1, out, 0.1), std::bad_alloc);
        }
        EXPECT_EQ(out, (Points{{9, 9}}));
        const AllocationProbe probe(1);
        CircularArc({0, 0}, radius, 0, 1, out, 0.1);
        EXPECT_FALSE(probe.Failed()) << "one allocation is enough";
    }
}

TEST(CircularArc, ManyShortArcsGrowTheVectorInFewSteps) {
    Points out;
    const AllocationProbe probe;
    for (int i = 0; i < 10000; ++i) {
        CircularArc({0, 0}, 1, 0, 1, out, 0.25);
    }
    EXPECT_LE(probe.Count(), 40U);
    EXPECT_EQ(out.size(), 60000U);
}

// ---- arcs, pies and chords in a box --------------------------------------------------------

TEST(ArcToCurve, EqualDirectionsWalkAFullTurn) {
    Points out(9);
    ASSERT_TRUE(ArcToCurve({0, 0, 4, 2}, {3, 1}, {3, 1}, 9, out.data(), nullptr));
    EXPECT_EQ(out[0], Vec2d(4, 1));
    EXPECT_EQ(out[2], Vec2d(2, 2)) << "the exact top";
    ExpectNear(out[4], {0, 1}, 1e-15);
    EXPECT_EQ(out[6], Vec2d(2, 0)) << "the exact bottom";
    ExpectNear(out[8], {4, 1}, 1e-15);
    for (std::size_t i = 0; i < 9; ++i) {
        const Vec2d fromCenter = out[i] - Vec2d(2, 1);
        EXPECT_NEAR(fromCenter.x * fromCenter.x / 4 + fromCenter.y * fromCenter.y, 1.0, 1e-14);
    }
}

TEST(ArcToCurve, PointsLieWhereRaysAtEqualAnglesMeetTheEllipse) {
    Points out(50);
    ASSERT_TRUE(ArcToCurve({-6, -2, 6, 2}, {1, -1}, {-1, 0}, 50, out.data(), nullptr));
    const double start = std::atan2(-1.0, 1.0) + TWO_PI;
    const double step = (PI + TWO_PI - start) / 49;
    for (std::size_t i = 0; i < 50; ++i) {
        const double angle = start + static_cast<double>(i) * step;
        const double r =
            1 / std::sqrt(std::pow(std::cos(angle) / 6, 2) + std::pow(std::sin(angle) / 2, 2));
        if (std::fabs(std::remainder(angle - HALF_PI, TWO_PI)) > 0.01) {
            ExpectNear(out[i], {r * std::cos(angle), r * std::sin(angle)}, 1e-12);
        }
    }
}

TEST(ArcToCurve, NearTheVerticalTheExactTopIsTaken) {
    Points out(2);
    const Box2d box(0, 0, 4, 2);
    const double inside = HALF_PI - 0.00499;
    const double outside = HALF_PI - 0.00501;
    const auto direction = [](double angle) {
        return Vec2d(2 + std::cos(angle), 1 + std::sin(angle));
    };
    ASSERT_TRUE(ArcToCurve(box, direction(inside), {0, 1}, 2, out.data(), nullptr));
    EXPECT_EQ(out[0], Vec2d(2, 2));
    ASSERT_TRUE(ArcToCurve(box, direction(outside), {0, 1}, 2, out.data(), nullptr));
    EXPECT_NE(out[0].x, 2.0);
    ASSERT_TRUE(ArcToCurve(box, direction(inside + ONE_PI), {4, 1}, 2, out.data(), nullptr));
    EXPECT_EQ(out[0], Vec2d(2, 0));
}

TEST(ArcToCurve, TheVerticalIsNotSnappedInTheSecondTurn) {
    // From half a turn to a quarter past a whole one, five points a quarter apart.
    Points out(4);
    ASSERT_TRUE(ArcToCurve({-2, -1, 2, 1}, {-1, 0}, {0, 1}, 4, out.data(), nullptr));
    EXPECT_EQ(out[1], Vec2d(0, -1));
    EXPECT_NE(out[3].x, 0.0);
    ExpectNear(out[3], {0, 1}, 1e-14);
}

TEST(ArcToCurve, BothSidesOfTheSecondTurnKeepTheirSides) {
    // Starts just before a full turn, so that all angles but the first lie beyond it.
    Points out(200);
    ASSERT_TRUE(ArcToCurve({-3, -3, 3, 3}, {1, -0.001}, {1, -0.002}, 200, out.data(), nullptr));
    const double start = std::atan2(-0.001, 1.0) + TWO_PI;
    const double end = std::atan2(-0.002, 1.0) + 2 * TWO_PI;
    for (std::size_t i = 0; i < 200; ++i) {
        const double angle = start + static_cast<double>(i) * ((end - start) / 199);
        ExpectNear(out[i], {3 * std::cos(angle), 3 * std::sin(angle)}, 1e-10);
    }
}

TEST(ArcToCurve, UnusableInputGivesFalseAndWritesNothing) {
    const Box2d box(0, 0, 4, 2);
    const struct {
        const char* name;
        Box2d box;
        Vec2d start, end;
        std::size_t n;
    } rows[] = {
        {"no point", box, {3, 1}, {3, 1}, 0},
        {"one point", box, {3, 1}, {3, 1}, 1},
        {"start at the centre", box, {2, 1}, {3, 1}, 5},
        {"end at the centre", box, {3, 1}, {2, 1}, 5},
        {"no width", {1, 0, 1, 2}, {3, 1}, {4, 1}, 5},
        {"no height", {0, 1, 4, 1}, {3, 2}, {4, 2}, 5},
        {"half-axis whose square underflows", {-1e-170, -1, 1e-170, 1}, {3, 1}, {3, 2}, 5},
        {"half-axis whose square underflows", {-1, -1e-170, 1, 1e-170}, {3, 1}, {3, 2}, 5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Points out(8, Vec2d(9, 9));
        Box2d grown(7, 7, 7, 7);
        EXPECT_FALSE(ArcToCurve(row.box, row.start, row.end, row.n, out.data(), &grown));
        EXPECT_EQ(out, Points(8, Vec2d(9, 9)));
        EXPECT_EQ(grown, Box2d(7, 7, 7, 7));
    }
}

TEST(ArcToCurve, BoxIsWidenedNotReset) {
    Box2d grown(1, 1, 100, 1);
    ASSERT_TRUE(ArcToCurve({0, 0, 4, 2}, {3, 1}, {3, 1}, 9, nullptr, &grown));
    EXPECT_EQ(grown.minY, 0.0);
    EXPECT_EQ(grown.maxY, 2.0);
    EXPECT_NEAR(grown.minX, 0.0, 1e-15);
    EXPECT_EQ(grown.maxX, 100.0);
}

TEST(ArcToCurve, BoxesMayBeTheSameObject) {
    Box2d box(0, 0, 4, 2);
    Points out(9);
    ASSERT_TRUE(ArcToCurve(box, {3, 1}, {3, 1}, 9, out.data(), &box));
    Points expected(9);
    ASSERT_TRUE(ArcToCurve({0, 0, 4, 2}, {3, 1}, {3, 1}, 9, expected.data(), nullptr));
    EXPECT_EQ(out, expected);
    EXPECT_TRUE(box.Contains(Box2d(0, 0, 4, 2)));
}

TEST(ArcToCurve, DirectionsMayBeElementsOfTheOutput) {
    Points out = {{3, 1}, {2, 2}, {9, 9}};
    ASSERT_TRUE(ArcToCurve({0, 0, 4, 2}, out[0], out[1], 3, out.data(), nullptr));
    Points expected(3);
    ASSERT_TRUE(ArcToCurve({0, 0, 4, 2}, {3, 1}, {2, 2}, 3, expected.data(), nullptr));
    EXPECT_EQ(out, expected);
}

TEST(ArcToCurve, WithoutOutputsOnlyTheInputIsJudged) {
    const std::size_t most = std::numeric_limits<std::size_t>::max();
    EXPECT_TRUE(ArcToCurve({0, 0, 4, 2}, {3, 1}, {3, 1}, most, nullptr, nullptr));
    EXPECT_FALSE(ArcToCurve({0, 0, 4, 2}, {2, 1}, {3, 1}, most, nullptr, nullptr));
}

TEST(ArcToCurve, CoordinatesThatAreNotFiniteGivePointsThatAreNoNumbers) {
    Points out(5);
    Box2d grown;
    EXPECT_TRUE(ArcToCurve({0, 0, NOT_A_NUMBER, 2}, {3, 1}, {3, 2}, 5, out.data(), &grown));
    EXPECT_TRUE(std::isnan(out[1].x));
    EXPECT_TRUE(ArcToCurve({0, 0, 4, 2}, {NOT_A_NUMBER, 1}, {3, 2}, 5, out.data(), nullptr));
    EXPECT_TRUE(std::isnan(out[1].x));
    EXPECT_TRUE(ArcToCurve({-INFINITE, 0, INFINITE, 2}, {3, 1}, {3, 2}, 5, out.data(), nullptr));
}

TEST(PieToArea, LastPointsAreTheCentreAndTheFirst) {
    Points out(6);
    ASSERT_TRUE(PieToArea({0, 0, 4, 2}, {4, 1}, {2, 2}, 6, out.data(), nullptr));
    Points arc(4);
    ASSERT_TRUE(ArcToCurve({0, 0, 4, 2}, {4, 1}, {2, 2}, 4, arc.data(), nullptr));
    arc.insert(arc.end(), {{2, 1}, arc[0]});
    EXPECT_EQ(out, arc);
}

TEST(PieToArea, NeedsFourPointsAndAnOutput) {
    Points out(6, Vec2d(9, 9));
    Box2d grown(7, 7, 7, 7);
    const std::size_t most = std::numeric_limits<std::size_t>::max();
    for (std::size_t n = 0; n < 4; ++n) {
        EXPECT_FALSE(PieToArea({0, 0, 4, 2}, {4, 1}, {2, 2}, n, out.data(), &grown));
    }
    EXPECT_FALSE(PieToArea({0, 0, 4, 2}, {4, 1}, {2, 2}, 6, nullptr, &grown));
    EXPECT_FALSE(PieToArea({0, 0, 4, 2}, {4, 1}, {2, 2}, most, nullptr, &grown));
    EXPECT_FALSE(PieToArea({0, 0, 4, 2}, {2, 1}, {2, 2}, 6, out.data(), &grown));
    EXPECT_EQ(out, Points(6, Vec2d(9, 9)));
    EXPECT_EQ(grown, Box2d(7, 7, 7, 7));
    EXPECT_TRUE(PieToArea({0, 0, 4, 2}, {4, 1}, {2, 2}, 4, out.data(), nullptr));
}

TEST(PieToArea, BoxIsWidenedByTheCentreToo) {
    Points out(6);
    Box2d grown;
    ASSERT_TRUE(PieToArea({0, 0, 4, 2}, {4, 1}, {2, 2}, 6, out.data(), &grown));
    EXPECT_EQ(grown, Box2d(2, 1, 4, 2));
    Box2d same(0, 0, 4, 2);
    ASSERT_TRUE(PieToArea(same, {4, 1}, {2, 2}, 6, out.data(), &same));
    EXPECT_EQ(out[4], Vec2d(2, 1));
}

TEST(ChordToArea, LastPointIsTheFirst) {
    Points out(5);
    ASSERT_TRUE(ChordToArea({0, 0, 4, 2}, {4, 1}, {2, 2}, 5, out.data(), nullptr));
    Points arc(4);
    ASSERT_TRUE(ArcToCurve({0, 0, 4, 2}, {4, 1}, {2, 2}, 4, arc.data(), nullptr));
    arc.push_back(arc[0]);
    EXPECT_EQ(out, arc);
}

TEST(ChordToArea, NeedsThreePointsButNoOutput) {
    Points out(5, Vec2d(9, 9));
    for (std::size_t n = 0; n < 3; ++n) {
        EXPECT_FALSE(ChordToArea({0, 0, 4, 2}, {4, 1}, {2, 2}, n, out.data(), nullptr));
    }
    EXPECT_FALSE(ChordToArea({0, 0, 4, 2}, {2, 1}, {2, 2}, 5, out.data(), nullptr));
    EXPECT_EQ(out, Points(5, Vec2d(9, 9)));
    Box2d grown;
    EXPECT_TRUE(ChordToArea({0, 0, 4, 2}, {4, 1}, {2, 2}, 3, nullptr, &grown));
    EXPECT_EQ(grown, Box2d(2, 1, 4, 2));
    EXPECT_TRUE(ChordToArea({0, 0, 4, 2}, {4, 1}, {2, 2}, 3, nullptr, nullptr));
}

// ---- ellipses ------------------------------------------------------------------------------

Points Ellipse(const Box2d& box, std::size_t n) {
    Points out(4 * n + 1);
    GenerateEllipse(box, n, out.data());
    return out;
}

TEST(GenerateEllipse, OneStepPerQuadrantIsADiamond) {
    const Points out = Ellipse({-2, -1, 2, 1}, 1);
    ASSERT_EQ(out.size(), 5U);
    EXPECT_EQ(out[0], Vec2d(2, 0));
    ExpectNear(out[1], {0, 1}, 1e-15);
    EXPECT_EQ(out[2], Vec2d(-2, 0));
    ExpectNear(out[3], {0, -1}, 1e-15);
    EXPECT_EQ(out[4], Vec2d(2, 0));
}

TEST(GenerateEllipse, QuadrantsMirrorEachOtherExactly) {
    const std::size_t n = 25;
    const Points out = Ellipse({-3, -5, 3, 5}, n);
    for (std::size_t i = 0; i < n; ++i) {
        EXPECT_EQ(out[2 * n - i], Vec2d(-out[i].x, out[i].y));
    }
    for (std::size_t i = 0; i <= 2 * n; ++i) {
        EXPECT_EQ(out[4 * n - i], Vec2d(out[i].x, -out[i].y));
    }
}

TEST(GenerateEllipse, PointsAreCounterClockwiseAtEqualParameters) {
    const std::size_t n = 16;
    const Points out = Ellipse({1, 2, 9, 4}, n);
    for (std::size_t i = 0; i <= 4 * n; ++i) {
        const double angle = static_cast<double>(i) * HALF_PI / static_cast<double>(n);
        ExpectNear(out[i], {5 + 4 * std::cos(angle), 3 + std::sin(angle)}, 1e-14);
    }
}

TEST(GenerateEllipse, ReversedBoxMirrorsTheOutline) {
    const Points out = Ellipse({2, 1, -2, -1}, 1);
    EXPECT_EQ(out[0], Vec2d(-2, 0));
    ExpectNear(out[1], {0, -1}, 1e-15);
}

TEST(GenerateEllipse, NoStepsOrNoOutputWritesNothing) {
    Vec2d untouched(9, 9);
    GenerateEllipse({0, 0, 1, 1}, 0, &untouched);
    EXPECT_EQ(untouched, Vec2d(9, 9));
    GenerateEllipse({0, 0, 1, 1}, 3, nullptr);
}

TEST(GenerateEllipse, CountBeyondThirtyTwoBitsOverflows) {
    Vec2d untouched(9, 9);
    for (const std::size_t n :
         {std::size_t{0x80000000U}, std::numeric_limits<std::size_t>::max()}) {
        try {
            GenerateEllipse({0, 0, 1, 1}, n, &untouched);
            FAIL();
        } catch (const boost::numeric::positive_overflow& e) {
            EXPECT_STREQ(e.what(), "bad numeric conversion: positive overflow");
        }
    }
    EXPECT_EQ(untouched, Vec2d(9, 9));
}

TEST(GenerateEllipse, BoxThatIsNotFiniteGivesPointsThatAreNoNumbers) {
    EXPECT_TRUE(std::isnan(Ellipse({0, 0, NOT_A_NUMBER, 1}, 2)[1].x));
    EXPECT_TRUE(std::isnan(Ellipse({-INFINITE, 0, INFINITE, 1}, 2)[0].x));
}

// ---- pseudo-angles -------------------------------------------------------------------------

TEST(AngleToTheta, DiagonalsAreHalfway) {
    EXPECT_NEAR(AngleToTheta(PI / 4), 0.5, 1e-15);
    EXPECT_NEAR(AngleToTheta(3 * PI / 4), 1.5, 1e-15);
    EXPECT_NEAR(AngleToTheta(5 * PI / 4), 2.5, 1e-15);
    EXPECT_NEAR(AngleToTheta(7 * PI / 4), 3.5, 1e-15);
    EXPECT_EQ(AngleToTheta(0), 0.0);
    EXPECT_NEAR(AngleToTheta(PI / 2), 1.0, 1e-15);
    EXPECT_EQ(AngleToTheta(PI), 2.0 - std::sin(PI) / (std::sin(PI) + 1.0));
    EXPECT_NEAR(AngleToTheta(3 * PI / 2), 3.0, 1e-15);
}

TEST(AngleToTheta, GrowsOverOneTurn) {
    double before = -1.0;
    for (int i = 0; i < 100000; ++i) {
        const double theta = AngleToTheta(i * (TWO_PI / 100000));
        EXPECT_GT(theta, before);
        before = theta;
    }
    EXPECT_LT(before, 4.0);
}

TEST(AngleToTheta, TiniestNegativeAngleRoundsToFour) {
    EXPECT_EQ(AngleToTheta(-1e-20), 4.0);
    EXPECT_EQ(AngleToTheta(-SMALLEST), 4.0);
    EXPECT_LT(AngleToTheta(-1e-15), 4.0);
}

TEST(AngleToTheta, AngleThatIsNotFiniteIsNoNumber) {
    EXPECT_TRUE(std::isnan(AngleToTheta(NOT_A_NUMBER)));
    EXPECT_TRUE(std::isnan(AngleToTheta(INFINITE)));
}

TEST(ThetaToAngle, AnglesPastPiComeBackNegative) {
    EXPECT_EQ(ThetaToAngle(2.5), -3 * PI / 4);
    EXPECT_EQ(ThetaToAngle(-0.5), -PI / 4);
    EXPECT_EQ(ThetaToAngle(0), 0.0);
    EXPECT_EQ(ThetaToAngle(0.5), PI / 4);
    EXPECT_EQ(ThetaToAngle(1), PI / 2);
    EXPECT_EQ(ThetaToAngle(1.5), 3 * PI / 4);
    EXPECT_EQ(ThetaToAngle(2), PI);
    EXPECT_EQ(ThetaToAngle(3), -PI / 2);
    EXPECT_EQ(ThetaToAngle(4), 0.0);
    EXPECT_EQ(ThetaToAngle(1e6 + 1), PI / 2);
    EXPECT_EQ(ThetaToAngle(-SMALLEST), 0.0);
}

TEST(ThetaToAngle, ReturnsTheAngleUpToAWholeTurn) {
    for (int i = -20000; i <= 20000; ++i) {
        const double angle = i * 0.001;
        EXPECT_NEAR(std::remainder(ThetaToAngle(AngleToTheta(angle)) - angle, TWO_PI), 0.0, 1e-14);
    }
}

TEST(ThetaToAngle, ValueThatIsNotFiniteGivesZero) {
    EXPECT_EQ(ThetaToAngle(NOT_A_NUMBER), 0.0);
    EXPECT_EQ(ThetaToAngle(INFINITE), 0.0);
    EXPECT_EQ(ThetaToAngle(-INFINITE), 0.0);
}

} // namespace
} // namespace geom
