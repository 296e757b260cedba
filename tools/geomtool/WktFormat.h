// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/Figure.h"

#include <string>
#include <string_view>

/// \file
/// Well-known text: POLYGON, MULTIPOLYGON, LINESTRING, MULTILINESTRING and GEOMETRYCOLLECTION of
/// them.

namespace geomtool {

/// Reads all polygons of a text, one after another; lines are an error. The first ring of a
/// polygon is external, the others are holes. Heights and measures (Z, M) are passed over, empty
/// rings left out.
PolygonSet ReadWkt(const std::string& file, std::string_view text);

/// Reads all polygons and lines. Empty lines are left out.
Figure ReadWktFigure(const std::string& file, std::string_view text);

/// Writes one POLYGON or a MULTIPOLYGON. Each hole goes to the smallest external contour around
/// it. Contours of fewer than 3 points have no area and no place in this format.
std::string WriteWkt(const PolygonSet& shapes);

/// Writes one LINESTRING or a MULTILINESTRING. Lines of fewer than 2 points have no place in this
/// format.
std::string WriteWktLines(const LineSet& lines);

/// Writes polygons and lines, as a GEOMETRYCOLLECTION when there are both.
std::string WriteWktFigure(const Figure& figure);

} // namespace geomtool
