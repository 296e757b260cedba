// SPDX-License-Identifier: MIT
#include "geometry/SpatialSearchGrid2D.h"
#include "tests/calls/Trial.h"

#include <gtest/gtest.h>

namespace geom::test {

namespace {

class Source : public SpatialSearchGrid2D::IVertexSource {
public:
    explicit Source(std::vector<Vec2d> points) : m_points(std::move(points)) {}
    bool GetVertex(int index, Vec2d& out) const override {
        out = m_points[static_cast<std::size_t>(index)];
        return true;
    }
    int Size() const { return static_cast<int>(m_points.size()); }

private:
    std::vector<Vec2d> m_points;
};

/// Enough points for several cells.
std::shared_ptr<Source> Points(Trial& t) {
    std::vector<Vec2d> points = t.Star(0, 0);
    for (int i = 0; i < 90; ++i) {
        points.emplace_back(i % 10 - 4.5, i / 10.0 - 4);
    }
    return std::make_shared<Source>(points);
}

SpatialSearchGrid2D Grid(Trial& t) {
    const std::shared_ptr<Source> source = Points(t);
    SpatialSearchGrid2D grid;
    grid.Initialize(0, source->Size(), source);
    return grid;
}

} // namespace

Calls SearchCalls() {
    return {
        {"SpatialSearchGrid2D::SpatialSearchGrid2D",
         {},
         {},
         [](Trial& t) { t.Answer([] { return SpatialSearchGrid2D().Query(Vec2d(0, 0)); }); }},
        {"SpatialSearchGrid2D::Initialize",
         {"bad_alloc"},
         {},
         [](Trial& t) {
             const std::shared_ptr<Source> source = Points(t);
             SpatialSearchGrid2D grid = Grid(t);
             t.Call([&] { grid.Initialize(0, source->Size(), source); },
                    [&] {
                        EXPECT_EQ(grid.Query(Vec2d(0, 0)), -1);
                        EXPECT_TRUE(grid.ColumnEdges().empty());
                        EXPECT_EQ(source.use_count(), 1);
                    });
             t.Result(grid.ColumnEdges());
             t.Result(grid.Query(Vec2d(1, 2)));
         }},
        {"SpatialSearchGrid2D::Query",
         {},
         {},
         [](Trial& t) {
             const SpatialSearchGrid2D grid = Grid(t);
             const Vec2d p = t.Point(1, 2);
             t.Answer([&] { return grid.Query(p); });
         }},
        {"SpatialSearchGrid2D::ColumnEdges",
         {},
         {},
         [](Trial& t) {
             const SpatialSearchGrid2D grid = Grid(t);
             t.Answer([&] { return grid.ColumnEdges().size(); });
         }},
        {"SpatialSearchGrid2D::RowEdges",
         {},
         {},
         [](Trial& t) {
             const SpatialSearchGrid2D grid = Grid(t);
             t.Answer([&] { return grid.RowEdges().size(); });
         }},
        {"SpatialSearchGrid2D (copy)",
         {"bad_alloc"},
         {},
         [](Trial& t) {
             const SpatialSearchGrid2D grid = Grid(t);
             t.Answer([&] { return SpatialSearchGrid2D(grid).Query(Vec2d(1, 2)); });
         }},
        {"SpatialSearchGrid2D::IVertexSource::IVertexSource",
         {},
         {},
         [](Trial& t) { t.Answer([] { return Source({}).Size(); }); }},
        {"SpatialSearchGrid2D::IVertexSource::operator=",
         {},
         {},
         [](Trial& t) {
             Source source({});
             const Source other({});
             t.Call([&] { source = other; });
             t.Result(source.Size());
         }},
        {"SpatialSearchGrid2D::IVertexSource::GetVertex",
         {},
         {},
         [](Trial& t) {
             const std::shared_ptr<Source> source = Points(t);
             Vec2d out(0, 0);
             t.Answer([&] { return source->GetVertex(1, out); });
             t.Result(out);
         }},
    };
}

} // namespace geom::test
