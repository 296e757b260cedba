// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Geometry.h"

#include <cstddef>
#include <limits>

namespace geom::reference {

/// The nearest segment, one after the other.
template <typename Point>
std::size_t FindClosestSegment(const Point* pts, std::size_t n, const Point& p, double* distSq) {
    double best = std::numeric_limits<double>::max();
    std::size_t index = 0;
    for (std::size_t i = 0; i + 1 < n; ++i) {
        const double candidate = PointLineSegDistSq(p, pts[i], pts[i + 1]);
        if (candidate < best) {
            best = candidate;
            index = i;
        }
    }
    *distSq = best;
    return index;
}

} // namespace geom::reference
