// SPDX-License-Identifier: MIT
// Pictures of clipping polylines and rings to rectangles, and of polygons with each other.
#include "Gallery.h"
#include "Shapes.h"

#include <cmath>

namespace gallery {

namespace {

const Box2d WINDOW(-6, -4, 6, 4);
const Box2d SHEET(-10, -7, 10, 7);

Points Spiral() {
    return Sampled(400, 0, 7 * kit::TWO_PI,
                   [](double t) { return Vec2d(1.25 * std::cos(t), std::sin(t)) * (0.16 * t); });
}

// Runs in two colours in turn, so that each can be told from the next.
void DrawRuns(Panel& panel, const Points& points, const Counts& counts) {
    std::size_t start = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const auto first = points.begin() + static_cast<std::ptrdiff_t>(start);
        panel.Line({first, first + counts[i]},
                   Stroked(i % 2 == 0 ? colour::RESULT : colour::ACCENT, 2));
        start += counts[i];
    }
}

void DrawWindow(Panel& panel) {
    panel.Box(WINDOW, Filled(colour::CLIP_FILL, colour::CLIP, 1.2));
}

void ClipFanOfSegments(Panel& panel) {
    const geom::CLineClip clipper(WINDOW);
    DrawWindow(panel);
    for (int i = 0; i < 24; ++i) {
        const double angle = kit::TWO_PI * i / 24 + 0.05;
        Vec2d a = Vec2d(1.6 * std::cos(angle), std::sin(angle)) * 6;
        Vec2d b = Vec2d(1.6 * std::cos(angle + 2.1), std::sin(angle + 2.1)) * 6;
        panel.Segment(a, b, Stroked(colour::FAINT, 1));
        if (clipper.ClipLine(a, b)) {
            panel.Segment(a, b, Stroked(colour::RESULT, 1.8));
        }
    }
}

void ClipRing(Panel& panel, const Points& ring) {
    DrawWindow(panel);
    panel.Ring(ring, Filled(colour::INPUT_FILL, colour::FAINT, 1));
    panel.Box(WINDOW, Stroked(colour::CLIP, 1.2));
    geom::CPolyClip clipper(WINDOW);
    geom::CPodVector<Vec2d, 32> clipped;
    clipper.Clip(ring.data(), ring.size(), clipped);
    const Points result(clipped.begin(), clipped.end());
    panel.Ring(result, Filled(colour::RESULT_FILL, colour::RESULT, 2));
    panel.Dots(result, colour::RESULT, 2.4);
}

using Operation = void (geom::GpcPolygon::*)(const geom::GpcPolygon&);

void DrawOperation(Picture& picture, const char* name, geom::GpcPolygon a, Operation operation,
                   const geom::GpcPolygon& b) {
    Panel& panel = picture.Add(name, Box2d(-7, -5.6, 7, 5.6));
    panel.Rings(a, Filled(colour::INPUT_FILL));
    panel.Rings(b, Filled(colour::INPUT_FILL));
    (a.*operation)(b);
    panel.Rings(a, Filled(colour::RESULT_FILL, colour::RESULT, 1.6));
}

} // namespace

Picture ClippedLinesInRectangle() {
    Picture picture(2, 340);
    const Points spiral = Spiral();
    Panel& runs = picture.Add("a polyline in runs (ClipPolyline)", SHEET);
    DrawWindow(runs);
    runs.Line(spiral, Stroked(colour::FAINT, 1));
    Points points;
    Counts counts;
    geom::CLineClip(WINDOW).ClipPolyline(spiral.data(), spiral.size(), points, counts);
    DrawRuns(runs, points, counts);
    ClipFanOfSegments(picture.Add("segments, one by one (ClipLine)", SHEET));
    return picture;
}

Picture ClippedRingsInRectangle() {
    Picture picture(2, 340);
    ClipRing(picture.Add("a ring that stays in one part", SHEET), Star(7, {-3.2, 0.4}, 6, 3));
    Points comb = Comb();
    for (Vec2d& p : comb) {
        p = Vec2d(p.x * 1.7 - 8.5, p.y * 1.9 - 6.2);
    }
    ClipRing(picture.Add("its parts are joined along the side", SHEET), comb);
    return picture;
}

Picture SetOperations() {
    const geom::GpcPolygon frame =
        GpcPolygonOf({Regular(48, {-1.6, 0}, 4.6), Regular(48, {-1.6, 0}, 2)});
    const geom::GpcPolygon star = GpcPolygonOf({Star(5, {2.2, -0.3}, 5, 2.2)});
    Picture picture(3, 240);
    picture.Add("the operands: A with a hole, and B", Box2d(-7, -5.6, 7, 5.6))
        .Rings(frame, Filled(colour::INPUT_FILL, colour::INPUT))
        .Rings(star, {colour::CLIP_FILL, colour::CLIP, 1.5, 0.75});
    DrawOperation(picture, "A.Intersection(B)", frame, &geom::GpcPolygon::Intersection, star);
    DrawOperation(picture, "A.Union(B)", frame, &geom::GpcPolygon::Union, star);
    DrawOperation(picture, "A.Difference(B)", frame, &geom::GpcPolygon::Difference, star);
    DrawOperation(picture, "B.Difference(A)", star, &geom::GpcPolygon::Difference, frame);
    DrawOperation(picture, "A.XOR(B)", frame, &geom::GpcPolygon::XOR, star);
    return picture;
}

Picture TriangleStrips() {
    const char* const fills[] = {"#a8d5d0", "#f2c9bd", "#d8d3ec", "#f6dfaa",
                                 "#c3dba7", "#b9d3ea", "#e9c6dc"};
    const geom::GpcPolygon star =
        GpcPolygonOf({Star(9, {0, 0}, 6, 3.4), Regular(7, {0.2, -0.2}, 1.7)});
    Picture picture(2, 300);
    Panel& triangles = picture.Add("the strips' triangles", Box2d(-6.5, -6.5, 6.5, 6.5));
    std::vector<Points> strips;
    star.Decompose(
        [](const Vec2d* pts, unsigned int n, void* user) {
            static_cast<std::vector<Points>*>(user)->emplace_back(pts, pts + n);
            return true;
        },
        &strips);
    for (std::size_t i = 0; i < strips.size(); ++i) {
        for (std::size_t k = 2; k < strips[i].size(); ++k) {
            triangles.Ring({strips[i][k - 2], strips[i][k - 1], strips[i][k]},
                           Filled(fills[i % 7], "#ffffff", 0.8));
        }
    }
    triangles.Rings(star, Stroked(colour::INK, 1.2));
    Panel& outlines = picture.Add("their outlines, as rings", Box2d(-6.5, -6.5, 6.5, 6.5));
    std::vector<Points> rings;
    star.Decompose(rings);
    for (std::size_t i = 0; i < rings.size(); ++i) {
        outlines.Ring(rings[i], Filled(fills[i % 7], colour::INK, 0.8));
    }
    return picture;
}

} // namespace gallery
