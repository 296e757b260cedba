// SPDX-License-Identifier: MIT
// The plain sweep is what the engine is held to, so it is itself held to truths that no sweep
// computes.
#include "tests/reference/PlainSweep.h"

#include "tests/reference/SetOperationLaws.h"
#include "tests/support/PlaneTruth.h"
#include "tests/support/PolygonView.h"

#include <gtest/gtest.h>

#include <cmath>

namespace geom::test {

namespace {

class PlainSweepLaws : public ::testing::TestWithParam<PolygonFamily> {};

std::string NameOf(const ::testing::TestParamInfo<PolygonFamily>& info) {
    return info.param.name;
}

TEST_P(PlainSweepLaws, MembershipAndAreas) {
    ExpectLaws({PlainClip, PlainTristrip}, GetParam(), 300, 20'231);
}

INSTANTIATE_TEST_SUITE_P(Families, PlainSweepLaws, ::testing::ValuesIn(FamiliesWithLaws()), NameOf);

TEST(PlainSweep, CoordinatesThatAreNotFiniteGiveSomeResultOrAnException) {
    ExpectAnEndWithoutFiniteCoordinates({PlainClip, PlainTristrip}, 500, 99);
}

TEST(PlainSweep, UnionOfOverlappingSquares) {
    Rings left = {{{0, 0}, {2, 0}, {2, 2}, {0, 2}}};
    Rings right = {{{1, 1}, {3, 1}, {3, 3}, {1, 3}}};
    const std::vector<PlainContour> result =
        PlainClip(GPC_UNION, PolygonView(left).Get(), PolygonView(right).Get());
    ASSERT_EQ(result.size(), 1U);
    EXPECT_FALSE(result[0].hole);
    EXPECT_EQ(result[0].vertices.size(), 8U);
}

/// The triangle starts exactly where the square's horizontal top ends, so the strip that arrives
/// there takes no vertex.
TEST(PlainSweep, StripsLackATriangleWhereABoundStartsAtTheRightEndOfATop) {
    Rings square = {{{0, 0}, {2, 0}, {2, 2}, {0, 2}}};
    Rings triangle = {{{2, 2}, {1, 4}, {0, 4}}};
    const std::vector<PlainStrip> strips =
        PlainTristrip(GPC_UNION, PolygonView(square).Get(), PolygonView(triangle).Get());
    double area = 0;
    for (const PlainStrip& strip : strips)
        for (std::size_t i = 2; i < strip.size(); ++i)
            area += std::fabs(SignedRingArea({strip[i - 2], strip[i - 1], strip[i]}));
    EXPECT_EQ(area, 3); // of 5
}

} // namespace

} // namespace geom::test
