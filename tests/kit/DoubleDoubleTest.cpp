// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/DoubleDouble.h"

#include <boost/multiprecision/cpp_bin_float.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>

namespace kit {
namespace {

static_assert(offsetof(doubledouble, high) == 0 && offsetof(doubledouble, low) == sizeof(double));

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double LARGEST = std::numeric_limits<double>::max();

// Wide enough that sums and products of the numbers below are exact in it.
using Exact = boost::multiprecision::number<boost::multiprecision::cpp_bin_float<
    1000, boost::multiprecision::backends::digit_base_2, void, std::int32_t>>;

// The relative error that 30 digits allow with more than one digit to spare.
constexpr double TOLERANCE = 1e-31;

Exact Value(const doubledouble& a) {
    return Exact(a.high) + Exact(a.low);
}

// The low part is at most half a unit in the last place of the high part.
bool IsNormalised(const doubledouble& a) {
    return a.high + a.low == a.high;
}

double RelativeError(const doubledouble& computed, const Exact& exact) {
    const Exact difference = abs(Value(computed) - exact);
    return exact == 0 ? difference.convert_to<double>()
                      : Exact(difference / abs(exact)).convert_to<double>();
}

// Random extended numbers of either sign with exponents of -range to range, some with low parts
// far below the high part or of zero.
class Numbers {
public:
    explicit Numbers(int range) : m_exponent(-range, range) {}

    doubledouble Next() {
        const double high = std::scalbn(m_mantissa(m_engine), m_exponent(m_engine));
        const int gap = m_gap(m_engine);
        const double low =
            gap > 60 ? 0.0 : std::scalbn(m_mantissa(m_engine), std::ilogb(high) - 54 - gap);
        const double sum = high + low;
        return {sum, low - (sum - high)};
    }

private:
    std::mt19937_64 m_engine{20240607};
    std::uniform_real_distribution<double> m_mantissa{-1.0, 1.0};
    std::uniform_int_distribution<int> m_exponent;
    std::uniform_int_distribution<int> m_gap{0, 70};
};

constexpr int ROUNDS = 20000;

TEST(DoubleDouble, IsMadeFromADoubleWithoutALowPart) {
    const doubledouble a(0.1);
    EXPECT_EQ(a.high, 0.1);
    EXPECT_EQ(a.low, 0.0);
    EXPECT_EQ(doubledouble(), doubledouble(0.0));
    const doubledouble b(1.0, 0x1p-60);
    EXPECT_EQ(b.high, 1.0);
    EXPECT_EQ(b.low, 0x1p-60);
    EXPECT_EQ(-b, doubledouble(-1.0, -0x1p-60));
}

TEST(DoubleDouble, SumOfDoublesIsExact) {
    const doubledouble sum = doubledouble(1.0) + doubledouble(0x1p-80);
    EXPECT_EQ(sum, doubledouble(1.0, 0x1p-80));
    EXPECT_EQ(sum - doubledouble(1.0), doubledouble(0x1p-80));
}

TEST(DoubleDouble, ProductOfDoublesIsExact) {
    const double x = 1 + 0x1p-30;
    EXPECT_EQ(doubledouble(x) * doubledouble(x), doubledouble(1 + 0x1p-29, 0x1p-60));
}

TEST(DoubleDouble, IntegerFactor) {
    const doubledouble third = doubledouble(1.0) / doubledouble(3.0);
    EXPECT_EQ(3 * doubledouble(1.0, 0x1p-60), doubledouble(3.0, 0x1.8p-59));
    EXPECT_EQ(-4 * third, doubledouble(-4.0) * third);
    EXPECT_EQ(0 * third, doubledouble(0.0));
    EXPECT_EQ(std::numeric_limits<int>::min() * doubledouble(1.0), doubledouble(-0x1p31));
}

TEST(DoubleDouble, SumsAreRightTo30Digits) {
    Numbers numbers(40);
    double worst = 0;
    for (int i = 0; i < ROUNDS; ++i) {
        const doubledouble a = numbers.Next(), b = numbers.Next();
        const doubledouble sum = a + b, difference = a - b;
        ASSERT_TRUE(IsNormalised(sum) && IsNormalised(difference));
        worst = std::max({worst, RelativeError(sum, Value(a) + Value(b)),
                          RelativeError(difference, Value(a) - Value(b))});
    }
    EXPECT_LT(worst, TOLERANCE);
}

// The difference of neighbours: the high parts cancel and the low ones carry the result.
TEST(DoubleDouble, DifferencesOfCloseNumbersAreRightTo30Digits) {
    Numbers numbers(4);
    double worst = 0;
    int cancelled = 0;
    for (int i = 0; i < ROUNDS; ++i) {
        const doubledouble a = numbers.Next();
        const doubledouble b = a * doubledouble(1.0, std::scalbn(1.0, -54 - i % 40));
        const doubledouble difference = a - b;
        ASSERT_TRUE(IsNormalised(difference));
        cancelled += std::fabs(difference.high) < std::fabs(a.high) * 0x1p-50 ? 1 : 0;
        worst = std::max(worst, RelativeError(difference, Value(a) - Value(b)));
    }
    EXPECT_GT(cancelled, ROUNDS / 2);
    EXPECT_LT(worst, TOLERANCE);
}

TEST(DoubleDouble, ProductsAreRightTo30Digits) {
    Numbers numbers(100);
    double worst = 0;
    for (int i = 0; i < ROUNDS; ++i) {
        const doubledouble a = numbers.Next(), b = numbers.Next();
        const doubledouble product = a * b;
        ASSERT_TRUE(IsNormalised(product));
        worst = std::max(worst, RelativeError(product, Value(a) * Value(b)));
    }
    EXPECT_LT(worst, TOLERANCE);
}

TEST(DoubleDouble, QuotientsAreRightTo30Digits) {
    Numbers numbers(100);
    double worst = 0;
    for (int i = 0; i < ROUNDS; ++i) {
        const doubledouble a = numbers.Next(), b = numbers.Next();
        const doubledouble quotient = a / b;
        ASSERT_TRUE(IsNormalised(quotient));
        worst = std::max(worst, RelativeError(quotient, Value(a) / Value(b)));
    }
    EXPECT_LT(worst, TOLERANCE);
}

TEST(DoubleDouble, RootsAreRightTo30Digits) {
    Numbers numbers(100);
    double worst = 0;
    for (int i = 0; i < ROUNDS; ++i) {
        const doubledouble a = numbers.Next();
        const doubledouble positive = a > doubledouble(0.0) ? a : -a;
        const doubledouble root = sqrt(positive);
        ASSERT_TRUE(IsNormalised(root));
        worst = std::max(worst, RelativeError(root, sqrt(Value(positive))));
    }
    EXPECT_LT(worst, TOLERANCE);
}

TEST(DoubleDouble, ThirtyDigitsOfTheRootOfTwo) {
    EXPECT_LT(RelativeError(sqrt(doubledouble(2.0)),
                            Exact("1.41421356237309504880168872420969807856967")),
              TOLERANCE);
    EXPECT_LT(RelativeError(doubledouble(1.0) / doubledouble(3.0),
                            Exact("0.333333333333333333333333333333333333333333")),
              TOLERANCE);
}

TEST(DoubleDouble, RootsOfSquaresAreExact) {
    for (const double x : {1.0, 3.0, 0.25, 1e10, 123456789.0}) {
        EXPECT_EQ(sqrt(doubledouble(x) * doubledouble(x)), doubledouble(x));
    }
    EXPECT_EQ(sqrt(doubledouble(0.0)), doubledouble(0.0));
}

TEST(DoubleDouble, RootOfANegativeNumberIsNotANumber) {
    EXPECT_TRUE(std::isnan(sqrt(doubledouble(-1.0)).high));
    EXPECT_EQ(sqrt(doubledouble(INF)).high, INF);
}

TEST(DoubleDouble, ComparisonLooksAtTheFullValue) {
    const doubledouble one(1.0), above(1.0, 0x1p-70), below(1.0, -0x1p-70);
    EXPECT_TRUE(above > one);
    EXPECT_TRUE(one > below);
    EXPECT_FALSE(one > one);
    EXPECT_FALSE(below > one);
    EXPECT_TRUE(doubledouble(2.0) > above);
    EXPECT_FALSE(doubledouble(-2.0) > above);
    EXPECT_TRUE(below < one);
    EXPECT_FALSE(one < one);
    EXPECT_TRUE(one == doubledouble(1.0, 0.0));
    EXPECT_TRUE(one != above);
    EXPECT_FALSE(one > doubledouble(std::numeric_limits<double>::quiet_NaN()));
}

TEST(DoubleDouble, ResultsBeyondTheRangeAreInfinite) {
    const doubledouble largest(LARGEST);
    EXPECT_EQ((largest + largest).high, INF);
    EXPECT_EQ((-largest - largest).high, -INF);
    EXPECT_EQ((largest * largest).high, INF);
    EXPECT_EQ((largest * -largest).high, -INF);
    EXPECT_EQ((largest / doubledouble(0.5)).high, INF);
    EXPECT_EQ((doubledouble(1.0) / doubledouble(0.0)).high, INF);
    EXPECT_EQ((doubledouble(1.0) / doubledouble(INF)).high, 0.0);
    EXPECT_EQ((doubledouble(INF) + doubledouble(1.0, 0x1p-60)).high, INF);
    EXPECT_EQ((doubledouble(INF) * doubledouble(2.0, 0x1p-60)).high, INF);
    EXPECT_TRUE(doubledouble(INF) * doubledouble(2.0) > largest);
    EXPECT_TRUE(std::isnan((doubledouble(0.0) / doubledouble(0.0)).high));
    EXPECT_TRUE(std::isnan((doubledouble(INF) - doubledouble(INF)).high));
}

TEST(DoubleDouble, ResultsBelowTheRangeVanish) {
    const doubledouble tiny(std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(tiny * tiny, doubledouble(0.0));
    EXPECT_EQ(tiny - tiny, doubledouble(0.0));
}

} // namespace
} // namespace kit
