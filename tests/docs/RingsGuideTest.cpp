// SPDX-License-Identifier: MIT
// The code of docs/rings.md.
#include <geometry/geom.h>

#include <GL/glu.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(RingsGuide, TakingOver) {
    geom::Polygon2Data data;
    data.points = {{0, 0}, {10, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, // repeats, closed
                   {3, 3}, {3, 7},  {7, 7},  {7, 3}};                   // clockwise
    data.counts = {6, 4};

    geom::Polygon2 polygon;
    polygon.Take(data); // data holds what polygon held before, emptied
    polygon.RemoveDegenerateRings(3);
    EXPECT_EQ(polygon.Counts(), (std::vector<unsigned int>{4, 4}));
    EXPECT_TRUE(data.points.empty());
    const double area = geom::PolygonArea(polygon);                       // 84: holes subtract
    const double length = geom::Perimeter(polygon);                       // 56: all rings
    const bool inside = geom::PointInPolygon(geom::Vec2d(5, 5), polygon); // false: in the hole
    EXPECT_EQ(area, 84.0);
    EXPECT_EQ(length, 56.0);
    EXPECT_FALSE(inside);
}

TEST(RingsGuide, Orientation) {
    geom::Polygon2 polygon;
    polygon.Points() = {{0, 0}, {0, 4}, {4, 4}, {4, 0}};
    polygon.Counts() = {4};
    if (polygon.RingOrientation(0) == geom::Polygon2::Clockwise) {
        polygon.Reverse(); // all rings
    }
    EXPECT_EQ(polygon.RingOrientation(0), geom::Polygon2::CounterClockwise);
}

TEST(RingsGuide, SelfIntersections) {
    geom::Polygon2 bowTie;
    bowTie.Points() = {{0, 0}, {4, 4}, {4, 0}, {0, 4}};
    bowTie.Counts() = {4};
    geom::Polygon2 clean;
    geom::RemoveSelfIntersections(bowTie, clean, GLU_TESS_WINDING_ODD, geom::RSI_NORMAL_POSITIVE_Z);
    EXPECT_EQ(clean.Counts().size(), 2U);
    EXPECT_NEAR(geom::PolygonArea(clean), 8.0, 1e-5);
}

TEST(RingsGuide, Offset) {
    geom::Polygon2 polygon;
    polygon.Points() = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    polygon.Counts() = {4};
    geom::Polygon2 grown;
    geom::OffsetPolygon(polygon, 0.5, grown); // replaces what grown held
    geom::Polygon2 shrunk;
    geom::OffsetPolygon(polygon, -6, shrunk); // narrower than twice 6: nothing is left
    EXPECT_NEAR(geom::PolygonArea(grown), 120.785, 0.01);
    EXPECT_TRUE(shrunk.empty());
}

} // namespace
