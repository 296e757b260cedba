// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"
#include "geometry/LineSegment2.h"

namespace geom {

/// A circle: a centre and a radius that is not negative.
///
/// A circle through three points that have none (collinear or coincident ones) carries the
/// largest double as radius and the centre (0, 0).
class GEOM_API Circle {
public:
    /// Centre (0, 0), radius 0.
    Circle() : m_center(0.0, 0.0) {}
    /// A radius below 0 is stored as 0.
    Circle(double x, double y, double r);
    /// A radius below 0 is stored as 0.
    Circle(const Vec2d& c, double r);
    /// The circle through three points, in double precision.
    Circle(const Vec2d& a, const Vec2d& b, const Vec2d& c);
    /// The circle through three points, computed with about 32 digits: for triangles so flat that
    /// the plain circle is wrong in its leading digits, or not found. The flag only selects this
    /// constructor; its value means nothing.
    ///
    /// The computation runs in the default floating-point environment (rounding to nearest) and
    /// leaves the caller's as it was, its exception flags included.
    Circle(const Vec2d& a, const Vec2d& b, const Vec2d& c, bool exact);

    const Vec2d& Center() const { return m_center; }
    double Radius() const { return m_radius; }

    /// Exact equality of centre and radius; a value that is not a number differs from everything.
    bool operator==(const Circle& o) const {
        return m_center == o.m_center && m_radius == o.m_radius;
    }
    bool operator!=(const Circle& o) const { return !(*this == o); }

    /// Moves the centre.
    Circle& operator+=(const Vec2d& v);
    Circle& operator-=(const Vec2d& v);

    double Area() const;
    /// True when the radius is 0.
    bool IsEmpty() const { return m_radius <= 0.0; }
    Box2d BoundingBox() const;

    /// Whether a point lies in the closed disc.
    bool Contains(const Vec2d& p) const;
    /// Whether a whole box lies in the closed disc.
    bool Contains(const Box2d& b) const;
    /// Whether a whole circle lies in the closed disc; one that touches from inside does.
    bool Contains(const Circle& o) const;

private:
    Vec2d m_center;
    double m_radius = 0.0;
};

/// Whether two discs have more than a point in common: tangent circles do not intersect.
GEOM_API bool Intersects(const Circle& c1, const Circle& c2);

/// Whether a segment reaches the open disc: a tangent segment does not intersect.
GEOM_API bool Intersects(const Circle& c, const LineSegment2& s);

/// Whether a box holds the centre, or one of its edges reaches the open disc.
GEOM_API bool Intersects(const Circle& c, const Box2d& b);

} // namespace geom
