// SPDX-License-Identifier: MIT
#include "geometry/engine/Minima.h"

#include "geometry/engine/Lines.h"
#include "geometry/engine/Ordering.h"

#include <algorithm>
#include <cmath>

namespace geom::detail {

namespace {

// One bound of a point at which several minima meet.
struct Start {
    double dx;
    LocalMinimum bound;
};

bool SamePoint(const LocalMinimum& a, const LocalMinimum& b) {
    return a.y == b.y && a.x == b.x;
}

const LocalMinimum* EndOfPoint(const LocalMinimum* first, const LocalMinimum* end) {
    const LocalMinimum* last = first;
    while (++last != end && SamePoint(*first, *last)) {
    }
    return last;
}

const LocalMinimum* EndOfContour(const LocalMinimum* first, const LocalMinimum* end) {
    return std::find_if(first, end, [first](const LocalMinimum& m) {
        return m.contour != first->contour || m.role != first->role;
    });
}

// The slope of the first edge of a single bound.
double SlopeOf(const LocalMinimum& bound, const Operand& operand) {
    const gpc_vertex* ring = operand.Vertices(bound.contour);
    const std::uint32_t top =
        NextVertex(bound.vertex, operand.VertexCount(bound.contour), bound.forward);
    return Slope(ring[bound.vertex], ring[top]);
}

} // namespace

void LocalMinima::Append(const Operand& operand, const ContourMarks& marks) {
    for (std::uint32_t c = 0; c < operand.ContourCount(); ++c) {
        const std::uint32_t size = operand.VertexCount(c);
        if (size > 0 && !marks.IsMarked(c)) {
            AppendRing(operand.Vertices(c), size, c, operand.GetRole());
        }
    }
}

// A bound begins where the ring stops falling, or being level, and starts to rise; of a level
// bottom only one end rises in each direction. A vertex in the middle of a level run bends
// nothing; its ordinate counts only through the ends of the run.
void LocalMinima::AppendRing(const gpc_vertex* ring, std::uint32_t size, std::uint32_t contour,
                             Role role) {
    double notFinite = 0.0; // stays zero while all coordinates are finite
    double largest = m_largest;
    double smallestRise = m_smallestRise;
    double previous = ring[size - 1].y;
    for (std::uint32_t i = 0; i < size; ++i) {
        const gpc_vertex v = ring[i];
        const double next = ring[i + 1 < size ? i + 1 : 0].y;
        notFinite += (v.x - v.x) + (v.y - v.y);
        largest = std::max(largest, std::max(std::fabs(v.x), std::fabs(v.y)));
        const double rise = std::fabs(next - v.y);
        smallestRise = rise < smallestRise && rise > 0 ? rise : smallestRise;
        if (v.y == 0.0 && !m_hasZero && (previous != v.y || next != v.y)) {
            m_firstZero = v.y;
            m_hasZero = true;
        }
        const bool forward = previous >= v.y && next > v.y;
        const bool reverse = next >= v.y && previous > v.y;
        if (forward || reverse) {
            m_minima.Append({v.y, v.x, contour, i, role, forward, reverse});
        }
        previous = v.y;
    }
    if (notFinite != 0.0) {
        ThrowArgumentError(LINE_COORDINATE_NOT_FINITE);
    }
    m_largest = largest;
    m_smallestRise = smallestRise;
}

// Up to the first bound sums of a few coordinates stay finite, and above the second the slope of
// every edge does.
bool LocalMinima::MayOverflow() const {
    return m_largest > 0x1p1020 || m_smallestRise < m_largest * 0x1p-1020;
}

void LocalMinima::Sort(const Operand& subject, const Operand& clip) {
    MergeSort(m_minima.begin(), m_minima.end(), m_scratch,
              [](const LocalMinimum& a, const LocalMinimum& b) {
                  return a.y != b.y ? a.y < b.y : a.x < b.x;
              });
    if (std::adjacent_find(m_minima.begin(), m_minima.end(), &SamePoint) != m_minima.end()) {
        CutSharedPoints(subject, clip);
    }
}

void LocalMinima::CutSharedPoints(const Operand& subject, const Operand& clip) {
    Block<Start> starts("LMT insertion");
    Block<Start> scratch("LMT insertion");
    const auto cut = [&](const LocalMinimum& minimum, bool forward) {
        if (forward ? minimum.forward : minimum.reverse) {
            LocalMinimum bound = minimum;
            bound.forward = forward;
            bound.reverse = !forward;
            starts.Append({SlopeOf(bound, minimum.role == SUBJECT ? subject : clip), bound});
        }
    };
    m_scratch.Clear();
    const LocalMinimum* last = nullptr;
    for (const LocalMinimum* first = m_minima.begin(); first != m_minima.end(); first = last) {
        last = EndOfPoint(first, m_minima.end());
        if (last - first == 1) {
            m_scratch.Append(*first);
            continue;
        }
        starts.Clear();
        for (const LocalMinimum* ring = first; ring != last;) {
            const LocalMinimum* ringEnd = EndOfContour(ring, last);
            std::for_each(ring, ringEnd, [&](const LocalMinimum& m) { cut(m, true); });
            std::for_each(ring, ringEnd, [&](const LocalMinimum& m) { cut(m, false); });
            ring = ringEnd;
        }
        OrderAsInserted(
            starts, scratch, [](const Start& a, const Start& b) { return a.dx < b.dx; },
            [](const Start& start) { return std::isnan(start.dx); });
        for (const Start& start : starts) {
            m_scratch.Append(start.bound);
        }
    }
    m_minima.Swap(m_scratch);
}

} // namespace geom::detail
