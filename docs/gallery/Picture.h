// SPDX-License-Identifier: MIT
#pragma once

#include <geometry/geom.h>

#include <deque>
#include <string>
#include <vector>

/// \file
/// Small drawings as Scalable Vector Graphics: panels side by side, each a window on the plane with
/// a line of text below.

namespace gallery {

using geom::Box2d;
using geom::Vec2d;
using Points = std::vector<Vec2d>;
using Counts = std::vector<unsigned int>;

/// The colours of all pictures, so that each means the same everywhere.
namespace colour {
inline constexpr const char* INK = "#37474f";
inline constexpr const char* FAINT = "#b4bec5";
inline constexpr const char* INPUT = "#8595a0";
inline constexpr const char* INPUT_FILL = "#e4e9ec";
inline constexpr const char* CLIP = "#c39a4f";
inline constexpr const char* CLIP_FILL = "#f6ecd6";
inline constexpr const char* RESULT = "#1f7a74";
inline constexpr const char* RESULT_FILL = "#a8d5d0";
inline constexpr const char* ACCENT = "#c8553d";
inline constexpr const char* ACCENT_FILL = "#f2c9bd";
inline constexpr const char* SECOND = "#6a5fa8";
} // namespace colour

/// How a shape is drawn; lengths are pixels.
struct Style {
    std::string fill = "none";
    std::string stroke = "none";
    double width = 1.5;
    double opacity = 1;
};

inline Style Filled(const char* fill, const char* stroke = "none", double width = 1.5) {
    return {fill, stroke, width, 1};
}
inline Style Stroked(const char* stroke, double width = 1.5) {
    return {"none", stroke, width, 1};
}

/// A window on the plane, y upwards. What is drawn later covers what was drawn before.
class Panel {
public:
    Panel(std::string caption, const Box2d& view, double width);

    double Height() const { return m_height; }
    const std::string& Caption() const { return m_caption; }
    void Caption(std::string caption) { m_caption = std::move(caption); }
    const std::string& Body() const { return m_body; }

    /// Rings are closed and filled by the even-odd rule.
    Panel& Rings(const Points& points, const Counts& counts, const Style& style);
    Panel& Ring(const Points& points, const Style& style);
    Panel& Rings(const geom::GpcPolygon& polygon, const Style& style);
    Panel& Rings(const geom::Polygon2& polygon, const Style& style);
    Panel& Box(const Box2d& box, const Style& style);

    Panel& Line(const Points& points, const Style& style);
    Panel& Lines(const Points& points, const Counts& counts, const Style& style);
    Panel& Segment(const Vec2d& a, const Vec2d& b, const Style& style);
    Panel& Segments(const std::vector<geom::LineSegment2>& segments, const Style& style);
    /// With a head at b.
    Panel& Arrow(const Vec2d& a, const Vec2d& b, const Style& style);
    /// The direction of a ring as a head in the middle of each edge.
    Panel& Directions(const Points& ring, const char* colour);

    Panel& Dot(const Vec2d& p, const char* colour, double radius = 3);
    Panel& Dots(const Points& points, const char* colour, double radius = 3);
    Panel& HollowDot(const Vec2d& p, const char* colour, double radius = 4);
    /// Text that starts at a point.
    Panel& Text(const Vec2d& p, const std::string& text, const char* colour = colour::INK);

private:
    Vec2d Map(const Vec2d& p) const;
    void AppendPath(const Points& points, const Counts& counts, bool closed, const Style& style);
    void AppendHead(const Vec2d& tip, const Vec2d& direction, const char* colour);

    std::string m_caption;
    Box2d m_view;
    double m_height;
    double m_scale;
    std::string m_body;
};

/// Panels in rows.
class Picture {
public:
    explicit Picture(std::size_t columns, double panelWidth = 280)
        : m_columns(columns), m_panelWidth(panelWidth) {}

    Panel& Add(const std::string& caption, const Box2d& view);
    std::string Svg() const;

private:
    std::size_t m_columns;
    double m_panelWidth;
    std::deque<Panel> m_panels;
};

/// A number with few digits, for captions.
std::string Short(double value, int decimals = 1);

} // namespace gallery
