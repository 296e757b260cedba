// SPDX-License-Identifier: MIT
#include "tools/geomtool/Statistics.h"

#include "tests/tools/Shapes.h"

namespace geomtool {
namespace {

using test::External;
using test::Hole;
using test::Square;

TEST(Statistics, AddUpOperandsAndMeasureTheResult) {
    Statistics statistics;
    statistics.AddInput({{External(Square(0, 0, 1))}});
    statistics.AddInput({{External({{0, 0}, {1, 0}, {0, 1}}), Hole({})}});
    const PolygonSet result{{External(Square(0, 0, 2)), Hole(Square(0, 0, 1))}};
    EXPECT_EQ(statistics.Line(result), "contours_in=3 vertices_in=7 contours_out=2 vertices_out=8 "
                                       "area=12 seconds=0");
}

} // namespace
} // namespace geomtool
