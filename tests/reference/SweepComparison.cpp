// SPDX-License-Identifier: MIT
#include "tests/reference/SweepComparison.h"

#include "geometry/GPCException.h"
#include "tests/reference/EngineCalls.h"
#include "tests/reference/PlainSweep.h"
#include "tests/support/PolygonView.h"

#include <cstdio>
#include <cstring>
#include <optional>

namespace geom::test {

namespace {

constexpr gpc_op OPERATIONS[] = {GPC_DIFF, GPC_INT, GPC_XOR, GPC_UNION};

/// Zeros of different signs differ.
bool Same(const gpc_vertex& a, const gpc_vertex& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool Same(const Ring& a, const Ring& b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!Same(a[i], b[i]))
            return false;
    return true;
}

bool Same(const PlainContour& a, const PlainContour& b) {
    return a.hole == b.hole && Same(a.vertices, b.vertices);
}

template <typename Piece>
bool SameLists(const std::vector<Piece>& a, const std::vector<Piece>& b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!Same(a[i], b[i]))
            return false;
    return true;
}

int CountVertices(const std::vector<PlainContour>& contours) {
    std::size_t count = 0;
    for (const PlainContour& contour : contours)
        count += contour.vertices.size();
    return static_cast<int>(count);
}

int CountVertices(const Rings& strips) {
    std::size_t count = 0;
    for (const Ring& strip : strips)
        count += strip.size();
    return static_cast<int>(count);
}

/// Nothing where the sweep found itself inconsistent.
template <typename Result>
using Outcome = std::optional<std::vector<Result>>;

template <typename Result>
Outcome<Result> OutcomeOf(std::vector<Result> (*clip)(gpc_op, const gpc_polygon&,
                                                      const gpc_polygon&),
                          gpc_op operation, const gpc_polygon& subject, const gpc_polygon& with) {
    try {
        return clip(operation, subject, with);
    } catch (const GPCException&) {
        return std::nullopt;
    }
}

std::string Text(const Ring& ring) {
    std::string text;
    for (const gpc_vertex& v : ring) {
        char point[80];
        std::snprintf(point, sizeof point, "(%a, %a) ", v.x, v.y);
        text += point;
    }
    return "    " + text + "\n";
}

std::string Text(const PlainContour& contour) {
    return (contour.hole ? "    hole" : "    external") + Text(contour.vertices);
}

template <typename Piece>
std::string Text(const std::vector<Piece>& pieces) {
    std::string text;
    for (const Piece& piece : pieces)
        text += Text(piece);
    return text;
}

template <typename Result>
std::string Text(const char* name, const Outcome<Result>& outcome) {
    return std::string("  ") + name + ":\n" + (outcome ? Text(*outcome) : "    exception\n");
}

template <typename Result>
void CompareOutcomes(const Outcome<Result>& engine, const Outcome<Result>& plain, gpc_op operation,
                     ComparisonTally& tally) {
    ++tally.results;
    const bool same =
        engine.has_value() == plain.has_value() && (!engine || SameLists(*engine, *plain));
    tally.exceptions += !engine && !plain ? 1 : 0;
    tally.vertices += engine && plain ? CountVertices(*engine) : 0;
    if (!same) {
        ++tally.differences;
        tally.example += "operation " + std::to_string(operation) + "\n" + Text("engine", engine) +
                         Text("plain", plain);
    }
}

void Add(ComparisonTally& sum, const ComparisonTally& tally) {
    sum.pairs += tally.pairs;
    sum.results += tally.results;
    sum.exceptions += tally.exceptions;
    sum.vertices += tally.vertices;
    sum.differences += tally.differences;
    sum.changed += tally.changed;
}

bool Differs(const Operands& operands) {
    return Compare(operands).differences > 0;
}

/// Leaves out rings and vertices while the difference stays.
void Shrink(Operands& operands) {
    for (bool smaller = true; smaller;) {
        smaller = false;
        for (Rings Operands::*rings : {&Operands::subject, &Operands::clip}) {
            for (std::size_t r = 0; r < (operands.*rings).size(); ++r) {
                Operands fewer = operands;
                (fewer.*rings).erase((fewer.*rings).begin() + static_cast<std::ptrdiff_t>(r));
                if (Differs(fewer)) {
                    operands = fewer;
                    smaller = true;
                    break;
                }
                for (std::size_t v = 0; v < (operands.*rings)[r].size(); ++v) {
                    fewer = operands;
                    Ring& ring = (fewer.*rings)[r];
                    ring.erase(ring.begin() + static_cast<std::ptrdiff_t>(v));
                    if (Differs(fewer)) {
                        operands = fewer;
                        smaller = true;
                        --v;
                    }
                }
            }
        }
    }
}

/// Mostly small: coincidences are then dense, and differences easy to read.
int SomeSize(Random& random) {
    if (random.OneIn(50))
        return random.Between(3, 80);
    return random.Between(3, random.OneIn(5) ? 30 : 12);
}

} // namespace

ComparisonTally Compare(const Operands& operands) {
    Operands copies = operands;
    const PolygonView subject(copies.subject);
    const PolygonView clip(copies.clip);
    ComparisonTally tally;
    tally.pairs = 1;
    for (const gpc_op operation : OPERATIONS) {
        CompareOutcomes(OutcomeOf(EngineClip, operation, subject.Get(), clip.Get()),
                        OutcomeOf(PlainClip, operation, subject.Get(), clip.Get()), operation,
                        tally);
        CompareOutcomes(OutcomeOf(EngineTristrip, operation, subject.Get(), clip.Get()),
                        OutcomeOf(PlainTristrip, operation, subject.Get(), clip.Get()), operation,
                        tally);
    }
    tally.changed += SameLists(copies.subject, operands.subject) ? 0 : 1;
    tally.changed += SameLists(copies.clip, operands.clip) ? 0 : 1;
    return tally;
}

ComparisonTally CompareFamily(const PolygonFamily& family, int pairs, std::uint64_t seed) {
    Random random(seed);
    ComparisonTally sum;
    for (int i = 0; i < pairs; ++i) {
        Operands operands = family.make(random, SomeSize(random));
        const ComparisonTally tally = Compare(operands);
        Add(sum, tally);
        if (tally.differences > 0 && sum.example.empty()) {
            Shrink(operands);
            sum.example = "subject\n" + Text(operands.subject) + "clip\n" + Text(operands.clip) +
                          Compare(operands).example;
        }
    }
    return sum;
}

} // namespace geom::test
