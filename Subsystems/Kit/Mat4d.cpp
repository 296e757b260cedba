// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Mat4d.h"

#include <algorithm>
#include <cmath>

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

std::size_t PivotRow(const Mat4d& a, std::size_t column) {
    std::size_t best = column;
    for (std::size_t row = column + 1; row < 4; ++row) {
        if (std::fabs(a.m[row][column]) > std::fabs(a.m[best][column])) {
            best = row;
        }
    }
    return best;
}

void SubtractMultiple(double (&row)[4], const double (&source)[4], double factor) {
    for (std::size_t k = 0; k < 4; ++k) {
        row[k] -= factor * source[k];
    }
}

void Divide(double (&row)[4], double divisor) {
    for (double& value : row) {
        value /= divisor;
    }
}

} // namespace

// Gauss-Jordan elimination with partial pivoting: every row operation that turns the copy into
// the identity turns the identity into the inverse.
bool Mat4d::Inverse(Mat4d& result) const {
    Mat4d left = *this;
    Mat4d right;
    for (std::size_t column = 0; column < 4; ++column) {
        const std::size_t pivot = PivotRow(left, column);
        const double value = left.m[pivot][column];
        if (value == 0.0 || !std::isfinite(value)) {
            return false;
        }
        std::swap(left.m[pivot], left.m[column]);
        std::swap(right.m[pivot], right.m[column]);
        Divide(left.m[column], value);
        Divide(right.m[column], value);
        for (std::size_t row = 0; row < 4; ++row) {
            if (row != column) {
                const double factor = left.m[row][column];
                SubtractMultiple(left.m[row], left.m[column], factor);
                SubtractMultiple(right.m[row], right.m[column], factor);
            }
        }
    }
    result = right;
    return true;
}

Vec3d operator*(const Vec3d& p, const Mat4d& matrix) {
    const auto& m = matrix.m;
    return {p.x * m[0][0] + p.y * m[1][0] + p.z * m[2][0] + m[3][0],
            p.x * m[0][1] + p.y * m[1][1] + p.z * m[2][1] + m[3][1],
            p.x * m[0][2] + p.y * m[1][2] + p.z * m[2][2] + m[3][2]};
}

} // namespace kit
