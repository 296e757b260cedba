// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The result of a sweep as triangle strips.

#include "geometry/engine/Classification.h"
#include "geometry/engine/Memory.h"
#include "geometry/engine/Records.h"

namespace geom::detail {

/// Strips under construction: each has a left and a right chain of vertices, and its triangles
/// zigzag between them.
class StripList {
public:
    StripList() : m_strips("tristrip node creation"), m_vertices("tristrip vertex creation") {}

    /// Begins a strip with one vertex in its left chain.
    OutputIndex Begin(const gpc_vertex& point);
    /// Adds a vertex at the end of a chain. Throws GPCException for NO_OUTPUT.
    void Add(OutputIndex strip, Parity chain, const gpc_vertex& point);

    /// Makes a record of all strips of three or more vertices, in order of creation. Vertices
    /// alternate between left and right chain; the surplus of the longer one comes last. The
    /// record owns its arrays.
    gpc_tristrip TakeResult() const;

private:
    using VertexIndex = std::uint32_t;

    struct Vertex {
        gpc_vertex point;
        VertexIndex next;
    };

    struct Chain {
        VertexIndex first, last;
    };

    struct Strip {
        Chain chain[2]; ///< [Parity]
        std::uint32_t count;
    };

    void CopyVertices(const Strip& strip, gpc_vertex* out) const;

    Block<Strip> m_strips;
    Block<Vertex> m_vertices;
};

/// What each class of event does when strips are wanted.
///
/// The boundary walk carries the edge whose strip is open at the current x, and remembers
/// which kind of left boundary it met last: whether the strip to the left is bounded by an edge
/// that passes through the scanline decides how a strip is split there.
class StripOutput {
public:
    void BeginRow();
    void AtBoundary(VertexClass vertexClass, Edge& edge, double yb);
    void AtCrossing(VertexClass vertexClass, Edge& left, Edge& right, const gpc_vertex& point);
    gpc_tristrip TakeResult() const { return m_strips.TakeResult(); }

private:
    enum class LastLeft : std::uint8_t { None, LeftEdge, InternalLeft, InternalMaximum };

    Edge& Carried() const;
    void Begin(Edge& edge, const gpc_vertex& point);
    void Add(const Edge& edge, Level level, Parity chain, const gpc_vertex& point);
    void AddUnlessAtCarried(const Edge& edge, Level level, const gpc_vertex& point);
    void SplitAtCarriedLeftEdge(double yb);
    void AtRightEdge(Edge& edge, const gpc_vertex& point);
    Edge& AddToPrevious(const Edge& left, double y);
    Edge& SplitPrevious(const Edge& left, double y);
    Edge& AddToNext(const Edge& right, double y);
    void OpenHole(Edge& left, Edge& right, const gpc_vertex& point);
    void CloseHole(Edge& left, Edge& right, double y);

    StripList m_strips;
    Edge* m_carried = nullptr;
    LastLeft m_lastLeft = LastLeft::None;
};

} // namespace geom::detail
