// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Kit.h"

#include <gtest/gtest.h>

namespace kit {
namespace {

TEST(Vec2d, ProductIsComponentByComponent) {
    EXPECT_EQ(Vec2d(2, 3) * Vec2d(5, 7), Vec2d(10, 21));
}

TEST(Vec2d, ZeroVectorIsNotNormalised) {
    Vec2d zero(0, 0);
    EXPECT_FALSE(zero.Normalize());
    EXPECT_EQ(zero, Vec2d(0, 0));
}

TEST(Vec2d, NormalisedVectorKeepsItsDirection) {
    Vec2d v(3, -4);
    EXPECT_TRUE(v.Normalize());
    EXPECT_EQ(v, Vec2d(0.6, -0.8));
}

TEST(Vec2d, IntegerPointsConvertExactly) {
    EXPECT_EQ(Vec2d(tagPOINT{-2147483647 - 1, 2147483647}), Vec2d(-2147483648.0, 2147483647.0));
}

} // namespace
} // namespace kit
