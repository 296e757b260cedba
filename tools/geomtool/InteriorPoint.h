// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <vector>

namespace geomtool {

/// A point inside a contour (even-odd), away from its boundary: the middle of the widest inside
/// stretch of a horizontal line about half way up, between the heights of two vertices. For a
/// contour without area, one of its points.
///
/// \param points at least one.
geom::Vec2d InteriorPoint(const std::vector<geom::Vec2d>& points);

} // namespace geomtool
