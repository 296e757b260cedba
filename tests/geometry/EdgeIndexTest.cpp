// SPDX-License-Identifier: MIT
#include "geometry/detail/EdgeIndex.h"

#include "tests/support/LineClipCases.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <set>

namespace geom::detail {
namespace {

using test::LineClipCase;
using test::LineClipCases;

std::vector<Edge> EdgesOf(const std::vector<Vec2d>& ring) {
    std::vector<Edge> edges;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        edges.push_back({ring[i], ring[(i + 1) % ring.size()]});
    }
    return edges;
}

bool Between(double value, double den) {
    return den > 0 ? 0 <= value && value <= den : den <= value && value <= 0;
}

// Whether the crossing tests could record something, whatever the neighbours.
bool CouldBeAccepted(const Edge& edge, const Vec2d& p, const Vec2d& q) {
    const Vec2d d = q - p;
    const Vec2d e = edge.end - edge.start;
    const Vec2d a = edge.start - p;
    const double den = d.x * e.y - e.x * d.y;
    const double s = a.x * d.y - a.y * d.x;
    const double t = a.x * e.y - a.y * e.x;
    if (den != 0) {
        return Between(s, den) && Between(t, den) && t != den && t != 0;
    }
    if (s != 0 || p == q) {
        return false;
    }
    const bool vertical = p.x == q.x;
    const double a1 = vertical ? edge.start.y : edge.start.x;
    const double a2 = vertical ? edge.end.y : edge.end.x;
    const double s1 = vertical ? p.y : p.x;
    const double s2 = vertical ? q.y : q.x;
    return std::min(a1, a2) <= std::max(s1, s2) && std::max(a1, a2) >= std::min(s1, s2);
}

bool BoxesAreApart(const Edge& edge, const Vec2d& p, const Vec2d& q, double gap) {
    return std::min(edge.start.x, edge.end.x) - std::max(p.x, q.x) > gap ||
           std::min(p.x, q.x) - std::max(edge.start.x, edge.end.x) > gap ||
           std::min(edge.start.y, edge.end.y) - std::max(p.y, q.y) > gap ||
           std::min(p.y, q.y) - std::max(edge.start.y, edge.end.y) > gap;
}

TEST(EdgeIndex, FindsEveryEdgeThatTheCrossingTestsAccept) {
    const unsigned int seed = 71;
    LineClipCases cases(seed);
    std::size_t asked = 0;
    std::size_t accepted = 0;
    std::size_t tooMany = 0;
    for (int round = 0; round < 3000; ++round) {
        const LineClipCase made = cases.Next(20);
        const std::vector<Edge> edges = EdgesOf(made.points);
        const EdgeIndex index(edges);
        for (std::size_t i = 0; i < made.ends.size(); i += 2) {
            const Vec2d& p = made.ends[i];
            const Vec2d& q = made.ends[i + 1];
            if (!index.IsGoodFor(p, q)) {
                continue;
            }
            ++asked;
            EdgeIndex::Found found;
            if (!index.FindNear(p, q, found)) {
                ++tooMany;
                continue;
            }
            EXPECT_TRUE(std::is_sorted(found.begin(), found.end()));
            EXPECT_TRUE(std::adjacent_find(found.begin(), found.end()) == found.end());
            for (std::uint32_t k = 0; k < edges.size(); ++k) {
                if (!CouldBeAccepted(edges[k], p, q)) {
                    continue;
                }
                ++accepted;
                ASSERT_TRUE(std::binary_search(found.begin(), found.end(), k))
                    << made.kind << ", seed " << seed << " round " << round << " segment " << i / 2
                    << " edge " << k;
            }
        }
    }
    std::printf("seed %u: %zu segments, %zu accepted edges, %zu walks preferred\n", seed, asked,
                accepted, tooMany);
    EXPECT_GT(asked, 40000U);
    EXPECT_GT(accepted, 100000U);
}

// Edges and segments on one slanted line, all ends off by roundings: cross products are nothing
// but rounding then, and edges are accepted that lie several lengths away.
TEST(EdgeIndex, FindsFarEdgesThatRoundingMakesTheTestsAccept) {
    const unsigned int seed = 72;
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::size_t farAway = 0;
    for (int round = 0; round < 40000; ++round) {
        const double angle = 6.3 * unit(random);
        const Vec2d along(std::cos(angle), std::sin(angle));
        const Vec2d origin{unit(random), (round % 2 == 0 ? 1.0 : 0x1p-40) * unit(random)};
        const auto pointAt = [&](double place) { return origin + along * place; };
        std::vector<Edge> edges;
        for (int i = 0; i < 30; ++i) {
            const double place = 8.0 * unit(random);
            const double length = unit(random);
            edges.push_back({pointAt(place), pointAt(place + length)});
        }
        const EdgeIndex index(edges);
        const double place = 8.0 * unit(random);
        const Vec2d p = pointAt(place);
        const Vec2d q = pointAt(place + unit(random));
        EdgeIndex::Found found;
        if (!index.IsGoodFor(p, q) || !index.FindNear(p, q, found)) {
            continue;
        }
        for (std::uint32_t k = 0; k < edges.size(); ++k) {
            if (CouldBeAccepted(edges[k], p, q) && BoxesAreApart(edges[k], p, q, 1e-6)) {
                ++farAway;
                ASSERT_TRUE(std::binary_search(found.begin(), found.end(), k))
                    << "seed " << seed << " round " << round << " edge " << k;
            }
        }
    }
    std::printf("seed %u: %zu edges accepted far from the segment\n", seed, farAway);
    EXPECT_GT(farAway, 40U);
}

} // namespace
} // namespace geom::detail
