// SPDX-License-Identifier: MIT
#include "geometry/Line2.h"

#include "tests/support/Exceptions.h"
#include "tests/support/Floats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <type_traits>

namespace geom {
namespace {

using namespace test;

static_assert(std::is_trivially_copyable_v<Line2>);
static_assert(sizeof(Line2) == 3 * sizeof(double));

constexpr unsigned SEED = 8102;

void ExpectLine(const Line2& line, double a, double b, double c) {
    EXPECT_EQ(line.A(), a);
    EXPECT_EQ(line.B(), b);
    EXPECT_EQ(line.C(), c);
}

TEST(Line2, DefaultIsAllZero) {
    ExpectLine(Line2(), 0, 0, 0);
}

TEST(Line2, CoefficientsAreNormalised) {
    ExpectLine(Line2(3, 4, 10), 0.6, 0.8, 2);
    ExpectLine(Line2(3, 4, -10), -0.6, -0.8, 2);
    ExpectLine(Line2(0, -2, 0), 0, -1, 0);
}

TEST(Line2, NoNormalMeansAllZero) {
    ExpectLine(Line2(0, 0, 5), 0, 0, 0);
    ExpectLine(Line2(0, 0, -5), 0, 0, 0);
    ExpectLine(Line2(SMALLEST_NORMAL, 0, 1), 0, 0, 0);
    ExpectLine(Line2(NOT_A_NUMBER, 1, 1), 0, 0, 0);
}

TEST(Line2, ShortestNormalIsJustAboveTheSmallestNormalisedDouble) {
    const double above = std::nextafter(SMALLEST_NORMAL, 1.0);
    ExpectLine(Line2(above, 0, 0), 1, 0, 0);
}

TEST(Line2, LargeNormalDoesNotOverflow) {
    const Line2 line(LARGEST / 2, LARGEST / 2, 0);
    EXPECT_NEAR(line.A(), std::sqrt(0.5), 1e-15);
    EXPECT_EQ(line.A(), line.B());
}

TEST(Line2, ThroughTwoPoints) {
    ExpectLine(Line2(Vec2d(0, 2), Vec2d(1, 2)), 0, -1, 2);
    ExpectLine(Line2(Vec2d(1, 2), Vec2d(0, 2)), 0, -1, 2); // negated, so that C is not below 0
    ExpectLine(Line2(Vec2d(0, 0), Vec2d(0, 4)), 1, 0, 0);
    ExpectLine(Line2(Vec2d(0, 4), Vec2d(0, 0)), -1, 0, 0);
    ExpectLine(Line2(Vec2d(5, 0), Vec2d(5, 4)), -1, 0, 5);
}

TEST(Line2, ThroughASegment) {
    EXPECT_TRUE(Line2(LineSegment2(1, 5, 4, 9)) == Line2(Vec2d(1, 5), Vec2d(4, 9)));
}

TEST(Line2, ThroughTwoPointsFollowsItsFormulaToTheBit) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    int negated = 0;
    for (int i = 0; i < 20000; ++i) {
        const Vec2d p(coordinate(random), coordinate(random));
        const Vec2d q(coordinate(random), coordinate(random));
        const double d = std::sqrt((p.x - q.x) * (p.x - q.x) + (p.y - q.y) * (p.y - q.y));
        double a = (q.y - p.y) / d;
        double b = -((q.x - p.x) / d);
        double c = -0.5 * ((p.x + q.x) * a + (p.y + q.y) * b);
        if (c < 0.0) {
            a = -a;
            b = -b;
            c = -c;
            ++negated;
        }
        const Line2 line(p, q);
        ASSERT_TRUE(SameBits(line.A(), a) && SameBits(line.B(), b) && SameBits(line.C(), c));
        ASSERT_LT(std::fabs(line.A() * p.x + line.B() * p.y + line.C()), 1e-12);
        // Swapped points give the same line, facing the other way at most.
        const Line2 swapped(q, p);
        ASSERT_EQ(line.C(), swapped.C());
        ASSERT_EQ(std::fabs(line.A()), std::fabs(swapped.A()));
    }
    EXPECT_GT(negated, 5000);
}

TEST(Line2, CoincidentPointsAreAnError) {
    ExpectError([] { Line2(Vec2d(1, 2), Vec2d(1, 2)); }, "Geometry", "Line2", 59);
    ExpectError([] { const Line2 line(LineSegment2(1, 2, 1, 2)); }, "Geometry", "Line2", 59);
    ExpectError([] { Line2(Vec2d(NOT_A_NUMBER, 2), Vec2d(1, 2)); }, "Geometry", "Line2", 59);
    ExpectError([] { Line2(Vec2d(0, 0), Vec2d(SMALLEST, 0)); }, "Geometry", "Line2", 59);
}

TEST(Line2, PointsTooFarApartGiveNoNumber) {
    const Line2 line(Vec2d(-LARGEST, 0), Vec2d(LARGEST, 0));
    EXPECT_TRUE(line != line);
}

TEST(Line2, SettersDoNotNormalise) {
    Line2 line(3, 4, 10);
    line.A(7);
    line.B(8);
    line.C(-9);
    ExpectLine(line, 7, 8, -9);
}

TEST(Line2, EqualityIsExact) {
    const Line2 line(3, 4, 10);
    Line2 other(line);
    EXPECT_TRUE(line == other);
    EXPECT_FALSE(line != other);
    other.A(1);
    EXPECT_TRUE(line != other);
    other = line;
    other.B(1);
    EXPECT_TRUE(line != other);
    other = line;
    other.C(1);
    EXPECT_FALSE(line == other);
    EXPECT_TRUE(line != other);
}

TEST(Line2, NotANumberDiffersFromItself) {
    for (int i = 0; i < 3; ++i) {
        Line2 line(3, 4, 10);
        i == 0 ? line.A(NOT_A_NUMBER) : i == 1 ? line.B(NOT_A_NUMBER) : line.C(NOT_A_NUMBER);
        EXPECT_FALSE(line == line);
        EXPECT_TRUE(line != line);
    }
}

TEST(IntersectionOfLines, Meets) {
    Vec2d out(9, 9);
    EXPECT_TRUE(Intersection(Line2(1, 0, -2), Line2(0, 1, -3), out));
    EXPECT_EQ(out, Vec2d(2, 3));
}

TEST(IntersectionOfLines, ParallelLeavesTheOutputAlone) {
    Vec2d out(9, 9);
    EXPECT_FALSE(Intersection(Line2(1, 0, -2), Line2(1, 0, -3), out));
    EXPECT_FALSE(Intersection(Line2(1, 0, -2), Line2(-1, 0, 3), out));
    EXPECT_FALSE(Intersection(Line2(), Line2(0, 1, -3), out));
    Line2 noNumber(1, 0, -2);
    noNumber.A(NOT_A_NUMBER);
    EXPECT_FALSE(Intersection(noNumber, Line2(0, 1, -3), out));
    EXPECT_EQ(out, Vec2d(9, 9));
}

TEST(IntersectionOfLines, DeterminantMustExceedTheThreshold) {
    const double tiny = std::exp(-354.54478285641);
    Line2 upright(1, 0, 0);
    Line2 level(0, 1, 0);
    level.B(tiny);
    Vec2d out(9, 9);
    EXPECT_FALSE(Intersection(upright, level, out));
    level.B(-tiny);
    EXPECT_FALSE(Intersection(upright, level, out));
    EXPECT_EQ(out, Vec2d(9, 9));
    level.B(std::nextafter(tiny, 1.0));
    EXPECT_TRUE(Intersection(upright, level, out));
    EXPECT_EQ(out, Vec2d(0, 0));
}

TEST(IntersectionOfLineAndPoints, Meets) {
    Vec2d out(9, 9);
    EXPECT_TRUE(Intersection(Line2(1, 0, -2), Vec2d(0, 3), Vec2d(1, 3), out));
    EXPECT_EQ(out, Vec2d(2, 3));
}

TEST(IntersectionOfLineAndPoints, ParallelLeavesTheOutputAlone) {
    Vec2d out(9, 9);
    EXPECT_FALSE(Intersection(Line2(1, 0, -2), Vec2d(5, 3), Vec2d(5, 4), out));
    EXPECT_FALSE(Intersection(Line2(1, 0, -2), Vec2d(5, 3), Vec2d(5, 3), out));
    EXPECT_FALSE(Intersection(Line2(1, 0, -2), Vec2d(NOT_A_NUMBER, 3), Vec2d(5, 3), out));
    EXPECT_EQ(out, Vec2d(9, 9));
}

TEST(IntersectionOfLineAndPoints, DenominatorMustExceedTheThreshold) {
    const double tiny = std::exp(-354.54478285641);
    Vec2d out(9, 9);
    EXPECT_FALSE(Intersection(Line2(1, 0, 0), Vec2d(0, 0), Vec2d(tiny, 1), out));
    EXPECT_EQ(out, Vec2d(9, 9));
    const double above = std::nextafter(tiny, 1.0);
    EXPECT_TRUE(Intersection(Line2(1, 0, 0), Vec2d(0, 0), Vec2d(above, 1), out));
}

TEST(IntersectionOfLineAndPoints, OutputMayBeAnInput) {
    Vec2d p(0, 3);
    Vec2d q(1, 4);
    Vec2d expected;
    ASSERT_TRUE(Intersection(Line2(2, 1, -2), p, q, expected));
    Vec2d first = p;
    ASSERT_TRUE(Intersection(Line2(2, 1, -2), first, q, first));
    EXPECT_EQ(first, expected);
    Vec2d second = q;
    ASSERT_TRUE(Intersection(Line2(2, 1, -2), p, second, second));
    EXPECT_EQ(second, expected);
}

TEST(IntersectionOfLines, FollowsItsFormulasToTheBit) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    const auto point = [&] {
        const double x = coordinate(random);
        return Vec2d(x, coordinate(random));
    };
    for (int i = 0; i < 20000; ++i) {
        const Line2 l(point(), point());
        const Line2 m(point(), point());
        const double det = m.B() * l.A() - l.B() * m.A();
        Vec2d out(9, 9);
        ASSERT_TRUE(Intersection(l, m, out));
        ASSERT_TRUE(SameBits(out, Vec2d((l.B() * m.C() - m.B() * l.C()) / det,
                                        (l.C() * m.A() - m.C() * l.A()) / det)));
        const Vec2d p = point();
        const Vec2d q = point();
        const double dx = q.x - p.x;
        const double dy = q.y - p.y;
        const double den = dx * l.A() + l.B() * dy;
        const double k = p.x * dy - p.y * dx;
        ASSERT_TRUE(Intersection(l, p, q, out));
        ASSERT_TRUE(SameBits(
            out, Vec2d((l.B() * k - dx * l.C()) / den, (-(dy * l.C()) - k * l.A()) / den)));
    }
}

} // namespace
} // namespace geom
