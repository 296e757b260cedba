// SPDX-License-Identifier: MIT
#include "tools/geomtool/LineSet.h"

#include "tools/geomtool/PolygonSet.h"

#include <iterator>

namespace geomtool {

std::size_t LineSet::VertexCount() const {
    std::size_t count = 0;
    for (const Line& line : lines) {
        count += line.size();
    }
    return count;
}

geom::Box2d LineSet::Box() const {
    geom::Box2d box;
    for (const Line& line : lines) {
        box |= BoxOf(line);
    }
    return box;
}

FlatLines Flatten(const LineSet& lines) {
    FlatLines flat;
    flat.points.reserve(lines.VertexCount());
    flat.counts.reserve(lines.lines.size());
    for (const Line& line : lines.lines) {
        flat.points.insert(flat.points.end(), line.begin(), line.end());
        flat.counts.push_back(static_cast<unsigned int>(line.size()));
    }
    return flat;
}

LineSet Unflatten(const FlatLines& flat) {
    LineSet lines;
    lines.lines.reserve(flat.counts.size());
    auto first = flat.points.begin();
    for (const unsigned int count : flat.counts) {
        const auto last = std::next(first, count);
        lines.lines.emplace_back(first, last);
        first = last;
    }
    return lines;
}

} // namespace geomtool
