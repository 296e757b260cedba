// SPDX-License-Identifier: MIT
#include "tools/geomtool/BoxTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace geomtool {
namespace {

using geom::Box2d;
using geom::Vec2d;

TEST(BoxTree, FindsNothingAmongNoBoxes) {
    std::vector<std::size_t> found;
    BoxTree({}).Find(Vec2d(0, 0), found);
    EXPECT_TRUE(found.empty());
}

TEST(BoxTree, FindsTheBoxesThatAPlainSearchFinds) {
    constexpr unsigned SEED = 77;
    std::mt19937 random(SEED);
    std::uniform_int_distribution<int> place(0, 50);
    std::uniform_int_distribution<int> extent(0, 9);
    std::size_t hits = 0;
    for (const std::size_t count : {1u, 2u, 15u, 16u, 17u, 255u, 256u, 257u, 5000u}) {
        std::vector<Box2d> boxes;
        for (std::size_t i = 0; i < count; ++i) {
            const double x = place(random);
            const double y = place(random);
            boxes.emplace_back(x, y, x + extent(random), y + extent(random));
        }
        const BoxTree tree(boxes);
        for (int i = 0; i < 100; ++i) {
            const Vec2d p(place(random), place(random));
            std::vector<std::size_t> found;
            tree.Find(p, found);
            std::sort(found.begin(), found.end());
            std::vector<std::size_t> expected;
            for (std::size_t k = 0; k < count; ++k) {
                if (boxes[k].Contains(p)) {
                    expected.push_back(k);
                }
            }
            ASSERT_EQ(found, expected) << "seed " << SEED << ", " << count << " boxes";
            hits += found.size();
        }
    }
    EXPECT_GT(hits, 1000u);
}

} // namespace
} // namespace geomtool
