// SPDX-License-Identifier: MIT
// Families of recognisable shapes, most of them simple polygons.
#include "tests/support/PolygonBuilders.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace geom::test {

Ring StarRing(Random& random, int n, gpc_vertex centre, double innerRadius, double outerRadius) {
    Ring ring;
    for (int i = 0; i < n; ++i) {
        const double turn = 4 * ((i + random.Between(0.05, 0.95)) / n); // quarters of the diamond
        const double x = std::fabs(turn - 2) - 1;
        const double y = turn < 2 ? 1 - std::fabs(x) : std::fabs(x) - 1;
        const double radius = random.Between(innerRadius, outerRadius);
        ring.push_back({centre.x + radius * x, centre.y + radius * y});
    }
    if (random.OneIn(2))
        std::reverse(ring.begin(), ring.end());
    return ring;
}

namespace {

gpc_vertex NearOrigin(Random& random) {
    const double x = random.Between(-0.5, 0.5);
    return {x, random.Between(-0.5, 0.5)};
}

/// `teeth` teeth that stand on a back along the x axis.
Ring CombRing(Random& random, int teeth, double height) {
    Ring ring{{0, -0.1 * random.Unit()}};
    for (int i = 0; i < teeth; ++i) {
        const double x = i;
        ring.push_back({x + 0.1 * random.Unit(), height + random.Unit()});
        ring.push_back({x + 0.5 + 0.1 * random.Unit(), height + random.Unit()});
        ring.push_back({x + 0.6 + 0.1 * random.Unit(), 0.5 * random.Unit()});
        ring.push_back({x + 0.9 + 0.1 * random.Unit(), 0.5 * random.Unit()});
    }
    ring.push_back({static_cast<double>(teeth), -1 - random.Unit()});
    return ring;
}

Rings Transposed(Rings rings) {
    ForEachVertex(rings, [](gpc_vertex& v) { std::swap(v.x, v.y); });
    return rings;
}

Ring SquareRing(double x, double y, double side) {
    return {{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}};
}

/// Rings within each other: hole, island, hole, ...
Rings NestedRings(Random& random, int size) {
    Rings rings;
    const gpc_vertex centre = NearOrigin(random);
    const int n = std::max(4, size / 4);
    for (double radius = random.Between(1.0, 2.0); radius > 0.2; radius *= 0.6)
        rings.push_back(StarRing(random, n, centre, 0.75 * radius, radius));
    return rings;
}

Ring StaircaseRing(Random& random, int size, double x, double y) {
    Ring ring{{x, y}};
    const int steps = size / 2;
    for (int i = 0; i < steps; ++i) {
        x += random.Between(1, 2);
        ring.push_back({x, y});
        y += random.Between(1, 2);
        ring.push_back({x, y});
    }
    ring.push_back({ring.front().x, y});
    return ring;
}

/// A band whose two borders zigzag in parallel.
Ring SawRing(Random& random, int size, double y) {
    Ring ring;
    const int teeth = std::max(2, size / 2);
    const double thickness = random.OneIn(2) ? 1 : random.Between(0.2, 2.0);
    for (int i = 0; i <= teeth; ++i)
        ring.push_back({static_cast<double>(i), y + i % 2});
    for (int i = teeth; i >= 0; --i)
        ring.push_back({static_cast<double>(i), y + i % 2 + thickness});
    return ring;
}

Rings SquareGrid(Random& random, int size, double shift) {
    Rings rings;
    const int side = std::max(1, static_cast<int>(std::sqrt(size / 4.0)));
    for (int row = 0; row < side; ++row)
        for (int column = 0; column < side; ++column)
            if (!random.OneIn(5))
                rings.push_back(
                    SquareRing(2 * column + shift, 2 * row + shift, 1 + random.Below(2)));
    return rings;
}

/// Two triangles for each cell of a lattice whose inner corners may be moved: every border
/// inside belongs to two of them.
Rings MeshRings(Random& random, int size, double shift, double jitter) {
    const int side = std::max(1, static_cast<int>(std::sqrt(size / 6.0)));
    std::vector<Ring> lattice;
    for (int row = 0; row <= side; ++row) {
        lattice.emplace_back();
        for (int column = 0; column <= side; ++column) {
            const double x = column + shift + jitter * random.Unit();
            lattice.back().push_back({x, row + shift + jitter * random.Unit()});
        }
    }
    Rings rings;
    for (std::size_t r = 0; r + 1 < lattice.size(); ++r) {
        for (std::size_t c = 0; c + 1 < lattice.size(); ++c) {
            rings.push_back({lattice[r][c], lattice[r][c + 1], lattice[r + 1][c + 1]});
            rings.push_back({lattice[r][c], lattice[r + 1][c + 1], lattice[r + 1][c]});
        }
    }
    return rings;
}

} // namespace

Operands Stars(Random& random, int size) {
    const double inner = random.Between(0.2, 0.95);
    const int n = std::max(3, size);
    Operands operands;
    operands.subject = {StarRing(random, n, NearOrigin(random), inner, 1)};
    operands.clip = {StarRing(random, n, NearOrigin(random), inner, 1)};
    return operands;
}

Operands Spikes(Random& random, int size) {
    Operands operands;
    for (Rings* rings : {&operands.subject, &operands.clip}) {
        Ring ring;
        const gpc_vertex centre = NearOrigin(random);
        const Ring tips = StarRing(random, std::max(3, size / 2), centre, 0.8, 1);
        const Ring feet = StarRing(random, std::max(3, size / 2), centre, 0.01, 0.05);
        for (std::size_t i = 0; i < tips.size(); ++i) {
            ring.push_back(tips[i]);
            ring.push_back(feet[i]);
        }
        rings->push_back(ring);
    }
    return operands;
}

Operands NestedHoles(Random& random, int size) {
    Operands operands;
    operands.subject = NestedRings(random, size);
    operands.clip = NestedRings(random, size);
    return operands;
}

Operands Combs(Random& random, int size) {
    const int teeth = std::max(1, size / 4);
    Operands operands;
    operands.subject = {CombRing(random, teeth, teeth)};
    operands.clip = Transposed({CombRing(random, teeth, teeth)});
    return operands;
}

Operands Staircases(Random& random, int size) {
    Operands operands;
    operands.subject = {StaircaseRing(random, size, 0, 0)};
    const double x = random.Below(3);
    operands.clip = {random.OneIn(2) ? StaircaseRing(random, size, x, 1)
                                     : StarRing(random, 3, {4, 4}, 3, 9)};
    return operands;
}

Operands Saws(Random& random, int size) {
    Operands operands;
    operands.subject = {SawRing(random, size, 0)};
    operands.clip = {SawRing(random, size, random.OneIn(2) ? 0.5 : random.Unit())};
    if (random.OneIn(2))
        operands.clip = Transposed(operands.clip);
    return operands;
}

Operands Squares(Random& random, int size) {
    Operands operands;
    operands.subject = SquareGrid(random, size, 0);
    operands.clip = random.OneIn(2) ? SquareGrid(random, size, random.Below(3) * 0.5)
                                    : Rings{StarRing(random, 7, {3, 3}, 1, 5)};
    return operands;
}

/// Most boxes overlap nothing of the other operand.
Operands ScatteredTriangles(Random& random, int size) {
    Operands operands;
    for (Rings* rings : {&operands.subject, &operands.clip}) {
        for (int i = 0; i < size; i += 3) {
            const double x = 10 * random.Unit();
            const gpc_vertex centre = {x, 10 * random.Unit()};
            rings->push_back(StarRing(random, 3, centre, 0.5, 2));
        }
    }
    return operands;
}

Operands TriangleMeshes(Random& random, int size) {
    const double jitter = random.OneIn(2) ? 0 : 0.4;
    Operands operands;
    operands.subject = MeshRings(random, size, 0, jitter);
    switch (random.Below(3)) {
    case 0: operands.clip = {StarRing(random, 8, {1, 1}, 0.5, 2)}; break;
    case 1: operands.clip = MeshRings(random, size, 0.5, jitter); break;
    default: operands.clip = operands.subject; break;
    }
    return operands;
}

/// Many edges through one point, or through nearly one.
Operands Pencils(Random& random, int size) {
    Operands operands;
    const double spread = random.OneIn(2) ? 0 : std::ldexp(1.0, -random.Between(30, 52));
    for (Rings* rings : {&operands.subject, &operands.clip}) {
        for (int i = 0; i < size; i += 3) {
            const gpc_vertex d = {random.Between(-3, 3) * 0.125, random.Between(1, 3) * 0.125};
            const double shift = spread * random.Between(-2, 2);
            rings->push_back({{0.5 - d.x + shift, 0.5 - d.y},
                              {0.5 + d.x + shift, 0.5 + d.y},
                              {random.Below(9) * 0.125, random.Below(9) * 0.125}});
        }
    }
    return operands;
}

} // namespace geom::test
