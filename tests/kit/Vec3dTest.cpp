// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Vec3d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

namespace kit {
namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

static_assert(offsetof(Vec3d, x) == 0 && offsetof(Vec3d, y) == sizeof(double) &&
              offsetof(Vec3d, z) == 2 * sizeof(double));
static_assert(std::is_trivially_copyable_v<Vec3d>);

TEST(Vec3d, HasValueSemantics) {
    Vec3d v;
    v = Vec3d(1, 2, 3);
    Vec3d copy(v);
    copy.z = 9;
    EXPECT_EQ(v, Vec3d(1, 2, 3));
    EXPECT_EQ(copy, Vec3d(1, 2, 9));
}

TEST(Vec3d, SumDifferenceAndNegative) {
    EXPECT_EQ(Vec3d(1, 2, 3) + Vec3d(4, 6, 8), Vec3d(5, 8, 11));
    EXPECT_EQ(Vec3d(1, 2, 3) - Vec3d(4, 6, 8), Vec3d(-3, -4, -5));
    EXPECT_EQ(-Vec3d(1, -2, 3), Vec3d(-1, 2, -3));
}

TEST(Vec3d, ScalesFromBothSides) {
    EXPECT_EQ(Vec3d(1, 2, 3) * 2.0, Vec3d(2, 4, 6));
    EXPECT_EQ(2.0 * Vec3d(1, 2, 3), Vec3d(2, 4, 6));
    EXPECT_EQ(Vec3d(1, 2, 3) / 2.0, Vec3d(0.5, 1, 1.5));
}

TEST(Vec3d, ProductAndQuotientAreComponentByComponent) {
    EXPECT_EQ(Vec3d(1, 2, 3) * Vec3d(4, 5, 6), Vec3d(4, 10, 18));
    EXPECT_EQ(Vec3d(4, 10, 18) / Vec3d(4, 5, 6), Vec3d(1, 2, 3));
}

TEST(Vec3d, AssigningOperatorsMayTakeTheVectorItself) {
    Vec3d v(2, 4, 6);
    const Vec3d& same = v;
    v += same;
    EXPECT_EQ(v, Vec3d(4, 8, 12));
    v *= same;
    EXPECT_EQ(v, Vec3d(16, 64, 144));
    v /= same;
    EXPECT_EQ(v, Vec3d(1, 1, 1));
    v -= same;
    EXPECT_EQ(v, Vec3d(0, 0, 0));
    v = {3, 6, 9};
    v *= 2.0;
    v /= 3.0;
    EXPECT_EQ(v, Vec3d(2, 4, 6));
}

TEST(Vec3d, EqualityIsExact) {
    EXPECT_TRUE(Vec3d(1, 2, 3) == Vec3d(1, 2, 3));
    EXPECT_TRUE(Vec3d(1, 2, 3) != Vec3d(1, 2, std::nextafter(3.0, 4.0)));
    EXPECT_TRUE(Vec3d(1, 2, 3) != Vec3d(1, 0, 3));
    EXPECT_TRUE(Vec3d(1, 2, 3) != Vec3d(0, 2, 3));
    EXPECT_TRUE(Vec3d(0, 0, NOT_A_NUMBER) != Vec3d(0, 0, NOT_A_NUMBER));
}

TEST(Vec3d, Norms) {
    EXPECT_EQ(Vec3d(2, 3, 6).Length(), 7.0);
    EXPECT_EQ(Vec3d(2, 3, 6).LengthSquared(), 49.0);
    EXPECT_EQ(Vec3d(1, 1, 1).DistanceSquared(Vec3d(3, 4, 7)), 49.0);
    EXPECT_EQ(Vec3d(1, 2, 3).Dot(Vec3d(4, -5, 6)), 12.0);
}

TEST(Vec3d, CrossProductIsRightHanded) {
    const Vec3d x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    EXPECT_EQ(x.Cross(y), z);
    EXPECT_EQ(y.Cross(z), x);
    EXPECT_EQ(z.Cross(x), y);
    EXPECT_EQ(y.Cross(x), -z);
    EXPECT_EQ(Vec3d(1, 2, 3).Cross(Vec3d(4, 5, 6)), Vec3d(-3, 6, -3));
    EXPECT_EQ(Vec3d(1, 2, 3).Cross(Vec3d(2, 4, 6)), Vec3d(0, 0, 0));
}

TEST(Vec3d, ZeroVectorIsNotNormalised) {
    Vec3d zero(0, 0, 0);
    EXPECT_FALSE(zero.Normalize());
    EXPECT_EQ(zero, Vec3d(0, 0, 0));
}

TEST(Vec3d, UnitCopyOfTheZeroVectorIsTheZeroVector) {
    EXPECT_EQ(Vec3d(0, 0, 0).Normalized(), Vec3d(0, 0, 0));
}

TEST(Vec3d, NormalisedVectorKeepsItsDirection) {
    const Vec3d v(0, 3, -4);
    EXPECT_EQ(v.Normalized(), Vec3d(0, 0.6, -0.8));
    EXPECT_EQ(v, Vec3d(0, 3, -4));
    Vec3d inPlace = v;
    EXPECT_TRUE(inPlace.Normalize());
    EXPECT_EQ(inPlace, v.Normalized());
}

TEST(Vec3d, EnormousVectorIsNormalised) {
    Vec3d v(2e300, -3e300, 6e300);
    EXPECT_TRUE(v.Normalize());
    EXPECT_DOUBLE_EQ(v.x, 2.0 / 7);
    EXPECT_DOUBLE_EQ(v.y, -3.0 / 7);
    EXPECT_DOUBLE_EQ(v.z, 6.0 / 7);
}

} // namespace
} // namespace kit
