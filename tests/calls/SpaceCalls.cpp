// SPDX-License-Identifier: MIT
#include "geometry/LineSegment3.h"
#include "geometry/ParametricLine3.h"
#include "geometry/Plane.h"
#include "tests/calls/Trial.h"

namespace geom::test {

namespace {

using kit::Box3d;
using kit::Mat4d;

LineSegment3 Segment(Trial& t) {
    const Vec3d a = t.Point(1, 2, 3);
    return {a, t.Point(7, 5, -2)};
}

template <typename Change>
void ChangeSegment(Trial& t, Change change) {
    LineSegment3 s = Segment(t);
    const Vec3d v = t.Point(3, -4, 5);
    t.Call([&] { s = change(s, v); });
    t.Result(s.A());
    t.Result(s.B());
}

ParametricLine3 Line(Trial& t) {
    const Vec3d p = t.Point(1, 2, 3);
    return {p, t.Point(4, 1, 9)};
}

Plane UsualPlane(Trial& t) {
    const Vec3d n = t.Point(1, 2, 3);
    return {n, t.Number(4)};
}

template <typename Make>
void MakePlane(Trial& t, Make make) {
    Plane plane;
    t.Call([&] { plane = make(); });
    t.Result(plane.GetNormal());
    t.Result(plane.GetDistanceFromOrigin());
}

Calls SegmentInSpaceCalls() {
    return {
        {"LineSegment3::LineSegment3",
         {},
         {},
         [](Trial& t) {
             ChangeSegment(t, [](const LineSegment3& s, const Vec3d& v) {
                 return LineSegment3(s.A().x, s.A().y, s.B().z, v.x, v.y, v.z);
             });
         }},
        {"LineSegment3::A",
         {},
         {},
         [](Trial& t) {
             ChangeSegment(t, [](LineSegment3 s, const Vec3d& v) {
                 s.A(v);
                 return s;
             });
         }},
        {"LineSegment3::B",
         {},
         {},
         [](Trial& t) {
             ChangeSegment(t, [](LineSegment3 s, const Vec3d& v) {
                 s.B(v);
                 return s;
             });
         }},
        {"LineSegment3::operator==",
         {},
         {},
         [](Trial& t) {
             const LineSegment3 s = Segment(t);
             const LineSegment3 o = Segment(t);
             t.Answer([&] { return s == o; });
         }},
        {"LineSegment3::operator!=",
         {},
         {},
         [](Trial& t) {
             const LineSegment3 s = Segment(t);
             const LineSegment3 o = Segment(t);
             t.Answer([&] { return s != o; });
         }},
        {"LineSegment3::operator+",
         {},
         {},
         [](Trial& t) {
             ChangeSegment(t, [](const LineSegment3& s, const Vec3d& v) { return s + v; });
         }},
        {"LineSegment3::operator-",
         {},
         {},
         [](Trial& t) {
             ChangeSegment(t, [](const LineSegment3& s, const Vec3d& v) { return s - v; });
         }},
        {"LineSegment3::operator+=",
         {},
         {},
         [](Trial& t) { ChangeSegment(t, [](LineSegment3 s, const Vec3d& v) { return s += v; }); }},
        {"LineSegment3::operator-=",
         {},
         {},
         [](Trial& t) { ChangeSegment(t, [](LineSegment3 s, const Vec3d& v) { return s -= v; }); }},
        {"LineSegment3::Length",
         {},
         {},
         [](Trial& t) {
             const LineSegment3 s = Segment(t);
             t.Answer([&] { return s.Length(); });
         }},
    };
}

Calls LineInSpaceCalls() {
    return {
        {"ParametricLine3::ParametricLine3",
         {},
         {},
         [](Trial& t) {
             const Vec3d p = t.Point(1, 2, 3);
             const Vec3d q = t.Point(4, 1, 9);
             t.Answer([&] { return ParametricLine3(p, q).GetDirection(); });
         }},
        {"ParametricLine3::SetValue",
         {},
         {},
         [](Trial& t) {
             const Vec3d p = t.Point(1, 2, 3);
             const Vec3d q = t.Point(4, 1, 9);
             ParametricLine3 line;
             t.Call([&] { line.SetValue(p, q); });
             t.Result(line.GetDirection());
         }},
        {"ParametricLine3::GetPosition",
         {},
         {},
         [](Trial& t) {
             const ParametricLine3 line = Line(t);
             t.Answer([&] { return line.GetPosition(); });
         }},
        {"ParametricLine3::GetDirection",
         {},
         {},
         [](Trial& t) {
             const ParametricLine3 line = Line(t);
             t.Answer([&] { return line.GetDirection(); });
         }},
        {"ParametricLine3::GetClosestPoint",
         {},
         {},
         [](Trial& t) {
             const ParametricLine3 line = Line(t);
             const Vec3d p = t.Point(3, 3, 3);
             t.Answer([&] { return line.GetClosestPoint(p); });
         }},
        {"ParametricLine3::GetClosestPoints",
         {},
         {},
         [](Trial& t) {
             const ParametricLine3 line = Line(t);
             const Vec3d p = t.Point(3, 3, 3);
             const ParametricLine3 other(p, t.Point(0, 1, 0));
             Vec3d a(0, 0, 0);
             Vec3d b(0, 0, 0);
             t.Answer([&] { return line.GetClosestPoints(other, a, b); });
             t.Result(a);
             t.Result(b);
         }},
        {"ParametricLine3::Intersect (point)",
         {},
         {},
         [](Trial& t) {
             const ParametricLine3 line = Line(t);
             const double tolerance = t.Number(0.25);
             const Vec3d p = t.Point(3, 3, 3);
             t.Answer([&] { return line.Intersect(tolerance, p); });
         }},
        {"ParametricLine3::Intersect (part in a box)",
         {},
         {},
         [](Trial& t) {
             const ParametricLine3 line = Line(t);
             const Vec3d low = t.Point(0, 0, 4);
             const Box3d box(low, t.Point(9, 9, 5));
             Vec3d a(0, 0, 0);
             Vec3d b(0, 0, 0);
             t.Answer([&] { return line.Intersect(box, a, b); });
             t.Result(a);
             t.Result(b);
         }},
        {"ParametricLine3::Intersect (box)",
         {},
         {},
         [](Trial& t) {
             const ParametricLine3 line = Line(t);
             const double tolerance = t.Number(-0.25);
             const Vec3d low = t.Point(0, 0, 4);
             const Box3d box(low, t.Point(9, 9, 5));
             t.Answer([&] { return line.Intersect(tolerance, box); });
         }},
        {"ParametricLine3::Intersect (segment)",
         {},
         {},
         [](Trial& t) {
             const ParametricLine3 line = Line(t);
             const double tolerance = t.Number(0.5);
             const LineSegment3 s = Segment(t);
             Vec3d hit(0, 0, 0);
             t.Answer([&] { return line.Intersect(tolerance, s.A(), s.B(), hit); });
             t.Result(hit);
         }},
        {"ParametricLine3::Intersect (triangle)",
         {},
         {},
         [](Trial& t) {
             const ParametricLine3 line = Line(t);
             const LineSegment3 s = Segment(t);
             const Vec3d c = t.Point(0, 9, 5);
             Vec3d point(0, 0, 0);
             Vec3d weights(0, 0, 0);
             bool front = false;
             t.Answer([&] { return line.Intersect(s.A(), s.B(), c, point, weights, front); });
             t.Result(point);
             t.Result(weights);
             t.Result(front);
         }},
    };
}

Calls PlaneCalls() {
    return {
        {"Plane::Plane (points)",
         {},
         {},
         [](Trial& t) {
             const LineSegment3 s = Segment(t);
             const Vec3d c = t.Point(0, 9, 5);
             MakePlane(t, [&] { return Plane(s.A(), s.B(), c); });
         }},
        {"Plane::Plane (distance)",
         {},
         {},
         [](Trial& t) {
             const Vec3d n = t.Point(1, 2, 3);
             const double distance = t.Number(4);
             MakePlane(t, [&] { return Plane(n, distance); });
         }},
        {"Plane::Plane (point)",
         {},
         {},
         [](Trial& t) {
             const Vec3d n = t.Point(1, 2, 3);
             const Vec3d p = t.Point(5, 1, 0);
             MakePlane(t, [&] { return Plane(n, p); });
         }},
        {"Plane::GetNormal",
         {},
         {},
         [](Trial& t) {
             const Plane plane = UsualPlane(t);
             t.Answer([&] { return plane.GetNormal(); });
         }},
        {"Plane::GetDistanceFromOrigin",
         {},
         {},
         [](Trial& t) {
             const Plane plane = UsualPlane(t);
             t.Answer([&] { return plane.GetDistanceFromOrigin(); });
         }},
        {"Plane::GetDistance",
         {},
         {},
         [](Trial& t) {
             const Plane plane = UsualPlane(t);
             const Vec3d p = t.Point(5, 1, 0);
             t.Answer([&] { return plane.GetDistance(p); });
         }},
        {"Plane::Offset",
         {},
         {},
         [](Trial& t) {
             const Plane plane = UsualPlane(t);
             const double delta = t.Number(2);
             MakePlane(t, [&] {
                 Plane moved = plane;
                 moved.Offset(delta);
                 return moved;
             });
         }},
        {"Plane::IsInHalfSpace",
         {},
         {},
         [](Trial& t) {
             const Plane plane = UsualPlane(t);
             const Vec3d p = t.Point(5, 1, 0);
             t.Answer([&] { return plane.IsInHalfSpace(p); });
         }},
        {"Plane::Intersect",
         {},
         {},
         [](Trial& t) {
             const Plane plane = UsualPlane(t);
             const ParametricLine3 line = Line(t);
             Vec3d out(0, 0, 0);
             t.Answer([&] { return plane.Intersect(line, out); });
             t.Result(out);
         }},
        {"Plane::Transform",
         {},
         {},
         [](Trial& t) {
             const Plane plane = UsualPlane(t);
             Mat4d m;
             for (std::size_t row = 0; row < 4; ++row) {
                 for (std::size_t column = 0; column < 3; ++column) {
                     m(row, column) = t.Number(row == column ? 2 : 0.5);
                 }
             }
             MakePlane(t, [&] {
                 Plane moved = plane;
                 moved.Transform(m);
                 return moved;
             });
         }},
        {"Plane::operator==",
         {},
         {},
         [](Trial& t) {
             const Plane a = UsualPlane(t);
             const Plane b = UsualPlane(t);
             t.Answer([&] { return a == b; });
         }},
        {"Plane::operator!=",
         {},
         {},
         [](Trial& t) {
             const Plane a = UsualPlane(t);
             const Plane b = UsualPlane(t);
             t.Answer([&] { return a != b; });
         }},
    };
}

} // namespace

Calls SpaceCalls() {
    Calls all;
    for (const auto family : {SegmentInSpaceCalls, LineInSpaceCalls, PlaneCalls}) {
        for (PublicCall& call : family()) {
            all.push_back(std::move(call));
        }
    }
    return all;
}

} // namespace geom::test
