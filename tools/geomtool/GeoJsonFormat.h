// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/Figure.h"

#include <string>
#include <string_view>

/// \file
/// GeoJSON (RFC 7946): Polygon, MultiPolygon, LineString and MultiLineString, in
/// GeometryCollection, Feature and FeatureCollection.

namespace geomtool {

/// Reads all polygons of a GeoJSON object; lines are an error. Properties and other members are
/// passed over, and so are heights. Errors name the line at whose token they show.
PolygonSet ReadGeoJson(const std::string& file, std::string_view text);

/// Reads all polygons and lines. Empty lines are left out.
Figure ReadGeoJsonFigure(const std::string& file, std::string_view text);

/// Writes one Polygon or a MultiPolygon, external rings counter-clockwise and holes clockwise as
/// the format demands. Each hole goes to the smallest external contour around it. Contours of
/// fewer than 3 points have no area and no place in this format.
std::string WriteGeoJson(const PolygonSet& shapes);

/// Writes one LineString or a MultiLineString. Lines of fewer than 2 points have no place in this
/// format.
std::string WriteGeoJsonLines(const LineSet& lines);

/// Writes polygons and lines, as a GeometryCollection when there are both.
std::string WriteGeoJsonFigure(const Figure& figure);

} // namespace geomtool
