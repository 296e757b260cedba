// SPDX-License-Identifier: MIT
#include "geometry/engine/Minima.h"

#include "geometry/engine/Lines.h"
#include "geometry/engine/Ordering.h"

#include <cmath>

namespace geom::detail {

void LocalMinima::Append(const Operand& operand, const ContourMarks& marks) {
    for (std::uint32_t c = 0; c < operand.ContourCount(); ++c) {
        const std::uint32_t size = operand.VertexCount(c);
        if (size > 0 && !marks.IsMarked(c)) {
            const gpc_vertex* ring = operand.Vertices(c);
            Inspect(ring, size);
            AppendBounds(ring, size, c, operand.GetRole(), true);
            AppendBounds(ring, size, c, operand.GetRole(), false);
        }
    }
}

// A vertex in the middle of a horizontal run bends nothing; its ordinate counts only through the
// ends of the run.
void LocalMinima::Inspect(const gpc_vertex* ring, std::uint32_t size) {
    for (std::uint32_t i = 0; i < size; ++i) {
        const gpc_vertex& v = ring[i];
        if (!std::isfinite(v.x) || !std::isfinite(v.y)) {
            ThrowArgumentError(LINE_COORDINATE_NOT_FINITE);
        }
        m_largest = std::fmax(m_largest, std::fmax(std::fabs(v.x), std::fabs(v.y)));
        const double rise = std::fabs(ring[NextVertex(i, size, true)].y - v.y);
        if (rise > 0 && rise < m_smallestRise) {
            m_smallestRise = rise;
        }
        const bool bends = rise > 0 || ring[NextVertex(i, size, false)].y != v.y;
        if (v.y == 0.0 && bends && !m_hasZero) {
            m_firstZero = v.y;
            m_hasZero = true;
        }
    }
}

// A bound begins where the ring stops falling, or being level, and starts to rise; of a level
// bottom only one end rises in each direction.
void LocalMinima::AppendBounds(const gpc_vertex* ring, std::uint32_t size, std::uint32_t contour,
                               Role role, bool forward) {
    for (std::uint32_t i = 0; i < size; ++i) {
        const gpc_vertex& v = ring[i];
        const gpc_vertex& from = ring[NextVertex(i, size, !forward)];
        const gpc_vertex& to = ring[NextVertex(i, size, forward)];
        if (from.y >= v.y && to.y > v.y) {
            m_minima.Append({v.y, v.x, Slope(v, to), contour, i, role, forward});
        }
    }
}

// Up to the first bound sums of a few coordinates stay finite, and above the second the slope of
// every edge does.
bool LocalMinima::MayOverflow() const {
    return m_largest > 0x1p1020 || m_smallestRise < m_largest * 0x1p-1020;
}

void LocalMinima::Sort() {
    OrderAsInserted(
        m_minima, m_scratch,
        [](const LocalMinimum& a, const LocalMinimum& b) {
            if (a.y != b.y) {
                return a.y < b.y;
            }
            return a.x != b.x ? a.x < b.x : a.dx < b.dx;
        },
        [](const LocalMinimum& m) { return std::isnan(m.dx); });
}

} // namespace geom::detail
