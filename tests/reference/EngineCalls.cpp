// SPDX-License-Identifier: MIT
#include "tests/reference/EngineCalls.h"

namespace geom::test {

namespace {

std::vector<gpc_vertex> VerticesOf(const gpc_vertex_list& list) {
    return {list.vertex, list.vertex + list.num_vertices};
}

} // namespace

std::vector<PlainContour> EngineClip(gpc_op operation, const gpc_polygon& subject,
                                     const gpc_polygon& clip) {
    gpc_polygon result = {0, nullptr, nullptr};
    gpc_polygon_clip(operation, &subject, &clip, &result);
    std::vector<PlainContour> contours;
    for (int i = 0; i < result.num_contours; ++i)
        contours.push_back({result.hole[i] != 0, VerticesOf(result.contour[i])});
    gpc_free_polygon(&result);
    return contours;
}

std::vector<PlainStrip> EngineTristrip(gpc_op operation, const gpc_polygon& subject,
                                       const gpc_polygon& clip) {
    gpc_tristrip result = {0, nullptr};
    gpc_tristrip_clip(operation, &subject, &clip, &result);
    std::vector<PlainStrip> strips;
    for (int i = 0; i < result.num_strips; ++i)
        strips.push_back(VerticesOf(result.strip[i]));
    gpc_free_tristrip(&result);
    return strips;
}

} // namespace geom::test
