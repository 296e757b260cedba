// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/GpcPolygon.h"
#include "tools/geomtool/PolygonSet.h"

namespace geomtool {

/// The library's polygon of the same contours, hole flags included.
geom::GpcPolygon ToGpcPolygon(const PolygonSet& shapes);

PolygonSet ToPolygonSet(const geom::GpcPolygon& polygon);

} // namespace geomtool
