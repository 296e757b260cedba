// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/PolygonSet.h"

#include <string>
#include <string_view>

/// \file
/// The library's polygon binary, without header or trailer: a 32-bit contour count; for each
/// contour a 32-bit vertex count, a 32-bit hole flag when flags are stored, and the vertices as
/// pairs of 64-bit doubles; all little-endian.

namespace geomtool {

/// Reads a polygon; errors name their byte. Coordinates must be finite and nothing may follow
/// the last vertex.
PolygonSet ReadBinary(const std::string& file, std::string_view bytes, bool holeFlags);

std::string WriteBinary(const PolygonSet& shapes, bool holeFlags);

} // namespace geomtool
