// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cstddef>
#include <cstring>
#include <type_traits>

/// \file
/// Points as pairs of lanes: both coordinates of a point are compared at once, where the
/// processor can, and a long row of points is passed without a branch for each.

namespace geom::detail {

#if defined(__GNUC__)

using Lanes = double __attribute__((vector_size(16)));
/// All bits of a lane are set where a comparison holds, and none where it does not.
using LaneMask = decltype(Lanes() <= Lanes());

inline LaneMask Exchanged(LaneMask mask) {
    return __builtin_shufflevector(mask, mask, 1, 0);
}

#else

struct LaneMask {
    long long lanes[2];

    long long operator[](std::size_t i) const { return lanes[i]; }
    LaneMask operator~() const { return {{~lanes[0], ~lanes[1]}}; }
    LaneMask operator&(const LaneMask& o) const {
        return {{lanes[0] & o.lanes[0], lanes[1] & o.lanes[1]}};
    }
    LaneMask operator|(const LaneMask& o) const {
        return {{lanes[0] | o.lanes[0], lanes[1] | o.lanes[1]}};
    }
    LaneMask& operator&=(const LaneMask& o) { return *this = *this & o; }
    LaneMask& operator|=(const LaneMask& o) { return *this = *this | o; }
};

struct Lanes {
    double lanes[2];

    LaneMask operator<(const Lanes& o) const { return o > *this; }
    LaneMask operator>(const Lanes& o) const {
        return {{-(lanes[0] > o.lanes[0]), -(lanes[1] > o.lanes[1])}};
    }
    LaneMask operator<=(const Lanes& o) const { return o >= *this; }
    LaneMask operator>=(const Lanes& o) const {
        return {{-(lanes[0] >= o.lanes[0]), -(lanes[1] >= o.lanes[1])}};
    }
};

inline LaneMask Exchanged(LaneMask mask) {
    return {{mask[1], mask[0]}};
}

#endif

/// The coordinates of a point, x in the first lane.
template <typename Point>
Lanes LanesOf(const Point& p) {
    static_assert(sizeof(Point) == sizeof(Lanes) && std::is_trivially_copyable_v<Point>,
                  "a point is its two coordinates");
    Lanes lanes;
    std::memcpy(&lanes, &p, sizeof lanes);
    return lanes;
}

/// Whether points all lie in a closed box: a test for RunOf.
class AllWithin {
public:
    explicit AllWithin(const Box2d& box)
        : m_lower{box.minX, box.minY}, m_upper{box.maxX, box.maxY} {}

    void Add(Lanes p) { m_all &= (p >= m_lower) & (p <= m_upper); }
    bool Holds() const { return (m_all & Exchanged(m_all))[0] != 0; }

private:
    Lanes m_lower, m_upper;
    LaneMask m_all{-1, -1};
};

/// How many points at the start of an array pass a test together.
///
/// Chains of points mostly stay for long where they are: on one side of a line, in a rectangle.
/// A test has `Add`, which takes a point's lanes, and `Holds`, whether all that were added pass;
/// it is given fresh. Eight points are added without a branch between them, so that a long run
/// costs comparisons only.
template <typename Test, typename Point>
std::size_t RunOf(const Test& fresh, const Point* pts, std::size_t n) {
    constexpr std::size_t BLOCK = 8;
    const auto pass = [&fresh](const Point* block, std::size_t size) {
        Test test(fresh);
        for (std::size_t k = 0; k < size; ++k) {
            test.Add(LanesOf(block[k]));
        }
        return test.Holds();
    };
    std::size_t i = 0;
    while (n - i >= BLOCK && pass(pts + i, BLOCK)) {
        i += BLOCK;
    }
    while (i < n && pass(pts + i, 1)) {
        ++i;
    }
    return i;
}

} // namespace geom::detail
