// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Result records under construction: they release what they hold unless it is taken over.

#include "geometry/Gpc.h"

#include <cstdint>

namespace geom::detail {

/// Builds a polygon record of a known number of contours.
class PolygonBuilder {
public:
    explicit PolygonBuilder(std::uint64_t contours);
    PolygonBuilder(const PolygonBuilder&) = delete;
    PolygonBuilder& operator=(const PolygonBuilder&) = delete;
    ~PolygonBuilder() { gpc_free_polygon(&m_polygon); }

    /// Appends a contour whose vertices are still to be filled in.
    gpc_vertex_list& AddContour(std::uint32_t vertices, int hole);
    /// Hands the record over.
    gpc_polygon Release();

private:
    PolygonBuilder() = default;

    gpc_polygon m_polygon = {0, nullptr, nullptr};
};

/// Builds a record of a known number of triangle strips.
class TristripBuilder {
public:
    explicit TristripBuilder(std::uint64_t strips);
    TristripBuilder(const TristripBuilder&) = delete;
    TristripBuilder& operator=(const TristripBuilder&) = delete;
    ~TristripBuilder() { gpc_free_tristrip(&m_strips); }

    /// Appends a strip whose vertices are still to be filled in.
    gpc_vertex_list& AddStrip(std::uint32_t vertices);
    /// Hands the record over.
    gpc_tristrip Release();

private:
    gpc_tristrip m_strips = {0, nullptr};
};

} // namespace geom::detail
