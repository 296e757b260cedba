// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"
#include "Subsystems/Kit/Vec2d.h"

namespace kit {

/// An axis-aligned rectangle, closed: its boundary belongs to it.
///
/// The empty box has both minima at the largest finite double and both maxima at its
/// negative; extending it by a point gives the box of that point alone. A coordinate that is
/// not a number never extends a box.
struct Box2d {
    double minX, minY, maxX, maxY;

    /// The empty box.
    KIT_API Box2d();
    /// Stored as given, not normalised.
    Box2d(double left, double bottom, double right, double top)
        : minX(left), minY(bottom), maxX(right), maxY(top) {}

    bool operator==(const Box2d& o) const {
        return minX == o.minX && minY == o.minY && maxX == o.maxX && maxY == o.maxY;
    }
    bool operator!=(const Box2d& o) const { return !(*this == o); }

    /// Swaps minimum and maximum on each axis where they are reversed. The empty box becomes
    /// the whole plane.
    KIT_API void Normalize();
    /// True when a minimum exceeds its maximum; a box of a single line or point is not empty.
    KIT_API bool IsEmpty() const;
    /// True when both extents are positive.
    KIT_API bool HasArea() const;
    KIT_API bool Contains(const Vec2d& p) const;
    KIT_API bool Contains(const Box2d& o) const;
    /// The corners in ring order: (min, min), (max, min), (max, max), (min, max).
    KIT_API void GetCorners(Vec2d corners[4]) const;
    KIT_API Vec2d Center() const;
    KIT_API void ExtendBy(const Vec2d& p);
    /// Becomes the common part; an empty box when there is none.
    KIT_API void Intersect(const Box2d& o);
    /// Width times height of the stored values.
    KIT_API double GetArea() const;
    /// Becomes the smallest box that holds both.
    KIT_API Box2d& operator|=(const Box2d& o);
};

static_assert(sizeof(Box2d) == 4 * sizeof(double), "boxes are four doubles in a row");

} // namespace kit
