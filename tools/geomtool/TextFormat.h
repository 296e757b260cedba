// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/PolygonSet.h"

#include <string>
#include <string_view>

/// \file
/// The library's polygon text: the contour count; for each contour its vertex count, its hole
/// flag when flags are stored, and its vertices as pairs of numbers; separated by white space.

namespace geomtool {

/// Reads a polygon and checks more than the library's reader does: errors name their line, both
/// coordinates must be there and be finite, and nothing may follow the last vertex.
PolygonSet ReadText(const std::string& file, std::string_view text, bool holeFlags);

/// Writes a polygon that the library's reader takes. Numbers are as short as reading them back
/// to the same double allows, where the library's own writer always rounds to 15 decimals.
std::string WriteText(const PolygonSet& shapes, bool holeFlags);

} // namespace geomtool
