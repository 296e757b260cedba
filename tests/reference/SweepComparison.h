// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/PolygonFamilies.h"

#include <cstdint>
#include <string>

/// \file
/// Compares the engine with the plain sweep, bit for bit.

namespace geom::test {

struct ComparisonTally {
    int pairs = 0;
    int results = 0;     ///< of all operations and both outputs
    int exceptions = 0;  ///< results where both throw
    int vertices = 0;    ///< in results that both give
    int differences = 0; ///< results that differ, in whatever way
    int changed = 0;     ///< operands that the engine wrote to
    std::string example; ///< the smallest difference found, as text
};

/// Compares all operations and both outputs for one pair of operands.
ComparisonTally Compare(const Operands& operands);

/// The same over operands of one family, most of them small. The first difference is made
/// smaller as long as it stays one.
ComparisonTally CompareFamily(const PolygonFamily& family, int pairs, std::uint64_t seed);

} // namespace geom::test
