// SPDX-License-Identifier: MIT
// 10,000 segments clipped to polygons of growing edge counts: with the index of LineClipPolygon,
// and walking all edges.
#include "geometry/GpcPolygon.h"
#include "geometry/LineClipPolygon.h"
#include "tests/reference/PlainLineClip.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

namespace geom {
namespace {

constexpr std::size_t SEGMENTS = 10000;

// A round coast with bays, whose outline stays the same as it is drawn with more edges.
std::vector<Vec2d> Coast(std::size_t edges) {
    std::vector<Vec2d> points;
    for (std::size_t i = 0; i < edges; ++i) {
        const double angle =
            6.283185307179586 * static_cast<double>(i) / static_cast<double>(edges);
        const double radius =
            80 + 12 * std::sin(5 * angle) + 5 * std::sin(17 * angle) + 2 * std::cos(61 * angle);
        points.emplace_back(radius * std::cos(angle), radius * std::sin(angle));
    }
    return points;
}

// A ring of random radii: every edge is long, and each runs back almost over the one before. A
// segment crosses the more edges the more there are, which is what its time grows with.
std::vector<Vec2d> Hedgehog(std::size_t edges) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> radius(79.0, 81.0);
    std::vector<Vec2d> points;
    for (std::size_t i = 0; i < edges; ++i) {
        const double angle =
            6.283185307179586 * static_cast<double>(i) / static_cast<double>(edges);
        const double r = radius(random);
        points.emplace_back(r * std::cos(angle), r * std::sin(angle));
    }
    return points;
}

// Short segments, as the dashes of a map are, and as many long ones, all over the polygon.
std::vector<LineSegment2> Segments(double length) {
    std::mt19937 random(42);
    std::uniform_real_distribution<double> place(-100.0, 100.0);
    std::uniform_real_distribution<double> turn(0.0, 6.283185307179586);
    std::vector<LineSegment2> segments;
    for (std::size_t i = 0; i < SEGMENTS; ++i) {
        const Vec2d from{place(random), place(random)};
        const double angle = turn(random);
        segments.emplace_back(from, from + Vec2d(std::cos(angle), std::sin(angle)) * length);
    }
    return segments;
}

using Shape = std::vector<Vec2d> (*)(std::size_t edges);

void Count(benchmark::State& state, std::size_t pieces) {
    state.counters["pieces"] = static_cast<double>(pieces);
    state.counters["per_segment"] = benchmark::Counter(
        static_cast<double>(SEGMENTS),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void ClipWithIndex(benchmark::State& state, Shape shape, double length) {
    const std::vector<Vec2d> ring = shape(static_cast<std::size_t>(state.range(0)));
    const LineClipPolygon clip(GpcPolygon(ring.data(), ring.size()));
    const std::vector<LineSegment2> segments = Segments(length);
    std::vector<LineSegment2> pieces;
    for (auto _ : state) {
        pieces.clear();
        for (const LineSegment2& segment : segments) {
            clip.Clip(segment, pieces);
        }
        benchmark::DoNotOptimize(pieces.data());
    }
    Count(state, pieces.size());
}

void ClipWalkingAllEdges(benchmark::State& state, Shape shape, double length) {
    std::vector<Vec2d> ring = shape(static_cast<std::size_t>(state.range(0)));
    ring.push_back(ring.front());
    const test::PlainLineClip clip(ring);
    const std::vector<LineSegment2> segments = Segments(length);
    std::size_t pieces = 0;
    for (auto _ : state) {
        pieces = 0;
        for (const LineSegment2& segment : segments) {
            pieces += clip.Clip({segment.A(), segment.B()}).size();
        }
        benchmark::DoNotOptimize(pieces);
    }
    Count(state, pieces);
}

void BuildPolygon(benchmark::State& state, Shape shape) {
    const std::vector<Vec2d> ring = shape(static_cast<std::size_t>(state.range(0)));
    const GpcPolygon polygon(ring.data(), ring.size());
    for (auto _ : state) {
        const LineClipPolygon clip(polygon);
        benchmark::DoNotOptimize(clip.GetNumContours());
    }
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(ClipWithIndex, coast_short, Coast, 2.0)->Apply(Sizes);
BENCHMARK_CAPTURE(ClipWithIndex, coast_long, Coast, 60.0)->Apply(Sizes);
BENCHMARK_CAPTURE(ClipWithIndex, hedgehog_short, Hedgehog, 2.0)->Apply(Sizes);
BENCHMARK_CAPTURE(ClipWalkingAllEdges, coast_short, Coast, 2.0)->Apply(Sizes);
BENCHMARK_CAPTURE(ClipWalkingAllEdges, coast_long, Coast, 60.0)->Apply(Sizes);
BENCHMARK_CAPTURE(BuildPolygon, coast, Coast)->Apply(Sizes);

} // namespace
} // namespace geom
