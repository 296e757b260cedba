// SPDX-License-Identifier: MIT
// LineClipPolygon with its index against the walk over all edges: pieces of segments and
// polylines, joined runs, and where points lie. What must hold:
// - all of it is the same to the bit, whatever the coordinates are;
// - a second run gives the same, and so does a copy;
// - pieces run from their smaller to their larger end and are longer than the shortest that is
//   kept;
// - in general position, a place on a segment is on a piece where it is inside.
#include "fuzz/support/Check.h"
#include "fuzz/support/Coordinates.h"
#include "fuzz/support/GeneralPosition.h"
#include "fuzz/support/Target.h"

#include "tests/reference/LineClipComparison.h"
#include "tests/support/PlaneTruth.h"

#include <algorithm>
#include <cmath>

namespace geom::fuzz {

namespace {

constexpr int MOST_RINGS = 4;
constexpr int MOST_POINTS = 16;
constexpr int MOST_ENDS = 16;
constexpr int MOST_REPEATED = 8;

/// Far beyond rounding errors.
constexpr double APART = 0x1p-24;

test::LineClipCase TakePolygon(ByteSource& bytes, Coordinates& coordinates) {
    test::LineClipCase made = {"decoded", {}, {}, {}};
    const std::vector<Points> rings = TakeRings(bytes, coordinates, MOST_RINGS, MOST_POINTS);
    // Copies side by side make the index deep at the cost of a byte.
    const int copies = 1 + bytes.Below(MOST_REPEATED);
    for (int copy = 0; copy < copies; ++copy) {
        for (const Points& ring : rings) {
            for (const Vec2d& p : ring) {
                made.points.emplace_back(p.x + 4 * copy, p.y);
            }
            made.counts.push_back(static_cast<unsigned int>(ring.size()));
        }
    }
    return made;
}

std::vector<LineSegment2> Clip(const LineClipPolygon& polygon, const Points& line) {
    std::vector<LineSegment2> pieces;
    polygon.Clip(line.data(), line.size(), pieces);
    return pieces;
}

bool Same(const std::vector<LineSegment2>& a, const std::vector<LineSegment2>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const LineSegment2& p, const LineSegment2& q) {
                          return SameBits(p.A(), q.A()) && SameBits(p.B(), q.B());
                      });
}

Points BoundaryOf(const LineClipPolygon& polygon) {
    Points points;
    polygon.GetPolygon(points);
    return points;
}

/// A spike that runs back along its own line is merged into one edge and leaves only its tip in
/// the box; a copy, made from the merged edges, knows nothing of the tip and may merge more.
bool IsCopiedWhole(const LineClipPolygon& polygon, const LineClipPolygon& copy) {
    const Points boundary = BoundaryOf(polygon);
    Box2d box;
    for (const Vec2d& p : boundary) {
        box.ExtendBy(p);
    }
    return box == polygon.GetBBox() && SameBits(BoundaryOf(copy), boundary);
}

void CheckPieces(const LineClipPolygon& polygon, const Points& line) {
    const std::vector<LineSegment2> pieces = Clip(polygon, line);
    FUZZ_CHECK(Same(Clip(polygon, line), pieces));
    const LineClipPolygon copy(polygon);
    if (IsCopiedWhole(polygon, copy)) {
        FUZZ_CHECK(Same(Clip(copy, line), pieces));
    }
    for (const LineSegment2& piece : pieces) {
        const Vec2d& a = piece.A();
        const Vec2d& b = piece.B();
        FUZZ_CHECK(!(b.x < a.x) && !(a.x == b.x && b.y < a.y));
        FUZZ_CHECK(!((b - a).Length() < 0.99e-5));
    }
}

test::Ring RingOf(const Points& points) {
    test::Ring ring;
    for (const Vec2d& p : points) {
        ring.push_back({p.x, p.y});
    }
    return ring;
}

/// Whether a place on the segment of the pieces is on one of them.
bool IsCovered(const Vec2d& p, const std::vector<LineSegment2>& pieces) {
    return std::any_of(pieces.begin(), pieces.end(), [&p](const LineSegment2& piece) {
        const Vec2d d = piece.B() - piece.A();
        return (p - piece.A()).Dot(d) >= 0 && (p - piece.B()).Dot(d) <= 0;
    });
}

/// Where a boundary runs back on itself or the line meets a vertex, pieces follow rules of their
/// own; so membership is asked for in general position, and of one ring, since several are joined
/// by edges that run both ways.
void CheckMembership(const LineClipPolygon& polygon, const Points& ring, const Points& line) {
    const test::Rings rings = {RingOf(ring)};
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        if (!IsInGeneralPosition({rings, {RingOf({line[i], line[i + 1]})}}, APART)) {
            continue;
        }
        const std::vector<LineSegment2> pieces = Clip(polygon, {line[i], line[i + 1]});
        for (int k = 1; k < 8; ++k) {
            const Vec2d p = line[i] + (line[i + 1] - line[i]) * (k / 8.0);
            // Pieces of up to 1e-5 are dropped.
            if (!test::IsNextToAnEdge(rings, {p.x, p.y}, 1e-4)) {
                FUZZ_CHECK(IsCovered(p, pieces) == test::IsInside(rings, {p.x, p.y}));
            }
        }
    }
}

void Check(ByteSource& bytes) {
    Coordinates coordinates(bytes);
    test::LineClipCase made = TakePolygon(bytes, coordinates);
    const Points line = TakePoints(bytes, coordinates, MOST_ENDS);
    test::LineClipTally tally;
    const test::LineClipPair pair(made);
    pair.CompareSegments(line, tally);
    pair.CompareRuns(line, tally);
    pair.CompareProbes(line, tally);
    pair.CompareProbes(made.points, tally);
    FUZZ_CHECK(tally.differences == 0);
    if (IsFinite(made.points) && IsFinite(line)) {
        const LineClipPolygon polygon(made.points.data(), made.counts.data(), made.counts.size());
        CheckPieces(polygon, line);
        // Without edges every line passes.
        if (made.counts.size() == 1 && polygon.GetNumContours() != 0 &&
            coordinates.Kind() == CoordinateKind::Fractions) {
            CheckMembership(polygon, made.points, line);
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
