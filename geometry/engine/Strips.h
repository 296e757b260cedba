// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The result of a sweep as triangle strips.

#include "geometry/engine/Classification.h"
#include "geometry/engine/Memory.h"
#include "geometry/engine/Records.h"
#include "geometry/engine/VertexStore.h"

namespace geom::detail {

/// Strips under construction: each has a left and a right chain of vertices, and its triangles
/// zigzag between them.
class StripList {
public:
    StripList() : m_strips("tristrip node creation"), m_vertices("tristrip vertex creation") {}

    /// Begins a strip with one vertex in its left chain.
    OutputIndex Begin(const gpc_vertex& point);
    /// Adds a vertex at the end of a chain. Throws GPCException for NO_OUTPUT.
    void Add(OutputIndex strip, End chain, const gpc_vertex& point);

    /// Makes a record of all strips of three or more vertices, in order of creation. Vertices
    /// alternate between left and right chain; the surplus of the longer one comes last. The
    /// record owns its arrays.
    gpc_tristrip TakeResult() const;

private:
    using VertexIndex = VertexStore::Index;

    struct Chain {
        VertexIndex first, last;
    };

    struct Strip {
        Chain chain[2]; ///< [End]
        std::uint32_t count;
    };

    void CopyVertices(const Strip& strip, gpc_vertex* out) const;

    Block<Strip> m_strips;
    VertexStore m_vertices;
};

/// What each class of event does when strips are wanted.
///
/// The boundary walk carries the edge whose strip is open at the current x, and remembers
/// which kind of left boundary it met last: whether the strip to the left is bounded by an edge
/// that passes through the scanline decides how a strip is split there.
class StripOutput {
public:
    /// The two boundaries of an interval share a strip, so an event inside it involves both.
    static constexpr bool NEEDS_INTERVALS = true;

    /// Before each run of events on a scanline; nothing is carried across.
    void BeginRun();
    /// The run begins inside the result: this edge is the left boundary there.
    void CarryFrom(Slot& boundary, double x);
    /// An event on the scanline, or the right boundary of the interval in which a run ends.
    void AtBoundary(VertexClass vertexClass, Slot& slot, const gpc_vertex& point);
    /// A crossing of two edges that both carry an operand.
    void AtCrossing(VertexClass vertexClass, Slot& left, Slot& right, const gpc_vertex& point);

    gpc_tristrip TakeResult() const { return m_strips.TakeResult(); }

private:
    enum class LastLeft : std::uint8_t { None, LeftEdge, InternalLeft, InternalMaximum };

    void Carry(Slot& slot, double x);
    Slot& Carried() const;
    void Begin(Slot& slot, const gpc_vertex& point);
    void Add(const Slot& slot, Level level, End chain, const gpc_vertex& point);
    void AddUnlessAtCarried(const Slot& slot, Level level, const gpc_vertex& point);
    void SplitAtCarriedLeftEdge(double yb);
    void AtRightEdge(Slot& slot, const gpc_vertex& point);
    Slot& AddToPrevious(const Slot& left, double y);
    Slot& SplitPrevious(const Slot& left, double y);
    Slot& AddToNext(const Slot& right, double y);
    void OpenHole(Slot& left, Slot& right, const gpc_vertex& point);
    void CloseHole(Slot& left, Slot& right, double y);

    StripList m_strips;
    Slot* m_carried = nullptr;
    double m_carriedX = 0.0; ///< its x on the scanline
    LastLeft m_lastLeft = LastLeft::None;
};

} // namespace geom::detail
