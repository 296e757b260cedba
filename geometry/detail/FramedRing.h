// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace geom::detail {

/// Coordinates relative to a ring: its box gets its corner at the origin and a larger side of 1
/// to 2, so that limits need not know how large the ring is and how far from the origin.
///
/// Order is kept in x and in y. A coordinate within the box is off by less than 2^-51.
class RingFrame {
public:
    RingFrame() = default;
    explicit RingFrame(const Box2d& box) : m_box(box) {
        const double extent = std::max(box.maxX - box.minX, box.maxY - box.minY);
        m_scale = extent > 0.0 ? std::ldexp(1.0, -std::ilogb(extent)) : 1.0;
        m_size = ToRing({box.maxX, box.maxY});
    }

    Vec2d ToRing(const Vec2d& p) const {
        return {(p.x - m_box.minX) * m_scale, (p.y - m_box.minY) * m_scale};
    }

    const Box2d& Box() const { return m_box; }
    double Scale() const { return m_scale; }
    /// Of the box, as the frame has it.
    const Vec2d& Size() const { return m_size; }

private:
    Box2d m_box;
    double m_scale = 1.0; ///< a power of two
    Vec2d m_size{0.0, 0.0};
};

/// What coordinates must be like to be worked with: products of four must not overflow, products
/// of two differences not vanish.
inline bool IsGoodCoordinate(double x) {
    return std::fabs(x) <= 0x1p250;
}

inline bool IsGoodExtent(double d) {
    return d == 0.0 || std::fabs(d) >= 0x1p-250;
}

/// A ring in its own frame, as what is built over its edges wants it.
struct FramedRing {
    /// Of so many edges between one more points, the last of which repeats the first one.
    FramedRing(const Vec2d* ring, std::size_t edges);

    /// Whether all coordinates and extents can be worked with; the frame means nothing else.
    bool isGood;
    RingFrame frame;
    std::vector<Vec2d> points; ///< in the frame; one more than edges
    const Vec2d* original;     ///< the same as given: differences are exact only of these
    std::size_t count;         ///< of edges
};

} // namespace geom::detail
