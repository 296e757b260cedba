// SPDX-License-Identifier: MIT
// SpatialSearchGrid2D against a look at every vertex. What must hold:
// - a query gives the nearest vertex, of equally near ones the first; from so far away that
//   rounding makes distances alike, one that is as near up to rounding;
// - vertices that the source withholds or that are not finite are never the answer;
// - a copy, and a grid that held others before, answer the same.
#include "fuzz/support/Check.h"
#include "fuzz/support/Coordinates.h"
#include "fuzz/support/Target.h"

#include "Subsystems/Kit/Exception.h"
#include "geometry/SpatialSearchGrid2D.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace geom::fuzz {

namespace {

constexpr int MOST_VERTICES = 250;
constexpr int MOST_QUERIES = 12;

/// A query from farther than this many times the width of the vertices may take any of those
/// whose distances rounding makes alike.
constexpr double FAR_AWAY = 1e9;

class Vertices : public SpatialSearchGrid2D::IVertexSource {
public:
    Vertices(Points points, int first, int withheld)
        : m_points(std::move(points)), m_first(first), m_withheld(withheld) {}

    bool GetVertex(int index, Vec2d& out) const override {
        if (IsWithheld(index)) {
            return false;
        }
        out = m_points.at(static_cast<std::size_t>(index - m_first));
        return true;
    }
    int First() const { return m_first; }
    int Last() const { return m_first + static_cast<int>(m_points.size()); }

private:
    bool IsWithheld(int index) const { return m_withheld != 0 && index % m_withheld == 0; }

    Points m_points;
    int m_first;
    int m_withheld; ///< every such index has no vertex; 0 for none
};

struct Nearest {
    int index = -1;
    double distanceSquared = std::numeric_limits<double>::max();
};

Nearest FindPlainly(const Vertices& vertices, const Vec2d& p) {
    Nearest nearest;
    for (int i = vertices.First(); i < vertices.Last(); ++i) {
        Vec2d v;
        if (vertices.GetVertex(i, v) && p.DistanceSquared(v) < nearest.distanceSquared) {
            nearest = {i, p.DistanceSquared(v)};
        }
    }
    return nearest;
}

/// The box of the vertices that can be found, and how many there are.
struct Extent {
    Box2d box;
    int count = 0;
};

Extent Measure(const Vertices& vertices) {
    Extent extent;
    for (int i = vertices.First(); i < vertices.Last(); ++i) {
        Vec2d v;
        if (vertices.GetVertex(i, v)) {
            ++extent.count;
            extent.box.ExtendBy(v);
        }
    }
    return extent;
}

bool IsFarAway(const Extent& extent, const Vec2d& p) {
    const Box2d& box = extent.box;
    const double width = std::min(box.maxX - box.minX, box.maxY - box.minY);
    const double distance = std::max({box.minX - p.x, p.x - box.maxX, box.minY - p.y,
                                      p.y - box.maxY, std::fabs(box.minX), std::fabs(box.maxX),
                                      std::fabs(box.minY), std::fabs(box.maxY)});
    return !(distance < FAR_AWAY * width);
}

void CheckQuery(const SpatialSearchGrid2D& grid, const Vertices& vertices, const Extent& extent,
                const Vec2d& p) {
    const int found = grid.Query(p);
    FUZZ_CHECK(grid.Query(p) == found);
    if (extent.count == 1) {
        FUZZ_CHECK(found == 0);
        return;
    }
    const Nearest nearest = FindPlainly(vertices, p);
    const bool isNone = nearest.distanceSquared == std::numeric_limits<double>::max();
    if (isNone || !IsFarAway(extent, p)) {
        FUZZ_CHECK(found == nearest.index);
        return;
    }
    Vec2d v;
    FUZZ_CHECK(found >= vertices.First() && found < vertices.Last());
    FUZZ_CHECK(vertices.GetVertex(found, v));
    FUZZ_CHECK(p.DistanceSquared(v) <= nearest.distanceSquared * (1 + 0x1p-20));
}

bool SameNumbers(const std::vector<double>& a, const std::vector<double>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](double p, double q) { return SameBits(p, q); });
}

void CheckEdges(const SpatialSearchGrid2D& grid) {
    FUZZ_CHECK(grid.ColumnEdges().size() == grid.RowEdges().size());
    FUZZ_CHECK(grid.ColumnEdges().size() != 1);
}

/// Vertices, and up to three times the same ones again, moved a little, so that few bytes fill
/// many cells.
Points TakeVertices(ByteSource& bytes, Coordinates& coordinates) {
    Points points = TakePoints(bytes, coordinates, MOST_VERTICES);
    const int repeated = bytes.Below(4);
    const Points once = points;
    for (int i = 0; i < repeated; ++i) {
        for (const Vec2d& p : once) {
            points.emplace_back(p.x + i, p.y - i);
        }
    }
    return points;
}

void Check(ByteSource& bytes) {
    Coordinates coordinates(bytes);
    const int first = bytes.Between(0, 20) - 10;
    const int withheld = bytes.Flag() ? bytes.Between(2, 9) : 0;
    const auto vertices =
        std::make_shared<Vertices>(TakeVertices(bytes, coordinates), first, withheld);
    const Extent extent = Measure(*vertices);
    SpatialSearchGrid2D grid;
    grid.Initialize(vertices->First(), vertices->Last(), vertices);
    CheckEdges(grid);
    SpatialSearchGrid2D again = grid;
    for (int i = 0; i < MOST_QUERIES; ++i) {
        const Vec2d p = coordinates.Next() + Vec2d(bytes.Below(8), bytes.Below(8)) / 16.0;
        CheckQuery(grid, *vertices, extent, p);
        FUZZ_CHECK(again.Query(p) == grid.Query(p));
    }
    again.Initialize(0, 0, nullptr);
    FUZZ_CHECK(again.Query({0, 0}) == -1);
    again.Initialize(vertices->First(), vertices->Last(), vertices);
    FUZZ_CHECK(SameNumbers(again.ColumnEdges(), grid.ColumnEdges()));
    FUZZ_CHECK(SameNumbers(again.RowEdges(), grid.RowEdges()));
}

} // namespace

} // namespace geom::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    geom::fuzz::ByteSource bytes(data, size);
    geom::fuzz::Check(bytes);
    return 0;
}
