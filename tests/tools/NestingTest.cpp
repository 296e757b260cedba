// SPDX-License-Identifier: MIT
#include "tools/geomtool/Nesting.h"

#include "tests/tools/Shapes.h"
#include "tools/geomtool/InteriorPoint.h"

namespace geomtool {
namespace {

using geom::Vec2d;
using test::External;
using test::Hole;
using test::Square;

/// "0(1 2) 3()": external contours with their holes.
std::string Nested(const PolygonSet& shapes) {
    std::string text;
    for (const NestedPolygon& polygon : Nest(shapes)) {
        text += (text.empty() ? "" : " ") + std::to_string(polygon.exterior) + "(";
        for (std::size_t i = 0; i < polygon.holes.size(); ++i) {
            text += (i > 0 ? " " : "") + std::to_string(polygon.holes[i]);
        }
        text += ")";
    }
    return text;
}

TEST(Nesting, HoleGoesToTheSmallestContourAroundIt) {
    struct {
        const char* name;
        PolygonSet shapes;
        const char* nested;
    } const cases[] = {
        {"nothing", {}, ""},
        {"hole first", {{Hole(Square(0, 0, 1)), External(Square(0, 0, 2))}}, "1(0)"},
        {"island in a lake",
         {{External(Square(0, 0, 9)), Hole(Square(0, 0, 8)), External(Square(0, 0, 7)),
           Hole(Square(0, 0, 6))}},
         "0(1) 2(3)"},
        {"box around, contour not",
         {{External({{0, 0}, {10, 0}, {0, 10}}), External(Square(8, 8, 2)), Hole(Square(8, 8, 1))}},
         "0() 1(2)"},
        {"enclave with the hole's own points",
         {{External(Square(0, 0, 9)), Hole(Square(0, 0, 3)), External(Square(0, 0, 3))}},
         "0(1) 2()"},
        {"hole touching its contour from within",
         {{External(Square(0, 0, 2)), Hole({{2, 0}, {1, 1}, {1, -1}})}},
         "0(1)"},
        {"holes touching each other",
         {{External(Square(0, 0, 9)), Hole(Square(-1, 0, 1)), Hole(Square(1, 0, 1))}},
         "0(1 2)"},
        {"hole alone", {{Hole(Square(0, 0, 1)), External(Square(5, 5, 1))}}, "0() 1()"},
        {"contours without area",
         {{External({}), Hole({{1, 1}}), External(Square(0, 0, 2))}},
         "2()"},
        {"huge contour",
         {{External(Square(0, 0, 1.7e308)), Hole(Square(0, 0, 1)), External(Square(0, 0, 1e200)),
           Hole(Square(0, 0, 1.6e308))}},
         "0(1) 2() 3()"},
        {"flat hole", {{External(Square(0, 0, 2)), Hole({{0, 0}, {1, 0}, {.5, 0}})}}, "0(1)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Nested(c.shapes), c.nested);
    }
}

TEST(Nesting, ChequeredHolesOfAContourAllFindIt) {
    constexpr std::size_t SIDE = 150;
    PolygonSet shapes;
    shapes.rings.push_back(External(Square(SIDE / 2.0, SIDE / 2.0, SIDE)));
    for (std::size_t x = 0; x < SIDE; ++x) {
        for (std::size_t y = 0; y < SIDE; ++y) {
            shapes.rings.push_back(
                {Square(static_cast<double>(x), static_cast<double>(y), .4), true});
        }
    }
    const std::vector<NestedPolygon> polygons = Nest(shapes);
    ASSERT_EQ(polygons.size(), 1u);
    EXPECT_EQ(polygons[0].holes.size(), SIDE * SIDE);
}

TEST(Nesting, ExtractCopiesOnePolygon) {
    const PolygonSet shapes{
        {External(Square(9, 9, 1)), Hole(Square(0, 0, 1)), External(Square(0, 0, 2))}};
    test::ExpectSame(Extract(shapes, {2, {1}}), {{shapes.rings[2], shapes.rings[1]}});
    // A hole on its own stands as an external contour.
    test::ExpectSame(Extract(shapes, {1, {}}), {{External(Square(0, 0, 1))}});
}

TEST(InteriorPoint, LiesAwayFromTheBoundary) {
    EXPECT_EQ(InteriorPoint(Square(5, 7, 2)), Vec2d(5, 7));
    // The widest stretch half way up a comb whose right tooth is the broadest.
    const std::vector<Vec2d> comb = {{0, 0}, {10, 0}, {10, 4}, {6, 4},
                                     {6, 1}, {2, 1},  {2, 4},  {0, 4}};
    EXPECT_EQ(InteriorPoint(comb), Vec2d(8, 2.5));
}

TEST(InteriorPoint, OfAContourWithoutAreaIsOneOfItsPoints) {
    EXPECT_EQ(InteriorPoint({{1, 2}}), Vec2d(1, 2));
    EXPECT_EQ(InteriorPoint({{1, 2}, {3, 2}, {2, 2}}), Vec2d(1, 2));
    EXPECT_EQ(InteriorPoint({{1, 2}, {1, 5}, {1, 3}}), Vec2d(1, 2));
}

TEST(InteriorPoint, HugeCoordinatesDoNotOverflow) {
    const Vec2d p = InteriorPoint(Square(0, 0, 1.5e308));
    EXPECT_EQ(p.y, 0);
    EXPECT_LT(std::abs(p.x), 1.6e308);
}

} // namespace
} // namespace geomtool
