// SPDX-License-Identifier: MIT
#include "geometry/geom.h"
#include "tests/support/Exceptions.h"
#include "tests/support/FailEachAllocation.h"
#include "tests/support/PolygonText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace geom {
namespace {

using test::FailEachAllocation;
using test::PolygonOf;
using test::Text;
using testing::ElementsAre;

using Counts = std::vector<unsigned int>;

constexpr const char* TWO_SQUARES = "0 0, 4 0, 4 4, 0 4 | 6 6, 9 6, 9 9, 6 9";

template <typename Point>
class GpcPolygonFlatten : public testing::Test {};

using PointTypes = testing::Types<Vec2d, tagPOINT>;
TYPED_TEST_SUITE(GpcPolygonFlatten, PointTypes, );

TYPED_TEST(GpcPolygonFlatten, PolyPolygonWritesContoursOneAfterAnother) {
    const GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9 | hole 1 1, 2 1, 2 2, 1 2");
    std::vector<TypeParam> pts(7);
    Counts counts(2);
    EXPECT_EQ(polygon.GetPolyPolygon(pts.data(), counts.data(), false), 7u);
    EXPECT_EQ(Text(pts), "0 0, 9 0, 0 9, 1 1, 2 1, 2 2, 1 2");
    EXPECT_THAT(counts, ElementsAre(3u, 4u));
}

TYPED_TEST(GpcPolygonFlatten, PolyPolygonClosesEachContour) {
    const GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9 | hole 1 1, 2 1, 2 2, 1 2");
    std::vector<TypeParam> pts(9);
    Counts counts(2);
    EXPECT_EQ(polygon.GetPolyPolygon(pts.data(), counts.data(), true), 9u);
    EXPECT_EQ(Text(pts), "0 0, 9 0, 0 9, 0 0, 1 1, 2 1, 2 2, 1 2, 1 1");
    EXPECT_THAT(counts, ElementsAre(4u, 5u));
}

TYPED_TEST(GpcPolygonFlatten, RingStoredWithoutItsClosingDuplicateIsClosedAgain) {
    const TypeParam ring[] = {{0, 0}, {9, 0}, {0, 9}, {0, 0}};
    std::vector<TypeParam> pts;
    Counts counts;
    GpcPolygon(ring, 4).GetPolyPolygon(pts, counts, true);
    EXPECT_EQ(Text(pts), "0 0, 9 0, 0 9, 0 0");
}

TYPED_TEST(GpcPolygonFlatten, EitherArrayOfThePolyPolygonMayBeNull) {
    const GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9 | 5 5, 6 6");
    TypeParam* noPoints = nullptr;
    EXPECT_EQ(polygon.GetPolyPolygon(noPoints, nullptr, false), 5u);
    EXPECT_EQ(polygon.GetPolyPolygon(noPoints, nullptr, true), 7u);
    Counts counts(2);
    EXPECT_EQ(polygon.GetPolyPolygon(noPoints, counts.data(), true), 7u);
    EXPECT_THAT(counts, ElementsAre(4u, 3u));
    std::vector<TypeParam> pts(5);
    EXPECT_EQ(polygon.GetPolyPolygon(pts.data(), nullptr, false), 5u);
    EXPECT_EQ(Text(pts), "0 0, 9 0, 0 9, 5 5, 6 6");
}

TYPED_TEST(GpcPolygonFlatten, EmptyContourOfAPolyPolygonHasCountZeroAndNoClosingPoint) {
    const GpcPolygon polygon = PolygonOf("- | 0 0, 9 0, 0 9 | -");
    std::vector<TypeParam> pts;
    Counts counts;
    EXPECT_EQ(polygon.GetPolyPolygon(pts, counts, true), 4u);
    EXPECT_THAT(counts, ElementsAre(0u, 4u, 0u));
    EXPECT_EQ(Text(pts), "0 0, 9 0, 0 9, 0 0");
}

TYPED_TEST(GpcPolygonFlatten, VectorsOfThePolyPolygonAreReplaced) {
    std::vector<TypeParam> pts(20, TypeParam{7, 7});
    Counts counts(20, 7);
    EXPECT_EQ(PolygonOf("0 0, 9 0, 0 9").GetPolyPolygon(pts, counts, false), 3u);
    EXPECT_EQ(Text(pts), "0 0, 9 0, 0 9");
    EXPECT_THAT(counts, ElementsAre(3u));
    EXPECT_EQ(PolygonOf(TWO_SQUARES).GetPolyPolygon(pts, counts, true), 10u);
    EXPECT_EQ(pts.size(), 10u);
    EXPECT_THAT(counts, ElementsAre(5u, 5u));
    EXPECT_EQ(PolygonOf("- | -").GetPolyPolygon(pts, counts, true), 0u);
    EXPECT_TRUE(pts.empty());
    EXPECT_THAT(counts, ElementsAre(0u, 0u));
    EXPECT_EQ(GpcPolygon().GetPolyPolygon(pts, counts, true), 0u);
    EXPECT_TRUE(counts.empty());
}

TYPED_TEST(GpcPolygonFlatten, PolygonOfOneContourIsClosed) {
    const GpcPolygon polygon = PolygonOf("0 0, 9 0, 0 9");
    std::vector<TypeParam> pts(4);
    EXPECT_EQ(polygon.GetPolygon(pts.data()), 4u);
    EXPECT_EQ(Text(pts), "0 0, 9 0, 0 9, 0 0");
    EXPECT_EQ(polygon.GetPolygon(static_cast<TypeParam*>(nullptr)), 4u);
}

TYPED_TEST(GpcPolygonFlatten, PolygonOfTwoSquaresReturnsToItsStart) {
    std::vector<TypeParam> pts;
    EXPECT_EQ(PolygonOf(TWO_SQUARES).GetPolygon(pts), 11u);
    EXPECT_EQ(Text(pts), "0 0, 4 0, 4 4, 0 4, 0 0, 6 6, 9 6, 9 9, 6 9, 6 6, 0 0");
}

TYPED_TEST(GpcPolygonFlatten, PolygonOfSeveralContoursWalksBackThroughTheirStarts) {
    const GpcPolygon polygon = PolygonOf("0 0, 1 0, 0 1 | hole 5 5, 6 5 | 8 8, 9 8, 8 9");
    std::vector<TypeParam> pts(13);
    EXPECT_EQ(polygon.GetPolygon(static_cast<TypeParam*>(nullptr)), 13u);
    EXPECT_EQ(polygon.GetPolygon(pts.data()), 13u);
    EXPECT_EQ(Text(pts), "0 0, 1 0, 0 1, 0 0, 5 5, 6 5, 5 5, 8 8, 9 8, 8 9, 8 8, 5 5, 0 0");
}

TYPED_TEST(GpcPolygonFlatten, EmptyContoursOfAPolygonContributeNothing) {
    std::vector<TypeParam> pts;
    EXPECT_EQ(PolygonOf("- | 0 0, 1 0, 0 1 | - | 8 8, 9 8, 8 9").GetPolygon(pts), 9u);
    EXPECT_EQ(Text(pts), "0 0, 1 0, 0 1, 0 0, 8 8, 9 8, 8 9, 8 8, 0 0");
    EXPECT_EQ(PolygonOf("0 0, 1 0, 0 1 | -").GetPolygon(pts), 5u);
    EXPECT_EQ(Text(pts), "0 0, 1 0, 0 1, 0 0, 0 0");
    EXPECT_EQ(PolygonOf("-").GetPolygon(pts), 0u);
    EXPECT_EQ(PolygonOf("- | -").GetPolygon(pts), 0u);
}

TYPED_TEST(GpcPolygonFlatten, VectorOfThePolygonIsReplaced) {
    std::vector<TypeParam> pts(20, TypeParam{7, 7});
    EXPECT_EQ(PolygonOf("0 0, 9 0, 0 9").GetPolygon(pts), 4u);
    EXPECT_EQ(Text(pts), "0 0, 9 0, 0 9, 0 0");
    EXPECT_EQ(GpcPolygon().GetPolygon(pts), 0u);
    EXPECT_TRUE(pts.empty());
}

TEST(GpcPolygonFlattenToIntegers, CoordinatesAreRoundedHalfAwayFromZero) {
    const GpcPolygon polygon = PolygonOf("0.5 -0.5, 1.49 -1.51, 2.5 -2.5");
    std::vector<tagPOINT> pts;
    Counts counts;
    polygon.GetPolyPolygon(pts, counts, false);
    EXPECT_EQ(Text(pts), "1 -1, 1 -2, 3 -3");
    polygon.GetPolygon(pts);
    EXPECT_EQ(Text(pts), "1 -1, 1 -2, 3 -3, 1 -1");
}

TEST(GpcPolygonFlattenToIntegers, CoordinatesStopAtTheEndsOf32Bits) {
    constexpr double INF = std::numeric_limits<double>::infinity();
    const Vec2d ring[] = {{1e300, -1e300}, {INF, -INF}, {std::nan(""), 2147483648.0}};
    std::vector<tagPOINT> pts;
    Counts counts;
    GpcPolygon(ring, 3).GetPolyPolygon(pts, counts, false);
    EXPECT_EQ(Text(pts), "2147483647 -2147483648, 2147483647 -2147483648, 0 2147483647");
}

// What each vector form says when it cannot grow its vectors: the points, then the counts.

template <typename Point>
std::vector<std::string> FailuresOfPolyPolygon(const GpcPolygon& polygon) {
    return FailEachAllocation([&polygon] {
        std::vector<Point> pts;
        Counts counts;
        polygon.GetPolyPolygon(pts, counts, true);
    });
}

template <typename Point>
std::vector<std::string> FailuresOfPolygon(const GpcPolygon& polygon) {
    return FailEachAllocation([&polygon] {
        std::vector<Point> pts;
        polygon.GetPolygon(pts);
    });
}

TEST(GpcPolygonFlattenErrors, ExhaustedHeapIsOutOfMemory) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    const GpcPolygon polygon = PolygonOf(TWO_SQUARES);
    const std::string at = "Geometry, GpcPolygon ";
    EXPECT_THAT(FailuresOfPolyPolygon<Vec2d>(polygon),
                ElementsAre(at + "326: Out of memory", at + "326: Out of memory"));
    EXPECT_THAT(FailuresOfPolyPolygon<tagPOINT>(polygon),
                ElementsAre(at + "353: Out of memory", at + "353: Out of memory"));
    EXPECT_THAT(FailuresOfPolygon<Vec2d>(polygon), ElementsAre(at + "538: Out of memory"));
    EXPECT_THAT(FailuresOfPolygon<tagPOINT>(polygon), ElementsAre(at + "560: Out of memory"));
}

TEST(GpcPolygonFlattenErrors, ExhaustedHeapLeavesTheVectorsUntouched) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    const GpcPolygon polygon = PolygonOf(TWO_SQUARES);
    std::vector<Vec2d> pts = {{1, 2}};
    Counts counts = {1};
    for (std::size_t failAt = 0; failAt < 2; ++failAt) {
        {
            test::AllocationProbe probe(failAt);
            EXPECT_THROW(polygon.GetPolyPolygon(pts, counts, false), Exception);
        }
        EXPECT_EQ(Text(pts), "1 2");
        EXPECT_THAT(counts, ElementsAre(1u));
        pts.shrink_to_fit();
    }
    {
        test::AllocationProbe probe(0);
        EXPECT_THROW(polygon.GetPolygon(pts), Exception);
    }
    EXPECT_EQ(Text(pts), "1 2");
}

TEST(GpcPolygonFlattenErrors, EnormousTotalIsOutOfMemory) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer ends the program when operator new fails";
    }
    // Contours that only claim to be large: counting them must not fail, making room must.
    GpcPolygon polygon = PolygonOf("0 0, 1 0, 0 1");
    GpcPolygon claims;
    std::vector<int> holes(100000, 0);
    std::vector<gpc_vertex_list> contours(
        holes.size(), {std::numeric_limits<int>::max(), polygon.contour[0].vertex});
    static_cast<gpc_polygon&>(claims) = {static_cast<int>(holes.size()), holes.data(),
                                         contours.data()};
    std::vector<Vec2d> pts;
    Counts counts;
    test::ExpectError([&] { claims.GetPolyPolygon(pts, counts, false); }, "Geometry", "GpcPolygon",
                      326, "Out of memory");
    static_cast<gpc_polygon&>(claims) = {0, nullptr, nullptr};
}

} // namespace
} // namespace geom
