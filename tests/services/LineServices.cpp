// SPDX-License-Identifier: MIT
// Polylines: dashed in the plane and in space, measured, walked along, thinned and searched.
#include "geometry/DashLineGenerator.h"
#include "geometry/Geometry.h"
#include "geometry/Polyline.h"
#include "geometry/SpatialSearchGrid2D.h"
#include "geometry/Thinning.h"
#include "tests/services/Services.h"
#include "tests/services/Workload.h"

#include <memory>

namespace geom::test {

namespace {

std::vector<double> SomePattern(Random& random) {
    std::vector<double> lengths;
    for (int n = random.Between(1, 6); n > 0; --n) {
        lengths.push_back(random.Between(0.05, 1.5));
    }
    return lengths;
}

void Dashes(int rounds, Digest& results) {
    Random random(401);
    for (int round = 0; round < rounds; ++round) {
        const std::vector<double> lengths = SomePattern(random);
        DashLineGenerator dashes(lengths.data(), lengths.size());
        Vec2d start(0.0, 0.0);
        for (int joined = 0; joined < 3; ++joined) {
            const std::vector<Vec2d> line = Walk(random, 100, start);
            std::vector<LineSegment2> pieces;
            dashes.Decompose(line.data(), line.size(), pieces);
            results.Add(pieces);
            start = line.back();
        }
    }
}

void DashesInSpace(int rounds, Digest& results) {
    Random random(402);
    for (int round = 0; round < rounds; ++round) {
        const std::vector<double> lengths = SomePattern(random);
        DashLine3Generator dashes(lengths.data(), lengths.size());
        std::vector<Vec3d> line;
        while (line.size() < 100) {
            line.push_back(SomePoint3(random, -3.0, 3.0));
        }
        std::vector<LineSegment3> pieces;
        dashes.Decompose(line.data(), line.size(), pieces);
        results.Add(pieces);
    }
}

void Distances(int rounds, Digest& results) {
    Random random(403);
    for (int round = 0; round < rounds; ++round) {
        const std::vector<Vec2d> line = Walk(random, 200, {0.0, 0.0});
        results.Add(PolylineLength(line.data(), line.size()));
        for (int i = 0; i < 20; ++i) {
            Vec2d p = SomePoint(random, -10.0, 10.0);
            double distance = 0.0;
            results.Add(FindClosestSegment(line.data(), line.size(), p, &distance));
            results.Add(distance);
            Vec2d a = SomePoint(random, -10.0, 10.0);
            Vec2d b = SomePoint(random, -10.0, 10.0);
            results.Add(PointLineSegDistSq(p, a, b));
            results.Add(ConstrainLineSegmentOrientation(a, b));
            results.Add(SegmentsIntersect(a, b, p, {0.0, 0.0}));
            GetNormalIntersection(p, a, b, p);
            results.Add(p);
            const Vec3d p3 = SomePoint3(random, -10.0, 10.0);
            const Vec3d a3 = SomePoint3(random, -10.0, 10.0);
            const Vec3d b3 = SomePoint3(random, -10.0, 10.0);
            results.Add(PointLineSegDistSq(p3, a3, b3));
        }
    }
}

void DeviceDistances(int rounds, Digest& results) {
    Random random(404);
    for (int round = 0; round < rounds; ++round) {
        std::vector<tagPOINT> line;
        while (line.size() < 100) {
            line.push_back(SomeDevicePoint(random, 20000));
        }
        for (int i = 0; i < 20; ++i) {
            const tagPOINT p = SomeDevicePoint(random, 20000);
            double distance = 0.0;
            results.Add(FindClosestSegment(line.data(), line.size(), p, &distance));
            results.Add(distance);
            tagPOINT foot = {0, 0};
            GetNormalIntersection(p, line[0], line[1], foot);
            results.Add(foot);
        }
    }
}

void Walking(int rounds, Digest& results) {
    Random random(405);
    for (int round = 0; round < rounds; ++round) {
        const std::vector<Vec2d> line = Walk(random, 100, {0.0, 0.0});
        for (int i = 0; i < 20; ++i) {
            std::size_t index = static_cast<std::size_t>(random.Below(99));
            Vec2d position = line[index];
            const bool closed = random.OneIn(2);
            const double distance = random.Between(0.0, 150.0);
            results.Add(
                AdvanceAlongPolyline(line.data(), line.size(), closed, distance, index, position));
            results.Add(index);
            results.Add(position);
        }
    }
}

void ThinningToDetail(int rounds, Digest& results) {
    Random random(406);
    for (int round = 0; round < rounds; ++round) {
        const std::vector<Vec2d> line = Walk(random, 500, {0.0, 0.0});
        std::vector<Vec2d> thinned;
        ThinToMinimalDetail(line.data(), line.size(), thinned);
        results.Add(thinned);
    }
}

void ThinningByAngle(int rounds, Digest& results) {
    Random random(407);
    for (int round = 0; round < rounds; ++round) {
        const std::vector<Vec2d> line = Walk(random, 500, {0.0, 0.0});
        std::vector<Vec2d> thinned;
        ThinByAngularDeviation(line.data(), line.size(), random.Between(0.1, 1.0), thinned);
        results.Add(thinned);
    }
}

class VertexArray : public SpatialSearchGrid2D::IVertexSource {
public:
    explicit VertexArray(std::vector<Vec2d> points) : m_points(std::move(points)) {}
    bool GetVertex(int index, Vec2d& out) const override {
        out = m_points[static_cast<std::size_t>(index)];
        return index % 7 != 0;
    }

private:
    std::vector<Vec2d> m_points;
};

void Searching(int rounds, Digest& results) {
    Random random(408);
    for (int round = 0; round < rounds; ++round) {
        constexpr int COUNT = 2000;
        SpatialSearchGrid2D grid;
        grid.Initialize(0, COUNT,
                        std::make_shared<VertexArray>(SomePoints(random, COUNT, -50.0, 50.0)));
        for (int i = 0; i < 500; ++i) {
            results.Add(grid.Query(SomePoint(random, -70.0, 70.0)));
        }
        results.Add(grid.ColumnEdges());
        results.Add(grid.RowEdges());
    }
}

} // namespace

void AddLineServices(std::vector<Service>& services) {
    services.push_back({"dashes", Means::Arithmetic, Dashes});
    services.push_back({"dashes in space", Means::Arithmetic, DashesInSpace});
    services.push_back({"distances", Means::Arithmetic, Distances});
    services.push_back({"device distances", Means::Arithmetic, DeviceDistances});
    services.push_back({"walks along lines", Means::Arithmetic, Walking});
    services.push_back({"thinning to detail", Means::Arithmetic, ThinningToDetail});
    services.push_back({"thinning by angle", Means::Platform, ThinningByAngle});
    services.push_back({"nearest vertices", Means::Arithmetic, Searching});
}

} // namespace geom::test
