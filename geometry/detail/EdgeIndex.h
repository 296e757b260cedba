// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"
#include "geometry/detail/EdgeTree.h"
#include "geometry/detail/FramedRing.h"
#include "geometry/detail/Parallels.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace geom::detail {

/// Finds the edges of a ring that a segment may cross or overlap, and those that a point may
/// lie on.
///
/// Immutable once built, and so safe to share between threads. Takes O(n) memory and
/// O(n log n) time to build; a query takes about log n steps plus the edges found, for the
/// shapes that people draw.
///
/// The tests of line clipping are made of rounded cross products, and a rounded test can accept
/// an edge that lies nowhere near the segment. Their answers are what counts, so the index must
/// offer such edges, too. EdgeIndex.cpp states why it does.
class EdgeIndex {
public:
    /// The numbers of edges, in the order of the ring.
    using Found = CPodVector<std::uint32_t, 128>;

    /// Without edges; good for no segment.
    EdgeIndex() = default;
    /// Of fewer than 2^31 edges. The index goes on reading the ring as it was given, not the
    /// one in the frame.
    explicit EdgeIndex(const FramedRing& ring);

    /// Whether the index can be asked at all. Not, when the edges' coordinates are not finite or
    /// of extreme size.
    bool IsBuilt() const { return m_edgeCount != 0; }
    /// Whether FindNear may be asked about the segment from p to q.
    bool IsGoodFor(const Vec2d& p, const Vec2d& q) const;

    /// Finds all edges that the crossing tests could accept for the segment from p to q, and
    /// all that p or q may lie on, each once, in ring order.
    ///
    /// \return false, and nothing of use, when there are so many that looking at every edge is
    /// no slower.
    bool FindNear(const Vec2d& p, const Vec2d& q, Found& found) const;

    /// Whether `test(edge number)` holds for some edge on which a point may lie, as far as the
    /// product test of a point within the edge's box tells. Good for any point.
    template <typename Test>
    bool AnyAt(const Vec2d& p, const Test& test) const {
        const Box2d& box = m_frame.Box();
        // Also turns away points with coordinates that are not numbers.
        if (!(box.minX <= p.x && p.x <= box.maxX && box.minY <= p.y && p.y <= box.maxY)) {
            return false;
        }
        return !m_places.Walk(ReachOf(p, p), [this, &test](std::uint32_t run) {
            for (std::uint32_t edge = m_runs[run]; edge < m_runs[run + 1]; ++edge) {
                if (test(edge)) {
                    return false;
                }
            }
            return true;
        });
    }

    /// Whether some edge may be so nearly parallel to the segment from p to q, and so near its
    /// line, that the tests could accept it far from the segment. For a segment that IsGoodFor
    /// accepts and that has a length.
    bool MayHaveParallels(const Vec2d& p, const Vec2d& q) const {
        const Vec2d d = q - p;
        return d.x != 0.0 && d.y != 0.0 && m_parallels.MayHave(d) && HasParallels(p, q);
    }

private:
    /// The box of a segment or a point, relative to the ring, widened by `near` to where the
    /// edges that it may meet can lie.
    struct Reach {
        std::uint32_t operator()(const EdgeTree::Node& node) const;

        float lowX, lowY, highX, highY;
        double near;
    };

    struct Strip;
    struct Query;
    struct Gate;

    void AddRuns(const FramedRing& ring);
    static void AddPieces(const Vec2d& a, const Vec2d& b, double pieceSide, std::uint32_t run,
                          std::vector<EdgeTree::Entry>& entries);
    Reach ReachOf(const Vec2d& p, const Vec2d& q) const;
    bool HasParallels(const Vec2d& p, const Vec2d& q) const;
    template <typename Visit>
    bool VisitParallels(const Query& query, const Visit& visit) const;

    std::size_t m_edgeCount = 0;
    const Vec2d* m_ring = nullptr;
    RingFrame m_frame;
    std::vector<std::uint32_t> m_runs; ///< the first edge of each run, and the end of the last
    EdgeTree m_places;                 ///< of the runs
    Parallels m_parallels;
};

} // namespace geom::detail
