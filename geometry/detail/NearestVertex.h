// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/SpatialSearchGrid2D.h"

#include <cstddef>

namespace geom::detail {

/// The vertex nearest to a point among those looked at so far. Of equally near vertices the
/// smallest index counts, so the order in which they are looked at does not matter.
struct NearestVertex {
    int index;
    double distanceSquared;

    /// Looks at `count` vertices of a source, whose indices rise.
    ///
    /// Throws an internal error when the source refuses one of them.
    void Compete(const SpatialSearchGrid2D::IVertexSource& source, const int* indices,
                 std::size_t count, const Vec2d& p);

    /// Whether a vertex with no smaller index and no smaller squared distance can change
    /// anything. One whose distance is not a number cannot.
    bool CanChange(int lowestIndex, double leastDistanceSquared) const {
        return leastDistanceSquared < distanceSquared ||
               (leastDistanceSquared == distanceSquared && lowestIndex < index);
    }
};

} // namespace geom::detail
