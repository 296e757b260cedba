// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"
#include "geometry/GpcPolygon.h"
#include "geometry/Polygon2.h"
#include "tests/support/PolygonFamilies.h"
#include "tests/support/Random.h"

#include <vector>

/// \file
/// Generated input of the services. Random numbers are drawn one at a time and in a fixed order,
/// so the input is the same with every compiler.

namespace geom::test {

/// Rings or lines as the services take them: all points, and the number of each part's.
struct Parts {
    std::vector<Vec2d> points;
    std::vector<unsigned int> counts;

    std::size_t Size() const { return counts.size(); }
};

Parts PartsOf(const Rings& rings);
GpcPolygon PolygonFrom(const Rings& rings);

/// Operands of all families in turn, `size` vertices each or somewhat more.
template <typename Visit>
void ForEachFamily(Random& random, int rounds, int size, Visit visit) {
    for (int round = 0; round < rounds; ++round) {
        for (const PolygonFamily& family : PolygonFamilies()) {
            visit(family.make(random, size));
        }
    }
}

/// A point with both coordinates in low .. high, one in four on the integer grid.
Vec2d SomePoint(Random& random, double low, double high);
Vec3d SomePoint3(Random& random, double low, double high);
tagPOINT SomeDevicePoint(Random& random, int reach);
/// A box with sides above 0.
Box2d SomeBox(Random& random, double low, double high);
std::vector<Vec2d> SomePoints(Random& random, std::size_t count, double low, double high);
/// A polyline that wanders in steps of up to one unit, as a coast does.
std::vector<Vec2d> Walk(Random& random, std::size_t count, const Vec2d& start);
/// A ring around the origin whose radius is between two bounds.
std::vector<Vec2d> Star(Random& random, std::size_t count, double innerRadius, double outerRadius);

} // namespace geom::test
