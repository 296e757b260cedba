// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Mat4d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <random>

namespace kit {
namespace {

static_assert(sizeof(Mat4d) == 16 * sizeof(double) && offsetof(Mat4d, m) == 0);

Mat4d FromRows(const Vec4d& a, const Vec4d& b, const Vec4d& c, const Vec4d& d) {
    Mat4d matrix;
    matrix.SetRow(0, a);
    matrix.SetRow(1, b);
    matrix.SetRow(2, c);
    matrix.SetRow(3, d);
    return matrix;
}

// 1 to 16 in reading order: regular to look at, and of rank 2.
Mat4d Counting() {
    return FromRows({1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16});
}

// A turn of a quarter around z, then twice the size, then a move by (10, 20, 30).
Mat4d TurnScaleMove() {
    return FromRows({0, 2, 0, 0}, {-2, 0, 0, 0}, {0, 0, 2, 0}, {10, 20, 30, 1});
}

void ExpectIdentity(const Mat4d& a, double tolerance) {
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            EXPECT_NEAR(a(row, column), row == column ? 1.0 : 0.0, tolerance);
        }
    }
}

TEST(Mat4d, DefaultIsTheIdentity) {
    ExpectIdentity(Mat4d(), 0);
    EXPECT_TRUE(Mat4d() == Mat4d::IDENTITY);
    EXPECT_EQ(Vec3d(1, 2, 3) * Mat4d::IDENTITY, Vec3d(1, 2, 3));
}

TEST(Mat4d, RowsAreSetOneByOne) {
    const Mat4d a = Counting();
    double expected = 1;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            EXPECT_EQ(a.m[row][column], expected);
            EXPECT_EQ(a(row, column), expected++);
        }
    }
}

TEST(Mat4d, ElementsAreWrittenThroughTheCall) {
    Mat4d a;
    a(3, 1) = 7;
    EXPECT_EQ(a.m[3][1], 7);
    EXPECT_TRUE(a != Mat4d::IDENTITY);
}

TEST(Mat4d, EqualityLooksAtEveryElement) {
    for (std::size_t i = 0; i < 16; ++i) {
        Mat4d a;
        a(i / 4, i % 4) += 1;
        EXPECT_TRUE(a != Mat4d()) << i;
        EXPECT_FALSE(a == Mat4d()) << i;
    }
}

TEST(Mat4d, PointsAreRowVectorsOnTheLeft) {
    EXPECT_EQ(Vec3d(1, 0, 0) * TurnScaleMove(), Vec3d(10, 22, 30));
    EXPECT_EQ(Vec3d(1, 2, 3) * Counting(),
              Vec3d(1 + 10 + 27 + 13, 2 + 12 + 30 + 14, 3 + 14 + 33 + 15));
}

TEST(Mat4d, DirectionsAreNotMoved) {
    EXPECT_EQ(TurnScaleMove().DirMult(Vec3d(1, 0, 0)), Vec3d(0, 2, 0));
    EXPECT_EQ(Counting().DirMult(Vec3d(1, 2, 3)), Vec3d(38, 44, 50));
}

TEST(Mat4d, TransposeSwapsRowsAndColumns) {
    const Mat4d t = Counting().Transpose();
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            EXPECT_EQ(t(row, column), Counting()(column, row));
        }
    }
    EXPECT_TRUE(t.Transpose() == Counting());
}

TEST(Mat4d, ProductAppliesTheLeftMatrixFirst) {
    Mat4d move;
    move.SetRow(3, {1, 2, 3, 1});
    const Vec3d p(4, 5, 6);
    EXPECT_EQ(p * (move * TurnScaleMove()), (p * move) * TurnScaleMove());
    EXPECT_NE(p * (move * TurnScaleMove()), p * (TurnScaleMove() * move));
    EXPECT_TRUE(Counting() * Mat4d::IDENTITY == Counting());
}

TEST(Mat4d, InverseUndoesTheTransformation) {
    Mat4d inverse;
    ASSERT_TRUE(TurnScaleMove().Inverse(inverse));
    EXPECT_EQ((Vec3d(7, -8, 9) * TurnScaleMove()) * inverse, Vec3d(7, -8, 9));
    ExpectIdentity(TurnScaleMove() * inverse, 0);
    ASSERT_TRUE(Mat4d::IDENTITY.Inverse(inverse));
    ExpectIdentity(inverse, 0);
}

TEST(Mat4d, InverseMayReplaceTheMatrix) {
    Mat4d a = TurnScaleMove();
    Mat4d expected;
    ASSERT_TRUE(a.Inverse(expected));
    ASSERT_TRUE(a.Inverse(a));
    EXPECT_TRUE(a == expected);
}

TEST(Mat4d, InverseNeedsPivoting) {
    const Mat4d swap = FromRows({0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}, {1, 0, 0, 0});
    Mat4d inverse;
    ASSERT_TRUE(swap.Inverse(inverse));
    EXPECT_TRUE(inverse == swap.Transpose());
}

TEST(Mat4d, SingularMatrixHasNoInverse) {
    Mat4d zeroRow;
    zeroRow.SetRow(2, {0, 0, 0, 0});
    const Mat4d twins = FromRows({1, 2, 3, 4}, {0, 1, 0, 0}, {1, 2, 3, 4}, {0, 0, 0, 1});
    const Mat4d thirds =
        FromRows({0.1, 0.2, 0.3, 0}, {0.2, 0.4, 0.6, 0}, {0, 0, 1, 0}, {0, 0, 0, 1});
    const Mat4d flat = FromRows({1, 2, 3, 0}, {4, 5, 6, 0}, {7, 8, 9, 0}, {0, 0, 0, 1});
    for (const Mat4d& singular : {zeroRow, zeroRow.Transpose(), twins, thirds, flat, Counting()}) {
        Mat4d result = TurnScaleMove();
        EXPECT_FALSE(singular.Inverse(result));
        EXPECT_TRUE(result == TurnScaleMove()) << "the result is left as it was";
    }
}

// The last row is a whole-number combination of the others, so the determinant is exactly zero
// though elimination has to divide by numbers without an exact reciprocal.
TEST(Mat4d, SingularWholeNumberMatricesAreRecognised) {
    std::mt19937 engine(7);
    std::uniform_int_distribution<int> entry(-999, 999);
    for (int i = 0; i < 2000; ++i) {
        Mat4d a;
        for (std::size_t column = 0; column < 4; ++column) {
            for (std::size_t row = 0; row < 3; ++row) {
                a(row, column) = entry(engine);
            }
            a(3, column) = 7 * a(0, column) - 13 * a(1, column) + a(2, column);
        }
        Mat4d inverse;
        ASSERT_FALSE(a.Inverse(inverse)) << "matrix " << i << " of seed 7";
        a(3, 3) += 0x1p-30;
        ASSERT_TRUE(a.Inverse(inverse)) << "matrix " << i << " of seed 7";
    }
}

TEST(Mat4d, InverseOfRandomMatricesIsAccurate) {
    std::mt19937 engine(11);
    std::uniform_real_distribution<double> entry(-1, 1);
    for (int i = 0; i < 2000; ++i) {
        Mat4d a;
        double largest = 0;
        for (std::size_t k = 0; k < 16; ++k) {
            a(k / 4, k % 4) = entry(engine);
        }
        Mat4d inverse;
        ASSERT_TRUE(a.Inverse(inverse));
        for (std::size_t k = 0; k < 16; ++k) {
            largest = std::fmax(largest, std::fabs(inverse(k / 4, k % 4)));
        }
        // Each product is wrong by the rounding of the inverse and of four products and sums.
        ExpectIdentity(a * inverse, 4 * 8 * 0x1p-53 * largest);
    }
}

TEST(Mat4d, ScaleDoesNotMakeAMatrixSingular) {
    for (const double scale : {1e-40, 1e-300, 1e40, 1e300}) {
        const Mat4d a =
            FromRows({scale, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1 / scale, 0}, {1, 2, 3, 1});
        Mat4d inverse;
        ASSERT_TRUE(a.Inverse(inverse));
        EXPECT_DOUBLE_EQ(inverse(0, 0), 1 / scale);
        EXPECT_DOUBLE_EQ(inverse(2, 2), scale);
        EXPECT_DOUBLE_EQ(inverse(3, 0), -1 / scale);
    }
}

TEST(Mat4d, InverseBeyondTheRangeOfDoublesIsNone) {
    Mat4d a;
    a(0, 0) = std::numeric_limits<double>::denorm_min();
    Mat4d inverse;
    EXPECT_FALSE(a.Inverse(inverse));
}

TEST(Mat4d, MatrixThatIsNotFiniteHasNoInverse) {
    for (const double bad :
         {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        for (std::size_t i = 0; i < 16; ++i) {
            Mat4d a;
            a(i / 4, i % 4) = bad;
            Mat4d inverse;
            EXPECT_FALSE(a.Inverse(inverse));
            EXPECT_TRUE(inverse == Mat4d::IDENTITY);
        }
    }
}

} // namespace
} // namespace kit
