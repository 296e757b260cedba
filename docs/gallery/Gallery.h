// SPDX-License-Identifier: MIT
#pragma once

#include "Picture.h"

/// \file
/// One function for each picture of the guide.

namespace gallery {

Picture ClippedLinesInRectangle();
Picture ClippedRingsInRectangle();
Picture SetOperations();
Picture TriangleStrips();

Picture ClippedLinesInPolygon();
Picture Dashes();
Picture DashedBorders();
Picture NearestSegments();
Picture Walks();
Picture Thinning();
Picture Primitives();

Picture PointsInPolygons();
Picture CleanedRings();
Picture WindingRules();
Picture Offsets();
Picture OffsetSurprises();

Picture Curves();
Picture SearchGrid();
Picture Picking();
Picture Space();

} // namespace gallery
