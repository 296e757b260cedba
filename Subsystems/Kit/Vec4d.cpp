// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Vec4d.h"

#include <cmath>

namespace kit {

double Vec4d::Dot(const Vec4d& o) const {
    return x * o.x + y * o.y + z * o.z + w * o.w;
}

double Vec4d::LengthSquared() const {
    return Dot(*this);
}

double Vec4d::Length() const {
    return std::sqrt(LengthSquared());
}

} // namespace kit
