// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Doubles as text in fixed-point notation, with the digits that printf's "%.15f" gives.

#include <cstddef>

namespace geom::detail {

/// The digits after the point.
inline constexpr int DIGITS_AFTER_POINT = 15;

/// The most characters of a coordinate: sign, the 309 digits of the largest double, point, digits.
inline constexpr std::size_t LONGEST_COORDINATE = 1 + 309 + 1 + DIGITS_AFTER_POINT;

/// Writes a coordinate to `text`, which has room for the longest one. A blank stands in the place
/// of a minus sign, so that columns stay aligned. The last digit is rounded to nearest from the
/// exact value, and half way to even.
///
/// \return the end of what has been written.
char* WriteFixed(char* text, double value);

} // namespace geom::detail
