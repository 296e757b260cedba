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

struct Edge {
    Vec2d start;
    Vec2d end;
};

/// An index with the ring that it reads.
class IndexedRing {
public:
    explicit IndexedRing(std::vector<Vec2d> ring) : m_ring(std::move(ring)) {
        m_ring.push_back(m_ring.front());
        m_index = EdgeIndex(FramedRing(m_ring.data(), Count()));
    }
    IndexedRing(const IndexedRing&) = delete;
    IndexedRing& operator=(const IndexedRing&) = delete;

    const EdgeIndex* operator->() const { return &m_index; }
    std::uint32_t Count() const { return static_cast<std::uint32_t>(m_ring.size() - 1); }
    Edge At(std::uint32_t k) const { return {m_ring[k], m_ring[k + 1]}; }

private:
    std::vector<Vec2d> m_ring;
    EdgeIndex m_index;
};

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
        const IndexedRing index(made.points);
        for (std::size_t i = 0; i < made.ends.size(); i += 2) {
            const Vec2d& p = made.ends[i];
            const Vec2d& q = made.ends[i + 1];
            if (!index->IsGoodFor(p, q)) {
                continue;
            }
            ++asked;
            EdgeIndex::Found found;
            if (!index->FindNear(p, q, found)) {
                ++tooMany;
                continue;
            }
            EXPECT_TRUE(std::is_sorted(found.begin(), found.end()));
            EXPECT_TRUE(std::adjacent_find(found.begin(), found.end()) == found.end());
            for (std::uint32_t k = 0; k < index.Count(); ++k) {
                if (!CouldBeAccepted(index.At(k), p, q)) {
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
    for (int round = 0; round < 100000; ++round) {
        const double angle = 6.3 * unit(random);
        const Vec2d along(std::cos(angle), std::sin(angle));
        const Vec2d origin{unit(random), (round % 2 == 0 ? 1.0 : 0x1p-40) * unit(random)};
        const auto pointAt = [&](double place) { return origin + along * place; };
        std::vector<Vec2d> ring;
        for (int i = 0; i < 15; ++i) {
            const double place = 8.0 * unit(random);
            const double length = unit(random);
            ring.push_back(pointAt(place));
            ring.push_back(pointAt(place + length));
        }
        const IndexedRing index(ring);
        const double place = 8.0 * unit(random);
        const Vec2d p = pointAt(place);
        const Vec2d q = pointAt(place + unit(random));
        EdgeIndex::Found found;
        if (!index->IsGoodFor(p, q) || !index->FindNear(p, q, found)) {
            continue;
        }
        for (std::uint32_t k = 0; k < index.Count(); ++k) {
            if (CouldBeAccepted(index.At(k), p, q) && BoxesAreApart(index.At(k), p, q, 1e-6)) {
                ++farAway;
                ASSERT_TRUE(std::binary_search(found.begin(), found.end(), k))
                    << "seed " << seed << " round " << round << " edge " << k;
            }
        }
    }
    std::printf("seed %u: %zu edges accepted far from the segment\n", seed, farAway);
    EXPECT_GT(farAway, 40U);
}

std::vector<Vec2d> Circle(std::size_t n) {
    std::vector<Vec2d> ring;
    for (std::size_t i = 0; i < n; ++i) {
        const double angle = 6.283185307179586 * static_cast<double>(i) / static_cast<double>(n);
        ring.emplace_back(std::cos(angle), std::sin(angle));
    }
    return ring;
}

bool IsOn(const Edge& edge, const Vec2d& p) {
    const Vec2d& a = edge.start;
    const Vec2d& b = edge.end;
    return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
           p.y <= std::max(a.y, b.y) && (p.y - a.y) * (b.x - p.x) == (p.x - a.x) * (b.y - p.y);
}

// Long slanted edges are kept in pieces; points that only rounding puts on them lie beside.
TEST(EdgeIndex, FindsEveryEdgeThatAPointLiesOn) {
    const unsigned int seed = 73;
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::size_t on = 0;
    for (int round = 0; round < 300; ++round) {
        const double offset = round % 3 == 0 ? 0.0 : std::pow(10.0, round % 15);
        std::vector<Vec2d> ring;
        for (int i = 0; i < 40; ++i) {
            const double reach = i % 8 == 0 ? 100.0 : 0.1;
            ring.push_back(Vec2d{offset + reach * unit(random), offset - reach * unit(random)});
        }
        const IndexedRing index(ring);
        for (std::uint32_t k = 0; k < index.Count(); ++k) {
            for (int i = 0; i < 40; ++i) {
                const Edge edge = index.At(k);
                const Vec2d d = edge.end - edge.start;
                const Vec2d p = edge.start + d * (i % 2 == 0 ? unit(random) : i / 40.0);
                if (!IsOn(edge, p)) {
                    continue;
                }
                ++on;
                ASSERT_TRUE(index->AnyAt(p, [k](std::uint32_t offered) { return offered == k; }))
                    << "seed " << seed << " round " << round << " edge " << k;
            }
        }
    }
    std::printf("seed %u: %zu points on edges\n", seed, on);
    EXPECT_GT(on, 30000U);
}

TEST(EdgeIndex, PointsBesideTheRingAreOnNothing) {
    const IndexedRing index(Circle(100));
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const Vec2d& p : {Vec2d(2, 0), Vec2d(0, -2), Vec2d(notANumber, 0), Vec2d(0, notANumber),
                           Vec2d(infinity, 0), Vec2d(0, -infinity)}) {
        EXPECT_FALSE(index->AnyAt(p, [](std::uint32_t) { return true; }));
    }
}

TEST(EdgeIndex, OffersFewEdgesHoweverManyThereAre) {
    for (const std::size_t n : {1000U, 10000U, 100000U}) {
        const IndexedRing index(Circle(n));
        std::mt19937 random(5);
        std::uniform_real_distribution<double> place(-1.0, 1.0);
        std::size_t offered = 0;
        for (int i = 0; i < 1000; ++i) {
            const Vec2d p{place(random), place(random)};
            EdgeIndex::Found found;
            ASSERT_TRUE(index->FindNear(p, p + Vec2d(0.3, 0.2), found));
            offered += found.Count();
            EdgeIndex::Found probed;
            ASSERT_TRUE(index->FindNear({-3.0, p.y}, p, probed));
            offered += probed.Count();
        }
        EXPECT_LT(offered, 3000U) << n << " edges";
    }
}

TEST(EdgeIndex, GivesUpWhenMostEdgesAreNear) {
    std::vector<Vec2d> ring;
    for (int i = 0; i < 1000; ++i) {
        ring.emplace_back(i, i % 2);
    }
    const IndexedRing index(ring);
    EdgeIndex::Found found;
    EXPECT_FALSE(index->FindNear({-1, 0.5}, {1001, 0.5}, found));
    EdgeIndex::Found few;
    EXPECT_TRUE(index->FindNear({9.9, 0.5}, {20.1, 0.5}, few));
    // Ten edges are crossed, and the boxes of two more are touched.
    EXPECT_EQ(few.Count(), 12U);
}

TEST(EdgeIndex, ParallelsAroundTheHorizontalAreFoundFromBothSides) {
    // Directions just above and just below the horizontal are neighbours.
    const double tilt = 0x1p-40;
    const IndexedRing index({{100, 0}, {101, tilt}, {102, 3}, {100, tilt}, {101, 0}, {102, -3}});
    for (const double rise : {tilt, -tilt}) {
        EdgeIndex::Found found;
        ASSERT_TRUE(index->FindNear({0, 0}, {1, rise}, found));
        EXPECT_EQ(found.Count(), 2U);
    }
}

TEST(EdgeIndex, IsNotBuiltOverCoordinatesOfExtremeSize) {
    const double bad[] = {std::numeric_limits<double>::quiet_NaN(),
                          std::numeric_limits<double>::infinity(), 1e300, 1e-300};
    for (const double x : bad) {
        const IndexedRing index({{0, 0}, {x, 0}, {1, 1}});
        EXPECT_FALSE(index->IsBuilt());
        EXPECT_FALSE(index->IsGoodFor({0, 0}, {1, 1}));
    }
    EXPECT_FALSE(EdgeIndex().IsBuilt());
    EXPECT_FALSE(EdgeIndex(FramedRing(nullptr, 0)).IsBuilt());
}

TEST(EdgeIndex, IsGoodForSegmentsOfModerateSize) {
    const IndexedRing index(Circle(20));
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(index->IsGoodFor({0, 0}, {1, 1}));
    EXPECT_TRUE(index->IsGoodFor({0, 0}, {0, 0}));
    EXPECT_TRUE(index->IsGoodFor({1e70, 0}, {0, -1e70}));
    EXPECT_FALSE(index->IsGoodFor({1e100, 0}, {0, 0}));
    EXPECT_FALSE(index->IsGoodFor({1e-100, 0}, {0, 0}));
    EXPECT_FALSE(index->IsGoodFor({0, notANumber}, {0, 0}));
    EXPECT_FALSE(index->IsGoodFor({0, 0}, {-std::numeric_limits<double>::infinity(), 0}));
}

TEST(EdgeIndex, SegmentMuchLargerThanTheRingIsServed) {
    const IndexedRing index(Circle(1000));
    EdgeIndex::Found found;
    ASSERT_TRUE(index->FindNear({-1e5, 0.1}, {1e5, 0.3}, found));
    EXPECT_LT(found.Count(), 50U);
    std::size_t accepted = 0;
    for (std::uint32_t k = 0; k < index.Count(); ++k) {
        if (CouldBeAccepted(index.At(k), {-1e5, 0.1}, {1e5, 0.3})) {
            ++accepted;
            EXPECT_TRUE(std::binary_search(found.begin(), found.end(), k));
        }
    }
    EXPECT_EQ(accepted, 2U);
}

} // namespace
} // namespace geom::detail
