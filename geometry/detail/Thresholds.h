// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <limits>

namespace geom::detail {

/// Up to this a determinant counts as zero: the square root of half the smallest normalised
/// double, about 1.05e-154. Each source file has its own copy, set when the library is loaded.
const double TINY = std::exp(-354.54478285641);

/// The smallest normalised double, 2^-1022.
inline constexpr double MIN_NORMAL = std::numeric_limits<double>::min();

/// The largest finite double: "none" for distances and radii.
inline constexpr double LARGEST = std::numeric_limits<double>::max();

} // namespace geom::detail
