// SPDX-License-Identifier: MIT
// The search grid against a plain one that looks at every vertex of every cell it comes to.
#include "tests/reference/PlainSearchGrid.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/Random.h"
#include "tests/support/SearchGrids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <iostream>
#include <limits>
#include <memory>
#include <set>
#include <stdexcept>
#include <vector>

namespace geom::test {
namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double LARGEST = std::numeric_limits<double>::max();

using Points = std::vector<Vec2d>;

Vec2d InSquare(Random& random, double size) {
    const double x = random.Between(-size, size);
    return {x, random.Between(-size, size)};
}

// Families of point sets, each from one vertex to crowds.

Points Uniform(Random& random, int count) {
    Points points;
    for (int i = 0; i < count; ++i) {
        points.push_back(InSquare(random, 100));
    }
    return points;
}

// Clusters whose widths differ by many orders of magnitude, some inside others.
Points Clusters(Random& random, int count) {
    struct Cluster {
        Vec2d centre;
        double width;
    };
    std::vector<Cluster> clusters;
    for (int i = random.Between(1, 12); i > 0; --i) {
        const Vec2d centre =
            clusters.empty() || random.OneIn(2) ? InSquare(random, 100) : clusters.back().centre;
        clusters.push_back({centre, std::pow(10.0, random.Between(-9.0, 1.0))});
    }
    Points points;
    for (int i = 0; i < count; ++i) {
        const Cluster& c = clusters[static_cast<std::size_t>(random.Below(int(clusters.size())))];
        points.push_back(c.centre + InSquare(random, c.width));
    }
    return points;
}

// One far vertex makes cells so wide that all others share one.
Points CrowdAndOutlier(Random& random, int count) {
    Points points = Uniform(random, count);
    points[static_cast<std::size_t>(random.Below(count))] = {1e7, -3e6};
    return points;
}

Points Collinear(Random& random, int count) {
    const Vec2d directions[] = {{1, 0}, {0, 1}, {1, 1}, {1, -2}, {0.3, 0.7}};
    const Vec2d direction = directions[random.Below(5)];
    Points points;
    for (int i = 0; i < count; ++i) {
        points.push_back(Vec2d(5, -3) + direction * random.Between(0, 3000));
    }
    return points;
}

// Few places on a lattice, taken by many vertices.
Points Duplicates(Random& random, int count) {
    const int side = random.Between(0, 12);
    Points points;
    for (int i = 0; i < count; ++i) {
        const int x = random.Between(0, side);
        points.emplace_back(x, random.Between(0, side));
    }
    return points;
}

Points Huge(Random& random, int count) {
    const double size = std::pow(10.0, random.Between(100.0, 308.0));
    Points points;
    for (int i = 0; i < count; ++i) {
        points.push_back(InSquare(random, random.OneIn(2) ? size : size * 1e-5));
    }
    return points;
}

Points Tiny(Random& random, int count) {
    Points points;
    for (int i = 0; i < count; ++i) {
        const double x = random.Between(-90, 90) * 0x1p-1074;
        points.emplace_back(random.OneIn(3) ? x : x * 0x1p600, random.Between(0, 5) * 0x1p-540);
    }
    return points;
}

double Odd(Random& random) {
    const double odd[] = {NOT_A_NUMBER, -NOT_A_NUMBER, INFINITE, -INFINITE,
                          LARGEST,      -LARGEST,      -0.0};
    return odd[random.Below(7)];
}

Points NotFinite(Random& random, int count) {
    const int rarity = random.OneIn(4) ? 1 : random.Between(2, 50);
    Points points = random.OneIn(2) ? Duplicates(random, count) : Clusters(random, count);
    for (Vec2d& p : points) {
        if (random.OneIn(rarity)) {
            (random.OneIn(2) ? p.x : p.y) = Odd(random);
        }
    }
    return points;
}

// Where a query may be interesting: at a vertex, half-way between two, beside one, anywhere, far
// outside, and nowhere.
Vec2d Probe(Random& random, const Points& points) {
    const int last = static_cast<int>(points.size()) - 1;
    const Vec2d a = points[static_cast<std::size_t>(random.Between(0, last))];
    const Vec2d b = points[static_cast<std::size_t>(random.Between(0, last))];
    switch (random.Below(8)) {
    case 0: return a;
    case 1: return {0.5 * a.x + 0.5 * b.x, 0.5 * a.y + 0.5 * b.y};
    case 2: return {a.x, b.y};
    case 3: return {a.x + random.Between(-1, 1) * 0.5, a.y + random.Between(-1, 1) * 0.5};
    case 4: return a + InSquare(random, std::pow(10.0, random.Between(-9.0, 3.0)));
    case 5: return InSquare(random, std::pow(10.0, random.Between(0.0, 9.0)));
    case 6: return InSquare(random, std::pow(10.0, random.Between(9.0, 307.0)));
    default: return {random.OneIn(3) ? Odd(random) : a.x, random.OneIn(3) ? Odd(random) : a.y};
    }
}

struct Tally {
    std::size_t queries = 0;
    std::size_t inCrowds = 0;
    std::size_t found = 0;
};

class BothGrids {
public:
    BothGrids(Random& random, const Points& points)
        : m_random(random),
          m_source(std::make_shared<PointSource>(points, random.Between(-50, 50))),
          m_withheld(Withhold()), m_plain(m_source->first, m_source->End(), *m_source) {
        m_grid.Initialize(m_source->first, m_source->End(), m_source);
    }

    // Whether a set is left at all.
    void Compare(int queries, Tally& tally) {
        ASSERT_EQ(m_grid.ColumnEdges().size(), m_plain.ColumnEdges().size());
        for (std::size_t i = 0; i < m_plain.ColumnEdges().size(); ++i) {
            ExpectSame(m_grid.ColumnEdges()[i], m_plain.ColumnEdges()[i]);
            ExpectSame(m_grid.RowEdges()[i], m_plain.RowEdges()[i]);
        }
        for (int i = 0; i < queries; ++i) {
            const Vec2d p = Probe(m_random, m_source->points);
            const int expected = m_plain.Query(p);
            ASSERT_EQ(m_grid.Query(p), expected) << p.x << ' ' << p.y;
            CompareCells(p);
            tally.found += expected != -1 ? 1 : 0;
        }
        tally.queries += static_cast<std::size_t>(queries);
        tally.inCrowds += m_plain.LargestCell() > 64 ? static_cast<std::size_t>(queries) : 0;
    }

private:
    bool Withhold() {
        for (std::size_t i = 1; i < m_source->points.size(); ++i) {
            m_source->withheld[i] = m_random.OneIn(40);
        }
        return true;
    }

    // -0 and 0 differ, all that is no number is the same.
    static void ExpectSame(double a, double b) {
        EXPECT_TRUE(std::isnan(a) ? std::isnan(b) : a == b && std::signbit(a) == std::signbit(b))
            << a << ' ' << b;
    }

    // One cell and one ring, with a vertex known before that may be any.
    void CompareCells(const Vec2d& p) {
        const int side = static_cast<int>(m_plain.ColumnEdges().size()) - 1;
        const int cell = m_plain.WhichCell(p);
        ASSERT_EQ(m_grid.WhichCell(p), cell);
        const int known = m_random.Between(-60, 60);
        const double start = m_random.OneIn(3) ? LARGEST : std::pow(10.0, m_random.Between(-3, 5));
        for (const int ring : {0, 1, m_random.Between(0, side)}) {
            int best[] = {known, known};
            double least[] = {start, start};
            const bool changed =
                m_plain.QueryRingOfCells(cell % side, cell / side, ring, p, best[0], least[0]);
            ASSERT_EQ(m_grid.QueryRingOfCells(cell % side, cell / side, ring, p, best[1], least[1]),
                      changed);
            ASSERT_EQ(best[1], best[0]);
            ASSERT_EQ(least[1], least[0]);
        }
    }

    Random& m_random;
    std::shared_ptr<PointSource> m_source;
    bool m_withheld;
    PlainSearchGrid m_plain;
    OpenGrid m_grid;
};

TEST(SpatialSearchGrid2DReference, AnswersAreThoseOfThePlainGrid) {
    const struct {
        const char* name;
        Points (*make)(Random&, int);
    } families[] = {
        {"uniform", &Uniform},     {"clusters", &Clusters},     {"outlier", &CrowdAndOutlier},
        {"collinear", &Collinear}, {"duplicates", &Duplicates}, {"huge", &Huge},
        {"tiny", &Tiny},           {"not finite", &NotFinite}};
    constexpr std::uint64_t SEED = 20264;
    Random random(SEED);
    for (const auto& family : families) {
        SCOPED_TRACE(family.name);
        Tally tally;
        for (int round = 0; round < 60 && !testing::Test::HasFailure(); ++round) {
            SCOPED_TRACE(round);
            const int count = random.OneIn(3) ? random.Between(1, 200) : random.Between(65, 3000);
            BothGrids(random, family.make(random, count)).Compare(80, tally);
        }
        std::cout << family.name << ": " << tally.queries << " queries, " << tally.found
                  << " found something, " << tally.inCrowds << " among crowds\n";
        EXPECT_GE(tally.found, tally.queries / 3);
        if (family.make != &Uniform) {
            EXPECT_GE(tally.inCrowds, tally.queries / 4);
        }
    }
}

// Cells and the vertices that a query asks for.
class Asked {
public:
    explicit Asked(const Points& points) : m_points(points), m_grid(std::make_unique<OpenGrid>()) {
        const auto source = std::make_shared<FunctionSource>([this](int index, Vec2d& out) {
            m_asked.push_back(index);
            out = m_points[static_cast<std::size_t>(index)];
            return index != m_refused;
        });
        m_grid->Initialize(0, static_cast<int>(points.size()), source);
    }

    int Query(const Vec2d& p) {
        m_asked.clear();
        return m_grid->Query(p);
    }
    void Refuse(int index) { m_refused = index; }
    const std::vector<int>& Indices() const { return m_asked; }
    const OpenGrid& Grid() const { return *m_grid; }

private:
    Points m_points;
    std::vector<int> m_asked;
    int m_refused = -1;
    std::unique_ptr<OpenGrid> m_grid;
};

Points Line(int count) {
    Points points;
    for (int i = 0; i < count; ++i) {
        points.emplace_back(i, 0);
    }
    return points;
}

TEST(SpatialSearchGrid2DReference, BuildingAsksThreeTimesForEachVertexAlsoInCrowds) {
    for (const int count : {64, 65, 2000}) {
        const Asked asked(Points(static_cast<std::size_t>(count), Vec2d(1, 2)));
        EXPECT_EQ(asked.Indices().size(), 3 * static_cast<std::size_t>(count));
    }
}

TEST(SpatialSearchGrid2DReference, CellOf64VerticesIsAskedWholeAndALargerOneInPart) {
    Asked whole(Line(64));
    EXPECT_EQ(whole.Query({10.2, 0}), 10);
    std::vector<int> indices = whole.Indices();
    std::sort(indices.begin(), indices.end());
    ASSERT_EQ(indices.size(), 64U);
    for (int i = 0; i < 64; ++i) {
        EXPECT_EQ(indices[static_cast<std::size_t>(i)], i);
    }
    Asked part(Line(65));
    EXPECT_EQ(part.Query({10.2, 0}), 10);
    EXPECT_LE(part.Indices().size(), 32U);
}

TEST(SpatialSearchGrid2DReference, CrowdIsAskedInFewPlaces) {
    constexpr int COUNT = 20000;
    Random random(20265);
    Points points = Uniform(random, COUNT);
    points[0] = {1e9, 1e9}; // one cell for all others
    Asked asked(points);
    std::size_t most = 0;
    for (int i = 0; i < 1000; ++i) {
        asked.Query(InSquare(random, 100));
        most = std::max(most, asked.Indices().size());
    }
    EXPECT_LE(most, 200U);
}

TEST(SpatialSearchGrid2DReference, CrowdOfEqualVerticesIsAskedOnceForItsLowestIndex) {
    Points points(20000, Vec2d(3, 4));
    points[0] = {100, 100};
    Asked asked(points);
    EXPECT_EQ(asked.Query({0, 0}), 1);
    EXPECT_LE(asked.Indices().size(), 64U);
}

TEST(SpatialSearchGrid2DReference, CrowdAsksNothingForAQueryThatIsNoNumber) {
    Asked asked(Points(100, Vec2d(3, 4)));
    EXPECT_EQ(asked.Query({NOT_A_NUMBER, 0}), -1);
    EXPECT_TRUE(asked.Indices().empty());
}

TEST(SpatialSearchGrid2DReference, NearestOfACrowdThatIsRefusedLaterIsAnError) {
    Asked asked(Line(500));
    asked.Refuse(123);
    EXPECT_EQ(asked.Query({400, 0}), 400);
    ExpectError([&] { asked.Query({123.1, 5}); }, "Geometry", "SpatialSearchGrid2D", 222);
}

TEST(SpatialSearchGrid2DReference, CopyOfAGridSharesItsCrowdsAndOutlivesIt) {
    auto original = std::make_unique<SpatialSearchGrid2D>();
    original->Initialize(0, 500, std::make_shared<PointSource>(Line(500)));
    const SpatialSearchGrid2D copy = *original;
    original->Initialize(0, 2, std::make_shared<PointSource>(Line(2)));
    EXPECT_EQ(copy.Query({123.1, 5}), 123);
    original.reset();
    EXPECT_EQ(copy.Query({321.1, 5}), 321);
}

TEST(SpatialSearchGrid2DReference, FailedAllocationInACrowdLeavesTheGridEmpty) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap is not ours";
    }
    const auto source = std::make_shared<PointSource>(Line(500));
    std::size_t failures = 0;
    for (bool failed = true; failed; ++failures) {
        SpatialSearchGrid2D grid;
        AllocationProbe probe(failures);
        try {
            grid.Initialize(0, 500, source);
        } catch (const std::bad_alloc&) {
        }
        failed = probe.Failed();
        EXPECT_EQ(grid.Query({7.2, 0}), failed ? -1 : 7);
    }
    EXPECT_GE(failures, 9U);
}

} // namespace
} // namespace geom::test
