// SPDX-License-Identifier: MIT
#include "geometry/ParametricLine3.h"

#include "tests/support/Floats.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <type_traits>

namespace geom {
namespace {

using namespace test;

static_assert(std::is_trivially_copyable_v<ParametricLine3>);
static_assert(sizeof(ParametricLine3) == 6 * sizeof(double));

constexpr unsigned SEED = 1102;
const Vec3d SENTINEL(7, 7, 7);

class RandomSpace {
public:
    double Real(double reach) {
        return std::uniform_real_distribution<double>(-reach, reach)(m_engine);
    }
    Vec3d Point(double reach) {
        const double x = Real(reach), y = Real(reach);
        return {x, y, Real(reach)};
    }
    Vec3d Grid(int reach) {
        const auto whole = [&] {
            return static_cast<double>(std::uniform_int_distribution<int>(-reach, reach)(m_engine));
        };
        const double x = whole(), y = whole();
        return {x, y, whole()};
    }
    ParametricLine3 Line(double reach) {
        const Vec3d p = Point(reach);
        return {p, Point(reach)};
    }

private:
    std::mt19937_64 m_engine{SEED};
};

bool IsClose(const Vec3d& a, const Vec3d& b, double tolerance) {
    return std::sqrt(a.DistanceSquared(b)) <= tolerance;
}

TEST(ParametricLine3, DefaultIsAllZero) {
    const ParametricLine3 line;
    EXPECT_EQ(line.GetPosition(), Vec3d(0, 0, 0));
    EXPECT_EQ(line.GetDirection(), Vec3d(0, 0, 0));
}

TEST(ParametricLine3, FromAPointTowardsAnother) {
    const ParametricLine3 line(Vec3d(1, 2, 3), Vec3d(1, 2, 8));
    EXPECT_EQ(line.GetPosition(), Vec3d(1, 2, 3));
    EXPECT_EQ(line.GetDirection(), Vec3d(0, 0, 1));
    ParametricLine3 set;
    set.SetValue(Vec3d(1, 2, 3), Vec3d(4, 2, -1));
    EXPECT_EQ(set.GetDirection(), Vec3d(3.0 / 5, 0, -4.0 / 5));
}

TEST(ParametricLine3, CoincidentPointsGiveNoDirection) {
    const ParametricLine3 line(Vec3d(1, 2, 3), Vec3d(1, 2, 3));
    EXPECT_EQ(line.GetPosition(), Vec3d(1, 2, 3));
    EXPECT_EQ(line.GetDirection(), Vec3d(0, 0, 0));
    EXPECT_EQ(line.GetClosestPoint(Vec3d(9, 9, 9)), Vec3d(1, 2, 3));
}

TEST(ParametricLine3, MayBeSetFromItsOwnParts) {
    ParametricLine3 line(Vec3d(1, 0, 0), Vec3d(1, 0, 5));
    line.SetValue(line.GetDirection(), line.GetPosition());
    EXPECT_EQ(line.GetPosition(), Vec3d(0, 0, 1));
    EXPECT_EQ(line.GetDirection(), Vec3d(1, 0, -1).Normalized());
}

TEST(ParametricLine3, ClosestPointIsTheFootToBothSides) {
    const ParametricLine3 line(Vec3d(1, 2, 3), Vec3d(1, 2, 8));
    EXPECT_EQ(line.GetClosestPoint(Vec3d(5, 5, 9)), Vec3d(1, 2, 9));
    EXPECT_EQ(line.GetClosestPoint(Vec3d(5, 5, -9)), Vec3d(1, 2, -9));
}

TEST(ParametricLine3, ClosestPointFollowsItsFormulaToTheBit) {
    RandomSpace random;
    for (int i = 0; i < 10000; ++i) {
        const ParametricLine3 line = random.Line(10);
        const Vec3d x = random.Point(10), p = line.GetPosition(), d = line.GetDirection();
        const double t = d.x * (x.x - p.x) + d.y * (x.y - p.y) + d.z * (x.z - p.z);
        ASSERT_EQ(line.GetClosestPoint(x), Vec3d(p.x + d.x * t, p.y + d.y * t, p.z + d.z * t));
    }
}

// --- Pick test of a point

const ParametricLine3 ALONG_X(Vec3d(0, 0, 0), Vec3d(1, 0, 0));

TEST(PickPoint, OnlyAhead) {
    EXPECT_TRUE(ALONG_X.Intersect(0.5, Vec3d(2, 0, 0)));
    EXPECT_FALSE(ALONG_X.Intersect(0.5, Vec3d(-2, 0, 0)));
    EXPECT_FALSE(ALONG_X.Intersect(100, Vec3d(0, 1, 0))); // beside
    EXPECT_FALSE(ALONG_X.Intersect(-100, Vec3d(0, 1, 0)));
    EXPECT_FALSE(ALONG_X.Intersect(100, Vec3d(0, 0, 0)));
    EXPECT_FALSE(ParametricLine3().Intersect(100, Vec3d(1, 0, 0)));
    EXPECT_FALSE(ALONG_X.Intersect(100, Vec3d(NOT_A_NUMBER, 0, 0)));
}

TEST(PickPoint, MissIsALengthLessASquaredLength) {
    // |v| = 5, t = 3: the miss is 5 - 9 = -4.
    EXPECT_TRUE(ALONG_X.Intersect(0.0, Vec3d(3, 4, 0)));
    EXPECT_TRUE(ALONG_X.Intersect(-0.001, Vec3d(3, 4, 0)));
    // |v| = 0.5, t = 0.5 on the line itself: the miss is 0.25, over t 0.5.
    EXPECT_FALSE(ALONG_X.Intersect(0.5, Vec3d(0.5, 0, 0)));
    EXPECT_TRUE(ALONG_X.Intersect(std::nextafter(0.5, 1.0), Vec3d(0.5, 0, 0)));
    EXPECT_FALSE(ALONG_X.Intersect(-0.25, Vec3d(0.5, 0, 0)));
    EXPECT_TRUE(ALONG_X.Intersect(-std::nextafter(0.25, 1.0), Vec3d(0.5, 0, 0)));
    // |v| = t = 1: the miss is 0.
    EXPECT_FALSE(ALONG_X.Intersect(0.0, Vec3d(1, 0, 0)));
    EXPECT_FALSE(ALONG_X.Intersect(-0.0, Vec3d(1, 0, 0)));
    EXPECT_TRUE(ALONG_X.Intersect(SMALLEST, Vec3d(1, 0, 0)));
    EXPECT_TRUE(ALONG_X.Intersect(-SMALLEST, Vec3d(1, 0, 0)));
}

TEST(PickPoint, FollowsItsFormula) {
    RandomSpace random;
    int hits = 0, misses = 0;
    for (int i = 0; i < 20000; ++i) {
        const ParametricLine3 line = random.Line(1);
        const Vec3d x = random.Point(1);
        const double tolerance = random.Real(1);
        const Vec3d v = x - line.GetPosition();
        const Vec3d d = line.GetDirection();
        const double t = d.x * v.x + d.y * v.y + d.z * v.z;
        const double miss = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z) - t * t;
        const bool expected = t > 0 && (tolerance >= 0 ? tolerance > miss / t : -tolerance > miss);
        ASSERT_EQ(line.Intersect(tolerance, x), expected);
        ++(expected ? hits : misses);
    }
    EXPECT_GT(hits, 1000);
    EXPECT_GT(misses, 1000);
}

TEST(PickPoint, ToleranceThatIsNotANumberHitsNothing) {
    EXPECT_FALSE(ALONG_X.Intersect(NOT_A_NUMBER, Vec3d(3, 0, 0)));
}

// --- Closest points of two lines

TEST(ClosestPoints, CrossingAndSkewLines) {
    Vec3d here = SENTINEL, there = SENTINEL;
    const ParametricLine3 alongY(Vec3d(3, -5, 2), Vec3d(3, 8, 2));
    EXPECT_TRUE(ALONG_X.GetClosestPoints(alongY, here, there));
    EXPECT_EQ(here, Vec3d(3, 0, 0));
    EXPECT_EQ(there, Vec3d(3, 0, 2));
    const ParametricLine3 crossing(Vec3d(-4, -5, 0), Vec3d(-4, 8, 0)); // behind the position
    EXPECT_TRUE(ALONG_X.GetClosestPoints(crossing, here, there));
    EXPECT_EQ(here, Vec3d(-4, 0, 0));
    EXPECT_EQ(there, Vec3d(-4, 0, 0));
}

TEST(ClosestPoints, ParallelLinesGiveThePositionAndItsFoot) {
    Vec3d here = SENTINEL, there = SENTINEL;
    for (const double towards : {1.0, -1.0}) {
        const ParametricLine3 parallel(Vec3d(10, 3, 4), Vec3d(10 + towards, 3, 4));
        EXPECT_TRUE(ALONG_X.GetClosestPoints(parallel, here, there));
        EXPECT_EQ(here, Vec3d(0, 0, 0));
        EXPECT_EQ(there, Vec3d(0, 3, 4));
        EXPECT_TRUE(parallel.GetClosestPoints(ALONG_X, here, there));
        EXPECT_EQ(here, Vec3d(10, 3, 4));
        EXPECT_EQ(there, Vec3d(10, 0, 0));
    }
    EXPECT_TRUE(ALONG_X.GetClosestPoints(ALONG_X, here, there));
    EXPECT_EQ(here, Vec3d(0, 0, 0));
    EXPECT_EQ(there, Vec3d(0, 0, 0));
}

// Directions of parallel lines that were made from different points differ in their last bits.
TEST(ClosestPoints, LinesThatRoundingTurnsAreParallel) {
    RandomSpace random;
    int turned = 0;
    for (int i = 0; i < 5000; ++i) {
        const Vec3d p = random.Point(10), q = random.Point(10), v = random.Point(10);
        const double scale = 1.0 + std::fabs(random.Real(3));
        const ParametricLine3 line(p, p + (q - p));
        const ParametricLine3 other(v, v + (q - p) * scale);
        const Vec3d exact = (q - p).Normalized();
        if ((line.GetDirection() - other.GetDirection()).Length() > 0x1p-51 ||
            (q - p).Length() < 4) {
            continue; // made of rounded points, they need not be parallel that closely
        }
        turned += line.GetDirection() != other.GetDirection() ? 1 : 0;
        Vec3d here = SENTINEL, there = SENTINEL;
        ASSERT_TRUE(line.GetClosestPoints(other, here, there));
        ASSERT_EQ(here, p);
        ASSERT_LT(std::fabs((there - here).Dot(exact)), 1e-13);
    }
    EXPECT_GT(turned, 500);
}

TEST(ClosestPoints, SineOfTwoToMinusFiftyIsTheLimit) {
    for (const double angle : {0x1p-50, 0x1.8p-50}) {
        const ParametricLine3 other(Vec3d(0, 0, 1), Vec3d(1, angle, 1));
        Vec3d here = SENTINEL, there = SENTINEL;
        ASSERT_TRUE(
            ParametricLine3(Vec3d(5, 0, 0), Vec3d(6, 0, 0)).GetClosestPoints(other, here, there));
        EXPECT_EQ(here, angle == 0x1p-50 ? Vec3d(5, 0, 0) : Vec3d(0, 0, 0));
    }
}

TEST(ClosestPoints, NoPairOfSampledPointsIsNearer) {
    RandomSpace random;
    int tested = 0;
    for (int i = 0; i < 300; ++i) {
        const ParametricLine3 one = random.Line(3), other = random.Line(3);
        Vec3d here = SENTINEL, there = SENTINEL;
        ASSERT_TRUE(one.GetClosestPoints(other, here, there));
        const Vec3d gap = there - here;
        const double sine = one.GetDirection().Cross(other.GetDirection()).Length();
        if (sine < 0.05) {
            continue;
        }
        ++tested;
        // On their lines, and the gap is perpendicular to both.
        ASSERT_TRUE(IsClose(here, one.GetClosestPoint(here), 1e-11));
        ASSERT_TRUE(IsClose(there, other.GetClosestPoint(there), 1e-11));
        ASSERT_NEAR(gap.Dot(one.GetDirection()), 0.0, 1e-10);
        ASSERT_NEAR(gap.Dot(other.GetDirection()), 0.0, 1e-10);
        double nearest = LARGEST;
        for (double s = -10; s <= 10; s += 0.125) {
            for (double t = -10; t <= 10; t += 0.125) {
                const Vec3d p = one.GetPosition() + one.GetDirection() * s;
                const Vec3d q = other.GetPosition() + other.GetDirection() * t;
                nearest = std::min(nearest, p.DistanceSquared(q));
            }
        }
        ASSERT_LE(gap.Length(), std::sqrt(nearest) + 1e-11) << "seed " << SEED;
    }
    EXPECT_GT(tested, 250);
}

TEST(ClosestPoints, SwappedLinesSwapThePoints) {
    RandomSpace random;
    for (int i = 0; i < 5000; ++i) {
        const ParametricLine3 one = random.Line(10), other = random.Line(10);
        Vec3d here = SENTINEL, there = SENTINEL, swappedHere = SENTINEL, swappedThere = SENTINEL;
        ASSERT_TRUE(one.GetClosestPoints(other, here, there));
        ASSERT_TRUE(other.GetClosestPoints(one, swappedHere, swappedThere));
        ASSERT_EQ(here, swappedThere);
        ASSERT_EQ(there, swappedHere);
    }
}

TEST(ClosestPoints, NoLineLeavesTheOutputsAlone) {
    Vec3d here = SENTINEL, there = SENTINEL;
    const ParametricLine3 none(Vec3d(1, 1, 1), Vec3d(1, 1, 1));
    const ParametricLine3 noNumber(Vec3d(NOT_A_NUMBER, 1, 1), Vec3d(1, 1, 1));
    const ParametricLine3 infinite(Vec3d(0, 0, 0), Vec3d(INF, 0, 0));
    for (const ParametricLine3& bad : {none, noNumber, infinite, ParametricLine3()}) {
        EXPECT_FALSE(ALONG_X.GetClosestPoints(bad, here, there));
        EXPECT_FALSE(bad.GetClosestPoints(ALONG_X, here, there));
    }
    // Too far away to be represented.
    const ParametricLine3 far(Vec3d(LARGEST, LARGEST, 0), Vec3d(LARGEST, 0, 1e300));
    EXPECT_FALSE(ParametricLine3(Vec3d(-LARGEST, 0, 0), Vec3d(-LARGEST, 1e300, 0))
                     .GetClosestPoints(far, here, there));
    EXPECT_EQ(here, SENTINEL);
    EXPECT_EQ(there, SENTINEL);
}

// --- Line and box

const Box3d BOX(Vec3d(-1, -2, -3), Vec3d(1, 2, 3));

TEST(LineThroughBox, EntersAndLeaves) {
    Vec3d first = SENTINEL, second = SENTINEL;
    EXPECT_TRUE(ParametricLine3(Vec3d(-9, 0, 0), Vec3d(0, 0, 0)).Intersect(BOX, first, second));
    EXPECT_EQ(first, Vec3d(-1, 0, 0));
    EXPECT_EQ(second, Vec3d(1, 0, 0));
    EXPECT_TRUE(ParametricLine3(Vec3d(0, 0, 0), Vec3d(-9, 0, 0)).Intersect(BOX, first, second));
    EXPECT_EQ(first, Vec3d(1, 0, 0)); // from within: the whole line counts
    EXPECT_EQ(second, Vec3d(-1, 0, 0));
    EXPECT_TRUE(ParametricLine3(Vec3d(0, 0, 99), Vec3d(0, 0, 100)).Intersect(BOX, first, second));
    EXPECT_EQ(first, Vec3d(0, 0, -3)); // behind the position
    EXPECT_EQ(second, Vec3d(0, 0, 3));
}

TEST(LineThroughBox, ThroughOppositeCorners) {
    const Box3d cube(Vec3d(-1, -1, -1), Vec3d(1, 1, 1));
    Vec3d first = SENTINEL, second = SENTINEL;
    EXPECT_TRUE(ParametricLine3(Vec3d(-5, -5, -5), Vec3d(5, 5, 5)).Intersect(cube, first, second));
    EXPECT_TRUE(IsClose(first, Vec3d(-1, -1, -1), 1e-15));
    EXPECT_TRUE(IsClose(second, Vec3d(1, 1, 1), 1e-15));
}

TEST(LineThroughBox, MissesLeaveTheOutputsAlone) {
    Vec3d first = SENTINEL, second = SENTINEL;
    const auto misses = [&](const ParametricLine3& line, const Box3d& box) {
        EXPECT_FALSE(line.Intersect(box, first, second));
        EXPECT_EQ(first, SENTINEL);
        EXPECT_EQ(second, SENTINEL);
    };
    misses(ParametricLine3(Vec3d(-9, 3, 0), Vec3d(0, 3, 0)), BOX);
    misses(ParametricLine3(Vec3d(-9, 0, 4), Vec3d(0, 0, 4)), BOX);
    misses(ParametricLine3(Vec3d(0, 4, 0), Vec3d(4, 0, 0)), BOX); // passes a corner
    misses(ALONG_X, Box3d());
    misses(ALONG_X, Box3d(Vec3d(1, -1, -1), Vec3d(-1, 1, 1)));
    misses(ALONG_X, Box3d(Vec3d(NOT_A_NUMBER, -1, -1), Vec3d(1, 1, 1)));
    misses(ALONG_X, Box3d(Vec3d(-1, -1, -1), Vec3d(1, NOT_A_NUMBER, 1)));
    misses(ParametricLine3(), BOX);
    misses(ParametricLine3(Vec3d(0, 0, 0), Vec3d(0, 0, 0)), BOX);
    misses(ParametricLine3(Vec3d(NOT_A_NUMBER, 0, 0), Vec3d(1, 0, 0)), BOX);
    misses(ParametricLine3(Vec3d(INF, 0, 0), Vec3d(1, 0, 0)), BOX);
}

TEST(LineThroughBox, TouchesFacesEdgesAndCornersAlongTheAxes) {
    Vec3d first = SENTINEL, second = SENTINEL;
    EXPECT_TRUE(ParametricLine3(Vec3d(-9, 2, 0), Vec3d(0, 2, 0)).Intersect(BOX, first, second));
    EXPECT_EQ(first, Vec3d(-1, 2, 0));
    EXPECT_EQ(second, Vec3d(1, 2, 0));
    EXPECT_TRUE(ParametricLine3(Vec3d(-9, 2, 3), Vec3d(0, 2, 3)).Intersect(BOX, first, second));
    EXPECT_EQ(first, Vec3d(-1, 2, 3));
}

TEST(LineThroughBox, FlatBoxesAndPoints) {
    Vec3d first = SENTINEL, second = SENTINEL;
    const Box3d flat(Vec3d(2, -1, -1), Vec3d(2, 1, 1));
    EXPECT_TRUE(ALONG_X.Intersect(flat, first, second));
    EXPECT_EQ(first, Vec3d(2, 0, 0));
    EXPECT_EQ(second, Vec3d(2, 0, 0));
    const Box3d point(Vec3d(5, 0, 0), Vec3d(5, 0, 0));
    EXPECT_TRUE(ALONG_X.Intersect(point, first, second));
    EXPECT_EQ(first, Vec3d(5, 0, 0));
}

TEST(LineThroughBox, LargestBoxDoesNotOverflow) {
    const Box3d all(Vec3d(-LARGEST, -LARGEST, -LARGEST), Vec3d(LARGEST, LARGEST, LARGEST));
    Vec3d first = SENTINEL, second = SENTINEL;
    EXPECT_TRUE(ParametricLine3(Vec3d(0, 0, 0), Vec3d(1, 1, 0)).Intersect(all, first, second));
    EXPECT_EQ(first, Vec3d(-LARGEST, -LARGEST, 0));
    EXPECT_EQ(second, Vec3d(LARGEST, LARGEST, 0));
}

TEST(LineThroughBox, AgreesWithPointsSampledOnTheLine) {
    RandomSpace random;
    int hits = 0, misses = 0;
    for (int i = 0; i < 3000; ++i) {
        const Vec3d u = random.Point(3), v = random.Point(3);
        const Box3d box(Vec3d(std::min(u.x, v.x), std::min(u.y, v.y), std::min(u.z, v.z)),
                        Vec3d(std::max(u.x, v.x), std::max(u.y, v.y), std::max(u.z, v.z)));
        const ParametricLine3 line = random.Line(5);
        Vec3d first = SENTINEL, second = SENTINEL;
        const bool hit = line.Intersect(box, first, second);
        ++(hit ? hits : misses);
        const auto inside = [&](const Vec3d& p) {
            return box.minCorner.x <= p.x && p.x <= box.maxCorner.x && box.minCorner.y <= p.y &&
                   p.y <= box.maxCorner.y && box.minCorner.z <= p.z && p.z <= box.maxCorner.z;
        };
        double from = INF, to = -INF;
        for (double t = -16; t <= 16; t += 0x1p-6) {
            if (inside(line.GetPosition() + line.GetDirection() * t)) {
                from = std::min(from, t);
                to = std::max(to, t);
            }
        }
        if (from <= to) {
            ASSERT_TRUE(hit) << "seed " << SEED;
        }
        if (hit) {
            ASSERT_TRUE(inside(first) && inside(second));
            ASSERT_TRUE(IsClose(first, line.GetClosestPoint(first), 1e-13));
            ASSERT_TRUE(IsClose(second, line.GetClosestPoint(second), 1e-13));
            const double entry = line.GetDirection().Dot(first - line.GetPosition());
            const double exit = line.GetDirection().Dot(second - line.GetPosition());
            ASSERT_LE(entry, exit + 1e-13);
            ASSERT_LE(exit - entry - 0x1p-5, std::max(0.0, to - from)); // no more than was sampled
            const auto onFace = [&](const Vec3d& p) {
                return p.x == box.minCorner.x || p.x == box.maxCorner.x || p.y == box.minCorner.y ||
                       p.y == box.maxCorner.y || p.z == box.minCorner.z || p.z == box.maxCorner.z;
            };
            ASSERT_TRUE(onFace(first) && onFace(second));
        }
    }
    EXPECT_GT(hits, 300);
    EXPECT_GT(misses, 300);
}

// --- Pick test of a triangle

struct TriangleHit {
    bool met;
    Vec3d point, weights;
    bool front;
};

TriangleHit Pick(const ParametricLine3& line, const Vec3d& a, const Vec3d& b, const Vec3d& c) {
    TriangleHit hit{false, SENTINEL, SENTINEL, false};
    hit.met = line.Intersect(a, b, c, hit.point, hit.weights, hit.front);
    return hit;
}

const ParametricLine3 DOWN(Vec3d(1, 1, 5), Vec3d(1, 1, 0));

TEST(PickTriangle, PointWeightsAndFront) {
    const TriangleHit hit = Pick(DOWN, Vec3d(0, 0, 1), Vec3d(4, 0, 1), Vec3d(0, 4, 1));
    EXPECT_TRUE(hit.met);
    EXPECT_EQ(hit.point, Vec3d(1, 1, 1));
    EXPECT_EQ(hit.weights, Vec3d(0.5, 0.25, 0.25));
    EXPECT_TRUE(hit.front); // seen from above, counter-clockwise
    const TriangleHit back = Pick(DOWN, Vec3d(0, 0, 1), Vec3d(0, 4, 1), Vec3d(4, 0, 1));
    EXPECT_TRUE(back.met);
    EXPECT_EQ(back.point, Vec3d(1, 1, 1));
    EXPECT_EQ(back.weights, Vec3d(0.5, 0.25, 0.25));
    EXPECT_FALSE(back.front);
}

TEST(PickTriangle, FlagIsWrittenBothWays) {
    Vec3d point, weights;
    bool front = false;
    EXPECT_TRUE(
        DOWN.Intersect(Vec3d(0, 0, 1), Vec3d(4, 0, 1), Vec3d(0, 4, 1), point, weights, front));
    EXPECT_TRUE(front);
    EXPECT_TRUE(
        DOWN.Intersect(Vec3d(0, 0, 1), Vec3d(0, 4, 1), Vec3d(4, 0, 1), point, weights, front));
    EXPECT_FALSE(front);
}

TEST(PickTriangle, BoundaryBelongsToIt) {
    for (const Vec3d& shift : {Vec3d(1, 1, 0), Vec3d(-3, 1, 0), Vec3d(1, -3, 0)}) {
        const TriangleHit vertex =
            Pick(DOWN, Vec3d(0, 0, 1) + shift, Vec3d(4, 0, 1) + shift, Vec3d(0, 4, 1) + shift);
        EXPECT_TRUE(vertex.met);
        EXPECT_EQ(vertex.point, Vec3d(1, 1, 1));
    }
    EXPECT_TRUE(Pick(DOWN, Vec3d(0, 1, 1), Vec3d(4, 1, 1), Vec3d(0, 4, 1)).met);
    EXPECT_TRUE(Pick(DOWN, Vec3d(1, 0, 1), Vec3d(4, 0, 1), Vec3d(1, 4, 1)).met);
    EXPECT_TRUE(Pick(DOWN, Vec3d(0, 0, 1), Vec3d(2, 0, 1), Vec3d(0, 2, 1)).met);
}

TEST(PickTriangle, MissesLeaveTheOutputsAlone) {
    const Vec3d a(0, 0, 1), b(4, 0, 1), c(0, 4, 1);
    const auto misses = [](const TriangleHit& hit) {
        EXPECT_FALSE(hit.met);
        EXPECT_EQ(hit.point, SENTINEL);
        EXPECT_EQ(hit.weights, SENTINEL);
        EXPECT_FALSE(hit.front);
    };
    misses(Pick(ParametricLine3(Vec3d(3, 3, 5), Vec3d(3, 3, 0)), a, b, c));  // beside
    misses(Pick(ParametricLine3(Vec3d(1, 1, 0), Vec3d(1, 1, -1)), a, b, c)); // behind
    misses(Pick(ParametricLine3(Vec3d(1, 1, 1), Vec3d(1, 1, 0)), a, b, c));  // at the position
    misses(Pick(ParametricLine3(Vec3d(-1, 1, 1), Vec3d(9, 1, 1)), a, b, c)); // edge-on
    misses(Pick(DOWN, a, b, b));
    misses(Pick(DOWN, Vec3d(0, 0, 1), Vec3d(1, 1, 1), Vec3d(2, 2, 1)));
    misses(Pick(DOWN, Vec3d(NOT_A_NUMBER, 0, 1), b, c));
    misses(Pick(DOWN, Vec3d(-INF, 0, 1), b, c));
    misses(Pick(ParametricLine3(), a, b, c));
    misses(Pick(ParametricLine3(Vec3d(1, NOT_A_NUMBER, 5), Vec3d(1, 1, 0)), a, b, c));
}

TEST(PickTriangle, AgreesWithExactIntegers) {
    RandomSpace random;
    int met = 0, missed = 0, front = 0;
    for (int i = 0; i < 50000; ++i) {
        // A line along the z axis keeps every product whole.
        const Vec3d a = random.Grid(4), b = random.Grid(4), c = random.Grid(4), p = random.Grid(4);
        const ParametricLine3 line(p, p + Vec3d(0, 0, 1));
        const auto side = [&](const Vec3d& u, const Vec3d& v) {
            return (v.x - u.x) * (p.y - u.y) - (v.y - u.y) * (p.x - u.x);
        };
        const double wa = side(b, c), wb = side(c, a), wc = side(a, b), sum = wa + wb + wc;
        const bool over = (wa >= 0 && wb >= 0 && wc >= 0) || (wa <= 0 && wb <= 0 && wc <= 0);
        // z of the triangle over p, times the sum
        const double z = wa * a.z + wb * b.z + wc * c.z;
        const bool expected = over && sum != 0 && (sum > 0 ? z > p.z * sum : z < p.z * sum);
        const TriangleHit hit = Pick(line, a, b, c);
        ASSERT_EQ(hit.met, expected) << "seed " << SEED;
        ++(expected ? met : missed);
        if (expected) {
            ASSERT_EQ(hit.front, sum < 0); // looking up, counter-clockwise is the back
            ASSERT_TRUE(IsClose(hit.point, Vec3d(p.x, p.y, z / sum), 1e-13));
            ASSERT_EQ(hit.weights, Vec3d(wa / sum, wb / sum, wc / sum));
            front += hit.front ? 1 : 0;
        }
    }
    EXPECT_GT(met, 2000);
    EXPECT_GT(missed, 20000);
    EXPECT_GT(front, 500);
}

TEST(PickTriangle, PointIsOnTheLineAndInTheTriangle) {
    RandomSpace random;
    int met = 0;
    for (int i = 0; i < 20000; ++i) {
        const Vec3d a = random.Point(3), b = random.Point(3), c = random.Point(3);
        const ParametricLine3 line = random.Line(3);
        const TriangleHit hit = Pick(line, a, b, c);
        const Vec3d normal = (b - a).Cross(c - a);
        if (!hit.met || std::fabs(normal.Dot(line.GetDirection())) < 0.05) {
            continue;
        }
        ++met;
        ASSERT_TRUE(IsClose(hit.point, line.GetClosestPoint(hit.point), 1e-11));
        ASSERT_GT(line.GetDirection().Dot(hit.point - line.GetPosition()), -1e-11);
        ASSERT_NEAR(hit.weights.x + hit.weights.y + hit.weights.z, 1.0, 1e-15);
        ASSERT_TRUE(hit.weights.x >= 0 && hit.weights.y >= 0 && hit.weights.z >= 0);
        ASSERT_TRUE(
            IsClose(hit.point, a * hit.weights.x + b * hit.weights.y + c * hit.weights.z, 1e-14));
        ASSERT_EQ(hit.front, normal.Dot(line.GetDirection()) < 0);
    }
    EXPECT_GT(met, 500);
}

TEST(PickTriangle, NoLineSlipsThroughACommonEdge) {
    RandomSpace random;
    int byOneOnly = 0;
    for (int i = 0; i < 20000; ++i) {
        // Two triangles on both sides of the edge b-c, aimed at a point of the edge.
        const Vec3d b(random.Real(1), random.Real(1), 1), c(random.Real(1), random.Real(1), 1);
        const Vec3d away = Vec3d(c.y - b.y, b.x - c.x, 0).Normalized() * 5;
        if ((c - b).Length() < 0.1) {
            continue;
        }
        const double f = 0.25 + 0.25 * (1 + random.Real(1));
        const Vec3d target = b + (c - b) * f;
        const ParametricLine3 line(random.Point(0.5) - Vec3d(0, 0, 3), target);
        const bool left = Pick(line, b - away, b, c).met;
        const bool right = Pick(line, b + away, c, b).met;
        ASSERT_TRUE(left || right) << "seed " << SEED;
        byOneOnly += left != right ? 1 : 0;
    }
    EXPECT_GT(byOneOnly, 5000);
}

} // namespace
} // namespace geom
