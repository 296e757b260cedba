// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"
#include "Subsystems/Kit/Vec3d.h"
#include "Subsystems/Kit/Vec4d.h"

#include <cstddef>

namespace kit {

/// A 4 by 4 matrix addressed by rows. Points are row vectors multiplied on its left, so a
/// translation stands in row 3.
struct Mat4d {
    double m[4][4];

    KIT_API static const Mat4d IDENTITY;

    /// The identity.
    KIT_API Mat4d();

    double& operator()(std::size_t row, std::size_t column) { return m[row][column]; }
    double operator()(std::size_t row, std::size_t column) const { return m[row][column]; }

    /// Exact comparison of all sixteen values.
    KIT_API bool operator==(const Mat4d& o) const;
    bool operator!=(const Mat4d& o) const { return !(*this == o); }
    /// The matrix that applies this one first and then the other.
    KIT_API Mat4d operator*(const Mat4d& o) const;

    /// Sets row 0 to 3.
    KIT_API void SetRow(std::size_t row, const Vec4d& values);
    /// Transforms a direction: the upper-left 3 by 3 part only, no translation.
    KIT_API Vec3d DirMult(const Vec3d& direction) const;
    KIT_API Mat4d Transpose() const;
    /// Writes the inverse, each value within about a unit in its last place, and returns true.
    /// Returns false, and leaves the result as it was, for a matrix that is singular or not
    /// finite or whose inverse is beyond the range of doubles. The result may be this matrix.
    KIT_API bool Inverse(Mat4d& result) const;
};

/// Transforms a point: the row vector (x, y, z, 1) times the matrix, without a division by
/// the weight.
KIT_API Vec3d operator*(const Vec3d& point, const Mat4d& matrix);

} // namespace kit
