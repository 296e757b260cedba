// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/LineClipPolygon.h"
#include "geometry/detail/ClearCells.h"
#include "geometry/detail/EdgeIndex.h"

#include <vector>

/// \file
/// What the source files of LineClipPolygon share.

namespace geom {

namespace detail {

inline constexpr wchar_t LINE_CLIP_FILE[] = L"LineClipPolygon";

// Where memory ran out.
inline constexpr int LINE_CONTOUR = 101;
inline constexpr int LINE_EDGE = 102;
inline constexpr int LINE_INDEX = 103;
inline constexpr int LINE_CROSSING_LIST = 104;

// Counts that 32 bits do not hold.
inline constexpr int LINE_TOO_MANY_VERTICES = 105;
inline constexpr int LINE_RUN_TOO_LONG = 106;

/// Reports exhausted memory.
[[noreturn]] void ThrowLineClipOutOfMemory(int line);

/// Pieces and gaps no longer than this count as none; a squared distance.
inline constexpr double SAME_POINT = 1e-10;

/// The order of points along a segment: by x, then y.
inline bool IsBefore(double ax, double ay, double bx, double by) {
    return ax < bx || (ax == bx && ay < by);
}

} // namespace detail

/// The index of one contour, and its vertices side by side, which are read faster than edges
/// strewn over the heap.
///
/// It knows its contour by address; freeing that contour drops the index.
struct LineClipPolygon::RingIndex {
    /// An edge as its index has it. Edge k runs from vertex k to vertex k + 1 of the ring.
    class Edge {
    public:
        explicit Edge(const Vec2d* vertices) : m_vertices(vertices) {}
        const Vec2d& Before() const { return m_vertices[0]; }
        const Vec2d& Start() const { return m_vertices[1]; }
        const Vec2d& End() const { return m_vertices[2]; }
        const Vec2d& After() const { return m_vertices[3]; }

    private:
        const Vec2d* m_vertices;
    };

    Edge At(std::uint32_t edge) const { return Edge(&vertices[edge]); }

    /// Whether it is certain that p is on no edge and that no crossing test accepts an edge for
    /// the segment from p to q.
    bool AreClear(const Vec2d& p, const Vec2d& q) const {
        return cells.AreClear(p, q) && !edges.MayHaveParallels(p, q);
    }

    const CONTOUR* contour;
    std::vector<Vec2d> vertices; ///< the last one, all, and the first two
    detail::EdgeIndex edges;
    detail::ClearCells cells;
};

/// The same edge as the contour has it.
class LineClipPolygon::LinkedEdge {
public:
    explicit LinkedEdge(const SEGMENT* edge) : m_edge(edge) {}
    Vec2d Before() const { return {m_edge->prev->startX, m_edge->prev->startY}; }
    Vec2d Start() const { return {m_edge->startX, m_edge->startY}; }
    Vec2d End() const { return {m_edge->endX, m_edge->endY}; }
    Vec2d After() const { return {m_edge->next->endX, m_edge->next->endY}; }

private:
    const SEGMENT* m_edge;
};

/// The crossings of a segment that is being clipped, with both its ends. Short lists take no
/// memory from the heap.
struct LineClipPolygon::CrossingList {
    CPodVector<CLIST, 16> entries;
    std::size_t first = 0; ///< where the list starts, behind entries that have been given up

    std::size_t Count() const { return entries.Count() - first; }
    const CLIST& operator[](std::size_t k) const { return entries[first + k]; }
};

} // namespace geom
