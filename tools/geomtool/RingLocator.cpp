// SPDX-License-Identifier: MIT
#include "tools/geomtool/RingLocator.h"

#include "tools/geomtool/EdgeCrossing.h"

namespace geomtool {

using geom::Box2d;
using geom::Vec2d;

namespace {

constexpr std::size_t SHORT_RUN = 8;

/// Whether an edge crosses the ray from p to the left.
bool Crosses(const Vec2d& a, const Vec2d& b, const Vec2d& p) {
    return PassesHeight(a, b, p.y) && CrossingAt(a, b, p.y) < p.x;
}

} // namespace

RingLocator::RingLocator(const std::vector<Vec2d>& points) : m_points(points) {
    Build(0, 0, points.size());
}

Box2d RingLocator::Build(std::size_t node, std::size_t first, std::size_t last) {
    Box2d box;
    if (last - first <= SHORT_RUN) {
        for (std::size_t i = first; i <= last; ++i) {
            box.ExtendBy(Point(i));
        }
    } else {
        const std::size_t middle = first + (last - first) / 2;
        box = Build(2 * node + 1, first, middle);
        box |= Build(2 * node + 2, middle, last);
    }
    if (node >= m_boxes.size()) {
        m_boxes.resize(node + 1);
    }
    m_boxes[node] = box;
    return box;
}

bool RingLocator::Contains(const Vec2d& p) const {
    return OddCrossings(0, 0, m_points.size(), p);
}

bool RingLocator::OddCrossings(std::size_t node, std::size_t first, std::size_t last,
                               const Vec2d& p) const {
    const Box2d& box = m_boxes[node];
    if (p.x <= box.minX || p.y < box.minY || p.y > box.maxY) {
        return false;
    }
    if (p.x > box.maxX) {
        return PassesHeight(Point(first), Point(last), p.y);
    }
    bool odd = false;
    if (last - first <= SHORT_RUN) {
        for (std::size_t i = first; i < last; ++i) {
            odd ^= Crosses(Point(i), Point(i + 1), p);
        }
        return odd;
    }
    const std::size_t middle = first + (last - first) / 2;
    odd ^= OddCrossings(2 * node + 1, first, middle, p);
    odd ^= OddCrossings(2 * node + 2, middle, last, p);
    return odd;
}

} // namespace geomtool
