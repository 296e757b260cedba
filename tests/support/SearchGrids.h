// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/SpatialSearchGrid2D.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

/// \file
/// Sources of vertices and a grid that opens what it keeps for derived classes.

namespace geom::test {

/// Points whose indices start at `first`; some may be withheld.
class PointSource : public SpatialSearchGrid2D::IVertexSource {
public:
    explicit PointSource(std::vector<Vec2d> pts, int firstIndex = 0)
        : points(std::move(pts)), withheld(points.size(), false), first(firstIndex) {}
    bool GetVertex(int index, Vec2d& out) const override {
        const std::size_t at = static_cast<std::size_t>(index - first);
        if (withheld.at(at)) {
            return false;
        }
        out = points.at(at);
        return true;
    }
    int End() const { return first + static_cast<int>(points.size()); }

    std::vector<Vec2d> points;
    std::vector<bool> withheld;
    int first;
};

/// A source that answers through a function.
class FunctionSource : public SpatialSearchGrid2D::IVertexSource {
public:
    explicit FunctionSource(std::function<bool(int, Vec2d&)> f) : answer(std::move(f)) {}
    bool GetVertex(int index, Vec2d& out) const override { return answer(index, out); }
    std::function<bool(int, Vec2d&)> answer;
};

class OpenGrid : public SpatialSearchGrid2D {
public:
    using SpatialSearchGrid2D::GetVertex;
    using SpatialSearchGrid2D::QueryCell;
    using SpatialSearchGrid2D::QueryRingOfCells;
    using SpatialSearchGrid2D::WhichCell;
};

} // namespace geom::test
