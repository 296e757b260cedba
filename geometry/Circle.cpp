// SPDX-License-Identifier: MIT
#include "geometry/Circle.h"

#include "geometry/detail/Circumcircle.h"
#include "geometry/detail/DefaultFloatingPoint.h"

#include <algorithm>
#include <cmath>

namespace geom {

namespace {

using detail::CircleOf;
using detail::Circumcircle;
using detail::PointOf;

double NotNegative(double radius) {
    return radius < 0.0 ? 0.0 : radius;
}

PointOf<doubledouble> Extended(const Vec2d& p) {
    return {p.x, p.y};
}

double Rounded(const doubledouble& value) {
    return value.high + value.low;
}

CircleOf<double> ExtendedCircumcircle(const Vec2d& a, const Vec2d& b, const Vec2d& c) {
    const CircleOf<doubledouble> circle = Circumcircle(Extended(a), Extended(b), Extended(c));
    return {circle.found, Rounded(circle.x), Rounded(circle.y), Rounded(circle.radius)};
}

// Read at each call, so that the compiler cannot see which function is called and has to leave
// all its arithmetic between the two switches of the environment.
CircleOf<double> (*volatile const opaqueExtendedCircumcircle)(const Vec2d&, const Vec2d&,
                                                              const Vec2d&) = ExtendedCircumcircle;

} // namespace

Circle::Circle(double x, double y, double r) : m_center(x, y), m_radius(NotNegative(r)) {}

Circle::Circle(const Vec2d& c, double r) : m_center(c), m_radius(NotNegative(r)) {}

Circle::Circle(const Vec2d& a, const Vec2d& b, const Vec2d& c) {
    const CircleOf<double> circle = Circumcircle(
        PointOf<double>{a.x, a.y}, PointOf<double>{b.x, b.y}, PointOf<double>{c.x, c.y});
    m_center = Vec2d(circle.x, circle.y);
    m_radius = circle.radius;
}

Circle::Circle(const Vec2d& a, const Vec2d& b, const Vec2d& c, bool /*exact*/) {
    const detail::DefaultFloatingPoint environment;
    const CircleOf<double> circle = opaqueExtendedCircumcircle(a, b, c);
    m_center = Vec2d(circle.x, circle.y);
    m_radius = circle.radius;
}

Circle& Circle::operator+=(const Vec2d& v) {
    m_center = m_center + v;
    return *this;
}

Circle& Circle::operator-=(const Vec2d& v) {
    m_center = m_center - v;
    return *this;
}

double Circle::Area() const {
    return m_radius * kit::PI * m_radius;
}

Box2d Circle::BoundingBox() const {
    return {m_center.x - m_radius, m_center.y - m_radius, m_center.x + m_radius,
            m_center.y + m_radius};
}

bool Circle::Contains(const Vec2d& p) const {
    return m_radius * m_radius >= m_center.DistanceSquared(p);
}

// The corner farthest from the centre decides.
bool Circle::Contains(const Box2d& b) const {
    const double mx = std::max(std::fabs(b.maxX - m_center.x), std::fabs(b.minX - m_center.x));
    const double my = std::max(std::fabs(b.maxY - m_center.y), std::fabs(b.minY - m_center.y));
    return m_radius * m_radius >= my * my + mx * mx;
}

bool Circle::Contains(const Circle& o) const {
    const double distance = std::hypot(o.m_center.x - m_center.x, o.m_center.y - m_center.y);
    return m_radius >= distance + o.m_radius;
}

bool Intersects(const Circle& c1, const Circle& c2) {
    const double reach = c1.Radius() + c2.Radius();
    return reach * reach > c1.Center().DistanceSquared(c2.Center());
}

bool Intersects(const Circle& c, const LineSegment2& s) {
    return c.Radius() * c.Radius() > DistanceSquared(s, c.Center());
}

bool Intersects(const Circle& c, const Box2d& b) {
    if (b.Contains(c.Center())) {
        return true;
    }
    const LineSegment2 left(b.minX, b.maxY, b.minX, b.minY);
    const LineSegment2 top(b.maxX, b.maxY, b.minX, b.maxY);
    const LineSegment2 right(b.maxX, b.minY, b.maxX, b.maxY);
    const LineSegment2 bottom(b.minX, b.minY, b.maxX, b.minY);
    return Intersects(c, left) || Intersects(c, top) || Intersects(c, right) ||
           Intersects(c, bottom);
}

} // namespace geom
