// SPDX-License-Identifier: MIT
#include "geometry/geom.h"
#include "tests/support/Exceptions.h"
#include "tests/support/FailEachAllocation.h"
#include "tests/support/PolygonText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <thread>

namespace geom {
namespace {

using test::Area;
using test::ExpectError;
using test::IsInside;
using test::PolygonOf;
using test::Text;

constexpr const char* SQUARE = "0 0, 4 0, 4 4, 0 4";
constexpr const char* SHIFTED_SQUARE = "2 2, 6 2, 6 6, 2 6";
constexpr const char* L_SHAPE = "0 0, 6 0, 6 2, 2 2, 2 6, 0 6";

using Operation = void (GpcPolygon::*)(const GpcPolygon&);

struct NamedOperation {
    const char* name;
    Operation apply;
    double areaOfShiftedSquares;
    bool (*isInside)(bool subject, bool clip);
};

const NamedOperation OPERATIONS[] = {
    {"Intersection", &GpcPolygon::Intersection, 4, [](bool s, bool c) { return s && c; }},
    {"Union", &GpcPolygon::Union, 28, [](bool s, bool c) { return s || c; }},
    {"Difference", &GpcPolygon::Difference, 12, [](bool s, bool c) { return s && !c; }},
    {"XOR", &GpcPolygon::XOR, 24, [](bool s, bool c) { return s != c; }},
};

GpcPolygon Applied(Operation operation, GpcPolygon subject, const GpcPolygon& other) {
    (subject.*operation)(other);
    return subject;
}

void ExpectEmpty(const GpcPolygon& polygon) {
    EXPECT_EQ(polygon.num_contours, 0);
    EXPECT_EQ(polygon.hole, nullptr);
    EXPECT_EQ(polygon.contour, nullptr);
    EXPECT_EQ(polygon.GetBBox(), Box2d());
}

TEST(GpcPolygonOperations, OverlappingSquares) {
    const GpcPolygon subject = PolygonOf(SQUARE);
    const GpcPolygon other = PolygonOf(SHIFTED_SQUARE);
    for (const NamedOperation& operation : OPERATIONS) {
        const GpcPolygon result = Applied(operation.apply, subject, other);
        EXPECT_EQ(Area(result), operation.areaOfShiftedSquares) << operation.name;
        for (const Vec2d& p : {Vec2d(1, 1), Vec2d(3, 3), Vec2d(5, 5), Vec2d(5, 1)}) {
            EXPECT_EQ(IsInside(result, p),
                      operation.isInside(IsInside(subject, p), IsInside(other, p)))
                << operation.name << " at " << Text(p);
        }
    }
    EXPECT_EQ(Text(other), SHIFTED_SQUARE) << "the other polygon is not changed";
}

TEST(GpcPolygonOperations, BoxIsThatOfTheResult) {
    const GpcPolygon other = PolygonOf(SHIFTED_SQUARE);
    EXPECT_EQ(Applied(&GpcPolygon::Intersection, PolygonOf(SQUARE), other).GetBBox(),
              Box2d(2, 2, 4, 4));
    EXPECT_EQ(Applied(&GpcPolygon::Union, PolygonOf(SQUARE), other).GetBBox(), Box2d(0, 0, 6, 6));
    EXPECT_EQ(Applied(&GpcPolygon::Difference, PolygonOf(SQUARE), GpcPolygon(0.0, 9.0, 9.0, 2.0))
                  .GetBBox(),
              Box2d(0, 0, 4, 2));
}

TEST(GpcPolygonOperations, DifferenceLeavesAHole) {
    const GpcPolygon result =
        Applied(&GpcPolygon::Difference, GpcPolygon(0.0, 9.0, 9.0, 0.0), PolygonOf(SHIFTED_SQUARE));
    ASSERT_EQ(result.GetNumContours(), 2u);
    EXPECT_EQ(result.hole[0] + result.hole[1], 1);
    EXPECT_EQ(Area(result), 81 - 16);
}

TEST(GpcPolygonOperations, IntersectionOfTouchingBoxesIsEmpty) {
    ExpectEmpty(Applied(&GpcPolygon::Intersection, GpcPolygon(0.0, 4.0, 4.0, 0.0),
                        GpcPolygon(4.0, 4.0, 8.0, 0.0)));
    ExpectEmpty(Applied(&GpcPolygon::Intersection, GpcPolygon(0.0, 4.0, 4.0, 0.0),
                        GpcPolygon(4.0, 8.0, 8.0, 4.0)));
}

TEST(GpcPolygonOperations, EmptyOperands) {
    const GpcPolygon none;
    const GpcPolygon square = PolygonOf(SQUARE);
    ExpectEmpty(Applied(&GpcPolygon::Intersection, square, none));
    ExpectEmpty(Applied(&GpcPolygon::Intersection, none, square));
    ExpectEmpty(Applied(&GpcPolygon::Difference, none, square));
    ExpectEmpty(Applied(&GpcPolygon::Union, none, none));
    EXPECT_EQ(Area(Applied(&GpcPolygon::Difference, square, none)), 16);
    EXPECT_EQ(Area(Applied(&GpcPolygon::Union, square, none)), 16);
    EXPECT_EQ(Area(Applied(&GpcPolygon::XOR, none, square)), 16);
}

TEST(GpcPolygonOperations, UnionOrIntersectionWithItselfLeavesItUnchanged) {
    for (const Operation operation : {&GpcPolygon::Union, &GpcPolygon::Intersection}) {
        GpcPolygon polygon = PolygonOf("0 0, 4 4, 4 0, 0 4 | hole 1 1, 2 1, 2 2");
        const gpc_vertex* vertices = polygon.contour[0].vertex;
        (polygon.*operation)(polygon);
        EXPECT_EQ(Text(polygon), "0 0, 4 4, 4 0, 0 4 | hole 1 1, 2 1, 2 2");
        EXPECT_EQ(polygon.contour[0].vertex, vertices);
        EXPECT_EQ(polygon.GetBBox(), Box2d(0, 0, 4, 4));
    }
}

TEST(GpcPolygonOperations, DifferenceOrXorWithItselfEmptiesIt) {
    for (const Operation operation : {&GpcPolygon::Difference, &GpcPolygon::XOR}) {
        GpcPolygon polygon = PolygonOf(SQUARE);
        (polygon.*operation)(polygon);
        ExpectEmpty(polygon);
    }
}

TEST(GpcPolygonOperations, DifferenceOrXorWithACopyEmptiesIt) {
    const GpcPolygon polygon = PolygonOf(L_SHAPE);
    ExpectEmpty(Applied(&GpcPolygon::Difference, polygon, GpcPolygon(polygon)));
    ExpectEmpty(Applied(&GpcPolygon::XOR, polygon, GpcPolygon(polygon)));
}

TEST(GpcPolygonOperations, CoordinatesThatAreNotFiniteNeverDoHarm) {
    constexpr double INF = std::numeric_limits<double>::infinity();
    for (const double odd : {std::nan(""), INF, -INF, 1.7e308}) {
        const Vec2d ring[] = {{0, 0}, {odd, 1}, {3, odd}, {2, 5}};
        const GpcPolygon strange(ring, 4);
        for (const NamedOperation& operation : OPERATIONS) {
            GpcPolygon polygon = PolygonOf(SHIFTED_SQUARE);
            try {
                (polygon.*operation.apply)(strange);
            } catch (const Exception&) {
                EXPECT_EQ(Text(polygon), SHIFTED_SQUARE) << "unchanged by what it refuses";
            }
        }
    }
}

TEST(GpcPolygonOperations, ExhaustedHeapIsTheEnginesErrorAndChangesNothing) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    const GpcPolygon subject = PolygonOf("0 0, 9 1, 4 7 | hole 3 2, 5 2, 4 4");
    const GpcPolygon other = PolygonOf("1 -2, 8 5, 0 6");
    for (const NamedOperation& operation : OPERATIONS) {
        std::size_t failures = 0;
        for (bool failed = true; failed; failures += failed) {
            GpcPolygon polygon(subject);
            {
                test::AllocationProbe probe(failures);
                try {
                    (polygon.*operation.apply)(other);
                } catch (const Exception& e) {
                    EXPECT_STREQ(e.Module().c_str(), L"GPC Library");
                }
                failed = probe.Failed();
                EXPECT_TRUE(!failed || probe.Balance() == 0) << "request " << failures;
            }
            if (failed) {
                EXPECT_EQ(Text(polygon), Text(subject));
                EXPECT_EQ(polygon.GetBBox(), subject.GetBBox());
            }
        }
        EXPECT_GT(failures, 5u) << operation.name;
    }
}

template <auto member>
struct CombineWithAnyOperation {
    template <typename Code>
    static void Call(void (GpcPolygon::*combine)(const GpcPolygon&, Code), GpcPolygon& polygon,
                     const GpcPolygon& other, int operation) {
        (polygon.*combine)(other, static_cast<Code>(operation));
    }
    friend void CallCombine(GpcPolygon& polygon, const GpcPolygon& other, int operation) {
        Call(member, polygon, other, operation);
    }
};
void CallCombine(GpcPolygon& polygon, const GpcPolygon& other, int operation);
template struct CombineWithAnyOperation<&GpcPolygon::Combine>;

TEST(GpcPolygonOperations, UnknownOperationIsAnInternalError) {
    const GpcPolygon other = PolygonOf(SHIFTED_SQUARE);
    GpcPolygon polygon = PolygonOf(SQUARE);
    for (const int operation : {-1, 4}) {
        ExpectError([&] { CallCombine(polygon, other, operation); }, "Geometry", "GpcPolygon", 987,
                    "Internal error");
        ExpectError([&] { CallCombine(polygon, polygon, operation); }, "Geometry", "GpcPolygon",
                    987);
    }
    EXPECT_EQ(Text(polygon), SQUARE);
    const std::array<double, 4> areas = {4, 28, 12, 24};
    for (int operation = 0; operation < 4; ++operation) {
        GpcPolygon subject = PolygonOf(SQUARE);
        CallCombine(subject, other, operation);
        EXPECT_EQ(Area(subject), areas[static_cast<std::size_t>(operation)]);
    }
}

// Zero-width return paths.

TEST(GpcPolygonReturnPaths, JoinedRingOfTwoSquaresFallsApartAgain) {
    std::vector<Vec2d> ring;
    PolygonOf("0 0, 4 0, 4 4, 0 4 | 6 6, 9 6, 9 9, 6 9").GetPolygon(ring);
    GpcPolygon joined(ring.data(), ring.size());
    ASSERT_EQ(joined.GetNumContours(), 1u);
    joined.RemoveZeroWidthReturnPaths();
    EXPECT_EQ(joined.GetNumContours(), 2u);
    EXPECT_EQ(Area(joined), 16 + 9);
    EXPECT_EQ(joined.GetBBox(), Box2d(0, 0, 9, 9));
}

TEST(GpcPolygonReturnPaths, JoinedHoleBecomesAHoleAgain) {
    std::vector<Vec2d> ring;
    PolygonOf("0 0, 9 0, 9 9, 0 9 | hole 3 3, 3 6, 6 6, 6 3").GetPolygon(ring);
    GpcPolygon joined(ring.data(), ring.size());
    joined.RemoveZeroWidthReturnPaths();
    EXPECT_EQ(joined.GetNumContours(), 2u);
    EXPECT_EQ(Area(joined), 81 - 9);
}

TEST(GpcPolygonReturnPaths, PolygonWhoseBoxHasNoAreaBecomesEmpty) {
    GpcPolygon level = PolygonOf("0 3, 4 3, 9 3");
    level.RemoveZeroWidthReturnPaths();
    ExpectEmpty(level);
    GpcPolygon upright = PolygonOf("3 0, 3 4, 3 9");
    upright.RemoveZeroWidthReturnPaths();
    ExpectEmpty(upright);
}

TEST(GpcPolygonReturnPaths, EmptyPolygonStaysEmpty) {
    GpcPolygon polygon;
    polygon.RemoveZeroWidthReturnPaths();
    ExpectEmpty(polygon);
    GpcPolygon withoutVertices = PolygonOf("-");
    withoutVertices.RemoveZeroWidthReturnPaths();
    ExpectEmpty(withoutVertices);
}

// Points inside.

TEST(GpcPolygonPointInside, CornersEdgesAndInteriorOfARectangleAreInside) {
    for (const GpcPolygon& square :
         {PolygonOf(SQUARE), GpcPolygon(tagRECT{0, 0, 4, 4}), GpcPolygon(0.0, 4.0, 4.0, 0.0)}) {
        for (const Vec2d& p : {Vec2d(0, 0), Vec2d(4, 0), Vec2d(4, 4), Vec2d(0, 4), Vec2d(2, 0),
                               Vec2d(4, 1), Vec2d(2, 2)}) {
            EXPECT_TRUE(square.PointInside(p)) << Text(p);
        }
        for (const Vec2d& p :
             {Vec2d(-1e-300, 2), Vec2d(2, std::nextafter(4.0, 5.0)), Vec2d(9, 9)}) {
            EXPECT_FALSE(square.PointInside(p)) << Text(p);
        }
    }
}

TEST(GpcPolygonPointInside, RectangleWithTopBelowBottomKeepsItsInside) {
    const GpcPolygon topDown(0.0, 0.0, 5.0, 5.0);
    Box2d box;
    ASSERT_TRUE(topDown.IsRectangle(&box));
    ASSERT_GT(box.minY, box.maxY);
    EXPECT_TRUE(topDown.PointInside({2, 2}));
    EXPECT_TRUE(topDown.PointInside({0, 0}));
    EXPECT_TRUE(topDown.PointInside({5, 5}));
}

TEST(GpcPolygonPointInside, VertexOfASquareWithAVerticalFirstEdgeIsInside) {
    const GpcPolygon square = PolygonOf("0 0, 0 5, 5 5, 5 0");
    EXPECT_TRUE(square.PointInside({0, 0}));
    EXPECT_TRUE(square.PointInside({5, 5}));
    EXPECT_TRUE(square.PointInside({2, 3}));
    EXPECT_FALSE(square.PointInside({5.5, 3}));
}

TEST(GpcPolygonPointInside, PointOutsideTheBoxDoesNotRunTheEngine) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    const GpcPolygon polygon = PolygonOf(L_SHAPE);
    test::AllocationProbe probe;
    EXPECT_FALSE(polygon.PointInside({std::nextafter(6.0, 7.0), 1}));
    EXPECT_FALSE(polygon.PointInside({1, -0.5}));
    EXPECT_EQ(probe.Count(), 0u);
    EXPECT_TRUE(polygon.PointInside({1, 1}));
    EXPECT_GT(probe.Count(), 0u);
}

TEST(GpcPolygonPointInside, ConcavePolygonAndHoleAreHonoured) {
    const GpcPolygon shape = PolygonOf(L_SHAPE);
    EXPECT_TRUE(shape.PointInside({1, 5}));
    EXPECT_TRUE(shape.PointInside({5, 1}));
    EXPECT_FALSE(shape.PointInside({4, 4})) << "in the box only";
    const GpcPolygon ring = PolygonOf("0 0, 9 0, 9 9, 0 9 | hole 3 3, 6 3, 6 6, 3 6");
    EXPECT_TRUE(ring.PointInside({1, 1}));
    EXPECT_TRUE(ring.PointInside({8, 4}));
    EXPECT_FALSE(ring.PointInside({4, 4})) << "in the hole";
}

TEST(GpcPolygonPointInside, NothingIsInsideAnEmptyPolygon) {
    EXPECT_FALSE(GpcPolygon().PointInside({0, 0}));
    EXPECT_FALSE(PolygonOf("- | -").PointInside({0, 0}));
    EXPECT_FALSE(PolygonOf("0 3, 4 3, 9 3").PointInside({5, 3})) << "no area";
}

TEST(GpcPolygonPointInside, NotANumberIsOutside) {
    const double nan = std::nan("");
    for (const GpcPolygon& polygon : {PolygonOf(SQUARE), PolygonOf(L_SHAPE)}) {
        EXPECT_FALSE(polygon.PointInside({nan, 1}));
        EXPECT_FALSE(polygon.PointInside({1, nan}));
    }
}

bool HasVertex(const GpcPolygon& polygon, const Vec2d& p) {
    std::vector<Vec2d> pts;
    std::vector<unsigned int> counts;
    polygon.GetPolyPolygon(pts, counts, false);
    return std::find(pts.begin(), pts.end(), p) != pts.end();
}

TEST(GpcPolygonPointInside, PointOnTheBoundaryIsInsideWhenItSurvivesInAQuadrant) {
    const GpcPolygon triangle = PolygonOf("0 0, 8 0, 0 8");
    int inside = 0;
    int outside = 0;
    for (int k = 0; k <= 8; ++k) {
        for (const Vec2d& p : {Vec2d(k, 0), Vec2d(0, k), Vec2d(k, 8 - k)}) {
            const GpcPolygon aboveRight =
                Applied(&GpcPolygon::Intersection, triangle, GpcPolygon(p.x, 9.0, 9.0, p.y));
            const GpcPolygon belowLeft =
                Applied(&GpcPolygon::Intersection, triangle, GpcPolygon(-1.0, p.y, p.x, -1.0));
            const bool survives = HasVertex(aboveRight, p) || HasVertex(belowLeft, p);
            EXPECT_EQ(triangle.PointInside(p), survives) << Text(p);
            ++(survives ? inside : outside);
        }
    }
    EXPECT_GT(inside, 10) << "edge points become corners of the quarter on their inner side";
}

GpcPolygon RandomPolygon(std::mt19937_64& random) {
    std::uniform_real_distribution<double> coordinate(0, 10);
    std::uniform_int_distribution<unsigned int> size(3, 9);
    std::uniform_int_distribution<int> rings(1, 3);
    std::vector<Vec2d> pts;
    std::vector<unsigned int> counts;
    for (int i = rings(random); i > 0; --i) {
        counts.push_back(size(random));
        for (unsigned int k = 0; k < counts.back(); ++k) {
            pts.emplace_back(coordinate(random), coordinate(random));
        }
    }
    return GpcPolygon(pts.data(), counts.data(), counts.size());
}

TEST(GpcPolygonPointInside, AgreesWithParityInGeneralPosition) {
    constexpr unsigned int SEED = 4711;
    RecordProperty("seed", SEED);
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(0, 10);
    int inside = 0;
    constexpr int PROBES = 20000;
    for (int i = 0; i < PROBES / 20; ++i) {
        const GpcPolygon polygon = RandomPolygon(random);
        for (int k = 0; k < 20; ++k) {
            const Vec2d p(coordinate(random), coordinate(random));
            const bool expected = IsInside(polygon, p);
            ASSERT_EQ(polygon.PointInside(p), expected)
                << Text(p) << " in " << Text(polygon) << ", seed " << SEED;
            inside += expected;
        }
    }
    EXPECT_GT(inside, PROBES / 10);
    EXPECT_LT(inside, PROBES / 2);
}

TEST(GpcPolygonOperations, MembershipFollowsTheOperationInGeneralPosition) {
    constexpr unsigned int SEED = 815;
    RecordProperty("seed", SEED);
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(0, 10);
    for (int i = 0; i < 500; ++i) {
        const GpcPolygon subject = RandomPolygon(random);
        const GpcPolygon other = RandomPolygon(random);
        for (const NamedOperation& operation : OPERATIONS) {
            const GpcPolygon result = Applied(operation.apply, subject, other);
            for (int k = 0; k < 20; ++k) {
                const Vec2d p(coordinate(random), coordinate(random));
                ASSERT_EQ(IsInside(result, p),
                          operation.isInside(IsInside(subject, p), IsInside(other, p)))
                    << operation.name << " at " << Text(p) << ", seed " << SEED;
            }
        }
    }
}

TEST(GpcPolygonOperations, OnePolygonServesSeveralThreadsAtOnce) {
    const GpcPolygon shared = PolygonOf("0 0, 9 0, 9 9, 0 9 | hole 3 3, 6 3, 6 6, 3 6");
    std::array<int, 4> wrong = {};
    std::vector<std::thread> threads;
    for (int& count : wrong) {
        threads.emplace_back([&shared, &count] {
            for (int i = 0; i < 200; ++i) {
                GpcPolygon own(4.0, 8.0, 20.0, 1.0);
                own.Intersection(shared);
                count += Area(own) != 35 - 6 || !shared.PointInside({1, 1}) ||
                         shared.PointInside({4, 4});
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, (std::array<int, 4>{}));
}

} // namespace
} // namespace geom
