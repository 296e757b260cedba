// SPDX-License-Identifier: MIT
#include "geometry/detail/ClearCells.h"

#include <algorithm>
#include <cmath>

/// \file
/// Why the computed answers are the true ones
/// ------------------------------------------
/// Take the notation of EdgeIndex.cpp: P and d of the segment, A and e of an edge, a = A - P,
/// den = d x e, s = a x d, t = a x e, u = 2^-53, |v| = |v.x| + |v.y|. Everything is measured in
/// the ring's frame, where its extent is 1 to 2. A segment that is answered lies in clear cells,
/// that is, in the ring's box, and no point of an edge is within 2^-20 of it in both x and y.
///
/// No edge is accepted but nearly parallel ones, those with |den| < 2^-25 |d| |e|: as
/// EdgeIndex.cpp shows, others come within 6 u 2^25 |a| of the segment, or within a few u, and
/// |a| is at most 5 here, so that this is less than 2^-22.
///
/// P is on no edge: a point that the test takes to be on one is within 4 u |e| of it.
///
/// The probe to P counts the edges that cross the horizontal to the left of it. Let W be the way
/// from where probes start to the right end of the ring. d.y is 0, so that with rounded values
///
///     den = d.x e.y,   s = -(a.y d.x),   t = a.x e.y - a.y e.x.
///
/// - No vertex has a y that differs from that of P by less than 2^-44. |a.y| and |e.y| are off
///   by a factor of 1 +- u and their products with d.x by another, so s lies strictly between 0
///   and den as computed when the ends of the edge lie above and below P, and strictly outside
///   otherwise. Horizontal edges have den == 0 and s != 0.
/// - For an edge that does cross the horizontal, at x, t / e.y is x - (start of the probe) up to
///   8 u W, and den / e.y is the probe's length up to 3 u W. So t lies strictly between 0 and
///   den when x is left of P, and strictly outside otherwise, if both ends of the probe are
///   further from x than 2^-49 W. At P that follows from 2^-20 when W is at most 2^20 times the
///   ring's extent, and at the start from the gap between it and the ring (IsGoodProbe).
///
/// So the count is that of the edges that truly cross, and odd where an odd number of edges
/// separates P from the outside. This is the same all over connected clear cells, and it is what
/// FillRows counts along the middle line of each row: there, an end of an edge is below or above
/// by one comparison of rounded but consistent values, and the place of a crossing is off by
/// less than the margin by which cells near edges are marked.

namespace geom::detail {

namespace {

constexpr double MARGIN = 0x1p-20;
constexpr double LEVEL_MARGIN = 0x1p-44;

constexpr double CELLS_PER_EDGE = 4.0;
constexpr double MARKS_PER_EDGE = 8.0;
constexpr double MOST_CELLS_ACROSS = 4096.0;
constexpr std::size_t BUCKETS_PER_EDGE = 16;
constexpr double LEVEL_WIDTH = 0x1p-40;
constexpr std::size_t MOST_CELLS_LOOKED_AT = 64;

// The ring lies between 0 and this, and the buckets reach a little further.
constexpr double LARGEST_EXTENT = 2.0;
constexpr double BEYOND = 0x1p-10;

bool IsGoodProbe(const Box2d& box, double probeX) {
    const double gap = box.minX - probeX;
    const double width = box.maxX - probeX;
    const double extent = std::max(box.maxX - box.minX, box.maxY - box.minY);
    return gap >= 0x1p-40 * width && width <= 0x1p20 * extent &&
           std::fabs(box.minX) <= 0x1p20 * extent;
}

} // namespace

ClearCells::ClearCells(const FramedRing& ring, double probeX) {
    if (!IsGoodProbe(ring.frame.Box(), probeX)) {
        return;
    }
    m_frame = ring.frame;
    const std::vector<Vec2d>& points = ring.points;
    m_levels = Buckets(-BEYOND, LARGEST_EXTENT + BEYOND, ring.count * BUCKETS_PER_EDGE);
    m_preciseLevels = SharedBuckets(LEVEL_WIDTH, ring.count * BUCKETS_PER_EDGE);
    MakeCells(ring);
    for (std::size_t i = 0; i < ring.count; ++i) {
        MarkEdge(points[i], points[i + 1]);
        const double y = points[i].y;
        m_levels.Add(y - LEVEL_MARGIN, y + LEVEL_MARGIN);
        m_preciseLevels.Add(y - LEVEL_MARGIN, y + LEVEL_MARGIN);
    }
    FillRows();
}

// The side is chosen for a number of cells, and of marks that edges leave, that grow as the
// number of edges does.
void ClearCells::MakeCells(const FramedRing& ring) {
    double length = 0.0;
    for (std::size_t i = 0; i < ring.count; ++i) {
        length += std::fabs(ring.points[i + 1].x - ring.points[i].x);
        length += std::fabs(ring.points[i + 1].y - ring.points[i].y);
    }
    const double count = static_cast<double>(ring.count);
    const Vec2d& size = m_frame.Size();
    m_side =
        std::max({std::sqrt(size.x * size.y / (CELLS_PER_EDGE * count)),
                  length / (MARKS_PER_EDGE * count), std::max(size.x, size.y) / MOST_CELLS_ACROSS});
    m_perUnit = 1.0 / m_side;
    m_columns = static_cast<std::size_t>(size.x * m_perUnit) + 1;
    m_rows = static_cast<std::size_t>(size.y * m_perUnit) + 1;
    m_cells.assign(m_columns * m_rows, 0);
}

// The cell that a place is in, or the nearest one.
std::size_t ClearCells::CellOf(double place, std::size_t count) const {
    const double cell = std::max(place * m_perUnit, 0.0);
    return std::min(static_cast<std::size_t>(cell), count - 1);
}

void ClearCells::MarkCells(std::size_t row, double lowX, double highX) {
    std::uint8_t* const cells = &m_cells[row * m_columns];
    const std::size_t last = ColumnOf(highX + MARGIN);
    for (std::size_t column = ColumnOf(lowX - MARGIN); column <= last; ++column) {
        cells[column] |= NEAR_EDGES;
    }
}

// The part of an edge in one row, and whether it crosses the row's middle line. Twice the margin
// makes up for the rounding of fractions, however flat the edge is.
void ClearCells::MarkRow(const Vec2d& a, const Vec2d& b, std::size_t row) {
    const auto placeAt = [&a, &b](double y) {
        return a.x + (b.x - a.x) * std::min(std::max((y - a.y) / (b.y - a.y), 0.0), 1.0);
    };
    const double low = static_cast<double>(row) * m_side;
    if (a.y == b.y) {
        MarkCells(row, std::min(a.x, b.x), std::max(a.x, b.x));
        return;
    }
    const double from = placeAt(low - 2.0 * MARGIN);
    const double to = placeAt(low + m_side + 2.0 * MARGIN);
    MarkCells(row, std::min(from, to), std::max(from, to));
    const double middle = low + 0.5 * m_side;
    if ((a.y <= middle) != (b.y <= middle)) {
        m_cells[row * m_columns + ColumnOf(placeAt(middle))] ^= TURNS;
    }
}

void ClearCells::MarkEdge(const Vec2d& a, const Vec2d& b) {
    const std::size_t first = RowOf(std::min(a.y, b.y) - MARGIN);
    const std::size_t last = RowOf(std::max(a.y, b.y) + MARGIN);
    for (std::size_t row = first; row <= last; ++row) {
        MarkRow(a, b, row);
    }
}

void ClearCells::FillRows() {
    for (std::size_t row = 0; row < m_rows; ++row) {
        std::uint8_t side = 0;
        std::uint8_t* const cells = &m_cells[row * m_columns];
        for (std::size_t column = 0; column < m_columns; ++column) {
            const std::uint8_t cell = cells[column];
            const std::uint8_t near = cell & NEAR_EDGES;
            cells[column] = near != 0 ? near : side;
            side ^= cell / TURNS;
        }
    }
}

// Also turns away coordinates that are not numbers.
bool ClearCells::IsOnGrid(double lowX, double lowY, double highX, double highY) const {
    return lowX >= 0.0 && lowY >= 0.0 && highX < static_cast<double>(m_columns) &&
           highY < static_cast<double>(m_rows);
}

bool ClearCells::AreClear(const Vec2d& p, const Vec2d& q) const {
    const Vec2d a = m_frame.ToRing(p) * m_perUnit;
    const Vec2d b = m_frame.ToRing(q) * m_perUnit;
    const double lowX = std::min(a.x, b.x);
    const double lowY = std::min(a.y, b.y);
    const double highX = std::max(a.x, b.x);
    const double highY = std::max(a.y, b.y);
    if (!IsOnGrid(lowX, lowY, highX, highY) || !IsGoodExtent(q.x - p.x) ||
        !IsGoodExtent(q.y - p.y) || p == q) {
        return false;
    }
    const std::size_t firstColumn = static_cast<std::size_t>(lowX);
    const std::size_t firstRow = static_cast<std::size_t>(lowY);
    const std::size_t columns = static_cast<std::size_t>(highX) - firstColumn + 1;
    const std::size_t rows = static_cast<std::size_t>(highY) - firstRow + 1;
    if (columns * rows > MOST_CELLS_LOOKED_AT) {
        return false;
    }
    const std::uint8_t* cells = &m_cells[firstRow * m_columns + firstColumn];
    for (std::size_t row = 0; row < rows; ++row, cells += m_columns) {
        for (std::size_t column = 0; column < columns; ++column) {
            if (cells[column] == NEAR_EDGES) {
                return false;
            }
        }
    }
    return true;
}

bool ClearCells::FindBefore(const Vec2d& p, Place& place) const {
    const Vec2d a = m_frame.ToRing(p);
    const Vec2d at = a * m_perUnit;
    if (!IsOnGrid(at.x, at.y, at.x, at.y) || (m_levels.Holds(a.y) && m_preciseLevels.Holds(a.y))) {
        return false;
    }
    const std::size_t column = static_cast<std::size_t>(at.x);
    const std::uint8_t* const cells = &m_cells[static_cast<std::size_t>(at.y) * m_columns];
    const std::size_t least = column - std::min(column, MOST_CELLS_LOOKED_AT);
    std::size_t clear = column;
    while (cells[clear] == NEAR_EDGES) {
        if (clear == least) {
            return false;
        }
        --clear;
    }
    const double middle = (static_cast<double>(clear) + 0.5) * m_side;
    place.x = clear == column ? p.x : m_frame.Box().minX + middle / m_frame.Scale();
    place.isInside = cells[clear] == INSIDE;
    return true;
}

} // namespace geom::detail
