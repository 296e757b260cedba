// SPDX-License-Identifier: MIT
#include "geometry/detail/RoundToFloat.h"
#include "geometry/detail/RoundToInt.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace geom::detail {
namespace {

constexpr std::int32_t LOW = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t HIGH = std::numeric_limits<std::int32_t>::max();
constexpr double INF = std::numeric_limits<double>::infinity();
const double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

TEST(RoundToInt32, HalvesGoAwayFromZero) {
    EXPECT_EQ(RoundToInt32(0.5), 1);
    EXPECT_EQ(RoundToInt32(1.5), 2);
    EXPECT_EQ(RoundToInt32(2.5), 3);
    EXPECT_EQ(RoundToInt32(-0.5), -1);
    EXPECT_EQ(RoundToInt32(-1.5), -2);
    EXPECT_EQ(RoundToInt32(-2.5), -3);
}

TEST(RoundToInt32, OtherValuesGoToTheNearest) {
    EXPECT_EQ(RoundToInt32(0.0), 0);
    EXPECT_EQ(RoundToInt32(-0.0), 0);
    EXPECT_EQ(RoundToInt32(0.49), 0);
    EXPECT_EQ(RoundToInt32(-0.49), 0);
    EXPECT_EQ(RoundToInt32(7.51), 8);
    EXPECT_EQ(RoundToInt32(-7.51), -8);
    EXPECT_EQ(RoundToInt32(123456789.0), 123456789);
}

TEST(RoundToInt32, HalfIsAddedBeforeTruncation) {
    EXPECT_EQ(RoundToInt32(0x1.fffffffffffffp-2), 1) << "the sum with a half rounds to 1";
    EXPECT_EQ(RoundToInt32(-0x1.fffffffffffffp-2), -1);
    EXPECT_EQ(RoundToInt32(0x1.ffffffffffffep-2), 0);
}

TEST(RoundToInt32, EndsOfTheRangeAreReached) {
    EXPECT_EQ(RoundToInt32(2147483647.0), HIGH);
    EXPECT_EQ(RoundToInt32(2147483646.5), HIGH);
    EXPECT_EQ(RoundToInt32(2147483646.4), HIGH - 1);
    EXPECT_EQ(RoundToInt32(-2147483648.0), LOW);
    EXPECT_EQ(RoundToInt32(-2147483648.4), LOW);
    EXPECT_EQ(RoundToInt32(-2147483647.4), LOW + 1);
}

TEST(RoundToInt32, ValuesBeyondTheRangeStopAtItsEnds) {
    EXPECT_EQ(RoundToInt32(2147483647.5), HIGH);
    EXPECT_EQ(RoundToInt32(2147483648.0), HIGH);
    EXPECT_EQ(RoundToInt32(1e300), HIGH);
    EXPECT_EQ(RoundToInt32(INF), HIGH);
    EXPECT_EQ(RoundToInt32(-2147483648.5), LOW);
    EXPECT_EQ(RoundToInt32(-1e300), LOW);
    EXPECT_EQ(RoundToInt32(-INF), LOW);
}

TEST(RoundToInt32, NotANumberGivesZero) {
    EXPECT_EQ(RoundToInt32(NOT_A_NUMBER), 0);
    EXPECT_EQ(RoundToInt32(-NOT_A_NUMBER), 0);
}

TEST(RoundToPoint, RoundsEachCoordinate) {
    const tagPOINT p = RoundToPoint(1.5, -2.5);
    EXPECT_EQ(p.x, 2);
    EXPECT_EQ(p.y, -3);
}

TEST(RoundToFloat, GivesTheNearestSinglePrecisionValue) {
    EXPECT_EQ(RoundToFloat(0.1), 0x1.99999ap-4);
    EXPECT_EQ(RoundToFloat(-0.1), -0x1.99999ap-4);
    EXPECT_EQ(RoundToFloat(16777217.0), 16777216.0) << "a tie goes to even";
    EXPECT_EQ(RoundToFloat(16777219.0), 16777220.0);
    EXPECT_EQ(RoundToFloat(0.5), 0.5);
    EXPECT_EQ(RoundToFloat(0x1p-149), 0x1p-149) << "the smallest one";
    EXPECT_EQ(RoundToFloat(0x1p-151), 0.0);
    EXPECT_TRUE(std::signbit(RoundToFloat(-0x1p-151)));
}

TEST(RoundToFloat, ValuesBeyondTheRangeAreInfinite) {
    EXPECT_EQ(RoundToFloat(0x1.fffffep127), 0x1.fffffep127) << "the largest one";
    EXPECT_EQ(RoundToFloat(0x1.fffffefffffffp127), 0x1.fffffep127) << "still nearer to it";
    EXPECT_EQ(RoundToFloat(-0x1.fffffefffffffp127), -0x1.fffffep127);
    EXPECT_EQ(RoundToFloat(0x1.ffffffp127), INF) << "halfway to the next power of two";
    EXPECT_EQ(RoundToFloat(1e39), INF);
    EXPECT_EQ(RoundToFloat(-1e39), -INF);
    EXPECT_EQ(RoundToFloat(-1.7e308), -INF);
    EXPECT_EQ(RoundToFloat(INF), INF);
    EXPECT_EQ(RoundToFloat(-INF), -INF);
}

TEST(RoundToFloat, NotANumberStaysSo) {
    EXPECT_TRUE(std::isnan(RoundToFloat(NOT_A_NUMBER)));
}

TEST(RoundToFloat, ValuesInRangeAreConvertedAsTheLanguageDoes) {
    std::mt19937_64 random(20260101);
    std::uniform_real_distribution<double> fraction(-1, 1);
    std::uniform_int_distribution<int> exponent(-152, 127);
    for (int i = 0; i < 100000; ++i) {
        const double value = std::ldexp(fraction(random), exponent(random));
        ASSERT_EQ(RoundToFloat(value), static_cast<double>(static_cast<float>(value))) << value;
    }
}

} // namespace
} // namespace geom::detail
