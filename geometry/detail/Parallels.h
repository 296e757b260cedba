// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"
#include "geometry/detail/Buckets.h"
#include "geometry/detail/FramedRing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace geom::detail {

/// Finds the edges of a ring that run in nearly the direction of a segment and start near its
/// line: those that rounded crossing tests may accept however far they are from the segment.
///
/// Few segments have such edges at all, which a look at one bit tells of most of them. Edges of
/// like direction lie side by side, in the order of their distance from a line through the
/// origin.
class Parallels {
public:
    /// How far the directions of edge and segment may differ, as DirectionOf measures it.
    static constexpr double NEARLY = 0x1p-23;

    Parallels() = default;
    explicit Parallels(const FramedRing& ring);

    /// Whether some edge may have nearly the direction of a vector that is not null.
    bool MayHave(const Vec2d& d) const { return m_directions.Holds(DirectionOf(d)); }

    /// Calls `visit(edge)` for each edge nearly parallel to d whose start is at most about
    /// `near` away from the line through p, until a visit returns false. `size` bounds the way
    /// from p to any edge. All in the frame.
    template <typename Visit>
    bool VisitNear(const Vec2d& p, const Vec2d& d, double size, double near,
                   const Visit& visit) const {
        if (!MayHave(d)) {
            return true;
        }
        const double direction = DirectionOf(d);
        const std::size_t first = BucketOf(direction - NEARLY);
        const std::size_t last = BucketOf(direction + NEARLY);
        const double limit = near + size * (2.0 * m_width + 0x1p-20);
        for (std::size_t bucket = first; bucket <= last; ++bucket) {
            if (!VisitBucket(bucket, p, limit, visit)) {
                return false;
            }
        }
        // The directions at both ends of the range are neighbours.
        const std::size_t end = BucketCount() - 1;
        return ((direction - NEARLY >= -1.0) || VisitBucket(end, p, limit, visit)) &&
               ((direction + NEARLY <= 1.0) || VisitBucket(0, p, limit, visit));
    }

    /// A measure of a direction that is the same for both ways to run along it: -1 to 1, as the
    /// angle falls from pi to 0, and 1 is next to -1. For v and w of |v| = |w| = 1 it differs by
    /// at most twice their cross product, where |v| is |v.x| + |v.y|.
    static double DirectionOf(const Vec2d& v) {
        const double x = v.y < 0.0 || (v.y == 0.0 && v.x < 0.0) ? -v.x : v.x;
        return x / (std::fabs(v.x) + std::fabs(v.y));
    }

private:
    struct Entry {
        float offset; ///< of the edge's start from the line of its bucket
        std::uint32_t edge;
    };

    std::size_t BucketCount() const { return m_firsts.size() - 1; }
    std::size_t BucketOf(double direction) const {
        const double place = (direction + 1.0) * m_perUnit;
        return std::min(static_cast<std::size_t>(std::max(place, 0.0)), BucketCount() - 1);
    }
    double OffsetOf(const Vec2d& p, std::size_t bucket) const;
    void AddDirection(double direction);

    // Offsets are single; 2^-20 in `limit` makes up for that.
    template <typename Visit>
    bool VisitBucket(std::size_t bucket, const Vec2d& p, double limit, const Visit& visit) const {
        const auto first = m_entries.begin() + static_cast<std::ptrdiff_t>(m_firsts[bucket]);
        const auto last = m_entries.begin() + static_cast<std::ptrdiff_t>(m_firsts[bucket + 1]);
        const double offset = OffsetOf(p, bucket);
        auto entry =
            std::lower_bound(first, last, offset - limit, [](const Entry& e, double least) {
                return static_cast<double>(e.offset) < least;
            });
        for (; entry != last && static_cast<double>(entry->offset) <= offset + limit; ++entry) {
            if (!visit(entry->edge)) {
                return false;
            }
        }
        return true;
    }

    Buckets m_directions;
    double m_width = 1.0; ///< of a bucket of entries
    double m_perUnit = 1.0;
    std::vector<std::uint32_t> m_firsts; ///< where buckets start, and the end of the last one
    std::vector<Entry> m_entries;        ///< bucket by bucket, ascending
};

} // namespace geom::detail
