// SPDX-License-Identifier: MIT
#include "geometry/ParametricLine3.h"
#include "geometry/detail/BoxSlabs.h"

#include <array>
#include <cmath>
#include <limits>

/// \file
/// Pick tests with a tolerance: segments and boxes against the open cone or cylinder around a
/// line.
///
/// A point is described by t, its distance along the line, and w, the vector to it from its foot
/// on the line; both are linear along a segment. The miss of a point is |w| / t for a cone and
/// |w| for a cylinder: where it is smaller than some bound, the points make a convex solid, so
/// along a segment it has one minimum.

namespace geom {

namespace {

constexpr double INF = std::numeric_limits<double>::infinity();

enum class Solid { Cone, Cylinder };

class Sight {
public:
    Sight(const Vec3d& position, const Vec3d& direction, double tolerance)
        : m_position(position), m_direction(direction),
          m_solid(tolerance >= 0.0 ? Solid::Cone : Solid::Cylinder), m_limit(std::fabs(tolerance)) {
    }

    Solid Shape() const { return m_solid; }
    const Vec3d& Position() const { return m_position; }
    double Along(const Vec3d& x) const { return m_direction.Dot(x - m_position); }
    Vec3d Across(const Vec3d& x) const {
        const Vec3d v = x - m_position;
        return v - m_direction * m_direction.Dot(v);
    }
    double Miss(double along, const Vec3d& across) const {
        if (m_solid == Solid::Cylinder) {
            return across.Length();
        }
        return along > 0.0 ? across.Length() / along : INF;
    }
    /// What lies on the line itself is hit whatever the tolerance.
    bool Accepts(double miss) const { return miss == 0.0 || miss < m_limit; }

private:
    Vec3d m_position;
    Vec3d m_direction;
    Solid m_solid;
    double m_limit;
};

/// The point of a segment that the sight misses least, among those not behind the position.
struct BestAim {
    double miss = INF;
    double fraction = 0.0; ///< of the way from the first to the second end
};

/// t and w along a segment, as functions of the fraction s: t = t0 + s dt, w = w0 + s dw.
class SightedSegment {
public:
    SightedSegment(const Sight& sight, const Vec3d& a, const Vec3d& b)
        : m_sight(sight), m_t0(sight.Along(a)), m_dt(sight.Along(b) - m_t0), m_w0(sight.Across(a)),
          m_dw(sight.Across(b) - m_w0) {}

    BestAim Find() const {
        const double t1 = m_t0 + m_dt;
        BestAim best;
        if (!(m_t0 > 0.0 || t1 > 0.0)) {
            return best;
        }
        const double level = -m_t0 / m_dt; // where the segment passes the position
        const double from = m_t0 < 0.0 ? level : 0.0;
        const double to = t1 < 0.0 ? level : 1.0;
        Offer(from, best);
        Offer(to, best);
        const double middle = m_sight.Shape() == Solid::Cone ? LeastAngle() : LeastDistance();
        if (from < middle && middle < to) {
            Offer(middle, best);
        }
        return best;
    }

private:
    void Offer(double fraction, BestAim& best) const {
        const double miss = m_sight.Miss(m_t0 + m_dt * fraction, m_w0 + m_dw * fraction);
        if (miss < best.miss) {
            best = {miss, fraction};
        }
    }

    // Where the derivative of |w|^2 is zero; not a number for a segment along the line.
    double LeastDistance() const { return -m_w0.Dot(m_dw) / m_dw.LengthSquared(); }

    // Where the derivative of |w|^2 / t^2 is zero; its numerator is linear in s.
    double LeastAngle() const {
        const double wdw = m_w0.Dot(m_dw);
        return (m_w0.LengthSquared() * m_dt - wdw * m_t0) /
               (m_dw.LengthSquared() * m_t0 - wdw * m_dt);
    }

    const Sight& m_sight;
    double m_t0, m_dt;
    Vec3d m_w0, m_dw;
};

bool Hits(const Sight& sight, const Vec3d& a, const Vec3d& b) {
    return sight.Accepts(SightedSegment(sight, a, b).Find().miss);
}

/// Corners are numbered by bits: 1 for the high x, 2 for the high y, 4 for the high z.
class BoxCorners {
public:
    explicit BoxCorners(const Box3d& box) : m_box(box) {}
    Vec3d operator[](unsigned i) const {
        const Vec3d& low = m_box.minCorner;
        const Vec3d& high = m_box.maxCorner;
        return {(i & 1U) != 0 ? high.x : low.x, (i & 2U) != 0 ? high.y : low.y,
                (i & 4U) != 0 ? high.z : low.z};
    }

private:
    const Box3d& m_box;
};

bool HitsAnEdge(const Sight& sight, const BoxCorners& corners) {
    for (unsigned corner = 0; corner < 8; ++corner) {
        for (unsigned axis = 1; axis < 8; axis *= 2) {
            if ((corner & axis) == 0 && Hits(sight, corners[corner], corners[corner | axis])) {
                return true;
            }
        }
    }
    return false;
}

// Whether the cylinder's flat end reaches what the plane of that end cuts out of a face, given as
// its ring of corners: a segment, or nothing.
bool HitsFlatEndInFace(const Sight& sight, const std::array<Vec3d, 4>& ring) {
    std::array<Vec3d, 4> level;
    std::size_t count = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const double t0 = sight.Along(ring[i]);
        const double t1 = sight.Along(ring[(i + 1) % ring.size()]);
        if ((t0 > 0.0) != (t1 > 0.0)) {
            const Vec3d w0 = sight.Across(ring[i]);
            const Vec3d w1 = sight.Across(ring[(i + 1) % ring.size()]);
            level[count++] = w0 + (w1 - w0) * (t0 / (t0 - t1));
        }
    }
    if (count < 2) {
        return false;
    }
    const Vec3d along = level[1] - level[0];
    const double s = -level[0].Dot(along) / along.LengthSquared();
    const Vec3d nearest = s > 0.0 ? (s < 1.0 ? level[0] + along * s : level[1]) : level[0];
    return sight.Accepts(nearest.Length());
}

// A face can reach into a cylinder through its flat end alone, which no edge of the box does:
//
//      ------+-------------
//      |     .\ box
//      >----------------- line
bool HitsFlatEnd(const Sight& sight, const BoxCorners& corners) {
    for (unsigned axis = 1; axis < 8; axis *= 2) {
        const unsigned u = axis == 1 ? 2 : 1;
        const unsigned v = axis == 4 ? 2 : 4;
        for (const unsigned side : {0U, axis}) {
            if (HitsFlatEndInFace(sight, {corners[side], corners[side | u], corners[side | u | v],
                                          corners[side | v]})) {
                return true;
            }
        }
    }
    return false;
}

bool IsBox(const Box3d& box) {
    return box.minCorner.x <= box.maxCorner.x && box.minCorner.y <= box.maxCorner.y &&
           box.minCorner.z <= box.maxCorner.z;
}

} // namespace

bool ParametricLine3::Intersect(double tolerance, const Vec3d& a, const Vec3d& b,
                                Vec3d& hit) const {
    if (!IsLine()) {
        return false;
    }
    const Sight sight(m_position, m_direction, tolerance);
    const BestAim aim = SightedSegment(sight, a, b).Find();
    if (!sight.Accepts(aim.miss)) {
        return false;
    }
    hit = aim.fraction < 1.0 ? a + (b - a) * aim.fraction : b;
    return true;
}

// A convex solid around the line that meets the box meets one of its edges, or cuts a face inside
// it. Then either the line itself meets the face, or the face cuts the cylinder's flat end.
bool ParametricLine3::Intersect(double tolerance, const Box3d& box) const {
    if (!IsLine() || !IsBox(box)) {
        return false;
    }
    detail::BoxSlabs slabs;
    if (slabs.Clip(m_position, m_direction, box) && slabs.ExitParameter() > 0.0) {
        return true;
    }
    const Sight sight(m_position, m_direction, tolerance);
    const BoxCorners corners(box);
    return HitsAnEdge(sight, corners) ||
           (sight.Shape() == Solid::Cylinder && HitsFlatEnd(sight, corners));
}

} // namespace geom
