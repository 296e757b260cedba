// SPDX-License-Identifier: MIT
#include "geometry/engine/Bounds.h"

#include "geometry/engine/Lines.h"
#include "geometry/engine/Ordering.h"

#include <cmath>

namespace geom::detail {

namespace {

const gpc_vertex& Before(const gpc_vertex* vertices, std::uint64_t count, std::uint64_t i) {
    return vertices[i == 0 ? count - 1 : i - 1];
}

const gpc_vertex& After(const gpc_vertex* vertices, std::uint64_t count, std::uint64_t i) {
    return vertices[i + 1 == count ? 0 : i + 1];
}

// The middle points of horizontal runs are of no use: no bound passes through them.
bool IsKept(const gpc_vertex* vertices, std::uint64_t count, std::uint64_t i) {
    return Before(vertices, count, i).y != vertices[i].y ||
           After(vertices, count, i).y != vertices[i].y;
}

std::uint64_t CountKept(const gpc_vertex* vertices, std::uint32_t count) {
    std::uint64_t kept = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        kept += IsKept(vertices, count, i) ? 1U : 0U;
    }
    return kept;
}

Edge MakeEdge(const gpc_vertex& bot, const gpc_vertex& top, Role role) {
    Edge edge{};
    edge.bot = bot;
    edge.top = top;
    edge.dx = (top.x - bot.x) / (top.y - bot.y);
    edge.xb = bot.x;
    edge.outp[ABOVE] = NO_OUTPUT;
    edge.outp[BELOW] = NO_OUTPUT;
    edge.role = role;
    edge.state = BundleState::Unbundled;
    return edge;
}

} // namespace

void LocalMinima::Sort() {
    OrderAsInserted(
        m_minima,
        [](const LocalMinimum& a, const LocalMinimum& b) {
            if (a.y != b.y) {
                return a.y < b.y;
            }
            return a.x != b.x ? a.x < b.x : a.dx < b.dx;
        },
        [](const LocalMinimum& m) { return std::isnan(m.dx); });
}

void Bounds::Build(const Operand& operand, const ContourMarks& marks, LocalMinima& minima,
                   Scanbeams& scanbeams) {
    std::uint64_t kept = 0;
    for (std::uint32_t c = 0; c < operand.ContourCount(); ++c) {
        kept += marks.IsMarked(c) ? 0 : CountKept(operand.Vertices(c), operand.VertexCount(c));
    }
    m_edges.Reserve(kept); // at most one edge for each kept vertex, so edges never move
    scanbeams.Expect(kept);
    for (std::uint32_t c = 0; c < operand.ContourCount(); ++c) {
        if (!marks.IsMarked(c)) {
            KeepVertices(operand.Vertices(c), operand.VertexCount(c), scanbeams);
            CutContour(operand.GetRole(), minima);
        }
    }
}

void Bounds::KeepVertices(const gpc_vertex* vertices, std::uint32_t count, Scanbeams& scanbeams) {
    m_kept.Clear();
    for (std::uint32_t i = 0; i < count; ++i) {
        const gpc_vertex& v = vertices[i];
        if (!std::isfinite(v.x) || !std::isfinite(v.y)) {
            ThrowArgumentError(LINE_COORDINATE_NOT_FINITE);
        }
        if (IsKept(vertices, count, i)) {
            m_kept.Append(v);
            scanbeams.Append(v.y);
        }
    }
}

void Bounds::CutContour(Role role, LocalMinima& minima) {
    const std::uint64_t count = m_kept.Count();
    const gpc_vertex* v = m_kept.begin();
    for (std::uint64_t i = 0; i < count; ++i) {
        if (Before(v, count, i).y >= v[i].y && After(v, count, i).y > v[i].y) {
            minima.Append(MakeBound(i, 1, role));
        }
    }
    for (std::uint64_t i = 0; i < count; ++i) {
        if (Before(v, count, i).y > v[i].y && After(v, count, i).y >= v[i].y) {
            minima.Append(MakeBound(i, count - 1, role));
        }
    }
}

// Follows the contour from a minimum, in steps of +1 or -1 (count - 1) modulo the count, while
// it rises.
Edge* Bounds::MakeBound(std::uint64_t minimum, std::uint64_t step, Role role) {
    const std::uint64_t count = m_kept.Count();
    Edge* first = nullptr;
    Edge* last = nullptr;
    std::uint64_t from = minimum;
    std::uint64_t to = (from + step) % count;
    while (m_kept[to].y > m_kept[from].y) {
        Edge* edge = &m_edges[m_edges.Append(MakeEdge(m_kept[from], m_kept[to], role))];
        if (last != nullptr) {
            last->succ = edge;
        } else {
            first = edge;
        }
        last = edge;
        from = to;
        to = (from + step) % count;
    }
    return first;
}

} // namespace geom::detail
