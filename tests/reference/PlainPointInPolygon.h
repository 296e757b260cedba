// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Kit.h"
#include "geometry/Foundation.h"
#include "geometry/detail/Wrapping.h"

#include <vector>

/// \file
/// Point in polygon by looking at each edge by itself.

namespace geom::test {

inline bool PlainRayCrosses(const Vec2d& p, const Vec2d& a, const Vec2d& b) {
    if (b.y <= p.y && p.y < a.y) {
        return (p.y - b.y) * (a.x - b.x) > (p.x - b.x) * (a.y - b.y);
    }
    return a.y <= p.y && p.y < b.y && (p.x - b.x) * (a.y - b.y) > (p.y - b.y) * (a.x - b.x);
}

inline bool PlainRayCrosses(const tagPOINT& p, const tagPOINT& a, const tagPOINT& b) {
    using detail::WrapAdd;
    using detail::WrapSubtract;
    const bool straddles = (b.y <= p.y && p.y < a.y) || (a.y <= p.y && p.y < b.y);
    return straddles &&
           p.x < WrapAdd(b.x, kit::MulDiv(WrapSubtract(a.x, b.x), WrapSubtract(p.y, b.y),
                                          WrapSubtract(a.y, b.y)));
}

template <typename Point>
bool PlainPointInPolygon(const Point& p, const std::vector<Point>& ring) {
    bool inside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point& previous = ring[i == 0 ? ring.size() - 1 : i - 1];
        inside = inside != PlainRayCrosses(p, previous, ring[i]);
    }
    return inside;
}

} // namespace geom::test
