// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

#include <cstddef>
#include <vector>

/// \file
/// Clips polygons and polylines for drawing, in one call each.
///
/// Geometry of several parts comes and goes flat: all points part after part, and the number of
/// points of each part. Wherever the clip polygon is an axis-aligned rectangle that
/// GpcPolygon::IsRectangle recognises, the rectangle clippers do the work.
///
/// Errors of the classes that do the work pass unchanged, std::bad_alloc among them. The
/// functions keep no state between calls.

namespace geom {

class DashLineGenerator;
class GpcPolygon;
class LineClipPolygon;

/// Clips a polygon to a polygon: their intersection, or ClipGPolygonToRect when the clip polygon
/// is a rectangle.
///
/// The result is replaced by the intersection, but appended to when the clip polygon is a
/// rectangle; it may be one of the operands.
GEOM_API void ClipGPolygonToGPolygon(const GpcPolygon& subject, const GpcPolygon& clip,
                                     GpcPolygon& result);

/// The same with flat output. When something remains the vectors' contents are replaced, each
/// part followed by its first point again when close is true; when nothing remains they are left
/// untouched.
GEOM_API void ClipGPolygonToGPolygon(const GpcPolygon& subject, const GpcPolygon& clip,
                                     std::vector<Vec2d>& pts, std::vector<unsigned int>& counts,
                                     bool close);

/// The same with flat input; part i is an external contour of the next counts[i] points. The
/// input may be the output vectors' storage.
GEOM_API void ClipPolyPolygonToGPolygon(const Vec2d* pts, const unsigned int* counts,
                                        std::size_t numParts, const GpcPolygon& clip,
                                        std::vector<Vec2d>& outPts,
                                        std::vector<unsigned int>& outCounts, bool close);

/// Clips each contour of a polygon to a rectangle and appends what remains of it to the result
/// as an external contour.
///
/// The rectangle is normalised first, which makes the empty box the whole plane. Hole flags are
/// not carried over: this is for polygons without holes, one with holes comes out as overlapping
/// external contours. A contour that is cut to two points is still added, and one that is cut to
/// several pieces comes out as one contour with edges along the rectangle between them. The
/// result may be the subject.
GEOM_API void ClipGPolygonToRect(const GpcPolygon& subject, const Box2d& rect, GpcPolygon& result);

/// The same with flat output, as in ClipGPolygonToGPolygon.
GEOM_API void ClipGPolygonToRect(const GpcPolygon& subject, const Box2d& rect,
                                 std::vector<Vec2d>& pts, std::vector<unsigned int>& counts,
                                 bool close);

/// The same with flat input and output, as in ClipPolyPolygonToGPolygon.
GEOM_API void ClipPolyPolygonToRect(const Vec2d* pts, const unsigned int* counts,
                                    std::size_t numParts, const Box2d& rect,
                                    std::vector<Vec2d>& outPts,
                                    std::vector<unsigned int>& outCounts, bool close);

/// Whether the inner polygon lies wholly within the outer one.
///
/// With a rectangle as outer polygon the boxes are compared, boundaries included; an empty inner
/// polygon is not contained then. Otherwise the inner polygon is contained when its box, or else
/// the polygon itself, has nothing left after the outer polygon is subtracted; an empty one is.
GEOM_API bool PolygonContains(const GpcPolygon& outer, const GpcPolygon& inner);

/// The same with the inner polygon as flat input, all parts external contours.
GEOM_API bool PolygonContains(const GpcPolygon& outer, const Vec2d* pts, const unsigned int* counts,
                              std::size_t numParts);

/// Clips polylines to a rectangle and appends the runs that are left of each, in order.
///
/// Line i takes the next counts[i] points. The rectangle is normalised first, which makes the
/// empty box the whole plane, and it clips also when it is a line or a point: a segment that
/// crosses a line becomes a run of two equal points. Runs are those of CLineClip::ClipPolyline;
/// nothing is joined to what the outputs already hold. The input may be the output vectors'
/// storage, here and below.
///
/// Null points, null counts and numLines 0 are internal errors of file "ClipUtil", here and
/// below.
GEOM_API void ClipPolylinesToRect(const Vec2d* pts, const unsigned int* counts,
                                  std::size_t numLines, const Box2d& rect,
                                  std::vector<Vec2d>& outPts, std::vector<unsigned int>& outCounts);

/// Clips polylines to a polygon: ClipPolylinesToRect when it is a rectangle, else the form for a
/// LineClipPolygon, which is made for the call. An empty polygon lets every line pass.
GEOM_API void ClipPolylinesToPolygon(const Vec2d* pts, const unsigned int* counts,
                                     std::size_t numLines, const GpcPolygon& clip,
                                     std::vector<Vec2d>& outPts,
                                     std::vector<unsigned int>& outCounts);

/// Clips polylines to a polygon that has been made ready for lines, for callers that clip more
/// than once.
///
/// A rectangle (LineClipPolygon::IsRectangle) is left to ClipPolylinesToRect. Otherwise pieces
/// are joined to runs as in LineClipPolygon::Clip, also to the run that ends the outputs at the
/// call.
GEOM_API void ClipPolylinesToPolygon(const Vec2d* pts, const unsigned int* counts,
                                     std::size_t numLines, const LineClipPolygon& clip,
                                     std::vector<Vec2d>& outPts,
                                     std::vector<unsigned int>& outCounts);

/// Dashes polylines and clips each piece of the dashes to a polygon, as ClipPolylinesToPolygon
/// does with a line of two points.
///
/// The generator carries its phase from line to line and on to the next call. What the polygon
/// calls for is made once, so a dash costs no more than its clipping. When a clipping fails, the
/// generator stands at the end of the line in hand.
GEOM_API void ClipDashedPolylinesToPolygon(const Vec2d* pts, const unsigned int* counts,
                                           std::size_t numLines, DashLineGenerator& dashes,
                                           const GpcPolygon& clip, std::vector<Vec2d>& outPts,
                                           std::vector<unsigned int>& outCounts);

} // namespace geom
