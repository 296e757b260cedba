// SPDX-License-Identifier: MIT
#include "tools/geomtool/RingLocator.h"

#include "tests/tools/Shapes.h"
#include "tools/geomtool/EdgeCrossing.h"

#include <cmath>
#include <random>

namespace geomtool {
namespace {

using geom::Vec2d;

/// Parity of the edges to the left of a point, one by one.
bool PlainContains(const std::vector<Vec2d>& ring, const Vec2d& p) {
    bool inside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vec2d& a = ring[i];
        const Vec2d& b = ring[(i + 1) % ring.size()];
        inside ^= PassesHeight(a, b, p.y) && CrossingAt(a, b, p.y) < p.x;
    }
    return inside;
}

TEST(RingLocator, AgreesWithThePlainWalkOnTangledRings) {
    constexpr unsigned SEED = 20240817;
    std::mt19937 random(SEED);
    std::uniform_int_distribution<int> grid(0, 12);
    std::size_t inside = 0;
    std::size_t outside = 0;
    for (std::size_t size = 1; size < 120; ++size) {
        std::vector<Vec2d> ring;
        for (std::size_t i = 0; i < size; ++i) {
            ring.emplace_back(grid(random), grid(random));
        }
        const RingLocator locator(ring);
        for (int i = 0; i < 200; ++i) {
            const Vec2d p(grid(random) + 0.25, grid(random) / 2.0);
            const bool expected = PlainContains(ring, p);
            ASSERT_EQ(locator.Contains(p), expected) << "seed " << SEED << ", size " << size;
            ++(expected ? inside : outside);
        }
    }
    EXPECT_GT(inside, 3000u);
    EXPECT_GT(outside, 3000u);
}

TEST(EdgeCrossing, IsANumberForCoordinatesOfAllSizes) {
    EXPECT_EQ(CrossingAt(Vec2d(0, 0), Vec2d(4, 2), 0.5), 1);
    EXPECT_EQ(CrossingAt(Vec2d(4, 2), Vec2d(0, 0), 0.5), 1);
    EXPECT_EQ(CrossingAt(Vec2d(-1.5e308, -1.5e308), Vec2d(1.5e308, 1.5e308), 0), 0);
    EXPECT_EQ(CrossingAt(Vec2d(7, 0), Vec2d(9, 5e-324), 0), 7);
}

TEST(RingLocator, KnowsALargeCircle) {
    std::vector<Vec2d> circle;
    constexpr int COUNT = 100000;
    for (int i = 0; i < COUNT; ++i) {
        const double angle = 2 * 3.14159265358979 * i / COUNT;
        circle.emplace_back(std::cos(angle), std::sin(angle));
    }
    const RingLocator locator(circle);
    for (int i = 0; i < 1000; ++i) {
        const double angle = i * 0.7;
        EXPECT_TRUE(locator.Contains(Vec2d(.999 * std::cos(angle), .999 * std::sin(angle))));
        EXPECT_FALSE(locator.Contains(Vec2d(1.001 * std::cos(angle), 1.001 * std::sin(angle))));
    }
}

} // namespace
} // namespace geomtool
