// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The state of a sweep between two events: which edges are active, in which order, and where
/// the next thing happens. It does not know what the result looks like.
///
/// Only edges at which something happens are touched. docs/engine.md tells why nothing is
/// missed; the arguments stand in PairSchedule.h, Crossings.h and RowEvents.h.

#include "geometry/engine/ActiveList.h"
#include "geometry/engine/Crossings.h"
#include "geometry/engine/Insertion.h"
#include "geometry/engine/Minima.h"
#include "geometry/engine/PairSchedule.h"
#include "geometry/engine/RowEvents.h"
#include "geometry/engine/SlotPool.h"
#include "geometry/engine/Tournament.h"

namespace geom::detail {

/// What a run sweeps over.
struct SweepInput {
    SweepInput(const gpc_polygon& subjectRecord, const gpc_polygon& clipRecord)
        : subject(subjectRecord, SUBJECT), clip(clipRecord, CLIP) {}

    const Operand& OperandOf(Role role) const { return role == SUBJECT ? subject : clip; }

    Operand subject;
    Operand clip;
    LocalMinima minima;
};

class SweepLine {
public:
    explicit SweepLine(const SweepInput& input);

    /// Rises to the next ordinate at which a bound begins, bends or ends, and finds the crossings
    /// on the way. Returns false when there is none.
    bool Rise();

    /// The ordinate of the row in hand, and that of the row before.
    double Y() const { return m_y; }
    double PreviousY() const { return m_previousY; }

    /// The next crossing on the way; null when all have been processed.
    const Crossing* NextCrossing() { return m_hasCrossings ? m_crossings.Next() : nullptr; }
    /// Exchanges the bundles of a crossing.
    void Exchange(const Crossing& crossing);

    /// When all that happens in the row is that one edge gives way to the next edge of its bound,
    /// with room on both sides: returns its slot, and the row is done. Otherwise returns null.
    Slot* TakeSuccession();

    /// Loads the edges that begin in the row, takes note of those that end, and finds all events.
    void FindEvents();
    /// The events of the row: in list order, but for a row in which all of them stand alone.
    const Block<Slot*>& Events() const {
        return m_allAlone ? m_events.Found() : m_events.InOrder();
    }
    /// Whether every event of the row stands alone: one edge gives way to the next, with room on
    /// both sides, between neighbours that at most do the same.
    bool AllAlone() const { return m_allAlone; }
    /// Puts such events in list order, too.
    void PutInOrder();
    bool IsEvent(const Slot& slot) const { return slot.eventRow == m_row; }
    /// Takes out the bounds that have ended and schedules every pair that has changed.
    void EndRow();

private:
    bool HasMinimumAt(double y) const {
        return m_nextMinimum != m_input.minima.end() && m_nextMinimum->y == y;
    }
    void AddEveryEdge();
    void AdvanceBounds();
    void StartBounds();
    void StartBound(Slot* slot);
    void AddTouchingPairs();
    void FindLoners();
    bool StandsAlone(Slot& slot);
    bool ScheduleApart(Slot& slot);

    const SweepInput& m_input;
    const LocalMinimum* m_nextMinimum;
    SlotPool m_slots;
    ActiveList m_active;
    Tournament m_tops; ///< upper ends of the active edges
    PairSchedule m_schedule;
    Insertion m_insertion;
    CrossingTable m_crossings;
    RowEvents m_events;
    Block<Slot*> m_dirty;
    const bool m_everyEdge; ///< has events in every row
    double m_previousY = 0.0;
    double m_y = 0.0;
    std::uint32_t m_row = 0;
    Slot* m_advanced = nullptr; ///< its next edge is loaded already
    bool m_hasCrossings = false;
    bool m_allAlone = false;
};

} // namespace geom::detail
