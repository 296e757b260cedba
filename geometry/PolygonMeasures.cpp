// SPDX-License-Identifier: MIT
#include "geometry/PolygonMeasures.h"

#include "geometry/Geometry.h"
#include "geometry/GpcPolygon.h"
#include "geometry/Polygon2.h"
#include "geometry/detail/Rings.h"

#include <cmath>

namespace geom {

namespace {

// The sum of a measure of one ring over several.
template <typename Measure>
double SumOverRings(const Vec2d* pts, const unsigned int* counts, std::size_t nRings,
                    std::size_t available, Measure measure) {
    double sum = 0.0;
    if (pts != nullptr && counts != nullptr) {
        detail::ForEachRing(pts, counts, nRings, available,
                            [&](const Vec2d* ring, std::size_t n) { sum += measure(ring, n); });
    }
    return sum;
}

template <typename Measure>
double SumOverRings(const Polygon2& poly, Measure measure) {
    return SumOverRings(poly.Points().data(), poly.Counts().data(), poly.Counts().size(),
                        poly.Points().size(), measure);
}

double RingPerimeter(const Vec2d* pts, std::size_t n) {
    if (pts == nullptr || n < 2) {
        return 0.0;
    }
    const double open = PolylineLength(pts, n);
    if (pts[n - 1] == pts[0]) {
        return open;
    }
    const Vec2d closing[] = {pts[n - 1], pts[0]};
    return open + PolylineLength(closing, 2);
}

// Trapezoids between each edge and the horizontal through the last vertex.
double RingArea(const Vec2d* pts, std::size_t n) {
    if (pts == nullptr || n < 3) {
        return 0.0;
    }
    const double level = pts[n - 1].y;
    double previousX = pts[n - 1].x;
    double previousY = level - level;
    double sum = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        const double y = pts[i].y - level;
        sum += (previousX - pts[i].x) * (y + previousY);
        previousX = pts[i].x;
        previousY = y;
    }
    return sum * 0.5;
}

bool AddStripArea(const Vec2d* pts, unsigned int n, void* total) {
    double& area = *static_cast<double*>(total);
    for (std::size_t k = 2; k < n; ++k) {
        const Vec2d& a = pts[k - 2];
        const Vec2d& b = pts[k - 1];
        const Vec2d& c = pts[k];
        area += 0.5 * std::fabs((c.x - b.x) * a.y + (b.x - a.x) * c.y + (a.x - c.x) * b.y);
    }
    return true;
}

double AreaOfStrips(const GpcPolygon& polygon) {
    double area = 0.0;
    polygon.Decompose(AddStripArea, &area);
    return area;
}

} // namespace

double PolygonPerimeter(const Vec2d* pts, std::size_t n) {
    return RingPerimeter(pts, n);
}

double PolygonPerimeter(const Vec2d* pts, const unsigned int* counts, std::size_t nRings) {
    return SumOverRings(pts, counts, nRings, detail::AS_COUNTED, RingPerimeter);
}

double Perimeter(const Polygon2& poly) {
    return SumOverRings(poly, RingPerimeter);
}

double PolygonArea(const Vec2d* pts, std::size_t n) {
    return RingArea(pts, n);
}

double PolygonArea(const Vec2d* pts, const unsigned int* counts, std::size_t nRings) {
    return SumOverRings(pts, counts, nRings, detail::AS_COUNTED, RingArea);
}

double PolygonArea(const Polygon2& poly) {
    return SumOverRings(poly, RingArea);
}

double TriangulatedPolygonArea(const Vec2d* pts, std::size_t n) {
    if (pts == nullptr || n == 0) {
        return 0.0;
    }
    return AreaOfStrips(GpcPolygon(pts, n));
}

double TriangulatedPolygonArea(const Vec2d* pts, const unsigned int* counts, std::size_t nRings) {
    if (pts == nullptr || counts == nullptr || nRings == 0) {
        return 0.0;
    }
    return AreaOfStrips(GpcPolygon(pts, counts, nRings));
}

} // namespace geom
