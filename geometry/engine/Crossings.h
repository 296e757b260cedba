// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The crossings within one scanbeam.

#include "geometry/engine/ActiveEdges.h"
#include "geometry/engine/Memory.h"
#include "geometry/engine/Records.h"

namespace geom::detail {

/// Two bundles that change places inside a scanbeam.
struct Crossing {
    double x;
    double y; ///< measured from the bottom of the scanbeam
    Edge* left;
    Edge* right;
    std::uint32_t order; ///< in which it was found
};

/// The intersection table of one scanbeam, and the order in which its crossings are to be
/// processed.
///
/// Sorted by computed y, the crossings of three or more edges through (nearly) one point can
/// come in an order in which the next pair is not adjacent, and exchanging bundles that are not
/// neighbours would tear the list. So each turn takes the first crossing not yet processed whose
/// bundles are adjacent; almost always that is simply the next one.
class CrossingTable {
public:
    CrossingTable()
        : m_crossings("IT insertion"), m_sorted("ST insertion"), m_deferred("IT insertion") {}

    /// Finds the crossings of the active edges, whose xb and xt are set, in a scanbeam of height
    /// dy, and puts them in ascending y; equal ones keep the order in which they were found.
    void Find(const ActiveEdges& active, double dy);

    /// Takes the next crossing to be processed; null when all have been. Throws GPCException when
    /// crossings are left and none of them joins adjacent bundles.
    const Crossing* Next();

private:
    struct SortedEdge {
        Edge* edge;
        double xb, xt, dx;
    };

    void InsertSorted(Edge* edge, double dy);
    const Crossing* NextDeferred();

    Block<Crossing> m_crossings;
    Block<SortedEdge> m_sorted;
    Block<std::uint32_t> m_deferred; ///< passed over so far, in table order
    std::uint64_t m_next = 0;
};

} // namespace geom::detail
