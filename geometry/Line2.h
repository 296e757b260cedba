// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"
#include "geometry/LineSegment2.h"

namespace geom {

/// An infinite line A x + B y + C = 0.
///
/// Every constructor leaves a unit normal (A, B) and C >= 0, so that C is the distance of the
/// line from the origin; or all three 0 for input that determines no line. The setters store
/// what they are given.
class GEOM_API Line2 {
public:
    /// All three 0: no line.
    Line2() = default;
    /// The line a x + b y + c = 0, normalised; all three 0 when (a, b) has no length.
    Line2(double a, double b, double c);
    /// The line through two points.
    ///
    /// Throws an internal error of file "Line2", line 59, when the points coincide or are not
    /// numbers.
    Line2(const Vec2d& p, const Vec2d& q);
    /// The line through the end-points of a segment; throws as for two points.
    Line2(const LineSegment2& s);

    double A() const { return m_a; }
    double B() const { return m_b; }
    double C() const { return m_c; }
    void A(double a) { m_a = a; }
    void B(double b) { m_b = b; }
    void C(double c) { m_c = c; }

    /// Exact equality of all three; a value that is not a number differs from everything.
    bool operator==(const Line2& o) const { return m_a == o.m_a && m_b == o.m_b && m_c == o.m_c; }
    bool operator!=(const Line2& o) const { return !(*this == o); }

private:
    void ConstructFrom2Points(const Vec2d& p, const Vec2d& q);
    void Normalize();

    double m_a = 0.0;
    double m_b = 0.0;
    double m_c = 0.0;
};

/// The point where two lines meet.
///
/// \param[out] out left unchanged when the lines are parallel.
/// \return whether there is such a point.
GEOM_API bool Intersection(const Line2& l1, const Line2& l2, Vec2d& out);

/// The point where a line meets the infinite line through `p` and `q`.
///
/// \param[out] out left unchanged when the lines are parallel or the points coincide; it may be
///             `p` or `q`.
/// \return whether there is such a point.
GEOM_API bool Intersection(const Line2& l, const Vec2d& p, const Vec2d& q, Vec2d& out);

} // namespace geom
