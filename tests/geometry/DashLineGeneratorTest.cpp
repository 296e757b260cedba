// SPDX-License-Identifier: MIT
#include "geometry/DashLineGenerator.h"

#include "geometry/Polyline.h"
#include "tests/reference/PlainDashWalk.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <random>
#include <stdexcept>
#include <type_traits>

namespace geom {
namespace {

using test::AllocationProbe;
using test::ExpectError;
using test::PlainDashWalk;

using Points = std::vector<Vec2d>;
using Pieces = std::vector<LineSegment2>;

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double LARGEST = std::numeric_limits<double>::max();

DashLineGenerator Generator(const std::vector<double>& dashes) {
    return {dashes.data(), dashes.size()};
}

Pieces Dash(DashLineGenerator& generator, const Points& points) {
    Pieces pieces;
    generator.Decompose(points.data(), points.size(), pieces);
    return pieces;
}

// Undefined coordinates (0 / 0 on a segment of no length) equal each other.
bool Same(const Vec2d& a, const Vec2d& b) {
    const auto same = [](double s, double t) { return s == t || (std::isnan(s) && std::isnan(t)); };
    return same(a.x, b.x) && same(a.y, b.y);
}

// Direction counts here; LineSegment2's own comparison ignores it.
void ExpectPieces(const Pieces& pieces, const std::vector<std::pair<Vec2d, Vec2d>>& expected) {
    ASSERT_EQ(pieces.size(), expected.size());
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const LineSegment2& piece = pieces[i];
        EXPECT_TRUE(Same(piece.A(), expected[i].first) && Same(piece.B(), expected[i].second))
            << "piece " << i << ": (" << piece.A().x << ", " << piece.A().y << ")-(" << piece.B().x
            << ", " << piece.B().y << ")";
    }
}

/// Opens the state of a generator.
class OpenGenerator : public DashLineGenerator {
public:
    using DashLineGenerator::Construct;
    using DashLineGenerator::DashLineGenerator;
    using DashLineGenerator::FreeAll;
    using DashLineGenerator::InitState;

    void ExpectState(const Vec2d& last, int entry, bool down, double left) const {
        EXPECT_EQ(lastPoint, last);
        EXPECT_EQ(index, entry);
        EXPECT_EQ(penDown, down);
        EXPECT_EQ(remaining, left);
    }
    const std::vector<double>& Dashes() const { return dashes; }
    double* Storage() { return dashes.data(); }
};

const Vec2d NOWHERE{LARGEST, LARGEST};

OpenGenerator Open(const std::vector<double>& dashes) {
    return {dashes.data(), dashes.size()};
}

TEST(DashLineGenerator, IsPolymorphicOnlyInItsDestructor) {
    static_assert(std::has_virtual_destructor_v<DashLineGenerator>);
    static_assert(sizeof(DashLineGenerator) ==
                  sizeof(void*) + sizeof(std::vector<double>) + sizeof(Vec2d) + 8 + sizeof(double));
    const std::vector<double> dashes = {2, 1};
    const std::unique_ptr<DashLineGenerator> base =
        std::make_unique<OpenGenerator>(dashes.data(), dashes.size());
    EXPECT_EQ(Dash(*base, {{0, 0}, {1, 0}}).size(), 1U);
}

TEST(DashLineGenerator, StartsFresh) {
    Open({2, 1}).ExpectState(NOWHERE, 0, true, 2.0);
}

TEST(DashLineGenerator, StraightLineGivesDashAfterDash) {
    OpenGenerator generator = Open({2, 1});
    ExpectPieces(Dash(generator, {{0, 0}, {10, 0}}),
                 {{{0, 0}, {2, 0}}, {{3, 0}, {5, 0}}, {{6, 0}, {8, 0}}, {{9, 0}, {10, 0}}});
    generator.ExpectState({10, 0}, 0, true, 1.0);
}

TEST(DashLineGenerator, PhaseCarriesAcrossJoinedCalls) {
    DashLineGenerator generator = Generator({2, 1});
    Dash(generator, {{0, 0}, {10, 0}});
    ExpectPieces(Dash(generator, {{10, 0}, {12, 0}}), {{{10, 0}, {11, 0}}});
}

TEST(DashLineGenerator, PhaseCarriesWhileThePenIsUp) {
    OpenGenerator generator = Open({2, 3});
    ExpectPieces(Dash(generator, {{0, 0}, {4, 0}}), {{{0, 0}, {2, 0}}});
    generator.ExpectState({4, 0}, 1, false, 1.0);
    ExpectPieces(Dash(generator, {{4, 0}, {6, 0}}), {{{5, 0}, {6, 0}}});
}

TEST(DashLineGenerator, PolylineThatDoesNotJoinStartsFresh) {
    DashLineGenerator generator = Generator({2, 1});
    Dash(generator, {{0, 0}, {10, 0}});
    ExpectPieces(Dash(generator, {{10, 0.5}, {12, 0.5}}), {{{10, 0.5}, {12, 0.5}}});
    ExpectPieces(Dash(generator, {{13, 0.5}, {14, 0.5}}), {{{13, 0.5}, {14, 0.5}}});
}

TEST(DashLineGenerator, DashThatTurnsACornerComesInTwoPieces) {
    DashLineGenerator generator = Generator({3, 1});
    ExpectPieces(Dash(generator, {{0, 0}, {1, 0}, {1, 5}}),
                 {{{0, 0}, {1, 0}}, {{1, 0}, {1, 2}}, {{1, 3}, {1, 5}}});
}

TEST(DashLineGenerator, SwitchAtAVertexClosesItsDashWithAPieceOfNoLength) {
    DashLineGenerator generator = Generator({1, 1});
    ExpectPieces(Dash(generator, {{0, 0}, {1, 0}, {2, 0}}), {{{0, 0}, {1, 0}}, {{1, 0}, {1, 0}}});
}

TEST(DashLineGenerator, SwitchAtTheEndStaysPending) {
    OpenGenerator generator = Open({2, 1});
    ExpectPieces(Dash(generator, {{0, 0}, {2, 0}}), {{{0, 0}, {2, 0}}});
    generator.ExpectState({2, 0}, 0, true, 0.0);
    ExpectPieces(Dash(generator, {{2, 0}, {4, 0}}), {{{2, 0}, {2, 0}}, {{3, 0}, {4, 0}}});
}

TEST(DashLineGenerator, OddPatternSwapsItsRolesAtEachRepetition) {
    DashLineGenerator equal = Generator({1, 1, 1});
    ExpectPieces(Dash(equal, {{0, 0}, {6, 0}}),
                 {{{0, 0}, {1, 0}}, {{2, 0}, {3, 0}}, {{4, 0}, {5, 0}}});
    DashLineGenerator different = Generator({1, 2, 4});
    ExpectPieces(Dash(different, {{0, 0}, {14, 0}}),
                 {{{0, 0}, {1, 0}}, {{3, 0}, {7, 0}}, {{8, 0}, {10, 0}}});
}

TEST(DashLineGenerator, SingleEntryAlternates) {
    DashLineGenerator generator = Generator({4});
    ExpectPieces(Dash(generator, {{0, 0}, {0, 10}}), {{{0, 0}, {0, 4}}, {{0, 8}, {0, 10}}});
}

TEST(DashLineGenerator, ZeroEntryGivesDotsOrNoGap) {
    DashLineGenerator dots = Generator({0, 2});
    ExpectPieces(Dash(dots, {{0, 0}, {5, 0}}),
                 {{{0, 0}, {0, 0}}, {{2, 0}, {2, 0}}, {{4, 0}, {4, 0}}});
    DashLineGenerator gapless = Generator({2, 0});
    ExpectPieces(Dash(gapless, {{0, 0}, {5, 0}}),
                 {{{0, 0}, {2, 0}}, {{2, 0}, {4, 0}}, {{4, 0}, {5, 0}}});
}

TEST(DashLineGenerator, NegativeEntryIsWalkedBackwards) {
    DashLineGenerator generator = Generator({3, -1});
    ExpectPieces(Dash(generator, {{0, 0}, {4, 0}}), {{{0, 0}, {3, 0}}, {{2, 0}, {4, 0}}});
    DashLineGenerator behind = Generator({-1, 3});
    ExpectPieces(Dash(behind, {{0, 0}, {1, 0}}), {{{0, 0}, {-1, 0}}});
}

TEST(DashLineGenerator, SwitchPointsAreMeasuredFromTheSegmentsStart) {
    DashLineGenerator generator = Generator({0.1, 0.1});
    const Pieces pieces = Dash(generator, {{0, 0}, {1, 3}});
    const double len = std::sqrt(10.0);
    const double second = 0.1 + 0.1;
    ASSERT_GT(pieces.size(), 2U);
    EXPECT_EQ(pieces[1].A(), Vec2d(1.0 * second / len, 3.0 * second / len));
    EXPECT_EQ(pieces[1].B(), Vec2d(1.0 * (second + 0.1) / len, 3.0 * (second + 0.1) / len));
}

TEST(DashLineGenerator, ZeroLengthSegmentsAreVisibleButUseNothingUp) {
    OpenGenerator generator = Open({2, 1});
    ExpectPieces(Dash(generator, {{1, 1}, {1, 1}, {1, 2}}), {{{1, 1}, {1, 1}}, {{1, 1}, {1, 2}}});
    generator.ExpectState({1, 2}, 0, true, 1.0);
}

TEST(DashLineGenerator, SinglePointOrNoneResets) {
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0}, {4, 0}});
    EXPECT_TRUE(Dash(generator, {{4, 0}}).empty());
    generator.ExpectState(NOWHERE, 0, true, 2.0);
    Dash(generator, {{0, 0}, {4, 0}});
    EXPECT_TRUE(Dash(generator, {}).empty());
    generator.ExpectState(NOWHERE, 0, true, 2.0);
}

TEST(DashLineGenerator, NullArrayCountsAsNoPoints) {
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0}, {4, 0}});
    Pieces pieces;
    generator.Decompose(nullptr, 5, pieces);
    EXPECT_TRUE(pieces.empty());
    generator.ExpectState(NOWHERE, 0, true, 2.0);
}

TEST(DashLineGenerator, EmptyPolylineLeavesThePhase) {
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0}, {4, 0}});
    Pieces pieces;
    generator.Decompose(Polyline(), pieces);
    EXPECT_TRUE(pieces.empty());
    generator.ExpectState({4, 0}, 1, false, 1.0);
}

TEST(DashLineGenerator, PolylineOfOneVertexResets) {
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0}, {4, 0}});
    const Vec2d point(4, 0);
    Pieces pieces;
    generator.Decompose(Polyline(&point, 1), pieces);
    EXPECT_TRUE(pieces.empty());
    generator.ExpectState(NOWHERE, 0, true, 2.0);
}

TEST(DashLineGenerator, AllFormsGiveTheSamePiecesAndAppend) {
    const Points points = {{0, 0}, {3, 4}, {3, 9}};
    const Polyline line(points.data(), points.size());
    DashLineGenerator byPoints = Generator({2, 1});
    DashLineGenerator byLine = Generator({2, 1});
    DashLineGenerator byCallback = Generator({2, 1});
    const LineSegment2 kept(7, 7, 8, 8);
    Pieces first = {kept};
    Pieces second = {kept};
    Pieces third = {kept};
    byPoints.Decompose(points.data(), points.size(), first);
    byLine.Decompose(line, second);
    byCallback.Decompose(
        points.data(), points.size(),
        [](const Vec2d& a, const Vec2d& b, void* context) {
            static_cast<Pieces*>(context)->emplace_back(a, b);
        },
        &third);
    EXPECT_EQ(first.size(), 1U + 5U);
    EXPECT_EQ(first[0], kept);
    EXPECT_EQ(first, second);
    EXPECT_EQ(first, third);
}

TEST(DashLineGenerator, InputInTheOutputsStorageIsReadBeforeItMoves) {
    Pieces pieces = {{0, 0, 10, 0}};
    pieces.shrink_to_fit();
    DashLineGenerator generator = Generator({2, 1});
    generator.Decompose(&pieces[0].A(), 2, pieces);
    ASSERT_EQ(pieces.size(), 5U);
    EXPECT_EQ(pieces[4], LineSegment2(9, 0, 10, 0));
}

TEST(DashLineGenerator, SetDashesReplacesThePatternAndResets) {
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0}, {4, 0}});
    const double dashes[] = {5, 6, 7};
    generator.SetDashes(dashes, 3);
    EXPECT_EQ(generator.Dashes(), std::vector<double>({5, 6, 7}));
    generator.ExpectState(NOWHERE, 0, true, 5.0);
}

TEST(DashLineGenerator, ConstructAppends) {
    OpenGenerator generator = Open({2, 3});
    const double dashes[] = {5};
    generator.Construct(dashes, 1);
    EXPECT_EQ(generator.Dashes(), std::vector<double>({2, 3, 5}));
    generator.Construct(nullptr, 0);
    EXPECT_EQ(generator.Dashes(), std::vector<double>({2, 3, 5, 0}));
    generator.ExpectState(NOWHERE, 0, true, 2.0);
}

TEST(DashLineGenerator, NoLengthsAreStoredAsASingleZero) {
    EXPECT_EQ(Open({}).Dashes(), std::vector<double>({0}));
    OpenGenerator generator = Open({2, 3});
    generator.SetDashes(nullptr, 0);
    EXPECT_EQ(generator.Dashes(), std::vector<double>({0}));
    generator.ExpectState(NOWHERE, 0, true, 0.0);
}

TEST(DashLineGenerator, EmptyPatternDashesNothing) {
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0}, {4, 0}});
    generator.FreeAll();
    generator.ExpectState({4, 0}, 1, false, 1.0);
    EXPECT_TRUE(Dash(generator, {{4, 0}, {9, 0}}).empty());
    generator.ExpectState(NOWHERE, 0, true, 0.0);
}

TEST(DashLineGenerator, CopyTakesPatternAndPhase) {
    OpenGenerator original = Open({2, 3});
    Dash(original, {{0, 0}, {4, 0}});
    const OpenGenerator copy(original);
    EXPECT_EQ(copy.Dashes(), original.Dashes());
    copy.ExpectState({4, 0}, 1, false, 1.0);
    OpenGenerator assigned = Open({9});
    OpenGenerator& result = assigned = original;
    EXPECT_EQ(&result, &assigned);
    EXPECT_EQ(assigned.Dashes(), original.Dashes());
    assigned.ExpectState({4, 0}, 1, false, 1.0);
    Dash(assigned, {{4, 0}, {9, 0}});
    original.ExpectState({4, 0}, 1, false, 1.0);
}

TEST(DashLineGenerator, CopyOfAnEmptyPatternHoldsASingleZero) {
    OpenGenerator original = Open({2, 3});
    Dash(original, {{0, 0}, {4, 0}});
    original.FreeAll();
    OpenGenerator copy(original);
    EXPECT_EQ(copy.Dashes(), std::vector<double>({0}));
    copy.ExpectState({4, 0}, 1, false, 1.0);
    ExpectPieces(Dash(copy, {{4, 0}, {9, 0}}), {{{4, 0}, {9, 0}}});
}

TEST(DashLineGenerator, SelfAssignmentChangesNothing) {
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0}, {4, 0}});
    const OpenGenerator& same = generator;
    generator = same;
    EXPECT_EQ(generator.Dashes(), std::vector<double>({2, 3}));
    generator.ExpectState({4, 0}, 1, false, 1.0);
}

TEST(DashLineGenerator, NullPatternWithLengthsIsAnInternalError) {
    ExpectError([] { DashLineGenerator(nullptr, 2); }, "Geometry", "DashLineGenerator", 194,
                "Internal error");
    OpenGenerator generator = Open({2, 3});
    ExpectError([&] { generator.SetDashes(nullptr, 2); }, "Geometry", "DashLineGenerator", 194,
                "Internal error");
    EXPECT_TRUE(generator.Dashes().empty());
    EXPECT_TRUE(Dash(generator, {{0, 0}, {9, 0}}).empty());
}

TEST(DashLineGenerator, PatternTooLongForAnyVectorIsOutOfMemory) {
    const double dash = 1.0;
    ExpectError([&] { DashLineGenerator(&dash, std::numeric_limits<std::size_t>::max() / 2); },
                "Geometry", "DashLineGenerator", 221, "Out of memory");
}

TEST(DashLineGenerator, FailedAllocationOfThePatternIsOutOfMemory) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const std::vector<double> dashes(100, 1.0);
    const auto make = [&] {
        const AllocationProbe probe(0);
        DashLineGenerator(dashes.data(), dashes.size());
    };
    ExpectError(make, "Geometry", "DashLineGenerator", 221, "Out of memory");
    const auto makeEmpty = [&] {
        const AllocationProbe probe(0);
        DashLineGenerator(nullptr, 0);
    };
    ExpectError(makeEmpty, "Geometry", "DashLineGenerator", 221, "Out of memory");
    OpenGenerator large = Open(dashes);
    const auto copy = [&] {
        const AllocationProbe probe(0);
        OpenGenerator{large};
    };
    ExpectError(copy, "Geometry", "DashLineGenerator", 221, "Out of memory");
    OpenGenerator target = Open({2, 3});
    const auto assign = [&] {
        const AllocationProbe probe(0);
        target = large;
    };
    ExpectError(assign, "Geometry", "DashLineGenerator", 221, "Out of memory");
    EXPECT_TRUE(Dash(target, {{0, 0}, {9, 0}}).empty());
    large.SetDashes(dashes.data(), 2);
    EXPECT_EQ(Dash(large, {{0, 0}, {3, 0}}).size(), 2U);
}

TEST(DashLineGenerator, FailedGrowthOfTheOutputLeavesThePhase) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0}, {4, 0}});
    const Points points = {{4, 0}, {100, 0}};
    Pieces pieces;
    EXPECT_THROW(
        {
            const AllocationProbe probe(2);
            generator.Decompose(points.data(), points.size(), pieces);
        },
        std::bad_alloc);
    generator.ExpectState({4, 0}, 1, false, 1.0);
}

TEST(DashLineGenerator, ExceptionOfTheCallbackPasses) {
    OpenGenerator generator = Open({2, 1});
    Dash(generator, {{0, 0}, {4, 0}});
    const Points points = {{4, 0}, {100, 0}};
    EXPECT_THROW(generator.Decompose(
                     points.data(), points.size(),
                     [](const Vec2d&, const Vec2d&, void*) { throw std::runtime_error("full"); },
                     nullptr),
                 std::runtime_error);
    generator.ExpectState({4, 0}, 0, true, 1.0);
}

TEST(DashLineGenerator, WalkTakesNoMemoryHoweverManyDashesItDraws) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    for (const double length : {10.0, 1000.0, 100000.0}) {
        DashLineGenerator generator = Generator({0.5, 0.25});
        Points points = {{0, 0}};
        for (int i = 1; i <= 1000; ++i) {
            points.emplace_back(length * i / 1000.0, i % 2);
        }
        std::size_t pieces = 0;
        std::size_t requests = 0;
        {
            const AllocationProbe probe;
            generator.Decompose(
                points.data(), points.size(),
                [](const Vec2d&, const Vec2d&, void* count) {
                    ++*static_cast<std::size_t*>(count);
                },
                &pieces);
            requests = probe.Count();
        }
        EXPECT_EQ(requests, 0U);
        EXPECT_GT(pieces, static_cast<std::size_t>(length));
    }
}

struct BadPattern {
    const char* name;
    std::vector<double> dashes;
};

TEST(DashLineGenerator, PatternThatGetsNowhereDrawsSolid) {
    const BadPattern patterns[] = {
        {"none", {}},
        {"zero", {0}},
        {"zeros", {0, 0, 0}},
        {"negative", {-1}},
        {"cancelling", {1, -1}},
        {"sum below zero", {1, -3, 1}},
        {"not a number", {1, NOT_A_NUMBER}},
        {"not a number first", {NOT_A_NUMBER, 1}},
        {"minus infinity", {1, -INF}},
        {"both infinities", {INF, -INF}},
        {"cancelling beyond the largest double", {1e308, 1e308, -1e308, -1e308}},
    };
    for (const BadPattern& bad : patterns) {
        SCOPED_TRACE(bad.name);
        OpenGenerator generator = Open(bad.dashes);
        ExpectPieces(Dash(generator, {{0, 0}, {5, 0}, {5, 7}}),
                     {{{0, 0}, {5, 0}}, {{5, 0}, {5, 7}}});
        ExpectPieces(Dash(generator, {{5, 7}, {5, 8}}), {{{5, 7}, {5, 8}}});
    }
}

TEST(DashLineGenerator, InfiniteEntryNeverEnds) {
    DashLineGenerator on = Generator({INF, 1});
    ExpectPieces(Dash(on, {{0, 0}, {1e300, 0}}), {{{0, 0}, {1e300, 0}}});
    DashLineGenerator off = Generator({1, INF});
    ExpectPieces(Dash(off, {{0, 0}, {2, 0}, {1e300, 0}}), {{{0, 0}, {1, 0}}});
}

TEST(DashLineGenerator, HugeEntriesOfBothSignsKeepTheirPositiveSum) {
    DashLineGenerator generator = Generator({1e308, 1e308, -1e308, -0.5e308});
    ExpectPieces(Dash(generator, {{0, 0}, {1.5e308, 0}}), {{{0, 0}, {1.5e308, 0}}});
}

TEST(DashLineGenerator, SegmentThatIsNotFinitePassesWithThePenAsItIs) {
    const Points ends = {{NOT_A_NUMBER, 0}, {INF, 0}, {0, -INF}, {LARGEST, LARGEST}, {1e200, 0}};
    for (const Vec2d& end : ends) {
        OpenGenerator down = Open({2, 3});
        const Pieces pieces = Dash(down, {{0, 0}, {1, 0}, end});
        ASSERT_EQ(pieces.size(), 2U);
        EXPECT_EQ(pieces[1].A(), Vec2d(1, 0));
        OpenGenerator up = Open({2, 3});
        EXPECT_EQ(Dash(up, {{0, 0}, {4, 0}, end}).size(), 1U);
    }
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0}, {4, 0}, {4, INF}});
    generator.ExpectState({4, INF}, 1, false, 1.0);
}

TEST(DashLineGenerator, PatternGoesOnBehindASegmentThatCannotBeCovered) {
    OpenGenerator generator = Open({2, 1});
    ExpectPieces(
        Dash(generator, {{0, 0}, {1, 0}, {1, 1e30}, {6, 1e30}}),
        {{{0, 0}, {1, 0}}, {{1, 0}, {1, 1e30}}, {{1, 1e30}, {2, 1e30}}, {{3, 1e30}, {5, 1e30}}});
    generator.ExpectState({6, 1e30}, 1, false, 0.0);
}

TEST(DashLineGenerator, LongEntryAheadNeedsNoCycles) {
    OpenGenerator generator = Open({100, -99.9999999999});
    ExpectPieces(Dash(generator, {{0, 0}, {1, 0}}), {{{0, 0}, {1, 0}}});
    generator.ExpectState({1, 0}, 0, true, 99.0);
}

TEST(DashLineGenerator, CycleThatRoundingEatsEndsTheWalkOfItsSegment) {
    OpenGenerator generator = Open({0x1p60, -0x1p60, 1.0});
    const Pieces pieces = Dash(generator, {{0, 0}, {0x1p60 + 0x1p20, 0}, {0x1p60 + 0x1p20, 1}});
    EXPECT_LT(pieces.size(), 10U);
}

TEST(DashLineGenerator, MillionCyclesAreWalked) {
    DashLineGenerator generator = Generator({0.5, 0.5});
    EXPECT_EQ(Dash(generator, {{0, 0}, {1e6, 0}}).size(), 1000000U);
}

TEST(DashLineGenerator, AgreesWithTheWalkThatCollectsStretches) {
    const unsigned seed = 20240611;
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> small(0, 6);
    std::uniform_real_distribution<double> any(-10.0, 10.0);
    std::size_t pieceCount = 0;
    for (int round = 0; round < 5000; ++round) {
        const bool onGrid = round % 2 == 0;
        const auto coordinate = [&] { return onGrid ? small(random) : any(random); };
        std::vector<double> dashes(1 + random() % 5);
        double sum = 0.0;
        for (double& dash : dashes) {
            dash = onGrid ? small(random) - (round % 7 == 0 ? 2 : 0) : std::fabs(any(random));
            sum += dash;
        }
        if (!(sum > 0.0)) {
            continue;
        }
        DashLineGenerator generator = Generator(dashes);
        PlainDashWalk plain(dashes);
        Vec2d last(0, 0);
        for (int call = 0; call < 4; ++call) {
            Points points(random() % 8);
            for (Vec2d& point : points) {
                point = {coordinate(), coordinate()};
            }
            if (!points.empty() && random() % 2 == 0) {
                points[0] = last;
            }
            const std::vector<PlainDashWalk::Piece> expected = plain.Decompose(points);
            ExpectPieces(Dash(generator, points), expected);
            ASSERT_FALSE(HasFailure()) << "seed " << seed << " round " << round;
            pieceCount += expected.size();
            last = points.empty() ? last : points.back();
        }
    }
    std::printf("seed %u: %zu pieces compared\n", seed, pieceCount);
    EXPECT_GT(pieceCount, 50000U);
}

} // namespace
} // namespace geom
