// SPDX-License-Identifier: MIT
#include "geometry/SpatialSearchGrid2D.h"

#include "geometry/Errors.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace geom {

namespace {

constexpr const wchar_t* UNIT = L"SpatialSearchGrid2D";
constexpr int LINE_VERTEX_REFUSED = 222;
constexpr int LINE_NULL_SOURCE = 223;
constexpr int LINE_TOO_MANY_VERTICES = 224;
constexpr int LINE_SOURCE_CHANGED = 225;

constexpr int VERTICES_PER_CELL = 20;
// An extent of no more than this, the smallest normal single-precision number, counts as none.
constexpr double NO_EXTENT = std::numeric_limits<float>::min();

// Calls visit(index, vertex) for each usable vertex.
template <typename Visit>
void ForEachVertex(const SpatialSearchGrid2D::IVertexSource& source, int first, int last,
                   Visit visit) {
    for (int index = first; index < last; ++index) {
        Vec2d vertex;
        if (source.GetVertex(index, vertex)) {
            visit(index, vertex);
        }
    }
}

// The cell of a coordinate given in cells from the origin. Limited before it becomes an
// integer: far points and numbers that are none have cells, too.
int LimitToCells(double position, int cells) {
    if (!(position > 0.0)) {
        return 0;
    }
    return position < cells ? static_cast<int>(position) : std::max(cells - 1, 0);
}

double CellsPerUnit(double extent, int cells) {
    return extent <= NO_EXTENT ? 1.0 : cells / extent;
}

std::vector<double> CellEdges(double origin, double scale, int cells) {
    std::vector<double> edges;
    edges.reserve(static_cast<std::size_t>(cells) + 1);
    for (int i = 0; i <= cells; ++i) {
        edges.push_back(origin + i / scale);
    }
    return edges;
}

} // namespace

SpatialSearchGrid2D::IVertexSource::~IVertexSource() = default;

// A rectangle of cells, its borders included.
struct SpatialSearchGrid2D::CellRange {
    int left, right, bottom, top;
};

SpatialSearchGrid2D::SpatialSearchGrid2D()
    : m_vertexCount(0), m_columns(0), m_rows(0), m_originX(0.0), m_originY(0.0), m_scaleX(1.0),
      m_scaleY(1.0) {}

void SpatialSearchGrid2D::Initialize(int first, int last,
                                     const std::shared_ptr<IVertexSource>& source) {
    SpatialSearchGrid2D built;
    built.m_source = source;
    *this = SpatialSearchGrid2D();
    if (first < last && source == nullptr) {
        ThrowInternalError(UNIT, LINE_NULL_SOURCE);
    }
    built.MeasureVertices(first, last);
    if (built.m_vertexCount > 0) {
        built.SortIntoCells(first, last);
    }
    *this = std::move(built);
}

// Counts the usable vertices and lays the cells over their box.
void SpatialSearchGrid2D::MeasureVertices(int first, int last) {
    Box2d box;
    if (first < last) {
        ForEachVertex(*m_source, first, last, [&](int, const Vec2d& vertex) {
            if (m_vertexCount == std::numeric_limits<int>::max()) {
                ThrowInternalError(UNIT, LINE_TOO_MANY_VERTICES);
            }
            ++m_vertexCount;
            box.ExtendBy(vertex);
        });
    }
    if (m_vertexCount > 0) {
        LayOutCells(box);
    }
}

void SpatialSearchGrid2D::LayOutCells(const Box2d& box) {
    const int side = static_cast<int>(std::sqrt(m_vertexCount / VERTICES_PER_CELL));
    m_columns = std::max(side, 1);
    m_rows = m_columns;
    m_originX = box.minX;
    m_originY = box.minY;
    m_scaleX = CellsPerUnit(box.maxX - box.minX, m_columns);
    m_scaleY = CellsPerUnit(box.maxY - box.minY, m_rows);
    m_columnEdges = CellEdges(m_originX, m_scaleX, m_columns);
    m_rowEdges = CellEdges(m_originY, m_scaleY, m_rows);
}

// A counting sort: the number of vertices in each cell, then where each cell's group starts,
// then every index into the next free place of its group.
void SpatialSearchGrid2D::SortIntoCells(int first, int last) {
    const std::size_t cells =
        static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows);
    m_cellIndices.resize(static_cast<std::size_t>(m_vertexCount));
    m_cellStarts.resize(cells + 1, 0);
    int counted = 0;
    ForEachVertex(*m_source, first, last, [&](int, const Vec2d& vertex) {
        if (counted++ == m_vertexCount) {
            ThrowInternalError(UNIT, LINE_SOURCE_CHANGED);
        }
        ++m_cellStarts[static_cast<std::size_t>(WhichCell(vertex)) + 1];
    });
    if (counted != m_vertexCount) {
        ThrowInternalError(UNIT, LINE_SOURCE_CHANGED);
    }
    for (std::size_t cell = 0; cell < cells; ++cell) {
        m_cellStarts[cell + 1] += m_cellStarts[cell];
    }

    std::vector<int> places(m_cellStarts.begin(), m_cellStarts.end() - 1);
    ForEachVertex(*m_source, first, last, [&](int index, const Vec2d& vertex) {
        const std::size_t cell = static_cast<std::size_t>(WhichCell(vertex));
        if (places[cell] == m_cellStarts[cell + 1]) {
            ThrowInternalError(UNIT, LINE_SOURCE_CHANGED);
        }
        m_cellIndices[static_cast<std::size_t>(places[cell]++)] = index;
        --counted;
    });
    if (counted != 0) {
        ThrowInternalError(UNIT, LINE_SOURCE_CHANGED);
    }
}

int SpatialSearchGrid2D::ColumnAt(double x) const {
    return LimitToCells((x - m_originX) * m_scaleX, m_columns);
}

int SpatialSearchGrid2D::RowAt(double y) const {
    return LimitToCells((y - m_originY) * m_scaleY, m_rows);
}

int SpatialSearchGrid2D::WhichCell(const Vec2d& p) const {
    return RowAt(p.y) * m_columns + ColumnAt(p.x);
}

bool SpatialSearchGrid2D::GetVertex(int index, Vec2d& out) const {
    return m_source != nullptr && m_source->GetVertex(index, out);
}

bool SpatialSearchGrid2D::QueryCell(int cx, int cy, const Vec2d& p, int& bestIndex,
                                    double& bestDistanceSquared) const {
    if (cx < 0 || cx >= m_columns || cy < 0 || cy >= m_rows) {
        return false;
    }
    const int before = bestIndex;
    const std::ptrdiff_t row = cy;
    const std::size_t cell = static_cast<std::size_t>(row * m_columns + cx);
    const auto begin = m_cellIndices.begin() + m_cellStarts[cell];
    const auto end = m_cellIndices.begin() + m_cellStarts[cell + 1];
    for (auto index = begin; index != end; ++index) {
        Vec2d vertex;
        if (!GetVertex(*index, vertex)) {
            ThrowInternalError(UNIT, LINE_VERTEX_REFUSED);
        }
        const double distanceSquared = p.DistanceSquared(vertex);
        if (distanceSquared < bestDistanceSquared ||
            (distanceSquared == bestDistanceSquared && *index < bestIndex)) {
            bestDistanceSquared = distanceSquared;
            bestIndex = *index;
        }
    }
    return bestIndex != before;
}

bool SpatialSearchGrid2D::QueryRingOfCells(int cx, int cy, int ring, const Vec2d& p, int& bestIndex,
                                           double& bestDistanceSquared) const {
    // Wider than int, so that no cell number given from outside can overflow.
    using Cell = std::int64_t;
    const Cell left = Cell{cx} - ring;
    const Cell right = Cell{cx} + ring;
    const Cell bottom = Cell{cy} - ring;
    const Cell top = Cell{cy} + ring;
    const int before = bestIndex;
    const auto visit = [&](Cell x, Cell y) {
        if (0 <= x && x < m_columns && 0 <= y && y < m_rows) {
            QueryCell(static_cast<int>(x), static_cast<int>(y), p, bestIndex, bestDistanceSquared);
        }
    };
    for (Cell x = std::max<Cell>(left, 0); x <= std::min<Cell>(right, m_columns - 1); ++x) {
        visit(x, bottom);
        if (top != bottom) {
            visit(x, top);
        }
    }
    for (Cell y = std::max<Cell>(bottom + 1, 0); y <= std::min<Cell>(top - 1, m_rows - 1); ++y) {
        visit(left, y);
        visit(right, y);
    }
    return bestIndex != before;
}

SpatialSearchGrid2D::CellRange SpatialSearchGrid2D::RangeAround(const Vec2d& p,
                                                                double distance) const {
    return {ColumnAt(p.x - distance), ColumnAt(p.x + distance), RowAt(p.y - distance),
            RowAt(p.y + distance)};
}

int SpatialSearchGrid2D::Query(const Vec2d& p) const {
    if (m_vertexCount <= 1) {
        return m_vertexCount - 1;
    }
    const int cx = ColumnAt(p.x);
    const int cy = RowAt(p.y);
    int bestIndex = -1;
    double bestDistanceSquared = std::numeric_limits<double>::max();

    // Search outwards in square rings until one holds a vertex.
    int ring = 0;
    if (!QueryCell(cx, cy, p, bestIndex, bestDistanceSquared)) {
        const int outermost = std::max(m_columns, m_rows);
        do {
            ++ring;
        } while (ring <= outermost &&
                 !QueryRingOfCells(cx, cy, ring, p, bestIndex, bestDistanceSquared));
    }

    // A nearer vertex can still lie in a farther ring, where the circle of the best distance
    // leaves the square searched so far.
    const CellRange range = RangeAround(p, std::sqrt(bestDistanceSquared));
    for (int y = range.bottom; y <= range.top; ++y) {
        for (int x = range.left; x <= range.right; ++x) {
            if (std::abs(x - cx) > ring || std::abs(y - cy) > ring) {
                QueryCell(x, y, p, bestIndex, bestDistanceSquared);
            }
        }
    }
    return bestIndex;
}

} // namespace geom
