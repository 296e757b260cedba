// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The sweep from the lowest ordinate to the highest.
///
/// Between two rows no edge begins or ends, so everything happens in two places: on the
/// scanline of a row, where bounds begin, bend and end (the boundary), and between two rows,
/// where two edges exchange places (a crossing). Each such event is classified by where the
/// result is inside around it, and the class is all that the output is told.
///
/// After Vatti, "A generic solution to polygon clipping", Communications of the ACM 35 (1992).

#include "geometry/engine/Classification.h"
#include "geometry/engine/SweepLine.h"

namespace geom::detail {

/// One run over an output, ContourOutput or StripOutput, which is told of every event.
template <typename Output>
class Sweep {
public:
    Sweep(gpc_op operation, const SweepInput& input, Output& output)
        : m_operation(operation), m_output(output), m_line(input), m_classifier(operation) {}

    void Run() {
        while (m_line.Rise()) {
            ProcessCrossings();
            if (Slot* slot = m_line.TakeSuccession()) {
                RowEvents::Renew(*slot);
                ProcessAlone(*slot);
            } else {
                m_line.FindEvents();
                ProcessRow();
                m_line.EndRow();
            }
        }
    }

private:
    // Edges exchange places at every crossing, whether or not it means anything to the result.
    void ProcessCrossings() {
        while (const Crossing* crossing = m_line.NextCrossing()) {
            Slot& left = *crossing->left;
            Slot& right = *crossing->right;
            if (left.flags[ABOVE] != 0 && right.flags[ABOVE] != 0) {
                m_output.AtCrossing(ClassifyCrossing(m_operation, left, right), left, right,
                                    {crossing->x, crossing->y + m_line.PreviousY()});
            }
            m_line.Exchange(*crossing);
        }
    }

    // Each run of events is walked from its first slot for as long as it goes on, or a
    // horizontal is pending, through slots that are no events as well.
    void ProcessRow() {
        if (Output::NEEDS_INTERVALS && m_line.AllAlone() && m_line.Events().Count() > 1) {
            m_line.PutInOrder(); // events inside one interval concern each other
        }
        const bool allAlone = m_line.AllAlone();
        const Block<Slot*>& events = m_line.Events();
        for (std::uint64_t next = 0; next < events.Count();) {
            Slot* slot = events[next];
            if (slot->alone && (allAlone || !Output::NEEDS_INTERVALS)) {
                ProcessAlone(*slot);
                ++next;
                continue;
            }
            for (StartRun(*slot); slot != nullptr; slot = NextInRun(*slot)) {
                if (m_line.IsEvent(*slot)) {
                    ++next;
                } else {
                    RowEvents::Renew(*slot);
                }
                ProcessEvent(*slot);
            }
        }
    }

    // Where one edge gives way to the next and nothing is near, it is a boundary of the result or
    // it is not; nothing else can happen.
    void ProcessAlone(Slot& slot) {
        const VertexClass vertexClass = ClassifySuccession(m_operation, slot);
        if (HasAction(vertexClass)) {
            m_output.BeginRun();
            if (Output::NEEDS_INTERVALS && vertexClass == VertexClass::RightEdge) {
                CarryLeftBoundary(slot.prev);
            }
            m_output.AtBoundary(vertexClass, slot, PointOnRow(slot));
            if (Output::NEEDS_INTERVALS && vertexClass == VertexClass::LeftEdge) {
                EndInterval(slot.next);
            }
        }
    }

    void StartRun(const Slot& slot) {
        m_output.BeginRun();
        m_classifier.StartBehind(slot.prev);
        if constexpr (Output::NEEDS_INTERVALS) {
            m_isInterior = m_classifier.IsInside();
            m_beforeRun = slot.prev;
        }
    }

    // A run that begins inside the result means nothing to it before the first event with an
    // action. The boundaries of the interval are looked for only then: between them can lie all
    // edges that one operand of a union has inside the other.
    void ProcessEvent(Slot& slot) {
        const VertexClass vertexClass = m_classifier.Classify(slot);
        if (HasAction(vertexClass)) {
            if (Output::NEEDS_INTERVALS && m_isInterior) {
                CarryLeftBoundary(m_beforeRun);
                m_isInterior = false;
            }
            m_output.AtBoundary(vertexClass, slot, PointOnRow(slot));
        }
    }

    Slot* NextInRun(const Slot& slot) {
        Slot* next = slot.next;
        if (next == nullptr || m_line.IsEvent(*next) || m_classifier.HasPending()) {
            return next;
        }
        if constexpr (Output::NEEDS_INTERVALS) {
            if (m_classifier.IsInside() && !m_isInterior) {
                return EndInterval(next);
            }
        }
        return nullptr;
    }

    // The left boundary of the interval in which a run begins hands its strip to the run.
    void CarryLeftBoundary(Slot* slot) {
        while (slot != nullptr && IsInside(m_operation, slot->sides)) {
            slot = slot->prev;
        }
        if (slot != nullptr) {
            RowEvents::Renew(*slot);
            slot->outp[ABOVE] = slot->outp[BELOW];
            if constexpr (Output::NEEDS_INTERVALS) {
                m_output.CarryFrom(*slot, slot->XAt(m_line.Y()));
            }
        }
    }

    // The right boundary of the interval in which a run ends takes over its strip, unless an
    // event comes first: then the run goes on there.
    Slot* EndInterval(Slot* slot) {
        while (slot != nullptr && !m_line.IsEvent(*slot)) {
            if (!IsInside(m_operation, static_cast<RoleMask>(slot->sides ^ slot->flags[ABOVE]))) {
                RowEvents::Renew(*slot);
                m_output.AtBoundary(VertexClass::RightEdge, *slot, PointOnRow(*slot));
                return nullptr;
            }
            slot = slot->next;
        }
        if (slot != nullptr) {
            m_classifier.StartBehind(slot->prev);
        }
        return slot;
    }

    gpc_vertex PointOnRow(const Slot& slot) const { return {slot.XAt(m_line.Y()), m_line.Y()}; }

    gpc_op m_operation;
    Output& m_output;
    SweepLine m_line;
    RowClassifier m_classifier;
    bool m_isInterior = false;   ///< so far, the run in hand lies inside the result
    Slot* m_beforeRun = nullptr; ///< the slot on its left
};

} // namespace geom::detail
