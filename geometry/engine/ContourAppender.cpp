// SPDX-License-Identifier: MIT
#include "geometry/engine/ContourAppender.h"

#include "geometry/engine/Memory.h"

#include <algorithm>
#include <limits>

namespace geom::detail {

namespace {

constexpr std::uint64_t IMPOSSIBLE = std::numeric_limits<std::uint64_t>::max();
constexpr std::uint64_t LARGEST = std::numeric_limits<int>::max();

// The bytes of an array; for counts that no record can have, more than any heap gives.
std::uint64_t SizeOf(std::uint64_t count, std::size_t element) {
    return count > LARGEST ? IMPOSSIBLE : count * element;
}

std::uint64_t RoomFor(std::uint64_t count) {
    std::uint64_t room = 1;
    while (room < count && room <= LARGEST / 2) {
        room *= 2;
    }
    return std::max(room, count);
}

template <typename T>
void MakeRoom(T*& array, std::uint64_t count, const char* reason) {
    array = static_cast<T*>(GpcRealloc(array, SizeOf(RoomFor(count), sizeof(T)), ENGINE_FILE,
                                       LINE_ALLOCATE_RECORD, reason));
}

} // namespace

ContourAppender::ContourAppender(gpc_polygon& polygon, std::size_t additional)
    : m_polygon(polygon), m_committed(std::max(polygon.num_contours, 0)), m_count(m_committed) {
    const auto old = static_cast<std::uint64_t>(m_committed);
    const std::uint64_t total = additional > LARGEST ? IMPOSSIBLE : old + additional;
    MakeRoom(m_polygon.hole, total, "contour hole addition");
    MakeRoom(m_polygon.contour, total, "contour addition");
}

ContourAppender::~ContourAppender() {
    std::for_each(m_polygon.contour + m_committed, m_polygon.contour + m_count,
                  [](const gpc_vertex_list& added) { GpcFree(added.vertex); });
}

gpc_vertex* ContourAppender::Append(std::int64_t numVertices, int hole) {
    const std::uint64_t size = SizeOf(static_cast<std::uint64_t>(numVertices), sizeof(gpc_vertex));
    auto* vertices = static_cast<gpc_vertex*>(
        GpcAlloc(size, ENGINE_FILE, LINE_ALLOCATE_RECORD, "contour addition"));
    m_polygon.hole[m_count] = hole;
    m_polygon.contour[m_count] = {static_cast<int>(numVertices), vertices};
    ++m_count;
    return vertices;
}

void ContourAppender::Commit() {
    m_committed = m_polygon.num_contours = m_count;
}

} // namespace geom::detail
