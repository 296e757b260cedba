// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Box2d.h"
#include "tests/support/Floats.h"
#include "tests/support/Random.h"

#include <vector>

/// \file
/// Chains of points and rectangles on which rectangle clippers are compared.

namespace geom::test {

/// Mostly a multiple of a quarter, as the sides of RandomRectangle are.
inline double RandomCoordinate(Random& random) {
    constexpr double ODD[] = {NOT_A_NUMBER, INF, -INF, LARGEST, SMALLEST, -0.0};
    return random.OneIn(200) ? ODD[random.Below(6)] : random.Between(-12, 12) * 0.25;
}

/// A walk of at least `least` points whose steps are mostly short, so that it stays long inside
/// or beyond one side. Some go on for long, and some go along the grid of the rectangles' sides.
inline std::vector<kit::Vec2d> RandomWalk(Random& random, int least) {
    const int n = random.Between(least, random.OneIn(40) ? 1400 : 80);
    const int stay = random.Between(1, random.OneIn(4) ? 400 : 40);
    const bool onGrid = random.OneIn(4);
    const auto step = [&] {
        return onGrid ? random.Between(-1, 1) * 0.25 : random.Between(-0.1, 0.1);
    };
    std::vector<kit::Vec2d> walk;
    for (int i = 0; i < n; ++i) {
        kit::Vec2d next(RandomCoordinate(random), RandomCoordinate(random));
        if (!walk.empty() && !random.OneIn(stay)) {
            next = walk.back() + kit::Vec2d(step(), step());
        }
        walk.push_back(next);
    }
    return walk;
}

/// The four sides in any order, so that those of some rectangles are reversed; now and then the
/// empty box, or all that is finite.
inline kit::Box2d RandomRectangle(Random& random) {
    const auto side = [&random] { return random.Between(-10, 10) * 0.25; };
    kit::Box2d box(side(), side(), side(), side());
    if (random.OneIn(50)) {
        box = kit::Box2d();
    }
    if (!random.OneIn(8)) {
        box.Normalize();
    }
    return box;
}

inline bool SameBits(const std::vector<kit::Vec2d>& a, const std::vector<kit::Vec2d>& b) {
    bool same = a.size() == b.size();
    for (std::size_t i = 0; same && i < a.size(); ++i) {
        same = SameBits(a[i], b[i]);
    }
    return same;
}

} // namespace geom::test
