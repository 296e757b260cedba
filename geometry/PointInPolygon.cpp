// SPDX-License-Identifier: MIT
// Point in polygon by crossing number: a ray from the point to the right meets the boundary of
// what contains the point an odd number of times.
#include "geometry/Polygon2.h"
#include "geometry/PolygonMeasures.h"
#include "geometry/detail/LeadingRun.h"
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

// Only edges whose ends are on different sides of the ray's line can meet the ray, so runs of
// vertices on one side are passed with a comparison each. What has no order (NaN) counts as
// above here; the exact test of the edge into and out of it says that neither is met.
template <typename Point>
bool IsInRing(const Point& p, const Point* pts, std::size_t n) {
    if (pts == nullptr || n == 0) {
        return false;
    }
    const auto isBelow = [y = p.y](const Point& q) { return q.y <= y; };
    const auto isAbove = [y = p.y](const Point& q) { return !(q.y <= y); };
    bool inside = RayCrosses(p, pts[n - 1], pts[0]);
    std::size_t i = 1;
    while (i < n) {
        i += isBelow(pts[i - 1]) ? detail::LeadingRun(pts + i, n - i, isBelow)
                                 : detail::LeadingRun(pts + i, n - i, isAbove);
        if (i < n) {
            inside = inside != RayCrosses(p, pts[i - 1], pts[i]);
            ++i;
        }
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
