// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The edges that the current scanbeam cuts, as a list in walking order.

#include "geometry/engine/Bounds.h"
#include "geometry/engine/Records.h"

namespace geom::detail {

/// Edges of one role closer than this at the bottom of a scanbeam, and with slopes closer than
/// this, count as coinciding. An absolute bound: shapes of about this size are not cut
/// correctly.
inline constexpr double GPC_EPSILON = 0x1p-52;

/// The active-edge list. It owns no storage: the edges are those of the bounds.
class ActiveEdges {
public:
    Edge* First() const { return m_first; }

    /// Inserts bounds that start at one ordinate, in their order: each before the first edge
    /// with greater xb, or equal xb and greater dx.
    void Insert(const LocalMinimum* first, const LocalMinimum* last);

    /// Bundles the edges that coincide from yb upwards.
    void FormBundles(double yb);

    /// Takes out every edge that ends at yb.
    void RemoveEnded(double yb);

    /// Computes the x of every edge at the top of the scanbeam.
    void ProjectTo(double yt) const;

    /// Whether the bundle of `right` stands directly behind that of `left`.
    static bool AreAdjacent(const Edge* left, const Edge* right);

    /// Exchanges two adjacent bundles.
    void SwapBundles(Edge* left, Edge* right);

    /// Steps to the next scanbeam: bounds go on with their next edge, and what was above every
    /// edge is below it.
    void Advance(double yt);

private:
    void InsertAfter(Edge* place, Edge* edge);
    void Replace(Edge* old, Edge* edge);

    Edge* m_first = nullptr;
};

} // namespace geom::detail
