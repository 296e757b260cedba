// SPDX-License-Identifier: MIT
#include "geometry/ClipUtil.h"
#include "geometry/DashLineGenerator.h"
#include "geometry/GpcPolygon.h"
#include "geometry/LineClipPolygon.h"
#include "tests/calls/Trial.h"

#include <gtest/gtest.h>

namespace geom::test {

namespace {

const Errors BAD_ALLOC = {"bad_alloc"};
const Errors FLATTENING = {"Geometry, GpcPolygon 326: Out of memory",
                           "Geometry, GpcPolygon 538: Out of memory"};
const Errors LINE_CLIP = {
    "Geometry, LineClipPolygon 101: Out of memory", "Geometry, LineClipPolygon 102: Out of memory",
    "Geometry, LineClipPolygon 103: Out of memory", "Geometry, LineClipPolygon 104: Out of memory"};

GpcPolygon StarPolygon(Trial& t, double x, double y) {
    const std::vector<Vec2d> points = t.Star(x, y);
    return GpcPolygon(points.data(), points.size());
}

GpcPolygon Rectangle(Trial& t) {
    const Box2d box = t.Box(-5, 6, 7, -8);
    return GpcPolygon(box.minX, box.minY, box.maxX, box.maxY);
}

Errors PolygonMemory() {
    return Together({ContourMemory(), EngineMemory(), FLATTENING, BAD_ALLOC});
}

/// Flat geometry that goes in, and flat geometry that comes out.
struct Flat {
    std::vector<Vec2d> points;
    std::vector<unsigned int> counts;
};

Flat TwoStars(Trial& t) {
    Flat flat{t.Star(0, 0), {}};
    flat.counts = {5, static_cast<unsigned int>(flat.points.size()) - 5};
    return flat;
}

void Keep(Trial& t, const Flat& flat) {
    t.Keep(flat.points);
    t.Keep(flat.counts);
}

void Result(Trial& t, const Flat& flat) {
    t.Result(flat.points);
    t.Result(flat.counts);
}

template <typename Clip>
void PolygonToPolygon(Trial& t, const GpcPolygon& clip, Clip function) {
    const GpcPolygon subject = StarPolygon(t, 0, 0);
    t.Keep(subject);
    t.Keep(clip);
    GpcPolygon result;
    t.Call([&] { function(subject, clip, result); },
           [&] { EXPECT_EQ(result.GetNumContours(), 0U); });
    t.Result(result);
}

/// A call whose outputs are vectors: emptied before each attempt.
template <typename Clip>
void ToVectors(Trial& t, Clip clip) {
    Flat out;
    t.Call([&] {
        out.points.clear();
        out.counts.clear();
        clip(out);
    });
    Result(t, out);
}

Calls PolygonToRectangleCalls() {
    return {
        {"ClipGPolygonToRect",
         PolygonMemory(),
         {},
         [](Trial& t) {
             const GpcPolygon subject = StarPolygon(t, 0, 0);
             const Box2d box = t.Box(-5, -6, 7, 8);
             t.Keep(subject);
             GpcPolygon result;
             t.Call([&] { ClipGPolygonToRect(subject, box, result); },
                    [&] { EXPECT_EQ(result.GetNumContours(), 0U); });
             t.Result(result);
         }},
        {"ClipGPolygonToRect (vectors)",
         PolygonMemory(),
         {},
         [](Trial& t) {
             const GpcPolygon subject = StarPolygon(t, 0, 0);
             const Box2d box = t.Box(-5, -6, 7, 8);
             t.Keep(subject);
             ToVectors(t, [&](Flat& out) {
                 ClipGPolygonToRect(subject, box, out.points, out.counts, true);
             });
         }},
        {"ClipPolyPolygonToRect",
         PolygonMemory(),
         {},
         [](Trial& t) {
             const Flat in = TwoStars(t);
             const Box2d box = t.Box(-5, -6, 7, 8);
             Keep(t, in);
             ToVectors(t, [&](Flat& out) {
                 ClipPolyPolygonToRect(in.points.data(), in.counts.data(), 2, box, out.points,
                                       out.counts, false);
             });
         }},
    };
}

Calls PolygonToPolygonCalls() {
    return {
        {"ClipGPolygonToGPolygon", PolygonMemory(), EngineNumbers(),
         [](Trial& t) {
             PolygonToPolygon(t, StarPolygon(t, 3, 1),
                              [](const GpcPolygon& subject, const GpcPolygon& clip,
                                 GpcPolygon& out) { ClipGPolygonToGPolygon(subject, clip, out); });
         }},
        {"ClipGPolygonToGPolygon (rectangle)", PolygonMemory(), EngineNumbers(),
         [](Trial& t) {
             PolygonToPolygon(t, Rectangle(t),
                              [](const GpcPolygon& subject, const GpcPolygon& clip,
                                 GpcPolygon& out) { ClipGPolygonToGPolygon(subject, clip, out); });
         }},
        {"ClipGPolygonToGPolygon (vectors)", PolygonMemory(), EngineNumbers(),
         [](Trial& t) {
             const GpcPolygon subject = StarPolygon(t, 0, 0);
             const GpcPolygon clip = StarPolygon(t, 3, 1);
             t.Keep(subject);
             t.Keep(clip);
             ToVectors(t, [&](Flat& out) {
                 ClipGPolygonToGPolygon(subject, clip, out.points, out.counts, true);
             });
         }},
        {"ClipPolyPolygonToGPolygon", PolygonMemory(), EngineNumbers(),
         [](Trial& t) {
             const Flat in = TwoStars(t);
             const GpcPolygon clip = StarPolygon(t, 3, 1);
             Keep(t, in);
             t.Keep(clip);
             ToVectors(t, [&](Flat& out) {
                 ClipPolyPolygonToGPolygon(in.points.data(), in.counts.data(), 2, clip, out.points,
                                           out.counts, false);
             });
         }},
        {"PolygonContains", PolygonMemory(), EngineNumbers(),
         [](Trial& t) {
             const GpcPolygon outer = StarPolygon(t, 0, 0);
             const std::vector<Vec2d> points = t.Points({{-1, -1}, {1, -1}, {0, 1.5}});
             const GpcPolygon inner(points.data(), points.size());
             t.Keep(outer);
             t.Keep(inner);
             bool answer = false;
             t.Call([&] { answer = PolygonContains(outer, inner); });
             t.Result(answer);
         }},
        {"PolygonContains (points)", PolygonMemory(), EngineNumbers(),
         [](Trial& t) {
             const GpcPolygon outer = StarPolygon(t, 0, 0);
             const Flat inner = TwoStars(t);
             t.Keep(outer);
             Keep(t, inner);
             bool answer = false;
             t.Call([&] {
                 answer = PolygonContains(outer, inner.points.data(), inner.counts.data(), 2);
             });
             t.Result(answer);
         }},
    };
}

Flat TwoLines(Trial& t) {
    Flat flat{t.Zigzag(), {}};
    flat.counts = {3, static_cast<unsigned int>(flat.points.size()) - 3};
    return flat;
}

Calls PolylineClippingCalls() {
    return {
        {"ClipPolylinesToRect",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             const Flat in = TwoLines(t);
             const Box2d box = t.Box(-5, -6, 7, 8);
             Keep(t, in);
             ToVectors(t, [&](Flat& out) {
                 ClipPolylinesToRect(in.points.data(), in.counts.data(), 2, box, out.points,
                                     out.counts);
             });
         }},
        {"ClipPolylinesToPolygon",
         Together({LINE_CLIP, FLATTENING, BAD_ALLOC}),
         {},
         [](Trial& t) {
             const Flat in = TwoLines(t);
             const GpcPolygon clip = StarPolygon(t, 0, 0);
             Keep(t, in);
             t.Keep(clip);
             ToVectors(t, [&](Flat& out) {
                 ClipPolylinesToPolygon(in.points.data(), in.counts.data(), 2, clip, out.points,
                                        out.counts);
             });
         }},
        {"ClipPolylinesToPolygon (prepared)",
         Together({LINE_CLIP, BAD_ALLOC}),
         {},
         [](Trial& t) {
             const Flat in = TwoLines(t);
             const LineClipPolygon clip(StarPolygon(t, 0, 0));
             Keep(t, in);
             ToVectors(t, [&](Flat& out) {
                 ClipPolylinesToPolygon(in.points.data(), in.counts.data(), 2, clip, out.points,
                                        out.counts);
             });
             t.Result(clip);
         }},
        {"ClipDashedPolylinesToPolygon",
         Together({LINE_CLIP, FLATTENING, BAD_ALLOC, {"Geometry, DashLineGenerator 221"}}),
         {},
         [](Trial& t) {
             const Flat in = TwoLines(t);
             const GpcPolygon clip = StarPolygon(t, 0, 0);
             const double lengths[] = {t.Number(3), t.Number(1), t.Number(2)};
             const DashLineGenerator dashes(lengths, 3);
             Keep(t, in);
             t.Keep(clip);
             ToVectors(t, [&](Flat& out) {
                 DashLineGenerator fresh(dashes);
                 ClipDashedPolylinesToPolygon(in.points.data(), in.counts.data(), 2, fresh, clip,
                                              out.points, out.counts);
             });
         }},
    };
}

} // namespace

Calls ClipUtilCalls() {
    Calls all;
    for (const auto family :
         {PolygonToRectangleCalls, PolygonToPolygonCalls, PolylineClippingCalls}) {
        for (PublicCall& call : family()) {
            all.push_back(std::move(call));
        }
    }
    return all;
}

} // namespace geom::test
