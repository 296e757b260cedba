// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// What an event on the boundary means for the result.
///
/// Around any event lie four quadrants, one bit each, named by the walk along the scanline:
///
///                   before | after                  at a crossing:   \  8  /
///         above        4   |   8                                     \   /
///         ------------- yb * --------> walk                        4    X    2
///         below        1   |   2                                     /   \ .
///                                                                   /  1  \ .
///
/// The bits set for one operand say where it is inside. The set operation on the two masks gives
/// the quadrants where the result is inside, and that value is the vertex class. Nothing else in
/// the sweep knows the operation: a difference turns its clip operand inside out beforehand.

#include "geometry/engine/Records.h"

namespace geom::detail {

/// The quadrants in which the result is inside.
enum class VertexClass : std::uint8_t {
    Empty = 0,
    ExternalMaximum = 1,
    ExternalLeftIntermediate = 2,
    TopEdge = 3,
    ExternalRightIntermediate = 4,
    RightEdge = 5,
    InternalMaximumAndMinimum = 6,
    InternalMinimum = 7,
    ExternalMinimum = 8,
    ExternalMaximumAndMinimum = 9,
    LeftEdge = 10,
    InternalLeftIntermediate = 11,
    BottomEdge = 12,
    InternalRightIntermediate = 13,
    InternalMaximum = 14,
    Full = 15
};

/// Whether an event of this class means anything to an output.
inline bool HasAction(VertexClass vertexClass) {
    constexpr unsigned SILENT = 1U << 0U | 1U << 3U | 1U << 12U | 1U << 15U;
    return (SILENT >> static_cast<unsigned>(vertexClass) & 1U) == 0;
}

/// Whether an operand has a horizontal edge pending, and of which kind.
///
/// One is pending between an event where the operand has an edge on one side of the scanline
/// only and the next such event; an edge that passes through changes the kind.
enum class Horizontal : std::uint8_t { None, Bottom, Top };

/// The state after an event, from the state before it and the column
/// (exists - 1) * 2 + parity, where exists is 1 for an edge above the scanline only, 2 for
/// below only and 3 for both, and the parity is that behind the event. Throws GPCException for
/// a column outside 0 to 5.
Horizontal NextHorizontalState(Horizontal state, int column);

/// The parities far to the left of everything.
RoleMask OuterSides(gpc_op operation);

/// Whether the result is inside where the operands have these parities.
bool IsInside(gpc_op operation, RoleMask sides);

/// Classifies the events of one row, from left to right.
class RowClassifier {
public:
    explicit RowClassifier(gpc_op operation)
        : m_operation(operation), m_sides(OuterSides(operation)) {}

    /// Starts behind a slot that is no event, or at the left end of the row behind null. No
    /// horizontal is pending there.
    void StartBehind(const Slot* slot) {
        m_sides = slot != nullptr ? static_cast<RoleMask>(slot->sides ^ slot->flags[ABOVE])
                                  : OuterSides(m_operation);
        m_pendingRoles = 0;
        m_pending[CLIP] = m_pending[SUBJECT] = Horizontal::None;
    }

    /// Classifies an event, stores in the slot the parities on its left, and steps over it.
    VertexClass Classify(Slot& slot);

    /// Whether an operand has a horizontal pending behind the last event.
    bool HasPending() const { return m_pendingRoles != 0; }
    /// Whether the result is inside above the row behind the last event.
    bool IsInside() const { return detail::IsInside(m_operation, m_sides); }

private:
    void StepOver(const Slot& slot, Role role);

    gpc_op m_operation;
    RoleMask m_sides;
    RoleMask m_pendingRoles = 0;
    Horizontal m_pending[2] = {Horizontal::None, Horizontal::None};
};

/// The class of the crossing of two edges that are neighbours, left before right.
VertexClass ClassifyCrossing(gpc_op operation, const Slot& left, const Slot& right);

/// The class of an edge that gives way to the next one of its bound, with nothing else near.
VertexClass ClassifySuccession(gpc_op operation, const Slot& slot);

} // namespace geom::detail
