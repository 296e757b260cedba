// SPDX-License-Identifier: MIT
#include "FileSupport.h"

#include "geometry/Gpc.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/FailEachAllocation.h"

#include <gmock/gmock.h>

#include <climits>
#include <cstdlib>
#include <set>
#include <utility>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

using namespace geom;
using geom::test::AllocationProbe;
using geom::test::Caught;
using geom::test::ExpectError;
using geom::test::FailEachAllocation;
using geom::test::Record;
using geom::test::SameToTheBit;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr int LINE_NULL_ARGUMENT = 100;

const std::vector<gpc_vertex> TRIANGLE = {{0, 0}, {4, 0}, {0, 3}};

gpc_vertex_list ListOf(std::vector<gpc_vertex>& vertices) {
    return {static_cast<int>(vertices.size()), vertices.data()};
}

void ExpectImpossible(gpc_polygon& polygon, const gpc_vertex_list& contour, const char* reason) {
    const auto e = Caught([&] { gpc_add_contour(&polygon, &contour, 0); });
    ASSERT_TRUE(e.has_value());
    EXPECT_EQ(e->Module(), L"GPC Library");
    EXPECT_EQ(e->File(), L"Gpc");
    EXPECT_EQ(e->Message().Narrow(), std::string("GPCAlloc failure: ") + reason);
    EXPECT_FALSE(e->Flag());
}

template <typename T>
T* NewArray(std::size_t n) {
    return static_cast<T*>(std::calloc(n, sizeof(T)));
}

} // namespace

TEST(PolygonRecord, HasTheLayoutOfPlainStructures) {
    static_assert(sizeof(gpc_vertex) == 16 && offsetof(gpc_vertex, y) == 8);
    static_assert(offsetof(gpc_vertex_list, num_vertices) == 0);
    static_assert(offsetof(gpc_vertex_list, vertex) == sizeof(void*));
    static_assert(offsetof(gpc_polygon, num_contours) == 0);
    static_assert(offsetof(gpc_polygon, hole) == sizeof(void*));
    static_assert(offsetof(gpc_polygon, contour) == 2 * sizeof(void*));
    static_assert(offsetof(gpc_tristrip, strip) == sizeof(void*));
    static_assert(GPC_DIFF == 0 && GPC_INT == 1 && GPC_XOR == 2 && GPC_UNION == 3);
    static_assert(sizeof(gpc_op) == 4);
}

TEST(PolygonRecord, FirstContourGoesToIndexZeroWithItsFlag) {
    Record polygon;
    std::vector<gpc_vertex> vertices = TRIANGLE;
    const gpc_vertex_list contour = ListOf(vertices);
    gpc_add_contour(&polygon, &contour, 7);
    ASSERT_EQ(polygon.num_contours, 1);
    EXPECT_EQ(polygon.hole[0], 7);
    ASSERT_EQ(polygon.contour[0].num_vertices, 3);
    EXPECT_EQ(polygon.contour[0].vertex[1].x, 4);
    EXPECT_EQ(polygon.contour[0].vertex[2].y, 3);
}

TEST(PolygonRecord, ContoursAreCopiedDeeply) {
    Record polygon;
    std::vector<gpc_vertex> vertices = TRIANGLE;
    const gpc_vertex_list contour = ListOf(vertices);
    gpc_add_contour(&polygon, &contour, 0);
    EXPECT_NE(polygon.contour[0].vertex, vertices.data());
    vertices[0] = {99, 99};
    EXPECT_EQ(polygon.contour[0].vertex[0].x, 0);
}

TEST(PolygonRecord, EarlierContoursKeepTheirVertexArrays) {
    Record polygon({{0, TRIANGLE}, {1, {{1, 1}, {2, 1}, {1, 2}, {0, 2}}}});
    const gpc_vertex* const first = polygon.contour[0].vertex;
    std::vector<gpc_vertex> vertices = {{5, 6}};
    const gpc_vertex_list contour = ListOf(vertices);
    gpc_add_contour(&polygon, &contour, 0);
    ASSERT_EQ(polygon.num_contours, 3);
    EXPECT_EQ(polygon.contour[0].vertex, first);
    EXPECT_TRUE(SameToTheBit(
        polygon, Record({{0, TRIANGLE}, {1, {{1, 1}, {2, 1}, {1, 2}, {0, 2}}}, {0, {{5, 6}}}})));
}

TEST(PolygonRecord, ContourWithoutVerticesHasANullArray) {
    Record polygon;
    const gpc_vertex_list empty = {0, nullptr};
    gpc_add_contour(&polygon, &empty, 1);
    ASSERT_EQ(polygon.num_contours, 1);
    EXPECT_EQ(polygon.hole[0], 1);
    EXPECT_EQ(polygon.contour[0].num_vertices, 0);
    EXPECT_EQ(polygon.contour[0].vertex, nullptr);
}

TEST(PolygonRecord, ContourMayBeOneOfThePolygonsOwn) {
    Record polygon({{0, TRIANGLE}, {1, {{1, 1}}}});
    gpc_add_contour(&polygon, &polygon.contour[0], 1);
    EXPECT_TRUE(SameToTheBit(polygon, Record({{0, TRIANGLE}, {1, {{1, 1}}}, {1, TRIANGLE}})));
    EXPECT_NE(polygon.contour[0].vertex, polygon.contour[2].vertex);
}

#if defined(__GLIBC__)
TEST(PolygonRecord, ArraysGrowOnlyEachTimeTheirCountHasDoubled) {
    Record polygon;
    std::vector<gpc_vertex> vertices = TRIANGLE;
    const gpc_vertex_list contour = ListOf(vertices);
    std::set<std::pair<std::size_t, std::size_t>> sizes;
    for (int i = 0; i < 5000; ++i) {
        gpc_add_contour(&polygon, &contour, i);
        sizes.emplace(malloc_usable_size(polygon.hole), malloc_usable_size(polygon.contour));
    }
    EXPECT_LE(sizes.size(), 14U); // 1, 2, 4, ..., 8,192 contours
    ASSERT_EQ(polygon.num_contours, 5000);
    for (int i = 0; i < 5000; ++i) {
        ASSERT_EQ(polygon.hole[i], i);
        ASSERT_EQ(polygon.contour[i].vertex[1].x, 4);
    }
}
#endif

TEST(PolygonRecord, NegativeVertexCountIsAFailedAllocationThatChangesNothing) {
    for (const int count : {-1, -2, -1000, INT_MIN}) {
        Record polygon({{1, TRIANGLE}});
        gpc_vertex vertex = {1, 2};
        ExpectImpossible(polygon, {count, &vertex}, "contour addition");
        ExpectImpossible(polygon, {count, nullptr}, "contour addition");
        EXPECT_TRUE(SameToTheBit(polygon, Record({{1, TRIANGLE}})));
    }
}

TEST(PolygonRecord, ContourCountThatCannotGrowIsAFailedAllocation) {
    int hole = 0;
    gpc_vertex_list list = {0, nullptr};
    for (const int count : {-1, -2, INT_MIN, INT_MAX}) {
        gpc_polygon polygon = {count, &hole, &list};
        ExpectImpossible(polygon, list, "contour hole addition");
        EXPECT_EQ(polygon.num_contours, count);
    }
}

TEST(PolygonRecord, NullArgumentsAreInternalErrors) {
    Record polygon;
    const gpc_vertex_list empty = {0, nullptr};
    const gpc_vertex_list lacking = {3, nullptr};
    gpc_polygon lackingAll = {2, nullptr, nullptr};
    const auto expectNull = [](gpc_polygon* p, const gpc_vertex_list* c) {
        ExpectError([&] { gpc_add_contour(p, c, 0); }, L"Geometry", L"Gpc", LINE_NULL_ARGUMENT);
    };
    expectNull(nullptr, &empty);
    expectNull(&polygon, nullptr);
    expectNull(&polygon, &lacking);
    expectNull(&lackingAll, &empty);
    EXPECT_EQ(polygon.num_contours, 0);
}

TEST(PolygonRecord, FailedAllocationsNameTheirStepAndChangeNothing) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const Record before({{1, TRIANGLE}});
    std::vector<gpc_vertex> vertices = TRIANGLE;
    const gpc_vertex_list contour = ListOf(vertices);
    bool unchanged = true;
    const std::vector<std::string> failures = FailEachAllocation([&] {
        Record polygon;
        polygon.num_contours = 1;
        polygon.hole = NewArray<int>(1);
        polygon.contour = NewArray<gpc_vertex_list>(1);
        if (polygon.hole == nullptr || polygon.contour == nullptr) {
            throw std::bad_alloc();
        }
        try {
            gpc_add_contour(&polygon, &contour, 0);
        } catch (...) {
            unchanged = unchanged && polygon.num_contours == 1 && polygon.hole[0] == 0 &&
                        polygon.contour[0].vertex == nullptr;
            throw;
        }
    });
    EXPECT_TRUE(unchanged);
    EXPECT_THAT(failures, ElementsAre("bad_alloc", "bad_alloc", HasSubstr("contour hole addition"),
                                      HasSubstr("failure: contour addition"),
                                      HasSubstr("failure: contour addition")));
}

TEST(PolygonRecord, FreeingLeavesTheEmptyRecordAndIsHarmlessTwice) {
    Record polygon({{0, TRIANGLE}, {1, {}}});
    for (int i = 0; i < 2; ++i) {
        gpc_free_polygon(&polygon);
        EXPECT_EQ(polygon.num_contours, 0);
        EXPECT_EQ(polygon.hole, nullptr);
        EXPECT_EQ(polygon.contour, nullptr);
    }
}

TEST(PolygonRecord, FreeingTakesNegativeCountsAsNone) {
    gpc_polygon polygon = {-5, NewArray<int>(1), nullptr};
    gpc_free_polygon(&polygon);
    EXPECT_EQ(polygon.num_contours, 0);
    EXPECT_EQ(polygon.hole, nullptr);

    polygon = {1, NewArray<int>(1), NewArray<gpc_vertex_list>(1)};
    polygon.contour[0] = {-3, NewArray<gpc_vertex>(3)};
    gpc_free_polygon(&polygon);
    EXPECT_EQ(polygon.num_contours, 0);

    gpc_tristrip strips = {-1, nullptr};
    gpc_free_tristrip(&strips);
    EXPECT_EQ(strips.num_strips, 0);
}

TEST(PolygonRecord, FreeingToleratesACountWithoutArrays) {
    gpc_polygon polygon = {5, nullptr, nullptr};
    gpc_free_polygon(&polygon);
    EXPECT_EQ(polygon.num_contours, 0);
    gpc_free_polygon(nullptr);
    gpc_free_tristrip(nullptr);
}

TEST(PolygonRecord, FreeingReleasesEveryBlock) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    std::vector<gpc_vertex> vertices = TRIANGLE;
    const gpc_vertex_list contour = ListOf(vertices);
    const AllocationProbe probe;
    gpc_polygon polygon = {0, nullptr, nullptr};
    for (int i = 0; i < 10; ++i) {
        gpc_add_contour(&polygon, &contour, i % 2);
    }
    const std::ptrdiff_t held = probe.Balance();
    gpc_free_polygon(&polygon);
    EXPECT_EQ(held, 12);
    EXPECT_EQ(probe.Balance(), 0);
}

TEST(PolygonRecord, FreeingStripsLeavesTheEmptyRecord) {
    gpc_tristrip strips = {2, NewArray<gpc_vertex_list>(2)};
    strips.strip[1] = {3, NewArray<gpc_vertex>(3)};
    for (int i = 0; i < 2; ++i) {
        gpc_free_tristrip(&strips);
        EXPECT_EQ(strips.num_strips, 0);
        EXPECT_EQ(strips.strip, nullptr);
    }
}
