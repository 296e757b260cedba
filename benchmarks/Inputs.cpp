// SPDX-License-Identifier: MIT
#include "Inputs.h"

#include "geometry/Gpc.h"
#include "tests/support/PolygonBuilders.h"
#include "tests/support/Random.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

namespace geom::bench {

using test::Random;

namespace {

constexpr double TURN = 6.283185307179586;

/// A ring around a centre whose radius depends on the direction as a fraction of a turn.
template <typename Radius>
Ring RoundRing(int size, gpc_vertex centre, Radius radius) {
    Ring ring;
    for (int i = 0; i < size; ++i) {
        const double part = static_cast<double>(i) / size;
        const double r = radius(part);
        ring.push_back(
            {centre.x + r * std::cos(TURN * part), centre.y + r * std::sin(TURN * part)});
    }
    return ring;
}

Region One(Ring ring) {
    return {{std::move(ring)}, {0}};
}

Ring NoisyRing(int size, std::uint64_t seed) {
    Random random(seed);
    const double radius = 1000;
    const double edge = TURN * radius / size;
    return RoundRing(size, {0, 0},
                     [&](double) { return radius + edge * random.Between(-0.5, 0.5); });
}

Ring SmoothRing(int size, double turned) {
    return RoundRing(size, {0, 0}, [&](double part) {
        return 1000 + 250 * std::cos(11 * TURN * (part + turned));
    });
}

Ring SpikedRing(int size, std::uint64_t seed) {
    Random random(seed);
    std::vector<double> parts;
    for (int i = 0; i < size; ++i) {
        parts.push_back(random.Unit());
    }
    std::sort(parts.begin(), parts.end());
    Ring ring;
    for (double part : parts) {
        const double r = random.Between(500.0, 1000.0);
        ring.push_back({r * std::cos(TURN * part), r * std::sin(TURN * part)});
    }
    return ring;
}

void AddSquare(Region& region, double x, double y, double side) {
    region.rings.push_back({{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}});
    region.holes.push_back(0);
}

/// size / 4 squares of a given side at distances of 1.
Region Squares(int size, double side, double shift) {
    Region region;
    const int row = std::max(1, static_cast<int>(std::lround(std::sqrt(size / 4.0))));
    for (int i = 0; i < size / 4; ++i) {
        AddSquare(region, i % row + shift, i / row + shift, side);
    }
    return region;
}

/// A band that goes up in steps of 1, both borders in parallel.
Region Saw(int size, double x, double tooth) {
    Ring ring;
    const int steps = size / 2;
    for (int i = 0; i < steps; ++i) {
        ring.push_back({x + (i % 2) * tooth, static_cast<double>(i)});
    }
    for (int i = steps - 1; i >= 0; --i) {
        ring.push_back({x + 5 + (i % 2) * tooth, i + 0.25});
    }
    return One(ring);
}

Region Comb(int teeth, bool lying) {
    Ring ring{{0, -1.25}};
    const double height = teeth + 0.75;
    for (int i = 0; i < teeth; ++i) {
        const double x = i + 0.125;
        ring.push_back({x, 0});
        ring.push_back({x + 0.1, height});
        ring.push_back({x + 0.5, height});
        ring.push_back({x + 0.6, 0});
    }
    ring.push_back({static_cast<double>(teeth), -1.25});
    if (lying) {
        for (gpc_vertex& v : ring) {
            std::swap(v.x, v.y);
        }
    }
    return One(ring);
}

Region ReadMap(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "r"),
                                                               &std::fclose);
    gpc_polygon polygon = {0, nullptr, nullptr};
    if (!gpc_read_polygon(file.get(), 1, &polygon)) {
        throw std::runtime_error("cannot read " + path);
    }
    Region region;
    for (int c = 0; c < polygon.num_contours; ++c) {
        const gpc_vertex_list& list = polygon.contour[c];
        region.rings.emplace_back(list.vertex, list.vertex + list.num_vertices);
        region.holes.push_back(polygon.hole[c]);
    }
    gpc_free_polygon(&polygon);
    return region;
}

Vec2d Middle(const Box2d& box) {
    return {(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2};
}

} // namespace

std::size_t VertexCount(const Region& region) {
    std::size_t count = 0;
    for (const Ring& ring : region.rings) {
        count += ring.size();
    }
    return count;
}

Box2d BoundingBox(const Region& region) {
    Box2d box;
    for (const Ring& ring : region.rings) {
        for (const gpc_vertex& v : ring) {
            box.ExtendBy({v.x, v.y});
        }
    }
    return box;
}

Region MovedBy(Region region, double dx, double dy) {
    test::ForEachVertex(region.rings, [&](gpc_vertex& v) { v = {v.x + dx, v.y + dy}; });
    return region;
}

Regions NoisyStars(int size) {
    return {One(NoisyRing(size, 1)), One(NoisyRing(size, 2))};
}

Regions SmoothStars(int size) {
    return {One(SmoothRing(size, 0)), One(SmoothRing(size, 0.03))};
}

Regions Spikes(int size) {
    return {One(SpikedRing(size, 3)), One(SpikedRing(size, 4))};
}

Regions SquaresAndBlob(int size) {
    const Region squares = Squares(size, 0.7, 0);
    return {squares, Blob(BoundingBox(squares))};
}

Regions TwoGrids(int size) {
    return {Squares(size, 0.75, 0), Squares(size, 0.75, 0.5)};
}

Regions Combs(int teeth) {
    return {Comb(teeth, false), Comb(teeth, true)};
}

Regions TallSaws(int size) {
    return {Saw(size, 0, 2), Saw(size, 2.5, 3.125)};
}

Regions MeshAndBlob(int size) {
    Random random(5);
    Region mesh;
    mesh.rings = test::TriangleMeshes(random, size).subject;
    mesh.holes.assign(mesh.rings.size(), 0);
    return {mesh, Blob(BoundingBox(mesh))};
}

Regions MapAndShifted(const char* file) {
    return {Map(file), MovedBy(Map(file), 0.513, 0.2571)};
}

Regions MapAndStar(const char* file) {
    const Ring star =
        RoundRing(1000, {20, 20}, [](double part) { return 70 + 30 * std::cos(9 * TURN * part); });
    return {Map(file), One(star)};
}

const Region& Map(const char* file) {
    static std::map<std::string, Region> maps;
    const auto [found, isNew] = maps.try_emplace(file);
    if (isNew) {
        found->second = ReadMap(std::string(GEOM_BENCHMARK_DATA) + "/" + file + ".txt");
    }
    return found->second;
}

Region NoisyStar(int size) {
    return One(NoisyRing(size, 1));
}

Region StarWithHoles(int size) {
    Region region = One(SmoothRing(size - 36, 0));
    for (int i = 0; i < 9; ++i) {
        AddSquare(region, i % 3 * 250 - 350, i / 3 * 250 - 350.5, 190);
        std::reverse(region.rings.back().begin(), region.rings.back().end());
        region.holes.back() = 1;
    }
    return region;
}

Region Circle(int size) {
    return One(RoundRing(size, {0, 0}, [](double) { return 1000; }));
}

Region Blob(const Box2d& box) {
    const Vec2d centre = Middle(box);
    const double radius = 0.4 * std::min(box.maxX - box.minX, box.maxY - box.minY);
    return One(RoundRing(100, {centre.x, centre.y}, [&](double part) {
        return radius * (1 + 0.2 * std::cos(3 * TURN * part));
    }));
}

Ring LargeStar(int size) {
    return SmoothRing(size, 0);
}

Lines Walks(int lines, int pointsEach, const Box2d& box) {
    Random random(6);
    const double step = (box.maxX - box.minX) / 100;
    Lines walks;
    for (int line = 0; line < lines; ++line) {
        const double x = random.Between(box.minX, box.maxX);
        Vec2d at(x, random.Between(box.minY, box.maxY));
        for (int i = 0; i < pointsEach; ++i) {
            walks.points.push_back(at);
            const double dx = random.Between(-step, step);
            at += Vec2d(dx, random.Between(-step, step));
        }
        walks.counts.push_back(static_cast<unsigned int>(pointsEach));
    }
    return walks;
}

Lines UnitSteps(int size) {
    Lines line;
    Vec2d at(0, 0);
    for (int i = 0; i < size; ++i) {
        line.points.push_back(at);
        const double angle = 3 * std::sin(i * 0.01);
        at += Vec2d(std::cos(angle), std::sin(angle));
    }
    line.counts.push_back(static_cast<unsigned int>(size));
    return line;
}

std::vector<Vec2d> UniformPoints(int size, std::uint64_t seed) {
    Random random(seed);
    std::vector<Vec2d> points;
    for (int i = 0; i < size; ++i) {
        const double x = random.Between(-1000.0, 1000.0);
        points.emplace_back(x, random.Between(-1000.0, 1000.0));
    }
    return points;
}

std::vector<Vec2d> ClusteredPoints(int size, std::uint64_t seed) {
    Random places(7); // the same clusters for every seed
    std::vector<Vec2d> centres = UniformPoints(1000, 8);
    std::vector<double> widths;
    for (std::size_t i = 0; i < centres.size(); ++i) {
        widths.push_back(std::pow(10.0, places.Between(-3.0, 1.0)));
    }
    Random random(seed);
    std::vector<Vec2d> points;
    for (int i = 0; i < size; ++i) {
        const auto cluster = static_cast<std::size_t>(random.Below(1000));
        const double x = random.Between(-1.0, 1.0);
        points.push_back(centres[cluster] + widths[cluster] * Vec2d(x, random.Between(-1.0, 1.0)));
    }
    return points;
}

Region DirtyRings(int rings) {
    Random random(9);
    Region region;
    for (int r = 0; r < rings; ++r) {
        AddSquare(region, r % 1000, r / 1000, random.OneIn(10) ? 0 : 0.5);
        Ring& ring = region.rings.back();
        for (int repeats = random.Below(3); repeats > 0; --repeats) {
            ring.insert(ring.begin() + 2, ring[1]);
        }
    }
    return region;
}

} // namespace geom::bench
