// SPDX-License-Identifier: MIT
#include "geometry/LineSegment3.h"

#include "tests/support/Floats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

namespace geom {
namespace {

using namespace test;

static_assert(std::is_trivially_copyable_v<LineSegment3>);
static_assert(sizeof(LineSegment3) == 6 * sizeof(double));

TEST(LineSegment3, DefaultIsAllZero) {
    const LineSegment3 s;
    EXPECT_EQ(s.A(), Vec3d(0, 0, 0));
    EXPECT_EQ(s.B(), Vec3d(0, 0, 0));
}

TEST(LineSegment3, ConstructorsKeepTheOrderOfTheEnds) {
    const LineSegment3 fromPoints(Vec3d(1, 2, 3), Vec3d(4, 5, 6));
    const LineSegment3 fromNumbers(1, 2, 3, 4, 5, 6);
    EXPECT_EQ(fromPoints.A(), Vec3d(1, 2, 3));
    EXPECT_EQ(fromPoints.B(), Vec3d(4, 5, 6));
    EXPECT_EQ(fromNumbers.A(), Vec3d(1, 2, 3));
    EXPECT_EQ(fromNumbers.B(), Vec3d(4, 5, 6));
}

TEST(LineSegment3, SettersAndCopies) {
    LineSegment3 s(1, 2, 3, 4, 5, 6);
    const LineSegment3 copy(s);
    LineSegment3 assigned;
    assigned = s;
    s.A(Vec3d(7, 8, 9));
    s.B(s.A());
    EXPECT_EQ(s.A(), Vec3d(7, 8, 9));
    EXPECT_EQ(s.B(), Vec3d(7, 8, 9));
    EXPECT_EQ(copy.A(), Vec3d(1, 2, 3));
    EXPECT_EQ(assigned.B(), Vec3d(4, 5, 6));
}

TEST(LineSegment3, EqualsItsReverse) {
    const Vec3d a(1, 2, 3), b(4, 5, 6);
    EXPECT_TRUE(LineSegment3(a, b) == LineSegment3(a, b));
    EXPECT_TRUE(LineSegment3(a, b) == LineSegment3(b, a));
    EXPECT_FALSE(LineSegment3(a, b) != LineSegment3(b, a));
}

TEST(LineSegment3, DiffersInEachCoordinate) {
    const LineSegment3 s(1, 2, 3, 4, 5, 6);
    for (const LineSegment3& other :
         {LineSegment3(9, 2, 3, 4, 5, 6), LineSegment3(1, 9, 3, 4, 5, 6),
          LineSegment3(1, 2, 9, 4, 5, 6), LineSegment3(1, 2, 3, 9, 5, 6),
          LineSegment3(1, 2, 3, 4, 9, 6), LineSegment3(1, 2, 3, 4, 5, 9),
          LineSegment3(1, 2, 3, 1, 2, 3), LineSegment3(4, 5, 6, 4, 5, 6)}) {
        EXPECT_FALSE(s == other);
        EXPECT_TRUE(s != other);
    }
    const LineSegment3 noNumber(NOT_A_NUMBER, 0, 0, 0, 0, 0);
    EXPECT_FALSE(noNumber == noNumber);
    EXPECT_TRUE(noNumber != noNumber);
}

TEST(LineSegment3, TranslationMovesBothEnds) {
    const LineSegment3 s(1, 2, 3, 4, 5, 6);
    const Vec3d v(10, 20, 30);
    EXPECT_EQ((s + v).A(), Vec3d(11, 22, 33));
    EXPECT_EQ((s + v).B(), Vec3d(14, 25, 36));
    EXPECT_EQ((s - v).A(), Vec3d(-9, -18, -27));
    EXPECT_EQ((s - v).B(), Vec3d(-6, -15, -24));
    LineSegment3 inPlace = s;
    EXPECT_EQ(&(inPlace += v), &inPlace);
    EXPECT_EQ(inPlace.B(), Vec3d(14, 25, 36));
    EXPECT_EQ(&(inPlace -= v), &inPlace);
    EXPECT_EQ(inPlace.A(), Vec3d(1, 2, 3));
}

TEST(LineSegment3, TranslationByAnOwnEndReadsItFirst) {
    LineSegment3 s(1, 2, 3, 4, 5, 6);
    s += s.A();
    EXPECT_EQ(s.A(), Vec3d(2, 4, 6));
    EXPECT_EQ(s.B(), Vec3d(5, 7, 9));
    s -= s.A();
    EXPECT_EQ(s.A(), Vec3d(0, 0, 0));
    EXPECT_EQ(s.B(), Vec3d(3, 3, 3));
}

TEST(LineSegment3, Length) {
    EXPECT_EQ(LineSegment3(1, 1, 1, 3, 4, 7).Length(), 7.0);
    EXPECT_EQ(LineSegment3(1, 1, 1, 1, 1, 1).Length(), 0.0);
    EXPECT_EQ(LineSegment3(-LARGEST, 0, 0, LARGEST, 0, 0).Length(), INF);
    EXPECT_TRUE(std::isnan(LineSegment3(NOT_A_NUMBER, 0, 0, 1, 1, 1).Length()));
}

} // namespace
} // namespace geom
