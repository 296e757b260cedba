// SPDX-License-Identifier: MIT
#include "tools/geomtool/EdgeCrossing.h"

#include <cmath>

namespace geomtool {

using geom::Vec2d;

bool PassesHeight(const Vec2d& a, const Vec2d& b, double y) {
    return (a.y > y) != (b.y > y);
}

double CrossingAt(const Vec2d& a, const Vec2d& b, double y) {
    const Vec2d& lower = a.y < b.y ? a : b;
    const Vec2d& upper = a.y < b.y ? b : a;
    const double rise = upper.y - lower.y;
    // The difference of huge ordinates overflows unless they are halved, and half of a tiny one
    // can vanish.
    const double t = std::isfinite(rise) ? (y - lower.y) / rise
                                         : (y / 2 - lower.y / 2) / (upper.y / 2 - lower.y / 2);
    return lower.x * (1 - t) + upper.x * t;
}

} // namespace geomtool
