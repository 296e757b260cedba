// SPDX-License-Identifier: MIT
// Rings against rectangles, compared with the plain clip by one half-plane after the other.
#include "geometry/CPolyClip.h"
#include "tests/reference/PlainPolyClip.h"
#include "tests/support/RandomWalks.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace geom::test {
namespace {

constexpr std::uint64_t SEED = 20262;
constexpr int ROUNDS = 50000;

TEST(CPolyClip, BlocksOfVerticesChangeNothing) {
    SCOPED_TRACE(SEED);
    Random random(SEED);
    int cut = 0;
    CPolyClip clipper;
    CPodVector<Vec2d, 32> out;
    for (int round = 0; round < ROUNDS; ++round) {
        const std::vector<Vec2d> ring = RandomWalk(random, 0);
        const Box2d box = RandomRectangle(random);
        const std::vector<Vec2d> expected = PlainPolyClip(ring, box);
        clipper.SetClipRect(box);
        out.Clear();
        ASSERT_EQ(clipper.Clip(ring.data(), ring.size(), out), expected.size());
        ASSERT_TRUE(SameBits({out.begin(), out.end()}, expected)) << "round " << round;
        cut += !expected.empty() && expected.size() != ring.size() ? 1 : 0;
    }
    EXPECT_GT(cut, ROUNDS / 10);
}

// A run of each length at each place, before and behind a vertex elsewhere, in a rectangle of
// four by four.
TEST(CPolyClip, RunsEndAnywhereInABlock) {
    const Vec2d places[] = {{5, 1},           {1, -1}, {-1, 1}, {1, 5},
                            {2, 2},           {4, 4},  {0, 0},  {5, 5},
                            {-1, -1},         {5, -1}, {-1, 5}, {NOT_A_NUMBER, 1},
                            {1, NOT_A_NUMBER}};
    const Box2d box(-0.0, 0, 4, 4);
    CPolyClip clipper(box);
    CPodVector<Vec2d, 32> out;
    for (const Vec2d& stay : places) {
        for (const Vec2d& elsewhere : places) {
            for (std::size_t before = 1; before <= 20; ++before) {
                std::vector<Vec2d> ring(before, stay);
                ring.push_back(elsewhere);
                ring.insert(ring.end(), 40 - before, stay);
                out.Clear();
                clipper.Clip(ring.data(), ring.size(), out);
                ASSERT_TRUE(SameBits({out.begin(), out.end()}, PlainPolyClip(ring, box)))
                    << before << " points at " << stay.x << ' ' << stay.y << ", then "
                    << elsewhere.x << ' ' << elsewhere.y;
            }
        }
    }
}

} // namespace
} // namespace geom::test
