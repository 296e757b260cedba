// SPDX-License-Identifier: MIT
#pragma once

#include "Inputs.h"

namespace geom::bench {

/// The number of places where borders of the operands cross, those of one operand included.
std::size_t CrossingCount(const Regions& regions);

} // namespace geom::bench
