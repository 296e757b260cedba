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

// The set operation as data: bit m is set when the result is inside where exactly the operands
// of the mask m are.
constexpr unsigned InsideMasks(gpc_op operation) {
    switch (operation) {
    case GPC_XOR: return 0b0110;
    case GPC_UNION: return 0b1110;
    case GPC_DIFF:
    case GPC_INT: break;
    }
    return 0b1000;
}

VertexClass Combine(gpc_op operation, unsigned belowBefore, unsigned belowAfter,
                    unsigned aboveBefore, unsigned aboveAfter) {
    const unsigned inside = InsideMasks(operation);
    const auto bit = [inside](unsigned roles) { return inside >> roles & 1U; };
    return static_cast<VertexClass>(bit(belowBefore) | bit(belowAfter) << 1U |
                                    bit(aboveBefore) << 2U | bit(aboveAfter) << 3U);
}

} // namespace

Horizontal NextHorizontalState(Horizontal state, int column) {
    if (static_cast<unsigned>(column) >= COLUMNS) {
        ThrowEngineError(LINE_HORIZONTAL_COLUMN);
    }
    return NEXT_STATE[static_cast<unsigned>(state)][column];
}

RoleMask OuterSides(gpc_op operation) {
    return operation == GPC_DIFF ? 1U << CLIP : 0U;
}

bool IsInside(gpc_op operation, RoleMask sides) {
    return (InsideMasks(operation) >> sides & 1U) != 0;
}

// An edge that does not contribute to the result needs no test of its own: its class comes out
// as one without an action (Empty, TopEdge, BottomEdge or Full).
VertexClass RowClassifier::Classify(Slot& slot) {
    const unsigned aboveBefore = m_sides;
    const unsigned belowBefore = aboveBefore ^ m_pendingRoles;
    slot.sides = m_sides;
    m_sides = static_cast<RoleMask>(m_sides ^ slot.flags[ABOVE]);
    StepOver(slot, CLIP);
    StepOver(slot, SUBJECT);
    return Combine(m_operation, belowBefore, belowBefore ^ slot.flags[BELOW], aboveBefore, m_sides);
}

void RowClassifier::StepOver(const Slot& slot, Role role) {
    const unsigned bit = 1U << role;
    const bool above = (slot.flags[ABOVE] & bit) != 0;
    const bool below = (slot.flags[BELOW] & bit) != 0;
    if (!above && !below) {
        return;
    }
    const int exists = (above ? 1 : 0) + (below ? 2 : 0);
    const int parity = (m_sides & bit) != 0 ? 1 : 0;
    m_pending[role] = NextHorizontalState(m_pending[role], (exists - 1) * 2 + parity);
    m_pendingRoles = static_cast<RoleMask>(
        m_pending[role] != Horizontal::None ? m_pendingRoles | bit : m_pendingRoles & ~bit);
}

// Below the crossing lies the strip behind the left edge and before the right one; either edge
// that belongs to an operand knows its parity there.
VertexClass ClassifyCrossing(gpc_op operation, const Slot& left, const Slot& right) {
    const unsigned l = left.flags[ABOVE];
    const unsigned r = right.flags[ABOVE];
    const unsigned both = 0b11;
    const unsigned neither = both & ~(l | r);
    const unsigned below =
        (l & ~unsigned{left.sides}) | (r & right.sides) | (neither & left.sides & right.sides);
    return Combine(operation, below, below ^ r, below ^ l, below ^ l ^ r);
}

VertexClass ClassifySuccession(gpc_op operation, const Slot& slot) {
    const unsigned before = slot.sides;
    const unsigned after = before ^ slot.flags[ABOVE];
    return Combine(operation, before, after, before, after);
}

} // namespace geom::detail
