// SPDX-License-Identifier: MIT
// Runs of the commands that make a shape from numbers: arc, pie, chord, ellipse.
#include "tests/tools/CommandTest.h"

#include <cmath>
#include <cstdlib>

namespace geomtool {
namespace {

const double PI = std::acos(-1.0);

class CurveCommands : public test::CommandTest {
protected:
    /// What a measure such as area says of a shape.
    static double Measure(const char* command, const std::string& shape) {
        return std::atof(OutputOf({command, "-", "--from", "wkt"}, shape).c_str());
    }
};

TEST_F(CurveCommands, HelpHasExamples) {
    for (const char* const name : {"arc", "pie", "chord", "ellipse"}) {
        ExpectHelp(name);
    }
}

TEST_F(CurveCommands, ArcIsALine) {
    const std::string arc = OutputOf({"arc", "--center", "2,1", "--radius", "5", "--start", "90",
                                      "--sweep", "-90", "--step", "0.5"});
    EXPECT_EQ(arc.rfind("LINESTRING (2.000", 0), 0u) << arc;
    EXPECT_NEAR(Measure("length", arc), 5 * PI / 2, 1e-4);
    EXPECT_NEAR(Measure("length", OutputOf({"arc", "--radius", "1"})), 2 * PI, 0.01);
    EXPECT_EQ(OutputOf({"arc", "--radius", "2", "--sweep", "0"}), "MULTILINESTRING EMPTY\n");
    EXPECT_EQ(OutputOf({"arc", "--radius", "0"}), "MULTILINESTRING EMPTY\n");
}

TEST_F(CurveCommands, PieChordAndEllipseAreContours) {
    const std::string pie = OutputOf({"pie", "--rect", "-4,-3,4,3", "--start", "90", "--end", "180",
                                      "--points", "500", "--to", "wkt"});
    EXPECT_NEAR(Measure("area", pie), PI * 12 / 4, 1e-3);
    const std::string chord = OutputOf({"chord", "--rect", "-4,-3,4,3", "--start", "90", "--end",
                                        "180", "--points", "500", "--to", "wkt"});
    EXPECT_NEAR(Measure("area", chord), PI * 12 / 4 - 6, 1e-3);
    const std::string ellipse =
        OutputOf({"ellipse", "--rect", "4,3,-4,-3", "--steps", "100", "--to", "wkt"});
    EXPECT_NEAR(Measure("area", ellipse), PI * 12, 1e-2);
}

TEST_F(CurveCommands, ContoursGoToEveryFormat) {
    EXPECT_EQ(OutputOf({"ellipse", "--rect", "0,0,2,2", "--steps", "1"}),
              "1\n4\n0\n2 1\n1 2\n0 1\n1 0\n");
    EXPECT_EQ(OutputOf({"pie", "--rect", "0,0,2,2", "--end", "90", "--points", "4", "--to", "wkt"}),
              "POLYGON ((2 1,1 2,1 1,2 1))\n");
    EXPECT_EQ(FileOf({"ellipse", "--rect", "0,0,2,2", "--steps", "1"}, "a.geojson"),
              "{\"type\":\"Polygon\",\"coordinates\":\n[[[2,1],[1,2],[0,1],[1,0],[2,1]]]}\n");
    EXPECT_EQ(FileOf({"chord", "--rect", "0,0,2,2", "--end", "90"}, "a.svg").rfind("<svg", 0), 0u);
    EXPECT_EQ(FileOf({"chord", "--rect", "0,0,2,2", "--end", "90"}, "a.bin").size(),
              4 + 4 + 4 + 71 * 16u);
    EXPECT_NE(FileOf({"arc", "--radius", "2"}, "b.svg").find("fill=\"none\""), std::string::npos);
}

TEST_F(CurveCommands, EqualAnglesMakeAFullTurn) {
    const std::string chord = OutputOf({"chord", "--rect", "-1,-1,1,1", "--start", "30", "--end",
                                        "30", "--points", "1000", "--to", "wkt"});
    EXPECT_NEAR(Measure("area", chord), PI, 1e-3);
}

TEST_F(CurveCommands, HostileNumbersAreRefused) {
    struct {
        std::vector<std::string> arguments;
        const char* message;
    } const cases[] = {
        {{"arc"}, "--radius is required"},
        {{"arc", "--radius", "-1"}, "--radius: must not be negative, unlike '-1'"},
        {{"arc", "--radius", "nan"}, "--radius: expected a number, found 'nan'"},
        {{"arc", "--radius", "1", "--step", "0"}, "--step: expected a number above 0, found '0'"},
        {{"arc", "--radius", "1", "--step=-5"}, "--step: expected a number above 0, found '-5'"},
        {{"arc", "--radius", "1", "--step", "1e-9"}, "--step: makes more than 10 million points"},
        {{"arc", "--radius", "1", "--sweep", "1e308"}, "--step: makes more than 10 million points"},
        {{"arc", "--radius", "1", "--center", "1"},
         "--center: expected 2 numbers with commas between them, found '1'"},
        {{"arc", "--radius", "1", "--start", "inf"}, "--start: expected a number, found 'inf'"},
        {{"pie", "--rect", "0,0,1,1"}, "--end is required"},
        {{"pie", "--rect", "0,0,0,0", "--end", "1"},
         "--rect: a rectangle needs an area, unlike '0,0,0,0'"},
        {{"pie", "--rect", "0,0,1e-200,1e-200", "--end", "1"},
         "--rect: is too small to hold a curve"},
        {{"chord", "--rect", "0,0,1,1", "--end", "1", "--points", "3"},
         "--points: expected a whole number from 4 to 10000000, found '3'"},
        {{"chord", "--rect", "0,0,1,1", "--end", "x"}, "--end: expected a number, found 'x'"},
        {{"ellipse"}, "--rect is required"},
        {{"ellipse", "--rect", "0,0,1,1", "--steps", "0"},
         "--steps: expected a whole number from 1 to 2500000, found '0'"},
        {{"ellipse", "--rect", "0,0,1,1", "--steps=-1"},
         "--steps: expected a whole number from 1 to 2500000, found '-1'"},
        {{"ellipse", "--rect", "0,0,1,1", "--steps", "99999999999999999999"},
         "--steps: expected a whole number from 1 to 2500000, found '99999999999999999999'"},
    };
    for (const auto& c : cases) {
        ExpectFailure(2, c.arguments, c.message);
    }
}

TEST_F(CurveCommands, ShapesBeyondTheRangeOfNumbersAreRefused) {
    const std::string message = "the result has coordinates beyond the range of numbers";
    ExpectFailure(1, {"arc", "--radius", "1e308", "--center", "1e308,0"}, message);
    ExpectFailure(1, {"pie", "--rect=-1e308,-1e308,1e308,1e308", "--end", "90"}, message);
}

} // namespace
} // namespace geomtool
