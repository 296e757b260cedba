// SPDX-License-Identifier: MIT
#include "geometry/engine/SweepLine.h"

#include "geometry/engine/Lines.h"

#include <limits>

namespace geom::detail {

SweepLine::SweepLine(const SweepInput& input)
    : m_input(input), m_nextMinimum(input.minima.begin()), m_tops("sbt creation"),
      m_schedule(input.minima.MayOverflow()), m_insertion(m_active, input.minima.MayOverflow()),
      m_crossings(m_slots), m_dirty("ST insertion"),
      m_everyEdge(input.minima.DifferencesMayOverflow()) {}

bool SweepLine::Rise() {
    const bool hasMinimum = m_nextMinimum != m_input.minima.end();
    if (m_tops.IsEmpty() && !hasMinimum) {
        return false;
    }
    if (m_row == std::numeric_limits<std::uint32_t>::max()) {
        ThrowArgumentError(LINE_TOO_MANY_ITEMS);
    }
    ++m_row;
    m_previousY = m_y;
    const bool minimumFirst =
        m_tops.IsEmpty() || (hasMinimum && m_nextMinimum->y < m_tops.Winner().y);
    m_y = m_input.minima.Canonical(minimumFirst ? m_nextMinimum->y : m_tops.Winner().y);
    m_hasCrossings = false;
    if (m_schedule.IsAnyDue(m_y)) {
        m_dirty.Clear();
        m_schedule.TakeDue(m_y, m_row, m_dirty);
        if (!m_dirty.IsEmpty()) {
            m_crossings.Find(m_dirty, m_previousY, m_y, m_row);
            m_hasCrossings = true;
        }
    }
    return true;
}

// Both edges pass to the other side of each other. The slots that have moved, and the one behind
// them, have new neighbours.
void SweepLine::Exchange(const Crossing& crossing) {
    Slot* left = crossing.left;
    Slot* right = crossing.right;
    right->sides = static_cast<RoleMask>(right->sides ^ left->flags[ABOVE]);
    left->sides = static_cast<RoleMask>(left->sides ^ right->flags[ABOVE]);
    Slot* moved = left->next; // comes first afterwards
    m_active.SwapBundles(left, right);
    for (Slot* end = left->next; moved != end; moved = moved->next) {
        m_schedule.Touch(moved, m_row);
    }
    if (moved != nullptr) {
        m_schedule.Touch(moved, m_row);
    }
}

Slot* SweepLine::TakeSuccession() {
    m_advanced = nullptr;
    if (m_tops.Winner().y != m_y || HasMinimumAt(m_y) || !m_schedule.Touched().IsEmpty() ||
        m_events.HasLooseBundles() || m_everyEdge) {
        return nullptr;
    }
    Slot* slot = m_tops.Winner().slot;
    if (slot->state != BundleState::Unbundled || !SlotPool::LoadNextEdge(*slot)) {
        return nullptr;
    }
    m_tops.ReplaceWinner(slot->top.y);
    m_advanced = slot;
    return m_tops.Winner().y != m_y && ScheduleApart(*slot) ? slot : nullptr;
}

void SweepLine::FindEvents() {
    m_events.BeginRow(m_y, m_row);
    if (m_advanced != nullptr) {
        m_events.Add(m_advanced);
        m_advanced->alone = true;
    }
    if (m_everyEdge) {
        AddEveryEdge();
    }
    AdvanceBounds();
    StartBounds();
    AddTouchingPairs();
    FindLoners();
    if (!m_allAlone) {
        PutInOrder();
    }
}

void SweepLine::PutInOrder() {
    m_events.Complete();
    m_allAlone = false;
}

// Most events of a drawing are such that one edge gives way to the next, with nothing near.
// They end no bundle and begin none, leave every other event as it is, and are scheduled at once.
void SweepLine::FindLoners() {
    m_allAlone = true;
    for (Slot* slot : m_events.Found()) {
        slot->alone = slot->alone && StandsAlone(*slot);
        m_allAlone = m_allAlone && slot->alone;
    }
}

// Whether a slot that gives way to the next edge of its bound has room on both sides, between
// neighbours that at most do the same.
bool SweepLine::StandsAlone(Slot& slot) {
    const auto isSteady = [this](const Slot* neighbour) {
        return neighbour == nullptr || !IsEvent(*neighbour) || neighbour->alone;
    };
    return isSteady(slot.prev) && isSteady(slot.next) && ScheduleApart(slot);
}

// Schedules the pairs on both sides of a slot whose edge begins in the row, if there is room. A
// neighbour that does the same sees to the pair on its left itself.
bool SweepLine::ScheduleApart(Slot& slot) {
    const Slot* left = slot.prev;
    Slot* right = slot.next;
    const double x = slot.bot.x;
    const double leftGap =
        left != nullptr ? PairSchedule::GapBetween(*left, left->XAt(m_y), slot, x) : 1;
    const double rightGap =
        right != nullptr ? PairSchedule::GapBetween(slot, x, *right, right->XAt(m_y)) : 1;
    if (!(leftGap > 0) || !(rightGap > 0)) {
        return false;
    }
    if (left != nullptr && !PairSchedule::IsTouched(slot, m_row)) {
        m_schedule.Schedule(slot, leftGap, m_y);
    }
    if (right != nullptr && !IsEvent(*right) && !PairSchedule::IsTouched(*right, m_row)) {
        m_schedule.Schedule(*right, rightGap, m_y);
    }
    return true;
}

// Where x is not a number there are no gaps: nothing tells that such an edge leaves its bundle, or
// that others meet across it. So every edge is looked at.
void SweepLine::AddEveryEdge() {
    for (Slot* slot = m_active.First(); slot != nullptr; slot = slot->next) {
        m_events.Add(slot);
        slot->alone = false;
    }
}

void SweepLine::AdvanceBounds() {
    while (!m_tops.IsEmpty() && m_tops.Winner().y == m_y) {
        Slot* slot = m_tops.Winner().slot;
        m_events.Add(slot);
        slot->alone = false;
        if (SlotPool::LoadNextEdge(*slot)) {
            slot->alone = slot->state == BundleState::Unbundled;
            m_tops.ReplaceWinner(slot->top.y);
        } else {
            slot->ended = true;
            m_tops.RemoveWinner();
        }
    }
}

void SweepLine::StartBounds() {
    if (!HasMinimumAt(m_y)) {
        return;
    }
    m_insertion.BeginRow(m_y, m_schedule.Touched());
    for (; HasMinimumAt(m_y); ++m_nextMinimum) {
        const LocalMinimum& minimum = *m_nextMinimum;
        const Operand& operand = m_input.OperandOf(minimum.role);
        Slot* forward = minimum.forward ? m_slots.Acquire(minimum, operand, true) : nullptr;
        Slot* reverse = minimum.reverse ? m_slots.Acquire(minimum, operand, false) : nullptr;
        const bool swap = forward != nullptr && reverse != nullptr && reverse->dx < forward->dx;
        StartBound(swap ? reverse : forward);
        StartBound(swap ? forward : reverse);
    }
}

void SweepLine::StartBound(Slot* slot) {
    if (slot != nullptr) {
        m_active.InsertBehind(m_insertion.FindPlace(*slot), slot);
        m_insertion.Inserted(slot);
        m_tops.Enter({slot->top.y, slot});
        m_events.Add(slot);
    }
}

// Bundles form only between neighbours that had to be looked at by now.
void SweepLine::AddTouchingPairs() {
    for (Slot* slot : m_schedule.Touched()) {
        Slot* left = slot->prev;
        if (left != nullptr && !left->ended && !slot->ended && Coincide(*left, *slot, m_y)) {
            m_events.Add(left);
            m_events.Add(slot);
            left->alone = slot->alone = false;
        }
    }
}

void SweepLine::EndRow() {
    if (m_allAlone && m_schedule.Touched().IsEmpty()) {
        return;
    }
    for (Slot* slot : Events()) {
        if (slot->alone) {
            continue;
        }
        Slot* next = slot->next;
        if (slot->ended) {
            m_active.Remove(slot);
        } else {
            m_schedule.Touch(slot, m_row);
        }
        if (next != nullptr) {
            m_schedule.Touch(next, m_row);
        }
    }
    m_schedule.ScheduleTouched(m_y);
    for (Slot* slot : Events()) {
        if (slot->ended) {
            m_slots.Release(slot);
        }
    }
}

} // namespace geom::detail
