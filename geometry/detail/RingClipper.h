// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"
#include "geometry/detail/PointLanes.h"

#include <algorithm>
#include <cstddef>

/// \file
/// A ring against a rectangle, as a pipeline of four half-planes:
///
///     points > right > bottom > left > top > output
///
/// The order of the stages, and of their closing, decides where the output ring starts and in
/// which order corners come.

namespace geom::detail {

/// A ring's vertices end their way at the first stage that they are outside of, or in the output.
enum class Place : std::size_t { RIGHT, BOTTOM, LEFT, TOP, OUTPUT };

/// The four sides; where they are reversed nothing is inside.
struct RectangleSides {
    double right, bottom, left, top;

    Place PlaceOf(const Vec2d& p) const {
        return !(p.x <= right)    ? Place::RIGHT
               : !(p.y >= bottom) ? Place::BOTTOM
               : !(p.x >= left)   ? Place::LEFT
               : !(p.y <= top)    ? Place::TOP
                                  : Place::OUTPUT;
    }
};

/// Whether points all end at the same given place, as RectangleSides::PlaceOf says it of one: a
/// test for RunOf.
template <Place PLACE>
class AllEndAt {
public:
    explicit AllEndAt(const RectangleSides& sides)
        : m_lower{sides.left, sides.bottom}, m_upper{sides.right, sides.top} {}

    void Add(Lanes p) {
        const LaneMask aboveLower = p >= m_lower;
        const LaneMask belowUpper = p <= m_upper;
        m_allAbove &= aboveLower;
        m_anyAbove |= aboveLower;
        m_allBelow &= belowUpper;
        m_anyBelow |= belowUpper;
    }

    // The first lane is x; that of y is exchanged with it where it is asked for.
    bool Holds() const {
        if constexpr (PLACE == Place::RIGHT) {
            return m_anyBelow[0] == 0;
        } else if constexpr (PLACE == Place::BOTTOM) {
            return (m_allBelow & ~Exchanged(m_anyAbove))[0] != 0;
        } else if constexpr (PLACE == Place::LEFT) {
            return (m_allBelow & Exchanged(m_allAbove) & ~m_anyAbove)[0] != 0;
        } else if constexpr (PLACE == Place::TOP) {
            const LaneMask above = m_allAbove & Exchanged(m_allAbove);
            return (above & m_allBelow & ~Exchanged(m_anyBelow))[0] != 0;
        } else {
            const LaneMask inside = m_allAbove & m_allBelow;
            return (inside & Exchanged(inside))[0] != 0;
        }
    }

private:
    Lanes m_lower, m_upper;
    LaneMask m_allAbove{-1, -1}, m_anyAbove{0, 0}, m_allBelow{-1, -1}, m_anyBelow{0, 0};
};

/// Clips rings to a rectangle and appends the points to an output, which has the members
/// `Append(point)` and `Append(points, count)`.
///
/// Each stage holds back the first vertex that it receives until the ring is closed, and so
/// turns the ring by one place.
template <typename Output>
class RingClipper {
public:
    RingClipper(const RectangleSides& sides, Output& output) : m_sides(sides), m_output(output) {}

    template <typename Point>
    void Clip(const Point* pts, std::size_t n) {
        if (n == 0) {
            return;
        }
        const Place place = m_sides.PlaceOf(ToVector(pts[0]));
        const std::size_t run = Run(place, pts, std::min(n, CHUNK));
        if (run < n) {
            ClipPart(place, run, pts, n);
        } else if (place == Place::OUTPUT) {
            const std::size_t turned = STAGES % n;
            m_output.Append(pts + turned, n - turned);
            m_output.Append(pts, turned);
        }
    }

private:
    static constexpr std::size_t STAGES = 4;
    /// Runs are copied before their points leave the cache.
    static constexpr std::size_t CHUNK = 512;

    struct Stage {
        bool first; // until the ring's first vertex has come
        Vec2d firstPoint;
        Vec2d previous;
        bool previousInside;
    };

    template <typename Point>
    static Vec2d ToVector(const Point& p) {
        return {p.x, p.y};
    }

    template <Place STAGE>
    Stage& At() {
        return m_stages[static_cast<std::size_t>(STAGE)];
    }

    // Only called for points on different sides of the bound, so the divisors are not 0.
    template <Place STAGE>
    Vec2d Crossing(const Vec2d& p, const Vec2d& q) const;

    template <Place STAGE>
    void Receive(const Vec2d& q);
    template <Place STAGE>
    void PassOn(const Vec2d& q);
    template <Place STAGE>
    void Close();

    template <typename Point>
    std::size_t Run(Place place, const Point* pts, std::size_t n) const;
    template <typename Point>
    void PassRun(Place place, const Point* pts, std::size_t n);
    template <typename Point>
    void ClipPart(Place place, std::size_t run, const Point* pts, std::size_t n);

    const RectangleSides m_sides;
    Output& m_output;
    Stage m_stages[STAGES] = {};
};

template <typename Output>
template <Place STAGE>
Vec2d RingClipper<Output>::Crossing(const Vec2d& p, const Vec2d& q) const {
    if constexpr (STAGE == Place::RIGHT || STAGE == Place::LEFT) {
        const double bound = STAGE == Place::RIGHT ? m_sides.right : m_sides.left;
        return {bound, p.y + ((q.y - p.y) * (bound - p.x)) / (q.x - p.x)};
    } else {
        const double bound = STAGE == Place::BOTTOM ? m_sides.bottom : m_sides.top;
        return {p.x + ((q.x - p.x) * (bound - p.y)) / (q.y - p.y), bound};
    }
}

template <typename Output>
template <Place STAGE>
void RingClipper<Output>::PassOn(const Vec2d& q) {
    if constexpr (STAGE == Place::TOP) {
        m_output.Append(q);
    } else {
        Receive<static_cast<Place>(static_cast<std::size_t>(STAGE) + 1)>(q);
    }
}

template <typename Output>
template <Place STAGE>
void RingClipper<Output>::Receive(const Vec2d& q) {
    Stage& stage = At<STAGE>();
    const bool inside = STAGE == Place::RIGHT    ? q.x <= m_sides.right
                        : STAGE == Place::BOTTOM ? q.y >= m_sides.bottom
                        : STAGE == Place::LEFT   ? q.x >= m_sides.left
                                                 : q.y <= m_sides.top;
    if (stage.first) {
        stage.firstPoint = q;
        stage.first = false;
    } else {
        if (inside != stage.previousInside) {
            PassOn<STAGE>(Crossing<STAGE>(stage.previous, q));
        }
        if (inside) {
            PassOn<STAGE>(q);
        }
    }
    stage.previous = q;
    stage.previousInside = inside;
}

// A stage that has received nothing has nothing to close.
template <typename Output>
template <Place STAGE>
void RingClipper<Output>::Close() {
    if (!At<STAGE>().first) {
        Receive<STAGE>(At<STAGE>().firstPoint);
    }
}

/// How many points at the start of an array end at the place where the first of them does.
template <typename Output>
template <typename Point>
std::size_t RingClipper<Output>::Run(Place place, const Point* pts, std::size_t n) const {
    switch (place) {
    case Place::RIGHT: return RunOf(AllEndAt<Place::RIGHT>(m_sides), pts, n);
    case Place::BOTTOM: return RunOf(AllEndAt<Place::BOTTOM>(m_sides), pts, n);
    case Place::LEFT: return RunOf(AllEndAt<Place::LEFT>(m_sides), pts, n);
    case Place::TOP: return RunOf(AllEndAt<Place::TOP>(m_sides), pts, n);
    default: return RunOf(AllEndAt<Place::OUTPUT>(m_sides), pts, n);
    }
}

// The vertices of a run all end at one place. Behind the first of them no stage on the way sees a
// change of sides: none computes a crossing, and all that they keep of a vertex is that it was
// the last one. So the rest of the run does not walk the stages. It is left out where it would
// end at a stage, and is copied to the output where it would all get there.
//
//     ----+----------------   top
//         |  x--x--x--x       one run, copied as a block but for its first vertex
//         | /
//     x---x-----------------  the run before it ended at the stage of the left side
//
// A stage that still waits for its first vertex keeps it, and so is given it by itself.
template <typename Output>
template <typename Point>
void RingClipper<Output>::PassRun(Place place, const Point* pts, std::size_t n) {
    const std::size_t last = std::min(static_cast<std::size_t>(place), STAGES - 1);
    std::size_t received = 0;
    do {
        Receive<Place::RIGHT>(ToVector(pts[received]));
        ++received;
    } while (received < n && m_stages[last].first);
    if (received == n) {
        return;
    }
    if (place == Place::OUTPUT) {
        m_output.Append(pts + received, n - received);
    }
    for (std::size_t stage = 0; stage <= last; ++stage) {
        m_stages[stage].previous = ToVector(pts[n - 1]);
    }
}

// Closing a stage can pass points on to the stages behind it, which must still be open.
template <typename Output>
template <typename Point>
void RingClipper<Output>::ClipPart(Place place, std::size_t run, const Point* pts, std::size_t n) {
    for (Stage& stage : m_stages) {
        stage.first = true;
    }
    PassRun(place, pts, run);
    for (std::size_t i = run; i < n; i += run) {
        place = m_sides.PlaceOf(ToVector(pts[i]));
        run = Run(place, pts + i, std::min(n - i, CHUNK));
        PassRun(place, pts + i, run);
    }
    Close<Place::RIGHT>();
    Close<Place::BOTTOM>();
    Close<Place::LEFT>();
    Close<Place::TOP>();
}

} // namespace geom::detail
