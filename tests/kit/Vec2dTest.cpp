// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Vec2d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

namespace kit {
namespace {

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

static_assert(offsetof(Vec2d, x) == 0 && offsetof(Vec2d, y) == sizeof(double));
static_assert(std::is_trivially_copyable_v<Vec2d>);
static_assert(std::is_convertible_v<const tagPOINT&, Vec2d>, "integer points convert silently");

TEST(Vec2d, CoordinatesAreWrittenDirectly) {
    Vec2d v;
    v.x = 3;
    v.y = 4;
    EXPECT_EQ(v, Vec2d(3, 4));
}

TEST(Vec2d, IntegerPointsConvertExactly) {
    EXPECT_EQ(Vec2d(tagPOINT{-2147483647 - 1, 2147483647}), Vec2d(-2147483648.0, 2147483647.0));
}

TEST(Vec2d, ProductAndQuotientAreComponentByComponent) {
    EXPECT_EQ(Vec2d(2, 3) * Vec2d(5, 7), Vec2d(10, 21));
    EXPECT_EQ(Vec2d(10, 21) / Vec2d(5, 7), Vec2d(2, 3));
}

TEST(Vec2d, SumDifferenceAndNegative) {
    EXPECT_EQ(Vec2d(2, 3) + Vec2d(5, 7), Vec2d(7, 10));
    EXPECT_EQ(Vec2d(2, 3) - Vec2d(5, 7), Vec2d(-3, -4));
    EXPECT_EQ(-Vec2d(2, -3), Vec2d(-2, 3));
}

TEST(Vec2d, ScalarsMultiplyFromBothSides) {
    EXPECT_EQ(Vec2d(2, 3) * 4.0, Vec2d(8, 12));
    EXPECT_EQ(4.0 * Vec2d(2, 3), Vec2d(8, 12));
    EXPECT_EQ(Vec2d(2, 3) / 4.0, Vec2d(0.5, 0.75));
}

TEST(Vec2d, AssigningOperatorsMayTakeTheVectorItself) {
    Vec2d v(2, 4);
    const Vec2d& same = v;
    v += same;
    EXPECT_EQ(v, Vec2d(4, 8));
    v *= same;
    EXPECT_EQ(v, Vec2d(16, 64));
    v /= same;
    EXPECT_EQ(v, Vec2d(1, 1));
    v -= same;
    EXPECT_EQ(v, Vec2d(0, 0));
    v = {6, 9};
    v *= 2.0;
    v /= 3.0;
    EXPECT_EQ(v, Vec2d(4, 6));
}

TEST(Vec2d, DividingByOneOfItsOwnCoordinatesUsesTheOldValue) {
    Vec2d v(4, 8);
    v /= v.x;
    EXPECT_EQ(v, Vec2d(1, 2));
}

TEST(Vec2d, EqualityIsExact) {
    EXPECT_TRUE(Vec2d(1, 2) == Vec2d(1, 2));
    EXPECT_TRUE(Vec2d(1, 2) != Vec2d(1, std::nextafter(2.0, 3.0)));
    EXPECT_TRUE(Vec2d(1, 2) != Vec2d(std::nextafter(1.0, 0.0), 2));
    EXPECT_TRUE(Vec2d(0.0, 0.0) == Vec2d(-0.0, -0.0));
    EXPECT_TRUE(Vec2d(NOT_A_NUMBER, 0) != Vec2d(NOT_A_NUMBER, 0));
}

TEST(Vec2d, NormsOfAPythagoreanTriple) {
    EXPECT_EQ(Vec2d(3, -4).Length(), 5.0);
    EXPECT_EQ(Vec2d(3, -4).LengthSquared(), 25.0);
    EXPECT_EQ(Vec2d(3, -4).Dot(Vec2d(2, 1)), 2.0);
}

TEST(Vec2d, SquaredDistanceTakesNoRoot) {
    EXPECT_EQ(Vec2d(1, 1).DistanceSquared(Vec2d(4, 5)), 25.0);
    EXPECT_EQ(Vec2d(4, 5).DistanceSquared(Vec2d(1, 1)), 25.0);
    EXPECT_EQ(Vec2d(4, 5).DistanceSquared(Vec2d(4, 5)), 0.0);
    // A root and a square would round 2 to 0x1.0000000000001p+1.
    EXPECT_EQ(Vec2d(0, 0).DistanceSquared(Vec2d(1, 1)), 2.0);
}

TEST(Vec2d, ZeroVectorIsNotNormalised) {
    Vec2d zero(0, -0.0);
    EXPECT_FALSE(zero.Normalize());
    EXPECT_EQ(zero, Vec2d(0, 0));
}

TEST(Vec2d, NormalisedVectorKeepsItsDirection) {
    Vec2d v(3, -4);
    EXPECT_TRUE(v.Normalize());
    EXPECT_EQ(v, Vec2d(0.6, -0.8));
}

TEST(Vec2d, EnormousVectorIsNormalised) {
    Vec2d v(3e200, -4e200);
    EXPECT_TRUE(v.Normalize());
    EXPECT_DOUBLE_EQ(v.x, 0.6);
    EXPECT_DOUBLE_EQ(v.y, -0.8);
    Vec2d largest(std::numeric_limits<double>::max(), 0);
    EXPECT_TRUE(largest.Normalize());
    EXPECT_EQ(largest, Vec2d(1, 0));
}

TEST(Vec2d, VectorThatIsNotFiniteHasNoDirection) {
    Vec2d v(INF, 1);
    EXPECT_TRUE(v.Normalize());
    EXPECT_TRUE(std::isnan(v.x));
    Vec2d w(NOT_A_NUMBER, 1);
    EXPECT_TRUE(w.Normalize());
    EXPECT_TRUE(std::isnan(w.x));
}

} // namespace
} // namespace kit
