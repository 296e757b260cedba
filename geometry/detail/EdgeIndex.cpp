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
/// and |e| are at most 2 E. Coordinates are at most 2^250 and the components of d and e are 0
/// or at least 2^-250 in size (IsGoodFor), so no product overflows, none in den underflows, and
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
/// - Case (2), |den| >= 2^-20 |d| |e|: the two points are closer than
///   6 u 2^20 |a| < 2^-29 E in x and in y.
/// - Case (2), d.x == 0 or d.y == 0: one of the products in den and in s is exactly 0, so both
///   are right to a factor of 1 +- u. Say d.y == 0: then the point A + e (-a.y / e.y) of the
///   edge, or one 3 u |e| from it, lies on the segment's line, and its x is off by at most
///   2 u (|a.x| + |e.x|) plus roundings, because t is a.x e.y - a.y e.x, where
///   |a.y| <= |e.y| (1 + 3 u), and is divided by d.x e.y. So the distance is a few u E.
/// - Case (1): |d.x e.y - e.x d.y| and |a.x d.y - a.y d.x| are below 2 u times the sum of their
///   products' sizes. So where edge and segment have the same x (say the ranges overlap in x),
///   their y differ by at most 5 u (|a.y| + |e.y|): a few u E again. Without overlap nothing is
///   accepted.
/// - Case (2), neither component of d zero and |den| < 2^-20 |d| |e|: edge and segment are
///   nearly parallel. The tests then promise nothing about the place along the line, and edges
///   far away are accepted indeed. But |s| <= |den| says that A lies near the segment's line:
///   |a x d| < (2^-20 |e| + 2^-51 E) |d|.
///
/// A point counts as lying on an edge when it is in the edge's box and a cross product of the
/// ways to both ends is 0 as computed: it may be off the edge by 4 u |e|.
///
/// So two trees find all that can be accepted. The first holds places: it passes over boxes
/// that are further than 2^-28 E from the segment's (or the point's) box, or all on one side of
/// the segment's line by more than that. The second one is asked only when neither component of
/// d is 0: it passes over boxes whose edges all differ from d in direction by more than 2^-18
/// (DirectionOf; a cross product of 2^-20 |d| |e| is a difference of at most 2^-19), or which
/// lie wholly on one side of the segment's line by more than
/// (2^-19 |extent of the box| + 2^-28 E) |d|.
///
/// These limits are at least twice what the cases need, which leaves room for the roundings of
/// places and limits themselves. Both are relative to the ring's box and to P, so that they do
/// not grow with the distance from the origin; they are scaled by a power of two, of at most
/// 2^250, which overflows nothing either, and single precision is always rounded outwards.

namespace geom::detail {

namespace {

constexpr double LARGEST_COORDINATE = 0x1p250;
constexpr double SMALLEST_EXTENT = 0x1p-250;
constexpr double NEAR = 0x1p-28;              // as a fraction of the extent in question
constexpr double NEARLY_PARALLEL = 0x1p-18;   // as a difference of directions
constexpr double NEAR_OF_PARALLELS = 0x1p-19; // as a fraction of a box's extent
constexpr double DIRECTION_PERIOD = 2.0;
constexpr double SAME_DIRECTION = 0x1p-10; // not told apart before places are

constexpr std::size_t X = 0;
constexpr std::size_t Y = 1;
constexpr std::size_t DIRECTION = 2;

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

// The side of a square as large as the box of a vector.
double SideOf(double dx, double dy) {
    return std::sqrt(std::fabs(dx)) * std::sqrt(std::fabs(dy));
}

double SideOf(const Edge& edge) {
    return SideOf(edge.end.x - edge.start.x, edge.end.y - edge.start.y);
}

// Long slanted edges have large, mostly empty boxes; they enter the index in pieces of about
// this size. At most doubles the number of entries.
double PieceSide(const std::vector<Edge>& edges, const Box2d& all) {
    double sum = 0.0;
    for (const Edge& edge : edges) {
        sum += SideOf(edge);
    }
    const double count = static_cast<double>(edges.size());
    return std::max(sum / count,
                    SideOf(all.maxX - all.minX, all.maxY - all.minY) / std::sqrt(count));
}

std::uint32_t PieceCount(const Edge& edge, double pieceSide) {
    const double side = SideOf(edge);
    return side > pieceSide ? static_cast<std::uint32_t>(side / pieceSide) + 1 : 1;
}

struct Range {
    double low, high;
};

// The range of one coordinate over the part of an edge from the fraction f to the fraction g.
// Widened by what the computed ends can be off, but not beyond the edge.
Range PieceRange(double start, double end, double f, double g) {
    const double slack = 0x1p-50 * (std::fabs(start) + std::fabs(end));
    const double a = start + (end - start) * f;
    const double b = start + (end - start) * g;
    return {std::max(std::min(a, b) - slack, std::min(start, end)),
            std::min(std::max(a, b) + slack, std::max(start, end))};
}

// All coordinates of the ring are between 0 and 2; what lies further off need not be exact.
double WithinView(double x) {
    return std::min(std::max(x, -1.0), 3.0);
}

} // namespace

// A segment relative to the ring, and how far from it an edge that its tests accept can lie.
struct EdgeIndex::Query {
    Query(const EdgeIndex& index, const Vec2d& start, const Vec2d& end)
        : p(index.ToRing(start)), d((end - start) * index.m_scale),
          size(std::fabs(d.x) + std::fabs(d.y)), reach(index.ReachOf(start, end)) {}

    // Whether a child's box lies on one side of the segment's line, further than `limit`.
    template <typename Node>
    bool IsBeside(const Node& node, std::size_t k, double limit) const {
        const double lowX = node.low[X][k] - p.x;
        const double highX = node.high[X][k] - p.x;
        const double lowY = node.low[Y][k] - p.y;
        const double highY = node.high[Y][k] - p.y;
        const double least = (d.y < 0.0 ? highX : lowX) * d.y - (d.x < 0.0 ? lowY : highY) * d.x;
        const double most = (d.y < 0.0 ? lowX : highX) * d.y - (d.x < 0.0 ? highY : lowY) * d.x;
        return least > limit * size || most < -limit * size;
    }

    std::uint32_t operator()(const Places::Node& node) const {
        std::uint32_t hits = reach.Hits(node);
        if (IsSlanted()) {
            for (std::size_t k = 0; (hits >> k) != 0; ++k) {
                if ((hits >> k & 1U) != 0 && IsBeside(node, k, reach.near)) {
                    hits &= ~(1U << k);
                }
            }
        }
        return hits;
    }

    bool IsSlanted() const { return d.x != 0.0 && d.y != 0.0; }

    Vec2d p;
    Vec2d d;
    double size;
    Reach reach;
};

// A slanted segment among edges nearly parallel to it.
struct EdgeIndex::Parallels {
    explicit Parallels(const Query& segment) : query(segment) {
        const double direction = DirectionOf(segment.d);
        low = Directions::RoundedDown(direction - NEARLY_PARALLEL);
        high = Directions::RoundedUp(direction + NEARLY_PARALLEL);
        const double around = direction + (direction < 0.0 ? DIRECTION_PERIOD : -DIRECTION_PERIOD);
        lowAround = Directions::RoundedDown(around - NEARLY_PARALLEL);
        highAround = Directions::RoundedUp(around + NEARLY_PARALLEL);
    }

    std::uint32_t HitsOfDirection(const Directions::Node& node) const {
        const float* const from = node.low[DIRECTION];
        const float* const to = node.high[DIRECTION];
        return BitsOf([&](std::size_t k) {
            return ((from[k] <= high) & (to[k] >= low)) |
                   ((from[k] <= highAround) & (to[k] >= lowAround));
        });
    }

    std::uint32_t operator()(const Directions::Node& node) const {
        std::uint32_t hits = HitsOfDirection(node);
        for (std::size_t k = 0; (hits >> k) != 0; ++k) {
            const double width = static_cast<double>(node.high[X][k]) - node.low[X][k];
            const double height = static_cast<double>(node.high[Y][k]) - node.low[Y][k];
            const double limit = NEAR_OF_PARALLELS * (width + height) + query.reach.near;
            if ((hits >> k & 1U) != 0 && query.IsBeside(node, k, limit)) {
                hits &= ~(1U << k);
            }
        }
        return hits;
    }

    const Query& query;
    float low, high;
    float lowAround, highAround;
};

EdgeIndex::EdgeIndex(const std::vector<Edge>& edges) {
    const bool areGood = std::all_of(edges.begin(), edges.end(),
                                     [](const Edge& edge) { return IsGood(edge.start, edge.end); });
    if (!areGood || edges.empty()) {
        return;
    }
    for (const Edge& edge : edges) {
        m_box |= BoxOf(edge.start, edge.end);
    }
    const double extent = Extent(m_box);
    m_scale = extent > 0.0 ? std::ldexp(1.0, -std::ilogb(extent)) : 1.0;
    m_size = ToRing({m_box.maxX, m_box.maxY});
    AddPlaces(edges);
    AddDirections(edges);
    m_edgeCount = edges.size();
}

// The ring's box becomes one with its corner at the origin and a larger side of 1 to 2.
Vec2d EdgeIndex::ToRing(const Vec2d& p) const {
    return {(p.x - m_box.minX) * m_scale, (p.y - m_box.minY) * m_scale};
}

EdgeIndex::Reach EdgeIndex::ReachOf(const Vec2d& p, const Vec2d& q) const {
    const Box2d segment = BoxOf(ToRing(p), ToRing(q));
    const Box2d both(std::min(segment.minX, 0.0), std::min(segment.minY, 0.0),
                     std::max(segment.maxX, m_size.x), std::max(segment.maxY, m_size.y));
    const double near = NEAR * Extent(both);
    return {Places::RoundedDown(WithinView(segment.minX - near)),
            Places::RoundedDown(WithinView(segment.minY - near)),
            Places::RoundedUp(WithinView(segment.maxX + near)),
            Places::RoundedUp(WithinView(segment.maxY + near)), near};
}

void EdgeIndex::AddPlaces(const std::vector<Edge>& edges) {
    const double pieceSide = PieceSide(edges, m_box);
    std::vector<Places::Entry> entries;
    entries.reserve(edges.size());
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const Edge& edge = edges[i];
        const std::uint32_t pieces = PieceCount(edge, pieceSide);
        for (std::uint32_t k = 0; k < pieces; ++k) {
            const double f = static_cast<double>(k) / pieces;
            const double g = static_cast<double>(k + 1) / pieces;
            const Range x = PieceRange(edge.start.x, edge.end.x, f, g);
            const Range y = PieceRange(edge.start.y, edge.end.y, f, g);
            const Vec2d low = ToRing({x.low, y.low});
            const Vec2d high = ToRing({x.high, y.high});
            entries.push_back({{low.x, low.y}, {high.x, high.y}, static_cast<std::uint32_t>(i)});
        }
    }
    m_places = Places(std::move(entries), [](const std::array<double, 2>& spreads) {
        return spreads[X] >= spreads[Y] ? X : Y;
    });
}

// Edges of no length cross nothing.
void EdgeIndex::AddDirections(const std::vector<Edge>& edges) {
    std::vector<Directions::Entry> entries;
    entries.reserve(edges.size());
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const Vec2d e = edges[i].end - edges[i].start;
        if (e.x == 0.0 && e.y == 0.0) {
            continue;
        }
        const Box2d box = BoxOf(ToRing(edges[i].start), ToRing(edges[i].end));
        const double direction = DirectionOf(e);
        entries.push_back({{box.minX, box.minY, direction},
                           {box.maxX, box.maxY, direction},
                           static_cast<std::uint32_t>(i)});
    }
    m_directions = Directions(std::move(entries), [](const std::array<double, 3>& spreads) {
        if (spreads[DIRECTION] > SAME_DIRECTION) {
            return DIRECTION;
        }
        return spreads[X] >= spreads[Y] ? X : Y;
    });
}

bool EdgeIndex::IsGoodFor(const Vec2d& p, const Vec2d& q) const {
    return IsBuilt() && IsGood(p, q);
}

bool EdgeIndex::FindNear(const Vec2d& p, const Vec2d& q, Found& found) const {
    // Sorting more than this takes longer than walking all edges.
    const std::size_t most = std::max<std::size_t>(m_edgeCount / 8, 32);
    const auto add = [&found, most](std::uint32_t edge) {
        found.Append(edge);
        return found.Count() <= most;
    };
    const Query query(*this, p, q);
    bool isComplete = m_places.Walk(query, add);
    if (isComplete && query.IsSlanted()) {
        isComplete = m_directions.Walk(Parallels(query), add);
    }
    if (isComplete && found.Count() > 1) {
        std::sort(found.begin(), found.end());
        const std::uint32_t* const last = std::unique(found.begin(), found.end());
        while (found.end() != last) {
            found.Pop();
        }
    }
    return isComplete;
}

} // namespace geom::detail
