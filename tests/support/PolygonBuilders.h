// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/PolygonFamilies.h"

/// \file
/// The pieces from which the families are put together.

namespace geom::test {

/// Rings of at least 3 vertices, `size` in all or a few more, each vertex from `makeVertex`.
template <typename MakeVertex>
Rings RandomRings(Random& random, int size, MakeVertex makeVertex) {
    Rings rings;
    while (size > 0) {
        const int n = random.OneIn(2) ? 3 + size : random.Between(3, 3 + size / 2);
        Ring ring;
        for (int i = 0; i < n; ++i)
            ring.push_back(makeVertex());
        rings.push_back(ring);
        size -= n;
    }
    return rings;
}

/// A star-shaped ring of n vertices around a centre, its radii between two bounds. The
/// directions lie on the diamond |x| + |y| = 1, so no function of the platform is called.
Ring StarRing(Random& random, int n, gpc_vertex centre, double innerRadius, double outerRadius);

/// Applies a change to every vertex.
template <typename Change>
void ForEachVertex(Rings& rings, Change change) {
    for (Ring& ring : rings)
        for (gpc_vertex& v : ring)
            change(v);
}

} // namespace geom::test
