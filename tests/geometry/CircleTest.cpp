// SPDX-License-Identifier: MIT
#include "geometry/Circle.h"

#include "tests/support/Floats.h"

#include <boost/multiprecision/cpp_bin_float.hpp>
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdint>
#include <random>
#include <type_traits>
#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

namespace geom {
namespace {

using namespace test;

static_assert(std::is_trivially_copyable_v<Circle>);
static_assert(sizeof(Circle) == 3 * sizeof(double));

constexpr unsigned SEED = 8103;

void ExpectCircle(const Circle& c, double x, double y, double r) {
    EXPECT_EQ(c.Center(), Vec2d(x, y));
    EXPECT_EQ(c.Radius(), r);
}

TEST(Circle, DefaultIsAllZero) {
    ExpectCircle(Circle(), 0, 0, 0);
    EXPECT_TRUE(Circle().IsEmpty());
}

TEST(Circle, CentreAndRadius) {
    ExpectCircle(Circle(1, 2, 3), 1, 2, 3);
    ExpectCircle(Circle(Vec2d(1, 2), 3), 1, 2, 3);
    EXPECT_FALSE(Circle(1, 2, 3).IsEmpty());
}

TEST(Circle, NegativeRadiusIsStoredAsZero) {
    ExpectCircle(Circle(1, 2, -2), 1, 2, 0);
    ExpectCircle(Circle(Vec2d(1, 2), -INF), 1, 2, 0);
    EXPECT_TRUE(Circle(1, 2, -2).IsEmpty());
}

TEST(Circle, RadiusThatIsNotANumberStays) {
    EXPECT_TRUE(std::isnan(Circle(1, 2, NOT_A_NUMBER).Radius()));
    EXPECT_TRUE(std::isnan(Circle(Vec2d(1, 2), NOT_A_NUMBER).Radius()));
    EXPECT_FALSE(Circle(1, 2, NOT_A_NUMBER).IsEmpty());
}

TEST(Circle, EqualityIsExact) {
    const Circle c(1, 2, 3);
    const Circle copy(c);
    Circle assigned;
    assigned = c;
    EXPECT_TRUE(c == copy);
    EXPECT_TRUE(c == assigned);
    EXPECT_FALSE(c != copy);
    for (const Circle& other : {Circle(9, 2, 3), Circle(1, 9, 3), Circle(1, 2, 9)}) {
        EXPECT_FALSE(c == other);
        EXPECT_TRUE(c != other);
    }
    for (const Circle& noNumber :
         {Circle(NOT_A_NUMBER, 2, 3), Circle(1, NOT_A_NUMBER, 3), Circle(1, 2, NOT_A_NUMBER)}) {
        EXPECT_FALSE(noNumber == noNumber);
        EXPECT_TRUE(noNumber != noNumber);
    }
}

TEST(Circle, MovesItsCentre) {
    Circle c(1, 2, 3);
    EXPECT_EQ(&(c += Vec2d(10, 20)), &c);
    ExpectCircle(c, 11, 22, 3);
    EXPECT_EQ(&(c -= Vec2d(10, 20)), &c);
    ExpectCircle(c, 1, 2, 3);
    c += c.Center();
    ExpectCircle(c, 2, 4, 3);
    c -= c.Center();
    ExpectCircle(c, 0, 0, 3);
}

TEST(Circle, AreaIsRadiusTimesPiTimesRadius) {
    EXPECT_EQ(Circle(0, 0, 1).Area(), kit::PI);
    EXPECT_EQ(Circle(0, 0, 0).Area(), 0.0);
    const double r = 0.1;
    EXPECT_EQ(Circle(0, 0, r).Area(), (r * kit::PI) * r);
    EXPECT_EQ(Circle(0, 0, 1e200).Area(), INF);
}

TEST(Circle, BoundingBox) {
    EXPECT_EQ(Circle(1, 2, 3).BoundingBox(), Box2d(-2, -1, 4, 5));
}

TEST(CircleContains, PointOnTheCircleIsContained) {
    const Circle c(1, 1, 5);
    EXPECT_TRUE(c.Contains(Vec2d(4, 5)));
    EXPECT_TRUE(c.Contains(Vec2d(1, 1)));
    EXPECT_FALSE(c.Contains(Vec2d(std::nextafter(6.0, 7.0), 1)));
    EXPECT_FALSE(c.Contains(Vec2d(NOT_A_NUMBER, 1)));
    EXPECT_TRUE(Circle(1, 1, 0).Contains(Vec2d(1, 1)));
}

TEST(CircleContains, BoxWithItsFarthestCornerOnTheCircle) {
    EXPECT_TRUE(Circle(0, 0, 5).Contains(Box2d(-3, -4, 3, 4)));
    EXPECT_TRUE(Circle(0, 0, 5).Contains(Box2d(-3, -4, 0, 0)));
    EXPECT_TRUE(Circle(0, 0, 5).Contains(Box2d(0, 0, 3, 4)));
    EXPECT_TRUE(Circle(0, 0, 5).Contains(Box2d(-3, 0, 0, 4)));
    EXPECT_TRUE(Circle(0, 0, 5).Contains(Box2d(0, -4, 3, 0)));
    EXPECT_FALSE(Circle(0, 0, 5).Contains(Box2d(-3, -5, 3, 4)));
    EXPECT_FALSE(Circle(0, 0, 5).Contains(Box2d(0, 0, 4, 4)));
    EXPECT_FALSE(Circle(0, 0, 5).Contains(Box2d(-4, 0, 0, 4)));
    EXPECT_FALSE(Circle(0, 0, 1).Contains(Box2d()));
}

TEST(CircleContains, CircleTouchingFromInside) {
    EXPECT_TRUE(Circle(0, 0, 5).Contains(Circle(3, 0, 2)));
    EXPECT_TRUE(Circle(0, 0, 10).Contains(Circle(3, 4, 5)));
    EXPECT_TRUE(Circle(0, 0, 5).Contains(Circle(0, 0, 5)));
    EXPECT_FALSE(Circle(0, 0, 5).Contains(Circle(3, 0, 2.5)));
    EXPECT_FALSE(Circle(0, 0, 5).Contains(Circle(20, 0, 1)));
    // The distance does not overflow on its way.
    EXPECT_TRUE(Circle(0, 0, 1e200).Contains(Circle(1e199, 1e199, 1)));
}

TEST(CircleIntersectsCircle, TangentCirclesDoNot) {
    EXPECT_FALSE(Intersects(Circle(0, 0, 2), Circle(5, 0, 3)));
    EXPECT_TRUE(Intersects(Circle(0, 0, 2), Circle(4, 0, 3)));
    EXPECT_FALSE(Intersects(Circle(0, 0, 2), Circle(9, 0, 3)));
    EXPECT_TRUE(Intersects(Circle(0, 0, 9), Circle(1, 0, 1))); // discs, not rims
    EXPECT_FALSE(Intersects(Circle(0, 0, 0), Circle(0, 0, 0)));
    EXPECT_FALSE(Intersects(Circle(0, 0, NOT_A_NUMBER), Circle(0, 0, 1)));
}

TEST(CircleIntersectsSegment, TangentSegmentDoesNot) {
    const Circle c(0, 0, 2);
    EXPECT_FALSE(Intersects(c, LineSegment2(-5, 2, 5, 2)));
    EXPECT_TRUE(Intersects(c, LineSegment2(-5, 1.5, 5, 1.5)));
    EXPECT_TRUE(Intersects(c, LineSegment2(0.5, 0.5, 0.6, 0.6)));
    EXPECT_FALSE(Intersects(c, LineSegment2(2, 0, 5, 0)));
    EXPECT_FALSE(Intersects(c, LineSegment2(3, 0, 5, 0)));
}

TEST(CircleIntersectsBox, CentreInsideOrAnEdgeWithinReach) {
    const Box2d box(0, 0, 4, 2);
    EXPECT_TRUE(Intersects(Circle(1, 1, 0), box));    // centre inside
    EXPECT_TRUE(Intersects(Circle(4, 2, 0), box));    // centre on a corner
    EXPECT_TRUE(Intersects(Circle(-1, 1, 1.5), box)); // left
    EXPECT_TRUE(Intersects(Circle(1, 3, 1.5), box));  // top
    EXPECT_TRUE(Intersects(Circle(5, 1, 1.5), box));  // right
    EXPECT_TRUE(Intersects(Circle(1, -1, 1.5), box)); // bottom
    EXPECT_FALSE(Intersects(Circle(-1, 1, 1), box));  // tangent
    EXPECT_FALSE(Intersects(Circle(1, 3, 1), box));
    EXPECT_FALSE(Intersects(Circle(5, 1, 1), box));
    EXPECT_FALSE(Intersects(Circle(1, -1, 1), box));
    EXPECT_FALSE(Intersects(Circle(7, 6, 5), box)); // through a corner
    EXPECT_TRUE(Intersects(Circle(7, 6, 5.01), box));
    EXPECT_FALSE(Intersects(Circle(NOT_A_NUMBER, 1, 1), box));
}

using Exact = boost::multiprecision::cpp_bin_float_100;

struct ExactCircle {
    Exact x, y, radius;
};

// From the perpendicular bisectors, another way than the library's: with a at the origin,
// centre = (|b|^2 c.y - |c|^2 b.y, |c|^2 b.x - |b|^2 c.x) / (2 b x c).
ExactCircle TrueCircumcircle(const Vec2d& a, const Vec2d& b, const Vec2d& c) {
    const Exact bx = Exact(b.x) - a.x, by = Exact(b.y) - a.y;
    const Exact cx = Exact(c.x) - a.x, cy = Exact(c.y) - a.y;
    const Exact twiceCross = 2 * (bx * cy - by * cx);
    const Exact bb = bx * bx + by * by, cc = cx * cx + cy * cy;
    const Exact x = (bb * cy - cc * by) / twiceCross;
    const Exact y = (cc * bx - bb * cx) / twiceCross;
    return {x + a.x, y + a.y, boost::multiprecision::sqrt(Exact(x * x + y * y))};
}

double RelativeError(double value, const Exact& truth) {
    return boost::multiprecision::fabs(Exact((Exact(value) - truth) / truth)).convert_to<double>();
}

TEST(Circumcircle, OfARightTriangleIsExact) {
    ExpectCircle(Circle(Vec2d(0, 0), Vec2d(6, 0), Vec2d(0, 8)), 3, 4, 5);
    ExpectCircle(Circle(Vec2d(0, 0), Vec2d(6, 0), Vec2d(0, 8), true), 3, 4, 5);
    ExpectCircle(Circle(Vec2d(0, 0), Vec2d(6, 0), Vec2d(0, 8), false), 3, 4, 5);
}

TEST(Circumcircle, OfCollinearPointsHasTheLargestRadius) {
    const Vec2d lines[][3] = {
        {{0, 0}, {1, 1}, {2, 2}}, {{1, 1}, {1, 1}, {5, 2}},           {{1, 1}, {1, 1}, {1, 1}},
        {{3, 7}, {3, 9}, {3, 8}}, {{0, 0}, {1e-160, 0}, {0, 1e-160}},
    };
    for (const auto& p : lines) {
        ExpectCircle(Circle(p[0], p[1], p[2]), 0, 0, LARGEST);
        ExpectCircle(Circle(p[0], p[1], p[2], true), 0, 0, LARGEST);
    }
}

TEST(Circumcircle, SquaredAreaMustExceedTheThreshold) {
    // The square of twice the area is the fourth power of the leg.
    const double above = std::pow(1.06e-154, 0.25);
    const double below = std::pow(1.05e-154, 0.25);
    EXPECT_LT(Circle(Vec2d(0, 0), Vec2d(above, 0), Vec2d(0, above)).Radius(), 1.0);
    EXPECT_LT(Circle(Vec2d(0, 0), Vec2d(above, 0), Vec2d(0, above), true).Radius(), 1.0);
    EXPECT_EQ(Circle(Vec2d(0, 0), Vec2d(below, 0), Vec2d(0, below)).Radius(), LARGEST);
    EXPECT_EQ(Circle(Vec2d(0, 0), Vec2d(below, 0), Vec2d(0, below), true).Radius(), LARGEST);
}

TEST(Circumcircle, PlainFollowsItsFormulaToTheBit) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    for (int i = 0; i < 20000; ++i) {
        double v[6];
        for (double& value : v) {
            value = coordinate(random);
        }
        const Vec2d a(v[0], v[1]), b(v[2], v[3]), c(v[4], v[5]);
        const double dA = (b.x - a.x) * (c.x - a.x) + (b.y - a.y) * (c.y - a.y);
        const double dB = (c.x - b.x) * (a.x - b.x) + (c.y - b.y) * (a.y - b.y);
        const double dC = (a.x - c.x) * (b.x - c.x) + (a.y - c.y) * (b.y - c.y);
        const double s = dC * dA + dC * dB + dB * dA;
        const double radius = std::sqrt((dC + dB) * (dB + dA) * (dC + dA) / (4 * s));
        const double wa = dA * (dB + dC), wb = dB * (dA + dC), wc = dC * (dA + dB);
        const Circle circle(a, b, c);
        ASSERT_TRUE(SameBits(circle.Radius(), radius));
        ASSERT_TRUE(SameBits(circle.Center(), Vec2d((wa * a.x + wb * b.x + wc * c.x) / (2 * s),
                                                    (wa * a.y + wb * b.y + wc * c.y) / (2 * s))));
    }
}

// Triangles whose angles are all above 5 degrees, and circles whose centre is not next to an
// axis, where its coordinate would be a difference of nearly equal numbers.
TEST(Circumcircle, ExtendedIsWithinOneUnitInTheLastPlace) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> angle(0.0, kit::TWO_PI);
    std::uniform_real_distribution<double> coordinate(1.0, 1000.0);
    int tested = 0;
    int plainWrong = 0;
    while (tested < 5000) {
        const Vec2d centre(coordinate(random), coordinate(random));
        const double r = coordinate(random);
        Vec2d p[3];
        double at[3];
        for (int k = 0; k < 3; ++k) {
            at[k] = angle(random);
            p[k] = Vec2d(centre.x + r * std::cos(at[k]), centre.y + r * std::sin(at[k]));
        }
        const auto apart = [](double u, double v) { return std::fabs(std::sin((u - v) / 2)); };
        if (apart(at[0], at[1]) < 0.09 || apart(at[1], at[2]) < 0.09 ||
            apart(at[2], at[0]) < 0.09) {
            continue;
        }
        ++tested;
        const ExactCircle truth = TrueCircumcircle(p[0], p[1], p[2]);
        const double x = truth.x.convert_to<double>();
        const double y = truth.y.convert_to<double>();
        const double radius = truth.radius.convert_to<double>();
        const Circle extended(p[0], p[1], p[2], true);
        ASSERT_LE(UlpsBetween(extended.Center().x, x), 1U) << "seed " << SEED;
        ASSERT_LE(UlpsBetween(extended.Center().y, y), 1U) << "seed " << SEED;
        ASSERT_LE(UlpsBetween(extended.Radius(), radius), 1U) << "seed " << SEED;
        const Circle plain(p[0], p[1], p[2]);
        plainWrong += UlpsBetween(plain.Radius(), radius) > 1 ? 1 : 0;
    }
    EXPECT_GT(plainWrong, 500); // or the extended computation would not be needed
}

// Nearly collinear points with an exact sagitta: the plain square of the area drowns in the
// rounding of its terms.
TEST(Circumcircle, ExtendedFindsTheCircleOfFlatTrianglesWherePlainIsWrong) {
    std::mt19937_64 random(SEED);
    std::uniform_int_distribution<std::int64_t> step(1 << 20, 1 << 24);
    int plainWrong = 0;
    for (int i = 0; i < 2000; ++i) {
        const double dx = static_cast<double>(step(random));
        const double dy = static_cast<double>(step(random));
        const Vec2d a(0, 0);
        const Vec2d b(dx, dy);
        const Vec2d c(2 * dx, 2 * dy + 1); // off the line by less than 1
        const ExactCircle truth = TrueCircumcircle(a, b, c);
        const Circle extended(a, b, c, true);
        ASSERT_LT(RelativeError(extended.Radius(), truth.radius), 1e-15);
        ASSERT_LT(RelativeError(extended.Center().x, truth.x), 1e-15);
        ASSERT_LT(RelativeError(extended.Center().y, truth.y), 1e-15);
        plainWrong += RelativeError(Circle(a, b, c).Radius(), truth.radius) > 0.01 ? 1 : 0;
    }
    EXPECT_GT(plainWrong, 1500);
}

TEST(Circumcircle, ExtendedSeesThatPointsAreCollinearWherePlainFindsACircle) {
    std::mt19937_64 random(SEED);
    std::uniform_int_distribution<std::int64_t> step(-(1 << 22), 1 << 22);
    int plainWrong = 0;
    for (int i = 0; i < 2000; ++i) {
        const double dx = static_cast<double>(step(random));
        const double dy = static_cast<double>(step(random));
        const Vec2d a(3 * dx, 3 * dy), b(dx, dy), c(-2 * dx, -2 * dy);
        ExpectCircle(Circle(a, b, c, true), 0, 0, LARGEST);
        plainWrong += Circle(a, b, c).Radius() != LARGEST ? 1 : 0;
    }
    EXPECT_GT(plainWrong, 200);
}

TEST(Circumcircle, SurvivesAnyInput) {
    const double values[] = {0.0, -1.0, 1e300, LARGEST, SMALLEST, INF, -INF, NOT_A_NUMBER};
    int notFound = 0;
    for (const double x : values) {
        for (const double y : values) {
            for (const bool extended : {false, true}) {
                const Vec2d a(x, y), b(1, 0), c(0, 1);
                const Circle circle = extended ? Circle(a, b, c, true) : Circle(a, b, c);
                if (x != x || y != y) {
                    EXPECT_EQ(circle.Radius(), LARGEST);
                    ++notFound;
                }
            }
        }
    }
    EXPECT_EQ(notFound, 30);
}

TEST(Circumcircle, ExtendedIgnoresTheHostsRoundingAndLeavesItAlone) {
    const Vec2d a(0.1, 0.7), b(3.3, 1.9), c(2.2, 5.4);
    const Circle expected(a, b, c, true);
    for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        ASSERT_EQ(std::fesetround(mode), 0);
        std::feclearexcept(FE_ALL_EXCEPT);
        std::feraiseexcept(FE_UNDERFLOW);
        const Circle circle(a, b, c, true);
        const int modeAfter = std::fegetround();
        const int flagsAfter = std::fetestexcept(FE_ALL_EXCEPT);
        std::fesetround(FE_TONEAREST);
        std::feclearexcept(FE_ALL_EXCEPT);
        EXPECT_EQ(modeAfter, mode);
        EXPECT_EQ(flagsAfter, FE_UNDERFLOW);
        EXPECT_TRUE(SameBits(circle.Center(), expected.Center()));
        EXPECT_TRUE(SameBits(circle.Radius(), expected.Radius()));
    }
}

#if defined(__SSE2__)
TEST(Circumcircle, ExtendedLeavesTheHostsFlushingOfSmallNumbersAlone) {
    constexpr unsigned FLUSH_TO_ZERO_AND_DENORMALS_ARE_ZERO = 0x8040;
    const unsigned before = _mm_getcsr();
    _mm_setcsr(before | FLUSH_TO_ZERO_AND_DENORMALS_ARE_ZERO);
    const Circle circle(Vec2d(0, 0), Vec2d(6, 0), Vec2d(0, 8), true);
    const unsigned after = _mm_getcsr();
    _mm_setcsr(before);
    EXPECT_EQ(after, before | FLUSH_TO_ZERO_AND_DENORMALS_ARE_ZERO);
    ExpectCircle(circle, 3, 4, 5);
}
#endif

} // namespace
} // namespace geom
