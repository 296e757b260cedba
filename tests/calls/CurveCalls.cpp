// SPDX-License-Identifier: MIT
#include "geometry/Curves.h"
#include "tests/calls/Trial.h"

#include <gtest/gtest.h>

namespace geom::test {

namespace {

using BoxCurve = bool (*)(const Box2d&, const Vec2d&, const Vec2d&, std::size_t, Vec2d*, Box2d*);

void InBox(Trial& t, BoxCurve curve) {
    const Box2d box = t.Box(-5, -3, 9, 4);
    const auto directions = t.Points({{4, 9}, {-7, 1}});
    std::vector<Vec2d> out(12, Vec2d(0, 0));
    Box2d outBox;
    t.Answer(
        [&] { return curve(box, directions[0], directions[1], out.size(), out.data(), &outBox); });
    t.Result(out);
    t.Result(outBox);
}

} // namespace

Calls CurveCalls() {
    return {
        {"CircularArc",
         {"bad_alloc"},
         {},
         [](Trial& t) {
             const Vec2d center = t.Point(1, 2);
             const double radius = t.Number(5);
             const double start = t.Number(0.25);
             const double sweep = t.Number(4.5);
             const double step = t.Number(0.125);
             std::vector<Vec2d> out(1, Vec2d(0, 0));
             t.Call([&] { CircularArc(center, radius, start, sweep, out, step); },
                    [&] { EXPECT_EQ(out.size(), 1U); });
             t.Result(out);
         }},
        {"ArcToCurve", {}, {}, [](Trial& t) { InBox(t, ArcToCurve); }},
        {"PieToArea", {}, {}, [](Trial& t) { InBox(t, PieToArea); }},
        {"ChordToArea", {}, {}, [](Trial& t) { InBox(t, ChordToArea); }},
        {"GenerateEllipse",
         {},
         {},
         [](Trial& t) {
             const Box2d box = t.Box(-5, -3, 9, 4);
             std::vector<Vec2d> out(4 * 5 + 1, Vec2d(0, 0));
             t.Call([&] { GenerateEllipse(box, 5, out.data()); });
             t.Result(out);
         }},
        {"AngleToTheta",
         {},
         {},
         [](Trial& t) {
             const double angle = t.Number(2);
             t.Answer([&] { return AngleToTheta(angle); });
         }},
        {"ThetaToAngle",
         {},
         {},
         [](Trial& t) {
             const double theta = t.Number(2);
             t.Answer([&] { return ThetaToAngle(theta); });
         }},
    };
}

} // namespace geom::test
