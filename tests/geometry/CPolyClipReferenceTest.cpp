// SPDX-License-Identifier: MIT
// Rings against rectangles, compared with the plain clip by one half-plane after the other.
#include "geometry/CPolyClip.h"
#include "tests/reference/PlainPolyClip.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace geom::test {
namespace {

constexpr std::uint64_t SEED = 20262;
constexpr int ROUNDS = 50000;

bool SameNumber(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b);
}

bool SamePoints(const CPodVector<Vec2d, 32>& got, const std::vector<Vec2d>& expected) {
    bool same = got.Count() == expected.size();
    for (std::size_t i = 0; same && i < expected.size(); ++i) {
        same = SameNumber(got[i].x, expected[i].x) && SameNumber(got[i].y, expected[i].y);
    }
    return same;
}

double Coordinate(Random& random) {
    constexpr double ODD[] = {std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::max(),
                              0x1p-1074,
                              -0.0};
    return random.OneIn(200) ? ODD[random.Below(6)] : random.Between(-12, 12) * 0.25;
}

// A walk whose steps are mostly short, so that it stays long inside or beyond one side.
std::vector<Vec2d> Walk(Random& random) {
    const int n = random.Between(0, 80);
    const int stay = random.Between(1, 40);
    std::vector<Vec2d> ring;
    for (int i = 0; i < n; ++i) {
        Vec2d next(Coordinate(random), Coordinate(random));
        if (!ring.empty() && !random.OneIn(stay)) {
            next = ring.back() + Vec2d(random.Between(-0.1, 0.1), random.Between(-0.1, 0.1));
        }
        ring.push_back(next);
    }
    return ring;
}

// All four sides in any order, so the sides of some are reversed.
Box2d Rectangle(Random& random) {
    const auto side = [&random] { return random.Between(-10, 10) * 0.25; };
    Box2d box(side(), side(), side(), side());
    if (!random.OneIn(8)) {
        box.Normalize();
    }
    return box;
}

TEST(CPolyClip, BlocksOfVerticesChangeNothing) {
    SCOPED_TRACE(SEED);
    Random random(SEED);
    int cut = 0;
    CPolyClip clipper;
    CPodVector<Vec2d, 32> out;
    for (int round = 0; round < ROUNDS; ++round) {
        const std::vector<Vec2d> ring = Walk(random);
        const Box2d box = Rectangle(random);
        const std::vector<Vec2d> expected = PlainPolyClip(ring, box);
        clipper.SetClipRect(box);
        out.Clear();
        ASSERT_EQ(clipper.Clip(ring.data(), ring.size(), out), expected.size());
        ASSERT_TRUE(SamePoints(out, expected)) << "round " << round;
        cut += !expected.empty() && expected.size() != ring.size() ? 1 : 0;
    }
    EXPECT_GT(cut, ROUNDS / 10);
}

} // namespace
} // namespace geom::test
