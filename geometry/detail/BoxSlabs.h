// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <utility>

namespace geom::detail {

inline std::array<double, 3> Coordinates(const Vec3d& v) {
    return {v.x, v.y, v.z};
}

/// Cuts a line with the three slabs of a box and keeps the common part, if any.
class BoxSlabs {
public:
    /// Returns whether the line meets the closed box. The position must be finite and the
    /// direction must not be zero.
    bool Clip(const Vec3d& position, const Vec3d& direction, const Box3d& box) {
        m_position = Coordinates(position);
        m_direction = Coordinates(direction);
        m_low = Coordinates(box.minCorner);
        m_high = Coordinates(box.maxCorner);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            if (!ClipToSlab(axis)) {
                return false;
            }
        }
        return m_entry.t <= m_exit.t;
    }

    Vec3d Entry() const { return PointOf(m_entry); }
    Vec3d Exit() const { return PointOf(m_exit); }
    /// The line's parameter where it leaves the box.
    double ExitParameter() const { return m_exit.t; }

private:
    static constexpr double INF = std::numeric_limits<double>::infinity();

    struct Crossing {
        double t;
        std::size_t axis;
        double face;
    };

    bool ClipToSlab(std::size_t axis) {
        const double p = m_position[axis];
        const double d = m_direction[axis];
        if (!(m_low[axis] <= m_high[axis])) { // empty, or not a number
            return false;
        }
        if (d == 0.0) {
            return m_low[axis] <= p && p <= m_high[axis];
        }
        Crossing in = {(m_low[axis] - p) / d, axis, m_low[axis]};
        Crossing out = {(m_high[axis] - p) / d, axis, m_high[axis]};
        if (d < 0.0) {
            std::swap(in, out);
        }
        m_entry = in.t >= m_entry.t ? in : m_entry;
        m_exit = out.t <= m_exit.t ? out : m_exit;
        return true;
    }

    // On its face exactly, and not pushed out of the other slabs by rounding or overflow.
    Vec3d PointOf(const Crossing& crossing) const {
        std::array<double, 3> point = m_position;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            if (m_direction[axis] != 0.0) {
                const double onLine = m_position[axis] + m_direction[axis] * crossing.t;
                point[axis] = std::clamp(onLine, m_low[axis], m_high[axis]);
            }
        }
        point[crossing.axis] = crossing.face;
        return {point[0], point[1], point[2]};
    }

    std::array<double, 3> m_position{}, m_direction{}, m_low{}, m_high{};
    Crossing m_entry{-INF, 0, 0.0};
    Crossing m_exit{INF, 0, 0.0};
};

} // namespace geom::detail
