// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Polygon2.h"

namespace geom::detail {

/// Moves the edges of every ring to their right by a distance (to their left by a negative one),
/// joining them by arcs where they part and by a path back through the old corner where they
/// overlap:
///
///      a                      The walk a, corner, b leaves a loop that winds less often, or
///   ---+---.b                 the other way, so that whoever keeps the positive winding
///          |                  numbers cuts it off. No crossing of moved edges is computed.
///   --.corner
///     |    |
///
/// Rings of fewer than 3 points are dropped. The result overlaps itself; it is in normal form.
/// Unchanged when an exception is thrown.
void OffsetRings(Polygon2& polygon, double distance);

} // namespace geom::detail
