// SPDX-License-Identifier: MIT
#include "tools/geomtool/PolygonSet.h"

#include "tests/tools/Shapes.h"

namespace geomtool {
namespace {

using geom::Box2d;
using geom::Vec2d;
using test::External;
using test::Hole;
using test::Square;

TEST(PolygonSet, CountsAndMeasuresItsRings) {
    const PolygonSet shapes{{External(Square(0, 0, 2)), Hole(Square(0, 0, 1)), External({})}};
    EXPECT_EQ(shapes.HoleCount(), 1u);
    EXPECT_EQ(shapes.VertexCount(), 8u);
    EXPECT_EQ(shapes.Box(), Box2d(-2, -2, 2, 2));
    EXPECT_EQ(shapes.Area(), 12);
}

TEST(PolygonSet, EmptySetHasNothing) {
    EXPECT_EQ(PolygonSet().HoleCount(), 0u);
    EXPECT_EQ(PolygonSet().VertexCount(), 0u);
    EXPECT_TRUE(PolygonSet().Box().IsEmpty());
    EXPECT_EQ(PolygonSet().Area(), 0);
}

TEST(PolygonSet, SignedAreaTellsTheOrientation) {
    EXPECT_EQ(SignedArea({{0, 0}, {4, 0}, {0, 4}}), 8);
    EXPECT_EQ(SignedArea({{0, 0}, {0, 4}, {4, 0}}), -8);
    EXPECT_EQ(SignedArea({{0, 0}, {4, 0}}), 0);
    EXPECT_EQ(SignedArea({}), 0);
}

TEST(PolygonSet, AreaFarFromTheOriginIsExact) {
    EXPECT_EQ(SignedArea(Square(1e9 + 0.5, -1e9, 0.5)), 1);
}

TEST(PolygonSet, ClosingPointIsDroppedOnce) {
    std::vector<Vec2d> ring = {{0, 0}, {1, 0}, {0, 0}, {0, 0}};
    DropClosingPoint(ring);
    EXPECT_EQ(ring.size(), 3u);
    std::vector<Vec2d> open = {{0, 0}, {1, 0}};
    DropClosingPoint(open);
    EXPECT_EQ(open.size(), 2u);
    std::vector<Vec2d> single = {{0, 0}};
    DropClosingPoint(single);
    EXPECT_EQ(single.size(), 1u);
}

} // namespace
} // namespace geomtool
