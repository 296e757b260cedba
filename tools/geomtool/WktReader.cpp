// SPDX-License-Identifier: MIT
// A recursive descent over the grammar of well-known text. Collections alone recurse, to a
// bounded depth, so no input can exhaust the stack.
#include "tools/geomtool/TextScanner.h"
#include "tools/geomtool/WktFormat.h"

#include <utility>

namespace geomtool {

namespace {

constexpr int DEEPEST_COLLECTION = 100;

class WktParser {
public:
    WktParser(const std::string& file, std::string_view text) : m_scanner(file, text) {}

    PolygonSet ParseAll() {
        do {
            ParseGeometry(0);
            m_scanner.Accept(';');
        } while (!m_scanner.AtEnd());
        return std::move(m_shapes);
    }

private:
    void ParseGeometry(int depth);
    void ParseCollection(int depth);
    void ParsePolygon();
    void ParseRing(bool hole);
    void ParsePoint(Ring& ring);

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
    PolygonSet m_shapes;
};

/// Removes a dimension mark written without a blank, as in POLYGONZ.
std::string WithoutDimension(std::string tag) {
    for (const std::string mark : {"ZM", "Z", "M"}) {
        for (const char* const name : {"POLYGON", "MULTIPOLYGON", "GEOMETRYCOLLECTION"}) {
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
    } else if (tag.empty()) {
        m_scanner.Fail("expected a geometry such as POLYGON");
    } else {
        m_scanner.Fail("expected POLYGON, MULTIPOLYGON or GEOMETRYCOLLECTION, found " + tag);
    }
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
    ParseList([this, &ring] { ParsePoint(ring); });
    DropClosingPoint(ring.points);
    if (!ring.points.empty()) {
        m_shapes.rings.push_back(std::move(ring));
    }
}

void WktParser::ParsePoint(Ring& ring) {
    const double x = m_scanner.Number();
    const double y = m_scanner.Number();
    ring.points.emplace_back(x, y);
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
    return WktParser(file, text).ParseAll();
}

} // namespace geomtool
