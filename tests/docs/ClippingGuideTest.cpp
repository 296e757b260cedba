// SPDX-License-Identifier: MIT
// The code of docs/clipping.md.
#include <geometry/geom.h>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

TEST(ClippingGuide, SegmentsAndPolylinesToARectangle) {
    const geom::CLineClip window(geom::Box2d(0, 0, 100, 60));

    geom::Vec2d a(-20, 30);
    geom::Vec2d b(50, 30);
    const bool visible = window.ClipLine(a, b); // a is (0, 30) now

    const geom::Vec2d route[] = {{-10, 10}, {30, 10}, {30, 80}, {60, 80}, {60, 20}};
    std::vector<geom::Vec2d> points;
    std::vector<unsigned int> counts;
    window.ClipPolyline(route, 5, points, counts); // two runs, of 3 and of 2 points
    EXPECT_TRUE(visible);
    EXPECT_EQ(a, geom::Vec2d(0, 30));
    EXPECT_EQ(b, geom::Vec2d(50, 30));
    EXPECT_EQ(counts, (std::vector<unsigned int>{3, 2}));
}

TEST(ClippingGuide, RingsToARectangle) {
    geom::CPolyClip window(geom::Box2d(0, 0, 100, 60));
    const geom::Vec2d triangle[] = {{50, -40}, {120, 30}, {-20, 30}};
    geom::CPodVector<geom::Vec2d, 32> clipped;
    window.Clip(triangle, 3, clipped); // appends
    const std::vector<geom::Vec2d> corners(clipped.begin(), clipped.end());
    EXPECT_EQ(corners.size(), 6U);
}

TEST(ClippingGuide, SetOperations) {
    const geom::Vec2d points[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, // a ring
                                  {3, 3}, {7, 3},  {7, 7},   {3, 7}}; // a ring inside: a hole
    const unsigned int counts[] = {4, 4};
    const geom::GpcPolygon frame(points, counts, 2);

    geom::GpcPolygon left = frame; // the operations work in place
    left.Intersection(geom::GpcPolygon(-1.0, 11.0, 5.0, -1.0));

    std::vector<geom::Vec2d> ring;
    left.GetPolygon(ring); // closed: the first point comes again at the end
    ASSERT_EQ(left.GetNumContours(), 1U);
    EXPECT_EQ(std::fabs(geom::PolygonArea(ring.data(), ring.size())), 42.0);
    EXPECT_EQ(ring.size(), 9U);
}

TEST(ClippingGuide, FlatArrays) {
    const geom::GpcPolygon subject(0.0, 10.0, 10.0, 0.0);
    const geom::Vec2d corners[] = {{-2, 5}, {5, -2}, {12, 5}, {5, 12}};
    const geom::GpcPolygon clip(corners, 4);
    std::vector<geom::Vec2d> points;
    std::vector<unsigned int> counts;
    const bool close = true; // repeat each ring's first point
    geom::ClipGPolygonToGPolygon(subject, clip, points, counts, close);
    EXPECT_EQ(counts, std::vector<unsigned int>{9});
}

TEST(ClippingGuide, Strips) {
    const geom::Vec2d corners[] = {{0, 0}, {10, 0}, {5, 8}};
    const geom::GpcPolygon polygon(corners, 3);
    double area = 0;
    polygon.Decompose(
        [](const geom::Vec2d* strip, unsigned int n, void* user) {
            for (unsigned int i = 2; i < n; ++i) { // triangle i - 2 of the strip
                const geom::Triangle triangle(strip[i - 2], strip[i - 1], strip[i]);
                *static_cast<double*>(user) += triangle.Area();
            }
            return true; // false would end the decomposition
        },
        &area);
    EXPECT_NEAR(area, 40.0, 1e-12);
}

TEST(ClippingGuide, EngineRecords) {
    geom::gpc_vertex square[] = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
    geom::gpc_vertex diamond[] = {{4, 0}, {8, 4}, {4, 8}, {0, 4}};
    const geom::gpc_vertex_list rings[] = {{4, square}, {4, diamond}};
    geom::gpc_polygon subject = {};
    geom::gpc_polygon clip = {};
    geom::gpc_add_contour(&subject, &rings[0], 0); // copies
    geom::gpc_add_contour(&clip, &rings[1], 0);

    geom::gpc_polygon result;
    geom::gpc_polygon_clip(geom::GPC_UNION, &subject, &clip, &result);

    geom::gpc_free_polygon(&result);
    geom::gpc_free_polygon(&clip);
    geom::gpc_free_polygon(&subject);
    EXPECT_EQ(result.num_contours, 0);
}

TEST(ClippingGuide, Errors) {
    const geom::GpcPolygon polygon(0.0, 1.0, 1.0, 0.0);
    bool caught = false;
    try {
        polygon.GetContourVertexCount(7); // there is only one contour
    } catch (const geom::GPCException&) {
        // only the set operations: nearly degenerate input
    } catch (const geom::Exception& e) {
        caught = e.Module() == L"Geometry" && e.File() == L"GpcPolygon";
    }
    EXPECT_TRUE(caught);
}

TEST(ClippingGuide, Files) {
    const std::string path = testing::TempDir() + "/clipping_guide.txt";
    const geom::GpcPolygon polygon(0.0, 1.0, 1.0, 0.0);
    {
        geom::CBufferedFile file(path.c_str(), "w");
        polygon.DumpToTextFile(file);
    } // closed here
    geom::CBufferedFile file(path.c_str(), "r");
    geom::GpcPolygon copy;
    copy.LoadFromTextFile(file);
    EXPECT_EQ(copy.GetBBox(), polygon.GetBBox());
}

} // namespace
