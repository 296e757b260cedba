// SPDX-License-Identifier: MIT
#include "tools/geomtool/BinaryFormat.h"

#include "tests/tools/Shapes.h"

namespace geomtool {
namespace {

using namespace std::string_literals;
using test::ExpectInputError;
using test::ExpectSame;
using test::External;
using test::Hole;
using test::Square;

const std::string ONE = "\x00\x00\x00\x00\x00\x00\xF0\x3F"s;       // 1.0
const std::string MINUS_TWO = "\x00\x00\x00\x00\x00\x00\x00\xC0"s; // -2.0

TEST(BinaryFormat, IsLittleEndianWithoutHeader) {
    const PolygonSet shapes{{External({{1, -2}}), Hole({})}};
    const std::string flagged = "\x02\0\0\0"s
                                "\x01\0\0\0"s
                                "\0\0\0\0"s +
                                ONE + MINUS_TWO +
                                "\0\0\0\0"s
                                "\x01\0\0\0"s;
    EXPECT_EQ(WriteBinary(shapes, true), flagged);
    ExpectSame(ReadBinary("a.bin", flagged, true), shapes);
    const std::string plain = "\x01\0\0\0"s
                              "\x01\0\0\0"s +
                              ONE + MINUS_TWO;
    EXPECT_EQ(WriteBinary({{External({{1, -2}})}}, false), plain);
    ExpectSame(ReadBinary("a.bin", plain, false), {{External({{1, -2}})}});
}

TEST(BinaryFormat, EveryTruncationIsAnError) {
    const std::string whole = WriteBinary({{External(Square(0, 0, 1)), Hole({{1, 2}})}}, true);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_THROW(ReadBinary("a.bin", whole.substr(0, size), true), InputError) << size;
    }
    EXPECT_NO_THROW(ReadBinary("a.bin", whole, true));
}

TEST(BinaryFormat, ErrorsNameTheByte) {
    const std::string nan = "\x00\x00\x00\x00\x00\x00\xF8\x7F"s;
    struct {
        const char* name;
        std::string bytes;
        const char* message;
    } const cases[] = {
        {"empty file", "", "a.bin: byte 0: the file ends within a contour count"},
        {"negative contour count", "\xFF\xFF\xFF\xFF"s,
         "a.bin: byte 0: the contour count is negative"},
        {"more contours than bytes", "\xFF\xFF\xFF\x7F\0\0\0\0\0\0\0\0"s,
         "a.bin: byte 0: the contour count 2147483647 is larger than the file can hold"},
        {"negative vertex count", "\x01\0\0\0\xFE\xFF\xFF\xFF\0\0\0\0"s,
         "a.bin: byte 4: the vertex count is negative"},
        {"more vertices than bytes", "\x01\0\0\0\x02\0\0\0\0\0\0\0"s + ONE + ONE,
         "a.bin: byte 4: the vertex count 2 is larger than the file can hold"},
        {"not a number", "\x01\0\0\0\x01\0\0\0\0\0\0\0"s + ONE + nan,
         "a.bin: byte 20: the coordinate is not finite"},
        {"rest", "\0\0\0\0!"s,
         "a.bin: byte 4: something follows the last vertex; does the file "
         "really store hole flags?"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ExpectInputError([&] { ReadBinary("a.bin", c.bytes, true); }, c.message);
    }
}

} // namespace
} // namespace geomtool
