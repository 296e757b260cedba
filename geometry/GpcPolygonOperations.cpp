// SPDX-License-Identifier: MIT
/// \file
/// The set operations of GpcPolygon and what is answered through them, with the second attempt
/// in single precision.
#include "geometry/Errors.h"
#include "geometry/GPCException.h"
#include "geometry/GpcPolygon.h"
#include "geometry/detail/RoundToFloat.h"

#include <algorithm>

namespace geom {

namespace {

constexpr const wchar_t* UNIT = L"GpcPolygon";

enum Line : int {
    LINE_UNKNOWN_OPERATION = 987,
};

bool HasVertex(const gpc_polygon& polygon, const Vec2d& p) {
    const auto isThere = [&p](const gpc_vertex& v) { return v.x == p.x && v.y == p.y; };
    return std::any_of(polygon.contour, polygon.contour + polygon.num_contours,
                       [&isThere](const gpc_vertex_list& ring) {
                           return std::any_of(ring.vertex, ring.vertex + ring.num_vertices,
                                              isThere);
                       });
}

} // namespace

// A point strictly inside becomes the corner of what is left of the polygon in a quadrant:
//
//     +-------+
//     |  . . .|      a polygon without a vertex at x is cut there; of a point outside nothing
//     |  x----+ ...  is left, or something that has no corner at x
//     +-------+
//
// The second quadrant serves points on the boundary, which only one of the two may keep.
bool GpcPolygon::PointInside(const Vec2d& p) const {
    if (!bbox.Contains(p)) {
        return false;
    }
    Box2d box;
    if (IsRectangle(&box)) {
        box.Normalize();
        return box.Contains(p);
    }
    GpcPolygon quarter;
    ClipOrRetry(GPC_INT, *this, GpcPolygon(p.x, bbox.maxY + 1.0, bbox.maxX + 1.0, p.y), quarter);
    if (HasVertex(quarter, p)) {
        return true;
    }
    ClipOrRetry(GPC_INT, *this, GpcPolygon(bbox.minX - 1.0, p.y, p.x, bbox.minY - 1.0), quarter);
    return HasVertex(quarter, p);
}

void GpcPolygon::Intersection(const GpcPolygon& other) {
    Combine(other, SetOperation::Intersection);
}

void GpcPolygon::Union(const GpcPolygon& other) {
    Combine(other, SetOperation::Union);
}

void GpcPolygon::Difference(const GpcPolygon& other) {
    Combine(other, SetOperation::Difference);
}

void GpcPolygon::XOR(const GpcPolygon& other) {
    Combine(other, SetOperation::XOR);
}

void GpcPolygon::RemoveZeroWidthReturnPaths() {
    Combine(GpcPolygon(bbox.minX, bbox.minY, bbox.maxX, bbox.maxY), SetOperation::Intersection);
}

void GpcPolygon::Combine(const GpcPolygon& other, SetOperation operation) {
    const gpc_op engineOperation = EngineOperation(operation);
    if (&other == this) {
        if (engineOperation == GPC_DIFF || engineOperation == GPC_XOR) {
            FreeAll();
        }
        return;
    }
    GpcPolygon result;
    ClipOrRetry(engineOperation, *this, other, result);
    result.CalcBBox();
    result.MoveTo(*this);
}

gpc_op GpcPolygon::EngineOperation(SetOperation operation) {
    switch (operation) {
    case SetOperation::Intersection: return GPC_INT;
    case SetOperation::Union: return GPC_UNION;
    case SetOperation::Difference: return GPC_DIFF;
    case SetOperation::XOR: return GPC_XOR;
    }
    ThrowInternalError(UNIT, LINE_UNKNOWN_OPERATION);
}

// The engine overwrites a result record without releasing it and says nothing about it after an
// exception, so it works on a record of its own that is then forgotten.
void GpcPolygon::ClipOrRetry(gpc_op operation, const GpcPolygon& subject, const GpcPolygon& clip,
                             GpcPolygon& result) {
    result.FreeAll();
    gpc_polygon record{0, nullptr, nullptr};
    try {
        gpc_polygon_clip(operation, &subject, &clip, &record);
    } catch (const GPCException&) {
        GpcPolygon roundedSubject;
        GpcPolygon roundedClip;
        subject.GetQuantizedToFloat(roundedSubject);
        clip.GetQuantizedToFloat(roundedClip);
        gpc_polygon_clip(operation, &roundedSubject, &roundedClip, &record);
    }
    static_cast<gpc_polygon&>(result) = record;
}

void GpcPolygon::GetQuantizedToFloat(GpcPolygon& out) const {
    out.FreeAll();
    out.Construct(*this);
    for (int i = 0; i < out.num_contours; ++i) {
        const gpc_vertex_list& ring = out.contour[i];
        std::for_each(ring.vertex, ring.vertex + ring.num_vertices, [](gpc_vertex& v) {
            v = {detail::RoundToFloat(v.x), detail::RoundToFloat(v.y)};
        });
    }
    out.CalcBBox();
}

} // namespace geom
