// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

#include <cstddef>
#include <vector>

namespace geom {

/// A polygon's contents, to be handed over without copying: all points, ring after ring, and
/// the number of points of each ring.
struct Polygon2Data {
    std::vector<Vec2d> points;
    std::vector<unsigned int> counts;
};

/// A polygon of any number of rings: all points, ring after ring, and the number of points of
/// each ring. Rings are closed implicitly; the first point is not repeated.
///
/// Take brings the polygon into its normal form: no consecutive equal points, no repeated
/// closing point, and no empty rings. The counts are to add up to the number of points; whoever
/// edits the arrays must keep them right. Where they say more than there are points, rings are
/// cut short at the last point; points beyond their sum belong to no ring: the clean-ups keep
/// them behind the rings, everything else ignores them.
///
/// The clean-ups (Take, RemoveDegenerateRings, Reverse, RemoveDuplicatePoints) are linear in
/// points and rings together, work in place and allocate nothing.
class GEOM_API Polygon2 {
public:
    /// The way a ring turns, y upwards.
    enum RingOrientationStatus {
        Clockwise = 0,        ///< negative signed area
        CounterClockwise = 1, ///< positive signed area
        Degenerate = 2        ///< no area, or one that is no number
    };

    std::vector<Vec2d>& Points() { return m_data.points; }
    const std::vector<Vec2d>& Points() const { return m_data.points; }
    std::vector<unsigned int>& Counts() { return m_data.counts; }
    const std::vector<unsigned int>& Counts() const { return m_data.counts; }

    void clear();
    /// True when there are no points or no rings.
    bool empty() const;

    /// Takes over the arrays of `data`, which gets this polygon's, emptied, and brings them into
    /// normal form. Cannot fail.
    void Take(Polygon2Data& data);

    /// Removes a ring with its points. An index that is not below the number of rings is an
    /// internal error of file "Polygon2", line 132.
    void RemoveRing(std::size_t ring);

    /// Removes all rings of fewer than `minPoints` points; the others keep their order. With 3
    /// every ring left can enclose area.
    void RemoveDegenerateRings(std::size_t minPoints);

    /// The way a ring turns; Degenerate for the empty polygon, whatever the index. Otherwise an
    /// index that is not below the number of rings is an internal error of file "Polygon2",
    /// line 132.
    RingOrientationStatus RingOrientation(std::size_t ring) const;

    /// Reverses the order of the points inside each ring.
    void Reverse();

    /// In each ring, keeps the first of consecutive equal points, and drops a last point that
    /// equals the first. Equal means exactly equal coordinates. Rings that are empty already
    /// stay.
    void RemoveDuplicatePoints();

private:
    struct RingSpan;

    void Normalize();
    RingSpan SpanOf(std::size_t ring) const;
    std::size_t RingIndexToPointIndex(std::size_t ring) const;

    Polygon2Data m_data;
};

} // namespace geom
