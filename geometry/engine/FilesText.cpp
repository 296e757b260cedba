// SPDX-License-Identifier: MIT
// Polygons as text: numbers separated by white space, the same in every locale.
#include "geometry/Gpc.h"
#include "geometry/engine/PolygonFiles.h"
#include "geometry/engine/TextScanner.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace geom {

namespace {

class TextSource {
public:
    explicit TextSource(std::FILE* stream) : m_scanner(stream) {}

    bool ReadInt(int& value) { return m_scanner.ScanInt(value); }

    bool ReadVertices(gpc_vertex* vertices, std::size_t n) {
        for (std::size_t i = 0; i < n; ++i) {
            if (!m_scanner.ScanDouble(vertices[i].x)) {
                return false;
            }
            // A vertex without y is taken as it is; what stands in the place of y is
            // looked at again as the next number.
            m_scanner.ScanDouble(vertices[i].y);
        }
        return true;
    }

private:
    detail::TextScanner m_scanner;
};

constexpr int DIGITS_AFTER_POINT = 15;
// Sign, the 309 digits of the largest double, point, digits.
constexpr std::size_t LONGEST_COORDINATE = 1 + 309 + 1 + DIGITS_AFTER_POINT;

/// One line of a file, written at once.
class Line {
public:
    void Add(char c) { *m_end++ = c; }
    void Add(int value) { m_end = std::to_chars(m_end, Limit(), value).ptr; }
    // A blank stands in the place of a minus sign, so that columns stay aligned.
    void Add(double value) {
        if (!std::signbit(value)) {
            Add(' ');
        }
        m_end =
            std::to_chars(m_end, Limit(), value, std::chars_format::fixed, DIGITS_AFTER_POINT).ptr;
    }
    bool WriteTo(std::FILE* stream) {
        Add('\n');
        const std::size_t length = static_cast<std::size_t>(m_end - m_text);
        return std::fwrite(m_text, 1, length, stream) == length;
    }

private:
    char* Limit() { return m_text + sizeof m_text; }

    char m_text[2 * LONGEST_COORDINATE + 2];
    char* m_end = m_text;
};

class TextSink {
public:
    explicit TextSink(std::FILE* stream) : m_stream(stream) {}

    bool WriteInt(int value) {
        Line line;
        line.Add(value);
        return line.WriteTo(m_stream);
    }

    bool WriteVertices(const gpc_vertex* vertices, std::size_t n) {
        return std::all_of(vertices, vertices + n, [this](const gpc_vertex& vertex) {
            Line line;
            line.Add(vertex.x);
            line.Add(' ');
            line.Add(vertex.y);
            return line.WriteTo(m_stream);
        });
    }

private:
    std::FILE* m_stream;
};

} // namespace

bool gpc_read_polygon(std::FILE* stream, int read_hole_flags, gpc_polygon* polygon) {
    if (stream == nullptr || polygon == nullptr) {
        return false;
    }
    TextSource source(stream);
    return detail::ReadPolygon(source, read_hole_flags != 0, *polygon);
}

bool gpc_write_polygon(std::FILE* stream, int write_hole_flags, const gpc_polygon* polygon) {
    if (stream == nullptr || polygon == nullptr) {
        return false;
    }
    TextSink sink(stream);
    return detail::WritePolygon(sink, write_hole_flags != 0, *polygon);
}

} // namespace geom
