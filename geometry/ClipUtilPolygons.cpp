// SPDX-License-Identifier: MIT
/// \file
/// The polygon functions of ClipUtil.h, but for rectangles.
#include "geometry/ClipUtil.h"
#include "geometry/GpcPolygon.h"

#include <utility>

namespace geom {

namespace {

/// Replaces the vectors by the polygon's contours unless it has none.
void FillUnlessEmpty(const GpcPolygon& polygon, std::vector<Vec2d>& pts,
                     std::vector<unsigned int>& counts, bool close) {
    if (polygon.GetNumContours() != 0) {
        polygon.GetPolyPolygon(pts, counts, close);
    }
}

GpcPolygon WithoutArea(GpcPolygon polygon, const GpcPolygon& removed) {
    polygon.Difference(removed);
    return polygon;
}

} // namespace

void ClipGPolygonToGPolygon(const GpcPolygon& subject, const GpcPolygon& clip, GpcPolygon& result) {
    Box2d box;
    if (clip.IsRectangle(&box)) {
        ClipGPolygonToRect(subject, box, result);
        return;
    }
    // Built aside, because the result may be the clip polygon.
    GpcPolygon clipped(subject);
    clipped.Intersection(clip);
    result = std::move(clipped);
}

void ClipGPolygonToGPolygon(const GpcPolygon& subject, const GpcPolygon& clip,
                            std::vector<Vec2d>& pts, std::vector<unsigned int>& counts,
                            bool close) {
    GpcPolygon result;
    ClipGPolygonToGPolygon(subject, clip, result);
    FillUnlessEmpty(result, pts, counts, close);
}

void ClipPolyPolygonToGPolygon(const Vec2d* pts, const unsigned int* counts, std::size_t numParts,
                               const GpcPolygon& clip, std::vector<Vec2d>& outPts,
                               std::vector<unsigned int>& outCounts, bool close) {
    ClipGPolygonToGPolygon(GpcPolygon(pts, counts, numParts), clip, outPts, outCounts, close);
}

bool PolygonContains(const GpcPolygon& outer, const GpcPolygon& inner) {
    Box2d innerBox = inner.GetBBox();
    Box2d outerBox;
    if (outer.IsRectangle(&outerBox)) {
        outerBox.Normalize();
        innerBox.Normalize();
        return outerBox.Contains(innerBox);
    }
    if (inner.GetTotalVertexCount() == 0) {
        return true;
    }
    // Cheaper than the polygon itself, and enough in most cases.
    Vec2d corners[4];
    innerBox.GetCorners(corners);
    return WithoutArea(GpcPolygon(corners, 4), outer).GetNumContours() == 0 ||
           WithoutArea(inner, outer).GetNumContours() == 0;
}

bool PolygonContains(const GpcPolygon& outer, const Vec2d* pts, const unsigned int* counts,
                     std::size_t numParts) {
    return PolygonContains(outer, GpcPolygon(pts, counts, numParts));
}

} // namespace geom
