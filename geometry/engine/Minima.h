// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Where bounds begin: the local minima of the contours, in the order in which the sweep meets
/// them.
///
///          max
///          / \ .            forward bound: along the ring's own direction
///         /   \ .           reverse bound: against it
///        /     \ .
///     forward  reverse      horizontal edges belong to no bound; at a horizontal bottom the
///        \     / .          two bounds begin at its two ends
///         \___/
///          min

#include "geometry/engine/Memory.h"
#include "geometry/engine/Pruning.h"
#include "geometry/engine/Records.h"

#include <limits>

namespace geom::detail {

/// A vertex from which its ring rises, in one direction or in both.
struct LocalMinimum {
    double y;
    double x;
    std::uint32_t contour;
    std::uint32_t vertex;
    Role role;
    bool forward; ///< a bound begins along the ring's own direction
    bool reverse; ///< a bound begins against it
};

/// The local minima of both operands, such that their bounds begin by ascending y, then x, then
/// dx, then order of creation: of the contours, for each of which all forward bounds come
/// before all reverse ones. The vertices themselves stay where they are, in the caller's
/// contours.
///
/// The two bounds of one minimum are told apart by dx when they begin. Only where several
/// minima share a point do their bounds mix; those minima are cut into single bounds.
class LocalMinima {
public:
    LocalMinima() : m_minima("LMT insertion"), m_scratch("LMT insertion") {}

    /// Adds the minima of every contour that is not marked. Throws for a coordinate that is not
    /// finite.
    void Append(const Operand& operand, const ContourMarks& marks);
    /// Puts all minima of these operands, whose vertices still stand where they were, in order.
    void Sort(const Operand& subject, const Operand& clip);

    bool IsEmpty() const { return m_minima.IsEmpty(); }
    const LocalMinimum* begin() const { return m_minima.begin(); }
    const LocalMinimum* end() const { return m_minima.end(); }

    /// An ordinate as it is output. Zeros of both signs are one ordinate, written as the first
    /// of them in the input that bends a contour.
    double Canonical(double y) const { return y == 0.0 && m_hasZero ? m_firstZero : y; }

    /// Whether coordinates are so large, or edges so flat, that computed x, slopes or gaps may
    /// overflow.
    bool MayOverflow() const;

    /// Whether differences of two coordinates may overflow. An x may be no number then: the edge
    /// has slope 0, which is multiplied by an infinite height.
    bool DifferencesMayOverflow() const { return m_largest > 0x1p1022; }

private:
    void AppendRing(const gpc_vertex* ring, std::uint32_t size, std::uint32_t contour, Role role);
    void CutSharedPoints(const Operand& subject, const Operand& clip);

    Block<LocalMinimum> m_minima;
    Block<LocalMinimum> m_scratch;
    double m_firstZero = 0.0;
    bool m_hasZero = false;
    double m_largest = 0.0;                                     ///< magnitude of any coordinate
    double m_smallestRise = std::numeric_limits<double>::max(); ///< of any edge
};

/// The index of the next vertex of a ring in a bound's direction.
inline std::uint32_t NextVertex(std::uint32_t vertex, std::uint32_t size, bool forward) {
    if (forward) {
        return vertex + 1 == size ? 0 : vertex + 1;
    }
    return vertex == 0 ? size - 1 : vertex - 1;
}

/// Change of x per unit of y on the edge between two vertices.
inline double Slope(const gpc_vertex& bot, const gpc_vertex& top) {
    return (top.x - bot.x) / (top.y - bot.y);
}

} // namespace geom::detail
