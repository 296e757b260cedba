// SPDX-License-Identifier: MIT
#include "tools/geomtool/RingConversion.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace geomtool {

using geom::Polygon2;

Polygon2 ToPolygon2(const PolygonSet& shapes, RingDirections directions) {
    Polygon2 polygon;
    std::vector<geom::Vec2d>& points = polygon.Points();
    points.reserve(shapes.VertexCount());
    for (const Ring& ring : shapes.rings) {
        const auto first = static_cast<std::ptrdiff_t>(points.size());
        points.insert(points.end(), ring.points.begin(), ring.points.end());
        polygon.Counts().push_back(static_cast<unsigned int>(ring.points.size()));
        const bool isClockwise = SignedArea(ring.points) < 0;
        if (directions == RingDirections::FromHoleFlags && isClockwise != ring.hole) {
            std::reverse(points.begin() + first, points.end());
        }
    }
    return polygon;
}

PolygonSet ToPolygonSet(const Polygon2& polygon) {
    PolygonSet shapes;
    auto first = polygon.Points().begin();
    for (const unsigned int count : polygon.Counts()) {
        const auto last = std::next(first, count);
        Ring ring{{first, last}, false};
        ring.hole = SignedArea(ring.points) < 0;
        shapes.rings.push_back(std::move(ring));
        first = last;
    }
    return shapes;
}

} // namespace geomtool
