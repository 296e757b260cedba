// SPDX-License-Identifier: MIT
// Pictures of arcs, pies, chords and ellipses.
#include "Gallery.h"
#include "Shapes.h"

#include <cmath>

namespace gallery {

namespace {

const Box2d FRAME(-4, -2.6, 4, 2.6);
const Vec2d START(3.6, 1.4);
const Vec2d END(-3.4, -2.2);

// The box, the two directions and the centre that the curves in a box start from.
void DrawDirections(Panel& panel) {
    panel.Box(FRAME, Filled("none", colour::CLIP, 1));
    panel.Arrow({0, 0}, START, Stroked(colour::INPUT, 1));
    panel.Arrow({0, 0}, END, Stroked(colour::INPUT, 1));
    panel.Text(START + Vec2d(0.15, 0), "start").Text(END + Vec2d(0.4, -0.1), "end");
}

} // namespace

Picture Curves() {
    Picture picture(3, 250);
    const Box2d view(-5.2, -3.8, 5.2, 3.8);

    Panel& circular = picture.Add("CircularArc: the last step is shorter", view);
    Points arc;
    geom::CircularArc({0, 0}, 3, 30 * kit::DEG_TO_RAD, 250 * kit::DEG_TO_RAD, arc,
                      20 * kit::DEG_TO_RAD);
    circular.Line(arc, Stroked(colour::RESULT, 1.6)).Dots(arc, colour::RESULT, 2.6);
    circular.Dot({0, 0}, colour::INPUT).Dot(arc.front(), colour::ACCENT, 3.5);

    Panel& elliptic = picture.Add("ArcToCurve: 17 points", view);
    DrawDirections(elliptic);
    Points curve(17);
    geom::ArcToCurve(FRAME, START, END, curve.size(), curve.data(), nullptr);
    elliptic.Line(curve, Stroked(colour::RESULT, 1.8)).Dots(curve, colour::RESULT, 2.4);

    Panel& ellipse = picture.Add("GenerateEllipse: 6 steps a quadrant", view);
    ellipse.Box(FRAME, Filled("none", colour::CLIP, 1));
    Points closed(25);
    geom::GenerateEllipse(FRAME, 6, closed.data());
    ellipse.Ring(closed, Filled(colour::RESULT_FILL, colour::RESULT))
        .Dots(closed, colour::RESULT, 2.4);

    Panel& pie = picture.Add("PieToArea", view);
    Points slice(40);
    geom::PieToArea(FRAME, START, END, slice.size(), slice.data(), nullptr);
    pie.Ring(slice, Filled(colour::RESULT_FILL, colour::RESULT, 1.8));
    DrawDirections(pie);

    Panel& chord = picture.Add("ChordToArea", view);
    Points segment(40);
    geom::ChordToArea(FRAME, START, END, segment.size(), segment.data(), nullptr);
    chord.Ring(segment, Filled(colour::RESULT_FILL, colour::RESULT, 1.8));
    DrawDirections(chord);

    Panel& theta = picture.Add("ThetaToAngle: 24 equal steps", view);
    theta.Ring(Regular(72, {0, 0}, 3), Stroked(colour::FAINT, 1));
    theta.Ring(Regular(4, {0, 0}, 3), Stroked(colour::RESULT, 1.6));
    for (int i = 0; i < 24; ++i) {
        const double angle = geom::ThetaToAngle(4.0 * i / 24);
        Points ray;
        geom::CircularArc({0, 0}, 3, angle, 0, ray, 1);
        const Vec2d onCircle = ray.front();
        const double sum = std::fabs(onCircle.x) + std::fabs(onCircle.y);
        theta.Segment({0, 0}, onCircle, Stroked(colour::FAINT, 0.8));
        theta.Dot(onCircle, colour::ACCENT, 2.2).Dot(onCircle * (3 / sum), colour::RESULT, 2.6);
    }
    return picture;
}

} // namespace gallery
