// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

#include <cstddef>

/// \file
/// Point-in-polygon, perimeter, area, and the overlap of a rectangle with a polygon.
///
/// A ring is an array of vertices, closed implicitly: the last vertex joins the first, which
/// may, but need not, be repeated. A polygon of several rings is one array of all vertices,
/// ring after ring, with an array of the rings' vertex counts. Null arrays count as empty.
///
/// Everything is linear in the number of vertices and, the triangulated area excepted,
/// allocates nothing. Coordinates that are not finite are accepted: edges with them are crossed
/// by no ray, and lengths and areas come out as no finite number.

namespace geom {

class Polygon2;

/// Whether a point is inside a ring by the even-odd rule. Points on a left or bottom edge
/// belong to the inside, points on a right or top edge do not, so that of polygons that share
/// an edge one only contains its points.
///
/// For integers the crossing of an edge with the point's horizontal is rounded to the nearest
/// integer; coordinates may differ by less than 2^31.
GEOM_API bool PointInPolygon(const tagPOINT& p, const tagPOINT* pts, std::size_t n);

/// The same for several rings: inside an odd number of them, whichever way they turn. Counts
/// that are not above 0 stand for empty rings.
GEOM_API bool PointInPolygon(const tagPOINT& p, const tagPOINT* pts, const long* counts,
                             std::size_t nRings);

/// Whether a point is inside a ring, as for integers but with exact crossings: no division is
/// made.
GEOM_API bool PointInPolygon(const Vec2d& p, const Vec2d* pts, std::size_t n);

/// The same for several rings: inside an odd number of them, whichever way they turn.
GEOM_API bool PointInPolygon(const Vec2d& p, const Vec2d* pts, const unsigned int* counts,
                             std::size_t nRings);

/// The same for a polygon. Counts beyond the polygon's points are cut short.
GEOM_API bool PointInPolygon(const Vec2d& p, const Polygon2& poly);

/// The length of a ring, the closing edge included.
GEOM_API double PolygonPerimeter(const Vec2d* pts, std::size_t n);

/// The sum of the rings' lengths.
GEOM_API double PolygonPerimeter(const Vec2d* pts, const unsigned int* counts, std::size_t nRings);

/// The sum of the rings' lengths. Counts beyond the polygon's points are cut short.
GEOM_API double Perimeter(const Polygon2& poly);

/// The signed area of a ring, positive when it runs counter-clockwise (y upwards); a part that
/// it runs around twice counts twice. 0 for fewer than 3 vertices. Ordinates are taken relative
/// to the last vertex, so a ring far from the origin loses little.
GEOM_API double PolygonArea(const Vec2d* pts, std::size_t n);

/// The sum of the rings' signed areas: holes that run the other way subtract.
GEOM_API double PolygonArea(const Vec2d* pts, const unsigned int* counts, std::size_t nRings);

/// The sum of the rings' signed areas. Counts beyond the polygon's points are cut short.
GEOM_API double PolygonArea(const Polygon2& poly);

/// The area of the region that a ring fills by the even-odd rule, by decomposing it into
/// triangle strips. Never negative, whichever way the ring turns; a part that the ring runs
/// around twice does not count.
///
/// Costs time and memory of one run of the polygon engine, whose errors pass.
GEOM_API double TriangulatedPolygonArea(const Vec2d* pts, std::size_t n);

/// The same for the region inside an odd number of several rings.
GEOM_API double TriangulatedPolygonArea(const Vec2d* pts, const unsigned int* counts,
                                        std::size_t nRings);

/// Whether a rectangle and the region of a ring overlap. A rectangle that is a single point
/// overlaps when the point is inside.
///
/// An edge only reaches into the rectangle where it crosses one of the sides strictly between
/// its corners. The closing edge from the last vertex to the first is not looked at, so an
/// overlap through it alone is missed: the triangle (0,0), (10,0), (10,10) and the box
/// (4,5)-(6,7) are reported apart. Repeat the first vertex at the end to have it looked at.
GEOM_API bool RectPolyIntersect(const Box2d& box, const Vec2d* pts, std::size_t n);

} // namespace geom
