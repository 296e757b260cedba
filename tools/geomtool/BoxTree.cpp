// SPDX-License-Identifier: MIT
#include "tools/geomtool/BoxTree.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace geomtool {

using geom::Box2d;
using geom::Vec2d;

namespace {

constexpr std::size_t FANOUT = 16;

/// The indices of boxes so that neighbours in the order are neighbours in the plane.
std::vector<std::size_t> PackedOrder(const std::vector<Box2d>& boxes) {
    std::vector<Vec2d> centers;
    centers.reserve(boxes.size());
    for (const Box2d& box : boxes) {
        centers.push_back(box.Center());
    }
    std::vector<std::size_t> order(boxes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return centers[a].x < centers[b].x; });
    const double groups = std::ceil(static_cast<double>(boxes.size()) / FANOUT);
    const auto slice = FANOUT * static_cast<std::size_t>(std::ceil(std::sqrt(groups)));
    for (std::size_t first = 0; first < order.size(); first += slice) {
        const std::size_t last = std::min(first + slice, order.size());
        std::sort(order.begin() + static_cast<std::ptrdiff_t>(first),
                  order.begin() + static_cast<std::ptrdiff_t>(last),
                  [&](std::size_t a, std::size_t b) { return centers[a].y < centers[b].y; });
    }
    return order;
}

std::vector<Box2d> Grouped(const std::vector<Box2d>& level) {
    std::vector<Box2d> groups((level.size() + FANOUT - 1) / FANOUT);
    for (std::size_t i = 0; i < level.size(); ++i) {
        groups[i / FANOUT] |= level[i];
    }
    return groups;
}

} // namespace

BoxTree::BoxTree(const std::vector<Box2d>& boxes) : m_order(PackedOrder(boxes)) {
    std::vector<Box2d> level;
    level.reserve(boxes.size());
    for (const std::size_t i : m_order) {
        level.push_back(boxes[i]);
    }
    m_levels.push_back(std::move(level));
    while (m_levels.back().size() > 1) {
        m_levels.push_back(Grouped(m_levels.back()));
    }
}

void BoxTree::Find(const Vec2d& p, std::vector<std::size_t>& found) const {
    if (!m_order.empty()) {
        Find(m_levels.size() - 1, 0, p, found);
    }
}

void BoxTree::Find(std::size_t level, std::size_t index, const Vec2d& p,
                   std::vector<std::size_t>& found) const {
    if (!m_levels[level][index].Contains(p)) {
        return;
    }
    if (level == 0) {
        found.push_back(m_order[index]);
        return;
    }
    const std::size_t last = std::min((index + 1) * FANOUT, m_levels[level - 1].size());
    for (std::size_t i = index * FANOUT; i < last; ++i) {
        Find(level - 1, i, p, found);
    }
}

} // namespace geomtool
