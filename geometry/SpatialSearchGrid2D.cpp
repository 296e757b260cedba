// SPDX-License-Identifier: MIT
#include "geometry/SpatialSearchGrid2D.h"

#include "geometry/Errors.h"
#include "geometry/detail/CrowdedCells.h"
#include "geometry/detail/NearestVertex.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>

namespace geom {

namespace {

constexpr const wchar_t* UNIT = L"SpatialSearchGrid2D";
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

// A query under way. Cells are numbered wider than int, so that no number given from outside
// can overflow; those outside the grid have no vertices.
class SpatialSearchGrid2D::Search {
public:
    using Cell = std::int64_t;

    Search(const SpatialSearchGrid2D& grid, const Vec2d& p, const detail::NearestVertex& best)
        : m_grid(grid), m_p(p), m_best(best) {}

    const detail::NearestVertex& Best() const { return m_best; }

    void VisitCell(Cell x, Cell y) {
        if (IsColumn(x) && IsRow(y)) {
            VisitNumber(Number(x, y));
        }
    }

    // The cells left .. right of row y. Leaps over empty ones.
    void VisitRow(Cell y, Cell left, Cell right) {
        if (IsRow(y)) {
            const Cell end = std::min<Cell>(right, m_grid.m_columns - 1);
            for (Cell x = std::max<Cell>(left, 0); x <= end; ++x) {
                x = m_grid.m_nextInRow[Number(x, y)];
                if (x <= end) {
                    VisitCell(x, y);
                }
            }
        }
    }

    // The cells bottom .. top of column x, likewise.
    void VisitColumn(Cell x, Cell bottom, Cell top) {
        if (IsColumn(x)) {
            const Cell end = std::min<Cell>(top, m_grid.m_rows - 1);
            for (Cell y = std::max<Cell>(bottom, 0); y <= end; ++y) {
                y = m_grid.m_nextInColumn[Number(x, y)];
                if (y <= end) {
                    VisitCell(x, y);
                }
            }
        }
    }

    // The cells at the distance `ring` from (x, y), which form a square.
    void VisitRing(Cell x, Cell y, Cell ring) {
        if (ring == 0) {
            VisitCell(x, y);
            return;
        }
        VisitRow(y - ring, x - ring, x + ring);
        VisitRow(y + ring, x - ring, x + ring);
        VisitColumn(x - ring, y - ring + 1, y + ring - 1);
        VisitColumn(x + ring, y - ring + 1, y + ring - 1);
    }

private:
    bool IsColumn(Cell x) const { return 0 <= x && x < m_grid.m_columns; }
    bool IsRow(Cell y) const { return 0 <= y && y < m_grid.m_rows; }

    std::size_t Number(Cell x, Cell y) const {
        return static_cast<std::size_t>(y * m_grid.m_columns + x);
    }

    void VisitNumber(std::size_t cell) {
        const int start = m_grid.m_cellStarts[cell];
        const int* const indices = m_grid.m_cellIndices.data() + start;
        const std::size_t count = static_cast<std::size_t>(m_grid.m_cellStarts[cell + 1] - start);
        if (count <= detail::CrowdedCells::LIMIT) {
            m_best.Compete(*m_grid.m_source, indices, count, m_p);
        } else {
            m_grid.m_crowdedCells->Search(cell, *m_grid.m_source, indices, count, m_p, m_best);
        }
    }

    const SpatialSearchGrid2D& m_grid;
    const Vec2d m_p;
    detail::NearestVertex m_best;
};

// Defined inline because every query asks for six of them.
inline int SpatialSearchGrid2D::ColumnAt(double x) const {
    return LimitToCells((x - m_originX) * m_scaleX, m_columns);
}

inline int SpatialSearchGrid2D::RowAt(double y) const {
    return LimitToCells((y - m_originY) * m_scaleY, m_rows);
}

inline std::size_t SpatialSearchGrid2D::CellOf(const Vec2d& p) const {
    return static_cast<std::size_t>(RowAt(p.y)) * static_cast<std::size_t>(m_columns) +
           static_cast<std::size_t>(ColumnAt(p.x));
}

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
    CountByCell(first, last);
    std::vector<int> places(m_cellStarts.begin(), m_cellStarts.end() - 1);
    detail::CrowdedCells::Builder crowds(m_cellStarts);
    m_cellIndices.resize(static_cast<std::size_t>(m_vertexCount));
    int missing = m_vertexCount;
    ForEachVertex(*m_source, first, last, [&](int index, const Vec2d& vertex) {
        const std::size_t cell = CellOf(vertex);
        if (places[cell] == m_cellStarts[cell + 1]) {
            ThrowInternalError(UNIT, LINE_SOURCE_CHANGED);
        }
        crowds.Add(cell, places[cell], index, vertex);
        m_cellIndices[static_cast<std::size_t>(places[cell]++)] = index;
        --missing;
    });
    if (missing != 0) {
        ThrowInternalError(UNIT, LINE_SOURCE_CHANGED);
    }
    LinkOccupiedCells();
    if (crowds.HasCrowds()) {
        m_crowdedCells =
            std::make_shared<const detail::CrowdedCells>(crowds.Build(m_cellStarts, m_cellIndices));
    }
}

void SpatialSearchGrid2D::CountByCell(int first, int last) {
    const std::size_t cells =
        static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows);
    m_cellStarts.resize(cells + 1, 0);
    int missing = m_vertexCount;
    ForEachVertex(*m_source, first, last, [&](int, const Vec2d& vertex) {
        if (missing-- == 0) {
            ThrowInternalError(UNIT, LINE_SOURCE_CHANGED);
        }
        ++m_cellStarts[CellOf(vertex) + 1];
    });
    if (missing != 0) {
        ThrowInternalError(UNIT, LINE_SOURCE_CHANGED);
    }
    std::partial_sum(m_cellStarts.begin(), m_cellStarts.end(), m_cellStarts.begin());
}

void SpatialSearchGrid2D::LinkOccupiedCells() {
    const std::size_t columns = static_cast<std::size_t>(m_columns);
    const std::size_t rows = static_cast<std::size_t>(m_rows);
    m_nextInRow.resize(rows * columns);
    m_nextInColumn.resize(rows * columns);
    std::vector<int> nextRow(columns, m_rows); // of each column
    for (std::size_t y = rows; y-- > 0;) {
        int nextColumn = m_columns;
        for (std::size_t x = columns; x-- > 0;) {
            const std::size_t cell = y * columns + x;
            if (m_cellStarts[cell] != m_cellStarts[cell + 1]) {
                nextColumn = static_cast<int>(x);
                nextRow[x] = static_cast<int>(y);
            }
            m_nextInRow[cell] = nextColumn;
            m_nextInColumn[cell] = nextRow[x];
        }
    }
}

int SpatialSearchGrid2D::WhichCell(const Vec2d& p) const {
    return RowAt(p.y) * m_columns + ColumnAt(p.x);
}

bool SpatialSearchGrid2D::GetVertex(int index, Vec2d& out) const {
    return m_source != nullptr && m_source->GetVertex(index, out);
}

bool SpatialSearchGrid2D::QueryCell(int cx, int cy, const Vec2d& p, int& bestIndex,
                                    double& bestDistanceSquared) const {
    return QueryRingOfCells(cx, cy, 0, p, bestIndex, bestDistanceSquared);
}

bool SpatialSearchGrid2D::QueryRingOfCells(int cx, int cy, int ring, const Vec2d& p, int& bestIndex,
                                           double& bestDistanceSquared) const {
    Search search(*this, p, {bestIndex, bestDistanceSquared});
    search.VisitRing(cx, cy, ring);
    bestDistanceSquared = search.Best().distanceSquared;
    return std::exchange(bestIndex, search.Best().index) != search.Best().index;
}

int SpatialSearchGrid2D::Query(const Vec2d& p) const {
    if (m_vertexCount <= 1) {
        return m_vertexCount - 1;
    }
    constexpr detail::NearestVertex NONE = {-1, std::numeric_limits<double>::max()};
    const int cx = ColumnAt(p.x);
    const int cy = RowAt(p.y);
    Search search(*this, p, NONE);

    // Search outwards in square rings until one holds a vertex.
    int ring = 0;
    search.VisitCell(cx, cy);
    while (search.Best().index == NONE.index && ring <= m_columns) {
        search.VisitRing(cx, cy, ++ring);
    }

    // A nearer vertex can still lie in a farther ring, where the circle of the best distance
    // leaves the square searched so far.
    const double distance = std::sqrt(search.Best().distanceSquared);
    const int left = ColumnAt(p.x - distance);
    const int right = ColumnAt(p.x + distance);
    const int top = RowAt(p.y + distance);
    for (int y = RowAt(p.y - distance); y <= top; ++y) {
        if (std::abs(y - cy) > ring) {
            search.VisitRow(y, left, right);
        } else {
            search.VisitRow(y, left, std::min(right, cx - ring - 1));
            search.VisitRow(y, std::max(left, cx + ring + 1), right);
        }
    }
    return search.Best().index;
}

} // namespace geom
