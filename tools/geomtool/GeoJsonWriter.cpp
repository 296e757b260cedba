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

/// A reversed ring keeps its first point. One without area has no direction and is left alone.
void AppendRing(std::string& out, const Ring& ring, bool counterClockwise) {
    const std::vector<geom::Vec2d>& points = ring.points;
    const double area = SignedArea(points);
    const bool reversed = counterClockwise ? area < 0 : area > 0;
    out += '[';
    for (std::size_t i = 0; i < points.size(); ++i) {
        AppendPosition(out, points[reversed && i > 0 ? points.size() - i : i]);
        out += ',';
    }
    AppendPosition(out, points.front());
    out += ']';
}

void AppendLine(std::string& out, const Line& line) {
    for (std::size_t i = 0; i < line.size(); ++i) {
        out += i > 0 ? ',' : '[';
        AppendPosition(out, line[i]);
    }
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

std::string WriteGeoJsonLines(const LineSet& lines) {
    std::string out;
    std::size_t count = 0;
    for (const Line& line : lines.lines) {
        if (line.size() >= 2) {
            out += count++ > 0 ? ",\n" : "\n";
            AppendLine(out, line);
        }
    }
    return count == 1 ? "{\"type\":\"LineString\",\"coordinates\":" + out + "}\n"
                      : "{\"type\":\"MultiLineString\",\"coordinates\":[" + out + "]}\n";
}

std::string WriteGeoJsonFigure(const Figure& figure) {
    if (figure.lines.lines.empty()) {
        return WriteGeoJson(figure.polygons);
    }
    std::string lines = WriteGeoJsonLines(figure.lines);
    if (figure.polygons.rings.empty()) {
        return lines;
    }
    std::string polygons = WriteGeoJson(figure.polygons);
    polygons.pop_back(); // the ends of the lines
    lines.pop_back();
    return "{\"type\":\"GeometryCollection\",\"geometries\":[\n" + polygons + ",\n" + lines +
           "]}\n";
}

} // namespace geomtool
