// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Vec2d.h"

#include <cmath>

namespace kit {

double Vec2d::Dot(const Vec2d& o) const {
    return x * o.x + y * o.y;
}

double Vec2d::LengthSquared() const {
    return x * x + y * y;
}

double Vec2d::Length() const {
    return std::sqrt(LengthSquared());
}

double Vec2d::DistanceSquared(const Vec2d& o) const {
    const double dx = x - o.x;
    const double dy = y - o.y;
    return dx * dx + dy * dy;
}

bool Vec2d::Normalize() {
    const double length = Length();
    if (length == 0.0) {
        return false;
    }
    if (std::isinf(length) && std::isfinite(x) && std::isfinite(y)) {
        *this *= 0x1p-600; // the squares overflowed; a power of two keeps every digit
        return Normalize();
    }
    *this /= length;
    return true;
}

} // namespace kit
