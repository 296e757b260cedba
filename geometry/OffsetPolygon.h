// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Polygon2.h"

namespace geom {

/// Grows a polygon by a positive distance, or shrinks it by a negative one, with round corners.
///
/// The polygon is what its rings run around more often counter-clockwise than clockwise. Its
/// edges move sideways by the distance, outwards to the right of a counter-clockwise ring; on
/// the side to which the edges part, a corner becomes an arc about the old one with a point
/// every 10 degrees and exact ends; what then overlaps is dissolved:
///
///       .--------.            outer rings grow, holes shrink,        .--------.
///      (  +----+  )           or with a negative distance            |+------+|
///      |  |    |  |           the other way round                    ||      ||
///      (  +----+  )                                                  |+------+|
///       '--------'                                                   '--------'
///
/// \param distance in the unit of the coordinates; 0 only cleans the polygon. One that is not
///   finite is refused like coordinates that are too large, unless the polygon is empty.
/// \param out receives the result in place of its content: rings that do not cross, outer ones
///   counter-clockwise, holes clockwise. It may be `in`. Unchanged when an exception is thrown.
///
/// What to expect of the result:
/// - Rings that run clockwise are holes only inside counter-clockwise ones. A clockwise ring
///   alone offsets to nothing, and a hole that runs counter-clockwise like its outer ring is
///   filled. See Polygon2::RingOrientation and Polygon2::Reverse.
/// - Arcs are inscribed: a grown polygon lacks up to 0.4 % of the distance at its corners.
/// - A polygon that is narrower than twice the distance vanishes when it is shrunk. Do not shrink
///   by much more than half the width: regular polygons and others whose moved edges meet again
///   behind their middle can then leave spurious small rings, and since every edge crosses every
///   other there, time grows with the cube of their number (seconds for 250 edges).
/// - Where edges cross after the move, points carry about single precision of the coordinates'
///   magnitude.
/// - Shrinking and growing again by the same distance stays inside a convex original within that
///   precision. At concave corners the chords of the arcs reach out by up to 0.4 % of the
///   distance.
///
/// Throws what RemoveSelfIntersections throws, whose time it takes twice, on up to 37 points
/// for each corner; the standard exceptions of a failed allocation; and an internal error of
/// file "OffsetPolygon", line 74, for a ring of more points than 32 bits count.
GEOM_API void OffsetPolygon(const Polygon2& in, double distance, Polygon2& out);

} // namespace geom
