// SPDX-License-Identifier: MIT
#include "tools/geomtool/TextFormat.h"

#include "geometry/Gpc.h"
#include "tests/tools/Shapes.h"

#include <cstdio>
#include <memory>

namespace geomtool {
namespace {

using test::ExpectInputError;
using test::ExpectSame;
using test::External;
using test::Hole;
using test::Square;

TEST(TextFormat, ReadsContoursWithHoleFlags) {
    const PolygonSet shapes = ReadText("a.txt", "2\n3\n0\n0 0\n1 0\n0 1\n1\n7\n -2.5  1e3\n", true);
    ExpectSame(shapes, {{External({{0, 0}, {1, 0}, {0, 1}}), Hole({{-2.5, 1000}})}});
}

TEST(TextFormat, ReadsContoursWithoutHoleFlags) {
    ExpectSame(ReadText("a.txt", "1 2 3 4 5 6", false), {{External({{3, 4}, {5, 6}})}});
}

TEST(TextFormat, EmptyPolygonAndEmptyContoursAreKept) {
    ExpectSame(ReadText("a.txt", "0\n", true), {});
    ExpectSame(ReadText("a.txt", "1\n0\n1\n", true), {{Hole({})}});
}

TEST(TextFormat, ByteOrderMarkAndCarriageReturnsAreBlanks) {
    ExpectSame(ReadText("a.txt",
                        "\xEF\xBB\xBF"
                        "1\r\n1\r\n0\r\n1 2\r\n",
                        true),
               {{External({{1, 2}})}});
}

TEST(TextFormat, ErrorsNameTheLine) {
    struct {
        const char* name;
        std::string text;
        const char* message;
    } const cases[] = {
        {"empty file", "", "a.txt:1: expected a contour count, but the file ends"},
        {"negative count", "-1\n", "a.txt:1: expected a contour count, found '-1'"},
        {"fraction as count", "1\n2.5\n", "a.txt:2: expected a vertex count, found '2.5'"},
        {"more contours than bytes", "1000\n0\n0\n",
         "a.txt:1: a contour count is larger than the file can hold"},
        {"more vertices than bytes", "1\n2000000000\n0\n1 2\n",
         "a.txt:2: a vertex count is larger than the file can hold"},
        {"count of 10,000 digits", "1\n" + std::string(10000, '7'),
         "a.txt:2: a vertex count is larger than the file can hold"},
        {"coordinate in the place of a flag", "1\n1\n0.25 1\n",
         "a.txt:3: expected a hole flag, found '0.25'"},
        {"word", "1\n1\n0\n1 two\n", "a.txt:4: expected a number, found 'two'"},
        {"letter behind digits", "1\n1\n0\n1 2x\n", "a.txt:4: expected a number, found '2x'"},
        {"missing y", "1\n1\n0\n1\n", "a.txt:5: expected a number, but the file ends"},
        {"not a number", "1\n1\n0\n1 nan\n", "a.txt:4: expected a number, found 'nan'"},
        {"infinity", "1\n1\n0\n1 -inf\n", "a.txt:4: the number is too large"},
        {"number of 10,000 digits", "1\n1\n0\n1 " + std::string(10000, '7'),
         "a.txt:4: the number is too large"},
        {"long word", "1\n1\n0\n1 " + std::string(10000, 'x'),
         "a.txt:4: expected a number, found 'xxxxxxxxxxxxxxxxxxxx...'"},
        {"rest", "1\n1\n0\n1 2\n\n3",
         "a.txt:6: something follows the last vertex; does the file "
         "really store hole flags?"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ExpectInputError([&] { ReadText("a.txt", c.text, true); }, c.message);
    }
}

TEST(TextFormat, WritesShortestNumbers) {
    const PolygonSet shapes{{External({{0.1, -2}, {1e-20, 3}}), Hole({})}};
    EXPECT_EQ(WriteText(shapes, true), "2\n2\n0\n0.1 -2\n1e-20 3\n0\n1\n");
    EXPECT_EQ(WriteText(shapes, false), "2\n2\n0.1 -2\n1e-20 3\n0\n");
}

TEST(TextFormat, TheLibraryReadsTheSameDoubles) {
    const PolygonSet shapes{
        {External({{1.0 / 3, -1e-300}, {1e300, 2.0 / 7}}), Hole(Square(1, 1, .1))}};
    const std::string text = WriteText(shapes, true);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(
        fmemopen(const_cast<char*>(text.data()), text.size(), "r"), std::fclose);
    geom::gpc_polygon polygon = {};
    ASSERT_TRUE(geom::gpc_read_polygon(stream.get(), 1, &polygon));
    ASSERT_EQ(polygon.num_contours, 2);
    EXPECT_EQ(polygon.hole[1], 1);
    EXPECT_EQ(polygon.contour[0].vertex[0].x, 1.0 / 3);
    EXPECT_EQ(polygon.contour[0].vertex[0].y, -1e-300);
    EXPECT_EQ(polygon.contour[0].vertex[1].x, 1e300);
    EXPECT_EQ(polygon.contour[1].num_vertices, 4);
    geom::gpc_free_polygon(&polygon);
}

TEST(TextFormat, ReadsWhatTheLibraryWrites) {
    geom::gpc_vertex vertices[] = {{0, -1.5}, {2, 0.25}, {1, 1e6}};
    geom::gpc_vertex_list contour = {3, vertices};
    int hole = 1;
    const geom::gpc_polygon polygon = {1, &hole, &contour};
    char buffer[1000] = {};
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(
        fmemopen(buffer, sizeof buffer, "w"), std::fclose);
    ASSERT_TRUE(geom::gpc_write_polygon(stream.get(), 1, &polygon));
    std::fflush(stream.get());
    ExpectSame(ReadText("a.txt", buffer, true), {{Hole({{0, -1.5}, {2, 0.25}, {1, 1e6}})}});
}

} // namespace
} // namespace geomtool
