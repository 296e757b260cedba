// SPDX-License-Identifier: MIT
#include "geometry/Triangle.h"

#include <algorithm>
#include <cmath>

namespace geom {

namespace {

// (v - p) x (p - u): which side of the edge u-v the point is on.
double EdgeValue(const Vec2d& u, const Vec2d& v, const Vec2d& p) {
    return (v.x - p.x) * (p.y - u.y) - (v.y - p.y) * (p.x - u.x);
}

double SquaredNorm(const Vec2d& v) {
    return v.x * v.x + v.y * v.y;
}

// The in-circle determinant: each point's x times a minor over the others' squared norms and y.
// Positive when d lies inside the circle through a counter-clockwise a, b, c.
double InCircleDeterminant(const Vec2d& a, const Vec2d& b, const Vec2d& c, const Vec2d& d) {
    const double aa = SquaredNorm(a);
    const double bb = SquaredNorm(b);
    const double cc = SquaredNorm(c);
    const double dd = SquaredNorm(d);
    return b.x * ((dd - cc) * a.y + (aa - dd) * c.y + (cc - aa) * d.y) +
           a.x * ((dd - bb) * c.y + (cc - dd) * b.y + (bb - cc) * d.y) +
           c.x * ((bb - dd) * a.y + (dd - aa) * b.y + (aa - bb) * d.y) +
           d.x * ((cc - bb) * a.y + (aa - cc) * b.y + (bb - aa) * c.y);
}

} // namespace

bool Triangle::IsEmpty() const {
    return m_a == m_b || m_a == m_c || m_b == m_c;
}

// Brings copies of the vertices into the order of their slots and returns the sign of that
// permutation. The copies are always taken slot by slot, so they are in order and the sign is +1.
// An order by value would make the predicates blind to the order of the vertices, but would also
// change their rounding, which callers compare.
int Triangle::SortVertices(Vec2d& /*a*/, Vec2d& /*b*/, Vec2d& /*c*/) const {
    return 1;
}

double Triangle::SignedDoubleArea() const {
    Vec2d a = m_a;
    Vec2d b = m_b;
    Vec2d c = m_c;
    const int sign = SortVertices(a, b, c);
    return ((c.y - a.y) * b.x + (b.y - c.y) * a.x + (a.y - b.y) * c.x) * sign;
}

bool Triangle::CCW() const {
    return !IsEmpty() && SignedDoubleArea() > 0.0;
}

double Triangle::Area() const {
    return IsEmpty() ? 0.0 : std::fabs(SignedDoubleArea()) * 0.5;
}

bool Triangle::Contains(const Vec2d& p) const {
    if (IsEmpty()) {
        return false;
    }
    const double e1 = EdgeValue(m_a, m_b, p);
    const double e2 = EdgeValue(m_b, m_c, p);
    const double e3 = EdgeValue(m_c, m_a, p);
    return (e1 >= 0.0 && e2 >= 0.0 && e3 >= 0.0) || (e1 <= 0.0 && e2 <= 0.0 && e3 <= 0.0);
}

// All four points are moved so that their mean is the origin: far from it the squared norms
// would leave no digits for the differences.
bool Triangle::InCircumcircle(const Vec2d& p) const {
    if (IsEmpty()) {
        return false;
    }
    const double orientation = SignedDoubleArea() < 0.0 ? -1.0 : 1.0;
    const Vec2d mean((p.x + (m_b.x + m_a.x + m_c.x)) * 0.25,
                     (p.y + (m_a.y + m_b.y + m_c.y)) * 0.25);
    const double determinant = InCircleDeterminant(m_a - mean, m_b - mean, m_c - mean, p - mean);
    return determinant * orientation > 0.0;
}

Box2d Triangle::BoundingBox() const {
    return {std::min({m_a.x, m_b.x, m_c.x}), std::min({m_a.y, m_b.y, m_c.y}),
            std::max({m_a.x, m_b.x, m_c.x}), std::max({m_a.y, m_b.y, m_c.y})};
}

} // namespace geom
