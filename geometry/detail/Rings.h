// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>

namespace geom::detail {

/// How many points there are is not known; the counts are trusted.
inline constexpr std::size_t AS_COUNTED = std::numeric_limits<std::size_t>::max();

/// The number of points of a ring that says it has `count`, with `left` points to take from. A
/// negative count is none.
template <typename Count>
std::size_t RingSize(Count count, std::size_t left) {
    return count > 0 ? std::min(static_cast<std::size_t>(count), left) : 0;
}

/// Calls visit(points, n) for each ring of a flat array of rings. Rings take no more than the
/// `available` points, whatever their counts say.
template <typename Point, typename Count, typename Visit>
void ForEachRing(const Point* pts, const Count* counts, std::size_t rings, std::size_t available,
                 Visit visit) {
    for (std::size_t ring = 0; ring < rings; ++ring) {
        const std::size_t n = RingSize(counts[ring], available);
        visit(pts, n);
        pts += n;
        available -= n;
    }
}

} // namespace geom::detail
