// SPDX-License-Identifier: MIT
// LineClipPolygon with its index against the walk over all edges, to the bit, in every form of
// output.
#include "tests/reference/LineClipComparison.h"
#include "tests/support/LineClipCases.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace geom {
namespace {

using test::LineClipCase;
using test::LineClipCases;
using test::LineClipPair;
using test::LineClipTally;

using Points = std::vector<Vec2d>;

TEST(LineClipPolygon, GivesTheResultsOfWalkingAllEdges) {
    const unsigned int seed = 4711;
    LineClipCases cases(seed);
    std::map<std::string, LineClipTally> tallies;
    for (int round = 0; round < 2500; ++round) {
        const LineClipCase made = cases.Next(16);
        LineClipTally& tally = tallies[made.kind];
        const LineClipPair pair(made);
        const std::size_t before = tally.differences;
        pair.CompareSegments(made.ends, tally);
        pair.CompareRuns(made.ends, tally);
        pair.CompareProbes(made.ends, tally);
        ASSERT_EQ(tally.differences, before)
            << made.kind << ", seed " << seed << " round " << round;
    }
    LineClipTally all;
    for (const auto& [kind, tally] : tallies) {
        std::printf("%-12s %7zu segments %7zu pieces %6zu runs %7zu probes (%zu inside, %zu on the "
                    "boundary), %zu differences\n",
                    kind.c_str(), tally.segments, tally.pieces, tally.runs, tally.probes,
                    tally.inside, tally.on, tally.differences);
        all.segments += tally.segments;
        all.pieces += tally.pieces;
        all.inside += tally.inside;
        all.on += tally.on;
    }
    std::printf("seed %u: %zu segments compared, 0 differences\n", seed, all.segments);
    EXPECT_EQ(tallies.size(), 6U);
    EXPECT_EQ(all.segments, 40000U);
    EXPECT_GT(all.pieces, 40000U);
    EXPECT_GT(all.inside, 10000U);
    EXPECT_GT(all.on, 3000U);
}

// Steps of a hundredth of the polygon, some along edges and some to the level of a vertex: most
// segments are near nothing, and many starts are at awkward places of clear areas.
Points Walk(const LineClipCase& made, std::mt19937& random) {
    std::uniform_int_distribution<std::size_t> vertex(0, made.points.size() - 1);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    Box2d box;
    for (const Vec2d& point : made.points) {
        box.ExtendBy(point);
    }
    const Vec2d size(box.maxX - box.minX, box.maxY - box.minY);
    Points walk;
    Vec2d at = box.Center();
    for (int i = 0; i < 100; ++i) {
        const std::size_t k = vertex(random);
        const Vec2d edge = made.points[(k + 1) % made.points.size()] - made.points[k];
        const double dx = size.x * unit(random);
        const Vec2d any(dx, size.y * unit(random));
        at += (i % 7 == 0 ? edge : any) * (0.05 * unit(random));
        if (i % 11 == 0) {
            at.y = std::nextafter(made.points[k].y, i % 3 == 0 ? made.points[k].y : at.y);
        }
        if (i % 20 == 0) {
            at = box.Center() + size * (0.5 * unit(random));
        }
        walk.push_back(at);
    }
    return walk;
}

TEST(LineClipPolygon, GivesTheResultsOfWalkingAllEdgesAlongWalks) {
    const unsigned int seed = 815;
    LineClipCases cases(seed);
    std::mt19937 random(seed);
    LineClipTally tally;
    for (int round = 0; round < 800; ++round) {
        const LineClipCase made = cases.Next(1);
        const Points walk = Walk(made, random);
        const LineClipPair pair(made);
        pair.CompareSegments(walk, tally);
        pair.CompareRuns(walk, tally);
        pair.CompareProbes(walk, tally);
        ASSERT_EQ(tally.differences, 0U) << made.kind << ", seed " << seed << " round " << round;
    }
    std::printf("seed %u: %zu segments %zu pieces %zu runs %zu probes (%zu inside)\n", seed,
                tally.segments, tally.pieces, tally.runs, tally.probes, tally.inside);
    EXPECT_GT(tally.pieces, 15000U);
    EXPECT_GT(tally.inside, 15000U);
}

// Large enough for several levels of the index.
constexpr int MANY = 5000;

Points LargeStar(std::mt19937& random) {
    std::uniform_real_distribution<double> radius(5.0, 10.0);
    Points ring;
    for (int i = 0; i < MANY; ++i) {
        const double angle = 6.283185307179586 * i / MANY;
        const double r = radius(random);
        ring.push_back(Vec2d(std::cos(angle), std::sin(angle)) * r);
    }
    return ring;
}

// Teeth on a slanted line, so that thousands of edges are collinear up to rounding.
Points LargeComb(std::mt19937& random) {
    std::uniform_real_distribution<double> height(0.1, 1.0);
    const Vec2d along(0.6, 0.8);
    const Vec2d across(-0.8, 0.6);
    Points ring;
    for (int i = 0; i < MANY / 3; ++i) {
        const double from = 0.01 * i;
        ring.push_back(along * from);
        ring.push_back(along * (from + 0.004));
        ring.push_back(along * (from + 0.007) + across * height(random));
    }
    ring.push_back(along * (0.01 * MANY / 3) - across);
    ring.push_back(across * -1.0);
    return ring;
}

// Many islands, joined by edges that run from each to the next and back.
LineClipCase LargeArchipelago(std::mt19937& random) {
    std::uniform_int_distribution<int> place(0, 100);
    std::uniform_int_distribution<int> size(1, 3);
    LineClipCase made = {"archipelago", {}, {}, {}};
    for (int i = 0; i < MANY / 6; ++i) {
        const Vec2d at{1.0 * place(random), 1.0 * place(random)};
        const Vec2d extent{1.0 * size(random), 1.0 * size(random)};
        made.points.push_back(at);
        made.points.emplace_back(at.x + extent.x, at.y);
        made.points.push_back(at + extent);
        made.points.emplace_back(at.x, at.y + extent.y);
        made.counts.push_back(4);
    }
    return made;
}

TEST(LineClipPolygon, GivesTheResultsOfWalkingAllEdgesOfLargePolygons) {
    const unsigned int seed = 1234;
    std::mt19937 random(seed);
    std::vector<LineClipCase> cases = {{"star", LargeStar(random), {MANY}, {}},
                                       {"comb", LargeComb(random), {}, {}},
                                       LargeArchipelago(random)};
    cases[1].counts.push_back(static_cast<unsigned int>(cases[1].points.size()));
    for (LineClipCase& made : cases) {
        std::uniform_int_distribution<std::size_t> vertex(0, made.points.size() - 1);
        std::uniform_real_distribution<double> part(-2.0, 3.0);
        for (int i = 0; i < 150; ++i) {
            const std::size_t k = vertex(random);
            const Vec2d a = made.points[k];
            const Vec2d b = made.points[i % 3 == 0 ? vertex(random) : (k + 1) % made.points.size()];
            const Vec2d p = i % 2 == 0 ? a : a + (b - a) * part(random);
            made.ends.push_back(p);
            made.ends.push_back(i % 5 == 0 ? Vec2d(p.x, b.y) : a + (b - a) * part(random));
        }
        LineClipTally tally;
        const LineClipPair pair(made);
        pair.CompareSegments(made.ends, tally);
        pair.CompareRuns(Walk(made, random), tally);
        pair.CompareProbes(made.ends, tally);
        std::printf(
            "%-12s %zu segments %zu pieces %zu probes (%zu inside, %zu on the boundary), %zu "
            "differences\n",
            made.kind, tally.segments, tally.pieces, tally.probes, tally.inside, tally.on,
            tally.differences);
        EXPECT_EQ(tally.differences, 0U) << made.kind << ", seed " << seed;
        EXPECT_GT(tally.pieces, 50U);
    }
}

} // namespace
} // namespace geom
