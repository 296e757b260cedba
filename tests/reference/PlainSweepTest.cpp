// SPDX-License-Identifier: MIT
// The plain sweep is what the engine is held to, so it is itself held to truths that no sweep
// computes.
#include "tests/reference/PlainSweep.h"

#include "geometry/GPCException.h"
#include "tests/reference/SetOperationLaws.h"
#include "tests/support/PolygonView.h"

#include <gtest/gtest.h>

#include <iostream>

namespace geom::test {

namespace {

constexpr int PAIRS = 300;
constexpr std::uint64_t SEED = 20'231;

class PlainSweepLaws : public ::testing::TestWithParam<PolygonFamily> {};

std::vector<PolygonFamily> FamiliesWithLaws() {
    std::vector<PolygonFamily> families;
    for (const PolygonFamily& family : PolygonFamilies())
        if (family.laws != Laws::None)
            families.push_back(family);
    return families;
}

std::string NameOf(const ::testing::TestParamInfo<PolygonFamily>& info) {
    return info.param.name;
}

TEST_P(PlainSweepLaws, MembershipAndAreas) {
    const LawTally tally = CheckLaws({PlainClip, PlainTristrip}, GetParam(), PAIRS, SEED);
    std::cout << tally.pairs << " pairs, exceptions " << tally.exceptions << ", probes inside "
              << tally.probesInside << " outside " << tally.probesOutside << ", areas "
              << tally.contourAreas << ", strips " << tally.stripAreas << ", with holes "
              << tally.holes << ", sums " << tally.partialSums << ", seed " << SEED << "\n";
    EXPECT_EQ(tally.exceptions, 0);
    EXPECT_GT(tally.probesInside, PAIRS / 2);
    EXPECT_GT(tally.contourAreas, PAIRS / 2);
}

INSTANTIATE_TEST_SUITE_P(Families, PlainSweepLaws, ::testing::ValuesIn(FamiliesWithLaws()), NameOf);

} // namespace

} // namespace geom::test
