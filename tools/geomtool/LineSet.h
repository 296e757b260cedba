// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cstddef>
#include <vector>

namespace geomtool {

/// An open polyline. A closed one ends with its first point again.
using Line = std::vector<geom::Vec2d>;

/// Polylines in order, independent of any format.
struct LineSet {
    std::vector<Line> lines;

    std::size_t VertexCount() const;
    /// The box of all points, the empty box when there are none.
    geom::Box2d Box() const;
};

/// All points, line after line, and the number of points of each line: the form in which the
/// library takes and gives polylines.
struct FlatLines {
    std::vector<geom::Vec2d> points;
    std::vector<unsigned int> counts;
};

FlatLines Flatten(const LineSet& lines);
LineSet Unflatten(const FlatLines& flat);

} // namespace geomtool
