// SPDX-License-Identifier: MIT
/// \file
/// The functions of ClipUtil.h that clip polygons to a rectangle.
#include "geometry/ClipUtil.h"
#include "geometry/GpcPolygon.h"
#include "geometry/detail/PolygonErrors.h"
#include "geometry/detail/RingClipper.h"

#include <cstring>

namespace geom {

namespace {

/// An array of points that grows, for a clipper to write to.
class PointList {
public:
    explicit PointList(std::vector<Vec2d>& pts) : m_pts(pts) {}

    void Append(const Vec2d& p) { m_pts.push_back(p); }
    void Append(const Vec2d* pts, std::size_t n) { m_pts.insert(m_pts.end(), pts, pts + n); }
    void Append(const gpc_vertex* vertices, std::size_t n) {
        static_assert(sizeof(gpc_vertex) == sizeof(Vec2d), "both are x and y");
        const std::size_t before = m_pts.size();
        m_pts.resize(before + n);
        std::memcpy(m_pts.data() + before, vertices, n * sizeof(Vec2d));
    }

private:
    std::vector<Vec2d>& m_pts;
};

/// What a rectangle leaves of rings, ring after ring.
class ClippedRings {
public:
    explicit ClippedRings(const Box2d& rect) : m_list(pts), m_clipper(SidesOf(rect), m_list) {}

    /// Clips a ring and returns how many points are left of it, at the end of `pts`.
    ///
    /// Two points are enough: a ring that is cut to a line still shows as one.
    template <typename Point>
    std::size_t Clip(const Point* ring, std::size_t n) {
        const std::size_t before = pts.size();
        m_clipper.Clip(ring, n);
        const std::size_t left = pts.size() - before;
        if (left >= 2) {
            return left;
        }
        pts.resize(before);
        return 0;
    }

    std::vector<Vec2d> pts;
    std::vector<unsigned int> counts;

private:
    static detail::RectangleSides SidesOf(Box2d box) {
        box.Normalize();
        return {box.maxX, box.minY, box.minX, box.maxY};
    }

    PointList m_list;
    detail::RingClipper<PointList> m_clipper;
};

/// Rings as they go to flat output: without a closing duplicate that a polygon would not store,
/// and closed by the first point again where that is asked for.
class FlatRings : public ClippedRings {
public:
    FlatRings(const Box2d& rect, bool close) : ClippedRings(rect), m_close(close) {}

    template <typename Point>
    void Add(const Point* ring, std::size_t n) {
        std::size_t left = Clip(ring, n);
        if (left == 0) {
            return;
        }
        const std::size_t start = pts.size() - left;
        if (detail::IsClosed(pts.data() + start, left)) {
            pts.pop_back();
            --left;
        }
        if (m_close) {
            pts.push_back(pts[start]);
            ++left;
        }
        counts.push_back(static_cast<unsigned int>(left));
    }

    /// Replaces the contents of vectors unless nothing is left.
    void MoveTo(std::vector<Vec2d>& outPts, std::vector<unsigned int>& outCounts) {
        if (counts.empty()) {
            return;
        }
        // The room was made for all points that came in, which may be far too much.
        const bool moves = pts.capacity() / 2 <= pts.size();
        detail::Reserve(outPts, moves ? 0 : pts.size(), detail::LINE_RESIZE_POLYPOLYGON);
        detail::Reserve(outCounts, counts.size(), detail::LINE_RESIZE_POLYPOLYGON);
        outCounts.assign(counts.begin(), counts.end());
        if (moves) {
            outPts.swap(pts);
        } else {
            outPts.assign(pts.begin(), pts.end());
        }
    }

private:
    bool m_close;
};

template <typename Clip>
void ForEachContour(const GpcPolygon& polygon, Clip clip) {
    for (int i = 0; i < polygon.num_contours; ++i) {
        const gpc_vertex_list& ring = polygon.contour[i];
        if (ring.num_vertices > 0) {
            clip(ring.vertex, static_cast<std::size_t>(ring.num_vertices));
        }
    }
}

/// Room for all vertices of a polygon; it is missed as room for the flattened polygon is.
void ReserveFor(const GpcPolygon& polygon, ClippedRings& rings) {
    detail::Reserve(rings.pts, polygon.GetTotalVertexCount(), detail::LINE_RESIZE_POLYPOLYGON);
    detail::Reserve(rings.counts, polygon.GetNumContours(), detail::LINE_RESIZE_POLYPOLYGON);
}

/// Refuses flat parts that no polygon can be made of, and makes room for all their points; it is
/// missed as room for that polygon is.
void ReserveFor(const Vec2d* pts, const unsigned int* counts, std::size_t numParts,
                ClippedRings& rings) {
    if (numParts == 0) {
        return;
    }
    detail::RequireCounts(counts);
    if (numParts > detail::LARGEST_POLYGON_COUNT) {
        detail::ThrowOutOfMemory(detail::LINE_ALLOCATE_HOLES);
    }
    detail::Reserve(rings.counts, numParts, detail::LINE_ALLOCATE_HOLES);
    std::size_t total = 0;
    for (std::size_t i = 0; i < numParts; ++i) {
        detail::RequirePoints(pts, counts[i]);
        if (counts[i] > detail::LARGEST_POLYGON_COUNT) {
            detail::ThrowOutOfMemory(detail::LINE_ALLOCATE_VERTICES);
        }
        total += counts[i];
    }
    detail::Reserve(rings.pts, total, detail::LINE_ALLOCATE_VERTICES);
}

} // namespace

void ClipGPolygonToRect(const GpcPolygon& subject, const Box2d& rect, GpcPolygon& result) {
    ClippedRings rings(rect);
    ReserveFor(subject, rings);
    ForEachContour(subject, [&rings](const gpc_vertex* vertices, std::size_t n) {
        if (const std::size_t left = rings.Clip(vertices, n); left != 0) {
            rings.counts.push_back(static_cast<unsigned int>(left));
        }
    });
    // All at once, so that the result's arrays grow only once.
    result.AddContours(rings.pts.data(), rings.counts.data(), rings.counts.size());
}

void ClipGPolygonToRect(const GpcPolygon& subject, const Box2d& rect, std::vector<Vec2d>& pts,
                        std::vector<unsigned int>& counts, bool close) {
    FlatRings rings(rect, close);
    ReserveFor(subject, rings);
    ForEachContour(subject,
                   [&rings](const gpc_vertex* vertices, std::size_t n) { rings.Add(vertices, n); });
    rings.MoveTo(pts, counts);
}

void ClipPolyPolygonToRect(const Vec2d* pts, const unsigned int* counts, std::size_t numParts,
                           const Box2d& rect, std::vector<Vec2d>& outPts,
                           std::vector<unsigned int>& outCounts, bool close) {
    FlatRings rings(rect, close);
    ReserveFor(pts, counts, numParts, rings);
    for (std::size_t i = 0; i < numParts; ++i) {
        // A polygon would store a closed part open.
        const std::size_t n = counts[i];
        rings.Add(pts, detail::IsClosed(pts, n) ? n - 1 : n);
        pts += n;
    }
    rings.MoveTo(outPts, outCounts);
}

} // namespace geom
