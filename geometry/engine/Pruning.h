// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Finds the contours that cannot contribute to an intersection or a difference because their
/// boxes meet no contour of the other operand.

#include "geometry/engine/Memory.h"
#include "geometry/engine/Records.h"

namespace geom::detail {

/// Which contours of an operand take no part in the run. The marks belong to the run: operands
/// are never written, so that one may serve several threads.
class ContourMarks {
public:
    ContourMarks() : m_marks("overlap table creation") {}

    /// Leaves every contour unmarked until Mark is called.
    void Expect(std::uint32_t contours);
    void Mark(std::uint32_t contour) { m_marks[contour] = 1; }
    bool IsMarked(std::uint32_t contour) const {
        return !m_marks.IsEmpty() && m_marks[contour] != 0;
    }

private:
    Block<std::uint8_t> m_marks; ///< empty when nothing is marked
};

/// Marks, for a difference or an intersection, each clip contour whose box overlaps no subject
/// contour's box, and for an intersection each subject contour whose box overlaps no clip
/// contour's. Boxes that only touch do overlap.
void MarkNonContributing(gpc_op operation, const Operand& subject, const Operand& clip,
                         ContourMarks& subjectMarks, ContourMarks& clipMarks);

} // namespace geom::detail
