// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Errors.h"
#include "geometry/Foundation.h"

#include <cstddef>
#include <limits>
#include <vector>

namespace geom::detail {

/// What errors of GpcPolygon carry; the units that do its work without making one report as it
/// does.
inline constexpr const wchar_t* POLYGON_UNIT = L"GpcPolygon";

enum PolygonLine : int {
    LINE_CONTOUR_INDEX = 122,
    LINE_NULL_POINTS = 131,
    LINE_NULL_COUNTS = 132,
    LINE_RESIZE_POLYPOLYGON = 326,
    LINE_RESIZE_INTEGER_POLYPOLYGON = 353,
    LINE_RESIZE_POLYGON = 538,
    LINE_RESIZE_INTEGER_POLYGON = 560,
    LINE_ALLOCATE_HOLES = 878,
    LINE_ALLOCATE_CONTOURS = 885,
    LINE_UNALLOCATED_INDEX = 892,
    LINE_ALLOCATE_VERTICES = 903,
};

/// The most contours, and the most vertices of one, that a record counts.
inline constexpr std::size_t LARGEST_POLYGON_COUNT = std::numeric_limits<int>::max();

[[noreturn]] inline void ThrowOutOfMemory(PolygonLine line) {
    kit::Throw_ERR_KIT_NOGLOBALMEM(ModuleName(), POLYGON_UNIT, line);
}

template <typename Element>
void Reserve(std::vector<Element>& elements, std::size_t n, PolygonLine line) {
    try {
        elements.reserve(n);
    } catch (...) {
        ThrowOutOfMemory(line);
    }
}

template <typename Point>
void RequirePoints(const Point* pts, std::size_t n) {
    if (pts == nullptr && n != 0) {
        ThrowInternalError(POLYGON_UNIT, LINE_NULL_POINTS);
    }
}

inline void RequireCounts(const unsigned int* counts) {
    if (counts == nullptr) {
        ThrowInternalError(POLYGON_UNIT, LINE_NULL_COUNTS);
    }
}

/// Whether the last point repeats the first exactly.
template <typename Point>
bool IsClosed(const Point* pts, std::size_t n) {
    return n != 0 && pts[0].x == pts[n - 1].x && pts[0].y == pts[n - 1].y;
}

} // namespace geom::detail
