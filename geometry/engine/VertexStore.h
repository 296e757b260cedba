// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Gpc.h"
#include "geometry/engine/Memory.h"

#include <cstdint>

namespace geom::detail {

/// The vertices of all chains of a result, each with the number of the next one in its chain.
///
/// Vertices come in the order of the sweep, so a walk along one chain jumps through memory. The
/// numbers stand apart from the points: a walk has to wait for numbers only, of which far more
/// fit into the cache.
class VertexStore {
public:
    using Index = Block<std::uint32_t>::Index;
    static constexpr Index NONE = Block<std::uint32_t>::NONE;

    /// \param reason what a failed request for storage was for.
    explicit VertexStore(const char* reason) : m_points(reason), m_next(reason) {}

    Index Append(const gpc_vertex& point, Index next) {
        m_points.Append(point);
        return m_next.Append(next);
    }
    void SetNext(Index vertex, Index next) { m_next[vertex] = next; }

    const gpc_vertex& Point(Index vertex) const { return m_points[vertex]; }
    Index Next(Index vertex) const { return m_next[vertex]; }

private:
    Block<gpc_vertex> m_points;
    Block<Index> m_next;
};

} // namespace geom::detail
