// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

namespace geom {

/// A triangle of the plane, with exact comparisons throughout.
///
/// A triangle with two equal vertices is empty, and every predicate is false for it. Three
/// distinct points of a line are not empty: they make a triangle of area 0, which contains every
/// point of that line, inside the span of the vertices or not.
///
/// The vertices are used in the order in which they are stored, never sorted, so near degeneracy
/// the results depend on that order.
class GEOM_API Triangle {
public:
    /// All vertices at (0, 0).
    Triangle() : m_a(0.0, 0.0), m_b(0.0, 0.0), m_c(0.0, 0.0) {}
    Triangle(const Vec2d& a, const Vec2d& b, const Vec2d& c) : m_a(a), m_b(b), m_c(c) {}

    const Vec2d& A() const { return m_a; }
    const Vec2d& B() const { return m_b; }
    const Vec2d& C() const { return m_c; }
    void A(const Vec2d& a) { m_a = a; }
    void B(const Vec2d& b) { m_b = b; }
    void C(const Vec2d& c) { m_c = c; }

    /// True when two vertices are exactly equal.
    bool IsEmpty() const;
    /// True when the vertices turn counter-clockwise (y up); false without area.
    bool CCW() const;
    double Area() const;
    /// Whether a point lies in the closed triangle, of either orientation.
    bool Contains(const Vec2d& p) const;
    /// Whether a point lies strictly inside the circle through the vertices, for either
    /// orientation.
    bool InCircumcircle(const Vec2d& p) const;
    /// The smallest and the largest coordinates of the vertices.
    Box2d BoundingBox() const;

private:
    double SignedDoubleArea() const;
    int SortVertices(Vec2d& a, Vec2d& b, Vec2d& c) const;

    Vec2d m_a;
    Vec2d m_b;
    Vec2d m_c;
};

} // namespace geom
