// SPDX-License-Identifier: MIT
// Rings rid of their self-intersections, and offset.
#include "geometry/OffsetPolygon.h"
#include "geometry/RemoveSelfIntersections.h"
#include "tests/services/Services.h"
#include "tests/services/Workload.h"

namespace geom::test {

namespace {

constexpr unsigned int FIRST_RULE = 100130; // of five: odd, nonzero, positive, negative, twice

Polygon2 RingsOf(const Rings& rings) {
    const Parts parts = PartsOf(rings);
    Polygon2 polygon;
    polygon.Points() = parts.points;
    polygon.Counts() = parts.counts;
    return polygon;
}

void SelfIntersections(int rounds, Digest& results) {
    Random random(701);
    for (int round = 0; round < rounds; ++round) {
        for (const MakeOperands make : {SmallGrid, SelfIntersecting, Stars, NestedHoles}) {
            const Polygon2 polygon = RingsOf(make(random, 40).subject);
            for (unsigned int rule = 0; rule < 5; ++rule) {
                Polygon2 cleaned;
                results.AddOutcome([&] {
                    RemoveSelfIntersections(polygon, cleaned, FIRST_RULE + rule,
                                            RSI_NORMAL_POSITIVE_Z);
                });
                results.Add(cleaned);
            }
        }
    }
}

void Offsets(int rounds, Digest& results) {
    Random random(702);
    for (int round = 0; round < rounds; ++round) {
        for (const MakeOperands make : {Stars, NestedHoles, Squares}) {
            const Polygon2 polygon = RingsOf(make(random, 40).subject);
            for (const double distance : {0.25, -0.125}) {
                Polygon2 moved;
                results.AddOutcome([&] { OffsetPolygon(polygon, distance, moved); });
                results.Add(moved);
            }
        }
    }
}

} // namespace

void AddTessellatorServices(std::vector<Service>& services) {
    services.push_back({"self-intersections", Means::Tessellator, SelfIntersections});
    services.push_back({"offsets", Means::Tessellator, Offsets});
}

} // namespace geom::test
