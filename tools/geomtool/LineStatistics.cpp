// SPDX-License-Identifier: MIT
#include "tools/geomtool/LineStatistics.h"

#include "geometry/Geometry.h"
#include "tools/geomtool/Numbers.h"

#include <cmath>

namespace geomtool {

std::string LineStatistics(const LineSet& in, const LineSet& out, double seconds) {
    double length = 0;
    for (const Line& line : out.lines) {
        length += geom::PolylineLength(line.data(), line.size());
    }
    std::string text = "lines_in=" + std::to_string(in.lines.size()) +
                       " vertices_in=" + std::to_string(in.VertexCount()) +
                       " lines_out=" + std::to_string(out.lines.size()) +
                       " vertices_out=" + std::to_string(out.VertexCount()) + " length=";
    AppendNumber(text, length);
    text += " seconds=";
    AppendNumber(text, std::round(seconds * 1e6) / 1e6);
    return text;
}

} // namespace geomtool
