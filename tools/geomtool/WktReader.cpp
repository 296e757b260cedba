// SPDX-License-Identifier: MIT
// A recursive descent over the grammar of well-known text. Collections alone recurse, to a
// bounded depth, so no input can exhaust the stack.
#include "tools/geomtool/TextScanner.h"
#include "tools/geomtool/WktFormat.h"

#include <utility>

namespace geomtool {

namespace {

constexpr int DEEPEST_COLLECTION = 100;

/// Which geometries a text may hold.
enum class Kinds { Polygons, PolygonsAndLines };

class WktParser {
public:
    WktParser(const std::string& file, std::string_view text, Kinds kinds)
        : m_scanner(file, text), m_takesLines(kinds == Kinds::PolygonsAndLines) {}

    Figure ParseAll() {
        do {
            ParseGeometry(0);
            m_scanner.Accept(';');
        } while (!m_scanner.AtEnd());
        return std::move(m_figure);
    }

private:
    void ParseGeometry(int depth);
    void ParseCollection(int depth);
    void ParsePolygon();
    void ParseRing(bool hole);
    void ParseLine();
    void ParsePoint(std::vector<geom::Vec2d>& points);
    [[noreturn]] void FailGeometry(const std::string& found) const;

    /// Takes "EMPTY", or the parenthesis that opens a list; false when the list is empty.
    bool OpenList();

    /// A parenthesised list of items, or EMPTY.
    template <typename Item>
    void ParseList(Item item) {
        if (!OpenList()) {
            return;
        }
        do {
            item();
        } while (m_scanner.Accept(','));
        m_scanner.Expect(')');
    }

    TextScanner m_scanner;
    bool m_takesLines;
    Figure m_figure;
};

/// Removes a dimension mark written without a blank, as in POLYGONZ.
std::string WithoutDimension(std::string tag) {
    for (const std::string mark : {"ZM", "Z", "M"}) {
        for (const char* const name :
             {"POLYGON", "MULTIPOLYGON", "LINESTRING", "MULTILINESTRING", "GEOMETRYCOLLECTION"}) {
            if (tag == name + mark) {
                return name;
            }
        }
    }
    return tag;
}

void WktParser::ParseGeometry(int depth) {
    const std::string tag = WithoutDimension(m_scanner.Word());
    if (tag == "POLYGON") {
        ParsePolygon();
    } else if (tag == "MULTIPOLYGON") {
        ParseList([this] { ParsePolygon(); });
    } else if (tag == "GEOMETRYCOLLECTION") {
        ParseCollection(depth + 1);
    } else if (m_takesLines && tag == "LINESTRING") {
        ParseLine();
    } else if (m_takesLines && tag == "MULTILINESTRING") {
        ParseList([this] { ParseLine(); });
    } else {
        FailGeometry(tag);
    }
}

void WktParser::FailGeometry(const std::string& found) const {
    const std::string lines = m_takesLines ? "LINESTRING, MULTILINESTRING, " : "";
    if (found.empty()) {
        m_scanner.Fail(m_takesLines ? "expected a geometry such as LINESTRING"
                                    : "expected a geometry such as POLYGON");
    }
    m_scanner.Fail("expected " + lines + "POLYGON, MULTIPOLYGON or GEOMETRYCOLLECTION, found " +
                   found);
}

void WktParser::ParseCollection(int depth) {
    if (depth > DEEPEST_COLLECTION) {
        m_scanner.Fail("collections are nested deeper than " + std::to_string(DEEPEST_COLLECTION) +
                       " levels");
    }
    ParseList([this, depth] { ParseGeometry(depth); });
}

void WktParser::ParsePolygon() {
    bool hole = false;
    ParseList([this, &hole] { ParseRing(std::exchange(hole, true)); });
}

void WktParser::ParseRing(bool hole) {
    Ring ring;
    ring.hole = hole;
    ParseList([this, &ring] { ParsePoint(ring.points); });
    DropClosingPoint(ring.points);
    if (!ring.points.empty()) {
        m_figure.polygons.rings.push_back(std::move(ring));
    }
}

void WktParser::ParseLine() {
    Line line;
    ParseList([this, &line] { ParsePoint(line); });
    if (!line.empty()) {
        m_figure.lines.lines.push_back(std::move(line));
    }
}

void WktParser::ParsePoint(std::vector<geom::Vec2d>& points) {
    const double x = m_scanner.Number();
    const double y = m_scanner.Number();
    points.emplace_back(x, y);
    for (int extra = 0; extra < 2 && m_scanner.AtNumber(); ++extra) {
        m_scanner.Number(); // height, measure
    }
}

bool WktParser::OpenList() {
    std::string word = m_scanner.Word();
    if (word == "Z" || word == "M" || word == "ZM") {
        word = m_scanner.Word();
    }
    if (word == "EMPTY") {
        return false;
    }
    if (!word.empty()) {
        m_scanner.Fail("expected '(' or EMPTY, found " + word);
    }
    m_scanner.Expect('(');
    return true;
}

} // namespace

PolygonSet ReadWkt(const std::string& file, std::string_view text) {
    return WktParser(file, text, Kinds::Polygons).ParseAll().polygons;
}

Figure ReadWktFigure(const std::string& file, std::string_view text) {
    return WktParser(file, text, Kinds::PolygonsAndLines).ParseAll();
}

} // namespace geomtool
