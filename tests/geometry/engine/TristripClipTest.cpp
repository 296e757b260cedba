// SPDX-License-Identifier: MIT
#include "geometry/Gpc.h"
#include "tests/support/Shapes.h"

#include <gtest/gtest.h>

namespace geom {
namespace {

using test::Area;
using test::Clip;
using test::Ring;
using test::Shape;
using test::Square;
using test::StripArea;
using test::Strips;

constexpr gpc_op OPERATIONS[] = {GPC_DIFF, GPC_INT, GPC_XOR, GPC_UNION};
const Shape NOTHING;

TEST(TristripClip, PolygonWithoutContoursHasNoStripsAndANullArray) {
    gpc_tristrip strips = {7, reinterpret_cast<gpc_vertex_list*>(&strips)};
    gpc_polygon_to_tristrip(NOTHING.Record(), &strips);
    EXPECT_EQ(strips.num_strips, 0);
    EXPECT_EQ(strips.strip, nullptr);
}

TEST(TristripClip, SquareIsOneStripThatZigzags) {
    const std::vector<Ring> strips = Strips(GPC_DIFF, {Square(0, 0, 2)}, NOTHING);
    ASSERT_EQ(strips.size(), 1U);
    EXPECT_EQ(strips[0], (Ring{{0, 0}, {2, 0}, {0, 2}, {2, 2}}));
}

TEST(TristripClip, BothSidesGetAVertexWhereOneSideBends) {
    const Shape shape{{{0, 0}, {4, 0}, {4, 4}, {0, 4}, {-1, 3}, {-1, 1}}};
    const std::vector<Ring> strips = Strips(GPC_DIFF, shape, NOTHING);
    ASSERT_EQ(strips.size(), 1U);
    EXPECT_EQ(strips[0], (Ring{{0, 0}, {4, 0}, {-1, 1}, {4, 1}, {-1, 3}, {4, 3}, {0, 4}, {4, 4}}));
    EXPECT_EQ(StripArea(strips), 19);
}

TEST(TristripClip, StripsAddUpToTheResult) {
    const Shape a({Square(0, 0, 8), Square(2, 2, 3)});
    const Shape b{{{-1, 3}, {5, -2}, {9, 6}, {4, 4}}};
    for (const gpc_op operation : OPERATIONS) {
        const double area = Area(Clip(operation, a, b));
        EXPECT_GT(area, 0);
        EXPECT_NEAR(StripArea(Strips(operation, a, b)), area, 1e-12 * 100);
    }
}

TEST(TristripClip, StripsOfFewerThanThreeVerticesAreDropped) {
    const Shape left{{{0, 0}, {2, 0}, {1, 3}}};
    const Shape right{{{2, 0}, {4, 3}, {1, 3}}};
    for (const Ring& strip : Strips(GPC_INT, left, right)) {
        EXPECT_GE(strip.size(), 3U);
    }
}

TEST(TristripClip, ToTristripIsTheDifferenceFromNothing) {
    const Shape shape({Square(0, 0, 8), Square(2, 2, 3)});
    gpc_tristrip strips = {0, nullptr};
    gpc_polygon_to_tristrip(shape.Record(), &strips);
    const std::vector<Ring> expected = Strips(GPC_DIFF, shape, NOTHING);
    ASSERT_EQ(static_cast<std::size_t>(strips.num_strips), expected.size());
    for (std::size_t s = 0; s < expected.size(); ++s) {
        EXPECT_EQ(test::CopyRing(strips.strip[s]), expected[s]);
    }
    gpc_free_tristrip(&strips);
}

// So many triangles, in rows of their own, that a walk across all of them at each row would take
// seconds.
TEST(TristripClip, EdgesInsideAUnionAreNoMatter) {
    constexpr int COUNT = 20000;
    std::vector<Ring> triangles;
    for (int i = 0; i < COUNT; ++i) {
        const double x = 2.0 * i;
        const double rise = i / (2.0 * COUNT);
        triangles.push_back({{x, rise}, {x + 1, 1 + rise}, {x + 0.25, 0.75 + rise}});
    }
    const Shape around{{{-1, -1}, {2 * COUNT, -1}, {2 * COUNT, 3}, {-1, 3}}};
    const std::vector<Ring> strips = Strips(GPC_UNION, Shape(triangles), around);
    ASSERT_EQ(strips.size(), 1U);
    EXPECT_EQ(strips[0], (Ring{{-1, -1}, {2 * COUNT, -1}, {-1, 3}, {2 * COUNT, 3}}));
}

// A bound that starts exactly where a horizontal top ends is compared with the carried edge's
// x, and half of the square is lost: a known limit, documented with gpc_tristrip_clip.
TEST(TristripClip, BoundStartingAtTheEndOfAHorizontalTopCostsATriangle) {
    const Shape square{Square(0, 0, 2)};
    const Shape triangle{{{2, 2}, {1, 4}, {0, 4}}};
    EXPECT_EQ(Area(Clip(GPC_UNION, square, triangle)), 5);
    EXPECT_EQ(StripArea(Strips(GPC_UNION, square, triangle)), 3);
}

} // namespace
} // namespace geom
