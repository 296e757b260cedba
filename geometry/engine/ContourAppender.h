// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Gpc.h"

#include <cstddef>
#include <cstdint>

namespace geom::detail {

/// Appends a known number of contours to a polygon record, all of them or none.
///
/// The record's arrays get room for a power of two of contours, and may move. A record does not
/// know how much room it has, so the heap is asked every time: a block that has that size
/// already stays where it is, and arrays are copied only each time their count has doubled. But
/// for that the polygon is left as it is until Commit, so the new contours may be copied from
/// it. Failed allocations, which counts out of range always are, throw what gpc_add_contour
/// throws; the destructor then releases what was appended.
class ContourAppender {
public:
    ContourAppender(gpc_polygon& polygon, std::size_t additional);
    ContourAppender(const ContourAppender&) = delete;
    ContourAppender& operator=(const ContourAppender&) = delete;
    ~ContourAppender();

    /// Adds a contour and returns its vertices, to be filled in; null when there are none.
    gpc_vertex* Append(std::int64_t numVertices, int hole);

    /// Makes the contours part of the polygon. Exactly the promised number has been appended.
    void Commit();

private:
    gpc_polygon& m_polygon;
    int m_committed; ///< contours of the polygon
    int m_count;     ///< the same with those appended
};

} // namespace geom::detail
