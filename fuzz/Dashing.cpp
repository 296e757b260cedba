// SPDX-License-Identifier: MIT
// DashLineGenerator and DashLine3Generator over polylines that may join. What must hold:
// - the pieces are to the bit those of the plain walk, where that has an end: for finite points
//   and lengths of a sensible sum;
// - points, a polyline and a callback are served alike, with the phase carried from call to call,
//   by a copy as well as by the original;
// - the generator in space gives the same pieces for points of any coordinate plane;
// - an exception of the callback passes and leaves the phase where it was.
#include "fuzz/support/Check.h"
#include "fuzz/support/Coordinates.h"
#include "fuzz/support/Target.h"

#include "Subsystems/Kit/Exception.h"
#include "geometry/DashLineGenerator.h"
#include "geometry/Polyline.h"
#include "tests/reference/PlainDashWalk.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

namespace geom::fuzz {

namespace {

using test::PlainDashWalk;
using Pieces = std::vector<PlainDashWalk::Piece>;

constexpr int MOST_LENGTHS = 6;
constexpr int MOST_POINTS = 8;
constexpr int MOST_LINES = 4;

/// A walk may take 2^32 cycles, which is too long to wait for.
constexpr std::size_t MOST_PIECES = 3000;

struct TooManyPieces {};

template <typename Point>
struct Collector {
    std::vector<std::pair<Point, Point>> pieces;
    std::size_t most = MOST_PIECES;

    static void Take(const Point& first, const Point& second, void* context) {
        auto& self = *static_cast<Collector*>(context);
        if (self.pieces.size() == self.most) {
            throw TooManyPieces();
        }
        self.pieces.emplace_back(first, second);
    }
};

bool Same(const Pieces& a, const Pieces& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const PlainDashWalk::Piece& p, const PlainDashWalk::Piece& q) {
                          return SameBits(p.first, q.first) && SameBits(p.second, q.second);
                      });
}

/// The pieces of a line; nothing when there are too many.
std::optional<Pieces> Collect(DashLineGenerator& generator, const Points& line) {
    Collector<Vec2d> collector;
    try {
        generator.Decompose(line.data(), line.size(), &Collector<Vec2d>::Take, &collector);
    } catch (const TooManyPieces&) {
        return std::nullopt;
    }
    return collector.pieces;
}

Pieces PiecesOf(const std::vector<LineSegment2>& segments) {
    Pieces pieces;
    for (const LineSegment2& segment : segments) {
        pieces.emplace_back(segment.A(), segment.B());
    }
    return pieces;
}

/// One of the planes x = 0, y = 0 and z = 0.
Vec3d InPlane(const Vec2d& p, int plane) {
    switch (plane) {
    case 0: return {p.x, p.y, 0};
    case 1: return {p.x, 0, p.y};
    default: return {0, p.x, p.y};
    }
}

Vec2d OutOfPlane(const Vec3d& p, int plane) {
    switch (plane) {
    case 0: return {p.x, p.y};
    case 1: return {p.x, p.z};
    default: return {p.y, p.z};
    }
}

/// As for the plane; an exception of the callback arrives as the out-of-memory error.
std::optional<Pieces> Collect(DashLine3Generator& generator, const Points& line, int plane) {
    std::vector<Vec3d> points;
    for (const Vec2d& p : line) {
        points.push_back(InPlane(p, plane));
    }
    Collector<Vec3d> collector;
    try {
        generator.Decompose(points.data(), points.size(), &Collector<Vec3d>::Take, &collector);
    } catch (const kit::Exception&) {
        return std::nullopt;
    }
    Pieces pieces;
    for (const auto& [first, second] : collector.pieces) {
        pieces.emplace_back(OutOfPlane(first, plane), OutOfPlane(second, plane));
    }
    return pieces;
}

double TakeLength(ByteSource& bytes, int kind) {
    switch (kind) {
    case 0: return bytes.Byte() / 16.0;
    case 1: return bytes.Between(-3, 12);
    case 2: return bytes.Word() / 4096.0;
    default: return bytes.Bits();
    }
}

std::vector<double> TakePattern(ByteSource& bytes) {
    const int kind = bytes.Below(4);
    std::vector<double> lengths;
    for (int n = bytes.Between(0, MOST_LENGTHS); n > 0; --n) {
        lengths.push_back(TakeLength(bytes, kind));
    }
    return lengths;
}

/// The plain walk has no guards: its pattern must go on by more than rounding takes away, and
/// fast enough for lines of a few hundred thousand.
bool HasPlainWalk(const std::vector<double>& lengths) {
    const double sum = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    return std::all_of(lengths.begin(), lengths.end(),
                       [](double length) { return std::fabs(length) < 1e6; }) &&
           sum > 0.01;
}

bool HasPlainWalk(const Points& line) {
    return std::all_of(line.begin(), line.end(),
                       [](const Vec2d& p) { return std::fabs(p.x) < 1e5 && std::fabs(p.y) < 1e5; });
}

std::vector<Points> TakeLines(ByteSource& bytes) {
    Coordinates coordinates(bytes);
    std::vector<Points> lines = TakeRings(bytes, coordinates, MOST_LINES, MOST_POINTS);
    const int joined = bytes.Byte();
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if ((joined >> i & 1) != 0 && !lines[i - 1].empty() && !lines[i].empty()) {
            lines[i].front() = lines[i - 1].back();
        }
    }
    return lines;
}

/// A callback that fails at some piece leaves the phase of the line's start.
void CheckFailingCallback(const DashLineGenerator& generator, const Points& line,
                          const Pieces& expected) {
    if (expected.empty()) {
        return;
    }
    DashLineGenerator copy(generator);
    Collector<Vec2d> failing;
    failing.most = expected.size() - 1;
    bool hasFailed = false;
    try {
        copy.Decompose(line.data(), line.size(), &Collector<Vec2d>::Take, &failing);
    } catch (const TooManyPieces&) {
        hasFailed = true;
    }
    FUZZ_CHECK(hasFailed);
    const std::optional<Pieces> again = Collect(copy, line);
    // A line that does not join the one before starts afresh either way.
    FUZZ_CHECK(again && Same(*again, expected));
}

void CheckVectorForms(DashLineGenerator generator, const Points& line, const Pieces& expected) {
    DashLineGenerator other = generator;
    std::vector<LineSegment2> segments = {LineSegment2({1, 2}, {3, 4})};
    generator.Decompose(line.data(), line.size(), segments);
    FUZZ_CHECK(SameBits(segments[0].B(), {3, 4}));
    segments.erase(segments.begin());
    FUZZ_CHECK(Same(PiecesOf(segments), expected));
    segments.clear();
    other.Decompose(Polyline(line.data(), line.size()), segments);
    FUZZ_CHECK(Same(PiecesOf(segments), expected));
}

void Check(ByteSource& bytes) {
    const std::vector<double> lengths = TakePattern(bytes);
    const int plane = bytes.Below(3);
    const std::vector<Points> lines = TakeLines(bytes);
    DashLineGenerator generator(lengths.data(), lengths.size());
    DashLine3Generator spatial(lengths.data(), lengths.size());
    std::optional<PlainDashWalk> plain;
    if (HasPlainWalk(lengths)) {
        plain.emplace(lengths);
    }
    for (const Points& line : lines) {
        const DashLineGenerator before(generator);
        const std::optional<Pieces> pieces = Collect(generator, line);
        const std::optional<Pieces> pieces3 = Collect(spatial, line, plane);
        // Where a length or a coordinate is not finite, the third coordinate takes part in it.
        FUZZ_CHECK(!IsFinite(line) || pieces.has_value() == pieces3.has_value());
        if (!pieces || !pieces3) {
            return; // the phases differ from here on
        }
        FUZZ_CHECK(!IsFinite(line) || Same(*pieces, *pieces3));
        CheckVectorForms(before, line, *pieces);
        CheckFailingCallback(before, line, *pieces);
        if (plain && HasPlainWalk(line)) {
            FUZZ_CHECK(Same(*pieces, plain->Decompose(line)));
        } else {
            plain.reset();
        }
    }
}

} // namespace

} // namespace geom::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    geom::fuzz::ByteSource bytes(data, size);
    geom::fuzz::Check(bytes);
    return 0;
}
