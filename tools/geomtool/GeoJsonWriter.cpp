// SPDX-License-Identifier: MIT
#include "tools/geomtool/GeoJsonFormat.h"
#include "tools/geomtool/Nesting.h"
#include "tools/geomtool/Numbers.h"

#include <cstddef>

namespace geomtool {

namespace {

void AppendPosition(std::string& out, const geom::Vec2d& p) {
    out += '[';
    AppendNumber(out, p.x);
    out += ',';
    AppendNumber(out, p.y);
    out += ']';
}

/// A reversed ring keeps its first point.
void AppendRing(std::string& out, const Ring& ring, bool counterClockwise) {
    const std::vector<geom::Vec2d>& points = ring.points;
    const bool reversed = (SignedArea(points) > 0) != counterClockwise;
    out += '[';
    for (std::size_t i = 0; i < points.size(); ++i) {
        AppendPosition(out, points[reversed && i > 0 ? points.size() - i : i]);
        out += ',';
    }
    AppendPosition(out, points.front());
    out += ']';
}

void AppendPolygon(std::string& out, const PolygonSet& shapes, const NestedPolygon& polygon) {
    out += '[';
    AppendRing(out, shapes.rings[polygon.exterior], true);
    for (const std::size_t hole : polygon.holes) {
        out += ",\n";
        AppendRing(out, shapes.rings[hole], false);
    }
    out += ']';
}

} // namespace

std::string WriteGeoJson(const PolygonSet& shapes) {
    const std::vector<NestedPolygon> polygons = Nest(shapes);
    const bool single = polygons.size() == 1;
    std::string out = single ? "{\"type\":\"Polygon\",\"coordinates\":"
                             : "{\"type\":\"MultiPolygon\",\"coordinates\":[";
    for (std::size_t i = 0; i < polygons.size(); ++i) {
        out += i > 0 ? ",\n" : "\n";
        AppendPolygon(out, shapes, polygons[i]);
    }
    out += single ? "}\n" : "]}\n";
    return out;
}

} // namespace geomtool
