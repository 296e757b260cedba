// SPDX-License-Identifier: MIT
#include "tools/geomtool/Statistics.h"

#include "tools/geomtool/Numbers.h"

#include <cmath>
#include <cstdio>

namespace geomtool {

void Statistics::AddInput(const PolygonSet& shapes) {
    m_contours += shapes.rings.size();
    m_vertices += shapes.VertexCount();
}

std::string Statistics::Line(const PolygonSet& result) const {
    std::string line = "contours_in=" + std::to_string(m_contours) +
                       " vertices_in=" + std::to_string(m_vertices) +
                       " contours_out=" + std::to_string(result.rings.size()) +
                       " vertices_out=" + std::to_string(result.VertexCount()) + " area=";
    AppendNumber(line, result.Area());
    line += " seconds=";
    AppendNumber(line, std::round(m_elapsed.count() * 1e6) / 1e6);
    return line;
}

void Statistics::Print(const PolygonSet& result) const {
    std::fprintf(stderr, "%s\n", Line(result).c_str());
}

} // namespace geomtool
