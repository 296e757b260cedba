// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cmath>
#include <cstddef>
#include <vector>

/// \file
/// Ring measures and ring clean-ups in their plainest form: one edge, one ring, one point at a
/// time.

namespace geom::test {

inline bool PlainPointInRing(const Vec2d& p, const std::vector<Vec2d>& ring) {
    bool inside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vec2d& a = ring[i == 0 ? ring.size() - 1 : i - 1];
        const Vec2d& b = ring[i];
        if (b.y <= p.y && p.y < a.y) {
            if ((p.y - b.y) * (a.x - b.x) > (p.x - b.x) * (a.y - b.y)) {
                inside = !inside;
            }
        } else if (a.y <= p.y && p.y < b.y) {
            if ((p.x - b.x) * (a.y - b.y) > (p.y - b.y) * (a.x - b.x)) {
                inside = !inside;
            }
        }
    }
    return inside;
}

inline bool PlainPointInRing(const tagPOINT& p, const std::vector<tagPOINT>& ring) {
    bool inside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const tagPOINT& a = ring[i == 0 ? ring.size() - 1 : i - 1];
        const tagPOINT& b = ring[i];
        if ((b.y <= p.y && p.y < a.y) || (a.y <= p.y && p.y < b.y)) {
            if (p.x < b.x + kit::MulDiv(a.x - b.x, p.y - b.y, a.y - b.y)) {
                inside = !inside;
            }
        }
    }
    return inside;
}

// The number of times a ring runs around a point counter-clockwise, less the times clockwise.
inline int PlainWindingNumber(const Vec2d& p, const Vec2d* ring, std::size_t n) {
    int winding = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const Vec2d& a = ring[i == 0 ? n - 1 : i - 1];
        const Vec2d& b = ring[i];
        const double side = (b.x - a.x) * (p.y - a.y) - (p.x - a.x) * (b.y - a.y);
        if (a.y <= p.y && p.y < b.y && side > 0) {
            ++winding;
        } else if (b.y <= p.y && p.y < a.y && side < 0) {
            --winding;
        }
    }
    return winding;
}

inline double PlainRingArea(const std::vector<Vec2d>& ring) {
    if (ring.size() < 3) {
        return 0.0;
    }
    double sum = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vec2d& previous = ring[i == 0 ? ring.size() - 1 : i - 1];
        sum +=
            (previous.x - ring[i].x) * ((ring[i].y - ring.back().y) + (previous.y - ring.back().y));
    }
    return sum * 0.5;
}

using PlainRings = std::vector<std::vector<Vec2d>>;

inline std::vector<Vec2d> PlainWithoutDuplicates(std::vector<Vec2d> ring) {
    for (std::size_t i = 1; i < ring.size();) {
        if (ring[i] == ring[i - 1]) {
            ring.erase(ring.begin() + static_cast<std::ptrdiff_t>(i));
        } else {
            ++i;
        }
    }
    if (ring.size() > 1 && ring.back() == ring.front()) {
        ring.pop_back();
    }
    return ring;
}

} // namespace geom::test
