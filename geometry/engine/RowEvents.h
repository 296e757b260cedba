// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The slots at which something happens in one row.
///
/// An edge without an event hands on its contour, sides and flags unchanged: with the same flags
/// above and below, and no horizontal pending, its class has no action. So only these are
/// classified: edges that begin, bend or end in the row, and those whose bundle may form,
/// change or dissolve there. (All edges are, where coordinates are so large that a computed x may
/// be no number.)

#include "geometry/engine/Memory.h"
#include "geometry/engine/Records.h"

namespace geom::detail {

class RowEvents {
public:
    RowEvents() : m_found("ST insertion"), m_events("ST insertion"), m_loose("ST insertion") {}

    /// Starts a row. Members of bundles of the row before, except those that stay together
    /// whatever happens, are events of this one: their bundle may dissolve.
    void BeginRow(double y, std::uint32_t row);

    /// Makes a slot an event, unless it is one already: what was above it is below it now.
    void Add(Slot* slot) {
        if (!IsEvent(*slot)) {
            m_found.Append(slot);
            Begin(slot);
        }
    }
    bool IsEvent(const Slot& slot) const { return slot.eventRow == m_row; }

    /// Puts the events in list order, together with the neighbours that coincide with them, and
    /// forms the bundles of the row.
    void Complete();

    bool HasLooseBundles() const { return !m_loose.IsEmpty(); }

    /// The events so far, in the order in which they were added.
    const Block<Slot*>& Found() const { return m_found; }
    /// All events, in list order.
    const Block<Slot*>& InOrder() const { return m_events; }

    /// What was above a slot is below it from now on.
    static void Renew(Slot& slot) {
        slot.outp[BELOW] = slot.outp[ABOVE];
        slot.outp[ABOVE] = NO_OUTPUT;
        slot.flags[BELOW] = slot.flags[ABOVE];
    }

private:
    void Begin(Slot* slot) {
        slot->eventRow = m_row;
        Renew(*slot);
    }
    void ExtendLeft(Slot* slot);
    void ExtendRight();
    Slot* FirstLiveFrom(Slot* slot) const;
    void Place(Slot* slot);
    void FormBundles();
    void Join(Slot* tail, Slot* head);

    double m_y = 0.0;
    std::uint32_t m_row = 0;
    Block<Slot*> m_found;       ///< in the order in which they were added
    Block<Slot*> m_events;      ///< in list order
    Slot* m_lastLive = nullptr; ///< last slot of the run in hand that goes on upwards
    Block<Slot*> m_loose;       ///< members of bundles that may dissolve in the next row
};

} // namespace geom::detail
