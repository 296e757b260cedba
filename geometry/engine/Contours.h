// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The result of a sweep as contours.

#include "geometry/engine/Classification.h"
#include "geometry/engine/Memory.h"
#include "geometry/engine/Records.h"
#include "geometry/engine/VertexStore.h"

namespace geom::detail {

/// Vertex chains that grow at both ends and join, until they close into contours.
///
/// Every chain is begun at a local minimum of the result. Where two chains meet at a local
/// maximum one takes over the other's vertices, and its number goes on standing for both: the
/// chains form a forest of parents (Tarjan, "Efficiency of a good but not linear set union
/// algorithm", Journal of the ACM 22 (1975)), so that edges which still name the other find it
/// without every chain being renamed.
class ChainForest {
public:
    ChainForest() : m_chains("polygon node creation"), m_vertices("vertex node creation") {}

    /// Begins a chain of one vertex.
    OutputIndex Begin(const gpc_vertex& point);
    /// Adds a vertex at the left end. Throws GPCException for NO_OUTPUT, as do all that follow.
    void AddLeft(OutputIndex chain, const gpc_vertex& point);
    /// Adds a vertex at the right end.
    void AddRight(OutputIndex chain, const gpc_vertex& point);
    /// Closes a hole: `into` takes over the vertices of `from` in front of its own.
    void MergeLeft(OutputIndex from, OutputIndex into);
    /// Closes an external contour: `into` takes over the vertices of `from` behind its own.
    void MergeRight(OutputIndex from, OutputIndex into);

    /// Makes a record of all contours of three or more vertices, the newest first. The record
    /// owns its arrays.
    gpc_polygon TakeResult() const;

private:
    using VertexIndex = VertexStore::Index;

    struct Chain {
        VertexIndex left, right; ///< the ends; walked from left to right
        std::uint32_t count;     ///< of vertices
        OutputIndex parent;      ///< itself for a chain that was not taken over
        bool hole;
    };

    OutputIndex FindRoot(OutputIndex chain);
    bool IsContour(OutputIndex chain) const;
    void CopyVertices(const Chain& chain, gpc_vertex_list& contour) const;

    Block<Chain> m_chains;
    VertexStore m_vertices;
};

/// What each class of event does when contours are wanted.
class ContourOutput {
public:
    /// The boundary walk need not know the boundaries of the interval in which a run of events
    /// begins.
    static constexpr bool NEEDS_INTERVALS = false;

    /// Before each run of events on a scanline; nothing is carried across.
    void BeginRun();
    /// An event on the scanline.
    void AtBoundary(VertexClass vertexClass, Slot& slot, const gpc_vertex& point);
    /// A crossing of two edges that both carry an operand.
    void AtCrossing(VertexClass vertexClass, Slot& left, Slot& right, const gpc_vertex& point);
    gpc_polygon TakeResult() const { return m_chains.TakeResult(); }

private:
    void AddCarriedLeft(const gpc_vertex& point);
    void AddCarriedRight(const gpc_vertex& point);
    void BeginAt(Slot& slot, const gpc_vertex& point);

    ChainForest m_chains;
    OutputIndex m_carried = NO_OUTPUT; ///< the chain carried along a horizontal boundary
    double m_previousX = 0.0;          ///< of the last output in this run
};

} // namespace geom::detail
