// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The working records that the rooms of the engine share. Data flows one way:
///
///     polygon -> bounds -> scanbeams -> classified events -> output chains -> result record
///
/// The sweep rises: y grows upwards, and along a scanline the walk goes to growing x.

#include "geometry/Gpc.h"

#include <cstdint>

namespace geom::detail {

/// Which operand an edge comes from; also the index of per-operand pairs.
enum Role : std::uint8_t { CLIP = 0, SUBJECT = 1 };

/// The two sides of a scanline; also the index of pairs that an edge keeps for both.
enum Level : std::uint8_t { ABOVE = 0, BELOW = 1 };

/// The parity on the left of an edge: outside (LEFT: the edge would be a left boundary) or
/// inside (RIGHT).
enum Parity : std::uint8_t { LEFT = 0, RIGHT = 1 };

/// A bundle is a run of edges that coincide in a scanbeam and act as one. Its head, the last
/// in list order, carries the flags of all; the others are tails and carry none.
enum class BundleState : std::uint8_t { Unbundled, Head, Tail };

/// An output chain under construction, by its number in the output; NO_OUTPUT when there is
/// none.
using OutputIndex = std::uint32_t;
inline constexpr OutputIndex NO_OUTPUT = 0xFFFFFFFFU;

/// One edge of a bound: a chain of a contour that rises from a local minimum to a local
/// maximum.
struct Edge {
    gpc_vertex bot;
    gpc_vertex top;
    double dx; ///< change of x per unit of y
    double xb; ///< x at the bottom of the current scanbeam
    double xt; ///< x at the top of the current scanbeam

    Edge* prev; ///< neighbours in the active-edge list
    Edge* next;
    Edge* succ; ///< the next edge of the same bound; null at its end

    OutputIndex outp[2];       ///< [Level] the output chain on that side
    std::uint8_t bundle[2][2]; ///< [Level][Role] 1 when the bundle holds an edge of that role
    std::uint8_t side[2];      ///< [Role] parity on the left of the edge
    Role role;
    BundleState state; ///< of the bundle above

    /// Whether the bundle above this edge holds an edge of either role.
    bool CarriesAbove() const { return (bundle[ABOVE][CLIP] | bundle[ABOVE][SUBJECT]) != 0; }
};

/// The x of an edge's line at an ordinate. One formula everywhere, so that equal things are
/// computed equally.
inline double XAt(const Edge& edge, double y) {
    return edge.bot.x + edge.dx * (y - edge.bot.y);
}

/// One scanbeam: the slab between two successive ordinates.
struct Scanbeam {
    double yb;
    double yt; ///< meaningless in the last row, above which nothing lies
    bool isLast;
};

/// A read-only operand. Negative counts and missing arrays count as nothing.
class Operand {
public:
    Operand(const gpc_polygon& polygon, Role role) : m_polygon(polygon), m_role(role) {}

    Role GetRole() const { return m_role; }
    std::uint32_t ContourCount() const {
        return m_polygon.num_contours > 0 && m_polygon.contour != nullptr
                   ? static_cast<std::uint32_t>(m_polygon.num_contours)
                   : 0;
    }
    std::uint32_t VertexCount(std::uint32_t contour) const {
        const gpc_vertex_list& list = m_polygon.contour[contour];
        return list.num_vertices > 0 && list.vertex != nullptr
                   ? static_cast<std::uint32_t>(list.num_vertices)
                   : 0;
    }
    const gpc_vertex* Vertices(std::uint32_t contour) const {
        return m_polygon.contour[contour].vertex;
    }

private:
    const gpc_polygon& m_polygon;
    Role m_role;
};

} // namespace geom::detail
