// SPDX-License-Identifier: MIT
#include "geometry/Plane.h"

#include "tests/support/Floats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <type_traits>

namespace geom {
namespace {

using namespace test;

static_assert(std::is_trivially_copyable_v<Plane>);
static_assert(sizeof(Plane) == 4 * sizeof(double));

constexpr unsigned SEED = 1101;

void ExpectPlane(const Plane& plane, const Vec3d& normal, double distance) {
    EXPECT_EQ(plane.GetNormal(), normal);
    EXPECT_EQ(plane.GetDistanceFromOrigin(), distance);
}

TEST(Plane, DefaultIsAllZero) {
    ExpectPlane(Plane(), Vec3d(0, 0, 0), 0);
}

TEST(Plane, ThroughThreePointsFollowsTheRightHand) {
    const Plane plane(Vec3d(0, 0, 0), Vec3d(1, 0, 0), Vec3d(0, 1, 0));
    ExpectPlane(plane, Vec3d(0, 0, 1), 0);
    EXPECT_EQ(plane.GetDistance(Vec3d(0, 0, 5)), 5.0);
    EXPECT_EQ(plane.GetDistance(Vec3d(9, 9, -5)), -5.0);
    EXPECT_TRUE(plane.IsInHalfSpace(Vec3d(0, 0, 0)));
    ExpectPlane(Plane(Vec3d(0, 0, 2), Vec3d(0, 1, 2), Vec3d(1, 0, 2)), Vec3d(0, 0, -1), -2);
    ExpectPlane(Plane(Vec3d(0, 0, 2), Vec3d(1, 0, 2), Vec3d(0, 1, 2)), Vec3d(0, 0, 1), 2);
}

TEST(Plane, CollinearPointsGiveNoNormal) {
    ExpectPlane(Plane(Vec3d(1, 1, 1), Vec3d(2, 2, 2), Vec3d(3, 3, 3)), Vec3d(0, 0, 0), 0);
}

TEST(Plane, NormalIsNormalisedButNotTheDistance) {
    ExpectPlane(Plane(Vec3d(0, 0, 2), 3.0), Vec3d(0, 0, 1), 3);
    ExpectPlane(Plane(Vec3d(3, 0, 4), -7.0), Vec3d(0.6, 0, 0.8), -7);
    ExpectPlane(Plane(Vec3d(0, 0, 0), 3.0), Vec3d(0, 0, 0), 3);
}

TEST(Plane, ThroughAPoint) {
    ExpectPlane(Plane(Vec3d(0, 0, 2), Vec3d(5, 6, 7)), Vec3d(0, 0, 1), 7);
    ExpectPlane(Plane(Vec3d(0, -3, 0), Vec3d(5, 6, 7)), Vec3d(0, -1, 0), -6);
}

TEST(Plane, OffsetMovesAlongTheNormal) {
    Plane plane(Vec3d(0, 0, 2), 3.0);
    plane.Offset(1.5);
    ExpectPlane(plane, Vec3d(0, 0, 1), 4.5);
    plane.Offset(-5);
    ExpectPlane(plane, Vec3d(0, 0, 1), -0.5);
}

TEST(Plane, HalfSpaceIncludesThePlane) {
    const Plane plane(Vec3d(0, 0, 1), 3.0);
    EXPECT_TRUE(plane.IsInHalfSpace(Vec3d(0, 0, 3)));
    EXPECT_TRUE(plane.IsInHalfSpace(Vec3d(0, 0, 4)));
    EXPECT_FALSE(plane.IsInHalfSpace(Vec3d(0, 0, std::nextafter(3.0, 0.0))));
    EXPECT_FALSE(plane.IsInHalfSpace(Vec3d(0, 0, NOT_A_NUMBER)));
}

TEST(Plane, MeetsALineOnBothSidesOfItsPosition) {
    const Plane plane(Vec3d(0, 0, 1), 3.0);
    Vec3d out(7, 7, 7);
    EXPECT_TRUE(plane.Intersect(ParametricLine3(Vec3d(1, 2, 0), Vec3d(1, 2, 9)), out));
    EXPECT_EQ(out, Vec3d(1, 2, 3));
    out = Vec3d(7, 7, 7);
    EXPECT_TRUE(plane.Intersect(ParametricLine3(Vec3d(1, 2, 0), Vec3d(1, 2, -9)), out));
    EXPECT_EQ(out, Vec3d(1, 2, 3));
}

TEST(Plane, ParallelLineLeavesTheOutputAlone) {
    const Plane plane(Vec3d(0, 0, 1), 3.0);
    Vec3d out(7, 7, 7);
    EXPECT_FALSE(plane.Intersect(ParametricLine3(Vec3d(0, 0, 1), Vec3d(1, 1, 1)), out));
    EXPECT_FALSE(plane.Intersect(ParametricLine3(Vec3d(0, 0, 3), Vec3d(1, 1, 3)), out)); // in it
    EXPECT_FALSE(plane.Intersect(ParametricLine3(), out));
    EXPECT_FALSE(Plane().Intersect(ParametricLine3(Vec3d(0, 0, 1), Vec3d(1, 1, 5)), out));
    EXPECT_EQ(out, Vec3d(7, 7, 7));
}

TEST(Plane, IntersectionFollowsItsFormulaToTheBit) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    const auto point = [&] {
        const double x = coordinate(random), y = coordinate(random);
        return Vec3d(x, y, coordinate(random));
    };
    for (int i = 0; i < 10000; ++i) {
        const Plane plane(point(), point(), point());
        const ParametricLine3 line(point(), point());
        const Vec3d n = plane.GetNormal(), p = line.GetPosition(), d = line.GetDirection();
        const double denominator = n.x * d.x + n.y * d.y + n.z * d.z;
        const double t =
            -((p.x * n.x + p.y * n.y + p.z * n.z - plane.GetDistanceFromOrigin()) / denominator);
        Vec3d out(7, 7, 7);
        ASSERT_TRUE(plane.Intersect(line, out));
        ASSERT_EQ(out, Vec3d(p.x + d.x * t, p.y + d.y * t, p.z + d.z * t));
        ASSERT_LT(std::fabs(plane.GetDistance(out)), 1e-7);
    }
}

Mat4d Translation(const Vec3d& v) {
    Mat4d m;
    m.SetRow(3, Vec4d(v, 1));
    return m;
}

TEST(PlaneTransform, Translation) {
    Plane plane(Vec3d(0, 0, 1), 3.0);
    plane.Transform(Translation(Vec3d(4, 8, 16))); // its inverse is exact
    ExpectPlane(plane, Vec3d(0, 0, 1), 19);
}

TEST(PlaneTransform, RotationAboutTheXAxis) {
    Mat4d m;
    m.SetRow(1, Vec4d(0, 0, 1, 0)); // y goes to z
    m.SetRow(2, Vec4d(0, -1, 0, 0));
    Plane plane(Vec3d(0, 1, 0), 3.0);
    plane.Transform(m);
    ExpectPlane(plane, Vec3d(0, 0, 1), 3);
}

TEST(PlaneTransform, UnequalScalingKeepsTheNormalPerpendicular) {
    Mat4d m;
    m.SetRow(0, Vec4d(2, 0, 0, 0));
    Plane plane(Vec3d(1, 0, 0), Vec3d(0, 1, 0), Vec3d(0, 0, 1));
    plane.Transform(m);
    for (const Vec3d& p : {Vec3d(2, 0, 0), Vec3d(0, 1, 0), Vec3d(0, 0, 1)}) {
        EXPECT_NEAR(plane.GetDistance(p), 0.0, 1e-15);
    }
    EXPECT_GT(plane.GetDistance(Vec3d(5, 5, 5)), 0.0);
}

TEST(PlaneTransform, MovedPointsStayOnTheMovedPlane) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    const auto point = [&] {
        const double x = coordinate(random), y = coordinate(random);
        return Vec3d(x, y, coordinate(random));
    };
    int tested = 0;
    for (int i = 0; i < 2000; ++i) {
        Mat4d m;
        for (std::size_t row = 0; row < 4; ++row) {
            m.SetRow(row, Vec4d(point(), row == 3 ? 1 : 0));
        }
        Mat4d inverse;
        const Vec3d r0(m(0, 0), m(0, 1), m(0, 2)), r1(m(1, 0), m(1, 1), m(1, 2));
        const Vec3d r2(m(2, 0), m(2, 1), m(2, 2));
        if (!m.Inverse(inverse) || std::fabs(r0.Cross(r1).Dot(r2)) < 1.0) {
            continue;
        }
        const Vec3d p = point(), q = point(), r = point();
        Plane plane(p, q, r);
        plane.Transform(m);
        ASSERT_NEAR(plane.GetNormal().Length(), 1.0, 1e-12);
        for (const Vec3d& on : {p, q, r}) {
            ASSERT_NEAR(plane.GetDistance(on * m), 0.0, 1e-8) << "seed " << SEED;
        }
        ++tested;
    }
    EXPECT_GT(tested, 1500);
}

TEST(PlaneTransform, SingularMatrixTurnsByTheIdentity) {
    Mat4d flat; // presses everything onto z = 0
    flat.SetRow(2, Vec4d(0, 0, 0, 0));
    Plane plane(Vec3d(0, 0, 1), 3.0);
    plane.Transform(flat);
    ExpectPlane(plane, Vec3d(0, 0, 1), 0);
    Plane slanted(Vec3d(3, 0, 4), 5.0);
    slanted.Transform(flat);
    EXPECT_EQ(slanted.GetNormal(), Vec3d(3, 0, 4).Normalized());
}

TEST(Plane, EqualityIsExact) {
    const Plane plane(Vec3d(0, 0, 1), 3.0);
    EXPECT_TRUE(plane == Plane(Vec3d(0, 0, 9), 3.0));
    EXPECT_FALSE(plane != Plane(Vec3d(0, 0, 9), 3.0));
    for (const Plane& other :
         {Plane(Vec3d(0, 0, 1), 4.0), Plane(Vec3d(0, 0, -1), 3.0), Plane(Vec3d(1, 0, 0), 3.0),
          Plane(Vec3d(0, 1, 0), 3.0), Plane(Vec3d(0, 0, 0), 3.0)}) {
        EXPECT_FALSE(plane == other);
        EXPECT_TRUE(plane != other);
    }
}

TEST(Plane, NotANumberDiffersFromItself) {
    for (const Plane& plane :
         {Plane(Vec3d(0, 0, 1), NOT_A_NUMBER), Plane(Vec3d(NOT_A_NUMBER, 0, 1), 3.0)}) {
        EXPECT_FALSE(plane == plane);
        EXPECT_TRUE(plane != plane);
    }
}

} // namespace
} // namespace geom
