// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/PolygonSet.h"

#include <cstddef>
#include <vector>

namespace geomtool {

/// Tells quickly whether points lie inside one contour, by even-odd parity of the edges that a
/// ray to the left crosses.
///
/// Edges that follow each other along the contour form runs, two runs a larger one, up to the
/// whole contour, each with its box. A run wholly to the left of the point crosses its height an
/// odd number of times exactly when the run's ends lie on different sides of it:
///
///        b            The ray from p meets this run three times, but one look at a (below)
///        |  /\        and b (above) is enough.
///   -----+-/--\-----p
///        \/    \ .
///               a
///
/// so only runs whose box holds the point are opened, which is about log n of them.
class RingLocator {
public:
    /// \param points at least one; must outlive the locator and stay unchanged.
    explicit RingLocator(const std::vector<geom::Vec2d>& points);

    /// Whether the point lies inside. On the boundary, either answer.
    bool Contains(const geom::Vec2d& p) const;

private:
    /// Whether the edges first .. last-1 cross the ray an odd number of times; `node` is the run
    /// that consists of them.
    bool OddCrossings(std::size_t node, std::size_t first, std::size_t last,
                      const geom::Vec2d& p) const;
    geom::Box2d Build(std::size_t node, std::size_t first, std::size_t last);
    const geom::Vec2d& Point(std::size_t i) const { return m_points[i == m_points.size() ? 0 : i]; }

    const std::vector<geom::Vec2d>& m_points;
    /// The boxes of the runs, those of the halves of run k at 2k+1 and 2k+2.
    std::vector<geom::Box2d> m_boxes;
};

} // namespace geomtool
