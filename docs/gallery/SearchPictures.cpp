// SPDX-License-Identifier: MIT
// The picture of the search grid.
#include "Gallery.h"
#include "Shapes.h"

#include <memory>

namespace gallery {

namespace {

class Cloud : public geom::SpatialSearchGrid2D::IVertexSource {
public:
    explicit Cloud(Points points) : m_points(std::move(points)) {}
    bool GetVertex(int index, Vec2d& out) const override {
        out = m_points[static_cast<std::size_t>(index)];
        return true;
    }
    const Points& All() const { return m_points; }

private:
    Points m_points;
};

Points Uniform() {
    Scatter scatter(5);
    Points points;
    for (int i = 0; i < 400; ++i) {
        points.push_back(scatter.NextIn(Box2d(-6, -5, 6, 5)));
    }
    return points;
}

Points Clustered() {
    Scatter scatter(8);
    Points points;
    for (int cluster = 0; cluster < 8; ++cluster) {
        const Vec2d centre = scatter.NextIn(Box2d(-5, -4, 5, 4));
        for (int i = 0; i < 50; ++i) {
            const Vec2d a = scatter.NextIn(Box2d(-1, -1, 1, 1));
            points.push_back(centre + a * (0.9 * scatter.Next()));
        }
    }
    return points;
}

void DrawSearch(Panel& panel, const Points& points) {
    const auto cloud = std::make_shared<Cloud>(points);
    geom::SpatialSearchGrid2D grid;
    grid.Initialize(0, static_cast<int>(points.size()), cloud);
    const std::vector<double>& columns = grid.ColumnEdges();
    const std::vector<double>& rows = grid.RowEdges();
    for (const double x : columns) {
        panel.Segment({x, rows.front()}, {x, rows.back()}, Stroked("#e0c99b", 0.8));
    }
    for (const double y : rows) {
        panel.Segment({columns.front(), y}, {columns.back(), y}, Stroked("#e0c99b", 0.8));
    }
    panel.Dots(points, colour::INPUT, 1.5);
    Scatter scatter(21);
    for (int i = 0; i < 14; ++i) {
        const Vec2d p = scatter.NextIn(Box2d(-6.6, -5.4, 6.6, 5.4));
        const Vec2d nearest = points[static_cast<std::size_t>(grid.Query(p))];
        panel.Segment(p, nearest, Stroked(colour::RESULT, 1.4));
        panel.HollowDot(p, colour::ACCENT, 3.2).Dot(nearest, colour::RESULT, 2.8);
    }
}

} // namespace

Picture SearchGrid() {
    Picture picture(2, 340);
    DrawSearch(picture.Add("400 points spread evenly", Box2d(-7, -5.8, 7, 5.8)), Uniform());
    DrawSearch(picture.Add("400 points in clusters", Box2d(-7, -5.8, 7, 5.8)), Clustered());
    return picture;
}

} // namespace gallery
