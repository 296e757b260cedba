// SPDX-License-Identifier: MIT
#include "tests/reference/SetOperationLaws.h"

#include "geometry/GPCException.h"
#include "tests/reference/ResultMeasures.h"
#include "tests/support/PlaneTruth.h"
#include "tests/support/PolygonView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <sstream>
#include <string>

namespace geom::test {

namespace {

constexpr gpc_op OPERATIONS[] = {GPC_DIFF, GPC_INT, GPC_XOR, GPC_UNION};

/// Far beyond all rounding errors, in units of the largest coordinate.
constexpr double PROBE_DISTANCE = 0x1p-36;

std::string Text(const Rings& rings) {
    std::ostringstream text;
    text.precision(17);
    for (const Ring& ring : rings) {
        text << "{";
        for (const gpc_vertex& v : ring)
            text << "{" << v.x << ", " << v.y << "}, ";
        text << "}, ";
    }
    return text.str();
}

/// How often each law was checked where it says something.
struct LawTally {
    int pairs = 0;
    int exceptions = 0;    ///< pairs given up because the sweep found itself inconsistent
    int probesInside = 0;  ///< probe points in the result
    int probesOutside = 0; ///< probe points in an operand, but not in the result
    int contourAreas = 0;  ///< results with an area
    int holes = 0;         ///< results with a hole
    int stripAreas = 0;    ///< results with an area, as strips
    int overlaps = 0;      ///< pairs with an intersection
};

/// One pair of operands with all its results.
class Case {
public:
    Case(const SetOperations& operations, const PolygonFamily& family, Operands operands);
    void CheckMembership(Random& random, LawTally& tally) const;
    void CheckAreas(LawTally& tally) const;

private:
    gpc_vertex Probe(Random& random) const;

    const PolygonFamily& m_family;
    Operands m_operands;
    std::vector<PlainContour> m_contours[4];
    std::vector<PlainStrip> m_strips[4];
    gpc_vertex m_low = {0, 0};
    gpc_vertex m_high = {0, 0};
    double m_largest = 1;
};

Case::Case(const SetOperations& operations, const PolygonFamily& family, Operands operands)
    : m_family(family), m_operands(std::move(operands)) {
    const PolygonView subject(m_operands.subject);
    const PolygonView clip(m_operands.clip);
    for (const gpc_op operation : OPERATIONS) {
        m_contours[operation] = operations.clip(operation, subject.Get(), clip.Get());
        m_strips[operation] = operations.strips(operation, subject.Get(), clip.Get());
    }
    bool first = true;
    for (const Rings* rings : {&m_operands.subject, &m_operands.clip}) {
        for (const Ring& ring : *rings) {
            for (const gpc_vertex& v : ring) {
                m_low = first ? v : gpc_vertex{std::min(m_low.x, v.x), std::min(m_low.y, v.y)};
                m_high = first ? v : gpc_vertex{std::max(m_high.x, v.x), std::max(m_high.y, v.y)};
                m_largest = std::max({m_largest, std::fabs(v.x), std::fabs(v.y)});
                first = false;
            }
        }
    }
}

gpc_vertex Case::Probe(Random& random) const {
    const double x = random.Between(m_low.x, m_high.x);
    return {x, random.Between(m_low.y, m_high.y)};
}

void Case::CheckMembership(Random& random, LawTally& tally) const {
    for (int i = 0; i < 5; ++i) {
        const gpc_vertex p = Probe(random);
        const double distance = PROBE_DISTANCE * m_largest;
        if (IsNextToAnEdge(m_operands.subject, p, distance) ||
            IsNextToAnEdge(m_operands.clip, p, distance))
            continue;
        const bool inSubject = IsInside(m_operands.subject, p);
        const bool inClip = IsInside(m_operands.clip, p);
        for (const gpc_op operation : OPERATIONS) {
            const bool expected = Holds(operation, inSubject, inClip);
            EXPECT_EQ(IsInside(RingsOf(m_contours[operation]), p), expected)
                << "operation " << operation << " at " << p.x << " " << p.y << "\nsubject "
                << Text(m_operands.subject) << "\nclip " << Text(m_operands.clip);
            tally.probesInside += expected ? 1 : 0;
            tally.probesOutside += !expected && (inSubject || inClip) ? 1 : 0;
        }
    }
}

void Case::CheckAreas(LawTally& tally) const {
    const double tolerance = AreaTolerance(m_operands);
    double areas[4];
    for (const gpc_op operation : OPERATIONS) {
        const double truth = AreaOf(operation, m_operands.subject, m_operands.clip);
        const std::vector<PlainContour>& contours = m_contours[operation];
        areas[operation] = AreaOf(RingsOf(contours));
        const std::string message = "operation " + std::to_string(operation) + "\nsubject " +
                                    Text(m_operands.subject) + "\nclip " + Text(m_operands.clip);
        EXPECT_NEAR(areas[operation], truth, tolerance) << message;
        EXPECT_NEAR(AreaByFlags(contours), truth, tolerance) << "by hole flags, " << message;
        if (m_family.laws == Laws::All) {
            EXPECT_NEAR(AreaOfTriangles(m_strips[operation]), truth, tolerance)
                << "of strips, " << message;
        }
        const bool some = truth > 1000 * tolerance;
        tally.contourAreas += some ? 1 : 0;
        tally.stripAreas += some && m_family.laws == Laws::All ? 1 : 0;
        tally.holes += std::any_of(contours.begin(), contours.end(),
                                   [](const PlainContour& c) { return c.hole; })
                           ? 1
                           : 0;
    }
    const double sum = AreaOf(m_operands.subject) + AreaOf(m_operands.clip);
    EXPECT_NEAR(areas[GPC_UNION], sum - areas[GPC_INT], 4 * tolerance);
    EXPECT_NEAR(areas[GPC_XOR], areas[GPC_UNION] - areas[GPC_INT], 3 * tolerance);
    tally.overlaps += areas[GPC_INT] > 1000 * tolerance ? 1 : 0;
}

/// \return whether a call returns or throws a kit::Exception.
template <typename Operation>
bool EndsWell(const Operation& operate, gpc_op operation, const gpc_polygon& subject,
              const gpc_polygon& clip) {
    try {
        operate(operation, subject, clip);
    } catch (const kit::Exception&) {
        return true;
    } catch (...) {
        return false;
    }
    return true;
}

LawTally CheckLaws(const SetOperations& operations, const PolygonFamily& family, int pairs,
                   std::uint64_t seed) {
    Random random(seed);
    LawTally tally;
    for (int i = 0; i < pairs && !::testing::Test::HasFailure(); ++i) {
        const int size = random.Between(3, random.OneIn(4) ? 40 : 12);
        Operands operands = family.make(random, size);
        ++tally.pairs;
        try {
            const Case someCase(operations, family, std::move(operands));
            someCase.CheckMembership(random, tally);
            someCase.CheckAreas(tally);
        } catch (const GPCException&) {
            ++tally.exceptions;
        }
    }
    return tally;
}

} // namespace

void ExpectLaws(const SetOperations& operations, const PolygonFamily& family, int pairs,
                std::uint64_t seed) {
    const LawTally tally = CheckLaws(operations, family, pairs, seed);
    std::cout << tally.pairs << " pairs, " << tally.exceptions << " exceptions, "
              << tally.probesInside << " probes inside, " << tally.probesOutside << " outside, "
              << tally.contourAreas << " areas, " << tally.stripAreas << " of strips, "
              << tally.holes << " with holes, " << tally.overlaps << " overlaps, seed " << seed
              << "\n";
    EXPECT_EQ(tally.exceptions, 0);
    EXPECT_GT(tally.probesInside, pairs / 10);
    EXPECT_GT(tally.probesOutside, pairs / 10);
    EXPECT_GT(tally.contourAreas, pairs);
    EXPECT_GT(tally.overlaps, pairs / 4);
    EXPECT_GT(tally.stripAreas, family.laws == Laws::All ? pairs : -1);
}

void ExpectAnEndWithoutFiniteCoordinates(const SetOperations& operations, int pairs,
                                         std::uint64_t seed) {
    Random random(seed);
    for (int i = 0; i < pairs; ++i) {
        Operands operands = NotFinite(random, random.Between(3, 20));
        const PolygonView subject(operands.subject);
        const PolygonView clip(operands.clip);
        for (const gpc_op operation : OPERATIONS) {
            EXPECT_TRUE(EndsWell(operations.clip, operation, subject.Get(), clip.Get()));
            EXPECT_TRUE(EndsWell(operations.strips, operation, subject.Get(), clip.Get()));
        }
    }
}

const std::vector<PolygonFamily>& FamiliesWithLaws() {
    static const std::vector<PolygonFamily> FAMILIES = [] {
        std::vector<PolygonFamily> families;
        for (const PolygonFamily& family : PolygonFamilies())
            if (family.laws != Laws::None)
                families.push_back(family);
        return families;
    }();
    return FAMILIES;
}

} // namespace geom::test
