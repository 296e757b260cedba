// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"
#include "geometry/detail/EdgeTree.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace geom::detail {

/// An edge by its ends.
struct Edge {
    Vec2d start;
    Vec2d end;
};

/// A box that is asked what it holds.
struct PlaceBounds {
    Box2d box;

    void Add(const PlaceBounds& o) {
        box = {std::min(box.minX, o.box.minX), std::min(box.minY, o.box.minY),
               std::max(box.maxX, o.box.maxX), std::max(box.maxY, o.box.maxY)};
    }
    /// Not for points with a coordinate that is not a number: they lie nowhere.
    bool Holds(const Vec2d& p) const {
        return box.minX <= p.x && p.x <= box.maxX && box.minY <= p.y && p.y <= box.maxY;
    }
    int SplitAxis() const { return box.maxX - box.minX >= box.maxY - box.minY ? 0 : 1; }
    double Centre(int axis) const {
        return axis == 0 ? 0.5 * (box.minX + box.maxX) : 0.5 * (box.minY + box.maxY);
    }
    static PlaceBounds At(const PlaceBounds& o) {
        const double x = o.Centre(0);
        const double y = o.Centre(1);
        return {{x, y, x, y}};
    }
};

/// A box with the directions of the edges in it (DirectionOf), which are told apart before
/// their places are.
struct DirectionBounds {
    static constexpr int DIRECTION_AXIS = 2;
    static constexpr double SAME_DIRECTION = 0x1p-16;

    PlaceBounds place;
    double minDirection = 2.0;
    double maxDirection = -2.0;

    void Add(const DirectionBounds& o) {
        place.Add(o.place);
        minDirection = std::min(minDirection, o.minDirection);
        maxDirection = std::max(maxDirection, o.maxDirection);
    }
    int SplitAxis() const {
        return maxDirection - minDirection > SAME_DIRECTION ? DIRECTION_AXIS : place.SplitAxis();
    }
    double Centre(int axis) const {
        return axis == DIRECTION_AXIS ? minDirection : place.Centre(axis);
    }
    static DirectionBounds At(const DirectionBounds& o) {
        return {PlaceBounds::At(o.place), o.minDirection, o.maxDirection};
    }
};

/// Finds the edges of a ring that a segment may cross or overlap, and those that a point may
/// lie on.
///
/// Immutable once built, and so safe to share between threads. Takes O(n) memory and
/// O(n log n) time to build; a query takes about log n steps plus the edges found, for the
/// shapes that people draw.
///
/// The crossing tests of line clipping are made of rounded cross products, and a rounded test
/// can accept an edge that lies nowhere near the segment. Their answers are what counts, so the
/// index must offer such edges, too. EdgeIndex.cpp states why it does.
class EdgeIndex {
public:
    /// The numbers of edges, in the order of the ring.
    using Found = CPodVector<std::uint32_t, 128>;

    /// Without edges; good for no segment.
    EdgeIndex() = default;
    /// The edges in ring order; fewer than 2^31.
    explicit EdgeIndex(const std::vector<Edge>& edges);

    /// Whether FindNear may be asked about the segment from p to q. Never, when the edges'
    /// coordinates are not finite or of extreme size.
    bool IsGoodFor(const Vec2d& p, const Vec2d& q) const;

    /// Finds all edges that the crossing tests could accept for the segment from p to q, each
    /// once, in ring order.
    ///
    /// \return false, and nothing of use, when there are so many that looking at every edge is
    /// no slower.
    bool FindNear(const Vec2d& p, const Vec2d& q, Found& found) const;

    /// Whether `test(edge number)` holds for some edge whose closed box holds the point. Good
    /// for any point, once the index is good for some segment.
    template <typename Test>
    bool AnyAt(const Vec2d& p, Test test) const {
        const auto misses = [&p](const PlaceBounds& bounds) { return !bounds.Holds(p); };
        return !m_places.Walk(misses, [&test](std::uint32_t edge) { return !test(edge); });
    }

    /// Whether the index can be asked at all.
    bool IsBuilt() const { return m_isBuilt; }

private:
    struct Query;

    void AddPlaces(const std::vector<Edge>& edges);
    void AddDirections(const std::vector<Edge>& edges);

    bool m_isBuilt = false;
    std::size_t m_edgeCount = 0;
    Box2d m_box;
    EdgeTree<PlaceBounds> m_places;
    EdgeTree<DirectionBounds> m_directions;
};

} // namespace geom::detail
