// SPDX-License-Identifier: MIT
#include "tools/geomtool/Nesting.h"
#include "tools/geomtool/Numbers.h"
#include "tools/geomtool/WktFormat.h"

namespace geomtool {

namespace {

void AppendPoint(std::string& out, const geom::Vec2d& p) {
    AppendNumber(out, p.x);
    out += ' ';
    AppendNumber(out, p.y);
}

void AppendRing(std::string& out, const Ring& ring) {
    out += '(';
    for (const geom::Vec2d& p : ring.points) {
        AppendPoint(out, p);
        out += ',';
    }
    AppendPoint(out, ring.points.front());
    out += ')';
}

void AppendLine(std::string& out, const Line& line) {
    for (std::size_t i = 0; i < line.size(); ++i) {
        out += i > 0 ? "," : "(";
        AppendPoint(out, line[i]);
    }
    out += ')';
}

void AppendPolygon(std::string& out, const PolygonSet& shapes, const NestedPolygon& polygon) {
    out += '(';
    AppendRing(out, shapes.rings[polygon.exterior]);
    for (const std::size_t hole : polygon.holes) {
        out += ",\n ";
        AppendRing(out, shapes.rings[hole]);
    }
    out += ')';
}

} // namespace

std::string WriteWkt(const PolygonSet& shapes) {
    const std::vector<NestedPolygon> polygons = Nest(shapes);
    if (polygons.empty()) {
        return "MULTIPOLYGON EMPTY\n";
    }
    const bool several = polygons.size() > 1;
    std::string out = several ? "MULTIPOLYGON (" : "POLYGON ";
    for (std::size_t i = 0; i < polygons.size(); ++i) {
        out += i > 0 ? ",\n" : "";
        AppendPolygon(out, shapes, polygons[i]);
    }
    out += several ? ")\n" : "\n";
    return out;
}

std::string WriteWktLines(const LineSet& lines) {
    std::string out;
    std::size_t count = 0;
    for (const Line& line : lines.lines) {
        if (line.size() >= 2) {
            out += count++ > 0 ? ",\n" : "";
            AppendLine(out, line);
        }
    }
    switch (count) {
    case 0: return "MULTILINESTRING EMPTY\n";
    case 1: return "LINESTRING " + out + "\n";
    default: return "MULTILINESTRING (" + out + ")\n";
    }
}

std::string WriteWktFigure(const Figure& figure) {
    if (figure.lines.lines.empty()) {
        return WriteWkt(figure.polygons);
    }
    std::string lines = WriteWktLines(figure.lines);
    if (figure.polygons.rings.empty()) {
        return lines;
    }
    std::string polygons = WriteWkt(figure.polygons);
    polygons.pop_back(); // the ends of the lines
    lines.pop_back();
    return "GEOMETRYCOLLECTION (" + polygons + ",\n" + lines + ")\n";
}

} // namespace geomtool
