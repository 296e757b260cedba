// SPDX-License-Identifier: MIT
#include "tools/geomtool/PolygonSet.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace geomtool {

using geom::Box2d;
using geom::Vec2d;

std::size_t PolygonSet::HoleCount() const {
    return static_cast<std::size_t>(
        std::count_if(rings.begin(), rings.end(), [](const Ring& ring) { return ring.hole; }));
}

std::size_t PolygonSet::VertexCount() const {
    std::size_t count = 0;
    for (const Ring& ring : rings) {
        count += ring.points.size();
    }
    return count;
}

Box2d PolygonSet::Box() const {
    Box2d box;
    for (const Ring& ring : rings) {
        box |= BoxOf(ring.points);
    }
    return box;
}

double PolygonSet::Area() const {
    double area = 0;
    for (const Ring& ring : rings) {
        const double part = std::abs(SignedArea(ring.points));
        area += ring.hole ? -part : part;
    }
    return area;
}

PolygonSet Rectangle(const Box2d& box) {
    Vec2d corners[4];
    box.GetCorners(corners);
    PolygonSet shape;
    shape.rings.push_back({{std::begin(corners), std::end(corners)}, false});
    return shape;
}

Box2d BoxOf(const std::vector<Vec2d>& points) {
    Box2d box;
    for (const Vec2d& p : points) {
        box.ExtendBy(p);
    }
    return box;
}

double SignedArea(const std::vector<Vec2d>& points) {
    if (points.size() < 3) {
        return 0;
    }
    // Measured from the first point: far from the origin the plain products would cancel.
    const Vec2d origin = points[0];
    double twice = 0;
    for (std::size_t i = 2; i < points.size(); ++i) {
        const Vec2d a = points[i - 1] - origin;
        const Vec2d b = points[i] - origin;
        twice += a.x * b.y - b.x * a.y;
    }
    return twice / 2;
}

void DropClosingPoint(std::vector<Vec2d>& points) {
    if (points.size() > 1 && points.front() == points.back()) {
        points.pop_back();
    }
}

} // namespace geomtool
