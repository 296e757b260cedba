// SPDX-License-Identifier: MIT
#include "geometry/engine/PairSchedule.h"

#include <algorithm>

namespace geom::detail {

namespace {

constexpr double ROUNDING = 0x1p-40; // far more than the roundings of one quotient

} // namespace

// What is no number hides whether the slots around it are in order, and so counts as out of order.
void PairSchedule::Examine(Slot* slot, double y, std::uint32_t row, Block<Slot*>& dirty) {
    if (!(slot->XAt(y) >= slot->prev->XAt(y))) {
        dirty.Append(slot);
    }
    Touch(slot, row);
}

void PairSchedule::TakeDue(double y, std::uint32_t row, Block<Slot*>& dirty) {
    for (Slot* slot : m_always) {
        Examine(slot, y, row, dirty);
    }
    m_always.Clear();
    while (!m_checks.IsEmpty() && m_checks.Top().y <= y) {
        const Check check = m_checks.Top();
        m_checks.Pop();
        if (check.version == check.slot->version) {
            Examine(check.slot, y, row, dirty);
        }
    }
}

void PairSchedule::ScheduleTouched(double y) {
    for (Slot* slot : m_touched) {
        if (!slot->ended) {
            Schedule(*slot, y);
        }
    }
    m_touched.Clear();
}

// Edges of a bundle with the same two ends stay together until they end: the pair inside needs
// no attention.
void PairSchedule::Schedule(Slot& slot, double y) {
    const Slot* left = slot.prev;
    if (left == nullptr || (left->state == BundleState::Tail && SameEnds(*left, slot))) {
        ++slot.version;
        return;
    }
    Schedule(slot, GapOf(*left, slot, y), y);
}

// Of a pair that does not close, the gap is never used up: a product that is not positive says
// so without a test of its own.
void PairSchedule::Schedule(Slot& slot, double gap, double y) {
    ++slot.version;
    if (gap > 0 && !m_checkAlways) {
        const Slot& left = *slot.prev;
        const double closing = left.dx - slot.dx;
        const double height = std::min(left.top.y, slot.top.y) - y;
        if (gap >= closing * height * (1 + ROUNDING)) {
            return;
        }
        const double check = y + gap / closing * (1 - ROUNDING);
        if (check > y) {
            m_checks.Push({check, &slot, slot.version});
            return;
        }
    }
    m_always.Append(&slot);
}

} // namespace geom::detail
