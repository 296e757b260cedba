// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

#include <cstddef>
#include <vector>

/// \file
/// Point lists for circular arcs, for arcs, pies and chords inscribed in a box, and for
/// ellipses; conversion between angles and a cheap pseudo-angle.
///
/// Angles are in radians, counter-clockwise from the positive x axis (y upwards). The functions
/// keep no state. Points are written in the order of drawing.

namespace geom {

/// Appends the points of a circular arc to `out`, which is never cleared: the start point, one
/// point for each whole `step` within the sweep, and the exact end point unless it equals the
/// last of those in both coordinates.
///
/// \param sweep the signed turn from the start; a negative one runs clockwise.
/// \param step the angle between neighbouring points, above 0.
///
/// The points are made by turning the offset from the centre step by step, so rounding grows
/// along the arc and the exact end point can follow a turned point that differs from it in the
/// last place only. A radius of 0 appends the centre alone. When the step is not above 0, or
/// sweep / step is not a number or at least 2^60, only the start and the end point are
/// appended.
///
/// Memory for the points is reserved before the first is appended; when that fails, `out` is
/// unchanged and the exception is the allocator's own. `center` may be an element of `out`.
GEOM_API void CircularArc(const Vec2d& center, double radius, double startAngle, double sweep,
                          std::vector<Vec2d>& out, double step);

/// Writes `n` points of an arc of the ellipse inscribed in `box`, counter-clockwise from the
/// direction of `start` to the direction of `end`, both seen from the centre of the box. The
/// two need not lie on the ellipse; equal directions give a full turn.
///
/// The points lie at equal steps of the polar angle. Within 0.005 of the vertical directions of
/// the first turn they are the exact top and bottom of the ellipse.
///
/// \param out room for `n` points, or null.
/// \param outBox is widened by every point, not reset before, so it starts as the caller makes
/// it; or null. It may be `box` itself.
/// \return false, with nothing written, when `n` < 2, when `start` or `end` is the centre, or
/// when a half-axis squared is 0. Coordinates that are not finite give points that are no
/// numbers.
GEOM_API bool ArcToCurve(const Box2d& box, const Vec2d& start, const Vec2d& end, std::size_t n,
                         Vec2d* out, Box2d* outBox);

/// Writes the closed outline of a pie as `n` points: the arc as `n` - 2 points, the centre of
/// the box, and the first point again. `outBox`, if given, is widened by all of them.
///
/// \return false when `n` < 4, when `out` is null, or when ArcToCurve fails.
GEOM_API bool PieToArea(const Box2d& box, const Vec2d& start, const Vec2d& end, std::size_t n,
                        Vec2d* out, Box2d* outBox);

/// Writes the closed outline of a chord as `n` points: the arc as `n` - 1 points and the first
/// point again. `out` may be null; then only `outBox` is widened.
///
/// \return false when `n` < 3 or when ArcToCurve fails.
GEOM_API bool ChordToArea(const Box2d& box, const Vec2d& start, const Vec2d& end, std::size_t n,
                          Vec2d* out, Box2d* outBox);

/// Writes the 4 `n` + 1 points of the ellipse inscribed in `box`, counter-clockwise from its
/// rightmost point, with `n` steps in each quadrant; the last point repeats the first. Each
/// quadrant mirrors the first one exactly.
///
/// \param n 0 writes nothing; a number beyond 32 bits with sign throws
/// boost::numeric::positive_overflow.
/// \param out room for 4 `n` + 1 points; null writes nothing.
GEOM_API void GenerateEllipse(const Box2d& box, std::size_t n, Vec2d* out);

/// A pseudo-angle that grows with the angle over one turn and costs no arc tangent to compare:
/// 0 at 0, 1 at a quarter turn, 2 at a half, 3 at three quarters. It is the way along the edge
/// of the diamond |x| + |y| = 1.
///
/// The result is in [0, 4), except that the tiniest negative angles round to exactly 4.
GEOM_API double AngleToTheta(double angle);

/// The angle in (-pi, pi] of a pseudo-angle; any finite value is taken modulo 4, and a value
/// that is not finite gives 0.
GEOM_API double ThetaToAngle(double theta);

} // namespace geom
