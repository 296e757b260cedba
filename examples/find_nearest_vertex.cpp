// SPDX-License-Identifier: MIT
// Snapping: the vertex of a drawing that is nearest to the pointer, however many there are.
#include <geometry/geom.h>

#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

namespace {

// The points stay with the host; the grid asks for them by index.
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

std::vector<geom::Vec2d> Lattice(int size) {
    std::vector<geom::Vec2d> points;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            points.emplace_back(x, y);
        }
    }
    return points;
}

} // namespace

int main() {
    const auto drawing = std::make_shared<Drawing>(Lattice(300));
    geom::SpatialSearchGrid2D grid;
    grid.Initialize(0, drawing->Count(), drawing);

    for (const geom::Vec2d& pointer : {geom::Vec2d(17.2, 3.9), geom::Vec2d(-50, 1000)}) {
        geom::Vec2d vertex;
        drawing->GetVertex(grid.Query(pointer), vertex);
        std::printf("(%g, %g) snaps to (%g, %g)\n", pointer.x, pointer.y, vertex.x, vertex.y);
    }
}
