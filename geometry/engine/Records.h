// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The working records that the rooms of the engine share. Data flows one way:
///
///     polygon -> minima -> active slots -> events of a row -> classes -> output -> result
///
/// The sweep rises: y grows upwards, and along a scanline the walk goes to growing x.

#include "geometry/Gpc.h"

#include <cmath>
#include <cstdint>

namespace geom::detail {

/// Which operand an edge comes from.
enum Role : std::uint8_t { CLIP = 0, SUBJECT = 1 };

/// A set of roles: bit 1 << CLIP, bit 1 << SUBJECT.
using RoleMask = std::uint8_t;

/// The two sides of a scanline; also the index of pairs that a slot keeps for both.
enum Level : std::uint8_t { ABOVE = 0, BELOW = 1 };

/// The two ends of an output contour, and the two chains of a strip.
enum End : std::uint8_t { LEFT = 0, RIGHT = 1 };

/// A bundle is a run of edges that coincide in a scanbeam and act as one. Its head, the last
/// in list order, carries the flags of all; the others are tails and carry none.
enum class BundleState : std::uint8_t { Unbundled, Head, Tail };

/// An output chain under construction, by its number in the output; NO_OUTPUT when there is
/// none.
using OutputIndex = std::uint32_t;
inline constexpr OutputIndex NO_OUTPUT = 0xFFFFFFFFU;

/// Edges closer than this at the bottom of a scanbeam, and with slopes closer than this, count
/// as coinciding. An absolute bound: shapes of about this size are not cut correctly.
inline constexpr double GPC_EPSILON = 0x1p-52;

/// One active bound: a chain of a contour that rises from a local minimum to a local maximum,
/// with the edge at which the sweep stands.
///
/// The next edge of a bound is loaded in place, so a bound keeps its slot, and its place in
/// the list of active edges, from its minimum to its maximum.
struct Slot {
    // The edge in hand.
    gpc_vertex bot;
    gpc_vertex top;
    double dx;    ///< change of x per unit of y
    double error; ///< bound on the rounding of a computed x
    Slot* prev;   ///< neighbours in the list of active edges
    Slot* next;

    // Its bound, and its place in the order of the list.
    std::uint64_t label; ///< grows along the list
    const gpc_vertex* ring;
    std::uint32_t ringSize;
    std::uint32_t topVertex; ///< index of top in the ring
    OutputIndex outp[2];     ///< [Level] the output chain on that side

    // What the sweep knows about it.
    RoleMask flags[2]; ///< [Level] whose edges the bundle on that side holds
    RoleMask sides;    ///< the parities on the left of the edge
    Role role;
    BundleState state; ///< of the bundle above
    bool forward;      ///< the bound follows the ring's own direction
    bool ended;        ///< the bound ends in the row in hand
    bool alone;        ///< the event in hand concerns no other slot

    // Numbers of the row in which something last happened to it.
    std::uint32_t eventRow;
    std::uint32_t touchRow;
    std::uint32_t version; ///< of the schedule of the pair with its left neighbour
    std::uint32_t leaf;    ///< of the directory
    std::uint32_t number;  ///< of the slot itself

    RoleMask RoleBit() const { return static_cast<RoleMask>(1U << role); }

    /// The x of the edge at an ordinate of its span. Its ends are taken as they are: rounding
    /// must not move them. One formula everywhere, so that equal things are computed equally,
    /// and x need not be stored.
    double XAt(double y) const {
        if (y == top.y) {
            return top.x;
        }
        return y == bot.y ? bot.x : XOnLine(y);
    }

    /// The x of the edge's line at an ordinate.
    double XOnLine(double y) const { return bot.x + dx * (y - bot.y); }
};

static_assert(sizeof(Slot) == 128, "two lines of the cache: what a neighbour asks for is in one");

/// Whether two edges have the same two ends: they coincide in every row.
inline bool SameEnds(const Slot& a, const Slot& b) {
    return a.top.y == b.top.y && a.top.x == b.top.x && a.bot.y == b.bot.y && a.bot.x == b.bot.x;
}

/// Whether two edges that go on upwards from y form one bundle there.
inline bool Coincide(const Slot& a, const Slot& b, double y) {
    return std::fabs(a.dx - b.dx) <= GPC_EPSILON && std::fabs(a.XAt(y) - b.XAt(y)) <= GPC_EPSILON;
}

/// The first slot in list order of the bundle whose head, or only edge, is given.
Slot* FirstOfBundle(Slot* head);

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
