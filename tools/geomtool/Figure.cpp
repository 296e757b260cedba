// SPDX-License-Identifier: MIT
#include "tools/geomtool/Figure.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace geomtool {

namespace {

bool AreFinite(const std::vector<geom::Vec2d>& points) {
    return std::all_of(points.begin(), points.end(), [](const geom::Vec2d& p) {
        return std::isfinite(p.x) && std::isfinite(p.y);
    });
}

} // namespace

LineSet AllLines(Figure figure) {
    LineSet all;
    all.lines.reserve(figure.polygons.rings.size() + figure.lines.lines.size());
    for (Ring& ring : figure.polygons.rings) {
        if (!ring.points.empty()) {
            const geom::Vec2d first = ring.points.front();
            ring.points.push_back(first);
        }
        all.lines.push_back(std::move(ring.points));
    }
    std::move(figure.lines.lines.begin(), figure.lines.lines.end(), std::back_inserter(all.lines));
    return all;
}

bool IsFinite(const Figure& figure) {
    const std::vector<Ring>& rings = figure.polygons.rings;
    const std::vector<Line>& lines = figure.lines.lines;
    return std::all_of(rings.begin(), rings.end(),
                       [](const Ring& ring) { return AreFinite(ring.points); }) &&
           std::all_of(lines.begin(), lines.end(), AreFinite);
}

} // namespace geomtool
