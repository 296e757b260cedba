// SPDX-License-Identifier: MIT
#include "tools/geomtool/Numbers.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <limits>

namespace geomtool {
namespace {

struct Taken {
    NumberStatus status;
    double value;
    std::string rest;
};

Taken Take(const std::string& text) {
    std::string_view rest = text;
    double value = -99;
    const NumberStatus status = TakeNumber(rest, value);
    return {status, value, std::string(rest)};
}

struct ValidCase {
    const char* name;
    std::string text;
    double value;
    const char* rest;
};

TEST(Numbers, ReadsDecimalNumbers) {
    const ValidCase cases[] = {
        {"whole", "12 x", 12, " x"},
        {"fraction", "0.1,", 0.1, ","},
        {"plus sign", "+3.5", 3.5, ""},
        {"minus sign", "-.5)", -.5, ")"},
        {"exponent", "1e-3", 1e-3, ""},
        {"letters behind", "7e", 7, "e"},
        {"decimal comma ends the number", "1,5", 1, ",5"},
        {"smallest", "4.9406564584124654e-324", DBL_TRUE_MIN, ""},
        {"largest", "1.7976931348623157e308", DBL_MAX, ""},
        {"too small", "1e-400", 0, ""},
        {"too small without exponent", "0." + std::string(400, '0') + "1", 0, ""},
        {"small with long digits and exponent", std::string(20, '9') + "e-400", 0, ""},
        {"zero with a huge exponent", "0e99999999999999999999", 0, ""},
        {"ten thousand digits behind the point", "0." + std::string(10000, '3'), 0.3333333333333333,
         ""},
    };
    for (const ValidCase& c : cases) {
        SCOPED_TRACE(c.name);
        const Taken taken = Take(c.text);
        EXPECT_EQ(taken.status, NumberStatus::Valid);
        EXPECT_EQ(taken.value, c.value);
        EXPECT_EQ(taken.rest, c.rest);
    }
}

TEST(Numbers, RefusesWhatIsNoFiniteNumber) {
    struct {
        const char* name;
        std::string text;
        NumberStatus status;
    } const cases[] = {
        {"empty", "", NumberStatus::NotANumber},
        {"word", "abc", NumberStatus::NotANumber},
        {"two signs", "+-1", NumberStatus::NotANumber},
        {"lone sign", "-", NumberStatus::NotANumber},
        {"not a number", "nan", NumberStatus::NotANumber},
        {"infinity", "inf", NumberStatus::TooLarge},
        {"too large", "1e400", NumberStatus::TooLarge},
        {"ten thousand digits", std::string(10000, '9'), NumberStatus::TooLarge},
        {"exponent of twenty digits", "1e99999999999999999999", NumberStatus::TooLarge},
        {"large behind zeros", "0.001e999", NumberStatus::TooLarge},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Taken taken = Take(c.text);
        EXPECT_EQ(taken.status, c.status);
        EXPECT_EQ(taken.value, -99);
        EXPECT_EQ(taken.rest, c.text);
    }
}

TEST(Numbers, WritesTheShortestTextThatReadsBack) {
    struct {
        double value;
        const char* text;
    } const cases[] = {{0.1, "0.1"},
                       {-0.0, "-0"},
                       {100, "100"},
                       {1e300, "1e+300"},
                       {1.0 / 3, "0.3333333333333333"},
                       {DBL_TRUE_MIN, "5e-324"},
                       {-DBL_MAX, "-1.7976931348623157e+308"}};
    for (const auto& c : cases) {
        std::string out = "x";
        AppendNumber(out, c.value);
        EXPECT_EQ(out, std::string("x") + c.text);
        EXPECT_EQ(Take(c.text).value, c.value);
    }
}

TEST(Numbers, WritesFixedPointWithoutTrailingZeros) {
    struct {
        long long units;
        int decimals;
        const char* text;
    } const cases[] = {{0, 2, "0"},      {5, 2, ".05"},   {50, 2, ".5"},
                       {-50, 2, "-.5"},  {1200, 2, "12"}, {1234, 2, "12.34"},
                       {-1, 3, "-.001"}, {7, 0, "7"},     {-70, 0, "-70"}};
    for (const auto& c : cases) {
        std::string out;
        AppendFixed(out, c.units, c.decimals);
        EXPECT_EQ(out, c.text);
    }
}

} // namespace
} // namespace geomtool
