// SPDX-License-Identifier: MIT
// Files that were made to do harm: each is refused with an error of one line, or read, in little
// time and with memory in proportion to its size.
#include "tests/support/AllocationProbe.h"
#include "tests/tools/Shapes.h"
#include "tools/geomtool/BinaryFormat.h"
#include "tools/geomtool/GeoJsonFormat.h"
#include "tools/geomtool/TextFormat.h"
#include "tools/geomtool/WktFormat.h"

#include <cstdio>
#include <ctime>
#include <functional>
#include <string_view>

namespace geomtool {
namespace {

using namespace std::string_literals;
using geom::test::AllocationProbe;

constexpr double MOST_SECONDS = 2.0;

std::string Repeated(std::size_t times, std::string_view text) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

PolygonSet FromText(std::string_view text) {
    return ReadText("a.txt", text, true);
}
PolygonSet FromBinary(std::string_view bytes) {
    return ReadBinary("a.bin", bytes, true);
}
PolygonSet FromWkt(std::string_view text) {
    return ReadWkt("a.wkt", text);
}
PolygonSet FromGeoJson(std::string_view text) {
    return ReadGeoJson("a.json", text);
}

using Reader = PolygonSet (*)(std::string_view);

struct HostileFile {
    const char* name;
    Reader read;
    std::string bytes;
    bool isSound = false; ///< strange, but what the format allows
};

void ExpectCheap(const HostileFile& file) {
    SCOPED_TRACE(file.name);
    std::size_t peak = 0;
    std::string error;
    const std::clock_t start = std::clock();
    {
        const AllocationProbe probe;
        try {
            file.read(file.bytes);
        } catch (const InputError& e) {
            error = e.what();
        }
        peak = probe.PeakBytes();
    }
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    EXPECT_EQ(error.empty(), file.isSound) << OneLine(error);
    EXPECT_LT(error.size(), 150U);
    EXPECT_LT(peak, 30 * file.bytes.size() + 100'000);
    EXPECT_LT(seconds, MOST_SECONDS);
    std::printf("%-42s %8zu bytes: %9zu bytes of memory, %5.1f ms: %s\n", file.name,
                file.bytes.size(), peak, 1000 * seconds, OneLine(error).substr(0, 90).c_str());
}

const std::string MANY_DIGITS(10000, '7');
constexpr std::size_t DEEP = 100'000;

TEST(HostileFiles, TextIsCheap) {
    const HostileFile files[] = {
        {"text: 2147483647 contours", FromText, "2147483647"},
        {"text: 2147483647 vertices", FromText, "1 2147483647 0 1 2"},
        {"text: 2147483647 vertices at second", FromText, "2 1 0 1 2 2147483647 0 1 2"},
        {"text: a count of 10000 digits", FromText, MANY_DIGITS},
        {"text: a vertex count of 10000 digits", FromText, "1 " + MANY_DIGITS + " 0 1 2"},
        {"text: a hole flag of 10000 digits", FromText, "1 1 " + MANY_DIGITS + " 1 2"},
        {"text: a coordinate of 10000 digits", FromText, "1 1 0 " + MANY_DIGITS + " 2"},
        {"text: an exponent of 10000 digits", FromText, "1 1 0 1e" + MANY_DIGITS + " 2"},
        {"text: 10000 decimals", FromText, "1 1 0 0." + MANY_DIGITS + " 2", true},
        {"text: no UTF-8", FromText, "1 1 0 \xFF\xFE\x80 2"},
        {"text: 100000 brackets", FromText, std::string(DEEP, '[')},
        {"text: zero bytes", FromText, std::string(1000, '\0')},
        {"text: 500000 empty contours", FromText, "500000\n" + Repeated(500'000, "0 0\n"), true},
    };
    for (const HostileFile& file : files) {
        ExpectCheap(file);
    }
}

TEST(HostileFiles, BinaryDataIsCheap) {
    const std::string most = "\xFF\xFF\xFF\x7F"s;
    const std::string one = "\x01\0\0\0"s;
    const std::string none = "\0\0\0\0"s;
    const std::string vertex(16, '\0');
    const HostileFile files[] = {
        {"binary: 2147483647 contours in 12 bytes", FromBinary, most + none + none},
        {"binary: 2147483647 vertices", FromBinary, one + most + none},
        {"binary: 2147483647 vertices at second", FromBinary,
         "\x02\0\0\0"s + one + none + vertex + most + none + vertex},
        {"binary: -1 contours", FromBinary, "\xFF\xFF\xFF\xFF"s},
        {"binary: 2147483648 vertices", FromBinary, one + "\0\0\0\x80"s + none},
        {"binary: 500000 empty contours", FromBinary,
         "\x20\xA1\x07\0"s + std::string(8 * 500'000, '\0'), true},
    };
    for (const HostileFile& file : files) {
        ExpectCheap(file);
    }
}

TEST(HostileFiles, WktIsCheap) {
    const HostileFile files[] = {
        {"wkt: 100000 collections", FromWkt, Repeated(DEEP, "GEOMETRYCOLLECTION(")},
        {"wkt: 100000 parentheses", FromWkt, "POLYGON" + std::string(DEEP, '(')},
        {"wkt: 100000 closing parentheses", FromWkt, "POLYGON((0 0" + std::string(DEEP, ')')},
        {"wkt: a coordinate of 10000 digits", FromWkt, "POLYGON((" + MANY_DIGITS + " 0))"},
        {"wkt: an exponent of 10000 digits", FromWkt, "POLYGON((1e" + MANY_DIGITS + " 0))"},
        {"wkt: 10000 decimals", FromWkt, "POLYGON((0." + MANY_DIGITS + " 0, 1 1, 2 3))", true},
        {"wkt: a tag of 100000 letters", FromWkt, std::string(DEEP, 'P')},
        {"wkt: no UTF-8", FromWkt, "POLYGON((\xFF\xFE 0))"},
        {"wkt: zero bytes", FromWkt, "POLYGON\0((0 0))"s},
        {"wkt: 100000 empty polygons", FromWkt, Repeated(DEEP, "POLYGON EMPTY;"), true},
        {"wkt: 100000 empty rings", FromWkt, "POLYGON(EMPTY" + Repeated(DEEP, ",EMPTY") + ")",
         true},
    };
    for (const HostileFile& file : files) {
        ExpectCheap(file);
    }
}

#define RING "[[[0,0],[4,0],[0,4]]]"

TEST(HostileFiles, GeoJsonIsCheap) {
    const auto polygon = [](const std::string& number) {
        return "{\"type\":\"Polygon\",\"coordinates\":[[[" + number + ",0],[1,1],[2,3]]]}";
    };
    const HostileFile files[] = {
        {"geojson: 100000 arrays", FromGeoJson, std::string(DEEP, '[')},
        {"geojson: 100000 arrays in a member", FromGeoJson, "{\"a\":" + std::string(DEEP, '[')},
        {"geojson: 100000 arrays of coordinates", FromGeoJson,
         "{\"coordinates\":" + std::string(DEEP, '[')},
        {"geojson: 100000 objects", FromGeoJson, Repeated(DEEP, "{\"a\":")},
        {"geojson: 100000 geometries", FromGeoJson, Repeated(DEEP, "{\"geometry\":")},
        {"geojson: 100000 collections", FromGeoJson, Repeated(DEEP, "{\"geometries\":[")},
        {"geojson: a coordinate of 10000 digits", FromGeoJson, polygon(MANY_DIGITS)},
        {"geojson: an exponent of 10000 digits", FromGeoJson, polygon("1e" + MANY_DIGITS)},
        {"geojson: a property of 10000 digits", FromGeoJson,
         "{\"a\":" + MANY_DIGITS + ",\"type\":\"Polygon\",\"coordinates\":" RING "}"},
        {"geojson: 10000 decimals", FromGeoJson, polygon("0." + MANY_DIGITS), true},
        {"geojson: no UTF-8 in a value", FromGeoJson, "{\"type\":\"\xFF\xFE\"}"},
        {"geojson: no UTF-8 in a name", FromGeoJson, "{\"\xC3(\":1}"},
        {"geojson: an overlong character", FromGeoJson, "{\"type\":\"\xC0\xAF\"}"},
        {"geojson: a lone surrogate", FromGeoJson, "{\"type\":\"\\uD800\"}"},
        {"geojson: a type of 100000 letters", FromGeoJson,
         "{\"type\":\"" + std::string(DEEP, 'P') + "\"}"},
        {"geojson: 100000 empty rings", FromGeoJson,
         "{\"type\":\"Polygon\",\"coordinates\":[[]" + Repeated(DEEP, ",[]") + "]}", true},
        {"geojson: 100000 names alike", FromGeoJson,
         "{\"type\":\"Polygon\"," + Repeated(DEEP, "\"coordinates\":[[[1,2]]],") +
             "\"coordinates\":" RING "}",
         true},
    };
    for (const HostileFile& file : files) {
        ExpectCheap(file);
    }
}

TEST(HostileFiles, OfMembersOfOneNameTheLastCountsAndPartsAddUp) {
    const PolygonSet triangle{{test::External({{0, 0}, {4, 0}, {0, 4}})}};
    test::ExpectSame(
        FromGeoJson(R"({"type":"Cow","type":"Polygon","coordinates":[],"coordinates":)" RING "}"),
        triangle);
    const std::string feature =
        R"("geometry":{"type":"Polygon","coordinates":)" RING R"(},)" + std::string();
    const PolygonSet both = FromGeoJson("{\"type\":\"Feature\"," + feature + feature + "\"id\":1}");
    EXPECT_EQ(both.rings.size(), 2U);
}

TEST(HostileFiles, EveryTruncatedTextIsReadOrRefused) {
    const std::string text = "2\n3\n0\n0.5 0\n4 0\n4 4\n3\n1\n1 1\n1 2.5\n2.5 -1e6\n";
    const std::string wkt = "POLYGON Z((0.5 0 1, 4 0 1, 4 4 1),(1 1 1, 1 2.5 1, 2.5 -1e6 1))";
    for (const auto& [whole, read] : {std::pair(text, &FromText), std::pair(wkt, &FromWkt)}) {
        std::size_t taken = 0;
        for (std::size_t size = 0; size < whole.size(); ++size) {
            try {
                (*read)(std::string_view(whole).substr(0, size));
                ++taken;
            } catch (const InputError&) {
            }
        }
        // Of -1e6 and its line's end, -1 and -1e6 are numbers, too.
        EXPECT_EQ(taken, read == &FromText ? 2U : 0U);
    }
}

} // namespace
} // namespace geomtool
