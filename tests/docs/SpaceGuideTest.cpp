// SPDX-License-Identifier: MIT
// The code of docs/search-and-space.md.
#include <geometry/geom.h>

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace {

class Drawing : public geom::SpatialSearchGrid2D::IVertexSource {
public:
    explicit Drawing(std::vector<geom::Vec2d> vertices) : m_vertices(std::move(vertices)) {}

    bool GetVertex(int index, geom::Vec2d& out) const override {
        out = m_vertices[static_cast<std::size_t>(index)];
        return true;
    }
    int Count() const { return static_cast<int>(m_vertices.size()); }

private:
    std::vector<geom::Vec2d> m_vertices;
};

TEST(SpaceGuide, NearestVertex) {
    const auto drawing =
        std::make_shared<Drawing>(std::vector<geom::Vec2d>{{0, 0}, {4, 1}, {9, 3}, {2, 7}});
    geom::SpatialSearchGrid2D grid; // co-owns the drawing from now on
    grid.Initialize(0, drawing->Count(), drawing);
    const int nearest = grid.Query({5, 2}); // 1, the vertex (4, 1)
    EXPECT_EQ(nearest, 1);
}

TEST(SpaceGuide, Picking) {
    const geom::Vec3d eye(0, 0, 10);
    const geom::ParametricLine3 sight(eye, geom::Vec3d(0.2, 0.1, 0));

    geom::Vec3d hit;
    geom::Vec3d weights;
    bool front = false;
    const bool onTriangle =
        sight.Intersect({-1, -1, 0}, {1, -1, 0}, {0, 1, 0}, hit, weights, front);

    const double tolerance = 0.01; // a cone: one hundredth of the distance
    const bool onEdge = sight.Intersect(tolerance, {-1, 0.15, 0}, {1, 0.15, 0}, hit);
    EXPECT_TRUE(onTriangle);
    EXPECT_TRUE(front);
    EXPECT_NEAR(weights.x + weights.y + weights.z, 1.0, 1e-12);
    EXPECT_TRUE(onEdge);
    EXPECT_NEAR(hit.y, 0.15, 1e-12);
}

TEST(SpaceGuide, Planes) {
    const geom::Plane ground({0, 0, 1}, 0.0); // z = 0
    const geom::ParametricLine3 line({1, 2, 8}, geom::Vec3d(1, 2, 0));
    geom::Vec3d below;
    if (ground.Intersect(line, below)) {
        // below is (1, 2, 0)
    }

    geom::Mat4d frame;
    geom::OrientPlane(frame, {5, 5, 0}, {2, 0, 0}, {0, 3, 0}); // rows: u, v, normal, origin
    EXPECT_EQ(below, geom::Vec3d(1, 2, 0));
    EXPECT_EQ(frame(0, 0), 1.0);
    EXPECT_EQ(frame(2, 2), 1.0);
    EXPECT_EQ(frame(3, 1), 5.0);
}

TEST(SpaceGuide, Triangles) {
    const geom::Triangle triangle({0, 0}, {4, 0}, {0, 4});
    const bool inside = triangle.Contains({1, 1});
    const bool inCircle = triangle.InCircumcircle({3.9, 3.9}); // strictly inside
    const geom::Circle circle(triangle.A(), triangle.B(), triangle.C());
    EXPECT_TRUE(inside);
    EXPECT_TRUE(inCircle);
    EXPECT_EQ(circle.Center(), geom::Vec2d(2, 2));
}

} // namespace
