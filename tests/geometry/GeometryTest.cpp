// SPDX-License-Identifier: MIT
#include "geometry/Geometry.h"

#include "tests/reference/ClosestSegment.h"
#include "tests/support/Exceptions.h"
#include "tests/support/Floats.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace geom {
namespace {

using namespace test;

constexpr unsigned SEED = 8301;
constexpr std::int32_t LOWEST = INT32_MIN;
constexpr std::int32_t HIGHEST = INT32_MAX;

// The 32-bit number that a 64-bit one wraps around to, by counting rather than by bits.
std::int32_t Wrapped(std::int64_t value) {
    constexpr std::int64_t ROUND = std::int64_t{1} << 32;
    std::int64_t rest = value % ROUND;
    if (rest < LOWEST) {
        rest += ROUND;
    } else if (rest > HIGHEST) {
        rest -= ROUND;
    }
    return static_cast<std::int32_t>(rest);
}

class RandomPoints {
public:
    Vec2d Grid(std::int32_t reach) {
        const tagPOINT p = Device(reach);
        return {static_cast<double>(p.x), static_cast<double>(p.y)};
    }
    tagPOINT Device(std::int32_t reach) {
        std::uniform_int_distribution<std::int32_t> coordinate(-reach, reach);
        const std::int32_t x = coordinate(m_engine);
        return {x, coordinate(m_engine)};
    }
    // Small, near the limits of squares and of 32 bits, or anything.
    tagPOINT DeviceOfAnySize() {
        constexpr std::int32_t REACHES[] = {3, 40000, 70000, 1 << 30, HIGHEST};
        const auto reach = REACHES[m_engine() % 5];
        tagPOINT p = Device(reach);
        if (m_engine() % 16 == 0) {
            p.x = LOWEST;
        }
        return p;
    }
    double Real(double reach) {
        return std::uniform_real_distribution<double>(-reach, reach)(m_engine);
    }
    Vec2d Plane(double reach) {
        const double x = Real(reach);
        return {x, Real(reach)};
    }
    Vec3d Space(double reach) {
        const double x = Real(reach);
        const double y = Real(reach);
        return {x, y, Real(reach)};
    }
    std::uint64_t Next() { return m_engine(); }

private:
    std::mt19937_64 m_engine{SEED};
};

// --- SegmentsIntersect

TEST(SegmentsIntersect, DependsOnDirectionAtACommonEnd) {
    EXPECT_TRUE(SegmentsIntersect({0, 0}, {1, 0}, {1, 0}, {2, 1}));
    EXPECT_FALSE(SegmentsIntersect({1, 0}, {0, 0}, {1, 0}, {2, 1}));
}

TEST(SegmentsIntersect, Situations) {
    EXPECT_TRUE(SegmentsIntersect({0, 0}, {2, 2}, {0, 2}, {2, 0}));
    EXPECT_FALSE(SegmentsIntersect({0, 0}, {2, 0}, {0, 1}, {2, 1}));
    EXPECT_FALSE(SegmentsIntersect({0, 0}, {2, 0}, {1, 0}, {3, 0})); // collinear
    EXPECT_FALSE(SegmentsIntersect({0, 0}, {0, 0}, {-1, 0}, {1, 0}));
    EXPECT_FALSE(SegmentsIntersect({-1, 0}, {1, 0}, {0, 0}, {0, 0}));
}

TEST(SegmentsIntersect, AgreesWithExactSidesOnAGrid) {
    RandomPoints random;
    int crossings = 0;
    int onLine = 0;
    for (int i = 0; i < 100000; ++i) {
        const std::int32_t reach = i % 2 == 0 ? 2 : 1 << 24;
        const tagPOINT p1 = random.Device(reach), p2 = random.Device(reach);
        const tagPOINT q1 = random.Device(reach), q2 = random.Device(reach);
        const auto left = [](const tagPOINT& from, const tagPOINT& to, const tagPOINT& p) {
            return (std::int64_t{to.x} - from.x) * (std::int64_t{p.y} - from.y) -
                   (std::int64_t{to.y} - from.y) * (std::int64_t{p.x} - from.x);
        };
        // Seen from p1-p2 the sides of q are taken with the opposite sign.
        const bool apart1 = (left(q1, q2, p1) > 0) == (left(q1, q2, p2) > 0);
        const bool apart2 = (left(p1, p2, q1) > 0) == (left(p1, p2, q2) > 0);
        const bool expected = !apart1 && !apart2;
        ASSERT_EQ(SegmentsIntersect(p1, p2, q1, q2), expected)
            << p1.x << ',' << p1.y << ' ' << p2.x << ',' << p2.y << ' ' << q1.x << ',' << q1.y
            << ' ' << q2.x << ',' << q2.y;
        crossings += expected ? 1 : 0;
        onLine += left(q1, q2, p1) == 0 ? 1 : 0;
    }
    EXPECT_GT(crossings, 10000);
    EXPECT_GT(onLine, 5000);
}

TEST(SegmentsIntersect, PathThroughAVertexIsCountedOnce) {
    // Two segments that meet on the line q1-q2 and go on to its other side.
    const Vec2d q1(-5, 0), q2(5, 0);
    for (int upwards = 0; upwards < 2; ++upwards) {
        const double from = upwards != 0 ? -1 : 1;
        const int count = (SegmentsIntersect({0, from}, {1, 0}, q1, q2) ? 1 : 0) +
                          (SegmentsIntersect({1, 0}, {2, -from}, q1, q2) ? 1 : 0);
        EXPECT_EQ(count, 1);
    }
}

TEST(SegmentsIntersect, SurvivesAnyInput) {
    EXPECT_TRUE(SegmentsIntersect({NOT_A_NUMBER, 0}, {1, 0}, {0, 1}, {0, -1}));
    EXPECT_TRUE(SegmentsIntersect({-INF, 0}, {INF, 0}, {0, 1}, {0, -1}));
    EXPECT_TRUE(SegmentsIntersect({-LARGEST, 0}, {LARGEST, 0}, {0, -LARGEST}, {0, LARGEST}));
}

// --- PointLineSegDistSq

TEST(PointLineSegDistSq, BeforeBesideBeyond) {
    EXPECT_EQ(PointLineSegDistSq(Vec2d(-3, 4), Vec2d(0, 0), Vec2d(4, 0)), 25.0);
    EXPECT_EQ(PointLineSegDistSq(Vec2d(2, 3), Vec2d(0, 0), Vec2d(4, 0)), 9.0);
    EXPECT_EQ(PointLineSegDistSq(Vec2d(7, 4), Vec2d(0, 0), Vec2d(4, 0)), 25.0);
    EXPECT_EQ(PointLineSegDistSq(Vec2d(4, 5), Vec2d(0, 0), Vec2d(4, 0)), 25.0);
    EXPECT_EQ(PointLineSegDistSq(Vec2d(4, 5), Vec2d(1, 1), Vec2d(1, 1)), 25.0);
}

TEST(PointLineSegDistSq, FollowsItsFormulaToTheBit) {
    RandomPoints random;
    int beside = 0;
    for (int i = 0; i < 20000; ++i) {
        const Vec2d p = random.Plane(10), a = random.Plane(10), b = random.Plane(10);
        const double dx = b.x - a.x, dy = b.y - a.y, wx = p.x - a.x, wy = p.y - a.y;
        const double t = wx * dx + wy * dy;
        const double dd = dx * dx + dy * dy;
        double expected = (p.x - a.x) * (p.x - a.x) + (p.y - a.y) * (p.y - a.y);
        if (t > 0.0 && t >= dd) {
            expected = (p.x - b.x) * (p.x - b.x) + (p.y - b.y) * (p.y - b.y);
        } else if (t > 0.0) {
            const double f = t / dd;
            expected = (wx - f * dx) * (wx - f * dx) + (wy - f * dy) * (wy - f * dy);
            ++beside;
        }
        ASSERT_TRUE(SameBits(PointLineSegDistSq(p, a, b), expected));
    }
    EXPECT_GT(beside, 2000);
}

TEST(PointLineSegDistSq, InSpaceFollowsItsFormulaToTheBit) {
    RandomPoints random;
    int beside = 0;
    for (int i = 0; i < 20000; ++i) {
        const Vec3d p = random.Space(10), a = random.Space(10), b = random.Space(10);
        const double dx = b.x - a.x, dy = b.y - a.y, dz = b.z - a.z;
        const double wx = p.x - a.x, wy = p.y - a.y, wz = p.z - a.z;
        const double t = wx * dx + wy * dy + wz * dz;
        const double dd = dx * dx + dy * dy + dz * dz;
        double expected = wx * wx + wy * wy + wz * wz;
        if (t > 0.0 && t >= dd) {
            expected =
                (p.x - b.x) * (p.x - b.x) + (p.y - b.y) * (p.y - b.y) + (p.z - b.z) * (p.z - b.z);
        } else if (t > 0.0) {
            const double f = t / dd;
            const double mx = wx - f * dx, my = wy - f * dy, mz = wz - f * dz;
            expected = mx * mx + my * my + mz * mz;
            ++beside;
        }
        ASSERT_TRUE(SameBits(PointLineSegDistSq(p, a, b), expected));
    }
    EXPECT_GT(beside, 2000);
}

TEST(PointLineSegDistSq, InSpaceBeforeBesideBeyond) {
    const Vec3d a(0, 0, 0), b(0, 0, 4);
    EXPECT_EQ(PointLineSegDistSq(Vec3d(3, 0, -4), a, b), 25.0);
    EXPECT_EQ(PointLineSegDistSq(Vec3d(3, 4, 2), a, b), 25.0);
    EXPECT_EQ(PointLineSegDistSq(Vec3d(1, 2, 6), a, b), 9.0);
    EXPECT_EQ(PointLineSegDistSq(Vec3d(1, 2, 2), a, a), 9.0);
}

TEST(PointLineSegDistSq, NeverBelowTheTrueMinimumBeyondRounding) {
    RandomPoints random;
    for (int i = 0; i < 2000; ++i) {
        const Vec2d p = random.Plane(10), a = random.Plane(10), b = random.Plane(10);
        long double best = LARGEST;
        for (int step = 0; step <= 1000; ++step) {
            const long double f = step / 1000.0L;
            const long double dx = p.x - (a.x + f * (static_cast<long double>(b.x) - a.x));
            const long double dy = p.y - (a.y + f * (static_cast<long double>(b.y) - a.y));
            best = std::min(best, dx * dx + dy * dy);
        }
        const double found = PointLineSegDistSq(p, a, b);
        // The samples are at most 0.03 apart, so they miss the nearest point by half that.
        ASSERT_LE(found, static_cast<double>(best) + 1e-12);
        ASSERT_NEAR(std::sqrt(found), std::sqrt(static_cast<double>(best)), 0.016);
    }
}

double WrappedReference(const tagPOINT& p, const tagPOINT& a, const tagPOINT& b) {
    const auto minus = [](std::int32_t u, std::int32_t v) { return Wrapped(std::int64_t{u} - v); };
    const double dx = minus(b.x, a.x), dy = minus(b.y, a.y);
    const double wx = minus(p.x, a.x), wy = minus(p.y, a.y);
    const double t = wx * dx + wy * dy;
    const double dd = dx * dx + dy * dy;
    if (t <= 0.0) {
        return wx * wx + wy * wy;
    }
    if (t >= dd) {
        const std::int64_t ex = minus(p.x, b.x), ey = minus(p.y, b.y);
        return static_cast<double>(Wrapped(ey * ey)) + static_cast<double>(Wrapped(ex * ex));
    }
    const double f = t / dd;
    return (wx - f * dx) * (wx - f * dx) + (wy - f * dy) * (wy - f * dy);
}

TEST(PointLineSegDistSq, DevicePointsFollowTheWrappingFormulaToTheBit) {
    RandomPoints random;
    int wrapped = 0;
    for (int i = 0; i < 200000; ++i) {
        const tagPOINT p = random.DeviceOfAnySize();
        const tagPOINT a = random.DeviceOfAnySize();
        const tagPOINT b = random.DeviceOfAnySize();
        const double expected = WrappedReference(p, a, b);
        ASSERT_TRUE(SameBits(PointLineSegDistSq(p, a, b), expected));
        wrapped += expected != PointLineSegDistSq(Vec2d(p), Vec2d(a), Vec2d(b)) ? 1 : 0;
    }
    EXPECT_GT(wrapped, 10000);
}

TEST(PointLineSegDistSq, DevicePointsNearbyAreAsInThePlane) {
    RandomPoints random;
    for (int i = 0; i < 20000; ++i) {
        const tagPOINT p = random.Device(15000), a = random.Device(15000), b = random.Device(15000);
        ASSERT_EQ(PointLineSegDistSq(p, a, b), PointLineSegDistSq(Vec2d(p), Vec2d(a), Vec2d(b)));
    }
}

TEST(PointLineSegDistSq, SquaresOfDevicePointsWrapBeyondTheEndOnly) {
    const tagPOINT a{0, 0}, b{1, 0};
    EXPECT_EQ(PointLineSegDistSq(tagPOINT{46341, 0}, a, b), 46340.0 * 46340.0);
    EXPECT_EQ(PointLineSegDistSq(tagPOINT{46342, 0}, a, b), 46341.0 * 46341.0 - 4294967296.0);
    EXPECT_EQ(PointLineSegDistSq(tagPOINT{65537, 0}, a, b), 0.0); // 65536 squared
    EXPECT_EQ(PointLineSegDistSq(tagPOINT{-65536, 0}, a, b), 4294967296.0);
    // The differences wrap everywhere: HIGHEST - LOWEST is -1.
    EXPECT_EQ(PointLineSegDistSq(tagPOINT{HIGHEST, 0}, tagPOINT{LOWEST, 0}, tagPOINT{LOWEST, 0}),
              1.0);
}

TEST(PointLineSegDistSq, SurvivesAnyInput) {
    const double values[] = {0.0, 1.0, LARGEST, -LARGEST, SMALLEST, INF, NOT_A_NUMBER};
    for (const double x : values) {
        for (const double y : values) {
            const double planar = PointLineSegDistSq(Vec2d(x, y), Vec2d(y, 0), Vec2d(1, x));
            const double spatial =
                PointLineSegDistSq(Vec3d(x, y, 0), Vec3d(y, 0, 0), Vec3d(1, x, 0));
            EXPECT_FALSE(planar < 0.0);
            EXPECT_FALSE(spatial < 0.0);
        }
    }
}

// --- FindClosestSegment

template <typename Point>
void ExpectAsOneByOne(const std::vector<Point>& pts, const Point& p) {
    double expectedDistance = 0.0;
    const std::size_t expected =
        reference::FindClosestSegment(pts.data(), pts.size(), p, &expectedDistance);
    double distance = -1.0;
    ASSERT_EQ(FindClosestSegment(pts.data(), pts.size(), p, &distance), expected) << pts.size();
    ASSERT_TRUE(SameBits(distance, expectedDistance)) << pts.size();
    ASSERT_EQ(FindClosestSegment(pts.data(), pts.size(), p, nullptr), expected) << pts.size();
}

TEST(FindClosestSegment, FewerThanTwoVertices) {
    const Vec2d one(3, 4);
    const tagPOINT device{3, 4};
    for (std::size_t n = 0; n < 2; ++n) {
        double distance = -1.0;
        EXPECT_EQ(FindClosestSegment(&one, n, Vec2d(0, 0), &distance), 0U);
        EXPECT_EQ(distance, LARGEST);
        distance = -1.0;
        EXPECT_EQ(FindClosestSegment(&device, n, tagPOINT{0, 0}, &distance), 0U);
        EXPECT_EQ(distance, LARGEST);
        EXPECT_EQ(FindClosestSegment(&one, n, Vec2d(0, 0), nullptr), 0U);
    }
}

TEST(FindClosestSegment, NullCountsAsNoVertices) {
    double distance = -1.0;
    const Vec2d* none = nullptr;
    const tagPOINT* noDevice = nullptr;
    EXPECT_EQ(FindClosestSegment(none, 5, Vec2d(0, 0), &distance), 0U);
    EXPECT_EQ(distance, LARGEST);
    distance = -1.0;
    EXPECT_EQ(FindClosestSegment(noDevice, 5, tagPOINT{0, 0}, &distance), 0U);
    EXPECT_EQ(distance, LARGEST);
}

TEST(FindClosestSegment, LowestOfEquallyNearSegments) {
    const Vec2d square[] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}, {-1, -1}};
    double distance = -1.0;
    EXPECT_EQ(FindClosestSegment(square, 5, Vec2d(0, 0), &distance), 0U);
    EXPECT_EQ(distance, 1.0);
    EXPECT_EQ(FindClosestSegment(square + 1, 4, Vec2d(0, 0), nullptr), 0U);
    EXPECT_EQ(FindClosestSegment(square, 5, Vec2d(2, 2), nullptr), 1U); // the corner of 1 and 2
}

TEST(FindClosestSegment, UnrolledLoopEqualsThePlainOneForEveryRemainder) {
    RandomPoints random;
    for (std::size_t n = 2; n < 40; ++n) {
        for (int repeat = 0; repeat < 60; ++repeat) {
            // Small grids make ties; reals make none.
            std::vector<Vec2d> grid, real;
            std::vector<tagPOINT> device, wide;
            for (std::size_t i = 0; i < n; ++i) {
                grid.push_back(random.Grid(3));
                real.push_back(random.Plane(10));
                device.push_back(random.Device(3));
                wide.push_back(random.DeviceOfAnySize());
            }
            ExpectAsOneByOne(grid, random.Grid(3));
            ExpectAsOneByOne(real, random.Plane(10));
            ExpectAsOneByOne(device, random.Device(3));
            ExpectAsOneByOne(wide, random.DeviceOfAnySize());
        }
    }
}

TEST(FindClosestSegment, NearestInEachPositionOfTheUnrolledLoop) {
    for (std::size_t n = 2; n < 14; ++n) {
        std::vector<Vec2d> far;
        for (std::size_t i = 0; i < n; ++i) {
            far.emplace_back(static_cast<double>(i) * 10, 0);
        }
        for (std::size_t i = 0; i + 1 < n; ++i) {
            double distance = -1.0;
            const Vec2d p(static_cast<double>(i) * 10 + 5, 3);
            EXPECT_EQ(FindClosestSegment(far.data(), n, p, &distance), i);
            EXPECT_EQ(distance, 9.0);
        }
    }
}

TEST(FindClosestSegment, DistancesThatAreNotFiniteAreNeverNearest) {
    std::vector<Vec2d> pts = {{NOT_A_NUMBER, 0}, {INF, 0}, {0, 1}, {1, 1}, {NOT_A_NUMBER, 1}};
    double distance = -1.0;
    EXPECT_EQ(FindClosestSegment(pts.data(), pts.size(), Vec2d(0.5, 0), &distance), 2U);
    EXPECT_EQ(distance, 1.0);
    EXPECT_EQ(FindClosestSegment(pts.data(), pts.size(), Vec2d(NOT_A_NUMBER, 0), &distance), 0U);
    EXPECT_EQ(distance, LARGEST);
}

// --- PolylineLength

TEST(PolylineLength, SumOfTheSegments) {
    const Vec2d pts[] = {{0, 0}, {3, 4}, {3, 4}, {3, 16}};
    EXPECT_EQ(PolylineLength(pts, 4), 17.0);
    EXPECT_EQ(PolylineLength(pts, 2), 5.0);
}

TEST(PolylineLength, OfLessThanASegmentIsZero) {
    const Vec2d pts[] = {{0, 0}, {3, 4}};
    EXPECT_EQ(PolylineLength(pts, 1), 0.0);
    EXPECT_EQ(PolylineLength(pts, 0), 0.0);
    EXPECT_EQ(PolylineLength(nullptr, 0), 0.0);
    EXPECT_EQ(PolylineLength(nullptr, 7), 0.0);
}

TEST(PolylineLength, AddsInVertexOrder) {
    RandomPoints random;
    for (std::size_t n = 0; n < 20; ++n) {
        for (int repeat = 0; repeat < 100; ++repeat) {
            std::vector<Vec2d> pts;
            double expected = 0.0;
            for (std::size_t i = 0; i < n; ++i) {
                pts.push_back(random.Plane(i % 3 == 0 ? 1e10 : 1.0));
                if (i > 0) {
                    const double dx = pts[i].x - pts[i - 1].x, dy = pts[i].y - pts[i - 1].y;
                    expected += std::sqrt(dx * dx + dy * dy);
                }
            }
            ASSERT_TRUE(SameBits(PolylineLength(pts.data(), n), expected));
        }
    }
}

TEST(PolylineLength, SurvivesAnyInput) {
    const Vec2d pts[] = {{0, 0}, {LARGEST, 0}, {NOT_A_NUMBER, 0}};
    EXPECT_EQ(PolylineLength(pts, 2), INF);
    EXPECT_TRUE(std::isnan(PolylineLength(pts, 3)));
}

// --- GetNormalIntersection

Vec2d Foot(Vec2d p, Vec2d a, Vec2d b) {
    Vec2d out(77, 77);
    GetNormalIntersection(p, a, b, out);
    return out;
}

tagPOINT Foot(const tagPOINT& p, const tagPOINT& a, const tagPOINT& b) {
    tagPOINT out{77, 77};
    GetNormalIntersection(p, a, b, out);
    return out;
}

TEST(GetNormalIntersection, FootIsHeldToTheSegment) {
    EXPECT_EQ(Foot(Vec2d(1, 5), Vec2d(0, 0), Vec2d(4, 0)), Vec2d(1, 0));
    EXPECT_EQ(Foot(Vec2d(-1, 5), Vec2d(0, 0), Vec2d(4, 0)), Vec2d(0, 0));
    EXPECT_EQ(Foot(Vec2d(9, 5), Vec2d(0, 0), Vec2d(4, 0)), Vec2d(4, 0));
    EXPECT_EQ(Foot(Vec2d(9, 5), Vec2d(2, 3), Vec2d(2, 3)), Vec2d(2, 3));
    EXPECT_EQ(Foot(Vec2d(0, 4), Vec2d(0, 0), Vec2d(4, 4)), Vec2d(2, 2));
}

TEST(GetNormalIntersection, FollowsItsFormulaToTheBit) {
    RandomPoints random;
    for (int i = 0; i < 20000; ++i) {
        const Vec2d p = random.Plane(10), a = random.Plane(10), b = random.Plane(10);
        const double dx = b.x - a.x, dy = b.y - a.y;
        double t = -((a.x - p.x) * dx + (a.y - p.y) * dy) / (dx * dx + dy * dy);
        t = t < 0.0 ? 0.0 : t > 1.0 ? 1.0 : t;
        ASSERT_TRUE(SameBits(Foot(p, a, b), Vec2d(a.x + t * dx, a.y + t * dy)));
    }
}

TEST(GetNormalIntersection, OutputMayBeAnyInput) {
    const Vec2d p(1, 5), a(0, 1), b(4, 2);
    const Vec2d expected = Foot(p, a, b);
    for (int which = 0; which < 3; ++which) {
        Vec2d v[] = {p, a, b};
        GetNormalIntersection(v[0], v[1], v[2], v[which]);
        EXPECT_EQ(v[which], expected);
    }
    const tagPOINT dp{1, 50}, da{0, 10}, db{40, 20};
    const tagPOINT deviceExpected = Foot(dp, da, db);
    for (int which = 0; which < 3; ++which) {
        tagPOINT v[] = {dp, da, db};
        GetNormalIntersection(v[0], v[1], v[2], v[which]);
        EXPECT_EQ(v[which].x, deviceExpected.x);
        EXPECT_EQ(v[which].y, deviceExpected.y);
    }
}

TEST(GetNormalIntersection, NothingButTheOutputIsWritten) {
    Vec2d p(1, 5), a(0, 1), b(4, 2), out;
    GetNormalIntersection(p, a, b, out);
    EXPECT_EQ(p, Vec2d(1, 5));
    EXPECT_EQ(a, Vec2d(0, 1));
    EXPECT_EQ(b, Vec2d(4, 2));
}

TEST(GetNormalIntersection, DeviceStepIsTruncatedTowardsZero) {
    const tagPOINT up = Foot(tagPOINT{3, 0}, tagPOINT{0, 0}, tagPOINT{5, 5});
    EXPECT_EQ(up.x, 1); // 1.5
    EXPECT_EQ(up.y, 1);
    const tagPOINT down = Foot(tagPOINT{-3, 0}, tagPOINT{0, 0}, tagPOINT{-5, -5});
    EXPECT_EQ(down.x, -1); // -1.5
    EXPECT_EQ(down.y, -1);
    const tagPOINT same = Foot(tagPOINT{9, 9}, tagPOINT{4, 5}, tagPOINT{4, 5});
    EXPECT_EQ(same.x, 4);
    EXPECT_EQ(same.y, 5);
}

TEST(GetNormalIntersection, DeviceProductsWrap) {
    // 65536 squared wraps to 0: the segment counts as having no length.
    const tagPOINT none = Foot(tagPOINT{9, 9}, tagPOINT{1, 2}, tagPOINT{65537, 2});
    EXPECT_EQ(none.x, 1);
    EXPECT_EQ(none.y, 2);
}

TEST(GetNormalIntersection, DevicePointsFollowTheWrappingFormula) {
    RandomPoints random;
    int negativeLengths = 0;
    for (int i = 0; i < 200000; ++i) {
        const tagPOINT p = random.DeviceOfAnySize();
        const tagPOINT a = random.DeviceOfAnySize();
        const tagPOINT b = random.DeviceOfAnySize();
        const std::int64_t dx = Wrapped(std::int64_t{b.x} - a.x);
        const std::int64_t dy = Wrapped(std::int64_t{b.y} - a.y);
        const std::int32_t dd = Wrapped(std::int64_t{Wrapped(dx * dx)} + Wrapped(dy * dy));
        tagPOINT expected = a;
        if (dd != 0) {
            const std::int64_t sum = std::int64_t{Wrapped(dy * Wrapped(std::int64_t{a.y} - p.y))} +
                                     Wrapped(dx * Wrapped(std::int64_t{a.x} - p.x));
            double t = static_cast<double>(Wrapped(-std::int64_t{Wrapped(sum)})) / dd;
            t = t < 0.0 ? 0.0 : t > 1.0 ? 1.0 : t;
            const auto step = [t](std::int64_t d) {
                return static_cast<std::int64_t>(std::trunc(static_cast<double>(d) * t));
            };
            expected = {Wrapped(a.x + step(dx)), Wrapped(a.y + step(dy))};
        }
        negativeLengths += dd < 0 ? 1 : 0;
        const tagPOINT foot = Foot(p, a, b);
        ASSERT_EQ(foot.x, expected.x);
        ASSERT_EQ(foot.y, expected.y);
    }
    EXPECT_GT(negativeLengths, 10000);
}

TEST(GetNormalIntersection, SurvivesAnyInput) {
    EXPECT_TRUE(std::isnan(Foot(Vec2d(NOT_A_NUMBER, 0), Vec2d(0, 0), Vec2d(1, 0)).x));
    EXPECT_EQ(Foot(Vec2d(INF, 0), Vec2d(0, 0), Vec2d(1, 0)), Vec2d(1, 0));
    EXPECT_EQ(Foot(Vec2d(5, 5), Vec2d(0, 0), Vec2d(SMALLEST, 0)), Vec2d(0, 0));
    const tagPOINT corner =
        Foot(tagPOINT{HIGHEST, LOWEST}, tagPOINT{LOWEST, HIGHEST}, tagPOINT{LOWEST, LOWEST});
    EXPECT_EQ(corner.x, LOWEST);
}

// --- RectInRect

TEST(RectInRect, Situations) {
    const Box2d outer(0, 0, 10, 10);
    struct Case {
        const char* name;
        Box2d r;
        bool partial, whole;
    };
    const Case cases[] = {
        {"inside", {1, 1, 2, 2}, true, true},
        {"equal", {0, 0, 10, 10}, true, true},
        {"inside at a corner", {9, 9, 10, 10}, true, true},
        {"overlapping", {5, 5, 15, 15}, true, false},
        {"around", {-1, -1, 11, 11}, true, false},
        {"touching right", {10, 0, 12, 10}, true, false},
        {"touching left", {-2, 0, 0, 10}, true, false},
        {"touching top", {0, 10, 10, 12}, true, false},
        {"touching bottom", {0, -2, 10, 0}, true, false},
        {"touching a corner", {10, 10, 12, 12}, true, false},
        {"right of it", {11, 0, 12, 10}, false, false},
        {"left of it", {-3, 0, -1, 10}, false, false},
        {"above it", {0, 11, 10, 12}, false, false},
        {"below it", {0, -3, 10, -1}, false, false},
        {"out to the left only", {-1, 1, 2, 2}, true, false},
        {"out to the right only", {1, 1, 12, 2}, true, false},
        {"out to the bottom only", {1, -1, 2, 2}, true, false},
        {"out to the top only", {1, 1, 2, 12}, true, false},
        {"edge that lies on an edge", {10, 2, 10, 4}, true, true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(RectInRect(c.r, outer, true), c.partial) << c.name;
        EXPECT_EQ(RectInRect(c.r, outer, false), c.whole) << c.name;
    }
}

TEST(RectInRect, EmptyBoxTouchesNothing) {
    EXPECT_FALSE(RectInRect(Box2d(), Box2d(0, 0, 1, 1), true));
    EXPECT_FALSE(RectInRect(Box2d(0, 0, 1, 1), Box2d(), true));
}

TEST(RectInRect, CoordinatesThatAreNotNumbersExcludeNothing) {
    EXPECT_TRUE(RectInRect(Box2d(NOT_A_NUMBER, 0, 1, 1), Box2d(0, 0, 1, 1), false));
}

// --- ConstrainLineSegmentOrientation

TEST(ConstrainLineSegmentOrientation, Directions) {
    const Vec2d a(10, 20);
    struct Case {
        Vec2d move, expected;
    };
    const Case cases[] = {
        {{10, 1}, {10, 0}}, {{-10, 1}, {-10, 0}}, {{10, -1}, {10, 0}}, {{-10, -1}, {-10, 0}},
        {{1, 10}, {0, 10}}, {{1, -10}, {0, -10}}, {{-1, 10}, {0, 10}}, {{-1, -10}, {0, -10}},
        {{0, 5}, {0, 5}},   {{0, -5}, {0, -5}},   {{0, 0}, {0, 0}},    {{5, 0}, {5, 0}},
        {{10, 6}, {6, 6}},  {{-10, 6}, {-6, 6}},  {{10, -6}, {6, -6}}, {{-10, -6}, {-6, -6}},
        {{6, 10}, {6, 6}},  {{-6, 10}, {-6, 6}},  {{6, -10}, {6, -6}}, {{-6, -10}, {-6, -6}},
        {{7, 7}, {7, 7}},   {{-7, 7}, {-7, 7}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ConstrainLineSegmentOrientation(a, a + c.move), a + c.expected)
            << c.move.x << ',' << c.move.y;
    }
}

// From the origin the slopes are exact.
TEST(ConstrainLineSegmentOrientation, BoundariesBelongToTheFlatterSideUpwardsAndSteeperDownwards) {
    const Vec2d o(0, 0);
    const double pastFlat = std::nextafter(0.414, 1.0);
    const double pastSteep = std::nextafter(2.414, 3.0);
    EXPECT_EQ(ConstrainLineSegmentOrientation(o, {1, 0.414}), Vec2d(1, 0));
    EXPECT_EQ(ConstrainLineSegmentOrientation(o, {1, pastFlat}), Vec2d(pastFlat, pastFlat));
    EXPECT_EQ(ConstrainLineSegmentOrientation(o, {1, -0.414}), Vec2d(0.414, -0.414));
    EXPECT_EQ(ConstrainLineSegmentOrientation(o, {1, -std::nextafter(0.414, 0.0)}), Vec2d(1, 0));
    EXPECT_EQ(ConstrainLineSegmentOrientation(o, {1, 2.414}), Vec2d(1, 1));
    EXPECT_EQ(ConstrainLineSegmentOrientation(o, {1, pastSteep}), Vec2d(0, pastSteep));
    EXPECT_EQ(ConstrainLineSegmentOrientation(o, {1, -2.414}), Vec2d(0, -2.414));
    EXPECT_EQ(ConstrainLineSegmentOrientation(o, {1, -std::nextafter(2.414, 0.0)}), Vec2d(1, -1));
    EXPECT_EQ(ConstrainLineSegmentOrientation(o, {-1, -0.414}), Vec2d(-1, 0));
}

TEST(ConstrainLineSegmentOrientation, SurvivesAnyInput) {
    const Vec2d steep = ConstrainLineSegmentOrientation({0, 0}, {1, INF});
    EXPECT_EQ(steep, Vec2d(0, INF));
    const Vec2d none = ConstrainLineSegmentOrientation({0, 0}, {NOT_A_NUMBER, 3});
    EXPECT_EQ(none, Vec2d(0, 3)); // no slope: upright
    EXPECT_EQ(ConstrainLineSegmentOrientation({0, 0}, {INF, 3}), Vec2d(INF, 0));
}

// --- OrientPlane

void ExpectRow(const Mat4d& m, std::size_t row, double x, double y, double z, double w) {
    EXPECT_EQ(m(row, 0), x);
    EXPECT_EQ(m(row, 1), y);
    EXPECT_EQ(m(row, 2), z);
    EXPECT_EQ(m(row, 3), w);
}

Mat4d Sevens() {
    Mat4d m;
    for (std::size_t row = 0; row < 4; ++row) {
        m.SetRow(row, Vec4d(7, 7, 7, 7));
    }
    return m;
}

TEST(OrientPlane, FrameOfAPlane) {
    Mat4d m = Sevens();
    OrientPlane(m, Vec3d(1, 2, 3), Vec3d(0, 2, 0), Vec3d(0, 0, 5));
    ExpectRow(m, 0, 0, 1, 0, 0);
    ExpectRow(m, 1, 0, 0, 1, 0);
    ExpectRow(m, 2, 1, 0, 0, 0);
    ExpectRow(m, 3, 1, 2, 3, 1);
    EXPECT_EQ(Vec3d(10, 20, 30) * m, Vec3d(31, 12, 23));
}

TEST(OrientPlane, SecondDirectionIsNotMadePerpendicular) {
    Mat4d m;
    OrientPlane(m, Vec3d(0, 0, 0), Vec3d(2, 0, 0), Vec3d(3, 4, 0));
    ExpectRow(m, 1, 3.0 / 5, 4.0 / 5, 0, 0);
    ExpectRow(m, 2, 0, 0, 1, 0);
}

TEST(OrientPlane, DirectionsWithoutLengthAreErrorsThatKeepTheRowsBefore) {
    Mat4d m = Sevens();
    ExpectError([&] { OrientPlane(m, Vec3d(1, 2, 3), Vec3d(0, 0, 0), Vec3d(0, 1, 0)); }, "Geometry",
                "Geometry", 274);
    EXPECT_EQ(m, Sevens());
    ExpectError([&] { OrientPlane(m, Vec3d(1, 2, 3), Vec3d(2, 0, 0), Vec3d(0, 0, 0)); }, "Geometry",
                "Geometry", 278);
    ExpectRow(m, 0, 1, 0, 0, 0);
    ExpectRow(m, 1, 7, 7, 7, 7);
    ExpectError([&] { OrientPlane(m, Vec3d(1, 2, 3), Vec3d(0, 2, 0), Vec3d(0, -5, 0)); },
                "Geometry", "Geometry", 283);
    ExpectRow(m, 0, 0, 1, 0, 0);
    ExpectRow(m, 1, 0, -1, 0, 0);
    ExpectRow(m, 2, 7, 7, 7, 7);
    ExpectRow(m, 3, 7, 7, 7, 7);
}

} // namespace
} // namespace geom
