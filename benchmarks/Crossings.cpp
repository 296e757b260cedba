// SPDX-License-Identifier: MIT
// The exclusive-or of two regions keeps every border, so its vertices are those of the operands and
// the crossings.
#include "Crossings.h"

#include "tests/support/PolygonView.h"

#include <algorithm>
#include <iterator>

namespace geom::bench {

namespace {

bool IsBefore(const gpc_vertex& a, const gpc_vertex& b) {
    return a.x < b.x || (a.x == b.x && a.y < b.y);
}

bool IsSame(const gpc_vertex& a, const gpc_vertex& b) {
    return a.x == b.x && a.y == b.y;
}

void Append(const std::vector<Ring>& rings, Ring& points) {
    for (const Ring& ring : rings) {
        points.insert(points.end(), ring.begin(), ring.end());
    }
}

void MakeDistinct(Ring& points) {
    std::sort(points.begin(), points.end(), IsBefore);
    points.erase(std::unique(points.begin(), points.end(), IsSame), points.end());
}

Ring VerticesOfExclusiveOr(const Regions& regions) {
    test::Rings subjectRings(regions.subject.rings);
    test::Rings clipRings(regions.clip.rings);
    const test::PolygonView subject(subjectRings);
    const test::PolygonView clip(clipRings);
    gpc_polygon result = {};
    gpc_polygon_clip(GPC_XOR, &subject.Get(), &clip.Get(), &result);
    Ring vertices;
    for (int c = 0; c < result.num_contours; ++c) {
        const gpc_vertex_list& list = result.contour[c];
        vertices.insert(vertices.end(), list.vertex, list.vertex + list.num_vertices);
    }
    gpc_free_polygon(&result);
    return vertices;
}

} // namespace

std::size_t CrossingCount(const Regions& regions) {
    Ring vertices;
    Append(regions.subject.rings, vertices);
    Append(regions.clip.rings, vertices);
    MakeDistinct(vertices);
    Ring all = VerticesOfExclusiveOr(regions);
    MakeDistinct(all);
    Ring crossings;
    std::set_difference(all.begin(), all.end(), vertices.begin(), vertices.end(),
                        std::back_inserter(crossings), IsBefore);
    return crossings.size();
}

} // namespace geom::bench
