// SPDX-License-Identifier: MIT
#include "FileSupport.h"

#include "geometry/Gpc.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

namespace {

using namespace geom;
using namespace geom::test;

bool Read(const std::string& bytes, int holeFlags, gpc_polygon& polygon) {
    const Stream stream = StreamOf(bytes);
    return gpc_read_polygon_binary(stream.get(), holeFlags, &polygon);
}

} // namespace

TEST(FilesBinary, BytesAreCountsFlagsAndCoordinatesWithNothingBetween) {
    const Record polygon({{0, {{1, 2}, {-0.5, 3}}}, {1, {}}, {-1, {{4, 5}}}});
    const std::string vertices = BytesOf(1.0) + BytesOf(2.0) + BytesOf(-0.5) + BytesOf(3.0);
    const std::string last = BytesOf(4.0) + BytesOf(5.0);
    EXPECT_EQ(BINARY.Written(polygon, 0),
              BytesOf(3) + BytesOf(2) + vertices + BytesOf(0) + BytesOf(1) + last);
    EXPECT_EQ(BINARY.Written(polygon, 1), BytesOf(3) + BytesOf(2) + BytesOf(0) + vertices +
                                              BytesOf(0) + BytesOf(1) + BytesOf(1) + BytesOf(-1) +
                                              last);
}

TEST(FilesBinary, BytesAreLittleEndian) {
    const Record polygon({{2, {{1, -2}}}});
    const unsigned char expected[] = {1, 0, 0, 0, 1,    0,    0, 0, 2, 0, 0, 0, 0, 0,
                                      0, 0, 0, 0, 0xF0, 0x3F, 0, 0, 0, 0, 0, 0, 0, 0xC0};
    const std::string bytes = BINARY.Written(polygon, 1);
    ASSERT_EQ(bytes.size(), sizeof expected);
    EXPECT_EQ(std::memcmp(bytes.data(), expected, sizeof expected), 0);
}

TEST(FilesBinary, AnyCoordinatesRoundTripToTheBit) {
    constexpr unsigned int SEED = 34;
    std::mt19937_64 random(SEED);
    SCOPED_TRACE(SEED);
    std::vector<Contour> contours;
    for (int i = 0; i < 50; ++i) {
        Contour ring = {static_cast<int>(random()), {}};
        ring.vertices.resize(random() % 100);
        for (gpc_vertex& v : ring.vertices) {
            const std::uint64_t bits[] = {random(), random()}; // some of them NaN
            std::memcpy(&v, bits, sizeof v);
        }
        contours.push_back(ring);
    }
    contours.push_back(
        {0,
         {{-0.0, std::numeric_limits<double>::infinity()},
          {-std::numeric_limits<double>::infinity(), std::nan("17")},
          {std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::max()}}});
    const Record polygon(contours);
    Record copy;
    EXPECT_TRUE(Read(BINARY.Written(polygon, 1), 1, copy));
    EXPECT_TRUE(SameToTheBit(polygon, copy));
}

TEST(FilesBinary, InputCutAtAnyByteIsFalse) {
    const Record polygon({{1, {{1, 2}, {3, 4}}}, {1, {}}, {1, {{5, 6}}}});
    for (const int holeFlags : {0, 1}) {
        const std::string bytes = BINARY.Written(polygon, holeFlags);
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            Record cut;
            EXPECT_FALSE(Read(bytes.substr(0, length), holeFlags, cut)) << length;
            EXPECT_EQ(cut.num_contours, length < 4 ? 0 : 3) << length;
            for (int i = 0; i < cut.num_contours; ++i) {
                const gpc_vertex_list& ring = cut.contour[i];
                const gpc_vertex_list& whole = polygon.contour[i];
                EXPECT_TRUE(ring.num_vertices == 0 || ring.num_vertices == whole.num_vertices);
                for (int v = 0; v < ring.num_vertices; ++v) {
                    EXPECT_TRUE(ring.vertex[v].x == 0 || ring.vertex[v].x == whole.vertex[v].x);
                    EXPECT_TRUE(ring.vertex[v].y == 0 || ring.vertex[v].y == whole.vertex[v].y);
                }
            }
        }
        Record all;
        EXPECT_TRUE(Read(bytes, holeFlags, all));
    }
}

TEST(FilesBinary, VertexCutWithinYKeepsX) {
    const std::string bytes = BytesOf(1) + BytesOf(1) + BytesOf(2.5) + BytesOf(-1.5);
    Record polygon;
    EXPECT_FALSE(Read(bytes.substr(0, bytes.size() - 1), 0, polygon));
    ASSERT_EQ(polygon.contour[0].num_vertices, 1);
    EXPECT_EQ(polygon.contour[0].vertex[0].x, 2.5);
    EXPECT_EQ(polygon.contour[0].vertex[0].y, 0);
}

TEST(FilesBinary, TrailingBytesAreIgnored) {
    Record polygon;
    EXPECT_TRUE(Read(BytesOf(1) + BytesOf(0) + "anything", 0, polygon));
    EXPECT_EQ(polygon.num_contours, 1);
}

TEST(FilesBinary, TwelveBytesThatClaimTheMostContoursAreRefused) {
    const std::string bytes = BytesOf(2147483647) + BytesOf(2147483647) + BytesOf(2147483647);
    ASSERT_EQ(bytes.size(), 12U);
    for (const int holeFlags : {0, 1}) {
        Record polygon;
        EXPECT_FALSE(Read(bytes, holeFlags, polygon));
        EXPECT_EQ(polygon.num_contours, 65536);
    }
}
