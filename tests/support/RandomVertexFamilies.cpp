// SPDX-License-Identifier: MIT
// Families whose rings join random vertices: nearly all of them cross themselves.
#include "tests/support/PolygonBuilders.h"

#include <cmath>
#include <limits>

namespace geom::test {

namespace {

gpc_vertex GridVertex(Random& random, int count) {
    return {static_cast<double>(random.Below(count)), static_cast<double>(random.Below(count))};
}

gpc_vertex UnitVertex(Random& random) {
    const double x = random.Unit();
    return {x, random.Unit()};
}

template <typename MakeVertex>
Operands BothFrom(Random& random, int size, MakeVertex makeVertex) {
    Operands operands;
    operands.subject = RandomRings(random, size, makeVertex);
    operands.clip = RandomRings(random, size, makeVertex);
    return operands;
}

/// A closed walk along the lines of a grid.
Ring RectilinearRing(Random& random, int n, int count) {
    Ring ring{GridVertex(random, count)};
    while (static_cast<int>(ring.size()) < n) {
        gpc_vertex v = ring.back();
        v.x = random.Below(count);
        ring.push_back(v);
        v.y = random.Below(count);
        ring.push_back(v);
    }
    ring.push_back({ring.front().x, ring.back().y});
    return ring;
}

double SomeScale(Random& random, int lowest, int highest) {
    return std::ldexp(1.0, random.Between(lowest, highest));
}

} // namespace

Operands SmallGrid(Random& random, int size) {
    const int count = random.Between(3, 8);
    return BothFrom(random, size, [&] { return GridVertex(random, count); });
}

Operands RectilinearGrid(Random& random, int size) {
    const int count = random.Between(3, 8);
    Operands operands;
    for (Rings* rings : {&operands.subject, &operands.clip})
        for (int i = random.Between(1, 3); i > 0; --i)
            rings->push_back(RectilinearRing(random, 3 + size / i, count));
    return operands;
}

Operands FineGrid(Random& random, int size) {
    return BothFrom(random, size, [&] {
        const gpc_vertex v = GridVertex(random, 33);
        return gpc_vertex{v.x / 32, v.y / 32};
    });
}

Operands SelfIntersecting(Random& random, int size) {
    return BothFrom(random, size, [&] { return UnitVertex(random); });
}

Operands MixedScales(Random& random, int size) {
    return BothFrom(random, size, [&] {
        const gpc_vertex v = UnitVertex(random);
        return gpc_vertex{(v.x - 0.5) * SomeScale(random, -40, 40),
                          (v.y - 0.5) * SomeScale(random, -40, 40)};
    });
}

/// Products of two coordinates overflow, differences do not.
Operands HugeCoordinates(Random& random, int size) {
    const double scale = SomeScale(random, 100, 1015);
    const int count = random.OneIn(2) ? 1 << 20 : 7;
    return BothFrom(random, size, [&] {
        const gpc_vertex v = GridVertex(random, count);
        return gpc_vertex{(v.x / count - 0.5) * scale, (v.y / count - 0.5) * scale};
    });
}

Operands OverflowingDifferences(Random& random, int size) {
    return BothFrom(random, size, [&] {
        const gpc_vertex v = GridVertex(random, 5);
        return gpc_vertex{(v.x - 2) * 0x1.cp1022, (v.y - 2) * 0x1.cp1022};
    });
}

Operands TinyCoordinates(Random& random, int size) {
    const double scale = SomeScale(random, -1074, -60);
    const int count = random.OneIn(2) ? 1 << 20 : 7;
    return BothFrom(random, size, [&] {
        const gpc_vertex v = GridVertex(random, count);
        return gpc_vertex{v.x * scale, v.y * scale};
    });
}

Operands FarFromOrigin(Random& random, int size) {
    const double distance = SomeScale(random, 5, 30);
    return BothFrom(random, size, [&] {
        const gpc_vertex v = UnitVertex(random);
        return gpc_vertex{v.x + distance, v.y - distance};
    });
}

Operands SignedZeros(Random& random, int size) {
    const double values[] = {-1, -0.0, 0.0, 1, 2, -2};
    return BothFrom(random, size, [&] {
        const double x = values[random.Below(6)];
        return gpc_vertex{x, values[random.Below(6)]};
    });
}

Operands DegenerateContours(Random& random, int size) {
    Operands operands = SmallGrid(random, size);
    for (Rings* rings : {&operands.subject, &operands.clip}) {
        for (int i = random.Between(0, 3); i > 0; --i) {
            Ring ring;
            const gpc_vertex step = GridVertex(random, 3);
            for (int k = random.Between(0, 4); k > 0; --k)
                ring.push_back({step.x * random.Below(4), step.y * random.Below(4)});
            rings->insert(rings->begin() + random.Below(static_cast<int>(rings->size()) + 1), ring);
        }
        if (random.OneIn(10))
            rings->clear();
    }
    return operands;
}

Operands NotFinite(Random& random, int size) {
    Operands operands = random.OneIn(2) ? SmallGrid(random, size) : SelfIntersecting(random, size);
    const double infinity = std::numeric_limits<double>::infinity();
    const double values[] = {infinity, -infinity, std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::max(),
                             -std::numeric_limits<double>::max()};
    const int rarity = random.Between(2, size);
    for (Rings* rings : {&operands.subject, &operands.clip}) {
        ForEachVertex(*rings, [&](gpc_vertex& v) {
            if (random.OneIn(rarity))
                v.x = values[random.Below(5)];
            if (random.OneIn(rarity))
                v.y = values[random.Below(5)];
        });
    }
    return operands;
}

} // namespace geom::test
