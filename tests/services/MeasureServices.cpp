// SPDX-License-Identifier: MIT
// Rings and simple figures: areas, perimeters, membership, clean-up, intersections.
#include "geometry/Circle.h"
#include "geometry/Geometry.h"
#include "geometry/Line2.h"
#include "geometry/LineSegment2.h"
#include "geometry/Polygon2.h"
#include "geometry/PolygonMeasures.h"
#include "geometry/Triangle.h"
#include "tests/services/Services.h"
#include "tests/services/Workload.h"

namespace geom::test {

namespace {

Polygon2 RingsOf(const Parts& parts) {
    Polygon2 polygon;
    polygon.Points() = parts.points;
    polygon.Counts() = parts.counts;
    return polygon;
}

void Areas(int rounds, Digest& results) {
    Random random(501);
    ForEachFamily(random, rounds, 60, [&](const Operands& operands) {
        const Parts parts = PartsOf(operands.subject);
        const Vec2d* points = parts.points.data();
        const unsigned int* counts = parts.counts.data();
        results.Add(PolygonArea(points, counts, parts.Size()));
        results.Add(PolygonPerimeter(points, counts, parts.Size()));
        results.Add(TriangulatedPolygonArea(points, counts, parts.Size()));
        for (const Vec2d& p : PartsOf(operands.clip).points) {
            results.Add(PointInPolygon(p, points, counts, parts.Size()));
        }
        const Box2d box(0.0, 0.0, 2.0, 3.0);
        results.Add(RectPolyIntersect(box, points, parts.counts.empty() ? 0 : parts.counts[0]));
    });
}

void DeviceMembership(int rounds, Digest& results) {
    Random random(502);
    for (int round = 0; round < rounds; ++round) {
        std::vector<tagPOINT> ring;
        while (ring.size() < 60) {
            ring.push_back(SomeDevicePoint(random, 30));
        }
        for (int i = 0; i < 100; ++i) {
            results.Add(PointInPolygon(SomeDevicePoint(random, 35), ring.data(), ring.size()));
        }
    }
}

void CleanUp(int rounds, Digest& results) {
    Random random(503);
    ForEachFamily(random, rounds, 40, [&](const Operands& operands) {
        Polygon2 polygon = RingsOf(PartsOf(operands.subject));
        results.AddOutcome([&] {
            polygon.RemoveDuplicatePoints();
            results.Add(polygon);
            polygon.RemoveDegenerateRings(4);
            polygon.Reverse();
            results.Add(polygon);
            results.Add(Perimeter(polygon));
            for (std::size_t ring = 0; ring < polygon.Counts().size(); ++ring) {
                results.Add(static_cast<int>(polygon.RingOrientation(ring)));
            }
        });
    });
}

void Segments(int rounds, Digest& results) {
    Random random(504);
    for (int i = 0; i < 500 * rounds; ++i) {
        const Vec2d a = SomePoint(random, -4.0, 4.0);
        const Vec2d b = SomePoint(random, -4.0, 4.0);
        const Vec2d c = SomePoint(random, -4.0, 4.0);
        const Vec2d d = SomePoint(random, -4.0, 4.0);
        const LineSegment2 s(a, b);
        const LineSegment2 t(c, d);
        const Box2d box = SomeBox(random, -4.0, 4.0);
        Vec2d meeting(0.0, 0.0);
        results.Add(Intersection(s, t, meeting));
        results.Add(meeting);
        results.Add(Intersects(s, t));
        results.Add(Intersects(s, box));
        results.Add(Contains(box, s));
        results.Add(s.Length());
        results.Add(s.Bisects(c, d));
        results.Add(s.ToTheLeft(c));
        results.Add(DistanceSquared(s, c));
        results.Add(RectInRect(box, {-3.0, -3.0, 3.0, 3.0}, random.OneIn(2)));
    }
}

void AddLine(const Line2& line, Digest& results) {
    results.Add(line.A());
    results.Add(line.B());
    results.Add(line.C());
}

void Lines(int rounds, Digest& results) {
    Random random(505);
    for (int i = 0; i < 200 * rounds; ++i) {
        const std::vector<Vec2d> p = SomePoints(random, 4, -5.0, 5.0);
        results.AddOutcome([&] {
            const Line2 first(p[0], p[1]);
            const Line2 second(p[2], p[3]);
            AddLine(first, results);
            Vec2d meeting(0.0, 0.0);
            results.Add(Intersection(first, second, meeting));
            results.Add(meeting);
            results.Add(Intersection(first, p[2], p[3], meeting));
            results.Add(meeting);
        });
    }
}

void AddCircle(const Circle& circle, Digest& results) {
    results.Add(circle.Center());
    results.Add(circle.Radius());
    results.Add(circle.Area());
    results.Add(circle.BoundingBox());
}

void Circles(int rounds, Digest& results) {
    Random random(506);
    for (int i = 0; i < 200 * rounds; ++i) {
        const std::vector<Vec2d> p = SomePoints(random, 3, -5.0, 5.0);
        const Circle plain(p[0], p[1], p[2]);
        const Circle exact(p[0], p[1], p[2], true);
        AddCircle(plain, results);
        AddCircle(exact, results);
        const Vec2d q = SomePoint(random, -5.0, 5.0);
        results.Add(exact.Contains(q));
        results.Add(Intersects(exact, LineSegment2(q, {0.0, 0.0})));
        results.Add(Intersects(exact, Circle(q, 1.5)));
        const Box2d box = SomeBox(random, -5.0, 5.0);
        results.Add(exact.Contains(box));
        results.Add(Intersects(exact, box));
    }
}

void Triangles(int rounds, Digest& results) {
    Random random(507);
    for (int i = 0; i < 200 * rounds; ++i) {
        const std::vector<Vec2d> p = SomePoints(random, 4, -5.0, 5.0);
        const Triangle triangle(p[0], p[1], p[2]);
        results.Add(triangle.IsEmpty());
        results.Add(triangle.CCW());
        results.Add(triangle.Area());
        results.Add(triangle.Contains(p[3]));
        results.Add(triangle.InCircumcircle(p[3]));
        results.Add(triangle.BoundingBox());
    }
}

// The lengths of these are the platform's hypotenuses.
void LinesFromCoefficients(int rounds, Digest& results) {
    Random random(508);
    for (int i = 0; i < 200 * rounds; ++i) {
        const double a = random.Between(-5.0, 5.0);
        const double b = random.Between(-5.0, 5.0);
        const double c = random.Between(-5.0, 5.0);
        AddLine(Line2(a, b, c), results);
        const Circle large({a, b}, 6.0);
        results.Add(large.Contains(Circle({b, c}, 1.0)));
    }
}

} // namespace

void AddMeasureServices(std::vector<Service>& services) {
    services.push_back({"areas and perimeters", Means::Arithmetic, Areas});
    services.push_back({"device points in polygons", Means::Arithmetic, DeviceMembership});
    services.push_back({"clean-up of rings", Means::Arithmetic, CleanUp});
    services.push_back({"segments", Means::Arithmetic, Segments});
    services.push_back({"lines through points", Means::Arithmetic, Lines});
    services.push_back({"circles", Means::Arithmetic, Circles});
    services.push_back({"triangles", Means::Arithmetic, Triangles});
    services.push_back({"lines from coefficients", Means::Platform, LinesFromCoefficients});
}

} // namespace geom::test
