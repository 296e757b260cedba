// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Constants.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace kit {
namespace {

static_assert(std::is_same_v<decltype(PI), const double>);

TEST(Constants, AreTheNearestDoubles) {
    EXPECT_EQ(PI, 0x1.921fb54442d18p+1);
    EXPECT_EQ(ONE_PI, PI);
    EXPECT_EQ(TWO_PI, 0x1.921fb54442d18p+2);
    EXPECT_EQ(THREE_PI, 0x1.2d97c7f3321d2p+3);
    EXPECT_EQ(HALF_PI, 0x1.921fb54442d18p+0);
    EXPECT_EQ(DEG_TO_RAD, 0x1.1df46a2529d39p-6);
}

} // namespace
} // namespace kit
