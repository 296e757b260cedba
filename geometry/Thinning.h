// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

#include <cstddef>
#include <vector>

/// \file
/// Fewer vertices for display: the vertices of a polyline that carry little shape are dropped.
///
/// Both functions keep the first and the last vertex and the order of the others, append to the
/// output without clearing it, and copy a polyline of fewer than five vertices as it is. The
/// input may lie in the output. They take linear time; when memory runs out the standard
/// exception passes and the output is as it was.

namespace geom {

/// Keeps the vertices where the direction turns by more than an angle. Repeated points do not
/// turn.
///
/// A first segment without length has the direction of the y axis, which the following segments
/// are compared with.
///
/// \param points       `n` vertices; null counts as none.
/// \param maxDeviation in radians; turns up to it are dropped.
GEOM_API void ThinByAngularDeviation(const Vec2d* points, std::size_t n, double maxDeviation,
                                     std::vector<Vec2d>& out);

/// Keeps the vertices where the line turns back in x or in y, unless the segment that leaves the
/// vertex is parallel to an axis. Monotone runs collapse to their ends.
///
/// \param points `n` vertices; null counts as none.
GEOM_API void ThinToMinimalDetail(const Vec2d* points, std::size_t n, std::vector<Vec2d>& out);

} // namespace geom
