// SPDX-License-Identifier: MIT
#include "tests/services/Workload.h"

#include "tests/support/PolygonBuilders.h"

#include <cmath>

namespace geom::test {

Parts PartsOf(const Rings& rings) {
    Parts parts;
    for (const Ring& ring : rings) {
        parts.counts.push_back(static_cast<unsigned int>(ring.size()));
        for (const gpc_vertex& v : ring) {
            parts.points.emplace_back(v.x, v.y);
        }
    }
    return parts;
}

GpcPolygon PolygonFrom(const Rings& rings) {
    const Parts parts = PartsOf(rings);
    return GpcPolygon(parts.points.data(), parts.counts.data(), parts.Size());
}

Vec2d SomePoint(Random& random, double low, double high) {
    double x = random.Between(low, high);
    double y = random.Between(low, high);
    if (random.OneIn(4)) {
        x = std::floor(x);
        y = std::floor(y);
    }
    return {x, y};
}

Vec3d SomePoint3(Random& random, double low, double high) {
    const Vec2d p = SomePoint(random, low, high);
    return {p.x, p.y, random.Between(low, high)};
}

tagPOINT SomeDevicePoint(Random& random, int reach) {
    const int x = random.Between(-reach, reach);
    const int y = random.Between(-reach, reach);
    return {x, y};
}

Box2d SomeBox(Random& random, double low, double high) {
    const Vec2d corner = SomePoint(random, low, high);
    const double width = random.Between(0.25, high - low);
    const double height = random.Between(0.25, high - low);
    return {corner.x, corner.y, corner.x + width, corner.y + height};
}

std::vector<Vec2d> SomePoints(Random& random, std::size_t count, double low, double high) {
    std::vector<Vec2d> points;
    while (points.size() < count) {
        points.push_back(SomePoint(random, low, high));
    }
    return points;
}

std::vector<Vec2d> Walk(Random& random, std::size_t count, const Vec2d& start) {
    std::vector<Vec2d> points;
    Vec2d position = start;
    while (points.size() < count) {
        points.push_back(position);
        position += SomePoint(random, -1.0, 1.0);
    }
    return points;
}

std::vector<Vec2d> Star(Random& random, std::size_t count, double innerRadius, double outerRadius) {
    const Ring ring =
        StarRing(random, static_cast<int>(count), {0.0, 0.0}, innerRadius, outerRadius);
    return PartsOf({ring}).points;
}

} // namespace geom::test
