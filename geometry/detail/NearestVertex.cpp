// SPDX-License-Identifier: MIT
#include "geometry/detail/NearestVertex.h"

#include "geometry/Errors.h"

#include <cstdint>
#include <cstring>
#include <limits>

namespace geom::detail {

namespace {

constexpr const wchar_t* UNIT = L"SpatialSearchGrid2D";
constexpr int LINE_VERTEX_REFUSED = 222;

static_assert(std::numeric_limits<double>::is_iec559, "the order of doubles is that of their bits");

std::uint64_t BitsOf(double x) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
}

double FromBits(std::uint64_t bits) {
    double x = 0.0;
    std::memcpy(&x, &bits, sizeof x);
    return x;
}

} // namespace

// Whether a vertex is nearer than those before it is a coin toss, and a jump that depends on it
// is mispredicted again and again; the processor then also stops reading ahead in the source's
// memory. Squares are not negative, so their bits, taken as integers, have the same order, with
// everything that is not a number behind infinity; and choosing by the order of integers takes
// no jump.
void NearestVertex::Compete(const SpatialSearchGrid2D::IVertexSource& source, const int* indices,
                            std::size_t count, const Vec2d& p) {
    if (count == 0) {
        return;
    }
    const Vec2d centre = p;
    const int* nearest = indices;
    std::uint64_t least = std::numeric_limits<std::uint64_t>::max();
    for (const int *i = indices, *const end = indices + count; i != end; ++i) {
        Vec2d vertex;
        if (!source.GetVertex(*i, vertex)) {
            ThrowInternalError(UNIT, LINE_VERTEX_REFUSED);
        }
        const double dx = centre.x - vertex.x;
        const double dy = centre.y - vertex.y;
        const std::uint64_t bits = BitsOf(dx * dx + dy * dy);
        nearest = bits < least ? i : nearest;
        least = bits < least ? bits : least;
    }
    if (CanChange(*nearest, FromBits(least))) {
        index = *nearest;
        distanceSquared = FromBits(least);
    }
}

} // namespace geom::detail
