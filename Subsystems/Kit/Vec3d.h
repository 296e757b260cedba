// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"

namespace kit {

/// A point or a vector in space. Comparison is exact; default construction leaves the
/// coordinates unset.
struct Vec3d {
    double x, y, z;

    Vec3d() = default;
    Vec3d(double px, double py, double pz) : x(px), y(py), z(pz) {}

    Vec3d operator-() const { return {-x, -y, -z}; }
    Vec3d operator+(const Vec3d& o) const { return {x + o.x, y + o.y, z + o.z}; }
    Vec3d operator-(const Vec3d& o) const { return {x - o.x, y - o.y, z - o.z}; }
    /// Component by component.
    Vec3d operator*(const Vec3d& o) const { return {x * o.x, y * o.y, z * o.z}; }
    /// Component by component.
    Vec3d operator/(const Vec3d& o) const { return {x / o.x, y / o.y, z / o.z}; }
    Vec3d operator*(double s) const { return {x * s, y * s, z * s}; }
    Vec3d operator/(double s) const { return {x / s, y / s, z / s}; }
    friend Vec3d operator*(double s, const Vec3d& v) { return {s * v.x, s * v.y, s * v.z}; }

    Vec3d& operator+=(const Vec3d& o) { return *this = *this + o; }
    Vec3d& operator-=(const Vec3d& o) { return *this = *this - o; }
    Vec3d& operator*=(const Vec3d& o) { return *this = *this * o; }
    Vec3d& operator/=(const Vec3d& o) { return *this = *this / o; }
    Vec3d& operator*=(double s) { return *this = *this * s; }
    Vec3d& operator/=(double s) { return *this = *this / s; }

    bool operator==(const Vec3d& o) const { return x == o.x && y == o.y && z == o.z; }
    bool operator!=(const Vec3d& o) const { return !(*this == o); }

    /// x * o.x + y * o.y + z * o.z.
    KIT_API double Dot(const Vec3d& o) const;
    /// The right-handed cross product this x o.
    KIT_API Vec3d Cross(const Vec3d& o) const;
    KIT_API double Length() const;
    KIT_API double LengthSquared() const;
    KIT_API double DistanceSquared(const Vec3d& o) const;
    /// Scales to unit length in place. Returns false, and changes nothing, when the length is
    /// zero.
    KIT_API bool Normalize();
    /// A unit copy; a zero vector comes back unchanged.
    KIT_API Vec3d Normalized() const;
};

static_assert(sizeof(Vec3d) == 3 * sizeof(double), "points are read as triples of doubles");

} // namespace kit
