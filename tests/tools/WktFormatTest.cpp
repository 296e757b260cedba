// SPDX-License-Identifier: MIT
#include "tools/geomtool/WktFormat.h"

#include "tests/tools/Shapes.h"

namespace geomtool {
namespace {

using test::ExpectInputError;
using test::ExpectSame;
using test::External;
using test::Hole;
using test::Square;

const PolygonSet TRIANGLE{{External({{0, 0}, {4, 0}, {0, 4}})}};

TEST(WktFormat, ReadsPolygonsInAllSpellings) {
    struct {
        const char* name;
        const char* text;
    } const cases[] = {
        {"plain", "POLYGON((0 0,4 0,0 4,0 0))"},
        {"lower case and blanks", " polygon\n(\t( 0  0 , 4 0 , 0 4 , 0 0 ) ) \n"},
        {"not closed", "POLYGON((0 0,4 0,0 4))"},
        {"heights", "POLYGON Z ((0 0 9,4 0 9,0 4 9,0 0 9))"},
        {"heights without mark", "POLYGON((0 0 9,4 0 9,0 4 9,0 0 9))"},
        {"mark written together", "POLYGONM((0 0 9,4 0 9,0 4 9,0 0 9))"},
        {"heights and measures", "POLYGON ZM((0 0 8 9,4 0 8 9,0 4 8 9,0 0 8 9))"},
        {"multi", "MULTIPOLYGON(((0 0,4 0,0 4,0 0)))"},
        {"multi with an empty one", "MULTIPOLYGONZM(EMPTY,((0 0 1 2,4 0 1 2,0 4 1 2,0 0 1 2)))"},
        {"collection", "GEOMETRYCOLLECTION(POLYGON EMPTY,MULTIPOLYGON(((0 0,4 0,0 4,0 0))))"},
        {"nested collection", "GEOMETRYCOLLECTION(GEOMETRYCOLLECTION(POLYGON((0 0,4 0,0 4))))"},
        {"empty ring", "POLYGON(EMPTY,(0 0,4 0,0 4))"},
        {"several geometries", "POLYGON EMPTY\nPOLYGON((0 0,4 0,0 4));\nMULTIPOLYGON EMPTY;"},
        {"byte order mark", "\xEF\xBB\xBFPOLYGON((0 0,4 0,0 4))"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const PolygonSet shapes = ReadWkt("a.wkt", c.text);
        ASSERT_EQ(shapes.rings.size(), 1u);
        EXPECT_TRUE(shapes.rings[0].points == TRIANGLE.rings[0].points);
    }
}

TEST(WktFormat, RingsAfterTheFirstAreHoles) {
    const PolygonSet shapes = ReadWkt("a.wkt", "MULTIPOLYGON(((0 0,9 0,0 9),(1 1,2 1,1 2),(3 1,4 1,"
                                               "3 2)),((20 0,29 0,20 9),(21 1,22 1,21 2)))");
    ASSERT_EQ(shapes.rings.size(), 5u);
    EXPECT_FALSE(shapes.rings[0].hole);
    EXPECT_TRUE(shapes.rings[1].hole);
    EXPECT_TRUE(shapes.rings[2].hole);
    EXPECT_FALSE(shapes.rings[3].hole);
    EXPECT_TRUE(shapes.rings[4].hole);
}

TEST(WktFormat, ErrorsNameTheLine) {
    std::string deep;
    for (int i = 0; i < 100000; ++i) {
        deep += "GEOMETRYCOLLECTION(";
    }
    struct {
        const char* name;
        std::string text;
        const char* message;
    } const cases[] = {
        {"empty file", "", "a.wkt:1: expected a geometry such as POLYGON"},
        {"unknown geometry", "\nCIRCLE(0 0)",
         "a.wkt:2: expected POLYGON, MULTIPOLYGON or GEOMETRYCOLLECTION, found CIRCLE"},
        {"number expected", "POLYGON((0 0,\n4 x,0 4))", "a.wkt:2: expected a number, found 'x,0'"},
        {"comma expected", "POLYGON((0 0 1 2 3))", "a.wkt:1: expected ')', found '3))'"},
        {"truncated", "POLYGON((0 0,4 0\n", "a.wkt:2: expected ')', but the file ends"},
        {"parenthesis expected", "POLYGON 0 0", "a.wkt:1: expected '(', found '0'"},
        {"odd word", "POLYGON FULL", "a.wkt:1: expected '(' or EMPTY, found FULL"},
        {"too large", "POLYGON((0 1e999))", "a.wkt:1: the number is too large"},
        {"deep collection", deep, "a.wkt:1: collections are nested deeper than 100 levels"},
        {"endless word", std::string(100000, 'P'),
         "a.wkt:1: expected POLYGON, MULTIPOLYGON or GEOMETRYCOLLECTION, found "
         "PPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPP"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ExpectInputError([&] { ReadWkt("a.wkt", c.text); }, c.message);
    }
}

TEST(WktFormat, WritesClosedRingsWithHolesInTheirPolygons) {
    EXPECT_EQ(WriteWkt({}), "MULTIPOLYGON EMPTY\n");
    EXPECT_EQ(WriteWkt(TRIANGLE), "POLYGON ((0 0,4 0,0 4,0 0))\n");
    const PolygonSet two{{Hole({{1, 1}, {2, 1}, {1, 2}}), External({{20, 0}, {24, 0}, {20, 4}}),
                          External({{0, 0}, {4, 0}, {0, 4}})}};
    EXPECT_EQ(WriteWkt(two), "MULTIPOLYGON (((20 0,24 0,20 4,20 0)),\n"
                             "((0 0,4 0,0 4,0 0),\n (1 1,2 1,1 2,1 1)))\n");
}

TEST(WktFormat, ContoursWithoutAreaHaveNoPlace) {
    EXPECT_EQ(WriteWkt({{External({}), External({{1, 2}}), Hole({{1, 2}, {3, 4}})}}),
              "MULTIPOLYGON EMPTY\n");
}

TEST(WktFormat, ReadsBackWhatItWrites) {
    const PolygonSet shapes{{External(Square(0, 0, 1.0 / 3)), Hole(Square(0, 0, 1e-17)),
                             External(Square(1e17, -5, 1000))}};
    ExpectSame(ReadWkt("a.wkt", WriteWkt(shapes)), shapes);
}

} // namespace
} // namespace geomtool
