// SPDX-License-Identifier: MIT
#include "tools/geomtool/BinaryFormat.h"

#include "tools/geomtool/InputError.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace geomtool {

namespace {

constexpr std::size_t COUNT_BYTES = 4;
constexpr std::size_t VERTEX_BYTES = 16;

/// A walk over binary data that knows its offset.
class ByteReader {
public:
    ByteReader(const std::string& file, std::string_view bytes) : m_file(file), m_bytes(bytes) {}

    std::size_t Remaining() const { return m_bytes.size() - m_offset; }

    /// A count of items of at least `itemBytes`, which must fit into the rest of the file.
    std::size_t Count(const char* what, std::size_t itemBytes) {
        const std::int64_t count = Integer(what);
        if (count < 0) {
            Fail(COUNT_BYTES, std::string("the ") + what + " is negative");
        }
        const auto items = static_cast<std::size_t>(count);
        if (items > Remaining() / itemBytes) {
            Fail(COUNT_BYTES, "the " + (what + (" " + std::to_string(items))) +
                                  " is larger than the file can hold");
        }
        return items;
    }

    std::int32_t Integer(const char* what) {
        return static_cast<std::int32_t>(Bits<std::uint32_t>(what));
    }

    double Coordinate() {
        const auto bits = Bits<std::uint64_t>("coordinate");
        double value = 0;
        static_assert(sizeof value == sizeof bits, "doubles have 64 bits");
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value)) {
            Fail(sizeof value, "the coordinate is not finite");
        }
        return value;
    }

    /// Throws the error of the item that ended `back` bytes ago.
    [[noreturn]] void Fail(std::size_t back, const std::string& message) const {
        throw ErrorAtByte(m_file, m_offset - back, message);
    }

private:
    template <typename Unsigned>
    Unsigned Bits(const char* what) {
        if (Remaining() < sizeof(Unsigned)) {
            Fail(0, std::string("the file ends within a ") + what);
        }
        Unsigned value = 0;
        for (std::size_t i = sizeof value; i-- > 0;) {
            value = static_cast<Unsigned>(value << 8) |
                    static_cast<unsigned char>(m_bytes[m_offset + i]);
        }
        m_offset += sizeof value;
        return value;
    }

    const std::string& m_file;
    std::string_view m_bytes;
    std::size_t m_offset = 0;
};

template <typename Unsigned>
void AppendBits(std::string& out, Unsigned value) {
    for (std::size_t i = 0; i < sizeof value; ++i) {
        out += static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
    }
}

void AppendCoordinate(std::string& out, double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    AppendBits(out, bits);
}

void AppendCount(std::string& out, std::size_t count) {
    AppendBits(out, static_cast<std::uint32_t>(count));
}

} // namespace

PolygonSet ReadBinary(const std::string& file, std::string_view bytes, bool holeFlags) {
    ByteReader reader(file, bytes);
    PolygonSet shapes;
    const std::size_t ringBytes = holeFlags ? 2 * COUNT_BYTES : COUNT_BYTES;
    const std::size_t count = reader.Count("contour count", ringBytes);
    for (std::size_t i = 0; i < count; ++i) {
        Ring ring;
        const std::size_t vertices = reader.Count("vertex count", VERTEX_BYTES);
        ring.hole = holeFlags && reader.Integer("hole flag") != 0;
        ring.points.reserve(vertices);
        for (std::size_t k = 0; k < vertices; ++k) {
            const double x = reader.Coordinate();
            const double y = reader.Coordinate();
            ring.points.emplace_back(x, y);
        }
        shapes.rings.push_back(std::move(ring));
    }
    if (reader.Remaining() > 0) {
        reader.Fail(0,
                    std::string("something follows the last vertex; does the file really store ") +
                        (holeFlags ? "hole flags?" : "no hole flags?"));
    }
    return shapes;
}

std::string WriteBinary(const PolygonSet& shapes, bool holeFlags) {
    std::string out;
    AppendCount(out, shapes.rings.size());
    for (const Ring& ring : shapes.rings) {
        AppendCount(out, ring.points.size());
        if (holeFlags) {
            AppendCount(out, ring.hole ? 1 : 0);
        }
        for (const geom::Vec2d& p : ring.points) {
            AppendCoordinate(out, p.x);
            AppendCoordinate(out, p.y);
        }
    }
    return out;
}

} // namespace geomtool
