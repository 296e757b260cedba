// SPDX-License-Identifier: MIT
#include "tools/geomtool/Borders.h"

#include <algorithm>
#include <array>
#include <utility>

namespace geomtool {

using geom::Vec2d;

namespace {

/// The ends of an edge, the smaller one first.
using Edge = std::array<double, 4>;

Edge EdgeOf(const Vec2d& a, const Vec2d& b) {
    const bool inOrder = a.x != b.x ? a.x < b.x : a.y < b.y;
    return inOrder ? Edge{a.x, a.y, b.x, b.y} : Edge{b.x, b.y, a.x, a.y};
}

/// Counts how often each edge occurs, and remembers which were drawn.
class EdgeTable {
public:
    explicit EdgeTable(const PolygonSet& shapes) {
        for (const Ring& ring : shapes.rings) {
            for (std::size_t i = 0; i < ring.points.size(); ++i) {
                m_edges.push_back(EdgeOf(ring.points[i], Next(ring, i)));
            }
        }
        std::sort(m_edges.begin(), m_edges.end());
        m_drawn.assign(m_edges.size(), false);
    }

    static const Vec2d& Next(const Ring& ring, std::size_t i) {
        return ring.points[i + 1 < ring.points.size() ? i + 1 : 0];
    }

    /// Whether an edge is of a kind and is met for the first time.
    bool Take(const Vec2d& a, const Vec2d& b, BorderKind kind) {
        const auto [first, last] = std::equal_range(m_edges.begin(), m_edges.end(), EdgeOf(a, b));
        const bool isShared = last - first > 1;
        if ((kind == BorderKind::Shared && !isShared) || (kind == BorderKind::Coast && isShared)) {
            return false;
        }
        const auto at = static_cast<std::size_t>(first - m_edges.begin());
        const bool isNew = !m_drawn[at];
        m_drawn[at] = true;
        return isNew;
    }

private:
    std::vector<Edge> m_edges;
    std::vector<bool> m_drawn;
};

/// A run that ends a closed contour goes on with the run that began it.
void JoinAcrossStart(const Ring& ring, std::size_t firstRun, LineSet& out) {
    if (out.lines.size() < firstRun + 2) {
        return;
    }
    Line& first = out.lines[firstRun];
    Line& last = out.lines.back();
    if (first.front() == ring.points.front() && last.back() == ring.points.front()) {
        last.insert(last.end(), first.begin() + 1, first.end());
        first = std::move(last);
        out.lines.pop_back();
    }
}

void AppendRuns(const Ring& ring, BorderKind kind, EdgeTable& edges, LineSet& out) {
    const std::size_t firstRun = out.lines.size();
    bool isRunning = false;
    for (std::size_t i = 0; i < ring.points.size(); ++i) {
        const Vec2d& a = ring.points[i];
        const Vec2d& b = EdgeTable::Next(ring, i);
        if (a == b) {
            continue;
        }
        if (!edges.Take(a, b, kind)) {
            isRunning = false;
            continue;
        }
        if (!isRunning) {
            out.lines.push_back({a});
        }
        out.lines.back().push_back(b);
        isRunning = true;
    }
    JoinAcrossStart(ring, firstRun, out);
}

} // namespace

LineSet Borders(const PolygonSet& shapes, BorderKind kind) {
    EdgeTable edges(shapes);
    LineSet borders;
    for (const Ring& ring : shapes.rings) {
        AppendRuns(ring, kind, edges, borders);
    }
    return borders;
}

} // namespace geomtool
