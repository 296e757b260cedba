// SPDX-License-Identifier: MIT
#include "geometry/TriStrip.h"

#include "geometry/Errors.h"

#include <functional>
#include <vector>

namespace geom {

namespace {

constexpr const wchar_t* UNIT = L"TriStrip";

enum Line : int {
    LINE_NULL_STRIP = 30,
    LINE_NULL_OUTPUT = 31,
    LINE_COPY_STRIP = 32,
};

/// The index in the strip of its first side's first vertex.
enum FirstSide : std::size_t { EVEN = 0, ODD = 1 };

void WriteOutline(const Vec2d* strip, std::size_t n, FirstSide first, Vec2d* out) {
    std::size_t front = 0;
    std::size_t back = n;
    for (std::size_t i = 0; i < n; ++i) {
        out[i % 2 == first ? front++ : --back] = strip[i];
    }
}

bool Overlap(const Vec2d* a, const Vec2d* b, std::size_t n) {
    const std::less<const Vec2d*> before;
    return before(a, b + n) && before(b, a + n);
}

std::vector<Vec2d> Copy(const Vec2d* strip, std::size_t n) {
    try {
        return {strip, strip + n};
    } catch (...) {
        kit::Throw_ERR_KIT_NOGLOBALMEM(ModuleName(), UNIT, LINE_COPY_STRIP);
    }
}

void ToPolygon(const Vec2d* strip, std::size_t n, FirstSide first, Vec2d* out) {
    if (n == 0) {
        return;
    }
    if (strip == nullptr) {
        ThrowInternalError(UNIT, LINE_NULL_STRIP);
    }
    if (out == nullptr) {
        ThrowInternalError(UNIT, LINE_NULL_OUTPUT);
    }
    if (Overlap(strip, out, n)) {
        WriteOutline(Copy(strip, n).data(), n, first, out);
    } else {
        WriteOutline(strip, n, first, out);
    }
}

} // namespace

void TriStripToCWPolygon(const Vec2d* strip, std::size_t n, Vec2d* out) {
    ToPolygon(strip, n, ODD, out);
}

void TriStripToCCWPolygon(const Vec2d* strip, std::size_t n, Vec2d* out) {
    ToPolygon(strip, n, EVEN, out);
}

} // namespace geom
