// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/engine/ActiveList.h"
#include "geometry/engine/Memory.h"
#include "geometry/engine/Records.h"

namespace geom::detail {

/// Finds the places of the bounds that begin in one row: each before the first edge, from the
/// head of the list, with greater x, or equal x and greater dx.
///
/// The list need not be sorted by x: rounding and bundles leave inversions. But those stand
/// only between slots that were looked at in this row, and they cut the list into runs that do
/// ascend; so a binary search in each run finds what a walk from the head would find.
class Insertion {
public:
    /// \param walkOnly x or slopes may be no numbers, which no search can place.
    Insertion(const ActiveList& list, bool walkOnly)
        : m_list(list), m_walkOnly(walkOnly), m_inversions("LMT insertion") {}

    /// Starts a row. `touched` holds every slot that may be out of order with its left neighbour.
    void BeginRow(double y, const Block<Slot*>& touched);

    /// The slot behind which the next bound of the row belongs; null for the head of the list.
    /// Bounds come in ascending order of x and dx.
    Slot* FindPlace(const Slot& bound);

    /// Tells that the bound has been inserted where FindPlace said.
    void Inserted(Slot* bound) { m_previous = bound; }

private:
    static constexpr int STEPS_BEFORE_SEARCH = 8;

    Slot* WalkFrom(Slot* place, const Slot& bound) const;
    Slot* FindInSortedList(const Slot& bound) const;
    Slot* FindInRuns(const Slot& bound) const;
    Slot* FindInRun(Slot* first, Slot* last, const Slot& bound) const;

    const ActiveList& m_list;
    bool m_walkOnly;
    double m_y = 0.0;
    Slot* m_previous = nullptr;
    Block<Slot*> m_inversions; ///< slots left of their left neighbour, in list order
};

} // namespace geom::detail
