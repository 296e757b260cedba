// SPDX-License-Identifier: MIT
#include "geometry/LineClipPolygon.h"

#include "geometry/Errors.h"
#include "geometry/GpcPolygon.h"
#include "geometry/detail/LineClipRooms.h"

#include <limits>

namespace geom {

namespace {

// A contour counts its points as an int.
void RequireCountable(std::size_t points) {
    if (points > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        ThrowInternalError(detail::LINE_CLIP_FILE, detail::LINE_TOO_MANY_VERTICES);
    }
}

} // namespace

LineClipPolygon::LineClipPolygon() : contours(nullptr) {}

// The delegation makes the destructor responsible when the rest fails.
LineClipPolygon::LineClipPolygon(const Vec2d* points, const unsigned int* counts,
                                 std::size_t ringCount)
    : LineClipPolygon(GpcPolygon(points, counts, ringCount)) {}

LineClipPolygon::LineClipPolygon(const GpcPolygon& polygon) : LineClipPolygon() {
    Construct(polygon);
}

LineClipPolygon::LineClipPolygon(const LineClipPolygon& other) : LineClipPolygon() {
    Construct(other);
}

LineClipPolygon& LineClipPolygon::operator=(const LineClipPolygon& other) {
    if (this != &other) {
        FreeAll();
        Construct(other);
    }
    return *this;
}

LineClipPolygon::~LineClipPolygon() {
    FreeAll();
}

void LineClipPolygon::FreeAll() {
    del_contours(&contours);
    bbox = Box2d();
}

// The polygon's rings as one closed sequence: rings, holes and islands become one contour, and
// the edges that join them are crossed once each way.
void LineClipPolygon::Construct(const GpcPolygon& polygon) {
    FreeAll();
    RequireCountable(polygon.GetPolygon(static_cast<Vec2d*>(nullptr)));
    std::vector<Vec2d> points;
    polygon.GetPolygon(points);
    if (!points.empty()) {
        def_contour(&contours, points.data(), static_cast<int>(points.size()), 0);
        bbox = polygon.GetBBox();
        BuildIndex(points.size());
    }
}

void LineClipPolygon::Construct(const LineClipPolygon& other) {
    std::vector<Vec2d> points;
    other.GetPolygon(points);
    RequireCountable(points.size());
    def_contour(&contours, points.data(), static_cast<int>(points.size()), 0);
    bbox = other.bbox;
    BuildIndex(points.size());
}

std::size_t LineClipPolygon::GetNumContours() const {
    std::size_t count = 0;
    for (const CONTOUR* contour = contours; contour != nullptr; contour = contour->next) {
        ++count;
    }
    return count;
}

std::size_t LineClipPolygon::GetContourVertexCount(std::size_t index) const {
    if (index != 0 || contours == nullptr) {
        return 0;
    }
    const SEGMENT* edge = contours->segments;
    std::size_t count = 1;
    do {
        ++count;
        edge = edge->next;
    } while (edge != contours->segments);
    return count;
}

std::size_t LineClipPolygon::GetTotalVertexCount() const {
    std::size_t count = 0;
    for (const CONTOUR* contour = contours; contour != nullptr; contour = contour->next) {
        const SEGMENT* edge = contour->segments;
        do {
            ++count;
            edge = edge->next;
        } while (edge != contour->segments);
        ++count;
    }
    return count;
}

Box2d LineClipPolygon::GetBBox() const {
    return bbox;
}

void LineClipPolygon::GetPolygon(std::vector<Vec2d>& out) const {
    for (const CONTOUR* contour = contours; contour != nullptr; contour = contour->next) {
        const SEGMENT* edge = contour->segments;
        do {
            out.emplace_back(edge->startX, edge->startY);
            edge = edge->next;
        } while (edge != contour->segments);
        out.emplace_back(edge->prev->endX, edge->prev->endY);
    }
}

bool LineClipPolygon::IsRectangle(Box2d* box) const {
    if (contours == nullptr || contours->next != nullptr) {
        return false;
    }
    const SEGMENT& first = *contours->segments;
    const SEGMENT& second = *first.next;
    const SEGMENT& third = *second.next;
    const SEGMENT& fourth = *third.next;
    const bool hasFourEdges =
        &second != &first && &third != &first && &fourth != &first && fourth.next == &first;
    const bool isRectangle = hasFourEdges && second.startY == first.startY &&
                             fourth.startY == third.startY && third.startX == second.startX &&
                             fourth.startX == first.startX && fourth.endX == first.startX &&
                             fourth.endY == first.startY;
    if (isRectangle && box != nullptr) {
        *box = {fourth.startX, fourth.startY, second.startX, second.startY};
    }
    return isRectangle;
}

namespace {

bool EndsAt(const std::vector<LineSegment2>& pieces, double x) {
    for (const LineSegment2& piece : pieces) {
        if (piece.A().x == x || piece.B().x == x) {
            return true;
        }
    }
    return false;
}

} // namespace

// A point strictly inside cuts the horizontal through it: what is left of it towards the left
// border ends there. The second try runs from the point back to just inside that border.
bool LineClipPolygon::PointInside(const Vec2d& p) const {
    if (!(bbox.minX <= p.x && p.x <= bbox.maxX && bbox.minY <= p.y && p.y <= bbox.maxY)) {
        return false;
    }
    std::vector<LineSegment2> pieces;
    Clip(LineSegment2({bbox.minX - 1.0, p.y}, p), pieces);
    if (EndsAt(pieces, p.x)) {
        return true;
    }
    pieces.clear();
    Clip(LineSegment2(p, {bbox.minX + 1.0, p.y}), pieces);
    return EndsAt(pieces, p.x);
}

} // namespace geom
