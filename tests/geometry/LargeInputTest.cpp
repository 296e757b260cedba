// SPDX-License-Identifier: MIT
// Polygons of two million vertices through every service that takes polygons; one of a hundred
// thousand where the tessellator works. Debug and instrumented builds take fewer.
#include "geometry/geom.h"

#include <GL/glu.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <memory>

namespace geom {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(NDEBUG)
constexpr bool IS_FAST_BUILD = false;
#else
constexpr bool IS_FAST_BUILD = true;
#endif
constexpr int VERTICES = IS_FAST_BUILD ? 2'000'000 : 60'000;
constexpr int TESSELLATED = IS_FAST_BUILD ? 100'000 : 5'000;

/// A ring about the origin whose radius rises and falls 500 times, as a coast line would.
std::vector<Vec2d> Coast(int n) {
    std::vector<Vec2d> ring;
    ring.reserve(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
        const double angle = kit::TWO_PI * i / n;
        const double radius = 1000 + 40 * std::sin(500 * angle);
        ring.emplace_back(radius * std::cos(angle), radius * std::sin(angle));
    }
    return ring;
}

/// A convex ring.
std::vector<Vec2d> Circle(int n) {
    std::vector<Vec2d> ring;
    for (int i = 0; i < n; ++i) {
        const double angle = kit::TWO_PI * i / n;
        ring.emplace_back(1000 * std::cos(angle), 1000 * std::sin(angle));
    }
    return ring;
}

double AreaOf(const GpcPolygon& polygon) {
    double area = 0;
    for (int i = 0; i < polygon.num_contours; ++i) {
        const gpc_vertex_list& ring = polygon.contour[i];
        std::vector<Vec2d> points;
        for (int k = 0; k < ring.num_vertices; ++k) {
            points.emplace_back(ring.vertex[k].x, ring.vertex[k].y);
        }
        const double own = std::fabs(PolygonArea(points.data(), points.size()));
        area += polygon.hole[i] != 0 ? -own : own;
    }
    return area;
}

/// Prints how long a piece of work took.
template <typename Work>
void Timed(const char* name, Work work) {
    const std::clock_t start = std::clock();
    work();
    std::printf("  %-45s %7.0f ms\n", name,
                1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
}

class LargeInput : public testing::Test {
protected:
    LargeInput()
        : m_ring(Coast(VERTICES)), m_count(static_cast<unsigned int>(m_ring.size())),
          m_polygon(m_ring.data(), m_ring.size()),
          m_area(PolygonArea(m_ring.data(), m_ring.size())) {
        const Vec2d corners[] = {{1500, 0}, {0, 1500}, {-1300, 0}, {0, -1100}};
        m_diamond = GpcPolygon(corners, 4);
    }

    const std::vector<Vec2d> m_ring;
    const unsigned int m_count;
    const GpcPolygon m_polygon;
    const double m_area;
    GpcPolygon m_diamond;
};

TEST_F(LargeInput, SetOperations) {
    GpcPolygon both;
    GpcPolygon rest;
    Timed("intersection", [&] {
        both = m_polygon;
        both.Intersection(m_diamond);
    });
    Timed("difference", [&] {
        rest = m_polygon;
        rest.Difference(m_diamond);
    });
    EXPECT_NEAR(AreaOf(both) + AreaOf(rest), m_area, 1e-9 * m_area);
    const double diamond = AreaOf(m_diamond);
    Timed("union", [&] {
        GpcPolygon all = m_polygon;
        all.Union(m_diamond);
        EXPECT_NEAR(AreaOf(all), m_area + diamond - AreaOf(both), 1e-9 * m_area);
    });
    Timed("exclusive or", [&] {
        GpcPolygon one = m_polygon;
        one.XOR(m_diamond);
        EXPECT_NEAR(AreaOf(one), m_area + diamond - 2 * AreaOf(both), 1e-9 * m_area);
    });
    Timed("with a polygon as large", [&] {
        std::vector<Vec2d> shifted = m_ring;
        for (Vec2d& p : shifted) {
            p += Vec2d(300.5, 200.25);
        }
        const GpcPolygon other(shifted.data(), shifted.size());
        GpcPolygon common = m_polygon;
        common.Intersection(other);
        GpcPolygon all = m_polygon;
        all.Union(other);
        EXPECT_NEAR(AreaOf(common) + AreaOf(all), 2 * m_area, 1e-9 * m_area);
    });
}

TEST_F(LargeInput, TriangleStrips) {
    Timed("strips", [&] {
        std::size_t strips = 0;
        m_polygon.Decompose(
            [](const Vec2d*, unsigned int, void* n) {
                ++*static_cast<std::size_t*>(n);
                return true;
            },
            &strips);
        EXPECT_GT(strips, 0U);
    });
    Timed("outlines of strips", [&] {
        std::vector<std::vector<Vec2d>> outlines;
        EXPECT_TRUE(m_polygon.Decompose(outlines));
    });
    Timed("strips of an intersection", [&] {
        gpc_tristrip strips{0, nullptr};
        gpc_tristrip_clip(GPC_INT, &m_polygon, &m_diamond, &strips);
        EXPECT_GT(strips.num_strips, 0);
        gpc_free_tristrip(&strips);
    });
    Timed("area by triangles", [&] {
        EXPECT_NEAR(TriangulatedPolygonArea(m_ring.data(), m_ring.size()), m_area, 1e-8 * m_area);
    });
}

TEST_F(LargeInput, PolygonObjects) {
    Timed("a point inside", [&] {
        EXPECT_TRUE(m_polygon.PointInside(Vec2d(1, 2)));
        EXPECT_FALSE(m_polygon.PointInside(Vec2d(1035, 1035)));
    });
    Timed("copies and arrays", [&] {
        GpcPolygon copy(m_polygon);
        copy.AddContours(m_polygon);
        EXPECT_EQ(copy.GetTotalVertexCount(), 2 * m_ring.size());
        std::vector<Vec2d> points;
        EXPECT_EQ(copy.GetPolygon(points), 2 * m_ring.size() + 3);
        std::vector<tagPOINT> integers;
        std::vector<unsigned int> counts;
        EXPECT_EQ(copy.GetPolyPolygon(integers, counts, true), 2 * m_ring.size() + 2);
    });
    Timed("removal of return paths", [&] {
        GpcPolygon copy(m_polygon);
        copy.RemoveZeroWidthReturnPaths();
        EXPECT_NEAR(AreaOf(copy), m_area, 1e-9 * m_area);
    });
    Timed("contains", [&] { EXPECT_FALSE(PolygonContains(m_diamond, m_polygon)); });
}

TEST_F(LargeInput, Files) {
    using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
    const auto roundTrip = [&](auto write, auto read, double tolerance) {
        const Stream stream(std::tmpfile(), std::fclose);
        ASSERT_TRUE(write(stream.get(), 1, &m_polygon));
        std::rewind(stream.get());
        GpcPolygon copy;
        ASSERT_TRUE(read(stream.get(), 1, &copy));
        EXPECT_NEAR(AreaOf(copy), m_area, tolerance);
    };
    Timed("text file", [&] { roundTrip(gpc_write_polygon, gpc_read_polygon, 1e-6); });
    Timed("binary file",
          [&] { roundTrip(gpc_write_polygon_binary, gpc_read_polygon_binary, 1e-6); });
}

TEST_F(LargeInput, RectangleClipping) {
    const Box2d box(-900, -200, 1200, 800);
    std::vector<Vec2d> points;
    std::vector<unsigned int> counts;
    Timed("polygon to rectangle", [&] {
        ClipPolyPolygonToRect(m_ring.data(), &m_count, 1, box, points, counts, false);
        EXPECT_EQ(counts.size(), 1U);
    });
    Timed("outline to rectangle", [&] {
        points.clear();
        counts.clear();
        ClipPolylinesToRect(m_ring.data(), &m_count, 1, box, points, counts);
        EXPECT_GT(counts.size(), 1U);
    });
    Timed("rectangle and polygon",
          [&] { EXPECT_TRUE(RectPolyIntersect(box, m_ring.data(), m_ring.size())); });
}

TEST_F(LargeInput, LinesAndPolygons) {
    std::vector<Vec2d> points;
    std::vector<unsigned int> counts;
    Timed("a line across the polygon", [&] {
        const Vec2d line[] = {{-2000, -900}, {2000, 1000}};
        const unsigned int two = 2;
        ClipPolylinesToPolygon(line, &two, 1, m_polygon, points, counts);
        EXPECT_GE(counts.size(), 1U);
    });
    Timed("the outline to a polygon", [&] {
        ClipPolylinesToPolygon(m_ring.data(), &m_count, 1, m_diamond, points, counts);
        EXPECT_GE(counts.size(), 4U);
    });
    Timed("the outline dashed to a polygon", [&] {
        const double dashes[] = {3, 2};
        DashLineGenerator generator(dashes, 2);
        ClipDashedPolylinesToPolygon(m_ring.data(), &m_count, 1, generator, m_diamond, points,
                                     counts);
    });
    Timed("a prepared polygon", [&] {
        const LineClipPolygon prepared(m_polygon);
        EXPECT_TRUE(prepared.PointInside(Vec2d(1, 2)));
        const LineClipPolygon copy(prepared);
        EXPECT_EQ(copy.GetTotalVertexCount(), prepared.GetTotalVertexCount());
    });
}

TEST_F(LargeInput, Measures) {
    Timed("measures", [&] {
        EXPECT_TRUE(PointInPolygon(Vec2d(1, 2), m_ring.data(), m_ring.size()));
        EXPECT_GT(PolygonPerimeter(m_ring.data(), m_ring.size()), 6000.0);
        EXPECT_GT(PolylineLength(m_ring.data(), m_ring.size()), 6000.0);
        double distance = 0;
        FindClosestSegment(m_ring.data(), m_ring.size(), Vec2d(0, 0), &distance);
        EXPECT_NEAR(std::sqrt(distance), 960, 1);
        std::size_t index = 0;
        Vec2d position = m_ring[0];
        EXPECT_TRUE(AdvanceAlongPolyline(m_ring.data(), m_ring.size(), true, 1e6, index, position));
    });
    Timed("thinning", [&] {
        std::vector<Vec2d> thin;
        ThinByAngularDeviation(m_ring.data(), m_ring.size(), 0.01, thin);
        ThinToMinimalDetail(m_ring.data(), m_ring.size(), thin);
        EXPECT_LT(thin.size(), 2 * m_ring.size());
    });
    Timed("clean-up of rings", [&] {
        Polygon2Data data{m_ring, {m_count}};
        Polygon2 polygon;
        polygon.Take(data);
        polygon.RemoveDuplicatePoints();
        polygon.Reverse();
        EXPECT_EQ(polygon.RingOrientation(0), Polygon2::Clockwise);
        EXPECT_EQ(PolygonArea(polygon) < 0, true);
        polygon.RemoveDegenerateRings(3);
        EXPECT_EQ(polygon.Counts().size(), 1U);
    });
}

class RingSource : public SpatialSearchGrid2D::IVertexSource {
public:
    explicit RingSource(const std::vector<Vec2d>& ring) : m_ring(ring) {}
    bool GetVertex(int index, Vec2d& out) const override {
        out = m_ring[static_cast<std::size_t>(index)];
        return true;
    }

private:
    const std::vector<Vec2d>& m_ring;
};

TEST_F(LargeInput, Search) {
    Timed("search grid", [&] {
        SpatialSearchGrid2D grid;
        grid.Initialize(0, static_cast<int>(m_count), std::make_shared<RingSource>(m_ring));
        EXPECT_EQ(grid.Query(m_ring[12345]), 12345);
    });
}

TEST(LargeTessellation, CircleIsCleanedAndOffset) {
    Polygon2 circle;
    circle.Points() = Circle(TESSELLATED);
    circle.Counts() = {static_cast<unsigned int>(TESSELLATED)};
    const double area = PolygonArea(circle);
    Polygon2 out;
    Timed("removal of self-intersections", [&] {
        RemoveSelfIntersections(circle, out, GLU_TESS_WINDING_POSITIVE, RSI_NORMAL_POSITIVE_Z);
        EXPECT_NEAR(PolygonArea(out), area, 1e-5 * area);
    });
    Timed("offset outwards", [&] {
        OffsetPolygon(circle, 10, out);
        EXPECT_NEAR(PolygonArea(out), kit::PI * 1010 * 1010, 1e-4 * area);
    });
}

} // namespace
} // namespace geom
