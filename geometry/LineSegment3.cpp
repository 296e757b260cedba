// SPDX-License-Identifier: MIT
#include "geometry/LineSegment3.h"

#include <cmath>

namespace geom {

bool LineSegment3::operator==(const LineSegment3& o) const {
    return (m_a == o.m_a && m_b == o.m_b) || (m_a == o.m_b && m_b == o.m_a);
}

LineSegment3 LineSegment3::operator+(const Vec3d& v) const {
    return {m_a + v, m_b + v};
}

LineSegment3 LineSegment3::operator-(const Vec3d& v) const {
    return {m_a - v, m_b - v};
}

// Through a copy: `v` may be one of the segment's own end-points.
LineSegment3& LineSegment3::operator+=(const Vec3d& v) {
    return *this = *this + v;
}

LineSegment3& LineSegment3::operator-=(const Vec3d& v) {
    return *this = *this - v;
}

double LineSegment3::Length() const {
    return std::sqrt(m_a.DistanceSquared(m_b));
}

} // namespace geom
