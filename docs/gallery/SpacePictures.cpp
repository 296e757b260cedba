// SPDX-License-Identifier: MIT
// Pictures of lines in space, seen by a simple parallel projection.
#include "Gallery.h"
#include "Shapes.h"

#include <cmath>

namespace gallery {

namespace {

using geom::Box3d;
using geom::ParametricLine3;
using geom::Vec3d;

// From the front, a little from the right and from above: x to the right, y backwards, z up.
Vec2d Project(const Vec3d& p) {
    return {p.x + 0.42 * p.y, p.z + 0.3 * p.y};
}

Points Projected(const std::vector<Vec3d>& points) {
    Points out;
    for (const Vec3d& p : points) {
        out.push_back(Project(p));
    }
    return out;
}

void DrawSegment(Panel& panel, const Vec3d& a, const Vec3d& b, const Style& style) {
    panel.Segment(Project(a), Project(b), style);
}

// All twelve edges; the three that meet in the hidden corner are faint.
void DrawBox(Panel& panel, const Box3d& box, const char* stroke, const char* fill) {
    const Vec3d& a = box.minCorner;
    const Vec3d& b = box.maxCorner;
    const Style faint = {"none", stroke, 0.7, 0.45};
    const Style edge = Stroked(stroke, 1.2);

    const Vec2d silhouette[] = {Project({a.x, a.y, a.z}), Project({b.x, a.y, a.z}),
                                Project({b.x, b.y, a.z}), Project({b.x, b.y, b.z}),
                                Project({a.x, b.y, b.z}), Project({a.x, a.y, b.z})};
    panel.Ring({silhouette, silhouette + 6}, Filled(fill));
    const Vec2d back = Project({a.x, b.y, a.z});
    panel.Lines({silhouette[2], back, silhouette[0], back, silhouette[4]}, {5}, faint);
    panel.Ring({silhouette, silhouette + 6}, edge);
    const Vec2d front = Project({b.x, a.y, b.z});
    panel.Lines({silhouette[5], front, silhouette[3], front, silhouette[1]}, {5}, edge);
}

Vec3d Along(const ParametricLine3& line, double t) {
    return line.GetPosition() + line.GetDirection() * t;
}

std::vector<Vec3d> CircleAround(const ParametricLine3& line, double t, double radius) {
    const Vec3d& d = line.GetDirection();
    const double flat = std::sqrt(d.x * d.x + d.y * d.y);
    const Vec3d side(-d.y / flat, d.x / flat, 0);
    const Vec3d up(d.y * side.z - d.z * side.y, d.z * side.x - d.x * side.z,
                   d.x * side.y - d.y * side.x);
    std::vector<Vec3d> circle;
    for (int i = 0; i < 48; ++i) {
        const double angle = kit::TWO_PI * i / 48;
        circle.push_back(Along(line, t) + side * (radius * std::cos(angle)) +
                         up * (radius * std::sin(angle)));
    }
    return circle;
}

// The solid that a tolerance describes, as circles along the line.
void DrawTolerance(Panel& panel, const ParametricLine3& line, double tolerance, double length) {
    for (int i = 0; i <= 6; ++i) {
        const double t = length * i / 6;
        const double radius = tolerance > 0 ? tolerance * t : -tolerance;
        panel.Ring(Projected(CircleAround(line, t, radius)), Stroked(colour::CLIP, 0.8));
    }
    panel.Arrow(Project(line.GetPosition()), Project(Along(line, length)),
                Stroked(colour::INK, 1.4));
    panel.Dot(Project(line.GetPosition()), colour::INK, 3.4);
}

const ParametricLine3 SIGHT({-6, -1, -0.6}, {6, 2, 1.6});

void PickBoxes(Panel& panel, double tolerance) {
    for (int y = 3; y >= -1; y -= 4) {
        for (int z = -3; z <= 3; z += 3) {
            for (int x = -4; x <= 5; x += 3) {
                const Vec3d corner(x, y, z);
                const Box3d box(corner, corner + Vec3d(1, 1, 1));
                const bool hit = SIGHT.Intersect(tolerance, box);
                DrawBox(panel, box, hit ? colour::RESULT : "#ccd3d8",
                        hit ? colour::RESULT_FILL : "none");
            }
        }
    }
    DrawTolerance(panel, SIGHT, tolerance, 13);
}

void PickSegments(Panel& panel) {
    Scatter scatter(4);
    const double tolerance = 0.25;
    for (int i = 0; i < 26; ++i) {
        const Vec2d p = scatter.NextIn(Box2d(-5, -4, 6, 4));
        const Vec2d q = scatter.NextIn(Box2d(-2, -2, 2, 2));
        const Vec3d a(p.x, q.x, p.y);
        const Vec3d b(p.x + q.y, q.x + 2 * scatter.Next(), p.y + q.x);
        Vec3d hit;
        if (SIGHT.Intersect(tolerance, a, b, hit)) {
            DrawSegment(panel, a, b, Stroked(colour::RESULT, 2));
            panel.Dot(Project(hit), colour::ACCENT, 3);
        } else {
            DrawSegment(panel, a, b, Stroked(colour::FAINT, 1.2));
        }
    }
    DrawTolerance(panel, SIGHT, tolerance, 13);
}

void DrawClosestPoints(Panel& panel) {
    const ParametricLine3 other({-6, 8, 2.5}, {5, 7.4, -4.5});
    Vec3d here;
    Vec3d there;
    SIGHT.GetClosestPoints(other, here, there);
    DrawSegment(panel, Along(SIGHT, 0), Along(SIGHT, 13), Stroked(colour::INPUT, 1.6));
    DrawSegment(panel, Along(other, 0), Along(other, 12), Stroked(colour::INPUT, 1.6));
    DrawSegment(panel, here, there, Stroked(colour::RESULT, 2));
    panel.Dot(Project(here), colour::RESULT, 3.4).Dot(Project(there), colour::RESULT, 3.4);
    const Vec3d x(-2, 2, -2.5);
    const Vec3d foot = SIGHT.GetClosestPoint(x);
    DrawSegment(panel, x, foot, Stroked(colour::ACCENT, 1.4));
    panel.Dot(Project(x), colour::INK).Dot(Project(foot), colour::ACCENT);
}

void DrawPartInBox(Panel& panel) {
    const Box3d box({-3, -2, -2}, {3, 2.5, 2});
    Vec3d first;
    Vec3d second;
    DrawBox(panel, box, colour::CLIP, colour::CLIP_FILL);
    SIGHT.Intersect(box, first, second);
    DrawSegment(panel, Along(SIGHT, -0.5), Along(SIGHT, 13.5), Stroked(colour::INPUT, 1.2));
    DrawSegment(panel, first, second, Stroked(colour::RESULT, 2.6));
    panel.Dot(Project(first), colour::RESULT, 3.6).Dot(Project(second), colour::RESULT, 3.6);
}

// A fan of sights from one eye through a lattice; those that meet the triangle end in it.
void PickTriangle(Panel& panel) {
    const Vec3d a(0.5, -2, -3);
    const Vec3d b(3, 3, -1.6);
    const Vec3d c(1.2, 0.4, 3.2);
    panel.Ring(Projected({a, b, c}), Filled(colour::CLIP_FILL, colour::CLIP, 1.4));
    const Vec3d eye(-6, -1, 0.4);
    for (int y = -3; y <= 3; ++y) {
        for (int z = -3; z <= 3; ++z) {
            Vec3d hit;
            Vec3d weights;
            bool front = false;
            const ParametricLine3 sight(eye, Vec3d(1.6, y * 0.9, z * 0.9));
            if (sight.Intersect(a, b, c, hit, weights, front)) {
                DrawSegment(panel, eye, hit, Stroked(colour::RESULT_FILL, 0.8));
                panel.Dot(Project(hit), colour::RESULT, 1.5 + 3 * weights.x);
            }
        }
    }
    panel.Dot(Project(eye), colour::INK, 3.4);
    panel.Text(Project(a) + Vec2d(0.15, -0.45), "a").Text(Project(b) + Vec2d(0.15, 0), "b");
    panel.Text(Project(c) + Vec2d(0.1, 0.15), "c");
}

std::vector<Vec3d> Helix() {
    std::vector<Vec3d> helix;
    for (int i = 0; i <= 240; ++i) {
        const double t = 4 * kit::TWO_PI * i / 240;
        helix.emplace_back(t / 2.6 - 5, 2.4 * std::cos(t), 2.4 * std::sin(t));
    }
    return helix;
}

void DrawDashedHelix(Panel& panel) {
    const double pattern[] = {1.4, 0.6, 0.3, 0.6};
    geom::DashLine3Generator dashes(pattern, 4);
    std::vector<geom::LineSegment3> pieces;
    const std::vector<Vec3d> helix = Helix();
    dashes.Decompose(helix.data(), helix.size(), pieces);
    for (const geom::LineSegment3& piece : pieces) {
        DrawSegment(panel, piece.A(), piece.B(),
                    Stroked(piece.A().y < 0 ? colour::RESULT : colour::RESULT_FILL, 2));
    }
}

void DrawPlane(Panel& panel) {
    geom::Mat4d frame;
    const Vec3d origin(-4, -2.4, -2.2);
    geom::OrientPlane(frame, origin, {8, 0.6, 1.4}, {0, 5, 3});
    const Vec3d u(frame(0, 0), frame(0, 1), frame(0, 2));
    const Vec3d v(frame(1, 0), frame(1, 1), frame(1, 2));
    const Vec3d normal(frame(2, 0), frame(2, 1), frame(2, 2));
    const Vec3d corners[] = {origin, origin + u * 8, origin + u * 8 + v * 5, origin + v * 5};
    panel.Ring(Projected({corners, corners + 4}), Filled(colour::CLIP_FILL, colour::CLIP, 1.2));
    panel.Arrow(Project(origin), Project(origin + u * 2), Stroked(colour::ACCENT, 1.8));
    panel.Arrow(Project(origin), Project(origin + v * 2), Stroked(colour::ACCENT, 1.8));
    panel.Arrow(Project(origin), Project(origin + normal * 2), Stroked(colour::ACCENT, 1.8));
    const geom::Plane plane(normal, origin);
    for (int i = 0; i < 4; ++i) {
        const Vec3d from(-1.5 + 1.6 * i, -1 + 0.5 * i, 4.4);
        const ParametricLine3 line(from, from + Vec3d(-0.3, 0.4, -1));
        Vec3d hit;
        plane.Intersect(line, hit);
        DrawSegment(panel, from, hit, Stroked(colour::RESULT, 1.4));
        panel.Dot(Project(hit), colour::RESULT, 3);
    }
}

} // namespace

Picture Picking() {
    Picture picture(3, 280);
    const Box2d view(-7.4, -5, 8.4, 6);
    PickBoxes(picture.Add("boxes in a cone: tolerance 0.2", view), 0.2);
    PickBoxes(picture.Add("boxes in a cylinder: tolerance -1.3", view), -1.3);
    PickSegments(picture.Add("segments in a cone", view));
    PickTriangle(picture.Add("a triangle: larger dots, nearer to a", Box2d(-7.4, -5, 6, 4.33)));
    DrawPartInBox(picture.Add("the part of a line inside a box", view));
    DrawClosestPoints(picture.Add("closest points", view));
    return picture;
}

Picture Space() {
    Picture picture(2, 340);
    DrawDashedHelix(picture.Add("dashes along a helix", Box2d(-7, -4.4, 7.4, 4.4)));
    DrawPlane(picture.Add("the frame of a plane, and lines that meet it", Box2d(-7, -4, 7.4, 4.8)));
    return picture;
}

} // namespace gallery
