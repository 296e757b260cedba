// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Errors.h"
#include "geometry/DashLineGenerator.h"
#include "geometry/Errors.h"
#include "geometry/detail/DashPattern.h"
#include "geometry/detail/DashWalk.h"
#include "geometry/detail/Overlap.h"

#include <limits>

namespace geom {

namespace {

constexpr const wchar_t* UNIT = L"DashLineGenerator";
constexpr int LINE_WALK_FAILED = 385;
constexpr detail::PatternErrorLines ERROR_LINES = {393, 419};

constexpr double NOWHERE = std::numeric_limits<double>::max();

void AppendPiece(const Vec3d& first, const Vec3d& second, void* pieces) {
    static_cast<std::vector<LineSegment3>*>(pieces)->emplace_back(first, second);
}

// Whatever an action throws comes out as the out-of-memory error.
template <typename Action>
void RunOrReportMemory(Action action) {
    try {
        action();
    } catch (...) {
        kit::Throw_ERR_KIT_NOGLOBALMEM(ModuleName(), UNIT, LINE_WALK_FAILED);
    }
}

} // namespace

DashLine3Generator::DashLine3Generator(const double* lengths, std::size_t count) {
    Construct(lengths, count);
}

DashLine3Generator::DashLine3Generator(const DashLine3Generator& other) {
    InitState();
    *this = other;
}

DashLine3Generator& DashLine3Generator::operator=(const DashLine3Generator& other) {
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

DashLine3Generator::~DashLine3Generator() = default;

void DashLine3Generator::SetDashes(const double* lengths, std::size_t count) {
    FreeAll();
    Construct(lengths, count);
}

void DashLine3Generator::Construct(const double* lengths, std::size_t count) {
    detail::AppendPattern(dashes, lengths, count, ERROR_LINES);
    InitState();
}

void DashLine3Generator::InitState() {
    const detail::PenState start = detail::StartOfPattern(dashes);
    lastPoint = {NOWHERE, NOWHERE, NOWHERE};
    index = start.index;
    penDown = start.penDown;
    remaining = start.remaining;
}

void DashLine3Generator::FreeAll() {
    dashes.clear();
}

void DashLine3Generator::Decompose(const Vec3d* points, std::size_t n,
                                   std::vector<LineSegment3>& out) {
    RunOrReportMemory([&] {
        const detail::StableInput<Vec3d> input(points, n, out);
        Decompose(input.Data(), n, AppendPiece, &out);
    });
}

void DashLine3Generator::Decompose(const Vec3d* points, std::size_t n, PieceCallback callback,
                                   void* context) {
    if (points == nullptr || n < 2 || dashes.empty()) {
        InitState();
        return;
    }
    if (points[0] != lastPoint) {
        InitState();
    }
    detail::PenState state = {index, penDown, remaining};
    RunOrReportMemory(
        [&] { state = detail::WalkPolyline(dashes, state, points, n, callback, context); });
    lastPoint = points[n - 1];
    index = state.index;
    penDown = state.penDown;
    remaining = state.remaining;
}

} // namespace geom
