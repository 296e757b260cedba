// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Polygon2.h"
#include "tools/geomtool/PolygonSet.h"

/// \file
/// Between the tool's contours, which carry hole flags, and the library's rings, whose direction
/// tells holes.

namespace geomtool {

enum class RingDirections {
    Kept,
    FromHoleFlags ///< external contours counter-clockwise, holes clockwise
};

geom::Polygon2 ToPolygon2(const PolygonSet& shapes, RingDirections directions);

/// Rings that run clockwise become holes.
PolygonSet ToPolygonSet(const geom::Polygon2& polygon);

} // namespace geomtool
