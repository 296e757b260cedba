// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/LineClipPolygon.h"
#include "geometry/detail/EdgeIndex.h"

#include <vector>

/// \file
/// What the source files of LineClipPolygon share.

namespace geom {

namespace detail {

constexpr wchar_t LINE_CLIP_FILE[] = L"LineClipPolygon";

// Where memory ran out.
constexpr int LINE_CONTOUR = 101;
constexpr int LINE_EDGE = 102;
constexpr int LINE_INDEX = 103;
constexpr int LINE_CROSSING_LIST = 104;

/// Reports exhausted memory.
[[noreturn]] void ThrowLineClipOutOfMemory(int line);

/// Pieces and gaps no longer than this count as none; a squared distance.
constexpr double SAME_POINT = 1e-10;

/// The order of points along a segment: by x, then y.
inline bool IsBefore(double ax, double ay, double bx, double by) {
    return ax < bx || (ax == bx && ay < by);
}

} // namespace detail

/// The index of one contour and what leads from its answers to the edges.
///
/// It knows its contour by address; freeing that contour drops the index.
struct LineClipPolygon::RingIndex {
    const CONTOUR* contour;
    std::vector<const SEGMENT*> ring;
    detail::EdgeIndex edges;
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
