// SPDX-License-Identifier: MIT
// Coordinates as text, compared with the library's exact conversion.
#include "geometry/engine/FixedPoint.h"

#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace geom::test {
namespace {

using detail::LONGEST_COORDINATE;

std::string Fixed(double value) {
    char text[LONGEST_COORDINATE];
    return {text, detail::WriteFixed(text, value)};
}

std::string PlainFixed(double value) {
    char text[LONGEST_COORDINATE];
    const std::to_chars_result end = std::to_chars(
        text, text + sizeof text, value, std::chars_format::fixed, detail::DIGITS_AFTER_POINT);
    return (std::signbit(value) ? "" : " ") + std::string(text, end.ptr);
}

TEST(FixedPoint, BlankOrMinusSignAndFifteenDigits) {
    EXPECT_EQ(Fixed(0.0), " 0.000000000000000");
    EXPECT_EQ(Fixed(-0.0), "-0.000000000000000");
    EXPECT_EQ(Fixed(-12.5), "-12.500000000000000");
    EXPECT_EQ(Fixed(0x1p-1074), " 0.000000000000000");
    EXPECT_EQ(Fixed(std::numeric_limits<double>::infinity()), " inf");
}

TEST(FixedPoint, HalfOfTheLastDigitIsRoundedToEven) {
    // 2^-16 has 16 digits after the point, the last of them a 5.
    EXPECT_EQ(Fixed(0x1p-16), " 0.000015258789062");
    EXPECT_EQ(Fixed(0x3p-16), " 0.000045776367188");
}

TEST(FixedPoint, DigitsThatRoundUpCarryIntoTheWholePart) {
    EXPECT_EQ(Fixed(std::nextafter(1.0, 0.0)), " 1.000000000000000");
    EXPECT_EQ(Fixed(-std::nextafter(10.0, 0.0)), "-9.999999999999998");
    EXPECT_EQ(Fixed(std::nextafter(2.0, 0.0)), " 2.000000000000000");
}

TEST(FixedPoint, EveryPowerOfTwoAndItsNeighboursAsThePlainConversion) {
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        const double power = std::ldexp(1.0, exponent);
        for (const double value : {std::nextafter(power, 0.0), power, std::nextafter(power, 1e308),
                                   -power, 3 * power, 0.7 * power}) {
            ASSERT_EQ(Fixed(value), PlainFixed(value)) << exponent;
        }
    }
    const double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(Fixed(-largest), PlainFixed(-largest));
    EXPECT_EQ(Fixed(largest).size(), LONGEST_COORDINATE);
}

// All magnitudes, and many values of few bits, whose digits end in halves.
TEST(FixedPoint, RandomValuesAsThePlainConversion) {
    constexpr std::uint64_t SEED = 20264;
    SCOPED_TRACE(SEED);
    Random random(SEED);
    for (int round = 0; round < 1000000; ++round) {
        const double mantissa =
            random.OneIn(2) ? random.Between(-1.0, 1.0) : random.Between(-4096, 4096) * 0x1p-12;
        const double value = std::ldexp(mantissa, random.Between(-70, 60));
        ASSERT_EQ(Fixed(value), PlainFixed(value)) << "round " << round;
    }
}

} // namespace
} // namespace geom::test
