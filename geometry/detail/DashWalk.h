// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/detail/DashPattern.h"

#include <cmath>
#include <cstddef>

/// \file
/// The walk of a dash pen along a polyline, in the plane or in space.
///
///     pattern (2, 1):   down  2   up 1   down  2   up 1 ...
///     polyline:      p0 ======x------x=========q ...
///
/// `remaining` is measured from the start of the segment in hand and grows by whole pattern
/// entries, so every switch point is computed from the segment's start, never from the switch
/// before it, and errors do not add up along a segment. A switch that falls exactly on a
/// segment's end is left to the next segment, where it happens at distance 0.
///
/// Pieces are handed out as soon as they are complete; nothing is collected, so a walk takes no
/// memory, however many dashes it draws.

namespace geom::detail {

inline double LengthOf(const Vec2d& v) {
    return std::sqrt(v.x * v.x + v.y * v.y);
}

inline double LengthOf(const Vec3d& v) {
    return std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
}

template <typename Point>
using DashCallback = void (*)(const Point& first, const Point& second, void* context);

/// A pen that draws from where it was set down. While it is up, `m_from` means nothing.
template <typename Point>
class DashPen {
public:
    DashPen(bool down, const Point& start, DashCallback<Point> callback, void* context)
        : m_callback(callback), m_context(context), m_from(start), m_down(down) {}

    bool IsDown() const { return m_down; }

    /// Goes to a point that ends a segment or a stretch.
    void MoveTo(const Point& p) {
        if (m_down) {
            const Point from = m_from;
            m_from = p;
            m_callback(from, p, m_context);
        }
    }

    /// Goes to a point and turns from down to up or back.
    void SwitchAt(const Point& p) {
        MoveTo(p);
        m_from = p;
        m_down = !m_down;
    }

private:
    DashCallback<Point> m_callback;
    void* m_context;
    Point m_from;
    bool m_down;
};

/// Walks the segment from p to q, switching the pen wherever the pattern says so.
///
/// Lengths of both signs can cancel so that rounding eats the little that a cycle advances. A
/// cycle is a chain of rounded additions and so monotone in its start; once one cycle ends no
/// further than it began, all later ones do, and none of them reaches the end. The pen then
/// keeps its position for the rest of the segment and goes on behind it.
template <typename Point>
void WalkSegment(const DashPattern& pattern, const Point& p, const Point& q, PenState& state,
                 DashPen<Point>& pen) {
    const Point d = q - p;
    const double length = LengthOf(d);
    if (!std::isfinite(length) ||
        (length > state.remaining && !pattern.CanCover(length, state.remaining))) {
        pen.MoveTo(q);
        return;
    }
    const int cycleIndex = state.index;
    double cycleStart = state.remaining;
    bool isStuck = false;
    while (length > state.remaining && !isStuck) {
        pen.SwitchAt(p + d * state.remaining / length);
        state.index = pattern.Next(state.index);
        state.remaining += pattern[state.index];
        if (state.index == cycleIndex) {
            isStuck = !(state.remaining > cycleStart);
            cycleStart = state.remaining;
        }
    }
    pen.MoveTo(q);
    state.remaining = isStuck ? pattern[state.index] : state.remaining - length;
}

/// Walks a polyline of n >= 2 points and returns where the pen stands at its end.
///
/// A segment whose length is not finite, or that the pattern cannot cover (DashPattern), passes
/// with the pen as it is; the pattern goes on behind it. A solid pattern is one visible stretch
/// from end to end, and stays at its start.
template <typename Point>
PenState WalkPolyline(const std::vector<double>& dashes, PenState state, const Point* points,
                      std::size_t n, DashCallback<Point> callback, void* context) {
    const DashPattern pattern(dashes);
    if (pattern.IsSolid()) {
        state = StartOfPattern(dashes);
    }
    DashPen<Point> pen(state.penDown, points[0], callback, context);
    for (std::size_t i = 0; i + 1 < n; ++i) {
        if (pattern.IsSolid()) {
            pen.MoveTo(points[i + 1]);
        } else {
            WalkSegment(pattern, points[i], points[i + 1], state, pen);
        }
    }
    state.penDown = pen.IsDown();
    return state;
}

} // namespace geom::detail
