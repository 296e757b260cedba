// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/Nesting.h"
#include "tools/geomtool/PolygonSet.h"

#include <cstddef>
#include <string>
#include <vector>

/// \file
/// Colours for maps and triangle strips.

namespace geomtool {

/// Soft colours that go together.
const std::vector<std::string>& Palette();

/// Picks a colour for each polygon, as an index into the palette, so that polygons that share a
/// vertex differ while the palette lasts and all colours are used about equally.
std::vector<std::size_t> ColourNeighboursApart(const PolygonSet& shapes,
                                               const std::vector<NestedPolygon>& polygons);

} // namespace geomtool
