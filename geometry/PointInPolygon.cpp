// SPDX-License-Identifier: MIT
// Point in polygon by crossing number: a ray from the point to the right meets the boundary of
// what contains the point an odd number of times.
#include "geometry/Polygon2.h"
#include "geometry/PolygonMeasures.h"
#include "geometry/detail/Rings.h"
#include "geometry/detail/Wrapping.h"

namespace geom {

namespace {

// Whether the ray to the right of p crosses the edge from a to b strictly beyond p. An edge
// holds its lower end but not its upper one, so a ray through a vertex meets one edge of a
// chain that goes on and none or both of a tip; horizontal edges are never met.
//
//        b                           The crossing is to the right of p when p is to the left of
//       /                            the edge: a sign of a cross product, without a division.
//   p--x----->
//     /
//    a
bool RayCrosses(const Vec2d& p, const Vec2d& a, const Vec2d& b) {
    if (b.y <= p.y && p.y < a.y) {
        return (p.y - b.y) * (a.x - b.x) > (p.x - b.x) * (a.y - b.y);
    }
    if (a.y <= p.y && p.y < b.y) {
        return (p.x - b.x) * (a.y - b.y) > (p.y - b.y) * (a.x - b.x);
    }
    return false;
}

bool RayCrosses(const tagPOINT& p, const tagPOINT& a, const tagPOINT& b) {
    using detail::WrapAdd;
    using detail::WrapSubtract;
    if ((b.y <= p.y && p.y < a.y) || (a.y <= p.y && p.y < b.y)) {
        return p.x < WrapAdd(b.x, kit::MulDiv(WrapSubtract(a.x, b.x), WrapSubtract(p.y, b.y),
                                              WrapSubtract(a.y, b.y)));
    }
    return false;
}

// Four edges at a time: they do not depend on each other.
template <typename Point>
bool IsInRing(const Point& p, const Point* pts, std::size_t n) {
    if (pts == nullptr || n == 0) {
        return false;
    }
    bool inside = RayCrosses(p, pts[n - 1], pts[0]);
    std::size_t i = 1;
    for (; n - i >= 4; i += 4) {
        const bool first = RayCrosses(p, pts[i - 1], pts[i]);
        const bool second = RayCrosses(p, pts[i], pts[i + 1]);
        const bool third = RayCrosses(p, pts[i + 1], pts[i + 2]);
        const bool fourth = RayCrosses(p, pts[i + 2], pts[i + 3]);
        inside = inside != ((first != second) != (third != fourth));
    }
    for (; i < n; ++i) {
        inside = inside != RayCrosses(p, pts[i - 1], pts[i]);
    }
    return inside;
}

template <typename Point, typename Count>
bool IsInRings(const Point& p, const Point* pts, const Count* counts, std::size_t nRings,
               std::size_t available) {
    bool inside = false;
    if (pts != nullptr && counts != nullptr) {
        detail::ForEachRing(pts, counts, nRings, available, [&](const Point* ring, std::size_t n) {
            inside = inside != IsInRing(p, ring, n);
        });
    }
    return inside;
}

} // namespace

bool PointInPolygon(const tagPOINT& p, const tagPOINT* pts, std::size_t n) {
    return IsInRing(p, pts, n);
}

bool PointInPolygon(const tagPOINT& p, const tagPOINT* pts, const long* counts,
                    std::size_t nRings) {
    return IsInRings(p, pts, counts, nRings, detail::AS_COUNTED);
}

bool PointInPolygon(const Vec2d& p, const Vec2d* pts, std::size_t n) {
    return IsInRing(p, pts, n);
}

bool PointInPolygon(const Vec2d& p, const Vec2d* pts, const unsigned int* counts,
                    std::size_t nRings) {
    return IsInRings(p, pts, counts, nRings, detail::AS_COUNTED);
}

bool PointInPolygon(const Vec2d& p, const Polygon2& poly) {
    return IsInRings(p, poly.Points().data(), poly.Counts().data(), poly.Counts().size(),
                     poly.Points().size());
}

} // namespace geom
