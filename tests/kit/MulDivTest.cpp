// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Platform.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace kit {
namespace {

static_assert(std::is_same_v<decltype(tagPOINT::x), std::int32_t>);
static_assert(sizeof(tagPOINT) == 8 && offsetof(tagPOINT, y) == 4);
static_assert(sizeof(tagRECT) == 16 && offsetof(tagRECT, left) == 0 &&
              offsetof(tagRECT, top) == 4 && offsetof(tagRECT, right) == 8 &&
              offsetof(tagRECT, bottom) == 12);

TEST(MulDiv, RoundsToNearest) {
    EXPECT_EQ(MulDiv(10, 10, 3), 33);
    EXPECT_EQ(MulDiv(10, 2, 3), 7);
    EXPECT_EQ(MulDiv(-10, 2, 3), -7);
    EXPECT_EQ(MulDiv(0, 5, 7), 0);
}

TEST(MulDiv, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(MulDiv(1, 1, 2), 1);
    EXPECT_EQ(MulDiv(-1, 1, 2), -1);
    EXPECT_EQ(MulDiv(1, -1, 2), -1);
    EXPECT_EQ(MulDiv(1, 1, -2), -1);
    EXPECT_EQ(MulDiv(-1, -1, 2), 1);
    EXPECT_EQ(MulDiv(3, 1, 2), 2);
    EXPECT_EQ(MulDiv(-3, 1, 2), -2);
}

TEST(MulDiv, ProductIsHeldIn64Bits) {
    EXPECT_EQ(MulDiv(INT_MAX, INT_MAX, INT_MAX), INT_MAX);
    EXPECT_EQ(MulDiv(INT_MIN, INT_MIN, INT_MIN), INT_MIN);
    EXPECT_EQ(MulDiv(2000000000, 3, 6), 1000000000);
}

TEST(MulDiv, ZeroDivisorGivesMinusOne) {
    EXPECT_EQ(MulDiv(5, 5, 0), -1);
    EXPECT_EQ(MulDiv(0, 0, 0), -1);
}

TEST(MulDiv, ResultBeyond32BitsGivesMinusOne) {
    EXPECT_EQ(MulDiv(INT_MAX, 2, 1), -1);
    EXPECT_EQ(MulDiv(INT_MIN, 2, 1), -1);
    EXPECT_EQ(MulDiv(INT_MIN, -1, 1), -1);
    EXPECT_EQ(MulDiv(INT_MIN, INT_MIN, 1), -1);
    EXPECT_EQ(MulDiv(INT_MIN, 1, 1), INT_MIN);
    EXPECT_EQ(MulDiv(INT_MAX, 1, 1), INT_MAX);
}

TEST(MulDiv, LastRoundingCanLeaveTheRange) {
    EXPECT_EQ(MulDiv(1431655765, 3, 2), -1) << "2147483647.5 rounds up to 2^31";
    EXPECT_EQ(MulDiv(-1431655765, 3, 2), INT_MIN) << "-2147483647.5 rounds to -2^31";
}

} // namespace
} // namespace kit
