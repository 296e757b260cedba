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

/// Checks, for operands of one family and all four operations:
/// - a probe point lies in the contours where the operation holds for its places in the operands;
/// - the area of the contours, even-odd as well as external contours less holes, and where the
///   family allows it that of the strips, is the area on which the operation holds;
/// - area(A | B) = area(A) + area(B) - area(A & B); area(A ^ B) = area(A | B) - area(A & B).
/// Violations are failures of the running test. It is a failure, too, when a law was hardly ever
/// put to the test, or when the sweep gave up because it found itself inconsistent.
void ExpectLaws(const SetOperations& operations, const PolygonFamily& family, int pairs,
                std::uint64_t seed);

/// Calls all operations with operands that hold infinities and values that are no numbers. They may
/// end in whatever result or in a kit::Exception, but must end, and in nothing else.
void ExpectAnEndWithoutFiniteCoordinates(const SetOperations& operations, int pairs,
                                         std::uint64_t seed);

/// The families whose operands stay within the documented limits.
const std::vector<PolygonFamily>& FamiliesWithLaws();

} // namespace geom::test
