// SPDX-License-Identifier: MIT
#include "geometry/geom.h"
#include "tests/support/Exceptions.h"
#include "tests/support/FailEachAllocation.h"
#include "tests/support/PolygonText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

namespace geom {
namespace {

using test::ExpectError;
using test::FailEachAllocation;
using test::PointsOf;
using test::PolygonOf;
using test::Text;
using testing::ElementsAre;

constexpr double LARGEST = std::numeric_limits<double>::max();
constexpr double INF = std::numeric_limits<double>::infinity();
const double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

constexpr const char* NO_HOLES = "Geometry, GpcPolygon 878: Out of memory";
constexpr const char* NO_CONTOURS = "Geometry, GpcPolygon 885: Out of memory";
constexpr const char* NO_VERTICES = "Geometry, GpcPolygon 903: Out of memory";

static_assert(std::is_base_of_v<gpc_polygon, GpcPolygon>);
static_assert(sizeof(GpcPolygon) == sizeof(gpc_polygon) + sizeof(Box2d));
static_assert(std::is_nothrow_move_constructible_v<GpcPolygon>);
static_assert(std::is_nothrow_move_assignable_v<GpcPolygon>);

void ExpectEmpty(const GpcPolygon& polygon) {
    EXPECT_EQ(polygon.num_contours, 0);
    EXPECT_EQ(polygon.hole, nullptr);
    EXPECT_EQ(polygon.contour, nullptr);
    EXPECT_EQ(polygon.GetBBox(), Box2d());
}

TEST(GpcPolygon, DefaultIsEmpty) {
    const GpcPolygon polygon;
    ExpectEmpty(polygon);
    EXPECT_EQ(polygon.GetNumContours(), 0u);
    EXPECT_EQ(polygon.GetTotalVertexCount(), 0u);
    EXPECT_EQ(polygon.GetBBox(), Box2d(LARGEST, LARGEST, -LARGEST, -LARGEST));
}

// Construction from points, for both point types.

template <typename Point>
class GpcPolygonFromPoints : public testing::Test {};

using PointTypes = testing::Types<Vec2d, tagPOINT>;
TYPED_TEST_SUITE(GpcPolygonFromPoints, PointTypes, );

TYPED_TEST(GpcPolygonFromPoints, RingBecomesExternalContour) {
    const TypeParam pts[] = {{1, 2}, {5, 2}, {3, 7}};
    const GpcPolygon polygon(pts, 3);
    EXPECT_EQ(Text(polygon), "1 2, 5 2, 3 7");
    EXPECT_EQ(polygon.hole[0], 0);
    EXPECT_EQ(polygon.GetBBox(), Box2d(1, 2, 5, 7));
    EXPECT_EQ(polygon.GetContourVertexCount(0), 3u);
}

TYPED_TEST(GpcPolygonFromPoints, LastPointThatRepeatsTheFirstIsLeftOut) {
    const TypeParam pts[] = {{1, 2}, {5, 2}, {3, 7}, {1, 2}};
    EXPECT_EQ(Text(GpcPolygon(pts, 4)), "1 2, 5 2, 3 7");
}

TYPED_TEST(GpcPolygonFromPoints, OnlyOneClosingDuplicateIsLeftOut) {
    const TypeParam pts[] = {{1, 2}, {5, 2}, {1, 2}, {1, 2}};
    EXPECT_EQ(Text(GpcPolygon(pts, 4)), "1 2, 5 2, 1 2");
}

TYPED_TEST(GpcPolygonFromPoints, LastPointThatSharesOneCoordinateStays) {
    const TypeParam pts[] = {{1, 2}, {5, 2}, {1, 7}};
    EXPECT_EQ(Text(GpcPolygon(pts, 3)), "1 2, 5 2, 1 7");
    const TypeParam level[] = {{1, 2}, {5, 7}, {3, 2}};
    EXPECT_EQ(Text(GpcPolygon(level, 3)), "1 2, 5 7, 3 2");
}

TYPED_TEST(GpcPolygonFromPoints, RingOfOnePointIsItsOwnClosingDuplicate) {
    const TypeParam pts[] = {{1, 2}};
    const GpcPolygon polygon(pts, 1);
    ASSERT_EQ(polygon.GetNumContours(), 1u);
    EXPECT_EQ(polygon.GetContourVertexCount(0), 0u);
    EXPECT_EQ(polygon.contour[0].vertex, nullptr);
    EXPECT_EQ(polygon.GetBBox(), Box2d());
}

TYPED_TEST(GpcPolygonFromPoints, RingOfNoPointsBecomesAnEmptyContour) {
    const GpcPolygon polygon(static_cast<const TypeParam*>(nullptr), 0);
    ASSERT_EQ(polygon.GetNumContours(), 1u);
    EXPECT_EQ(polygon.GetContourVertexCount(0), 0u);
    EXPECT_EQ(polygon.GetBBox(), Box2d());
}

TYPED_TEST(GpcPolygonFromPoints, EachContourTakesTheNextPoints) {
    const TypeParam pts[] = {{0, 0}, {4, 0}, {0, 4}, {9, 9}, {5, 5}, {8, 5}, {5, 8}, {5, 5}};
    const unsigned int counts[] = {3, 0, 1, 4};
    const GpcPolygon polygon(pts, counts, 4);
    EXPECT_EQ(Text(polygon), "0 0, 4 0, 0 4 | - | - | 5 5, 8 5, 5 8");
    EXPECT_EQ(polygon.GetTotalVertexCount(), 6u);
    EXPECT_EQ(polygon.GetBBox(), Box2d(0, 0, 8, 8)) << "the lone point counts for nothing";
}

TYPED_TEST(GpcPolygonFromPoints, NoContoursGiveTheEmptyPolygon) {
    ExpectEmpty(GpcPolygon(static_cast<const TypeParam*>(nullptr), nullptr, 0));
}

TYPED_TEST(GpcPolygonFromPoints, NullPointsAreAnInternalError) {
    const TypeParam* none = nullptr;
    ExpectError([&] { GpcPolygon(none, 3); }, "Geometry", "GpcPolygon", 131, "Internal error");
    const unsigned int counts[] = {0, 3};
    ExpectError([&] { GpcPolygon(none, counts, 2); }, "Geometry", "GpcPolygon", 131);
}

TYPED_TEST(GpcPolygonFromPoints, NullCountsAreAnInternalError) {
    const TypeParam pts[] = {{1, 2}};
    ExpectError([&] { GpcPolygon(pts, nullptr, 1); }, "Geometry", "GpcPolygon", 132,
                "Internal error");
}

TYPED_TEST(GpcPolygonFromPoints, MoreContoursThanTheRecordCanCountAreOutOfMemory) {
    const TypeParam pts[] = {{1, 2}};
    const unsigned int counts[] = {1};
    for (const std::size_t n : {std::size_t{1} << 31, std::size_t{1} << 33, SIZE_MAX}) {
        ExpectError([&] { GpcPolygon(pts, counts, n); }, "Geometry", "GpcPolygon", 878,
                    "Out of memory");
    }
}

TYPED_TEST(GpcPolygonFromPoints, MorePointsThanTheRecordCanCountAreOutOfMemory) {
    const TypeParam pts[] = {{1, 2}};
    ExpectError([&] { GpcPolygon(pts, SIZE_MAX); }, "Geometry", "GpcPolygon", 903, "Out of memory");
    const unsigned int counts[] = {1, 0x80000000u};
    ExpectError([&] { GpcPolygon(pts, counts, 2); }, "Geometry", "GpcPolygon", 903,
                "Out of memory");
}

TYPED_TEST(GpcPolygonFromPoints, ExhaustedHeapIsReportedWhereItHappens) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    const TypeParam pts[] = {{0, 0}, {4, 0}, {0, 4}, {5, 5}, {8, 5}, {5, 8}};
    const unsigned int counts[] = {3, 3};
    EXPECT_THAT(FailEachAllocation([&] { GpcPolygon(pts, 3); }),
                ElementsAre(NO_HOLES, NO_CONTOURS, NO_VERTICES));
    EXPECT_THAT(FailEachAllocation([&] { GpcPolygon(pts, counts, 2); }),
                ElementsAre(NO_HOLES, NO_CONTOURS, NO_VERTICES, NO_VERTICES));
}

TEST(GpcPolygon, IntegerPointsAreConvertedExactly) {
    constexpr std::int32_t LOW = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t HIGH = std::numeric_limits<std::int32_t>::max();
    const tagPOINT pts[] = {{LOW, LOW}, {HIGH, LOW}, {HIGH, HIGH}};
    const GpcPolygon polygon(pts, 3);
    EXPECT_EQ(polygon.GetBBox(), Box2d(-2147483648.0, -2147483648.0, 2147483647.0, 2147483647.0));
}

TEST(GpcPolygon, ClosingDuplicateIsDecidedExactly) {
    const Vec2d nearly[] = {{1, 2}, {5, 2}, {3, 7}, {std::nextafter(1.0, 2.0), 2}};
    EXPECT_EQ(GpcPolygon(nearly, 4).GetTotalVertexCount(), 4u);
    const Vec2d zeros[] = {{0.0, 0.0}, {5, 0}, {0, 5}, {-0.0, -0.0}};
    EXPECT_EQ(GpcPolygon(zeros, 4).GetTotalVertexCount(), 3u) << "zeros are equal";
    const Vec2d unordered[] = {{NOT_A_NUMBER, 2}, {5, 2}, {3, 7}, {NOT_A_NUMBER, 2}};
    EXPECT_EQ(GpcPolygon(unordered, 4).GetTotalVertexCount(), 4u);
}

TEST(GpcPolygon, NotANumberDoesNotReachTheBox) {
    const Vec2d pts[] = {{NOT_A_NUMBER, 1}, {2, NOT_A_NUMBER}, {3, 4}};
    EXPECT_EQ(GpcPolygon(pts, 3).GetBBox(), Box2d(2, 1, 3, 4));
}

// Rectangles.

TEST(GpcPolygon, RectangleStartsAtItsTopLeft) {
    const GpcPolygon polygon(1.0, 6.0, 4.0, 2.0);
    EXPECT_EQ(Text(polygon), "1 6, 4 6, 4 2, 1 2");
    EXPECT_EQ(polygon.GetBBox(), Box2d(1, 2, 4, 6));
}

TEST(GpcPolygon, ZeroAreaRectangleIsEmpty) {
    ExpectEmpty(GpcPolygon(0.0, 0.0, 5.0, 0.0));
    ExpectEmpty(GpcPolygon(2.0, 0.0, 2.0, 5.0));
    ExpectEmpty(GpcPolygon(2.0, 3.0, 2.0, 3.0));
    ExpectEmpty(GpcPolygon(0.0, 0.0, 1e-200, 1e-200)); // whose area as computed is zero
}

TEST(GpcPolygon, RectangleWithAreaHasFourVertices) {
    const GpcPolygon polygon(0.0, 0.0, 5.0, 5.0);
    ASSERT_EQ(polygon.GetNumContours(), 1u);
    EXPECT_EQ(polygon.GetContourVertexCount(0), 4u);
}

TEST(GpcPolygon, RectangleThatIsNotFiniteIsKept) {
    EXPECT_EQ(GpcPolygon(-INF, 1.0, INF, 0.0).GetTotalVertexCount(), 4u);
    // What is not a number is not in the box, which here has no width.
    ExpectEmpty(GpcPolygon(NOT_A_NUMBER, 1.0, 2.0, 0.0));
}

TEST(GpcPolygon, IntegerRectangleStartsAtItsTopLeft) {
    const GpcPolygon polygon(tagRECT{1, 2, 4, 6});
    EXPECT_EQ(Text(polygon), "1 2, 4 2, 4 6, 1 6");
    EXPECT_EQ(polygon.GetBBox(), Box2d(1, 2, 4, 6));
}

TEST(GpcPolygon, IntegerRectangleWithoutAreaIsKept) {
    EXPECT_EQ(Text(GpcPolygon(tagRECT{1, 2, 1, 6})), "1 2, 1 2, 1 6, 1 6");
    EXPECT_EQ(Text(GpcPolygon(tagRECT{1, 2, 4, 2})), "1 2, 4 2, 4 2")
        << "the last corner closes the ring";
}

// Copying and moving.

TEST(GpcPolygon, CopyIsDeepAndKeepsHoleFlags) {
    GpcPolygon original = PolygonOf("0 0, 9 0, 9 9, 0 9 | hole 1 1, 2 1, 2 2 | -");
    original.hole[1] = 7;
    const GpcPolygon copy(original);
    original.contour[0].vertex[0] = {-1, -1};
    EXPECT_EQ(Text(copy), "0 0, 9 0, 9 9, 0 9 | hole 1 1, 2 1, 2 2 | -");
    EXPECT_EQ(copy.hole[1], 7);
    EXPECT_EQ(copy.GetBBox(), Box2d(0, 0, 9, 9));
}

TEST(GpcPolygon, CopyKeepsClosingDuplicates) {
    const GpcPolygon copy(PolygonOf("0 0, 9 0, 9 9, 0 0"));
    EXPECT_EQ(Text(copy), "0 0, 9 0, 9 9, 0 0");
}

TEST(GpcPolygon, AssignmentReplaces) {
    GpcPolygon polygon = PolygonOf("0 0, 1 0, 0 1 | 5 5, 6 5, 5 6");
    const GpcPolygon other = PolygonOf("hole 2 2, 4 2, 2 4");
    polygon = other;
    EXPECT_EQ(Text(polygon), "hole 2 2, 4 2, 2 4");
    EXPECT_EQ(polygon.GetBBox(), Box2d(2, 2, 4, 4));
    EXPECT_EQ(Text(other), "hole 2 2, 4 2, 2 4");
    polygon = GpcPolygon();
    ExpectEmpty(polygon);
}

TEST(GpcPolygon, AssignmentToItselfChangesNothing) {
    GpcPolygon polygon = PolygonOf("0 0, 1 0, 0 1");
    const gpc_vertex* vertices = polygon.contour[0].vertex;
    const GpcPolygon& same = polygon;
    polygon = same;
    EXPECT_EQ(polygon.contour[0].vertex, vertices);
    polygon = std::move(const_cast<GpcPolygon&>(same));
    EXPECT_EQ(Text(polygon), "0 0, 1 0, 0 1");
}

TEST(GpcPolygon, MovedFromIsEmpty) {
    GpcPolygon source = PolygonOf("0 0, 1 0, 0 1");
    const gpc_vertex_list* contours = source.contour;
    GpcPolygon constructed(std::move(source));
    EXPECT_EQ(constructed.contour, contours);
    EXPECT_EQ(constructed.GetBBox(), Box2d(0, 0, 1, 1));
    ExpectEmpty(source);
    GpcPolygon assigned = PolygonOf("5 5, 6 5, 5 6");
    assigned = std::move(constructed);
    EXPECT_EQ(Text(assigned), "0 0, 1 0, 0 1");
    EXPECT_EQ(assigned.GetBBox(), Box2d(0, 0, 1, 1));
    ExpectEmpty(constructed);
}

TEST(GpcPolygon, CopyWithExhaustedHeapIsReportedWhereItHappens) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    const GpcPolygon original = PolygonOf("0 0, 9 0, 0 9 | hole 1 1, 2 1, 1 2");
    EXPECT_THAT(FailEachAllocation([&] { GpcPolygon copy(original); }),
                ElementsAre(NO_HOLES, NO_CONTOURS, NO_VERTICES, NO_VERTICES));
}

TEST(GpcPolygon, FailedAssignmentLeavesItEmptyAndUsable) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    const GpcPolygon original = PolygonOf("0 0, 9 0, 0 9 | hole 1 1, 2 1, 1 2");
    for (std::size_t failAt = 0; failAt < 4; ++failAt) {
        GpcPolygon polygon = PolygonOf("5 5, 6 5, 5 6");
        {
            test::AllocationProbe probe(failAt);
            EXPECT_THROW(polygon = original, Exception);
            EXPECT_TRUE(probe.Failed());
        }
        ExpectEmpty(polygon);
        polygon = original;
        EXPECT_EQ(Text(polygon), Text(original));
    }
}

// Queries.

TEST(GpcPolygon, ContourIndexOutOfRangeIsAnInternalError) {
    const GpcPolygon polygon(0.0, 0.0, 5.0, 5.0);
    for (const std::size_t i : {std::size_t{1}, std::size_t{2}, SIZE_MAX}) {
        ExpectError([&] { polygon.GetContourVertexCount(i); }, "Geometry", "GpcPolygon", 122,
                    "Internal error");
    }
    ExpectError([] { GpcPolygon().GetContourVertexCount(0); }, "Geometry", "GpcPolygon", 122);
}

TEST(GpcPolygon, NegativeContourCountCountsAsNone) {
    GpcPolygon polygon;
    polygon.num_contours = -3;
    EXPECT_EQ(polygon.GetNumContours(), 0u);
    EXPECT_EQ(polygon.GetTotalVertexCount(), 0u);
    EXPECT_FALSE(polygon.IsRectangle(nullptr));
    EXPECT_EQ(polygon.GetPolygon(static_cast<Vec2d*>(nullptr)), 0u);
    ExpectEmpty(GpcPolygon(polygon));
    polygon.AddContours(GpcPolygon(0.0, 0.0, 1.0, 1.0));
    EXPECT_EQ(polygon.GetNumContours(), 1u);
}

TEST(GpcPolygon, SquareIsARectangle) {
    Box2d box;
    EXPECT_TRUE(GpcPolygon(1.0, 6.0, 4.0, 2.0).IsRectangle(&box));
    EXPECT_EQ(box, Box2d(1, 2, 4, 6));
    EXPECT_TRUE(GpcPolygon(1.0, 6.0, 4.0, 2.0).IsRectangle(nullptr));
}

TEST(GpcPolygon, BoxOfATopDownRectangleIsNotNormalised) {
    Box2d box;
    EXPECT_TRUE(GpcPolygon(1.0, 2.0, 4.0, 6.0).IsRectangle(&box));
    EXPECT_EQ(box, Box2d(1, 6, 4, 2));
}

TEST(GpcPolygon, RectangleWithAVerticalFirstEdgeIsNotRecognised) {
    Box2d box(1, 2, 3, 4);
    EXPECT_FALSE(PolygonOf("0 0, 0 5, 5 5, 5 0").IsRectangle(&box));
    EXPECT_EQ(box, Box2d(1, 2, 3, 4)) << "untouched";
}

TEST(GpcPolygon, RectangleOfAHoleIsRecognised) {
    EXPECT_TRUE(PolygonOf("hole 0 0, 5 0, 5 5, 0 5").IsRectangle(nullptr));
}

TEST(GpcPolygon, OtherShapesAreNoRectangles) {
    EXPECT_FALSE(GpcPolygon().IsRectangle(nullptr));
    for (const char* shape :
         {"0 0, 5 0, 5 5", "0 0, 5 0, 5 5, 3 5, 0 5", "0 0, 5 1e-300, 5 5, 0 5",
          "0 0, 5 0, 5 5, 0 6", "0 0, 5 0, 6 5, 0 5", "0 0, 5 0, 5 5, 1 5",
          "0 0, 5 0, 5 5, 0 5 | 7 7, 8 7, 8 8, 7 8", "0 0, 5 0, 5 5, 0 5 | -", "-"}) {
        EXPECT_FALSE(PolygonOf(shape).IsRectangle(nullptr)) << shape;
    }
}

// Appending contours.

TEST(GpcPolygon, AddedContoursKeepTheirHoleFlags) {
    GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9");
    const GpcPolygon other = PolygonOf("hole 1 1, 2 1, 1 2 | - | 10 -3, 12 0, 10 2");
    polygon.AddContours(other);
    EXPECT_EQ(Text(polygon), "0 0, 9 0, 0 9 | hole 1 1, 2 1, 1 2 | - | 10 -3, 12 0, 10 2");
    EXPECT_EQ(polygon.GetBBox(), Box2d(0, -3, 12, 9));
    EXPECT_EQ(other.GetNumContours(), 3u);
}

TEST(GpcPolygon, AddingItselfDoublesItsContours) {
    GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9 | hole 1 1, 2 1, 1 2");
    polygon.AddContours(polygon);
    EXPECT_EQ(Text(polygon),
              "0 0, 9 0, 0 9 | hole 1 1, 2 1, 1 2 | 0 0, 9 0, 0 9 | hole 1 1, 2 1, 1 2");
    EXPECT_NE(polygon.contour[0].vertex, polygon.contour[2].vertex);
}

TEST(GpcPolygon, AddingNothingChangesNothing) {
    GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9");
    const gpc_vertex_list* contours = polygon.contour;
    polygon.AddContours(GpcPolygon());
    polygon.AddContours(nullptr, nullptr, 0);
    EXPECT_EQ(polygon.contour, contours);
    EXPECT_EQ(polygon.GetBBox(), Box2d(0, 0, 9, 9));
    GpcPolygon empty;
    empty.AddContours(GpcPolygon());
    ExpectEmpty(empty);
}

TEST(GpcPolygon, AddedPointsBecomeExternalContoursWithoutClosingDuplicates) {
    GpcPolygon polygon = PolygonOf("hole 0 0, 9 0, 0 9");
    const std::vector<Vec2d> pts = PointsOf("1 1, 2 1, 1 2, 1 1, 20 20, 3 3, 4 3");
    const unsigned int counts[] = {4, 1, 0, 2};
    polygon.AddContours(pts.data(), counts, 4);
    EXPECT_EQ(Text(polygon), "hole 0 0, 9 0, 0 9 | 1 1, 2 1, 1 2 | - | - | 3 3, 4 3");
    EXPECT_EQ(polygon.GetBBox(), Box2d(0, 0, 9, 9));
}

TEST(GpcPolygon, AddingPointsRecomputesTheBoxFromAllVertices) {
    GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9");
    polygon.contour[0].vertex[1] = {4, 0};
    const Vec2d pts[] = {{1, 1}, {2, 1}, {1, 2}};
    const unsigned int counts[] = {3};
    polygon.AddContours(pts, counts, 1);
    EXPECT_EQ(polygon.GetBBox(), Box2d(0, 0, 4, 9));
}

TEST(GpcPolygon, AddingNullPointsOrCountsIsAnInternalError) {
    GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9");
    const Vec2d pts[] = {{1, 1}};
    const unsigned int counts[] = {0, 1};
    ExpectError([&] { polygon.AddContours(pts, nullptr, 1); }, "Geometry", "GpcPolygon", 132);
    ExpectError([&] { polygon.AddContours(nullptr, counts, 2); }, "Geometry", "GpcPolygon", 131);
    EXPECT_EQ(Text(polygon), "0 0, 9 0, 0 9");
}

constexpr const char* NO_HOLE_ADDITION =
    "GPC Library, Gpc 200: GPCAlloc failure: contour hole addition";
constexpr const char* NO_CONTOUR_ADDITION =
    "GPC Library, Gpc 200: GPCAlloc failure: contour addition";

TEST(GpcPolygon, AddingCountsOutOfRangeFailsAsAnAllocation) {
    GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9");
    const Vec2d pts[] = {{1, 1}};
    const unsigned int counts[] = {1, 0xFFFFFFFFu};
    ExpectError([&] { polygon.AddContours(pts, counts, 2); }, "GPC Library", "Gpc", 200,
                "GPCAlloc failure: contour addition");
    ExpectError([&] { polygon.AddContours(pts, counts, SIZE_MAX); }, "GPC Library", "Gpc", 200,
                "GPCAlloc failure: contour hole addition");
    GpcPolygon other = PolygonOf("1 1, 2 1, 1 2 | 3 3, 4 3, 3 4");
    other.contour[1].num_vertices = -1;
    ExpectError([&] { polygon.AddContours(other); }, "GPC Library", "Gpc", 200,
                "GPCAlloc failure: contour addition");
    EXPECT_EQ(Text(polygon), "0 0, 9 0, 0 9");
    EXPECT_EQ(polygon.GetBBox(), Box2d(0, 0, 9, 9));
}

TEST(GpcPolygon, AddingWithExhaustedHeapChangesNothing) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    const GpcPolygon other = PolygonOf("1 1, 2 1, 1 2 | hole 3 3, 4 3, 3 4");
    const Vec2d pts[] = {{1, 1}, {2, 1}, {1, 2}, {3, 3}, {4, 3}};
    const unsigned int counts[] = {3, 2};
    for (std::size_t failAt = 0; failAt < 4; ++failAt) {
        GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9");
        const auto addPolygon = [&] { polygon.AddContours(other); };
        const auto addPoints = [&] { polygon.AddContours(pts, counts, 2); };
        const auto expectUnchanged = [&](auto add) {
            {
                test::AllocationProbe probe(failAt);
                EXPECT_THROW(add(), Exception);
                EXPECT_EQ(probe.Balance(), 0);
            }
            EXPECT_EQ(Text(polygon), "0 0, 9 0, 0 9");
            EXPECT_EQ(polygon.GetBBox(), Box2d(0, 0, 9, 9));
        };
        expectUnchanged(addPolygon);
        expectUnchanged(addPoints);
    }
    EXPECT_THAT(FailEachAllocation([&] { GpcPolygon().AddContours(other); }),
                ElementsAre(NO_HOLE_ADDITION, NO_CONTOUR_ADDITION, NO_CONTOUR_ADDITION,
                            NO_CONTOUR_ADDITION));
    EXPECT_THAT(FailEachAllocation([&] { GpcPolygon().AddContours(pts, counts, 2); }),
                ElementsAre(NO_HOLE_ADDITION, NO_CONTOUR_ADDITION, NO_CONTOUR_ADDITION,
                            NO_CONTOUR_ADDITION));
}

TEST(GpcPolygon, ManyContoursCostOneBlockEach) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    constexpr std::size_t CONTOURS = 20000;
    const std::vector<Vec2d> pts(3 * CONTOURS, Vec2d(1, 2));
    const std::vector<unsigned int> counts(CONTOURS, 3);
    test::AllocationProbe probe;
    const GpcPolygon constructed(pts.data(), counts.data(), CONTOURS);
    EXPECT_EQ(probe.Count(), CONTOURS + 2);
    GpcPolygon appended;
    appended.AddContours(pts.data(), counts.data(), CONTOURS);
    EXPECT_EQ(probe.Count(), 2 * CONTOURS + 4);
    appended.AddContours(constructed);
    EXPECT_EQ(probe.Count(), 3 * CONTOURS + 6);
}

// Private members that no public call reaches with a bad argument.

template <auto member>
struct UnallocatedContour {
    friend void CallHandleUnallocatedContour(GpcPolygon& polygon, int i) { (polygon.*member)(i); }
};
void CallHandleUnallocatedContour(GpcPolygon& polygon, int i);
template struct UnallocatedContour<&GpcPolygon::HandleUnallocatedContour>;

TEST(GpcPolygon, UnallocatedContourOutOfRangeIsAnInternalError) {
    GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9");
    ExpectError([&] { CallHandleUnallocatedContour(polygon, 1); }, "Geometry", "GpcPolygon", 892,
                "Internal error");
    EXPECT_EQ(Text(polygon), "0 0, 9 0, 0 9");
}

} // namespace
} // namespace geom
