// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Gpc.h"
#include "tests/support/Random.h"

#include <iosfwd>
#include <vector>

/// \file
/// Families of operands for set operations, each around one kind of difficulty. Every function
/// gives the same operands for the same state of its generator, on every platform.

namespace geom::test {

using Ring = std::vector<gpc_vertex>;
using Rings = std::vector<Ring>;

struct Operands {
    Rings subject;
    Rings clip;
};

/// \param size about the number of vertices of each operand, at least 3.
using MakeOperands = Operands (*)(Random& random, int size);

/// What may be expected of the results besides that they are always the same.
enum class Laws {
    None,     ///< beyond the documented limits of the sweep's tolerance
    Contours, ///< contours show membership and areas; strips may be wrong where vertices coincide
    All       ///< general position: strips have the area, too
};

struct PolygonFamily {
    const char* name;
    MakeOperands make;
    Laws laws;
};

/// How GoogleTest shows a family.
void PrintTo(const PolygonFamily& family, std::ostream* stream);

/// All families but the two whose results mean nothing.
const std::vector<PolygonFamily>& PolygonFamilies();

/// Differences of two coordinates overflow; results mean nothing, but are always the same.
Operands OverflowingDifferences(Random& random, int size);

/// Coordinates that are infinite or no numbers among others; results mean nothing.
Operands NotFinite(Random& random, int size);

// Random vertices.
Operands SmallGrid(Random& random, int size);
Operands RectilinearGrid(Random& random, int size);
Operands FineGrid(Random& random, int size);
Operands SelfIntersecting(Random& random, int size);
Operands MixedScales(Random& random, int size);
Operands HugeCoordinates(Random& random, int size);
Operands TinyCoordinates(Random& random, int size);
Operands FarFromOrigin(Random& random, int size);
Operands SignedZeros(Random& random, int size);
Operands DegenerateContours(Random& random, int size);

// Shapes.
Operands Stars(Random& random, int size);
Operands Spikes(Random& random, int size);
Operands NestedHoles(Random& random, int size);
Operands Combs(Random& random, int size);
Operands Staircases(Random& random, int size);
Operands Saws(Random& random, int size);
Operands Squares(Random& random, int size);
Operands ScatteredTriangles(Random& random, int size);
Operands TriangleMeshes(Random& random, int size);
Operands Pencils(Random& random, int size);

// Coincidences.
Operands RotatedGrids(Random& random, int size);
Operands NearCoincidentBy52(Random& random, int size);
Operands NearCoincidentBy51(Random& random, int size);
Operands CopiesMovedBy52(Random& random, int size);
Operands CollinearOverlaps(Random& random, int size);
Operands AdjacentRows(Random& random, int size);
Operands DenormalRows(Random& random, int size);
Operands TinyShapes(Random& random, int size);
Operands SharedVertices(Random& random, int size);

} // namespace geom::test
