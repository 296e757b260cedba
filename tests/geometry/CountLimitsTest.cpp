// SPDX-License-Identifier: MIT
// Counts beyond what the records' 32 bits hold are refused and do not wrap around. The memory that
// they would need is only claimed: refusals come before it is looked at.
#include "geometry/geom.h"
#include "tests/support/Exceptions.h"

#include <boost/numeric/conversion/cast.hpp>
#include <gtest/gtest.h>

#include <climits>
#include <memory>

namespace geom::test {
namespace {

constexpr std::size_t BEYOND_INT = std::size_t{INT_MAX} + 1;
constexpr std::size_t BEYOND_UNSIGNED = std::size_t{UINT_MAX} + 1;

const Vec2d SQUARE[] = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};

TEST(CountLimits, PolygonsOfMoreVerticesOrContoursThanAnInt) {
    ExpectError([] { GpcPolygon(SQUARE, BEYOND_INT); }, L"Geometry", L"GpcPolygon", 903);
    const unsigned int counts[] = {static_cast<unsigned int>(BEYOND_INT)};
    ExpectError([&] { GpcPolygon(SQUARE, counts, 1); }, L"Geometry", L"GpcPolygon", 903);
    ExpectError([&] { GpcPolygon(SQUARE, counts, BEYOND_INT); }, L"Geometry", L"GpcPolygon", 878);
    ExpectError([&] { TriangulatedPolygonArea(SQUARE, BEYOND_INT); }, L"Geometry", L"GpcPolygon",
                903);

    GpcPolygon polygon(SQUARE, 4);
    ExpectError([&] { polygon.AddContours(SQUARE, counts, 1); }, L"GPC Library", L"Gpc", 200);
    ExpectError([&] { polygon.AddContours(SQUARE, counts, INT_MAX); }, L"GPC Library", L"Gpc", 200);
    EXPECT_EQ(polygon.GetTotalVertexCount(), 4U);
}

TEST(CountLimits, RecordsThatAreFull) {
    GpcPolygon polygon(SQUARE, 4);
    const gpc_vertex_list contour = polygon.contour[0];
    polygon.num_contours = INT_MAX;
    ExpectError([&] { gpc_add_contour(&polygon, &contour, 0); }, L"GPC Library", L"Gpc", 200,
                L"GPCAlloc failure: contour hole addition");
    polygon.num_contours = 1;
}

/// Two rings, each of which claims the most vertices.
struct VastPolygon {
    VastPolygon() {
        const unsigned int counts[] = {4, 4};
        const Vec2d points[] = {SQUARE[0], SQUARE[1], SQUARE[2], SQUARE[3],
                                SQUARE[0], SQUARE[1], SQUARE[2], SQUARE[3]};
        polygon = GpcPolygon(points, counts, 2);
        polygon.contour[0].num_vertices = INT_MAX;
        polygon.contour[1].num_vertices = INT_MAX;
    }
    GpcPolygon polygon;
};

TEST(CountLimits, SumsOfCountsDoNotWrap) {
    const VastPolygon vast;
    EXPECT_EQ(vast.polygon.GetTotalVertexCount(), 2 * std::size_t{INT_MAX});
    EXPECT_EQ(vast.polygon.GetPolygon(static_cast<Vec2d*>(nullptr)), 2 * std::size_t{INT_MAX} + 3);
    unsigned int counts[2] = {};
    vast.polygon.GetPolyPolygon(static_cast<Vec2d*>(nullptr), counts, true);
    EXPECT_EQ(counts[0], BEYOND_INT);
}

TEST(CountLimits, PolygonsForLinesHaveNoMoreVerticesThanAnInt) {
    const VastPolygon vast;
    ExpectError([&] { LineClipPolygon{vast.polygon}; }, L"Geometry", L"LineClipPolygon", 105);
    const unsigned int two = 2;
    std::vector<Vec2d> points;
    std::vector<unsigned int> counts;
    ExpectError([&] { ClipPolylinesToPolygon(SQUARE, &two, 1, vast.polygon, points, counts); },
                L"Geometry", L"LineClipPolygon", 105);
}

TEST(CountLimits, RunsDoNotGrowBeyondTheirCounts) {
    const LineClipPolygon polygon{GpcPolygon(-10, 10, 10, -10)};
    std::vector<Vec2d> points = {{0, 0}, {1, 1}};
    std::vector<unsigned int> counts = {UINT_MAX};
    const Vec2d line[] = {{1, 1}, {2, 2}};
    ExpectError([&] { polygon.Clip(line, 2, points, counts); }, L"Geometry", L"LineClipPolygon",
                106);
    EXPECT_EQ(points.size(), 2U);
    EXPECT_EQ(counts, std::vector<unsigned int>{UINT_MAX});
    counts = {UINT_MAX - 1};
    polygon.Clip(line, 2, points, counts);
    EXPECT_EQ(counts, std::vector<unsigned int>{UINT_MAX});

    const CLineClip disabled;
    ExpectError([&] { disabled.ClipPolyline(SQUARE, BEYOND_UNSIGNED, points, counts); },
                L"Geometry", L"CLineClip", 25);
}

TEST(CountLimits, PatternsHaveNoMoreLengthsThanAnInt) {
    const double length = 1;
    ExpectError([&] { DashLineGenerator(&length, BEYOND_INT); }, L"Geometry", L"DashLineGenerator",
                221);
    ExpectError([&] { DashLine3Generator(&length, BEYOND_INT); }, L"Geometry", L"DashLineGenerator",
                419);
    DashLineGenerator generator(&length, 1);
    ExpectError([&] { generator.SetDashes(&length, BEYOND_INT); }, L"Geometry",
                L"DashLineGenerator", 221);
}

TEST(CountLimits, EllipsesOfMoreStepsThanAnInt) {
    Vec2d out;
    EXPECT_THROW(GenerateEllipse(Box2d(0, 0, 1, 1), BEYOND_INT, &out),
                 boost::numeric::positive_overflow);
}

/// A vertex for every index.
class EndlessSource : public SpatialSearchGrid2D::IVertexSource {
public:
    bool GetVertex(int index, Vec2d& out) const override {
        out = Vec2d(index, 0);
        return true;
    }
};

// Counts to the limit, which takes seconds; slow builds leave it out.
TEST(CountLimits, SearchGridsHaveNoMoreVerticesThanAnInt) {
#if defined(NDEBUG) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    SpatialSearchGrid2D grid;
    const auto source = std::make_shared<EndlessSource>();
    ExpectError([&] { grid.Initialize(INT_MIN, INT_MAX, source); }, L"Geometry",
                L"SpatialSearchGrid2D", 224);
    EXPECT_EQ(grid.Query(Vec2d(0, 0)), -1);
#else
    GTEST_SKIP() << "too slow in this build";
#endif
}

} // namespace
} // namespace geom::test
