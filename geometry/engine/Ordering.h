// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Sorting that equals insertion into a list, one after another.

#include "geometry/engine/Memory.h"

#include <algorithm>

namespace geom::detail {

/// Sorts items stably. A merge sort that leaves halves alone which are already in order: most
/// of what the sweep sorts comes in long ascending runs.
template <typename T, typename Precedes>
void MergeSort(T* first, T* last, Block<T>& scratch, Precedes precedes) {
    constexpr std::ptrdiff_t SMALL = 12;
    if (last - first <= SMALL) {
        for (T* item = first; item < last; ++item) {
            T* place = std::upper_bound(first, item, *item, precedes);
            std::rotate(place, item, item + 1);
        }
        return;
    }
    T* const middle = first + (last - first) / 2;
    MergeSort(first, middle, scratch, precedes);
    MergeSort(middle, last, scratch, precedes);
    if (!precedes(*middle, *(middle - 1))) {
        return;
    }
    T* const copyEnd =
        std::copy(first, middle, scratch.Space(static_cast<std::uint64_t>(middle - first)));
    std::merge(scratch.Space(0), copyEnd, middle, last, first, precedes);
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
