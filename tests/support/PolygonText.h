// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/GpcPolygon.h"

#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

/// \file
/// Polygons as text: "0 0, 4 0, 4 4 | hole 1 1, 2 1, 2 2". Contours are separated by bars and
/// points by commas; an empty contour is a dash. Numbers are written so that they read back to
/// the bit.

namespace geom::test {

inline std::string Text(const Vec2d& p) {
    char text[64];
    std::snprintf(text, sizeof text, "%.17g %.17g", p.x, p.y);
    return text;
}

inline std::string Text(const tagPOINT& p) {
    return std::to_string(p.x) + " " + std::to_string(p.y);
}

template <typename Point>
std::string Text(const std::vector<Point>& pts) {
    std::string text;
    for (const Point& p : pts) {
        text += (text.empty() ? "" : ", ") + Text(p);
    }
    return text.empty() ? "-" : text;
}

inline std::vector<Vec2d> Points(const gpc_vertex_list& ring) {
    std::vector<Vec2d> pts;
    for (int i = 0; i < ring.num_vertices; ++i) {
        pts.emplace_back(ring.vertex[i].x, ring.vertex[i].y);
    }
    return pts;
}

inline std::string Text(const gpc_polygon& polygon) {
    std::string text;
    for (int i = 0; i < polygon.num_contours; ++i) {
        text += i == 0 ? "" : " | ";
        text += polygon.hole[i] != 0 ? "hole " : "";
        text += Text(Points(polygon.contour[i]));
    }
    return text;
}

/// The points of a text without bars.
inline std::vector<Vec2d> PointsOf(const std::string& text) {
    std::vector<Vec2d> pts;
    std::istringstream stream(text);
    for (std::string point; std::getline(stream, point, ',');) {
        std::istringstream numbers(point);
        Vec2d p;
        if (numbers >> p.x >> p.y) {
            pts.push_back(p);
        }
    }
    return pts;
}

/// Contours come out as they are written, closing duplicates included.
inline GpcPolygon PolygonOf(const std::string& text) {
    GpcPolygon polygon;
    std::istringstream stream(text);
    for (std::string ring; std::getline(stream, ring, '|');) {
        const std::size_t flag = ring.find("hole");
        const bool isHole = flag != std::string::npos;
        const std::vector<Vec2d> pts = PointsOf(isHole ? ring.substr(flag + 4) : ring);
        std::vector<gpc_vertex> vertices;
        for (const Vec2d& p : pts) {
            vertices.push_back({p.x, p.y});
        }
        const gpc_vertex_list contour = {static_cast<int>(vertices.size()), vertices.data()};
        gpc_add_contour(&polygon, &contour, isHole ? 1 : 0);
    }
    return GpcPolygon(polygon); // with its box
}

/// Twice the area that a ring encloses, positive when it runs counter-clockwise.
inline double SignedDoubleArea(const std::vector<Vec2d>& ring) {
    double sum = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vec2d& a = ring[i];
        const Vec2d& b = ring[(i + 1) % ring.size()];
        sum += (a.x - ring[0].x) * (b.y - ring[0].y) - (b.x - ring[0].x) * (a.y - ring[0].y);
    }
    return sum;
}

/// The area of external contours less that of holes; the polygon's area when contours neither
/// cross themselves nor each other.
inline double Area(const gpc_polygon& polygon) {
    double area = 0;
    for (int i = 0; i < polygon.num_contours; ++i) {
        const double ring = std::fabs(SignedDoubleArea(Points(polygon.contour[i]))) / 2;
        area += polygon.hole[i] != 0 ? -ring : ring;
    }
    return area;
}

/// Even-odd membership of a point in general position.
inline bool IsInside(const gpc_polygon& polygon, const Vec2d& p) {
    bool inside = false;
    for (int i = 0; i < polygon.num_contours; ++i) {
        const std::vector<Vec2d> ring = Points(polygon.contour[i]);
        for (std::size_t k = 0; k < ring.size(); ++k) {
            const Vec2d& a = ring[k];
            const Vec2d& b = ring[(k + 1) % ring.size()];
            if ((a.y <= p.y) != (b.y <= p.y) &&
                p.x < a.x + (b.x - a.x) * ((p.y - a.y) / (b.y - a.y))) {
                inside = !inside;
            }
        }
    }
    return inside;
}

} // namespace geom::test
