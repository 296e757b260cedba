// SPDX-License-Identifier: MIT
#include "geometry/detail/OffsetRings.h"

#include "geometry/Curves.h"
#include "geometry/Errors.h"
#include "geometry/detail/Rings.h"

#include <cmath>
#include <limits>

namespace geom::detail {

namespace {

constexpr const wchar_t* UNIT = L"OffsetPolygon";
constexpr int LINE_RING_TOO_LONG = 74;

constexpr double ARC_STEP = 10 * kit::DEG_TO_RAD;

Vec2d RightNormal(const Vec2d& edge) {
    return {edge.y, -edge.x};
}

double DirectionOf(const Vec2d& v) {
    return std::atan2(v.y, v.x);
}

// An arc about the corner from the end of the moved incoming edge to the start of the moved
// outgoing one: counter-clockwise when the ring grows, clockwise when it shrinks.
void AddRoundJoin(const Vec2d& corner, Vec2d incoming, Vec2d outgoing, double distance,
                  std::vector<Vec2d>& points) {
    if (distance < 0.0) {
        incoming = -incoming;
        outgoing = -outgoing;
    }
    double startAngle = DirectionOf(incoming);
    double endAngle = DirectionOf(outgoing);
    if (distance >= 0.0 && startAngle > endAngle) {
        endAngle += kit::TWO_PI;
    } else if (distance < 0.0 && endAngle > startAngle) {
        startAngle += kit::TWO_PI;
    }
    CircularArc(corner, std::fabs(distance), startAngle, endAngle - startAngle, points, ARC_STEP);
}

// A corner between an edge that is no point and another. The moved edges part where the corner
// turns away from the side to which they move.
void AddCorner(const Vec2d& previous, const Vec2d& corner, const Vec2d& next, double distance,
               std::vector<Vec2d>& points) {
    const Vec2d e1 = corner - previous;
    const Vec2d e2 = next - corner;
    Vec2d w1 = RightNormal(e1);
    Vec2d w2 = RightNormal(e2);
    if (!w1.Normalize() || !w2.Normalize()) {
        return;
    }
    const double cross = e1.x * e2.y - e1.y * e2.x;
    if ((cross >= 0.0) == (distance >= 0.0)) {
        AddRoundJoin(corner, w1, w2, distance, points);
    } else {
        points.insert(points.end(), {corner + w1 * distance, corner, corner + w2 * distance});
    }
}

void AddRing(const Vec2d* ring, std::size_t n, double distance, Polygon2Data& output) {
    if (n < 3) {
        return;
    }
    const std::size_t before = output.points.size();
    for (std::size_t i = 0; i < n; ++i) {
        AddCorner(ring[i], ring[(i + 1) % n], ring[(i + 2) % n], distance, output.points);
    }
    const std::size_t added = output.points.size() - before;
    if (added > std::numeric_limits<unsigned int>::max()) {
        ThrowInternalError(UNIT, LINE_RING_TOO_LONG);
    }
    if (added > 0) {
        output.counts.push_back(static_cast<unsigned int>(added));
    }
}

} // namespace

void OffsetRings(Polygon2& polygon, double distance) {
    Polygon2Data output;
    ForEachRing(polygon.Points().data(), polygon.Counts().data(), polygon.Counts().size(),
                polygon.Points().size(),
                [&](const Vec2d* ring, std::size_t n) { AddRing(ring, n, distance, output); });
    polygon.Take(output);
}

} // namespace geom::detail
