// SPDX-License-Identifier: MIT
// RemoveSelfIntersections and OffsetPolygon. What must hold:
// - the input is left alone, a second run gives the same, and the result may replace the input;
// - results are finite, in normal form, and a failure leaves the output as it was;
// - away from edges, a place is inside the result where the winding rule says so;
// - a grown polygon holds what the polygon held, and nothing farther away than the distance; a
//   shrunk one holds nothing nearer to the boundary than that, and the places farther inside.
#include "fuzz/support/Check.h"
#include "fuzz/support/Coordinates.h"
#include "fuzz/support/GeneralPosition.h"
#include "fuzz/support/Target.h"

#include "Subsystems/Kit/Exception.h"
#include "geometry/OffsetPolygon.h"
#include "geometry/RemoveSelfIntersections.h"
#include "tests/reference/PlainRings.h"
#include "tests/support/PlaneTruth.h"

#include <GL/glu.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace geom::fuzz {

namespace {

// Time grows with the square of the crossings, and each corner becomes up to 37 points.
constexpr int MOST_RINGS = 3;
constexpr int MOST_POINTS = 9;

/// Crossings are computed in about single precision, and what nearly meets is merged.
constexpr double NEAR = 0.01;

/// Where edges overlap, or several cross in nearly one place, the tessellator can leave parts of
/// the result covered twice; membership is asked for only where they keep this far apart.
constexpr double APART = 0x1p-10;

Polygon2 PolygonOf(const std::vector<Points>& rings) {
    Polygon2Data data;
    for (const Points& ring : rings) {
        data.points.insert(data.points.end(), ring.begin(), ring.end());
        data.counts.push_back(static_cast<unsigned int>(ring.size()));
    }
    Polygon2 polygon;
    polygon.Take(data);
    return polygon;
}

template <typename Visit>
void ForEachRing(const Polygon2& polygon, Visit visit) {
    const Vec2d* ring = polygon.Points().data();
    for (const unsigned int count : polygon.Counts()) {
        visit(ring, count);
        ring += count;
    }
}

int WindingNumber(const Polygon2& polygon, const Vec2d& p) {
    int winding = 0;
    ForEachRing(polygon, [&](const Vec2d* ring, std::size_t n) {
        winding += test::PlainWindingNumber(p, ring, n);
    });
    return winding;
}

test::Rings RingsOf(const Polygon2& polygon) {
    test::Rings rings;
    ForEachRing(polygon, [&](const Vec2d* ring, std::size_t n) {
        rings.emplace_back();
        for (std::size_t i = 0; i < n; ++i) {
            rings.back().push_back({ring[i].x, ring[i].y});
        }
    });
    return rings;
}

bool IsSame(const Polygon2& a, const Polygon2& b) {
    return SameBits(a.Points(), b.Points()) && a.Counts() == b.Counts();
}

/// Nothing where it throws, which must be an error of the library.
template <typename Operation>
std::optional<Polygon2> Run(const Polygon2& in, Operation operation) {
    const Polygon2 original = in;
    Polygon2 out = PolygonOf({{{1, 2}, {3, 4}, {5, 7}}});
    const Polygon2 before = out;
    try {
        operation(in, out);
    } catch (const kit::Exception&) {
        FUZZ_CHECK(IsSame(in, original));
        FUZZ_CHECK(IsSame(out, before));
        return std::nullopt;
    }
    FUZZ_CHECK(IsSame(in, original));
    Polygon2 inPlace = in;
    operation(inPlace, inPlace);
    FUZZ_CHECK(IsSame(inPlace, out));
    return out;
}

void CheckForm(const Polygon2& polygon) {
    std::size_t count = 0;
    ForEachRing(polygon, [&](const Vec2d* ring, std::size_t n) {
        FUZZ_CHECK(n > 0);
        count += n;
        for (std::size_t i = 0; i < n; ++i) {
            FUZZ_CHECK(n == 1 || ring[i] != ring[(i + 1) % n]);
        }
    });
    FUZZ_CHECK(count == polygon.Points().size());
    FUZZ_CHECK(IsFinite(polygon.Points()));
}

bool IsSelected(unsigned int rule, int winding) {
    switch (rule) {
    case GLU_TESS_WINDING_ODD: return winding % 2 != 0;
    case GLU_TESS_WINDING_NONZERO: return winding != 0;
    case GLU_TESS_WINDING_POSITIVE: return winding > 0;
    case GLU_TESS_WINDING_NEGATIVE: return winding < 0;
    default: return winding >= 2 || winding <= -2;
    }
}

/// Places between the lines of the grids.
template <typename Check>
void ForEachProbe(const Polygon2& polygon, double reach, Check check) {
    Box2d box;
    for (const Vec2d& p : polygon.Points()) {
        box.ExtendBy(p);
    }
    const double width = box.maxX - box.minX + 2 * reach;
    const double height = box.maxY - box.minY + 2 * reach;
    for (int i = 0; i < 6; ++i) {
        for (int k = 0; k < 6; ++k) {
            check(Vec2d(box.minX - reach + width * (i + 0.4375) / 6,
                        box.minY - reach + height * (k + 0.5625) / 6));
        }
    }
}

/// Coordinates at which distances of about 0.01 are large.
bool IsTame(const Polygon2& polygon) {
    return std::all_of(polygon.Points().begin(), polygon.Points().end(),
                       [](const Vec2d& p) { return std::fabs(p.x) <= 16 && std::fabs(p.y) <= 16; });
}

/// A single ring of up to 100 points of which no two triangles with its first point turn
/// different ways is handed back by the tessellator as it is, also when it crosses itself.
bool IsTakenAsSimple(const Polygon2& polygon) {
    const Points& ring = polygon.Points();
    bool turnsLeft = false;
    bool turnsRight = false;
    for (std::size_t i = 2; i < ring.size(); ++i) {
        const Vec2d a = ring[i - 1] - ring[0];
        const Vec2d b = ring[i] - ring[0];
        turnsLeft = turnsLeft || a.x * b.y - a.y * b.x > 0;
        turnsRight = turnsRight || a.x * b.y - a.y * b.x < 0;
    }
    return polygon.Counts().size() == 1 && ring.size() <= 100 && !(turnsLeft && turnsRight);
}

bool HasCertainPlaces(const Polygon2& polygon) {
    const test::Rings rings = RingsOf(polygon);
    return IsTame(polygon) && IsInGeneralPosition({rings, {}}, APART) &&
           !(IsTakenAsSimple(polygon) && HasCrossings(rings));
}

bool IsNear(const test::Rings& rings, const Vec2d& p, double distance) {
    return test::IsNextToAnEdge(rings, {p.x, p.y}, distance);
}

void CheckRepair(const Polygon2& in, unsigned int rule, RSI_NormalDir normal) {
    const auto repair = [&](const Polygon2& from, Polygon2& to) {
        RemoveSelfIntersections(from, to, rule, normal);
    };
    const std::optional<Polygon2> out = Run(in, repair);
    FUZZ_CHECK(out || !IsTame(in));
    if (!out) {
        return;
    }
    CheckForm(*out);
    if (!HasCertainPlaces(in)) {
        return;
    }
    const int sign = normal == RSI_NORMAL_POSITIVE_Z ? 1 : -1;
    const test::Rings edges = RingsOf(in);
    ForEachProbe(in, 0.5, [&](const Vec2d& p) {
        if (!IsNear(edges, p, NEAR)) {
            const bool expected = IsSelected(rule, sign * WindingNumber(in, p));
            FUZZ_CHECK(sign * WindingNumber(*out, p) == (expected ? 1 : 0));
        }
    });
}

void CheckOffset(const Polygon2& in, double distance) {
    const auto offset = [&](const Polygon2& from, Polygon2& to) {
        OffsetPolygon(from, distance, to);
    };
    const std::optional<Polygon2> out = Run(in, offset);
    const bool isTame = IsTame(in) && std::fabs(distance) <= 4;
    FUZZ_CHECK(out || !isTame);
    if (!out) {
        return;
    }
    CheckForm(*out);
    if (!isTame || !HasCertainPlaces(in)) {
        return;
    }
    // Only where the polygon is wound around positively do its edges bound it.
    Polygon2 clean;
    RemoveSelfIntersections(in, clean, GLU_TESS_WINDING_POSITIVE, RSI_NORMAL_POSITIVE_Z);
    const test::Rings edges = RingsOf(clean);
    const double reach = std::fabs(distance) + NEAR;
    ForEachProbe(clean, reach + 0.5, [&](const Vec2d& p) {
        const bool wasInside = WindingNumber(clean, p) > 0;
        const bool isInside = WindingNumber(*out, p) > 0;
        if (!IsNear(edges, p, reach)) {
            FUZZ_CHECK(isInside == wasInside);
        } else if (distance >= 0 && wasInside && !IsNear(edges, p, NEAR)) {
            FUZZ_CHECK(isInside);
        }
    });
}

void CheckErrors(const Polygon2& in, unsigned int rule, unsigned int normal) {
    Polygon2 out;
    try {
        RemoveSelfIntersections(in, out, rule, static_cast<RSI_NormalDir>(normal));
    } catch (const kit::Exception& e) {
        FUZZ_CHECK(e.Line() == (rule - GLU_TESS_WINDING_ODD > 4U ? 116 : 117));
        return;
    }
    Fail("an error is thrown", __FILE__, __LINE__);
}

double TakeDistance(ByteSource& bytes) {
    const int kind = bytes.Below(8);
    return kind == 7 ? bytes.Bits() : (bytes.Byte() - 128) / 32.0;
}

void Check(ByteSource& bytes) {
    Coordinates coordinates(bytes);
    const double distance = TakeDistance(bytes);
    const unsigned int rule = GLU_TESS_WINDING_ODD + static_cast<unsigned int>(bytes.Below(5));
    const RSI_NormalDir normal = bytes.Flag() ? RSI_NORMAL_NEGATIVE_Z : RSI_NORMAL_POSITIVE_Z;
    const Polygon2 in = PolygonOf(TakeRings(bytes, coordinates, MOST_RINGS, MOST_POINTS));
    CheckRepair(in, rule, normal);
    CheckOffset(in, distance);
    CheckErrors(in, rule + 5, normal);
    CheckErrors(in, rule, normal + 2);
}

} // namespace

} // namespace geom::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    geom::fuzz::ByteSource bytes(data, size);
    geom::fuzz::Check(bytes);
    return 0;
}
