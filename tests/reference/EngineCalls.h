// SPDX-License-Identifier: MIT
#pragma once

#include "tests/reference/PlainSweep.h"

/// \file
/// The engine's functions with the signatures of the plain sweep.

namespace geom::test {

std::vector<PlainContour> EngineClip(gpc_op operation, const gpc_polygon& subject,
                                     const gpc_polygon& clip);

std::vector<PlainStrip> EngineTristrip(gpc_op operation, const gpc_polygon& subject,
                                       const gpc_polygon& clip);

} // namespace geom::test
