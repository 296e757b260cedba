// SPDX-License-Identifier: MIT
#include "geometry/CLineClip.h"

#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <random>
#include <stdexcept>

namespace {

using geom::Box2d;
using geom::CLineClip;
using geom::Vec2d;
using geom::test::AllocationProbe;
using geom::test::ExpectError;
using testing::ElementsAre;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double LARGEST = std::numeric_limits<double>::max();

const Box2d TEN(0, 0, 10, 10);

using Points = std::vector<Vec2d>;
using Counts = std::vector<unsigned int>;

struct Runs {
    Points points;
    Counts counts;
};

Runs Clip(const CLineClip& clip, const Points& line) {
    Runs runs;
    clip.ClipPolyline(line.data(), line.size(), runs.points, runs.counts);
    return runs;
}

Runs ClipToSink(const CLineClip& clip, const Points& line) {
    Runs runs;
    clip.ClipPolyline(line.data(), line.size(), [&runs](const Vec2d* pts, std::size_t n) {
        runs.points.insert(runs.points.end(), pts, pts + n);
        runs.counts.push_back(static_cast<unsigned int>(n));
    });
    return runs;
}

void ExpectRuns(const CLineClip& clip, const Points& line, const Points& points,
                const Counts& counts) {
    for (const Runs& runs : {Clip(clip, line), ClipToSink(clip, line)}) {
        EXPECT_EQ(runs.points, points);
        EXPECT_EQ(runs.counts, counts);
    }
}

/// Opens the outcodes to the tests.
struct OpenLineClip : CLineClip {
    using CLineClip::Classify;
    using CLineClip::CLineClip;
};

} // namespace

TEST(CLineClip, StartsDisabledWithTheEmptyBox) {
    const CLineClip clip;
    EXPECT_FALSE(clip.IsClipEnabled());
    EXPECT_EQ(clip.GetClipRect(), Box2d(LARGEST, LARGEST, -LARGEST, -LARGEST));
}

TEST(CLineClip, IsEnabledByARectangleWithArea) {
    EXPECT_TRUE(CLineClip(TEN).IsClipEnabled());
    EXPECT_FALSE(CLineClip(Box2d(0, 0, 0, 10)).IsClipEnabled());
    EXPECT_FALSE(CLineClip(Box2d(0, 5, 10, 5)).IsClipEnabled());
    EXPECT_FALSE(CLineClip(Box2d()).IsClipEnabled());
    EXPECT_FALSE(CLineClip(Box2d(0, 0, NOT_A_NUMBER, 10)).IsClipEnabled());
}

TEST(CLineClip, StoresAReversedRectangleUnchangedAndDisabled) {
    CLineClip clip(TEN);
    clip.SetClipRect(Box2d(10, 10, 0, 0));
    EXPECT_EQ(clip.GetClipRect(), Box2d(10, 10, 0, 0));
    EXPECT_FALSE(clip.IsClipEnabled());
    EXPECT_EQ(CLineClip(Box2d(0, 10, 10, 0)).GetClipRect(), Box2d(0, 10, 10, 0));
}

TEST(CLineClip, CopiesRectangleAndFlag) {
    CLineClip clip(TEN);
    clip.SetClipEnabled(false);
    const CLineClip copy(clip);
    EXPECT_EQ(copy.GetClipRect(), TEN);
    EXPECT_FALSE(copy.IsClipEnabled());

    CLineClip assigned(Box2d(1, 2, 3, 4));
    assigned = clip;
    EXPECT_EQ(assigned.GetClipRect(), TEN);
    EXPECT_FALSE(assigned.IsClipEnabled());
}

TEST(CLineClip, SetClipEnabledAndClearKeepTheRectangle) {
    CLineClip clip(TEN);
    clip.Clear();
    EXPECT_FALSE(clip.IsClipEnabled());
    EXPECT_EQ(clip.GetClipRect(), TEN);
    clip.SetClipEnabled(true);
    EXPECT_TRUE(clip.IsClipEnabled());
    EXPECT_EQ(clip.GetClipRect(), TEN);
    clip.SetClipEnabled(false);
    EXPECT_FALSE(clip.IsClipEnabled());
    EXPECT_EQ(clip.GetClipRect(), TEN);
}

TEST(CLineClip, IntersectClipRectKeepsTheCommonPart) {
    CLineClip clip(TEN);
    clip.IntersectClipRect(Box2d(5, -5, 15, 5));
    EXPECT_EQ(clip.GetClipRect(), Box2d(5, 0, 10, 5));
    EXPECT_TRUE(clip.IsClipEnabled());
}

TEST(CLineClip, IntersectClipRectOfADisabledClipperSetsTheRectangle) {
    CLineClip clip(TEN);
    clip.Clear();
    clip.IntersectClipRect(Box2d(5, -5, 15, 5));
    EXPECT_EQ(clip.GetClipRect(), Box2d(5, -5, 15, 5));
    EXPECT_TRUE(clip.IsClipEnabled());
    clip.Clear();
    clip.IntersectClipRect(Box2d(5, 5, 5, 5));
    EXPECT_FALSE(clip.IsClipEnabled());
}

TEST(CLineClip, IntersectClipRectWithADisjointBoxLetsEverythingPass) {
    CLineClip clip(TEN);
    clip.IntersectClipRect(Box2d(20, 20, 30, 30));
    EXPECT_FALSE(clip.IsClipEnabled());
    EXPECT_TRUE(clip.GetClipRect().IsEmpty());
    ExpectRuns(clip, {{-5, -5}, {50, 50}}, {{-5, -5}, {50, 50}}, {2});
}

TEST(CLineClip, IntersectClipRectWithATouchingBoxDisables) {
    CLineClip clip(TEN);
    clip.IntersectClipRect(Box2d(10, 0, 20, 10));
    EXPECT_EQ(clip.GetClipRect(), Box2d(10, 0, 10, 10));
    EXPECT_FALSE(clip.IsClipEnabled());
}

TEST(CLineClip, ClassifyNamesTheSidesStrictlyPassed) {
    const OpenLineClip clip(TEN);
    const struct {
        const char* name;
        Vec2d point;
        unsigned int code;
    } cases[] = {
        {"inside", {5, 5}, 0},
        {"left", {-1, 5}, 1},
        {"right", {11, 5}, 2},
        {"top", {5, 11}, 4},
        {"bottom", {5, -1}, 8},
        {"top left", {-1, 11}, 5},
        {"top right", {11, 11}, 6},
        {"bottom left", {-1, -1}, 9},
        {"bottom right", {11, -1}, 10},
        {"on the left edge", {0, 5}, 0},
        {"on the right edge", {10, 5}, 0},
        {"on the top edge", {5, 10}, 0},
        {"on the bottom edge", {5, 0}, 0},
        {"on a corner", {10, 10}, 0},
        {"on the left edge's line, above", {0, 11}, 4},
        {"just left", {-0x1p-1074, 5}, 1},
        {"just above", {5, 0x1.4000000000001p+3}, 4},
        {"not a number", {NOT_A_NUMBER, NOT_A_NUMBER}, 0},
        {"far away", {-INFINITE, INFINITE}, 5},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(clip.Classify(c.point), c.code) << c.name;
    }
}

TEST(CLineClip, ClassifyTestsLeftAndBottomFirst) {
    const OpenLineClip clip(Box2d(10, 10, 0, 0));
    EXPECT_EQ(clip.Classify({5, 5}), 1U | 8U);
    EXPECT_EQ(clip.Classify({20, 20}), 2U | 4U);
}

TEST(CLineClip, DisabledClipperLeavesASegmentAlone) {
    Vec2d p0(-5, -5);
    Vec2d p1(50, 5);
    EXPECT_TRUE(CLineClip().ClipLine(p0, p1));
    EXPECT_EQ(p0, Vec2d(-5, -5));
    EXPECT_EQ(p1, Vec2d(50, 5));
}

namespace {

struct SegmentCase {
    const char* name;
    Vec2d p0, p1;
    bool visible;
    Vec2d clipped0, clipped1;
};

void ExpectSegments(const CLineClip& clip, const std::vector<SegmentCase>& cases) {
    for (const SegmentCase& c : cases) {
        Vec2d p0 = c.p0;
        Vec2d p1 = c.p1;
        EXPECT_EQ(clip.ClipLine(p0, p1), c.visible) << c.name;
        EXPECT_EQ(p0, c.clipped0) << c.name << ": " << p0.x << ' ' << p0.y;
        EXPECT_EQ(p1, c.clipped1) << c.name << ": " << p1.x << ' ' << p1.y;
    }
}

} // namespace

TEST(CLineClip, SegmentsInsideAndOnTheBoundaryAreUnchanged) {
    ExpectSegments(CLineClip(TEN),
                   {
                       {"inside", {1, 2}, {9, 8}, true, {1, 2}, {9, 8}},
                       {"on the bottom edge", {0, 0}, {10, 0}, true, {0, 0}, {10, 0}},
                       {"on the right edge", {10, 3}, {10, 7}, true, {10, 3}, {10, 7}},
                       {"on the top edge", {2, 10}, {3, 10}, true, {2, 10}, {3, 10}},
                       {"a point on a corner", {0, 0}, {0, 0}, true, {0, 0}, {0, 0}},
                       {"a point inside", {5, 5}, {5, 5}, true, {5, 5}, {5, 5}},
                   });
}

TEST(CLineClip, SegmentsAcrossTheRectangleAreCutAtItsSides) {
    ExpectSegments(CLineClip(TEN),
                   {
                       {"rightwards", {-1, 5}, {11, 5}, true, {0, 5}, {10, 5}},
                       {"leftwards", {11, 5}, {-1, 5}, true, {10, 5}, {0, 5}},
                       {"upwards", {5, -1}, {5, 11}, true, {5, 0}, {5, 10}},
                       {"downwards", {5, 11}, {5, -1}, true, {5, 10}, {5, 0}},
                       {"diagonal", {-5, -5}, {15, 15}, true, {0, 0}, {10, 10}},
                       {"start inside", {5, 5}, {5, 20}, true, {5, 5}, {5, 10}},
                       {"end inside", {20, 5}, {5, 5}, true, {10, 5}, {5, 5}},
                       {"out through the side", {5, 5}, {15, 10}, true, {5, 5}, {10, 7.5}},
                       {"out above, from the side", {5, 5}, {15, 25}, true, {5, 5}, {7.5, 10}},
                       {"out below, from the side", {5, 5}, {-5, -15}, true, {5, 5}, {2.5, 0}},
                       {"in below, from the side", {-5, -15}, {5, 5}, true, {2.5, 0}, {5, 5}},
                       {"touching a corner", {-5, 5}, {5, -5}, true, {0, 0}, {0, 0}},
                       {"ending on an edge", {-5, 5}, {0, 5}, true, {0, 5}, {0, 5}},
                       {"along the top edge", {-5, 10}, {15, 10}, true, {0, 10}, {10, 10}},
                   });
}

TEST(CLineClip, SegmentsBeyondOneSideAreRejectedUnchanged) {
    ExpectSegments(CLineClip(TEN), {
                                       {"left", {-2, 5}, {-1, 6}, false, {-2, 5}, {-1, 6}},
                                       {"right", {12, 5}, {11, 60}, false, {12, 5}, {11, 60}},
                                       {"below", {-5, -1}, {5, -2}, false, {-5, -1}, {5, -2}},
                                       {"above", {5, 11}, {50, 12}, false, {5, 11}, {50, 12}},
                                       {"a point", {-1, -1}, {-1, -1}, false, {-1, -1}, {-1, -1}},
                                   });
}

// The start has moved to the side at which the miss was found.
TEST(CLineClip, SegmentsPassingACornerAreRejectedWithTheStartMoved) {
    ExpectSegments(CLineClip(TEN),
                   {
                       {"above after the left side", {-5, 8}, {3, 16}, false, {0, 13}, {3, 16}},
                       {"below after the right side", {12, 2}, {4, -14}, false, {10, -2}, {4, -14}},
                       {"right of the top side", {8, 20}, {20, 8}, false, {18, 10}, {20, 8}},
                       {"left of the bottom side", {2, -8}, {-8, 2}, false, {-6, 0}, {-8, 2}},
                       {"right of the top side, after the left side",
                        {-10, 20},
                        {30, 9},
                        false,
                        {0x1.a5d1745d1745dp+4, 10},
                        {30, 9}},
                   });
}

// Left is written before top, and each from the ends as they then stand, with the direction of
// the whole segment: a clipped one would round differently.
TEST(CLineClip, EndsAreCutInXThenInYWithTheDirectionOfTheWholeSegment) {
    const CLineClip clip(Box2d(0.1, 0.1, 0.7, 0.7));
    Vec2d p0(-0.3, -0.2);
    Vec2d p1(1.3, 1.1);
    const double dx = p1.x - p0.x;
    const double dy = p1.y - p0.y;
    const double y0 = p0.y + ((0.1 - p0.x) * dy) / dx;
    const double y1 = p1.y + ((0.7 - p1.x) * dy) / dx;
    ASSERT_TRUE(clip.ClipLine(p0, p1));
    EXPECT_EQ(p0, Vec2d(0.1, y0));
    EXPECT_EQ(p1, Vec2d(0.7, y1));

    p0 = {-0.3, -0.9};
    p1 = {0.9, 1.7};
    ASSERT_TRUE(clip.ClipLine(p0, p1));
    EXPECT_EQ(p0, Vec2d(0x1.4ad4ad4ad4ad5p-3, 0.1));
    EXPECT_EQ(p1, Vec2d(0x1.c0fc0fc0fc0fdp-2, 0.7));
}

// With reversed sides a point can be beyond both opposite ones.
TEST(CLineClip, RejectsByComparisonsWhereSidesAreReversed) {
    CLineClip clip(Box2d(10, 0, 0, 10));
    clip.SetClipEnabled(true);
    Vec2d p0(5, 5);  // left of 10 and right of 0
    Vec2d p1(12, 5); // right of 0
    EXPECT_FALSE(clip.ClipLine(p0, p1));
    EXPECT_EQ(p0, Vec2d(5, 5));
}

TEST(CLineClip, CoordinatesThatAreNotNumbersCountAsInside) {
    const CLineClip clip(TEN);
    Vec2d p0(NOT_A_NUMBER, 5);
    Vec2d p1(5, NOT_A_NUMBER);
    EXPECT_TRUE(clip.ClipLine(p0, p1));
    EXPECT_TRUE(std::isnan(p0.x));
    EXPECT_TRUE(std::isnan(p1.y));
}

TEST(CLineClip, InfiniteAndHugeCoordinatesReturn) {
    const CLineClip clip(TEN);
    const double values[] = {-INFINITE, -LARGEST, -1, 0, 5, 11, LARGEST, INFINITE, NOT_A_NUMBER};
    int visible = 0;
    for (const double x0 : values) {
        for (const double y0 : values) {
            for (const double x1 : values) {
                for (const double y1 : values) {
                    Vec2d p0(x0, y0);
                    Vec2d p1(x1, y1);
                    visible += clip.ClipLine(p0, p1) ? 1 : 0;
                }
            }
        }
    }
    EXPECT_GT(visible, 0);
}

namespace {

enum class Meeting { Apart, Touching, Crossing };

/// How a segment between whole-number points meets the square (0,0)-(4,4): exact, by
/// separating axes.
Meeting MeetingWithSquare(int x0, int y0, int x1, int y1) {
    int gap = -1; // positive: apart; zero: touching
    const auto separate = [&gap](int segmentLow, int segmentHigh, int low, int high) {
        const int distance = std::max(segmentLow - high, low - segmentHigh);
        gap = std::max(gap, distance > 0 ? 1 : distance == 0 ? 0 : -1);
    };
    separate(std::min(x0, x1), std::max(x0, x1), 0, 4);
    separate(std::min(y0, y1), std::max(y0, y1), 0, 4);
    const int nx = y1 - y0;
    const int ny = x0 - x1;
    const int along = nx * x0 + ny * y0;
    const int corners[] = {0, 4 * nx, 4 * ny, 4 * nx + 4 * ny};
    if (nx != 0 || ny != 0) {
        separate(along, along, *std::min_element(corners, corners + 4),
                 *std::max_element(corners, corners + 4));
    }
    return gap > 0 ? Meeting::Apart : gap == 0 ? Meeting::Touching : Meeting::Crossing;
}

} // namespace

TEST(CLineClip, AllSegmentsOfASmallGridAgreeWithExactSeparation) {
    const CLineClip clip(Box2d(0, 0, 4, 4));
    int apart = 0;
    int crossing = 0;
    constexpr int LOW = -3;
    constexpr int SIZE = 11;
    for (int i = 0; i < SIZE * SIZE * SIZE * SIZE; ++i) {
        const int x0 = LOW + i % SIZE;
        const int y0 = LOW + i / SIZE % SIZE;
        const int x1 = LOW + i / (SIZE * SIZE) % SIZE;
        const int y1 = LOW + i / (SIZE * SIZE * SIZE);
        Vec2d p0(x0, y0);
        Vec2d p1(x1, y1);
        const bool visible = clip.ClipLine(p0, p1);
        const Meeting meeting = MeetingWithSquare(x0, y0, x1, y1);
        if (meeting == Meeting::Apart) {
            ++apart;
            EXPECT_FALSE(visible) << x0 << ' ' << y0 << ' ' << x1 << ' ' << y1;
        } else if (meeting == Meeting::Crossing) {
            ++crossing;
            EXPECT_TRUE(visible) << x0 << ' ' << y0 << ' ' << x1 << ' ' << y1;
        }
    }
    EXPECT_GT(apart, 1000);
    EXPECT_GT(crossing, 1000);
}

namespace {

constexpr double UNIT = 0x1p-52;

/// The length of the part of a segment inside a box, from the parameters at which it enters
/// and leaves.
long double LengthInside(const Vec2d& p0, const Vec2d& p1, const Box2d& box) {
    long double enter = 0;
    long double leave = 1;
    const auto cut = [&](long double from, long double delta, long double low, long double high) {
        if (delta == 0) {
            leave = from < low || from > high ? -1 : leave;
            return;
        }
        const long double a = (low - from) / delta;
        const long double b = (high - from) / delta;
        enter = std::max(enter, std::min(a, b));
        leave = std::min(leave, std::max(a, b));
    };
    const long double dx = static_cast<long double>(p1.x) - p0.x;
    const long double dy = static_cast<long double>(p1.y) - p0.y;
    cut(p0.x, dx, box.minX, box.maxX);
    cut(p0.y, dy, box.minY, box.maxY);
    return leave > enter ? (leave - enter) * std::hypot(dx, dy) : 0;
}

bool IsInsideWithinRounding(const Vec2d& p, const Box2d& box, double tolerance) {
    return p.x >= box.minX - tolerance && p.x <= box.maxX + tolerance &&
           p.y >= box.minY - tolerance && p.y <= box.maxY + tolerance;
}

// Coordinates reach 4, a step of the clip makes a few rounding errors of quotients that
// themselves reach 8; the division by a small dx or dy is of a difference that is as small.
constexpr double TOLERANCE = 64 * UNIT;

} // namespace

TEST(CLineClip, RandomSegmentsKeepTheirInsideLength) {
    constexpr unsigned int SEED = 20;
    std::mt19937 random(SEED);
    SCOPED_TRACE(SEED);
    std::uniform_real_distribution<double> coordinate(-2, 4);
    const Box2d box(0.3, -0.4, 1.9, 1.1);
    const CLineClip clip(box);
    int cut = 0;
    for (int i = 0; i < 200000; ++i) {
        const Vec2d a(coordinate(random), coordinate(random));
        const Vec2d b(coordinate(random), coordinate(random));
        Vec2d p0 = a;
        Vec2d p1 = b;
        const bool visible = clip.ClipLine(p0, p1);
        const long double truth = LengthInside(a, b, box);
        const double length = visible ? std::hypot(p1.x - p0.x, p1.y - p0.y) : 0;
        // Near an axis-parallel direction the position along the line is as uncertain as the
        // slope is steep; the length is not compared there.
        if (std::fabs(a.x - b.x) > 0.01 && std::fabs(a.y - b.y) > 0.01) {
            EXPECT_NEAR(length, static_cast<double>(truth), 1000 * TOLERANCE);
        }
        if (visible) {
            ++cut;
            EXPECT_TRUE(IsInsideWithinRounding(p0, box, 1000 * TOLERANCE));
            EXPECT_TRUE(IsInsideWithinRounding(p1, box, 1000 * TOLERANCE));
        }
    }
    EXPECT_GT(cut, 10000);
}

TEST(CLineClip, ClipLineAllocatesNothing) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const CLineClip clip(TEN);
    std::size_t requests = 0;
    {
        const AllocationProbe probe;
        for (int x = -3; x < 14; ++x) {
            for (int y = -3; y < 14; ++y) {
                Vec2d p0(x, y);
                Vec2d p1(y + 1, 9 - x);
                clip.ClipLine(p0, p1);
            }
        }
        requests = probe.Count();
    }
    EXPECT_EQ(requests, 0U);
}

TEST(CLineClip, DisabledPolylineIsOneRun) {
    ExpectRuns(CLineClip(), {{-5, -5}, {50, 5}, {5, 50}}, {{-5, -5}, {50, 5}, {5, 50}}, {3});
    ExpectRuns(CLineClip(), {{-5, -5}}, {{-5, -5}}, {1});
}

TEST(CLineClip, DisabledEmptyPolylineIsOneRunOfNone) {
    ExpectRuns(CLineClip(), {}, {}, {0});
}

TEST(CLineClip, DisabledPolylineIsHandedOutInTheCallersArray) {
    const Points line = {{-5, -5}, {50, 5}};
    std::vector<const Vec2d*> seen;
    CLineClip().ClipPolyline(line.data(), line.size(),
                             [&seen](const Vec2d* pts, std::size_t) { seen.push_back(pts); });
    EXPECT_THAT(seen, ElementsAre(line.data()));
}

TEST(CLineClip, EmptyPolylineGivesNothing) {
    ExpectRuns(CLineClip(TEN), {}, {}, {});
}

TEST(CLineClip, SinglePointIsARunOfOneWhereItIsInsideOrOnTheBoundary) {
    const CLineClip clip(TEN);
    ExpectRuns(clip, {{5, 5}}, {{5, 5}}, {1});
    ExpectRuns(clip, {{0, 5}}, {{0, 5}}, {1});
    ExpectRuns(clip, {{10, 10}}, {{10, 10}}, {1});
    ExpectRuns(clip, {{-1, 5}}, {}, {});
    ExpectRuns(clip, {{5, 0x1.4000000000001p+3}}, {}, {});
    ExpectRuns(clip, {{5, NOT_A_NUMBER}}, {}, {});
}

TEST(CLineClip, PolylineInsideIsOneRun) {
    ExpectRuns(CLineClip(TEN), {{1, 1}, {2, 1}, {2, 2}}, {{1, 1}, {2, 1}, {2, 2}}, {3});
}

TEST(CLineClip, PolylineOutsideGivesNothing) {
    ExpectRuns(CLineClip(TEN), {{-1, 1}, {-2, 1}, {-2, 20}, {5, 20}}, {}, {});
}

TEST(CLineClip, PolylineThatLeavesAndReentersGivesTwoRuns) {
    ExpectRuns(CLineClip(TEN), {{5, 5}, {15, 5}, {15, 8}, {5, 8}},
               {{5, 5}, {10, 5}, {10, 8}, {5, 8}}, {2, 2});
}

TEST(CLineClip, PolylineThatReentersElsewhereInTheNextSegmentGivesTwoRuns) {
    ExpectRuns(CLineClip(TEN), {{5, 5}, {15, 5}, {5, 10}}, {{5, 5}, {10, 5}, {10, 7.5}, {5, 10}},
               {2, 2});
}

TEST(CLineClip, RunEndsWithItsLastSegmentOutside) {
    ExpectRuns(CLineClip(TEN), {{5, 5}, {5, 8}, {5, 20}, {8, 20}}, {{5, 5}, {5, 8}, {5, 10}}, {3});
}

TEST(CLineClip, PolylineThatTurnsOnTheBoundaryIsOneRun) {
    ExpectRuns(CLineClip(TEN), {{5, 5}, {10, 5}, {5, 8}}, {{5, 5}, {10, 5}, {5, 8}}, {3});
}

TEST(CLineClip, RepeatedPointsAreKept) {
    ExpectRuns(CLineClip(TEN), {{5, 5}, {5, 5}, {5, 5}}, {{5, 5}, {5, 5}, {5, 5}}, {3});
}

TEST(CLineClip, PolylineTouchingACornerGivesADegenerateRun) {
    ExpectRuns(CLineClip(TEN), {{-5, 5}, {5, -5}}, {{0, 0}, {0, 0}}, {2});
}

TEST(CLineClip, OutputsAreReplaced) {
    Points points = {{1, 1}, {2, 2}};
    Counts counts = {2, 3, 4};
    const Points line = {{5, 5}, {15, 5}};
    CLineClip(TEN).ClipPolyline(line.data(), line.size(), points, counts);
    EXPECT_THAT(points, ElementsAre(Vec2d(5, 5), Vec2d(10, 5)));
    EXPECT_THAT(counts, ElementsAre(2));

    CLineClip(TEN).ClipPolyline(nullptr, 0, points, counts);
    EXPECT_TRUE(points.empty());
    EXPECT_TRUE(counts.empty());
}

TEST(CLineClip, PolylineMayBePartOfItsOutput) {
    for (const CLineClip& clip : {CLineClip(TEN), CLineClip()}) {
        const Points whole = {{-9, -9}, {5, 5}, {15, 5}, {15, 8}, {5, 8}, {5, -8}};
        const Runs expected = Clip(clip, Points(whole.begin() + 1, whole.end()));
        Points points = whole;
        Counts counts;
        clip.ClipPolyline(points.data() + 1, whole.size() - 1, points, counts);
        EXPECT_EQ(points, expected.points);
        EXPECT_EQ(counts, expected.counts);
    }
}

TEST(CLineClip, NullPolylineIsAnInternalError) {
    Points points = {{1, 1}};
    Counts counts;
    ExpectError([&] { CLineClip(TEN).ClipPolyline(nullptr, 2, points, counts); }, L"Geometry",
                L"CLineClip", 24);
    ExpectError([&] { CLineClip(TEN).ClipPolyline(nullptr, 2, CLineClip::Sink()); }, L"Geometry",
                L"CLineClip", 24);
    EXPECT_EQ(points.size(), 1U);
}

TEST(CLineClip, EmptySinkThrowsOnlyWhenThereIsSomethingToDeliver) {
    const CLineClip clip(TEN);
    const Points outside = {{-5, -5}, {-1, 20}};
    const Points inside = {{5, 5}, {6, 6}};
    EXPECT_NO_THROW(clip.ClipPolyline(outside.data(), 2, CLineClip::Sink()));
    EXPECT_NO_THROW(clip.ClipPolyline(outside.data(), 1, CLineClip::Sink()));
    EXPECT_NO_THROW(clip.ClipPolyline(nullptr, 0, CLineClip::Sink()));
    EXPECT_THROW(clip.ClipPolyline(inside.data(), 2, CLineClip::Sink()), boost::bad_function_call);
    EXPECT_THROW(clip.ClipPolyline(inside.data(), 1, CLineClip::Sink()), boost::bad_function_call);
    try {
        CLineClip().ClipPolyline(nullptr, 0, CLineClip::Sink());
        ADD_FAILURE() << "a disabled clipper delivers the empty line, too";
    } catch (const boost::bad_function_call& e) {
        EXPECT_STREQ(e.what(), "call to empty boost::function");
    }
}

TEST(CLineClip, ExceptionsOfTheSinkPass) {
    Points zigzag;
    for (int i = 0; i < 100; ++i) {
        zigzag.push_back({i % 10 + 0.5, i % 2 + 0.5});
    }
    zigzag.push_back({50, 50});
    zigzag.push_back({5, 5});
    int calls = 0;
    const auto sink = [&calls](const Vec2d*, std::size_t n) {
        ++calls;
        EXPECT_EQ(n, 101U);
        throw std::runtime_error("sink");
    };
    EXPECT_THROW(CLineClip(TEN).ClipPolyline(zigzag.data(), zigzag.size(), sink),
                 std::runtime_error);
    EXPECT_EQ(calls, 1);
}

namespace {

Points StaircaseInside(int n) {
    Points line;
    for (int i = 0; i < n; ++i) {
        line.push_back({0.125 * i, 0.125 * (i % 3)});
    }
    return line;
}

struct Cost {
    std::size_t requests = 0;
    std::size_t runs = 0;
    std::size_t longest = 0;
};

Cost CostOfCallbackForm(const Points& line) {
    const CLineClip clip(TEN);
    Cost cost;
    const CLineClip::Sink sink = [&cost](const Vec2d*, std::size_t n) {
        ++cost.runs;
        cost.longest = std::max(cost.longest, n);
    };
    const AllocationProbe probe;
    clip.ClipPolyline(line.data(), line.size(), sink);
    cost.requests = probe.Count();
    return cost;
}

} // namespace

TEST(CLineClip, CallbackFormAllocatesNothingForRunsOfUpTo32Points) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    EXPECT_EQ(CostOfCallbackForm(StaircaseInside(32)).requests, 0U);
    EXPECT_GT(CostOfCallbackForm(StaircaseInside(33)).requests, 0U);

    Points manyRuns;
    for (int i = 0; i < 50; ++i) {
        const Points run = StaircaseInside(30);
        manyRuns.insert(manyRuns.end(), run.begin(), run.end());
        manyRuns.push_back({3.75, -5});
        manyRuns.push_back({-5, -5});
    }
    const Cost cost = CostOfCallbackForm(manyRuns);
    EXPECT_EQ(cost.runs, 50U);
    EXPECT_EQ(cost.longest, 32U);
    EXPECT_EQ(cost.requests, 0U);
}

TEST(CLineClip, ExhaustedHeapIsABadAllocation) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const CLineClip clip(TEN);
    const Points line = StaircaseInside(70);
    for (std::size_t k = 0;; ++k) {
        Runs runs;
        bool thrown = false;
        bool failed = false;
        {
            const AllocationProbe probe(k);
            try {
                clip.ClipPolyline(line.data(), line.size(), runs.points, runs.counts);
            } catch (const std::bad_alloc&) {
                thrown = true;
            }
            failed = probe.Failed();
        }
        EXPECT_EQ(thrown, failed);
        if (!failed) {
            EXPECT_GT(k, 1U);
            EXPECT_EQ(runs.points, line);
            break;
        }
    }
    bool delivered = false;
    const CLineClip::Sink sink = [&delivered](const Vec2d*, std::size_t) { delivered = true; };
    bool thrown = false;
    {
        const AllocationProbe probe(0);
        try {
            clip.ClipPolyline(line.data(), line.size(), sink);
        } catch (const std::bad_alloc&) {
            thrown = true;
        }
    }
    EXPECT_TRUE(thrown);
    EXPECT_FALSE(delivered);
}

namespace {

Points RandomLine(std::mt19937& random, bool onGrid) {
    Points line(random() % 12);
    std::uniform_real_distribution<double> coordinate(-2, 4);
    for (Vec2d& p : line) {
        p = onGrid ? Vec2d(static_cast<double>(random() % 7) - 2,
                           static_cast<double>(random() % 7) - 2)
                   : Vec2d(coordinate(random), coordinate(random));
    }
    return line;
}

void ExpectSoundRuns(const Runs& runs, const Box2d& box) {
    std::size_t total = 0;
    for (const unsigned int count : runs.counts) {
        EXPECT_GE(count, 2U);
        total += count;
    }
    EXPECT_EQ(total, runs.points.size());
    for (const Vec2d& p : runs.points) {
        EXPECT_TRUE(IsInsideWithinRounding(p, box, 1000 * TOLERANCE));
    }
}

double Length(const Runs& runs) {
    double length = 0;
    std::size_t i = 0;
    for (const unsigned int count : runs.counts) {
        for (const std::size_t end = i + count; i + 1 < end; ++i) {
            length += std::hypot(runs.points[i + 1].x - runs.points[i].x,
                                 runs.points[i + 1].y - runs.points[i].y);
        }
        ++i;
    }
    return length;
}

} // namespace

TEST(CLineClip, RandomPolylinesKeepTheirInsideLengthInBothForms) {
    constexpr unsigned int SEED = 21;
    std::mt19937 random(SEED);
    SCOPED_TRACE(SEED);
    const Box2d box(0, 0, 2, 2);
    const CLineClip clip(box);
    int severalRuns = 0;
    for (int i = 0; i < 50000; ++i) {
        const Points line = RandomLine(random, i % 2 == 0);
        const Runs runs = Clip(clip, line);
        const Runs handedOut = ClipToSink(clip, line);
        ASSERT_EQ(runs.points, handedOut.points);
        ASSERT_EQ(runs.counts, handedOut.counts);
        if (line.size() == 1) {
            continue;
        }
        ExpectSoundRuns(runs, box);
        long double truth = 0;
        for (std::size_t k = 0; k + 1 < line.size(); ++k) {
            truth += LengthInside(line[k], line[k + 1], box);
        }
        EXPECT_NEAR(Length(runs), static_cast<double>(truth), 1e-9);
        severalRuns += runs.counts.size() > 1 ? 1 : 0;
    }
    EXPECT_GT(severalRuns, 5000);
}
