// SPDX-License-Identifier: MIT
#include "geometry/GpcPolygon.h"
#include "geometry/LineClipPolygon.h"
#include "geometry/Polyline.h"
#include "tests/calls/Trial.h"

#include <gtest/gtest.h>

namespace geom::test {

namespace {

const Errors BAD_ALLOC = {"bad_alloc"};
const Errors FLATTENING = {"Geometry, GpcPolygon 538: Out of memory"};
const Errors LINE_CLIP = {
    "Geometry, LineClipPolygon 101: Out of memory", "Geometry, LineClipPolygon 102: Out of memory",
    "Geometry, LineClipPolygon 103: Out of memory", "Geometry, LineClipPolygon 104: Out of memory"};

LineClipPolygon Star(Trial& t) {
    const std::vector<Vec2d> points = t.Star(0, 0);
    const unsigned int count = static_cast<unsigned int>(points.size());
    return LineClipPolygon(points.data(), &count, 1);
}

template <typename Make>
void Construct(Trial& t, Make make) {
    std::uint64_t fingerprint = 0;
    t.Call([&] {
        const LineClipPolygon made = make();
        fingerprint = made.GetTotalVertexCount();
    });
    t.Result(fingerprint);
}

/// A question that is answered with a plain value.
template <typename Question>
void Ask(Trial& t, Question question) {
    const LineClipPolygon polygon = Star(t);
    decltype(question(polygon)) answer{};
    t.Call([&] { answer = question(polygon); });
    t.Result(answer);
}

void Result(Trial& t, const std::vector<LineSegment2>& pieces) {
    t.Result(pieces.size());
    for (const LineSegment2& piece : pieces) {
        t.Result(piece.A());
        t.Result(piece.B());
    }
}

/// A clipping of which some pieces may be there when it has failed.
template <typename Clip>
void ToPieces(Trial& t, const LineClipPolygon& polygon, Clip clip) {
    std::vector<LineSegment2> pieces;
    t.Call([&] {
        pieces.clear();
        clip(polygon, pieces);
    });
    Result(t, pieces);
}

Calls MakingCalls() {
    const Errors memory = Together({ContourMemory(), FLATTENING, LINE_CLIP, BAD_ALLOC});
    return {
        {"LineClipPolygon::LineClipPolygon (none)",
         {},
         {},
         [](Trial& t) { Construct(t, [] { return LineClipPolygon(); }); }},
        {"LineClipPolygon::LineClipPolygon (rings)",
         memory,
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Keep(t.Star(0, 0));
             const unsigned int counts[] = {4, static_cast<unsigned int>(points.size()) - 4};
             Construct(t, [&] { return LineClipPolygon(points.data(), counts, 2); });
         }},
        {"LineClipPolygon::LineClipPolygon (polygon)",
         memory,
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Keep(t.Star(0, 0));
             const GpcPolygon polygon(points.data(), points.size());
             t.Keep(polygon);
             Construct(t, [&] { return LineClipPolygon(polygon); });
         }},
        {"LineClipPolygon::LineClipPolygon (copy)",
         memory,
         {},
         [](Trial& t) {
             const LineClipPolygon polygon = Star(t);
             Construct(t, [&] { return LineClipPolygon(polygon); });
         }},
        {"LineClipPolygon::operator=",
         memory,
         {},
         [](Trial& t) {
             const LineClipPolygon other = Star(t);
             const Vec2d triangle[] = {{0, 0}, {1, 0}, {0, 1}};
             const unsigned int count = 3;
             LineClipPolygon polygon(triangle, &count, 1);
             t.Call([&] { polygon = other; });
             t.Result(polygon);
         }},
    };
}

Calls QuestionCalls() {
    return {
        {"LineClipPolygon::GetNumContours",
         {},
         {},
         [](Trial& t) { Ask(t, [](const LineClipPolygon& p) { return p.GetNumContours(); }); }},
        {"LineClipPolygon::GetContourVertexCount",
         {},
         {},
         [](Trial& t) {
             Ask(t, [](const LineClipPolygon& p) { return p.GetContourVertexCount(0); });
         }},
        {"LineClipPolygon::GetTotalVertexCount",
         {},
         {},
         [](Trial& t) {
             Ask(t, [](const LineClipPolygon& p) { return p.GetTotalVertexCount(); });
         }},
        {"LineClipPolygon::GetBBox",
         {},
         {},
         [](Trial& t) { Ask(t, [](const LineClipPolygon& p) { return p.GetBBox(); }); }},
        {"LineClipPolygon::IsRectangle",
         {},
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Points({{0, 9}, {8, 9}, {8, 1}, {0, 1}});
             const unsigned int count = 4;
             const LineClipPolygon polygon(points.data(), &count, 1);
             Box2d box;
             bool answer = false;
             t.Call([&] { answer = polygon.IsRectangle(&box); });
             t.Result(answer);
             t.Result(box);
         }},
        {"LineClipPolygon::GetPolygon",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             const LineClipPolygon polygon = Star(t);
             std::vector<Vec2d> points;
             t.Call([&] {
                 points.clear();
                 polygon.GetPolygon(points);
             });
             t.Result(points);
         }},
        {"LineClipPolygon::PointInside",
         Together({LINE_CLIP, BAD_ALLOC}),
         {},
         [](Trial& t) {
             const LineClipPolygon polygon = Star(t);
             const Vec2d p = t.Point(1.5, -2.25);
             bool answer = false;
             t.Call([&] { answer = polygon.PointInside(p); });
             t.Result(answer);
         }},
    };
}

Calls ClippingCalls() {
    const Errors memory = Together({LINE_CLIP, BAD_ALLOC});
    return {
        {"LineClipPolygon::Clip (segment)",
         memory,
         {},
         [](Trial& t) {
             const Vec2d a = t.Point(-12, -1);
             const LineSegment2 segment(a, t.Point(12, 2));
             ToPieces(t, Star(t), [&](const LineClipPolygon& p, std::vector<LineSegment2>& out) {
                 p.Clip(segment, out);
             });
         }},
        {"LineClipPolygon::Clip (polyline)",
         memory,
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Zigzag();
             const Polyline line(points.data(), points.size());
             ToPieces(t, Star(t), [&](const LineClipPolygon& p, std::vector<LineSegment2>& out) {
                 p.Clip(line, out);
             });
         }},
        {"LineClipPolygon::Clip (points)",
         memory,
         {},
         [](Trial& t) {
             const std::vector<Vec2d> line = t.Keep(t.Zigzag());
             ToPieces(t, Star(t), [&](const LineClipPolygon& p, std::vector<LineSegment2>& out) {
                 p.Clip(line.data(), line.size(), out);
             });
         }},
        {"LineClipPolygon::Clip (runs)",
         memory,
         {},
         [](Trial& t) {
             const std::vector<Vec2d> line = t.Keep(t.Zigzag());
             const LineClipPolygon polygon = Star(t);
             std::vector<Vec2d> points;
             std::vector<unsigned int> counts;
             t.Call([&] {
                 points.clear();
                 counts.clear();
                 polygon.Clip(line.data(), line.size(), points, counts);
             });
             t.Result(points);
             t.Result(counts);
         }},
    };
}

} // namespace

Calls LineClipCalls() {
    Calls all;
    for (const auto family : {MakingCalls, QuestionCalls, ClippingCalls}) {
        for (PublicCall& call : family()) {
            all.push_back(std::move(call));
        }
    }
    return all;
}

} // namespace geom::test
