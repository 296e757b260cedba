// SPDX-License-Identifier: MIT
#include "tests/reference/PlainSearchGrid.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace geom::test {

namespace {

int LimitToCells(double position, int cells) {
    if (!(position > 0.0)) {
        return 0;
    }
    return position < cells ? static_cast<int>(position) : cells - 1;
}

double CellsPerUnit(double extent, int cells) {
    return extent <= std::numeric_limits<float>::min() ? 1.0 : cells / extent;
}

} // namespace

PlainSearchGrid::PlainSearchGrid(int first, int last,
                                 const SpatialSearchGrid2D::IVertexSource& source)
    : m_source(source) {
    Box2d box;
    Vec2d vertex;
    for (int index = first; index < last; ++index) {
        if (source.GetVertex(index, vertex)) {
            ++m_vertexCount;
            box.ExtendBy(vertex);
        }
    }
    m_side = std::max(1, static_cast<int>(std::sqrt(m_vertexCount / 20)));
    m_originX = box.minX;
    m_originY = box.minY;
    m_scaleX = CellsPerUnit(box.maxX - box.minX, m_side);
    m_scaleY = CellsPerUnit(box.maxY - box.minY, m_side);
    for (int i = 0; i <= m_side; ++i) {
        m_columnEdges.push_back(m_originX + i / m_scaleX);
        m_rowEdges.push_back(m_originY + i / m_scaleY);
    }
    m_cells.resize(static_cast<std::size_t>(m_side) * static_cast<std::size_t>(m_side));
    for (int index = first; index < last; ++index) {
        if (source.GetVertex(index, vertex)) {
            m_cells[static_cast<std::size_t>(WhichCell(vertex))].push_back(index);
        }
    }
}

int PlainSearchGrid::ColumnAt(double x) const {
    return LimitToCells((x - m_originX) * m_scaleX, m_side);
}

int PlainSearchGrid::RowAt(double y) const {
    return LimitToCells((y - m_originY) * m_scaleY, m_side);
}

int PlainSearchGrid::WhichCell(const Vec2d& p) const {
    return RowAt(p.y) * m_side + ColumnAt(p.x);
}

std::size_t PlainSearchGrid::LargestCell() const {
    std::size_t largest = 0;
    for (const std::vector<int>& cell : m_cells) {
        largest = std::max(largest, cell.size());
    }
    return largest;
}

bool PlainSearchGrid::QueryCell(int cx, int cy, const Vec2d& p, int& bestIndex,
                                double& bestDistanceSquared) const {
    if (cx < 0 || cx >= m_side || cy < 0 || cy >= m_side) {
        return false;
    }
    const int before = bestIndex;
    for (const int index : m_cells[static_cast<std::size_t>(cy * m_side + cx)]) {
        Vec2d vertex;
        if (!m_source.GetVertex(index, vertex)) {
            std::abort();
        }
        const double distanceSquared = p.DistanceSquared(vertex);
        if (distanceSquared < bestDistanceSquared ||
            (distanceSquared == bestDistanceSquared && index < bestIndex)) {
            bestDistanceSquared = distanceSquared;
            bestIndex = index;
        }
    }
    return bestIndex != before;
}

bool PlainSearchGrid::QueryRingOfCells(int cx, int cy, int ring, const Vec2d& p, int& bestIndex,
                                       double& bestDistanceSquared) const {
    const int before = bestIndex;
    for (int x = cx - ring; x <= cx + ring; ++x) {
        QueryCell(x, cy - ring, p, bestIndex, bestDistanceSquared);
        QueryCell(x, cy + ring, p, bestIndex, bestDistanceSquared);
    }
    for (int y = cy - ring + 1; y <= cy + ring - 1; ++y) {
        QueryCell(cx - ring, y, p, bestIndex, bestDistanceSquared);
        QueryCell(cx + ring, y, p, bestIndex, bestDistanceSquared);
    }
    return bestIndex != before;
}

int PlainSearchGrid::Query(const Vec2d& p) const {
    if (m_vertexCount <= 1) {
        return m_vertexCount - 1;
    }
    const int cx = ColumnAt(p.x);
    const int cy = RowAt(p.y);
    int bestIndex = -1;
    double bestDistanceSquared = std::numeric_limits<double>::max();
    int ring = 0;
    if (!QueryCell(cx, cy, p, bestIndex, bestDistanceSquared)) {
        do {
            ++ring;
        } while (ring <= m_side &&
                 !QueryRingOfCells(cx, cy, ring, p, bestIndex, bestDistanceSquared));
    }
    const double distance = std::sqrt(bestDistanceSquared);
    for (int y = RowAt(p.y - distance); y <= RowAt(p.y + distance); ++y) {
        for (int x = ColumnAt(p.x - distance); x <= ColumnAt(p.x + distance); ++x) {
            if (std::abs(x - cx) > ring || std::abs(y - cy) > ring) {
                QueryCell(x, y, p, bestIndex, bestDistanceSquared);
            }
        }
    }
    return bestIndex;
}

} // namespace geom::test
