// SPDX-License-Identifier: MIT
#include "geometry/Geometry.h"
#include "geometry/Polyline.h"
#include "geometry/Thinning.h"
#include "tests/calls/Trial.h"

#include <gtest/gtest.h>

namespace geom::test {

namespace {

const Errors BAD_ALLOC = {"bad_alloc"};

Polyline UsualLine(Trial& t) {
    const std::vector<Vec2d> points = t.Zigzag();
    return Polyline(points.data(), points.size());
}

void Result(Trial& t, const Polyline& line) {
    for (std::size_t i = 0; i < line.Size(); ++i) {
        t.Result(line[i]);
    }
}

template <typename Thin>
void ThinInto(Trial& t, Thin thin) {
    const std::vector<Vec2d> line = t.Keep(t.Zigzag());
    std::vector<Vec2d> out(1, Vec2d(0, 0));
    t.Call([&] { thin(line, out); }, [&] { EXPECT_EQ(out.size(), 1U); });
    t.Result(out);
}

Calls ArrayCalls() {
    return {
        {"Polyline::Polyline (none)",
         {},
         {},
         [](Trial& t) { t.Answer([] { return Polyline().Size(); }); }},
        {"Polyline::Polyline",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Keep(t.Zigzag());
             t.Answer([&] { return Polyline(points.data(), points.size()).Size(); });
         }},
        {"Polyline::Polyline (integers)",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             const auto points = t.Keep(t.Devices({{0, 0}, {9, 1}, {7, 8}}));
             t.Answer([&] { return Polyline(points.data(), points.size())[1]; });
         }},
        {"Polyline::Polyline (copy)",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             const Polyline line = UsualLine(t);
             t.Answer([&] {
                 const Polyline copy(line);
                 return copy.Size();
             });
         }},
        {"Polyline::Append",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Keep(t.Zigzag());
             Polyline line = UsualLine(t);
             t.Call([&] { line.Append(points.data(), points.size()); },
                    [&] { EXPECT_EQ(line.Size(), points.size()); });
             Result(t, line);
         }},
        {"Polyline::Clear",
         {},
         {},
         [](Trial& t) {
             Polyline line = UsualLine(t);
             t.Call([&] { line.Clear(); });
             Result(t, line);
         }},
        {"Polyline::Empty",
         {},
         {},
         [](Trial& t) {
             const Polyline line = UsualLine(t);
             t.Answer([&] { return line.Empty(); });
         }},
        {"Polyline::Size",
         {},
         {},
         [](Trial& t) {
             const Polyline line = UsualLine(t);
             t.Answer([&] { return line.Size(); });
         }},
        {"Polyline::GetVertices",
         {},
         {},
         [](Trial& t) {
             const Polyline line = UsualLine(t);
             t.Answer([&] { return line.GetVertices()[1]; });
         }},
        {"Polyline::operator[]",
         {},
         {},
         [](Trial& t) {
             const Polyline line = UsualLine(t);
             t.Answer([&] { return line[2]; });
         }},
        {"ThinByAngularDeviation",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             const double deviation = t.Number(0.2);
             ThinInto(t, [&](const std::vector<Vec2d>& line, std::vector<Vec2d>& out) {
                 ThinByAngularDeviation(line.data(), line.size(), deviation, out);
             });
         }},
        {"ThinToMinimalDetail",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             ThinInto(t, [](const std::vector<Vec2d>& line, std::vector<Vec2d>& out) {
                 ThinToMinimalDetail(line.data(), line.size(), out);
             });
         }},
    };
}

Calls DistanceCalls() {
    return {
        {"SegmentsIntersect",
         {},
         {},
         [](Trial& t) {
             const auto p = t.Points({{0, 0}, {9, 5}, {1, 4}, {7, 0}});
             t.Answer([&] { return SegmentsIntersect(p[0], p[1], p[2], p[3]); });
         }},
        {"PointLineSegDistSq",
         {},
         {},
         [](Trial& t) {
             const auto p = t.Points({{3, 3}, {0, 0}, {9, 5}});
             t.Answer([&] { return PointLineSegDistSq(p[0], p[1], p[2]); });
         }},
        {"PointLineSegDistSq (integers)",
         {},
         {},
         [](Trial& t) {
             const auto p = t.Devices({{3, 3}, {0, 0}, {9, 5}});
             t.Answer([&] { return PointLineSegDistSq(p[0], p[1], p[2]); });
         }},
        {"PointLineSegDistSq (space)",
         {},
         {},
         [](Trial& t) {
             const Vec3d p = t.Point(3, 3, 3);
             const Vec3d a = t.Point(0, 0, 0);
             const Vec3d b = t.Point(9, 5, 2);
             t.Answer([&] { return PointLineSegDistSq(p, a, b); });
         }},
        {"FindClosestSegment",
         {},
         {},
         [](Trial& t) {
             const std::vector<Vec2d> line = t.Keep(t.Zigzag());
             const Vec2d p = t.Point(1, 2);
             double distance = 0;
             t.Answer([&] { return FindClosestSegment(line.data(), line.size(), p, &distance); });
             t.Result(distance);
         }},
        {"FindClosestSegment (integers)",
         {},
         {},
         [](Trial& t) {
             const auto line = t.Keep(t.Devices({{0, 0}, {9, 5}, {3, 1}, {-7, 6}}));
             const tagPOINT p = t.Device(1, 2);
             double distance = 0;
             t.Answer([&] { return FindClosestSegment(line.data(), line.size(), p, &distance); });
             t.Result(distance);
         }},
        {"PolylineLength",
         {},
         {},
         [](Trial& t) {
             const std::vector<Vec2d> line = t.Keep(t.Zigzag());
             t.Answer([&] { return PolylineLength(line.data(), line.size()); });
         }},
        {"GetNormalIntersection",
         {},
         {},
         [](Trial& t) {
             auto p = t.Points({{3, 3}, {0, 0}, {9, 5}});
             Vec2d out(0, 0);
             t.Call([&] { GetNormalIntersection(p[0], p[1], p[2], out); });
             t.Result(out);
         }},
        {"GetNormalIntersection (integers)",
         {},
         {},
         [](Trial& t) {
             const auto p = t.Keep(t.Devices({{3, 3}, {0, 0}, {9, 5}}));
             tagPOINT out{0, 0};
             t.Call([&] { GetNormalIntersection(p[0], p[1], p[2], out); });
             t.Result(out);
         }},
        {"RectInRect",
         {},
         {},
         [](Trial& t) {
             const Box2d a = t.Box(1, 2, 3, 4);
             const Box2d b = t.Box(0, 0, 9, 9);
             t.Answer([&] { return RectInRect(a, b, true) || RectInRect(a, b, false); });
         }},
        {"ConstrainLineSegmentOrientation",
         {},
         {},
         [](Trial& t) {
             const auto p = t.Points({{3, 3}, {9, 5}});
             t.Answer([&] { return ConstrainLineSegmentOrientation(p[0], p[1]); });
         }},
        {"AdvanceAlongPolyline",
         {},
         {"Geometry, Geometry 341"},
         [](Trial& t) {
             const std::vector<Vec2d> line = t.Keep(t.Zigzag());
             const double distance = t.Number(40);
             std::size_t index = 0;
             Vec2d pos = line[0];
             t.Answer([&] {
                 return AdvanceAlongPolyline(line.data(), line.size(), false, distance, index, pos);
             });
             t.Result(pos);
             t.Result(index);
         }},
        {"AdvanceAlongPolyline (closed)",
         {},
         {"Geometry, Geometry 341"},
         [](Trial& t) {
             const std::vector<Vec2d> line = t.Keep(t.Zigzag());
             const double distance = t.Number(4000);
             std::size_t index = 1;
             Vec2d pos = line[1];
             t.Answer([&] {
                 return AdvanceAlongPolyline(line.data(), line.size(), true, distance, index, pos);
             });
             t.Result(pos);
             t.Result(index);
         }},
        {"OrientPlane",
         {},
         {"Geometry, Geometry 274", "Geometry, Geometry 278", "Geometry, Geometry 283"},
         [](Trial& t) {
             const Vec3d origin = t.Point(1, 2, 3);
             const Vec3d u = t.Point(4, 0, 1);
             const Vec3d v = t.Point(0, 5, 1);
             kit::Mat4d m;
             t.Call([&] { OrientPlane(m, origin, u, v); });
             t.Result(m);
         }},
    };
}

} // namespace

Calls PolylineCalls() {
    Calls all = ArrayCalls();
    for (PublicCall& call : DistanceCalls()) {
        all.push_back(std::move(call));
    }
    return all;
}

} // namespace geom::test
