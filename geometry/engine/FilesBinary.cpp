// SPDX-License-Identifier: MIT
// Polygons as bare 32-bit integers and 64-bit doubles in the machine's byte order, which is
// taken to be little-endian.
#include "geometry/Gpc.h"
#include "geometry/engine/PolygonFiles.h"

namespace geom {

namespace {

class BinarySource {
public:
    explicit BinarySource(std::FILE* stream) : m_stream(stream) {}

    bool ReadInt(int& value) {
        int read = 0;
        if (std::fread(&read, sizeof read, 1, m_stream) != 1) {
            return false;
        }
        value = read;
        return true;
    }

    // Coordinate by coordinate, so that of a vertex cut short x is kept; what came of the
    // broken coordinate is not.
    bool ReadVertices(gpc_vertex* vertices, std::size_t n) {
        const std::size_t asked = 2 * n;
        const std::size_t read = std::fread(vertices, sizeof(double), asked, m_stream);
        std::memset(reinterpret_cast<char*>(vertices) + read * sizeof(double), 0,
                    (asked - read) * sizeof(double));
        return read == asked;
    }

private:
    std::FILE* m_stream;
};

static_assert(sizeof(int) == 4, "counts and flags are stored as 32 bits");

class BinarySink {
public:
    explicit BinarySink(std::FILE* stream) : m_stream(stream) {}

    bool WriteInt(int value) { return std::fwrite(&value, sizeof value, 1, m_stream) == 1; }

    bool WriteVertices(const gpc_vertex* vertices, std::size_t n) {
        return std::fwrite(vertices, sizeof(gpc_vertex), n, m_stream) == n;
    }

private:
    std::FILE* m_stream;
};

} // namespace

bool gpc_read_polygon_binary(std::FILE* stream, int read_hole_flags, gpc_polygon* polygon) {
    if (stream == nullptr || polygon == nullptr) {
        return false;
    }
    BinarySource source(stream);
    return detail::ReadPolygon(source, read_hole_flags != 0, *polygon);
}

bool gpc_write_polygon_binary(std::FILE* stream, int write_hole_flags, const gpc_polygon* polygon) {
    if (stream == nullptr || polygon == nullptr) {
        return false;
    }
    BinarySink sink(stream);
    return detail::WritePolygon(sink, write_hole_flags != 0, *polygon);
}

} // namespace geom
