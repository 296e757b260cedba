// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/SpatialSearchGrid2D.h"

#include <vector>

namespace geom::test {

/// A search grid that looks at every vertex of every cell it comes to and at every cell,
/// occupied or not.
///
/// It takes sound input only: a source that gives the same answers each time, for at least one
/// index.
class PlainSearchGrid {
public:
    PlainSearchGrid(int first, int last, const SpatialSearchGrid2D::IVertexSource& source);

    int Query(const Vec2d& p) const;

    const std::vector<double>& ColumnEdges() const { return m_columnEdges; }
    const std::vector<double>& RowEdges() const { return m_rowEdges; }

    bool QueryCell(int cx, int cy, const Vec2d& p, int& bestIndex,
                   double& bestDistanceSquared) const;
    bool QueryRingOfCells(int cx, int cy, int ring, const Vec2d& p, int& bestIndex,
                          double& bestDistanceSquared) const;
    int WhichCell(const Vec2d& p) const;
    /// How many vertices the cell holds that holds most.
    std::size_t LargestCell() const;

private:
    int ColumnAt(double x) const;
    int RowAt(double y) const;

    const SpatialSearchGrid2D::IVertexSource& m_source;
    int m_vertexCount = 0;
    int m_side = 0;
    double m_originX = 0, m_originY = 0;
    double m_scaleX = 1, m_scaleY = 1;
    std::vector<std::vector<int>> m_cells;
    std::vector<double> m_columnEdges;
    std::vector<double> m_rowEdges;
};

} // namespace geom::test
