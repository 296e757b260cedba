// SPDX-License-Identifier: MIT
#include "geometry/engine/TextScanner.h"

#include "FileSupport.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

namespace {

using geom::detail::TextScanner;
using geom::test::RestOf;
using geom::test::Stream;
using geom::test::StreamOf;

/// What a scan gave and what it left.
struct Scan {
    bool found;
    double value;
    std::string rest;

    bool operator==(const Scan& o) const {
        std::uint64_t a = 0;
        std::uint64_t b = 0;
        std::memcpy(&a, &value, sizeof a);
        std::memcpy(&b, &o.value, sizeof b);
        return found == o.found && a == b && rest == o.rest;
    }
    friend std::ostream& operator<<(std::ostream& out, const Scan& scan) {
        return out << (scan.found ? "" : "not ") << "found " << scan.value << ", rest '"
                   << scan.rest << "'";
    }
};

constexpr double UNTOUCHED = -777;

Scan ScanDouble(std::FILE* stream) {
    double value = UNTOUCHED;
    const bool found = TextScanner(stream).ScanDouble(value);
    return {found, value, RestOf(stream)};
}

Scan ScanInt(std::FILE* stream) {
    int value = static_cast<int>(UNTOUCHED);
    const bool found = TextScanner(stream).ScanInt(value);
    return {found, static_cast<double>(value), RestOf(stream)};
}

template <typename Function>
Scan Over(const std::string& text, Function scan) {
    const Stream stream = StreamOf(text);
    return scan(stream.get());
}

} // namespace

TEST(TextScanner, IntegersEndWhereTheirDigitsEnd) {
    const struct {
        const char* text;
        Scan expected;
    } cases[] = {
        {"5", {true, 5, ""}},
        {"  \t\n\v\f\r5 6", {true, 5, " 6"}},
        {"+5x", {true, 5, "x"}},
        {"-17\n", {true, -17, "\n"}},
        {"1.5", {true, 1, ".5"}},
        {"0x10", {true, 0, "x10"}},
        {"007", {true, 7, ""}},
        {"-0", {true, 0, ""}},
        {"", {false, UNTOUCHED, ""}},
        {"   ", {false, UNTOUCHED, ""}},
        {"x", {false, UNTOUCHED, "x"}},
        {"-x", {false, UNTOUCHED, "x"}},
        {"- 5", {false, UNTOUCHED, " 5"}},
        {"+", {false, UNTOUCHED, ""}},
        {"--5", {false, UNTOUCHED, "-5"}},
        {"\xA0"
         "5",
         {false, UNTOUCHED,
          "\xA0"
          "5"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Over(c.text, ScanInt), c.expected) << c.text;
    }
}

TEST(TextScanner, IntegersBeyond32BitsAreTheNearestWithin) {
    EXPECT_EQ(Over("2147483647 ", ScanInt), (Scan{true, INT_MAX, " "}));
    EXPECT_EQ(Over("2147483648 ", ScanInt), (Scan{true, INT_MAX, " "}));
    EXPECT_EQ(Over("4294967296", ScanInt), (Scan{true, INT_MAX, ""}));
    EXPECT_EQ(Over(std::string(5000, '9') + "x", ScanInt), (Scan{true, INT_MAX, "x"}));
    EXPECT_EQ(Over("-2147483647", ScanInt), (Scan{true, -INT_MAX, ""}));
    EXPECT_EQ(Over("-2147483648", ScanInt), (Scan{true, INT_MIN, ""}));
    EXPECT_EQ(Over("-2147483649", ScanInt), (Scan{true, INT_MIN, ""}));
    EXPECT_EQ(Over("-" + std::string(5000, '9'), ScanInt), (Scan{true, INT_MIN, ""}));
    EXPECT_EQ(Over(std::string(5000, '0') + "12", ScanInt), (Scan{true, 12, ""}));
}

TEST(TextScanner, DoublesEndWhereTheLongestNumberEnds) {
    constexpr double INFINITE = HUGE_VAL;
    const struct {
        const char* text;
        Scan expected;
    } cases[] = {
        {"1.5", {true, 1.5, ""}},
        {" \n-2.25e2 3", {true, -225, " 3"}},
        {"+.5,", {true, 0.5, ","}},
        {"5.", {true, 5, ""}},
        {"1,5", {true, 1, ",5"}},
        {"-0", {true, -0.0, ""}},
        {"1.2.3", {true, 1.2, ".3"}},
        {"1e5e5", {true, 1e5, "e5"}},
        {"1e5.5", {true, 1e5, ".5"}},
        {"0x1.8p3q", {true, 12, "q"}},
        {"-0XaP-1", {true, -5, ""}},
        {"inf", {true, INFINITE, ""}},
        {"-INF5", {true, -INFINITE, "5"}},
        {"Infinity", {true, INFINITE, ""}},
        {"infinityinfinity", {true, INFINITE, "infinity"}},
        {"1e999", {true, INFINITE, ""}},
        {"-1e999", {true, -INFINITE, ""}},
        {"1e-999", {true, 0, ""}},
        {"-1e-999", {true, -0.0, ""}},
        {"0e999999999999999999999", {true, 0, ""}},
        {"1e99999999999999999999", {true, INFINITE, ""}},
        {"1e-99999999999999999999", {true, 0, ""}},
        {"4.9406564584124654e-324", {true, 0x1p-1074, ""}},
        {"2.4703282292062327e-324", {true, 0, ""}},
        {"2.4703282292062328e-324", {true, 0x1p-1074, ""}},
        {"1.7976931348623157e308", {true, 0x1.fffffffffffffp+1023, ""}},
        {"1.7976931348623159e308", {true, INFINITE, ""}},
        {"0x1p2000", {true, INFINITE, ""}},
        {"0x1p-2000", {true, 0, ""}},
        {"9007199254740993", {true, 9007199254740992, ""}}, // a tie goes to even
        {"9007199254740993.0000000000000000000001", {true, 9007199254740994, ""}},
        {"", {false, UNTOUCHED, ""}},
        {".", {false, UNTOUCHED, ""}},
        {"..5", {false, UNTOUCHED, ".5"}},
        {".e5", {false, UNTOUCHED, "e5"}},
        {"-", {false, UNTOUCHED, ""}},
        {"- 5", {false, UNTOUCHED, " 5"}},
        {"e5", {false, UNTOUCHED, "e5"}},
        {"x", {false, UNTOUCHED, "x"}},
        {"nix", {false, UNTOUCHED, "x"}},
        {"0x", {false, UNTOUCHED, ""}},
        {"\xA0"
         "5",
         {false, UNTOUCHED,
          "\xA0"
          "5"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Over(c.text, ScanDouble), c.expected) << c.text;
    }
}

TEST(TextScanner, NotANumberKeepsItsSign) {
    for (const std::string text : {"nan", "NaN", "+nan", "-nan"}) {
        const Scan scan = Over(text + "(1)", ScanDouble);
        EXPECT_TRUE(scan.found && std::isnan(scan.value)) << text;
        EXPECT_EQ(std::signbit(scan.value), text[0] == '-') << text;
        EXPECT_EQ(scan.rest, "(1)");
    }
}

TEST(TextScanner, NumbersOfAbsurdLengthAreExact) {
    // The tie between two doubles is broken by the last of 20,000 digits.
    const std::string tie = "9007199254740993." + std::string(20000, '0');
    EXPECT_EQ(Over(tie + " 1", ScanDouble), (Scan{true, 9007199254740992, " 1"}));
    EXPECT_EQ(Over(tie + "1 1", ScanDouble), (Scan{true, 9007199254740994, " 1"}));
    EXPECT_EQ(Over(std::string(20000, '0') + "1.5", ScanDouble), (Scan{true, 1.5, ""}));
    EXPECT_EQ(Over("0." + std::string(20000, '0') + "1e20001", ScanDouble), (Scan{true, 1, ""}));
    for (std::size_t length = 500; length < 530; ++length) {
        EXPECT_EQ(Over("-1." + std::string(length, '0') + "x", ScanDouble), (Scan{true, -1, "x"}));
    }
}

TEST(TextScanner, SeveralNumbersOfOneStream) {
    const Stream stream = StreamOf("3 4.5-6 7e1nan");
    TextScanner scanner(stream.get());
    int count = 0;
    EXPECT_TRUE(scanner.ScanInt(count));
    EXPECT_EQ(count, 3);
    for (const double expected : {4.5, -6.0, 70.0}) {
        double value = 0;
        EXPECT_TRUE(scanner.ScanDouble(value));
        EXPECT_EQ(value, expected);
    }
    double value = 0;
    EXPECT_FALSE(scanner.ScanInt(count));
    EXPECT_TRUE(scanner.ScanDouble(value));
    EXPECT_FALSE(scanner.ScanDouble(value));
}

#if defined(__GLIBC__)

namespace {

std::string RandomText(std::mt19937& random) {
    static const char ALPHABET[] = "0123456789..++--eEpPxXnNaAiIfFtTyY  \n\t,0011g";
    static const char* const STARTS[] = {"", "", "", "infinity", "-nan", "0x", "-0x1.8p", "1e-3"};
    std::string text = STARTS[random() % 8];
    for (std::size_t n = 1 + random() % 12; n > 0; --n) {
        text += ALPHABET[random() % (sizeof ALPHABET - 1)];
    }
    return text;
}

Scan FormattedScan(std::FILE* stream) {
    double value = UNTOUCHED;
    const bool found = std::fscanf(stream, "%lf", &value) == 1;
    return {found, value, RestOf(stream)};
}

} // namespace

// Test programs run in the "C" locale, so here fscanf reads a decimal point.
TEST(TextScanner, RandomTextIsTakenAsFormattedScanningTakesIt) {
    constexpr unsigned int SEED = 31;
    std::mt19937 random(SEED);
    SCOPED_TRACE(SEED);
    int found = 0;
    constexpr int RUNS = 300000;
    for (int i = 0; i < RUNS; ++i) {
        std::string text = RandomText(random);
        // A file in memory: a real one would take most of the time.
        const Stream first(fmemopen(text.data(), text.size(), "r"));
        const Stream second(fmemopen(text.data(), text.size(), "r"));
        const Scan expected = FormattedScan(first.get());
        ASSERT_EQ(ScanDouble(second.get()), expected) << "'" << text << "'";
        found += expected.found ? 1 : 0;
    }
    EXPECT_GT(found, RUNS / 4);
    EXPECT_LT(found, RUNS * 3 / 4);
}

TEST(TextScanner, RandomDoublesReadBackToTheBit) {
    constexpr unsigned int SEED = 32;
    std::mt19937_64 random(SEED);
    SCOPED_TRACE(SEED);
    for (int i = 0; i < 100000; ++i) {
        const std::uint64_t bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isnan(value)) {
            continue;
        }
        for (const char* format : {"%.17g", "%a"}) {
            char text[64];
            std::snprintf(text, sizeof text, format, value);
            const Stream stream(fmemopen(text, std::strlen(text), "r"));
            ASSERT_EQ(ScanDouble(stream.get()), (Scan{true, value, ""})) << text;
        }
    }
}

#endif
