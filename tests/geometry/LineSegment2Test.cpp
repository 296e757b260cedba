// SPDX-License-Identifier: MIT
#include "geometry/LineSegment2.h"

#include "tests/support/Floats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <type_traits>

namespace geom {
namespace {

using namespace test;

static_assert(std::is_trivially_copyable_v<LineSegment2>);
static_assert(sizeof(LineSegment2) == 4 * sizeof(double));

constexpr unsigned SEED = 8101;

struct GridPoint {
    std::int64_t x, y;
    bool operator==(const GridPoint& o) const { return x == o.x && y == o.y; }
    Vec2d ToVec() const { return {static_cast<double>(x), static_cast<double>(y)}; }
};

struct GridSegment {
    GridPoint a, b;
    LineSegment2 ToSegment() const { return {a.ToVec(), b.ToVec()}; }
};

__extension__ using Wide = __int128;

int SideOf(const GridPoint& a, const GridPoint& b, const GridPoint& p) {
    const Wide cross = Wide(b.x - a.x) * (p.y - a.y) - Wide(b.y - a.y) * (p.x - a.x);
    return cross > 0 ? 1 : cross < 0 ? -1 : 0;
}

bool StrictlyBetween(const GridPoint& a, const GridPoint& b, const GridPoint& p) {
    const Wide dot = Wide(a.x - p.x) * (b.x - p.x) + Wide(a.y - p.y) * (b.y - p.y);
    return SideOf(a, b, p) == 0 && dot < 0;
}

// A proper crossing, or an end of one in the inside of the other; never collinear.
bool CrossOrTouchInside(const GridSegment& s, const GridSegment& t) {
    const int p = SideOf(s.a, s.b, t.a);
    const int q = SideOf(s.a, s.b, t.b);
    const int a = SideOf(t.a, t.b, s.a);
    const int b = SideOf(t.a, t.b, s.b);
    if ((p == 0 && q == 0) || (a == 0 && b == 0)) {
        return false;
    }
    if (p * q < 0 && a * b < 0) {
        return true;
    }
    return StrictlyBetween(s.a, s.b, t.a) || StrictlyBetween(s.a, s.b, t.b) ||
           StrictlyBetween(t.a, t.b, s.a) || StrictlyBetween(t.a, t.b, s.b);
}

class RandomGrid {
public:
    explicit RandomGrid(std::int64_t reach) : m_coordinate(-reach, reach) {}
    GridPoint Point() { return {m_coordinate(m_engine), m_coordinate(m_engine)}; }
    GridSegment Segment() { return {Point(), Point()}; }

private:
    std::mt19937_64 m_engine{SEED};
    std::uniform_int_distribution<std::int64_t> m_coordinate;
};

TEST(LineSegment2, DefaultIsAtTheOrigin) {
    const LineSegment2 s;
    EXPECT_EQ(s.A(), Vec2d(0, 0));
    EXPECT_EQ(s.B(), Vec2d(0, 0));
}

TEST(LineSegment2, ConstructorsKeepTheOrderOfTheEnds) {
    const LineSegment2 fromPoints(Vec2d(1, 2), Vec2d(3, 4));
    const LineSegment2 fromNumbers(1, 2, 3, 4);
    EXPECT_EQ(fromPoints.A(), Vec2d(1, 2));
    EXPECT_EQ(fromPoints.B(), Vec2d(3, 4));
    EXPECT_EQ(fromNumbers.A(), Vec2d(1, 2));
    EXPECT_EQ(fromNumbers.B(), Vec2d(3, 4));
}

TEST(LineSegment2, SettersReplaceOneEnd) {
    LineSegment2 s(1, 2, 3, 4);
    s.A(Vec2d(5, 6));
    EXPECT_EQ(s.A(), Vec2d(5, 6));
    EXPECT_EQ(s.B(), Vec2d(3, 4));
    s.B(s.A());
    EXPECT_EQ(s.B(), Vec2d(5, 6));
}

TEST(LineSegment2, CopyAndAssignmentAreIndependent) {
    LineSegment2 s(1, 2, 3, 4);
    const LineSegment2 copy(s);
    LineSegment2 assigned;
    assigned = s;
    s.A(Vec2d(9, 9));
    EXPECT_EQ(copy.A(), Vec2d(1, 2));
    EXPECT_EQ(assigned.A(), Vec2d(1, 2));
}

TEST(LineSegment2, EqualsItsReverse) {
    const LineSegment2 s(0, 0, 1, 1);
    EXPECT_TRUE(s == LineSegment2(0, 0, 1, 1));
    EXPECT_TRUE(s == LineSegment2(1, 1, 0, 0));
    EXPECT_FALSE(s != LineSegment2(1, 1, 0, 0));
}

TEST(LineSegment2, DiffersInEachCoordinate) {
    const LineSegment2 s(0, 0, 1, 2);
    for (const LineSegment2& other :
         {LineSegment2(5, 0, 1, 2), LineSegment2(0, 5, 1, 2), LineSegment2(0, 0, 5, 2),
          LineSegment2(0, 0, 1, 5), LineSegment2(2, 1, 0, 0), LineSegment2(0, 0, 0, 0),
          LineSegment2(1, 2, 1, 2)}) {
        EXPECT_FALSE(s == other);
        EXPECT_TRUE(s != other);
    }
}

TEST(LineSegment2, NotANumberDiffersFromItself) {
    const LineSegment2 s(NOT_A_NUMBER, 0, 1, 1);
    EXPECT_FALSE(s == s);
    EXPECT_TRUE(s != s);
}

TEST(LineSegment2, TranslationMovesBothEnds) {
    const LineSegment2 s(1, 2, 3, 4);
    const LineSegment2 moved = s + Vec2d(10, 20);
    EXPECT_EQ(moved.A(), Vec2d(11, 22));
    EXPECT_EQ(moved.B(), Vec2d(13, 24));
    const LineSegment2 back = moved - Vec2d(10, 20);
    EXPECT_EQ(back.A(), s.A());
    EXPECT_EQ(back.B(), s.B());
    LineSegment2 inPlace = s;
    EXPECT_EQ(&(inPlace += Vec2d(10, 20)), &inPlace);
    EXPECT_EQ(inPlace.B(), moved.B());
    EXPECT_EQ(&(inPlace -= Vec2d(10, 20)), &inPlace);
    EXPECT_EQ(inPlace.A(), s.A());
}

TEST(LineSegment2, TranslationByAnOwnEndReadsItFirst) {
    LineSegment2 s(1, 2, 3, 4);
    s += s.A();
    EXPECT_EQ(s.A(), Vec2d(2, 4));
    EXPECT_EQ(s.B(), Vec2d(4, 6));
    s -= s.A();
    EXPECT_EQ(s.A(), Vec2d(0, 0));
    EXPECT_EQ(s.B(), Vec2d(2, 2));
}

TEST(LineSegment2, Length) {
    EXPECT_EQ(LineSegment2(1, 1, 4, 5).Length(), 5.0);
    EXPECT_EQ(LineSegment2(2, 3, 2, 3).Length(), 0.0);
    EXPECT_EQ(LineSegment2(0, 0, 1, 1).Length(), 0x1.6a09e667f3bcdp+0);
    EXPECT_EQ(LineSegment2(-LARGEST, 0, LARGEST, 0).Length(), INF);
    EXPECT_EQ(LineSegment2(0, 0, SMALLEST, 0).Length(), 0.0); // the square underflows
    EXPECT_TRUE(std::isnan(LineSegment2(NOT_A_NUMBER, 0, 1, 1).Length()));
}

TEST(LineSegment2Bisects, SeparatesStrictly) {
    const LineSegment2 s(0, 0, 1, 0);
    EXPECT_TRUE(s.Bisects(Vec2d(5, 1), Vec2d(-7, -1))); // beyond the ends, too
    EXPECT_FALSE(s.Bisects(Vec2d(0, 1), Vec2d(1, 1)));
    EXPECT_FALSE(s.Bisects(Vec2d(0, -1), Vec2d(1, -1)));
    EXPECT_FALSE(s.Bisects(Vec2d(9, 0), Vec2d(1, 1)));
    EXPECT_FALSE(s.Bisects(Vec2d(0, 1), Vec2d(-3, 0)));
}

TEST(LineSegment2Bisects, NoLineOrNoNumberSeparatesNothing) {
    EXPECT_FALSE(LineSegment2(2, 2, 2, 2).Bisects(Vec2d(0, 0), Vec2d(5, 5)));
    EXPECT_FALSE(LineSegment2(0, 0, 1, 0).Bisects(Vec2d(0, NOT_A_NUMBER), Vec2d(0, 1)));
}

TEST(LineSegment2Sides, BothHoldOnTheLine) {
    const LineSegment2 s(0, 0, 4, 2);
    EXPECT_TRUE(s.ToTheLeft(Vec2d(0, 1)));
    EXPECT_FALSE(s.ToTheRight(Vec2d(0, 1)));
    EXPECT_FALSE(s.ToTheLeft(Vec2d(1, 0)));
    EXPECT_TRUE(s.ToTheRight(Vec2d(1, 0)));
    for (const Vec2d& onLine : {Vec2d(2, 1), Vec2d(0, 0), Vec2d(4, 2), Vec2d(-2, -1)}) {
        EXPECT_TRUE(s.ToTheLeft(onLine));
        EXPECT_TRUE(s.ToTheRight(onLine));
    }
    EXPECT_FALSE(s.ToTheLeft(Vec2d(NOT_A_NUMBER, 0)));
    EXPECT_FALSE(s.ToTheRight(Vec2d(NOT_A_NUMBER, 0)));
}

TEST(LineSegment2Sides, AgreeWithExactIntegers) {
    RandomGrid grid(4);
    int onLine = 0;
    for (int i = 0; i < 20000; ++i) {
        const GridSegment s = grid.Segment();
        const GridPoint p = grid.Point();
        const int side = SideOf(s.a, s.b, p);
        onLine += side == 0 ? 1 : 0;
        ASSERT_EQ(s.ToSegment().ToTheLeft(p.ToVec()), side >= 0);
        ASSERT_EQ(s.ToSegment().ToTheRight(p.ToVec()), side <= 0);
        const GridPoint q = grid.Point();
        ASSERT_EQ(s.ToSegment().Bisects(p.ToVec(), q.ToVec()), side * SideOf(s.a, s.b, q) < 0);
    }
    EXPECT_GT(onLine, 1000);
}

// Near the line rounding decides, and differences taken from A would often round another way.
TEST(LineSegment2Sides, DifferencesAreTakenFromThePoint) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-1.0, 1.0);
    int differing = 0;
    for (int i = 0; i < 20000; ++i) {
        const Vec2d a(coordinate(random), coordinate(random));
        const Vec2d b(coordinate(random), coordinate(random));
        const double t = coordinate(random);
        const Vec2d p(a.x + t * (b.x - a.x), a.y + t * (b.y - a.y));
        const LineSegment2 s(a, b);
        const bool left = (p.y - a.y) * (b.x - p.x) >= (b.y - p.y) * (p.x - a.x);
        ASSERT_EQ(s.ToTheLeft(p), left);
        const bool fromA = (b.x - a.x) * (p.y - a.y) >= (b.y - a.y) * (p.x - a.x);
        differing += left != fromA ? 1 : 0;
    }
    EXPECT_GT(differing, 1000);
}

TEST(DistanceSquaredToSegment, BeforeBesideAndBeyond) {
    const LineSegment2 s(0, 0, 4, 0);
    EXPECT_EQ(DistanceSquared(s, Vec2d(-3, 4)), 25.0);
    EXPECT_EQ(DistanceSquared(s, Vec2d(2, 3)), 9.0);
    EXPECT_EQ(DistanceSquared(s, Vec2d(7, 4)), 25.0);
    EXPECT_EQ(DistanceSquared(s, Vec2d(0, 5)), 25.0);
    EXPECT_EQ(DistanceSquared(s, Vec2d(4, 5)), 25.0);
    EXPECT_EQ(DistanceSquared(s, Vec2d(3, 0)), 0.0);
}

TEST(DistanceSquaredToSegment, NoLengthMeansTheDistanceToThePoint) {
    EXPECT_EQ(DistanceSquared(LineSegment2(1, 1, 1, 1), Vec2d(4, 5)), 25.0);
}

// Beside the segment the square of the projection is subtracted, and rounding may leave less
// than nothing for a point on the segment.
TEST(DistanceSquaredToSegment, FollowsItsFormulaToTheBit) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    int beside = 0;
    for (int i = 0; i < 20000; ++i) {
        const Vec2d a(coordinate(random), coordinate(random));
        const Vec2d b(coordinate(random), coordinate(random));
        const Vec2d p(coordinate(random), coordinate(random));
        const double dx = b.x - a.x, dy = b.y - a.y, wx = p.x - a.x, wy = p.y - a.y;
        const double t = dy * wy + wx * dx;
        double expected = wx * wx + wy * wy;
        if (t > 0.0 && t > dx * dx + dy * dy) {
            expected = (p.x - b.x) * (p.x - b.x) + (p.y - b.y) * (p.y - b.y);
        } else if (t > 0.0) {
            expected -= t * t / (dx * dx + dy * dy);
            ++beside;
        }
        ASSERT_TRUE(SameBits(DistanceSquared(LineSegment2(a, b), p), expected));
    }
    EXPECT_GT(beside, 2000);
}

// Just beside the second end the difference of squares still counts, and here it keeps no digit.
TEST(DistanceSquaredToSegment, LevelWithTheSecondEndCountsAsBeside) {
    const LineSegment2 s(0, 0, 1e8, 0);
    EXPECT_EQ(DistanceSquared(s, Vec2d(1e8, 0.1)), 0.0);
    EXPECT_EQ(DistanceSquared(s, Vec2d(1e8 + 1, 0)), 1.0);
}

TEST(DistanceSquaredToSegment, SurvivesAnyInput) {
    EXPECT_TRUE(std::isnan(DistanceSquared(LineSegment2(0, 0, 1, 0), Vec2d(NOT_A_NUMBER, 0))));
    EXPECT_EQ(DistanceSquared(LineSegment2(0, 0, 1, 0), Vec2d(INF, 0)), INF);
    EXPECT_EQ(DistanceSquared(LineSegment2(0, 0, 1, 0), Vec2d(-LARGEST, 0)), INF);
}

struct CrossingCase {
    const char* name;
    LineSegment2 s, t;
    bool expected;
};

TEST(SegmentIntersectsSegment, Situations) {
    const CrossingCase cases[] = {
        {"proper crossing", {0, 0, 2, 2}, {0, 2, 2, 0}, true},
        {"shared end-point", {0, 0, 1, 0}, {1, 0, 2, 1}, false},
        {"T with an end of t", {0, 0, 2, 0}, {1, 0, 1, 5}, true},
        {"T with an end of s", {1, 0, 1, 5}, {0, 0, 2, 0}, true},
        {"T with the other end", {0, 0, 2, 0}, {1, 5, 1, 0}, true},
        {"collinear and overlapping", {0, 0, 2, 0}, {1, 0, 3, 0}, false},
        {"collinear and apart", {0, 0, 1, 0}, {2, 0, 3, 0}, false},
        {"collinear, end to end", {0, 0, 1, 0}, {1, 0, 2, 0}, false},
        {"the same segment", {0, 0, 1, 1}, {0, 0, 1, 1}, false},
        {"its reverse", {0, 0, 1, 1}, {1, 1, 0, 0}, false},
        {"parallel", {0, 0, 1, 0}, {0, 1, 1, 1}, false},
        {"apart", {0, 0, 1, 0}, {5, 1, 5, 2}, false},
        {"end on the other's line, outside it", {0, 0, 1, 0}, {2, 0, 2, 1}, false},
        {"a point on the other", {1, 0, 1, 0}, {0, 0, 2, 0}, false},
        {"a point of t on s", {0, 0, 2, 0}, {1, 0, 1, 0}, false},
        {"two points", {1, 1, 1, 1}, {1, 1, 1, 1}, false},
    };
    for (const CrossingCase& c : cases) {
        EXPECT_EQ(Intersects(c.s, c.t), c.expected) << c.name;
        EXPECT_EQ(Intersects(c.t, c.s), c.expected) << c.name << ", swapped";
    }
}

TEST(SegmentIntersectsSegment, AgreesWithExactIntegersOnAllSegmentsOfASmallGrid) {
    constexpr std::int64_t SIDE = 4;
    constexpr std::int64_t POINTS = SIDE * SIDE;
    const auto point = [](std::int64_t i) { return GridPoint{i % SIDE, i / SIDE}; };
    int crossings = 0;
    for (std::int64_t i = 0; i < POINTS * POINTS * POINTS * POINTS; ++i) {
        const GridSegment s{point(i % POINTS), point(i / POINTS % POINTS)};
        const GridSegment t{point(i / POINTS / POINTS % POINTS),
                            point(i / POINTS / POINTS / POINTS)};
        const bool expected = CrossOrTouchInside(s, t);
        crossings += expected ? 1 : 0;
        ASSERT_EQ(Intersects(s.ToSegment(), t.ToSegment()), expected)
            << s.a.x << ',' << s.a.y << ' ' << s.b.x << ',' << s.b.y << " and " << t.a.x << ','
            << t.a.y << ' ' << t.b.x << ',' << t.b.y;
    }
    EXPECT_GT(crossings, 5000);
}

TEST(SegmentIntersectsSegment, AgreesWithExactIntegersOnLargeCoordinates) {
    RandomGrid grid(1 << 24); // all products and their sums stay below 2^53
    int crossings = 0;
    for (int i = 0; i < 50000; ++i) {
        const GridSegment s = grid.Segment();
        const GridSegment t = grid.Segment();
        const bool expected = CrossOrTouchInside(s, t);
        crossings += expected ? 1 : 0;
        ASSERT_EQ(Intersects(s.ToSegment(), t.ToSegment()), expected) << "seed " << SEED;
    }
    EXPECT_GT(crossings, 5000);
}

// The side of s's second end comes from the other three sides; computed by its own cross product
// it would sometimes have another sign.
TEST(SegmentIntersectsSegment, TakesTheFourthSideFromTheOtherThree) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-1.0, 1.0);
    int differing = 0;
    for (int i = 0; i < 200000; ++i) {
        const Vec2d a(coordinate(random), coordinate(random));
        const Vec2d p(coordinate(random), coordinate(random));
        const Vec2d q(coordinate(random), coordinate(random));
        const double f = 0.5 + 0.5 * coordinate(random);
        const Vec2d b(p.x + f * (q.x - p.x), p.y + f * (q.y - p.y)); // nearly on p-q
        const double cP = (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
        const double cQ = (b.x - a.x) * (q.y - a.y) - (b.y - a.y) * (q.x - a.x);
        const double cA = (p.x - a.x) * (q.y - a.y) - (q.x - a.x) * (p.y - a.y);
        const double cB = (cP - cQ) + cA;
        const double own = (p.x - b.x) * (q.y - b.y) - (q.x - b.x) * (p.y - b.y);
        const bool sidesApart = !(cQ * cP > 0.0 || cB * cA > 0.0);
        const bool free = cA != 0.0 && cB != 0.0;
        const bool expected = sidesApart && (cP == 0.0 ? free : cQ != 0.0 || free);
        ASSERT_EQ(Intersects(LineSegment2(a, b), LineSegment2(p, q)), expected);
        differing += (own * cA > 0.0) != (cB * cA > 0.0) ? 1 : 0;
    }
    EXPECT_GT(differing, 100);
}

TEST(SegmentIntersectsSegment, SidesThatAreNotNumbersRejectNothing) {
    EXPECT_TRUE(Intersects(LineSegment2(0, 0, 1, 0), LineSegment2(NOT_A_NUMBER, 1, 2, 2)));
    EXPECT_TRUE(Intersects(LineSegment2(-INF, 0, INF, 0), LineSegment2(0, 1, 0, -1)));
    EXPECT_TRUE(Intersects(LineSegment2(NOT_A_NUMBER, NOT_A_NUMBER, NOT_A_NUMBER, NOT_A_NUMBER),
                           LineSegment2(0, 1, 0, -1)));
}

const Box2d BOX(0, 0, 4, 2);

TEST(SegmentIntersectsBox, Situations) {
    struct Case {
        const char* name;
        LineSegment2 s;
        bool expected;
    };
    const Case cases[] = {
        {"inside", {1, 1, 2, 1}, true},
        {"one end inside", {1, 1, 9, 9}, true},
        {"first end on the boundary", {4, 1, 9, 1}, true},
        {"second end on the boundary", {9, 1, 4, 1}, true},
        {"end on a corner", {4, 2, 9, 9}, true},
        {"through a corner from outside", {3, 3, 5, 1}, false},
        {"along the line of an edge, outside", {5, 0, 9, 0}, false},
        {"along an edge and beyond both ends", {-1, 0, 9, 0}, true},
        {"along an upright edge and beyond", {4, -1, 4, 9}, true},
        {"spanning level", {-1, 1, 9, 1.5}, true},
        {"spanning upright", {1, -1, 2, 9}, true},
        {"all to the left", {-1, -9, -2, 9}, false},
        {"from left, hits", {-1, 1, 2, 9}, false},
        {"from left to above, cuts the corner", {-1, 1, 1, 3}, false},
        {"from left to above, enters", {-1, 0, 2, 3}, true},
        {"from right to below, enters", {5, 1, 3, -1}, false},
        {"diagonal through both corners", {-4, -2, 8, 4}, true},
        {"other diagonal", {-4, 4, 8, -2}, true},
        {"no length, outside", {9, 9, 9, 9}, false},
        {"no length, on the boundary", {4, 2, 4, 2}, true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Intersects(c.s, BOX), c.expected) << c.name;
    }
}

// Exact clipping of a grid segment to a box with area: the stretch inside, as parameters along
// the segment, is compared by cross multiplication.
struct Fraction {
    std::int64_t over, under; // under > 0
    bool operator<(const Fraction& o) const { return over * o.under < o.over * under; }
    bool operator==(const Fraction& o) const { return over * o.under == o.over * under; }
};

struct Stretch {
    Fraction from{0, 1}, to{1, 1};
    bool empty = false;

    // Keeps what satisfies start + t * step >= 0.
    void Keep(std::int64_t start, std::int64_t step) {
        if (step == 0) {
            empty = empty || start < 0;
            return;
        }
        const Fraction t = step > 0 ? Fraction{-start, step} : Fraction{start, -step};
        if (step > 0 && from < t) {
            from = t;
        }
        if (step < 0 && t < to) {
            to = t;
        }
    }
};

bool ReachesBox(const GridSegment& s, const GridPoint& low, const GridPoint& high) {
    const auto inside = [&](const GridPoint& p) {
        return low.x <= p.x && p.x <= high.x && low.y <= p.y && p.y <= high.y;
    };
    if (inside(s.a) || inside(s.b)) {
        return true;
    }
    Stretch stretch;
    stretch.Keep(s.a.x - low.x, s.b.x - s.a.x);
    stretch.Keep(high.x - s.a.x, s.a.x - s.b.x);
    stretch.Keep(s.a.y - low.y, s.b.y - s.a.y);
    stretch.Keep(high.y - s.a.y, s.a.y - s.b.y);
    // With both ends outside, a single common point can only be a corner.
    return !stretch.empty && stretch.from < stretch.to;
}

TEST(SegmentIntersectsBox, AgreesWithExactClipping) {
    std::uint64_t hits = 0;
    std::uint64_t misses = 0;
    constexpr std::int64_t SIDE = 8; // around a box of 3 by 2 cells
    const GridPoint low{2, 3};
    const GridPoint high{5, 5};
    for (std::int64_t i = 0; i < SIDE * SIDE * SIDE * SIDE; ++i) {
        const GridSegment s{{i % SIDE, i / SIDE % SIDE},
                            {i / SIDE / SIDE % SIDE, i / SIDE / SIDE / SIDE}};
        const bool expected = ReachesBox(s, low, high);
        ++(expected ? hits : misses);
        ASSERT_EQ(Intersects(s.ToSegment(),
                             Box2d(low.ToVec().x, low.ToVec().y, high.ToVec().x, high.ToVec().y)),
                  expected)
            << s.a.x << ',' << s.a.y << ' ' << s.b.x << ',' << s.b.y;
    }
    EXPECT_GT(hits, 1000U);
    EXPECT_GT(misses, 1000U);
}

TEST(SegmentIntersectsBox, EmptyBoxIsMissed) {
    EXPECT_FALSE(Intersects(LineSegment2(-1, -1, 1, 1), Box2d()));
}

// A coordinate that is not a number compares as neither outside nor inside, hence as inside.
TEST(SegmentIntersectsBox, SurvivesAnyInput) {
    EXPECT_TRUE(Intersects(LineSegment2(NOT_A_NUMBER, 1, 9, 9), BOX));
    EXPECT_TRUE(Intersects(LineSegment2(-INF, 1, INF, 1), BOX));
    EXPECT_FALSE(Intersects(LineSegment2(-INF, -INF, INF, INF), BOX));
    EXPECT_FALSE(Intersects(LineSegment2(-9, NOT_A_NUMBER, -9, 9), BOX));
}

TEST(BoxContainsSegment, ClosedForBothEnds) {
    EXPECT_TRUE(Contains(BOX, LineSegment2(0, 0, 4, 2)));
    EXPECT_TRUE(Contains(BOX, LineSegment2(1, 1, 2, 1)));
    EXPECT_FALSE(Contains(BOX, LineSegment2(1, 1, 5, 1)));
    EXPECT_FALSE(Contains(BOX, LineSegment2(1, 3, 2, 1)));
    EXPECT_FALSE(Contains(BOX, LineSegment2(1, 1, NOT_A_NUMBER, 1)));
}

TEST(IntersectionOfSegmentLines, MayLieOutsideTheSegments) {
    Vec2d out(7, 7);
    EXPECT_TRUE(Intersection(LineSegment2(0, 0, 1, 1), LineSegment2(10, 0, 9, 1), out));
    EXPECT_EQ(out, Vec2d(5, 5));
}

TEST(IntersectionOfSegmentLines, ParallelLeavesTheOutputAlone) {
    Vec2d out(7, 7);
    EXPECT_FALSE(Intersection(LineSegment2(0, 0, 1, 1), LineSegment2(0, 1, 1, 2), out));
    EXPECT_FALSE(Intersection(LineSegment2(0, 0, 0, 0), LineSegment2(0, 1, 1, 2), out));
    EXPECT_FALSE(Intersection(LineSegment2(0, 0, NOT_A_NUMBER, 0), LineSegment2(0, 1, 1, 2), out));
    EXPECT_EQ(out, Vec2d(7, 7));
}

TEST(IntersectionOfSegmentLines, ThresholdIsTheSquareRootOfHalfTheSmallestNormal) {
    const double tiny = std::exp(-354.54478285641);
    EXPECT_EQ(tiny, 1.0547686614884418e-154);
    Vec2d out(7, 7);
    // The denominator is -1 * length.
    EXPECT_FALSE(Intersection(LineSegment2(0, 0, 1, 0), LineSegment2(0, 0, 0, tiny), out));
    EXPECT_EQ(out, Vec2d(7, 7));
    const double above = std::nextafter(tiny, 1.0);
    EXPECT_TRUE(Intersection(LineSegment2(0, 0, 1, 0), LineSegment2(0, 0, 0, above), out));
    EXPECT_EQ(out, Vec2d(0, 0));
}

TEST(IntersectionOfSegmentLines, FollowsItsFormulaToTheBit) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    for (int i = 0; i < 20000; ++i) {
        const double x1 = coordinate(random), y1 = coordinate(random), x2 = coordinate(random);
        const double y2 = coordinate(random), x3 = coordinate(random), y3 = coordinate(random);
        const double x4 = coordinate(random), y4 = coordinate(random);
        const double den = (x3 - x4) * (y2 - y1) - (y4 - y3) * (x1 - x2);
        const double c1 = x1 * y2 - x2 * y1;
        const double c2 = x3 * y4 - x4 * y3;
        Vec2d out(7, 7);
        ASSERT_TRUE(Intersection(LineSegment2(x1, y1, x2, y2), LineSegment2(x3, y3, x4, y4), out));
        ASSERT_TRUE(SameBits(out, Vec2d((c1 * (x3 - x4) - c2 * (x1 - x2)) / den,
                                        (c2 * (y2 - y1) - c1 * (y4 - y3)) / den)));
    }
}

} // namespace
} // namespace geom
