// SPDX-License-Identifier: MIT
#include "geometry/ParametricLine3.h"
#include "tests/support/Floats.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace geom {
namespace {

using namespace test;

constexpr unsigned SEED = 1103;
const Vec3d SENTINEL(7, 7, 7);
const ParametricLine3 ALONG_X(Vec3d(0, 0, 0), Vec3d(1, 0, 0));

class RandomSpace {
public:
    double Real(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(m_engine);
    }
    Vec3d Point(double reach) {
        const double x = Real(-reach, reach), y = Real(-reach, reach);
        return {x, y, Real(-reach, reach)};
    }
    ParametricLine3 Line(double reach) {
        const Vec3d p = Point(reach);
        return {p, Point(reach)};
    }
    // Flat in some axis one time in four.
    Box3d Box(double reach) {
        const Vec3d u = Point(reach);
        Vec3d v = Point(reach);
        const auto flatAxis = m_engine() % 12;
        v.x = flatAxis == 0 ? u.x : v.x;
        v.y = flatAxis == 1 ? u.y : v.y;
        v.z = flatAxis == 2 ? u.z : v.z;
        return {Vec3d(std::min(u.x, v.x), std::min(u.y, v.y), std::min(u.z, v.z)),
                Vec3d(std::max(u.x, v.x), std::max(u.y, v.y), std::max(u.z, v.z))};
    }
    double Tolerance() { return Real(-1.5, 1.5); }

private:
    std::mt19937_64 m_engine{SEED};
};

// What the tolerance is compared with for one point; infinite when it does not lie ahead.
double MissOf(const ParametricLine3& line, double tolerance, const Vec3d& x) {
    const double t = line.GetDirection().Dot(x - line.GetPosition());
    if (!(t > 0.0)) {
        return INF;
    }
    const double distance = std::sqrt(x.DistanceSquared(line.GetClosestPoint(x)));
    return tolerance >= 0.0 ? distance / t : distance;
}

bool PickSegment(const ParametricLine3& line, double tolerance, const Vec3d& a, const Vec3d& b) {
    Vec3d hit = SENTINEL;
    return line.Intersect(tolerance, a, b, hit);
}

// --- Segments

TEST(PickSegment, ConeWidensWithTheDistance) {
    // Crossing above the line at height 1: the angle's tangent is 1 / x.
    const auto at = [](double x, double tolerance) {
        return PickSegment(ALONG_X, tolerance, Vec3d(x, -5, 1), Vec3d(x, 5, 1));
    };
    EXPECT_TRUE(at(10, 0.11));
    EXPECT_FALSE(at(10, 0.1)); // not on the boundary
    EXPECT_FALSE(at(5, 0.11));
    EXPECT_FALSE(at(-10, 0.11));
    EXPECT_FALSE(at(-10, 1000));
}

TEST(PickSegment, CylinderIsAsWideEverywhereAhead) {
    const auto at = [](double x, double tolerance) {
        return PickSegment(ALONG_X, tolerance, Vec3d(x, -5, 1), Vec3d(x, 5, 1));
    };
    EXPECT_TRUE(at(10, -1.01));
    EXPECT_TRUE(at(0.01, -1.01));
    EXPECT_FALSE(at(10, -1));
    EXPECT_FALSE(at(0, -1.01)); // beside the position
    EXPECT_FALSE(at(-1, -1.01));
    EXPECT_FALSE(at(-1, -1000));
}

TEST(PickSegment, HitIsTheBestAim) {
    Vec3d hit = SENTINEL;
    EXPECT_TRUE(ALONG_X.Intersect(-2, Vec3d(4, -5, 1), Vec3d(4, 5, 1), hit));
    EXPECT_EQ(hit, Vec3d(4, 0, 1));
    EXPECT_TRUE(ALONG_X.Intersect(1, Vec3d(4, -5, 1), Vec3d(4, 5, 1), hit));
    EXPECT_EQ(hit, Vec3d(4, 0, 1));
    // Leaving slowly: nearest at its first end, but seen at the smallest angle at its second.
    const Vec3d a(1, 1, 0), b(9, 2, 0);
    EXPECT_TRUE(ALONG_X.Intersect(-2, a, b, hit));
    EXPECT_EQ(hit, a);
    EXPECT_TRUE(ALONG_X.Intersect(2, a, b, hit));
    EXPECT_EQ(hit, b);
    EXPECT_TRUE(ALONG_X.Intersect(2, b, a, hit));
    EXPECT_EQ(hit, b);
}

TEST(PickSegment, ExactMeetingIsHitWithEveryTolerance) {
    for (const double tolerance : {0.0, -0.0, 0.5, -0.5, NOT_A_NUMBER}) {
        Vec3d hit = SENTINEL;
        EXPECT_TRUE(ALONG_X.Intersect(tolerance, Vec3d(4, -1, 0), Vec3d(4, 1, 0), hit));
        EXPECT_EQ(hit, Vec3d(4, 0, 0));
        EXPECT_TRUE(ALONG_X.Intersect(tolerance, Vec3d(2, 0, 0), Vec3d(4, 0, 0), hit)); // along it
        EXPECT_TRUE(ALONG_X.Intersect(tolerance, Vec3d(-2, 0, 0), Vec3d(4, 0, 0), hit));
        EXPECT_TRUE(ALONG_X.Intersect(tolerance, Vec3d(2, 0, 0), Vec3d(2, 0, 0), hit)); // a point
        EXPECT_EQ(hit, Vec3d(2, 0, 0));
    }
    EXPECT_FALSE(PickSegment(ALONG_X, 0, Vec3d(4, -1, 1e-9), Vec3d(4, 1, 1e-9)));
}

TEST(PickSegment, PartBehindIsCutOff) {
    // The nearest point lies behind; ahead the segment is 3 away at best, level with the position.
    Vec3d hit = SENTINEL;
    EXPECT_FALSE(ALONG_X.Intersect(-3, Vec3d(-3, 0, 0), Vec3d(3, 6, 0), hit));
    EXPECT_EQ(hit, SENTINEL);
    EXPECT_TRUE(ALONG_X.Intersect(-3.01, Vec3d(-3, 0, 0), Vec3d(3, 6, 0), hit));
    EXPECT_EQ(hit, Vec3d(0, 3, 0));
    EXPECT_TRUE(ALONG_X.Intersect(2.01, Vec3d(-3, 0, 0), Vec3d(3, 6, 0), hit));
    EXPECT_EQ(hit, Vec3d(3, 6, 0)); // at 6 / 3
    EXPECT_TRUE(ALONG_X.Intersect(2.01, Vec3d(3, 6, 0), Vec3d(-3, 0, 0), hit));
    EXPECT_EQ(hit, Vec3d(3, 6, 0));
    EXPECT_FALSE(ALONG_X.Intersect(-1, Vec3d(0, -5, 0), Vec3d(0, 5, 0), hit)); // all level
    EXPECT_FALSE(ALONG_X.Intersect(-9, Vec3d(0, 1, 0), Vec3d(-5, 1, 0), hit));
}

TEST(PickSegment, MissLeavesTheOutputAlone) {
    Vec3d hit = SENTINEL;
    EXPECT_FALSE(ALONG_X.Intersect(0.1, Vec3d(1, -5, 1), Vec3d(1, 5, 1), hit));
    EXPECT_FALSE(ALONG_X.Intersect(9, Vec3d(NOT_A_NUMBER, -5, 1), Vec3d(1, 5, 1), hit));
    EXPECT_FALSE(ParametricLine3().Intersect(9, Vec3d(1, 0, 0), Vec3d(2, 0, 0), hit));
    EXPECT_EQ(hit, SENTINEL);
}

TEST(PickSegment, OutputMayBeAnEnd) {
    Vec3d a(4, -5, 1);
    EXPECT_TRUE(ALONG_X.Intersect(-2, a, Vec3d(4, 5, 1), a));
    EXPECT_EQ(a, Vec3d(4, 0, 1));
}

TEST(PickSegment, AgreesWithPointsSampledOnTheSegment) {
    RandomSpace random;
    int hits = 0, misses = 0, undecided = 0;
    for (int i = 0; i < 20000; ++i) {
        const ParametricLine3 line = random.Line(3);
        const Vec3d a = random.Point(3), b = random.Point(3);
        const double tolerance = random.Tolerance();
        double best = INF;
        constexpr int STEPS = 400;
        for (int step = 0; step <= STEPS; ++step) {
            best = std::min(best, MissOf(line, tolerance, a + (b - a) * (step / double(STEPS))));
        }
        Vec3d hit = SENTINEL;
        const bool picked = line.Intersect(tolerance, a, b, hit);
        if (best < std::fabs(tolerance) - 1e-9) {
            ASSERT_TRUE(picked) << "seed " << SEED;
            ++hits;
        } else if (picked) {
            ++undecided; // between the samples
        } else {
            ++misses;
        }
        if (picked) {
            // No sampled point is aimed at better, and the hit lies within the tolerance.
            const double t = line.GetDirection().Dot(hit - line.GetPosition());
            const double distance = std::sqrt(hit.DistanceSquared(line.GetClosestPoint(hit)));
            const double miss = tolerance >= 0 ? distance / t : distance;
            ASSERT_GT(t, -1e-12);
            ASSERT_LE(miss, best + 1e-9);
            ASSERT_LE(miss, std::fabs(tolerance) + 1e-9);
        }
    }
    EXPECT_GT(hits, 3000);
    EXPECT_GT(misses, 3000);
    EXPECT_LT(undecided, 300);
}

// --- Boxes

const Box3d BOX(Vec3d(4, -1, 2), Vec3d(6, 1, 3));

TEST(PickBox, PiercedAheadIsHitWithEveryTolerance) {
    const Box3d ahead(Vec3d(4, -1, -1), Vec3d(6, 1, 1));
    const Box3d around(Vec3d(-1, -1, -1), Vec3d(1, 1, 1));
    const Box3d behind(Vec3d(-6, -1, -1), Vec3d(-4, 1, 1));
    const Box3d endingHere(Vec3d(-6, -1, -1), Vec3d(0, 1, 1));
    for (const double tolerance : {0.0, 0.5, -0.5, NOT_A_NUMBER}) {
        EXPECT_TRUE(ALONG_X.Intersect(tolerance, ahead));
        EXPECT_TRUE(ALONG_X.Intersect(tolerance, around));
        EXPECT_FALSE(ALONG_X.Intersect(tolerance, behind));
        EXPECT_FALSE(ALONG_X.Intersect(tolerance, endingHere));
    }
    EXPECT_FALSE(ALONG_X.Intersect(1000, behind));
    EXPECT_FALSE(ALONG_X.Intersect(-1000, behind));
}

TEST(PickBox, ConeAndCylinderReachTheNearestEdge) {
    EXPECT_TRUE(ALONG_X.Intersect(-2.01, BOX));
    EXPECT_FALSE(ALONG_X.Intersect(-2, BOX));
    EXPECT_TRUE(ALONG_X.Intersect(0.34, BOX)); // 2 / 6 at the far end
    EXPECT_FALSE(ALONG_X.Intersect(0.33, BOX));
    EXPECT_FALSE(ALONG_X.Intersect(0, BOX));
    EXPECT_FALSE(ALONG_X.Intersect(NOT_A_NUMBER, BOX));
}

TEST(PickBox, FaceReachedThroughTheFlatEndOnly) {
    // The line rises from just above the middle of a large face.
    const Box3d floor(Vec3d(-10, -10, -1), Vec3d(10, 10, 0));
    const ParametricLine3 rising(Vec3d(0, 0, 0.5), Vec3d(1, 0, 1.5));
    // Level with the position the face is 0.5 * sqrt(2) away.
    EXPECT_TRUE(rising.Intersect(-0.708, floor));
    EXPECT_FALSE(rising.Intersect(-0.707, floor));
    EXPECT_FALSE(ParametricLine3(Vec3d(0, 0, 0.5), Vec3d(0, 0, 9)).Intersect(-100, floor));
}

TEST(PickBox, EmptyBoxesAndNoLinesAreNotHit) {
    EXPECT_FALSE(ALONG_X.Intersect(-1000, Box3d()));
    EXPECT_FALSE(ALONG_X.Intersect(1000, Box3d(Vec3d(6, -1, -1), Vec3d(4, 1, 1))));
    EXPECT_FALSE(ALONG_X.Intersect(1000, Box3d(Vec3d(NOT_A_NUMBER, -1, -1), Vec3d(4, 1, 1))));
    EXPECT_FALSE(ParametricLine3().Intersect(1000, BOX));
    EXPECT_FALSE(ParametricLine3(Vec3d(0, NOT_A_NUMBER, 0), Vec3d(1, 0, 0)).Intersect(9, BOX));
}

TEST(PickBox, PointBoxIsPickedLikeASegmentWithoutLength) {
    RandomSpace random;
    int hits = 0;
    for (int i = 0; i < 20000; ++i) {
        const ParametricLine3 line = random.Line(3);
        const Vec3d x = random.Point(3);
        const double tolerance = random.Tolerance();
        const bool expected = MissOf(line, tolerance, x) < std::fabs(tolerance);
        ASSERT_EQ(PickSegment(line, tolerance, x, x), line.Intersect(tolerance, Box3d(x, x)));
        if (std::fabs(MissOf(line, tolerance, x) - std::fabs(tolerance)) > 1e-9) {
            ASSERT_EQ(PickSegment(line, tolerance, x, x), expected);
        }
        hits += expected ? 1 : 0;
    }
    EXPECT_GT(hits, 1000);
}

// The points with less than some miss make a convex set, so a search that narrows a grid around
// its best point comes close to the least miss.
double LeastSampledMiss(const ParametricLine3& line, double tolerance, const Box3d& box) {
    constexpr int STEPS = 8;
    Vec3d low = box.minCorner, high = box.maxCorner;
    double best = INF;
    Vec3d bestPoint = low;
    for (int round = 0; round < 10; ++round) {
        const Vec3d step = (high - low) * (1.0 / STEPS);
        for (int i = 0; i <= STEPS; ++i) {
            for (int j = 0; j <= STEPS; ++j) {
                for (int k = 0; k <= STEPS; ++k) {
                    const Vec3d x(low.x + step.x * i, low.y + step.y * j, low.z + step.z * k);
                    const double miss = MissOf(line, tolerance, x);
                    if (miss < best) {
                        best = miss;
                        bestPoint = x;
                    }
                }
            }
        }
        const auto narrowed = [](double at, double reach, double from, double to) {
            return std::clamp(at + reach, from, to);
        };
        const Vec3d oldLow = box.minCorner, oldHigh = box.maxCorner, reach = step * 2.5;
        low = Vec3d(narrowed(bestPoint.x, -reach.x, oldLow.x, oldHigh.x),
                    narrowed(bestPoint.y, -reach.y, oldLow.y, oldHigh.y),
                    narrowed(bestPoint.z, -reach.z, oldLow.z, oldHigh.z));
        high = Vec3d(narrowed(bestPoint.x, reach.x, oldLow.x, oldHigh.x),
                     narrowed(bestPoint.y, reach.y, oldLow.y, oldHigh.y),
                     narrowed(bestPoint.z, reach.z, oldLow.z, oldHigh.z));
    }
    return best;
}

TEST(PickBox, AgreesWithPointsSampledInTheBox) {
    RandomSpace random;
    int hits = 0, misses = 0, undecided = 0;
    for (int i = 0; i < 2000; ++i) {
        const ParametricLine3 line = random.Line(3);
        const Box3d box = random.Box(3);
        const double tolerance = random.Tolerance();
        const double best = LeastSampledMiss(line, tolerance, box);
        const bool picked = line.Intersect(tolerance, box);
        if (best < std::fabs(tolerance)) {
            ASSERT_TRUE(picked) << "seed " << SEED << " case " << i << " best " << best;
            ++hits;
        } else if (!picked) {
            ++misses;
        } else {
            ++undecided; // the search comes near, or the line meets the box between its points
            ASSERT_LT(best, std::fabs(tolerance) + 0.05)
                << "seed " << SEED << " case " << i << " tolerance " << tolerance;
        }
    }
    EXPECT_GT(hits, 400);
    EXPECT_GT(misses, 400);
    EXPECT_LT(undecided, 40);
}

TEST(PickBox, SurvivesAnyInput) {
    const double values[] = {0.0, 1.0, LARGEST, -LARGEST, SMALLEST, INF, -INF, NOT_A_NUMBER};
    int calls = 0;
    for (const double u : values) {
        for (const double v : values) {
            for (const double tolerance : values) {
                const ParametricLine3 line(Vec3d(u, 0, v), Vec3d(1, v, 2));
                const Box3d box(Vec3d(v, u, -1), Vec3d(u, 1, v));
                Vec3d first, second;
                bool front = false;
                const bool noLine = !(std::isfinite(u) && std::isfinite(v));
                const bool picked = line.Intersect(tolerance, box);
                const bool met = line.Intersect(box, first, second);
                const bool segment =
                    line.Intersect(tolerance, Vec3d(u, v, 1), Vec3d(v, 1, u), first);
                const bool triangle = line.Intersect(Vec3d(u, v, 1), Vec3d(v, 1, u), Vec3d(1, u, v),
                                                     first, second, front);
                if (noLine) {
                    EXPECT_FALSE(picked || met || segment || triangle);
                }
                ++calls;
            }
        }
    }
    EXPECT_EQ(calls, 512);
}

} // namespace
} // namespace geom
