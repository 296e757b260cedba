// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/PolygonSet.h"

#include <string>
#include <string_view>

/// \file
/// Well-known text: POLYGON, MULTIPOLYGON and GEOMETRYCOLLECTION of them.

namespace geomtool {

/// Reads all geometries of a text, one after another. The first ring of a polygon is external,
/// the others are holes. Heights and measures (Z, M) are passed over, empty rings left out.
PolygonSet ReadWkt(const std::string& file, std::string_view text);

/// Writes one POLYGON or a MULTIPOLYGON. Each hole goes to the smallest external contour around
/// it. Contours of fewer than 3 points have no area and no place in this format.
std::string WriteWkt(const PolygonSet& shapes);

} // namespace geomtool
