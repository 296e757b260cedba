// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"
#include "geometry/detail/Thresholds.h"

#include <cmath>

namespace geom::detail {

/// A point whose coordinates are of any number type.
template <typename Number>
struct PointOf {
    Number x, y;
};

template <typename Number>
struct CircleOf {
    bool found;
    Number x, y, radius;
};

/// (tip - corner) . (otherTip - corner)
template <typename Number>
Number DotAt(const PointOf<Number>& corner, const PointOf<Number>& tip,
             const PointOf<Number>& otherTip) {
    return (tip.x - corner.x) * (otherTip.x - corner.x) +
           (tip.y - corner.y) * (otherTip.y - corner.y);
}

/// The circle through three points from the dot products at its corners.
///
/// With dA, dB, dC the dot products, the squared sides are dB + dC, dA + dC and dA + dB, and
/// s = dC dA + dC dB + dB dA is the square of twice the triangle's area. The centre's barycentric
/// weights are dA (dB + dC) and so on; they add up to 2 s. Nothing is found unless s exceeds TINY.
template <typename Number>
CircleOf<Number> Circumcircle(const PointOf<Number>& a, const PointOf<Number>& b,
                              const PointOf<Number>& c) {
    using std::sqrt;
    const Number dA = DotAt(a, b, c);
    const Number dB = DotAt(b, c, a);
    const Number dC = DotAt(c, a, b);
    const Number s = dC * dA + dC * dB + dB * dA;
    if (!(s > Number(TINY))) {
        return {false, Number(0.0), Number(0.0), Number(LARGEST)};
    }
    const Number radius = sqrt((dC + dB) * (dB + dA) * (dC + dA) / (4 * s));
    const Number wa = dA * (dB + dC);
    const Number wb = dB * (dA + dC);
    const Number wc = dC * (dA + dB);
    const Number twice = 2 * s;
    return {true, (wa * a.x + wb * b.x + wc * c.x) / twice,
            (wa * a.y + wb * b.y + wc * c.y) / twice, radius};
}

} // namespace geom::detail
