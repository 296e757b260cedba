// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"
#include "Subsystems/Kit/Vec3d.h"

namespace kit {

/// Four doubles: a row of a matrix, or a point in space with its weight. Comparison is exact;
/// default construction leaves the coordinates unset.
struct Vec4d {
    double x, y, z, w;

    Vec4d() = default;
    Vec4d(double px, double py, double pz, double pw) : x(px), y(py), z(pz), w(pw) {}
    Vec4d(const Vec3d& v, double pw) : x(v.x), y(v.y), z(v.z), w(pw) {}

    Vec4d operator-() const { return {-x, -y, -z, -w}; }
    Vec4d operator+(const Vec4d& o) const { return {x + o.x, y + o.y, z + o.z, w + o.w}; }
    Vec4d operator-(const Vec4d& o) const { return {x - o.x, y - o.y, z - o.z, w - o.w}; }
    /// Component by component.
    Vec4d operator*(const Vec4d& o) const { return {x * o.x, y * o.y, z * o.z, w * o.w}; }
    /// Component by component.
    Vec4d operator/(const Vec4d& o) const { return {x / o.x, y / o.y, z / o.z, w / o.w}; }
    Vec4d operator*(double s) const { return {x * s, y * s, z * s, w * s}; }
    Vec4d operator/(double s) const { return {x / s, y / s, z / s, w / s}; }
    friend Vec4d operator*(double s, const Vec4d& v) {
        return {s * v.x, s * v.y, s * v.z, s * v.w};
    }

    bool operator==(const Vec4d& o) const { return x == o.x && y == o.y && z == o.z && w == o.w; }
    bool operator!=(const Vec4d& o) const { return !(*this == o); }

    KIT_API double Dot(const Vec4d& o) const;
    KIT_API double Length() const;
    KIT_API double LengthSquared() const;
};

} // namespace kit
