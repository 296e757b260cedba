// SPDX-License-Identifier: MIT
#include "geometry/Plane.h"

namespace geom {

Plane::Plane(const Vec3d& p0, const Vec3d& p1, const Vec3d& p2)
    : m_normal((p1 - p0).Cross(p2 - p0).Normalized()), m_distance(m_normal.Dot(p0)) {}

Plane::Plane(const Vec3d& normal, double distance)
    : m_normal(normal.Normalized()), m_distance(distance) {}

Plane::Plane(const Vec3d& normal, const Vec3d& point)
    : m_normal(normal.Normalized()), m_distance(m_normal.Dot(point)) {}

double Plane::GetDistance(const Vec3d& p) const {
    return m_normal.Dot(p) - m_distance;
}

bool Plane::IsInHalfSpace(const Vec3d& p) const {
    return m_normal.Dot(p) >= m_distance;
}

bool Plane::Intersect(const ParametricLine3& line, Vec3d& out) const {
    const double denominator = m_normal.Dot(line.GetDirection());
    if (denominator == 0.0) {
        return false;
    }
    const double t = -((line.GetPosition().Dot(m_normal) - m_distance) / denominator);
    out = line.GetPosition() + line.GetDirection() * t;
    return true;
}

// Normals are covectors: the transposed inverse keeps them perpendicular to the moved plane.
void Plane::Transform(const Mat4d& m) {
    const Vec3d nearest = m_normal * m_distance;
    Mat4d inverse = Mat4d::IDENTITY;
    static_cast<void>(m.Inverse(inverse));
    m_normal = inverse.Transpose().DirMult(m_normal).Normalized();
    m_distance = m_normal.Dot(nearest * m);
}

} // namespace geom
