// SPDX-License-Identifier: MIT
#include "geometry/geom.h"
#include "tests/support/Exceptions.h"
#include "tests/support/FailEachAllocation.h"
#include "tests/support/PolygonText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace geom {
namespace {

using test::ExpectError;
using test::PointsOf;
using test::Text;
using testing::ElementsAre;

using Outline = void (*)(const Vec2d*, std::size_t, Vec2d*);

std::string OutlineOf(Outline outline, const std::string& strip) {
    const std::vector<Vec2d> pts = PointsOf(strip);
    std::vector<Vec2d> out(pts.size());
    outline(pts.data(), pts.size(), out.data());
    return Text(out);
}

TEST(TriStripToCCWPolygon, RunsAlongTheEvenSideAndBackAlongTheOdd) {
    EXPECT_EQ(OutlineOf(TriStripToCCWPolygon, "0 0, 1 0, 0 1, 1 1"), "0 0, 0 1, 1 1, 1 0");
    EXPECT_EQ(OutlineOf(TriStripToCCWPolygon, "0 0, 1 1, 2 2, 3 3, 4 4"),
              "0 0, 2 2, 4 4, 3 3, 1 1");
}

TEST(TriStripToCWPolygon, RunsAlongTheOddSideAndBackAlongTheEven) {
    EXPECT_EQ(OutlineOf(TriStripToCWPolygon, "0 0, 1 0, 0 1, 1 1"), "1 0, 1 1, 0 1, 0 0");
    EXPECT_EQ(OutlineOf(TriStripToCWPolygon, "0 0, 1 1, 2 2, 3 3, 4 4"), "1 1, 3 3, 4 4, 2 2, 0 0");
}

TEST(TriStripOutline, ShortStripsKeepAllTheirVertices) {
    EXPECT_EQ(OutlineOf(TriStripToCWPolygon, "5 6"), "5 6");
    EXPECT_EQ(OutlineOf(TriStripToCCWPolygon, "5 6"), "5 6");
    EXPECT_EQ(OutlineOf(TriStripToCWPolygon, "5 6, 7 8"), "7 8, 5 6");
    EXPECT_EQ(OutlineOf(TriStripToCCWPolygon, "5 6, 7 8"), "5 6, 7 8");
}

TEST(TriStripOutline, NoVerticesWriteNothing) {
    TriStripToCWPolygon(nullptr, 0, nullptr);
    TriStripToCCWPolygon(nullptr, 0, nullptr);
}

TEST(TriStripOutline, OutputMayOverlapTheStrip) {
    std::vector<Vec2d> same = PointsOf("0 0, 1 1, 2 2, 3 3, 4 4");
    TriStripToCWPolygon(same.data(), same.size(), same.data());
    EXPECT_EQ(Text(same), "1 1, 3 3, 4 4, 2 2, 0 0");
    std::vector<Vec2d> shifted = PointsOf("0 0, 1 1, 2 2, 3 3, 4 4, 9 9");
    TriStripToCCWPolygon(shifted.data(), 5, shifted.data() + 1);
    EXPECT_EQ(Text(shifted), "0 0, 0 0, 2 2, 4 4, 3 3, 1 1");
    std::vector<Vec2d> adjacent = PointsOf("0 0, 1 1, 2 2, 9 9, 9 9, 9 9");
    TriStripToCCWPolygon(adjacent.data(), 3, adjacent.data() + 3);
    EXPECT_EQ(Text(adjacent), "0 0, 1 1, 2 2, 0 0, 2 2, 1 1");
}

TEST(TriStripOutline, NullPointersAreAnInternalError) {
    Vec2d p[3] = {{0, 0}, {1, 1}, {2, 2}};
    for (const Outline outline : {TriStripToCWPolygon, TriStripToCCWPolygon}) {
        ExpectError([&] { outline(nullptr, 3, p); }, "Geometry", "TriStrip", 30, "Internal error");
        ExpectError([&] { outline(p, 3, nullptr); }, "Geometry", "TriStrip", 31, "Internal error");
    }
}

TEST(TriStripOutline, OnlyOverlapNeedsTheHeap) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    Vec2d strip[3] = {{0, 0}, {1, 1}, {2, 2}};
    Vec2d out[3];
    EXPECT_THAT(test::FailEachAllocation([&] { TriStripToCWPolygon(strip, 3, out); }),
                ElementsAre());
    EXPECT_THAT(test::FailEachAllocation([&] { TriStripToCWPolygon(strip, 3, strip); }),
                ElementsAre("Geometry, TriStrip 32: Out of memory"));
}

} // namespace
} // namespace geom
