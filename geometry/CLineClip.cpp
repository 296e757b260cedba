// SPDX-License-Identifier: MIT
// Segments against a rectangle: each is cut at the sides that its outcodes name, its start first,
// each end first in x and then in y.
#include "geometry/CLineClip.h"

#include "geometry/detail/LineRuns.h"

namespace geom {

namespace {

enum Outcode : unsigned int { INSIDE = 0, LEFT = 1, RIGHT = 2, TOP = 4, BOTTOM = 8 };

// Without branches: from point to point the sides can hardly be foretold.
unsigned int OutcodeOf(const Vec2d& p, const Box2d& rect) {
    const unsigned int left = p.x < rect.minX ? LEFT : INSIDE;
    const unsigned int right = p.x > rect.maxX ? RIGHT : INSIDE;
    const unsigned int bottom = p.y < rect.minY ? BOTTOM : INSIDE;
    const unsigned int top = p.y > rect.maxY ? TOP : INSIDE;
    return (left != 0 ? left : right) | (bottom != 0 ? bottom : top);
}

// Not by outcodes: where the rectangle's sides are reversed a point can lie beyond both
// opposite ones, and its outcode names only one of them.
bool BothBeyondOneSide(const Vec2d& p0, const Vec2d& p1, const Box2d& rect) {
    return (p0.x < rect.minX && p1.x < rect.minX) || (p0.x > rect.maxX && p1.x > rect.maxX) ||
           (p0.y < rect.minY && p1.y < rect.minY) || (p0.y > rect.maxY && p1.y > rect.maxY);
}

// The point of the line through p with direction (dx, dy) at the given side. Only called for
// lines that cross the side, so the divisor is not 0.
Vec2d AtVerticalSide(const Vec2d& p, double x, double dx, double dy) {
    return {x, p.y + ((x - p.x) * dy) / dx};
}

Vec2d AtHorizontalSide(const Vec2d& p, double y, double dx, double dy) {
    return {p.x + ((y - p.y) * dx) / dy, y};
}

} // namespace

bool detail::ClipToRect(const Box2d& rect, Vec2d& p0, Vec2d& p1) {
    unsigned int c0 = OutcodeOf(p0, rect);
    unsigned int c1 = OutcodeOf(p1, rect);
    if (BothBeyondOneSide(p0, p1, rect)) {
        return false;
    }
    if (c0 == INSIDE && c1 == INSIDE) {
        return true;
    }
    // The direction stays that of the whole segment: clipped ends would give a rounded one.
    const double dx = p1.x - p0.x;
    const double dy = p1.y - p0.y;

    if ((c0 & (LEFT | RIGHT)) != 0) {
        p0 = AtVerticalSide(p0, (c0 & LEFT) != 0 ? rect.minX : rect.maxX, dx, dy);
        c0 = p0.y < rect.minY ? BOTTOM : p0.y > rect.maxY ? TOP : INSIDE;
        if ((c0 & c1) != 0) {
            return false;
        }
        if (c0 == INSIDE && c1 == INSIDE) {
            return true;
        }
    }
    if ((c0 & (TOP | BOTTOM)) != 0) {
        p0 = AtHorizontalSide(p0, (c0 & TOP) != 0 ? rect.maxY : rect.minY, dx, dy);
        if (p0.x < rect.minX || p0.x > rect.maxX) {
            return false;
        }
        if (c1 == INSIDE) {
            return true;
        }
    }
    if ((c1 & (LEFT | RIGHT)) != 0) {
        p1 = AtVerticalSide(p1, (c1 & LEFT) != 0 ? rect.minX : rect.maxX, dx, dy);
        if (rect.minY <= p1.y && p1.y <= rect.maxY) {
            return true;
        }
        c1 = p1.y < rect.minY ? BOTTOM : TOP;
    }
    if ((c1 & (TOP | BOTTOM)) != 0) {
        p1 = AtHorizontalSide(p1, (c1 & TOP) != 0 ? rect.maxY : rect.minY, dx, dy);
    }
    return true;
}

CLineClip::CLineClip() : m_enabled(false) {}

CLineClip::CLineClip(const Box2d& rect) : m_enabled(rect.HasArea()), m_rect(rect) {}

void CLineClip::SetClipRect(const Box2d& rect) {
    m_rect = rect;
    m_enabled = m_rect.HasArea();
}

void CLineClip::IntersectClipRect(const Box2d& rect) {
    if (!m_enabled) {
        SetClipRect(rect);
        return;
    }
    m_rect.Intersect(rect);
    m_enabled = m_rect.HasArea();
}

void CLineClip::SetClipEnabled(bool enabled) {
    m_enabled = enabled;
}

bool CLineClip::IsClipEnabled() const {
    return m_enabled;
}

void CLineClip::Clear() {
    m_enabled = false;
}

const Box2d& CLineClip::GetClipRect() const {
    return m_rect;
}

unsigned int CLineClip::Classify(const Vec2d& p) const {
    return OutcodeOf(p, m_rect);
}

bool CLineClip::ClipLine(Vec2d& p0, Vec2d& p1) const {
    return !m_enabled || detail::ClipToRect(m_rect, p0, p1);
}

} // namespace geom
