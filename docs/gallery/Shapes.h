// SPDX-License-Identifier: MIT
#pragma once

#include "Picture.h"

#include <functional>

/// \file
/// The shapes that the pictures show.

namespace gallery {

/// `n` points at equal parameters from `from` to `to`, both included.
Points Sampled(std::size_t n, double from, double to, const std::function<Vec2d(double)>& at);

/// A regular polygon, counter-clockwise from the angle `turn`.
Points Regular(std::size_t n, const Vec2d& centre, double radius, double turn = 0);
/// A star of `spikes` spikes, counter-clockwise from the top.
Points Star(std::size_t spikes, const Vec2d& centre, double outer, double inner);
/// A star drawn in one stroke over every second of `n` corners; crosses itself.
Points Pentagram(const Vec2d& centre, double radius, std::size_t n = 5);
/// A smooth island, counter-clockwise.
Points Island(const Vec2d& centre, double radius, std::size_t n = 60);
/// A comb: a bar with three teeth upwards, 10 wide and 5 high, counter-clockwise.
Points Comb();
/// The corners of a box, counter-clockwise from the lower left.
Points BoxRing(double left, double bottom, double right, double top);
Points Reversed(const Points& ring);

/// Rings as one polygon, in their order.
geom::Polygon2 PolygonOf(const std::vector<Points>& rings);
geom::GpcPolygon GpcPolygonOf(const std::vector<Points>& rings);

/// Numbers in [0, 1) that look random and are the same everywhere.
class Scatter {
public:
    explicit Scatter(unsigned int seed) : m_state(seed) {}
    double Next();
    Vec2d NextIn(const Box2d& box);

private:
    unsigned int m_state;
};

} // namespace gallery
