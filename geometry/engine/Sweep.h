// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The sweep over the scanbeams, from the lowest ordinate to the highest.
///
/// Inside a scanbeam no edge begins or ends, so everything happens in two places: on the
/// scanline at its bottom, where bounds begin, bend and end (the boundary), and where two edges
/// exchange places (a crossing). Each such event is classified by where the result is inside
/// around it, and the class is all that the output is told:
///
///     BeginRow()                          before the events of a scanline, left to right
///     AtBoundary(class, edge, yb)         an event on the scanline
///     AtCrossing(class, left, right, p)   a crossing of two edges that both carry an operand
///
/// After Vatti, "A generic solution to polygon clipping", Communications of the ACM 35 (1992).

#include "geometry/engine/ActiveEdges.h"
#include "geometry/engine/Bounds.h"
#include "geometry/engine/Classification.h"
#include "geometry/engine/Crossings.h"
#include "geometry/engine/Scanbeams.h"

namespace geom::detail {

/// What a run sweeps over: the edges of both operands, their minima and their ordinates.
struct SweepInput {
    Bounds subject;
    Bounds clip;
    LocalMinima minima;
    Scanbeams scanbeams;
};

/// One run over an output, which is told of every event that has a class.
template <typename Output>
class Sweep {
public:
    Sweep(gpc_op operation, const SweepInput& input, Output& output)
        : m_operation(operation), m_input(input), m_output(output),
          m_nextMinimum(input.minima.begin()) {}

    void Run() {
        const std::uint64_t count = m_input.scanbeams.Count();
        for (std::uint64_t i = 0; i < count; ++i) {
            const double yb = m_input.scanbeams[i];
            StartBounds(yb);
            m_active.FormBundles(yb);
            ProcessBoundary(yb);
            m_active.RemoveEnded(yb);
            if (i + 1 < count) {
                const double yt = m_input.scanbeams[i + 1];
                m_active.ProjectTo(yt);
                ProcessCrossings(yb, yt - yb);
                m_active.Advance(yt);
            }
        }
    }

private:
    void StartBounds(double yb) {
        const LocalMinimum* first = m_nextMinimum;
        while (m_nextMinimum != m_input.minima.end() && m_nextMinimum->y == yb) {
            ++m_nextMinimum;
        }
        m_active.Insert(first, m_nextMinimum);
    }

    void ProcessBoundary(double yb) {
        RowClassifier classifier(m_operation);
        m_output.BeginRow();
        for (Edge* edge = m_active.First(); edge != nullptr; edge = edge->next) {
            if (RowClassifier::IsEvent(*edge)) {
                m_output.AtBoundary(classifier.Classify(*edge), *edge, yb);
            }
        }
    }

    // Edges exchange places at every crossing, whether or not it means anything to the result.
    void ProcessCrossings(double yb, double dy) {
        m_crossings.Find(m_active, dy);
        while (const Crossing* crossing = m_crossings.Next()) {
            Edge& left = *crossing->left;
            Edge& right = *crossing->right;
            if (left.CarriesAbove() && right.CarriesAbove()) {
                m_output.AtCrossing(ClassifyCrossing(m_operation, left, right), left, right,
                                    {crossing->x, crossing->y + yb});
            }
            FlipSides(left, right);
            m_active.SwapBundles(&left, &right);
        }
    }

    static void FlipSides(Edge& left, Edge& right) {
        for (unsigned role = CLIP; role <= SUBJECT; ++role) {
            right.side[role] ^= left.bundle[ABOVE][role];
            left.side[role] ^= right.bundle[ABOVE][role];
        }
    }

    gpc_op m_operation;
    const SweepInput& m_input;
    Output& m_output;
    const LocalMinimum* m_nextMinimum;
    ActiveEdges m_active;
    CrossingTable m_crossings;
};

} // namespace geom::detail
