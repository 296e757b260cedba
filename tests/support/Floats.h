// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Vec2d.h"

#include <cstdint>
#include <cstring>
#include <limits>

namespace geom::test {

inline constexpr double LARGEST = std::numeric_limits<double>::max();
inline constexpr double SMALLEST_NORMAL = std::numeric_limits<double>::min();
inline constexpr double SMALLEST = std::numeric_limits<double>::denorm_min();
inline constexpr double INF = std::numeric_limits<double>::infinity();
inline constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

inline std::uint64_t BitsOf(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

/// Equal to the bit, the sign of zero included; any two values that are not numbers are alike.
inline bool SameBits(double a, double b) {
    return BitsOf(a) == BitsOf(b) || (a != a && b != b);
}

inline bool SameBits(const kit::Vec2d& a, const kit::Vec2d& b) {
    return SameBits(a.x, b.x) && SameBits(a.y, b.y);
}

/// How many doubles lie between two finite values, counted from one to the other; 0 for equal.
inline std::uint64_t UlpsBetween(double a, double b) {
    constexpr std::uint64_t SIGN = std::uint64_t{1} << 63;
    const auto position = [](double value) {
        const std::uint64_t bits = BitsOf(value);
        return (bits & SIGN) != 0 ? SIGN - (bits & ~SIGN) : SIGN + bits;
    };
    const std::uint64_t first = position(a);
    const std::uint64_t second = position(b);
    return first > second ? first - second : second - first;
}

} // namespace geom::test
