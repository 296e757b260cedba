// SPDX-License-Identifier: MIT
#include "geometry/DashLineGenerator.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/Floats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace geom {
namespace {

using namespace test;

using Points = std::vector<Vec3d>;
using Pieces = std::vector<LineSegment3>;
using Expected = std::vector<std::pair<Vec3d, Vec3d>>;

constexpr unsigned SEED = 6201;
const Vec3d NOWHERE(LARGEST, LARGEST, LARGEST);

/// Opens the state of a generator.
class OpenGenerator : public DashLine3Generator {
public:
    using DashLine3Generator::Construct;
    using DashLine3Generator::DashLine3Generator;
    using DashLine3Generator::FreeAll;
    using DashLine3Generator::InitState;

    void ExpectState(const Vec3d& last, int entry, bool down, double left) const {
        EXPECT_EQ(lastPoint, last);
        EXPECT_EQ(index, entry);
        EXPECT_EQ(penDown, down);
        EXPECT_EQ(remaining, left);
    }
    const std::vector<double>& Dashes() const { return dashes; }
};

OpenGenerator Open(const std::vector<double>& dashes) {
    return {dashes.data(), dashes.size()};
}

Pieces Dash(DashLine3Generator& generator, const Points& points) {
    Pieces pieces;
    generator.Decompose(points.data(), points.size(), pieces);
    return pieces;
}

bool Same(const Vec3d& a, const Vec3d& b) {
    return SameBits(a.x, b.x) && SameBits(a.y, b.y) && SameBits(a.z, b.z);
}

// Direction counts here; LineSegment3's own comparison ignores it.
void ExpectPieces(const Pieces& pieces, const Expected& expected) {
    ASSERT_EQ(pieces.size(), expected.size());
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        EXPECT_TRUE(Same(pieces[i].A(), expected[i].first) &&
                    Same(pieces[i].B(), expected[i].second))
            << "piece " << i;
    }
}

TEST(DashLine3Generator, IsPolymorphicOnlyInItsDestructor) {
    static_assert(std::has_virtual_destructor_v<DashLine3Generator>);
    static_assert(sizeof(DashLine3Generator) ==
                  sizeof(void*) + sizeof(std::vector<double>) + sizeof(Vec3d) + 8 + sizeof(double));
    const double dashes[] = {2, 1};
    const std::unique_ptr<DashLine3Generator> base = std::make_unique<OpenGenerator>(dashes, 2);
    EXPECT_EQ(Dash(*base, {{0, 0, 0}, {1, 0, 0}}).size(), 1U);
}

TEST(DashLine3Generator, StartsFresh) {
    Open({2, 1}).ExpectState(NOWHERE, 0, true, 2.0);
}

TEST(DashLine3Generator, StraightLineGivesDashAfterDash) {
    OpenGenerator generator = Open({2, 1});
    ExpectPieces(Dash(generator, {{0, 0, 0}, {0, 0, 10}}), {{{0, 0, 0}, {0, 0, 2}},
                                                            {{0, 0, 3}, {0, 0, 5}},
                                                            {{0, 0, 6}, {0, 0, 8}},
                                                            {{0, 0, 9}, {0, 0, 10}}});
    generator.ExpectState({0, 0, 10}, 0, true, 1.0);
}

TEST(DashLine3Generator, LengthIsMeasuredInSpace) {
    OpenGenerator generator = Open({3.5, 3.5});
    ExpectPieces(Dash(generator, {{1, 1, 1}, {3, 4, 7}}), {{{1, 1, 1}, {2, 2.5, 4}}});
    generator.ExpectState({3, 4, 7}, 1, false, 0.0);
}

TEST(DashLine3Generator, PhaseCarriesAcrossJoinedCalls) {
    OpenGenerator generator = Open({2, 1});
    Dash(generator, {{0, 0, 0}, {0, 0, 10}});
    ExpectPieces(Dash(generator, {{0, 0, 10}, {0, 0, 12}}), {{{0, 0, 10}, {0, 0, 11}}});
}

TEST(DashLine3Generator, PolylinesJoinOnlyInAllThreeCoordinates) {
    for (const Vec3d& start : {Vec3d(0, 0, 9), Vec3d(0, 1, 10), Vec3d(1, 0, 10)}) {
        OpenGenerator generator = Open({2, 1});
        Dash(generator, {{0, 0, 0}, {0, 0, 10}});
        const Vec3d end = start + Vec3d(0, 0, 2);
        ExpectPieces(Dash(generator, {start, end}), {{start, end}});
    }
}

TEST(DashLine3Generator, DashThatTurnsACornerComesInTwoPieces) {
    OpenGenerator generator = Open({3, 1});
    ExpectPieces(Dash(generator, {{0, 0, 0}, {1, 0, 0}, {1, 0, 5}}),
                 {{{0, 0, 0}, {1, 0, 0}}, {{1, 0, 0}, {1, 0, 2}}, {{1, 0, 3}, {1, 0, 5}}});
}

TEST(DashLine3Generator, SwitchAtAVertexClosesItsDashWithAPieceOfNoLength) {
    OpenGenerator generator = Open({1, 1});
    ExpectPieces(Dash(generator, {{0, 0, 0}, {0, 0, 1}, {0, 0, 2}}),
                 {{{0, 0, 0}, {0, 0, 1}}, {{0, 0, 1}, {0, 0, 1}}});
}

TEST(DashLine3Generator, OddPatternSwapsRolesAtEachRepetition) {
    OpenGenerator generator = Open({1, 1, 1});
    ExpectPieces(Dash(generator, {{0, 0, 0}, {0, 6, 0}}),
                 {{{0, 0, 0}, {0, 1, 0}}, {{0, 2, 0}, {0, 3, 0}}, {{0, 4, 0}, {0, 5, 0}}});
}

TEST(DashLine3Generator, SinglePointOrNoneResets) {
    for (const Points& few : {Points(), Points{{0, 0, 4}}}) {
        OpenGenerator generator = Open({2, 3});
        Dash(generator, {{0, 0, 0}, {0, 0, 4}});
        generator.ExpectState({0, 0, 4}, 1, false, 1.0);
        EXPECT_TRUE(Dash(generator, few).empty());
        generator.ExpectState(NOWHERE, 0, true, 2.0);
    }
    for (const std::size_t n : {std::size_t{0}, std::size_t{5}}) {
        OpenGenerator generator = Open({2, 3});
        Dash(generator, {{0, 0, 0}, {0, 0, 4}});
        Pieces pieces;
        generator.Decompose(nullptr, n, pieces);
        EXPECT_TRUE(pieces.empty());
        generator.ExpectState(NOWHERE, 0, true, 2.0);
    }
}

TEST(DashLine3Generator, BothFormsGiveTheSamePiecesAndAppend) {
    const Points points = {{0, 0, 0}, {3, 4, 0}, {3, 4, 9}};
    const LineSegment3 kept(7, 7, 7, 8, 8, 8);
    Pieces byVector = {kept}, byCallback = {kept};
    Open({2, 1}).Decompose(points.data(), points.size(), byVector);
    Open({2, 1}).Decompose(
        points.data(), points.size(),
        [](const Vec3d& a, const Vec3d& b, void* context) {
            static_cast<Pieces*>(context)->emplace_back(a, b);
        },
        &byCallback);
    EXPECT_GT(byVector.size(), 5U);
    EXPECT_EQ(byVector[0], kept);
    EXPECT_EQ(byVector, byCallback);
}

TEST(DashLine3Generator, InputInTheOutputsStorageIsReadBeforeItMoves) {
    Pieces pieces = {{0, 0, 0, 0, 0, 10}};
    pieces.shrink_to_fit();
    Open({2, 1}).Decompose(&pieces[0].A(), 2, pieces);
    ASSERT_EQ(pieces.size(), 5U);
    EXPECT_EQ(pieces[4], LineSegment3(0, 0, 9, 0, 0, 10));
}

TEST(DashLine3Generator, SetDashesReplacesThePatternAndResets) {
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0, 0}, {0, 0, 4}});
    const double dashes[] = {5, 6, 7};
    generator.SetDashes(dashes, 3);
    EXPECT_EQ(generator.Dashes(), std::vector<double>({5, 6, 7}));
    generator.ExpectState(NOWHERE, 0, true, 5.0);
}

TEST(DashLine3Generator, ConstructAppends) {
    OpenGenerator generator = Open({2, 3});
    const double dashes[] = {5};
    generator.Construct(dashes, 1);
    generator.Construct(nullptr, 0);
    EXPECT_EQ(generator.Dashes(), std::vector<double>({2, 3, 5, 0}));
    generator.ExpectState(NOWHERE, 0, true, 2.0);
}

TEST(DashLine3Generator, NoLengthsAreASingleZeroThatDrawsSolid) {
    OpenGenerator generator = Open({});
    EXPECT_EQ(generator.Dashes(), std::vector<double>({0}));
    ExpectPieces(Dash(generator, {{0, 0, 0}, {1, 0, 0}, {1, 0, 5}}),
                 {{{0, 0, 0}, {1, 0, 0}}, {{1, 0, 0}, {1, 0, 5}}});
}

TEST(DashLine3Generator, EmptyPatternDashesNothing) {
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0, 0}, {0, 0, 4}});
    generator.FreeAll();
    EXPECT_TRUE(Dash(generator, {{0, 0, 4}, {0, 0, 9}}).empty());
    generator.ExpectState(NOWHERE, 0, true, 0.0);
}

TEST(DashLine3Generator, InitStateForgetsThePhase) {
    OpenGenerator generator = Open({2, 3});
    Dash(generator, {{0, 0, 0}, {0, 0, 4}});
    generator.InitState();
    generator.ExpectState(NOWHERE, 0, true, 2.0);
}

TEST(DashLine3Generator, CopyTakesPatternAndPhase) {
    OpenGenerator original = Open({2, 3});
    Dash(original, {{0, 0, 0}, {0, 0, 4}});
    const OpenGenerator copy(original);
    EXPECT_EQ(copy.Dashes(), original.Dashes());
    copy.ExpectState({0, 0, 4}, 1, false, 1.0);
    OpenGenerator assigned = Open({9});
    OpenGenerator& result = assigned = original;
    EXPECT_EQ(&result, &assigned);
    Dash(assigned, {{0, 0, 4}, {0, 0, 9}});
    original.ExpectState({0, 0, 4}, 1, false, 1.0);
    const OpenGenerator& same = original;
    original = same;
    EXPECT_EQ(original.Dashes(), std::vector<double>({2, 3}));
    original.ExpectState({0, 0, 4}, 1, false, 1.0);
}

TEST(DashLine3Generator, NullPatternWithLengthsIsAnInternalError) {
    ExpectError([] { DashLine3Generator(nullptr, 2); }, "Geometry", "DashLineGenerator", 393,
                "Internal error");
    OpenGenerator generator = Open({2, 3});
    ExpectError([&] { generator.SetDashes(nullptr, 2); }, "Geometry", "DashLineGenerator", 393);
    EXPECT_TRUE(generator.Dashes().empty());
    EXPECT_TRUE(Dash(generator, {{0, 0, 0}, {9, 0, 0}}).empty());
}

TEST(DashLine3Generator, PatternTooLongForAnyVectorIsOutOfMemory) {
    const double dash = 1.0;
    ExpectError([&] { DashLine3Generator(&dash, std::numeric_limits<std::size_t>::max() / 2); },
                "Geometry", "DashLineGenerator", 419, "Out of memory");
}

TEST(DashLine3Generator, FailedAllocationOfThePatternIsOutOfMemory) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const std::vector<double> dashes(100, 1.0);
    const OpenGenerator large = Open(dashes);
    OpenGenerator target = Open({2, 3});
    const auto failing = [](auto call) {
        ExpectError(
            [&] {
                const AllocationProbe probe(0);
                call();
            },
            "Geometry", "DashLineGenerator", 419, "Out of memory");
    };
    failing([&] { DashLine3Generator(dashes.data(), dashes.size()); });
    failing([&] { DashLine3Generator(nullptr, 0); });
    failing([&] { OpenGenerator{large}; });
    failing([&] { target = large; });
    EXPECT_TRUE(Dash(target, {{0, 0, 0}, {9, 0, 0}}).empty());
}

TEST(DashLine3Generator, FailedGrowthOfTheOutputIsOutOfMemoryAndLeavesThePhase) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const Points points = {{0, 0, 4}, {0, 0, 60}};
    bool succeeded = false;
    for (std::size_t k = 0; !succeeded; ++k) {
        ASSERT_LT(k, 30U);
        OpenGenerator generator = Open({2, 3});
        Dash(generator, {{0, 0, 0}, {0, 0, 4}});
        Pieces pieces;
        try {
            const AllocationProbe probe(k);
            generator.Decompose(points.data(), points.size(), pieces);
            succeeded = true;
        } catch (const Exception& e) {
            EXPECT_EQ(e.Line(), 385);
            EXPECT_EQ(e.File(), GString("DashLineGenerator"));
            generator.ExpectState({0, 0, 4}, 1, false, 1.0);
        }
    }
    // The copy of an input that lies in the output may fail, too.
    Pieces pieces = {{0, 0, 0, 0, 0, 10}};
    OpenGenerator generator = Open({2, 1});
    ExpectError(
        [&] {
            const AllocationProbe probe(0);
            generator.Decompose(&pieces[0].A(), 2, pieces);
        },
        "Geometry", "DashLineGenerator", 385, "Out of memory");
}

TEST(DashLine3Generator, ExceptionOfTheCallbackBecomesOutOfMemory) {
    OpenGenerator generator = Open({2, 1});
    Dash(generator, {{0, 0, 0}, {0, 0, 4}});
    const Points points = {{0, 0, 4}, {0, 0, 100}};
    const auto throwing = [](const Vec3d&, const Vec3d&, void* context) {
        if (context == nullptr) {
            throw std::runtime_error("full");
        }
        throw 7;
    };
    int context = 0;
    for (void* const which : {static_cast<void*>(nullptr), static_cast<void*>(&context)}) {
        ExpectError([&] { generator.Decompose(points.data(), points.size(), throwing, which); },
                    "Geometry", "DashLineGenerator", 385, "Out of memory");
        generator.ExpectState({0, 0, 4}, 0, true, 1.0);
    }
}

TEST(DashLine3Generator, PatternThatGetsNowhereDrawsSolid) {
    const std::vector<double> patterns[] = {
        {0}, {0, 0}, {-1}, {1, -1}, {1, -3, 1}, {1, NOT_A_NUMBER}, {INF, -INF}, {1, -INF}};
    for (const std::vector<double>& dashes : patterns) {
        OpenGenerator generator = Open(dashes);
        ExpectPieces(Dash(generator, {{0, 0, 0}, {5, 0, 0}, {5, 0, 7}}),
                     {{{0, 0, 0}, {5, 0, 0}}, {{5, 0, 0}, {5, 0, 7}}});
    }
}

TEST(DashLine3Generator, SegmentThatCannotBeCoveredPassesWithThePenAsItIs) {
    for (const Vec3d& end : {Vec3d(0, 0, NOT_A_NUMBER), Vec3d(0, INF, 0), Vec3d(-INF, 0, 0),
                             Vec3d(0, 0, LARGEST), Vec3d(0, 0, 1e100)}) {
        OpenGenerator down = Open({2, 3});
        const Pieces pieces = Dash(down, {{0, 0, 0}, {1, 0, 0}, end});
        ASSERT_EQ(pieces.size(), 2U);
        EXPECT_TRUE(Same(pieces[1].B(), end));
        OpenGenerator up = Open({2, 3});
        EXPECT_EQ(Dash(up, {{0, 0, 0}, {4, 0, 0}, end}).size(), 1U);
        EXPECT_EQ(Dash(up, {{0, 0, 0}, {4, 0, 0}}).size(), 1U);
    }
}

// A walk in one of the coordinate planes is the planar walk, to the bit.
TEST(DashLine3Generator, AgreesWithThePlanarGenerator) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    std::size_t compared = 0;
    for (int round = 0; round < 3000; ++round) {
        std::vector<double> dashes(1 + random() % 5);
        for (double& dash : dashes) {
            dash =
                round % 2 == 0 ? static_cast<double>(random() % 4) : std::fabs(coordinate(random));
        }
        DashLineGenerator planar(dashes.data(), dashes.size());
        OpenGenerator spatial = Open(dashes);
        std::vector<Vec2d> flat = {{0, 0}};
        for (int call = 0; call < 3; ++call) {
            const Vec2d last = flat.back();
            flat.assign(1 + random() % 6, Vec2d(0, 0));
            for (Vec2d& p : flat) {
                p = round % 3 == 0 ? Vec2d(static_cast<double>(random() % 6),
                                           static_cast<double>(random() % 6))
                                   : Vec2d(coordinate(random), coordinate(random));
            }
            flat[0] = random() % 2 == 0 ? last : flat[0];
            const auto lift = [&](const Vec2d& p) {
                return round % 5 == 0   ? Vec3d(p.x, p.y, 3)
                       : round % 5 == 1 ? Vec3d(p.x, 3, p.y)
                                        : Vec3d(3, p.x, p.y);
            };
            Points lifted;
            for (const Vec2d& p : flat) {
                lifted.push_back(lift(p));
            }
            std::vector<LineSegment2> planarPieces;
            planar.Decompose(flat.data(), flat.size(), planarPieces);
            Expected expected;
            for (const LineSegment2& piece : planarPieces) {
                expected.emplace_back(lift(piece.A()), lift(piece.B()));
            }
            ExpectPieces(Dash(spatial, lifted), expected);
            ASSERT_FALSE(HasFailure()) << "seed " << SEED << " round " << round;
            compared += expected.size();
        }
    }
    EXPECT_GT(compared, 20000U);
}

/// Collects each visible stretch as a list of points and hands it out when it ends, as one would
/// describe the walk in words. For patterns with a positive sum and finite segments only.
Expected CollectedStretches(const std::vector<double>& dashes, const Points& points) {
    Expected pieces;
    std::size_t index = 0;
    bool penDown = true;
    double remaining = dashes[0];
    Points run = {points[0]};
    const auto deliver = [&] {
        for (std::size_t j = 0; j + 1 < run.size(); ++j) {
            pieces.emplace_back(run[j], run[j + 1]);
        }
        run.clear();
    };
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const Vec3d p = points[i], q = points[i + 1];
        const double dx = q.x - p.x, dy = q.y - p.y, dz = q.z - p.z;
        const double length = std::sqrt(dx * dx + dy * dy + dz * dz);
        while (length > remaining) {
            run.emplace_back(p.x + dx * remaining / length, p.y + dy * remaining / length,
                             p.z + dz * remaining / length);
            if (penDown) {
                deliver();
            }
            penDown = !penDown;
            index = (index + 1) % dashes.size();
            remaining += dashes[index];
        }
        if (penDown) {
            run.push_back(q);
        }
        remaining -= length;
    }
    if (penDown) {
        deliver();
    }
    return pieces;
}

TEST(DashLine3Generator, AgreesWithTheWalkThatCollectsStretches) {
    std::mt19937_64 random(SEED);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    std::size_t compared = 0;
    for (int round = 0; round < 3000; ++round) {
        std::vector<double> dashes(1 + random() % 5);
        for (double& dash : dashes) {
            dash = std::fabs(coordinate(random));
        }
        Points points(2 + random() % 6);
        for (Vec3d& p : points) {
            const double x = coordinate(random), y = coordinate(random);
            p = Vec3d(x, y, coordinate(random));
        }
        OpenGenerator generator = Open(dashes);
        const Expected expected = CollectedStretches(dashes, points);
        ExpectPieces(Dash(generator, points), expected);
        ASSERT_FALSE(HasFailure()) << "seed " << SEED << " round " << round;
        compared += expected.size();
    }
    EXPECT_GT(compared, 10000U);
}

} // namespace
} // namespace geom
