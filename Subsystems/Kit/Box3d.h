// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"
#include "Subsystems/Kit/Vec3d.h"

namespace kit {

/// An axis-aligned box in space; the empty box is marked as that of Box2d is.
struct Box3d {
    Vec3d minCorner, maxCorner;

    /// The empty box.
    KIT_API Box3d();
    /// Stored as given, not normalised.
    Box3d(const Vec3d& low, const Vec3d& high) : minCorner(low), maxCorner(high) {}

    bool operator==(const Box3d& o) const {
        return minCorner == o.minCorner && maxCorner == o.maxCorner;
    }
    bool operator!=(const Box3d& o) const { return !(*this == o); }

    KIT_API Vec3d Center() const;
    KIT_API void ExtendBy(const Vec3d& p);
    /// True when the box has no volume: some extent is not positive.
    KIT_API bool IsDegenerate() const;
};

} // namespace kit
