// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Reading and writing a polygon record, whatever the file's format: the contour count; for
/// each contour its vertex count, its hole flag if flags are stored, and its vertices.
///
/// The counts that a file states are not trusted: its arrays start small and grow with what has
/// really been read, so that a few bytes cannot ask for gigabytes. Arrays are null before they
/// are allocated and zero where nothing has been read, and the record never counts more entries
/// than exist; so it can be released whenever reading stops.

#include "geometry/Gpc.h"
#include "geometry/engine/Memory.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace geom::detail {

/// The most entries that a count alone makes a reader allocate.
inline constexpr std::int64_t FIRST_ENTRIES = 65536;

/// How many of the announced entries to have room for when the present room is used up.
/// Negative for a negative announcement, which no heap can meet.
inline std::int64_t NextRoom(std::int64_t room, std::int64_t announced) {
    return std::min(announced, room == 0 ? FIRST_ENTRIES : 2 * room);
}

/// Enlarges an array; the new entries are zero.
template <typename T>
void Enlarge(T*& array, std::int64_t from, std::int64_t to, const char* reason) {
    const std::uint64_t size = static_cast<std::uint64_t>(to) * sizeof(T);
    array = static_cast<T*>(GpcRealloc(array, size, ENGINE_FILE, LINE_ALLOCATE_FILE, reason));
    const std::size_t used = static_cast<std::size_t>(from) * sizeof(T);
    std::memset(reinterpret_cast<char*>(array) + used, 0, static_cast<std::size_t>(size) - used);
}

/// Reads `announced` vertices into an empty contour.
///
/// \tparam Source has bool ReadInt(int&) and bool ReadVertices(gpc_vertex*, std::size_t), which
/// return false when the input does not give what is asked for.
template <typename Source>
bool ReadVertices(Source& source, int announced, gpc_vertex_list& contour) {
    for (std::int64_t room = 0; room != announced;) {
        const std::int64_t more = NextRoom(room, announced);
        Enlarge(contour.vertex, room, more, "vertex creation");
        contour.num_vertices = static_cast<int>(more);
        if (!source.ReadVertices(contour.vertex + room, static_cast<std::size_t>(more - room))) {
            return false;
        }
        room = more;
    }
    return true;
}

template <typename Source>
bool ReadContour(Source& source, bool withHoleFlag, int& hole, gpc_vertex_list& contour) {
    int announced = 0;
    return source.ReadInt(announced) && (!withHoleFlag || source.ReadInt(hole)) &&
           ReadVertices(source, announced, contour);
}

/// Reads a whole record over whatever it held before.
template <typename Source>
bool ReadPolygon(Source& source, bool withHoleFlags, gpc_polygon& polygon) {
    polygon = {0, nullptr, nullptr};
    int announced = 0;
    if (!source.ReadInt(announced)) {
        return false;
    }
    polygon.num_contours = std::min(announced, 0);
    for (std::int64_t room = 0; room != announced;) {
        const std::int64_t more = NextRoom(room, announced);
        Enlarge(polygon.hole, room, more, "hole flag array creation");
        Enlarge(polygon.contour, room, more, "contour creation");
        polygon.num_contours = static_cast<int>(more);
        for (; room < more; ++room) {
            if (!ReadContour(source, withHoleFlags, polygon.hole[room], polygon.contour[room])) {
                return false;
            }
        }
    }
    return true;
}

/// Writes a contour; a null hole flag is left out.
///
/// \tparam Sink has bool WriteInt(int) and bool WriteVertices(const gpc_vertex*, std::size_t),
/// which return false when the output does not take all that is given.
template <typename Sink>
bool WriteContour(Sink& sink, const gpc_vertex_list& contour, const int* hole) {
    const std::size_t n = static_cast<std::size_t>(std::max(contour.num_vertices, 0));
    return (n == 0 || contour.vertex != nullptr) && sink.WriteInt(contour.num_vertices) &&
           (hole == nullptr || sink.WriteInt(*hole)) &&
           (n == 0 || sink.WriteVertices(contour.vertex, n));
}

/// Writes a whole record. False, too, where a record has counts without arrays.
template <typename Sink>
bool WritePolygon(Sink& sink, bool withHoleFlags, const gpc_polygon& polygon) {
    const bool hasArrays =
        polygon.contour != nullptr && (!withHoleFlags || polygon.hole != nullptr);
    if ((polygon.num_contours > 0 && !hasArrays) || !sink.WriteInt(polygon.num_contours)) {
        return false;
    }
    for (int c = 0; c < polygon.num_contours; ++c) {
        const int* hole = withHoleFlags ? &polygon.hole[c] : nullptr;
        if (!WriteContour(sink, polygon.contour[c], hole)) {
            return false;
        }
    }
    return true;
}

} // namespace geom::detail
