// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Errors.h"
#include "geometry/Export.h"
#include "geometry/Foundation.h"

#include <cstddef>

/// \file
/// Segment crossing, distances to segments, the nearest segment, lengths, walking along a
/// polyline, snapping to the principal directions, and the frame of a plane.
///
/// The overloads on tagPOINT serve callers in device coordinates. They keep the stated parts of
/// their arithmetic in 32-bit integers that wrap around, so their results are meaningful for
/// coordinates whose differences stay below 46341 (whose squares fit 31 bits).
///
/// Points that are not finite are accepted everywhere; they give results that are not finite,
/// or that no segment is near.

namespace geom {

/// Whether segment p1-p2 crosses segment q1-q2, half open: a point on the other segment's line
/// belongs to that line's negative side. So an end-point that lies exactly on the other segment
/// counts on one side only, and a path through a vertex is counted once; the answer depends on
/// the direction of the segments there. For a test that is symmetric see Intersects() of
/// LineSegment2.
GEOM_API bool SegmentsIntersect(const Vec2d& p1, const Vec2d& p2, const Vec2d& q1, const Vec2d& q2);

/// The squared distance from `p` to the segment a-b; to `a` when the segment has no length.
GEOM_API double PointLineSegDistSq(const Vec2d& p, const Vec2d& a, const Vec2d& b);
/// The same for device points. The differences are 32-bit integers that wrap around; for a point
/// beyond `b`, so are the squares of its differences from `b`.
GEOM_API double PointLineSegDistSq(const tagPOINT& p, const tagPOINT& a, const tagPOINT& b);
/// The same in space.
GEOM_API double PointLineSegDistSq(const Vec3d& p, const Vec3d& a, const Vec3d& b);

/// The segment of a polyline that is nearest to a point, as the index of its first vertex; the
/// lowest one among equally near segments. Linear in `n`.
///
/// \param pts    `n` vertices; null counts as none.
/// \param[out] distSq the squared distance to that segment; the largest double when there are
///               fewer than two vertices. May be null.
/// \return 0 when there are fewer than two vertices, or no distance is a finite number.
GEOM_API std::size_t FindClosestSegment(const Vec2d* pts, std::size_t n, const Vec2d& p,
                                        double* distSq);
/// The same for device points, with the distances of their PointLineSegDistSq().
GEOM_API std::size_t FindClosestSegment(const tagPOINT* pts, std::size_t n, const tagPOINT& p,
                                        double* distSq);

/// The sum of the lengths of the `n - 1` segments; 0 for fewer than two vertices or a null
/// array.
GEOM_API double PolylineLength(const Vec2d* pts, std::size_t n);

/// The point of segment a-b nearest to `p`: the foot of the perpendicular, held to the segment.
///
/// Only `out` is written; it may be one of the other arguments.
GEOM_API void GetNormalIntersection(Vec2d& p, Vec2d& a, Vec2d& b, Vec2d& out);
/// The same for device points. The products are 32-bit integers that wrap around, and the step
/// from `a` is truncated towards zero.
GEOM_API void GetNormalIntersection(const tagPOINT& p, const tagPOINT& a, const tagPOINT& b,
                                    tagPOINT& out);

/// Whether `r` lies in `outer`, boundaries included; with `allowPartial`, whether the two have
/// any point in common, a touching edge or corner included.
GEOM_API bool RectInRect(const Box2d& r, const Box2d& outer, bool allowPartial);

/// `b` moved so that a-b is horizontal, vertical or at 45 degrees, whichever is nearest. A
/// diagonal is made by shortening the longer of the two differences.
GEOM_API Vec2d ConstrainLineSegmentOrientation(const Vec2d& a, const Vec2d& b);

/// Walks `distance` along a polyline, in the direction of its vertices.
///
/// \param pts      `n` vertices, at least two.
/// \param closed   whether the last vertex is joined to the first; a closed polyline is walked
///                 around as often as the distance asks.
/// \param distance nothing happens for 0, a negative distance or not a number.
/// \param[in,out] index the segment of the position: the one from `pts[index]`.
/// \param[in,out] pos   the position, on that segment.
/// \return true when the distance has been walked; false when an open polyline ended before, or
///         all points of a closed one coincide. `pos` then is where the walk ended.
///
/// Throws an internal error of file "Geometry" for a null array (line 338), for fewer than two
/// vertices (339), for an index that is not below `n` (340), and for a closed polyline when the
/// distance is infinite, above 2^32 times the polyline's length, or so large that a whole round
/// does not change the rest of it (341). `pos` and `index` are unchanged then.
GEOM_API bool AdvanceAlongPolyline(const Vec2d* pts, std::size_t n, bool closed, double distance,
                                   std::size_t& index, Vec2d& pos);

/// Builds the frame of a plane: rows 0 and 1 are the unit vectors along `u` and `v`, row 2 the
/// unit normal u x v, row 3 the origin. A point (s, t, h) times the matrix is
/// origin + s u + t v + h n. `v` is not made perpendicular to `u`.
///
/// Throws an internal error of file "Geometry" when `u` (line 274), `v` (278) or the normal (283)
/// has no length; the rows set before that stay set.
GEOM_API void OrientPlane(Mat4d& m, const Vec3d& origin, Vec3d u, Vec3d v);

} // namespace geom
