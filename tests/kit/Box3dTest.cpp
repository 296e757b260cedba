// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Box3d.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>

namespace kit {
namespace {

constexpr double LARGEST = 1.7976931348623157e308;
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

static_assert(offsetof(Box3d, minCorner) == 0 && offsetof(Box3d, maxCorner) == sizeof(Vec3d));

TEST(Box3d, DefaultIsTheEmptyBox) {
    const Box3d box;
    EXPECT_EQ(box.minCorner, Vec3d(LARGEST, LARGEST, LARGEST));
    EXPECT_EQ(box.maxCorner, Vec3d(-LARGEST, -LARGEST, -LARGEST));
    EXPECT_TRUE(box.IsDegenerate());
}

TEST(Box3d, CopyEqualsTheOriginal) {
    const Box3d box(Vec3d(1, 2, 3), Vec3d(4, 5, 6));
    const Box3d copy(box);
    EXPECT_TRUE(copy == box);
    EXPECT_TRUE(copy != Box3d(Vec3d(1, 2, 3), Vec3d(4, 5, 7)));
    EXPECT_TRUE(copy != Box3d(Vec3d(0, 2, 3), Vec3d(4, 5, 6)));
}

TEST(Box3d, EmptyBoxExtendedByAPointIsThatPoint) {
    Box3d box;
    box.ExtendBy(Vec3d(1, -2, 3));
    EXPECT_EQ(box, Box3d(Vec3d(1, -2, 3), Vec3d(1, -2, 3)));
}

TEST(Box3d, ExtendingMovesOnlyTheSidesThatMust) {
    Box3d box(Vec3d(0, 0, 0), Vec3d(1, 1, 1));
    box.ExtendBy(Vec3d(0.5, 2, -1));
    EXPECT_EQ(box, Box3d(Vec3d(0, 0, -1), Vec3d(1, 2, 1)));
    box.ExtendBy(Vec3d(NOT_A_NUMBER, NOT_A_NUMBER, 4));
    EXPECT_EQ(box, Box3d(Vec3d(0, 0, -1), Vec3d(1, 2, 4)));
}

TEST(Box3d, CentreOfEnormousBoxDoesNotOverflow) {
    EXPECT_EQ(Box3d(Vec3d(0, 2, 4), Vec3d(2, 6, 10)).Center(), Vec3d(1, 4, 7));
    const Vec3d far(LARGEST, -LARGEST, LARGEST);
    EXPECT_EQ(Box3d(far, far).Center(), far);
}

TEST(Box3d, BoxWithoutVolumeIsDegenerate) {
    EXPECT_FALSE(Box3d(Vec3d(0, 0, 0), Vec3d(1, 1, 1)).IsDegenerate());
    EXPECT_TRUE(Box3d(Vec3d(0, 0, 0), Vec3d(0, 1, 1)).IsDegenerate());
    EXPECT_TRUE(Box3d(Vec3d(0, 0, 0), Vec3d(1, 0, 1)).IsDegenerate());
    EXPECT_TRUE(Box3d(Vec3d(0, 0, 0), Vec3d(1, 1, 0)).IsDegenerate());
    EXPECT_TRUE(Box3d(Vec3d(0, 0, 0), Vec3d(1, 1, -1)).IsDegenerate());
    EXPECT_TRUE(Box3d(Vec3d(0, 0, 0), Vec3d(1, 1, NOT_A_NUMBER)).IsDegenerate());
}

} // namespace
} // namespace kit
