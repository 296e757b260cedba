// SPDX-License-Identifier: MIT
#include "FileSupport.h"

#include "geometry/Gpc.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/FailEachAllocation.h"

#include <gmock/gmock.h>

#include <climits>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

namespace {

using namespace geom;
using namespace geom::test;
using testing::Each;
using testing::HasSubstr;

bool Read(const std::string& text, int holeFlags, gpc_polygon& polygon) {
    const Stream stream = StreamOf(text);
    return gpc_read_polygon(stream.get(), holeFlags, &polygon);
}

gpc_vertex OnlyVertex(const gpc_polygon& polygon) {
    EXPECT_EQ(polygon.num_contours, 1);
    EXPECT_EQ(polygon.contour[0].num_vertices, 1);
    return polygon.contour[0].vertex[0];
}

/// A locale with a decimal comma for as long as it lives.
class CommaLocale {
public:
    CommaLocale() : m_before(std::setlocale(LC_ALL, nullptr)) {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) {
                break;
            }
        }
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale() { std::setlocale(LC_ALL, m_before.c_str()); }

    static bool IsSet() { return std::strcmp(std::localeconv()->decimal_point, ",") == 0; }

private:
    std::string m_before;
};

} // namespace

TEST(FilesText, BytesAreFixedPointWith15Digits) {
    const Record polygon({{0, {{1, -2.5}, {0.1, 1e6}}}, {1, {}}, {-1, {{-4, 5}}}});
    const std::string vertices = " 1.000000000000000 -2.500000000000000\n"
                                 " 0.100000000000000  1000000.000000000000000\n";
    const std::string last = "-4.000000000000000  5.000000000000000\n";
    EXPECT_EQ(TEXT.Written(polygon, 0), "3\n2\n" + vertices + "0\n1\n" + last);
    EXPECT_EQ(TEXT.Written(polygon, 1), "3\n2\n0\n" + vertices + "0\n1\n1\n-1\n" + last);
}

TEST(FilesText, EmptyPolygonIsTheDigitZeroAndALineBreak) {
    EXPECT_EQ(TEXT.Written(Record(), 1), "0\n");
}

TEST(FilesText, ExtremeCoordinatesAreWrittenAsFormattedOutputWritesThem) {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double largest = std::numeric_limits<double>::max();
    const Record polygon({{0,
                           {{-0.0, 0.0},
                            {inf, -inf},
                            {nan, std::copysign(nan, -1.0)},
                            {0x1p-1074, -0x1p-1074},
                            {5e-16, 0x1p-50},
                            {largest, -largest}}}});
    const std::string text = TEXT.Written(polygon, 0);
    EXPECT_THAT(text, testing::StartsWith("1\n6\n-0.000000000000000  0.000000000000000\n"
                                          " inf -inf\n"
                                          " nan -nan\n"
                                          " 0.000000000000000 -0.000000000000000\n"
                                          " 0.000000000000001  0.000000000000001\n"
                                          " 179769313486231570"));
    EXPECT_THAT(text, testing::EndsWith("858368.000000000000000\n"));
}

// Test programs run in the "C" locale, so here snprintf writes a decimal point.
TEST(FilesText, AnyCoordinateIsWrittenAsFormattedOutputWritesIt) {
    constexpr unsigned int SEED = 35;
    std::mt19937_64 random(SEED);
    SCOPED_TRACE(SEED);
    Contour ring = {0, {}};
    std::string expected;
    std::uniform_real_distribution<double> degrees(-180, 180);
    for (int i = 0; i < 20000; ++i) {
        gpc_vertex v = {degrees(random), degrees(random)};
        if (i % 2 == 0) {
            const std::uint64_t bits[] = {random(), random()};
            std::memcpy(&v, bits, sizeof v);
        }
        ring.vertices.push_back(v);
        char line[700];
        std::snprintf(line, sizeof line, "% .*lf % .*lf\n", 15, v.x, 15, v.y);
        expected += line;
    }
    const std::string text = TEXT.Written(Record({ring}), 0);
    EXPECT_TRUE(text == "1\n20000\n" + expected);
}

TEST(FilesText, AnyWhiteSpaceSeparatesNumbers) {
    Record polygon;
    EXPECT_TRUE(Read("\t1 \v2\f1\r\n0.5 1e1\n\n+2 -0x1p2", 1, polygon));
    const Record expected({{1, {{0.5, 10}, {2, -4}}}});
    EXPECT_TRUE(SameToTheBit(polygon, expected));
}

TEST(FilesText, InfinitiesAndNotANumberAreRead) {
    Record polygon;
    EXPECT_TRUE(Read("1 2 inf -INFINITY nan -NaN", 0, polygon));
    const gpc_vertex* v = polygon.contour[0].vertex;
    EXPECT_EQ(v[0].x, HUGE_VAL);
    EXPECT_EQ(v[0].y, -HUGE_VAL);
    EXPECT_TRUE(std::isnan(v[1].x) && !std::signbit(v[1].x));
    EXPECT_TRUE(std::isnan(v[1].y) && std::signbit(v[1].y));
}

TEST(FilesText, LineThatEndsAfterXLeavesYZero) {
    Record polygon;
    EXPECT_TRUE(Read("1\n1\n2.5\n", 0, polygon));
    EXPECT_EQ(OnlyVertex(polygon).x, 2.5);
    EXPECT_EQ(OnlyVertex(polygon).y, 0);
}

TEST(FilesText, WordInThePlaceOfYLeavesYZeroAndIsTheNextNumber) {
    const Stream stream = StreamOf("1\n1\n2.5 word");
    Record polygon;
    EXPECT_TRUE(gpc_read_polygon(stream.get(), 0, &polygon));
    EXPECT_EQ(OnlyVertex(polygon).x, 2.5);
    EXPECT_EQ(OnlyVertex(polygon).y, 0);
    EXPECT_EQ(RestOf(stream.get()), "word");

    Record broken;
    EXPECT_FALSE(Read("1\n2\n2.5 word", 0, broken));
    EXPECT_EQ(broken.contour[0].vertex[0].x, 2.5);
}

TEST(FilesText, WordsInPlaceOfCountsAndFlagsAreFalse) {
    for (const char* text :
         {"word", "1 word", "1 0 word", "2 0 0 word", "1 1 0 word", "-", "1 -"}) {
        Record polygon;
        EXPECT_FALSE(Read(text, 1, polygon)) << text;
    }
}

TEST(FilesText, FractionalCountIsReadUpToItsPoint) {
    Record polygon;
    EXPECT_TRUE(Read("1\n1.5 2", 0, polygon)); // one vertex: .5 and 2
    EXPECT_EQ(OnlyVertex(polygon).x, 0.5);
    EXPECT_EQ(OnlyVertex(polygon).y, 2);
}

TEST(FilesText, CountsBeyond32BitsAreTheNearestWithin) {
    Record many;
    EXPECT_FALSE(Read("99999999999 0", 0, many));
    EXPECT_EQ(many.num_contours, 65536);
    Record negative;
    EXPECT_THROW(Read("-99999999999 0", 0, negative), kit::Exception);
    EXPECT_EQ(negative.num_contours, INT_MIN);
    Record flagged;
    EXPECT_TRUE(Read("1 0 4294967296", 1, flagged));
    EXPECT_EQ(flagged.hole[0], INT_MAX);
}

TEST(FilesText, StreamIsLeftBehindTheLastNumber) {
    const struct {
        const char* text;
        const char* rest;
    } cases[] = {
        {"0", ""},
        {"0\n1", "\n1"},
        {"1 0 rest", " rest"},
        {"1 1 2 3\nrest", "\nrest"},
        {"1 1 2 3,rest", ",rest"},
        {"1 1 2 3erest", "rest"}, // the exponent was begun
        {"1 1 2 infrest", "rest"},
    };
    for (const auto& c : cases) {
        const Stream stream = StreamOf(c.text);
        Record polygon;
        EXPECT_TRUE(gpc_read_polygon(stream.get(), 0, &polygon)) << c.text;
        EXPECT_EQ(RestOf(stream.get()), c.rest) << c.text;
    }
}

TEST(FilesText, ValuesOf15DecimalsRoundTrip) {
    constexpr unsigned int SEED = 36;
    std::mt19937_64 random(SEED);
    SCOPED_TRACE(SEED);
    Contour grid = {0, {}};
    Contour rounded = {1, {}};
    std::uniform_real_distribution<double> degrees(-180, 180);
    for (int i = 0; i < 2000; ++i) {
        grid.vertices.push_back({std::round(degrees(random) * 32768) / 32768, 0x1.8p40});
        char text[64];
        std::snprintf(text, sizeof text, "%.15f", degrees(random));
        rounded.vertices.push_back({std::strtod(text, nullptr), 0.1});
    }
    const Record polygon({grid, rounded});
    Record copy;
    EXPECT_TRUE(Read(TEXT.Written(polygon, 1), 1, copy));
    EXPECT_TRUE(SameToTheBit(polygon, copy));
}

TEST(FilesText, DecimalCommaOfTheHostChangesNothing) {
    const Record polygon({{1, {{1234567.25, -2.5}, {0.1, 1e9}}}});
    const std::string expected = TEXT.Written(polygon, 1);
    EXPECT_THAT(expected, HasSubstr(" 1234567.250000000000000 -2.500000000000000\n"));
    const CommaLocale locale;
    if (!CommaLocale::IsSet()) {
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    }
    char commas[32];
    std::snprintf(commas, sizeof commas, "%.1f", 1.5);
    ASSERT_STREQ(commas, "1,5");

    EXPECT_EQ(TEXT.Written(polygon, 1), expected);
    Record copy;
    EXPECT_TRUE(Read(expected, 1, copy));
    EXPECT_TRUE(SameToTheBit(polygon, copy));
    EXPECT_STREQ(std::localeconv()->decimal_point, ",") << "the host's locale is left alone";
}

TEST(FilesText, DecimalCommaIsNoPartOfANumberInAnyLocale) {
    const CommaLocale locale;
    if (!CommaLocale::IsSet()) {
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    }
    Record polygon;
    EXPECT_TRUE(Read("1 1 1,5 2", 0, polygon));
    EXPECT_EQ(OnlyVertex(polygon).x, 1);
    EXPECT_EQ(OnlyVertex(polygon).y, 0);
    // Neither is the out-of-range path's conversion by the C library.
    Record huge;
    EXPECT_TRUE(Read("1 1 1.5e999 0.25e-999", 0, huge));
    EXPECT_EQ(OnlyVertex(huge).x, HUGE_VAL);
    EXPECT_EQ(OnlyVertex(huge).y, 0);
}

TEST(FilesText, NumberTooLongForTheHeapIsAFailedAllocation) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const Stream stream = StreamOf("1 1 0." + std::string(3000, '0') + "1 2");
    std::vector<char> buffer(8192);
    std::setvbuf(stream.get(), buffer.data(), _IOFBF, buffer.size());
    const std::vector<std::string> failures = FailEachAllocation([&] {
        std::rewind(stream.get());
        Record polygon;
        gpc_read_polygon(stream.get(), 0, &polygon);
    });
    ASSERT_GT(failures.size(), 3U);
    EXPECT_THAT(std::vector<std::string>(failures.begin() + 2, failures.end()),
                Each(HasSubstr("GPCAlloc failure: vertex creation")));
}

#if defined(__GLIBC__)

namespace {

struct Reading {
    bool whole = false;
    bool hasNegativeCount = false;
    std::vector<Contour> contours;
    std::string rest;
};

/// The format read by formatted scanning, for files whose counts are small.
Reading ReadByFormattedScanning(std::FILE* stream, bool holeFlags) {
    Reading reading;
    const auto number = [stream](int& n) { return std::fscanf(stream, "%d", &n) == 1; };
    const auto contour = [&](Contour& c) {
        int vertices = 0;
        if (!number(vertices) || (holeFlags && !number(c.hole))) {
            return false;
        }
        reading.hasNegativeCount |= vertices < 0;
        for (int v = 0; v < vertices; ++v) {
            gpc_vertex p = {0, 0};
            if (std::fscanf(stream, "%lf %lf", &p.x, &p.y) < 1) {
                return false;
            }
            c.vertices.push_back(p);
        }
        return true;
    };
    int contours = 0;
    reading.whole = number(contours);
    reading.hasNegativeCount = contours < 0;
    for (int i = 0; reading.whole && i < contours; ++i) {
        reading.contours.push_back({0, {}});
        reading.whole = contour(reading.contours.back());
    }
    reading.rest = RestOf(stream);
    return reading;
}

/// The contours that were read agree; those of a failed read may be followed by unread ones.
void ExpectSame(const Reading& expected, bool whole, const gpc_polygon& polygon) {
    EXPECT_EQ(whole, expected.whole);
    ASSERT_GE(static_cast<std::size_t>(polygon.num_contours), expected.contours.size());
    for (std::size_t i = 0; i < expected.contours.size(); ++i) {
        const Contour& c = expected.contours[i];
        const gpc_vertex_list& ring = polygon.contour[i];
        EXPECT_EQ(polygon.hole[i], c.hole);
        ASSERT_GE(static_cast<std::size_t>(ring.num_vertices), c.vertices.size());
        if (!c.vertices.empty()) {
            EXPECT_EQ(
                std::memcmp(ring.vertex, c.vertices.data(), c.vertices.size() * sizeof(gpc_vertex)),
                0);
        }
    }
}

void CompareWithFormattedScanning(std::string text, bool holeFlags) {
    SCOPED_TRACE(text);
    text += ' '; // memory streams are never empty
    const Stream first(fmemopen(text.data(), text.size(), "r"));
    const Stream second(fmemopen(text.data(), text.size(), "r"));
    const Reading expected = ReadByFormattedScanning(first.get(), holeFlags);
    Record polygon;
    if (expected.hasNegativeCount) {
        EXPECT_THROW(gpc_read_polygon(second.get(), holeFlags ? 1 : 0, &polygon), kit::Exception);
        return;
    }
    const bool whole = gpc_read_polygon(second.get(), holeFlags ? 1 : 0, &polygon);
    ExpectSame(expected, whole, polygon);
    EXPECT_EQ(RestOf(second.get()), expected.rest);
}

} // namespace

TEST(FilesText, InputCutAtAnyByteIsReadAsFormattedScanningReadsIt) {
    const Record polygon({{1, {{1.5, -2}, {3, 4e10}}}, {1, {}}, {0, {{-5, 6.25}}}});
    for (const bool holeFlags : {false, true}) {
        const std::string text = TEXT.Written(polygon, holeFlags ? 1 : 0);
        for (std::size_t length = 0; length <= text.size(); ++length) {
            CompareWithFormattedScanning(text.substr(0, length), holeFlags);
        }
    }
}

TEST(FilesText, DamagedInputIsReadAsFormattedScanningReadsIt) {
    constexpr unsigned int SEED = 37;
    std::mt19937 random(SEED);
    SCOPED_TRACE(SEED);
    const std::string sound = "3\n2\n1\n 1.5 -2.0\n 3e1 0x4p2\n0\n1\n1\n0\n-5.25 inf\n tail";
    static const char DAMAGE[] = " \n.,-+eExpnaif0";
    for (int i = 0; i < 20000; ++i) {
        std::string text = sound;
        for (std::size_t changes = 1 + random() % 3; changes > 0; --changes) {
            // No digits but 0, so that counts stay small.
            text[random() % text.size()] = DAMAGE[random() % (sizeof DAMAGE - 1)];
        }
        CompareWithFormattedScanning(text, i % 2 == 0);
        ASSERT_FALSE(HasFailure());
    }
}

#endif
