// SPDX-License-Identifier: MIT
#include "tools/geomtool/Borders.h"

#include "tests/tools/Shapes.h"

#include <algorithm>

namespace geomtool {
namespace {

using test::External;
using test::Square;

/// Two squares side by side; they share the edge from (1, -1) to (1, 1).
const PolygonSet NEIGHBOURS{{External(Square(0, 0, 1)), External(Square(2, 0, 1))}};

TEST(Borders, SharedEdgesComeOnce) {
    const LineSet all = Borders(NEIGHBOURS, BorderKind::All);
    ASSERT_EQ(all.lines.size(), 2u);
    EXPECT_EQ(all.lines[0].size(), 5u); // all around
    EXPECT_TRUE(all.lines[1] == (Line{{1, -1}, {3, -1}, {3, 1}, {1, 1}}));
}

TEST(Borders, SharedAndCoastShareNoEdge) {
    const LineSet shared = Borders(NEIGHBOURS, BorderKind::Shared);
    ASSERT_EQ(shared.lines.size(), 1u);
    EXPECT_TRUE(shared.lines[0] == (Line{{1, -1}, {1, 1}}));
    const LineSet coast = Borders(NEIGHBOURS, BorderKind::Coast);
    ASSERT_EQ(coast.lines.size(), 2u);
    EXPECT_TRUE(coast.lines[0] == (Line{{1, 1}, {-1, 1}, {-1, -1}, {1, -1}}));
}

TEST(Borders, TheDirectionOfAContourDoesNotMatter) {
    PolygonSet shapes = NEIGHBOURS;
    std::reverse(shapes.rings[1].points.begin(), shapes.rings[1].points.end());
    EXPECT_EQ(Borders(shapes, BorderKind::Shared).lines.size(), 1u);
}

TEST(Borders, DegenerateContoursGiveWhatEdgesTheyHave) {
    EXPECT_TRUE(Borders({}, BorderKind::All).lines.empty());
    EXPECT_TRUE(Borders({{External({}), External({{1, 1}})}}, BorderKind::All).lines.empty());
    // There and back again is one edge, run twice.
    const PolygonSet flat{{External({{0, 0}, {1, 0}})}};
    EXPECT_EQ(Borders(flat, BorderKind::Shared).lines.size(), 1u);
    EXPECT_TRUE(Borders(flat, BorderKind::Coast).lines.empty());
    const PolygonSet repeated{{External({{0, 0}, {0, 0}, {1, 0}, {1, 0}, {0, 1}})}};
    const LineSet lines = Borders(repeated, BorderKind::All);
    ASSERT_EQ(lines.lines.size(), 1u);
    EXPECT_TRUE(lines.lines[0] == (Line{{0, 0}, {1, 0}, {0, 1}, {0, 0}}));
}

} // namespace
} // namespace geomtool
