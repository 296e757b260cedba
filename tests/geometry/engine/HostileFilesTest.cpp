// SPDX-License-Identifier: MIT
// Files that were made to do harm: claims of much that is not there cost neither memory nor time.
#include "FileSupport.h"

#include "Subsystems/Kit/Exception.h"
#include "geometry/Gpc.h"
#include "tests/support/AllocationProbe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace geom::test {
namespace {

/// What a reader may take before it has seen what a file announces: the arrays for 65,536 contours
/// and for as many vertices of one of them, and the stream's buffer.
constexpr std::size_t MOST_BYTES = 3 << 20;
constexpr double MOST_SECONDS = 1.0;

double ProcessorTime() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// Bytes of little-endian integers.
std::string Integers(const std::vector<int>& values) {
    std::string bytes;
    for (const int value : values) {
        bytes += BytesOf(value);
    }
    return bytes;
}

struct HostileFile {
    const char* name;
    const FileFormat* format;
    std::string bytes;
};

/// Whether the reader takes the file; an exception, too, says that it does not.
bool IsTaken(const HostileFile& file, int holeFlags, gpc_polygon& polygon) {
    const Stream stream = StreamOf(file.bytes);
    try {
        return file.format->read(stream.get(), holeFlags, &polygon);
    } catch (const kit::Exception&) {
        return false;
    }
}

void ExpectCheapRefusal(const HostileFile& file, int holeFlags) {
    SCOPED_TRACE(file.name);
    std::size_t peak = 0;
    bool taken = true;
    const double start = ProcessorTime();
    {
        const AllocationProbe probe;
        Record polygon;
        taken = IsTaken(file, holeFlags, polygon);
        peak = probe.PeakBytes();
    }
    const double seconds = ProcessorTime() - start;
    EXPECT_FALSE(taken);
    EXPECT_LT(peak, MOST_BYTES + 4 * file.bytes.size());
    EXPECT_LT(seconds, MOST_SECONDS);
    std::printf("%-45s %8zu bytes: %8zu bytes of memory, %.1f ms\n", file.name, file.bytes.size(),
                peak, 1000 * seconds);
}

TEST(HostileFiles, CountsThatTheFileCannotHoldAreCheap) {
    const std::string vertex = BytesOf(1.0) + BytesOf(2.0);
    const HostileFile files[] = {
        {"2147483647 contours in 12 bytes", &BINARY, Integers({INT_MAX, 0, 0})},
        {"2147483647 contours of 2147483647 vertices", &BINARY, Integers({INT_MAX, INT_MAX, 0})},
        {"2147483647 vertices", &BINARY, Integers({1, INT_MAX, 0})},
        {"2147483647 vertices in the second contour", &BINARY,
         Integers({2, 1, 0}) + vertex + Integers({INT_MAX, 0}) + vertex},
        {"-1 contours", &BINARY, Integers({-1, 0, 0})},
        {"-2147483648 contours", &BINARY, Integers({INT_MIN, 0, 0})},
        {"-2147483648 vertices", &BINARY, Integers({1, INT_MIN, 0})},
        {"2147483647 contours as text", &TEXT, "2147483647\n"},
        {"2147483647 vertices as text", &TEXT, "1 2147483647 0"},
        {"2147483647 vertices in the second contour, as text", &TEXT, "2 1 0 1 2 2147483647 0 1 2"},
        {"-1 contours as text", &TEXT, "-1"},
        {"a count of 10000 digits", &TEXT, std::string(10000, '9') + " 3 0 1 2"},
        {"a vertex count of 10000 digits", &TEXT, "1 " + std::string(10000, '9') + " 0 1 2"},
        {"a million brackets", &TEXT, std::string(1000000, '[')},
        {"a million blanks", &TEXT, std::string(1000000, ' ')},
        {"bytes that are no characters", &TEXT, "1 3 0 \xFF\xFE\x80 1 2"},
    };
    for (const HostileFile& file : files) {
        ExpectCheapRefusal(file, 1);
    }
}

TEST(HostileFiles, NumbersOfManyDigitsAreRead) {
    const std::string digits(10000, '3');
    const std::string text = "1 4 0  0." + digits + " " + digits + "e-10000  0e" + digits + " -0." +
                             std::string(10000, '0') + "1  " + digits + " -" + digits + "  1 2";
    const Stream stream = StreamOf(text);
    const AllocationProbe probe;
    {
        Record polygon;
        ASSERT_TRUE(gpc_read_polygon(stream.get(), 1, &polygon));
        const gpc_vertex* const v = polygon.contour[0].vertex;
        EXPECT_EQ(v[0].x, 1.0 / 3.0);
        EXPECT_EQ(v[0].y, 1.0 / 3.0);
        EXPECT_EQ(v[1].x, 0.0);
        EXPECT_TRUE(std::signbit(v[1].y));
        EXPECT_EQ(v[2].x, INFINITY);
        EXPECT_EQ(v[2].y, -INFINITY);
        EXPECT_EQ(v[3].y, 2.0);
    }
    EXPECT_LT(probe.PeakBytes(), MOST_BYTES);
}

TEST(HostileFiles, EveryTruncationIsRefused) {
    const Record polygon({{0, {{0.5, 0}, {4, 0}, {4, 4}}}, {1, {{1, 1}, {1, 2.5}, {2.5, -1e6}}}});
    for (const FileFormat* const format : {&TEXT, &BINARY}) {
        const std::string whole = format->Written(polygon, 1);
        // A text's last number is there as soon as its first digit is, and so is a y that is
        // lacking: both are taken as they are.
        const std::size_t last =
            format == &TEXT ? whole.find_last_of(" \n", whole.size() - 2) - 20 : whole.size();
        for (std::size_t size = 0; size < last; ++size) {
            Record read;
            const HostileFile file = {format->name, format, whole.substr(0, size)};
            EXPECT_FALSE(IsTaken(file, 1, read)) << format->name << " of " << size << " bytes";
        }
    }
}

} // namespace
} // namespace geom::test
