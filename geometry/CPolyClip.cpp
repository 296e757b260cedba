// SPDX-License-Identifier: MIT
// A ring against a rectangle, as a pipeline of four half-planes:
//
//     points > right > bottom > left > top > output
//
// The order of the stages, and of their closing, decides where the output ring starts and in
// which order corners come.
#include "geometry/CPolyClip.h"

#include "geometry/Errors.h"
#include "geometry/detail/LeadingRun.h"
#include "geometry/detail/PointsInside.h"

#include <vector>

namespace geom {

namespace {

constexpr int LINE_NULL_POINTS = 21;

// Only called for points on different sides of the bound, so the divisors are not 0.
Vec2d CrossingAtX(const Vec2d& p, const Vec2d& q, double bound) {
    return {bound, p.y + ((q.y - p.y) * (bound - p.x)) / (q.x - p.x)};
}

Vec2d CrossingAtY(const Vec2d& p, const Vec2d& q, double bound) {
    return {p.x + ((q.x - p.x) * (bound - p.y)) / (q.y - p.y), bound};
}

} // namespace

CPolyClip::CPolyClip() : CPolyClip(Box2d()) {}

CPolyClip::CPolyClip(const Box2d& rect) {
    SetClipRect(rect);
}

void CPolyClip::SetClipRect(const Box2d& rect) {
    m_stages[LEFT].bound = rect.minX;
    m_stages[RIGHT].bound = rect.maxX;
    m_stages[BOTTOM].bound = rect.minY;
    m_stages[TOP].bound = rect.maxY;
}

void CPolyClip::SetClipRectBLT(const Box2d& rect) {
    SetClipRect({rect.minX, rect.maxY, rect.maxX, rect.minY});
}

template <CPolyClip::Side SIDE>
void CPolyClip::PassOn(const Vec2d& q) {
    if constexpr (SIDE == TOP) {
        m_output->Append(q);
    } else {
        Receive<static_cast<Side>(SIDE - 1)>(q);
    }
}

template <CPolyClip::Side SIDE>
void CPolyClip::Receive(const Vec2d& q) {
    Stage& stage = m_stages[SIDE];
    constexpr bool VERTICAL = SIDE == LEFT || SIDE == RIGHT;
    constexpr bool UPPER = SIDE == TOP || SIDE == RIGHT;
    const double coordinate = VERTICAL ? q.x : q.y;
    const bool inside = UPPER ? coordinate <= stage.bound : coordinate >= stage.bound;

    if (stage.first) {
        stage.firstPoint = q;
        stage.first = false;
    } else {
        if (inside != stage.previousInside) {
            PassOn<SIDE>(VERTICAL ? CrossingAtX(stage.previous, q, stage.bound)
                                  : CrossingAtY(stage.previous, q, stage.bound));
        }
        if (inside) {
            PassOn<SIDE>(q);
        }
    }
    stage.previous = q;
    stage.previousInside = inside;
}

// A stage that has received nothing has nothing to close.
template <CPolyClip::Side SIDE>
void CPolyClip::Close() {
    if (!m_stages[SIDE].first) {
        Receive<SIDE>(m_stages[SIDE].firstPoint);
    }
}

// A vertex ends its way at the first stage that it is outside of, or in the output. When the
// vertex before it ended at the same place, no stage on the way sees a change of sides: none
// computes a crossing, and all that they keep of the vertex is that it was the last one. So of a
// run of such vertices only the last must walk the stages. Those before it are left out where
// they would end at a stage, and are copied to the output where they would all get there.
//
//     ----+----------------   top
//         |  x--x--x--x       one run, copied as a block but for its last vertex
//         | /
//     x---x-----------------  the run before it ended at the stage of the left side
//
// A stage that still waits for its first vertex keeps it, and so is given it by itself.
//
// Returns how many of the points that follow `last`, which has just been received, are done.
std::size_t CPolyClip::PassRun(const Vec2d& last, const Vec2d* pts, std::size_t n) {
    const double right = m_stages[RIGHT].bound;
    const double bottom = m_stages[BOTTOM].bound;
    const double left = m_stages[LEFT].bound;
    const double top = m_stages[TOP].bound;
    const auto run = [&](Side end, auto endsThere) -> std::size_t {
        return m_stages[end].first ? 0 : detail::LeadingRun(pts, n, endsThere);
    };
    std::size_t same = 0;
    if (!(last.x <= right)) {
        same = run(RIGHT, [=](const Vec2d& q) { return !(q.x <= right); });
    } else if (!(last.y >= bottom)) {
        same = run(BOTTOM, [=](const Vec2d& q) { return (q.x <= right) & !(q.y >= bottom); });
    } else if (!(last.x >= left)) {
        same = run(LEFT, [=](const Vec2d& q) {
            return (q.x <= right) & (q.y >= bottom) & !(q.x >= left);
        });
    } else if (!(last.y <= top)) {
        same = run(TOP, [=](const Vec2d& q) {
            return (q.x <= right) & (q.y >= bottom) & (q.x >= left) & !(q.y <= top);
        });
    } else {
        same = run(TOP, [=](const Vec2d& q) {
            return (q.x <= right) & (q.y >= bottom) & (q.x >= left) & (q.y <= top);
        });
        m_output->Append(pts, same > 0 ? same - 1 : 0);
    }
    return same > 0 ? same - 1 : 0;
}

// Closing a stage can pass points on to the stages behind it, which must still be open.
void CPolyClip::ClipInto(const Vec2d* pts, std::size_t n) {
    for (Stage& stage : m_stages) {
        stage.first = true;
    }
    for (std::size_t i = 0; i < n;) {
        Receive<RIGHT>(pts[i]);
        ++i;
        i += PassRun(pts[i - 1], pts + i, n - i);
    }
    Close<RIGHT>();
    Close<BOTTOM>();
    Close<LEFT>();
    Close<TOP>();
}

std::size_t CPolyClip::Clip(const Vec2d* pts, std::size_t n, CPodVector<Vec2d, 32>& out) {
    if (pts == nullptr && n != 0) {
        ThrowInternalError(L"CPolyClip", LINE_NULL_POINTS);
    }
    if (n != 0 && detail::PointsInside(pts, out.Data(), out.Count())) {
        const std::vector<Vec2d> copy(pts, pts + n);
        return Clip(copy.data(), n, out);
    }
    const std::size_t before = out.Count();
    m_output = &out;
    try {
        ClipInto(pts, n);
    } catch (...) {
        while (out.Count() > before) {
            out.Pop();
        }
        m_output = nullptr;
        throw;
    }
    m_output = nullptr;
    return out.Count() - before;
}

} // namespace geom
