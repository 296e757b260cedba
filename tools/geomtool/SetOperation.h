// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/PolygonSet.h"

/// \file
/// The library's set operations on the tool's shapes.

namespace geomtool {

class Progress;

enum class SetOperation { Intersection, Union, Difference, Xor };

/// Combines two operands, each taken as one region: where its contours overlap, even-odd parity
/// decides, so borders that neighbours share dissolve.
PolygonSet Combine(SetOperation operation, const PolygonSet& first, const PolygonSet& second);

/// Intersection and difference: combines each polygon of the first operand with the second one,
/// so that borders between neighbours remain. Union: unites the polygons of both operands one by
/// one, so that what several of them cover is inside, too.
///
/// \param operation not Xor.
PolygonSet CombineEach(SetOperation operation, const PolygonSet& first, const PolygonSet& second,
                       Progress& progress);

} // namespace geomtool
