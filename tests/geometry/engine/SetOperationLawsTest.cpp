// SPDX-License-Identifier: MIT
// The engine's results against truths that no sweep computes.
#include "tests/reference/SetOperationLaws.h"

#include "tests/reference/EngineCalls.h"

#include <gtest/gtest.h>

namespace geom::test {

namespace {

class SetOperationLaws : public ::testing::TestWithParam<PolygonFamily> {};

std::string NameOf(const ::testing::TestParamInfo<PolygonFamily>& info) {
    return info.param.name;
}

TEST_P(SetOperationLaws, MembershipAndAreas) {
    ExpectLaws({EngineClip, EngineTristrip}, GetParam(), 500, 7'919);
}

TEST(SetOperations, CoordinatesThatAreNotFiniteGiveSomeResultOrAnException) {
    ExpectAnEndWithoutFiniteCoordinates({EngineClip, EngineTristrip}, 2'000, 101);
}

INSTANTIATE_TEST_SUITE_P(Families, SetOperationLaws, ::testing::ValuesIn(FamiliesWithLaws()),
                         NameOf);

} // namespace

} // namespace geom::test
