// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <limits>

namespace geom::detail {

/// The single-precision value nearest to a double, as a double: infinity for what rounds beyond
/// the largest one. The language leaves the conversion of values beyond the range open.
inline double RoundToFloat(double value) {
    constexpr double LARGEST = std::numeric_limits<float>::max();
    constexpr double HALFWAY_TO_INFINITY = 0x1.ffffffp127;
    if (!(std::fabs(value) > LARGEST)) {
        return static_cast<double>(static_cast<float>(value));
    }
    const double magnitude =
        std::fabs(value) < HALFWAY_TO_INFINITY ? LARGEST : std::numeric_limits<double>::infinity();
    return std::copysign(magnitude, value);
}

} // namespace geom::detail
