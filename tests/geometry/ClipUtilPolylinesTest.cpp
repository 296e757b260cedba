// SPDX-License-Identifier: MIT
#include "geometry/ClipUtil.h"
#include "geometry/DashLineGenerator.h"
#include "geometry/GpcPolygon.h"
#include "geometry/LineClipPolygon.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/LineClipCases.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <new>

namespace geom {
namespace {

using test::AllocationProbe;
using test::ExpectError;
using test::LineClipCase;
using test::LineClipCases;

using Points = std::vector<Vec2d>;
using Counts = std::vector<unsigned int>;

constexpr double LARGEST = std::numeric_limits<double>::max();
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

struct Flat {
    Points points;
    Counts counts;
};

void ExpectFlat(const Flat& flat, const Points& points, const Counts& counts) {
    EXPECT_EQ(flat.counts, counts);
    ASSERT_EQ(flat.points.size(), points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_EQ(flat.points[i], points[i])
            << i << ": (" << flat.points[i].x << ", " << flat.points[i].y << ")";
    }
}

Flat ToRect(const Flat& lines, const Box2d& rect, Flat out = {}) {
    ClipPolylinesToRect(lines.points.data(), lines.counts.data(), lines.counts.size(), rect,
                        out.points, out.counts);
    return out;
}

template <typename Polygon>
Flat ToPolygon(const Flat& lines, const Polygon& clip, Flat out = {}) {
    ClipPolylinesToPolygon(lines.points.data(), lines.counts.data(), lines.counts.size(), clip,
                           out.points, out.counts);
    return out;
}

Flat Dashed(const Flat& lines, DashLineGenerator& dashes, const GpcPolygon& clip, Flat out = {}) {
    ClipDashedPolylinesToPolygon(lines.points.data(), lines.counts.data(), lines.counts.size(),
                                 dashes, clip, out.points, out.counts);
    return out;
}

// A diamond about (5, 5).
GpcPolygon Diamond() {
    const Vec2d points[] = {{5, 0}, {10, 5}, {5, 10}, {0, 5}};
    return {points, 4};
}

// A rectangle that is not recognised, because its first edge is vertical.
GpcPolygon UprightSquare() {
    const Vec2d points[] = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};
    return {points, 4};
}

GpcPolygon Square() {
    return {0, 0, 10, 10};
}

DashLineGenerator Dashes(const std::vector<double>& dashes) {
    return {dashes.data(), dashes.size()};
}

TEST(ClipPolylinesToRect, KeepsTheRunsInside) {
    ExpectFlat(ToRect({{{-5, 5}, {5, 5}, {5, 15}, {7, 15}, {7, 5}}, {5}}, {0, 0, 10, 10}),
               {{0, 5}, {5, 5}, {5, 10}, {7, 10}, {7, 5}}, {3, 2});
}

TEST(ClipPolylinesToRect, TakesEachLineFromTheFlatInputAndAppends) {
    const Flat lines = {{{1, 1}, {2, 2}, {20, 20}, {21, 21}, {3, 3}, {4, 4}, {5, 3}}, {2, 2, 3}};
    ExpectFlat(ToRect(lines, {0, 0, 10, 10}, {{{9, 9}, {9, 8}}, {2}}),
               {{9, 9}, {9, 8}, {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 3}}, {2, 2, 3});
}

TEST(ClipPolylinesToRect, JoinsNothingToWhatIsThere) {
    ExpectFlat(ToRect({{{1, 1}, {2, 2}}, {2}}, {0, 0, 10, 10}, {{{0, 0}, {1, 1}}, {2}}),
               {{0, 0}, {1, 1}, {1, 1}, {2, 2}}, {2, 2});
}

TEST(ClipPolylinesToRect, SinglePointsAndEmptyLines) {
    ExpectFlat(ToRect({{{1, 1}, {20, 1}, {10, 10}}, {1, 0, 1, 1}}, {0, 0, 10, 10}),
               {{1, 1}, {10, 10}}, {1, 1});
}

TEST(ClipPolylinesToRect, ReversedRectangleIsNormalised) {
    ExpectFlat(ToRect({{{-5, 5}, {5, 5}}, {2}}, {10, 10, 0, 0}), {{0, 5}, {5, 5}}, {2});
}

TEST(ClipPolylinesToRect, RectangleWithoutHeightStillClips) {
    const Box2d line(0, 5, 10, 5);
    ExpectFlat(ToRect({{{3, 0}, {3, 10}}, {2}}, line), {{3, 5}, {3, 5}}, {2});
    ExpectFlat(ToRect({{{-3, 5}, {3, 5}}, {2}}, line), {{0, 5}, {3, 5}}, {2});
    ExpectFlat(ToRect({{{-3, 4}, {3, 4}}, {2}}, line), {}, {});
}

TEST(ClipPolylinesToRect, RectangleThatIsAPointStillClips) {
    ExpectFlat(ToRect({{{0, 0}, {4, 4}, {8, 1}}, {3}}, {2, 2, 2, 2}), {{2, 2}, {2, 2}}, {2});
}

TEST(ClipPolylinesToRect, EmptyBoxIsTheWholePlane) {
    const Flat lines = {{{-1e300, 5}, {5, 1e300}, {7, 7}}, {3}};
    ExpectFlat(ToRect(lines, Box2d()), lines.points, lines.counts);
}

template <typename Call>
void ExpectInputErrors(Call call, int line) {
    const Vec2d point(0, 0);
    const unsigned int count = 1;
    ExpectError([&] { call(nullptr, &count, 1); }, "Geometry", "ClipUtil", line, "Internal error");
    ExpectError([&] { call(&point, nullptr, 1); }, "Geometry", "ClipUtil", line + 1,
                "Internal error");
    ExpectError([&] { call(&point, &count, 0); }, "Geometry", "ClipUtil", line + 2,
                "Internal error");
    ExpectError([&] { call(nullptr, nullptr, 0); }, "Geometry", "ClipUtil", line);
    ExpectError([&] { call(&point, nullptr, 0); }, "Geometry", "ClipUtil", line + 1);
}

TEST(ClipPolylinesToRect, MissingInputIsAnInternalError) {
    Flat out = {{{1, 1}}, {1}};
    const auto call = [&](const Vec2d* pts, const unsigned int* counts, std::size_t n) {
        ClipPolylinesToRect(pts, counts, n, {0, 0, 1, 1}, out.points, out.counts);
    };
    ExpectInputErrors(call, 422);
    ExpectFlat(out, {{1, 1}}, {1});
}

TEST(ClipPolylinesToPolygon, MissingInputIsReportedByWhoLooksFirst) {
    Flat out;
    const auto callWith = [&out](const auto& clip) {
        return [&out, &clip](const Vec2d* pts, const unsigned int* counts, std::size_t n) {
            ClipPolylinesToPolygon(pts, counts, n, clip, out.points, out.counts);
        };
    };
    ExpectInputErrors(callWith(Square()), 422);
    ExpectInputErrors(callWith(Diamond()), 381);
    ExpectInputErrors(callWith(GpcPolygon()), 381);
    ExpectInputErrors(callWith(LineClipPolygon(Square())), 381);
    ExpectInputErrors(callWith(LineClipPolygon(Diamond())), 381);
}

TEST(ClipDashedPolylinesToPolygon, MissingInputIsAnInternalError) {
    DashLineGenerator dashes = Dashes({1, 1});
    Flat out;
    for (const GpcPolygon& clip : {Square(), Diamond()}) {
        const auto call = [&](const Vec2d* pts, const unsigned int* counts, std::size_t n) {
            ClipDashedPolylinesToPolygon(pts, counts, n, dashes, clip, out.points, out.counts);
        };
        ExpectInputErrors(call, 306);
    }
}

TEST(ClipPolylinesToPolygon, RectangleTakesTheRectangleClipper) {
    // Boundary stretches survive there, whichever side they are on.
    const Flat lines = {{{-5, 10}, {5, 10}, {5, -5}}, {3}};
    ExpectFlat(ToPolygon(lines, Square()), {{0, 10}, {5, 10}, {5, 0}}, {3});
    ExpectFlat(ToPolygon(lines, LineClipPolygon(Square())), {{0, 10}, {5, 10}, {5, 0}}, {3});
    ExpectFlat(ToPolygon(lines, GpcPolygon(10, 10, 0, 0)), {{0, 10}, {5, 10}, {5, 0}}, {3});
}

TEST(ClipPolylinesToPolygon, OtherPolygonsTakeTheLineClipper) {
    const Flat lines = {{{-5, 5}, {5, 5}, {5, -5}}, {3}};
    ExpectFlat(ToPolygon(lines, Diamond()), {{0, 5}, {5, 5}, {5, 0}}, {3});
    ExpectFlat(ToPolygon(lines, LineClipPolygon(Diamond())), {{0, 5}, {5, 5}, {5, 0}}, {3});
    const Flat along = {{{-5, 10}, {5, 10}}, {2}};
    ExpectFlat(ToPolygon(along, UprightSquare()), {}, {});
}

TEST(ClipPolylinesToPolygon, PiecesJoinTheRunThatEndsTheOutputs) {
    ExpectFlat(ToPolygon({{{2, 5}, {4, 5}}, {2}}, Diamond(), {{{2, 4}, {2, 5}}, {2}}),
               {{2, 4}, {2, 5}, {4, 5}}, {3});
    ExpectFlat(ToPolygon({{{2, 5}, {4, 5}}, {2}}, Diamond(), {{{2, 5}, {2, 4}}, {2}}),
               {{2, 4}, {2, 5}, {4, 5}}, {3});
}

TEST(ClipPolylinesToPolygon, LinesOfAMapThatTouchBecomeOneRun) {
    ExpectFlat(ToPolygon({{{2, 5}, {4, 5}, {4, 5}, {6, 5}}, {2, 2}}, Diamond()),
               {{2, 5}, {4, 5}, {6, 5}}, {3});
    ExpectFlat(ToPolygon({{{2, 5}, {4, 5}, {4, 5}, {6, 5}}, {2, 2}}, Square()),
               {{2, 5}, {4, 5}, {4, 5}, {6, 5}}, {2, 2});
}

TEST(ClipPolylinesToPolygon, EmptyPolygonLetsEveryLinePass) {
    const Flat lines = {{{0, 0}, {3, 0}, {3, 7}, {9, 9}, {8, 8}}, {3, 2}};
    ExpectFlat(ToPolygon(lines, GpcPolygon()), {{0, 0}, {3, 0}, {3, 7}, {8, 8}, {9, 9}}, {3, 2});
    ExpectFlat(ToPolygon(lines, LineClipPolygon()), {{0, 0}, {3, 0}, {3, 7}, {8, 8}, {9, 9}},
               {3, 2});
}

TEST(ClipPolylinesToPolygon, SinglePointsAndEmptyLinesGiveNothing) {
    ExpectFlat(ToPolygon({{{5, 5}, {4, 5}, {6, 5}}, {1, 0, 2}}, Diamond()), {{4, 5}, {6, 5}}, {2});
}

TEST(ClipPolylinesToPolygon, InputMayLieInTheOutputs) {
    const Flat lines = {{{-5, 5}, {5, 5}, {5, -5}, {5, 15}}, {2, 2}};
    const auto inPlace = [&lines](auto clip) {
        Flat flat = lines;
        flat.points.shrink_to_fit();
        flat.counts.shrink_to_fit();
        clip(flat);
        return flat;
    };
    const Flat polygon = inPlace([](Flat& flat) {
        ClipPolylinesToPolygon(flat.points.data(), flat.counts.data(), 2, Diamond(), flat.points,
                               flat.counts);
    });
    const Flat expected = ToPolygon(lines, Diamond(), lines);
    ExpectFlat(polygon, expected.points, expected.counts);
    const Flat rect = inPlace([](Flat& flat) {
        ClipPolylinesToRect(flat.points.data(), flat.counts.data(), 2, {0, 0, 10, 10}, flat.points,
                            flat.counts);
    });
    const Flat expectedRect = ToRect(lines, {0, 0, 10, 10}, lines);
    ExpectFlat(rect, expectedRect.points, expectedRect.counts);
    const Flat dashed = inPlace([](Flat& flat) {
        DashLineGenerator dashes = Dashes({2, 1});
        ClipDashedPolylinesToPolygon(flat.points.data(), flat.counts.data(), 2, dashes, Diamond(),
                                     flat.points, flat.counts);
    });
    DashLineGenerator dashes = Dashes({2, 1});
    const Flat expectedDashes = Dashed(lines, dashes, Diamond(), lines);
    ExpectFlat(dashed, expectedDashes.points, expectedDashes.counts);
}

TEST(ClipDashedPolylinesToPolygon, OnePartForEachVisiblePiece) {
    DashLineGenerator dashes = Dashes({4, 2});
    ExpectFlat(Dashed({{{-2, 5}, {9, 5}}, {2}}, dashes, Square()), {{0, 5}, {2, 5}, {4, 5}, {8, 5}},
               {2, 2});
    // A run that the next piece does not fit is left reversed.
    ExpectFlat(Dashed({{{-2, 5}, {9, 5}}, {2}}, dashes, Diamond()),
               {{2, 5}, {0, 5}, {4, 5}, {8, 5}}, {2, 2});
}

TEST(ClipDashedPolylinesToPolygon, DashThatTurnsACornerIsJoinedUnlessTheClipIsARectangle) {
    const Flat lines = {{{5, 5}, {6, 5}, {6, 8}}, {3}};
    DashLineGenerator dashes = Dashes({3, 9});
    ExpectFlat(Dashed(lines, dashes, Diamond()), {{5, 5}, {6, 5}, {6, 7}}, {3});
    dashes = Dashes({3, 9});
    ExpectFlat(Dashed(lines, dashes, Square()), {{5, 5}, {6, 5}, {6, 5}, {6, 7}}, {2, 2});
}

TEST(ClipDashedPolylinesToPolygon, PhaseCarriesFromLineToLineAndFromCallToCall) {
    DashLineGenerator dashes = Dashes({2, 1});
    ExpectFlat(Dashed({{{1, 5}, {2, 5}, {2, 5}, {5, 5}}, {2, 2}}, dashes, Square()),
               {{1, 5}, {2, 5}, {2, 5}, {3, 5}, {4, 5}, {5, 5}}, {2, 2, 2});
    ExpectFlat(Dashed({{{5, 5}, {8, 5}}, {2}}, dashes, Square()), {{5, 5}, {6, 5}, {7, 5}, {8, 5}},
               {2, 2});
    ExpectFlat(Dashed({{{5, 5}, {8, 5}}, {2}}, dashes, Square()), {{5, 5}, {7, 5}}, {2});
}

TEST(ClipDashedPolylinesToPolygon, SinglePointBetweenLinesResetsThePhase) {
    DashLineGenerator dashes = Dashes({2, 1});
    ExpectFlat(Dashed({{{1, 5}, {2, 5}, {2, 5}, {2, 5}, {5, 5}}, {2, 1, 2}}, dashes, Square()),
               {{1, 5}, {2, 5}, {2, 5}, {4, 5}}, {2, 2});
}

TEST(ClipDashedPolylinesToPolygon, EmptyClipPolygonLetsEveryDashPass) {
    DashLineGenerator dashes = Dashes({2, 1});
    ExpectFlat(Dashed({{{0, 0}, {4, 0}}, {2}}, dashes, GpcPolygon()),
               {{2, 0}, {0, 0}, {3, 0}, {4, 0}}, {2, 2});
}

TEST(ClipDashedPolylinesToPolygon, PatternThatGetsNowhereDrawsSolid) {
    DashLineGenerator dashes = Dashes({});
    ExpectFlat(Dashed({{{-5, 5}, {5, 5}}, {2}}, dashes, Diamond()), {{0, 5}, {5, 5}}, {2});
}

// The procedure dash by dash.
Flat DashByDash(const Flat& lines, DashLineGenerator& dashes, const GpcPolygon& clip, Flat out) {
    const unsigned int two = 2;
    const Vec2d* next = lines.points.data();
    for (const unsigned int n : lines.counts) {
        std::vector<LineSegment2> pieces;
        dashes.Decompose(next, n, pieces);
        next += n;
        for (const LineSegment2& piece : pieces) {
            const Vec2d ends[] = {piece.A(), piece.B()};
            ClipPolylinesToPolygon(ends, &two, 1, clip, out.points, out.counts);
        }
    }
    return out;
}

bool SameBits(const Points& a, const Points& b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        const auto same = [](double s, double t) {
            return (std::isnan(s) && std::isnan(t)) || std::memcmp(&s, &t, sizeof s) == 0;
        };
        if (!same(a[i].x, b[i].x) || !same(a[i].y, b[i].y)) {
            return false;
        }
    }
    return true;
}

TEST(ClipDashedPolylinesToPolygon, GivesTheResultsOfClippingDashByDash) {
    const unsigned int seed = 99;
    LineClipCases cases(seed);
    std::size_t runs = 0;
    std::size_t rectangles = 0;
    for (int round = 0; round < 600; ++round) {
        const LineClipCase made = cases.Next(3);
        Box2d box;
        for (const Vec2d& p : made.ends) {
            box.ExtendBy(p);
        }
        const double size = (box.maxX - box.minX) + (box.maxY - box.minY);
        if (!(size < 1e300)) {
            continue;
        }
        const GpcPolygon clip =
            round % 4 == 0 ? GpcPolygon(box.minX, box.minY, made.ends[0].x, made.ends[0].y)
                           : GpcPolygon(made.points.data(), made.counts.data(), made.counts.size());
        rectangles += clip.IsRectangle(nullptr) ? 1U : 0U;
        const Flat lines = {made.ends, {4, 0, 2}};
        const std::vector<double> pattern = {size / 9, size / 27, size / 81};
        DashLineGenerator atOnce = Dashes(pattern);
        DashLineGenerator oneByOne = Dashes(pattern);
        const Flat before = {{made.points[0], made.points[1]}, {2}};
        const Flat expected = DashByDash(lines, oneByOne, clip, before);
        const Flat got = Dashed(lines, atOnce, clip, before);
        ASSERT_TRUE(SameBits(got.points, expected.points) && got.counts == expected.counts)
            << made.kind << ", seed " << seed << " round " << round;
        runs += got.counts.size();
    }
    std::printf("seed %u: %zu runs compared, %zu rectangles\n", seed, runs, rectangles);
    EXPECT_GT(runs, 3000U);
    EXPECT_GT(rectangles, 50U);
}

TEST(ClipUtilPolylines, CoordinatesThatAreNotFiniteDoNoHarm) {
    const double specials[] = {NOT_A_NUMBER, INF, -INF, LARGEST, -LARGEST, 0.0, 5.0};
    for (const double x : specials) {
        for (const double y : specials) {
            const Flat lines = {{{1, 5}, {x, y}, {7, 5}, {y, x}}, {4}};
            ToRect(lines, {0, 0, 10, 10});
            ToRect(lines, {x, 0, 10, y});
            ToPolygon(lines, Diamond());
            ToPolygon(lines, GpcPolygon());
            const Vec2d bad[] = {{x, y}, {10, 5}, {5, 10}, {y, 5}};
            ToPolygon(lines, GpcPolygon(bad, 4));
            DashLineGenerator dashes = Dashes({2, 1});
            Dashed(lines, dashes, Diamond());
            Dashed(lines, dashes, GpcPolygon(bad, 4));
        }
    }
}

// The heap requests that a call makes for its work; the outputs have room for all they get.
std::size_t RequestsFor(std::size_t dashCount, const GpcPolygon& clip) {
    const Flat lines = {{{0, 5}, {10, 5}}, {2}};
    const double dash = 10.0 / static_cast<double>(2 * dashCount);
    DashLineGenerator dashes = Dashes({dash, dash});
    Flat out;
    out.points.reserve(4 * dashCount);
    out.counts.reserve(4 * dashCount);
    const AllocationProbe probe;
    ClipDashedPolylinesToPolygon(lines.points.data(), lines.counts.data(), 1, dashes, clip,
                                 out.points, out.counts);
    EXPECT_GE(out.counts.size(), dashCount);
    return probe.Count();
}

TEST(ClipDashedPolylinesToPolygon, MemoryIsNotTakenForEachDash) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    for (const GpcPolygon& clip : {Square(), Diamond()}) {
        // Ten more doublings of the vector that takes a line's dashes, and nothing else.
        EXPECT_LE(RequestsFor(16384, clip), RequestsFor(16, clip) + 10);
    }
}

template <typename Call>
void ExpectFailuresToPassOn(Call call) {
    std::size_t failures = 0;
    for (std::size_t k = 0;; ++k) {
        Flat out;
        std::size_t points = 0;
        bool failed = false;
        {
            const AllocationProbe probe(k);
            try {
                call(out);
            } catch (const std::bad_alloc&) {
                failed = true;
            } catch (const Exception& e) {
                failed = true;
                EXPECT_STREQ(e.Message().c_str(), L"Out of memory");
            }
            ASSERT_EQ(failed, probe.Failed());
        }
        for (const unsigned int n : out.counts) {
            points += n;
        }
        EXPECT_EQ(points, out.points.size()) << "after failure " << k;
        if (!failed) {
            break;
        }
        ++failures;
    }
    EXPECT_GT(failures, 0U);
}

TEST(ClipUtilPolylines, ExhaustedMemoryPassesOnAndLeavesWholeRuns) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const Flat lines = {{{1, 5}, {20, 5}, {1, 6}, {8, 6}, {1, 6}, {20, 6}}, {2, 2, 2}};
    const GpcPolygon square = Square();
    const GpcPolygon diamond = Diamond();
    ExpectFailuresToPassOn([&](Flat& out) {
        ClipPolylinesToRect(lines.points.data(), lines.counts.data(), 3, {0, 0, 10, 10}, out.points,
                            out.counts);
    });
    for (const GpcPolygon* clip : {&square, &diamond}) {
        ExpectFailuresToPassOn([&](Flat& out) {
            ClipPolylinesToPolygon(lines.points.data(), lines.counts.data(), 3, *clip, out.points,
                                   out.counts);
        });
        ExpectFailuresToPassOn([&](Flat& out) {
            const double pattern[] = {2, 1};
            DashLineGenerator dashes(pattern, 2);
            ClipDashedPolylinesToPolygon(lines.points.data(), lines.counts.data(), 3, dashes, *clip,
                                         out.points, out.counts);
        });
    }
}

} // namespace
} // namespace geom
