// SPDX-License-Identifier: MIT
#include "geometry/engine/Classification.h"

#include "geometry/engine/Lines.h"

namespace geom::detail {

namespace {

constexpr int COLUMNS = 6;

constexpr Horizontal NH = Horizontal::None;
constexpr Horizontal BH = Horizontal::Bottom;
constexpr Horizontal TH = Horizontal::Top;

// clang-format off
constexpr Horizontal NEXT_STATE[3][COLUMNS] = {
    //      above only  below only   through
    /*NH*/ {BH, TH,     TH, BH,      NH, NH},
    /*BH*/ {NH, NH,     NH, NH,      TH, TH},
    /*TH*/ {NH, NH,     NH, NH,      BH, BH},
};
// clang-format on

VertexClass Combine(gpc_op operation, unsigned clip, unsigned subject) {
    switch (operation) {
    case GPC_XOR: return static_cast<VertexClass>(clip ^ subject);
    case GPC_UNION: return static_cast<VertexClass>(clip | subject);
    case GPC_DIFF:
    case GPC_INT: break;
    }
    return static_cast<VertexClass>(clip & subject);
}

// Where one operand is inside around a crossing. Below it lies the strip behind the left edge
// and before the right one; either edge that belongs to the operand knows the parity there.
unsigned QuadrantsAtCrossing(Role role, const Edge& left, const Edge& right) {
    const unsigned l = left.bundle[ABOVE][role];
    const unsigned r = right.bundle[ABOVE][role];
    const bool inside = (l != 0 && left.side[role] == LEFT) ||
                        (r != 0 && right.side[role] == RIGHT) ||
                        (l == 0 && r == 0 && left.side[role] == RIGHT && right.side[role] == RIGHT);
    const unsigned in = inside ? 1 : 0;
    return in | (in ^ r) << 1U | (in ^ l) << 2U | (in ^ r ^ l) << 3U;
}

} // namespace

Horizontal NextHorizontalState(Horizontal state, int column) {
    if (static_cast<unsigned>(column) >= COLUMNS) {
        ThrowEngineError(LINE_HORIZONTAL_COLUMN);
    }
    return NEXT_STATE[static_cast<unsigned>(state)][column];
}

Parity OuterParity(gpc_op operation, Role role) {
    return operation == GPC_DIFF && role == CLIP ? RIGHT : LEFT;
}

RowClassifier::RowClassifier(gpc_op operation)
    : m_operation(operation), m_parity{OuterParity(operation, CLIP),
                                       OuterParity(operation, SUBJECT)} {}

bool RowClassifier::IsEvent(const Edge& edge) {
    return (edge.bundle[ABOVE][CLIP] | edge.bundle[ABOVE][SUBJECT] | edge.bundle[BELOW][CLIP] |
            edge.bundle[BELOW][SUBJECT]) != 0;
}

// An edge that does not contribute to the result needs no test of its own: its class comes out
// as one without an action (Empty, TopEdge, BottomEdge or Full).
VertexClass RowClassifier::Classify(Edge& edge) {
    const unsigned clip = QuadrantsOf(CLIP, edge);
    const unsigned subject = QuadrantsOf(SUBJECT, edge);
    return Combine(m_operation, clip, subject);
}

unsigned RowClassifier::QuadrantsOf(Role role, Edge& edge) {
    const unsigned above = edge.bundle[ABOVE][role];
    const unsigned below = edge.bundle[BELOW][role];
    const unsigned aboveBefore = m_parity[role];
    const unsigned belowBefore = aboveBefore ^ (m_pending[role] != Horizontal::None ? 1U : 0U);
    edge.side[role] = static_cast<std::uint8_t>(aboveBefore);
    m_parity[role] ^= above;
    const unsigned exists = above + 2 * below;
    if (exists != 0) {
        const int column = static_cast<int>((exists - 1) * 2 + m_parity[role]);
        m_pending[role] = NextHorizontalState(m_pending[role], column);
    }
    return belowBefore | (belowBefore ^ below) << 1U | aboveBefore << 2U |
           (aboveBefore ^ above) << 3U;
}

VertexClass ClassifyCrossing(gpc_op operation, const Edge& left, const Edge& right) {
    return Combine(operation, QuadrantsAtCrossing(CLIP, left, right),
                   QuadrantsAtCrossing(SUBJECT, left, right));
}

} // namespace geom::detail
