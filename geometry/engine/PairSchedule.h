// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// When neighbours have to be looked at.
///
/// Two neighbours can only cross, or form a bundle, near an ordinate where their lines meet. For
/// each pair the schedule computes the first ordinate at which that is possible and leaves it
/// alone until then. Why nothing is missed:
///
/// - A computed x differs from the line through its edge's ends by at most a quarter of the
///   slot's `error`. While the gap between two lines exceeds the sum of both errors and
///   2 * GPC_EPSILON, computed x are in strict order and further apart than GPC_EPSILON:
///   neither crossing nor bundle is possible.
/// - The gap shrinks linearly, by `closing` per unit of y, so it is used up no earlier than
///   gap / closing above the present ordinate. The factor 1 - 2^-40 covers the roundings of
///   this quotient, and adding the present ordinate rounds monotonically: no row at or behind
///   the true ordinate is below the stored one.
/// - A gap that lasts beyond the end of either edge needs no entry: the end is an event, after
///   which the pair is scheduled anew. So is every pair of which a member, or the adjacency,
///   changes.
/// - A pair that is looked at too early is compared exactly, and scheduled again.
/// - Whatever overflows to no number compares as "look at it in the next scanbeam".

#include "geometry/engine/Heap.h"
#include "geometry/engine/Memory.h"
#include "geometry/engine/Records.h"

namespace geom::detail {

class PairSchedule {
public:
    /// \param checkAlways look at every pair in every scanbeam, since the formulas of the schedule
    /// may overflow.
    explicit PairSchedule(bool checkAlways)
        : m_checkAlways(checkAlways), m_checks("ST insertion"), m_always("ST insertion"),
          m_touched("ST insertion") {}

    /// Notes that the pair of a slot and its left neighbour is to be scheduled at the end of the
    /// row.
    void Touch(Slot* slot, std::uint32_t row) {
        if (slot->touchRow != row) {
            slot->touchRow = row;
            m_touched.Append(slot);
        }
    }
    const Block<Slot*>& Touched() const { return m_touched; }

    /// Whether any pair is to be looked at by this ordinate.
    bool IsAnyDue(double y) const {
        return !m_always.IsEmpty() || (!m_checks.IsEmpty() && m_checks.Top().y <= y);
    }
    /// Touches every pair that is due and appends to `dirty` the slots that come out left of
    /// their left neighbour at this ordinate, or cannot be compared with it.
    void TakeDue(double y, std::uint32_t row, Block<Slot*>& dirty);

    /// Schedules every touched pair anew, as seen from this ordinate.
    void ScheduleTouched(double y);

    /// Schedules one pair.
    void Schedule(Slot& slot, double y);
    /// The same where the gap is known, of a pair that is of no bundle.
    void Schedule(Slot& slot, double gap, double y);

    /// Whether the pair of a slot and its left neighbour is to be scheduled at the end of the row.
    static bool IsTouched(const Slot& slot, std::uint32_t row) { return slot.touchRow == row; }

    /// The gap of a pair above its margin: positive when the two can neither cross nor form a
    /// bundle at this ordinate.
    static double GapOf(const Slot& left, const Slot& right, double y) {
        return GapBetween(left, left.XAt(y), right, right.XAt(y));
    }
    /// The same where both x are known.
    static double GapBetween(const Slot& left, double leftX, const Slot& right, double rightX) {
        return rightX - leftX - (left.error + right.error + 2 * GPC_EPSILON);
    }

private:
    struct Check {
        double y;
        Slot* slot;
        std::uint32_t version;
    };

    void Examine(Slot* slot, double y, std::uint32_t row, Block<Slot*>& dirty);

    bool m_checkAlways;
    Heap<Check> m_checks;
    Block<Slot*> m_always; ///< looked at in the next scanbeam, whatever its top
    Block<Slot*> m_touched;
};

} // namespace geom::detail
