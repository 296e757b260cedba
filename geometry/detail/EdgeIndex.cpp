// SPDX-License-Identifier: MIT
#include "geometry/detail/EdgeIndex.h"

#include <cmath>

/// \file
/// Why no edge is ever hidden
/// --------------------------
/// For a segment from P with direction d, an edge from A with direction e, and a = A - P, the
/// crossing tests compute
///
///     den = d x e,   s = a x d,   t = a x e          (x is the cross product)
///
/// and accept the edge when
///   (1) den == 0, s == 0 and the ranges of both overlap, in y if d.x == 0 and in x otherwise;
///   (2) den != 0 and both s / den and t / den lie in [0, 1].
/// In exact arithmetic segment and edge then share a point. All three values are rounded, so an
/// accepted edge may miss the segment; the index must know by how much. Let u = 2^-53, |v| be
/// |v.x| + |v.y|, and E the larger extent of the box around ring and segment, so that |a|, |d|
/// and |e| are at most 2 E. Coordinates are at most 2^300 and the components of d and e are 0
/// or at least 2^-300 in size (IsGoodFor), so no product overflows, none in den underflows, and
/// an underflow in s or t changes them by less than 2^-1073, which is nothing beside the rest.
/// Differences are off by a factor of 1 +- u, which moves points by at most 6 u E.
///
/// A computed cross product of v and w is off by at most 2 u |v| |w|. For any three vectors
/// a den = d t - e s holds exactly. With the computed values it is off by r, each component of
/// which is at most 6 u |a| |d| |e|. Divided by den,
///
///     a + e (s / den) - d (t / den) = r / den,
///
/// and the left side is a point of the edge minus a point of the segment.
///
/// - Case (2), |den| >= 2^-16 |d| |e|: the two points are closer than
///   6 u 2^16 |a| < 2^-33 E in x and in y.
/// - Case (2), d.x == 0 or d.y == 0: one of the products in den and in s is exactly 0, so both
///   are right to a factor of 1 +- u. Say d.y == 0: then the point A + e (-a.y / e.y) of the
///   edge, or one 3 u |e| from it, lies on the segment's line, and its x is off by at most
///   2 u (|a.x| + |e.x|) plus roundings, because t is a.x e.y - a.y e.x, where
///   |a.y| <= |e.y| (1 + 3 u), and is divided by d.x e.y. So the distance is a few u E.
/// - Case (1): |d.x e.y - e.x d.y| and |a.x d.y - a.y d.x| are below 2 u times the sum of their
///   products' sizes. So where edge and segment have the same x (say the ranges overlap in x),
///   their y differ by at most 5 u (|a.y| + |e.y|): a few u E again. Without overlap nothing is
///   accepted.
/// - Case (2), neither component of d zero and |den| < 2^-16 |d| |e|: edge and segment are
///   nearly parallel. The tests then promise nothing about the place along the line, and edges
///   far away are accepted indeed. But |s| <= |den| says that A lies near the segment's line:
///   |a x d| < (2^-16 |e| + 2^-51 E) |d|.
///
/// So two trees find all that can be accepted. The first holds places: it passes over boxes
/// that are further than 2^-32 E from the segment's box, or all on one side of its line by more
/// than that. The second one is asked only when neither component of d is 0: it passes over
/// boxes whose edges all differ from d in direction by more than 2^-14 (DirectionOf; a cross
/// product of 2^-16 |d| |e| is a difference of at most 2^-15), or which lie wholly on one side
/// of the segment's line by more than (2^-15 |extent of the box| + 2^-32 E) |d|. These limits
/// are at least twice what the cases need, which leaves room for the roundings of the limits
/// themselves: all are taken from differences to P, so that they do not grow with the distance
/// from the origin.

namespace geom::detail {

namespace {

constexpr double LARGEST_COORDINATE = 0x1p300;
constexpr double SMALLEST_EXTENT = 0x1p-300;
constexpr double NEAR = 0x1p-32;              // as a fraction of E
constexpr double NEARLY_PARALLEL = 0x1p-14;   // as a difference of directions
constexpr double NEAR_OF_PARALLELS = 0x1p-15; // as a fraction of a box's extent
constexpr double DIRECTION_PERIOD = 2.0;

bool IsGoodCoordinate(double x) {
    return std::fabs(x) <= LARGEST_COORDINATE;
}

bool IsGoodExtent(double d) {
    return d == 0.0 || std::fabs(d) >= SMALLEST_EXTENT;
}

bool IsGood(const Vec2d& p, const Vec2d& q) {
    return IsGoodCoordinate(p.x) && IsGoodCoordinate(p.y) && IsGoodCoordinate(q.x) &&
           IsGoodCoordinate(q.y) && IsGoodExtent(q.x - p.x) && IsGoodExtent(q.y - p.y);
}

// A measure of a direction that is the same for both ways to run along it: -1 to 1, as the
// angle falls from pi to 0, and 1 is next to -1. For v and w of |v| = |w| = 1 it differs by at
// most twice their cross product.
double DirectionOf(const Vec2d& v) {
    const double x = v.y < 0.0 || (v.y == 0.0 && v.x < 0.0) ? -v.x : v.x;
    return x / (std::fabs(v.x) + std::fabs(v.y));
}

Box2d BoxOf(const Vec2d& p, const Vec2d& q) {
    return {std::min(p.x, q.x), std::min(p.y, q.y), std::max(p.x, q.x), std::max(p.y, q.y)};
}

double Extent(const Box2d& box) {
    return std::max(box.maxX - box.minX, box.maxY - box.minY);
}

// Long slanted edges have large, mostly empty boxes; they enter the index in pieces of about
// this extent. At most doubles the number of entries. Infinite when no edge is long.
double PieceExtent(const std::vector<Edge>& edges, const Box2d& all) {
    double sum = 0.0;
    for (const Edge& edge : edges) {
        sum += std::sqrt(std::fabs(edge.end.x - edge.start.x)) *
               std::sqrt(std::fabs(edge.end.y - edge.start.y));
    }
    const double count = static_cast<double>(edges.size());
    const double cell = std::sqrt(all.maxX - all.minX) * std::sqrt(all.maxY - all.minY);
    return std::max(sum / count, cell / std::sqrt(count));
}

std::uint32_t PieceCount(const Edge& edge, double pieceExtent) {
    const double extent = std::sqrt(std::fabs(edge.end.x - edge.start.x)) *
                          std::sqrt(std::fabs(edge.end.y - edge.start.y));
    return extent > pieceExtent ? static_cast<std::uint32_t>(extent / pieceExtent) + 1 : 1;
}

// The range of one coordinate over the part of an edge from the fraction f to the fraction g.
// Widened by what the computed ends can be off, but not beyond the edge.
std::pair<double, double> PieceRange(double start, double end, double f, double g) {
    const double slack = 0x1p-50 * (std::fabs(start) + std::fabs(end));
    const double a = start + (end - start) * f;
    const double b = start + (end - start) * g;
    return {std::max(std::min(a, b) - slack, std::min(start, end)),
            std::min(std::max(a, b) + slack, std::max(start, end))};
}

} // namespace

// A segment, and how far from it an edge that its tests accept can lie.
struct EdgeIndex::Query {
    Query(const Vec2d& start, const Vec2d& end, const Box2d& ring) : p(start), d(end - start) {
        const Box2d segment = BoxOf(start, end);
        Box2d both = segment;
        both |= ring;
        near = NEAR * Extent(both);
        size = std::fabs(d.x) + std::fabs(d.y);
        reach = {segment.minX - near, segment.minY - near, segment.maxX + near,
                 segment.maxY + near};
    }

    // Whether a box lies on one side of the segment's line, further than `limit`.
    bool IsBeside(const Box2d& box, double limit) const {
        const double lowX = box.minX - p.x;
        const double highX = box.maxX - p.x;
        const double lowY = box.minY - p.y;
        const double highY = box.maxY - p.y;
        const double least = (d.y < 0.0 ? highX : lowX) * d.y - (d.x < 0.0 ? lowY : highY) * d.x;
        const double most = (d.y < 0.0 ? lowX : highX) * d.y - (d.x < 0.0 ? highY : lowY) * d.x;
        return least > limit * size || most < -limit * size;
    }

    bool Misses(const PlaceBounds& bounds) const {
        const Box2d& box = bounds.box;
        return box.minX > reach.maxX || box.maxX < reach.minX || box.minY > reach.maxY ||
               box.maxY < reach.minY || IsBeside(box, near);
    }

    bool IsSlanted() const { return d.x != 0.0 && d.y != 0.0; }

    // Only for slanted segments.
    struct Parallels {
        explicit Parallels(const Query& segment)
            : query(segment), direction(DirectionOf(segment.d)) {}

        bool HasDirection(const DirectionBounds& bounds, double of) const {
            return bounds.minDirection <= of + NEARLY_PARALLEL &&
                   bounds.maxDirection >= of - NEARLY_PARALLEL;
        }

        bool Misses(const DirectionBounds& bounds) const {
            if (!HasDirection(bounds, direction) &&
                !HasDirection(bounds, direction - DIRECTION_PERIOD) &&
                !HasDirection(bounds, direction + DIRECTION_PERIOD)) {
                return true;
            }
            const Box2d& box = bounds.place.box;
            const double extent = (box.maxX - box.minX) + (box.maxY - box.minY);
            return query.IsBeside(box, NEAR_OF_PARALLELS * extent + query.near);
        }

        const Query& query;
        double direction;
    };

    Vec2d p;
    Vec2d d;
    Box2d reach;
    double near; // a distance
    double size;
};

EdgeIndex::EdgeIndex(const std::vector<Edge>& edges) : m_edgeCount(edges.size()) {
    m_isBuilt = !edges.empty() && std::all_of(edges.begin(), edges.end(), [](const Edge& edge) {
        return IsGood(edge.start, edge.end);
    });
    if (m_isBuilt) {
        for (const Edge& edge : edges) {
            m_box |= BoxOf(edge.start, edge.end);
        }
        AddPlaces(edges);
        AddDirections(edges);
    }
}

void EdgeIndex::AddPlaces(const std::vector<Edge>& edges) {
    const double pieceExtent = PieceExtent(edges, m_box);
    std::size_t count = 0;
    for (const Edge& edge : edges) {
        count += PieceCount(edge, pieceExtent);
    }
    std::vector<EdgeTree<PlaceBounds>::Entry> entries;
    entries.reserve(count);
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const Edge& edge = edges[i];
        const std::uint32_t pieces = PieceCount(edge, pieceExtent);
        for (std::uint32_t k = 0; k < pieces; ++k) {
            const double f = static_cast<double>(k) / pieces;
            const double g = static_cast<double>(k + 1) / pieces;
            const auto [minX, maxX] = PieceRange(edge.start.x, edge.end.x, f, g);
            const auto [minY, maxY] = PieceRange(edge.start.y, edge.end.y, f, g);
            entries.push_back({{{minX, minY, maxX, maxY}}, static_cast<std::uint32_t>(i)});
        }
    }
    m_places = EdgeTree<PlaceBounds>(std::move(entries));
}

void EdgeIndex::AddDirections(const std::vector<Edge>& edges) {
    std::vector<EdgeTree<DirectionBounds>::Entry> entries;
    entries.reserve(edges.size());
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const Vec2d e = edges[i].end - edges[i].start;
        if (e.x != 0.0 || e.y != 0.0) {
            const double direction = DirectionOf(e);
            entries.push_back({{{BoxOf(edges[i].start, edges[i].end)}, direction, direction},
                               static_cast<std::uint32_t>(i)});
        }
    }
    m_directions = EdgeTree<DirectionBounds>(std::move(entries));
}

bool EdgeIndex::IsGoodFor(const Vec2d& p, const Vec2d& q) const {
    return m_isBuilt && IsGood(p, q);
}

bool EdgeIndex::FindNear(const Vec2d& p, const Vec2d& q, Found& found) const {
    // Sorting more than this takes longer than walking all edges.
    const std::size_t most = std::max<std::size_t>(m_edgeCount / 8, 32);
    const auto add = [&found, most](std::uint32_t edge) {
        found.Append(edge);
        return found.Count() <= most;
    };
    const Query query(p, q, m_box);
    bool isComplete =
        m_places.Walk([&query](const PlaceBounds& bounds) { return query.Misses(bounds); }, add);
    if (isComplete && query.IsSlanted()) {
        const Query::Parallels parallels(query);
        isComplete = m_directions.Walk(
            [&parallels](const DirectionBounds& bounds) { return parallels.Misses(bounds); }, add);
    }
    if (isComplete) {
        std::sort(found.begin(), found.end());
        const std::uint32_t* const last = std::unique(found.begin(), found.end());
        while (found.end() != last) {
            found.Pop();
        }
    }
    return isComplete;
}

} // namespace geom::detail
