// SPDX-License-Identifier: MIT
#include "geometry/OffsetPolygon.h"
#include "geometry/Polygon2.h"
#include "geometry/PolygonMeasures.h"
#include "geometry/RemoveSelfIntersections.h"
#include "tests/calls/Trial.h"

#include <GL/glu.h>
#include <gtest/gtest.h>

namespace geom::test {

namespace {

const Errors BAD_ALLOC = {"bad_alloc"};
/// The tessellator's own, and the one of a tessellator that cannot be had. Its messages about
/// large numbers can also be that its memory ran out: the text tells.
const Errors TESSELLATION = {"bad_alloc", "Geometry, RemoveSelfIntersections 123: Out of memory",
                             "Geometry, RemoveSelfIntersections 53: out of memory"};
const Errors TOO_LARGE = {"Geometry, RemoveSelfIntersections 53: "};

Polygon2 TwoRings(Trial& t) {
    Polygon2 polygon;
    polygon.Points() = t.Star(0, 0);
    const unsigned int n = static_cast<unsigned int>(polygon.Points().size());
    polygon.Counts() = {4, n - 4};
    return polygon;
}

template <typename Change>
void ChangeRings(Trial& t, Change change) {
    Polygon2 polygon = TwoRings(t);
    t.Call([&] { change(polygon); });
    t.Result(polygon);
}

template <typename Question>
void Ask(Trial& t, Question question) {
    const Polygon2 polygon = TwoRings(t);
    t.Keep(polygon);
    t.Answer([&] { return question(polygon); });
}

/// A call that replaces a polygon, unless it fails.
template <typename Repair>
void Repairing(Trial& t, Repair repair) {
    const Polygon2 in = TwoRings(t);
    t.Keep(in);
    Polygon2 out;
    out.Points() = {{0, 0}, {1, 0}, {0, 1}};
    out.Counts() = {3};
    const std::uint64_t before = FingerprintOf(out);
    t.Call([&] { repair(in, out); }, [&] { EXPECT_EQ(FingerprintOf(out), before); });
    t.Result(out);
    out = in;
    t.Result(out);
}

Calls PolygonCalls() {
    return {
        {"Polygon2::Points",
         {},
         {},
         [](Trial& t) { Ask(t, [](const Polygon2& p) { return p.Points().size(); }); }},
        {"Polygon2::Counts",
         {},
         {},
         [](Trial& t) { Ask(t, [](const Polygon2& p) { return p.Counts().size(); }); }},
        {"Polygon2::clear",
         {},
         {},
         [](Trial& t) { ChangeRings(t, [](Polygon2& p) { p.clear(); }); }},
        {"Polygon2::empty",
         {},
         {},
         [](Trial& t) { Ask(t, [](const Polygon2& p) { return p.empty(); }); }},
        {"Polygon2::Take",
         {},
         {},
         [](Trial& t) {
             Polygon2Data data{t.Star(0, 0), {4, 2}};
             ChangeRings(t, [&](Polygon2& p) { p.Take(data); });
         }},
        {"Polygon2::RemoveRing",
         {},
         {},
         [](Trial& t) { ChangeRings(t, [](Polygon2& p) { p.RemoveRing(0); }); }},
        {"Polygon2::RemoveDegenerateRings",
         {},
         {},
         [](Trial& t) { ChangeRings(t, [](Polygon2& p) { p.RemoveDegenerateRings(5); }); }},
        {"Polygon2::RemoveDuplicatePoints",
         {},
         {},
         [](Trial& t) { ChangeRings(t, [](Polygon2& p) { p.RemoveDuplicatePoints(); }); }},
        {"Polygon2::Reverse",
         {},
         {},
         [](Trial& t) { ChangeRings(t, [](Polygon2& p) { p.Reverse(); }); }},
        {"Polygon2::RingOrientation",
         {},
         {},
         [](Trial& t) { Ask(t, [](const Polygon2& p) { return p.RingOrientation(1); }); }},
        {"Polygon2 (copy)",
         BAD_ALLOC,
         {},
         [](Trial& t) { Ask(t, [](const Polygon2& p) { return Polygon2(p).Points().size(); }); }},
        {"RemoveSelfIntersections", TESSELLATION, TOO_LARGE,
         [](Trial& t) {
             Repairing(t, [](const Polygon2& in, Polygon2& out) {
                 RemoveSelfIntersections(in, out, GLU_TESS_WINDING_ODD, RSI_NORMAL_POSITIVE_Z);
             });
         }},
        {"RemoveSelfIntersections (from below)", TESSELLATION, TOO_LARGE,
         [](Trial& t) {
             Repairing(t, [](const Polygon2& in, Polygon2& out) {
                 RemoveSelfIntersections(in, out, GLU_TESS_WINDING_NONZERO, RSI_NORMAL_NEGATIVE_Z);
             });
         }},
        {"OffsetPolygon (grow)", TESSELLATION, TOO_LARGE,
         [](Trial& t) {
             const double distance = t.Number(0.5);
             Repairing(
                 t, [&](const Polygon2& in, Polygon2& out) { OffsetPolygon(in, distance, out); });
         }},
        {"OffsetPolygon (shrink)", TESSELLATION, TOO_LARGE,
         [](Trial& t) {
             const double distance = t.Number(-0.5);
             Repairing(
                 t, [&](const Polygon2& in, Polygon2& out) { OffsetPolygon(in, distance, out); });
         }},
    };
}

template <typename Measure>
void MeasureRing(Trial& t, Measure measure) {
    const std::vector<Vec2d> ring = t.Keep(t.Star(0, 0));
    t.Answer([&] { return measure(ring.data(), ring.size()); });
}

template <typename Measure>
void MeasureRings(Trial& t, Measure measure) {
    const std::vector<Vec2d> points = t.Keep(t.Star(0, 0));
    const unsigned int counts[] = {4, static_cast<unsigned int>(points.size()) - 4};
    t.Answer([&] { return measure(points.data(), counts, std::size_t{2}); });
}

Errors DecomposingMemory() {
    return Together({ContourMemory(),
                     EngineMemory(),
                     {"Geometry, GpcPolygon 701: Out of memory",
                      "Geometry, GpcPolygon 702: Out of memory", "bad_alloc"}});
}

Calls MeasureCalls() {
    return {
        {"PointInPolygon (integers)",
         {},
         {},
         [](Trial& t) {
             const auto ring = t.Keep(t.Devices({{0, 0}, {9, 1}, {8, 8}, {1, 7}}));
             const tagPOINT p = t.Device(3, 4);
             t.Answer([&] { return PointInPolygon(p, ring.data(), ring.size()); });
         }},
        {"PointInPolygon (rings of integers)",
         {},
         {},
         [](Trial& t) {
             const auto points =
                 t.Keep(t.Devices({{0, 0}, {9, 1}, {8, 8}, {1, 7}, {2, 2}, {4, 2}, {3, 5}}));
             const tagPOINT p = t.Device(3, 4);
             const long counts[] = {4, 3};
             t.Answer([&] { return PointInPolygon(p, points.data(), counts, 2); });
         }},
        {"PointInPolygon",
         {},
         {},
         [](Trial& t) {
             const Vec2d p = t.Point(1, 2);
             MeasureRing(
                 t, [&](const Vec2d* pts, std::size_t n) { return PointInPolygon(p, pts, n); });
         }},
        {"PointInPolygon (rings)",
         {},
         {},
         [](Trial& t) {
             const Vec2d p = t.Point(1, 2);
             MeasureRings(t, [&](const Vec2d* pts, const unsigned int* counts, std::size_t n) {
                 return PointInPolygon(p, pts, counts, n);
             });
         }},
        {"PointInPolygon (polygon)",
         {},
         {},
         [](Trial& t) {
             const Vec2d p = t.Point(1, 2);
             Ask(t, [&](const Polygon2& polygon) { return PointInPolygon(p, polygon); });
         }},
        {"PolygonPerimeter",
         {},
         {},
         [](Trial& t) {
             MeasureRing(t, [](const Vec2d* p, std::size_t n) { return PolygonPerimeter(p, n); });
         }},
        {"PolygonPerimeter (rings)",
         {},
         {},
         [](Trial& t) {
             MeasureRings(t, [](const Vec2d* pts, const unsigned int* counts, std::size_t n) {
                 return PolygonPerimeter(pts, counts, n);
             });
         }},
        {"Perimeter",
         {},
         {},
         [](Trial& t) { Ask(t, [](const Polygon2& polygon) { return Perimeter(polygon); }); }},
        {"PolygonArea",
         {},
         {},
         [](Trial& t) {
             MeasureRing(t, [](const Vec2d* pts, std::size_t n) { return PolygonArea(pts, n); });
         }},
        {"PolygonArea (rings)",
         {},
         {},
         [](Trial& t) {
             MeasureRings(t, [](const Vec2d* pts, const unsigned int* counts, std::size_t n) {
                 return PolygonArea(pts, counts, n);
             });
         }},
        {"PolygonArea (polygon)",
         {},
         {},
         [](Trial& t) { Ask(t, [](const Polygon2& polygon) { return PolygonArea(polygon); }); }},
        {"TriangulatedPolygonArea", DecomposingMemory(), EngineNumbers(),
         [](Trial& t) {
             MeasureRing(t, [](const Vec2d* pts, std::size_t n) {
                 return TriangulatedPolygonArea(pts, n);
             });
         }},
        {"TriangulatedPolygonArea (rings)", DecomposingMemory(), EngineNumbers(),
         [](Trial& t) {
             MeasureRings(t, [](const Vec2d* pts, const unsigned int* counts, std::size_t n) {
                 return TriangulatedPolygonArea(pts, counts, n);
             });
         }},
        {"RectPolyIntersect",
         {},
         {},
         [](Trial& t) {
             const Box2d box = t.Box(1, 2, 5, 20);
             MeasureRing(t, [&](const Vec2d* pts, std::size_t n) {
                 return RectPolyIntersect(box, pts, n);
             });
         }},
    };
}

} // namespace

Calls RingCalls() {
    Calls all = PolygonCalls();
    for (PublicCall& call : MeasureCalls()) {
        all.push_back(std::move(call));
    }
    return all;
}

} // namespace geom::test
