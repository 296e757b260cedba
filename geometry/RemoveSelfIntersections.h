// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Polygon2.h"

namespace geom {

/// The side from which rings are looked at. From the negative side every ring turns the other
/// way: winding numbers change their sign, so the positive and the negative winding rule change
/// places, and the resulting rings run in the opposite direction.
enum RSI_NormalDir : unsigned int { RSI_NORMAL_POSITIVE_Z = 0, RSI_NORMAL_NEGATIVE_Z = 1 };

/// Replaces rings that may cross themselves and each other by rings that do not, around the
/// region that a winding rule selects. The winding number of a place is the number of times that
/// all rings together run around it counter-clockwise, less the times they run clockwise.
///
/// \param windingRule a winding rule of the OpenGL Utility tessellator:
///   GLU_TESS_WINDING_ODD (100130), _NONZERO (100131), _POSITIVE (100132), _NEGATIVE (100133) or
///   _ABS_GEQ_TWO (100134).
/// \param out receives the result in place of its content; it may be `in`. Seen from the side of
///   the normal, outer rings run counter-clockwise and holes clockwise. Unchanged when an
///   exception is thrown.
///
/// The work is done by the tessellator of the OpenGL Utility library; the order and the first
/// points of the rings are its own. Places where edges cross are computed with about single
/// precision, relative to the magnitude of the coordinates; given vertices keep their
/// coordinates, but vertices and edges that nearly meet may be merged, and where several edges
/// nearly meet in one place (seldom) a small lobe may be left over. Where edges overlap along a
/// stretch, a part beside them can be left covered twice. A single ring of at most 100 points is
/// taken as simple when no two triangles of its first point with an edge turn different ways: one
/// that runs more than once around its first point, such as a pentagram from an inner corner,
/// comes back as it is. Time grows up to the square of the number of edges.
///
/// In `in`, counts beyond the points are cut short, and points beyond the counts are ignored.
///
/// Errors carry the file "RemoveSelfIntersections": internal errors for a tessellator older than
/// version 1.3 (line 111, on the first call only), an unknown winding rule (116) and an unknown
/// normal direction (117); out of memory when there is no tessellator (123); the tessellator's
/// own message for its errors (53), the out-of-memory error inside it and coordinates beyond
/// 1e150 among them. Coordinates that are no numbers are refused like those that are too large.
/// A failed allocation passes as the standard exception; one that fails while the tessellator
/// works is also logged. When the tessellator's own memory runs out, it loses the blocks that it
/// holds: nothing of the library can give them back.
///
/// Different threads may call this at once.
GEOM_API void RemoveSelfIntersections(const Polygon2& in, Polygon2& out, unsigned int windingRule,
                                      RSI_NormalDir normalDir);

} // namespace geom
