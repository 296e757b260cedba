// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/LineSet.h"
#include "tools/geomtool/PolygonSet.h"

namespace geomtool {

/// Which edges of contours make a border.
enum class BorderKind {
    All,    ///< every edge
    Shared, ///< edges that occur more than once: contours meet there
    Coast   ///< edges that occur once
};

/// The edges of contours as lines, each edge once, whichever way the contours run it. So a border
/// between neighbours, which both of their contours hold, is dashed or drawn once.
///
/// A line runs as far as one contour goes on with such edges. Edges are the same when their ends
/// are equal exactly. O(n log n) for n edges.
LineSet Borders(const PolygonSet& shapes, BorderKind kind);

} // namespace geomtool
