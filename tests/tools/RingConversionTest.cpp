// SPDX-License-Identifier: MIT
#include "tools/geomtool/RingConversion.h"

#include "tests/tools/Shapes.h"

#include <algorithm>

namespace geomtool {
namespace {

using geom::Polygon2;
using test::External;
using test::Hole;
using test::Square;

std::vector<geom::Vec2d> Reversed(std::vector<geom::Vec2d> points) {
    std::reverse(points.begin(), points.end());
    return points;
}

TEST(RingConversion, HoleFlagsGiveDirections) {
    const PolygonSet shapes{{External(Square(0, 0, 4)), Hole(Square(0, 0, 2)),
                             External(Reversed(Square(9, 0, 1))),
                             Hole(Reversed(Square(9, 0, 0.5)))}};
    const Polygon2 polygon = ToPolygon2(shapes, RingDirections::FromHoleFlags);
    ASSERT_EQ(polygon.Counts(), (std::vector<unsigned int>{4, 4, 4, 4}));
    EXPECT_EQ(polygon.RingOrientation(0), Polygon2::CounterClockwise);
    EXPECT_EQ(polygon.RingOrientation(1), Polygon2::Clockwise);
    EXPECT_EQ(polygon.RingOrientation(2), Polygon2::CounterClockwise);
    EXPECT_EQ(polygon.RingOrientation(3), Polygon2::Clockwise);
    const Polygon2 kept = ToPolygon2(shapes, RingDirections::Kept);
    EXPECT_EQ(kept.RingOrientation(1), Polygon2::CounterClockwise);
    EXPECT_EQ(kept.RingOrientation(2), Polygon2::Clockwise);
}

TEST(RingConversion, DirectionsGiveHoleFlags) {
    const PolygonSet shapes{{External(Square(0, 0, 4)), Hole(Reversed(Square(0, 0, 2)))}};
    test::ExpectSame(ToPolygonSet(ToPolygon2(shapes, RingDirections::FromHoleFlags)), shapes);
    EXPECT_TRUE(ToPolygonSet(Polygon2()).rings.empty());
}

} // namespace
} // namespace geomtool
