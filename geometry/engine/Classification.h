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

/// Classifies the events of one row, from left to right.
class RowClassifier {
public:
    explicit RowClassifier(gpc_op operation);

    /// Whether the edge has a part above or below the scanline; one without is no event.
    static bool IsEvent(const Edge& edge);

    /// Classifies an event, stores in the edge the parities on its left, and steps over it.
    VertexClass Classify(Edge& edge);

private:
    unsigned QuadrantsOf(Role role, Edge& edge);

    gpc_op m_operation;
    unsigned m_parity[2];
    Horizontal m_pending[2] = {Horizontal::None, Horizontal::None};
};

/// The parity of an operand far to the left of everything.
Parity OuterParity(gpc_op operation, Role role);

/// The class of the crossing of two edges that are neighbours, left before right.
VertexClass ClassifyCrossing(gpc_op operation, const Edge& left, const Edge& right);

} // namespace geom::detail
