// SPDX-License-Identifier: MIT
// A polyline of a million vertices dashed: to a callback, which takes no memory, and to a vector.
#include "geometry/DashLineGenerator.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace geom {
namespace {

constexpr std::size_t VERTICES = 1000000;

// Winding, with segments of about length 1.
std::vector<Vec2d> Line() {
    std::vector<Vec2d> points;
    points.reserve(VERTICES);
    Vec2d at(0, 0);
    for (std::size_t i = 0; i < VERTICES; ++i) {
        points.push_back(at);
        const double angle = std::sin(static_cast<double>(i) * 0.01) * 3;
        at += Vec2d(std::cos(angle), std::sin(angle));
    }
    return points;
}

// The length of a dash and of a gap, as seen from segments of length 1.
void Count(benchmark::State& state, std::size_t pieces) {
    state.counters["pieces"] = static_cast<double>(pieces);
    state.counters["per_vertex"] = benchmark::Counter(
        static_cast<double>(VERTICES),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

double Length(const benchmark::State& state) {
    return static_cast<double>(state.range(0)) / 10;
}

void DashToCallback(benchmark::State& state) {
    const std::vector<Vec2d> points = Line();
    const double dashes[] = {Length(state), Length(state)};
    DashLineGenerator generator(dashes, 2);
    std::size_t pieces = 0;
    for (auto _ : state) {
        pieces = 0;
        generator.Decompose(
            points.data(), points.size(),
            [](const Vec2d&, const Vec2d&, void* count) { ++*static_cast<std::size_t*>(count); },
            &pieces);
    }
    Count(state, pieces);
}

void DashToVector(benchmark::State& state) {
    const std::vector<Vec2d> points = Line();
    const double dashes[] = {Length(state), Length(state)};
    DashLineGenerator generator(dashes, 2);
    std::vector<LineSegment2> pieces;
    for (auto _ : state) {
        pieces.clear();
        generator.Decompose(points.data(), points.size(), pieces);
        benchmark::DoNotOptimize(pieces.data());
    }
    Count(state, pieces.size());
}

// Tenths of a segment's length: five dashes to a segment, one dash to two and a half segments,
// one dash to a hundred segments.
void Lengths(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("tenths")->Arg(1)->Arg(25)->Arg(1000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(DashToCallback)->Apply(Lengths);
BENCHMARK(DashToVector)->Apply(Lengths);

} // namespace
} // namespace geom
