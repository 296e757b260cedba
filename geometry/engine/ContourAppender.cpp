// SPDX-License-Identifier: MIT
#include "geometry/engine/ContourAppender.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace geom::detail {

namespace {

constexpr std::uint64_t IMPOSSIBLE = std::numeric_limits<std::uint64_t>::max();

template <typename T>
T* Allocate(std::uint64_t count, const char* reason) {
    constexpr std::uint64_t LARGEST = std::numeric_limits<int>::max();
    const std::uint64_t size = count > LARGEST ? IMPOSSIBLE : count * sizeof(T);
    return static_cast<T*>(GpcAlloc(size, ENGINE_FILE, LINE_ALLOCATE_RECORD, reason));
}

} // namespace

ContourAppender::ContourAppender(gpc_polygon& polygon, std::size_t additional)
    : m_polygon(polygon), m_oldCount(std::max(polygon.num_contours, 0)), m_count(m_oldCount) {
    const std::uint64_t old = static_cast<std::uint64_t>(m_oldCount);
    const std::uint64_t total = additional > IMPOSSIBLE - old ? IMPOSSIBLE : old + additional;
    m_holes.reset(Allocate<int>(total, "contour hole addition"));
    m_contours.reset(Allocate<gpc_vertex_list>(total, "contour addition"));
    std::copy_n(polygon.hole, m_oldCount, m_holes.get());
    std::copy_n(polygon.contour, m_oldCount, m_contours.get());
}

ContourAppender::~ContourAppender() {
    if (m_contours != nullptr) {
        std::for_each(m_contours.get() + m_oldCount, m_contours.get() + m_count,
                      [](const gpc_vertex_list& added) { GpcFree(added.vertex); });
    }
}

gpc_vertex* ContourAppender::Append(std::int64_t numVertices, int hole) {
    gpc_vertex* vertices =
        Allocate<gpc_vertex>(static_cast<std::uint64_t>(numVertices), "contour addition");
    m_holes[static_cast<std::size_t>(m_count)] = hole;
    m_contours[static_cast<std::size_t>(m_count)] = {static_cast<int>(numVertices), vertices};
    ++m_count;
    return vertices;
}

void ContourAppender::Commit() {
    GpcFree(std::exchange(m_polygon.hole, m_holes.release()));
    GpcFree(std::exchange(m_polygon.contour, m_contours.release()));
    m_polygon.num_contours = m_count;
}

} // namespace geom::detail
