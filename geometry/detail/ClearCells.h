// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"
#include "geometry/detail/Buckets.h"
#include "geometry/detail/FramedRing.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace geom::detail {

/// Knows of most segments, without looking at any edge, that no edge is near them, and on which
/// side of the ring they are: a grid over the ring's box, in which the cells that no edge comes
/// near, the clear ones, hold their side.
///
/// Line clipping decides by rounded cross products, and what it computes is not always what the
/// geometry is. The cells answer only where both are the same; ClearCells.cpp states why. Edges
/// nearly parallel to the segment are left to others.
///
/// Immutable once built, and so safe to share between threads. Takes O(n) memory and time, for
/// rings of any shape.
class ClearCells {
public:
    /// A place in a clear cell.
    struct Place {
        double x;
        bool isInside;
    };

    /// Knows nothing.
    ClearCells() = default;
    /// For a ring that is good. Inside is what an odd number of edges separates from `probeX`,
    /// the x at which the probes of line clipping start.
    ClearCells(const FramedRing& ring, double probeX);

    /// Whether it is certain that p is on no edge and that no crossing test accepts an edge for
    /// the segment from p to q, unless one that is nearly parallel to it
    /// (EdgeIndex::MayHaveParallels).
    bool AreClear(const Vec2d& p, const Vec2d& q) const;

    /// Finds a place on the level of p, at p if that is clear or else a little to the left of
    /// it, such that a probe to p records an odd number of edges to the left of the place just
    /// when the place is inside, each by a crossing test that rounding cannot change.
    bool FindBefore(const Vec2d& p, Place& place) const;

private:
    // What a cell holds: whether its inside is the ring's, or that edges are near, and while the
    // cells are made, whether the row's side changes in it an odd number of times.
    static constexpr std::uint8_t INSIDE = 1;
    static constexpr std::uint8_t NEAR_EDGES = 2;
    static constexpr std::uint8_t TURNS = 4;

    void MakeCells(const FramedRing& ring);
    void MarkEdge(const Vec2d& a, const Vec2d& b);
    void MarkRow(const Vec2d& a, const Vec2d& b, std::size_t row);
    void MarkCells(std::size_t row, double lowX, double highX);
    void FillRows();
    bool IsOnGrid(double lowX, double lowY, double highX, double highY) const;
    std::size_t ColumnOf(double x) const { return CellOf(x, m_columns); }
    std::size_t RowOf(double y) const { return CellOf(y, m_rows); }
    std::size_t CellOf(double place, std::size_t count) const;

    RingFrame m_frame;
    double m_side = 0.0; ///< of a cell; everything is measured in the frame
    double m_perUnit = 0.0;
    std::size_t m_columns = 0;
    std::size_t m_rows = 0;
    std::vector<std::uint8_t> m_cells; ///< row by row
    Buckets m_levels;                  ///< the y of vertices
    SharedBuckets m_preciseLevels;     ///< the same, asked where the above is too coarse
};

} // namespace geom::detail
