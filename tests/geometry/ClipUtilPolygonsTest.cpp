// SPDX-License-Identifier: MIT
#include "geometry/geom.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/PolygonText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <new>
#include <random>
#include <string>
#include <vector>

namespace geom {
namespace {

using test::Area;
using test::ExpectError;
using test::IsInside;
using test::PointsOf;
using test::PolygonOf;
using test::Text;
using testing::ElementsAre;

using Counts = std::vector<unsigned int>;

constexpr const char* TRIANGLE = "0 0, 8 0, 0 8";
constexpr const char* DIAMOND = "4 0, 8 4, 4 8, 0 4";
constexpr const char* L_SHAPE = "0 0, 6 0, 6 2, 2 2, 2 6, 0 6";

const double LARGEST = std::numeric_limits<double>::max();

struct Flat {
    std::vector<Vec2d> pts;
    Counts counts;
};

/// Output vectors with something in them already.
Flat Used() {
    return {{{7, 7}, {8, 8}}, {2}};
}

void ExpectUntouched(const Flat& flat) {
    EXPECT_EQ(Text(flat.pts), "7 7, 8 8");
    EXPECT_THAT(flat.counts, ElementsAre(2u));
}

GpcPolygon ToPolygon(const Flat& flat) {
    return GpcPolygon(flat.pts.data(), flat.counts.data(), flat.counts.size());
}

// Polygon against polygon.

TEST(ClipGPolygonToGPolygon, GivesTheIntersection) {
    GpcPolygon result;
    ClipGPolygonToGPolygon(PolygonOf(TRIANGLE), PolygonOf(DIAMOND), result);
    EXPECT_EQ(Area(result), 16);
    EXPECT_TRUE(IsInside(result, {3, 3}));
    EXPECT_FALSE(IsInside(result, {1, 1}));
}

TEST(ClipGPolygonToGPolygon, ResultOfAnyClipPolygonIsReplaced) {
    GpcPolygon result = PolygonOf("90 90, 95 90, 90 95");
    ClipGPolygonToGPolygon(PolygonOf(TRIANGLE), PolygonOf(DIAMOND), result);
    EXPECT_EQ(Area(result), 16);
    EXPECT_EQ(result.GetBBox(), Box2d(0, 0, 6, 6));
}

TEST(ClipGPolygonToGPolygon, ResultOfARectangleIsAppendedTo) {
    GpcPolygon result = PolygonOf("90 90, 95 90, 90 95");
    ClipGPolygonToGPolygon(PolygonOf(TRIANGLE), GpcPolygon(0.0, 4.0, 4.0, 0.0), result);
    ASSERT_EQ(result.GetNumContours(), 2u);
    EXPECT_EQ(Text(test::Points(result.contour[0])), "90 90, 95 90, 90 95");
    EXPECT_EQ(Area(result), 12.5 + 16);
    EXPECT_EQ(result.GetBBox(), Box2d(0, 0, 95, 95));
}

TEST(ClipGPolygonToGPolygon, RectangleIsClippedToByTheRectangleClipper) {
    const GpcPolygon rectangle(1.0, 5.0, 5.0, -1.0);
    GpcPolygon byRectangle;
    ClipGPolygonToGPolygon(PolygonOf(L_SHAPE), rectangle, byRectangle);
    GpcPolygon direct;
    ClipGPolygonToRect(PolygonOf(L_SHAPE), Box2d(1, -1, 5, 5), direct);
    EXPECT_EQ(Text(byRectangle), Text(direct));
    GpcPolygon byEngine = PolygonOf(L_SHAPE);
    byEngine.Intersection(rectangle);
    EXPECT_EQ(Area(byRectangle), Area(byEngine));
    EXPECT_NE(Text(byRectangle), Text(byEngine)) << "the clippers start their rings differently";
}

TEST(ClipGPolygonToGPolygon, TopDownRectangleIsNormalised) {
    GpcPolygon result;
    ClipGPolygonToGPolygon(PolygonOf(TRIANGLE), GpcPolygon(tagRECT{0, 0, 4, 4}), result);
    EXPECT_EQ(Area(result), 16);
}

TEST(ClipGPolygonToGPolygon, ResultMayBeTheSubject) {
    GpcPolygon subject = PolygonOf(TRIANGLE);
    ClipGPolygonToGPolygon(subject, PolygonOf(DIAMOND), subject);
    EXPECT_EQ(Area(subject), 16);
    GpcPolygon appended = PolygonOf(TRIANGLE);
    ClipGPolygonToGPolygon(appended, GpcPolygon(0.0, 4.0, 4.0, 0.0), appended);
    EXPECT_EQ(Area(appended), 32 + 16) << "what remains is appended";
}

TEST(ClipGPolygonToGPolygon, ResultMayBeTheClipPolygon) {
    GpcPolygon clip = PolygonOf(DIAMOND);
    ClipGPolygonToGPolygon(PolygonOf(TRIANGLE), clip, clip);
    EXPECT_EQ(Area(clip), 16);
    GpcPolygon rectangle(0.0, 4.0, 4.0, 0.0);
    ClipGPolygonToGPolygon(PolygonOf(TRIANGLE), rectangle, rectangle);
    EXPECT_EQ(Area(rectangle), 16 + 16);
}

TEST(ClipGPolygonToGPolygon, SubjectMayBeTheClipPolygon) {
    const GpcPolygon polygon = PolygonOf(L_SHAPE);
    GpcPolygon result;
    ClipGPolygonToGPolygon(polygon, polygon, result);
    EXPECT_EQ(Area(result), Area(polygon));
}

TEST(ClipGPolygonToGPolygon, EmptyClipPolygonClipsEverythingAway) {
    GpcPolygon result = PolygonOf(TRIANGLE);
    ClipGPolygonToGPolygon(PolygonOf(TRIANGLE), GpcPolygon(), result);
    EXPECT_EQ(result.GetNumContours(), 0u);
    EXPECT_EQ(result.GetBBox(), Box2d());
    Flat out = Used();
    ClipGPolygonToGPolygon(PolygonOf(TRIANGLE), GpcPolygon(), out.pts, out.counts, false);
    ExpectUntouched(out);
}

TEST(ClipGPolygonToGPolygon, FlatOutputIsReplacedWhenSomethingRemains) {
    for (const bool close : {false, true}) {
        Flat out = Used();
        ClipGPolygonToGPolygon(PolygonOf(TRIANGLE), PolygonOf(DIAMOND), out.pts, out.counts, close);
        ASSERT_EQ(out.counts.size(), 1u);
        EXPECT_EQ(out.pts.size(), out.counts[0]);
        EXPECT_EQ(Area(ToPolygon(out)), 16);
        EXPECT_EQ(out.pts.front() == out.pts.back(), close);
    }
}

TEST(ClipGPolygonToGPolygon, FlatOutputIsUntouchedWhenNothingRemains) {
    for (const char* clip : {"20 20, 28 20, 20 28", "20 20, 28 20, 28 28, 20 28"}) {
        Flat out = Used();
        ClipGPolygonToGPolygon(PolygonOf(TRIANGLE), PolygonOf(clip), out.pts, out.counts, true);
        ExpectUntouched(out);
    }
}

TEST(ClipPolyPolygonToGPolygon, PartsAreExternalContoursUnderParity) {
    const std::vector<Vec2d> pts = PointsOf("0 0, 9 0, 9 9, 0 9, 3 3, 6 3, 6 6, 3 6");
    const unsigned int counts[] = {4, 4};
    Flat out = Used();
    ClipPolyPolygonToGPolygon(pts.data(), counts, 2, PolygonOf("-1 -1, 20 -1, -1 20"), out.pts,
                              out.counts, false);
    ASSERT_EQ(out.counts.size(), 2u);
    const auto secondRing = out.pts.begin() + out.counts[0];
    const double first = std::fabs(test::SignedDoubleArea({out.pts.begin(), secondRing})) / 2;
    const double second = std::fabs(test::SignedDoubleArea({secondRing, out.pts.end()})) / 2;
    EXPECT_EQ(std::fabs(first - second), 81 - 9) << "the inner part is a hole";
}

TEST(ClipPolyPolygonToGPolygon, InputMayBeTheOutput) {
    Flat flat = {PointsOf(TRIANGLE), {3}};
    ClipPolyPolygonToGPolygon(flat.pts.data(), flat.counts.data(), 1, PolygonOf(DIAMOND), flat.pts,
                              flat.counts, false);
    EXPECT_EQ(Area(ToPolygon(flat)), 16);
}

TEST(ClipPolyPolygonToGPolygon, NothingInLeavesTheOutputUntouched) {
    Flat out = Used();
    ClipPolyPolygonToGPolygon(nullptr, nullptr, 0, PolygonOf(DIAMOND), out.pts, out.counts, true);
    ExpectUntouched(out);
    const unsigned int counts[] = {0, 0};
    ClipPolyPolygonToGPolygon(nullptr, counts, 2, PolygonOf(DIAMOND), out.pts, out.counts, true);
    ExpectUntouched(out);
}

TEST(ClipPolyPolygonToGPolygon, NullArraysAreThePolygonsInternalErrors) {
    Flat out = Used();
    const Vec2d p(1, 1);
    const unsigned int n = 1;
    const GpcPolygon clip = PolygonOf(DIAMOND);
    ExpectError([&] { ClipPolyPolygonToGPolygon(nullptr, &n, 1, clip, out.pts, out.counts, true); },
                "Geometry", "GpcPolygon", 131);
    ExpectError([&] { ClipPolyPolygonToGPolygon(&p, nullptr, 1, clip, out.pts, out.counts, true); },
                "Geometry", "GpcPolygon", 132);
    ExpectError([&] { ClipPolyPolygonToRect(nullptr, &n, 1, Box2d(), out.pts, out.counts, true); },
                "Geometry", "GpcPolygon", 131);
    ExpectError([&] { PolygonContains(clip, &p, nullptr, 1); }, "Geometry", "GpcPolygon", 132);
    ExpectUntouched(out);
}

// Polygon against rectangle.

TEST(ClipGPolygonToRect, ContourWhollyInsideIsKept) {
    GpcPolygon result;
    ClipGPolygonToRect(PolygonOf("1 1, 3 1, 3 3, 1 3"), Box2d(0, 0, 9, 9), result);
    EXPECT_EQ(Text(result), "1 1, 3 1, 3 3, 1 3");
    EXPECT_EQ(result.GetBBox(), Box2d(1, 1, 3, 3));
}

TEST(ClipGPolygonToRect, ContourWhollyOutsideVanishes) {
    GpcPolygon result = PolygonOf("90 90, 95 90, 90 95");
    ClipGPolygonToRect(PolygonOf("1 1, 3 1, 3 3, 1 3"), Box2d(10, 0, 19, 9), result);
    EXPECT_EQ(Text(result), "90 90, 95 90, 90 95");
    EXPECT_EQ(result.GetBBox(), Box2d(90, 90, 95, 95));
}

TEST(ClipGPolygonToRect, ReversedRectangleIsNormalised) {
    GpcPolygon result;
    ClipGPolygonToRect(PolygonOf(TRIANGLE), Box2d(4, 4, 0, 0), result);
    EXPECT_EQ(Area(result), 16);
}

TEST(ClipGPolygonToRect, EmptyBoxIsTheWholePlane) {
    GpcPolygon result;
    ClipGPolygonToRect(PolygonOf(DIAMOND), Box2d(), result);
    EXPECT_EQ(Text(result), DIAMOND);
}

TEST(ClipGPolygonToRect, HolesComeOutAsExternalContours) {
    GpcPolygon result;
    ClipGPolygonToRect(PolygonOf("0 0, 9 0, 9 9, 0 9 | hole 3 3, 6 3, 6 6, 3 6"), Box2d(0, 0, 9, 5),
                       result);
    ASSERT_EQ(result.GetNumContours(), 2u);
    EXPECT_EQ(result.hole[0], 0);
    EXPECT_EQ(result.hole[1], 0);
    EXPECT_EQ(Area(result), 45 + 6);
}

TEST(ClipGPolygonToRect, ContourOfTwoPointsIsKept) {
    GpcPolygon result;
    ClipGPolygonToRect(PolygonOf("1 5, 4 5"), Box2d(0, 5, 9, 9), result);
    EXPECT_EQ(Text(result), "1 5, 4 5");
}

TEST(ClipGPolygonToRect, ContourOfOnePointVanishes) {
    GpcPolygon result;
    ClipGPolygonToRect(PolygonOf("1 5 | 2 6, 3 6, 3 7"), Box2d(0, 5, 9, 9), result);
    EXPECT_EQ(result.GetNumContours(), 1u);
    EXPECT_EQ(result.GetContourVertexCount(0), 3u);
}

TEST(ClipGPolygonToRect, ContourThatTouchesTheBoundaryLeavesItsTip) {
    GpcPolygon result;
    ClipGPolygonToRect(PolygonOf("0 1, 4 5, 8 1"), Box2d(0, 5, 9, 9), result);
    EXPECT_EQ(Text(result), "4 5, 4 5") << "the clipper gave it three times";
}

TEST(ClipGPolygonToRect, ClosingDuplicateInTheOutputIsDropped) {
    GpcPolygon result;
    ClipGPolygonToRect(PolygonOf("1 1, 3 1, 3 3, 1 1"), Box2d(0, 0, 9, 9), result);
    EXPECT_EQ(Text(result), "1 1, 3 1, 3 3") << "the clipper turns four points by four places";
}

TEST(ClipGPolygonToRect, ResultMayBeTheSubject) {
    GpcPolygon polygon = PolygonOf("0 0, 8 0, 8 8, 0 8");
    ClipGPolygonToRect(polygon, Box2d(0, 0, 4, 4), polygon);
    ASSERT_EQ(polygon.GetNumContours(), 2u);
    EXPECT_EQ(Area(polygon), 64 + 16);
}

TEST(ClipGPolygonToRect, EmptyContoursAndPolygonsGiveNothing) {
    GpcPolygon result;
    ClipGPolygonToRect(PolygonOf("- | -"), Box2d(0, 0, 9, 9), result);
    ClipGPolygonToRect(GpcPolygon(), Box2d(0, 0, 9, 9), result);
    EXPECT_EQ(result.GetNumContours(), 0u);
}

TEST(ClipGPolygonToRect, FlatOutputIsReplacedWhenSomethingRemains) {
    for (const bool close : {false, true}) {
        Flat out = Used();
        ClipGPolygonToRect(PolygonOf("0 0, 8 0, 8 8, 0 8 | 9 9, 12 9, 12 12"), Box2d(0, 0, 10, 10),
                           out.pts, out.counts, close);
        EXPECT_EQ(out.counts.size(), 2u);
        EXPECT_EQ(out.counts[0], close ? 5u : 4u);
        EXPECT_EQ(Area(ToPolygon(out)), 64 + 0.5);
    }
}

TEST(ClipGPolygonToRect, FlatOutputIsUntouchedWhenNothingRemains) {
    Flat out = Used();
    ClipGPolygonToRect(PolygonOf(TRIANGLE), Box2d(20, 20, 30, 30), out.pts, out.counts, true);
    ExpectUntouched(out);
    ClipPolyPolygonToRect(PointsOf(TRIANGLE).data(), Counts{3}.data(), 1, Box2d(20, 20, 30, 30),
                          out.pts, out.counts, true);
    ExpectUntouched(out);
    ClipPolyPolygonToRect(nullptr, nullptr, 0, Box2d(20, 20, 30, 30), out.pts, out.counts, true);
    ExpectUntouched(out);
}

TEST(ClipPolyPolygonToRect, ClipsEachPart) {
    Flat flat = {PointsOf("0 0, 8 0, 8 8, 0 8, 0 0, 20 20, 24 20, 20 24, 2 2, 3 2, 2 3"),
                 {5, 3, 3}};
    ClipPolyPolygonToRect(flat.pts.data(), flat.counts.data(), 3, Box2d(0, 0, 4, 4), flat.pts,
                          flat.counts, false);
    EXPECT_THAT(flat.counts, ElementsAre(4u, 3u));
    EXPECT_EQ(Area(ToPolygon(flat)), 16 + 0.5);
}

// Three contours of more points than a small buffer holds.
GpcPolygon Combs() {
    GpcPolygon combs;
    for (int i = 0; i < 3; ++i) {
        std::vector<Vec2d> comb;
        for (int k = 0; k < 40; ++k) {
            comb.emplace_back(k, k % 2 * 9);
        }
        combs.AddContours(GpcPolygon(comb.data(), comb.size()));
    }
    return combs;
}

/// Makes each heap request of a clip fail in turn, and returns what was thrown each time. The
/// output must stay as it was.
template <typename Output, typename Clip, typename ExpectBefore>
std::vector<std::string> FailuresOf(const Output& before, Clip clip, ExpectBefore expectBefore) {
    std::vector<std::string> failures;
    for (bool failed = true; failed;) {
        Output out(before);
        char text[64] = ""; // no heap while the probe lives
        {
            test::AllocationProbe probe(failures.size());
            try {
                clip(out);
            } catch (const Exception& e) {
                std::snprintf(text, sizeof text, "%s %d", e.File().Narrow().c_str(), e.Line());
            } catch (const std::bad_alloc&) {
                std::snprintf(text, sizeof text, "bad_alloc");
            }
            failed = text[0] != '\0';
            EXPECT_EQ(failed, probe.Failed());
            EXPECT_TRUE(!failed || probe.Balance() == 0) << "request " << failures.size();
        }
        if (failed) {
            expectBefore(out);
            failures.emplace_back(text);
        }
    }
    return failures;
}

TEST(ClipGPolygonToRect, ExhaustedHeapChangesNothing) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    const GpcPolygon subject = Combs();
    const Box2d box(0, 0, 40, 5);
    const std::vector<std::string> toPolygon = FailuresOf(
        PolygonOf(TRIANGLE), [&](GpcPolygon& result) { ClipGPolygonToRect(subject, box, result); },
        [](const GpcPolygon& result) { EXPECT_EQ(Text(result), TRIANGLE); });
    ASSERT_GT(toPolygon.size(), 4u);
    EXPECT_EQ(toPolygon[0], "GpcPolygon 326");
    EXPECT_EQ(toPolygon[1], "GpcPolygon 326");
    EXPECT_EQ(toPolygon.back(), "Gpc 200");
    const std::vector<std::string> toVectors = FailuresOf(
        Used(), [&](Flat& out) { ClipGPolygonToRect(subject, box, out.pts, out.counts, true); },
        ExpectUntouched);
    ASSERT_GT(toVectors.size(), 2u);
    EXPECT_EQ(toVectors[0], "GpcPolygon 326");
    EXPECT_EQ(toVectors[1], "GpcPolygon 326");
    EXPECT_EQ(toVectors.back(), "GpcPolygon 326");
}

TEST(ClipPolyPolygonToRect, ExhaustedHeapChangesNothing) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    Flat combs;
    Combs().GetPolyPolygon(combs.pts, combs.counts, false);
    for (const double right : {40.0, 4.0}) { // most of the points stay, or few
        const std::vector<std::string> failures = FailuresOf(
            Used(),
            [&](Flat& out) {
                ClipPolyPolygonToRect(combs.pts.data(), combs.counts.data(), 3,
                                      Box2d(0, 0, right, 5), out.pts, out.counts, true);
            },
            ExpectUntouched);
        ASSERT_GT(failures.size(), 2u);
        EXPECT_EQ(failures[0], "GpcPolygon 878") << "as a polygon's contours";
        EXPECT_EQ(failures[1], "GpcPolygon 903") << "as their vertices";
        EXPECT_EQ(failures.back(), "GpcPolygon 326");
    }
}

TEST(ClipPolyPolygonToRect, CountsBeyondAPolygonsRangeAreRefused) {
    const Vec2d p(1, 1);
    const unsigned int counts[] = {1, 0x80000000u};
    Flat out = Used();
    ExpectError([&] { ClipPolyPolygonToRect(&p, counts, 2, Box2d(), out.pts, out.counts, true); },
                "Geometry", "GpcPolygon", 903);
    ExpectError(
        [&] {
            ClipPolyPolygonToRect(&p, counts, std::size_t{1} << 31, Box2d(), out.pts, out.counts,
                                  true);
        },
        "Geometry", "GpcPolygon", 878);
    ExpectUntouched(out);
}

// A star around a random centre: simple, and hole-free.
GpcPolygon RandomStar(std::mt19937_64& random) {
    std::uniform_real_distribution<double> coordinate(0, 10);
    std::uniform_real_distribution<double> radius(0.5, 6);
    std::uniform_int_distribution<int> size(3, 20);
    const Vec2d centre(coordinate(random), coordinate(random));
    const int n = size(random);
    std::vector<Vec2d> pts;
    for (int i = 0; i < n; ++i) {
        const double angle = kit::TWO_PI * i / n;
        const double r = radius(random);
        pts.emplace_back(centre.x + r * std::cos(angle), centre.y + r * std::sin(angle));
    }
    return GpcPolygon(pts.data(), pts.size());
}

TEST(ClipGPolygonToRect, CoversWhatTheEnginesIntersectionCovers) {
    constexpr unsigned int SEED = 1789;
    RecordProperty("seed", SEED);
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(0, 10);
    int clipped = 0;
    for (int i = 0; i < 5000; ++i) {
        const GpcPolygon star = RandomStar(random);
        const Vec2d a(coordinate(random), coordinate(random));
        const Vec2d b(coordinate(random), coordinate(random));
        const Box2d box(a.x, a.y, b.x, b.y);
        GpcPolygon byClipper;
        ClipGPolygonToRect(star, box, byClipper);
        GpcPolygon byEngine = star;
        byEngine.Intersection(GpcPolygon(a.x, a.y, b.x, b.y));
        // Coordinates below 20 carry errors of some 1e-15 each along edges of up to 12.
        ASSERT_NEAR(Area(byClipper), Area(byEngine), 1e-12)
            << Text(star) << " in " << Text(a) << ", " << Text(b) << ", seed " << SEED;
        const double area = Area(byEngine);
        clipped += area > 0 && area < Area(star) - 1e-9;
    }
    EXPECT_GT(clipped, 2000);
}

// Containment.

TEST(PolygonContains, RectangularOuterComparesBoxesOnly) {
    const GpcPolygon outer(0.0, 6.0, 6.0, 0.0);
    EXPECT_TRUE(PolygonContains(outer, PolygonOf(L_SHAPE)));
    EXPECT_TRUE(PolygonContains(outer, PolygonOf("1 1, 2 1, 1 2")));
    EXPECT_FALSE(PolygonContains(outer, PolygonOf("1 1, 6.5 1, 1 2")));
    EXPECT_TRUE(PolygonContains(GpcPolygon(tagRECT{0, 0, 6, 6}), PolygonOf(L_SHAPE)))
        << "top-down boxes are normalised";
}

TEST(PolygonContains, NonRectangularOuterDecidesByTheSecondDifference) {
    const GpcPolygon outer = PolygonOf(L_SHAPE);
    EXPECT_TRUE(PolygonContains(outer, PolygonOf("1 1, 5 1, 1.5 1.5, 1 5")))
        << "its box does not fit";
    EXPECT_TRUE(PolygonContains(outer, PolygonOf(L_SHAPE)));
    EXPECT_FALSE(PolygonContains(outer, PolygonOf("1 1, 5 5, 1 5")));
}

TEST(PolygonContains, NonRectangularOuterDecidesByTheBoxWhenItFits) {
    EXPECT_TRUE(PolygonContains(PolygonOf(DIAMOND), PolygonOf("3 3, 5 3, 4 5")));
    EXPECT_FALSE(PolygonContains(PolygonOf(DIAMOND), PolygonOf("10 3, 12 3, 11 5")));
}

TEST(PolygonContains, HoleOfTheOuterIsNotWithinIt) {
    const GpcPolygon ring = PolygonOf("0 0, 9 0, 9 9, 0 9 | hole 3 3, 6 3, 6 6, 3 6");
    EXPECT_FALSE(PolygonContains(ring, PolygonOf("4 4, 5 4, 4 5")));
    EXPECT_FALSE(PolygonContains(ring, PolygonOf("2 2, 7 2, 7 7, 2 7")));
    EXPECT_TRUE(PolygonContains(ring, PolygonOf("1 1, 8 1, 8 2, 1 2")));
    EXPECT_TRUE(PolygonContains(ring, ring));
}

TEST(PolygonContains, EmptyInner) {
    for (const GpcPolygon& none : {GpcPolygon(), PolygonOf("- | -")}) {
        EXPECT_TRUE(PolygonContains(PolygonOf(DIAMOND), none));
        EXPECT_TRUE(PolygonContains(GpcPolygon(), none));
        EXPECT_FALSE(PolygonContains(GpcPolygon(0.0, 6.0, 6.0, 0.0), none))
            << "its box is the whole plane";
    }
    EXPECT_TRUE(PolygonContains(GpcPolygon(-LARGEST, LARGEST, LARGEST, -LARGEST), GpcPolygon()));
    EXPECT_TRUE(PolygonContains(PolygonOf(DIAMOND), nullptr, nullptr, 0));
}

TEST(PolygonContains, EmptyOuterContainsNothing) {
    EXPECT_FALSE(PolygonContains(GpcPolygon(), PolygonOf(TRIANGLE)));
}

TEST(PolygonContains, FlatInnerIsTakenAsExternalContours) {
    const std::vector<Vec2d> pts = PointsOf("1 1, 2 1, 1 2, 4 1, 5 1, 4 1.5");
    const unsigned int counts[] = {3, 3};
    EXPECT_TRUE(PolygonContains(PolygonOf(L_SHAPE), pts.data(), counts, 2));
    EXPECT_FALSE(PolygonContains(PolygonOf("0 0, 3 0, 0 3"), pts.data(), counts, 2));
    EXPECT_TRUE(PolygonContains(GpcPolygon(0.0, 6.0, 6.0, 0.0), pts.data(), counts, 2));
}

} // namespace
} // namespace geom
