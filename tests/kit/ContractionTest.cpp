// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

// x*x is 1 + 2^-29 + 2^-60, which rounds to c exactly. A compiler that fuses the product with the
// difference skips that rounding and leaves 2^-60: results would then depend on the machine.
TEST(Contraction, ProductIsRoundedBeforeTheDifference) {
    volatile double x = 1 + 0x1p-30;
    volatile double c = 1 + 0x1p-29;
    const double a = x;
    const double b = c;
    EXPECT_EQ(a * a - b, 0.0);
}
