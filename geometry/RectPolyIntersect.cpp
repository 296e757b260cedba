// SPDX-License-Identifier: MIT
#include "geometry/PolygonMeasures.h"

#include <algorithm>

namespace geom {

namespace {

// One edge of the polygon with its extents.
struct Edge {
    double x0, y0, x1, y1;
    double loX, hiX, loY, hiY;

    Edge(const Vec2d& a, const Vec2d& b)
        : x0(a.x), y0(a.y), x1(b.x), y1(b.y), loX(std::min(x0, x1)), hiX(std::max(x0, x1)),
          loY(std::min(y0, y1)), hiY(std::max(y0, y1)) {}

    bool IsApartFrom(const Box2d& box) const {
        return loX > box.maxX || box.minX > hiX || loY > box.maxY || box.minY > hiY;
    }

    // Whether the edge crosses the vertical side at x between the box's corners.
    bool CrossesVertical(double x, const Box2d& box) const {
        if (!(x > loX && hiX >= x)) {
            return false;
        }
        const double y = (x - x1) * (y0 - y1) / (x0 - x1) + y1;
        return box.minY < y && y < box.maxY;
    }

    bool CrossesHorizontal(double y, const Box2d& box) const {
        if (!(y > loY && hiY >= y)) {
            return false;
        }
        const double x = (y - y1) * (x0 - x1) / (y0 - y1) + x1;
        return box.minX < x && x < box.maxX;
    }

    bool CrossesASideOf(const Box2d& box) const {
        return CrossesVertical(box.minX, box) || CrossesVertical(box.maxX, box) ||
               CrossesHorizontal(box.minY, box) || CrossesHorizontal(box.maxY, box);
    }
};

} // namespace

bool RectPolyIntersect(const Box2d& box, const Vec2d* pts, std::size_t n) {
    if (pts == nullptr || n == 0) {
        return false;
    }
    const Vec2d corner(box.minX, box.minY);
    if (box.minX == box.maxX && box.minY == box.maxY) {
        return PointInPolygon(corner, pts, n);
    }
    for (std::size_t i = 1; i < n; ++i) {
        const Edge edge(pts[i - 1], pts[i]);
        if (!edge.IsApartFrom(box) && edge.CrossesASideOf(box)) {
            return true;
        }
    }
    // No side is crossed: one of the two may still lie inside the other.
    return box.Contains(pts[0]) || PointInPolygon(corner, pts, n);
}

} // namespace geom
