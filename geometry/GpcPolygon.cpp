// SPDX-License-Identifier: MIT
/// \file
/// Making, copying and appending the contours of a GpcPolygon, and its box.
#include "geometry/GpcPolygon.h"

#include "geometry/detail/PolygonErrors.h"
#include "geometry/engine/ContourAppender.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace geom {

namespace {

/// Contour and vertex counts are signed in the engine's records, and a file whose reading failed
/// can leave a negative one behind.
std::size_t CountOf(int count) {
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

template <typename Point>
void CopyVertices(const Point* pts, std::size_t n, gpc_vertex* vertices) {
    std::transform(pts, pts + n, vertices, [](const Point& p) {
        return gpc_vertex{static_cast<double>(p.x), static_cast<double>(p.y)};
    });
}

} // namespace

GpcPolygon::GpcPolygon() : gpc_polygon{0, nullptr, nullptr} {}

// The constructors below delegate to the one above, so that the destructor cleans up after
// whatever they throw.

GpcPolygon::GpcPolygon(const Vec2d* pts, std::size_t n) : GpcPolygon() {
    ConstructFromRing(pts, n);
}

GpcPolygon::GpcPolygon(const tagPOINT* pts, std::size_t n) : GpcPolygon() {
    ConstructFromRing(pts, n);
}

GpcPolygon::GpcPolygon(const Vec2d* pts, const unsigned int* counts, std::size_t numContours)
    : GpcPolygon() {
    ConstructFromPoints(pts, counts, numContours);
}

GpcPolygon::GpcPolygon(const tagPOINT* pts, const unsigned int* counts, std::size_t numContours)
    : GpcPolygon() {
    ConstructFromPoints(pts, counts, numContours);
}

GpcPolygon::GpcPolygon(double left, double top, double right, double bottom) : GpcPolygon() {
    const Vec2d corners[] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
    ConstructFromRing(corners, std::size(corners));
    if (bbox.GetArea() == 0.0) {
        FreeAll();
    }
}

GpcPolygon::GpcPolygon(const tagRECT& r) : GpcPolygon() {
    const tagPOINT corners[] = {
        {r.left, r.top}, {r.right, r.top}, {r.right, r.bottom}, {r.left, r.bottom}};
    ConstructFromRing(corners, std::size(corners));
}

GpcPolygon::GpcPolygon(const GpcPolygon& other) : GpcPolygon() {
    Construct(other);
}

GpcPolygon::GpcPolygon(GpcPolygon&& other) noexcept : GpcPolygon() {
    other.MoveTo(*this);
}

GpcPolygon& GpcPolygon::operator=(const GpcPolygon& other) {
    if (this != &other) {
        FreeAll();
        Construct(other);
    }
    return *this;
}

GpcPolygon& GpcPolygon::operator=(GpcPolygon&& other) noexcept {
    if (this != &other) {
        other.MoveTo(*this);
    }
    return *this;
}

GpcPolygon::~GpcPolygon() {
    FreeAll();
}

std::size_t GpcPolygon::GetNumContours() const {
    return CountOf(num_contours);
}

std::size_t GpcPolygon::GetContourVertexCount(std::size_t i) const {
    if (i >= GetNumContours()) {
        ThrowInternalError(detail::POLYGON_UNIT, detail::LINE_CONTOUR_INDEX);
    }
    return CountOf(contour[i].num_vertices);
}

std::size_t GpcPolygon::GetTotalVertexCount() const {
    std::size_t total = 0;
    for (std::size_t i = 0; i < GetNumContours(); ++i) {
        total += CountOf(contour[i].num_vertices);
    }
    return total;
}

const Box2d& GpcPolygon::GetBBox() const {
    return bbox;
}

bool GpcPolygon::IsRectangle(Box2d* box) const {
    if (num_contours != 1 || contour[0].num_vertices != 4) {
        return false;
    }
    const gpc_vertex* p = contour[0].vertex;
    if (p[1].y != p[0].y || p[3].y != p[2].y || p[2].x != p[1].x || p[3].x != p[0].x) {
        return false;
    }
    if (box != nullptr) {
        *box = Box2d(p[3].x, p[3].y, p[1].x, p[1].y);
    }
    return true;
}

void GpcPolygon::AddContours(const GpcPolygon& other) {
    const int added = std::max(other.num_contours, 0);
    if (added == 0) {
        return;
    }
    detail::ContourAppender appender(*this, static_cast<std::size_t>(added));
    for (int i = 0; i < added; ++i) {
        const gpc_vertex_list& source = other.contour[i];
        gpc_vertex* vertices = appender.Append(source.num_vertices, other.hole[i]);
        std::copy_n(source.vertex, source.num_vertices, vertices);
    }
    appender.Commit();
    bbox |= other.bbox;
}

void GpcPolygon::AddContours(const Vec2d* pts, const unsigned int* counts,
                             std::size_t numContours) {
    if (numContours == 0) {
        return;
    }
    detail::RequireCounts(counts);
    detail::ContourAppender appender(*this, numContours);
    for (std::size_t i = 0; i < numContours; ++i) {
        const std::size_t n = counts[i];
        detail::RequirePoints(pts, n);
        // A count beyond the records' range is refused before the points are looked at.
        const bool isClosed = n <= detail::LARGEST_POLYGON_COUNT && detail::IsClosed(pts, n);
        const std::size_t stored = isClosed ? n - 1 : n;
        gpc_vertex* vertices = appender.Append(static_cast<std::int64_t>(stored), 0);
        CopyVertices(pts, stored, vertices);
        pts += n;
    }
    appender.Commit();
    CalcBBox();
}

void GpcPolygon::Construct(const GPCContourList& source) {
    AllocateContourList(CountOf(source.num_contours));
    for (int i = 0; i < num_contours; ++i) {
        const gpc_vertex_list& ring = source.contour[i];
        SetContour(i, ring.vertex, CountOf(ring.num_vertices), source.hole[i], false);
    }
}

template <typename Point>
void GpcPolygon::ConstructFromPoints(const Point* pts, const unsigned int* counts,
                                     std::size_t numContours) {
    if (numContours == 0) {
        return;
    }
    detail::RequireCounts(counts);
    AllocateContourList(numContours);
    for (int i = 0; i < num_contours; ++i) {
        detail::RequirePoints(pts, counts[i]);
        SetContour(i, pts, counts[i], 0, true);
        pts += counts[i];
    }
}

template <typename Point>
void GpcPolygon::ConstructFromRing(const Point* pts, std::size_t n) {
    detail::RequirePoints(pts, n);
    AllocateContourList(1);
    SetContour(0, pts, n, 0, true);
}

template <typename Point>
void GpcPolygon::SetContour(int i, const Point* pts, std::size_t n, int holeFlag,
                            bool dropClosingDuplicate) {
    if (contour == nullptr || i < 0 || i >= num_contours) {
        return;
    }
    if (n > detail::LARGEST_POLYGON_COUNT) {
        HandleUnallocatedContour(i);
    }
    const std::size_t stored = dropClosingDuplicate && detail::IsClosed(pts, n) ? n - 1 : n;
    gpc_vertex_list& ring = contour[i];
    if (stored != 0) {
        ring.vertex = static_cast<gpc_vertex*>(std::malloc(stored * sizeof(gpc_vertex)));
        if (ring.vertex == nullptr) {
            HandleUnallocatedContour(i);
        }
    }
    ring.num_vertices = static_cast<int>(stored);
    hole[i] = holeFlag;
    CopyVertices(pts, stored, ring.vertex);
    ExtendBBox(ring);
}

void GpcPolygon::AllocateContourList(std::size_t n) {
    if (n == 0) {
        return;
    }
    // A count beyond the record's range is as good as one beyond the heap.
    if (n > detail::LARGEST_POLYGON_COUNT) {
        detail::ThrowOutOfMemory(detail::LINE_ALLOCATE_HOLES);
    }
    hole = static_cast<int*>(std::calloc(n, sizeof(int)));
    if (hole == nullptr) {
        detail::ThrowOutOfMemory(detail::LINE_ALLOCATE_HOLES);
    }
    contour = static_cast<gpc_vertex_list*>(std::calloc(n, sizeof(gpc_vertex_list)));
    if (contour == nullptr) {
        std::free(std::exchange(hole, nullptr));
        detail::ThrowOutOfMemory(detail::LINE_ALLOCATE_CONTOURS);
    }
    num_contours = static_cast<int>(n);
}

void GpcPolygon::HandleUnallocatedContour(int i) {
    if (i >= num_contours) {
        ThrowInternalError(detail::POLYGON_UNIT, detail::LINE_UNALLOCATED_INDEX);
    }
    while (i > 0) {
        std::free(contour[--i].vertex);
    }
    std::free(std::exchange(contour, nullptr));
    std::free(std::exchange(hole, nullptr));
    num_contours = 0;
    bbox = Box2d();
    detail::ThrowOutOfMemory(detail::LINE_ALLOCATE_VERTICES);
}

void GpcPolygon::MoveTo(GpcPolygon& target) {
    target.FreeAll();
    static_cast<gpc_polygon&>(target) =
        std::exchange(static_cast<gpc_polygon&>(*this), gpc_polygon{0, nullptr, nullptr});
    target.bbox = std::exchange(bbox, Box2d());
}

void GpcPolygon::CalcBBox() {
    bbox = Box2d();
    for (int i = 0; i < num_contours; ++i) {
        ExtendBBox(contour[i]);
    }
}

// Box2d::ExtendBy for every vertex, without a call or a branch for each.
void GpcPolygon::ExtendBBox(const gpc_vertex_list& ring) {
    Box2d box = bbox;
    for (int i = 0; i < ring.num_vertices; ++i) {
        const gpc_vertex& v = ring.vertex[i];
        box.minX = v.x < box.minX ? v.x : box.minX;
        box.minY = v.y < box.minY ? v.y : box.minY;
        box.maxX = v.x > box.maxX ? v.x : box.maxX;
        box.maxY = v.y > box.maxY ? v.y : box.maxY;
    }
    bbox = box;
}

void GpcPolygon::FreeAll() {
    gpc_free_polygon(this);
    bbox = Box2d();
}

} // namespace geom
