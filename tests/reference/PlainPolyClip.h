// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <vector>

/// \file
/// A ring against a rectangle, one half-plane after the other: each stage turns a whole ring into
/// the next, and passes on its first vertex last.

namespace geom::test {

struct PlainHalfPlane {
    double Vec2d::*across; // the coordinate that is bounded
    double Vec2d::*along;
    bool upper;
    double bound;

    bool Holds(const Vec2d& p) const { return upper ? p.*across <= bound : p.*across >= bound; }
    Vec2d Crossing(const Vec2d& p, const Vec2d& q) const {
        Vec2d crossing;
        crossing.*across = bound;
        crossing.*along =
            p.*along + ((q.*along - p.*along) * (bound - p.*across)) / (q.*across - p.*across);
        return crossing;
    }
    std::vector<Vec2d> Clip(const std::vector<Vec2d>& ring) const {
        std::vector<Vec2d> out;
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Vec2d& p = ring[i];
            const Vec2d& q = ring[i + 1 < ring.size() ? i + 1 : 0];
            if (Holds(p) != Holds(q)) {
                out.push_back(Crossing(p, q));
            }
            if (Holds(q)) {
                out.push_back(q);
            }
        }
        return out;
    }
};

inline std::vector<Vec2d> PlainPolyClip(const std::vector<Vec2d>& ring, const Box2d& rect) {
    const PlainHalfPlane right = {&Vec2d::x, &Vec2d::y, true, rect.maxX};
    const PlainHalfPlane bottom = {&Vec2d::y, &Vec2d::x, false, rect.minY};
    const PlainHalfPlane left = {&Vec2d::x, &Vec2d::y, false, rect.minX};
    const PlainHalfPlane top = {&Vec2d::y, &Vec2d::x, true, rect.maxY};
    return top.Clip(left.Clip(bottom.Clip(right.Clip(ring))));
}

} // namespace geom::test
