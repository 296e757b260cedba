// SPDX-License-Identifier: MIT
#include "geometry/Gpc.h"

#include "geometry/engine/Contours.h"
#include "geometry/engine/Lines.h"
#include "geometry/engine/Pruning.h"
#include "geometry/engine/Strips.h"
#include "geometry/engine/Sweep.h"

namespace geom {

namespace {

using namespace detail;

void CheckArguments(gpc_op operation, const void* subject, const void* clip, const void* result) {
    if (operation < GPC_DIFF || operation > GPC_UNION) {
        ThrowArgumentError(LINE_UNKNOWN_OPERATION);
    }
    if (subject == nullptr || clip == nullptr || result == nullptr) {
        ThrowArgumentError(LINE_NULL_ARGUMENT);
    }
}

bool IsTriviallyEmpty(gpc_op operation, const Operand& subject, const Operand& clip) {
    const bool noSubject = subject.ContourCount() == 0;
    const bool noClip = clip.ContourCount() == 0;
    const bool needsSubject = operation == GPC_DIFF || operation == GPC_INT;
    return (noSubject && (noClip || needsSubject)) || (noClip && operation == GPC_INT);
}

// Returns false when there is nothing to sweep over.
bool Prepare(gpc_op operation, SweepInput& input) {
    const Operand& subject = input.subject;
    const Operand& clip = input.clip;
    if (IsTriviallyEmpty(operation, subject, clip)) {
        return false;
    }
    ContourMarks subjectMarks;
    ContourMarks clipMarks;
    const bool canPrune = operation == GPC_DIFF || operation == GPC_INT;
    if (canPrune && subject.ContourCount() > 0 && clip.ContourCount() > 0) {
        MarkNonContributing(operation, subject, clip, subjectMarks, clipMarks);
    }
    input.minima.Append(subject, subjectMarks);
    input.minima.Append(clip, clipMarks);
    input.minima.Sort(subject, clip);
    return !input.minima.IsEmpty();
}

template <typename Output, typename Result>
Result Compute(gpc_op operation, const gpc_polygon& subject, const gpc_polygon& clip) {
    SweepInput input(subject, clip);
    if (!Prepare(operation, input)) {
        return {};
    }
    Output output;
    Sweep<Output>(operation, input, output).Run();
    return output.TakeResult();
}

} // namespace

void gpc_polygon_clip(gpc_op operation, const gpc_polygon* subject, const gpc_polygon* clip,
                      gpc_polygon* result) {
    CheckArguments(operation, subject, clip, result);
    const auto made = Compute<ContourOutput, gpc_polygon>(operation, *subject, *clip);
    if (result == subject || result == clip) {
        gpc_free_polygon(result);
    }
    *result = made;
}

void gpc_tristrip_clip(gpc_op operation, const gpc_polygon* subject, const gpc_polygon* clip,
                       gpc_tristrip* result) {
    CheckArguments(operation, subject, clip, result);
    *result = Compute<StripOutput, gpc_tristrip>(operation, *subject, *clip);
}

void gpc_polygon_to_tristrip(const gpc_polygon* polygon, gpc_tristrip* result) {
    const gpc_polygon nothing = {0, nullptr, nullptr};
    gpc_tristrip_clip(GPC_DIFF, polygon, &nothing, result);
}

} // namespace geom
