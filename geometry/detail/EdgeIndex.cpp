// SPDX-License-Identifier: MIT
#include "geometry/detail/EdgeIndex.h"

#include <algorithm>
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
/// - Case (2), |den| >= 2^-25 |d| |e|: the two points are closer than
///   6 u 2^25 |a| < 2^-24 E in x and in y.
/// - Case (2), d.x == 0 or d.y == 0: one of the products in den and in s is exactly 0, so both
///   are right to a factor of 1 +- u. Say d.y == 0: then the point A + e (-a.y / e.y) of the
///   edge, or one 3 u |e| from it, lies on the segment's line, and its x is off by at most
///   2 u (|a.x| + |e.x|) plus roundings, because t is a.x e.y - a.y e.x, where
///   |a.y| <= |e.y| (1 + 3 u), and is divided by d.x e.y. So the distance is a few u E.
/// - Case (1): |d.x e.y - e.x d.y| and |a.x d.y - a.y d.x| are below 2 u times the sum of their
///   products' sizes. So where edge and segment have the same x (say the ranges overlap in x),
///   their y differ by at most 5 u (|a.y| + |e.y|): a few u E again. Without overlap nothing is
///   accepted.
/// - Case (2), neither component of d zero and |den| < 2^-25 |d| |e|: edge and segment are
///   nearly parallel. The tests then promise nothing about the place along the line, and edges
///   far away are accepted indeed. But |s| <= |den| says that A lies near the segment's line:
///   |a x d| < (2^-25 |e| + 2^-51 E) |d|.
///
/// A point counts as lying on an edge when it is in the edge's box and a cross product of the
/// ways to both ends is 0 as computed: it may be off the edge by 4 u |e|.
///
/// So two lists find all that can be accepted. A tree of places passes over boxes that are
/// further than 2^-23 E from the segment's (or the point's) box, or all on one side of the
/// segment's line by more than that. Parallels are looked for only when neither component of d
/// is 0: edges that differ from d in direction by at most 2^-23 (as Parallels measures it; a
/// cross product of 2^-25 |d| |e| is a difference of at most 2^-24), and start within
/// 2^-24 |e| + 2^-23 E of the segment's line.
///
/// These limits are at least twice what the cases need, which leaves room for the roundings of
/// places and limits themselves. Both are relative to the ring's box and to P, so that they do
/// not grow with the distance from the origin; they are scaled by a power of two, of at most
/// 2^250, which overflows nothing either, and single precision is always rounded outwards.

namespace geom::detail {

namespace {

constexpr double NEAR = 0x1p-23;              // as a fraction of the extent in question
constexpr double NEAR_OF_PARALLELS = 0x1p-24; // as a fraction of an edge
constexpr double LONGEST_EDGE = 4.0;          // in the frame, as |e|

constexpr std::size_t MOST_EDGES_OF_RUN = 8;
constexpr double RUN_SIDE = 2.0; // as a multiple of the side of pieces

// The side of a square as large as a box.
double SideOf(double width, double height) {
    return std::sqrt(width * height);
}

double SideOf(const Box2d& box) {
    return SideOf(box.maxX - box.minX, box.maxY - box.minY);
}

double SideOf(const Vec2d& a, const Vec2d& b) {
    return std::sqrt(std::fabs((b.x - a.x) * (b.y - a.y)));
}

Box2d BoxOf(const Vec2d& a, const Vec2d& b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

Box2d Union(const Box2d& a, const Box2d& b) {
    return {std::min(a.minX, b.minX), std::min(a.minY, b.minY), std::max(a.maxX, b.maxX),
            std::max(a.maxY, b.maxY)};
}

// Long slanted edges have large, mostly empty boxes; they enter the index in pieces of about
// this size. At most doubles the number of entries.
double PieceSide(const FramedRing& ring) {
    double sum = 0.0;
    for (std::size_t i = 0; i < ring.count; ++i) {
        sum += SideOf(ring.points[i], ring.points[i + 1]);
    }
    const double count = static_cast<double>(ring.count);
    const Vec2d& size = ring.frame.Size();
    return std::max(sum / count, SideOf(size.x, size.y) / std::sqrt(count));
}

// Places further off than this need not be exact: the ring is between 0 and 2.
double WithinView(double x) {
    return std::min(std::max(x, -0.5), 3.5);
}

} // namespace

// A bit for each child whose box meets this one.
std::uint32_t EdgeIndex::Reach::operator()(const EdgeTree::Node& node) const {
    return EdgeTree::BitsOf([this, &node](std::size_t k) {
        return (node.lowX[k] <= highX) & (node.highX[k] >= lowX) & (node.lowY[k] <= highY) &
               (node.highY[k] >= lowY);
    });
}

// All places within a distance of the line through a slanted segment. The distance is widened
// by what single precision can be off.
struct EdgeIndex::Strip {
    Strip(const Vec2d& p, const Vec2d& d, double near) {
        const double size = std::fabs(d.x) + std::fabs(d.y);
        const Vec2d unit(d.x / size, d.y / size);
        const double offset = p.x * unit.y - p.y * unit.x;
        dx = static_cast<float>(unit.x);
        dy = static_cast<float>(unit.y);
        low = static_cast<float>(WithinOffsets(offset - near) - SINGLE_ERROR);
        high = static_cast<float>(WithinOffsets(offset + near) + SINGLE_ERROR);
    }

    // A bit for each child whose box is not all on one side. What it says of missing children
    // means nothing.
    std::uint32_t operator()(const EdgeTree::Node& node) const {
        const float* const leastX = dy < 0.0F ? node.highX : node.lowX;
        const float* const mostX = dy < 0.0F ? node.lowX : node.highX;
        const float* const leastY = dx < 0.0F ? node.lowY : node.highY;
        const float* const mostY = dx < 0.0F ? node.highY : node.lowY;
        return EdgeTree::BitsOf([&](std::size_t k) {
            return (leastX[k] * dy - leastY[k] * dx <= high) &
                   (mostX[k] * dy - mostY[k] * dx >= low);
        });
    }

    // Those of places on the ring are smaller.
    static double WithinOffsets(double x) { return std::min(std::max(x, -16.0), 16.0); }
    static constexpr double SINGLE_ERROR = 0x1p-19;

    float dx, dy;    ///< |dx| + |dy| is 1
    float low, high; ///< bounds of cross products with them
};

// A segment relative to the ring, and how far from it an edge that its tests accept can lie.
struct EdgeIndex::Query {
    Query(const EdgeIndex& index, const Vec2d& start, const Vec2d& end)
        : p(index.m_frame.ToRing(start)), d((end - start) * index.m_frame.Scale()),
          isSlanted(d.x != 0.0 && d.y != 0.0), reach(index.ReachOf(start, end)),
          strip(p, isSlanted ? d : Vec2d(1.0, 0.0), reach.near) {}

    std::uint32_t operator()(const EdgeTree::Node& node) const {
        const std::uint32_t hits = reach(node);
        return isSlanted && hits != 0 ? hits & strip(node) : hits;
    }

    Vec2d p;
    Vec2d d;
    bool isSlanted;
    Reach reach;
    Strip strip;
};

// The same for single edges, in the coordinates of the ring as it was given.
struct EdgeIndex::Gate {
    Gate(const EdgeIndex& index, const Query& query, const Vec2d& start, const Vec2d& end)
        : p(start), d(end - start), box(BoxOf(start, end)), isSlanted(query.isSlanted) {
        const double near = query.reach.near / index.m_frame.Scale();
        box = {box.minX - near, box.minY - near, box.maxX + near, box.maxY + near};
        limit = near * (std::fabs(d.x) + std::fabs(d.y));
    }

    bool LetsPass(const Vec2d& a, const Vec2d& b) const {
        if (!((a.x <= box.maxX || b.x <= box.maxX) && (a.x >= box.minX || b.x >= box.minX) &&
              (a.y <= box.maxY || b.y <= box.maxY) && (a.y >= box.minY || b.y >= box.minY))) {
            return false;
        }
        if (!isSlanted) {
            return true;
        }
        const double sideA = (a.x - p.x) * d.y - (a.y - p.y) * d.x;
        const double sideB = (b.x - p.x) * d.y - (b.y - p.y) * d.x;
        return std::min(sideA, sideB) <= limit && std::max(sideA, sideB) >= -limit;
    }

    Vec2d p;
    Vec2d d;
    Box2d box;
    bool isSlanted;
    double limit = 0.0;
};

EdgeIndex::EdgeIndex(const FramedRing& ring) {
    if (!ring.isGood) {
        return;
    }
    m_frame = ring.frame;
    m_ring = ring.original;
    AddRuns(ring);
    m_parallels = Parallels(ring);
    m_edgeCount = ring.count;
}

// Edges that follow each other are near each other: runs of some make the lowest boxes, as long
// as these stay small.
void EdgeIndex::AddRuns(const FramedRing& ring) {
    const double pieceSide = PieceSide(ring);
    const std::vector<Vec2d>& points = ring.points;
    std::vector<EdgeTree::Entry> entries;
    entries.reserve(ring.count / 4);
    for (std::size_t i = 0; i < ring.count;) {
        const std::uint32_t run = static_cast<std::uint32_t>(m_runs.size());
        m_runs.push_back(static_cast<std::uint32_t>(i));
        Box2d box = BoxOf(points[i], points[i + 1]);
        if (SideOf(box) > pieceSide) {
            AddPieces(points[i], points[i + 1], pieceSide, run, entries);
            ++i;
            continue;
        }
        const std::size_t end = std::min(i + MOST_EDGES_OF_RUN, ring.count);
        while (++i < end) {
            const Box2d wider = Union(box, BoxOf(points[i], points[i + 1]));
            if (SideOf(wider) > RUN_SIDE * pieceSide) {
                break;
            }
            box = wider;
        }
        entries.push_back({box, run});
    }
    m_runs.push_back(static_cast<std::uint32_t>(ring.count));
    m_places = EdgeTree(std::move(entries));
}

void EdgeIndex::AddPieces(const Vec2d& a, const Vec2d& b, double pieceSide, std::uint32_t run,
                          std::vector<EdgeTree::Entry>& entries) {
    const std::uint32_t pieces = static_cast<std::uint32_t>(SideOf(a, b) / pieceSide) + 1;
    Vec2d from = a;
    for (std::uint32_t k = 1; k <= pieces; ++k) {
        const Vec2d to = k == pieces ? b : a + (b - a) * (static_cast<double>(k) / pieces);
        entries.push_back({BoxOf(from, to), run});
        from = to;
    }
}

EdgeIndex::Reach EdgeIndex::ReachOf(const Vec2d& p, const Vec2d& q) const {
    const Box2d segment = BoxOf(m_frame.ToRing(p), m_frame.ToRing(q));
    const Vec2d& size = m_frame.Size();
    const Box2d both = Union(segment, Box2d(0.0, 0.0, size.x, size.y));
    const double near = NEAR * std::max(both.maxX - both.minX, both.maxY - both.minY);
    return {EdgeTree::RoundedDown(WithinView(segment.minX - near)),
            EdgeTree::RoundedDown(WithinView(segment.minY - near)),
            EdgeTree::RoundedUp(WithinView(segment.maxX + near)),
            EdgeTree::RoundedUp(WithinView(segment.maxY + near)), near};
}

bool EdgeIndex::IsGoodFor(const Vec2d& p, const Vec2d& q) const {
    return IsBuilt() && IsGoodCoordinate(p.x) && IsGoodCoordinate(p.y) && IsGoodCoordinate(q.x) &&
           IsGoodCoordinate(q.y) && IsGoodExtent(q.x - p.x) && IsGoodExtent(q.y - p.y);
}

template <typename Visit>
bool EdgeIndex::VisitParallels(const Query& query, const Visit& visit) const {
    const double size = 2.0 * query.reach.near / NEAR;
    const double near = NEAR_OF_PARALLELS * LONGEST_EDGE + query.reach.near;
    return m_parallels.VisitNear(query.p, query.d, size, near, visit);
}

bool EdgeIndex::HasParallels(const Vec2d& p, const Vec2d& q) const {
    return !VisitParallels(Query(*this, p, q), [](std::uint32_t) { return false; });
}

bool EdgeIndex::FindNear(const Vec2d& p, const Vec2d& q, Found& found) const {
    // Sorting more than this takes longer than walking all edges.
    const std::size_t most = std::max<std::size_t>(m_edgeCount / 8, 32);
    const Query query(*this, p, q);
    const Gate gate(*this, query, p, q);
    const auto addRun = [this, &gate, &found, most](std::uint32_t run) {
        for (std::uint32_t edge = m_runs[run]; edge < m_runs[run + 1]; ++edge) {
            if (gate.LetsPass(m_ring[edge], m_ring[edge + 1])) {
                found.Append(edge);
            }
        }
        return found.Count() <= most;
    };
    const auto add = [&found, most](std::uint32_t edge) {
        found.Append(edge);
        return found.Count() <= most;
    };
    bool isComplete = m_places.Walk(query, addRun);
    if (isComplete && query.isSlanted) {
        isComplete = VisitParallels(query, add);
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
