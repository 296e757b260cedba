// SPDX-License-Identifier: MIT
// Lines and rings clipped to rectangles, and lines clipped to polygons, solid and dashed.
#include "geometry/CLineClip.h"
#include "geometry/CPolyClip.h"
#include "geometry/ClipUtil.h"
#include "geometry/DashLineGenerator.h"
#include "geometry/LineClipPolygon.h"
#include "tests/services/Services.h"
#include "tests/services/Workload.h"

namespace geom::test {

namespace {

void SegmentsToRectangles(int rounds, Digest& results) {
    Random random(301);
    for (int round = 0; round < rounds; ++round) {
        const CLineClip clip(SomeBox(random, -4.0, 4.0));
        for (int i = 0; i < 500; ++i) {
            Vec2d a = SomePoint(random, -10.0, 10.0);
            Vec2d b = SomePoint(random, -10.0, 10.0);
            if (clip.ClipLine(a, b)) {
                results.Add(a);
                results.Add(b);
            }
        }
    }
}

void PolylinesToRectangles(int rounds, Digest& results) {
    Random random(302);
    for (int round = 0; round < rounds; ++round) {
        const Box2d box = SomeBox(random, -4.0, 4.0);
        const std::vector<Vec2d> line = Walk(random, 800, {0.0, 0.0});
        Parts parts;
        CLineClip(box).ClipPolyline(line.data(), line.size(), parts.points, parts.counts);
        results.Add(parts.points);
        results.Add(parts.counts);
        CLineClip(box).ClipPolyline(
            line.data(), line.size(),
            [&](const Vec2d* points, std::size_t n) { results.AddAll(points, n); });
        const unsigned int counts[] = {300, 500};
        ClipPolylinesToRect(line.data(), counts, 2, box, parts.points, parts.counts);
        results.Add(parts.points);
        results.Add(parts.counts);
    }
}

void RingsToRectangles(int rounds, Digest& results) {
    Random random(303);
    for (int round = 0; round < 5 * rounds; ++round) {
        CPolyClip clip(SomeBox(random, -4.0, 4.0));
        const std::vector<Vec2d> ring = Star(random, 100, 2.0, 8.0);
        CPodVector<Vec2d, 32> out;
        results.Add(clip.Clip(ring.data(), ring.size(), out));
        results.AddAll(out.Data(), out.Count());
    }
}

void LinesToPolygons(int rounds, Digest& results) {
    Random random(304);
    ForEachFamily(random, rounds, 30, [&](const Operands& operands) {
        const Parts rings = PartsOf(operands.subject);
        const Parts lines = PartsOf(operands.clip);
        const LineClipPolygon clip(rings.points.data(), rings.counts.data(), rings.Size());
        std::vector<LineSegment2> pieces;
        clip.Clip(lines.points.data(), lines.points.size(), pieces);
        results.Add(pieces);
        Parts parts;
        ClipPolylinesToPolygon(lines.points.data(), lines.counts.data(), lines.Size(), clip,
                               parts.points, parts.counts);
        results.Add(parts.points);
        results.Add(parts.counts);
        const LineClipPolygon copy = clip;
        results.Add(copy.GetBBox());
        results.Add(copy.GetTotalVertexCount());
        for (std::size_t i = 0; i < lines.points.size(); ++i) {
            results.Add(copy.PointInside(lines.points[i]));
        }
    });
}

void LinesToLargePolygons(int rounds, Digest& results) {
    Random random(305);
    for (int round = 0; round < rounds; ++round) {
        const GpcPolygon polygon = PolygonFrom(Stars(random, 2000).subject);
        const Box2d box = polygon.GetBBox();
        const std::vector<Vec2d> line = SomePoints(random, 300, box.minX, box.maxX);
        const unsigned int counts[] = {300};
        Parts parts;
        ClipPolylinesToPolygon(line.data(), counts, 1, polygon, parts.points, parts.counts);
        results.Add(parts.points);
        results.Add(parts.counts);
    }
}

void DashesInPolygons(int rounds, Digest& results) {
    Random random(306);
    for (int round = 0; round < rounds; ++round) {
        const GpcPolygon polygon = PolygonFrom(Stars(random, 200).subject);
        const Box2d box = polygon.GetBBox();
        const double lengths[] = {random.Between(0.1, 1.0), 0.3, 0.2};
        DashLineGenerator dashes(lengths, 3);
        const std::vector<Vec2d> line = SomePoints(random, 30, box.minX, box.maxX);
        const unsigned int counts[] = {10, 20};
        Parts parts;
        ClipDashedPolylinesToPolygon(line.data(), counts, 2, dashes, polygon, parts.points,
                                     parts.counts);
        results.Add(parts.points);
        results.Add(parts.counts);
    }
}

} // namespace

void AddClippingServices(std::vector<Service>& services) {
    services.push_back({"segments clipped to rectangles", Means::Arithmetic, SegmentsToRectangles});
    services.push_back({"lines clipped to rectangles", Means::Arithmetic, PolylinesToRectangles});
    services.push_back({"rings clipped to rectangles", Means::Arithmetic, RingsToRectangles});
    services.push_back({"lines clipped to polygons", Means::Arithmetic, LinesToPolygons});
    services.push_back(
        {"lines clipped to large polygons", Means::Arithmetic, LinesToLargePolygons});
    services.push_back({"dashes clipped to polygons", Means::Arithmetic, DashesInPolygons});
}

} // namespace geom::test
