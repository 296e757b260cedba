// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Box2d.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>

namespace kit {
namespace {

constexpr double LARGEST = 1.7976931348623157e308;
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

static_assert(offsetof(Box2d, minX) == 0 && offsetof(Box2d, minY) == sizeof(double) &&
              offsetof(Box2d, maxX) == 2 * sizeof(double) &&
              offsetof(Box2d, maxY) == 3 * sizeof(double));

TEST(Box2d, DefaultIsTheEmptyBox) {
    const Box2d box;
    EXPECT_EQ(box.minX, LARGEST);
    EXPECT_EQ(box.minY, LARGEST);
    EXPECT_EQ(box.maxX, -LARGEST);
    EXPECT_EQ(box.maxY, -LARGEST);
    EXPECT_TRUE(box.IsEmpty());
    EXPECT_FALSE(box.HasArea());
}

TEST(Box2d, CornersAreStoredAsGiven) {
    const Box2d box(4, 3, 2, 1);
    EXPECT_EQ(box.minX, 4);
    EXPECT_EQ(box.minY, 3);
    EXPECT_EQ(box.maxX, 2);
    EXPECT_EQ(box.maxY, 1);
    const Box2d copy(box);
    EXPECT_TRUE(copy == box);
}

TEST(Box2d, EqualityLooksAtEverySide) {
    const Box2d box(1, 2, 3, 4);
    EXPECT_TRUE(box != Box2d(0, 2, 3, 4));
    EXPECT_TRUE(box != Box2d(1, 0, 3, 4));
    EXPECT_TRUE(box != Box2d(1, 2, 0, 4));
    EXPECT_TRUE(box != Box2d(1, 2, 3, 0));
    EXPECT_FALSE(box != Box2d(1, 2, 3, 4));
}

TEST(Box2d, NormalisingSwapsEachReversedAxis) {
    Box2d both(4, 3, 2, 1);
    both.Normalize();
    EXPECT_EQ(both, Box2d(2, 1, 4, 3));
    Box2d onlyX(4, 1, 2, 3);
    onlyX.Normalize();
    EXPECT_EQ(onlyX, Box2d(2, 1, 4, 3));
    Box2d onlyY(2, 3, 4, 1);
    onlyY.Normalize();
    EXPECT_EQ(onlyY, Box2d(2, 1, 4, 3));
    Box2d none(2, 1, 4, 3);
    none.Normalize();
    EXPECT_EQ(none, Box2d(2, 1, 4, 3));
}

TEST(Box2d, NormalisedEmptyBoxIsTheWholePlane) {
    Box2d box;
    box.Normalize();
    EXPECT_EQ(box, Box2d(-LARGEST, -LARGEST, LARGEST, LARGEST));
}

TEST(Box2d, ReversedOnOneAxisIsEmpty) {
    EXPECT_TRUE(Box2d(1, 0, 0, 1).IsEmpty());
    EXPECT_TRUE(Box2d(0, 1, 1, 0).IsEmpty());
    EXPECT_FALSE(Box2d(0, 0, 1, 1).IsEmpty());
}

TEST(Box2d, PointAndLineAreNotEmptyButHaveNoArea) {
    for (const Box2d& box : {Box2d(1, 1, 1, 1), Box2d(0, 1, 5, 1), Box2d(1, 0, 1, 5)}) {
        EXPECT_FALSE(box.IsEmpty());
        EXPECT_FALSE(box.HasArea());
        EXPECT_EQ(box.GetArea(), 0.0);
    }
    EXPECT_TRUE(Box2d(0, 0, 5e-324, 5e-324).HasArea());
}

TEST(Box2d, ContainsItsBoundary) {
    const Box2d box(0, 0, 2, 1);
    EXPECT_TRUE(box.Contains(Vec2d(1, 0.5)));
    for (const Vec2d& p : {Vec2d(0, 0), Vec2d(2, 0), Vec2d(2, 1), Vec2d(0, 1), Vec2d(1, 0)}) {
        EXPECT_TRUE(box.Contains(p));
    }
    for (const Vec2d& p : {Vec2d(-5e-324, 0), Vec2d(3, 0), Vec2d(0, -1), Vec2d(0, 2)}) {
        EXPECT_FALSE(box.Contains(p));
    }
    EXPECT_FALSE(box.Contains(Vec2d(NOT_A_NUMBER, 0)));
    EXPECT_FALSE(Box2d().Contains(Vec2d(0, 0)));
}

TEST(Box2d, ContainsBoxesThatShareAnEdge) {
    const Box2d box(0, 0, 4, 4);
    EXPECT_TRUE(box.Contains(box));
    EXPECT_TRUE(box.Contains(Box2d(0, 1, 2, 3)));
    EXPECT_TRUE(box.Contains(Box2d(4, 4, 4, 4)));
    EXPECT_FALSE(box.Contains(Box2d(-1, 0, 2, 2)));
    EXPECT_FALSE(box.Contains(Box2d(0, -1, 2, 2)));
    EXPECT_FALSE(box.Contains(Box2d(0, 0, 5, 2)));
    EXPECT_FALSE(box.Contains(Box2d(0, 0, 2, 5)));
}

TEST(Box2d, CornersComeInRingOrder) {
    Vec2d corners[4];
    Box2d(1, 2, 5, 7).GetCorners(corners);
    for (int i = 0; i < 4; ++i) {
        const Vec2d& a = corners[i];
        const Vec2d& b = corners[(i + 1) % 4];
        EXPECT_TRUE((a.x == b.x) != (a.y == b.y)) << "corner " << i << " is not beside the next";
        EXPECT_TRUE(a.x == 1 || a.x == 5);
        EXPECT_TRUE(a.y == 2 || a.y == 7);
    }
    EXPECT_NE(corners[0], corners[2]);
    EXPECT_NE(corners[1], corners[3]);
}

TEST(Box2d, CentreOfEnormousBoxDoesNotOverflow) {
    EXPECT_EQ(Box2d(1, 2, 5, 8).Center(), Vec2d(3, 5));
    EXPECT_EQ(Box2d(LARGEST, LARGEST, LARGEST, LARGEST).Center(), Vec2d(LARGEST, LARGEST));
    EXPECT_EQ(Box2d(-LARGEST, 0, LARGEST, 0).Center(), Vec2d(0, 0));
}

TEST(Box2d, EmptyBoxExtendedByAPointIsThatPoint) {
    Box2d box;
    box.ExtendBy(Vec2d(3, -4));
    EXPECT_EQ(box, Box2d(3, -4, 3, -4));
    box.ExtendBy(Vec2d(-LARGEST, LARGEST));
    EXPECT_EQ(box, Box2d(-LARGEST, -4, 3, LARGEST));
}

TEST(Box2d, ExtendingMovesOnlyTheSidesThatMust) {
    Box2d box(0, 0, 2, 2);
    box.ExtendBy(Vec2d(1, 1));
    EXPECT_EQ(box, Box2d(0, 0, 2, 2));
    box.ExtendBy(Vec2d(-1, 1));
    EXPECT_EQ(box, Box2d(-1, 0, 2, 2));
    box.ExtendBy(Vec2d(3, -2));
    EXPECT_EQ(box, Box2d(-1, -2, 3, 2));
    box.ExtendBy(Vec2d(0, 5));
    EXPECT_EQ(box, Box2d(-1, -2, 3, 5));
}

TEST(Box2d, CoordinateThatIsNotANumberDoesNotExtend) {
    Box2d box(0, 0, 2, 2);
    box.ExtendBy(Vec2d(NOT_A_NUMBER, 3));
    EXPECT_EQ(box, Box2d(0, 0, 2, 3));
    box |= Box2d(NOT_A_NUMBER, -1, NOT_A_NUMBER, 1);
    EXPECT_EQ(box, Box2d(0, -1, 2, 3));
}

TEST(Box2d, IntersectionIsTheCommonPart) {
    Box2d box(0, 0, 4, 4);
    box.Intersect(Box2d(2, -1, 6, 3));
    EXPECT_EQ(box, Box2d(2, 0, 4, 3));
    box.Intersect(Box2d(4, 0, 9, 9));
    EXPECT_EQ(box, Box2d(4, 0, 4, 3)) << "touching boxes share a line";
    EXPECT_FALSE(box.IsEmpty());
}

TEST(Box2d, IntersectionOfDisjointBoxesIsEmpty) {
    Box2d beside(0, 0, 1, 1);
    beside.Intersect(Box2d(2, 0, 3, 1));
    EXPECT_TRUE(beside.IsEmpty());
    Box2d above(0, 0, 1, 1);
    above.Intersect(Box2d(0, 2, 1, 3));
    EXPECT_TRUE(above.IsEmpty());
    Box2d withEmpty(0, 0, 1, 1);
    withEmpty.Intersect(Box2d());
    EXPECT_TRUE(withEmpty.IsEmpty());
}

TEST(Box2d, AreaIsWidthTimesHeight) {
    EXPECT_EQ(Box2d(-1, 2, 4, 5).GetArea(), 15.0);
}

TEST(Box2d, UnionHoldsBoth) {
    Box2d box(0, 0, 1, 1);
    Box2d& returned = box |= Box2d(3, -2, 4, 0.5);
    EXPECT_EQ(&returned, &box);
    EXPECT_EQ(box, Box2d(0, -2, 4, 1));
    box |= Box2d();
    EXPECT_EQ(box, Box2d(0, -2, 4, 1)) << "the empty box adds nothing";
    Box2d empty;
    empty |= Box2d(1, 2, 3, 4);
    EXPECT_EQ(empty, Box2d(1, 2, 3, 4));
    const Box2d& same = empty;
    empty |= same;
    EXPECT_EQ(empty, Box2d(1, 2, 3, 4));
}

} // namespace
} // namespace kit
