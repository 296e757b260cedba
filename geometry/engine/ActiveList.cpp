// SPDX-License-Identifier: MIT
#include "geometry/engine/ActiveList.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace geom::detail {

namespace {

constexpr std::uint64_t LARGEST_LABEL = std::numeric_limits<std::uint64_t>::max();

// Edges mostly come in from left to right: a bounded step keeps the gap that is left for those
// that follow.
constexpr std::uint64_t LABEL_STEP = std::uint64_t{1} << 40U;

// A range of 2^b labels is sparse when at most 1.3^b of them are in use. Sparser ranges would be
// relabelled less often, but the largest ones must allow any list: these allow more than 10^7.
constexpr double GROWTH_OF_LIMIT = 1.3;
constexpr unsigned SMALLEST_RANGE_BITS = 4;

} // namespace

void ActiveList::InsertBehind(Slot* place, Slot* slot) {
    Link(place, slot);
    ++m_count;
    Label(slot);
    InsertIntoLeaf(place, slot);
}

void ActiveList::Link(Slot* place, Slot* slot) {
    Slot*& next = place != nullptr ? place->next : m_first;
    slot->prev = place;
    slot->next = next;
    (slot->next != nullptr ? slot->next->prev : m_last) = slot;
    next = slot;
}

void ActiveList::Label(Slot* slot) {
    const std::uint64_t left = slot->prev != nullptr ? slot->prev->label : 0;
    const std::uint64_t right = slot->next != nullptr ? slot->next->label : LARGEST_LABEL;
    const std::uint64_t step = std::min((right - left) / 2, LABEL_STEP);
    if (step == 0) {
        RelabelAround(slot);
    } else {
        slot->label = left + step;
    }
}

// Spreads the labels around a slot that has none yet over the smallest aligned range that is
// sparse enough. Larger ranges must be sparser, so every label moved is paid for by insertions
// that came before, and inserting at one place again and again stays cheap.
void ActiveList::RelabelAround(Slot* slot) {
    const std::uint64_t base = slot->prev != nullptr ? slot->prev->label : 0;
    Slot* first = slot;
    Slot* last = slot;
    std::uint64_t count = 1;
    double most = std::pow(GROWTH_OF_LIMIT, SMALLEST_RANGE_BITS);
    for (unsigned bits = SMALLEST_RANGE_BITS; bits < 64; ++bits, most *= GROWTH_OF_LIMIT) {
        const std::uint64_t size = std::uint64_t{1} << bits;
        const std::uint64_t low = base & ~(size - 1);
        for (; first->prev != nullptr && first->prev->label >= low; ++count) {
            first = first->prev;
        }
        for (; last->next != nullptr && last->next->label - low < size; ++count) {
            last = last->next;
        }
        if (static_cast<double>(count) <= most) {
            Spread(first, last, low, size / count);
            return;
        }
    }
    Spread(m_first, m_last, 0, LARGEST_LABEL / m_count);
}

// Leaves room before the first label, too.
void ActiveList::Spread(Slot* first, Slot* last, std::uint64_t low, std::uint64_t step) {
    const Slot* end = last->next;
    std::uint64_t label = low + step / 2;
    for (Slot* slot = first; slot != end; slot = slot->next, label += step) {
        slot->label = label;
    }
}

std::uint32_t ActiveList::NewLeaf() {
    if (m_freeLeaves.IsEmpty()) {
        return m_leaves.Append(Leaf{});
    }
    const std::uint32_t leaf = m_freeLeaves[m_freeLeaves.Count() - 1];
    m_freeLeaves.Truncate(m_freeLeaves.Count() - 1);
    m_leaves[leaf].count = 0;
    return leaf;
}

std::uint64_t ActiveList::RankOf(const Slot* slot) const {
    const auto* rank = std::upper_bound(m_directory.begin(), m_directory.end(), slot->label,
                                        [this](std::uint64_t label, std::uint32_t leaf) {
                                            return label < m_leaves[leaf].slots[0]->label;
                                        });
    return static_cast<std::uint64_t>(rank - m_directory.begin()) - 1;
}

void ActiveList::InsertIntoLeaf(Slot* place, Slot* slot) {
    if (m_directory.IsEmpty()) {
        m_directory.Append(NewLeaf());
    }
    std::uint32_t leaf = place != nullptr ? place->leaf : m_directory[0];
    if (m_leaves[leaf].count == LEAF_SIZE) {
        SplitLeaf(leaf);
        leaf = place != nullptr ? place->leaf : m_directory[0];
    }
    Leaf& into = m_leaves[leaf];
    Slot** end = into.slots + into.count;
    Slot** at = place != nullptr ? EntryOf(place) + 1 : into.slots;
    std::copy_backward(at, end, end + 1);
    *at = slot;
    ++into.count;
    slot->leaf = leaf;
}

void ActiveList::SplitLeaf(std::uint32_t leaf) {
    const std::uint64_t rank = RankOf(m_leaves[leaf].slots[0]);
    m_directory.Append(leaf); // room for one more; overwritten below
    const std::uint32_t upper = NewLeaf();
    Leaf& from = m_leaves[leaf];
    Leaf& to = m_leaves[upper];
    std::copy(from.slots + LEAF_SIZE / 2, from.slots + LEAF_SIZE, to.slots);
    from.count = to.count = LEAF_SIZE / 2;
    for (std::uint32_t i = 0; i < to.count; ++i) {
        to.slots[i]->leaf = upper;
    }
    std::uint32_t* place = m_directory.begin() + rank + 1;
    std::copy_backward(place, m_directory.end() - 1, m_directory.end());
    *place = upper;
}

Slot** ActiveList::EntryOf(const Slot* slot) {
    Slot** entry = m_leaves[slot->leaf].slots;
    while (*entry != slot) {
        ++entry;
    }
    return entry;
}

void ActiveList::Remove(Slot* slot) {
    Leaf& leaf = m_leaves[slot->leaf];
    if (leaf.count == 1) {
        m_freeLeaves.Append(slot->leaf);
        std::uint32_t* place = m_directory.begin() + RankOf(slot);
        std::copy(place + 1, m_directory.end(), place);
        m_directory.Truncate(m_directory.Count() - 1);
    } else {
        Slot** entry = EntryOf(slot);
        std::copy(entry + 1, leaf.slots + leaf.count, entry);
        --leaf.count;
    }
    (slot->prev != nullptr ? slot->prev->next : m_first) = slot->next;
    (slot->next != nullptr ? slot->next->prev : m_last) = slot->prev;
    --m_count;
}

void ActiveList::SwapBundles(Slot* left, Slot* right) {
    Slot* first = FirstOfBundle(left);
    Slot* second = left->next;
    if (first == left && second == right) {
        SwapSingles(left, right);
    } else {
        Reorder(first, second, right->next);
    }
    Slot* before = first->prev;
    Slot* after = right->next;
    (before != nullptr ? before->next : m_first) = second;
    second->prev = before;
    right->next = first;
    first->prev = right;
    left->next = after;
    (after != nullptr ? after->prev : m_last) = left;
}

void ActiveList::SwapSingles(Slot* left, Slot* right) {
    std::swap(*EntryOf(left), *EntryOf(right));
    std::swap(left->label, right->label);
    std::swap(left->leaf, right->leaf);
}

// Gives the positions of the slots from `first` up to `after` to the same slots with those from
// `second` on coming first.
void ActiveList::Reorder(Slot* first, Slot* second, Slot* after) {
    m_moved.Clear();
    std::uint64_t turn = 0;
    for (Slot* slot = first; slot != after; slot = slot->next) {
        turn = slot == second ? m_moved.Count() : turn;
        m_moved.Append({slot, EntryOf(slot), slot->label, slot->leaf});
    }
    const std::uint64_t count = m_moved.Count();
    for (std::uint64_t i = 0; i < count; ++i) {
        const Position& position = m_moved[i];
        Slot* slot = m_moved[(i + turn) % count].slot;
        *position.entry = slot;
        slot->label = position.label;
        slot->leaf = position.leaf;
    }
}

// The leaves behind that of the first slot begin within the run as far as they do not lie behind
// that of the last one, so their first slots ascend, too.
Slot* ActiveList::FindBelow(Slot* first, Slot* last, double x, double y) const {
    if (!(first->XAt(y) < x)) {
        return nullptr;
    }
    std::uint64_t low = RankOf(first);
    std::uint64_t high = RankOf(last);
    Slot* below = first;
    while (low < high) {
        const std::uint64_t middle = high - (high - low) / 2;
        Slot* start = m_leaves[m_directory[middle]].slots[0];
        if (start->XAt(y) < x) {
            low = middle;
            below = start;
        } else {
            high = middle - 1;
        }
    }
    return below;
}

} // namespace geom::detail
