// SPDX-License-Identifier: MIT
#include "geometry/LineSegment2.h"

#include "geometry/Errors.h"
#include "geometry/detail/Thresholds.h"

#include <cmath>

namespace geom {

namespace {

constexpr int LINE_IMPOSSIBLE_OUTCODE = 229;

// (u - origin) x (v - origin): positive when v lies to the left of the ray from origin to u.
double CrossAt(const Vec2d& origin, const Vec2d& u, const Vec2d& v) {
    return (u.x - origin.x) * (v.y - origin.y) - (u.y - origin.y) * (v.x - origin.x);
}

// The nine zones around and in a box; a code is the sum of its two axes.
//
//      9 | 8 | 10
//     ---+---+---
//      1 | 0 | 2
//     ---+---+---
//      5 | 4 | 6
enum Outcode : unsigned { LEFT = 1, RIGHT = 2, BELOW = 4, ABOVE = 8 };
constexpr unsigned X_BITS = LEFT | RIGHT;
constexpr unsigned Y_BITS = BELOW | ABOVE;

unsigned OutcodeOf(const Vec2d& p, const Box2d& box) {
    const unsigned x = p.x < box.minX ? LEFT : p.x > box.maxX ? RIGHT : 0U;
    const unsigned y = p.y < box.minY ? BELOW : p.y > box.maxY ? ABOVE : 0U;
    return x | y;
}

// Seen from A, the two chosen corners are the outermost ones of the box, so the line misses the
// box unless it separates them.
bool SeparatesOutermostCorners(const LineSegment2& s, unsigned codeOfA, const Box2d& box) {
    const Vec2d lowLeft(box.minX, box.minY);
    const Vec2d lowRight(box.maxX, box.minY);
    const Vec2d highRight(box.maxX, box.maxY);
    const Vec2d highLeft(box.minX, box.maxY);
    switch (codeOfA) {
    case LEFT: return s.Bisects(highLeft, lowLeft);
    case RIGHT: return s.Bisects(highRight, lowRight);
    case BELOW: return s.Bisects(lowLeft, lowRight);
    case ABOVE: return s.Bisects(highLeft, highRight);
    case LEFT | BELOW:
    case RIGHT | ABOVE: return s.Bisects(highLeft, lowRight);
    case RIGHT | BELOW:
    case LEFT | ABOVE: return s.Bisects(lowLeft, highRight);
    default: ThrowInternalError(L"LineSegment2", LINE_IMPOSSIBLE_OUTCODE);
    }
}

} // namespace

bool LineSegment2::operator==(const LineSegment2& o) const {
    return (m_a == o.m_a && m_b == o.m_b) || (m_a == o.m_b && m_b == o.m_a);
}

LineSegment2 LineSegment2::operator+(const Vec2d& v) const {
    return {m_a + v, m_b + v};
}

LineSegment2 LineSegment2::operator-(const Vec2d& v) const {
    return {m_a - v, m_b - v};
}

// Through a copy: `v` may be one of the segment's own end-points.
LineSegment2& LineSegment2::operator+=(const Vec2d& v) {
    return *this = *this + v;
}

LineSegment2& LineSegment2::operator-=(const Vec2d& v) {
    return *this = *this - v;
}

double LineSegment2::Length() const {
    return std::sqrt(m_a.DistanceSquared(m_b));
}

bool LineSegment2::Bisects(const Vec2d& p, const Vec2d& q) const {
    return CrossAt(m_a, m_b, p) * CrossAt(m_a, m_b, q) < 0.0;
}

// Both predicates hold on the line. The differences are taken from p, so that the two sides of
// the comparison are the same products for both predicates.
bool LineSegment2::ToTheLeft(const Vec2d& p) const {
    return (p.y - m_a.y) * (m_b.x - p.x) >= (m_b.y - p.y) * (p.x - m_a.x);
}

bool LineSegment2::ToTheRight(const Vec2d& p) const {
    return (m_b.y - p.y) * (p.x - m_a.x) >= (p.y - m_a.y) * (m_b.x - p.x);
}

double DistanceSquared(const LineSegment2& s, const Vec2d& p) {
    const Vec2d d = s.B() - s.A();
    const Vec2d w = p - s.A();
    const double t = d.y * w.y + w.x * d.x;
    if (t <= 0.0) {
        return w.x * w.x + w.y * w.y;
    }
    const double lengthSquared = d.x * d.x + d.y * d.y;
    if (t > lengthSquared) {
        return p.DistanceSquared(s.B());
    }
    return (w.x * w.x + w.y * w.y) - t * t / lengthSquared;
}

// With s = A-B and t = P-Q, four sides decide; that of B follows from the other three. A zero
// side of A or B means a T with s's end on t, or the shared end-point and collinear cases, which
// a zero side of P or Q tells apart.
bool Intersects(const LineSegment2& s, const LineSegment2& t) {
    const double sideOfP = CrossAt(s.A(), s.B(), t.A());
    const double sideOfQ = CrossAt(s.A(), s.B(), t.B());
    const double sideOfA = CrossAt(s.A(), t.A(), t.B());
    const double sideOfB = (sideOfP - sideOfQ) + sideOfA;
    if (sideOfQ * sideOfP > 0.0 || sideOfB * sideOfA > 0.0) {
        return false;
    }
    const bool endsOfSAreFree = sideOfA != 0.0 && sideOfB != 0.0;
    if (sideOfP == 0.0 || sideOfQ == 0.0) {
        return endsOfSAreFree;
    }
    return true;
}

// Outcodes after Cohen and Sutherland (1967).
bool Intersects(const LineSegment2& s, const Box2d& box) {
    const unsigned codeOfA = OutcodeOf(s.A(), box);
    const unsigned codeOfB = OutcodeOf(s.B(), box);
    if (codeOfA == 0 || codeOfB == 0) {
        return true;
    }
    if ((codeOfA & codeOfB) != 0) {
        return false;
    }
    const unsigned either = codeOfA | codeOfB;
    if ((either & X_BITS) == 0 || (either & Y_BITS) == 0) {
        return true;
    }
    return SeparatesOutermostCorners(s, codeOfA, box);
}

bool Contains(const Box2d& box, const LineSegment2& s) {
    return box.Contains(s.A()) && box.Contains(s.B());
}

bool Intersection(const LineSegment2& s, const LineSegment2& t, Vec2d& out) {
    const double x1 = s.A().x, y1 = s.A().y, x2 = s.B().x, y2 = s.B().y;
    const double x3 = t.A().x, y3 = t.A().y, x4 = t.B().x, y4 = t.B().y;
    const double denominator = (x3 - x4) * (y2 - y1) - (y4 - y3) * (x1 - x2);
    if (!(std::fabs(denominator) > detail::TINY)) {
        return false;
    }
    const double c1 = x1 * y2 - x2 * y1;
    const double c2 = x3 * y4 - x4 * y3;
    out = Vec2d((c1 * (x3 - x4) - c2 * (x1 - x2)) / denominator,
                (c2 * (y2 - y1) - c1 * (y4 - y3)) / denominator);
    return true;
}

} // namespace geom
