// SPDX-License-Identifier: MIT
#include "fuzz/support/Coordinates.h"

#include "tests/support/Floats.h"

#include <algorithm>
#include <cmath>

namespace geom::fuzz {

namespace {

double ScaleOf(ByteSource& bytes, CoordinateKind kind) {
    return kind == CoordinateKind::Scaled ? std::ldexp(1.0, bytes.Between(-120, 120)) : 1.0;
}

} // namespace

Coordinates::Coordinates(ByteSource& bytes)
    : Coordinates(bytes, static_cast<CoordinateKind>(bytes.Below(COORDINATE_KINDS))) {}

Coordinates::Coordinates(ByteSource& bytes, CoordinateKind kind)
    : m_bytes(bytes), m_kind(kind), m_scale(ScaleOf(bytes, kind)) {}

Vec2d Coordinates::Next() {
    if (m_kind == CoordinateKind::SmallGrid || m_kind == CoordinateKind::Scaled) {
        const int both = m_bytes.Byte();
        return {m_scale * (both & 7), m_scale * ((both >> 4) & 7)};
    }
    const double x = NextOrdinate();
    return {x, NextOrdinate()};
}

double Coordinates::NextOrdinate() {
    switch (m_kind) {
    case CoordinateKind::FineGrid: return m_bytes.Byte() / 32.0;
    case CoordinateKind::Fractions: return m_bytes.Word() / 65536.0;
    case CoordinateKind::NearCoinciding: {
        const int byte = m_bytes.Byte();
        return (16 + byte % 16) / 32.0 + (byte / 16 % 5 - 2) * 0x1p-53;
    }
    case CoordinateKind::FarGrid: return 1e6 + m_bytes.Byte() / 16.0;
    case CoordinateKind::SignedZeros: {
        constexpr double VALUES[] = {0.0, -0.0, 1, -1, 2, -2};
        return VALUES[m_bytes.Below(6)];
    }
    default: return m_bytes.Bits();
    }
}

Points TakePoints(ByteSource& bytes, Coordinates& coordinates, int most) {
    Points points;
    for (int n = bytes.Between(0, most); n > 0; --n) {
        points.push_back(coordinates.Next());
    }
    return points;
}

std::vector<Points> TakeRings(ByteSource& bytes, Coordinates& coordinates, int most,
                              int mostPoints) {
    std::vector<Points> rings;
    for (int n = bytes.Between(0, most); n > 0; --n) {
        rings.push_back(TakePoints(bytes, coordinates, mostPoints));
    }
    return rings;
}

bool IsFinite(const Points& points) {
    return std::all_of(points.begin(), points.end(),
                       [](const Vec2d& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

bool IsFinite(const std::vector<Points>& rings) {
    return std::all_of(rings.begin(), rings.end(),
                       [](const Points& ring) { return IsFinite(ring); });
}

bool SameBits(double a, double b) {
    return test::SameBits(a, b);
}

bool SameBits(const Vec2d& a, const Vec2d& b) {
    return test::SameBits(a, b);
}

bool SameBits(const Points& a, const Points& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Vec2d& p, const Vec2d& q) { return SameBits(p, q); });
}

} // namespace geom::fuzz
