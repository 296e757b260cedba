// SPDX-License-Identifier: MIT
#include "tools/geomtool/Dashing.h"

#include "geometry/Geometry.h"
#include "tests/tools/Shapes.h"

#include <cmath>

namespace geomtool {
namespace {

using test::External;
using test::Hole;
using test::Square;

const Line LEVEL = {{0, 0}, {10, 0}};
const PolygonSet DIAMOND{{External({{5, -5}, {10, 0}, {5, 5}, {0, 0}})}};

double LengthOf(const LineSet& lines) {
    double length = 0;
    for (const Line& line : lines.lines) {
        length += geom::PolylineLength(line.data(), line.size());
    }
    return length;
}

TEST(ClipLines, KeepsWhatIsWithin) {
    const LineSet inside = ClipLines({{{{-5, 1}, {15, 1}}}}, DIAMOND);
    ASSERT_EQ(inside.lines.size(), 1u);
    EXPECT_TRUE(inside.lines[0] == (Line{{1, 1}, {9, 1}}));
}

TEST(ClipLines, HolesCutAndLinesStayApart) {
    const PolygonSet frame{{External(Square(0, 0, 4)), Hole(Square(0, 0, 2))}};
    const LineSet inside =
        ClipLines({{{{-9, 1}, {9, 1}}, {{4, 3}, {0, 3}}, {{0, 3}, {-3, 3}}}}, frame);
    ASSERT_EQ(inside.lines.size(), 4u);
    EXPECT_EQ(LengthOf(inside), 2 + 2 + 4 + 3);
}

TEST(ClipLines, ATouchLeavesNothing) {
    const PolygonSet square{{External(Square(0, 0, 4))}};
    EXPECT_TRUE(ClipLines({{{{4, 1}, {9, 1}}, {{-9, -9}, {-4, -4}}}}, square).lines.empty());
    EXPECT_TRUE(ClipLines({{{{10, -3}, {10, 3}}}}, DIAMOND).lines.empty());
}

TEST(ClipLines, NothingIsLeftWithinNothing) {
    EXPECT_TRUE(ClipLines({{LEVEL}}, {}).lines.empty());
    EXPECT_TRUE(ClipLines({{LEVEL}}, {{External({})}}).lines.empty());
    EXPECT_TRUE(ClipLines({}, DIAMOND).lines.empty());
    EXPECT_TRUE(ClipLines({{{}, {{5, 0}}}}, DIAMOND).lines.empty());
}

TEST(DashLines, DashesBendWithTheirLine) {
    const LineSet dashes = DashLines({{{{0, 0}, {4, 0}, {4, 4}}}}, {{3, 0.5}, 0});
    ASSERT_EQ(dashes.lines.size(), 3u);
    EXPECT_TRUE(dashes.lines[0] == (Line{{0, 0}, {3, 0}}));
    EXPECT_TRUE(dashes.lines[1] == (Line{{3.5, 0}, {4, 0}, {4, 2.5}}));
    EXPECT_TRUE(dashes.lines[2] == (Line{{4, 3}, {4, 4}}));
}

TEST(DashLines, APhaseStartsAnywhereInThePattern) {
    const auto expectFirst = [](const char* name, const DashStyle& style, double from, double to) {
        SCOPED_TRACE(name);
        const LineSet dashes = DashLines({{LEVEL}}, style);
        ASSERT_FALSE(dashes.lines.empty());
        EXPECT_TRUE(dashes.lines[0] == (Line{{from, 0}, {to, 0}}));
    };
    expectFirst("at a dash", {{3, 1}, 0}, 0, 3);
    expectFirst("within a dash", {{3, 1}, 2}, 0, 1);
    expectFirst("at a gap", {{3, 1}, 3}, 1, 4);
    expectFirst("within a gap", {{3, 1}, 3.5}, 0.5, 3.5);
    expectFirst("a whole pattern", {{3, 1}, 4}, 0, 3);
    expectFirst("many patterns", {{3, 1}, 4e6 + 2}, 0, 1);
    expectFirst("backwards", {{3, 1}, -0.5}, 0.5, 3.5);
    expectFirst("odd, second round", {{3, 1, 2}, 6}, 3, 4);
    expectFirst("odd, a whole period", {{3, 1, 2}, 12}, 0, 3);
    expectFirst("entries of length 0", {{0, 1, 4, 1}, 1}, 0, 4);
}

TEST(DashLines, EveryLineStartsWithThePhaseUnlessItGoesOn) {
    const Line onward = {{10, 0}, {20, 0}};
    const Line apart = {{0, 9}, {10, 9}};
    const LineSet dashes = DashLines({{LEVEL, onward, apart}}, {{3, 1}, 2});
    EXPECT_TRUE(dashes.lines[2] == (Line{{6, 0}, {9, 0}}));
    EXPECT_TRUE(dashes.lines[3] == (Line{{10, 0}, {13, 0}}));
    EXPECT_TRUE(dashes.lines[6] == (Line{{0, 9}, {1, 9}}));
}

TEST(DashLines, ClippedDashesAreTheDashesClipped) {
    const LineSet lines{{{{-3, 1.25}, {13, 1.25}, {13, -1}, {-3, -1.25}}, LEVEL}};
    for (const double phase : {0.0, 1.5, -7.25}) {
        const DashStyle style{{1.5, 0.5, 0.25, 0.5}, phase};
        const LineSet clipped = DashLines(lines, style, DIAMOND);
        const LineSet expected = ClipLines(DashLines(lines, style), DIAMOND);
        EXPECT_GT(clipped.lines.size(), 10u);
        EXPECT_EQ(clipped.lines.size(), expected.lines.size());
        EXPECT_NEAR(LengthOf(clipped), LengthOf(expected), 1e-12);
    }
}

TEST(DashLines, RectanglesKeepBentDashesInOnePiece) {
    const LineSet dashes =
        DashLines({{{{0, 0}, {4, 0}, {4, 4}}}}, {{3, 0.5}, 0}, {{External(Square(4, 0, 1))}});
    ASSERT_EQ(dashes.lines.size(), 1u);
    EXPECT_TRUE(dashes.lines[0] == (Line{{3.5, 0}, {4, 0}, {4, 1}}));
}

TEST(DashLines, NothingGivesNothing) {
    const DashStyle style{{3, 1}, 0.5};
    EXPECT_TRUE(DashLines({}, style).lines.empty());
    EXPECT_TRUE(DashLines({{{}, {{1, 1}}}}, style).lines.empty());
    EXPECT_TRUE(DashLines({}, style, DIAMOND).lines.empty());
    EXPECT_TRUE(DashLines({{{{1, 1}}}}, style, DIAMOND).lines.empty());
    EXPECT_TRUE(DashLines({{LEVEL}}, style, {}).lines.empty());
}

TEST(EstimateDashes, GrowsWithTheLinesAndNotWithTheirBends) {
    EXPECT_EQ(EstimateDashes({}, {{3, 1}, 0}), 0);
    EXPECT_EQ(EstimateDashes({{LEVEL, LEVEL}}, {{3, 2}, 0}), 4);
    EXPECT_EQ(EstimateDashes({{LEVEL}}, {{3, 1, 0, 1}, 0}), 4);
    EXPECT_EQ(EstimateDashes({{{{-1e308, 0}, {1e308, 0}}}}, {{3, 1}, 0}), HUGE_VAL);
    EXPECT_EQ(EstimateDashes({{LEVEL}}, {{5e-324}, 0}), HUGE_VAL);
}

} // namespace
} // namespace geomtool
