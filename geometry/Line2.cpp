// SPDX-License-Identifier: MIT
#include "geometry/Line2.h"

#include "geometry/Errors.h"
#include "geometry/detail/Thresholds.h"

#include <cmath>

namespace geom {

namespace {
constexpr int LINE_COINCIDENT_POINTS = 59;
}

Line2::Line2(double a, double b, double c) {
    const double length = std::hypot(a, b);
    if (std::fabs(length) > detail::MIN_NORMAL) {
        m_a = a / length;
        m_b = b / length;
        m_c = c / length;
    }
    Normalize();
}

Line2::Line2(const Vec2d& p, const Vec2d& q) {
    ConstructFrom2Points(p, q);
}

Line2::Line2(const LineSegment2& s) {
    ConstructFrom2Points(s.A(), s.B());
}

// C comes from the mid-point, so that swapping the points changes signs only.
void Line2::ConstructFrom2Points(const Vec2d& p, const Vec2d& q) {
    const double distance = std::sqrt(p.DistanceSquared(q));
    if (!(distance >= detail::MIN_NORMAL)) {
        ThrowInternalError(L"Line2", LINE_COINCIDENT_POINTS);
    }
    m_a = (q.y - p.y) / distance;
    m_b = -((q.x - p.x) / distance);
    m_c = -0.5 * ((p.x + q.x) * m_a + (p.y + q.y) * m_b);
    Normalize();
}

void Line2::Normalize() {
    if (m_c < 0.0) {
        m_a = -m_a;
        m_b = -m_b;
        m_c = -m_c;
    }
}

bool Intersection(const Line2& l1, const Line2& l2, Vec2d& out) {
    const double determinant = l2.B() * l1.A() - l1.B() * l2.A();
    if (!(std::fabs(determinant) > detail::TINY)) {
        return false;
    }
    out = Vec2d((l1.B() * l2.C() - l2.B() * l1.C()) / determinant,
                (l1.C() * l2.A() - l2.C() * l1.A()) / determinant);
    return true;
}

bool Intersection(const Line2& l, const Vec2d& p, const Vec2d& q, Vec2d& out) {
    const double dx = q.x - p.x;
    const double dy = q.y - p.y;
    const double denominator = dx * l.A() + l.B() * dy;
    if (!(std::fabs(denominator) > detail::TINY)) {
        return false;
    }
    const double k = p.x * dy - p.y * dx;
    out = Vec2d((l.B() * k - dx * l.C()) / denominator, (-(dy * l.C()) - k * l.A()) / denominator);
    return true;
}

} // namespace geom
