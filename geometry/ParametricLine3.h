// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

namespace geom {

/// A line in space: a point on it, its position, and a unit direction.
///
/// The closest points and the part inside a box concern the whole line, to both sides of the
/// position. The pick tests see the line as the sight of an eye at the position: only what lies
/// ahead of it is hit.
///
/// A line whose two points coincide has the direction (0, 0, 0) and is no line: it meets nothing,
/// and GetClosestPoint() returns its position. One with a position or a direction that is not
/// finite meets nothing either.
class GEOM_API ParametricLine3 {
public:
    /// All six coordinates 0.
    ParametricLine3() : m_position(0.0, 0.0, 0.0), m_direction(0.0, 0.0, 0.0) {}
    /// From `p` towards `q`.
    ParametricLine3(const Vec3d& p, const Vec3d& q);

    /// The line from `p` towards `q`.
    void SetValue(const Vec3d& p, const Vec3d& q);

    const Vec3d& GetPosition() const { return m_position; }
    const Vec3d& GetDirection() const { return m_direction; }

    /// The foot of the perpendicular from `x`, before or behind the position.
    Vec3d GetClosestPoint(const Vec3d& x) const;

    /// The points where two whole lines come nearest to each other.
    ///
    /// Parallel lines are equally near everywhere; they give this line's position and its foot on
    /// the other line. Lines count as parallel when the sine of their angle does not exceed
    /// 2^-50, about what the rounding of two unit directions can feign. Swapping two lines that
    /// are not parallel swaps the points, to the bit.
    ///
    /// \param[out] onThis  the point on this line.
    /// \param[out] onOther the point on the other line.
    /// \return false, with both outputs unchanged, when one of the two is no line or the points
    ///         are too far away to be represented.
    bool GetClosestPoints(const ParametricLine3& other, Vec3d& onThis, Vec3d& onOther) const;

    /// A pick test of the point `x`. With v the vector from the position to x and t its part
    /// along the direction, nothing is hit unless t > 0. The miss is |v| - t^2, a length less a
    /// squared length. A tolerance of 0 or more is compared with the miss over t, a negative one
    /// gives the absolute limit of the miss; both strictly.
    bool Intersect(double tolerance, const Vec3d& x) const;

    /// The part of the whole line inside a closed box, found by slabs (Kay and Kajiya 1986).
    ///
    ///                 |        |
    ///        ---------+--------x second ---
    ///                 |     /  |
    ///        ---------+--x-----+-----------
    ///                 | / first|
    ///
    /// A line that only touches the box has a part of length 0; whether rounding lets it touch an
    /// edge or a corner is not certain unless the line is parallel to an axis.
    ///
    /// \param[out] first  where the line enters the box, seen along its direction; exactly on a
    ///                    face.
    /// \param[out] second where it leaves the box; exactly on a face.
    /// \return false, with both outputs unchanged, when the line misses the box, the box is empty
    ///         or this is no line.
    bool Intersect(const Box3d& box, Vec3d& first, Vec3d& second) const;

    /// A pick test of a box: whether some point of the closed box lies ahead of the position and
    /// within the tolerance of the line.
    ///
    /// The tolerance is told apart as for a point, but the miss is the true distance from the
    /// line. So the tolerance describes a solid around the line ahead, without its boundary:
    ///
    ///      tolerance > 0: a cone, the tangent       tolerance < 0: a cylinder of the radius
    ///      of whose half angle is the tolerance     -tolerance that begins at the position
    ///                      /                          ------------------------
    ///                 /                               |
    ///      position >------------ line       position >----------------- line
    ///                 \                               |
    ///                      \                          ------------------------
    ///
    /// The cone suits a perspective view, where what is farther away looks smaller, and the
    /// cylinder a parallel one. A box that the line itself meets ahead of the position is hit with
    /// every tolerance.
    bool Intersect(double tolerance, const Box3d& box) const;

    /// A pick test of the segment a-b, with the tolerance of the pick test of a box.
    ///
    /// With a tolerance of 0 the line has to meet the segment exactly, which rounding seldom
    /// allows: a host gives a small tolerance.
    ///
    /// \param[out] hit the point of the segment that is best aimed at: for a cone the one with the
    ///                 smallest angle off the line seen from the position, for a cylinder the one
    ///                 nearest to the line; unchanged when the segment is not hit. When the nearest
    ///                 part of the segment lies behind the position, `hit` is where the segment
    ///                 comes level with the position.
    bool Intersect(double tolerance, const Vec3d& a, const Vec3d& b, Vec3d& hit) const;

    /// A pick test of a triangle: whether the line meets the closed triangle a-b-c ahead of its
    /// position.
    ///
    ///                 c
    ///               /   \            the side on which a, b, c are seen
    ///      >-----------x  \          counter-clockwise is the front
    ///            /   out1   \        .
    ///           a ----------- b
    ///
    /// A line through the common edge of two triangles meets at least one of them: the side of an
    /// edge is the same number, up to its sign, whichever triangle asks. A triangle without area
    /// and one that is seen exactly edge-on are not met.
    ///
    /// \param[out] out1 the point of the triangle.
    /// \param[out] out2 its barycentric coordinates, the weights of a, b and c, none of them
    ///                  negative: out1 = a x + b y + c z and x + y + z = 1, both up to rounding.
    ///                  A host interpolates normals, colours and texture coordinates with them.
    /// \param[out] flag whether the line arrives at the front of the triangle.
    /// \return false, with all outputs unchanged, when the triangle is not met.
    bool Intersect(const Vec3d& a, const Vec3d& b, const Vec3d& c, Vec3d& out1, Vec3d& out2,
                   bool& flag) const;

private:
    bool IsLine() const;

    Vec3d m_position;
    Vec3d m_direction;
};

} // namespace geom
