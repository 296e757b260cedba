// SPDX-License-Identifier: MIT
#include "geometry/engine/ActiveEdges.h"

#include "geometry/engine/Lines.h"

#include <cmath>

namespace geom::detail {

namespace {

bool Precedes(const Edge* edge, const Edge* other) {
    return other->xb > edge->xb || (other->xb == edge->xb && other->dx > edge->dx);
}

bool Coincide(const Edge* a, const Edge* b) {
    return std::fabs(a->xb - b->xb) <= GPC_EPSILON && std::fabs(a->dx - b->dx) <= GPC_EPSILON;
}

// The first edge in list order of the bundle whose head, or only edge, is given.
Edge* FirstOfBundle(Edge* head) {
    Edge* first = head;
    if (head->state == BundleState::Head) {
        while (first->prev != nullptr && first->prev->state == BundleState::Tail) {
            first = first->prev;
        }
    }
    return first;
}

// The carried head takes over all flags of a bundle; an even number of edges of one role cancel.
void Join(Edge* tail, Edge* head) {
    head->bundle[ABOVE][head->role] ^= tail->bundle[ABOVE][head->role];
    head->bundle[ABOVE][1 - head->role] = tail->bundle[ABOVE][1 - head->role];
    head->state = BundleState::Head;
    tail->bundle[ABOVE][CLIP] = 0;
    tail->bundle[ABOVE][SUBJECT] = 0;
    tail->state = BundleState::Tail;
}

} // namespace

// The minima of a row ascend, so the place of each is behind that of the one before it: what
// need not follow the earlier edge need not follow the later one. Only a slope that is no number
// (its edge overflowed) compares with nothing, and the walk then starts anew.
void ActiveEdges::Insert(const LocalMinimum* first, const LocalMinimum* last) {
    Edge* place = nullptr; // the edge behind which the walk goes on
    for (const LocalMinimum* minimum = first; minimum != last; ++minimum) {
        Edge* edge = minimum->bound;
        if (place != nullptr && std::isnan(place->dx)) {
            place = nullptr;
        }
        Edge* next = place != nullptr ? place->next : m_first;
        while (next != nullptr && !Precedes(edge, next)) {
            place = next;
            next = next->next;
        }
        InsertAfter(place, edge);
        place = edge;
    }
}

void ActiveEdges::InsertAfter(Edge* place, Edge* edge) {
    Edge*& link = place != nullptr ? place->next : m_first;
    edge->prev = place;
    edge->next = link;
    if (edge->next != nullptr) {
        edge->next->prev = edge;
    }
    link = edge;
}

void ActiveEdges::FormBundles(double yb) {
    if (m_first == nullptr) {
        ThrowArgumentError(LINE_NO_ACTIVE_EDGES);
    }
    Edge* last = nullptr; // the last edge so far that reaches above yb
    for (Edge* edge = m_first; edge != nullptr; edge = edge->next) {
        const bool reachesAbove = edge->top.y != yb;
        edge->bundle[ABOVE][edge->role] = reachesAbove ? 1 : 0;
        edge->bundle[ABOVE][1 - edge->role] = 0;
        edge->state = BundleState::Unbundled;
        if (!reachesAbove) {
            continue;
        }
        if (last != nullptr && Coincide(last, edge)) {
            Join(last, edge);
        }
        last = edge;
    }
}

// What lies below a removed edge need not be handed to its neighbours: every BELOW value is
// written anew by Advance before it is read again.
void ActiveEdges::RemoveEnded(double yb) {
    for (Edge* edge = m_first; edge != nullptr; edge = edge->next) {
        if (edge->top.y == yb) {
            (edge->prev != nullptr ? edge->prev->next : m_first) = edge->next;
            if (edge->next != nullptr) {
                edge->next->prev = edge->prev;
            }
        }
    }
}

// The end point itself is taken where an edge ends: rounding must not move it.
void ActiveEdges::ProjectTo(double yt) const {
    for (Edge* edge = m_first; edge != nullptr; edge = edge->next) {
        edge->xt = edge->top.y == yt ? edge->top.x : XAt(*edge, yt);
    }
}

bool ActiveEdges::AreAdjacent(const Edge* left, const Edge* right) {
    return FirstOfBundle(const_cast<Edge*>(right))->prev == left;
}

//     ... before | first .. left | second .. right | after ...
//     ... before | second .. right | first .. left | after ...
void ActiveEdges::SwapBundles(Edge* left, Edge* right) {
    Edge* first = FirstOfBundle(left);
    Edge* second = left->next;
    Edge* before = first->prev;
    Edge* after = right->next;
    (before != nullptr ? before->next : m_first) = second;
    second->prev = before;
    right->next = first;
    first->prev = right;
    left->next = after;
    if (after != nullptr) {
        after->prev = left;
    }
}

void ActiveEdges::Replace(Edge* old, Edge* edge) {
    edge->prev = old->prev;
    edge->next = old->next;
    (edge->prev != nullptr ? edge->prev->next : m_first) = edge;
    if (edge->next != nullptr) {
        edge->next->prev = edge;
    }
}

void ActiveEdges::Advance(double yt) {
    for (Edge* edge = m_first; edge != nullptr; edge = edge->next) {
        Edge* upper = edge;
        if (edge->top.y == yt && edge->succ != nullptr) {
            upper = edge->succ;
            Replace(edge, upper);
        } else {
            edge->xb = edge->xt;
        }
        upper->outp[BELOW] = edge->outp[ABOVE];
        upper->bundle[BELOW][CLIP] = edge->bundle[ABOVE][CLIP];
        upper->bundle[BELOW][SUBJECT] = edge->bundle[ABOVE][SUBJECT];
        upper->outp[ABOVE] = NO_OUTPUT;
    }
}

} // namespace geom::detail
