// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Geometry.h"
#include "geometry/Polygon2.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

/// \file
/// Rings, and polygons of rings, for the tests of Polygon2 and of what works on it.

namespace geom::test {

/// A polygon with the arrays as given, not normalised.
inline Polygon2 Raw(const std::vector<Vec2d>& points, const std::vector<unsigned int>& counts) {
    Polygon2 polygon;
    polygon.Points() = points;
    polygon.Counts() = counts;
    return polygon;
}

/// Runs counter-clockwise.
inline std::vector<Vec2d> Box(double left, double bottom, double right, double top) {
    return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

inline std::vector<Vec2d> Reversed(const std::vector<Vec2d>& ring) {
    return {ring.rbegin(), ring.rend()};
}

inline std::vector<Vec2d> Joined(std::vector<Vec2d> a, const std::vector<Vec2d>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

inline double DistanceToBoundary(const Polygon2& polygon, const Vec2d& p) {
    double least = std::numeric_limits<double>::max();
    const Vec2d* ring = polygon.Points().data();
    for (const unsigned int n : polygon.Counts()) {
        for (std::size_t i = 0; i < n; ++i) {
            least = std::min(least, PointLineSegDistSq(p, ring[i], ring[(i + 1) % n]));
        }
        ring += n;
    }
    return std::sqrt(least);
}

} // namespace geom::test
