// SPDX-License-Identifier: MIT
#include "geometry/Geometry.h"

#include <cmath>

/// \file
/// Walking along a polyline: from vertex to vertex, each step shortening the distance that
/// remains, until it ends inside a segment or the polyline is at its end.

namespace geom {

namespace {

constexpr const wchar_t* UNIT = L"Geometry";
constexpr int LINE_NULL_POINTS = 338;
constexpr int LINE_TOO_FEW_POINTS = 339;
constexpr int LINE_INDEX_OUT_OF_RANGE = 340;
constexpr int LINE_ENDLESS_DISTANCE = 341;

constexpr double MOST_ROUNDS = 4294967296.0; // 2^32

double DistanceBetween(const Vec2d& a, const Vec2d& b) {
    return std::sqrt(a.DistanceSquared(b));
}

// A walk of more than 2^32 rounds is taken for a mistake. The sum never falls while it is formed,
// so the first part of it that is long enough decides; usually that is the first segment. A
// length of 0 is no obstacle: there the walk ends by itself.
bool IsEndlessAround(const Vec2d* pts, std::size_t n, double distance) {
    if (std::isinf(distance)) {
        return true;
    }
    double length = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        length += DistanceBetween(pts[i], pts[i + 1 < n ? i + 1 : 0]);
        if (distance <= MOST_ROUNDS * length) {
            return false;
        }
    }
    return length > 0.0;
}

class Walk {
public:
    Walk(const Vec2d* points, std::size_t count, bool closed, double distance, std::size_t index,
         const Vec2d& position)
        : m_points(points), m_count(count), m_closed(closed), m_remaining(distance), m_index(index),
          m_position(position) {}

    /// Returns false when the polyline ended before the distance did.
    bool Run();
    std::size_t Index() const { return m_index; }
    const Vec2d& Position() const { return m_position; }

private:
    enum class Step { Onward, Arrived, Stuck };
    Step OnwardUnlessSpent() const { return m_remaining > 0.0 ? Step::Onward : Step::Arrived; }
    Step StepTo(std::size_t next);
    void RequireProgress();

    const Vec2d* m_points;
    std::size_t m_count;
    bool m_closed;
    double m_remaining;
    std::size_t m_index;
    Vec2d m_position;
    std::size_t m_zeroSteps = 0;
    double m_remainingAtLastVertex = 0.0;
};

// Towards a vertex, and to it at most. A closed polyline whose points all coincide would be
// walked for ever without getting anywhere; as many steps of length zero as it has points tell.
Walk::Step Walk::StepTo(std::size_t next) {
    const Vec2d& target = m_points[next];
    if (m_position == target) {
        if (++m_zeroSteps == m_count) {
            return Step::Stuck;
        }
        m_index = next;
        return OnwardUnlessSpent();
    }
    const double length = DistanceBetween(m_position, target);
    if (m_remaining < length) {
        const double fraction = m_remaining / length;
        m_position = Vec2d(m_position.x + (target.x - m_position.x) * fraction,
                           m_position.y + (target.y - m_position.y) * fraction);
        return Step::Arrived;
    }
    m_index = next;
    m_remaining -= length;
    m_position = target;
    m_zeroSteps = 0;
    return OnwardUnlessSpent();
}

// Called on the last segment of a closed polyline. Millions of segments can each be too short to
// be noticed beside the distance that remains; a round that changes nothing would be repeated
// for ever. A round begins at the last vertex, not at a position that a caller gave behind it.
void Walk::RequireProgress() {
    if (m_position != m_points[m_count - 1]) {
        return;
    }
    if (m_remaining == m_remainingAtLastVertex) {
        ThrowInternalError(UNIT, LINE_ENDLESS_DISTANCE);
    }
    m_remainingAtLastVertex = m_remaining;
}

bool Walk::Run() {
    Step step = Step::Onward;
    while (step == Step::Onward) {
        std::size_t next = m_index + 1;
        if (next >= m_count) {
            if (!m_closed) {
                return false;
            }
            RequireProgress();
            next = 0;
        }
        step = StepTo(next);
    }
    return step == Step::Arrived;
}

} // namespace

bool AdvanceAlongPolyline(const Vec2d* pts, std::size_t n, bool closed, double distance,
                          std::size_t& index, Vec2d& pos) {
    if (pts == nullptr) {
        ThrowInternalError(UNIT, LINE_NULL_POINTS);
    }
    if (n < 2) {
        ThrowInternalError(UNIT, LINE_TOO_FEW_POINTS);
    }
    if (index >= n) {
        ThrowInternalError(UNIT, LINE_INDEX_OUT_OF_RANGE);
    }
    if (!(distance > 0.0)) {
        return true;
    }
    if (closed && IsEndlessAround(pts, n, distance)) {
        ThrowInternalError(UNIT, LINE_ENDLESS_DISTANCE);
    }
    Walk walk(pts, n, closed, distance, index, pos);
    const bool arrived = walk.Run();
    index = walk.Index();
    pos = walk.Position();
    return arrived;
}

} // namespace geom
