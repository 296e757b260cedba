// SPDX-License-Identifier: MIT
// Runs of the commands for contours: offset, clean, area, perimeter, nearest.
#include "tests/tools/CommandTest.h"

#include <cmath>
#include <cstdlib>

namespace geomtool {
namespace {

using test::RunGeomtool;

const double PI = std::acos(-1.0);

/// A square that runs around once, and within it one that runs around again.
const char* const TWICE = "2\n4\n0\n0 0\n4 0\n4 4\n0 4\n4\n0\n1 1\n2 1\n2 2\n1 2\n";
const char* const BOW = "POLYGON((0 0,4 4,4 0,0 4))";

class RingCommands : public test::CommandTest {
protected:
    double AreaOf(const std::string& polygon) {
        return std::atof(OutputOf({"area", "-", "--from", "wkt"}, polygon).c_str());
    }

    std::string m_square = Create("square.txt", "1\n4\n0\n0 0\n4 0\n4 4\n0 4\n");
    std::string m_twice = Create("twice.txt", TWICE);
    std::string m_bow = Create("bow.wkt", BOW);
    std::string m_nothing = Create("nothing.txt", "0\n");
    std::string m_huge = Create("huge.wkt", "POLYGON((0 0,1e300 0,0 1e300))");
    std::string m_bad = Create("bad.wkt", "POLYGON((0 0,\n1 x))");
};

TEST_F(RingCommands, HelpHasExamples) {
    for (const char* const name : {"offset", "clean", "area", "perimeter", "nearest"}) {
        ExpectHelp(name);
    }
}

TEST_F(RingCommands, OffsetGrowsAndShrinks) {
    const double grown = AreaOf(OutputOf({"offset", m_square, "--distance", "1", "--to", "wkt"}));
    EXPECT_LT(grown, 16 + 16 + PI);
    EXPECT_GT(grown, 16 + 16 + PI * 0.99);
    const double shrunk = AreaOf(OutputOf({"offset", m_square, "--distance=-1", "--to", "wkt"}));
    EXPECT_NEAR(shrunk, 4, 1e-5);
    EXPECT_EQ(OutputOf({"offset", m_square, "--distance", "-2.5"}), "0\n");
    EXPECT_EQ(OutputOf({"offset", m_nothing, "--distance", "1"}), "0\n");
    EXPECT_EQ(FileOf({"offset", m_square, "--distance", "1"}, "a.svg").rfind("<svg", 0), 0u);
}

TEST_F(RingCommands, OffsetGoesByHoleFlagsOrByDirections) {
    // The hole runs counter-clockwise like the contour around it.
    const std::string ring = "2 4 0 0 0 9 0 9 9 0 9 4 1 3 3 6 3 6 6 3 6";
    const std::string flags = OutputOf({"offset", "-", "--distance", "1", "--to", "wkt"}, ring);
    EXPECT_NEAR(AreaOf(flags), 81 + 36 + PI - 1, 0.05);
    const std::string kept =
        OutputOf({"offset", "-", "--distance", "1", "--keep-directions", "--to", "wkt"}, ring);
    EXPECT_NEAR(AreaOf(kept), 81 + 36 + PI, 0.05);
}

TEST_F(RingCommands, OffsetRefusesDistancesThatAreNone) {
    for (const char* const distance : {"nan", "inf", "-inf", "1x"}) {
        ExpectFailure(2, {"offset", m_square, std::string("--distance=") + distance},
                      std::string("--distance: expected a number, found '") + distance + "'");
    }
    ExpectFailure(2, {"offset", m_square}, "--distance is required");
    ExpectFailure(1, {"offset", m_bad, "--distance", "1"},
                  m_bad + ":2: expected a number, found 'x))'");
    const test::ToolRun run = RunGeomtool({"offset", m_huge, "--distance", "1"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
}

TEST_F(RingCommands, CleanSelectsByWindingRule) {
    const auto area = [this](const char* rule) {
        return AreaOf(OutputOf({"clean", m_twice, "--rule", rule, "--to", "wkt"}));
    };
    EXPECT_EQ(area("odd"), 15);
    EXPECT_EQ(area("nonzero"), 16);
    EXPECT_EQ(area("positive"), 16);
    EXPECT_EQ(area("negative"), 0);
    EXPECT_EQ(area("abs-geq-two"), 1);
    EXPECT_EQ(OutputOf({"clean", m_twice}), OutputOf({"clean", m_twice, "--rule", "odd"}));
}

TEST_F(RingCommands, CleanTakesABowApart) {
    const std::string clean = OutputOf({"clean", m_bow});
    EXPECT_EQ(clean.rfind("2\n3\n0\n", 0), 0u) << clean;
    EXPECT_EQ(OutputOf({"area", "-", "--signed"}, clean), "8\n");
    EXPECT_EQ(OutputOf({"area", m_bow, "--signed"}), "0\n");
    EXPECT_EQ(OutputOf({"clean", m_nothing}), "0\n");
}

TEST_F(RingCommands, CleanMarksHoles) {
    const std::string clean = OutputOf({"clean", m_twice, "--rule", "odd", "--to", "wkt"});
    EXPECT_EQ(clean.rfind("POLYGON ((", 0), 0u) << clean;
}

TEST_F(RingCommands, CleanRefusesUnknownRules) {
    EXPECT_EQ(RunGeomtool({"clean", m_bow, "--rule", "even"}).status, 2);
    EXPECT_EQ(RunGeomtool({"clean", m_bow, "--rule", "100130"}).status, 2);
    ExpectFailure(1, {"clean", m_bad}, m_bad + ":2: expected a number, found 'x))'");
    EXPECT_EQ(RunGeomtool({"clean", m_huge}).status, 1);
}

TEST_F(RingCommands, AreaIsEvenOddOrSigned) {
    EXPECT_EQ(OutputOf({"area", m_twice}), "15\n");
    EXPECT_EQ(OutputOf({"area", m_twice, "--signed"}), "17\n");
    EXPECT_EQ(OutputOf({"area", m_twice, "--each"}), "16\n1\n");
    EXPECT_EQ(OutputOf({"area", m_bow}), "8\n");
    EXPECT_EQ(OutputOf({"area", "-", "--from", "wkt", "--signed", "--each"},
                       "POLYGON((0 0,0 4,4 4,4 0),(1 1,2 1,2 2))"),
              "-16\n0.5\n");
    EXPECT_EQ(OutputOf({"area", m_nothing}), "0\n");
    EXPECT_EQ(OutputOf({"area", m_nothing, "--each"}), "");
    ExpectQueryFailure(1, {"area", m_huge, "--signed"},
                       "the result is beyond the range of numbers");
    ExpectQueryFailure(1, {"area", m_bad}, m_bad + ":2: expected a number, found 'x))'");
}

TEST_F(RingCommands, PerimeterTakesAllContours) {
    EXPECT_EQ(OutputOf({"perimeter", m_twice}), "20\n");
    EXPECT_EQ(OutputOf({"perimeter", m_twice, "--each"}), "16\n4\n");
    EXPECT_EQ(OutputOf({"perimeter", "-"}, "0"), "0\n");
    ExpectQueryFailure(1, {"perimeter", Create("wide.wkt", "POLYGON((-1e308 0,1e308 0,0 1))")},
                       "the result is beyond the range of numbers");
    ExpectQueryFailure(1, {"perimeter", m_bad}, m_bad + ":2: expected a number, found 'x))'");
}

TEST_F(RingCommands, NearestTellsWhichVertexAndHowFar) {
    EXPECT_EQ(
        OutputOf({"nearest", m_twice, "--point", "5,4", "--point", "2.25,2", "--point", "-3,-4"}),
        "line=0 vertex=2 x=4 y=4 distance=1\n"
        "line=1 vertex=2 x=2 y=2 distance=0.25\n"
        "line=0 vertex=0 x=0 y=0 distance=5\n");
    EXPECT_EQ(OutputOf({"nearest", "-", "--from", "wkt", "--point", "1,1"},
                       "LINESTRING(9 9,2 1)\nPOLYGON((5 5,6 5,5 6))"),
              "line=1 vertex=1 x=2 y=1 distance=1\n");
    ExpectQueryFailure(1, {"nearest", m_nothing, "--point", "0,0"},
                       m_nothing + ": there is no vertex");
    ExpectQueryFailure(1, {"nearest", m_twice, "--point", "1e300,0"},
                       "the distances are beyond the range of numbers");
    ExpectQueryFailure(1, {"nearest", m_bad, "--point", "0,0"},
                       m_bad + ":2: expected a number, found 'x))'");
    ExpectQueryFailure(2, {"nearest", m_twice}, "--point is required");
    ExpectQueryFailure(2, {"nearest", m_twice, "--point", "1,inf"},
                       "--point: expected 2 numbers with commas between them, found '1,inf'");
}

} // namespace
} // namespace geomtool
