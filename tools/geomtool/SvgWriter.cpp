// SPDX-License-Identifier: MIT
#include "tools/geomtool/SvgWriter.h"

#include "tools/geomtool/Nesting.h"
#include "tools/geomtool/Numbers.h"
#include "tools/geomtool/Palette.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace geomtool {

using geom::Box2d;
using geom::Vec2d;

namespace {

/// A place on the page in units of the last decimal, y downwards.
struct PagePoint {
    long long x, y;
    bool operator==(const PagePoint& o) const { return x == o.x && y == o.y; }
};

/// Maps the plane to the page.
class PageMap {
public:
    PageMap(const Box2d& view, const SvgPage& page)
        : m_view(view), m_units(std::pow(10, page.decimals)), m_margin(page.margin) {
        const double longest = std::max(HalfWidth(), HalfHeight());
        const double inner = std::max(page.size - 2 * m_margin, 1.0);
        m_scale = std::min(inner / longest, std::numeric_limits<double>::max());
    }

    double Width() const { return 2 * m_margin + HalfWidth() * m_scale; }
    double Height() const { return 2 * m_margin + HalfHeight() * m_scale; }

    PagePoint Map(const Vec2d& p) const {
        return {Units(m_margin + (p.x / 2 - m_view.minX / 2) * m_scale),
                Units(m_margin + (m_view.maxY / 2 - p.y / 2) * m_scale)};
    }

    /// Whether anything with this box can show on the page.
    bool Shows(const Box2d& box) const {
        const double room = m_margin / m_scale * 2;
        return box.minX <= m_view.maxX + room && box.maxX >= m_view.minX - room &&
               box.minY <= m_view.maxY + room && box.maxY >= m_view.minY - room;
    }

private:
    // Halves, because the difference of two huge coordinates can overflow.
    double HalfWidth() const { return m_view.maxX / 2 - m_view.minX / 2; }
    double HalfHeight() const { return m_view.maxY / 2 - m_view.minY / 2; }

    /// Far outside the page the exact place does not matter, but the number must stay small.
    long long Units(double pixels) const {
        constexpr double FARTHEST = 1e12;
        return std::llround(std::clamp(pixels * m_units, -FARTHEST, FARTHEST));
    }

    Box2d m_view;
    double m_units;
    double m_margin;
    double m_scale;
};

void AppendCoordinate(std::string& out, long long units, int decimals) {
    if (units >= 0 && out.back() >= '0' && out.back() <= '9') {
        out += ' '; // a minus sign separates by itself
    }
    AppendFixed(out, units, decimals);
}

void AppendPixels(std::string& out, double pixels) {
    AppendFixed(out, std::llround(pixels * 100), 2);
}

enum class Ends { Open, Closed };

/// One subpath, each point relative to the one before. Points that fall together on the page are
/// drawn once.
void AppendSubpath(std::string& out, const std::vector<Vec2d>& points, Ends ends,
                   const PageMap& map, int decimals) {
    PagePoint last = map.Map(points.front());
    out += 'M';
    AppendCoordinate(out, last.x, decimals);
    AppendCoordinate(out, last.y, decimals);
    out += 'l';
    const std::size_t start = out.size();
    for (const Vec2d& p : points) {
        const PagePoint next = map.Map(p);
        if (!(next == last)) {
            AppendCoordinate(out, next.x - last.x, decimals);
            AppendCoordinate(out, next.y - last.y, decimals);
            last = next;
        }
    }
    if (out.size() == start) {
        out += "0 0"; // a dot
    }
    out += ends == Ends::Closed ? "z\n" : "\n";
}

class LayerWriter {
public:
    LayerWriter(std::string& out, const SvgLayer& layer, const PageMap& map, int decimals)
        : m_out(out), m_layer(layer), m_map(map), m_decimals(decimals) {}

    void Write() {
        m_out += "<g fill-rule=\"evenodd\" stroke-linejoin=\"round\" stroke=\"" + m_layer.stroke +
                 "\" stroke-width=\"";
        AppendPixels(m_out, m_layer.strokeWidth);
        m_out += "\">\n";
        if (m_layer.fill == PALETTE_FILL) {
            WritePolygons();
        } else {
            WriteWhole();
        }
        WriteLines();
        m_out += "</g>\n";
    }

private:
    void WriteWhole() {
        BeginPath(m_layer.fill);
        for (const Ring& ring : m_layer.shapes.rings) {
            AddRing(ring);
        }
        EndPath();
    }

    void WriteLines() {
        BeginPath("none");
        for (const Line& line : m_layer.lines.lines) {
            AddSubpath(line, Ends::Open);
        }
        EndPath();
    }

    void WritePolygons() {
        const std::vector<NestedPolygon> polygons = Nest(m_layer.shapes);
        const std::vector<std::size_t> colours = ColourNeighboursApart(m_layer.shapes, polygons);
        for (std::size_t i = 0; i < polygons.size(); ++i) {
            BeginPath(Palette()[colours[i]]);
            AddRing(m_layer.shapes.rings[polygons[i].exterior]);
            for (const std::size_t hole : polygons[i].holes) {
                AddRing(m_layer.shapes.rings[hole]);
            }
            EndPath();
        }
    }

    void BeginPath(const std::string& fill) {
        m_pathStart = m_out.size();
        m_out += "<path fill=\"" + fill + "\" d=\"";
        m_dataStart = m_out.size();
    }

    void AddRing(const Ring& ring) { AddSubpath(ring.points, Ends::Closed); }

    void AddSubpath(const std::vector<Vec2d>& points, Ends ends) {
        if (!points.empty() && m_map.Shows(BoxOf(points))) {
            AppendSubpath(m_out, points, ends, m_map, m_decimals);
        }
    }

    /// A path without data is taken back.
    void EndPath() {
        if (m_out.size() == m_dataStart) {
            m_out.resize(m_pathStart);
        } else {
            m_out += "\"/>\n";
        }
    }

    std::string& m_out;
    const SvgLayer& m_layer;
    const PageMap& m_map;
    int m_decimals;
    std::size_t m_pathStart = 0;
    std::size_t m_dataStart = 0;
};

/// What the page shows: never empty, and with an extent in some direction.
Box2d ViewOf(const std::vector<SvgLayer>& layers, const SvgPage& page) {
    Box2d view;
    if (page.view) {
        view = *page.view;
    } else {
        for (const SvgLayer& layer : layers) {
            view |= layer.shapes.Box();
            view |= layer.lines.Box();
        }
    }
    if (view.IsEmpty()) {
        return Box2d(0, 0, 1, 1);
    }
    if (view.maxX / 2 - view.minX / 2 == 0 && view.maxY / 2 - view.minY / 2 == 0) {
        const Vec2d point = view.Center();
        const double room = std::max({std::abs(point.x), std::abs(point.y), 1.0}) / 2;
        return Box2d(point.x - room, point.y - room, point.x + room, point.y + room);
    }
    return view;
}

void AppendHeader(std::string& out, const PageMap& map, const std::string& background) {
    std::string width;
    AppendPixels(width, map.Width());
    std::string height;
    AppendPixels(height, map.Height());
    out += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"" + height +
           "\" viewBox=\"0 0 " + width + " " + height + "\">\n";
    if (!background.empty() && background != "none") {
        out += "<rect width=\"100%\" height=\"100%\" fill=\"" + background + "\"/>\n";
    }
}

} // namespace

std::string WriteSvg(const std::vector<SvgLayer>& layers, const SvgPage& page) {
    const PageMap map(ViewOf(layers, page), page);
    std::string out;
    AppendHeader(out, map, page.background);
    for (const SvgLayer& layer : layers) {
        LayerWriter(out, layer, map, page.decimals).Write();
    }
    out += "</svg>\n";
    return out;
}

bool IsColour(const std::string& text) {
    const bool isCode = !text.empty() && text[0] == '#';
    const char* const allowed = isCode ? "0123456789abcdefABCDEF" : "abcdefghijklmnopqrstuvwxyz";
    const std::string body = text.substr(isCode ? 1 : 0);
    const bool isSized = isCode ? body.size() == 3 || body.size() == 6 : !body.empty();
    return isSized && body.size() < 32 && body.find_first_not_of(allowed) == std::string::npos;
}

} // namespace geomtool
