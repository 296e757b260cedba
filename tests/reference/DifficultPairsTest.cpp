// SPDX-License-Identifier: MIT
// Small operands at which a sweep that looks only where something happens goes wrong when it
// forgets one thing. Each is compared with the plain sweep in all operations and both outputs.
#include "tests/reference/SweepComparison.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace geom::test {

namespace {

struct DifficultPair {
    const char* name; ///< what must not be forgotten
    Operands operands;
};

constexpr double APART = 0x1p-51;  ///< the least distance at which edges are two
constexpr double WITHIN = 0x1p-52; ///< the largest at which they are one

/// Multiplies every x of an operand.
Rings Narrowed(Rings rings, double factor) {
    for (Ring& ring : rings)
        for (gpc_vertex& v : ring)
            v.x *= factor;
    return rings;
}

/// How GoogleTest shows a parameter.
void PrintTo(const DifficultPair& pair, std::ostream* stream) {
    *stream << pair.name;
}

const std::vector<DifficultPair>& DifficultPairs() {
    static const std::vector<DifficultPair> PAIRS = {
        {"EdgesOutOfOrderByRoundingOnly",
         {{{{0.75, 0.875}, {0.96875, 0.5625}, {1, 1}}},
          {{{0.75, 0.875 + APART}, {0.96875, 0.5625 + APART}, {1, 0.8125 + APART}}}}},
        {"ShapesOfTheSizeOfTheTolerance",
         {Narrowed({{{5, 2}, {6, 8}, {5, 1}, {1, 7}}}, 0x1p-48), {}}},
        {"EdgesThatBecomeOneAboveTheirEnds",
         {{{{0.9375, 0.6875}, {0.5, 0.96875}, {1, 1}}},
          {{{0.9375 + WITHIN, 0.6875}, {0.5 + WITHIN, 0.96875}, {1, 0.9}}}}},
        {"NeighboursThatCoincideBehindSeveralEndedEdges",
         {Narrowed({{{0, 0.75}, {8, 0}}}, 0x1p-54),
          Narrowed({{{1, 0.75}, {4, 0.5}, {4, 2}, {4, 0}},
                    {{2, 1}, {2, 0.75}, {3, 1}, {3, 0}, {2, 1}, {2, 0.3}, {8, 0}}},
                   0x1p-54)}},
        {"BundleThatDissolvesInTheNextRow",
         {{{{0.75, 0.5625}, {0.9375, 0.96875}}},
          {{{1, 0.8}, {0.75, 0.5625 + APART}, {0.9375, 0.96875 + APART}}}}},
        {"EdgesUnderAPendingHorizontal",
         {{{{1, 1}, {1, 0.5625}, {0.5, 0.5625}}}, {{{1, 0.5}, {1, 1}, {0.5, 1}}}}},
        {"EdgeBehindASwappedPair",
         {{{{1, 0.97}, {1, 1}, {0.8, 0.5}}}, {{{1, 0.96875}, {0.5, 0.9}, {0.8, 0.6}}}}},
        {"PairOutOfOrderThatCannotCross",
         {{{{3, 9}, {5, 3}, {4, 9}, {6, 1}}}, {{{2.5, 10}, {6, 1}}}}},
        {"CrossingsThatWaitForTheirNeighbours",
         {{{{0.625, 0.96875}, {0.6875, 0.5}}},
          {{{1, 0.8}, {0.5, 0.9}, {0.625 - APART, 0.96875 + APART}, {0.6875 + APART, 0.5}}}}},
        {"BoundsThatStartAlikeInOrderOfCreation", {{{{0, 3}, {0, 2}}}, {{{0, 2}, {0, 3}, {2, 6}}}}},
        {"EdgeThatReachesItsUpperEndExactly", {{{{0, 0}, {0.06, 0.1}, {0.5, 0.9}}}, {}}},
        {"NegativeZeroAtALowerEnd", {{{{1, 1}, {-0.0, -1}, {-0.0, 1}}}, {}}},
        {"NegativeZeroAsOrdinate", {{{{1, 0}, {-1, -0.0}, {-2, 1}}}, {}}},
        {"TriangleAtTheRightEndOfATop",
         {{{{0, 0}, {2, 0}, {2, 2}, {0, 2}}}, {{{2, 2}, {1, 4}, {0, 4}}}}},
        {"OneTriangleTwice", {{{{0, 0}, {2, 1}, {1, 3}}}, {{{0, 0}, {2, 1}, {1, 3}}}}},
    };
    return PAIRS;
}

class DifficultPairsTest : public ::testing::TestWithParam<DifficultPair> {};

TEST_P(DifficultPairsTest, EngineGivesThePlainResultToTheBit) {
    const Operands& operands = GetParam().operands;
    const ComparisonTally tally = Compare(operands);
    EXPECT_EQ(tally.differences, 0) << tally.example;
    EXPECT_EQ(tally.changed, 0);
    EXPECT_GT(tally.vertices, 0);
    const ComparisonTally exchanged = Compare({operands.clip, operands.subject});
    EXPECT_EQ(exchanged.differences, 0) << exchanged.example;
}

std::string NameOf(const ::testing::TestParamInfo<DifficultPair>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Sweep, DifficultPairsTest, ::testing::ValuesIn(DifficultPairs()), NameOf);

} // namespace

} // namespace geom::test
