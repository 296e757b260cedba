// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The crossings within one scanbeam.
///
/// They come out of an insertion sort by x at the top: each edge is compared with those before
/// it, from the right, and crosses every edge that it has to pass, up to the first that it need
/// not pass. Over a stretch of neighbours that are in order such a sort does nothing, so it is
/// run only where neighbours are out of order; what stands left of a stretch is looked up in
/// the list of active edges as the walk comes to it.

#include "geometry/engine/Memory.h"
#include "geometry/engine/Records.h"
#include "geometry/engine/SlotPool.h"

namespace geom::detail {

/// Two bundles that change places inside a scanbeam.
struct Crossing {
    double x;
    double y; ///< measured from the bottom of the scanbeam
    Slot* left;
    Slot* right;
};

/// The intersection table of one scanbeam, and the order in which its crossings are processed.
///
/// Sorted by computed y, the crossings of three or more edges through (nearly) one point can
/// come in an order in which the next pair is not adjacent, and exchanging bundles that are not
/// neighbours would tear the list. So each turn takes the first crossing not yet processed whose
/// bundles are adjacent; almost always that is simply the next one.
class CrossingTable {
public:
    explicit CrossingTable(SlotPool& slots)
        : m_slots(slots), m_crossings("IT insertion"), m_scratch("IT insertion"),
          m_links("ST insertion"), m_deferred("IT insertion") {}

    /// Finds all crossings between two ordinates, in ascending y; equal ones keep the order in
    /// which they were found. `dirty` holds the slots that end up left of their left neighbour;
    /// it gets sorted.
    void Find(Block<Slot*>& dirty, double yb, double yt, std::uint32_t row);

    /// The next crossing to be processed; null when all have been. Throws GPCException when
    /// crossings are left and none of them joins adjacent bundles.
    const Crossing* Next();

private:
    /// What stands below a slot in the sorted edge table.
    struct Link {
        std::uint32_t row; ///< in which it was set
        std::uint32_t below;
    };

    Link& LinkOf(const Slot* slot);
    void SortStretch(Slot* slot, Slot* top);
    bool Insert(Slot* slot, Slot* top);
    bool Passes(Slot& slot, Slot& other);
    Slot* Below(const Slot* slot);
    void PlaceAbove(Slot* slot, const Slot* below);
    const Crossing* NextDeferred();

    SlotPool& m_slots;
    Block<Crossing> m_crossings;
    Block<Crossing> m_scratch;
    Block<Link> m_links;             ///< by number of the slot
    Block<std::uint32_t> m_deferred; ///< passed over so far, in table order
    std::uint64_t m_next = 0;
    double m_yb = 0.0;
    double m_yt = 0.0;
    std::uint32_t m_row = 0;
};

} // namespace geom::detail
