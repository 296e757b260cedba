// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Gpc.h"

#include <cmath>
#include <initializer_list>
#include <utility>
#include <vector>

namespace geom {

inline bool operator==(const gpc_vertex& a, const gpc_vertex& b) {
    return a.x == b.x && a.y == b.y;
}

} // namespace geom

namespace geom::test {

using Ring = std::vector<gpc_vertex>;

/// Rings that can be handed to the engine as a polygon record. The record points into the
/// rings, with all hole flags 0.
class Shape {
public:
    Shape() = default;
    Shape(std::initializer_list<Ring> rings) : Shape(std::vector<Ring>(rings)) {}
    explicit Shape(std::vector<Ring> rings) : m_rings(std::move(rings)) {}

    const std::vector<Ring>& Rings() const { return m_rings; }

    /// Valid until the shape changes or is asked again.
    const gpc_polygon* Record() const {
        m_lists.clear();
        for (const Ring& ring : m_rings) {
            m_lists.push_back(
                {static_cast<int>(ring.size()), const_cast<gpc_vertex*>(ring.data())});
        }
        m_holes.assign(m_rings.size(), 0);
        m_record = {static_cast<int>(m_rings.size()), m_holes.data(), m_lists.data()};
        return &m_record;
    }

private:
    std::vector<Ring> m_rings;
    mutable std::vector<gpc_vertex_list> m_lists;
    mutable std::vector<int> m_holes;
    mutable gpc_polygon m_record = {0, nullptr, nullptr};
};

/// The result of a set operation, copied out of its record.
struct Contours {
    std::vector<Ring> rings;
    std::vector<int> holes;
};

inline Ring CopyRing(const gpc_vertex_list& list) {
    return list.num_vertices > 0 ? Ring(list.vertex, list.vertex + list.num_vertices) : Ring();
}

inline Contours Clip(gpc_op operation, const Shape& subject, const Shape& clip) {
    gpc_polygon record = {0, nullptr, nullptr};
    gpc_polygon_clip(operation, subject.Record(), clip.Record(), &record);
    Contours result;
    for (int c = 0; c < record.num_contours; ++c) {
        result.rings.push_back(CopyRing(record.contour[c]));
        result.holes.push_back(record.hole[c]);
    }
    gpc_free_polygon(&record);
    return result;
}

inline std::vector<Ring> Strips(gpc_op operation, const Shape& subject, const Shape& clip) {
    gpc_tristrip record = {0, nullptr};
    gpc_tristrip_clip(operation, subject.Record(), clip.Record(), &record);
    std::vector<Ring> result;
    for (int s = 0; s < record.num_strips; ++s) {
        result.push_back(CopyRing(record.strip[s]));
    }
    gpc_free_tristrip(&record);
    return result;
}

/// Signed area: positive for a ring that runs counter-clockwise.
inline double SignedArea(const Ring& ring) {
    double sum = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const gpc_vertex& a = ring[i];
        const gpc_vertex& b = ring[i + 1 < ring.size() ? i + 1 : 0];
        sum += a.x * b.y - b.x * a.y;
    }
    return sum / 2;
}

/// Area of external contours less that of holes.
inline double Area(const Contours& contours) {
    double sum = 0.0;
    for (std::size_t c = 0; c < contours.rings.size(); ++c) {
        const double area = std::fabs(SignedArea(contours.rings[c]));
        sum += contours.holes[c] != 0 ? -area : area;
    }
    return sum;
}

/// Sum of the areas of all triangles of all strips.
inline double StripArea(const std::vector<Ring>& strips) {
    double sum = 0.0;
    for (const Ring& strip : strips) {
        for (std::size_t i = 2; i < strip.size(); ++i) {
            sum += std::fabs(SignedArea({strip[i - 2], strip[i - 1], strip[i]}));
        }
    }
    return sum;
}

inline Ring Square(double x, double y, double size) {
    return {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}};
}

} // namespace geom::test
