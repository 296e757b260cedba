// SPDX-License-Identifier: MIT
#include "geometry/CPolyClip.h"

#include "geometry/Errors.h"
#include "geometry/detail/Overlap.h"
#include "geometry/detail/RingClipper.h"

#include <vector>

namespace geom {

namespace {

constexpr int LINE_NULL_POINTS = 21;

} // namespace

CPolyClip::CPolyClip() : CPolyClip(Box2d()) {}

CPolyClip::CPolyClip(const Box2d& rect) {
    SetClipRect(rect);
}

void CPolyClip::SetClipRect(const Box2d& rect) {
    m_left = rect.minX;
    m_right = rect.maxX;
    m_bottom = rect.minY;
    m_top = rect.maxY;
}

void CPolyClip::SetClipRectBLT(const Box2d& rect) {
    SetClipRect({rect.minX, rect.maxY, rect.maxX, rect.minY});
}

std::size_t CPolyClip::Clip(const Vec2d* pts, std::size_t n, CPodVector<Vec2d, 32>& out) {
    if (pts == nullptr && n != 0) {
        ThrowInternalError(L"CPolyClip", LINE_NULL_POINTS);
    }
    if (n != 0 && detail::LiesIn(pts, out.begin(), out.end())) {
        const std::vector<Vec2d> copy(pts, pts + n);
        return Clip(copy.data(), n, out);
    }
    const std::size_t before = out.Count();
    try {
        const detail::RectangleSides sides = {m_right, m_bottom, m_left, m_top};
        detail::RingClipper<CPodVector<Vec2d, 32>>(sides, out).Clip(pts, n);
    } catch (...) {
        while (out.Count() > before) {
            out.Pop();
        }
        throw;
    }
    return out.Count() - before;
}

} // namespace geom
