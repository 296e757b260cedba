// SPDX-License-Identifier: MIT
// The engine against the plain sweep on real maps: coasts with many edges active at once, vertices
// in common rows, and borders that neighbours share.
#include "geometry/Gpc.h"
#include "tests/reference/SweepComparison.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

namespace geom::test {

namespace {

Rings ReadMap(const char* name) {
    const std::string path = std::string(GEOM_DATA_DIR "/") + name;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                               &std::fclose);
    gpc_polygon map = {0, nullptr, nullptr};
    if (file == nullptr || !gpc_read_polygon(file.get(), 1, &map)) {
        throw std::runtime_error("no map " + path);
    }
    Rings rings;
    for (int c = 0; c < map.num_contours; ++c) {
        const gpc_vertex_list& list = map.contour[c];
        rings.emplace_back(list.vertex, list.vertex + list.num_vertices);
    }
    gpc_free_polygon(&map);
    return rings;
}

/// One ring in so many.
Rings OneIn(std::size_t step, const Rings& rings) {
    Rings some;
    for (std::size_t i = 0; i < rings.size(); i += step) {
        some.push_back(rings[i]);
    }
    return some;
}

Rings MovedBy(Rings rings, double dx, double dy) {
    for (Ring& ring : rings) {
        for (gpc_vertex& v : ring) {
            v = {v.x + dx, v.y + dy};
        }
    }
    return rings;
}

Rings Star() {
    Ring star;
    for (int i = 0; i < 1000; ++i) {
        const double angle = 2 * 3.141592653589793 * i / 1000;
        const double radius = i % 2 == 0 ? 1 : 0.7;
        star.push_back({10 + 120 * radius * std::cos(angle), 20 + 60 * radius * std::sin(angle)});
    }
    return {star};
}

void ExpectSame(const Operands& operands) {
    const ComparisonTally tally = Compare(operands);
    EXPECT_EQ(tally.results, 8) << "four operations, contours and strips";
    EXPECT_EQ(tally.differences, 0);
    EXPECT_EQ(tally.changed, 0);
    EXPECT_GT(tally.vertices, 10000);
}

} // namespace

TEST(SweepOnMaps, CountriesAndTheSameCountriesShifted) {
    const Rings countries = ReadMap("world_countries_110m.txt");
    ExpectSame({countries, MovedBy(countries, 0.513, 0.2571)});
}

TEST(SweepOnMaps, CountriesAndAStar) {
    ExpectSame({ReadMap("world_countries_110m.txt"), Star()});
}

TEST(SweepOnMaps, CountriesAndHalfOfTheSameCountries) {
    const Rings countries = ReadMap("world_countries_110m.txt");
    ExpectSame({countries, OneIn(2, countries)});
}

TEST(SweepOnMaps, HalfOfAllLandAndTheSameLandShifted) {
    const Rings land = OneIn(2, ReadMap("world_land_50m.txt"));
    ExpectSame({land, MovedBy(land, 0.513, 0.2571)});
}

} // namespace geom::test
