// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/DoubleDouble.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using kit::doubledouble;

constexpr double LARGEST = std::numeric_limits<double>::max();

} // namespace

TEST(DoubleDouble, FactorsThatAreNoWholeNumbersAreNotCutDown) {
    const doubledouble third = doubledouble(1.0) / doubledouble(3.0);
    EXPECT_EQ(0.5 * third, doubledouble(third.high / 2, third.low / 2));
    EXPECT_EQ(0.5F * third, 0.5 * third);
    EXPECT_EQ(2 * third, doubledouble(third.high * 2, third.low * 2));
}

// The largest double divided by n, and multiplied by n again, can round up beyond it.
TEST(DoubleDouble, QuotientsOfTheLargestDoubleAreFinite) {
    int roundsUp = 0;
    for (int n = 1; n < 1000; ++n) {
        const double divisor = n;
        const doubledouble quotient = doubledouble(LARGEST) / doubledouble(divisor);
        EXPECT_EQ(quotient.high, LARGEST / divisor) << n;
        EXPECT_TRUE(std::isfinite(quotient.low)) << n;
        roundsUp += std::isinf(LARGEST / divisor * divisor) ? 1 : 0;
    }
    EXPECT_GT(roundsUp, 10);
}
