// SPDX-License-Identifier: MIT
#include "geometry/engine/Crossings.h"

#include "geometry/engine/Lines.h"
#include "geometry/engine/Ordering.h"

#include <algorithm>
#include <cmath>

namespace geom::detail {

namespace {

constexpr std::uint32_t NO_SLOT = 0xFFFFFFFFU;

// Tails of bundles cross nothing; their heads do it for them.
bool TakesPart(const Slot& slot) {
    return slot.state == BundleState::Head || slot.flags[ABOVE] != 0;
}

Slot* PreviousTakingPart(const Slot* slot) {
    Slot* previous = slot->prev;
    while (previous != nullptr && !TakesPart(*previous)) {
        previous = previous->prev;
    }
    return previous;
}

Slot* TakingPartFrom(Slot* slot) {
    while (slot != nullptr && !TakesPart(*slot)) {
        slot = slot->next;
    }
    return slot;
}

bool AreAdjacent(const Crossing& crossing) {
    return FirstOfBundle(crossing.right)->prev == crossing.left;
}

} // namespace

void CrossingTable::Find(Block<Slot*>& dirty, double yb, double yt, std::uint32_t row) {
    m_crossings.Clear();
    m_deferred.Clear();
    m_next = 0;
    m_yb = yb;
    m_yt = yt;
    m_row = row;
    std::sort(dirty.begin(), dirty.end(),
              [](const Slot* a, const Slot* b) { return a->label < b->label; });
    for (Slot* slot : dirty) {
        Slot* first = TakingPartFrom(slot);
        Slot* top = first != nullptr ? PreviousTakingPart(first) : nullptr;
        if (top != nullptr && LinkOf(first).row != m_row) {
            SortStretch(first, top);
        }
    }
    OrderAsInserted(
        m_crossings, m_scratch, [](const Crossing& a, const Crossing& b) { return a.y < b.y; },
        [](const Crossing& c) { return std::isnan(c.y); });
}

CrossingTable::Link& CrossingTable::LinkOf(const Slot* slot) {
    while (slot->number >= m_links.Count()) {
        m_links.Append({0, NO_SLOT});
    }
    return m_links[slot->number];
}

// Goes on until an edge passes nothing: from there on neighbours are in order again.
void CrossingTable::SortStretch(Slot* slot, Slot* top) {
    while (slot != nullptr && Insert(slot, top)) {
        slot = TakingPartFrom(slot->next);
    }
}

// Inserts an edge into the sorted edge table, below all the edges that it passes. Returns
// whether it passed any; otherwise it is the new top.
bool CrossingTable::Insert(Slot* slot, Slot* top) {
    Slot* passed = nullptr;
    Slot* other = top;
    while (other != nullptr && Passes(*slot, *other)) {
        passed = other;
        other = Below(other);
    }
    PlaceAbove(slot, other);
    if (passed != nullptr) {
        PlaceAbove(passed, slot);
    }
    return passed != nullptr;
}

// Whether the edge has to pass another one that stands before it; if so their crossing is
// recorded.
bool CrossingTable::Passes(Slot& slot, Slot& other) {
    const double xt = slot.XAt(m_yt);
    const double otherXt = other.XAt(m_yt);
    if (!(xt < otherXt) || slot.dx == other.dx) {
        return false;
    }
    const double xb = slot.XAt(m_yb);
    const double otherXb = other.XAt(m_yb);
    const double den = (otherXt - otherXb) - (xt - xb);
    if (!(std::fabs(den) > GPC_EPSILON)) {
        return false;
    }
    const double r = (xb - otherXb) / den;
    const double x = otherXb + r * (otherXt - otherXb);
    m_crossings.Append({x, r * (m_yt - m_yb), &other, &slot});
    return true;
}

// The neighbour below in the sorted edge table: as it was linked in this scanbeam, and else that
// of the list.
Slot* CrossingTable::Below(const Slot* slot) {
    const Link link = LinkOf(slot);
    if (link.row != m_row) {
        return PreviousTakingPart(slot);
    }
    return link.below != NO_SLOT ? m_slots.At(link.below) : nullptr;
}

void CrossingTable::PlaceAbove(Slot* slot, const Slot* below) {
    LinkOf(slot) = {m_row, below != nullptr ? below->number : NO_SLOT};
}

const Crossing* CrossingTable::Next() {
    if (const Crossing* deferred = NextDeferred()) {
        return deferred;
    }
    for (; m_next < m_crossings.Count(); ++m_next) {
        if (AreAdjacent(m_crossings[m_next])) {
            return &m_crossings[m_next++];
        }
        m_deferred.Append(static_cast<std::uint32_t>(m_next));
    }
    if (!m_deferred.IsEmpty()) {
        ThrowEngineError(LINE_NO_ADJACENT_CROSSING);
    }
    return nullptr;
}

const Crossing* CrossingTable::NextDeferred() {
    for (std::uint64_t i = 0; i < m_deferred.Count(); ++i) {
        const Crossing& crossing = m_crossings[m_deferred[i]];
        if (AreAdjacent(crossing)) {
            std::copy(m_deferred.begin() + i + 1, m_deferred.end(), m_deferred.begin() + i);
            m_deferred.Truncate(m_deferred.Count() - 1);
            return &crossing;
        }
    }
    return nullptr;
}

} // namespace geom::detail
