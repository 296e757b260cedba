// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Sorting that equals insertion into a list, one after another.

#include "geometry/engine/Memory.h"

#include <algorithm>

namespace geom::detail {

/// Merges two adjacent sorted runs of items; `copy` holds the first one. Which run comes next is
/// as good as random, so the choice is computed rather than branched on.
template <typename T, typename Precedes>
void MergeBack(const T* copy, const T* copyEnd, const T* second, const T* secondEnd, T* out,
               Precedes precedes) {
    while (copy != copyEnd && second != secondEnd) {
        const bool takeSecond = precedes(*second, *copy);
        *out++ = *(takeSecond ? second : copy);
        second += takeSecond ? 1 : 0;
        copy += takeSecond ? 0 : 1;
    }
    std::copy(copy, copyEnd, out); // what is left of the second run stands in place
}

/// Sorts items stably. A merge sort that leaves halves alone which are already in order: most
/// of what the sweep sorts comes in long ascending runs.
template <typename T, typename Precedes>
void MergeSort(T* first, T* last, Block<T>& scratch, Precedes precedes) {
    constexpr std::ptrdiff_t SMALL = 12;
    if (last - first <= SMALL) {
        for (T* item = first; item < last; ++item) {
            const T moved = *item;
            T* place = item;
            for (; place != first && precedes(moved, *(place - 1)); --place) {
                *place = *(place - 1);
            }
            *place = moved;
        }
        return;
    }
    T* const middle = first + (last - first) / 2;
    MergeSort(first, middle, scratch, precedes);
    MergeSort(middle, last, scratch, precedes);
    if (!precedes(*middle, *(middle - 1))) {
        return;
    }
    T* const copy = scratch.Space(static_cast<std::uint64_t>(middle - first));
    T* const copyEnd = std::copy(first, middle, copy);
    MergeBack(copy, copyEnd, middle, last, first, precedes);
}

/// Orders the items as inserting them one by one would, each before the first item that it
/// must precede, so that equal items keep their order.
///
/// An item for which `isUndefined` holds compares as neither before nor after any other (its
/// key overflowed to no number), and no sorting algorithm could place it: only then are the
/// insertions really made.
template <typename T, typename Precedes, typename IsUndefined>
void OrderAsInserted(Block<T>& items, Block<T>& scratch, Precedes precedes,
                     IsUndefined isUndefined) {
    if (std::none_of(items.begin(), items.end(), isUndefined)) {
        MergeSort(items.begin(), items.end(), scratch, precedes);
        return;
    }
    for (T* item = items.begin(); item != items.end(); ++item) {
        T* place = std::find_if(items.begin(), item,
                                [&](const T& other) { return precedes(*item, other); });
        std::rotate(place, item, item + 1);
    }
}

} // namespace geom::detail
