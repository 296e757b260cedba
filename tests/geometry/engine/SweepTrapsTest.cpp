// SPDX-License-Identifier: MIT
// Inputs on which a sweep that skips edges goes wrong when it leaves out one of its precautions.
// Each is named after the precaution; the engine must give what the plain sweep gives.
#include "tests/reference/SweepComparison.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

namespace geom::test {

namespace {

constexpr double U51 = 0x1p-51;
constexpr double U52 = 0x1p-52;

struct Trap {
    const char* name;
    Rings subject;
    Rings clip;
};

/// How GoogleTest shows a trap.
void PrintTo(const Trap& trap, std::ostream* stream) {
    *stream << trap.name;
}

Ring Raised(Ring ring, double by) {
    for (gpc_vertex& v : ring) {
        v.y += by;
    }
    return ring;
}

Ring Stretched(Ring ring, double by) {
    for (gpc_vertex& v : ring) {
        v.x *= by;
    }
    return ring;
}

// Whole numbers, turned by an angle whose sine and cosine are no round numbers: rows that should
// be level are not, by roundings, and the list of active edges has inversions.
Rings TurnedGrid(double shift) {
    const double c = std::sqrt(0.75);
    const double s = 0.5;
    Rings rings;
    for (int i = 0; i < 6; ++i) {
        for (int k = 0; k < 6; ++k) {
            Ring ring;
            for (const gpc_vertex& corner : {gpc_vertex{0, 0}, {1, 0}, {1, 1}, {0, 1}}) {
                const double x = corner.x + 2 * i + shift;
                const double y = corner.y + 2 * k + shift;
                ring.push_back({c * x - s * y, s * x + c * y});
            }
            rings.push_back(ring);
        }
    }
    return rings;
}

std::vector<Trap> Traps() {
    const Ring leaning = {{0.75, 0.5625}, {0.9375, 0.96875}};
    return {
        {"MarginOfRoundingErrors",
         {{{0.75, 0.875}, {0.96875, 0.5625}, {1, 1}}},
         {Raised({{0.75, 0.875}, {0.96875, 0.5625}, {1, 0.8125}}, U51)}},
        {"MarginOfTheAbsoluteEpsilon", {Stretched({{5, 2}, {6, 8}, {5, 1}, {1, 7}}, 0x1p-48)}, {}},
        {"CoincidenceOfTouchedNeighbours",
         {{{0.9375, 0.6875}, {0.5, 0.96875}, {1, 1}}},
         {{{0.9375 + U52, 0.6875}, {0.5 + U52, 0.96875}, {1, 0.9}}}},
        {"CoincidenceAcrossEndedEdges",
         {Stretched({{0, 0.75}, {8, 0}}, 0x1p-54)},
         {Stretched({{1, 0.75}, {4, 0.5}, {4, 2}, {4, 0}}, 0x1p-54),
          Stretched({{2, 1}, {2, 0.75}, {3, 1}, {3, 0}, {2, 1}, {2, 0.3}, {8, 0}}, 0x1p-54)}},
        {"BundleMembersAreEventsOfTheNextRow",
         {leaning},
         {{{1, 0.8}, {0.75, 0.5625 + U51}, {0.9375, 0.96875 + U51}}}},
        {"EdgesOfAHeightThatOverflows",
         {{{8e307, 8e307}, {0, 0}, {-8e307, 0}}, {{0, -1.6e308}, {0, 1.6e308}}},
         {{{0, 8e307}, {0, 0}, {8e307, 0}}}},
        {"NeighboursOfAnXThatIsNoNumber",
         {{{0, 1.6e308}, {-8e307, -8e307}}},
         {{{-1.6e308, 0}, {0, 8e307}, {0, 1.6e308}, {-8e307, -1.6e308}}}},
        {"EdgesUnderAPendingHorizontal",
         {{{1, 1}, {1, 0.5625}, {0.5, 0.5625}}},
         {{{1, 0.5}, {1, 1}, {0.5, 1}}}},
        {"SlotBehindASwappedPair",
         {{{1, 0.97}, {1, 1}, {0.8, 0.5}}},
         {{{1, 0.96875}, {0.5, 0.9}, {0.8, 0.6}}}},
        {"StoredLinksOfTheSortedTable",
         {{{0, 0}, {1, 0}, {6, 9}, {5, 9}}, {{2, 0}, {3, 0}, {4, 9}, {3, 9}}},
         {{{5, 0}, {6, 0}, {1, 9}, {0, 9}}}},
        {"DirtyPairsThatCannotCrossThemselves",
         {{{3, 9}, {5, 3}, {4, 9}, {6, 1}}},
         {{{2.5, 10}, {6, 1}}}},
        {"AdjacencyOfCrossings",
         {{{0.625, 0.96875}, {0.6875, 0.5}}},
         {{{1, 0.8}, {0.5, 0.9}, {0.625 - U51, 0.96875 + U51}, {0.6875 + U51, 0.5}}}},
        {"InversionsAtInsertion", TurnedGrid(0), TurnedGrid(0.5)},
        {"OrderOfCreationOfMinima", {{{0, 3}, {0, 2}}}, {{{0, 2}, {0, 3}, {2, 6}}}},
        {"ExactUpperEnds", {{{0, 0}, {0.06, 0.1}, {0.5, 0.9}}}, {}},
        {"ExactLowerEndsOfNegativeZero", {{{1, 1}, {-0.0, -1}, {-0.0, 1}}}, {}},
        {"SignOfAZeroOrdinate", {{{1, 0}, {-1, -0.0}, {-2, 1}}}, {}},
        {"RightEdgeOfAnInterval", {{{0, 0}, {9, 0}, {8, 9}, {1, 7}}, {{3, 2}, {5, 2}, {4, 5}}}, {}},
    };
}

class SweepTraps : public ::testing::TestWithParam<Trap> {};

TEST_P(SweepTraps, EngineGivesThePlainResult) {
    const ComparisonTally straight = Compare({GetParam().subject, GetParam().clip});
    const ComparisonTally swapped = Compare({GetParam().clip, GetParam().subject});
    EXPECT_EQ(straight.differences, 0) << straight.example;
    EXPECT_EQ(swapped.differences, 0) << swapped.example;
    EXPECT_GT(straight.vertices, 0);
}

INSTANTIATE_TEST_SUITE_P(Inputs, SweepTraps, ::testing::ValuesIn(Traps()),
                         [](const auto& trap) { return std::string(trap.param.name); });

// Long lists of active edges, which need every level of the directory, and many equal edges.
TEST(SweepOverLongLists, EngineGivesThePlainResult) {
    constexpr struct {
        const char* name;
        MakeOperands make;
        int size;
    } CASES[] = {{"spikes", Spikes, 250},          {"combs", Combs, 240},
                 {"grids", RotatedGrids, 300},     {"meshes", TriangleMeshes, 5000},
                 {"squares", Squares, 2000},       {"stars", Stars, 1000},
                 {"pencils", Pencils, 150},        {"overlaps", CollinearOverlaps, 200},
                 {"fine grid", FineGrid, 100},     {"scattered", ScatteredTriangles, 500},
                 {"copies", CopiesMovedBy52, 200}, {"small grid", SmallGrid, 150},
                 {"stairs", Staircases, 2000},     {"saws", Saws, 2000},
                 {"nested", NestedHoles, 400}};
    std::int64_t vertices = 0;
    for (const auto& item : CASES) {
        for (std::uint64_t seed = 1; seed <= 2; ++seed) {
            Random random(seed);
            const ComparisonTally tally = Compare(item.make(random, item.size));
            EXPECT_EQ(tally.differences, 0) << item.name << ", seed " << seed;
            vertices += tally.vertices;
        }
    }
    EXPECT_GT(vertices, 500'000);
}

} // namespace

} // namespace geom::test
