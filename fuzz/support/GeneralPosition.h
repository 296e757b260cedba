// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/PolygonFamilies.h"

namespace geom::fuzz {

/// Whether no vertex of the operands is near another one or an edge that does not end in it, and
/// no three edges cross in nearly one place: then strips cover a result exactly.
bool IsInGeneralPosition(const test::Operands& operands);

} // namespace geom::fuzz
