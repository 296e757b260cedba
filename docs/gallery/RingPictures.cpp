// SPDX-License-Identifier: MIT
// Pictures of rings: what is inside, clean-up, winding rules and offsetting.
#include "Gallery.h"
#include "Shapes.h"

#include <GL/glu.h>

#include <cmath>

namespace gallery {

namespace {

using geom::Polygon2;

void ProbeInside(Panel& panel, const Polygon2& polygon) {
    panel.Rings(polygon, Stroked(colour::INPUT, 1.5));
    Points inside;
    Points outside;
    for (int row = -10; row <= 10; ++row) {
        for (int column = -12; column <= 12; ++column) {
            const Vec2d p(0.46 * column, 0.46 * row);
            (geom::PointInPolygon(p, polygon) ? inside : outside).push_back(p);
        }
    }
    panel.Dots(outside, "#d9dee1", 2).Dots(inside, colour::RESULT, 3);
}

// Four squares of two colours, and points on all their corners and edges in the colour of the
// square that contains them.
void ProbeBorders(Panel& panel) {
    const Points squares[] = {BoxRing(-4, -4, 0, 0), BoxRing(0, -4, 4, 0), BoxRing(0, 0, 4, 4),
                              BoxRing(-4, 0, 0, 4)};
    const char* const fills[] = {"#d5ebe8", "#f7ddd4", "#e1ddf0", "#f6ecd6"};
    const char* const inks[] = {colour::RESULT, colour::ACCENT, colour::SECOND, colour::CLIP};
    for (std::size_t i = 0; i < 4; ++i) {
        panel.Ring(squares[i], Filled(fills[i], "#ffffff", 1));
    }
    for (int y = -4; y <= 4; ++y) {
        for (int x = -4; x <= 4; ++x) {
            const char* owner = nullptr;
            for (std::size_t i = 0; i < 4; ++i) {
                if (geom::PointInPolygon(Vec2d(x, y), squares[i].data(), 4)) {
                    owner = inks[i];
                }
            }
            if (owner != nullptr) {
                panel.Dot(Vec2d(x, y), owner, 4);
            } else {
                panel.HollowDot(Vec2d(x, y), colour::FAINT, 3);
            }
        }
    }
}

void DrawDirected(Panel& panel, const Polygon2& polygon) {
    std::size_t start = 0;
    for (const unsigned int count : polygon.Counts()) {
        const auto first = polygon.Points().begin() + static_cast<std::ptrdiff_t>(start);
        panel.Directions({first, first + count}, colour::INK);
        start += count;
    }
}

void DrawRule(Picture& picture, const char* name, const Polygon2& rings, unsigned int rule) {
    Panel& panel = picture.Add(name, Box2d(-7, -5.4, 7, 5.4));
    panel.Rings(rings, Stroked(colour::FAINT, 1));
    Polygon2 selected;
    geom::RemoveSelfIntersections(rings, selected, rule, geom::RSI_NORMAL_POSITIVE_Z);
    panel.Rings(selected, Filled(colour::RESULT_FILL, colour::RESULT, 1.6));
}

Polygon2 Offset(const Polygon2& polygon, double distance) {
    Polygon2 moved;
    geom::OffsetPolygon(polygon, distance, moved);
    return moved;
}

// The polygon, and its offsets as lines: grown ones outside in one colour, shrunk in another.
void DrawOffsets(Panel& panel, const Polygon2& polygon, const std::vector<double>& distances) {
    panel.Rings(polygon, Filled(colour::INPUT_FILL, colour::INPUT, 1.6));
    for (const double distance : distances) {
        panel.Rings(Offset(polygon, distance),
                    Stroked(distance > 0 ? colour::RESULT : colour::ACCENT, 1.3));
    }
}

// The polygon before, and what one offset makes of it.
void DrawOffset(Panel& panel, const Polygon2& polygon, double distance) {
    panel.Rings(Offset(polygon, distance), Filled(colour::RESULT_FILL, colour::RESULT, 1.4));
    panel.Rings(polygon, Stroked(colour::INPUT, 1.6));
    DrawDirected(panel, polygon);
}

Polygon2 Dumbbell() {
    return PolygonOf({{{0, 0},
                       {4, 0},
                       {4, 1.5},
                       {6, 1.5},
                       {6, 0},
                       {10, 0},
                       {10, 4},
                       {6, 4},
                       {6, 2.5},
                       {4, 2.5},
                       {4, 4},
                       {0, 4}}});
}

// Shrunk by a little more than its radius, a polygon is gone; further on, its moved edges meet
// again behind the middle and some rings come back.
void DrawSpurious(Panel& panel) {
    const Polygon2 polygon = PolygonOf({Regular(30, {0, 0}, 1)});
    panel.Rings(polygon, Filled(colour::INPUT_FILL, colour::INPUT, 1.6));
    panel.Rings(Offset(polygon, -3), Filled(colour::ACCENT_FILL, colour::ACCENT, 1.2));
}

} // namespace

Picture PointsInPolygons() {
    Picture picture(3, 250);
    const Box2d view(-5.8, -4.9, 5.8, 4.9);
    ProbeInside(picture.Add("even-odd: a ring that crosses itself", view),
                PolygonOf({Pentagram({0, -0.4}, 4.8)}));
    ProbeInside(picture.Add("two rings that turn alike", view),
                PolygonOf({Island({0, 0}, 4.6), Island({-0.2, 0.2}, 2.2, 30)}));
    ProbeBorders(picture.Add("left and bottom edges are inside", view));
    return picture;
}

Picture CleanedRings() {
    const Points star = Star(6, {-2, 1}, 2.8, 1.3);
    Points ring;
    for (const Vec2d& p : star) {
        ring.push_back(p);
        if (ring.size() % 5 == 0) {
            ring.push_back(p); // a repeated point
        }
    }
    ring.push_back(ring.front());
    geom::Polygon2Data data;
    const Polygon2 all = PolygonOf(
        {ring, {{2.6, -1.2}, {4.6, -0.2}}, {{3.2, 2.8}}, {}, BoxRing(0.8, -3.6, 4.4, -2)});
    data.points = all.Points();
    data.counts = all.Counts();

    Picture picture(3, 250);
    const Box2d view(-5.6, -4.6, 5.6, 4.6);
    Panel& before = picture.Add("", view);
    before.Caption(std::to_string(data.points.size()) + " points in " +
                   std::to_string(data.counts.size()) + " rings");
    before.Rings(all, Filled(colour::INPUT_FILL, colour::INPUT));
    for (std::size_t i = 0; i < data.points.size(); ++i) {
        const bool repeats =
            (i > 0 && data.points[i] == data.points[i - 1]) || (i + 1 == ring.size());
        if (repeats) {
            before.HollowDot(data.points[i], colour::ACCENT, 6);
        }
        before.Dot(data.points[i], colour::INPUT, 2.6);
    }

    Polygon2 polygon;
    polygon.Take(data);
    polygon.RemoveDegenerateRings(3);
    Panel& after = picture.Add("", view);
    after.Caption("cleaned up: " + std::to_string(polygon.Points().size()) + " points in " +
                  std::to_string(polygon.Counts().size()) + " rings");
    after.Rings(polygon, Filled(colour::RESULT_FILL, colour::RESULT));
    after.Dots(polygon.Points(), colour::RESULT, 2.6);

    polygon.Reverse();
    Panel& reversed = picture.Add("reversed: now clockwise", view);
    reversed.Rings(polygon, Filled(colour::RESULT_FILL, colour::RESULT));
    DrawDirected(reversed, polygon);
    return picture;
}

Picture WindingRules() {
    const Polygon2 rings = PolygonOf({Pentagram({-2.4, 0.4}, 4.4), Regular(40, {1.6, 0}, 3.6),
                                      Reversed(BoxRing(1, -2.4, 6.2, 1.6))});
    Picture picture(3, 250);
    Panel& input = picture.Add("three rings", Box2d(-7, -5.4, 7, 5.4));
    input.Rings(rings, Stroked(colour::INPUT, 1.5));
    input.Directions(Pentagram({-2.4, 0.4}, 4.4), colour::INK);
    // The edges of an octagon around the circle touch it with their middles, where arrows stand.
    input.Directions(Regular(8, {1.6, 0}, 3.6 / std::cos(kit::PI / 8)), colour::INK);
    input.Directions(Reversed(BoxRing(1, -2.4, 6.2, 1.6)), colour::INK);
    DrawRule(picture, "odd", rings, GLU_TESS_WINDING_ODD);
    DrawRule(picture, "non-zero", rings, GLU_TESS_WINDING_NONZERO);
    DrawRule(picture, "positive", rings, GLU_TESS_WINDING_POSITIVE);
    DrawRule(picture, "negative", rings, GLU_TESS_WINDING_NEGATIVE);
    DrawRule(picture, "twice or more", rings, GLU_TESS_WINDING_ABS_GEQ_TWO);
    return picture;
}

Picture Offsets() {
    Picture picture(3, 250);
    const Box2d view(-3, -3, 13, 11);
    const Polygon2 frame = PolygonOf(
        {{{0, 0}, {10, 0}, {10, 5}, {7, 8}, {0, 8}}, Reversed(BoxRing(2.5, 2.5, 6, 5.5))});
    DrawOffsets(picture.Add("a frame grown by 0.5, 1, 1.5 and 2", view), frame, {0.5, 1, 1.5, 2});
    DrawOffsets(picture.Add("and shrunk by 0.3, 0.6, 0.9 and 1.2", view), frame,
                {-0.3, -0.6, -0.9, -1.2});
    DrawOffsets(picture.Add("a comb grown and shrunk", Box2d(-3, -4, 13, 10)), PolygonOf({Comb()}),
                {0.5, 1, 1.5, -0.3, -0.6, -0.8});
    return picture;
}

Picture OffsetSurprises() {
    Picture picture(3, 250);
    const Box2d view(-2, -2, 12, 12);
    const Points square = BoxRing(0, 0, 10, 10);
    const Points hole = BoxRing(3, 3, 7, 7);
    DrawOffset(picture.Add("wound against its ring, a hole stays", view),
               PolygonOf({square, Reversed(hole)}), 1);
    DrawOffset(picture.Add("wound like its ring, it is filled", view), PolygonOf({square, hole}),
               1);
    DrawOffset(picture.Add("a clockwise ring alone gives nothing", view),
               PolygonOf({Reversed(square)}), 1);
    DrawOffset(picture.Add("shrinking cuts a neck", Box2d(-1, -4, 11, 8)), Dumbbell(), -0.6);
    DrawOffset(picture.Add("near rings grow together", Box2d(-2, -4, 8, 6)),
               PolygonOf({BoxRing(0, 0, 3, 2), BoxRing(3.4, 0, 6, 2)}), 0.5);
    DrawSpurious(picture.Add("shrunk by 3 radii: spurious rings", Box2d(-1.2, -1.2, 1.2, 1.2)));
    return picture;
}

} // namespace gallery
