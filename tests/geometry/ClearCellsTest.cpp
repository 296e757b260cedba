// SPDX-License-Identifier: MIT
#include "geometry/detail/ClearCells.h"

#include "geometry/detail/EdgeIndex.h"
#include "tests/support/LineClipCases.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>

namespace geom::detail {
namespace {

using test::LineClipCase;
using test::LineClipCases;

constexpr double BEFORE = 2.0; // as far left of the ring as line clipping starts its probes

/// A ring with its cells and its index.
struct CellsOfRing {
    explicit CellsOfRing(std::vector<Vec2d> points) : ring(std::move(points)) {
        ring.push_back(ring.front());
        const FramedRing framed(ring.data(), ring.size() - 1);
        index = EdgeIndex(framed);
        if (index.IsBuilt()) {
            probeX = framed.frame.Box().minX - BEFORE;
            cells = ClearCells(framed, probeX);
        }
    }

    std::vector<Vec2d> ring;
    double probeX = 0.0;
    EdgeIndex index;
    ClearCells cells;
};

bool Between(double value, double den) {
    return den > 0 ? 0 <= value && value <= den : den <= value && value <= 0;
}

// Whether the crossing tests record a crossing of an edge that they do not leave to its
// neighbours, or could follow the edge.
bool Accepts(const Vec2d& a, const Vec2d& b, const Vec2d& p, const Vec2d& q) {
    const Vec2d d = q - p;
    const Vec2d e = b - a;
    const double den = d.x * e.y - e.x * d.y;
    const double s = (a.x - p.x) * d.y - (a.y - p.y) * d.x;
    const double t = (a.x - p.x) * e.y - (a.y - p.y) * e.x;
    if (den != 0) {
        return Between(s, den) && Between(t, den) && s != den && t != den && t != 0;
    }
    const bool vertical = p.x == q.x;
    const double low = vertical ? std::min(p.y, q.y) : std::min(p.x, q.x);
    const double high = vertical ? std::max(p.y, q.y) : std::max(p.x, q.x);
    const double edgeLow = vertical ? std::min(a.y, b.y) : std::min(a.x, b.x);
    const double edgeHigh = vertical ? std::max(a.y, b.y) : std::max(a.x, b.x);
    return s == 0 && edgeLow <= high && low <= edgeHigh;
}

std::size_t CountAccepted(const CellsOfRing& made, const Vec2d& p, const Vec2d& q) {
    std::size_t count = 0;
    for (std::size_t i = 0; i + 1 < made.ring.size(); ++i) {
        count += Accepts(made.ring[i], made.ring[i + 1], p, q) ? 1U : 0U;
    }
    return count;
}

bool IsOn(const Vec2d& a, const Vec2d& b, const Vec2d& p) {
    return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
           p.y <= std::max(a.y, b.y) && (p.y - a.y) * (b.x - p.x) == (p.x - a.x) * (b.y - p.y);
}

std::size_t CountOn(const CellsOfRing& made, const Vec2d& p) {
    std::size_t count = 0;
    for (std::size_t i = 0; i + 1 < made.ring.size(); ++i) {
        count += IsOn(made.ring[i], made.ring[i + 1], p) ? 1U : 0U;
    }
    return count;
}

struct Tally {
    std::size_t asked = 0;
    std::size_t clear = 0;
    std::size_t placed = 0;
    std::size_t inside = 0;
};

void Check(const CellsOfRing& made, const Vec2d& p, const Vec2d& q, Tally& tally) {
    ++tally.asked;
    if (made.cells.AreClear(p, q) && !made.index.MayHaveParallels(p, q)) {
        ++tally.clear;
        EXPECT_EQ(CountAccepted(made, p, q), 0U);
        EXPECT_EQ(CountOn(made, p), 0U);
    }
    ClearCells::Place place;
    if (made.cells.FindBefore(p, place)) {
        ++tally.placed;
        tally.inside += place.isInside ? 1U : 0U;
        EXPECT_LE(place.x, p.x);
        const Vec2d at(place.x, p.y);
        EXPECT_EQ(CountAccepted(made, {made.probeX, p.y}, at) % 2 != 0, place.isInside);
        EXPECT_EQ(CountOn(made, at), 0U);
    }
}

TEST(ClearCells, AreWhatTheTestsOfAllEdgesSay) {
    const unsigned int seed = 81;
    LineClipCases cases(seed);
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> unit(-0.1, 1.1);
    std::uniform_real_distribution<double> step(-0.05, 0.05);
    Tally tally;
    for (int round = 0; round < 3000; ++round) {
        const LineClipCase made = cases.Next(10);
        const CellsOfRing ring(made.points);
        Box2d box;
        for (const Vec2d& point : made.points) {
            box.ExtendBy(point);
        }
        const Vec2d size(box.maxX - box.minX, box.maxY - box.minY);
        for (std::size_t i = 0; i < made.ends.size(); i += 2) {
            Check(ring, made.ends[i], made.ends[i + 1], tally);
            // Short segments, every other one on the level of a vertex.
            const Vec2d any(box.minX + size.x * unit(random), box.minY + size.y * unit(random));
            const Vec2d p = i % 4 == 0 ? any : Vec2d(any.x, made.points[i % made.points.size()].y);
            const double dx = size.x * step(random);
            Check(ring, p, p + Vec2d(dx, size.y * step(random)), tally);
        }
        ASSERT_FALSE(HasFailure()) << made.kind << ", seed " << seed << " round " << round;
    }
    std::printf("seed %u: %zu segments, %zu clear, %zu places, %zu of them inside\n", seed,
                tally.asked, tally.clear, tally.placed, tally.inside);
    EXPECT_GT(tally.clear, tally.asked / 20);
    EXPECT_GT(tally.placed, tally.asked / 8);
    EXPECT_GT(tally.inside, tally.placed / 8);
}

std::vector<Vec2d> Circle(std::size_t n) {
    std::vector<Vec2d> ring;
    for (std::size_t i = 0; i < n; ++i) {
        const double angle = 6.283185307179586 * static_cast<double>(i) / static_cast<double>(n);
        ring.emplace_back(std::cos(angle), std::sin(angle));
    }
    return ring;
}

TEST(ClearCells, KnowMostShortSegmentsHoweverManyEdgesThereAre) {
    for (const std::size_t n : {1000U, 10000U, 100000U}) {
        const CellsOfRing circle(Circle(n));
        std::mt19937 random(5);
        std::uniform_real_distribution<double> place(-1.0, 1.0);
        std::size_t clear = 0;
        std::size_t placed = 0;
        for (int i = 0; i < 1000; ++i) {
            const double x = place(random);
            const Vec2d p(x, place(random));
            const Vec2d q = p + Vec2d(0.01, 0.01);
            clear += circle.cells.AreClear(p, q) && !circle.index.MayHaveParallels(p, q);
            ClearCells::Place found;
            if (circle.cells.FindBefore(p, found)) {
                ++placed;
                EXPECT_EQ(found.isInside, found.x * found.x + p.y * p.y < 1.0);
            }
        }
        EXPECT_GT(clear, 850U) << n << " edges";
        EXPECT_GT(placed, 850U) << n << " edges";
    }
}

TEST(ClearCells, KnowNothingOfLevelsOfVertices) {
    const std::vector<Vec2d> ring = Circle(1000);
    const CellsOfRing circle(ring);
    ClearCells::Place place;
    for (const Vec2d& vertex : ring) {
        EXPECT_FALSE(circle.cells.FindBefore({0.0, vertex.y}, place));
    }
}

TEST(ClearCells, KnowNothingWhereProbesAreNotPrecise) {
    const std::vector<Vec2d> ring = Circle(100);
    const auto moved = [&ring](double scale, double offset) {
        std::vector<Vec2d> points = ring;
        for (Vec2d& p : points) {
            p = {p.x * scale + offset, p.y * scale};
        }
        return points;
    };
    const Vec2d middle(0.0, 1e-3);
    EXPECT_TRUE(CellsOfRing(ring).cells.AreClear(middle, {0.01, 0.02}));
    // Probes are far longer than the ring, or start on it, or it is far from the origin.
    EXPECT_FALSE(CellsOfRing(moved(1e-9, 0.0)).cells.AreClear(middle * 1e-9, {1e-11, 2e-11}));
    EXPECT_FALSE(CellsOfRing(moved(1e17, 0.0)).cells.AreClear(middle * 1e17, {1e15, 2e15}));
    EXPECT_FALSE(CellsOfRing(moved(1.0, 1e9)).cells.AreClear({1e9, 0.0}, {1e9 + 0.01, 0.02}));
}

TEST(ClearCells, KnowNothingBeyondTheRingOrOfNoNumbers) {
    const CellsOfRing circle(Circle(100));
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    ClearCells::Place place;
    for (const double x : {-1.5, 1.5, notANumber, infinity, -infinity}) {
        EXPECT_FALSE(circle.cells.AreClear({x, 0.0}, {0.0, 0.1}));
        EXPECT_FALSE(circle.cells.AreClear({0.0, 0.1}, {0.0, x}));
        EXPECT_FALSE(circle.cells.FindBefore({x, 0.0}, place));
        EXPECT_FALSE(circle.cells.FindBefore({0.0, x}, place));
    }
    EXPECT_FALSE(circle.cells.AreClear({0.0, 0.1}, {0.0, 0.1})) << "a point has no direction";
    EXPECT_FALSE(ClearCells().AreClear({0.0, 0.1}, {0.1, 0.1}));
    EXPECT_FALSE(ClearCells().FindBefore({0.0, 0.1}, place));
}

} // namespace
} // namespace geom::detail
