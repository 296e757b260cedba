// SPDX-License-Identifier: MIT
// The engine against the plain sweep: contours and strips, their order, the order of vertices, hole
// flags and signs of zero. GEOM_COMPARISON_PAIRS in the environment sets the pairs of each
// family, GEOM_COMPARISON_SEED where they start.
#include "tests/reference/SweepComparison.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

namespace geom::test {

namespace {

constexpr std::uint64_t PAIRS = 1'000;
constexpr std::uint64_t SEED = 4'711;

std::uint64_t Setting(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text ? std::strtoull(text, nullptr, 10) : otherwise;
}

class SweepComparisonOfFamilies : public ::testing::TestWithParam<PolygonFamily> {};

std::string NameOf(const ::testing::TestParamInfo<PolygonFamily>& info) {
    return info.param.name;
}

TEST_P(SweepComparisonOfFamilies, EngineGivesThePlainResultToTheBit) {
    const std::uint64_t seed = Setting("GEOM_COMPARISON_SEED", SEED);
    const int pairs = static_cast<int>(Setting("GEOM_COMPARISON_PAIRS", PAIRS));
    const ComparisonTally tally = CompareFamily(GetParam(), pairs, seed);
    std::cout << tally.pairs << " pairs, " << tally.results << " results, " << tally.vertices
              << " vertices, " << tally.differences << " differences, " << tally.exceptions
              << " exceptions, seed " << seed << "\n";
    EXPECT_EQ(tally.differences, 0) << tally.example;
    EXPECT_EQ(tally.changed, 0);
    EXPECT_GT(tally.vertices, 10 * pairs);
}

INSTANTIATE_TEST_SUITE_P(Families, SweepComparisonOfFamilies,
                         ::testing::ValuesIn(PolygonFamilies()), NameOf);

INSTANTIATE_TEST_SUITE_P(Overflow, SweepComparisonOfFamilies,
                         ::testing::Values(PolygonFamily{"OverflowingDifferences",
                                                         OverflowingDifferences, Laws::None}),
                         NameOf);

} // namespace

} // namespace geom::test
