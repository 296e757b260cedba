// SPDX-License-Identifier: MIT
#include "geometry/engine/RowEvents.h"

#include <algorithm>

namespace geom::detail {

void RowEvents::BeginRow(double y, std::uint32_t row) {
    m_y = y;
    m_row = row;
    m_found.Clear();
    m_events.Clear();
    for (Slot* slot : m_loose) {
        Add(slot);
    }
    m_loose.Clear();
}

// Runs of neighbouring events grow at both ends by slots that coincide with their outermost live
// slot. Ended slots do not count as neighbours: across them two others may touch.
void RowEvents::Complete() {
    std::sort(m_found.begin(), m_found.end(),
              [](const Slot* a, const Slot* b) { return a->label < b->label; });
    for (Slot* slot : m_found) {
        const bool goesOn = !m_events.IsEmpty() && m_events[m_events.Count() - 1] == slot->prev;
        if (!goesOn) {
            m_lastLive = nullptr;
            ExtendLeft(slot);
        }
        Place(slot);
        ExtendRight();
    }
    FormBundles();
}

Slot* RowEvents::FirstLiveFrom(Slot* slot) const {
    while (slot != nullptr && slot->ended) {
        slot = slot->next;
    }
    return slot;
}

// Takes in the slots before a run that coincide with its first live slot, each with the next.
void RowEvents::ExtendLeft(Slot* slot) {
    const Slot* right = FirstLiveFrom(slot);
    Slot* first = slot;
    while (right != nullptr && first->prev != nullptr && !IsEvent(*first->prev) &&
           Coincide(*first->prev, *right, m_y)) {
        first = first->prev;
        right = first;
    }
    for (; first != slot; first = first->next) {
        Begin(first);
        first->alone = false;
        Place(first);
    }
}

// Takes in the slots behind the run that coincide with its last live slot, each with the one
// before.
void RowEvents::ExtendRight() {
    for (;;) {
        Slot* next = m_events[m_events.Count() - 1]->next;
        if (next == nullptr || IsEvent(*next) || m_lastLive == nullptr ||
            !Coincide(*m_lastLive, *next, m_y)) {
            return;
        }
        Begin(next);
        next->alone = false;
        Place(next);
    }
}

void RowEvents::Place(Slot* slot) {
    m_events.Append(slot);
    if (!slot->ended) {
        m_lastLive = slot;
    }
}

void RowEvents::FormBundles() {
    Slot* last = nullptr; // the last slot of the run that goes on upwards
    const Slot* previous = nullptr;
    for (Slot* slot : m_events) {
        if (slot->prev != previous) {
            last = nullptr;
        }
        previous = slot;
        slot->flags[ABOVE] = slot->ended ? RoleMask{0} : slot->RoleBit();
        slot->state = BundleState::Unbundled;
        if (slot->ended) {
            continue;
        }
        if (last != nullptr && Coincide(*last, *slot, m_y)) {
            Join(last, slot);
        }
        last = slot;
    }
}

// The head takes over all flags of a bundle; an even number of edges of one role cancel.
void RowEvents::Join(Slot* tail, Slot* head) {
    head->flags[ABOVE] = static_cast<RoleMask>(head->flags[ABOVE] ^ tail->flags[ABOVE]);
    head->state = BundleState::Head;
    tail->flags[ABOVE] = 0;
    tail->state = BundleState::Tail;
    if (!SameEnds(*tail, *head)) {
        m_loose.Append(tail);
        m_loose.Append(head);
    }
}

} // namespace geom::detail
