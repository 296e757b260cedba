// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

#include <cstddef>

namespace geom {

/// Clips polygon rings against an axis-aligned rectangle whose boundary counts as inside.
///
/// Four stages, one for each side, pass the ring's vertices on as they come, so a ring is
/// clipped in one pass and without arrays in between (Sutherland and Hodgman, "Reentrant
/// Polygon Clipping", Communications of the ACM 17, 1974). Each stage holds back the first
/// vertex that it receives until the ring is closed, and so turns the ring by one place: a
/// ring wholly inside comes out starting at its point 4 mod n.
///
/// One object clips any number of rings in turn, and may be copied.
class GEOM_API CPolyClip {
public:
    /// Clips every ring to nothing: the sides are those of the empty box.
    CPolyClip();
    explicit CPolyClip(const Box2d& rect);

    void SetClipRect(const Box2d& rect);
    /// For boxes held top-down, whose minimum y is the larger: exchanges the two.
    void SetClipRectBLT(const Box2d& rect);

    /// Clips the implicitly closed ring of n points and appends the result to `out`.
    ///
    /// The result is not closed by a repeated point. Nothing is removed from it: repeated
    /// points of the input stay, and parts of a concave ring that leave and re-enter are joined
    /// along the rectangle's sides. `pts` may point into `out`. When memory runs out
    /// (std::bad_alloc) `out` is unchanged. O(n). Throws an internal error when `pts` is null
    /// and n is not 0.
    ///
    /// \return the number of points appended.
    std::size_t Clip(const Vec2d* pts, std::size_t n, CPodVector<Vec2d, 32>& out);

private:
    double m_top, m_left, m_bottom, m_right;
};

} // namespace geom
