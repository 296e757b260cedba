// SPDX-License-Identifier: MIT
#include "geometry/Polyline.h"

#include <algorithm>

namespace geom {

namespace {

// Reserved first, so that a count that no array can have is refused before it is used.
template <typename Point>
std::vector<Vec2d> Copy(const Point* pts, std::size_t n) {
    std::vector<Vec2d> vertices;
    if (pts != nullptr) {
        vertices.reserve(n);
        vertices.assign(pts, pts + n);
    }
    return vertices;
}

} // namespace

Polyline::Polyline(const Vec2d* pts, std::size_t n) : m_vertices(Copy(pts, n)) {}

Polyline::Polyline(const tagPOINT* pts, std::size_t n) : m_vertices(Copy(pts, n)) {}

// Whatever happens, the old storage lives until the new vertices have been read from it.
void Polyline::Append(const Vec2d* pts, std::size_t n) {
    if (pts == nullptr || n == 0) {
        return;
    }
    const std::size_t oldSize = m_vertices.size();
    if (n <= m_vertices.capacity() - oldSize) {
        m_vertices.resize(oldSize + n);
        std::copy_n(pts, n, m_vertices.data() + oldSize);
        return;
    }
    std::vector<Vec2d> grown;
    grown.reserve(std::max(oldSize + std::min(n, grown.max_size() - oldSize + 1), 2 * oldSize));
    grown.insert(grown.end(), m_vertices.begin(), m_vertices.end());
    grown.insert(grown.end(), pts, pts + n);
    m_vertices.swap(grown);
}

} // namespace geom
