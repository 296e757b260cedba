// SPDX-License-Identifier: MIT
#include "geometry/ParametricLine3.h"

#include "geometry/detail/BoxSlabs.h"

#include <cmath>

namespace geom {

namespace {

// The sine of the angle up to which lines count as parallel, squared.
constexpr double PARALLEL_SINE_SQUARED = 0x1p-100;

bool IsFinite(const Vec3d& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

} // namespace

ParametricLine3::ParametricLine3(const Vec3d& p, const Vec3d& q) : ParametricLine3() {
    SetValue(p, q);
}

// The direction is computed first: `p` may be the line's own position.
void ParametricLine3::SetValue(const Vec3d& p, const Vec3d& q) {
    const Vec3d direction = (q - p).Normalized();
    m_position = p;
    m_direction = direction;
}

Vec3d ParametricLine3::GetClosestPoint(const Vec3d& x) const {
    const double t = m_direction.Dot(x - m_position);
    return m_position + m_direction * t;
}

bool ParametricLine3::IsLine() const {
    return m_direction.LengthSquared() > 0.0 && IsFinite(m_direction) && IsFinite(m_position);
}

// The vector between the closest points is along c = d1 x d2. With w from this position to the
// other one, the parameters are (w x d2) . c / c^2 and (w x d1) . c / c^2.
bool ParametricLine3::GetClosestPoints(const ParametricLine3& other, Vec3d& onThis,
                                       Vec3d& onOther) const {
    if (!IsLine() || !other.IsLine()) {
        return false;
    }
    Vec3d here = m_position;
    Vec3d there = other.GetClosestPoint(m_position);
    const Vec3d common = m_direction.Cross(other.m_direction);
    const double sineSquared = common.LengthSquared();
    if (sineSquared > PARALLEL_SINE_SQUARED) {
        const Vec3d w = other.m_position - m_position;
        here = m_position + m_direction * (w.Cross(other.m_direction).Dot(common) / sineSquared);
        there =
            other.m_position + other.m_direction * (w.Cross(m_direction).Dot(common) / sineSquared);
    }
    if (!IsFinite(here) || !IsFinite(there)) {
        return false;
    }
    onThis = here;
    onOther = there;
    return true;
}

bool ParametricLine3::Intersect(double tolerance, const Vec3d& x) const {
    const Vec3d v = x - m_position;
    const double t = m_direction.Dot(v);
    if (!(t > 0.0)) {
        return false;
    }
    const double miss = std::sqrt(v.Dot(v)) - t * t;
    return tolerance >= 0.0 ? tolerance > miss / t : -tolerance > miss;
}

bool ParametricLine3::Intersect(const Box3d& box, Vec3d& first, Vec3d& second) const {
    detail::BoxSlabs slabs;
    if (!IsLine() || !slabs.Clip(m_position, m_direction, box)) {
        return false;
    }
    first = slabs.Entry();
    second = slabs.Exit();
    return true;
}

// The side of the line on which an edge u-v passes is the sign of d . (v x u), seen from the
// position. Swapping u and v negates it exactly, so triangles that share an edge agree on it. The
// sides opposite to a, b, c are in proportion to their weights.
bool ParametricLine3::Intersect(const Vec3d& a, const Vec3d& b, const Vec3d& c, Vec3d& out1,
                                Vec3d& out2, bool& flag) const {
    if (!IsLine()) {
        return false;
    }
    const Vec3d toA = a - m_position;
    const Vec3d toB = b - m_position;
    const Vec3d toC = c - m_position;
    const double sideBC = m_direction.Dot(toC.Cross(toB));
    const double sideCA = m_direction.Dot(toA.Cross(toC));
    const double sideAB = m_direction.Dot(toB.Cross(toA));
    const bool allLeft = sideBC >= 0.0 && sideCA >= 0.0 && sideAB >= 0.0;
    const bool allRight = sideBC <= 0.0 && sideCA <= 0.0 && sideAB <= 0.0;
    const double sum = sideBC + sideCA + sideAB;
    if (!(allLeft || allRight) || sum == 0.0) {
        return false;
    }
    const double along = sideBC * m_direction.Dot(toA) + sideCA * m_direction.Dot(toB) +
                         sideAB * m_direction.Dot(toC);
    const Vec3d weights(sideBC / sum, sideCA / sum, sideAB / sum);
    const Vec3d point = a * weights.x + b * weights.y + c * weights.z;
    if (!(along / sum > 0.0) || !IsFinite(point)) {
        return false;
    }
    out1 = point;
    out2 = weights;
    flag = sum > 0.0;
    return true;
}

} // namespace geom
