// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cstddef>
#include <vector>

namespace geomtool {

/// Finds the boxes that hold a point, for boxes known in advance.
///
/// The boxes are sorted into vertical slices by their centres and within each slice by height,
/// so that neighbours in the order are neighbours in the plane; each group of neighbours has a
/// common box, groups form larger groups, up to one (sort-tile-recursive packing: Leutenegger,
/// Lopez and Edgington 1997).
class BoxTree {
public:
    explicit BoxTree(const std::vector<geom::Box2d>& boxes);

    /// Appends the indices of the boxes that hold the point, in no particular order.
    void Find(const geom::Vec2d& p, std::vector<std::size_t>& found) const;

private:
    void Find(std::size_t level, std::size_t index, const geom::Vec2d& p,
              std::vector<std::size_t>& found) const;

    /// The given boxes' indices in packed order.
    std::vector<std::size_t> m_order;
    /// Level 0 holds the given boxes in packed order; entry k of a level holds the entries
    /// FANOUT*k up to FANOUT*(k+1) of the level below.
    std::vector<std::vector<geom::Box2d>> m_levels;
};

} // namespace geomtool
