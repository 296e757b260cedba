// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Box3d.h"

#include <limits>

namespace kit {

namespace {

constexpr double LARGEST = std::numeric_limits<double>::max();

void ExtendAxis(double& low, double& high, double value) {
    if (value < low) {
        low = value;
    }
    if (value > high) {
        high = value;
    }
}

} // namespace

Box3d::Box3d() : minCorner(LARGEST, LARGEST, LARGEST), maxCorner(-LARGEST, -LARGEST, -LARGEST) {}

// Halved first: the sum of two large coordinates could overflow.
Vec3d Box3d::Center() const {
    return 0.5 * minCorner + 0.5 * maxCorner;
}

void Box3d::ExtendBy(const Vec3d& p) {
    ExtendAxis(minCorner.x, maxCorner.x, p.x);
    ExtendAxis(minCorner.y, maxCorner.y, p.y);
    ExtendAxis(minCorner.z, maxCorner.z, p.z);
}

bool Box3d::IsDegenerate() const {
    return !(maxCorner.x > minCorner.x && maxCorner.y > minCorner.y && maxCorner.z > minCorner.z);
}

} // namespace kit
