// SPDX-License-Identifier: MIT
#include "tools/geomtool/LineSet.h"

#include "tools/geomtool/Figure.h"

#include <gtest/gtest.h>

#include <cmath>

namespace geomtool {
namespace {

const LineSet TWO{{{{0, 0}, {4, 1}}, {{2, -3}, {2, 5}, {1, 1}}}};

TEST(LineSet, CountsAndMeasures) {
    EXPECT_EQ(TWO.VertexCount(), 5u);
    EXPECT_TRUE(TWO.Box() == geom::Box2d(0, -3, 4, 5));
    EXPECT_EQ(LineSet().VertexCount(), 0u);
    EXPECT_TRUE(LineSet().Box().IsEmpty());
}

TEST(LineSet, FlattensAndBack) {
    LineSet lines = TWO;
    lines.lines.insert(lines.lines.begin() + 1, Line());
    const FlatLines flat = Flatten(lines);
    EXPECT_EQ(flat.counts, (std::vector<unsigned int>{2, 0, 3}));
    EXPECT_EQ(flat.points.size(), 5u);
    EXPECT_TRUE(Unflatten(flat).lines == lines.lines);
    EXPECT_TRUE(Unflatten(Flatten({})).lines.empty());
}

TEST(Figure, ContoursAreClosedLinesBeforeTheLines) {
    const Figure figure{{{{{{0, 0}, {1, 0}, {0, 1}}, false}, {{}, true}}}, TWO};
    const LineSet all = AllLines(figure);
    ASSERT_EQ(all.lines.size(), 4u);
    EXPECT_TRUE(all.lines[0] == (Line{{0, 0}, {1, 0}, {0, 1}, {0, 0}}));
    EXPECT_TRUE(all.lines[1].empty());
    EXPECT_TRUE(all.lines[3] == TWO.lines[1]);
}

TEST(Figure, EveryCoordinateDecidesWhetherItIsFinite) {
    EXPECT_TRUE(IsFinite({}));
    EXPECT_TRUE(IsFinite({{}, TWO}));
    EXPECT_FALSE(IsFinite({{}, {{{{0, 0}, {1, HUGE_VAL}}}}}));
    EXPECT_FALSE(IsFinite({{{{{{std::nan(""), 0}}, false}}}, TWO}));
}

} // namespace
} // namespace geomtool
