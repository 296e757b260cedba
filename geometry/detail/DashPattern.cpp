// SPDX-License-Identifier: MIT
#include "geometry/detail/DashPattern.h"

#include "Subsystems/Kit/Errors.h"
#include "geometry/Errors.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace geom::detail {

namespace {

constexpr wchar_t FILE_NAME[] = L"DashLineGenerator";
constexpr double MOST_CYCLES = 0x1p32;

// Small enough that no pattern which fits into memory can overflow.
constexpr double OVERFLOW_SCALE = 0x1p-64;

double ScaledSum(const std::vector<double>& dashes, double scale) {
    double sum = 0.0;
    for (const double dash : dashes) {
        sum += dash * scale;
    }
    return sum;
}

} // namespace

PenState StartOfPattern(const std::vector<double>& dashes) {
    return {0, true, dashes.empty() ? 0.0 : dashes[0]};
}

void AppendPattern(std::vector<double>& pattern, const double* dashes, std::size_t count,
                   const PatternErrorLines& lines) {
    if (dashes == nullptr && count != 0) {
        ThrowInternalError(FILE_NAME, lines.nullDashes);
    }
    // The walk counts lengths as 32-bit integers; more are as good as more than fit the heap.
    constexpr std::size_t LARGEST = std::numeric_limits<std::int32_t>::max();
    if (count > LARGEST || pattern.size() > LARGEST - count) {
        kit::Throw_ERR_KIT_NOGLOBALMEM(ModuleName(), FILE_NAME, lines.outOfMemory);
    }
    try {
        if (count == 0) {
            pattern.push_back(0.0);
        } else {
            pattern.reserve(pattern.size() + count);
            pattern.insert(pattern.end(), dashes, dashes + count);
        }
    } catch (...) {
        kit::Throw_ERR_KIT_NOGLOBALMEM(ModuleName(), FILE_NAME, lines.outOfMemory);
    }
}

// Large lengths of both signs can overflow although their sum is 0, or small; they are summed
// once more, scaled.
DashPattern::DashPattern(const std::vector<double>& dashes)
    : m_dashes(dashes), m_scale(1.0), m_sum(ScaledSum(dashes, 1.0)) {
    if (!std::isfinite(m_sum)) {
        m_scale = OVERFLOW_SCALE;
        m_sum = ScaledSum(dashes, m_scale);
    }
}

bool DashPattern::CanCover(double distance, double remaining) const {
    return !((distance * m_scale - remaining * m_scale) / m_sum > MOST_CYCLES);
}

} // namespace geom::detail
