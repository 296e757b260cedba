// SPDX-License-Identifier: MIT
// GpcPolygon and the calls of ClipUtil on polygons.
#include "geometry/ClipUtil.h"
#include "geometry/GpcPolygon.h"
#include "geometry/TriStrip.h"
#include "tests/services/Services.h"
#include "tests/services/Workload.h"

namespace geom::test {

namespace {

constexpr int SIZE = 30;

void AddFlattened(const GpcPolygon& polygon, bool close, Digest& results) {
    std::vector<Vec2d> points;
    std::vector<tagPOINT> devicePoints;
    std::vector<unsigned int> counts;
    polygon.GetPolyPolygon(points, counts, close);
    results.Add(points);
    results.Add(counts);
    polygon.GetPolyPolygon(devicePoints, counts, close);
    results.Add(devicePoints);
    polygon.GetPolygon(points);
    results.Add(points);
    polygon.GetPolygon(devicePoints);
    results.Add(devicePoints);
}

void Flattening(int rounds, Digest& results) {
    Random random(201);
    ForEachFamily(random, rounds, SIZE, [&](const Operands& operands) {
        const GpcPolygon polygon = PolygonFrom(operands.subject);
        AddFlattened(polygon, true, results);
        AddFlattened(polygon, false, results);
        results.Add(polygon.GetBBox());
        results.Add(polygon.GetTotalVertexCount());
    });
}

void AddPolygon(const GpcPolygon& polygon, Digest& results) {
    results.Add(static_cast<const gpc_polygon&>(polygon));
    results.Add(polygon.GetBBox());
}

void InPlace(int rounds, Digest& results) {
    using Operation = void (GpcPolygon::*)(const GpcPolygon&);
    constexpr Operation OPERATIONS[] = {&GpcPolygon::Intersection, &GpcPolygon::Union,
                                        &GpcPolygon::Difference, &GpcPolygon::XOR};
    Random random(202);
    ForEachFamily(random, rounds, SIZE, [&](const Operands& operands) {
        const GpcPolygon subject = PolygonFrom(operands.subject);
        const GpcPolygon clip = PolygonFrom(operands.clip);
        for (const Operation operation : OPERATIONS) {
            GpcPolygon result = subject;
            results.AddOutcome([&] { (result.*operation)(clip); });
            AddPolygon(result, results);
        }
        GpcPolygon joined = subject;
        joined.AddContours(clip);
        results.AddOutcome([&] { joined.RemoveZeroWidthReturnPaths(); });
        AddPolygon(joined, results);
    });
}

void Decomposition(int rounds, Digest& results) {
    Random random(203);
    ForEachFamily(random, rounds, SIZE, [&](const Operands& operands) {
        const GpcPolygon polygon = PolygonFrom(operands.subject);
        std::vector<std::vector<Vec2d>> outlines;
        results.AddOutcome([&] { polygon.Decompose(outlines); });
        for (std::vector<Vec2d>& outline : outlines) {
            results.Add(outline);
            TriStripToCCWPolygon(outline.data(), outline.size(), outline.data());
            results.Add(outline);
        }
    });
}

void Membership(int rounds, Digest& results) {
    Random random(204);
    for (int round = 0; round < 4 * rounds; ++round) {
        const GpcPolygon polygon = PolygonFrom(Stars(random, SIZE).subject);
        const Box2d box = polygon.GetBBox();
        for (int i = 0; i < 20; ++i) {
            const double x = random.Between(box.minX, box.maxX);
            const double y = random.Between(box.minY, box.maxY);
            results.Add(polygon.PointInside({x, y}));
        }
        results.Add(polygon.IsRectangle(nullptr));
    }
}

void AddParts(const Parts& parts, Digest& results) {
    results.Add(parts.points);
    results.Add(parts.counts);
}

// The area that both boxes cover in part, so that a rectangle cuts the polygon.
Box2d BoxAcross(const GpcPolygon& polygon) {
    const Box2d& box = polygon.GetBBox();
    const Vec2d middle = box.Center();
    return {box.minX, box.minY, middle.x, middle.y};
}

void ClippedToPolygons(int rounds, Digest& results) {
    Random random(205);
    ForEachFamily(random, rounds, SIZE, [&](const Operands& operands) {
        const GpcPolygon subject = PolygonFrom(operands.subject);
        const GpcPolygon clip = PolygonFrom(operands.clip);
        const Parts input = PartsOf(operands.subject);
        Parts parts;
        GpcPolygon result;
        results.AddOutcome([&] { ClipGPolygonToGPolygon(subject, clip, result); });
        AddPolygon(result, results);
        results.AddOutcome(
            [&] { ClipGPolygonToGPolygon(subject, clip, parts.points, parts.counts, true); });
        AddParts(parts, results);
        results.AddOutcome([&] {
            ClipPolyPolygonToGPolygon(input.points.data(), input.counts.data(), input.Size(), clip,
                                      parts.points, parts.counts, false);
        });
        AddParts(parts, results);
        results.AddOutcome([&] { results.Add(PolygonContains(clip, subject)); });
    });
}

void ClippedToRectangles(int rounds, Digest& results) {
    Random random(206);
    ForEachFamily(random, rounds, SIZE, [&](const Operands& operands) {
        const GpcPolygon subject = PolygonFrom(operands.subject);
        const Parts input = PartsOf(operands.subject);
        const Box2d box = BoxAcross(subject);
        Parts parts;
        GpcPolygon result;
        results.AddOutcome([&] { ClipGPolygonToRect(subject, box, result); });
        AddPolygon(result, results);
        results.AddOutcome(
            [&] { ClipGPolygonToRect(subject, box, parts.points, parts.counts, false); });
        AddParts(parts, results);
        results.AddOutcome([&] {
            ClipPolyPolygonToRect(input.points.data(), input.counts.data(), input.Size(), box,
                                  parts.points, parts.counts, true);
        });
        AddParts(parts, results);
    });
}

} // namespace

void AddPolygonServices(std::vector<Service>& services) {
    services.push_back({"polygons as points", Means::Arithmetic, Flattening});
    services.push_back({"polygon operations in place", Means::Arithmetic, InPlace});
    services.push_back({"polygons as strips", Means::Arithmetic, Decomposition});
    services.push_back({"points in polygons", Means::Arithmetic, Membership});
    services.push_back({"polygons clipped to polygons", Means::Arithmetic, ClippedToPolygons});
    services.push_back({"polygons clipped to rectangles", Means::Arithmetic, ClippedToRectangles});
}

} // namespace geom::test
