// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

namespace geomtool {

/// Whether an edge passes the height y. Half-open, so that where two edges meet at that height
/// one of them counts if the contour goes on, and none or both if it turns back.
bool PassesHeight(const geom::Vec2d& a, const geom::Vec2d& b, double y);

/// Where an edge passes the height y, which it does. The same from both directions, and a number
/// however large the coordinates are.
double CrossingAt(const geom::Vec2d& a, const geom::Vec2d& b, double y);

} // namespace geomtool
