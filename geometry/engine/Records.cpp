// SPDX-License-Identifier: MIT
#include "geometry/engine/Records.h"

#include <cmath>

namespace geom::detail {

bool Coincide(const Slot& a, const Slot& b, double y) {
    return std::fabs(a.dx - b.dx) <= GPC_EPSILON && std::fabs(a.XAt(y) - b.XAt(y)) <= GPC_EPSILON;
}

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
