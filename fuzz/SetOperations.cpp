// SPDX-License-Identifier: MIT
// gpc_polygon_clip and gpc_tristrip_clip on two polygons that the bytes describe, or on a pair of
// one of the generated families. What must hold:
// - contours and strips of all operations are to the bit those of the plain sweep, which ends in
//   the same exceptions, and a second run gives them again;
// - the operands are not written to;
// - contours and strips have three vertices at least, and arrays that fit their counts;
// - probe points lie in a result where the operation holds for their places in the operands;
// - the areas of the results are those of the places where the operation holds, and add up.
#include "fuzz/support/Check.h"
#include "fuzz/support/Coordinates.h"
#include "fuzz/support/GeneralPosition.h"
#include "fuzz/support/Target.h"

#include "Subsystems/Kit/Exception.h"
#include "geometry/GPCException.h"
#include "tests/reference/EngineCalls.h"
#include "tests/reference/ResultMeasures.h"
#include "tests/reference/SweepComparison.h"
#include "tests/support/PlaneTruth.h"
#include "tests/support/PolygonView.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace geom::fuzz {

namespace {

using namespace geom::test;

constexpr gpc_op OPERATIONS[] = {GPC_DIFF, GPC_INT, GPC_XOR, GPC_UNION};

constexpr int MOST_RINGS = 3;
constexpr int MOST_POINTS = 10;

/// Differences, products and quotients of coordinates up to here stay within the doubles well
/// enough that both sweeps see the same numbers, not values that are none.
constexpr double LARGEST_COMPARED = 0x1p500;

struct Input {
    Operands operands;
    Laws laws;
};

Rings RingsOf(const std::vector<Points>& points) {
    Rings rings;
    for (const Points& ring : points) {
        rings.emplace_back();
        for (const Vec2d& p : ring) {
            rings.back().push_back({p.x, p.y});
        }
    }
    return rings;
}

/// Far beyond rounding errors.
constexpr double APART = 0x1p-24;

/// The laws that hold for decoded vertices: strips are promised in general position only, and
/// nothing where coordinates are beyond the absolute tolerance, or so mixed that it swallows them.
Laws LawsOf(CoordinateKind kind, const Operands& operands) {
    if (kind == CoordinateKind::Scaled || kind == CoordinateKind::Bits) {
        return Laws::None;
    }
    return IsInGeneralPosition(operands, APART) ? Laws::All : Laws::Contours;
}

Input TakeInput(ByteSource& bytes) {
    const int choice = bytes.Byte();
    if (choice >= 192) {
        const std::vector<PolygonFamily>& families = PolygonFamilies();
        const PolygonFamily& family = families[static_cast<std::size_t>(choice) % families.size()];
        const int size = bytes.Between(3, 20);
        Random random(static_cast<std::uint64_t>(bytes.Word()));
        return {family.make(random, size), family.laws};
    }
    Coordinates coordinates(bytes, static_cast<CoordinateKind>(choice % COORDINATE_KINDS));
    Input input;
    input.operands.subject = RingsOf(TakeRings(bytes, coordinates, MOST_RINGS, MOST_POINTS));
    input.operands.clip = RingsOf(TakeRings(bytes, coordinates, MOST_RINGS, MOST_POINTS));
    input.laws = LawsOf(coordinates.Kind(), input.operands);
    return input;
}

template <typename Accept>
bool AllOrdinates(const Operands& operands, Accept accept) {
    for (const Rings* rings : {&operands.subject, &operands.clip}) {
        for (const Ring& ring : *rings) {
            for (const gpc_vertex& v : ring) {
                if (!accept(v.x) || !accept(v.y)) {
                    return false;
                }
            }
        }
    }
    return true;
}

bool IsComparable(const Operands& operands) {
    return AllOrdinates(operands, [](double v) { return std::fabs(v) <= LARGEST_COMPARED; });
}

/// Whatever the coordinates are, a call returns or throws an exception of the library.
void CheckThatAllEnds(Operands operands) {
    const PolygonView subject(operands.subject);
    const PolygonView clip(operands.clip);
    for (const gpc_op operation : OPERATIONS) {
        try {
            EngineClip(operation, subject.Get(), clip.Get());
            EngineTristrip(operation, subject.Get(), clip.Get());
        } catch (const kit::Exception&) {
        }
    }
}

struct Results {
    std::vector<PlainContour> contours[4];
    std::vector<PlainStrip> strips[4];
};

/// Nothing where the sweep finds itself inconsistent.
std::optional<Results> Run(Operands& operands) {
    const PolygonView subject(operands.subject);
    const PolygonView clip(operands.clip);
    Results results;
    try {
        for (const gpc_op operation : OPERATIONS) {
            results.contours[operation] = EngineClip(operation, subject.Get(), clip.Get());
            results.strips[operation] = EngineTristrip(operation, subject.Get(), clip.Get());
        }
    } catch (const GPCException&) {
        return std::nullopt;
    }
    return results;
}

bool SameVertices(const Ring& a, const Ring& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const gpc_vertex& p, const gpc_vertex& q) {
                          return SameBits(p.x, q.x) && SameBits(p.y, q.y);
                      });
}

void CheckSecondRun(const Results& first, Operands& operands) {
    const std::optional<Results> second = Run(operands);
    FUZZ_CHECK(second.has_value());
    for (const gpc_op operation : OPERATIONS) {
        const auto& a = first.contours[operation];
        const auto& b = second->contours[operation];
        FUZZ_CHECK(std::equal(a.begin(), a.end(), b.begin(), b.end(),
                              [](const PlainContour& p, const PlainContour& q) {
                                  return p.hole == q.hole && SameVertices(p.vertices, q.vertices);
                              }));
        FUZZ_CHECK(std::equal(first.strips[operation].begin(), first.strips[operation].end(),
                              second->strips[operation].begin(), second->strips[operation].end(),
                              SameVertices));
    }
}

void CheckCounts(const Results& results) {
    for (const gpc_op operation : OPERATIONS) {
        for (const PlainContour& contour : results.contours[operation]) {
            FUZZ_CHECK(contour.vertices.size() >= 3);
        }
        for (const PlainStrip& strip : results.strips[operation]) {
            FUZZ_CHECK(strip.size() >= 3);
        }
    }
}

double LargestOrdinate(const Operands& operands) {
    double largest = 1;
    AllOrdinates(operands, [&](double v) {
        largest = std::max(largest, std::fabs(v));
        return true;
    });
    return largest;
}

/// Points beside vertices, where most goes on; those next to an edge show nothing.
void CheckMembership(const Results& results, const Operands& operands) {
    const double distance = 0x1p-36 * LargestOrdinate(operands);
    Random random(1);
    for (const Rings* rings : {&operands.subject, &operands.clip}) {
        for (const Ring& ring : *rings) {
            if (ring.empty()) {
                continue;
            }
            const gpc_vertex& v = ring[ring.size() / 2];
            const gpc_vertex& w = ring[0];
            const gpc_vertex p = {v.x + (w.x - v.x) * random.Unit() + random.Between(-0.25, 0.25),
                                  v.y + random.Between(-0.25, 0.25)};
            if (IsNextToAnEdge(operands.subject, p, distance) ||
                IsNextToAnEdge(operands.clip, p, distance)) {
                continue;
            }
            const bool inSubject = IsInside(operands.subject, p);
            const bool inClip = IsInside(operands.clip, p);
            for (const gpc_op operation : OPERATIONS) {
                FUZZ_CHECK(IsInside(RingsOf(results.contours[operation]), p) ==
                           Holds(operation, inSubject, inClip));
            }
        }
    }
}

void CheckAreas(const Results& results, const Operands& operands, Laws laws) {
    const double tolerance = AreaTolerance(operands);
    const auto isNear = [](double a, double b, double apart) { return std::fabs(a - b) <= apart; };
    double areas[4];
    for (const gpc_op operation : OPERATIONS) {
        const double truth = AreaOf(operation, operands.subject, operands.clip);
        areas[operation] = AreaOf(RingsOf(results.contours[operation]));
        FUZZ_CHECK(isNear(areas[operation], truth, tolerance));
        FUZZ_CHECK(isNear(AreaByFlags(results.contours[operation]), truth, tolerance));
        FUZZ_CHECK(laws != Laws::All ||
                   isNear(AreaOfTriangles(results.strips[operation]), truth, tolerance));
    }
    const double sum = AreaOf(operands.subject) + AreaOf(operands.clip);
    FUZZ_CHECK(isNear(areas[GPC_UNION], sum - areas[GPC_INT], 4 * tolerance));
    FUZZ_CHECK(isNear(areas[GPC_XOR], areas[GPC_UNION] - areas[GPC_INT], 3 * tolerance));
}

void Check(Input& input) {
    if (!IsComparable(input.operands)) {
        CheckThatAllEnds(input.operands);
        return;
    }
    const ComparisonTally tally = Compare(input.operands);
    FUZZ_CHECK(tally.differences == 0);
    FUZZ_CHECK(tally.changed == 0);
    const std::optional<Results> results = Run(input.operands);
    if (!results) {
        return;
    }
    CheckSecondRun(*results, input.operands);
    CheckCounts(*results);
    if (input.laws != Laws::None) {
        CheckMembership(*results, input.operands);
        CheckAreas(*results, input.operands, input.laws);
    }
}

} // namespace

} // namespace geom::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    geom::fuzz::ByteSource bytes(data, size);
    geom::fuzz::Input input = geom::fuzz::TakeInput(bytes);
    geom::fuzz::Check(input);
    return 0;
}
