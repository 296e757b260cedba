// SPDX-License-Identifier: MIT
#pragma once

#include "tests/reference/PlainSweep.h"
#include "tests/support/PolygonFamilies.h"

#include <functional>

/// \file
/// Laws that tie the results of set operations to the operands, whoever computes them.

namespace geom::test {

struct SetOperations {
    std::function<std::vector<PlainContour>(gpc_op, const gpc_polygon&, const gpc_polygon&)> clip;
    std::function<std::vector<PlainStrip>(gpc_op, const gpc_polygon&, const gpc_polygon&)> strips;
};

/// How often each law was checked where it says something.
struct LawTally {
    int pairs = 0;
    int exceptions = 0;    ///< pairs given up because the sweep found itself inconsistent
    int probesInside = 0;  ///< probe points in the result
    int probesOutside = 0; ///< probe points in an operand, but not in the result
    int contourAreas = 0;  ///< results with an area
    int holes = 0;         ///< results with a hole
    int stripAreas = 0;    ///< results with an area, as strips
    int partialSums = 0;   ///< pairs that overlap, but are not alike
};

/// Checks, for operands of one family and all four operations:
/// - a probe point lies in the contours where the operation holds for its places in the operands;

/// - the area of the contours, even-odd as well as external contours less holes, and where the
///   family allows it that of the strips, is the area on which the operation holds;
/// - area(A | B) = area(A) + area(B) - area(A & B); area(A ^ B) = area(A | B) - area(A & B).
/// Violations are failures of the running test.
LawTally CheckLaws(const SetOperations& operations, const PolygonFamily& family, int pairs,
                   std::uint64_t seed);

} // namespace geom::test
