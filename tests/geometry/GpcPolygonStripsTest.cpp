// SPDX-License-Identifier: MIT
#include "geometry/geom.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/PolygonText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace geom {
namespace {

using test::Area;
using test::ExpectError;
using test::PolygonOf;
using test::SignedDoubleArea;
using test::Text;
using testing::ElementsAre;

using Rings = std::vector<std::vector<Vec2d>>;

constexpr const char* SQUARE_WITH_HOLE = "0 0, 9 0, 9 9, 0 9 | hole 3 4, 6 5, 5 7";

bool CollectText(const Vec2d* pts, unsigned int n, void* user) {
    static_cast<std::vector<std::string>*>(user)->push_back(Text(std::vector<Vec2d>(pts, pts + n)));
    return true;
}

/// The sum of the triangles' areas.
double AreaOfStrip(const Vec2d* pts, unsigned int n) {
    double area = 0;
    for (unsigned int i = 2; i < n; ++i) {
        area += std::fabs(SignedDoubleArea({pts[i - 2], pts[i - 1], pts[i]})) / 2;
    }
    return area;
}

TEST(GpcPolygonDecompose, CallbackReceivesTheEnginesStripsInOrder) {
    const GpcPolygon polygon = PolygonOf(SQUARE_WITH_HOLE);
    std::vector<std::string> received;
    EXPECT_TRUE(polygon.Decompose(CollectText, &received));
    gpc_tristrip strips;
    gpc_polygon_to_tristrip(&polygon, &strips);
    std::vector<std::string> expected;
    for (int i = 0; i < strips.num_strips; ++i) {
        expected.push_back(Text(test::Points(strips.strip[i])));
    }
    gpc_free_tristrip(&strips);
    EXPECT_EQ(received, expected);
    EXPECT_GT(received.size(), 2u);
}

TEST(GpcPolygonDecompose, TrianglesCoverThePolygon) {
    double area = 0;
    const auto add = [](const Vec2d* pts, unsigned int n, void* user) {
        *static_cast<double*>(user) += AreaOfStrip(pts, n);
        return true;
    };
    const GpcPolygon polygon = PolygonOf(SQUARE_WITH_HOLE);
    EXPECT_TRUE(polygon.Decompose(add, &area));
    EXPECT_NEAR(area, Area(polygon), 1e-12);
}

TEST(GpcPolygonDecompose, PolygonWithoutAreaHasNoStrips) {
    std::vector<std::string> received;
    Rings rings;
    for (const char* flat : {"", "-", "0 0, 5 5, 9 9", "0 0, 5 0, 9 0", "3 3, 4 4", "3 3"}) {
        EXPECT_TRUE(PolygonOf(flat).Decompose(CollectText, &received)) << flat;
        EXPECT_TRUE(PolygonOf(flat).Decompose(rings)) << flat;
    }
    EXPECT_TRUE(received.empty());
    EXPECT_TRUE(rings.empty());
}

TEST(GpcPolygonDecompose, CallbackThatReturnsFalseEndsIt) {
    int calls = 0;
    const auto stop = [](const Vec2d*, unsigned int, void* user) {
        return ++*static_cast<int*>(user) < 2;
    };
    EXPECT_FALSE(PolygonOf(SQUARE_WITH_HOLE).Decompose(stop, &calls));
    EXPECT_EQ(calls, 2);
}

TEST(GpcPolygonDecompose, StripsAreReleasedWhateverTheCallbackThrows) {
    const GpcPolygon polygon = PolygonOf(SQUARE_WITH_HOLE);
    using Callback = bool (*)(const Vec2d*, unsigned int, void*);
    const Callback foundation = [](const Vec2d*, unsigned int, void*) -> bool {
        throw Exception("Host", "Draw", 7, "no ink", false);
    };
    const Callback standard = [](const Vec2d*, unsigned int, void*) -> bool {
        throw std::runtime_error("x");
    };
    const Callback number = [](const Vec2d*, unsigned int, void*) -> bool { throw 42; };
    const test::AllocationProbe probe;
    ExpectError([&] { polygon.Decompose(foundation, nullptr); }, "Host", "Draw", 7, "no ink");
    EXPECT_THROW(polygon.Decompose(standard, nullptr), std::runtime_error);
    EXPECT_THROW(polygon.Decompose(number, nullptr), int);
    EXPECT_EQ(probe.Balance(), 0);
}

TEST(GpcPolygonDecompose, EnginesExceptionThrownByACallbackIsNotRetried) {
    int calls = 0;
    const auto fail = [](const Vec2d*, unsigned int, void* user) -> bool {
        ++*static_cast<int*>(user);
        throw GPCException("Draw", 7);
    };
    EXPECT_THROW(PolygonOf(SQUARE_WITH_HOLE).Decompose(fail, &calls), GPCException);
    EXPECT_EQ(calls, 1);
}

TEST(GpcPolygonDecompose, NullCallbackIsAnInternalError) {
    ExpectError([] { PolygonOf(SQUARE_WITH_HOLE).Decompose(nullptr, nullptr); }, "Geometry",
                "GpcPolygon", 700, "Internal error");
}

TEST(GpcPolygonDecompose, RingsAreTheClosedOutlinesOfTheStrips) {
    const GpcPolygon polygon = PolygonOf(SQUARE_WITH_HOLE);
    Rings rings;
    EXPECT_TRUE(polygon.Decompose(rings));
    const auto outline = [](const Vec2d* pts, unsigned int n, void* user) {
        std::vector<Vec2d> ring(n);
        TriStripToCWPolygon(pts, n, ring.data());
        ring.push_back(ring.front());
        static_cast<Rings*>(user)->push_back(ring);
        return true;
    };
    Rings expected;
    polygon.Decompose(outline, &expected);
    EXPECT_EQ(rings, expected);
    double area = 0;
    for (const std::vector<Vec2d>& ring : rings) {
        EXPECT_EQ(ring.front(), ring.back());
        area += std::fabs(SignedDoubleArea(ring)) / 2;
    }
    EXPECT_NEAR(area, Area(polygon), 1e-12);
}

TEST(GpcPolygonDecompose, RingsAreAppended) {
    Rings rings = {{{1, 2}}};
    PolygonOf("0 0, 4 0, 0 4").Decompose(rings);
    ASSERT_EQ(rings.size(), 2u);
    EXPECT_EQ(Text(rings[0]), "1 2");
    EXPECT_EQ(std::fabs(SignedDoubleArea(rings[1])), 16);
    PolygonOf("0 0, 4 0, 0 4").Decompose(rings);
    EXPECT_EQ(rings.size(), 3u);
}

TEST(GpcPolygonDecompose, ExhaustedHeapChangesNothing) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    const GpcPolygon polygon = PolygonOf(SQUARE_WITH_HOLE);
    std::vector<int> lines;
    for (bool failed = true; failed;) {
        Rings rings = {{{1, 2}}};
        int line = 0;
        {
            test::AllocationProbe probe(lines.size());
            try {
                polygon.Decompose(rings);
            } catch (const Exception& e) {
                line = e.Line();
            }
            failed = probe.Failed();
            EXPECT_TRUE(!failed || probe.Balance() == 0) << "request " << lines.size();
        }
        EXPECT_EQ(line != 0, failed);
        EXPECT_EQ(rings.size() == 1, failed);
        lines.push_back(line);
    }
    EXPECT_THAT(lines, testing::IsSupersetOf({701, 702}))
        << "after the engine the strip's copy and the outlines need room";
}

} // namespace
} // namespace geom
