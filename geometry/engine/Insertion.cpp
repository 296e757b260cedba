// SPDX-License-Identifier: MIT
#include "geometry/engine/Insertion.h"

#include <algorithm>

namespace geom::detail {

namespace {

// Whether the bound, which begins at y, belongs before the slot.
bool BelongsBefore(const Slot& bound, const Slot& slot, double y) {
    const double x = slot.XAt(y);
    return x > bound.bot.x || (x == bound.bot.x && slot.dx > bound.dx);
}

} // namespace

void Insertion::BeginRow(double y, const Block<Slot*>& touched) {
    m_y = y;
    m_previous = nullptr;
    m_inversions.Clear();
    for (Slot* slot : touched) {
        if (slot->prev != nullptr && slot->XAt(y) < slot->prev->XAt(y)) {
            m_inversions.Append(slot);
        }
    }
    std::sort(m_inversions.begin(), m_inversions.end(),
              [](const Slot* a, const Slot* b) { return a->label < b->label; });
}

Slot* Insertion::FindPlace(const Slot& bound) {
    if (m_walkOnly) {
        return WalkFrom(nullptr, bound);
    }
    return m_inversions.IsEmpty() ? FindInSortedList(bound) : FindInRuns(bound);
}

// What stands at or before `place` is known not to be greater.
Slot* Insertion::WalkFrom(Slot* place, const Slot& bound) const {
    Slot* next = place != nullptr ? place->next : m_list.First();
    while (next != nullptr && !BelongsBefore(bound, *next, m_y)) {
        place = next;
        next = next->next;
    }
    return place;
}

// Bounds ascend, so the place is behind the one inserted before; mostly close behind.
Slot* Insertion::FindInSortedList(const Slot& bound) const {
    Slot* place = m_previous;
    for (int step = 0; step < STEPS_BEFORE_SEARCH; ++step) {
        Slot* next = place != nullptr ? place->next : m_list.First();
        if (next == nullptr || BelongsBefore(bound, *next, m_y)) {
            return place;
        }
        place = next;
    }
    return FindInRun(place, m_list.Last(), bound);
}

// A run whose last x is smaller holds nothing greater, unless it is the last one, at whose end
// the bound then belongs; the first other run holds the place, or only slots of equal x that the
// walk passes.
Slot* Insertion::FindInRuns(const Slot& bound) const {
    Slot* first = m_list.First();
    for (Slot* inversion : m_inversions) {
        if (!(inversion->prev->XAt(m_y) < bound.bot.x)) {
            return FindInRun(first, inversion->prev, bound);
        }
        first = inversion;
    }
    return FindInRun(first, m_list.Last(), bound);
}

Slot* Insertion::FindInRun(Slot* first, Slot* last, const Slot& bound) const {
    Slot* below = m_list.FindBelow(first, last, bound.bot.x, m_y);
    return WalkFrom(below != nullptr ? below : first->prev, bound);
}

} // namespace geom::detail
