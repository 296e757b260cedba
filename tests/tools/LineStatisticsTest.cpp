// SPDX-License-Identifier: MIT
#include "tools/geomtool/LineStatistics.h"

#include <gtest/gtest.h>

namespace geomtool {
namespace {

TEST(LineStatistics, TellWhatBecameOfLines) {
    const LineSet in{{{{0, 0}, {9, 0}, {9, 9}}}};
    const LineSet out{{{{0, 0}, {3, 4}}, {{1, 1}, {1, 2}}}};
    EXPECT_EQ(LineStatistics(in, out, 0.1234567),
              "lines_in=1 vertices_in=3 lines_out=2 vertices_out=4 length=6 seconds=0.123457");
    EXPECT_EQ(LineStatistics({}, {}, 0),
              "lines_in=0 vertices_in=0 lines_out=0 vertices_out=0 length=0 seconds=0");
}

} // namespace
} // namespace geomtool
