// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/PolygonFamilies.h"

namespace geom::fuzz {

/// Whether no vertex of the operands is near another one or an edge that does not end in it, and
/// no three edges cross in nearly one place.
///
/// \param apart what is not near, in units of the largest coordinate, or of 1 if that is less.
bool IsInGeneralPosition(const test::Operands& operands, double apart);

/// Whether two edges cross inside both.
bool HasCrossings(const test::Rings& rings);

} // namespace geom::fuzz
