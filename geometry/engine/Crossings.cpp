// SPDX-License-Identifier: MIT
#include "geometry/engine/Crossings.h"

#include "geometry/engine/Lines.h"
#include "geometry/engine/Ordering.h"

#include <algorithm>
#include <cmath>

namespace geom::detail {

namespace {

// Tails, and bundles that end at the bottom, have nothing to cross with.
bool TakesPart(const Edge& edge) {
    return edge.state == BundleState::Head || edge.CarriesAbove();
}

} // namespace

// An insertion sort by x at the top: each edge met in the walk is compared with those already
// there, from the right, and every edge that it has to pass is one that it crosses.
void CrossingTable::Find(const ActiveEdges& active, double dy) {
    m_crossings.Clear();
    m_sorted.Clear();
    m_deferred.Clear();
    m_next = 0;
    for (Edge* edge = active.First(); edge != nullptr; edge = edge->next) {
        if (TakesPart(*edge)) {
            InsertSorted(edge, dy);
        }
    }
    OrderAsInserted(
        m_crossings, [](const Crossing& a, const Crossing& b) { return a.y < b.y; },
        [](const Crossing& c) { return std::isnan(c.y); });
}

void CrossingTable::InsertSorted(Edge* edge, double dy) {
    const SortedEdge item{edge, edge->xb, edge->xt, edge->dx};
    m_sorted.Append(item);
    std::uint64_t place = m_sorted.Count() - 1;
    while (place > 0) {
        const SortedEdge& other = m_sorted[place - 1];
        const double den = (other.xt - other.xb) - (item.xt - item.xb);
        const bool passes =
            item.xt < other.xt && item.dx != other.dx && std::fabs(den) > GPC_EPSILON;
        if (!passes) {
            break;
        }
        const double r = (item.xb - other.xb) / den;
        const double x = other.xb + r * (other.xt - other.xb);
        const auto order = static_cast<std::uint32_t>(m_crossings.Count());
        m_crossings.Append({x, r * dy, other.edge, edge, order});
        m_sorted[place] = other;
        --place;
    }
    m_sorted[place] = item;
}

const Crossing* CrossingTable::Next() {
    if (const Crossing* deferred = NextDeferred()) {
        return deferred;
    }
    for (; m_next < m_crossings.Count(); ++m_next) {
        const Crossing& crossing = m_crossings[m_next];
        if (ActiveEdges::AreAdjacent(crossing.left, crossing.right)) {
            ++m_next;
            return &crossing;
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
        if (ActiveEdges::AreAdjacent(crossing.left, crossing.right)) {
            std::copy(m_deferred.begin() + i + 1, m_deferred.end(), m_deferred.begin() + i);
            m_deferred.Truncate(m_deferred.Count() - 1);
            return &crossing;
        }
    }
    return nullptr;
}

} // namespace geom::detail
