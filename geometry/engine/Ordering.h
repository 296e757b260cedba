// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Sorting that equals insertion into a list, one after another.

#include "geometry/engine/Memory.h"

#include <algorithm>

namespace geom::detail {

/// Orders the items as inserting them one by one would, each before the first item that it
/// must precede, so that equal items keep their order.
///
/// `precedes(a, b)` compares keys only; `order` is the member that holds each item's number in
/// the sequence of insertion. An item for which `isUndefined` holds compares as neither before
/// nor after any other (its key overflowed to no number), and no sorting algorithm could place
/// it: only then are the insertions really made.
template <typename T, typename Precedes, typename IsUndefined>
void OrderAsInserted(Block<T>& items, Precedes precedes, IsUndefined isUndefined) {
    if (std::is_sorted(items.begin(), items.end(), precedes) &&
        std::none_of(items.begin(), items.end(), isUndefined)) {
        return;
    }
    if (std::none_of(items.begin(), items.end(), isUndefined)) {
        std::sort(items.begin(), items.end(), [precedes](const T& a, const T& b) {
            return precedes(a, b) || (!precedes(b, a) && a.order < b.order);
        });
        return;
    }
    for (T* item = items.begin(); item != items.end(); ++item) {
        T* place = std::find_if(items.begin(), item,
                                [&](const T& other) { return precedes(*item, other); });
        std::rotate(place, item, item + 1);
    }
}

} // namespace geom::detail
