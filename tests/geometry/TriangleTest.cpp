// SPDX-License-Identifier: MIT
#include "geometry/Triangle.h"

#include "tests/support/Floats.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <type_traits>

namespace geom {
namespace {

using namespace test;

static_assert(std::is_trivially_copyable_v<Triangle>);
static_assert(sizeof(Triangle) == 6 * sizeof(double));

constexpr unsigned SEED = 8201;
__extension__ using Wide = __int128;

struct GridPoint {
    std::int64_t x, y;
    Vec2d ToVec() const { return {static_cast<double>(x), static_cast<double>(y)}; }
};

int SignOf(Wide value) {
    return value > 0 ? 1 : value < 0 ? -1 : 0;
}

int SideOf(const GridPoint& a, const GridPoint& b, const GridPoint& p) {
    return SignOf(Wide(b.x - a.x) * (p.y - a.y) - Wide(b.y - a.y) * (p.x - a.x));
}

// The three-by-three in-circle determinant relative to d, exactly.
int InCircleSign(const GridPoint& a, const GridPoint& b, const GridPoint& c, const GridPoint& d) {
    const auto row = [&](const GridPoint& p) {
        const Wide x = p.x - d.x, y = p.y - d.y;
        return std::array<Wide, 3>{x, y, x * x + y * y};
    };
    const auto u = row(a), v = row(b), w = row(c);
    return SignOf(u[0] * (v[1] * w[2] - v[2] * w[1]) - u[1] * (v[0] * w[2] - v[2] * w[0]) +
                  u[2] * (v[0] * w[1] - v[1] * w[0]));
}

class RandomGrid {
public:
    GridPoint Point(std::int64_t reach) {
        std::uniform_int_distribution<std::int64_t> coordinate(-reach, reach);
        const std::int64_t x = coordinate(m_engine);
        return {x, coordinate(m_engine)};
    }

private:
    std::mt19937_64 m_engine{SEED};
};

const Triangle UNIT({0, 0}, {1, 0}, {0, 1});
const Triangle UNIT_REVERSED({0, 0}, {0, 1}, {1, 0});

TEST(Triangle, DefaultIsAllZeroAndEmpty) {
    const Triangle t;
    EXPECT_EQ(t.A(), Vec2d(0, 0));
    EXPECT_EQ(t.B(), Vec2d(0, 0));
    EXPECT_EQ(t.C(), Vec2d(0, 0));
    EXPECT_TRUE(t.IsEmpty());
}

TEST(Triangle, VerticesAreStoredAndReplaced) {
    Triangle t({1, 2}, {3, 4}, {5, 6});
    EXPECT_EQ(t.A(), Vec2d(1, 2));
    EXPECT_EQ(t.B(), Vec2d(3, 4));
    EXPECT_EQ(t.C(), Vec2d(5, 6));
    t.A(Vec2d(7, 8));
    t.B(t.A());
    t.C(Vec2d(9, 9));
    EXPECT_EQ(t.A(), Vec2d(7, 8));
    EXPECT_EQ(t.B(), Vec2d(7, 8));
    EXPECT_EQ(t.C(), Vec2d(9, 9));
}

TEST(Triangle, OrientationAndArea) {
    EXPECT_TRUE(UNIT.CCW());
    EXPECT_EQ(UNIT.Area(), 0.5);
    EXPECT_FALSE(UNIT_REVERSED.CCW());
    EXPECT_EQ(UNIT_REVERSED.Area(), 0.5);
}

TEST(Triangle, TwoEqualVerticesMakeItEmpty) {
    const Vec2d p(1, 2), q(5, 3);
    for (const Triangle& t : {Triangle(p, p, q), Triangle(p, q, p), Triangle(q, p, p)}) {
        EXPECT_TRUE(t.IsEmpty());
        EXPECT_FALSE(t.CCW());
        EXPECT_EQ(t.Area(), 0.0);
        for (const Vec2d& at : {p, q, Vec2d(3, 2.5), Vec2d(100, 100)}) {
            EXPECT_FALSE(t.Contains(at));
            EXPECT_FALSE(t.InCircumcircle(at));
        }
    }
}

TEST(Triangle, CollinearPointsContainTheirWholeLine) {
    const Triangle t({0, 0}, {1, 1}, {3, 3});
    EXPECT_FALSE(t.IsEmpty());
    EXPECT_FALSE(t.CCW());
    EXPECT_EQ(t.Area(), 0.0);
    EXPECT_TRUE(t.Contains(Vec2d(2, 2)));
    EXPECT_TRUE(t.Contains(Vec2d(-50, -50)));
    EXPECT_TRUE(t.Contains(Vec2d(99, 99)));
    EXPECT_FALSE(t.Contains(Vec2d(1, 2)));
}

TEST(Triangle, ContainsItsBoundary) {
    for (const Triangle& t : {UNIT, UNIT_REVERSED}) {
        for (const Vec2d& inside : {Vec2d(0, 0), Vec2d(1, 0), Vec2d(0, 1), Vec2d(0.5, 0),
                                    Vec2d(0, 0.5), Vec2d(0.5, 0.5), Vec2d(0.25, 0.25)}) {
            EXPECT_TRUE(t.Contains(inside)) << inside.x << ',' << inside.y;
        }
        for (const Vec2d& outside : {Vec2d(-0.1, 0), Vec2d(0.6, 0.5), Vec2d(2, 0), Vec2d(0, -1),
                                     Vec2d(0.5, 0.5000000000000001)}) {
            EXPECT_FALSE(t.Contains(outside)) << outside.x << ',' << outside.y;
        }
    }
}

TEST(Triangle, CircumcircleIsOpen) {
    for (const Triangle& t : {UNIT, UNIT_REVERSED}) {
        EXPECT_TRUE(t.InCircumcircle(Vec2d(0.5, 0.5)));
        EXPECT_TRUE(t.InCircumcircle(Vec2d(0.3, 0.3)));
        EXPECT_TRUE(t.InCircumcircle(Vec2d(0.9, 0.9)));
        EXPECT_FALSE(t.InCircumcircle(Vec2d(1, 1)));
        EXPECT_FALSE(t.InCircumcircle(Vec2d(0, 0)));
        EXPECT_FALSE(t.InCircumcircle(Vec2d(2, 2)));
    }
}

TEST(Triangle, AgreesWithExactIntegers) {
    RandomGrid grid;
    int contained = 0, onEdge = 0, inCircle = 0, onCircle = 0;
    for (int i = 0; i < 100000; ++i) {
        // Up to 2^10 the in-circle products stay below 2^53 when the mean is a quarter integer.
        const std::int64_t reach = i % 3 == 0 ? 2 : i % 3 == 1 ? 6 : 1 << 10;
        const GridPoint a = grid.Point(reach), b = grid.Point(reach), c = grid.Point(reach);
        const GridPoint p = grid.Point(reach);
        const Triangle t(a.ToVec(), b.ToVec(), c.ToVec());
        const bool empty =
            a.ToVec() == b.ToVec() || b.ToVec() == c.ToVec() || a.ToVec() == c.ToVec();
        ASSERT_EQ(t.IsEmpty(), empty);
        const int orientation = SideOf(a, b, c);
        ASSERT_EQ(t.CCW(), orientation > 0);
        const Wide doubled = Wide(b.x - a.x) * (c.y - a.y) - Wide(b.y - a.y) * (c.x - a.x);
        ASSERT_EQ(t.Area(), std::fabs(static_cast<double>(doubled)) / 2);
        const int sides[] = {SideOf(a, b, p), SideOf(b, c, p), SideOf(c, a, p)};
        const bool inside = !empty && (*std::min_element(sides, sides + 3) >= 0 ||
                                       *std::max_element(sides, sides + 3) <= 0);
        ASSERT_EQ(t.Contains(p.ToVec()), inside);
        contained += inside ? 1 : 0;
        onEdge += inside && sides[0] * sides[1] * sides[2] == 0 ? 1 : 0;
        if (orientation != 0) {
            const int circle = InCircleSign(a, b, c, p) * orientation;
            ASSERT_EQ(t.InCircumcircle(p.ToVec()), circle > 0) << "seed " << SEED;
            inCircle += circle > 0 ? 1 : 0;
            onCircle += circle == 0 ? 1 : 0;
        }
    }
    EXPECT_GT(contained, 5000);
    EXPECT_GT(onEdge, 1000);
    EXPECT_GT(inCircle, 10000);
    EXPECT_GT(onCircle, 5000);
}

TEST(Triangle, InCircleOfCollinearVerticesCountsAsCounterClockwise) {
    // The circle is a line: one of its sides is its inside.
    const Triangle t({0, 0}, {1, 0}, {2, 0});
    const Triangle reversed({2, 0}, {1, 0}, {0, 0});
    EXPECT_NE(t.InCircumcircle(Vec2d(1, 1)), t.InCircumcircle(Vec2d(1, -1)));
    EXPECT_NE(t.InCircumcircle(Vec2d(1, 1)), reversed.InCircumcircle(Vec2d(1, 1)));
    EXPECT_FALSE(t.InCircumcircle(Vec2d(5, 0)));
}

bool InCircleAsWritten(const Vec2d& A, const Vec2d& B, const Vec2d& C, const Vec2d& p) {
    const double cross = (C.y - A.y) * B.x + (B.y - C.y) * A.x + (A.y - B.y) * C.x;
    const Vec2d m((p.x + (B.x + A.x + C.x)) * 0.25, (p.y + (A.y + B.y + C.y)) * 0.25);
    const Vec2d a = A - m, b = B - m, c = C - m, d = p - m;
    const double a2 = a.x * a.x + a.y * a.y, b2 = b.x * b.x + b.y * b.y;
    const double c2 = c.x * c.x + c.y * c.y, d2 = d.x * d.x + d.y * d.y;
    double determinant = b.x * ((d2 - c2) * a.y + (a2 - d2) * c.y + (c2 - a2) * d.y);
    determinant += a.x * ((d2 - b2) * c.y + (c2 - d2) * b.y + (b2 - c2) * d.y);
    determinant += c.x * ((b2 - d2) * a.y + (d2 - a2) * b.y + (a2 - b2) * d.y);
    determinant += d.x * ((c2 - b2) * a.y + (a2 - c2) * b.y + (b2 - a2) * c.y);
    return determinant * (cross < 0 ? -1 : 1) > 0;
}

TEST(Triangle, FollowsItsFormulasToTheBit) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-1.0, 1.0);
    int delicate = 0;
    for (int i = 0; i < 20000; ++i) {
        const auto point = [&] {
            const double x = coordinate(random);
            return Vec2d(x, coordinate(random));
        };
        const Vec2d A = point(), B = point();
        const double f = coordinate(random);
        const Vec2d C = i % 2 == 0 ? point() // or nearly collinear
                                   : Vec2d(A.x + f * (B.x - A.x), A.y + f * (B.y - A.y));
        const Vec2d p = i % 4 < 2 ? point() : Vec2d((A.x + B.x) / 2, (A.y + B.y) / 2);
        const Triangle t(A, B, C);
        const double cross = (C.y - A.y) * B.x + (B.y - C.y) * A.x + (A.y - B.y) * C.x;
        ASSERT_EQ(t.CCW(), cross > 0.0);
        ASSERT_TRUE(SameBits(t.Area(), std::fabs(cross) * 0.5));
        const double e1 = (B.x - p.x) * (p.y - A.y) - (B.y - p.y) * (p.x - A.x);
        const double e2 = (C.x - p.x) * (p.y - B.y) - (C.y - p.y) * (p.x - B.x);
        const double e3 = (A.x - p.x) * (p.y - C.y) - (A.y - p.y) * (p.x - C.x);
        ASSERT_EQ(t.Contains(p),
                  (e1 >= 0 && e2 >= 0 && e3 >= 0) || (e1 <= 0 && e2 <= 0 && e3 <= 0));
        ASSERT_EQ(t.InCircumcircle(p), InCircleAsWritten(A, B, C, p));
        delicate += Triangle(B, C, A).Area() != t.Area() ? 1 : 0;
    }
    EXPECT_GT(delicate, 1000); // the order of the vertices shows
}

// Four points that lie on one circle but for the rounding of their coordinates: only the very
// same operations give the same answers.
TEST(Triangle, InCircumcircleFollowsItsFormulaWhereRoundingDecides) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> scale(0.1, 1.0);
    const Vec2d onCircle[] = {{5, 0},  {4, 3},   {3, 4},   {0, 5},  {-3, 4}, {-4, 3},
                              {-5, 0}, {-4, -3}, {-3, -4}, {0, -5}, {3, -4}, {4, -3}};
    int inside = 0, turned = 0;
    for (int i = 0; i < 50000; ++i) {
        const double s = scale(random);
        const auto point = [&] { return onCircle[random() % 12] * s + Vec2d(0.3, 0.7); };
        const Vec2d A = point(), B = point(), C = point(), p = point();
        const Triangle t(A, B, C);
        const bool expected = !t.IsEmpty() && InCircleAsWritten(A, B, C, p);
        ASSERT_EQ(t.InCircumcircle(p), expected);
        inside += expected ? 1 : 0;
        turned += Triangle(B, C, A).InCircumcircle(p) != expected ? 1 : 0;
    }
    EXPECT_GT(inside, 5000);
    EXPECT_GT(turned, 500); // the order of the vertices shows
}

TEST(Triangle, BoundingBox) {
    EXPECT_EQ(Triangle({1, 9}, {-3, 4}, {5, 6}).BoundingBox(), Box2d(-3, 4, 5, 9));
    EXPECT_EQ(Triangle({5, -6}, {1, 9}, {2, 3}).BoundingBox(), Box2d(1, -6, 5, 9));
    EXPECT_EQ(Triangle({2, 3}, {5, -6}, {1, 9}).BoundingBox(), Box2d(1, -6, 5, 9));
    EXPECT_EQ(Triangle().BoundingBox(), Box2d(0, 0, 0, 0));
    EXPECT_EQ(Triangle({INF, 0}, {INF, 0}, {INF, 1}).BoundingBox(), Box2d(INF, 0, INF, 1));
}

TEST(Triangle, SurvivesAnyInput) {
    const Triangle noNumber({NOT_A_NUMBER, 0}, {1, 0}, {0, 1});
    EXPECT_FALSE(noNumber.IsEmpty());
    EXPECT_FALSE(noNumber.CCW());
    EXPECT_TRUE(std::isnan(noNumber.Area()));
    EXPECT_FALSE(noNumber.Contains(Vec2d(0, 0)));
    EXPECT_FALSE(noNumber.InCircumcircle(Vec2d(0, 0)));
    EXPECT_FALSE(UNIT.Contains(Vec2d(NOT_A_NUMBER, 0)));
    EXPECT_FALSE(UNIT.InCircumcircle(Vec2d(0, INF)));
    const Triangle huge({-LARGEST, -LARGEST}, {LARGEST, -LARGEST}, {0, LARGEST});
    EXPECT_FALSE(huge.InCircumcircle(Vec2d(0, 0)));
    EXPECT_EQ(Triangle({0, 0}, {SMALLEST, 0}, {0, SMALLEST}).Area(), 0.0);
}

} // namespace
} // namespace geom
