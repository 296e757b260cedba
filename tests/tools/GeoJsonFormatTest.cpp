// SPDX-License-Identifier: MIT
#include "tools/geomtool/GeoJsonFormat.h"

#include "tests/tools/Shapes.h"

namespace geomtool {
namespace {

using test::ExpectInputError;
using test::ExpectSame;
using test::External;
using test::Hole;
using test::Square;

const PolygonSet TRIANGLE{{External({{0, 0}, {4, 0}, {0, 4}})}};

#define TRIANGLE_RINGS "[[[0,0],[4,0],[0,4],[0,0]]]"
#define TRIANGLE_JSON "{\"type\":\"Polygon\",\"coordinates\":" TRIANGLE_RINGS "}"

TEST(GeoJsonFormat, ReadsPolygonsInAllWrappings) {
    struct {
        const char* name;
        const char* text;
    } const cases[] = {
        {"geometry", TRIANGLE_JSON},
        {"coordinates before the type",
         R"({"coordinates":)" TRIANGLE_RINGS R"(,"type":"Polygon"})"},
        {"multi", R"({"type":"MultiPolygon","coordinates":[)" TRIANGLE_RINGS "]}"},
        {"multi with empty ones",
         R"({"type":"MultiPolygon","coordinates":[[],)" TRIANGLE_RINGS ",[],[[]]]}"},
        {"heights", R"({"type":"Polygon","coordinates":[[[0,0,7],[4,0,7,8,9],[0.0,4e0]]]})"},
        {"feature", R"({"type":"Feature","properties":null,"geometry":)" TRIANGLE_JSON "}"},
        {"feature collection",
         R"({"type":"FeatureCollection","features":[{"type":"Feature","geometry":)" TRIANGLE_JSON
         R"(},{"type":"Feature","geometry":null}]})"},
        {"features before the type", R"({"features":[{"geometry":)" TRIANGLE_JSON
                                     R"(,"type":"Feature"}],"type":"FeatureCollection"})"},
        {"geometry collections",
         R"({"type":"GeometryCollection","geometries":[{"type":"GeometryCollection","geometries":[)" TRIANGLE_JSON
         R"(]},{"type":"Polygon","coordinates":[]}]})"},
        {"shapes in properties are none",
         R"({"type":"Feature","properties":{"a":)" TRIANGLE_JSON R"(,"coordinates":[[1,"x"]],)"
         R"("features":[1,[2]],"type":"Cow"},"bbox":[0,0,4,4],"id":7,"geometry":)" TRIANGLE_JSON
         "}"},
        {"byte order mark", "\xEF\xBB\xBF" TRIANGLE_JSON "\n"},
        {"the last coordinates count",
         R"({"type":"Polygon","coordinates":[[[9,9],[8,8]]],"coordinates":)" TRIANGLE_RINGS "}"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ExpectSame(ReadGeoJson("a.json", c.text), TRIANGLE);
    }
}

TEST(GeoJsonFormat, RingsAfterTheFirstAreHoles) {
    const PolygonSet shapes = ReadGeoJson(
        "a.json",
        R"({"type":"MultiPolygon","coordinates":[[[[0,0],[9,0],[0,9]],[[1,1],[2,1],[1,2]],)"
        R"([[3,1],[4,1],[3,2]]],[[[20,0],[29,0],[20,9]],[[21,1],[22,1],[21,2]]]]})");
    ASSERT_EQ(shapes.rings.size(), 5u);
    EXPECT_FALSE(shapes.rings[0].hole);
    EXPECT_TRUE(shapes.rings[1].hole);
    EXPECT_TRUE(shapes.rings[2].hole);
    EXPECT_FALSE(shapes.rings[3].hole);
    EXPECT_TRUE(shapes.rings[4].hole);
    EXPECT_EQ(shapes.rings[4].points[0], geom::Vec2d(21, 1));
}

TEST(GeoJsonFormat, ErrorsNameTheLine) {
    struct {
        const char* name;
        std::string text;
        const char* message;
    } const cases[] = {
        {"empty file", "",
         "a.json:1: syntax error while parsing value - unexpected end of input; expected '[', '{', "
         "or a literal"},
        {"no object", "\n[1]", "a.json:2: expected a GeoJSON object, found an array"},
        {"plain number", "12\n", "a.json:1: expected a GeoJSON object"},
        {"no type", "{}", "a.json:1: the object has no type, so it is no GeoJSON"},
        {"other geometry", "{\"type\":\n\"Point\",\n\"coordinates\":[1,2]}",
         "a.json:3: expected a Polygon or MultiPolygon, found 'Point'"},
        {"no coordinates", R"({"type":"Polygon"})", "a.json:1: the Polygon has no coordinates"},
        {"no members", R"({"type":"FeatureCollection"})",
         "a.json:1: the FeatureCollection has no members"},
        {"polygon nested as multi", R"({"type":"Polygon","coordinates":[)" TRIANGLE_RINGS "]}",
         "a.json:1: the coordinates of a Polygon are nested 3 deep, not 4"},
        {"uneven", "{\"type\":\"Polygon\",\"coordinates\":[[[0,0],\n4]]}",
         "a.json:2: positions are nested unevenly"},
        {"array in a position", R"({"type":"Polygon","coordinates":[[[0,[0]]]]})",
         "a.json:1: positions are nested unevenly"},
        {"too deep position", R"({"type":"Polygon","coordinates":[[[0,0],[[1,2]]]]})",
         "a.json:1: positions are nested unevenly"},
        {"single number", R"({"type":"Polygon","coordinates":[[[0,0],[1]]]})",
         "a.json:1: a position needs two numbers"},
        {"null coordinate", R"({"type":"Polygon","coordinates":[[[0,null]]]})",
         "a.json:1: expected a number, found null"},
        {"text coordinate", R"({"type":"Polygon","coordinates":[[[0,"1"]]]})",
         "a.json:1: expected a number, found a text"},
        {"truth coordinate", R"({"type":"Polygon","coordinates":[[[0,true]]]})",
         "a.json:1: expected a number, found a truth value"},
        {"object coordinate", R"({"type":"Polygon","coordinates":[[[0,{}]]]})",
         "a.json:1: expected a number, found an object"},
        {"number among features", R"({"type":"FeatureCollection","features":[1]})",
         "a.json:1: expected an object, found a number"},
        {"null among features", R"({"type":"FeatureCollection","features":[null]})",
         "a.json:1: expected an object, found null"},
        {"array among features", R"({"type":"FeatureCollection","features":[[]]})",
         "a.json:1: expected an object, found an array"},
        {"syntax", "{\"type\":\"Polygon\",\n\n}",
         "a.json:3: syntax error while parsing object key - unexpected '}'; expected string "
         "literal"},
        {"number of 10,000 digits",
         R"({"type":"Polygon","coordinates":[[[0,)" + std::string(10000, '9') + "]]]}", nullptr},
        {"two documents", TRIANGLE_JSON "\n{}",
         "a.json:2: syntax error while parsing value - unexpected '{'; expected end of input"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        if (c.message != nullptr) {
            ExpectInputError([&] { ReadGeoJson("a.json", c.text); }, c.message);
        } else {
            EXPECT_THROW(ReadGeoJson("a.json", c.text), InputError);
        }
    }
}

TEST(GeoJsonFormat, InvalidUtf8IsAnError) {
    ExpectInputError(
        [] { ReadGeoJson("a.json", "{\"type\":\n\"\xFF\xFE\"}"); },
        "a.json:2: syntax error while parsing value - invalid string: ill-formed UTF-8 "
        "byte");
}

TEST(GeoJsonFormat, DeepNestingIsAnErrorAndNoCrash) {
    const std::string tooDeep = "a.json:1: nested deeper than 256 levels";
    ExpectInputError([] { ReadGeoJson("a.json", "{\"a\":" + std::string(1000000, '[')); }, tooDeep);
    ExpectInputError([] { ReadGeoJson("a.json", "{\"coordinates\":" + std::string(1000000, '[')); },
                     tooDeep);
    std::string collections;
    for (int i = 0; i < 100000; ++i) {
        collections += "{\"geometries\":[";
    }
    ExpectInputError([&] { ReadGeoJson("a.json", collections); }, tooDeep);
}

TEST(GeoJsonFormat, EveryTruncationIsAnError) {
    const std::string whole =
        R"({"type":"FeatureCollection","features":[{"type":"Feature","geometry":)" TRIANGLE_JSON
        "}]}";
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_THROW(ReadGeoJson("a.json", whole.substr(0, size)), InputError) << size;
    }
}

TEST(GeoJsonFormat, WritesExternalRingsCounterClockwiseAndHolesClockwise) {
    EXPECT_EQ(WriteGeoJson({}), "{\"type\":\"MultiPolygon\",\"coordinates\":[]}\n");
    EXPECT_EQ(WriteGeoJson({{External({{0, 0}, {0, 4}, {4, 0}}), Hole({{1, 1}, {2, 1}, {1, 2}})}}),
              "{\"type\":\"Polygon\",\"coordinates\":\n[[[0,0],[4,0],[0,4],[0,0]],\n"
              "[[1,1],[1,2],[2,1],[1,1]]]}\n");
}

TEST(GeoJsonFormat, RingWithoutAreaKeepsItsDirection) {
    EXPECT_EQ(WriteGeoJson({{External({{0, 0}, {0, 4}, {0, 4}, {0, 2}})}}),
              "{\"type\":\"Polygon\",\"coordinates\":\n[[[0,0],[0,4],[0,4],[0,2],[0,0]]]}\n");
}

TEST(GeoJsonFormat, ReadsBackWhatItWrites) {
    std::vector<geom::Vec2d> clockwise = Square(0, 0, 1e-17);
    std::swap(clockwise[1], clockwise[3]);
    const PolygonSet shapes{
        {External(Square(0, 0, 1.0 / 3)), Hole(clockwise), External(Square(1e17, -5, 1000))}};
    ExpectSame(ReadGeoJson("a.json", WriteGeoJson(shapes)), shapes);
}

} // namespace
} // namespace geomtool
