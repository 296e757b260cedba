// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"
#include "geometry/ParametricLine3.h"

namespace geom {

/// A plane: the points p with normal . p = distance.
///
/// The normal has unit length once set; from points or a normal that determine no direction it
/// is the zero vector. Every comparison is exact.
class GEOM_API Plane {
public:
    /// All four values 0.
    Plane() : m_normal(0.0, 0.0, 0.0) {}
    /// The plane through three points; the normal follows the right-hand rule over them.
    Plane(const Vec3d& p0, const Vec3d& p1, const Vec3d& p2);
    /// The normal is brought to unit length, the distance is taken as it is.
    Plane(const Vec3d& normal, double distance);
    /// The plane through a point.
    Plane(const Vec3d& normal, const Vec3d& point);

    const Vec3d& GetNormal() const { return m_normal; }
    /// The signed distance of a point, positive on the side that the normal points to.
    double GetDistance(const Vec3d& p) const;
    double GetDistanceFromOrigin() const { return m_distance; }

    /// Moves the plane along its normal.
    void Offset(double delta) { m_distance += delta; }
    /// Whether a point lies on the side that the normal points to, or on the plane.
    bool IsInHalfSpace(const Vec3d& p) const;

    /// The point where the whole line, to both sides of its position, meets the plane.
    ///
    /// \param[out] out left unchanged when the line is parallel, also when it lies in the plane.
    /// \return whether there is such a point.
    bool Intersect(const ParametricLine3& line, Vec3d& out) const;

    /// Moves the plane as the matrix moves points. A singular matrix turns the normal by the
    /// identity instead of its inverse.
    void Transform(const Mat4d& m);

    /// Exact equality of all four values; a value that is not a number differs from everything.
    bool operator==(const Plane& o) const {
        return m_distance == o.m_distance && m_normal == o.m_normal;
    }
    bool operator!=(const Plane& o) const { return !(*this == o); }

private:
    Vec3d m_normal;
    double m_distance = 0.0;
};

} // namespace geom
