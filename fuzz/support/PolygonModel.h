// SPDX-License-Identifier: MIT
#pragma once

#include "fuzz/support/Coordinates.h"

#include "geometry/GpcPolygon.h"
#include "tests/reference/PlainSweep.h"

#include <optional>
#include <vector>

/// \file
/// What a GpcPolygon must be, kept as plain vectors and computed with the plain sweep.

namespace geom::fuzz {

struct ModelContour {
    int hole = 0;
    Points points;
};

class PolygonModel {
public:
    PolygonModel() = default;
    /// One external contour, without a closing duplicate.
    explicit PolygonModel(const Points& ring) { AddRing(ring); }

    const std::vector<ModelContour>& Contours() const { return m_contours; }
    std::size_t VertexCount() const;
    Box2d Box() const;
    /// Even-odd; false for nothing.
    bool Contains(const Vec2d& p) const;
    /// Whether a point is so near to an edge that its membership is not certain.
    bool IsOnAnEdge(const Vec2d& p) const;

    void Clear() { m_contours.clear(); }
    /// Appends an external contour, without a closing duplicate.
    void AddRing(const Points& ring);
    void AddContours(const PolygonModel& other);
    /// The set operation, at the second attempt with single precision. Returns false, and
    /// changes nothing, when the sweep fails twice.
    bool Combine(gpc_op operation, const PolygonModel& other);
    /// The strips of the polygon's own area; nothing when the sweep fails twice.
    std::optional<std::vector<test::PlainStrip>> Strips() const;
    /// Rounds the coordinates to what a text file keeps of them.
    void RoundToText();

    /// Whether a polygon is this one: contours, hole flags, box, and all its flat forms.
    bool Describes(const GpcPolygon& polygon) const;

private:
    bool HasContoursOf(const GpcPolygon& polygon) const;
    bool HasFlatFormsOf(const GpcPolygon& polygon, bool close) const;
    bool HasRingsOf(const GpcPolygon& polygon) const;
    PolygonModel InSinglePrecision() const;

    std::vector<ModelContour> m_contours;
};

} // namespace geom::fuzz
