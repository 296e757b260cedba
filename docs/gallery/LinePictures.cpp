// SPDX-License-Identifier: MIT
// Pictures of what the library does with lines.
#include "Gallery.h"
#include "Shapes.h"

#include <cmath>

namespace gallery {

namespace {

geom::GpcPolygon Lakeland() {
    return GpcPolygonOf({Island({0, 0}, 6.4), Reversed(Island({-1.6, 1.2}, 1.5, 30)),
                         Reversed(Regular(6, {2, -1.4}, 1.1))});
}

void DrawClipped(Panel& panel, const Points& points, const Counts& counts) {
    const geom::GpcPolygon lakeland = Lakeland();
    panel.Rings(lakeland, Filled(colour::CLIP_FILL, colour::CLIP, 1.2));
    panel.Lines(points, counts, Stroked(colour::FAINT, 0.8));
    Points inside;
    Counts runs;
    geom::ClipPolylinesToPolygon(points.data(), counts.data(), counts.size(), lakeland, inside,
                                 runs);
    panel.Lines(inside, runs, Stroked(colour::RESULT, 1.8));
}

// A row of a legend: the pattern as text and a line drawn with it.
void DrawPattern(Panel& panel, double y, const std::vector<double>& pattern) {
    std::string text;
    for (const double length : pattern) {
        text += (text.empty() ? "" : ", ") + Short(length);
    }
    panel.Text({0.4, y - 0.18}, text);
    const Points line = {{7, y}, {27, y}};
    geom::DashLineGenerator dashes(pattern.data(), pattern.size());
    std::vector<geom::LineSegment2> pieces;
    dashes.Decompose(line.data(), line.size(), pieces);
    panel.Line(line, Stroked("#e3e6e8", 7));
    panel.Segments(pieces, Stroked(colour::RESULT, 3));
}

// Three lines end to end, one after the other through one generator or each through its own.
void DrawJoined(Panel& panel, double y, bool carriedOver) {
    const Points zigzag = {{1, y}, {9, y + 3}, {17, y}, {27, y + 3}};
    const char* const colours[] = {colour::RESULT, colour::ACCENT, colour::SECOND};
    const double pattern[] = {2.4, 1.2, 0.6, 1.2};
    geom::DashLineGenerator dashes(pattern, 4);
    for (std::size_t i = 0; i + 1 < zigzag.size(); ++i) {
        if (!carriedOver) {
            dashes.SetDashes(pattern, 4);
        }
        std::vector<geom::LineSegment2> pieces;
        dashes.Decompose(&zigzag[i], 2, pieces);
        panel.Segments(pieces, Stroked(colours[i], 3));
    }
    panel.Dots(zigzag, colour::INK, 1.8);
}

void DrawBorder(Panel& panel, const geom::GpcPolygon& sheet) {
    panel.Rings(sheet, Filled(colour::CLIP_FILL, colour::CLIP, 1.2));
    const geom::GpcPolygon island = GpcPolygonOf({Island({0, 0.4}, 6)});
    geom::GpcPolygon land;
    geom::ClipGPolygonToGPolygon(island, sheet, land);
    panel.Rings(land, Filled(colour::RESULT_FILL));
    Points border;
    Counts counts;
    island.GetPolyPolygon(border, counts, true);
    const double pattern[] = {0.9, 0.4, 0.2, 0.4};
    geom::DashLineGenerator dashes(pattern, 4);
    Points visible;
    Counts runs;
    geom::ClipDashedPolylinesToPolygon(border.data(), counts.data(), counts.size(), dashes, sheet,
                                       visible, runs);
    panel.Lines(visible, runs, Stroked(colour::RESULT, 2.4));
}

const Points& Path() {
    static const Points path = {{-6, -2},    {-4.5, 1.5}, {-2.5, 2.2}, {-1, -0.4},
                                {1.4, -2.4}, {3, 0.2},    {2.2, 2.8},  {5.6, 3}};
    return path;
}

// Places at equal steps, each found from the last one.
Points StepsAlong(const Points& path, bool closed, double step, std::size_t most) {
    Points places = {path[0]};
    std::size_t index = 0;
    Vec2d position = path[0];
    while (places.size() < most &&
           geom::AdvanceAlongPolyline(path.data(), path.size(), closed, step, index, position)) {
        places.push_back(position);
    }
    return places;
}

void DrawThinned(Picture& picture, const std::string& name, const Points& line,
                 const Points& thinned) {
    Panel& panel = picture.Add(name + ": " + std::to_string(thinned.size()) + " of " +
                                   std::to_string(line.size()) + " vertices",
                               Box2d(-0.6, -4, 12.6, 4));
    panel.Line(line, Stroked(colour::FAINT, 4));
    panel.Line(thinned, Stroked(colour::RESULT, 1.5)).Dots(thinned, colour::RESULT, 2);
}

void DrawMeeting(Panel& panel) {
    const geom::LineSegment2 s({-5, -3}, {-1, -1});
    const geom::LineSegment2 t({-4, 3}, {1.4, 1.2});
    Vec2d meeting;
    geom::Intersection(s, t, meeting);
    panel.Segment(s.A(), meeting, Stroked(colour::FAINT, 1));
    panel.Segment(t.A(), meeting, Stroked(colour::FAINT, 1));
    panel.Segments({s, t}, Stroked(colour::INPUT, 2.5));
    panel.HollowDot(meeting, colour::ACCENT);
    Vec2d p(-4, -0.2);
    Vec2d a = s.A();
    Vec2d b = s.B();
    Vec2d foot;
    geom::GetNormalIntersection(p, a, b, foot);
    panel.Segment(p, foot, Stroked(colour::RESULT)).Dot(p, colour::INK).Dot(foot, colour::RESULT);
}

void DrawConstrained(Panel& panel) {
    for (int i = 0; i < 24; ++i) {
        const double angle = kit::TWO_PI * i / 24 + 0.06;
        const Vec2d pointer = Vec2d(std::cos(angle), std::sin(angle)) * 4.2;
        const Vec2d snapped = geom::ConstrainLineSegmentOrientation({0, 0}, pointer);
        panel.Segment(pointer, snapped, Stroked(colour::ACCENT, 1.2));
        panel.Segment({0, 0}, snapped, Stroked(colour::RESULT, 1.5));
        panel.Dot(pointer, colour::INPUT, 2.2).Dot(snapped, colour::RESULT, 2.2);
    }
}

void DrawCircumcircle(Panel& panel) {
    const geom::Triangle triangle({-3.4, -1.6}, {2.6, -2.6}, {1.4, 3});
    const geom::Circle circle(triangle.A(), triangle.B(), triangle.C());
    panel.Ring(Regular(72, circle.Center(), circle.Radius()),
               Filled(colour::CLIP_FILL, colour::CLIP));
    panel.Ring({triangle.A(), triangle.B(), triangle.C()},
               Filled(colour::RESULT_FILL, colour::RESULT));
    Scatter scatter(7);
    for (int i = 0; i < 60; ++i) {
        const Vec2d p = scatter.NextIn(Box2d(-5.4, -4.6, 5.4, 4.6));
        const char* inCircle = triangle.InCircumcircle(p) ? colour::CLIP : colour::FAINT;
        panel.Dot(p, triangle.Contains(p) ? colour::RESULT : inCircle, 2.6);
    }
}

} // namespace

Picture ClippedLinesInPolygon() {
    Picture picture(2, 340);
    Points hatch;
    for (int i = -14; i <= 14; ++i) {
        hatch.emplace_back(-7.5, 0.8 * i - 3);
        hatch.emplace_back(7.5, 0.8 * i + 3);
    }
    DrawClipped(picture.Add("hatching: many lines", Box2d(-7.2, -6.6, 7.2, 5.6)), hatch,
                Counts(hatch.size() / 2, 2));
    const Points curl = Sampled(500, 0, 9 * kit::TWO_PI, [](double t) {
        return Vec2d(t / 4 - 7 + 1.5 * std::sin(t), 4.2 * std::cos(t * 0.9));
    });
    DrawClipped(picture.Add("one polyline: its pieces joined to runs", Box2d(-7.2, -6.6, 7.2, 5.6)),
                curl, {static_cast<unsigned int>(curl.size())});
    return picture;
}

Picture Dashes() {
    Picture picture(2, 340);
    Panel& patterns = picture.Add("patterns; an odd one swaps its roles", Box2d(0, 0, 28, 14));
    DrawPattern(patterns, 12, {3, 1.5});
    DrawPattern(patterns, 9.5, {0.3, 0.9});
    DrawPattern(patterns, 7, {4, 1, 1, 1});
    DrawPattern(patterns, 4.5, {1, 2, 3});
    DrawPattern(patterns, 2, {2});
    Panel& joined = picture.Add("joined lines: phase carried over, or not", Box2d(0, 0, 28, 14));
    DrawJoined(joined, 8.5, true);
    DrawJoined(joined, 2, false);
    return picture;
}

Picture DashedBorders() {
    Picture picture(2, 340);
    DrawBorder(picture.Add("cut to a rectangle", Box2d(-7.4, -6, 7.4, 6)),
               geom::GpcPolygon(-6.2, 4.2, 4, -3.6));
    DrawBorder(
        picture.Add("cut to a polygon with a hole", Box2d(-7.4, -6, 7.4, 6)),
        GpcPolygonOf({Regular(6, {-0.9, -0.6}, 5.2), Reversed(Regular(24, {-2.8, 1.4}, 1.3))}));
    return picture;
}

Picture NearestSegments() {
    Picture picture(1, 480);
    Panel& panel = picture.Add("points, the segment nearest to each, and the foot",
                               Box2d(-7.2, -4.2, 7.2, 4.4));
    const Points& path = Path();
    panel.Line(path, Stroked(colour::INPUT, 2.5)).Dots(path, colour::INPUT, 3);
    Scatter scatter(11);
    for (int i = 0; i < 45; ++i) {
        Vec2d p = scatter.NextIn(Box2d(-6.8, -3.8, 6.8, 4));
        const std::size_t nearest = geom::FindClosestSegment(path.data(), path.size(), p, nullptr);
        Vec2d a = path[nearest];
        Vec2d b = path[nearest + 1];
        Vec2d foot;
        geom::GetNormalIntersection(p, a, b, foot);
        const char* const own = nearest % 2 == 0 ? colour::RESULT : colour::ACCENT;
        panel.Segment(p, foot, Stroked(own, 1)).Dot(p, own, 2.6);
    }
    return picture;
}

Picture Walks() {
    Picture picture(2, 340);
    const Box2d view(-7, -4, 7, 4.6);
    Panel& open = picture.Add("an open polyline in steps of 1, to its end", view);
    open.Line(Path(), Stroked(colour::INPUT, 2));
    open.Dots(StepsAlong(Path(), false, 1, 100), colour::RESULT, 3.2);
    Panel& closed = picture.Add("a closed one, 12 equal steps around", view);
    const Points ring = Island({0, 0.2}, 4, 40);
    closed.Ring(ring, Stroked(colour::INPUT, 2));
    const double around = geom::PolygonPerimeter(ring.data(), ring.size());
    closed.Dots(StepsAlong(ring, true, around / 12, 12), colour::RESULT, 4);
    return picture;
}

Picture Thinning() {
    Scatter scatter(3);
    const Points line = Sampled(90, 0, 12, [&scatter](double x) {
        const double wave = 2.2 * std::sin(x * 1.1) + 0.7 * std::sin(3.7 * x);
        return Vec2d(x, wave + (x > 8 ? 0.5 * scatter.Next() : 0));
    });
    Picture picture(2, 340);
    DrawThinned(picture, "the line", line, line);
    Points turns;
    geom::ThinByAngularDeviation(line.data(), line.size(), 6 * kit::DEG_TO_RAD, turns);
    DrawThinned(picture, "turns above 6 degrees", line, turns);
    Points sharp;
    geom::ThinByAngularDeviation(line.data(), line.size(), 20 * kit::DEG_TO_RAD, sharp);
    DrawThinned(picture, "above 20 degrees", line, sharp);
    Points minimal;
    geom::ThinToMinimalDetail(line.data(), line.size(), minimal);
    DrawThinned(picture, "minimal detail", line, minimal);
    return picture;
}

Picture Primitives() {
    Picture picture(3, 250);
    const Box2d view(-6, -5, 6, 5);
    DrawMeeting(picture.Add("where lines meet, and a foot", view));
    DrawConstrained(picture.Add("constrained to eight directions", view));
    DrawCircumcircle(picture.Add("triangle and circumcircle", view));
    return picture;
}

} // namespace gallery
