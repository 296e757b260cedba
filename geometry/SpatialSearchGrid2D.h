// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

#include <memory>
#include <vector>

namespace geom {

namespace detail {
class CrowdedCells;
}

/// Finds the nearest of many points in the plane.
///
/// The points stay with the caller, who hands them out one by one through IVertexSource; the
/// grid keeps their indices only, sorted into equal cells of about 20 vertices each on evenly
/// spread data, and trees of boxes over those of crowded cells. It co-owns the source. A copy of
/// a grid shares the source.
///
/// Takes about 5 bytes for each vertex, and 5 more for one in a cell of more than 64; while it is
/// built, 24 more for each of these.
///
/// After Initialize the grid does not change: any number of threads may query it at once as
/// long as the source's GetVertex allows that.
class GEOM_API SpatialSearchGrid2D {
public:
    /// The caller's points by index.
    class GEOM_API IVertexSource {
    public:
        IVertexSource() = default;
        IVertexSource(const IVertexSource&) = default;
        IVertexSource& operator=(const IVertexSource&) = default;
        virtual ~IVertexSource();
        /// Writes a vertex and returns true, or returns false for an index that has no usable
        /// vertex; the grid leaves such indices out. The answers must not change while a grid
        /// uses the source.
        virtual bool GetVertex(int index, Vec2d& out) const = 0;
    };

    /// A grid without vertices.
    SpatialSearchGrid2D();

    /// Indexes the vertices `first` to `last` - 1 of the source, in place of what the grid held
    /// before. With first >= last the grid is empty, and the source may be null.
    ///
    /// Asks the source three times for each index; time and memory grow with the number n of
    /// vertices, time with n log n where they crowd. Vertices with coordinates that are not
    /// finite are never nearest to anything.
    ///
    /// An internal error of file "SpatialSearchGrid2D" is thrown for a null source (line 223),
    /// for more vertices than an int counts (line 224), and for a source whose answers change
    /// meanwhile (line 225). After any exception, the source's own included, the grid is empty.
    void Initialize(int first, int last, const std::shared_ptr<IVertexSource>& source);

    /// The index of the vertex nearest to `p`, the smallest index among equally near ones; -1
    /// when there is none, when `p` is not a number, and when every squared distance overflows.
    ///
    /// Distances are compared by their squares as computed in double precision. From so far
    /// away (some 10^13 times the size of a cell) that rounding makes distances equal or nearly
    /// so, any of those vertices may be the answer. A grid of one vertex answers 0 to every
    /// query, whatever that vertex's index is.
    ///
    /// A query looks at the few cells that the circle around `p` through the answer comes to, and
    /// leaps over empty ones. It asks the source for every vertex of a cell, but of more than 64
    /// only for those that may be the nearest.
    ///
    /// Throws an internal error of file "SpatialSearchGrid2D", line 222, when the source
    /// refuses a vertex that it gave to Initialize and that the query asks for.
    int Query(const Vec2d& p) const;

    /// The abscissas of the column borders, from the leftmost vertex to the rightmost: one more
    /// than there are columns; none when the grid is empty. When all vertices have one
    /// abscissa, the one column is 1 wide.
    const std::vector<double>& ColumnEdges() const { return m_columnEdges; }
    /// The ordinates of the row borders, likewise.
    const std::vector<double>& RowEdges() const { return m_rowEdges; }

protected:
    /// The number, row * columns + column, of the cell of a point. Points outside the vertices'
    /// box belong to the nearest border cell.
    int WhichCell(const Vec2d& p) const;

    /// Lets the vertices of one cell compete for the nearest to `p`. A cell outside the grid
    /// has none. Returns whether `bestIndex` changed.
    bool QueryCell(int cx, int cy, const Vec2d& p, int& bestIndex,
                   double& bestDistanceSquared) const;

    /// The same for the cells at the given distance from (cx, cy), which form a square ring.
    bool QueryRingOfCells(int cx, int cy, int ring, const Vec2d& p, int& bestIndex,
                          double& bestDistanceSquared) const;

    /// Asks the source; false when there is none.
    bool GetVertex(int index, Vec2d& out) const;

private:
    class Search;

    void MeasureVertices(int first, int last);
    void LayOutCells(const Box2d& box);
    void SortIntoCells(int first, int last);
    void CountByCell(int first, int last);
    void LinkOccupiedCells();
    int ColumnAt(double x) const;
    int RowAt(double y) const;
    std::size_t CellOf(const Vec2d& p) const;

    std::shared_ptr<IVertexSource> m_source;
    int m_vertexCount;
    int m_columns, m_rows; // always equal
    double m_originX, m_originY;
    double m_scaleX, m_scaleY;      // cells per unit of length
    std::vector<int> m_cellIndices; // grouped by cell; rising within each, crowded ones excepted
    std::vector<int> m_cellStarts;  // where each cell's group begins, and the end
    std::vector<double> m_columnEdges;
    std::vector<double> m_rowEdges;
    std::vector<int> m_nextInRow;    // the first column from a cell on with vertices in its row
    std::vector<int> m_nextInColumn; // the first row likewise
    std::shared_ptr<const detail::CrowdedCells> m_crowdedCells; // null when no cell is
};

} // namespace geom
