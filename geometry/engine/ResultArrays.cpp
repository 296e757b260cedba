// SPDX-License-Identifier: MIT
#include "geometry/engine/ResultArrays.h"

#include "geometry/engine/Lines.h"
#include "geometry/engine/Memory.h"

#include <limits>
#include <utility>

namespace geom::detail {

namespace {

constexpr std::uint64_t LARGEST_COUNT = std::numeric_limits<int>::max();

// Counts of records have 32 bits.
void CheckCount(std::uint64_t count) {
    if (count > LARGEST_COUNT) {
        ThrowArgumentError(LINE_TOO_MANY_ITEMS);
    }
}

template <typename T>
T* AllocateArray(std::uint64_t count, const char* reason) {
    CheckCount(count);
    return static_cast<T*>(GpcAlloc(count * sizeof(T), ENGINE_FILE, LINE_ALLOCATE_RECORD, reason));
}

gpc_vertex_list AllocateList(std::uint32_t vertices, const char* reason) {
    return {static_cast<int>(vertices), AllocateArray<gpc_vertex>(vertices, reason)};
}

} // namespace

// The delegation makes the destructor responsible when the second array fails.
PolygonBuilder::PolygonBuilder(std::uint64_t contours) : PolygonBuilder() {
    m_polygon.hole = AllocateArray<int>(contours, "hole flag table creation");
    m_polygon.contour = AllocateArray<gpc_vertex_list>(contours, "contour creation");
}

gpc_vertex_list& PolygonBuilder::AddContour(std::uint32_t vertices, int hole) {
    gpc_vertex_list& contour = m_polygon.contour[m_polygon.num_contours];
    contour = AllocateList(vertices, "vertex creation");
    m_polygon.hole[m_polygon.num_contours] = hole;
    ++m_polygon.num_contours;
    return contour;
}

gpc_polygon PolygonBuilder::Release() {
    return std::exchange(m_polygon, {0, nullptr, nullptr});
}

TristripBuilder::TristripBuilder(std::uint64_t strips)
    : m_strips{0, AllocateArray<gpc_vertex_list>(strips, "tristrip list creation")} {}

gpc_vertex_list& TristripBuilder::AddStrip(std::uint32_t vertices) {
    gpc_vertex_list& strip = m_strips.strip[m_strips.num_strips];
    strip = AllocateList(vertices, "tristrip creation");
    ++m_strips.num_strips;
    return strip;
}

gpc_tristrip TristripBuilder::Release() {
    return std::exchange(m_strips, {0, nullptr});
}

} // namespace geom::detail
