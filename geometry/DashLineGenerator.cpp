// SPDX-License-Identifier: MIT
#include "geometry/DashLineGenerator.h"

#include "geometry/Polyline.h"
#include "geometry/detail/DashPattern.h"
#include "geometry/detail/DashWalk.h"
#include "geometry/detail/Overlap.h"

#include <limits>

namespace geom {

namespace {

constexpr detail::PatternErrorLines ERROR_LINES = {194, 221};

constexpr double NOWHERE = std::numeric_limits<double>::max();

void AppendPiece(const Vec2d& first, const Vec2d& second, void* pieces) {
    static_cast<std::vector<LineSegment2>*>(pieces)->emplace_back(first, second);
}

} // namespace

DashLineGenerator::DashLineGenerator(const double* lengths, std::size_t count) {
    Construct(lengths, count);
}

DashLineGenerator::DashLineGenerator(const DashLineGenerator& other) {
    InitState();
    *this = other;
}

DashLineGenerator& DashLineGenerator::operator=(const DashLineGenerator& other) {
    if (this != &other) {
        FreeAll();
        Construct(other.dashes.data(), other.dashes.size());
        lastPoint = other.lastPoint;
        index = other.index;
        penDown = other.penDown;
        remaining = other.remaining;
    }
    return *this;
}

DashLineGenerator::~DashLineGenerator() = default;

void DashLineGenerator::SetDashes(const double* lengths, std::size_t count) {
    FreeAll();
    Construct(lengths, count);
}

void DashLineGenerator::Construct(const double* lengths, std::size_t count) {
    detail::AppendPattern(dashes, lengths, count, ERROR_LINES);
    InitState();
}

void DashLineGenerator::InitState() {
    const detail::PenState start = detail::StartOfPattern(dashes);
    lastPoint = {NOWHERE, NOWHERE};
    index = start.index;
    penDown = start.penDown;
    remaining = start.remaining;
}

void DashLineGenerator::FreeAll() {
    dashes.clear();
}

void DashLineGenerator::Decompose(const Polyline& line, std::vector<LineSegment2>& out) {
    if (!line.Empty()) {
        Decompose(line.GetVertices(), line.Size(), out);
    }
}

void DashLineGenerator::Decompose(const Vec2d* points, std::size_t n,
                                  std::vector<LineSegment2>& out) {
    const detail::StableInput<Vec2d> input(points, n, out);
    Decompose(input.Data(), n, AppendPiece, &out);
}

void DashLineGenerator::Decompose(const Vec2d* points, std::size_t n, PieceCallback callback,
                                  void* context) {
    if (points == nullptr || n < 2 || dashes.empty()) {
        InitState();
        return;
    }
    if (points[0] != lastPoint) {
        InitState();
    }
    const detail::PenState end =
        detail::WalkPolyline(dashes, {index, penDown, remaining}, points, n, callback, context);
    lastPoint = points[n - 1];
    index = end.index;
    penDown = end.penDown;
    remaining = end.remaining;
}

} // namespace geom
