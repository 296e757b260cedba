// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cstddef>
#include <vector>

/// \file
/// The shapes that the tool holds between reading and writing, independent of any format.

namespace geomtool {

/// One contour, closed implicitly: the first point is not repeated at the end.
struct Ring {
    std::vector<geom::Vec2d> points;
    bool hole = false;
};

/// Contours in any order. Inside is decided by even-odd parity over all of them; the hole flags
/// say which contours bound a polygon from within.
struct PolygonSet {
    std::vector<Ring> rings;

    std::size_t HoleCount() const;
    std::size_t VertexCount() const;
    /// The box of all points, the empty box when there are none.
    geom::Box2d Box() const;
    /// The areas of the external contours less those of the holes.
    double Area() const;
};

/// A rectangle as one contour. Its first edge is horizontal: so the library knows it for one.
PolygonSet Rectangle(const geom::Box2d& box);

/// The box of a contour's points.
geom::Box2d BoxOf(const std::vector<geom::Vec2d>& points);

/// The signed area of a contour, positive when it runs counter-clockwise.
double SignedArea(const std::vector<geom::Vec2d>& points);

/// Drops the last point when it repeats the first: formats that close their rings explicitly
/// store it twice.
void DropClosingPoint(std::vector<geom::Vec2d>& points);

} // namespace geomtool
