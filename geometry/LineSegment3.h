// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

namespace geom {

/// A directed segment in space, from `A` to `B`. Plain value; every comparison is exact.
class GEOM_API LineSegment3 {
public:
    /// Both end-points at (0, 0, 0).
    LineSegment3() : m_a(0.0, 0.0, 0.0), m_b(0.0, 0.0, 0.0) {}
    LineSegment3(const Vec3d& a, const Vec3d& b) : m_a(a), m_b(b) {}
    LineSegment3(double ax, double ay, double az, double bx, double by, double bz)
        : m_a(ax, ay, az), m_b(bx, by, bz) {}

    const Vec3d& A() const { return m_a; }
    const Vec3d& B() const { return m_b; }
    void A(const Vec3d& a) { m_a = a; }
    void B(const Vec3d& b) { m_b = b; }

    /// Blind to direction: a segment equals its reverse.
    bool operator==(const LineSegment3& o) const;
    bool operator!=(const LineSegment3& o) const { return !(*this == o); }

    /// A copy moved by `v`.
    LineSegment3 operator+(const Vec3d& v) const;
    /// A copy moved by `-v`.
    LineSegment3 operator-(const Vec3d& v) const;
    LineSegment3& operator+=(const Vec3d& v);
    LineSegment3& operator-=(const Vec3d& v);

    double Length() const;

private:
    Vec3d m_a;
    Vec3d m_b;
};

} // namespace geom
