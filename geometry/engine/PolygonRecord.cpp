// SPDX-License-Identifier: MIT
// Appending to the caller's records, and releasing them.
#include "geometry/Gpc.h"
#include "geometry/engine/Memory.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace geom {

namespace {

struct Release {
    void operator()(void* block) const { detail::GpcFree(block); }
};
template <typename T>
using Owned = std::unique_ptr<T[], Release>;

// Counts are widened with their sign: a negative one becomes a request that no heap can meet.
template <typename T>
Owned<T> Allocate(std::int64_t count, const char* reason) {
    const std::uint64_t size = static_cast<std::uint64_t>(count) * sizeof(T);
    return Owned<T>(static_cast<T*>(
        detail::GpcAlloc(size, detail::ENGINE_FILE, detail::LINE_ALLOCATE_RECORD, reason)));
}

// One more than the number of contours. A record that has a negative number, or no room to
// count another, asks for an impossible block.
std::int64_t CountWithOneMore(int contours) {
    const bool impossible = contours < 0 || contours == std::numeric_limits<int>::max();
    return impossible ? -1 : std::int64_t{contours} + 1;
}

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
    const int n = polygon->num_contours;
    const gpc_vertex_list source = *contour;
    Owned<int> holes = Allocate<int>(CountWithOneMore(n), "contour hole addition");
    Owned<gpc_vertex_list> contours =
        Allocate<gpc_vertex_list>(CountWithOneMore(n), "contour addition");
    Owned<gpc_vertex> vertices = Allocate<gpc_vertex>(source.num_vertices, "contour addition");

    std::copy_n(polygon->hole, n, holes.get());
    std::copy_n(polygon->contour, n, contours.get());
    std::copy_n(source.vertex, source.num_vertices, vertices.get());
    holes[static_cast<std::size_t>(n)] = hole;
    contours[static_cast<std::size_t>(n)] = {source.num_vertices, vertices.release()};

    detail::GpcFree(polygon->contour);
    detail::GpcFree(polygon->hole);
    *polygon = {n + 1, holes.release(), contours.release()};
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
