// SPDX-License-Identifier: MIT
#include "geometry/Circle.h"
#include "geometry/Line2.h"
#include "geometry/LineSegment2.h"
#include "geometry/Triangle.h"
#include "tests/calls/Trial.h"

namespace geom::test {

namespace {

const Errors NO_LINE = {"Geometry, Line2 59"};

LineSegment2 Segment(Trial& t) {
    const Vec2d a = t.Point(1, 2);
    return {a, t.Point(7, 5)};
}

LineSegment2 OtherSegment(Trial& t) {
    const Vec2d a = t.Point(2, 6);
    return {a, t.Point(5, -1)};
}

/// What a segment becomes.
template <typename Change>
void ChangeSegment(Trial& t, Change change) {
    LineSegment2 s = Segment(t);
    const Vec2d v = t.Point(3, -4);
    t.Call([&] { s = change(s, v); });
    t.Result(s.A());
    t.Result(s.B());
}

Circle UsualCircle(Trial& t) {
    const Vec2d c = t.Point(1, 2);
    return {c, t.Number(5)};
}

Circle OtherCircle(Trial& t) {
    const Vec2d c = t.Point(2, 3);
    return {c, t.Number(1)};
}

template <typename Make>
void MakeCircle(Trial& t, Make make) {
    Circle c;
    t.Call([&] { c = make(); });
    t.Result(c.Center());
    t.Result(c.Radius());
}

template <typename Make>
void MakeLine(Trial& t, Make make) {
    Line2 l;
    t.Call([&] { l = make(); });
    t.Result(l.A());
    t.Result(l.B());
    t.Result(l.C());
}

Line2 UsualLine(Trial& t) {
    const double a = t.Number(1);
    const double b = t.Number(2);
    return {a, b, t.Number(-3)};
}

Triangle UsualTriangle(Trial& t) {
    const auto p = t.Points({{0, 0}, {8, 1}, {3, 9}});
    return {p[0], p[1], p[2]};
}

Calls LineSegmentCalls() {
    return {
        {"LineSegment2::LineSegment2",
         {},
         {},
         [](Trial& t) {
             ChangeSegment(t, [](const LineSegment2& s, const Vec2d& v) {
                 return LineSegment2(s.A().x, s.B().y, v.x, v.y);
             });
         }},
        {"LineSegment2::A",
         {},
         {},
         [](Trial& t) {
             ChangeSegment(t, [](LineSegment2 s, const Vec2d& v) {
                 s.A(v);
                 return s;
             });
         }},
        {"LineSegment2::B",
         {},
         {},
         [](Trial& t) {
             ChangeSegment(t, [](LineSegment2 s, const Vec2d& v) {
                 s.B(v);
                 return s;
             });
         }},
        {"LineSegment2::operator==",
         {},
         {},
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             const LineSegment2 o = OtherSegment(t);
             t.Answer([&] { return s == o; });
         }},
        {"LineSegment2::operator!=",
         {},
         {},
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             const LineSegment2 o = OtherSegment(t);
             t.Answer([&] { return s != o; });
         }},
        {"LineSegment2::operator+",
         {},
         {},
         [](Trial& t) {
             ChangeSegment(t, [](const LineSegment2& s, const Vec2d& v) { return s + v; });
         }},
        {"LineSegment2::operator-",
         {},
         {},
         [](Trial& t) {
             ChangeSegment(t, [](const LineSegment2& s, const Vec2d& v) { return s - v; });
         }},
        {"LineSegment2::operator+=",
         {},
         {},
         [](Trial& t) { ChangeSegment(t, [](LineSegment2 s, const Vec2d& v) { return s += v; }); }},
        {"LineSegment2::operator-=",
         {},
         {},
         [](Trial& t) { ChangeSegment(t, [](LineSegment2 s, const Vec2d& v) { return s -= v; }); }},
        {"LineSegment2::Length",
         {},
         {},
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             t.Answer([&] { return s.Length(); });
         }},
        {"LineSegment2::Bisects",
         {},
         {},
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             const auto p = t.Points({{0, 9}, {9, 0}});
             t.Answer([&] { return s.Bisects(p[0], p[1]); });
         }},
        {"LineSegment2::ToTheLeft",
         {},
         {},
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             const Vec2d p = t.Point(0, 9);
             t.Answer([&] { return s.ToTheLeft(p); });
         }},
        {"LineSegment2::ToTheRight",
         {},
         {},
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             const Vec2d p = t.Point(0, 9);
             t.Answer([&] { return s.ToTheRight(p); });
         }},
        {"DistanceSquared",
         {},
         {},
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             const Vec2d p = t.Point(0, 9);
             t.Answer([&] { return DistanceSquared(s, p); });
         }},
        {"Intersects (segments)",
         {},
         {},
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             const LineSegment2 o = OtherSegment(t);
             t.Answer([&] { return Intersects(s, o); });
         }},
        {"Intersects (segment and box)",
         {},
         {},
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             const Box2d box = t.Box(2, 3, 5, 9);
             t.Answer([&] { return Intersects(s, box); });
         }},
        {"Contains",
         {},
         {},
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             const Box2d box = t.Box(0, 0, 9, 9);
             t.Answer([&] { return Contains(box, s); });
         }},
        {"Intersection (segments)",
         {},
         {},
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             const LineSegment2 o = OtherSegment(t);
             Vec2d out(0, 0);
             t.Answer([&] { return Intersection(s, o, out); });
             t.Result(out);
         }},
    };
}

Calls LineCalls() {
    return {
        {"Line2::Line2",
         {},
         {},
         [](Trial& t) {
             const double a = t.Number(1);
             const double b = t.Number(2);
             const double c = t.Number(-3);
             MakeLine(t, [&] { return Line2(a, b, c); });
         }},
        {"Line2::Line2 (points)",
         {},
         NO_LINE,
         [](Trial& t) {
             const auto p = t.Points({{1, 2}, {7, 5}});
             MakeLine(t, [&] { return Line2(p[0], p[1]); });
         }},
        {"Line2::Line2 (segment)",
         {},
         NO_LINE,
         [](Trial& t) {
             const LineSegment2 s = Segment(t);
             MakeLine(t, [&] { return Line2(s); });
         }},
        {"Line2::A",
         {},
         {},
         [](Trial& t) {
             const double a = t.Number(4);
             MakeLine(t, [&] {
                 Line2 l;
                 l.A(a);
                 return l;
             });
         }},
        {"Line2::B",
         {},
         {},
         [](Trial& t) {
             const double b = t.Number(4);
             MakeLine(t, [&] {
                 Line2 l;
                 l.B(b);
                 return l;
             });
         }},
        {"Line2::C",
         {},
         {},
         [](Trial& t) {
             const double c = t.Number(4);
             MakeLine(t, [&] {
                 Line2 l;
                 l.C(c);
                 return l;
             });
         }},
        {"Line2::operator==",
         {},
         {},
         [](Trial& t) {
             const Line2 l = UsualLine(t);
             t.Answer([&] { return l == Line2(1, 2, -3); });
         }},
        {"Line2::operator!=",
         {},
         {},
         [](Trial& t) {
             const Line2 l = UsualLine(t);
             t.Answer([&] { return l != Line2(1, 2, -3); });
         }},
        {"Intersection (lines)",
         {},
         {},
         [](Trial& t) {
             const Line2 a = UsualLine(t);
             const Line2 b(t.Number(5), t.Number(-1), t.Number(2));
             Vec2d out(0, 0);
             t.Answer([&] { return Intersection(a, b, out); });
             t.Result(out);
         }},
        {"Intersection (line and points)",
         {},
         NO_LINE,
         [](Trial& t) {
             const Line2 a = UsualLine(t);
             const auto p = t.Points({{1, 2}, {7, 5}});
             Vec2d out(0, 0);
             t.Answer([&] { return Intersection(a, p[0], p[1], out); });
             t.Result(out);
         }},
    };
}

Calls CircleCalls() {
    return {
        {"Circle::Circle",
         {},
         {},
         [](Trial& t) {
             const Vec2d c = t.Point(1, 2);
             const double r = t.Number(5);
             MakeCircle(t, [&] { return Circle(c.x, c.y, r); });
         }},
        {"Circle::Circle (three points)",
         {},
         {},
         [](Trial& t) {
             const auto p = t.Points({{1, 2}, {7, 5}, {3, 9}});
             MakeCircle(t, [&] { return Circle(p[0], p[1], p[2]); });
         }},
        {"Circle::Circle (32 digits)",
         {},
         {},
         [](Trial& t) {
             const auto p = t.Points({{1, 2}, {7, 5}, {3, 9}});
             MakeCircle(t, [&] { return Circle(p[0], p[1], p[2], true); });
         }},
        {"Circle::Center",
         {},
         {},
         [](Trial& t) {
             const Circle c = UsualCircle(t);
             t.Answer([&] { return c.Center(); });
         }},
        {"Circle::Radius",
         {},
         {},
         [](Trial& t) {
             const Circle c = UsualCircle(t);
             t.Answer([&] { return c.Radius(); });
         }},
        {"Circle::operator==",
         {},
         {},
         [](Trial& t) {
             const Circle c = UsualCircle(t);
             const Circle o = OtherCircle(t);
             t.Answer([&] { return c == o; });
         }},
        {"Circle::operator!=",
         {},
         {},
         [](Trial& t) {
             const Circle c = UsualCircle(t);
             const Circle o = OtherCircle(t);
             t.Answer([&] { return c != o; });
         }},
        {"Circle::operator+=",
         {},
         {},
         [](Trial& t) {
             Circle c = UsualCircle(t);
             const Vec2d v = t.Point(3, 4);
             MakeCircle(t, [&] { return Circle(c) += v; });
         }},
        {"Circle::operator-=",
         {},
         {},
         [](Trial& t) {
             Circle c = UsualCircle(t);
             const Vec2d v = t.Point(3, 4);
             MakeCircle(t, [&] { return Circle(c) -= v; });
         }},
        {"Circle::Area",
         {},
         {},
         [](Trial& t) {
             const Circle c = UsualCircle(t);
             t.Answer([&] { return c.Area(); });
         }},
        {"Circle::IsEmpty",
         {},
         {},
         [](Trial& t) {
             const Circle c = UsualCircle(t);
             t.Answer([&] { return c.IsEmpty(); });
         }},
        {"Circle::BoundingBox",
         {},
         {},
         [](Trial& t) {
             const Circle c = UsualCircle(t);
             t.Answer([&] { return c.BoundingBox(); });
         }},
        {"Circle::Contains",
         {},
         {},
         [](Trial& t) {
             const Circle c = UsualCircle(t);
             const Circle o = OtherCircle(t);
             const Box2d box = t.Box(0, 0, 2, 3);
             const Vec2d p = t.Point(2, 2);
             t.Answer([&] { return c.Contains(p) + 2 * c.Contains(o) + 4 * c.Contains(box); });
         }},
        {"Intersects (circles)",
         {},
         {},
         [](Trial& t) {
             const Circle c = UsualCircle(t);
             const Circle o = OtherCircle(t);
             t.Answer([&] { return Intersects(c, o); });
         }},
        {"Intersects (circle and segment)",
         {},
         {},
         [](Trial& t) {
             const Circle c = UsualCircle(t);
             const LineSegment2 s = Segment(t);
             t.Answer([&] { return Intersects(c, s); });
         }},
        {"Intersects (circle and box)",
         {},
         {},
         [](Trial& t) {
             const Circle c = UsualCircle(t);
             const Box2d box = t.Box(0, 0, 2, 3);
             t.Answer([&] { return Intersects(c, box); });
         }},
    };
}

Calls TriangleCalls() {
    return {
        {"Triangle::Triangle",
         {},
         {},
         [](Trial& t) {
             const auto p = t.Points({{0, 0}, {8, 1}, {3, 9}});
             t.Answer([&] { return Triangle(p[0], p[1], p[2]).C(); });
         }},
        {"Triangle::A",
         {},
         {},
         [](Trial& t) {
             Triangle triangle = UsualTriangle(t);
             const Vec2d p = t.Point(3, 4);
             t.Call([&] { triangle.A(p); });
             t.Result(triangle.A());
         }},
        {"Triangle::B",
         {},
         {},
         [](Trial& t) {
             Triangle triangle = UsualTriangle(t);
             const Vec2d p = t.Point(3, 4);
             t.Call([&] { triangle.B(p); });
             t.Result(triangle.B());
         }},
        {"Triangle::C",
         {},
         {},
         [](Trial& t) {
             Triangle triangle = UsualTriangle(t);
             const Vec2d p = t.Point(3, 4);
             t.Call([&] { triangle.C(p); });
             t.Result(triangle.C());
         }},
        {"Triangle::IsEmpty",
         {},
         {},
         [](Trial& t) {
             const Triangle triangle = UsualTriangle(t);
             t.Answer([&] { return triangle.IsEmpty(); });
         }},
        {"Triangle::CCW",
         {},
         {},
         [](Trial& t) {
             const Triangle triangle = UsualTriangle(t);
             t.Answer([&] { return triangle.CCW(); });
         }},
        {"Triangle::Area",
         {},
         {},
         [](Trial& t) {
             const Triangle triangle = UsualTriangle(t);
             t.Answer([&] { return triangle.Area(); });
         }},
        {"Triangle::Contains",
         {},
         {},
         [](Trial& t) {
             const Triangle triangle = UsualTriangle(t);
             const Vec2d p = t.Point(3, 4);
             t.Answer([&] { return triangle.Contains(p); });
         }},
        {"Triangle::InCircumcircle",
         {},
         {},
         [](Trial& t) {
             const Triangle triangle = UsualTriangle(t);
             const Vec2d p = t.Point(3, 4);
             t.Answer([&] { return triangle.InCircumcircle(p); });
         }},
        {"Triangle::BoundingBox",
         {},
         {},
         [](Trial& t) {
             const Triangle triangle = UsualTriangle(t);
             t.Answer([&] { return triangle.BoundingBox(); });
         }},
    };
}

} // namespace

Calls SegmentCalls() {
    Calls all;
    for (const auto family : {LineSegmentCalls, LineCalls, CircleCalls, TriangleCalls}) {
        for (PublicCall& call : family()) {
            all.push_back(std::move(call));
        }
    }
    return all;
}

} // namespace geom::test
