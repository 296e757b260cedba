// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace geom::detail {

/// How many points at the start of an array share a property.
///
/// Chains of points mostly stay for long where they are: on one side of a line, in a rectangle.
/// Eight points are tested together without a branch between them, so that a long run costs
/// comparisons only.
template <typename Point, typename Property>
std::size_t LeadingRun(const Point* pts, std::size_t n, Property holds) {
    constexpr std::size_t BLOCK = 8;
    std::size_t i = 0;
    for (; n - i >= BLOCK; i += BLOCK) {
        unsigned int all = 1;
        for (std::size_t k = 0; k < BLOCK; ++k) {
            all &= static_cast<unsigned int>(holds(pts[i + k]));
        }
        if (all == 0) {
            break;
        }
    }
    while (i < n && holds(pts[i])) {
        ++i;
    }
    return i;
}

} // namespace geom::detail
