// SPDX-License-Identifier: MIT
// Lines in well-known text, GeoJSON and drawings.
#include "tests/tools/Shapes.h"
#include "tools/geomtool/Formats.h"
#include "tools/geomtool/GeoJsonFormat.h"
#include "tools/geomtool/SvgWriter.h"
#include "tools/geomtool/WktFormat.h"

namespace geomtool {
namespace {

using test::ExpectInputError;
using test::External;

const Line BENT = {{0, 0}, {4, 0}, {4, 2.5}};
const Line SHORT = {{-1, 7}, {1e300, -7}};
const LineSet BOTH{{BENT, SHORT}};
const PolygonSet TRIANGLE{{External({{0, 0}, {4, 0}, {0, 4}})}};

void ExpectLines(const Figure& figure, const std::vector<Line>& lines) {
    EXPECT_TRUE(figure.polygons.rings.empty());
    EXPECT_TRUE(figure.lines.lines == lines);
}

TEST(LineFormats, WktLinesInAllSpellings) {
    struct {
        const char* name;
        const char* text;
    } const cases[] = {
        {"plain", "LINESTRING(0 0,4 0,4 2.5)"},
        {"lower case and blanks", " linestring\n( 0 0 ,\t4 0, 4 2.5 ) ;"},
        {"heights", "LINESTRING Z (0 0 1,4 0 1,4 2.5 1)"},
        {"mark written together", "LINESTRINGZM(0 0 1 2,4 0 1 2,4 2.5 1 2)"},
        {"multi", "MULTILINESTRING((0 0,4 0,4 2.5))"},
        {"multi with an empty one", "MULTILINESTRINGM(EMPTY,(0 0 1,4 0 1,4 2.5 1))"},
        {"collection", "GEOMETRYCOLLECTION(LINESTRING EMPTY,LINESTRING(0 0,4 0,4 2.5))"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ExpectLines(ReadWktFigure("a.wkt", c.text), {BENT});
    }
}

TEST(LineFormats, ClosedLinesKeepTheirLastPoint) {
    const Line closed = {{0, 0}, {1, 0}, {0, 1}, {0, 0}};
    ExpectLines(ReadWktFigure("a.wkt", "LINESTRING(0 0,1 0,0 1,0 0)"), {closed});
    ExpectLines(ReadGeoJsonFigure("a.json", "{\"type\":\"LineString\",\"coordinates\":"
                                            "[[0,0],[1,0],[0,1],[0,0]]}"),
                {closed});
}

TEST(LineFormats, PolygonsAndLinesMix) {
    const Figure wkt = ReadWktFigure("a.wkt", "LINESTRING(0 0,4 0,4 2.5)\nPOLYGON((0 0,4 0,0 4))");
    const Figure json = ReadGeoJsonFigure(
        "a.json",
        "{\"type\":\"FeatureCollection\",\"features\":[{\"type\":\"Feature\",\"geometry\":"
        "{\"type\":\"LineString\",\"coordinates\":[[0,0],[4,0],[4,2.5]]}},"
        "{\"type\":\"Feature\",\"geometry\":{\"coordinates\":[[[0,0],[4,0],[0,4],[0,0]]],"
        "\"type\":\"Polygon\"}}]}");
    for (const Figure& figure : {wkt, json}) {
        test::ExpectSame(figure.polygons, TRIANGLE);
        EXPECT_TRUE(figure.lines.lines == (std::vector<Line>{BENT}));
    }
}

TEST(LineFormats, GeoJsonLinesAlsoWithCoordinatesFirst) {
    ExpectLines(ReadGeoJsonFigure("a.json", "{\"coordinates\":[[[0,0,9],[4,0],[4,2.5]],[],[[-1,7],"
                                            "[1e300,-7]]],\"type\":\"MultiLineString\"}"),
                BOTH.lines);
    ExpectLines(ReadGeoJsonFigure("a.json", "{\"type\":\"LineString\",\"coordinates\":[]}"), {});
}

TEST(LineFormats, ErrorsNameTheLine) {
    struct {
        const char* text;
        const char* message;
    } const wkt[] = {
        {"", "a:1: expected a geometry such as LINESTRING"},
        {"\nPOINT(0 0)", "a:2: expected LINESTRING, MULTILINESTRING, POLYGON, MULTIPOLYGON or "
                         "GEOMETRYCOLLECTION, found POINT"},
        {"LINESTRING(0 0,\n1 nan)", "a:2: expected a number, found 'nan)'"},
        {"LINESTRING(0 0,1 inf)", "a:1: the number is too large"},
        {"LINESTRING((0 0,1 1))", "a:1: expected a number, found '(0'"},
        {"MULTILINESTRING(0 0,1 1)", "a:1: expected '(', found '0'"},
        {"LINESTRING(0 0,1 1", "a:1: expected ')', but the file ends"},
    };
    for (const auto& c : wkt) {
        ExpectInputError([&] { ReadWktFigure("a", c.text); }, c.message);
    }
    const struct {
        const char* text;
        const char* message;
    } json[] = {
        {"{\"type\":\"Point\",\"coordinates\":[0,0]}",
         "a:1: expected LineString, MultiLineString, Polygon or MultiPolygon, found 'Point'"},
        {"{\"type\":\"LineString\"}", "a:1: the LineString has no coordinates"},
        {"{\"type\":\"LineString\",\"coordinates\":[[[0,0]]]}",
         "a:1: the coordinates of a LineString are nested 2 deep, not 3"},
        {"{\"type\":\"MultiLineString\",\"coordinates\":\n[[0,0],[1,1]]}",
         "a:2: the coordinates of a MultiLineString are nested 3 deep, not 2"},
        {"{\"type\":\"LineString\",\"coordinates\":[[0]]}", "a:1: a position needs two numbers"},
    };
    for (const auto& c : json) {
        ExpectInputError([&] { ReadGeoJsonFigure("a", c.text); }, c.message);
    }
}

TEST(LineFormats, ReadersOfPolygonsRefuseLines) {
    ExpectInputError([] { ReadWkt("a", "LINESTRING(0 0,1 1)"); },
                     "a:1: expected POLYGON, MULTIPOLYGON or GEOMETRYCOLLECTION, found LINESTRING");
    ExpectInputError(
        [] { ReadGeoJson("a", "{\"type\":\"LineString\",\"coordinates\":[[0,0],[1,1]]}"); },
        "a:1: expected a Polygon or MultiPolygon, found 'LineString'");
}

TEST(LineFormats, WritesOneLineOrSeveral) {
    EXPECT_EQ(WriteWktLines(LineSet{{BENT}}), "LINESTRING (0 0,4 0,4 2.5)\n");
    EXPECT_EQ(WriteWktLines(BOTH), "MULTILINESTRING ((0 0,4 0,4 2.5),\n(-1 7,1e+300 -7))\n");
    EXPECT_EQ(WriteGeoJsonLines(LineSet{{BENT}}),
              "{\"type\":\"LineString\",\"coordinates\":\n[[0,0],[4,0],[4,2.5]]}\n");
    EXPECT_EQ(WriteGeoJsonLines(BOTH), "{\"type\":\"MultiLineString\",\"coordinates\":[\n"
                                       "[[0,0],[4,0],[4,2.5]],\n[[-1,7],[1e+300,-7]]]}\n");
}

TEST(LineFormats, LinesOfFewerThanTwoPointsHaveNoPlace) {
    const LineSet nothing{{{}, {{1, 2}}}};
    EXPECT_EQ(WriteWktLines(nothing), "MULTILINESTRING EMPTY\n");
    EXPECT_EQ(WriteGeoJsonLines(nothing), "{\"type\":\"MultiLineString\",\"coordinates\":[]}\n");
}

TEST(LineFormats, FiguresAreReadBack) {
    const Figure figures[] = {{TRIANGLE, {}}, {{}, BOTH}, {TRIANGLE, BOTH}, {TRIANGLE, {{BENT}}}};
    for (const Figure& figure : figures) {
        for (const Figure& back : {ReadWktFigure("a.wkt", WriteWktFigure(figure)),
                                   ReadGeoJsonFigure("a.json", WriteGeoJsonFigure(figure))}) {
            test::ExpectSame(back.polygons, figure.polygons);
            EXPECT_TRUE(back.lines.lines == figure.lines.lines);
        }
    }
}

TEST(LineFormats, OtherFormatsHoldNoLines) {
    for (const Format format : {Format::Text, Format::Binary}) {
        EXPECT_FALSE(HoldsLines(format));
        EXPECT_THROW(FormatLines(BOTH, format), UsageError);
        EXPECT_THROW(FormatFigure({TRIANGLE, BOTH}, format, true), UsageError);
        EXPECT_EQ(FormatFigure({TRIANGLE, {}}, format, true), FormatShapes(TRIANGLE, format, true));
    }
    for (const Format format : {Format::Wkt, Format::GeoJson, Format::Svg}) {
        EXPECT_TRUE(HoldsLines(format));
    }
}

TEST(LineFormats, DrawingsLeaveLinesOpenAndUnfilled) {
    SvgPage page;
    page.size = 120;
    page.margin = 10;
    const LineSet lines{{{{0, 0}, {10, 0}, {10, 5}}, {}, {{3, 3}}}};
    EXPECT_EQ(WriteSvg({{{}, "teal", "#000", 0.5, lines}}, page),
              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"120\" height=\"70\" "
              "viewBox=\"0 0 120 70\">\n"
              "<g fill-rule=\"evenodd\" stroke-linejoin=\"round\" stroke=\"#000\" "
              "stroke-width=\".5\">\n"
              "<path fill=\"none\" d=\"M10 60l100 0 0-50\nM40 30l0 0\n\"/>\n"
              "</g>\n</svg>\n");
}

} // namespace
} // namespace geomtool
