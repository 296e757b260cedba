// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"
#include "Subsystems/Kit/Platform.h"

namespace kit {

/// A point or a vector in the plane.
///
/// Comparison is exact. Default construction leaves the coordinates unset, so that large
/// arrays cost nothing to make.
struct Vec2d {
    double x, y;

    Vec2d() = default;
    Vec2d(double px, double py) : x(px), y(py) {}
    /// Each coordinate is converted exactly.
    Vec2d(const tagPOINT& p) : x(p.x), y(p.y) {}

    Vec2d operator-() const { return {-x, -y}; }
    Vec2d operator+(const Vec2d& o) const { return {x + o.x, y + o.y}; }
    Vec2d operator-(const Vec2d& o) const { return {x - o.x, y - o.y}; }
    /// Component by component.
    Vec2d operator*(const Vec2d& o) const { return {x * o.x, y * o.y}; }
    /// Component by component.
    Vec2d operator/(const Vec2d& o) const { return {x / o.x, y / o.y}; }
    Vec2d operator*(double s) const { return {x * s, y * s}; }
    Vec2d operator/(double s) const { return {x / s, y / s}; }
    friend Vec2d operator*(double s, const Vec2d& v) { return {s * v.x, s * v.y}; }

    Vec2d& operator+=(const Vec2d& o) { return *this = *this + o; }
    Vec2d& operator-=(const Vec2d& o) { return *this = *this - o; }
    Vec2d& operator*=(const Vec2d& o) { return *this = *this * o; }
    Vec2d& operator/=(const Vec2d& o) { return *this = *this / o; }
    Vec2d& operator*=(double s) { return *this = *this * s; }
    Vec2d& operator/=(double s) { return *this = *this / s; }

    bool operator==(const Vec2d& o) const { return x == o.x && y == o.y; }
    bool operator!=(const Vec2d& o) const { return !(*this == o); }

    /// x * o.x + y * o.y.
    KIT_API double Dot(const Vec2d& o) const;
    KIT_API double Length() const;
    KIT_API double LengthSquared() const;
    /// dx * dx + dy * dy, without a square root.
    KIT_API double DistanceSquared(const Vec2d& o) const;
    /// Scales to unit length in place. Returns false, and changes nothing, when the length is
    /// zero (as computed: a vector shorter than about 1e-162 has length 0).
    KIT_API bool Normalize();
};

static_assert(sizeof(Vec2d) == 2 * sizeof(double), "points are read as pairs of doubles");

} // namespace kit
