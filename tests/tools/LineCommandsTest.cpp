// SPDX-License-Identifier: MIT
// Runs of the commands for lines: clip-lines, dash, borders, length, nearest-segment, thin.
#include "tests/tools/CommandTest.h"

namespace geomtool {
namespace {

using test::RunGeomtool;
using test::ToolRun;

const char* const ROADS = "MULTILINESTRING((0 0,10 0,10 10),(0 5,20 5))";

class LineCommands : public test::CommandTest {
protected:
    std::string m_roads = Create("roads.wkt", ROADS);
    std::string m_sheet = Create("sheet.wkt", "POLYGON((5 -5,15 5,5 15,-5 5))");
    std::string m_square = Create("square.txt", "1\n4\n0\n0 0\n4 0\n4 4\n0 4\n");
    std::string m_points = Create("points.wkt", "LINESTRING(3 4)");
    std::string m_nothing = Create("nothing.wkt", "LINESTRING EMPTY");
    std::string m_bad = Create("bad.wkt", "LINESTRING(0 0,\n1 x)");
};

TEST_F(LineCommands, HelpHasExamples) {
    for (const char* const name :
         {"clip-lines", "dash", "borders", "length", "nearest-segment", "thin"}) {
        ExpectHelp(name);
    }
}

TEST_F(LineCommands, ClipLinesToPolygonsAndRectangles) {
    EXPECT_EQ(OutputOf({"clip-lines", m_roads, m_sheet}),
              "MULTILINESTRING ((0 0,10 0,10 10),\n(0 5,15 5))\n");
    EXPECT_EQ(OutputOf({"clip-lines", m_roads, "--rect", "12,6,1,-1"}),
              "MULTILINESTRING ((1 0,10 0,10 6),\n(1 5,12 5))\n");
    EXPECT_EQ(OutputOf({"clip-lines", m_square, "--rect", "2,-9,9,2"}),
              "LINESTRING (2 0,4 0,4 2)\n");
    EXPECT_EQ(OutputOf({"clip-lines", m_nothing, m_sheet}), "MULTILINESTRING EMPTY\n");
    EXPECT_EQ(OutputOf({"clip-lines", m_roads, Create("none.txt", "0\n")}),
              "MULTILINESTRING EMPTY\n");
}

TEST_F(LineCommands, LinesAreWrittenInAllTheirFormats) {
    EXPECT_EQ(FileOf({"clip-lines", m_roads, "--rect", "0,4,2,6"}, "a.geojson"),
              "{\"type\":\"LineString\",\"coordinates\":\n[[0,5],[2,5]]}\n");
    const std::string svg =
        FileOf({"clip-lines", m_roads, m_sheet, "--outline=teal", "--line-width", "2"}, "a.svg");
    EXPECT_NE(svg.find("stroke=\"teal\" stroke-width=\"2\""), std::string::npos);
    EXPECT_NE(svg.find("<path fill=\"none\""), std::string::npos);
    EXPECT_NE(FileOf({"draw", m_sheet, m_roads}, "b.svg").find("stroke=\"#4a5560\""),
              std::string::npos);
    EXPECT_EQ(FileOf({"convert", m_roads}, "b.wkt"),
              "MULTILINESTRING ((0 0,10 0,10 10),\n(0 5,20 5))\n");
    EXPECT_EQ(OutputOf({"convert", m_roads, "--to", "geojson"}),
              "{\"type\":\"MultiLineString\",\"coordinates\":[\n[[0,0],[10,0],[10,10]],\n"
              "[[0,5],[20,5]]]}\n");
}

TEST_F(LineCommands, StandardInputHoldsLines) {
    EXPECT_EQ(OutputOf({"clip-lines", "-", "--from", "wkt", "--rect", "0,0,1,9"}, ROADS),
              "MULTILINESTRING ((0 0,1 0),\n(0 5,1 5))\n");
    EXPECT_EQ(OutputOf({"length", "-", "--from", "geojson"},
                       "{\"type\":\"LineString\",\"coordinates\":[[0,0],[3,4]]}"),
              "5\n");
    EXPECT_EQ(OutputOf({"dash", m_roads, "--clip", "-", "--from", "wkt", "--from", "text",
                        "--pattern", "3,1", "--to", "wkt"},
                       "1 4 0 0 -1 9 -1 9 1 0 1"),
              "MULTILINESTRING ((0 0,3 0),\n(4 0,7 0),\n(8 0,9 0))\n");
}

TEST_F(LineCommands, StatisticsGoToStandardError) {
    const ToolRun run = RunGeomtool({"clip-lines", m_roads, m_sheet, "--stats"});
    EXPECT_EQ(run.errors.rfind(
                  "lines_in=2 vertices_in=5 lines_out=2 vertices_out=5 length=35 seconds=", 0),
              0u)
        << run.errors;
    const ToolRun dash = RunGeomtool({"dash", m_roads, "--pattern", "5", "--stats"});
    EXPECT_EQ(dash.errors.rfind(
                  "lines_in=2 vertices_in=5 lines_out=4 vertices_out=8 length=20 seconds=", 0),
              0u)
        << dash.errors;
}

TEST_F(LineCommands, DashFollowsItsPatternAndPhase) {
    EXPECT_EQ(OutputOf({"dash", m_roads, "--pattern", "6,3"}),
              "MULTILINESTRING ((0 0,6 0),\n(9 0,10 0,10 5),\n(10 8,10 10),\n(0 5,6 5),\n"
              "(9 5,15 5),\n(18 5,20 5))\n");
    EXPECT_EQ(OutputOf({"dash", m_roads, "--pattern", "6,3", "--phase", "8", "--rect", "0,4,9,6"}),
              "LINESTRING (1 5,7 5)\n");
    EXPECT_EQ(OutputOf({"dash", m_roads, "--pattern=6,3", "--phase=-1", "--clip", m_sheet}),
              OutputOf({"dash", m_roads, "--pattern=6,3", "--phase=8", "--clip", m_sheet}));
    EXPECT_EQ(OutputOf({"dash", m_nothing, "--pattern", "6,3"}), "MULTILINESTRING EMPTY\n");
    EXPECT_EQ(OutputOf({"dash", m_square, "--pattern", "100"}),
              "LINESTRING (0 0,4 0,4 4,0 4,0 0)\n");
}

TEST_F(LineCommands, DashRefusesPatternsThatMakeNoSense) {
    for (const char* const pattern : {"0", "0,0", "3,-1", "1e308,1e308"}) {
        ExpectFailure(2, {"dash", m_roads, "--pattern", pattern},
                      std::string("--pattern: no length may be negative, and their sum must be a "
                                  "number above 0, unlike '") +
                          pattern + "'");
    }
    for (const char* const pattern : {"nan", "1,inf", "x"}) {
        EXPECT_EQ(RunGeomtool({"dash", m_roads, "--pattern", pattern}).status, 2) << pattern;
    }
    ExpectFailure(2, {"dash", m_roads, "--pattern", "1,x"},
                  "--pattern: expected 2 numbers with commas between them, found '1,x'");
    ExpectFailure(2, {"dash", m_roads}, "--pattern is required");
    ExpectFailure(2, {"dash", m_roads, "--pattern", "1", "--phase", "inf"},
                  "--phase: expected a number, found 'inf'");
    ExpectFailure(2, {"dash", m_roads, "--pattern", "1", "--clip", m_sheet, "--rect", "0,0,1,1"},
                  "a clip polygon and --rect exclude each other");
}

TEST_F(LineCommands, DashRefusesTooManyDashes) {
    ExpectFailure(1, {"dash", m_roads, "--pattern", "1e-9,1e-9"},
                  "the pattern is too short for the lines: it makes about 2e+10 dashes, and 20 "
                  "million are the most");
    ExpectFailure(1, {"dash", m_roads, "--pattern", "5e-324"},
                  "the pattern is too short for the lines: it makes more than any number of "
                  "dashes, and 20 million are the most");
}

TEST_F(LineCommands, ClipLinesNeedsOneThingToClipTo) {
    ExpectFailure(2, {"clip-lines", m_roads},
                  "needs something to clip to, a second file or --rect");
    ExpectFailure(2, {"clip-lines", m_roads, m_sheet, "--rect", "0,0,1,1"},
                  "a clip polygon and --rect exclude each other");
    ExpectFailure(2, {"clip-lines", m_roads, "--rect", "0,0,0,1"},
                  "--rect: a rectangle needs an area, unlike '0,0,0,1'");
    ExpectFailure(2, {"clip-lines", "-", "-"}, "standard input can be read only once");
    ExpectFailure(1, {"clip-lines", m_roads, m_roads},
                  m_roads + ":1: expected POLYGON, MULTIPOLYGON or GEOMETRYCOLLECTION, found "
                            "MULTILINESTRING");
}

TEST_F(LineCommands, LinesHaveNoPlaceInPolygonFiles) {
    const std::string message = "lines can be written as wkt, geojson or svg";
    ExpectQueryFailure(2, {"clip-lines", m_roads, m_sheet, "-o", File("a.txt")}, message);
    ExpectQueryFailure(2, {"dash", m_roads, "--pattern", "1", "-o", File("a.bin")}, message);
    ExpectQueryFailure(2, {"convert", m_roads, "-o", File("a.txt")}, message);
    ExpectQueryFailure(2, {"thin", m_roads, "--angle", "1", "--to", "binary"}, message);
}

TEST_F(LineCommands, BadInputIsOneLineAndStatusOne) {
    const std::string message = m_bad + ":2: expected a number, found 'x)'";
    ExpectFailure(1, {"clip-lines", m_bad, m_sheet}, message);
    ExpectFailure(1, {"dash", m_bad, "--pattern", "1"}, message);
    ExpectFailure(1, {"thin", m_bad, "--minimal"}, message);
    ExpectQueryFailure(1, {"length", m_bad}, message);
    ExpectQueryFailure(1, {"nearest-segment", m_bad, "--point", "0,0"}, message);
    ExpectFailure(1, {"borders", File("none.txt")},
                  File("none.txt") + ": cannot open: No such file or directory");
}

TEST_F(LineCommands, BordersComeOnce) {
    const std::string neighbours =
        Create("neighbours.txt", "2\n4\n0\n0 0\n2 0\n2 2\n0 2\n4\n0\n2 0\n4 0\n4 2\n2 2\n");
    EXPECT_EQ(OutputOf({"borders", neighbours, "--kind", "shared"}), "LINESTRING (2 0,2 2)\n");
    EXPECT_EQ(OutputOf({"borders", neighbours, "--kind", "coast"}),
              "MULTILINESTRING ((2 2,0 2,0 0,2 0),\n(2 0,4 0,4 2,2 2))\n");
    EXPECT_EQ(OutputOf({"borders", neighbours}),
              "MULTILINESTRING ((0 0,2 0,2 2,0 2,0 0),\n(2 0,4 0,4 2,2 2))\n");
    EXPECT_EQ(OutputOf({"borders", "-"}, "0"), "MULTILINESTRING EMPTY\n");
    EXPECT_EQ(RunGeomtool({"borders", neighbours, "--kind", "left"}).status, 2);
}

TEST_F(LineCommands, LengthAddsUpOrTellsEach) {
    EXPECT_EQ(OutputOf({"length", m_roads}), "40\n");
    EXPECT_EQ(OutputOf({"length", m_roads, "--each"}), "20\n20\n");
    EXPECT_EQ(OutputOf({"length", m_square}), "16\n");
    EXPECT_EQ(OutputOf({"length", m_nothing}), "0\n");
    EXPECT_EQ(OutputOf({"length", m_points, "--each"}), "0\n");
    ExpectQueryFailure(1, {"length", Create("far.wkt", "LINESTRING(-1e308 0,1e308 0)")},
                       "the result is beyond the range of numbers");
}

TEST_F(LineCommands, NearestSegmentTellsWhichAndHowFar) {
    EXPECT_EQ(OutputOf({"nearest-segment", m_roads, "--point", "9,3", "--point", "1,6", "--point",
                        "23,9", "--point", "3,-2"}),
              "line=0 segment=1 x=10 y=3 distance=1\n"
              "line=1 segment=0 x=1 y=5 distance=1\n"
              "line=1 segment=0 x=20 y=5 distance=5\n"
              "line=0 segment=0 x=3 y=0 distance=2\n");
    EXPECT_EQ(OutputOf({"nearest-segment", m_square, "--point", "-1,2"}),
              "line=0 segment=3 x=0 y=2 distance=1\n");
    ExpectQueryFailure(1, {"nearest-segment", m_nothing, "--point", "0,0"},
                       m_nothing + ": there is no segment");
    ExpectQueryFailure(1, {"nearest-segment", m_points, "--point", "0,0"},
                       m_points + ": there is no segment");
    ExpectQueryFailure(1, {"nearest-segment", m_roads, "--point", "1e300,0"},
                       "the distances are beyond the range of numbers");
    ExpectQueryFailure(2, {"nearest-segment", m_roads}, "--point is required");
    ExpectQueryFailure(2, {"nearest-segment", m_roads, "--point", "1"},
                       "--point: expected 2 numbers with commas between them, found '1'");
    ExpectQueryFailure(2, {"nearest-segment", m_roads, "--point", "nan,0"},
                       "--point: expected 2 numbers with commas between them, found 'nan,0'");
}

TEST_F(LineCommands, ThinDropsVerticesOfLinesAndContours) {
    const std::string line = "LINESTRING(0 0,1 0,2 0,3 0.01,4 0,4 4)";
    EXPECT_EQ(OutputOf({"thin", "-", "--from", "wkt", "--angle", "5"}, line),
              "LINESTRING (0 0,4 0,4 4)\n");
    EXPECT_EQ(OutputOf({"thin", "-", "--from", "wkt", "--angle", "0"}, line),
              "LINESTRING (0 0,2 0,3 0.01,4 0,4 4)\n");
    EXPECT_EQ(OutputOf({"thin", "-", "--from", "wkt", "--minimal"},
                       "LINESTRING(0 0,1 1,2 3,3 1,2 0.5,1 0)"),
              "LINESTRING (0 0,2 3,3 1,1 0)\n");
    EXPECT_EQ(OutputOf({"thin", "-", "--angle", "1"}, "1 6 0 0 0 2 0 4 0 4 4 2 4 0 4"),
              "1\n4\n0\n0 0\n4 0\n4 4\n0 4\n");
    EXPECT_EQ(OutputOf({"thin", "-", "--angle", "1"}, "0"), "0\n");
}

TEST_F(LineCommands, ThinNeedsOneWayToThin) {
    ExpectFailure(2, {"thin", m_roads}, "needs either --angle or --minimal");
    ExpectFailure(2, {"thin", m_roads, "--angle", "5", "--minimal"},
                  "needs either --angle or --minimal");
    for (const char* const angle : {"-1", "181"}) {
        ExpectFailure(2, {"thin", m_roads, "--angle", angle},
                      std::string("--angle: expected degrees from 0 to 180, found '") + angle +
                          "'");
    }
    ExpectFailure(2, {"thin", m_roads, "--angle", "nan"},
                  "--angle: expected a number, found 'nan'");
}

} // namespace
} // namespace geomtool
