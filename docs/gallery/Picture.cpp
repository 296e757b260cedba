// SPDX-License-Identifier: MIT
#include "Picture.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace gallery {

namespace {

constexpr double GAP = 16; // around and between panels
constexpr double CAPTION_HEIGHT = 30;
constexpr const char* FONT = "font-family=\"Helvetica,Arial,sans-serif\"";

// Two decimals without trailing zeros. Written by hand because the standard streams and printf
// follow the locale's decimal separator.
std::string Number(double value) {
    const long long hundredths = std::llround(value * 100);
    const long long size = hundredths < 0 ? -hundredths : hundredths;
    std::string text = (hundredths < 0 ? "-" : "") + std::to_string(size / 100);
    if (size % 100 != 0) {
        text += '.';
        text += static_cast<char>('0' + size % 100 / 10);
        if (size % 10 != 0) {
            text += static_cast<char>('0' + size % 10);
        }
    }
    return text;
}

std::string Escaped(const std::string& text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        default: out += c;
        }
    }
    return out;
}

std::string Attributes(const Style& style) {
    std::string text = " fill=\"" + style.fill + "\"";
    if (style.stroke != "none") {
        text += " stroke=\"" + style.stroke + "\" stroke-width=\"" + Number(style.width) + "\"";
    }
    if (style.opacity < 1) {
        text += " opacity=\"" + Number(style.opacity) + "\"";
    }
    return text;
}

} // namespace

std::string Short(double value, int decimals) {
    const double unit = std::pow(10.0, decimals);
    return Number(std::round(value * unit) / unit);
}

Panel::Panel(std::string caption, const Box2d& view, double width)
    : m_caption(std::move(caption)), m_view(view),
      m_height(width * (view.maxY - view.minY) / (view.maxX - view.minX)),
      m_scale(width / (view.maxX - view.minX)) {}

Vec2d Panel::Map(const Vec2d& p) const {
    return {(p.x - m_view.minX) * m_scale, (m_view.maxY - p.y) * m_scale};
}

void Panel::AppendPath(const Points& points, const Counts& counts, bool closed,
                       const Style& style) {
    std::string data;
    std::size_t start = 0;
    for (const unsigned int count : counts) {
        for (std::size_t i = start; i < start + count; ++i) {
            const Vec2d p = Map(points[i]);
            data += (i == start ? "M" : "L") + Number(p.x) + " " + Number(p.y);
        }
        data += closed && count > 0 ? "Z" : "";
        start += count;
    }
    if (!data.empty()) {
        m_body += "<path" + Attributes(style) + " d=\"" + data + "\"/>\n";
    }
}

Panel& Panel::Rings(const Points& points, const Counts& counts, const Style& style) {
    AppendPath(points, counts, true, style);
    return *this;
}

Panel& Panel::Ring(const Points& points, const Style& style) {
    return Rings(points, {static_cast<unsigned int>(points.size())}, style);
}

Panel& Panel::Rings(const geom::GpcPolygon& polygon, const Style& style) {
    Points points;
    Counts counts;
    polygon.GetPolyPolygon(points, counts, false);
    return Rings(points, counts, style);
}

Panel& Panel::Rings(const geom::Polygon2& polygon, const Style& style) {
    return Rings(polygon.Points(), polygon.Counts(), style);
}

Panel& Panel::Box(const Box2d& box, const Style& style) {
    Points corners(4);
    box.GetCorners(corners.data());
    return Ring(corners, style);
}

Panel& Panel::Line(const Points& points, const Style& style) {
    return Lines(points, {static_cast<unsigned int>(points.size())}, style);
}

Panel& Panel::Lines(const Points& points, const Counts& counts, const Style& style) {
    AppendPath(points, counts, false, style);
    return *this;
}

Panel& Panel::Segment(const Vec2d& a, const Vec2d& b, const Style& style) {
    return Line({a, b}, style);
}

Panel& Panel::Segments(const std::vector<geom::LineSegment2>& segments, const Style& style) {
    Points points;
    for (const geom::LineSegment2& segment : segments) {
        points.push_back(segment.A());
        points.push_back(segment.B());
    }
    return Lines(points, Counts(segments.size(), 2), style);
}

void Panel::AppendHead(const Vec2d& tip, const Vec2d& direction, const char* colour) {
    const Vec2d back = direction * (-7 / direction.Length());
    const Vec2d side(back.y * 0.45, -back.x * 0.45);
    const Vec2d left = tip + back + side;
    const Vec2d right = tip + back - side;
    m_body += std::string("<path fill=\"") + colour + "\" d=\"M" + Number(tip.x) + " " +
              Number(tip.y) + "L" + Number(left.x) + " " + Number(left.y) + "L" + Number(right.x) +
              " " + Number(right.y) + "Z\"/>\n";
}

Panel& Panel::Arrow(const Vec2d& a, const Vec2d& b, const Style& style) {
    Segment(a, b, style);
    AppendHead(Map(b), Map(b) - Map(a), style.stroke.c_str());
    return *this;
}

Panel& Panel::Directions(const Points& ring, const char* colour) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vec2d a = Map(ring[i]);
        const Vec2d b = Map(ring[(i + 1) % ring.size()]);
        const Vec2d along = b - a;
        if (along.Length() > 12) {
            AppendHead((a + b) / 2 + along * (3.5 / along.Length()), along, colour);
        }
    }
    return *this;
}

Panel& Panel::Dot(const Vec2d& p, const char* colour, double radius) {
    const Vec2d at = Map(p);
    m_body += "<circle cx=\"" + Number(at.x) + "\" cy=\"" + Number(at.y) + "\" r=\"" +
              Number(radius) + "\" fill=\"" + colour + "\"/>\n";
    return *this;
}

// One path of lines without length and with round ends, which is shorter than many circles.
Panel& Panel::Dots(const Points& points, const char* colour, double radius) {
    std::string data;
    for (const Vec2d& p : points) {
        const Vec2d at = Map(p);
        data += "M" + Number(at.x) + " " + Number(at.y) + "h0";
    }
    if (!data.empty()) {
        m_body += "<path stroke-linecap=\"round\"" + Attributes(Stroked(colour, 2 * radius)) +
                  " d=\"" + data + "\"/>\n";
    }
    return *this;
}

Panel& Panel::HollowDot(const Vec2d& p, const char* colour, double radius) {
    const Vec2d at = Map(p);
    m_body += "<circle cx=\"" + Number(at.x) + "\" cy=\"" + Number(at.y) + "\" r=\"" +
              Number(radius) + "\" fill=\"#fff\" stroke=\"" + colour +
              "\" stroke-width=\"1.5\"/>\n";
    return *this;
}

Panel& Panel::Text(const Vec2d& p, const std::string& text, const char* colour) {
    const Vec2d at = Map(p);
    m_body += "<text x=\"" + Number(at.x) + "\" y=\"" + Number(at.y) + "\" fill=\"" + colour +
              "\" font-size=\"12\">" + Escaped(text) + "</text>\n";
    return *this;
}

Panel& Picture::Add(const std::string& caption, const Box2d& view) {
    m_panels.emplace_back(caption, view, m_panelWidth);
    return m_panels.back();
}

std::string Picture::Svg() const {
    std::string body;
    double top = GAP;
    for (std::size_t first = 0; first < m_panels.size(); first += m_columns) {
        double rowHeight = 0;
        for (std::size_t i = first; i < std::min(first + m_columns, m_panels.size()); ++i) {
            const Panel& panel = m_panels[i];
            const double left = GAP + static_cast<double>(i - first) * (m_panelWidth + GAP);
            const std::string size =
                "width=\"" + Number(m_panelWidth) + "\" height=\"" + Number(panel.Height()) + "\"";
            body += "<svg x=\"" + Number(left) + "\" y=\"" + Number(top) + "\" " + size + ">\n";
            body += "<rect width=\"100%\" height=\"100%\" fill=\"#fbfaf8\"/>\n";
            body += panel.Body() + "</svg>\n";
            body += "<text x=\"" + Number(left + m_panelWidth / 2) + "\" y=\"" +
                    Number(top + panel.Height() + 18) +
                    "\" font-size=\"12.5\" text-anchor=\"middle\" fill=\"" + colour::INK + "\">" +
                    Escaped(panel.Caption()) + "</text>\n";
            rowHeight = std::max(rowHeight, panel.Height());
        }
        top += rowHeight + CAPTION_HEIGHT + GAP / 2;
    }
    const double columns = static_cast<double>(std::min(m_columns, m_panels.size()));
    const std::string width = Number(GAP + columns * (m_panelWidth + GAP));
    const std::string height = Number(top);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"" + height +
           "\" viewBox=\"0 0 " + width + " " + height + "\" " + FONT +
           " fill-rule=\"evenodd\" stroke-linejoin=\"round\">\n" +
           "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n" + body + "</svg>\n";
}

} // namespace gallery
