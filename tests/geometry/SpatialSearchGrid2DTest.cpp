// SPDX-License-Identifier: MIT
#include "geometry/SpatialSearchGrid2D.h"

#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/SearchGrids.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <iostream>
#include <limits>
#include <map>
#include <random>
#include <stdexcept>
#include <thread>

namespace geom {
namespace {

using test::AllocationProbe;
using test::ExpectError;
using test::FunctionSource;
using test::OpenGrid;
using test::PointSource;

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double LARGEST = std::numeric_limits<double>::max();

using Points = std::vector<Vec2d>;

SpatialSearchGrid2D GridOf(const Points& points) {
    SpatialSearchGrid2D grid;
    grid.Initialize(0, static_cast<int>(points.size()), std::make_shared<PointSource>(points));
    return grid;
}

// Looks at every vertex.
int PlainNearest(const Points& points, const Vec2d& p) {
    int best = -1;
    double least = LARGEST;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double d = p.DistanceSquared(points[i]);
        if (d < least) {
            least = d;
            best = static_cast<int>(i);
        }
    }
    return best;
}

Points Lattice(int columns, int rows) {
    Points points;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < columns; ++x) {
            points.emplace_back(x, y);
        }
    }
    return points;
}

TEST(SpatialSearchGrid2D, WithoutVerticesAnswersNone) {
    const SpatialSearchGrid2D grid;
    EXPECT_EQ(grid.Query({0, 0}), -1);
    EXPECT_TRUE(grid.ColumnEdges().empty());
    EXPECT_TRUE(grid.RowEdges().empty());
}

TEST(SpatialSearchGrid2D, CellCountFollowsTheVertexCount) {
    const struct {
        std::size_t vertices, side;
    } rows[] = {{1, 1},  {2, 1},   {19, 1},  {20, 1},  {79, 1},    {80, 2},
                {99, 2}, {100, 2}, {179, 2}, {180, 3}, {2000, 10}, {1999, 9}};
    for (const auto& row : rows) {
        Points points;
        for (std::size_t i = 0; i < row.vertices; ++i) {
            points.emplace_back(static_cast<double>(i), static_cast<double>(i));
        }
        const SpatialSearchGrid2D grid = GridOf(points);
        EXPECT_EQ(grid.ColumnEdges().size(), row.side + 1) << row.vertices;
        EXPECT_EQ(grid.RowEdges().size(), row.side + 1) << row.vertices;
    }
}

TEST(SpatialSearchGrid2D, EdgesDivideTheBoxEvenly) {
    Points points = Lattice(10, 8);
    for (Vec2d& p : points) {
        p = {10.0 + p.x, -4.0 + p.y};
    }
    const SpatialSearchGrid2D grid = GridOf(points);
    EXPECT_EQ(grid.ColumnEdges(),
              (std::vector<double>{10.0, 10.0 + 1 / (2 / 9.0), 10.0 + 2 / (2 / 9.0)}));
    EXPECT_EQ(grid.RowEdges(),
              (std::vector<double>{-4.0, -4.0 + 1 / (2 / 7.0), -4.0 + 2 / (2 / 7.0)}));
}

TEST(SpatialSearchGrid2D, VerticesOnOneVerticalLineShareColumnZero) {
    Points points;
    for (int i = 0; i < 200; ++i) {
        points.emplace_back(7.0, i);
    }
    OpenGrid grid;
    grid.Initialize(0, 200, std::make_shared<PointSource>(points));
    EXPECT_EQ(grid.ColumnEdges(), (std::vector<double>{7.0, 8.0, 9.0, 10.0}));
    EXPECT_EQ(grid.WhichCell({7.0, 0.0}), 0);
    EXPECT_EQ(grid.WhichCell({7.0, 199.0}), 6);
    EXPECT_EQ(grid.Query({1000.0, 57.4}), 57);
}

TEST(SpatialSearchGrid2D, ExtentOfTheSmallestSinglePrecisionNumberCountsAsNone) {
    const double tiny = std::numeric_limits<float>::min();
    EXPECT_EQ(GridOf({{0, 0}, {tiny, 1}}).ColumnEdges(), (std::vector<double>{0.0, 1.0}));
    const double more = std::nextafter(tiny, 1.0);
    EXPECT_EQ(GridOf({{0, 0}, {more, 1}}).ColumnEdges().back(), 1 / (1 / more));
}

TEST(SpatialSearchGrid2D, SingleVertexAnswersZeroWhateverItsIndex) {
    SpatialSearchGrid2D grid;
    grid.Initialize(5, 6, std::make_shared<PointSource>(Points{{3, 3}}, 5));
    EXPECT_EQ(grid.Query({3, 3}), 0);
    EXPECT_EQ(grid.Query({-1e300, NOT_A_NUMBER}), 0);
}

TEST(SpatialSearchGrid2D, EquallyNearVerticesGiveTheSmallerIndex) {
    EXPECT_EQ(GridOf({{1, 0}, {-1, 0}, {0, 1}}).Query({0, 0}), 0);
    EXPECT_EQ(GridOf({{5, 0}, {-1, 0}, {1, 0}}).Query({0, 0}), 1);
    EXPECT_EQ(GridOf({{5, 5}, {2, 2}, {2, 2}, {2, 2}}).Query({2, 2}), 1);
}

TEST(SpatialSearchGrid2D, EquallyNearVertexAcrossACellBorderIsFound) {
    // The lattice's cells are 10/3 wide; half-way points have four nearest vertices each,
    // which lie in up to four cells.
    const Points points = Lattice(20, 20);
    const SpatialSearchGrid2D grid = GridOf(points);
    for (int y = 0; y < 19; ++y) {
        for (int x = 0; x < 19; ++x) {
            EXPECT_EQ(grid.Query({x + 0.5, y + 0.5}), y * 20 + x);
        }
    }
}

TEST(SpatialSearchGrid2D, FarQueryStillFindsTheNearest) {
    const Points points = Lattice(20, 20);
    const SpatialSearchGrid2D grid = GridOf(points);
    EXPECT_EQ(grid.Query({1e6, 1e6}), 399);
    EXPECT_EQ(grid.Query({-1e6, 7.2}), 140);
    EXPECT_EQ(grid.Query({12.0, -5e5}), 12);
    EXPECT_EQ(grid.Query({-3.0, 1000.0}), 380);
}

TEST(SpatialSearchGrid2D, EmptyCellsAroundTheQueryAreCrossed) {
    // Two crowds in opposite corners and nothing between.
    Points points;
    for (int i = 0; i < 1000; ++i) {
        points.emplace_back(i * 1e-4, i * 1e-4);
        points.emplace_back(1000.0 - i * 1e-4, 1000.0 - i * 1e-4);
    }
    const SpatialSearchGrid2D grid = GridOf(points);
    EXPECT_EQ(grid.Query({400, 400}), 1998);
    EXPECT_EQ(grid.Query({600, 600}), 1999);
    EXPECT_EQ(grid.Query({0, 1000}), PlainNearest(points, {0, 1000}));
}

TEST(SpatialSearchGrid2D, UnusableIndicesAreLeftOut) {
    const auto source = std::make_shared<PointSource>(Points{{0, 0}, {1, 0}, {2, 0}, {3, 0}}, -2);
    source->withheld = {true, false, true, false};
    SpatialSearchGrid2D grid;
    grid.Initialize(-2, 2, source);
    EXPECT_EQ(grid.Query({0, 0}), -1); // the index of (1, 0)
    EXPECT_EQ(grid.Query({2.6, 0}), 1);
    source->withheld = {true, true, true, true};
    grid.Initialize(-2, 2, source);
    EXPECT_EQ(grid.Query({0, 0}), -1);
    EXPECT_TRUE(grid.ColumnEdges().empty());
}

TEST(SpatialSearchGrid2D, OnlyTheGivenIndicesAreAsked) {
    const auto source = std::make_shared<PointSource>(Lattice(10, 1), 0);
    SpatialSearchGrid2D grid;
    grid.Initialize(3, 6, source);
    EXPECT_EQ(grid.Query({0, 0}), 3);
    EXPECT_EQ(grid.Query({9, 0}), 5);
}

TEST(SpatialSearchGrid2D, ReversedOrEmptyRangeMakesTheGridEmpty) {
    SpatialSearchGrid2D grid = GridOf(Lattice(3, 3));
    grid.Initialize(4, 4, nullptr);
    EXPECT_EQ(grid.Query({0, 0}), -1);
    EXPECT_TRUE(grid.ColumnEdges().empty());
    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max();
    grid = GridOf(Lattice(3, 3));
    grid.Initialize(highest, lowest, std::make_shared<PointSource>(Points{}));
    EXPECT_EQ(grid.Query({0, 0}), -1);
}

TEST(SpatialSearchGrid2D, IndicesMayReachTheEndsOfTheirType) {
    const int highest = std::numeric_limits<int>::max();
    SpatialSearchGrid2D grid;
    grid.Initialize(highest - 2, highest,
                    std::make_shared<PointSource>(Points{{0, 0}, {1, 1}}, highest - 2));
    EXPECT_EQ(grid.Query({1, 1}), highest - 1);
    const int lowest = std::numeric_limits<int>::min();
    grid.Initialize(lowest, lowest + 2,
                    std::make_shared<PointSource>(Points{{0, 0}, {1, 1}}, lowest));
    EXPECT_EQ(grid.Query({0, 0}), lowest);
}

TEST(SpatialSearchGrid2D, NullSourceIsRefused) {
    SpatialSearchGrid2D grid = GridOf(Lattice(3, 3));
    ExpectError([&] { grid.Initialize(0, 1, nullptr); }, "Geometry", "SpatialSearchGrid2D", 223);
    EXPECT_EQ(grid.Query({0, 0}), -1);
}

TEST(SpatialSearchGrid2D, VertexRefusedLaterIsAnError) {
    const auto source = std::make_shared<PointSource>(Lattice(3, 3));
    SpatialSearchGrid2D grid;
    grid.Initialize(0, 9, source);
    source->withheld[4] = true;
    ExpectError([&] { grid.Query({0, 0}); }, "Geometry", "SpatialSearchGrid2D", 222);
}

TEST(SpatialSearchGrid2D, SourceThatChangesWhileBuildingIsRefused) {
    // By the number of the call: each pass asks for the four indices 0 to 3.
    const struct {
        const char* name;
        std::function<bool(int call)> usable;
        std::function<double(int call)> x;
    } rows[] = {
        {"more in the second pass", [](int call) { return call != 3; }, [](int) { return 0.0; }},
        {"fewer in the second pass", [](int call) { return call != 7; }, [](int) { return 0.0; }},
        {"more in the third pass", [](int call) { return call % 4 != 3 || call == 11; },
         [](int) { return 0.0; }},
        {"fewer in the third pass", [](int call) { return call != 8; }, [](int) { return 0.0; }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        int call = 0;
        SpatialSearchGrid2D grid = GridOf(Lattice(3, 3));
        ExpectError(
            [&] {
                grid.Initialize(0, 4, std::make_shared<FunctionSource>([&](int, Vec2d& out) {
                                    out = {row.x(call), 0.0};
                                    return row.usable(call++);
                                }));
            },
            "Geometry", "SpatialSearchGrid2D", 225);
        EXPECT_EQ(grid.Query({0, 0}), -1);
    }
}

TEST(SpatialSearchGrid2D, VertexThatMovesWhileBuildingIsRefused) {
    int call = 0;
    SpatialSearchGrid2D grid;
    const auto source = std::make_shared<FunctionSource>([&](int index, Vec2d& out) {
        out = Vec2d(index, index);
        if (call >= 200 && index == 99) {
            out = {0.0, 0.0};
        }
        ++call;
        return true;
    });
    ExpectError([&] { grid.Initialize(0, 100, source); }, "Geometry", "SpatialSearchGrid2D", 225);
}

TEST(SpatialSearchGrid2D, ExceptionOfTheSourcePassesAndLeavesTheGridEmpty) {
    for (const int failing : {2, 6, 10}) {
        int call = 0;
        const auto source = std::make_shared<FunctionSource>([&](int index, Vec2d& out) {
            if (call++ == failing) {
                throw std::runtime_error("lost");
            }
            out = Vec2d(index, 0);
            return true;
        });
        SpatialSearchGrid2D grid = GridOf(Lattice(3, 3));
        EXPECT_THROW(grid.Initialize(0, 4, source), std::runtime_error);
        EXPECT_EQ(grid.Query({0, 0}), -1);
        EXPECT_TRUE(grid.ColumnEdges().empty());
        EXPECT_EQ(source.use_count(), 1);
    }
}

TEST(SpatialSearchGrid2D, FailedAllocationLeavesTheGridEmpty) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap is not ours";
    }
    const auto source = std::make_shared<PointSource>(Lattice(20, 20));
    std::size_t failures = 0;
    for (std::size_t k = 0;; ++k) {
        SpatialSearchGrid2D grid = GridOf(Lattice(3, 3));
        AllocationProbe probe(k);
        try {
            grid.Initialize(0, 400, source);
        } catch (const std::bad_alloc&) {
            EXPECT_TRUE(probe.Failed());
            EXPECT_EQ(grid.Query({0, 0}), -1);
            ++failures;
            continue;
        }
        ASSERT_FALSE(probe.Failed());
        EXPECT_EQ(grid.Query({19, 19}), 399);
        break;
    }
    EXPECT_GE(failures, 5U);
}

TEST(SpatialSearchGrid2D, QueriesAllocateNothing) {
    const SpatialSearchGrid2D grid = GridOf(Lattice(20, 20));
    const AllocationProbe probe;
    for (int i = 0; i < 100; ++i) {
        EXPECT_GE(grid.Query({i * 0.37, i * 0.21}), 0);
    }
    EXPECT_EQ(probe.Count(), 0U);
}

// The accessors are inline, so hosts have compiled in where the edges are kept: behind the source,
// three counts with their padding, the origin, the scale, and the cells.
TEST(SpatialSearchGrid2D, EdgesAreKeptBehindTheCells) {
    const SpatialSearchGrid2D grid;
    const auto placeOf = [&grid](const std::vector<double>& member) {
        return static_cast<std::size_t>(reinterpret_cast<const char*>(&member) -
                                        reinterpret_cast<const char*>(&grid));
    };
    constexpr std::size_t before = sizeof(std::shared_ptr<PointSource>) + 4 * sizeof(int) +
                                   4 * sizeof(double) + 2 * sizeof(std::vector<int>);
    EXPECT_EQ(placeOf(grid.ColumnEdges()), before);
    EXPECT_EQ(placeOf(grid.RowEdges()), before + sizeof(std::vector<double>));
}

TEST(SpatialSearchGrid2D, KeepsItsSourceAlive) {
    auto source = std::make_shared<PointSource>(Lattice(3, 3));
    const std::weak_ptr<PointSource> watch = source;
    {
        SpatialSearchGrid2D grid;
        grid.Initialize(0, 9, source);
        source.reset();
        EXPECT_FALSE(watch.expired());
        const SpatialSearchGrid2D copy = grid;
        EXPECT_EQ(copy.Query({2, 2}), 8);
        EXPECT_EQ(watch.use_count(), 2);
    }
    EXPECT_TRUE(watch.expired());
}

TEST(SpatialSearchGrid2D, QueryThatIsNoNumberFindsNothing) {
    const SpatialSearchGrid2D grid = GridOf(Lattice(20, 20));
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_EQ(grid.Query({bad, 0}), -1);
        EXPECT_EQ(grid.Query({0, bad}), -1);
        EXPECT_EQ(grid.Query({bad, bad}), -1);
    }
    EXPECT_EQ(grid.Query({1e300, 0}), -1) << "every squared distance overflows";
    EXPECT_EQ(grid.Query({LARGEST, -LARGEST}), -1);
}

TEST(SpatialSearchGrid2D, VerticesThatAreNoNumbersAreNeverNearest) {
    Points points = Lattice(20, 20);
    points[0] = {NOT_A_NUMBER, 0};
    points[1] = {INFINITE, 0};
    points[2] = {0, -INFINITE};
    points[3] = {NOT_A_NUMBER, NOT_A_NUMBER};
    const SpatialSearchGrid2D grid = GridOf(points);
    EXPECT_EQ(grid.Query({0, 0}), 20);
    EXPECT_EQ(grid.Query({17.1, 12.2}), 257);
    const SpatialSearchGrid2D none = GridOf(Points(200, Vec2d(NOT_A_NUMBER, INFINITE)));
    EXPECT_EQ(none.Query({0, 0}), -1);
}

TEST(SpatialSearchGrid2D, ExtentsThatOverflowAreSearched) {
    Points points = Lattice(20, 20);
    points.emplace_back(-LARGEST, -LARGEST);
    points.emplace_back(LARGEST, LARGEST);
    const SpatialSearchGrid2D grid = GridOf(points);
    EXPECT_EQ(grid.Query({3.2, 1.9}), 43);
    EXPECT_EQ(grid.Query({LARGEST, LARGEST}), 401);
}

TEST(SpatialSearchGrid2D, CellsOutsideTheGridHaveNoVertices) {
    OpenGrid grid;
    grid.Initialize(0, 400, std::make_shared<PointSource>(Lattice(20, 20)));
    int best = -1;
    double least = LARGEST;
    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max();
    for (const int outside : {-1, 4, lowest, highest}) {
        EXPECT_FALSE(grid.QueryCell(outside, 0, {0, 0}, best, least));
        EXPECT_FALSE(grid.QueryCell(0, outside, {0, 0}, best, least));
    }
    EXPECT_FALSE(grid.QueryRingOfCells(0, 0, 4, {0, 0}, best, least));
    EXPECT_FALSE(grid.QueryRingOfCells(highest, lowest, highest, {0, 0}, best, least));
    EXPECT_FALSE(grid.QueryRingOfCells(0, 0, -1, {0, 0}, best, least));
    EXPECT_EQ(best, -1);
    EXPECT_EQ(least, LARGEST);
    EXPECT_FALSE(OpenGrid().QueryCell(0, 0, {0, 0}, best, least));
    EXPECT_EQ(OpenGrid().WhichCell({5, 5}), 0);
    Vec2d unset(1, 2);
    EXPECT_FALSE(OpenGrid().GetVertex(0, unset));
}

TEST(SpatialSearchGrid2D, RingVisitsExactlyTheCellsAtItsDistance) {
    // One vertex per visit is counted by the source; 4 x 4 cells of 25 vertices.
    std::map<int, int> asked;
    const Points points = Lattice(20, 20);
    const auto source = std::make_shared<FunctionSource>([&](int index, Vec2d& out) {
        ++asked[index];
        out = points[static_cast<std::size_t>(index)];
        return true;
    });
    OpenGrid grid;
    grid.Initialize(0, 400, source);
    ASSERT_EQ(grid.ColumnEdges().size(), 5U);
    for (int ring = 0; ring < 5; ++ring) {
        for (int cell = 0; cell < 16; ++cell) {
            asked.clear();
            int best = -1;
            double least = LARGEST;
            const bool changed =
                grid.QueryRingOfCells(cell % 4, cell / 4, ring, {9.5, 9.5}, best, least);
            EXPECT_EQ(changed, !asked.empty());
            for (int index = 0; index < 400; ++index) {
                const int at = grid.WhichCell(points[static_cast<std::size_t>(index)]);
                const int distance =
                    std::max(std::abs(at % 4 - cell % 4), std::abs(at / 4 - cell / 4));
                EXPECT_EQ(asked[index], distance == ring ? 1 : 0);
            }
        }
    }
}

TEST(SpatialSearchGrid2D, QueryCellSaysWhetherTheBestChanged) {
    OpenGrid grid;
    grid.Initialize(0, 9, std::make_shared<PointSource>(Lattice(3, 3)));
    int best = -1;
    double least = LARGEST;
    EXPECT_TRUE(grid.QueryCell(0, 0, {1, 1}, best, least));
    EXPECT_EQ(best, 4);
    EXPECT_EQ(least, 0.0);
    EXPECT_FALSE(grid.QueryCell(0, 0, {1, 1}, best, least));
    best = 8;
    least = 1.0; // a tie of four, the smallest of which is 1; nothing is nearer than (1, 1) itself
    EXPECT_TRUE(grid.QueryCell(0, 0, {1, 1}, best, least));
    EXPECT_EQ(best, 4);
}

// Compares with the search through all vertices and counts how many queries had ties.
struct Comparison {
    std::size_t queries = 0;
    std::size_t ties = 0;
    std::size_t differences = 0;

    void Run(const Points& points, const Points& probes) {
        const SpatialSearchGrid2D grid = GridOf(points);
        for (const Vec2d& p : probes) {
            const int expected = PlainNearest(points, p);
            const int found = grid.Query(p);
            ++queries;
            ties += IsTie(points, p, expected);
            if (found != expected && ++differences <= 5) {
                ADD_FAILURE() << found << " instead of " << expected << " at (" << p.x << ", "
                              << p.y << ") of " << points.size() << " vertices";
            }
        }
    }

    static bool IsTie(const Points& points, const Vec2d& p, int nearest) {
        const double least = p.DistanceSquared(points[static_cast<std::size_t>(nearest)]);
        int equal = 0;
        for (const Vec2d& q : points) {
            equal += p.DistanceSquared(q) == least;
        }
        return equal > 1;
    }

    void Report(const char* name) const {
        std::cout << name << ": " << queries << " queries, " << ties << " with ties, "
                  << differences << " differences\n";
    }
};

class Generator {
public:
    explicit Generator(unsigned seed) : m_engine(seed) { std::cout << "seed " << seed << '\n'; }
    double Uniform(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(m_engine);
    }
    double Whole(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(m_engine);
    }
    double Normal(double middle, double spread) {
        return std::normal_distribution<double>(middle, spread)(m_engine);
    }
    // Probes among the points, on them and far outside.
    Points Probes(const Points& points, std::size_t count, double size) {
        Points probes;
        while (probes.size() < count) {
            const Vec2d at = points[static_cast<std::size_t>(Whole(0, int(points.size()) - 1))];
            probes.push_back(at);
            probes.emplace_back(Uniform(-size, 2 * size), Uniform(-size, 2 * size));
            probes.emplace_back(std::round(at.x) + 0.5, std::round(at.y) + 0.5);
            const double far = std::pow(10.0, Uniform(0.0, 6.0)) * size;
            probes.emplace_back(Uniform(-far, far), Uniform(-far, far));
            probes.emplace_back(far, at.y);
            probes.emplace_back(at.x, -far);
        }
        return probes;
    }

private:
    std::mt19937 m_engine;
};

TEST(SpatialSearchGrid2D, AgreesWithPlainSearchOnUniformPoints) {
    Generator random(101);
    Comparison comparison;
    for (const int count : {2, 3, 30, 79, 80, 200, 1000, 5000}) {
        Points points;
        for (int i = 0; i < count; ++i) {
            points.emplace_back(random.Uniform(-3, 100), random.Uniform(0, 50));
        }
        comparison.Run(points, random.Probes(points, 1500, 100));
    }
    comparison.Report("uniform");
    EXPECT_GE(comparison.queries, 12000U);
}

TEST(SpatialSearchGrid2D, AgreesWithPlainSearchOnClusteredPoints) {
    Generator random(102);
    Comparison comparison;
    for (const int clusters : {1, 2, 5, 20}) {
        Points points;
        for (int c = 0; c < clusters; ++c) {
            const Vec2d middle(random.Uniform(0, 1000), random.Uniform(0, 1000));
            const double spread = std::pow(10.0, random.Uniform(-6, 2));
            for (int i = 0; i < 3000 / clusters; ++i) {
                points.emplace_back(random.Normal(middle.x, spread),
                                    random.Normal(middle.y, spread));
            }
        }
        comparison.Run(points, random.Probes(points, 1500, 1000));
    }
    comparison.Report("clustered");
    EXPECT_GE(comparison.queries, 6000U);
}

TEST(SpatialSearchGrid2D, AgreesWithPlainSearchOnCollinearPoints) {
    Generator random(103);
    Comparison comparison;
    const Vec2d directions[] = {{1, 0}, {0, 1}, {1, 1}, {1, -2}, {0.3, 0.7}};
    for (const Vec2d& direction : directions) {
        Points points;
        for (int i = 0; i < 2000; ++i) {
            points.push_back(Vec2d(5, -3) + direction * random.Whole(0, 1500));
        }
        comparison.Run(points, random.Probes(points, 1500, 1500));
    }
    comparison.Report("collinear");
    EXPECT_GE(comparison.ties, 2000U);
}

TEST(SpatialSearchGrid2D, AgreesWithPlainSearchOnDuplicatesAndLattices) {
    Generator random(104);
    Comparison comparison;
    for (const int side : {1, 4, 10, 30}) {
        Points points;
        for (int i = 0; i < 3000; ++i) {
            points.emplace_back(random.Whole(0, side), random.Whole(0, side));
        }
        comparison.Run(points, random.Probes(points, 1500, side));
    }
    comparison.Report("duplicates");
    EXPECT_GE(comparison.ties, 3000U);
}

TEST(SpatialSearchGrid2D, QueryBeyondTheResolutionOfDistancesFindsANearlyNearest) {
    // From so far away the distances of all vertices round to a few values, and the square
    // around the query that is searched is only known to the last place of the distance.
    Generator random(105);
    Points points;
    for (int i = 0; i < 2000; ++i) {
        points.emplace_back(random.Uniform(0, 100), random.Uniform(0, 100));
    }
    const SpatialSearchGrid2D grid = GridOf(points);
    for (int i = 0; i < 3000; ++i) {
        const double angle = random.Uniform(0, kit::TWO_PI);
        const double far = std::pow(10.0, random.Uniform(7, 150));
        const Vec2d p(far * std::cos(angle), far * std::sin(angle));
        const int found = grid.Query(p);
        ASSERT_GE(found, 0);
        const Vec2d nearest = points[static_cast<std::size_t>(PlainNearest(points, p))];
        EXPECT_LE(p.DistanceSquared(points[static_cast<std::size_t>(found)]),
                  p.DistanceSquared(nearest) * (1.0 + 0x1p-50));
    }
}

TEST(SpatialSearchGrid2D, ThreadsMayQueryOneGridTogether) {
    const Points points = Lattice(40, 40);
    const SpatialSearchGrid2D grid = GridOf(points);
    std::vector<std::thread> threads;
    std::vector<int> wrong(4, 0);
    for (std::size_t t = 0; t < wrong.size(); ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < 2000; ++i) {
                const int index = (i * 37 + static_cast<int>(t) * 11) % 1600;
                wrong[t] += grid.Query(points[static_cast<std::size_t>(index)]) != index;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, std::vector<int>(4, 0));
}

} // namespace
} // namespace geom
