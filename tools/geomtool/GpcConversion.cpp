// SPDX-License-Identifier: MIT
#include "tools/geomtool/GpcConversion.h"

#include <utility>

namespace geomtool {

using geom::GpcPolygon;
using geom::Vec2d;

GpcPolygon ToGpcPolygon(const PolygonSet& shapes) {
    std::vector<Vec2d> points;
    std::vector<unsigned int> counts;
    points.reserve(shapes.VertexCount());
    counts.reserve(shapes.rings.size());
    for (const Ring& ring : shapes.rings) {
        points.insert(points.end(), ring.points.begin(), ring.points.end());
        counts.push_back(static_cast<unsigned int>(ring.points.size()));
    }
    if (points.empty()) {
        return GpcPolygon();
    }
    GpcPolygon polygon(points.data(), counts.data(), counts.size());
    for (std::size_t i = 0; i < counts.size(); ++i) {
        polygon.hole[i] = shapes.rings[i].hole ? 1 : 0;
    }
    return polygon;
}

PolygonSet ToPolygonSet(const GpcPolygon& polygon) {
    PolygonSet shapes;
    shapes.rings.reserve(polygon.GetNumContours());
    for (int i = 0; i < polygon.num_contours; ++i) {
        const geom::gpc_vertex_list& contour = polygon.contour[i];
        Ring ring;
        ring.hole = polygon.hole[i] != 0;
        ring.points.reserve(static_cast<std::size_t>(contour.num_vertices));
        for (int k = 0; k < contour.num_vertices; ++k) {
            ring.points.emplace_back(contour.vertex[k].x, contour.vertex[k].y);
        }
        shapes.rings.push_back(std::move(ring));
    }
    return shapes;
}

} // namespace geomtool
