// SPDX-License-Identifier: MIT
#include "tools/geomtool/Palette.h"

#include "tests/tools/Shapes.h"

#include <set>

namespace geomtool {
namespace {

using test::External;
using test::Square;

TEST(Palette, ColoursAreDistinct) {
    const std::set<std::string> distinct(Palette().begin(), Palette().end());
    EXPECT_EQ(distinct.size(), Palette().size());
    EXPECT_GE(distinct.size(), 4u);
}

TEST(Palette, NeighboursOnAGridDiffer) {
    constexpr std::size_t SIDE = 20;
    PolygonSet shapes;
    for (std::size_t i = 0; i < SIDE * SIDE; ++i) {
        shapes.rings.push_back(
            External(Square(static_cast<double>(i % SIDE), static_cast<double>(i / SIDE), .5)));
    }
    const std::vector<std::size_t> colours = ColourNeighboursApart(shapes, Nest(shapes));
    ASSERT_EQ(colours.size(), SIDE * SIDE);
    for (std::size_t i = 0; i < SIDE * SIDE; ++i) {
        if (i % SIDE + 1 < SIDE) {
            EXPECT_NE(colours[i], colours[i + 1]);
        }
        if (i + SIDE < SIDE * SIDE) {
            EXPECT_NE(colours[i], colours[i + SIDE]);
        }
    }
}

TEST(Palette, AllColoursAreUsedEquallyAmongStrangers) {
    PolygonSet shapes;
    for (std::size_t i = 0; i < 3 * Palette().size(); ++i) {
        shapes.rings.push_back(External(Square(static_cast<double>(i) * 10, 0, 1)));
    }
    std::vector<int> uses(Palette().size(), 0);
    for (const std::size_t colour : ColourNeighboursApart(shapes, Nest(shapes))) {
        ++uses[colour];
    }
    EXPECT_EQ(uses, std::vector<int>(Palette().size(), 3));
}

TEST(Palette, MoreNeighboursThanColoursStillGetOne) {
    PolygonSet shapes;
    for (std::size_t i = 0; i < 2 * Palette().size(); ++i) {
        const double x = static_cast<double>(i);
        shapes.rings.push_back(External({{0, 0}, {x, 10}, {x + 1, 10}}));
    }
    for (const std::size_t colour : ColourNeighboursApart(shapes, Nest(shapes))) {
        EXPECT_LT(colour, Palette().size());
    }
}

} // namespace
} // namespace geomtool
