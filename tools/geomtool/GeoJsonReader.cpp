// SPDX-License-Identifier: MIT
// Reads GeoJSON as a stream of JSON events. No tree of the document is built, members may come
// in any order ("coordinates" before "type"), and how deep arrays nest costs no stack.
#include "tools/geomtool/GeoJsonFormat.h"
#include "tools/geomtool/InputError.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <utility>

namespace geomtool {

namespace {

constexpr std::size_t DEEPEST_NESTING = 256;
/// The parser's number of the error for a number beyond the range of doubles.
constexpr int NUMBER_OVERFLOW = 406;

/// Walks over the text and tells the owner how far the parser has come.
class CountingIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountingIterator(const char* at, const char** reached) : m_at(at), m_reached(reached) {}

    reference operator*() const { return *m_at; }
    CountingIterator& operator++() {
        ++m_at;
        *m_reached = m_at;
        return *this;
    }
    CountingIterator operator++(int) {
        const CountingIterator old = *this;
        ++*this;
        return old;
    }
    bool operator==(const CountingIterator& o) const { return m_at == o.m_at; }
    bool operator!=(const CountingIterator& o) const { return m_at != o.m_at; }

private:
    const char* m_at;
    const char** m_reached;
};

/// What the arrays of one "coordinates" member hold: positions, and where the arrays one and two
/// levels around the positions end, whatever those turn out to mean.
struct Coordinates {
    std::vector<geom::Vec2d> points;
    std::vector<std::size_t> ringEnds;
    std::vector<std::size_t> polygonEnds;
    /// How many arrays lie around each number, counted from the outermost; 0 before the first.
    std::size_t depth = 0;
};

/// The rings of a Polygon (one polygon) or a MultiPolygon.
void AppendRings(const Coordinates& coordinates, bool multi, std::vector<Ring>& out) {
    std::size_t point = 0;
    std::size_t nextPolygon = 0;
    bool hole = false;
    for (std::size_t i = 0; i < coordinates.ringEnds.size(); ++i) {
        while (multi && nextPolygon < coordinates.polygonEnds.size() &&
               coordinates.polygonEnds[nextPolygon] == i) {
            hole = false;
            ++nextPolygon;
        }
        Ring ring;
        ring.hole = std::exchange(hole, true);
        for (; point < coordinates.ringEnds[i]; ++point) {
            ring.points.push_back(coordinates.points[point]);
        }
        DropClosingPoint(ring.points);
        if (!ring.points.empty()) {
            out.push_back(std::move(ring));
        }
    }
}

/// The lines of a LineString or a MultiLineString.
void AppendLines(const Coordinates& coordinates, std::vector<Line>& out) {
    auto first = coordinates.points.begin();
    for (const std::size_t end : coordinates.ringEnds) {
        const auto last = coordinates.points.begin() + static_cast<std::ptrdiff_t>(end);
        if (first != last) {
            out.emplace_back(first, last);
        }
        first = last;
    }
}

/// Moves the elements of a vector behind those of another one.
template <typename T>
void AppendMoved(std::vector<T>& from, std::vector<T>& to) {
    std::move(from.begin(), from.end(), std::back_inserter(to));
}

/// Which geometries a file may hold.
enum class Kinds { Polygons, PolygonsAndLines };

/// A GeoJSON object that is being read: a geometry, a feature or a collection.
struct GeoObject {
    std::string type;
    Coordinates coordinates;
    bool hasCoordinates = false;
    /// What its geometries or features hold, and whether it has such a member at all.
    Figure parts;
    bool hasParts = false;
};

/// Where the parser stands, one entry for each open brace or bracket.
enum class Level {
    Object,      ///< a GeoJSON object
    Parts,       ///< the array of "geometries" or "features"
    Coordinates, ///< an array within "coordinates"
    Foreign      ///< anything that is no geometry, such as properties
};

/// Receives the parser's events; their names and arguments are the parser's.
class GeoJsonHandler {
public:
    GeoJsonHandler(const std::string& file, std::string_view text, Kinds kinds)
        : m_file(file), m_text(text), m_reached(text.data()),
          m_takesLines(kinds == Kinds::PolygonsAndLines) {}

    Figure Read() {
        const char* const end = m_text.data() + m_text.size();
        nlohmann::json::sax_parse(CountingIterator(m_text.data(), &m_reached),
                                  CountingIterator(end, &m_reached), this);
        return std::move(m_figure);
    }

    bool null() {
        if (InCoordinates() || Top() == Level::Parts) {
            Fail(InCoordinates() ? "expected a number, found null"
                                 : "expected an object, found null");
        }
        return Plain();
    }
    bool boolean(bool /*value*/) { return Word("a truth value"); }
    bool number_integer(std::int64_t value) { return Number(static_cast<double>(value)); }
    bool number_unsigned(std::uint64_t value) { return Number(static_cast<double>(value)); }
    bool number_float(double value, const std::string& /*text*/) { return Number(value); }
    bool binary(std::vector<std::uint8_t>& /*value*/) { return Plain(); }

    bool string(std::string& value) {
        if (Top() == Level::Object && m_key == "type") {
            m_objects.back().type = std::move(value);
            return true;
        }
        return Word("a text");
    }

    bool start_object(std::size_t /*size*/) {
        if (InCoordinates()) {
            Fail("expected a number, found an object");
        }
        const bool isGeometry = m_levels.empty() || Top() == Level::Parts ||
                                (Top() == Level::Object && m_key == "geometry");
        if (isGeometry) {
            if (!m_levels.empty()) {
                m_objects.back().hasParts = true;
            }
            m_objects.emplace_back();
        }
        Open(isGeometry ? Level::Object : Level::Foreign);
        return true;
    }

    bool key(std::string& name) {
        m_key = std::move(name);
        return true;
    }

    bool end_object() {
        const bool isGeometry = Top() == Level::Object;
        m_levels.pop_back();
        if (isGeometry) {
            FinishObject();
        }
        return true;
    }

    bool start_array(std::size_t /*size*/) {
        if (m_levels.empty()) {
            Fail("expected a GeoJSON object, found an array");
        } else if (Top() == Level::Parts) {
            Fail("expected an object, found an array");
        } else if (InCoordinates()) {
            OpenCoordinates();
        } else if (Top() == Level::Object && m_key == "coordinates") {
            m_objects.back().coordinates = {};
            m_objects.back().hasCoordinates = true;
            m_coordinateDepth = 1;
            m_numbers = 0;
            Open(Level::Coordinates);
        } else if (Top() == Level::Object && (m_key == "features" || m_key == "geometries")) {
            m_objects.back().hasParts = true;
            Open(Level::Parts);
        } else {
            Open(Level::Foreign);
        }
        return true;
    }

    bool end_array() {
        if (InCoordinates()) {
            CloseCoordinates();
        }
        m_levels.pop_back();
        return true;
    }

    bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                     const nlohmann::detail::exception& error) {
        if (error.id == NUMBER_OVERFLOW) { // its text has all of the digits
            Fail("the number is too large");
        }
        // "[kind] parse error at line 1, column 2: what - why; last read: '...'"
        std::string message = error.what();
        const std::size_t column = message.find("column ");
        const std::size_t start = message.find(column == std::string::npos ? "] " : ": ",
                                               column == std::string::npos ? 0 : column);
        if (start != std::string::npos) {
            message.erase(0, start + 2);
        }
        message.erase(std::min(message.find("; last read"), message.size()));
        Fail(message);
    }

private:
    Level Top() const { return m_levels.empty() ? Level::Foreign : m_levels.back(); }
    bool InCoordinates() const { return Top() == Level::Coordinates; }

    void Open(Level level) {
        if (m_levels.size() == DEEPEST_NESTING) {
            Fail("nested deeper than " + std::to_string(DEEPEST_NESTING) + " levels");
        }
        m_levels.push_back(level);
    }

    /// A value that has no meaning here but does no harm either.
    bool Plain() {
        if (m_levels.empty()) {
            Fail("expected a GeoJSON object");
        }
        return true;
    }

    bool Word(const char* what) {
        if (InCoordinates()) {
            Fail(std::string("expected a number, found ") + what);
        }
        if (Top() == Level::Parts) {
            Fail(std::string("expected an object, found ") + what);
        }
        return Plain();
    }

    bool Number(double value) {
        if (!InCoordinates()) {
            return Word("a number");
        }
        Coordinates& coordinates = m_objects.back().coordinates;
        if (coordinates.depth == 0) {
            coordinates.depth = m_coordinateDepth;
        }
        if (coordinates.depth != m_coordinateDepth) {
            Fail("positions are nested unevenly");
        }
        if (!std::isfinite(value)) {
            Fail("the number is too large");
        }
        if (m_numbers == 0) {
            coordinates.points.emplace_back(value, 0.0);
        } else if (m_numbers == 1) {
            coordinates.points.back().y = value;
        }
        ++m_numbers; // heights and what else may follow are passed over
        return true;
    }

    void OpenCoordinates() {
        const std::size_t depth = m_objects.back().coordinates.depth;
        if (m_numbers > 0 || (depth > 0 && m_coordinateDepth == depth)) {
            Fail("positions are nested unevenly");
        }
        ++m_coordinateDepth;
        Open(Level::Coordinates);
    }

    void CloseCoordinates() {
        Coordinates& coordinates = m_objects.back().coordinates;
        if (m_coordinateDepth == coordinates.depth) {
            if (m_numbers < 2) {
                Fail("a position needs two numbers");
            }
        } else if (m_coordinateDepth + 1 == coordinates.depth) {
            coordinates.ringEnds.push_back(coordinates.points.size());
        } else if (m_coordinateDepth + 2 == coordinates.depth) {
            coordinates.polygonEnds.push_back(coordinates.ringEnds.size());
        }
        m_numbers = 0;
        --m_coordinateDepth;
    }

    /// Hands what a finished object holds to the object around it.
    void FinishObject() {
        GeoObject object = std::move(m_objects.back());
        m_objects.pop_back();
        Figure& out = m_objects.empty() ? m_figure : m_objects.back().parts;
        if (object.type == "Polygon" || object.type == "MultiPolygon") {
            const bool multi = object.type == "MultiPolygon";
            CheckCoordinates(object, multi ? 4 : 3);
            AppendRings(object.coordinates, multi, out.polygons.rings);
        } else if (m_takesLines &&
                   (object.type == "LineString" || object.type == "MultiLineString")) {
            CheckCoordinates(object, object.type == "LineString" ? 2 : 3);
            AppendLines(object.coordinates, out.lines.lines);
        } else if (object.type == "Feature" || object.type == "FeatureCollection" ||
                   object.type == "GeometryCollection") {
            if (!object.hasParts && object.type != "Feature") {
                Fail("the " + object.type + " has no members");
            }
            AppendMoved(object.parts.polygons.rings, out.polygons.rings);
            AppendMoved(object.parts.lines.lines, out.lines.lines);
        } else if (object.type.empty()) {
            Fail("the object has no type, so it is no GeoJSON");
        } else {
            const std::string wanted = m_takesLines ? "LineString, MultiLineString, " : "a ";
            Fail("expected " + wanted + "Polygon or MultiPolygon, found '" +
                 object.type.substr(0, 40) + "'");
        }
    }

    void CheckCoordinates(const GeoObject& object, std::size_t depth) const {
        if (!object.hasCoordinates) {
            Fail("the " + object.type + " has no coordinates");
        }
        if (object.coordinates.depth != 0 && object.coordinates.depth != depth) {
            Fail("the coordinates of a " + object.type + " are nested " + std::to_string(depth) +
                 " deep, not " + std::to_string(object.coordinates.depth));
        }
    }

    /// Throws the error of the line that holds the last character read.
    [[noreturn]] void Fail(const std::string& message) const {
        const auto read = static_cast<std::size_t>(m_reached - m_text.data());
        throw ErrorAtLine(m_file, m_text, read > 0 ? read - 1 : 0, message);
    }

    std::string m_file;
    std::string_view m_text;
    const char* m_reached;
    bool m_takesLines;
    std::vector<Level> m_levels;
    std::vector<GeoObject> m_objects;
    /// The name of the member in hand, of the innermost object.
    std::string m_key;
    /// Within "coordinates": the number of open arrays, and the numbers so far in the innermost.
    std::size_t m_coordinateDepth = 0;
    std::size_t m_numbers = 0;
    Figure m_figure;
};

} // namespace

PolygonSet ReadGeoJson(const std::string& file, std::string_view text) {
    return GeoJsonHandler(file, text, Kinds::Polygons).Read().polygons;
}

Figure ReadGeoJsonFigure(const std::string& file, std::string_view text) {
    return GeoJsonHandler(file, text, Kinds::PolygonsAndLines).Read();
}

} // namespace geomtool
