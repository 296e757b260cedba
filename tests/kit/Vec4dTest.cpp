// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Vec4d.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

namespace kit {
namespace {

static_assert(offsetof(Vec4d, x) == 0 && offsetof(Vec4d, y) == sizeof(double) &&
              offsetof(Vec4d, z) == 2 * sizeof(double) && offsetof(Vec4d, w) == 3 * sizeof(double));
static_assert(std::is_trivially_copyable_v<Vec4d>);

TEST(Vec4d, IsMadeFromAPointAndItsWeight) {
    EXPECT_EQ(Vec4d(Vec3d(1, 2, 3), 4), Vec4d(1, 2, 3, 4));
}

TEST(Vec4d, ArithmeticIsComponentByComponent) {
    const Vec4d a(1, 2, 3, 4), b(5, 6, 7, 8);
    EXPECT_EQ(a + b, Vec4d(6, 8, 10, 12));
    EXPECT_EQ(a - b, Vec4d(-4, -4, -4, -4));
    EXPECT_EQ(a * b, Vec4d(5, 12, 21, 32));
    EXPECT_EQ((a * b) / b, a);
    EXPECT_EQ(-a, Vec4d(-1, -2, -3, -4));
    EXPECT_EQ(a * 2.0, Vec4d(2, 4, 6, 8));
    EXPECT_EQ(2.0 * a, Vec4d(2, 4, 6, 8));
    EXPECT_EQ(a / 2.0, Vec4d(0.5, 1, 1.5, 2));
}

TEST(Vec4d, EqualityLooksAtEveryComponent) {
    const Vec4d a(1, 2, 3, 4);
    EXPECT_TRUE(a == Vec4d(1, 2, 3, 4));
    EXPECT_TRUE(a != Vec4d(0, 2, 3, 4));
    EXPECT_TRUE(a != Vec4d(1, 0, 3, 4));
    EXPECT_TRUE(a != Vec4d(1, 2, 0, 4));
    EXPECT_TRUE(a != Vec4d(1, 2, 3, 0));
}

TEST(Vec4d, Norms) {
    EXPECT_EQ(Vec4d(1, 2, 3, 4).Dot(Vec4d(5, 6, 7, 8)), 70.0);
    EXPECT_EQ(Vec4d(2, 4, 5, 6).LengthSquared(), 81.0);
    EXPECT_EQ(Vec4d(2, 4, 5, 6).Length(), 9.0);
}

} // namespace
} // namespace kit
