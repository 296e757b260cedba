// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Gpc.h"
#include "geometry/engine/Memory.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace geom::detail {

/// Appends a known number of contours to a polygon record, all of them or none, with one new
/// array for all.
///
/// The polygon is only read until Commit, so the new contours may be copied from it. Failed
/// allocations, which counts out of range always are, throw what gpc_add_contour throws; the
/// destructor then releases everything.
class ContourAppender {
public:
    ContourAppender(gpc_polygon& polygon, std::size_t additional);
    ContourAppender(const ContourAppender&) = delete;
    ContourAppender& operator=(const ContourAppender&) = delete;
    ~ContourAppender();

    /// Adds a contour and returns its vertices, to be filled in; null when there are none.
    gpc_vertex* Append(std::int64_t numVertices, int hole);

    /// Hands the arrays, old contours and new, to the polygon. Exactly the promised number has
    /// been appended.
    void Commit();

private:
    struct Release {
        void operator()(void* block) const { GpcFree(block); }
    };

    gpc_polygon& m_polygon;
    const int m_oldCount;
    int m_count;
    std::unique_ptr<int[], Release> m_holes;
    std::unique_ptr<gpc_vertex_list[], Release> m_contours; // null again once handed over
};

} // namespace geom::detail
