// SPDX-License-Identifier: MIT
// Polygons as text: numbers separated by white space, the same in every locale.
#include "geometry/Gpc.h"
#include "geometry/engine/FixedPoint.h"
#include "geometry/engine/PolygonFiles.h"
#include "geometry/engine/TextScanner.h"

#include <algorithm>
#include <charconv>

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

/// Collects lines and hands them to the stream in blocks. A block that the stream does not take
/// whole ends the writing.
class TextSink {
public:
    explicit TextSink(std::FILE* stream) : m_stream(stream) {}

    bool WriteInt(int value) {
        if (!MakeRoom()) {
            return false;
        }
        m_end = std::to_chars(m_end, m_text + sizeof m_text, value).ptr;
        *m_end++ = '\n';
        return true;
    }

    bool WriteVertices(const gpc_vertex* vertices, std::size_t n) {
        return std::all_of(vertices, vertices + n,
                           [this](const gpc_vertex& vertex) { return WriteVertex(vertex); });
    }

    /// To be called at the end, also after a failure: what stands before it belongs to the file.
    bool Flush() {
        const std::size_t length = static_cast<std::size_t>(m_end - m_text);
        m_end = m_text;
        return std::fwrite(m_text, 1, length, m_stream) == length;
    }

private:
    static constexpr std::size_t LONGEST_LINE = 2 * detail::LONGEST_COORDINATE + 2;

    bool MakeRoom() {
        const std::size_t used = static_cast<std::size_t>(m_end - m_text);
        return used + LONGEST_LINE <= sizeof m_text || Flush();
    }

    bool WriteVertex(const gpc_vertex& vertex) {
        if (!MakeRoom()) {
            return false;
        }
        m_end = detail::WriteFixed(m_end, vertex.x);
        *m_end++ = ' ';
        m_end = detail::WriteFixed(m_end, vertex.y);
        *m_end++ = '\n';
        return true;
    }

    std::FILE* m_stream;
    char m_text[16384];
    char* m_end = m_text;
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
    const bool complete = detail::WritePolygon(sink, write_hole_flags != 0, *polygon);
    return sink.Flush() && complete;
}

} // namespace geom
