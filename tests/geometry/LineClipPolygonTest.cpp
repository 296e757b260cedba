// SPDX-License-Identifier: MIT
#include "geometry/LineClipPolygon.h"

#include "geometry/GpcPolygon.h"
#include "geometry/Polyline.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <thread>
#include <type_traits>

namespace geom {
namespace {

using test::AllocationProbe;
using test::ExpectError;

using Points = std::vector<Vec2d>;
using Counts = std::vector<unsigned int>;
using Segments = std::vector<LineSegment2>;

constexpr double LARGEST = std::numeric_limits<double>::max();
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

struct Stretch {
    Vec2d a, b;
};

/// Opens the machinery.
class OpenClip : public LineClipPolygon {
public:
    using LineClipPolygon::CLIST;
    using LineClipPolygon::CONTOUR;
    using LineClipPolygon::SEGMENT;

    using LineClipPolygon::clip_to_contours;
    using LineClipPolygon::Construct;
    using LineClipPolygon::contours_bbox;
    using LineClipPolygon::cross_calc;
    using LineClipPolygon::def_contour;
    using LineClipPolygon::del_contours;
    using LineClipPolygon::disjunct;
    using LineClipPolygon::LineClipPolygon;
    using LineClipPolygon::on_contour;
    using LineClipPolygon::p_inside;
    using LineClipPolygon::p_where;

    CONTOUR*& Contours() { return contours; }
    void SetBBox(const Box2d& box) { bbox = box; }
    void Add(const Points& points, int hole) {
        def_contour(&contours, points.data(), static_cast<int>(points.size()), hole);
        for (const Vec2d& point : points) {
            bbox.ExtendBy(point);
        }
    }

    std::vector<CLIST> Crossings(const Vec2d& p, const Vec2d& q) {
        SEGMENT segment = {p.x, p.y, q.x, q.y, nullptr, nullptr};
        auto* list = static_cast<CLIST*>(std::malloc(2 * sizeof(CLIST)));
        list[0] = {p.x, p.y, 0};
        list[1] = {q.x, q.y, 0};
        long count = 2;
        cross_calc(contours, &segment, &list, &count, 2);
        std::vector<CLIST> crossings(list, list + count);
        std::free(list);
        return crossings;
    }
    std::vector<Stretch> AllPieces(const Vec2d& p, const Vec2d& q) const {
        SEGMENT segment = {p.x, p.y, q.x, q.y, nullptr, nullptr};
        std::vector<Stretch> runs;
        clip_to_contours(
            contours, &segment,
            [](const Vec2d& a, const Vec2d& b, void* context) {
                static_cast<std::vector<Stretch>*>(context)->push_back({a, b});
            },
            &runs);
        return runs;
    }
};

LineClipPolygon Ring(const Points& points) {
    return LineClipPolygon(GpcPolygon(points.data(), points.size()));
}

OpenClip OpenRing(const Points& points) {
    OpenClip clip;
    clip.Add(points, 0);
    return clip;
}

const Points SQUARE = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};

// Starts with a vertical edge, so that it is no rectangle to the library.
const Points UPRIGHT = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};

Segments Clipped(const LineClipPolygon& clip, const Vec2d& a, const Vec2d& b) {
    Segments pieces;
    clip.Clip(LineSegment2(a, b), pieces);
    return pieces;
}

// Direction counts here; LineSegment2's own comparison ignores it.
void ExpectSegments(const Segments& segments, const std::vector<Stretch>& expected) {
    ASSERT_EQ(segments.size(), expected.size());
    for (std::size_t i = 0; i < segments.size(); ++i) {
        const LineSegment2& s = segments[i];
        EXPECT_TRUE(s.A() == expected[i].a && s.B() == expected[i].b)
            << i << ": (" << s.A().x << ", " << s.A().y << ")-(" << s.B().x << ", " << s.B().y
            << ")";
    }
}

void ExpectRuns(const LineClipPolygon& clip, const Points& line, const Points& points,
                const Counts& counts, Points outPoints = {}, Counts outCounts = {}) {
    clip.Clip(line.data(), line.size(), outPoints, outCounts);
    EXPECT_EQ(outCounts, counts);
    ASSERT_EQ(outPoints.size(), points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_EQ(outPoints[i], points[i])
            << i << ": (" << outPoints[i].x << ", " << outPoints[i].y << ")";
    }
}

// A polygon with enough edges for an index.
Points Comb(int teeth) {
    Points points;
    for (int i = 0; i < teeth; ++i) {
        points.emplace_back(2 * i, 0);
        points.emplace_back(2 * i, 4);
        points.emplace_back(2 * i + 1, 4);
        points.emplace_back(2 * i + 1, 0);
    }
    points.emplace_back(2 * teeth - 1, -2);
    points.emplace_back(0, -2);
    return points;
}

// --- layout -------------------------------------------------------------------------------

TEST(LineClipPolygon, RecordsAreAggregatesInOrder) {
    static_assert(std::is_aggregate_v<OpenClip::SEGMENT>);
    static_assert(std::is_aggregate_v<OpenClip::CONTOUR>);
    static_assert(std::is_aggregate_v<OpenClip::CLIST>);
    OpenClip::SEGMENT segment = {1, 2, 3, 4, nullptr, nullptr};
    const OpenClip::CONTOUR contour = {1, &segment, nullptr, 5, 6, 7, 8};
    const OpenClip::CLIST entry = {1, 2, 1};
    EXPECT_EQ(segment.startX + segment.startY + segment.endX + segment.endY, 10);
    EXPECT_EQ(contour.segments, &segment);
    EXPECT_EQ(contour.minX + contour.minY + contour.maxX + contour.maxY, 26);
    EXPECT_EQ(entry.kind, 1);
}

TEST(LineClipPolygon, IsPolymorphicOnlyInItsDestructor) {
    static_assert(std::has_virtual_destructor_v<LineClipPolygon>);
    static_assert(sizeof(LineClipPolygon) == 3 * sizeof(void*) + sizeof(Box2d));
    const std::unique_ptr<LineClipPolygon> base = std::make_unique<OpenClip>();
    EXPECT_EQ(base->GetNumContours(), 0U);
}

// --- construction ---------------------------------------------------------------------------

TEST(LineClipPolygon, EmptyHoldsNothing) {
    const LineClipPolygon clip;
    EXPECT_EQ(clip.GetNumContours(), 0U);
    EXPECT_EQ(clip.GetContourVertexCount(0), 0U);
    EXPECT_EQ(clip.GetTotalVertexCount(), 0U);
    EXPECT_EQ(clip.GetBBox(), Box2d(LARGEST, LARGEST, -LARGEST, -LARGEST));
    EXPECT_FALSE(clip.IsRectangle(nullptr));
    Points points = {{1, 2}};
    clip.GetPolygon(points);
    EXPECT_EQ(points.size(), 1U);
    EXPECT_EQ(LineClipPolygon(GpcPolygon()).GetNumContours(), 0U);
    EXPECT_EQ(LineClipPolygon(nullptr, nullptr, 0).GetNumContours(), 0U);
}

TEST(LineClipPolygon, CountsItsClosingVertex) {
    const LineClipPolygon clip = Ring(SQUARE);
    EXPECT_EQ(clip.GetNumContours(), 1U);
    EXPECT_EQ(clip.GetContourVertexCount(0), 5U);
    EXPECT_EQ(clip.GetContourVertexCount(1), 0U);
    EXPECT_EQ(clip.GetTotalVertexCount(), 5U);
    EXPECT_EQ(clip.GetBBox(), Box2d(0, 0, 10, 10));
}

TEST(LineClipPolygon, GetPolygonAppendsTheClosedRing) {
    Points points = {{7, 7}};
    Ring(SQUARE).GetPolygon(points);
    EXPECT_EQ(points, Points({{7, 7}, {0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}));
}

TEST(LineClipPolygon, RingsBecomeOneContour) {
    const Vec2d points[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {3, 3}, {6, 3}, {3, 6}};
    const unsigned int counts[] = {4, 3};
    const LineClipPolygon clip(points, counts, 2);
    EXPECT_EQ(clip.GetNumContours(), 1U);
    // 5 and 4 points of the closed rings and the way back.
    Points ring;
    clip.GetPolygon(ring);
    EXPECT_EQ(
        ring,
        Points(
            {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {3, 3}, {6, 3}, {3, 6}, {3, 3}, {0, 0}}));
}

TEST(LineClipPolygon, CollinearVerticesAreAbsorbed) {
    OpenClip clip = OpenRing({{0, 0}, {1, 0}, {2, 0}, {2, 1}, {0, 1}});
    EXPECT_EQ(clip.GetContourVertexCount(0), 5U);
    Points points;
    clip.GetPolygon(points);
    EXPECT_EQ(points, Points({{0, 0}, {2, 0}, {2, 1}, {0, 1}, {0, 0}}));
}

TEST(LineClipPolygon, FirstEdgeIsNeverMergedWithTheLast) {
    OpenClip clip = OpenRing({{1, 0}, {2, 0}, {2, 1}, {0, 1}, {0, 0}});
    EXPECT_EQ(clip.GetContourVertexCount(0), 6U);
}

TEST(LineClipPolygon, BoxCoversTheTipsOfSpikesThatAreAbsorbed) {
    OpenClip clip = OpenRing({{0, 0}, {10, 0}, {4, 0}, {4, 4}, {0, 4}});
    EXPECT_EQ(clip.Contours()->maxX, 10.0);
    EXPECT_EQ(clip.GetContourVertexCount(0), 5U);
    const OpenClip copy(clip);
    EXPECT_EQ(copy.GetBBox(), clip.GetBBox());
    OpenClip rebuilt(clip);
    EXPECT_EQ(rebuilt.Contours()->maxX, 4.0);
}

TEST(LineClipPolygon, DegenerateContours) {
    EXPECT_EQ(OpenRing({}).GetNumContours(), 0U);
    EXPECT_EQ(OpenRing({{1, 2}}).GetContourVertexCount(0), 2U);
    EXPECT_EQ(OpenRing({{1, 2}, {3, 4}}).GetContourVertexCount(0), 2U);
    EXPECT_EQ(OpenRing({{1, 2}, {1, 2}, {1, 2}}).GetContourVertexCount(0), 2U);
}

// A ring without extent is one edge of no length. It counts as an overlap that starts and ends
// at once, behind which a segment is inside.
TEST(LineClipPolygon, RingWithoutExtentLetsLinesThroughItPassBehindIt) {
    for (const Points& points : {Points{{1, 2}}, Points{{1, 2}, {3, 4}}, Points(20, {1, 2})}) {
        const OpenClip clip = OpenRing(points);
        ExpectSegments(Clipped(clip, {0, 2}, {5, 2}), {{{1, 2}, {5, 2}}});
        EXPECT_TRUE(Clipped(clip, {0, 2}, {5, 3}).empty());
        EXPECT_TRUE(clip.PointInside({1, 2}));
        EXPECT_FALSE(clip.PointInside({0, 2}));
        EXPECT_EQ(LineClipPolygon(clip).GetTotalVertexCount(), 2U);
    }
}

TEST(LineClipPolygon, HoleFlagIsClearedOnlyByOne) {
    OpenClip clip;
    clip.Add(SQUARE, 1);
    clip.Add(SQUARE, 0);
    clip.Add(SQUARE, 2);
    EXPECT_EQ(clip.Contours()->flags & 1, 0);
    EXPECT_EQ(clip.Contours()->next->flags & 1, 1);
    EXPECT_EQ(clip.Contours()->next->next->flags & 1, 1);
    EXPECT_EQ(clip.GetNumContours(), 3U);
    EXPECT_EQ(clip.GetTotalVertexCount(), 15U);
    EXPECT_EQ(clip.GetContourVertexCount(1), 0U);
}

TEST(LineClipPolygon, CopyOfSeveralContoursHasOneWithAllTheirPoints) {
    OpenClip several;
    several.Add(SQUARE, 0);
    several.Add({{20, 0}, {30, 0}, {25, 5}}, 1);
    const LineClipPolygon copy(several);
    EXPECT_EQ(copy.GetNumContours(), 1U);
    Points points;
    copy.GetPolygon(points);
    EXPECT_EQ(
        points,
        Points({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {30, 0}, {25, 5}, {20, 0}, {0, 0}}));
    EXPECT_EQ(copy.GetBBox(), Box2d(0, 0, 30, 10));
}

TEST(LineClipPolygon, AssignmentReplacesAndSelfAssignmentChangesNothing) {
    OpenClip target = OpenRing(SQUARE);
    const OpenClip source(OpenRing(Comb(10)));
    OpenClip& result = target = source;
    EXPECT_EQ(&result, &target);
    EXPECT_EQ(target.GetTotalVertexCount(), source.GetTotalVertexCount());
    EXPECT_EQ(target.GetBBox(), source.GetBBox());
    const OpenClip::CONTOUR* const contour = target.Contours();
    const OpenClip& same = target;
    target = same;
    EXPECT_EQ(target.Contours(), contour);
    target = OpenClip();
    EXPECT_EQ(target.GetNumContours(), 0U);
    EXPECT_EQ(target.GetBBox(), Box2d());
}

TEST(LineClipPolygon, CopyClipsAsTheOriginalDoes) {
    const LineClipPolygon original = Ring(Comb(20));
    const LineClipPolygon copy(original);
    LineClipPolygon assigned;
    assigned = original;
    const Segments pieces = Clipped(original, {-1, 1}, {50, 3});
    EXPECT_EQ(pieces.size(), 20U);
    EXPECT_EQ(Clipped(copy, {-1, 1}, {50, 3}), pieces);
    EXPECT_EQ(Clipped(assigned, {-1, 1}, {50, 3}), pieces);
}

TEST(LineClipPolygon, ListBoxLeavesOutTheLastContour) {
    OpenClip clip;
    Box2d box(1, 2, 3, 4);
    EXPECT_FALSE(clip.contours_bbox(&clip.Contours(), box));
    EXPECT_EQ(box, Box2d(0, 0, 0, 0));
    clip.Add(SQUARE, 0);
    EXPECT_TRUE(clip.contours_bbox(&clip.Contours(), box));
    EXPECT_EQ(box, Box2d(0, 0, 10, 10));
    clip.Add({{20, 0}, {30, 0}, {25, 5}}, 0);
    EXPECT_TRUE(clip.contours_bbox(&clip.Contours(), box));
    EXPECT_EQ(box, Box2d(0, 0, 10, 10));
    clip.Add({{0, 50}, {1, 50}, {0, 51}}, 0);
    EXPECT_TRUE(clip.contours_bbox(&clip.Contours(), box));
    EXPECT_EQ(box, Box2d(0, 0, 30, 10));
}

// --- rectangles -----------------------------------------------------------------------------

TEST(LineClipPolygon, RectangleGivesItsBoxAsItRuns) {
    Box2d box;
    EXPECT_TRUE(Ring({{0, 0}, {1, 0}, {1, 1}, {0, 1}}).IsRectangle(&box));
    EXPECT_EQ(box, Box2d(0, 1, 1, 0));
    EXPECT_TRUE(Ring({{0, 1}, {1, 1}, {1, 0}, {0, 0}}).IsRectangle(&box));
    EXPECT_EQ(box, Box2d(0, 0, 1, 1));
    EXPECT_TRUE(Ring(SQUARE).IsRectangle(nullptr));
}

TEST(LineClipPolygon, RectangleThatStartsUprightIsNotRecognised) {
    Box2d box(5, 6, 7, 8);
    EXPECT_FALSE(Ring({{0, 0}, {0, 1}, {1, 1}, {1, 0}}).IsRectangle(&box));
    EXPECT_EQ(box, Box2d(5, 6, 7, 8));
}

TEST(LineClipPolygon, OtherShapesAreNoRectangles) {
    EXPECT_FALSE(Ring({{0, 0}, {2, 0}, {1, 1}}).IsRectangle(nullptr));
    EXPECT_FALSE(Ring({{0, 0}, {2, 0}, {2, 1}, {0, 1.5}}).IsRectangle(nullptr));
    EXPECT_FALSE(Ring({{0, 0}, {2, 0}, {2.5, 1}, {0, 1}}).IsRectangle(nullptr));
    EXPECT_FALSE(Ring({{0, 0}, {2, 0}, {2, 2}, {1, 3}, {0, 2}}).IsRectangle(nullptr));
    EXPECT_FALSE(OpenRing({{0, 0}, {2, 0}}).IsRectangle(nullptr));
    OpenClip two;
    two.Add(SQUARE, 0);
    two.Add(SQUARE, 1);
    EXPECT_FALSE(two.IsRectangle(nullptr));
}

TEST(LineClipPolygon, CollinearVertexDoesNotHideARectangle) {
    EXPECT_TRUE(Ring({{0, 0}, {1, 0}, {2, 0}, {2, 1}, {0, 1}}).IsRectangle(nullptr));
    EXPECT_FALSE(Ring({{1, 0}, {2, 0}, {2, 1}, {0, 1}, {0, 0}}).IsRectangle(nullptr));
}

// --- clipping -------------------------------------------------------------------------------

TEST(LineClipPolygon, SegmentAcrossASquareRunsFromLeftToRight) {
    const LineClipPolygon clip = Ring(SQUARE);
    ExpectSegments(Clipped(clip, {-5, 5}, {15, 5}), {{{0, 5}, {10, 5}}});
    ExpectSegments(Clipped(clip, {15, 5}, {-5, 5}), {{{0, 5}, {10, 5}}});
    ExpectSegments(Clipped(clip, {5, 15}, {5, -5}), {{{5, 0}, {5, 10}}});
}

TEST(LineClipPolygon, SegmentInsideStaysWhole) {
    ExpectSegments(Clipped(Ring(SQUARE), {7, 3}, {2, 2}), {{{2, 2}, {7, 3}}});
}

TEST(LineClipPolygon, SegmentOutsideVanishes) {
    const LineClipPolygon clip = Ring({{0, 0}, {10, 0}, {0, 10}});
    EXPECT_TRUE(Clipped(clip, {20, 0}, {30, 5}).empty());
    EXPECT_TRUE(Clipped(clip, {9, 9}, {8, 8}).empty());
    EXPECT_TRUE(Clipped(clip, {10, 10}, {10, 20}).empty());
}

TEST(LineClipPolygon, BoundaryStretchTakesTheStateOfThePieceBelow) {
    // The bottom of an L's step runs along the segment.
    const LineClipPolygon step = Ring({{0, 0}, {10, 0}, {10, 5}, {5, 5}, {5, 10}, {0, 10}});
    ExpectSegments(Clipped(step, {2, 5}, {12, 5}), {{{2, 5}, {5, 5}}, {{5, 5}, {10, 5}}});
    const LineClipPolygon mirrored = Ring({{0, 0}, {10, 0}, {10, 10}, {5, 10}, {5, 5}, {0, 5}});
    ExpectSegments(Clipped(mirrored, {-2, 5}, {8, 5}), {{{5, 5}, {8, 5}}});
}

TEST(LineClipPolygon, SegmentOnASideGivesNothing) {
    const LineClipPolygon clip = Ring(UPRIGHT);
    EXPECT_TRUE(Clipped(clip, {2, 0}, {8, 0}).empty());
    EXPECT_TRUE(Clipped(clip, {0, 0}, {10, 0}).empty());
    EXPECT_TRUE(Clipped(clip, {-5, 10}, {15, 10}).empty());
    EXPECT_TRUE(Clipped(clip, {10, -5}, {10, 5}).empty());
}

TEST(LineClipPolygon, VertexThatOnlyTouchesDoesNotCut) {
    // A notch whose tip touches the segment from above.
    const LineClipPolygon notch =
        Ring({{0, 0}, {10, 0}, {10, 10}, {7, 10}, {5, 5}, {3, 10}, {0, 10}});
    ExpectSegments(Clipped(notch, {1, 5}, {9, 5}), {{{1, 5}, {9, 5}}});
    const LineClipPolygon diamond = Ring({{5, 0}, {10, 5}, {5, 10}, {0, 5}});
    EXPECT_TRUE(Clipped(diamond, {0, 0}, {10, 0}).empty());
}

TEST(LineClipPolygon, VertexThroughWhichTheBoundaryCrossesCutsOnce) {
    const LineClipPolygon diamond = Ring({{5, 0}, {10, 5}, {5, 10}, {0, 5}});
    ExpectSegments(Clipped(diamond, {-5, 5}, {15, 5}), {{{0, 5}, {10, 5}}});
    ExpectSegments(Clipped(diamond, {5, 5}, {15, 5}), {{{5, 5}, {10, 5}}});
}

TEST(LineClipPolygon, EdgeThatOnlyTouchesDoesNotCut) {
    // A flat-bottomed notch that comes down to the segment.
    const LineClipPolygon notch =
        Ring({{0, 0}, {10, 0}, {10, 10}, {7, 10}, {7, 5}, {3, 5}, {3, 10}, {0, 10}});
    ExpectSegments(Clipped(notch, {1, 5}, {9, 5}), {{{1, 5}, {9, 5}}});
}

TEST(LineClipPolygon, SegmentFromTheBoundaryInwards) {
    const LineClipPolygon clip = Ring(UPRIGHT);
    ExpectSegments(Clipped(clip, {0, 5}, {4, 5}), {{{0, 5}, {4, 5}}});
    ExpectSegments(Clipped(clip, {0, 5}, {14, 7}), {{{0, 5}, {10, 45.0 / 7.0}}});
    EXPECT_TRUE(Clipped(clip, {10, 5}, {14, 5}).empty());
    ExpectSegments(Clipped(clip, {0, 0}, {10, 10}), {{{0, 0}, {10, 10}}});
}

TEST(LineClipPolygon, HolesAndIslandsAreHonoured) {
    const Vec2d points[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {3, 3},   {3, 7},
                            {7, 7}, {7, 3},  {20, 0},  {30, 0}, {30, 10}, {20, 10}};
    const unsigned int counts[] = {4, 4, 4};
    const LineClipPolygon clip(points, counts, 3);
    ExpectSegments(Clipped(clip, {-5, 4.5}, {35, 4.5}),
                   {{{0, 4.5}, {3, 4.5}}, {{7, 4.5}, {10, 4.5}}, {{20, 4.5}, {30, 4.5}}});
    EXPECT_TRUE(clip.PointInside({1, 1}));
    EXPECT_FALSE(clip.PointInside({5, 5}));
    EXPECT_FALSE(clip.PointInside({15, 5}));
    EXPECT_TRUE(clip.PointInside({25, 5}));
}

TEST(LineClipPolygon, EmptyPolygonReturnsEverySegmentInOrder) {
    const LineClipPolygon clip;
    ExpectSegments(Clipped(clip, {3, 4}, {1, 9}), {{{1, 9}, {3, 4}}});
    ExpectSegments(Clipped(clip, {3, 4}, {3, 1}), {{{3, 1}, {3, 4}}});
    EXPECT_FALSE(clip.PointInside({0, 0}));
    ExpectRuns(clip, {{0, 0}, {5, 0}, {1, 1}}, {{0, 0}, {5, 0}, {1, 1}}, {3});
}

TEST(LineClipPolygon, PiecesThatAreTooShortVanish) {
    const LineClipPolygon clip;
    EXPECT_TRUE(Clipped(clip, {1, 1}, {1, 1}).empty());
    EXPECT_TRUE(Clipped(clip, {1, 1}, {1 + 0x1p-17, 1}).empty());
    EXPECT_EQ(Clipped(clip, {1, 1}, {1 + 0x1p-16, 1}).size(), 1U);
    ExpectRuns(clip, {{1, 1}, {1, 1}}, {}, {});
    EXPECT_TRUE(Clipped(Ring(SQUARE), {5, 5}, {5, 5}).empty());
}

TEST(LineClipPolygon, AllSegmentFormsAppendTheSame) {
    const LineClipPolygon clip = Ring({{5, 0}, {10, 5}, {5, 10}, {0, 5}});
    const Points line = {{-5, 5}, {5, 5}, {5, 20}};
    const LineSegment2 kept(7, 7, 8, 8);
    Segments byPoints = {kept};
    clip.Clip(line.data(), line.size(), byPoints);
    Segments byLine = {kept};
    clip.Clip(Polyline(line.data(), line.size()), byLine);
    Segments one = {kept};
    clip.Clip(LineSegment2(line[0], line[1]), one);
    clip.Clip(LineSegment2(line[1], line[2]), one);
    ExpectSegments(byPoints, {{{7, 7}, {8, 8}}, {{0, 5}, {5, 5}}, {{5, 5}, {5, 10}}});
    EXPECT_EQ(byLine, byPoints);
    EXPECT_EQ(one, byPoints);
}

TEST(LineClipPolygon, FewerThanTwoPointsGiveNothing) {
    const LineClipPolygon clip = Ring(SQUARE);
    const Vec2d point(5, 5);
    Segments pieces;
    clip.Clip(&point, 1, pieces);
    clip.Clip(&point, 0, pieces);
    clip.Clip(static_cast<const Vec2d*>(nullptr), 0, pieces);
    clip.Clip(Polyline(), pieces);
    clip.Clip(Polyline(&point, 1), pieces);
    EXPECT_TRUE(pieces.empty());
    ExpectRuns(clip, {{5, 5}}, {}, {});
    ExpectRuns(clip, {}, {}, {});
}

TEST(LineClipPolygon, InputMayLieInTheOutput) {
    const LineClipPolygon clip = Ring({{5, 0}, {10, 5}, {5, 10}, {0, 5}});
    Segments pieces = {{-5, 5, 15, 5}};
    pieces.shrink_to_fit();
    clip.Clip(pieces[0], pieces);
    clip.Clip(&pieces[0].A(), 2, pieces);
    ExpectSegments(pieces, {{{-5, 5}, {15, 5}}, {{0, 5}, {10, 5}}, {{0, 5}, {10, 5}}});
    Points points = {{-5, 5}, {5, 5}, {5, -5}};
    points.shrink_to_fit();
    Counts counts = {3};
    clip.Clip(points.data(), 3, points, counts);
    EXPECT_EQ(points, Points({{-5, 5}, {5, 5}, {5, -5}, {0, 5}, {5, 5}, {5, 0}}));
    EXPECT_EQ(counts, Counts({3, 3}));
}

// --- joining --------------------------------------------------------------------------------

TEST(LineClipPolygon, PiecesThatComeReversedAreJoined) {
    const LineClipPolygon clip = Ring({{5, 0}, {10, 5}, {5, 10}, {0, 5}});
    ExpectRuns(clip, {{9, 5}, {5, 5}, {5, 1}}, {{9, 5}, {5, 5}, {5, 1}}, {3});
    ExpectRuns(clip, {{9, 5}, {6, 5}, {3, 5}, {2, 5}}, {{9, 5}, {6, 5}, {3, 5}, {2, 5}}, {4});
}

TEST(LineClipPolygon, TwoStretchesInsideGiveTwoRuns) {
    const LineClipPolygon clip = Ring(Comb(3));
    ExpectRuns(clip, {{-1, 2}, {2.5, 2}, {2.5, 1}}, {{1, 2}, {0, 2}, {2, 2}, {2.5, 2}, {2.5, 1}},
               {2, 3});
}

TEST(LineClipPolygon, RunOfTwoThatFitsNowhereStaysReversed) {
    const LineClipPolygon clip;
    ExpectRuns(clip, {{3, 3}, {4, 4}}, {{2, 2}, {1, 1}, {3, 3}, {4, 4}}, {2, 2}, {{1, 1}, {2, 2}},
               {2});
    ExpectRuns(clip, {{3, 3}, {4, 4}}, {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}}, {3, 2},
               {{0, 0}, {1, 1}, {2, 2}}, {3});
}

TEST(LineClipPolygon, PieceJoinsTheCallersLastRun) {
    const LineClipPolygon clip;
    ExpectRuns(clip, {{2, 2}, {3, 3}}, {{1, 1}, {2, 2}, {3, 3}}, {3}, {{1, 1}, {2, 2}}, {2});
    ExpectRuns(clip, {{3, 3}, {2, 2}}, {{1, 1}, {2, 2}, {3, 3}}, {3}, {{1, 1}, {2, 2}}, {2});
    ExpectRuns(clip, {{1, 1}, {0, 0}}, {{2, 2}, {1, 1}, {0, 0}}, {3}, {{1, 1}, {2, 2}}, {2});
    ExpectRuns(clip, {{0, 0}, {1, 1}}, {{2, 2}, {1, 1}, {0, 0}}, {3}, {{1, 1}, {2, 2}}, {2});
    const double gap = 0x1p-17;
    ExpectRuns(clip, {{2 + gap, 2}, {3, 3}}, {{1, 1}, {2, 2}, {3, 3}}, {3}, {{1, 1}, {2, 2}}, {2});
}

TEST(LineClipPolygon, OutputsThatDoNotMatchDoNoHarm) {
    const LineClipPolygon clip;
    ExpectRuns(clip, {{2, 2}, {3, 3}}, {{2, 2}, {2, 2}, {3, 3}}, {2}, {{2, 2}}, {});
    ExpectRuns(clip, {{5, 5}, {6, 6}}, {{2, 2}, {5, 5}, {6, 6}}, {2, 2}, {{2, 2}}, {2});
}

// --- points ---------------------------------------------------------------------------------

TEST(LineClipPolygon, PointInside) {
    const LineClipPolygon square = Ring(SQUARE);
    EXPECT_TRUE(square.PointInside({5, 5}));
    EXPECT_TRUE(square.PointInside({0x1p-10, 5}));
    EXPECT_FALSE(square.PointInside({-1, 5}));
    EXPECT_FALSE(square.PointInside({11, 5}));
    EXPECT_FALSE(square.PointInside({NOT_A_NUMBER, 5}));
    const LineClipPolygon diamond = Ring({{5, 0}, {10, 5}, {5, 10}, {0, 5}});
    EXPECT_TRUE(diamond.PointInside({5, 5}));
    EXPECT_FALSE(diamond.PointInside({1, 1}));
    EXPECT_FALSE(diamond.PointInside({9, 9}));
}

TEST(LineClipPolygon, PointOnTheBoundary) {
    const LineClipPolygon square = Ring(SQUARE);
    // Where the horizontal through it ends at the inside's right end, or runs back into it.
    EXPECT_TRUE(square.PointInside({10, 5}));
    EXPECT_TRUE(square.PointInside({0, 5}));
    EXPECT_FALSE(square.PointInside({5, 0}));
    EXPECT_FALSE(square.PointInside({5, 10}));
}

TEST(LineClipPolygon, PointWithinTheShortPieceOfTheBorder) {
    // Closer to the border than pieces may be short.
    const LineClipPolygon square = Ring(SQUARE);
    EXPECT_TRUE(square.PointInside({0x1p-20, 5}));
}

// --- machinery ------------------------------------------------------------------------------

TEST(LineClipPolygon, SidesOfALine) {
    const OpenClip clip;
    const OpenClip::SEGMENT line = {0, 0, 10, 0, nullptr, nullptr};
    const Vec2d above(3, 1);
    const Vec2d below(4, -1);
    const Vec2d on(20, 0);
    EXPECT_EQ(clip.p_where(&above, &below, &line), -1);
    EXPECT_EQ(clip.p_where(&below, &above, &line), -1);
    EXPECT_EQ(clip.p_where(&above, &above, &line), 1);
    EXPECT_EQ(clip.p_where(&below, &below, &line), 1);
    EXPECT_EQ(clip.p_where(&on, &above, &line), 0);
    EXPECT_EQ(clip.p_where(&above, &on, &line), 0);
}

TEST(LineClipPolygon, SidesAreComparedBySignsNotByAProduct) {
    const OpenClip clip;
    const OpenClip::SEGMENT line = {0, 0, 0x1p-600, 0, nullptr, nullptr};
    const Vec2d above(0, 0x1p-400);
    const Vec2d below(0, -0x1p-400);
    EXPECT_EQ(clip.p_where(&above, &below, &line), -1);
    EXPECT_EQ(clip.p_where(&above, &above, &line), 1);
}

TEST(LineClipPolygon, Disjunct) {
    OpenClip clip = OpenRing(SQUARE);
    const auto disjunct = [&clip](double x1, double y1, double x2, double y2) {
        const OpenClip::SEGMENT segment = {x1, y1, x2, y2, nullptr, nullptr};
        return clip.disjunct(clip.Contours(), &segment);
    };
    EXPECT_TRUE(disjunct(-2, 5, -1, 5));
    EXPECT_TRUE(disjunct(12, 5, 11, 5));
    EXPECT_TRUE(disjunct(5, -2, 5, -1));
    EXPECT_TRUE(disjunct(5, 12, 5, 11));
    EXPECT_FALSE(disjunct(-2, 5, 0, 5));
    EXPECT_FALSE(disjunct(10, 10, 12, 12));
    EXPECT_FALSE(disjunct(-5, 7, 2, 20));
}

TEST(LineClipPolygon, OnContour) {
    OpenClip clip = OpenRing({{0, 0}, {10, 0}, {0, 10}});
    const auto on = [&clip](double x, double y) {
        const Vec2d p(x, y);
        return clip.on_contour(clip.Contours(), &p);
    };
    EXPECT_TRUE(on(0, 0));
    EXPECT_TRUE(on(5, 0));
    EXPECT_TRUE(on(5, 5));
    EXPECT_TRUE(on(0, 10));
    EXPECT_FALSE(on(1, 1));
    EXPECT_FALSE(on(11, 0));
    EXPECT_FALSE(on(-1, 0));
    EXPECT_FALSE(on(NOT_A_NUMBER, 0));
}

TEST(LineClipPolygon, StrictlyInside) {
    OpenClip clip = OpenRing({{0, 0}, {10, 0}, {10, 5}, {5, 5}, {5, 10}, {0, 10}});
    const auto inside = [&clip](double x, double y) {
        const Vec2d p(x, y);
        return clip.p_inside(clip.Contours(), &p);
    };
    EXPECT_TRUE(inside(1, 1));
    EXPECT_TRUE(inside(4, 5));
    EXPECT_TRUE(inside(1, 9));
    EXPECT_FALSE(inside(0, 1));
    EXPECT_FALSE(inside(5, 5));
    EXPECT_FALSE(inside(7, 5));
    EXPECT_FALSE(inside(9, 9));
    EXPECT_FALSE(inside(-1, 1));
    EXPECT_FALSE(inside(20, 1));
    // The probe runs along the step's edge.
    EXPECT_FALSE(inside(12, 5));
}

TEST(LineClipPolygon, CrossingsComeSortedWithTheEnds) {
    OpenClip clip = OpenRing({{5, 0}, {10, 5}, {5, 10}, {0, 5}});
    const std::vector<OpenClip::CLIST> list = clip.Crossings({-1, 4}, {11, 4});
    ASSERT_EQ(list.size(), 4U);
    const double xs[] = {-1, 1, 9, 11};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(list[i].x, xs[i]);
        EXPECT_EQ(list[i].y, 4.0);
        EXPECT_EQ(list[i].kind, 0);
    }
}

TEST(LineClipPolygon, OverlapEndsAreOfKindOne) {
    OpenClip clip = OpenRing({{0, 0}, {10, 0}, {10, 5}, {5, 5}, {5, 10}, {0, 10}});
    const std::vector<OpenClip::CLIST> list = clip.Crossings({2, 5}, {12, 5});
    ASSERT_EQ(list.size(), 4U);
    // The edge runs from (10, 5) to (5, 5): its start stands for the lower end of the overlap
    // and its end for the upper one.
    EXPECT_EQ(list[1].x, 5.0);
    EXPECT_EQ(list[1].kind, 1);
    EXPECT_EQ(list[2].x, 10.0);
    EXPECT_EQ(list[2].kind, 1);
}

TEST(LineClipPolygon, RecordedPointCanLieBeyondTheSegment) {
    OpenClip clip = OpenRing({{0, 0}, {10, 0}, {10, 5}, {5, 5}, {5, 10}, {0, 10}});
    const std::vector<OpenClip::CLIST> list = clip.Crossings({2, 5}, {7, 5});
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(list[1].x, 7.0);
    EXPECT_EQ(list[2].x, 10.0);
    EXPECT_EQ(list[2].kind, 1);
    const std::vector<Stretch> runs = clip.AllPieces({2, 5}, {7, 5});
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].b, Vec2d(7, 5));
}

TEST(LineClipPolygon, CrossingListGrowsAndKeepsWhatWasInIt) {
    OpenClip comb = OpenRing(Comb(30));
    EXPECT_EQ(comb.Crossings({-1, 2}, {100, 2}).size(), 62U);
    OpenClip indexed;
    indexed = comb;
    const std::vector<OpenClip::CLIST> list = indexed.Crossings({-1, 2}, {100, 2});
    ASSERT_EQ(list.size(), 62U);
    EXPECT_EQ(list.front().x, -1.0);
    EXPECT_EQ(list.back().x, 100.0);
}

TEST(LineClipPolygon, SegmentIsPutInOrderInPlace) {
    OpenClip clip = OpenRing(SQUARE);
    OpenClip::SEGMENT segment = {5, 20, 5, -20, nullptr, nullptr};
    clip.clip_to_contours(
        clip.Contours(), &segment, [](const Vec2d&, const Vec2d&, void*) {}, nullptr);
    EXPECT_EQ(segment.startY, -20.0);
    EXPECT_EQ(segment.endY, 20.0);
}

TEST(LineClipPolygon, ContoursOfAListFilterInTurn) {
    OpenClip clip;
    clip.Add(UPRIGHT, 0);
    clip.Add({{3, 3}, {3, 7}, {7, 7}, {7, 3}}, 1);
    clip.Add({{20, 20}, {20, 21}, {21, 20}}, 1);
    Segments pieces;
    clip.Clip(LineSegment2(-5, 5, 15, 5), pieces);
    ExpectSegments(pieces, {{{0, 5}, {3, 5}}, {{7, 5}, {10, 5}}});
    OpenClip both;
    both.Add(UPRIGHT, 0);
    both.Add({{20, 20}, {20, 21}, {21, 20}}, 0);
    pieces.clear();
    both.Clip(LineSegment2(-5, 5, 15, 5), pieces);
    EXPECT_TRUE(pieces.empty());
}

TEST(LineClipPolygon, StretchOnTheBoundaryOfAHoleSurvivesWhereThePieceBelowDoes) {
    OpenClip clip;
    clip.Add({{3, 3}, {3, 7}, {7, 7}, {7, 5}, {5, 5}, {5, 3}}, 1);
    Segments pieces;
    clip.Clip(LineSegment2(0, 5, 10, 5), pieces);
    ExpectSegments(pieces, {{{0, 5}, {3, 5}}, {{7, 5}, {10, 5}}});
}

// --- the index ------------------------------------------------------------------------------

TEST(LineClipPolygon, ContourOfAnotherObjectIsWalked) {
    OpenClip own = OpenRing({});
    own = OpenRing(Comb(30));
    OpenClip other = OpenRing(Comb(20));
    OpenClip::SEGMENT segment = {-1, 2, 100, 2, nullptr, nullptr};
    std::size_t pieces = 0;
    own.clip_to_contours(
        other.Contours(), &segment,
        [](const Vec2d&, const Vec2d&, void* count) { ++*static_cast<std::size_t*>(count); },
        &pieces);
    EXPECT_EQ(pieces, 20U);
}

TEST(LineClipPolygon, FreeingTheIndexedContourDropsTheIndex) {
    OpenClip clip;
    clip = OpenRing(Comb(30));
    EXPECT_EQ(clip.AllPieces({-1, 2}, {100, 2}).size(), 30U);
    clip.del_contours(&clip.Contours());
    // The new contour may well take the place of the old one in memory.
    clip.Add(Comb(25), 0);
    EXPECT_EQ(clip.AllPieces({-1, 2}, {100, 2}).size(), 25U);
}

TEST(LineClipPolygon, ContoursAddedToAnIndexedOneFilterToo) {
    OpenClip clip;
    clip = OpenRing(Comb(30));
    clip.Add({{10, -5}, {10, 10}, {20, 10}, {20, -5}}, 0);
    EXPECT_EQ(clip.AllPieces({-1, 2}, {100, 2}).size(), 5U);
}

TEST(LineClipPolygon, ConstructReplacesAndAppends) {
    OpenClip clip;
    clip = OpenRing(Comb(30));
    clip.Construct(GpcPolygon(0, 0, 5, 5));
    EXPECT_EQ(clip.GetNumContours(), 1U);
    EXPECT_EQ(clip.GetTotalVertexCount(), 5U);
    clip.Construct(GpcPolygon());
    EXPECT_EQ(clip.GetNumContours(), 0U);
    EXPECT_EQ(clip.GetBBox(), Box2d());
    clip.Construct(static_cast<const LineClipPolygon&>(OpenRing(Comb(20))));
    EXPECT_EQ(clip.AllPieces({-1, 2}, {100, 2}).size(), 20U);
}

TEST(LineClipPolygon, ThreadsShareAPolygon) {
    const LineClipPolygon clip = Ring(Comb(200));
    const Segments expected = Clipped(clip, {-1, 1}, {500, 3});
    std::vector<Segments> results(4);
    std::vector<std::thread> threads;
    for (Segments& result : results) {
        threads.emplace_back([&clip, &result] {
            for (int i = 0; i < 50; ++i) {
                result = Clipped(clip, {-1, 1}, {500, 3});
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const Segments& result : results) {
        EXPECT_EQ(result, expected);
    }
}

// --- bad input ------------------------------------------------------------------------------

TEST(LineClipPolygon, CoordinatesThatAreNotFiniteDoNoHarm) {
    const double specials[] = {NOT_A_NUMBER, INF,   -INF,   LARGEST, -LARGEST,
                               1e200,        1e154, 5e-324, 0.0,     5.0};
    for (const double x : specials) {
        for (const double y : specials) {
            Points points = Comb(6);
            points[3] = {x, y};
            points[10] = {y, 2};
            for (const LineClipPolygon& clip : {Ring(Comb(6)), Ring(points)}) {
                for (const LineSegment2& segment :
                     {LineSegment2(x, y, 5, 2), LineSegment2(-1, 2, y, x), LineSegment2(x, 2, y, 2),
                      LineSegment2(x, y, x, y)}) {
                    Segments pieces;
                    clip.Clip(segment, pieces);
                }
                clip.PointInside({x, y});
                clip.PointInside({5, y});
                Points out;
                Counts counts;
                clip.Clip(points.data(), points.size(), out, counts);
            }
        }
    }
}

TEST(LineClipPolygon, BoundaryStretchFarFromTheOriginEnds) {
    // Neighbouring doubles are further apart here than the shortest piece.
    for (const double offset : {1e12, 1e15, 1e20, 1e100, 1e300}) {
        const double size = offset * 0x1p-40;
        const Points points = {{offset, offset},
                               {offset, offset + size},
                               {offset + size, offset + size},
                               {offset + size, offset}};
        const LineClipPolygon clip = Ring(points);
        EXPECT_TRUE(Clipped(clip, points[0], points[1]).empty());
        EXPECT_TRUE(Clipped(clip, points[3], points[0]).empty());
        // The probe for the inside starts 2 to the left of the polygon, which is no distance
        // any more for the largest offsets.
        EXPECT_EQ(Clipped(clip, points[0], points[2]).size(), offset <= 1e15 ? 1U : 0U);
    }
}

TEST(LineClipPolygon, CrossingsOfHugeSegmentsAreFound) {
    const LineClipPolygon clip = Ring({{5, 0}, {10, 5}, {5, 10}, {0, 5}});
    ExpectSegments(Clipped(clip, {-1e150, 5}, {1e150, 5}), {{{0, 5}, {10, 5}}});
}

// --- memory ---------------------------------------------------------------------------------

// Fails each heap request in turn and checks what is thrown: the class's own error, or that of
// an output vector or of the polygon that the object is made from. Returns how often it was the
// class's own.
template <typename Call>
std::size_t FailEach(Call call) {
    std::size_t own = 0;
    for (std::size_t k = 0;; ++k) {
        bool failed = false;
        const AllocationProbe probe(k);
        try {
            call();
        } catch (const std::bad_alloc&) {
            failed = true;
        } catch (const Exception& e) {
            failed = true;
            EXPECT_EQ(e.Module(), GString("Geometry"));
            EXPECT_EQ(e.Message(), GString("Out of memory"));
            const bool isOwn = e.File() == GString("LineClipPolygon");
            EXPECT_TRUE(isOwn || e.File() == GString("GpcPolygon"));
            own += isOwn ? 1U : 0U;
        }
        EXPECT_TRUE(!failed || probe.Failed()) << "request " << k;
        // Sorting asks for memory, too, but can do without.
        if (!probe.Failed()) {
            return own;
        }
    }
}

TEST(LineClipPolygon, ExhaustedMemoryIsReportedByConstruction) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const GpcPolygon polygon(Comb(8).data(), Comb(8).size());
    // A contour, 33 edges and the index; the points come in vectors.
    EXPECT_GT(FailEach([&] { const LineClipPolygon clip(polygon); }), 34U);
    const LineClipPolygon source(polygon);
    EXPECT_GT(FailEach([&] { const LineClipPolygon clip(source); }), 34U);
    const Points points = Comb(8);
    const unsigned int count = static_cast<unsigned int>(points.size());
    EXPECT_GT(FailEach([&] { const LineClipPolygon clip(points.data(), &count, 1); }), 34U);
}

TEST(LineClipPolygon, FailedContourLeavesTheListAndFailedAssignmentAUsableObject) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    OpenClip clip = OpenRing(SQUARE);
    const Points points = Comb(8);
    const auto add = [&](std::size_t failAt) {
        const AllocationProbe probe(failAt);
        clip.Add(points, 0);
    };
    ExpectError([&] { add(0); }, "Geometry", "LineClipPolygon", 101, "Out of memory");
    ExpectError([&] { add(1); }, "Geometry", "LineClipPolygon", 102, "Out of memory");
    ExpectError([&] { add(20); }, "Geometry", "LineClipPolygon", 102, "Out of memory");
    EXPECT_EQ(clip.GetNumContours(), 1U);
    const LineClipPolygon source = Ring(points);
    LineClipPolygon target = Ring(SQUARE);
    FailEach([&] {
        try {
            target = source;
        } catch (...) {
            Clipped(target, {-1, 2}, {100, 2});
            throw;
        }
    });
    EXPECT_EQ(Clipped(target, {-1, 2}, {100, 2}).size(), 8U);
}

TEST(LineClipPolygon, ExhaustedMemoryIsReportedByClipping) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    // Walked and asked of an index; more crossings than a list holds in itself.
    OpenClip walked = OpenRing(Comb(200));
    OpenClip indexed;
    indexed = walked;
    for (OpenClip* clip : {&walked, &indexed}) {
        EXPECT_GT(FailEach([&] {
                      Segments pieces;
                      clip->Clip(LineSegment2(-1, 1, 500, 3), pieces);
                  }),
                  0U);
        EXPECT_GT(FailEach([&] {
                      OpenClip::SEGMENT segment = {-1, 1, 500, 3, nullptr, nullptr};
                      auto* list =
                          static_cast<OpenClip::CLIST*>(std::malloc(2 * sizeof(OpenClip::CLIST)));
                      if (list == nullptr) {
                          throw std::bad_alloc();
                      }
                      long count = 0;
                      try {
                          clip->cross_calc(clip->Contours(), &segment, &list, &count, 2);
                      } catch (...) {
                          std::free(list);
                          throw;
                      }
                      std::free(list);
                  }),
                  0U);
    }
    ExpectError(
        [&] {
            Segments pieces;
            const AllocationProbe probe(0);
            walked.Clip(LineSegment2(-1, 1, 500, 3), pieces);
        },
        "Geometry", "LineClipPolygon", 104, "Out of memory");
}

TEST(LineClipPolygon, ShortCrossingListsTakeNoMemory) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const LineClipPolygon clip = Ring(Comb(200));
    Segments pieces;
    pieces.reserve(10);
    const AllocationProbe probe;
    clip.Clip(LineSegment2(3.5, 2, 8.5, 2), pieces);
    EXPECT_FALSE(pieces.empty());
    EXPECT_EQ(probe.Count(), 0U);
}

} // namespace
} // namespace geom
