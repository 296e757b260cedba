// SPDX-License-Identifier: MIT
#pragma once

#include "fuzz/support/ByteSource.h"

#include "geometry/Foundation.h"

#include <vector>

namespace geom::fuzz {

/// How bytes become points. The grids are small, so that vertices, edges and crossings coincide
/// by themselves; a fuzzer would never find equal doubles.
enum class CoordinateKind {
    SmallGrid,      ///< whole numbers from 0 to 7; one byte makes a point
    FineGrid,       ///< 0 to 255 / 32
    Fractions,      ///< 0 to 65535 / 65536: mostly in general position
    NearCoinciding, ///< a grid between 1/2 and 1, moved by one or two units in the last place
    FarGrid,        ///< a grid at a million
    SignedZeros,    ///< -2, -1, both zeros, 1, 2
    Scaled,         ///< a small grid times some power of two
    Bits            ///< any double, values that are not finite among them
};

constexpr int COORDINATE_KINDS = 8;

/// Makes points of one kind, which the first byte chooses.
class Coordinates {
public:
    explicit Coordinates(ByteSource& bytes);
    Coordinates(ByteSource& bytes, CoordinateKind kind);

    CoordinateKind Kind() const { return m_kind; }
    Vec2d Next();

private:
    double NextOrdinate();

    ByteSource& m_bytes;
    CoordinateKind m_kind;
    double m_scale = 1;
};

using Points = std::vector<Vec2d>;

/// A ring or a line of at most `most` points.
Points TakePoints(ByteSource& bytes, Coordinates& coordinates, int most);

/// At most `most` rings of at most `mostPoints` points each.
std::vector<Points> TakeRings(ByteSource& bytes, Coordinates& coordinates, int most,
                              int mostPoints);

bool IsFinite(const Points& points);
bool IsFinite(const std::vector<Points>& rings);

/// The same numbers, zeros of different signs kept apart; values that are no numbers are alike.
bool SameBits(double a, double b);
bool SameBits(const Vec2d& a, const Vec2d& b);
bool SameBits(const Points& a, const Points& b);

} // namespace geom::fuzz
