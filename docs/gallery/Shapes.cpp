// SPDX-License-Identifier: MIT
#include "Shapes.h"

#include <cmath>

namespace gallery {

namespace {

Vec2d AtAngle(const Vec2d& centre, double radius, double angle) {
    return centre + Vec2d(std::cos(angle), std::sin(angle)) * radius;
}

} // namespace

Points Sampled(std::size_t n, double from, double to, const std::function<Vec2d(double)>& at) {
    Points points;
    for (std::size_t i = 0; i < n; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(n - 1);
        points.push_back(at(from + (to - from) * part));
    }
    return points;
}

Points Regular(std::size_t n, const Vec2d& centre, double radius, double turn) {
    Points ring;
    for (std::size_t i = 0; i < n; ++i) {
        const double angle = kit::TWO_PI * static_cast<double>(i) / static_cast<double>(n);
        ring.push_back(AtAngle(centre, radius, turn + angle));
    }
    return ring;
}

Points Star(std::size_t spikes, const Vec2d& centre, double outer, double inner) {
    Points ring;
    for (std::size_t i = 0; i < 2 * spikes; ++i) {
        const double angle = kit::PI * static_cast<double>(i) / static_cast<double>(spikes);
        ring.push_back(AtAngle(centre, i % 2 == 0 ? outer : inner, kit::HALF_PI + angle));
    }
    return ring;
}

Points Pentagram(const Vec2d& centre, double radius, std::size_t n) {
    Points ring;
    for (std::size_t i = 0; i < n; ++i) {
        const double part = static_cast<double>(2 * i) / static_cast<double>(n);
        ring.push_back(AtAngle(centre, radius, kit::HALF_PI + kit::TWO_PI * part));
    }
    return ring;
}

Points Island(const Vec2d& centre, double radius, std::size_t n) {
    Points ring = Regular(n, {0, 0}, 1);
    for (Vec2d& p : ring) {
        const double angle = std::atan2(p.y, p.x);
        const double bulge = 1 + 0.22 * std::sin(3 * angle + 0.4) + 0.1 * std::cos(5 * angle);
        p = centre + p * (radius * bulge / 1.3);
    }
    return ring;
}

Points Comb() {
    return {{0, 0}, {10, 0}, {10, 5}, {8, 5}, {8, 1}, {6, 1},
            {6, 5}, {4, 5},  {4, 1},  {2, 1}, {2, 5}, {0, 5}};
}

Points BoxRing(double left, double bottom, double right, double top) {
    return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

Points Reversed(const Points& ring) {
    return {ring.rbegin(), ring.rend()};
}

geom::Polygon2 PolygonOf(const std::vector<Points>& rings) {
    geom::Polygon2 polygon;
    for (const Points& ring : rings) {
        polygon.Points().insert(polygon.Points().end(), ring.begin(), ring.end());
        polygon.Counts().push_back(static_cast<unsigned int>(ring.size()));
    }
    return polygon;
}

geom::GpcPolygon GpcPolygonOf(const std::vector<Points>& rings) {
    const geom::Polygon2 polygon = PolygonOf(rings);
    return {polygon.Points().data(), polygon.Counts().data(), polygon.Counts().size()};
}

double Scatter::Next() {
    m_state = m_state * 1664525U + 1013904223U;
    return static_cast<double>(m_state >> 8U) / 16777216.0;
}

Vec2d Scatter::NextIn(const Box2d& box) {
    const double x = box.minX + (box.maxX - box.minX) * Next();
    return {x, box.minY + (box.maxY - box.minY) * Next()};
}

} // namespace gallery
