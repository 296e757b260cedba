// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Mat4d.h"

#include "Subsystems/Kit/DoubleDouble.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace kit {

const Mat4d Mat4d::IDENTITY;

Mat4d::Mat4d() : m{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}} {}

bool Mat4d::operator==(const Mat4d& o) const {
    return std::equal(&m[0][0], &m[0][0] + 16, &o.m[0][0]);
}

Mat4d Mat4d::operator*(const Mat4d& o) const {
    Mat4d product;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (std::size_t k = 0; k < 4; ++k) {
                sum += m[row][k] * o.m[k][column];
            }
            product.m[row][column] = sum;
        }
    }
    return product;
}

void Mat4d::SetRow(std::size_t row, const Vec4d& values) {
    m[row][0] = values.x;
    m[row][1] = values.y;
    m[row][2] = values.z;
    m[row][3] = values.w;
}

Vec3d Mat4d::DirMult(const Vec3d& d) const {
    return {d.x * m[0][0] + d.y * m[1][0] + d.z * m[2][0],
            d.x * m[0][1] + d.y * m[1][1] + d.z * m[2][1],
            d.x * m[0][2] + d.y * m[1][2] + d.z * m[2][2]};
}

Mat4d Mat4d::Transpose() const {
    Mat4d transposed;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            transposed.m[column][row] = m[row][column];
        }
    }
    return transposed;
}

namespace {

// A pivot of a balanced matrix below this is what rounding leaves of zero: the elimination
// carries about 106 bits and loses a few of them.
constexpr double VANISHING_PIVOT = 0x1p-96;

// The powers of two that bring the largest value of every row and column near 1, so that a
// small pivot means a singular matrix and not a small scale.
struct Balance {
    std::array<int, 4> row{};
    std::array<int, 4> column{};
};

// The matrix beside the identity, on its way to the identity beside the inverse.
struct Augmented {
    std::array<std::array<doubledouble, 8>, 4> rows;
};

bool IsFinite(const Mat4d& a) {
    return std::all_of(&a.m[0][0], &a.m[0][0] + 16, [](double v) { return std::isfinite(v); });
}

// Scales the matrix; false when a row or a column is zero.
bool BalanceRowsAndColumns(Mat4d& a, Balance& balance) {
    for (const bool rows : {true, false}) {
        for (std::size_t i = 0; i < 4; ++i) {
            double largest = 0.0;
            for (std::size_t k = 0; k < 4; ++k) {
                largest = std::max(largest, std::fabs(rows ? a.m[i][k] : a.m[k][i]));
            }
            if (largest == 0.0) {
                return false;
            }
            const int shift = -std::ilogb(largest);
            (rows ? balance.row : balance.column)[i] = shift;
            for (std::size_t k = 0; k < 4; ++k) {
                double& value = rows ? a.m[i][k] : a.m[k][i];
                value = std::scalbn(value, shift);
            }
        }
    }
    return true;
}

Augmented BesideIdentity(const Mat4d& a) {
    Augmented augmented;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            augmented.rows[row][column] = a.m[row][column];
            augmented.rows[row][4 + column] = row == column ? 1.0 : 0.0;
        }
    }
    return augmented;
}

std::size_t PivotRow(const Augmented& a, std::size_t column) {
    std::size_t best = column;
    for (std::size_t row = column + 1; row < 4; ++row) {
        if (std::fabs(a.rows[row][column].high) > std::fabs(a.rows[best][column].high)) {
            best = row;
        }
    }
    return best;
}

// Makes a column of the left half that of the identity; false when no pivot is left.
bool Eliminate(Augmented& a, std::size_t column) {
    std::swap(a.rows[PivotRow(a, column)], a.rows[column]);
    auto& source = a.rows[column];
    const doubledouble pivot = source[column];
    if (!(std::fabs(pivot.high) > VANISHING_PIVOT)) {
        return false;
    }
    for (doubledouble& value : source) {
        value = value / pivot;
    }
    for (std::size_t row = 0; row < 4; ++row) {
        const doubledouble factor = a.rows[row][column];
        for (std::size_t k = 0; row != column && k < 8; ++k) {
            a.rows[row][k] = a.rows[row][k] - factor * source[k];
        }
    }
    return true;
}

} // namespace

// Gauss-Jordan elimination with partial pivoting in extended precision, on the balanced matrix:
// with R and C the scales of rows and columns, the inverse is C (R A C)^-1 R.
bool Mat4d::Inverse(Mat4d& result) const {
    Mat4d balanced = *this;
    Balance balance;
    if (!IsFinite(*this) || !BalanceRowsAndColumns(balanced, balance)) {
        return false;
    }
    Augmented a = BesideIdentity(balanced);
    for (std::size_t column = 0; column < 4; ++column) {
        if (!Eliminate(a, column)) {
            return false;
        }
    }
    Mat4d inverse;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            inverse.m[row][column] = std::scalbn(a.rows[row][4 + column].high,
                                                 balance.column[row] + balance.row[column]);
        }
    }
    if (!IsFinite(inverse)) {
        return false;
    }
    result = inverse;
    return true;
}

Vec3d operator*(const Vec3d& p, const Mat4d& matrix) {
    const auto& m = matrix.m;
    return {p.x * m[0][0] + p.y * m[1][0] + p.z * m[2][0] + m[3][0],
            p.x * m[0][1] + p.y * m[1][1] + p.z * m[2][1] + m[3][1],
            p.x * m[0][2] + p.y * m[1][2] + p.z * m[2][2] + m[3][2]};
}

} // namespace kit
