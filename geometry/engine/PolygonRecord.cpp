// SPDX-License-Identifier: MIT
// Appending to the caller's records, and releasing them.
#include "geometry/Gpc.h"
#include "geometry/engine/ContourAppender.h"
#include "geometry/engine/Memory.h"

#include <algorithm>

namespace geom {

namespace {

// A count without its array, as no sound record has.
bool Lacks(const void* array, int count) {
    return array == nullptr && count > 0;
}

void CheckArguments(const gpc_polygon* polygon, const gpc_vertex_list* contour) {
    if (polygon == nullptr || contour == nullptr || Lacks(contour->vertex, contour->num_vertices) ||
        Lacks(polygon->hole, polygon->num_contours) ||
        Lacks(polygon->contour, polygon->num_contours)) {
        detail::ThrowArgumentError(detail::LINE_NULL_ARGUMENT);
    }
}

// Widened with its sign, a negative count becomes a request that no heap can meet.
void RequestHoleFlags(int count) {
    const std::uint64_t size = static_cast<std::uint64_t>(std::int64_t{count}) * sizeof(int);
    detail::GpcAlloc(size, detail::ENGINE_FILE, detail::LINE_ALLOCATE_RECORD,
                     "contour hole addition");
}

void FreeLists(gpc_vertex_list* lists, int count) {
    for (int i = 0; lists != nullptr && i < count; ++i) {
        detail::GpcFree(lists[i].vertex);
        lists[i].vertex = nullptr;
    }
    detail::GpcFree(lists);
}

} // namespace

void gpc_add_contour(gpc_polygon* polygon, const gpc_vertex_list* contour, int hole) {
    CheckArguments(polygon, contour);
    if (polygon->num_contours < 0) {
        RequestHoleFlags(polygon->num_contours);
    }
    const gpc_vertex_list list = *contour; // the polygon's own contours may move
    detail::ContourAppender appender(*polygon, 1);
    gpc_vertex* vertices = appender.Append(list.num_vertices, hole);
    std::copy_n(list.vertex, list.num_vertices, vertices);
    appender.Commit();
}

void gpc_free_polygon(gpc_polygon* polygon) {
    if (polygon != nullptr) {
        FreeLists(polygon->contour, polygon->num_contours);
        detail::GpcFree(polygon->hole);
        *polygon = {0, nullptr, nullptr};
    }
}

void gpc_free_tristrip(gpc_tristrip* strips) {
    if (strips != nullptr) {
        FreeLists(strips->strip, strips->num_strips);
        *strips = {0, nullptr};
    }
}

} // namespace geom
