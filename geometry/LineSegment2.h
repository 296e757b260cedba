// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

/// \file
/// A directed segment of the plane and the predicates on segments.
///
/// The predicates are signs of cross products in doubles, without a tolerance, so that what a
/// caller concludes never depends on the scale of its coordinates.

namespace geom {

/// A directed segment from `A` to `B`. Plain value; a zero-length segment is allowed.
class GEOM_API LineSegment2 {
public:
    /// Both end-points at (0, 0).
    LineSegment2() : m_a(0.0, 0.0), m_b(0.0, 0.0) {}
    LineSegment2(const Vec2d& a, const Vec2d& b) : m_a(a), m_b(b) {}
    LineSegment2(double x1, double y1, double x2, double y2) : m_a(x1, y1), m_b(x2, y2) {}

    const Vec2d& A() const { return m_a; }
    const Vec2d& B() const { return m_b; }
    void A(const Vec2d& a) { m_a = a; }
    void B(const Vec2d& b) { m_b = b; }

    /// Exact, and blind to direction: a segment equals its reverse.
    bool operator==(const LineSegment2& o) const;
    bool operator!=(const LineSegment2& o) const { return !(*this == o); }

    /// A copy moved by `v`.
    LineSegment2 operator+(const Vec2d& v) const;
    /// A copy moved by `-v`.
    LineSegment2 operator-(const Vec2d& v) const;
    LineSegment2& operator+=(const Vec2d& v);
    LineSegment2& operator-=(const Vec2d& v);

    double Length() const;

    /// True when the infinite line through the segment strictly separates `p` from `q`; a point
    /// on the line gives false.
    bool Bisects(const Vec2d& p, const Vec2d& q) const;

    /// True for points to the left of the direction from A to B, and for points on the line.
    bool ToTheLeft(const Vec2d& p) const;
    /// True for points to the right of the direction from A to B, and for points on the line.
    bool ToTheRight(const Vec2d& p) const;

private:
    Vec2d m_a;
    Vec2d m_b;
};

/// The squared distance from a point to the nearest point of a segment; for a segment of length
/// zero, to its point.
GEOM_API double DistanceSquared(const LineSegment2& s, const Vec2d& p);

/// Whether two segments cross.
///
/// True for a proper crossing and for an end-point of one that lies inside the other. False for
/// segments that only share an end-point, and for collinear segments, overlapping or not.
GEOM_API bool Intersects(const LineSegment2& s, const LineSegment2& t);

/// Whether a segment meets a closed box. A segment that comes from outside and passes exactly
/// through a corner counts as missing it.
GEOM_API bool Intersects(const LineSegment2& s, const Box2d& box);

/// Whether both end-points lie in the closed box.
GEOM_API bool Contains(const Box2d& box, const LineSegment2& s);

/// The point where the infinite lines through two segments meet; it need not lie on either.
///
/// \param[out] out left unchanged when the lines are parallel or a segment has no length.
/// \return whether there is such a point.
GEOM_API bool Intersection(const LineSegment2& s, const LineSegment2& t, Vec2d& out);

} // namespace geom
