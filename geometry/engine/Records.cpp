// SPDX-License-Identifier: MIT
#include "geometry/engine/Records.h"

namespace geom::detail {

Slot* FirstOfBundle(Slot* head) {
    Slot* first = head;
    if (head->state == BundleState::Head) {
        while (first->prev != nullptr && first->prev->state == BundleState::Tail) {
            first = first->prev;
        }
    }
    return first;
}

} // namespace geom::detail
