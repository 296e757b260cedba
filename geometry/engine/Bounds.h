// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Cuts the contours into bounds, the chains that rise from a local minimum to a local maximum,
/// and lists the minima in the order in which the sweep meets them.

#include "geometry/engine/Memory.h"
#include "geometry/engine/Pruning.h"
#include "geometry/engine/Records.h"
#include "geometry/engine/Scanbeams.h"

namespace geom::detail {

/// Where a bound starts; two bounds start at every local minimum.
struct LocalMinimum {
    double y;
    double x;
    double dx; ///< of the bound's first edge
    Edge* bound;
    std::uint32_t order; ///< of creation
};

/// The local-minimum table: by ascending y, then x, then dx, then order of creation.
class LocalMinima {
public:
    LocalMinima() : m_minima("LMT insertion") {}

    void Append(Edge* bound) {
        const auto order = static_cast<std::uint32_t>(m_minima.Count());
        m_minima.Append({bound->bot.y, bound->bot.x, bound->dx, bound, order});
    }
    void Sort();

    bool IsEmpty() const { return m_minima.IsEmpty(); }
    const LocalMinimum* begin() const { return m_minima.begin(); }
    const LocalMinimum* end() const { return m_minima.end(); }

private:
    Block<LocalMinimum> m_minima;
};

/// The edges of one operand, cut into bounds.
///
///          max
///          / \              forward bound: along the contour's own direction
///         /   \             reverse bound: against it
///        /     \ .
///     forward  reverse       horizontal edges belong to no bound; the middle points of
///        \     /             horizontal runs are dropped beforehand
///         \___/
///          min
class Bounds {
public:
    Bounds() : m_edges("edge table creation"), m_kept("edge table creation") {}

    /// Adds the bounds of every contour that is not marked to the minima, and the ordinate of
    /// every vertex that is kept to the scanbeams. Throws for a coordinate that is not finite.
    void Build(const Operand& operand, const ContourMarks& marks, LocalMinima& minima,
               Scanbeams& scanbeams);

private:
    void KeepVertices(const gpc_vertex* vertices, std::uint32_t count, Scanbeams& scanbeams);
    void CutContour(Role role, LocalMinima& minima);
    Edge* MakeBound(std::uint64_t minimum, std::uint64_t step, Role role);

    Block<Edge> m_edges;
    Block<gpc_vertex> m_kept; ///< the kept vertices of the contour in hand
};

} // namespace geom::detail
