// SPDX-License-Identifier: MIT
#include "geometry/CLineClip.h"
#include "geometry/CPolyClip.h"
#include "tests/calls/Trial.h"

#include <gtest/gtest.h>

namespace geom::test {

namespace {

const Errors BAD_ALLOC = {"bad_alloc"};

Box2d UsualBox(Trial& t) {
    return t.Box(-5, -6, 7, 8);
}

/// A member that changes a clipper's rectangle.
template <typename Change>
void OnClipper(Trial& t, Change change) {
    CLineClip clipper(UsualBox(t));
    const Box2d box = t.Box(0, -7, 3, 20);
    t.Call([&] { change(clipper, box); });
    t.Result(clipper.GetClipRect());
    t.Result(clipper.IsClipEnabled());
}

Calls LineClipperCalls() {
    return {
        {"CLineClip::CLineClip",
         {},
         {},
         [](Trial& t) {
             const Box2d box = UsualBox(t);
             bool enabled = false;
             t.Call([&] {
                 CLineClip none;
                 const CLineClip clipper(box);
                 none = clipper;
                 enabled = none.IsClipEnabled();
             });
             t.Result(enabled);
         }},
        {"CLineClip::SetClipRect",
         {},
         {},
         [](Trial& t) {
             OnClipper(t, [](CLineClip& c, const Box2d& box) { c.SetClipRect(box); });
         }},
        {"CLineClip::IntersectClipRect",
         {},
         {},
         [](Trial& t) {
             OnClipper(t, [](CLineClip& c, const Box2d& box) { c.IntersectClipRect(box); });
         }},
        {"CLineClip::SetClipEnabled",
         {},
         {},
         [](Trial& t) {
             OnClipper(t, [](CLineClip& c, const Box2d&) { c.SetClipEnabled(false); });
         }},
        {"CLineClip::IsClipEnabled",
         {},
         {},
         [](Trial& t) {
             OnClipper(t, [](CLineClip& c, const Box2d&) { c.SetClipEnabled(!c.IsClipEnabled()); });
         }},
        {"CLineClip::Clear",
         {},
         {},
         [](Trial& t) { OnClipper(t, [](CLineClip& c, const Box2d&) { c.Clear(); }); }},
        {"CLineClip::GetClipRect",
         {},
         {},
         [](Trial& t) {
             OnClipper(t, [](CLineClip& c, const Box2d&) { c.SetClipRect(c.GetClipRect()); });
         }},
        {"CLineClip::ClipLine",
         {},
         {},
         [](Trial& t) {
             const CLineClip clipper(UsualBox(t));
             Vec2d a = t.Point(-20, -9);
             Vec2d b = t.Point(30, 22);
             bool inside = false;
             t.Call([&] { inside = clipper.ClipLine(a, b); });
             t.Result(inside);
             t.Result(a);
             t.Result(b);
         }},
        {"CLineClip::ClipPolyline (vectors)",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             const CLineClip clipper(UsualBox(t));
             const std::vector<Vec2d> line = t.Keep(t.Zigzag());
             std::vector<Vec2d> points;
             std::vector<unsigned int> counts;
             t.Call([&] { clipper.ClipPolyline(line.data(), line.size(), points, counts); });
             t.Result(points);
             t.Result(counts);
         }},
        {"CLineClip::ClipPolyline (sink)",
         {},
         {},
         [](Trial& t) {
             const CLineClip clipper(UsualBox(t));
             const std::vector<Vec2d> line = t.Keep(t.Zigzag());
             Vec2d last(0, 0);
             t.Call([&] {
                 clipper.ClipPolyline(line.data(), line.size(),
                                      [&](const Vec2d* pts, std::size_t n) { last = pts[n - 1]; });
             });
             t.Result(last);
         }},
        {"CLineClip::ClipPolyline (long runs to a sink)",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             const CLineClip clipper(UsualBox(t));
             std::vector<Vec2d> line;
             for (int i = 0; i < 100; ++i) {
                 line.emplace_back(i % 7, i % 5);
             }
             line.push_back(t.Point(3, 90));
             t.Keep(line);
             Vec2d last(0, 0);
             t.Call([&] {
                 clipper.ClipPolyline(line.data(), line.size(),
                                      [&](const Vec2d* pts, std::size_t n) { last = pts[n - 1]; });
             });
             t.Result(last);
         }},
    };
}

Calls RingClipperCalls() {
    return {
        {"CPolyClip::CPolyClip",
         {},
         {},
         [](Trial& t) {
             const Box2d box = UsualBox(t);
             t.Call([&] {
                 CPolyClip none;
                 const CPolyClip clipper(box);
                 none = clipper;
             });
         }},
        {"CPolyClip::SetClipRect",
         {},
         {},
         [](Trial& t) {
             const Box2d box = UsualBox(t);
             CPolyClip clipper;
             t.Call([&] { clipper.SetClipRect(box); });
         }},
        {"CPolyClip::SetClipRectBLT",
         {},
         {},
         [](Trial& t) {
             const Box2d box = UsualBox(t);
             CPolyClip clipper;
             t.Call([&] { clipper.SetClipRectBLT(box); });
         }},
        {"CPolyClip::Clip",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             CPolyClip clipper(UsualBox(t));
             std::vector<Vec2d> ring = t.Star(2, 3);
             ring.insert(ring.end(), 40, ring.back()); // repeated points stay
             t.Keep(ring);
             CPodVector<Vec2d, 32> out;
             std::size_t n = 0;
             t.Call([&] { n = clipper.Clip(ring.data(), ring.size(), out); },
                    [&] { EXPECT_EQ(out.Count(), 0U); });
             t.Result(n);
             for (const Vec2d& p : out) {
                 t.Result(p);
             }
         }},
    };
}

} // namespace

Calls RectangleClipperCalls() {
    Calls all = LineClipperCalls();
    for (PublicCall& call : RingClipperCalls()) {
        all.push_back(std::move(call));
    }
    return all;
}

} // namespace geom::test
