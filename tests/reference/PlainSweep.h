// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Gpc.h"

#include <vector>

/// \file
/// The scanbeam sweep in its plainest form: every scanbeam visits every active edge, every
/// insertion walks from the head, every merge of contours visits all contours. It is slow and
/// short, and the engine must give its results to the bit.

namespace geom::test {

struct PlainContour {
    bool hole;
    std::vector<gpc_vertex> vertices;
};

using PlainStrip = std::vector<gpc_vertex>;

/// The set operation as contours, in the order in which the engine gives them. Throws
/// GPCException where rounding makes the sweep inconsistent.
std::vector<PlainContour> PlainClip(gpc_op operation, const gpc_polygon& subject,
                                    const gpc_polygon& clip);

/// The same as triangle strips.
std::vector<PlainStrip> PlainTristrip(gpc_op operation, const gpc_polygon& subject,
                                      const gpc_polygon& clip);

} // namespace geom::test
