// SPDX-License-Identifier: MIT
#include "tools/geomtool/TextFormat.h"

#include "tools/geomtool/Numbers.h"
#include "tools/geomtool/TextScanner.h"

#include <algorithm>
#include <limits>

namespace geomtool {

using namespace std::string_literals;

namespace {

constexpr std::size_t LARGEST_COUNT = std::numeric_limits<int>::max();

/// The most items that the rest of a file can hold when each takes at least `bytes`; the last
/// one needs no white space behind it.
std::size_t RoomFor(const TextScanner& scanner, std::size_t bytes) {
    return std::min((scanner.Remaining() + 1) / bytes, LARGEST_COUNT);
}

Ring ReadRing(TextScanner& scanner, bool holeFlags) {
    Ring ring;
    const std::size_t count = scanner.Count("a vertex count", RoomFor(scanner, 4));
    if (holeFlags) {
        ring.hole = scanner.Count("a hole flag", LARGEST_COUNT) != 0;
    }
    ring.points.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double x = scanner.Number();
        const double y = scanner.Number();
        ring.points.emplace_back(x, y);
    }
    return ring;
}

} // namespace

PolygonSet ReadText(const std::string& file, std::string_view text, bool holeFlags) {
    TextScanner scanner(file, text);
    PolygonSet shapes;
    const std::size_t count = scanner.Count("a contour count", RoomFor(scanner, 2));
    for (std::size_t i = 0; i < count; ++i) {
        shapes.rings.push_back(ReadRing(scanner, holeFlags));
    }
    if (!scanner.AtEnd()) {
        scanner.Fail("something follows the last vertex; does the file really store "s +
                     (holeFlags ? "hole flags?" : "no hole flags?"));
    }
    return shapes;
}

std::string WriteText(const PolygonSet& shapes, bool holeFlags) {
    std::string out = std::to_string(shapes.rings.size()) + "\n";
    for (const Ring& ring : shapes.rings) {
        out += std::to_string(ring.points.size()) + "\n";
        if (holeFlags) {
            out += ring.hole ? "1\n" : "0\n";
        }
        for (const geom::Vec2d& p : ring.points) {
            AppendNumber(out, p.x);
            out += ' ';
            AppendNumber(out, p.y);
            out += '\n';
        }
    }
    return out;
}

} // namespace geomtool
