// SPDX-License-Identifier: MIT
#include "geometry/OffsetPolygon.h"

#include "geometry/RemoveSelfIntersections.h"
#include "geometry/detail/OffsetRings.h"

#include <GL/glu.h>

#include <utility>

namespace geom {

// Both clean-ups keep what is wound around positively. The first one makes outer rings turn
// counter-clockwise and holes clockwise, so that every edge has the inside on its left; the
// second one cuts off the loops that the moved edges make, which wind negatively.
void OffsetPolygon(const Polygon2& in, double distance, Polygon2& out) {
    Polygon2 work;
    RemoveSelfIntersections(in, work, GLU_TESS_WINDING_POSITIVE, RSI_NORMAL_POSITIVE_Z);
    detail::OffsetRings(work, distance);
    RemoveSelfIntersections(work, work, GLU_TESS_WINDING_POSITIVE, RSI_NORMAL_POSITIVE_Z);
    out = std::move(work);
}

} // namespace geom
