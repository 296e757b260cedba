// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/GpcPolygon.h"
#include "tests/reference/PlainPolyClip.h"

#include <vector>

/// \file
/// A polygon against a rectangle, contour after contour.

namespace geom::test {

inline void PlainRectangleClip(const GpcPolygon& subject, const Box2d& rect, GpcPolygon& result) {
    Box2d box(rect);
    box.Normalize();
    std::vector<Vec2d> pts;
    std::vector<unsigned int> counts;
    subject.GetPolyPolygon(pts, counts, false);
    auto next = pts.begin();
    for (const unsigned int n : counts) {
        const std::vector<Vec2d> ring = PlainPolyClip({next, next + n}, box);
        if (ring.size() >= 2) {
            const unsigned int count = static_cast<unsigned int>(ring.size());
            result.AddContours(ring.data(), &count, 1);
        }
        next += n;
    }
}

} // namespace geom::test
