// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Vec3d.h"

#include <cmath>

namespace kit {

double Vec3d::Dot(const Vec3d& o) const {
    return x * o.x + y * o.y + z * o.z;
}

Vec3d Vec3d::Cross(const Vec3d& o) const {
    return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
}

double Vec3d::LengthSquared() const {
    return x * x + y * y + z * z;
}

double Vec3d::Length() const {
    return std::sqrt(LengthSquared());
}

double Vec3d::DistanceSquared(const Vec3d& o) const {
    return (*this - o).LengthSquared();
}

bool Vec3d::Normalize() {
    const double length = Length();
    if (length == 0.0) {
        return false;
    }
    if (std::isinf(length) && std::isfinite(x) && std::isfinite(y) && std::isfinite(z)) {
        *this *= 0x1p-600; // the squares overflowed; a power of two keeps every digit
        return Normalize();
    }
    *this /= length;
    return true;
}

Vec3d Vec3d::Normalized() const {
    Vec3d unit = *this;
    unit.Normalize();
    return unit;
}

} // namespace kit
