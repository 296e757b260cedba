// SPDX-License-Identifier: MIT
// Families in which edges, vertices and rows of both operands coincide, or miss it by a few
// units in the last place.
#include "tests/support/PolygonBuilders.h"

#include <cmath>

namespace geom::test {

namespace {

/// Vertices between 1/2 and 1, where 2^-53 is one unit in the last place.
gpc_vertex UpperGridVertex(Random& random) {
    const double x = random.Between(16, 32) / 32.0;
    return {x, random.Between(16, 32) / 32.0};
}

/// Takes part of the vertices of `from`, each moved by `step` or not at all.
Rings PartlyMoved(Random& random, const Rings& from, double step) {
    Rings rings = from;
    const bool all = random.OneIn(2);
    ForEachVertex(rings, [&](gpc_vertex& v) {
        if (!all && random.OneIn(4))
            v = UpperGridVertex(random);
        v.x += step * random.Between(-1, 1);
        v.y += step * random.Between(-1, 1);
    });
    return rings;
}

Operands NearCoincident(Random& random, int size, double step) {
    Operands operands;
    operands.subject = RandomRings(random, size, [&] { return UpperGridVertex(random); });
    operands.clip = PartlyMoved(random, operands.subject, step);
    return operands;
}

/// Moves a number up by none to two units in the last place; mostly none if rare is large.
double NextUp(Random& random, double value, int rare) {
    for (int i = random.OneIn(rare) ? random.Below(3) : 0; i > 0; --i)
        value = std::nextafter(value, 1e10);
    return value;
}

} // namespace

Operands RotatedGrids(Random& random, int size) {
    Operands operands = SmallGrid(random, size);
    const double t = random.Between(1, 9) / 10.0; // tangent of half the angle
    const double c = (1 - t * t) / (1 + t * t);
    const double s = 2 * t / (1 + t * t);
    for (Rings* rings : {&operands.subject, &operands.clip}) {
        ForEachVertex(*rings, [&](gpc_vertex& v) { v = {c * v.x - s * v.y, s * v.x + c * v.y}; });
    }
    return operands;
}

Operands NearCoincidentBy52(Random& random, int size) {
    return NearCoincident(random, size, 0x1p-52);
}

Operands NearCoincidentBy51(Random& random, int size) {
    return NearCoincident(random, size, 0x1p-51);
}

Operands CopiesMovedBy52(Random& random, int size) {
    Operands operands;
    operands.subject = RandomRings(random, size, [&] {
        if (size % 2 == 0)
            return UpperGridVertex(random);
        const double x = 0.5 + random.Unit() / 2;
        return gpc_vertex{x, 0.5 + random.Unit() / 2};
    });
    operands.clip = operands.subject;
    const double dx = 0x1p-52 * random.Between(-1, 1);
    const double dy = 0x1p-52 * random.Between(-1, 1);
    ForEachVertex(operands.clip, [&](gpc_vertex& v) { v = {v.x + dx, v.y + dy}; });
    return operands;
}

/// All edges but the closing ones lie on a few lines, with their ends on common rows.
Operands CollinearOverlaps(Random& random, int size) {
    Operands operands;
    const int slopes = random.Between(1, 3);
    const int lines = random.Between(2, 4);
    const double unit = random.OneIn(2) ? 1 : 0.1;
    for (Rings* rings : {&operands.subject, &operands.clip}) {
        *rings = RandomRings(random, size, [&] {
            const double y = random.Below(6) * unit;
            const int slope = random.Below(slopes);
            return gpc_vertex{random.Below(lines) * unit + slope * y, y};
        });
    }
    return operands;
}

/// Rows from 1 upwards, and columns, in groups one unit in the last place apart.
Operands AdjacentRows(Random& random, int size) {
    Operands operands = SmallGrid(random, size);
    for (Rings* rings : {&operands.subject, &operands.clip})
        ForEachVertex(*rings, [&](gpc_vertex& v) {
            v = {NextUp(random, v.x + 1, 3), NextUp(random, v.y + 1, 1)};
        });
    return operands;
}

/// The same with denormal rows: slopes become infinite.
Operands DenormalRows(Random& random, int size) {
    Operands operands = SmallGrid(random, size);
    for (Rings* rings : {&operands.subject, &operands.clip})
        ForEachVertex(*rings, [&](gpc_vertex& v) {
            v = {NextUp(random, v.x, 3), NextUp(random, v.y, 1)};
        });
    return operands;
}

/// Of the size of the tolerance, in x or in both coordinates.
Operands TinyShapes(Random& random, int size) {
    Operands operands = SmallGrid(random, size);
    const double unitX = std::ldexp(1.0, -random.Between(46, 56));
    const double unitY = random.OneIn(2) ? 1 : unitX;
    const double x = random.OneIn(2) ? 0 : 0.5;
    for (Rings* rings : {&operands.subject, &operands.clip})
        ForEachVertex(*rings, [&](gpc_vertex& v) { v = {x + v.x * unitX, v.y * unitY}; });
    return operands;
}

/// General position but for vertices that both operands have.
Operands SharedVertices(Random& random, int size) {
    Ring pool;
    for (int i = 0; i < size; ++i) {
        const double x = random.Unit();
        pool.push_back({x, random.OneIn(5) && i > 0 ? pool.back().y : random.Unit()});
    }
    const auto draw = [&] { return pool[static_cast<std::size_t>(random.Below(size))]; };
    Operands operands;
    operands.subject = RandomRings(random, size, draw);
    operands.clip = RandomRings(random, size, draw);
    return operands;
}

} // namespace geom::test
