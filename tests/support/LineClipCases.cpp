// SPDX-License-Identifier: MIT
#include "LineClipCases.h"

#include <cmath>
#include <iterator>
#include <limits>

namespace geom::test {

LineClipCases::LineClipCases(unsigned int seed) : m_random(seed) {}

int LineClipCases::Integer(int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(m_random);
}

double LineClipCases::Real(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(m_random);
}

bool LineClipCases::Chance(int oneIn) {
    return Integer(1, oneIn) == 1;
}

void LineClipCases::AddRing(LineClipCase& made, const std::vector<Vec2d>& ring) {
    made.points.insert(made.points.end(), ring.begin(), ring.end());
    made.counts.push_back(static_cast<unsigned int>(ring.size()));
}

// Braces, here and below, keep the order of the draws the same on every compiler.

// Rings that cross themselves and each other, with vertices on edges and edges on edges.
void LineClipCases::Grid(LineClipCase& made) {
    const int size = Integer(3, 12);
    for (int rings = Integer(1, 3); rings > 0; --rings) {
        std::vector<Vec2d> ring;
        for (int n = Integer(3, 60); n > 0; --n) {
            ring.push_back(Vec2d{1.0 * Integer(0, size), 1.0 * Integer(0, size)});
        }
        AddRing(made, ring);
    }
}

// A comb, or a walk of horizontal and vertical steps; collinear runs and retraced edges.
void LineClipCases::Rectilinear(LineClipCase& made) {
    std::vector<Vec2d> ring;
    if (Chance(2)) {
        const int teeth = Integer(5, 40);
        const double height = Integer(1, 3);
        for (int i = 0; i < teeth; ++i) {
            const double top = Chance(4) ? height + 1 : height;
            ring.emplace_back(2 * i, 0);
            ring.emplace_back(2 * i, top);
            ring.emplace_back(2 * i + 1, top);
            ring.emplace_back(2 * i + 1, 0);
        }
        ring.emplace_back(2 * teeth, 0);
        ring.emplace_back(2 * teeth, -2);
        ring.emplace_back(0, -2);
    } else {
        Vec2d at{1.0 * Integer(0, 6), 1.0 * Integer(0, 6)};
        for (int n = Integer(10, 80); n > 0; --n) {
            ring.push_back(at);
            (n % 2 == 0 ? at.x : at.y) = Integer(0, 6);
        }
        ring.emplace_back(ring[0].x, at.y);
    }
    AddRing(made, ring);
}

// Teeth whose feet stand on one slanted line, up to rounding.
void LineClipCases::Zigzag(LineClipCase& made) {
    const double angle = Chance(3) ? std::atan2(Integer(1, 9), 5) : Real(0.0, 3.2);
    const Vec2d along(std::cos(angle), std::sin(angle));
    const Vec2d across(-along.y, along.x);
    const double step = Chance(2) ? Integer(1, 3) : Real(0.01, 3.0);
    const double height = Real(0.1, 5.0);
    const Vec2d origin{Real(-2.0, 2.0), Real(-2.0, 2.0)};
    const int teeth = Integer(5, 40);
    std::vector<Vec2d> ring;
    for (int i = 0; i < teeth; ++i) {
        const double from = 3 * i * step;
        const double foot = Chance(8) ? 0x1p-30 : 0.0;
        ring.push_back(origin + along * from);
        ring.push_back(origin + along * (from + step) + across * foot);
        ring.push_back(origin + along * (from + 1.5 * step) + across * height);
    }
    ring.push_back(origin + along * (3 * teeth * step) - across * height);
    ring.push_back(origin - across * height);
    Nudge(ring, 6);
    AddRing(made, ring);
}

void LineClipCases::Star(LineClipCase& made) {
    const int n = Integer(10, 120);
    std::vector<Vec2d> ring;
    for (int i = 0; i < n; ++i) {
        const double angle = 6.283185307179586 * i / n;
        const double radius = Real(0.1, 10.0);
        ring.emplace_back(radius * std::cos(angle), radius * std::sin(angle));
    }
    AddRing(made, ring);
}

void LineClipCases::Islands(LineClipCase& made) {
    for (int count = Integer(3, 25); count > 0; --count) {
        const double x = Integer(0, 10);
        const double y = Integer(0, 10);
        const double w = Integer(1, 4);
        const double h = Integer(1, 4);
        if (Chance(2)) {
            AddRing(made, {{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}});
        } else {
            AddRing(made, {{x, y}, {x + w, y}, {x + w / 2, y + h}});
        }
    }
}

// Points a few units in the last place off.
void LineClipCases::Nudge(std::vector<Vec2d>& points, int oneIn) {
    for (Vec2d& point : points) {
        double& coordinate = Chance(2) ? point.x : point.y;
        for (int steps = Chance(oneIn) ? Integer(1, 3) : 0; steps > 0; --steps) {
            coordinate = std::nextafter(coordinate, Chance(2) ? 1e30 : -1e30);
        }
    }
}

void LineClipCases::Spoil(std::vector<Vec2d>& points, int oneIn) {
    const double specials[] = {std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::max(),
                               -std::numeric_limits<double>::max(),
                               1e200,
                               -1e154,
                               1e-200,
                               5e-324,
                               -0.0};
    for (Vec2d& point : points) {
        if (Chance(oneIn)) {
            (Chance(2) ? point.x : point.y) =
                specials[static_cast<std::size_t>(Integer(0, std::size(specials) - 1))];
        }
    }
}

// A vertex, a point on an edge or on its line, or any point about the polygon.
Vec2d LineClipCases::SomePoint(const LineClipCase& made, const Box2d& box) {
    const auto vertex = [&] {
        return made
            .points[static_cast<std::size_t>(Integer(0, static_cast<int>(made.points.size()) - 1))];
    };
    const int choice = Integer(0, 5);
    if (choice == 0) {
        return vertex();
    }
    if (choice <= 2) {
        const std::size_t i =
            static_cast<std::size_t>(Integer(0, static_cast<int>(made.points.size()) - 1));
        const Vec2d a = made.points[i];
        const Vec2d b = made.points[(i + 1) % made.points.size()];
        return a + (b - a) * (choice == 1 ? Real(0.0, 1.0) : Integer(-4, 5) / 2.0);
    }
    if (choice == 3) {
        return {vertex().x, vertex().y};
    }
    const Vec2d any{Real(box.minX - 1.0, box.maxX + 1.0), Real(box.minY - 1.0, box.maxY + 1.0)};
    return choice == 4 ? any : Vec2d(std::round(any.x), std::round(any.y));
}

void LineClipCases::AddSegment(LineClipCase& made, const Box2d& box) {
    Vec2d p = SomePoint(made, box);
    Vec2d q = SomePoint(made, box);
    if (Chance(3)) {
        // Along an edge or its line, somewhere.
        const std::size_t i =
            static_cast<std::size_t>(Integer(0, static_cast<int>(made.points.size()) - 1));
        const Vec2d a = made.points[i];
        const Vec2d d = made.points[(i + 1) % made.points.size()] - a;
        p = a + d * (Chance(2) ? Integer(-6, 6) / 2.0 : Real(-20.0, 20.0));
        q = p + d * (Chance(2) ? Integer(-6, 6) / 2.0 : Real(-3.0, 3.0));
    } else if (Chance(6)) {
        (Chance(2) ? q.x : q.y) = Chance(2) ? p.x : p.y;
    }
    made.ends.push_back(p);
    made.ends.push_back(q);
}

// Turns, scales and shifts the whole case.
void LineClipCases::Move(LineClipCase& made) {
    const double offsets[] = {0, 0, 1, 1e3, 1e6, 1e9, 1e12, 1e15};
    const double scales[] = {1, 1, 1, 0.1, 3, 1e-3, 1e6, 1e-12, 1e60, 1e-60, 1e-95};
    const double offset = offsets[static_cast<std::size_t>(Integer(0, std::size(offsets) - 1))];
    const double scale = scales[static_cast<std::size_t>(Integer(0, std::size(scales) - 1))];
    const double angle = Chance(3) ? Real(0.0, 6.3) : 0.0;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    for (std::vector<Vec2d>* points : {&made.points, &made.ends}) {
        for (Vec2d& p : *points) {
            p = {scale * (c * p.x - s * p.y + offset), scale * (s * p.x + c * p.y - offset)};
        }
    }
}

LineClipCase LineClipCases::Next(std::size_t segments) {
    using Maker = void (LineClipCases::*)(LineClipCase&);
    static constexpr struct {
        const char* kind;
        Maker make;
    } KINDS[] = {{"grid", &LineClipCases::Grid},       {"rectilinear", &LineClipCases::Rectilinear},
                 {"zigzag", &LineClipCases::Zigzag},   {"star", &LineClipCases::Star},
                 {"islands", &LineClipCases::Islands}, {"zigzag", &LineClipCases::Zigzag}};
    const auto& kind = KINDS[m_turn++ % std::size(KINDS)];
    LineClipCase made;
    made.kind = kind.kind;
    (this->*kind.make)(made);
    Box2d box;
    for (const Vec2d& point : made.points) {
        box.ExtendBy(point);
    }
    for (std::size_t i = 0; i < segments; ++i) {
        AddSegment(made, box);
    }
    if (Chance(2)) {
        Move(made);
    }
    if (Chance(4)) {
        Nudge(made.ends, 2);
    }
    if (Chance(20)) {
        made.kind = "spoiled";
        Spoil(made.points, 15);
    }
    if (Chance(20)) {
        Spoil(made.ends, 3);
    }
    return made;
}

} // namespace geom::test
