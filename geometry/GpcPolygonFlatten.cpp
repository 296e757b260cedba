// SPDX-License-Identifier: MIT
/// \file
/// A GpcPolygon's contours as arrays of points: one after another, or joined to a single ring.
#include "geometry/GpcPolygon.h"
#include "geometry/detail/PolygonErrors.h"
#include "geometry/detail/RoundToInt.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace geom {

namespace {

void Convert(const gpc_vertex& from, Vec2d& to) {
    to = {from.x, from.y};
}

void Convert(const gpc_vertex& from, tagPOINT& to) {
    to = detail::RoundToPoint(from.x, from.y);
}

/// Writes points one after another, or only counts them when there is no array.
template <typename Point>
class PointWriter {
public:
    explicit PointWriter(Point* pts) : m_pts(pts) {}

    void WriteVertex(const gpc_vertex& v) {
        if (m_pts != nullptr) {
            Convert(v, m_pts[m_count]);
        }
        ++m_count;
    }

    void WriteRing(const gpc_vertex_list& ring, bool close) {
        if (ring.num_vertices <= 0) {
            return;
        }
        if (m_pts == nullptr) {
            m_count += static_cast<std::size_t>(ring.num_vertices);
        } else {
            std::for_each(ring.vertex, ring.vertex + ring.num_vertices,
                          [this](const gpc_vertex& v) { WriteVertex(v); });
        }
        if (close) {
            WriteVertex(ring.vertex[0]);
        }
    }

    std::size_t Count() const { return m_count; }

private:
    Point* m_pts;
    std::size_t m_count = 0;
};

template <typename Point>
std::size_t WritePolyPolygon(const gpc_polygon& polygon, Point* pts, unsigned int* counts,
                             bool close) {
    PointWriter<Point> writer(pts);
    for (int i = 0; i < polygon.num_contours; ++i) {
        const std::size_t before = writer.Count();
        writer.WriteRing(polygon.contour[i], close);
        if (counts != nullptr) {
            counts[i] = static_cast<unsigned int>(writer.Count() - before);
        }
    }
    return writer.Count();
}

template <typename Point>
std::size_t WritePolygon(const gpc_polygon& polygon, Point* pts) {
    PointWriter<Point> writer(pts);
    for (int i = 0; i < polygon.num_contours; ++i) {
        writer.WriteRing(polygon.contour[i], true);
    }
    for (int i = polygon.num_contours - 2; i >= 0; --i) {
        if (polygon.contour[i].num_vertices > 0) {
            writer.WriteVertex(polygon.contour[i].vertex[0]);
        }
    }
    return writer.Count();
}

template <typename Point>
std::size_t FillPolyPolygon(const gpc_polygon& polygon, std::vector<Point>& pts,
                            std::vector<unsigned int>& counts, bool close,
                            detail::PolygonLine line) {
    const std::size_t numContours =
        polygon.num_contours > 0 ? static_cast<std::size_t>(polygon.num_contours) : 0;
    const std::size_t total =
        WritePolyPolygon(polygon, static_cast<Point*>(nullptr), nullptr, close);
    detail::Reserve(pts, total, line);
    detail::Reserve(counts, numContours, line);
    pts.resize(total);
    counts.resize(numContours);
    return WritePolyPolygon(polygon, pts.data(), counts.data(), close);
}

template <typename Point>
std::size_t FillPolygon(const gpc_polygon& polygon, std::vector<Point>& pts,
                        detail::PolygonLine line) {
    const std::size_t total = WritePolygon(polygon, static_cast<Point*>(nullptr));
    detail::Reserve(pts, total, line);
    pts.resize(total);
    return WritePolygon(polygon, pts.data());
}

} // namespace

std::size_t GpcPolygon::GetPolyPolygon(Vec2d* pts, unsigned int* counts, bool close) const {
    return WritePolyPolygon(*this, pts, counts, close);
}

std::size_t GpcPolygon::GetPolyPolygon(tagPOINT* pts, unsigned int* counts, bool close) const {
    return WritePolyPolygon(*this, pts, counts, close);
}

std::size_t GpcPolygon::GetPolyPolygon(std::vector<Vec2d>& pts, std::vector<unsigned int>& counts,
                                       bool close) const {
    return FillPolyPolygon(*this, pts, counts, close, detail::LINE_RESIZE_POLYPOLYGON);
}

std::size_t GpcPolygon::GetPolyPolygon(std::vector<tagPOINT>& pts,
                                       std::vector<unsigned int>& counts, bool close) const {
    return FillPolyPolygon(*this, pts, counts, close, detail::LINE_RESIZE_INTEGER_POLYPOLYGON);
}

std::size_t GpcPolygon::GetPolygon(Vec2d* pts) const {
    return WritePolygon(*this, pts);
}

std::size_t GpcPolygon::GetPolygon(tagPOINT* pts) const {
    return WritePolygon(*this, pts);
}

std::size_t GpcPolygon::GetPolygon(std::vector<Vec2d>& pts) const {
    return FillPolygon(*this, pts, detail::LINE_RESIZE_POLYGON);
}

std::size_t GpcPolygon::GetPolygon(std::vector<tagPOINT>& pts) const {
    return FillPolygon(*this, pts, detail::LINE_RESIZE_INTEGER_POLYGON);
}

} // namespace geom
