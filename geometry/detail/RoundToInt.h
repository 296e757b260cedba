// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cstdint>
#include <limits>

namespace geom::detail {

/// The nearest 32-bit integer, halves away from zero; the nearer end of the range for what lies
/// beyond it, and 0 for what is not a number.
///
/// The half is added before truncation, so the value just below 0.5, whose sum with 0.5 rounds
/// to 1, gives 1.
inline std::int32_t RoundToInt32(double value) {
    constexpr double BELOW = -2147483649.0; // truncation reaches the range's end from here inwards
    constexpr double BEYOND = 2147483648.0;
    const double shifted = value < 0 ? value - 0.5 : value + 0.5;
    if (shifted > BELOW && shifted < BEYOND) {
        return static_cast<std::int32_t>(shifted);
    }
    if (value > 0) {
        return std::numeric_limits<std::int32_t>::max();
    }
    return value < 0 ? std::numeric_limits<std::int32_t>::min() : 0;
}

/// The device point nearest to a point, each coordinate rounded as above.
inline tagPOINT RoundToPoint(double x, double y) {
    return {RoundToInt32(x), RoundToInt32(y)};
}

} // namespace geom::detail
