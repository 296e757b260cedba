// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"
#include "geometry/detail/EdgeTree.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace geom::detail {

/// An edge by its ends.
struct Edge {
    Vec2d start;
    Vec2d end;
};

/// A bit for each of a node's children for which `holds(child)`; simple conditions without
/// jumps become a few vector instructions.
template <typename Holds>
std::uint32_t BitsOf(const Holds& holds) {
    constexpr std::uint32_t BITS[] = {0x1,   0x2,   0x4,   0x8,   0x10,   0x20,   0x40,   0x80,
                                      0x100, 0x200, 0x400, 0x800, 0x1000, 0x2000, 0x4000, 0x8000};
    std::uint32_t bits = 0;
    for (std::size_t k = 0; k < 16; ++k) {
        bits |= holds(k) ? BITS[k] : 0U;
    }
    return bits;
}

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
    /// The edges in ring order; fewer than 2^31.
    explicit EdgeIndex(const std::vector<Edge>& edges);

    /// Whether the index can be asked at all. Not, when the edges' coordinates are not finite or
    /// of extreme size.
    bool IsBuilt() const { return m_edgeCount != 0; }
    /// Whether FindNear may be asked about the segment from p to q.
    bool IsGoodFor(const Vec2d& p, const Vec2d& q) const;

    /// Finds all edges that the crossing tests could accept for the segment from p to q, each
    /// once, in ring order.
    ///
    /// \return false, and nothing of use, when there are so many that looking at every edge is
    /// no slower.
    bool FindNear(const Vec2d& p, const Vec2d& q, Found& found) const;

    /// Whether `test(edge number)` holds for some edge on which a point may lie, as far as the
    /// product test of a point within the edge's box tells. Good for any point.
    template <typename Test>
    bool AnyAt(const Vec2d& p, const Test& test) const {
        // Also turns away points with coordinates that are not numbers.
        if (!(m_box.minX <= p.x && p.x <= m_box.maxX && m_box.minY <= p.y && p.y <= m_box.maxY)) {
            return false;
        }
        const Reach reach = ReachOf(p, p);
        return !m_places.Walk([&reach](const auto& node) { return reach.Hits(node); },
                              [&test](std::uint32_t edge) { return !test(edge); });
    }

private:
    using Places = EdgeTree<2>;
    using Directions = EdgeTree<3>;

    /// The box of a segment or a point, relative to the ring, widened by `near` to where the
    /// edges that it may meet can lie.
    struct Reach {
        float lowX, lowY, highX, highY;
        double near;

        /// A bit for each child whose box meets this one.
        template <typename Node>
        std::uint32_t Hits(const Node& node) const {
            return BitsOf([this, &node](std::size_t k) {
                return (node.low[0][k] <= highX) & (node.high[0][k] >= lowX) &
                       (node.low[1][k] <= highY) & (node.high[1][k] >= lowY);
            });
        }
    };

    struct Query;
    struct Parallels;

    void AddPlaces(const std::vector<Edge>& edges);
    void AddDirections(const std::vector<Edge>& edges);
    Vec2d ToRing(const Vec2d& p) const;
    Reach ReachOf(const Vec2d& p, const Vec2d& q) const;

    std::size_t m_edgeCount = 0;
    Box2d m_box;
    double m_scale = 1.0;   ///< brings the ring's larger extent to between 1 and 2
    Vec2d m_size{0.0, 0.0}; ///< of the ring's box, scaled
    Places m_places;
    Directions m_directions; ///< two axes for the place and one for the direction
};

} // namespace geom::detail
