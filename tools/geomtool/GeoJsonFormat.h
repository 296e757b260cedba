// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/PolygonSet.h"

#include <string>
#include <string_view>

/// \file
/// GeoJSON (RFC 7946): Polygon and MultiPolygon, in GeometryCollection, Feature and
/// FeatureCollection.

namespace geomtool {

/// Reads all polygons of a GeoJSON object. Properties and other members are passed over, and so
/// are heights. Errors name the line at whose token they show.
PolygonSet ReadGeoJson(const std::string& file, std::string_view text);

/// Writes one Polygon or a MultiPolygon, external rings counter-clockwise and holes clockwise as
/// the format demands. Each hole goes to the smallest external contour around it. Contours of
/// fewer than 3 points have no area and no place in this format.
std::string WriteGeoJson(const PolygonSet& shapes);

} // namespace geomtool
