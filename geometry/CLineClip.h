// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

#include <boost/function.hpp>

#include <cstddef>
#include <vector>

namespace geom {

/// Clips segments and polylines against an axis-aligned rectangle whose boundary counts as
/// inside.
///
/// A clipper without a rectangle, or with one that has no area, is disabled and passes
/// everything through. A disabled clipper and an empty clip area are not distinguished.
class GEOM_API CLineClip {
public:
    /// Receives one run of points; the array is only valid during the call.
    using Sink = boost::function<void(const Vec2d* pts, std::size_t n)>;

    /// Disabled, with the empty box.
    CLineClip();
    /// Enabled when the rectangle has area.
    explicit CLineClip(const Box2d& rect);

    /// Stores the rectangle as it is, not normalised; enabled when it has area.
    void SetClipRect(const Box2d& rect);
    /// Reduces the rectangle to the part that it shares with `rect`; enabled when that has
    /// area. A disabled clipper takes `rect` as it is.
    void IntersectClipRect(const Box2d& rect);
    /// Sets the flag only.
    void SetClipEnabled(bool enabled);
    bool IsClipEnabled() const;
    /// Disables clipping; the rectangle is kept.
    void Clear();
    const Box2d& GetClipRect() const;

    /// Clips a segment in place and allocates nothing.
    ///
    /// \return true when some part of the segment, possibly a single point, is inside. After
    /// false the points must not be used: p0 may already have moved to an edge.
    ///
    /// The method is that of Cohen and Sutherland (Newman and Sproull, "Principles of
    /// Interactive Computer Graphics", 1973). Coordinates that are not numbers count as inside.
    bool ClipLine(Vec2d& p0, Vec2d& p1) const;

    /// Clips a polyline of n points into runs, in the order of the line.
    ///
    /// Both outputs are replaced: `outPts` gets the points of all runs and `outCounts` the
    /// number of points of each. A run has at least two points, unless the line is one point.
    /// Disabled, the whole line is one run, also one of no points. `pts` may point into
    /// `outPts`. O(n). Throws an internal error when `pts` is null and n is not 0, and for a run of
    /// more points than 32 bits count. When memory runs out (std::bad_alloc) the outputs hold some
    /// of the runs, or what they held before.
    void ClipPolyline(const Vec2d* pts, std::size_t n, std::vector<Vec2d>& outPts,
                      std::vector<unsigned int>& outCounts) const;

    /// The same runs, handed to `sink` one at a time. Nothing is allocated for runs of up to 32
    /// points.
    ///
    /// Delivering to an empty sink throws boost::bad_function_call; without anything to
    /// deliver the sink is not called. What the sink throws is passed on.
    void ClipPolyline(const Vec2d* pts, std::size_t n, Sink sink) const;

protected:
    /// The sides of the rectangle that the point lies strictly beyond: left 1, right 2, top 4,
    /// bottom 8. At most one of left and right (left first) and of bottom and top (bottom
    /// first).
    unsigned int Classify(const Vec2d& p) const;

private:
    bool m_enabled;
    Box2d m_rect;
};

} // namespace geom
