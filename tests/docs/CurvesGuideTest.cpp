// SPDX-License-Identifier: MIT
// The code of docs/curves.md.
#include <geometry/geom.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(CurvesGuide, CircularArc) {
    std::vector<geom::Vec2d> path = {{5, 0}, {3, 0}};
    const double quarter = 90 * kit::DEG_TO_RAD;
    const double step = 10 * kit::DEG_TO_RAD;
    geom::CircularArc({0, 0}, 3, 0, quarter, path, step); // appends behind the line
    EXPECT_GE(path.size(), 12U);
    EXPECT_NEAR(path.back().x, 0.0, 1e-12);
    EXPECT_NEAR(path.back().y, 3.0, 1e-12);
}

TEST(CurvesGuide, Pie) {
    const geom::Box2d box(0, 0, 80, 50); // of the whole ellipse
    std::vector<geom::Vec2d> pie(40);
    geom::Box2d extent; // empty; grows with every point
    const bool drawn = geom::PieToArea(box, {80, 25}, {40, 50}, pie.size(), pie.data(), &extent);
    EXPECT_TRUE(drawn);
    EXPECT_EQ(pie.front(), pie.back());
    EXPECT_NEAR(extent.minX, 40.0, 1e-9);
    EXPECT_NEAR(extent.maxY, 50.0, 1e-9);
}

TEST(CurvesGuide, Ellipse) {
    const std::size_t steps = 8; // in each quadrant
    std::vector<geom::Vec2d> ellipse(4 * steps + 1);
    geom::GenerateEllipse(geom::Box2d(0, 0, 80, 50), steps, ellipse.data());
    EXPECT_EQ(ellipse.front(), geom::Vec2d(80, 25));
    EXPECT_EQ(ellipse.back(), ellipse.front());
}

} // namespace
