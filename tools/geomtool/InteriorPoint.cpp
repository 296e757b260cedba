// SPDX-License-Identifier: MIT
#include "tools/geomtool/InteriorPoint.h"

#include "tools/geomtool/EdgeCrossing.h"
#include "tools/geomtool/PolygonSet.h"

#include <algorithm>

namespace geomtool {

using geom::Box2d;
using geom::Vec2d;

namespace {

/// A height that no vertex has, next to the middle of the contour; the common height when all
/// vertices have the same.
double FreeHeight(const std::vector<Vec2d>& points) {
    const Box2d box = BoxOf(points);
    const double middle = box.minY / 2 + box.maxY / 2; // the sum could overflow
    double below = box.minY;
    double above = box.maxY;
    for (const Vec2d& p : points) {
        if (p.y <= middle) {
            below = std::max(below, p.y);
        } else {
            above = std::min(above, p.y);
        }
    }
    return below / 2 + above / 2;
}

std::vector<double> CrossingsAt(const std::vector<Vec2d>& points, double y) {
    std::vector<double> crossings;
    const Vec2d* a = &points.back();
    for (const Vec2d& b : points) {
        if (PassesHeight(*a, b, y)) {
            crossings.push_back(CrossingAt(*a, b, y));
        }
        a = &b;
    }
    std::sort(crossings.begin(), crossings.end());
    return crossings;
}

} // namespace

Vec2d InteriorPoint(const std::vector<Vec2d>& points) {
    const double y = FreeHeight(points);
    const std::vector<double> crossings = CrossingsAt(points, y);
    Vec2d best = points.front();
    double widest = 0;
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
        if (crossings[i + 1] - crossings[i] > widest) {
            widest = crossings[i + 1] - crossings[i];
            best = Vec2d(crossings[i] / 2 + crossings[i + 1] / 2, y);
        }
    }
    return best;
}

} // namespace geomtool
