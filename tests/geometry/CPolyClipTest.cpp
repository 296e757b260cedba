// SPDX-License-Identifier: MIT
#include "geometry/CPolyClip.h"

#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <random>
#include <vector>

namespace {

using geom::Box2d;
using geom::CPolyClip;
using geom::Vec2d;
using geom::test::AllocationProbe;
using geom::test::ExpectError;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

using Points = std::vector<Vec2d>;
using Output = geom::CPodVector<Vec2d, 32>;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double LARGEST = std::numeric_limits<double>::max();

const Box2d TEN(0, 0, 10, 10);

Points Clip(CPolyClip& clip, const Points& ring) {
    Output out;
    const std::size_t n = clip.Clip(ring.data(), ring.size(), out);
    EXPECT_EQ(n, out.Count());
    return Points(out.begin(), out.end());
}

Points Clip(const Box2d& rect, const Points& ring) {
    CPolyClip clip(rect);
    return Clip(clip, ring);
}

} // namespace

TEST(CPolyClip, RingWithoutPointsGivesNothing) {
    CPolyClip clip(TEN);
    Output out;
    out.Append({1, 2});
    EXPECT_EQ(clip.Clip(nullptr, 0, out), 0U);
    EXPECT_EQ(out.Count(), 1U);
    EXPECT_EQ(out[0], Vec2d(1, 2));
}

TEST(CPolyClip, RingWithoutPointsAfterAnotherRingGivesNothing) {
    CPolyClip clip(TEN);
    EXPECT_THAT(Clip(clip, {{1, 1}, {2, 1}, {2, 2}}), testing::SizeIs(3));
    EXPECT_THAT(Clip(clip, {}), IsEmpty());
}

TEST(CPolyClip, RingInsideIsTurnedByFourPlaces) {
    const Vec2d a(1, 1);
    const Vec2d b(3, 1);
    const Vec2d c(4, 2);
    const Vec2d d(3, 3);
    const Vec2d e(1, 3);
    EXPECT_THAT(Clip(TEN, {a, b, c, d, e}), ElementsAre(e, a, b, c, d));
    EXPECT_THAT(Clip(TEN, {a, b, c, d}), ElementsAre(a, b, c, d));
    EXPECT_THAT(Clip(TEN, {a, b, c}), ElementsAre(b, c, a));
    EXPECT_THAT(Clip(TEN, {a, b}), ElementsAre(a, b));
    EXPECT_THAT(Clip(TEN, {a}), ElementsAre(a));
}

TEST(CPolyClip, TriangleAcrossTheRightEdgeGetsTwoCrossings) {
    //                 |    . (16, 8)
    //   (4, 5) <            crossings at x = 10: y 6.5 and 3.5
    //                 |    . (16, 2)
    const Points result = Clip(TEN, {{4, 5}, {16, 2}, {16, 8}});
    EXPECT_THAT(result, testing::UnorderedElementsAre(Vec2d(4, 5), Vec2d(10, 3.5), Vec2d(10, 6.5)));
    EXPECT_THAT(result, ElementsAre(Vec2d(10, 3.5), Vec2d(10, 6.5), Vec2d(4, 5)));
}

TEST(CPolyClip, DefaultConstructedClipperClipsEverythingAway) {
    CPolyClip clip;
    EXPECT_THAT(Clip(clip, {{1, 1}, {2, 1}, {2, 2}}), IsEmpty());
    EXPECT_THAT(Clip(clip, {{-1e300, -1e300}, {1e300, -1e300}, {0, 1e300}}), IsEmpty());
    EXPECT_THAT(Clip(clip, {{0, 0}}), IsEmpty());
    clip.SetClipRect(TEN);
    EXPECT_THAT(Clip(clip, {{1, 1}, {2, 1}, {2, 2}}), testing::SizeIs(3));
}

TEST(CPolyClip, RingAroundTheRectangleGivesItsCorners) {
    EXPECT_THAT(Clip(TEN, {{-5, -5}, {50, -5}, {-5, 50}}),
                ElementsAre(Vec2d(0, 10), Vec2d(0, 0), Vec2d(10, 0), Vec2d(10, 10)));
    // The other way round the corners come the other way round.
    EXPECT_THAT(Clip(TEN, {{-5, 50}, {50, -5}, {-5, -5}}),
                ElementsAre(Vec2d(0, 10), Vec2d(10, 10), Vec2d(10, 0), Vec2d(0, 0)));
}

TEST(CPolyClip, RingOutsideGivesNothing) {
    EXPECT_THAT(Clip(TEN, {{11, 1}, {20, 1}, {20, 9}}), IsEmpty());
    EXPECT_THAT(Clip(TEN, {{-1, 1}, {-20, 1}, {-20, 9}}), IsEmpty());
    EXPECT_THAT(Clip(TEN, {{1, 11}, {9, 11}, {9, 20}}), IsEmpty());
    EXPECT_THAT(Clip(TEN, {{1, -1}, {9, -1}, {9, -20}}), IsEmpty());
}

TEST(CPolyClip, VerticesOnTheBoundaryAreInside) {
    EXPECT_THAT(Clip(TEN, {{0, 0}, {10, 0}, {10, 10}, {0, 10}}),
                ElementsAre(Vec2d(0, 0), Vec2d(10, 0), Vec2d(10, 10), Vec2d(0, 10)));
    // Only one vertex touches the right edge.
    EXPECT_THAT(Clip(TEN, {{10, 5}, {20, 1}, {20, 9}}), Each(Vec2d(10, 5)));
}

TEST(CPolyClip, RepeatedPointsAreKept) {
    const Vec2d a(1, 1);
    const Vec2d b(3, 1);
    const Vec2d c(2, 4);
    EXPECT_THAT(Clip(TEN, {a, b, c, a}), ElementsAre(a, b, c, a));
    EXPECT_THAT(Clip(TEN, {b, b, b}), ElementsAre(b, b, b));
}

TEST(CPolyClip, PartsOfAConcaveRingAreJoinedAlongTheEdge) {
    // A U open to the left whose arms reach into the rectangle from the right.
    const Points ring = {{5, 1}, {15, 1}, {15, 9}, {5, 9}, {5, 7}, {12, 7}, {12, 3}, {5, 3}};
    const Points result = Clip(TEN, ring);
    EXPECT_THAT(result, testing::UnorderedElementsAre(Vec2d(5, 1), Vec2d(10, 1), Vec2d(10, 9),
                                                      Vec2d(5, 9), Vec2d(5, 7), Vec2d(10, 7),
                                                      Vec2d(10, 3), Vec2d(5, 3)));
}

TEST(CPolyClip, CrossingsAreComputedFromTheEarlierPoint) {
    const Vec2d p(0.1, 0.2);
    const Vec2d q(1.7, 0.9);
    const Box2d rect(0, 0, 1, 1);
    const Points result = Clip(rect, {p, q, {0.1, 0.9}});
    const Vec2d out(1, 0.2 + ((0.9 - 0.2) * (1 - 0.1)) / (1.7 - 0.1));
    EXPECT_THAT(result, testing::Contains(out));
}

TEST(CPolyClip, SetClipRectBLTClipsAnOrdinaryBoxAway) {
    CPolyClip clip(TEN);
    clip.SetClipRectBLT(TEN);
    EXPECT_THAT(Clip(clip, {{1, 1}, {2, 1}, {2, 2}}), IsEmpty());
    EXPECT_THAT(Clip(clip, {{-5, -5}, {50, -5}, {-5, 50}}), IsEmpty());
    EXPECT_THAT(Clip(clip, {{5, 5}}), IsEmpty());
}

TEST(CPolyClip, SetClipRectBLTTakesABoxHeldTopDown) {
    CPolyClip topDown;
    topDown.SetClipRectBLT(Box2d(0, 10, 10, 0));
    const Points ring = {{-3, 5}, {7, -6}, {18, 4}, {6, 14}};
    const Points expected = Clip(TEN, ring);
    EXPECT_GT(expected.size(), 4U);
    EXPECT_EQ(Clip(topDown, ring), expected);
}

TEST(CPolyClip, ReversedSidesClipEverythingAway) {
    EXPECT_THAT(Clip(Box2d(10, 0, 0, 10), {{-5, -5}, {50, -5}, {-5, 50}}), IsEmpty());
    EXPECT_THAT(Clip(Box2d(0, 10, 10, 0), {{-5, -5}, {50, -5}, {-5, 50}}), IsEmpty());
}

TEST(CPolyClip, ResultsAreAppended) {
    CPolyClip clip(TEN);
    Output out;
    const Points first = {{1, 1}, {3, 1}, {2, 4}};
    const Points second = {{5, 5}, {6, 5}, {6, 6}, {5, 6}};
    EXPECT_EQ(clip.Clip(first.data(), 3, out), 3U);
    EXPECT_EQ(clip.Clip(second.data(), 4, out), 4U);
    EXPECT_THAT(Points(out.begin(), out.end()), ElementsAre(first[1], first[2], first[0], second[0],
                                                            second[1], second[2], second[3]));
}

TEST(CPolyClip, OneClipperClipsManyRings) {
    CPolyClip reused(TEN);
    const std::vector<Points> rings = {{{-5, -5}, {50, -5}, {-5, 50}},
                                       {{11, 1}, {20, 1}, {20, 9}},
                                       {{1, 1}, {2, 1}, {2, 2}},
                                       {{5, 5}},
                                       {{5, 5}, {15, 1}, {15, 9}}};
    for (const Points& ring : rings) {
        EXPECT_EQ(Clip(reused, ring), Clip(TEN, ring));
    }
    reused.SetClipRect(Box2d(0, 0, 3, 3));
    EXPECT_EQ(Clip(reused, rings[0]), Clip(Box2d(0, 0, 3, 3), rings[0]));
}

TEST(CPolyClip, CopiesWorkOnTheirOwn) {
    const Points ring = {{-5, 5}, {5, -5}, {15, 5}, {5, 15}};
    const Points expected = Clip(TEN, ring);
    ASSERT_EQ(expected.size(), 4U + 4U);

    auto original = std::make_unique<CPolyClip>(TEN);
    EXPECT_EQ(Clip(*original, ring), expected); // so that its stages hold a ring
    CPolyClip copy(*original);
    CPolyClip assigned;
    assigned = *original;
    original->SetClipRect(Box2d(0, 0, 1, 1));
    EXPECT_EQ(Clip(copy, ring), expected);
    EXPECT_NE(Clip(*original, ring), expected);
    original.reset();
    EXPECT_EQ(Clip(copy, ring), expected);
    EXPECT_EQ(Clip(assigned, ring), expected);
}

// The output is full in each case: the first point appended moves it.
TEST(CPolyClip, RingMayBePartOfItsOutput) {
    for (const int n : {32, 64, 1 << 16}) {
        Output out;
        for (int i = 0; i < n; ++i) {
            const double angle = 2 * 3.14159265358979 * i / n;
            out.Append({5 + 7 * std::cos(angle), 5 + 7 * std::sin(angle)});
        }
        const Points ring(out.begin(), out.end());
        const Points expected = Clip(TEN, ring);
        CPolyClip clip(TEN);
        const std::size_t appended = clip.Clip(out.Data(), out.Count(), out);
        EXPECT_EQ(appended, expected.size());
        EXPECT_EQ(Points(out.begin(), out.begin() + n), ring);
        EXPECT_EQ(Points(out.begin() + n, out.end()), expected);
    }
}

TEST(CPolyClip, NullRingIsAnInternalError) {
    CPolyClip clip(TEN);
    Output out;
    ExpectError([&] { clip.Clip(nullptr, 3, out); }, L"Geometry", L"CPolyClip", 21);
    EXPECT_EQ(out.Count(), 0U);
}

TEST(CPolyClip, CoordinatesThatAreNotFiniteReturn) {
    const double values[] = {-INFINITE, -LARGEST, -1, 5, LARGEST, INFINITE, NOT_A_NUMBER};
    CPolyClip clip(TEN);
    std::size_t points = 0;
    for (const double a : values) {
        for (const double b : values) {
            for (const double c : values) {
                for (const double d : values) {
                    const Points ring = {{a, b}, {c, d}, {5, 5}, {b, c}};
                    points += Clip(clip, ring).size();
                }
            }
        }
    }
    EXPECT_GT(points, 0U);
    EXPECT_THAT(Clip(clip, {{NOT_A_NUMBER, 1}, {NOT_A_NUMBER, 2}}), IsEmpty());
}

TEST(CPolyClip, ExhaustedHeapLeavesTheOutputUnchanged) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    Points ring;
    for (int i = 0; i < 200; ++i) {
        ring.push_back({i % 10 + 0.5, i % 7 + 0.25});
    }
    for (std::size_t k = 0;; ++k) {
        CPolyClip clip(TEN);
        Output out;
        out.Append({1, 2});
        bool thrown = false;
        bool failed = false;
        {
            const AllocationProbe probe(k);
            try {
                clip.Clip(ring.data(), ring.size(), out);
            } catch (const std::bad_alloc&) {
                thrown = true;
            }
            failed = probe.Failed();
        }
        ASSERT_EQ(thrown, failed);
        EXPECT_EQ(out[0], Vec2d(1, 2));
        if (!failed) {
            EXPECT_GT(k, 0U);
            EXPECT_EQ(out.Count(), 1 + ring.size());
            break;
        }
        EXPECT_EQ(out.Count(), 1U);
        EXPECT_EQ(clip.Clip(ring.data(), 3, out), 3U) << "the clipper is still good";
    }
}

TEST(CPolyClip, ShortResultsNeedNoHeap) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const Points ring = {{-5, 5}, {5, -5}, {15, 5}, {5, 15}};
    CPolyClip clip(TEN);
    Output out;
    std::size_t requests = 0;
    {
        const AllocationProbe probe;
        clip.Clip(ring.data(), ring.size(), out);
        requests = probe.Count();
    }
    EXPECT_EQ(out.Count(), 8U);
    EXPECT_EQ(requests, 0U);
}

namespace {

/// One side of the rectangle in the plain method.
struct HalfPlane {
    double Vec2d::*across; // the coordinate that the side bounds
    double Vec2d::*along;
    double bound;
    bool upper;

    bool Holds(const Vec2d& p) const { return upper ? p.*across <= bound : p.*across >= bound; }
    Vec2d Cross(const Vec2d& p, const Vec2d& q) const {
        Vec2d c;
        c.*across = bound;
        c.*along = p.*along + (q.*along - p.*along) * (bound - p.*across) / (q.*across - p.*across);
        return c;
    }
};

/// One pass over an array, edge by edge from the one that ends in the first point; the points
/// of that edge then go to the end.
Points PassOverRing(const Points& ring, const HalfPlane& side) {
    Points result;
    std::size_t ofFirstEdge = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vec2d& p = ring[i == 0 ? ring.size() - 1 : i - 1];
        const Vec2d& q = ring[i];
        if (side.Holds(p) != side.Holds(q)) {
            result.push_back(side.Cross(p, q));
        }
        if (side.Holds(q)) {
            result.push_back(q);
        }
        if (i == 0) {
            ofFirstEdge = result.size();
        }
    }
    std::rotate(result.begin(), result.begin() + static_cast<std::ptrdiff_t>(ofFirstEdge),
                result.end());
    return result;
}

Points ClipInFourPasses(Points ring, const Box2d& box) {
    ring = PassOverRing(ring, {&Vec2d::x, &Vec2d::y, box.maxX, true});
    ring = PassOverRing(ring, {&Vec2d::y, &Vec2d::x, box.minY, false});
    ring = PassOverRing(ring, {&Vec2d::x, &Vec2d::y, box.minX, false});
    return PassOverRing(ring, {&Vec2d::y, &Vec2d::x, box.maxY, true});
}

Points RandomRing(std::mt19937& random, bool onGrid) {
    Points ring(random() % 20);
    std::uniform_real_distribution<double> coordinate(-2, 6);
    for (Vec2d& p : ring) {
        p = onGrid ? Vec2d(static_cast<double>(random() % 9) - 2,
                           static_cast<double>(random() % 9) - 2)
                   : Vec2d(coordinate(random), coordinate(random));
    }
    return ring;
}

bool IsInsideEvenOdd(const Vec2d& p, const Points& ring) {
    bool inside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vec2d& a = ring[i];
        const Vec2d& b = ring[(i + 1) % ring.size()];
        if ((a.y <= p.y) != (b.y <= p.y) && p.x < a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y)) {
            inside = !inside;
        }
    }
    return inside;
}

} // namespace

TEST(CPolyClip, RandomRingsAgreeWithFourPassesOverArrays) {
    constexpr unsigned int SEED = 22;
    std::mt19937 random(SEED);
    SCOPED_TRACE(SEED);
    CPolyClip clip;
    std::size_t cut = 0;
    for (int i = 0; i < 100000; ++i) {
        const bool onGrid = i % 2 == 0;
        const Box2d box = onGrid ? Box2d(0, 0, 4, 4) : Box2d(0.1, -0.3, 3.7, 4.1);
        const Points ring = RandomRing(random, onGrid);
        clip.SetClipRect(box);
        const Points result = Clip(clip, ring);
        ASSERT_EQ(result, ClipInFourPasses(ring, box));
        cut += !result.empty() && result != ring ? 1U : 0U;
    }
    EXPECT_GT(cut, 50000U);
}

TEST(CPolyClip, RandomRingsKeepWhatIsInsideOfThem) {
    constexpr unsigned int SEED = 23;
    std::mt19937 random(SEED);
    SCOPED_TRACE(SEED);
    const Box2d box(0, 0, 4, 4);
    CPolyClip clip(box);
    std::uniform_real_distribution<double> coordinate(-2, 6);
    int inside = 0;
    for (int i = 0; i < 5000; ++i) {
        const Points ring = RandomRing(random, i % 2 == 0);
        const Points result = Clip(clip, ring);
        EXPECT_TRUE(std::all_of(result.begin(), result.end(), [](const Vec2d& p) {
            return p.x >= -1e-12 && p.x <= 4 + 1e-12 && p.y >= -1e-12 && p.y <= 4 + 1e-12;
        }));
        for (int k = 0; k < 20; ++k) {
            const Vec2d probe(coordinate(random), coordinate(random));
            const bool expected = box.Contains(probe) && IsInsideEvenOdd(probe, ring);
            EXPECT_EQ(IsInsideEvenOdd(probe, result), expected) << probe.x << ' ' << probe.y;
            inside += expected ? 1 : 0;
        }
    }
    EXPECT_GT(inside, 3000);
}
