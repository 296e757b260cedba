// SPDX-License-Identifier: MIT
#include "fuzz/support/GeneralPosition.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace geom::fuzz {

namespace {

struct Edge {
    gpc_vertex a, b;
};

std::vector<Edge> EdgesOf(const test::Operands& operands) {
    std::vector<Edge> edges;
    for (const test::Rings* rings : {&operands.subject, &operands.clip}) {
        for (const test::Ring& ring : *rings) {
            for (std::size_t i = 0; i < ring.size(); ++i) {
                edges.push_back({ring[i], ring[(i + 1) % ring.size()]});
            }
        }
    }
    return edges;
}

double Distance(const gpc_vertex& p, const gpc_vertex& q) {
    return std::hypot(p.x - q.x, p.y - q.y);
}

double Distance(const gpc_vertex& p, const Edge& e) {
    const double dx = e.b.x - e.a.x;
    const double dy = e.b.y - e.a.y;
    const double square = dx * dx + dy * dy;
    const double t = square > 0 ? ((p.x - e.a.x) * dx + (p.y - e.a.y) * dy) / square : 0;
    const double part = std::min(1.0, std::max(0.0, t));
    return Distance(p, gpc_vertex{e.a.x + part * dx, e.a.y + part * dy});
}

/// The places where two edges cross inside both.
std::vector<gpc_vertex> CrossingsOf(const std::vector<Edge>& edges) {
    std::vector<gpc_vertex> crossings;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const auto& [a, b] = edges[i];
            const auto& [c, d] = edges[j];
            const double cross = (b.x - a.x) * (d.y - c.y) - (b.y - a.y) * (d.x - c.x);
            const double t = ((c.x - a.x) * (d.y - c.y) - (c.y - a.y) * (d.x - c.x)) / cross;
            const double u = ((c.x - a.x) * (b.y - a.y) - (c.y - a.y) * (b.x - a.x)) / cross;
            if (0 < t && t < 1 && 0 < u && u < 1) {
                crossings.push_back({a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)});
            }
        }
    }
    return crossings;
}

bool AreApart(const std::vector<gpc_vertex>& points, double distance) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (!(Distance(points[i], points[j]) > distance)) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

bool IsInGeneralPosition(const test::Operands& operands, double apart) {
    const std::vector<Edge> edges = EdgesOf(operands);
    std::vector<gpc_vertex> vertices;
    double largest = 1;
    for (const Edge& edge : edges) {
        vertices.push_back(edge.a);
        largest = std::max({largest, std::fabs(edge.a.x), std::fabs(edge.a.y)});
    }
    const double distance = apart * largest;
    if (!AreApart(vertices, distance) || !AreApart(CrossingsOf(edges), distance)) {
        return false;
    }
    for (const Edge& edge : edges) {
        for (const gpc_vertex& v : vertices) {
            const bool isEnd =
                (v.x == edge.a.x && v.y == edge.a.y) || (v.x == edge.b.x && v.y == edge.b.y);
            if (!isEnd && !(Distance(v, edge) > distance)) {
                return false;
            }
        }
    }
    return true;
}

bool HasCrossings(const test::Rings& rings) {
    return !CrossingsOf(EdgesOf({rings, {}})).empty();
}

} // namespace geom::fuzz
