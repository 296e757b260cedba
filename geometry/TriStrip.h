// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

#include <cstddef>

/// \file
/// The outline of a triangle strip.
///
/// A strip's vertices alternate between its two sides, so its outline runs along one side and
/// back along the other:
///
///     1---3---5        clockwise:          1 3 5 4 2 0
///     |\  |\  |        counter-clockwise:  0 2 4 5 3 1
///     0---2---4
///
/// The names suit a strip that starts at the lower left as here and hold in the same order for
/// any other; the orientation of the result is not examined.

namespace geom {

/// Writes the odd vertices of a strip forwards from out[0] and the even ones backwards from
/// out[n - 1].
///
/// out has room for n points and may overlap the strip. Nothing is written when n is 0; null
/// pointers are an internal error otherwise.
GEOM_API void TriStripToCWPolygon(const Vec2d* strip, std::size_t n, Vec2d* out);

/// Writes the even vertices of a strip forwards from out[0] and the odd ones backwards from
/// out[n - 1]; otherwise as TriStripToCWPolygon.
GEOM_API void TriStripToCCWPolygon(const Vec2d* strip, std::size_t n, Vec2d* out);

} // namespace geom
