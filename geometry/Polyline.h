// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"

#include <cstddef>
#include <vector>

namespace geom {

/// An open polyline: a growable array of vertices. No closing vertex is implied.
///
/// The arrays handed in are copied. A null array adds no vertices. Growth throws the standard
/// exceptions (std::bad_alloc, std::length_error) and then leaves the polyline as it was.
class GEOM_API Polyline {
public:
    /// Without vertices.
    Polyline() = default;
    Polyline(const Vec2d* pts, std::size_t n);
    /// Each coordinate is converted exactly.
    Polyline(const tagPOINT* pts, std::size_t n);

    /// Adds `n` vertices at the end. They may be vertices of this polyline.
    void Append(const Vec2d* pts, std::size_t n);
    /// Removes all vertices; the storage is kept for new ones.
    void Clear() { m_vertices.clear(); }

    bool Empty() const { return m_vertices.empty(); }
    std::size_t Size() const { return m_vertices.size(); }
    /// The first vertex, followed by the others; null when there is none. Valid until the
    /// polyline changes.
    const Vec2d* GetVertices() const { return Empty() ? nullptr : m_vertices.data(); }
    /// The i-th vertex; `i` is not checked.
    const Vec2d& operator[](std::size_t i) const { return m_vertices[i]; }

private:
    std::vector<Vec2d> m_vertices;
};

} // namespace geom
