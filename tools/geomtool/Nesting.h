// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/PolygonSet.h"

#include <cstddef>
#include <vector>

/// \file
/// Groups contours into polygons, as formats with nested rings need them.

namespace geomtool {

/// One external contour with its holes, as indices of rings.
struct NestedPolygon {
    std::size_t exterior;
    std::vector<std::size_t> holes;
};

/// Gives each hole to the smallest external contour that contains it. Polygons come in the order
/// of their external contours, holes in their own order.
///
/// A contour that contains a hole is larger than it: the external contour of an enclave, which
/// has the hole's own points, does not take it. A hole within no external contour becomes a
/// polygon of its own, which leaves the even-odd area as it was. Contours of fewer than 3 points
/// are left out.
///
/// About O(n log n) for n vertices, while few contours lie around any one hole.
std::vector<NestedPolygon> Nest(const PolygonSet& shapes);

/// The rings of one polygon, copied.
PolygonSet Extract(const PolygonSet& shapes, const NestedPolygon& polygon);

} // namespace geomtool
