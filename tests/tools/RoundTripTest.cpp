// SPDX-License-Identifier: MIT
// The countries of the world through every format and back.
#include "tests/tools/RunTool.h"
#include "tests/tools/TemporaryFolder.h"
#include "tools/geomtool/Files.h"
#include "tools/geomtool/PolygonSet.h"
#include "tools/geomtool/TextFormat.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace geomtool {
namespace {

using test::RunGeomtool;
using test::TemporaryFolder;
using test::ToolRun;

const std::string COUNTRIES = std::string(DATA_DIR) + "/world_countries_110m.txt";

/// A ring's points from the first in (x, y) order on, counter-clockwise, so that rings compare
/// equal whatever their start and direction.
std::vector<std::pair<double, double>> Canonical(const Ring& ring) {
    std::vector<std::pair<double, double>> points;
    for (const geom::Vec2d& p : ring.points) {
        points.emplace_back(p.x, p.y);
    }
    if (SignedArea(ring.points) < 0) {
        std::reverse(points.begin(), points.end());
    }
    std::rotate(points.begin(), std::min_element(points.begin(), points.end()), points.end());
    return points;
}

std::vector<std::pair<bool, std::vector<std::pair<double, double>>>>
Canonical(const PolygonSet& shapes) {
    std::vector<std::pair<bool, std::vector<std::pair<double, double>>>> rings;
    for (const Ring& ring : shapes.rings) {
        rings.emplace_back(ring.hole, Canonical(ring));
    }
    std::sort(rings.begin(), rings.end());
    return rings;
}

PolygonSet Countries() {
    return ReadText(COUNTRIES, ReadFile(COUNTRIES), true);
}

class RoundTrip : public ::testing::TestWithParam<const char*> {};

TEST_P(RoundTrip, KeepsEveryCoordinate) {
    const TemporaryFolder folder;
    const std::string there = folder.File(std::string("there") + GetParam());
    const std::string back = folder.File("back.txt");
    ASSERT_EQ(RunGeomtool({"convert", COUNTRIES, "-o", there}).status, 0);
    ASSERT_EQ(RunGeomtool({"convert", there, "-o", back}).status, 0);
    const PolygonSet shapes = ReadText(back, ReadFile(back), true);
    ASSERT_EQ(shapes.rings.size(), 285u);
    EXPECT_EQ(Canonical(shapes), Canonical(Countries()));
}

INSTANTIATE_TEST_SUITE_P(AllFormats, RoundTrip,
                         ::testing::Values(".txt", ".bin", ".wkt", ".geojson"),
                         [](const auto& format) { return std::string(format.param).substr(1); });

TEST(RoundTripChain, PassesThroughAllFormatsByStandardStreams) {
    std::string bytes = ReadFile(COUNTRIES);
    std::string from = "text";
    for (const std::string to : {"geojson", "binary", "wkt", "text"}) {
        const ToolRun run = RunGeomtool({"convert", "-", "--from", from, "--to", to}, bytes);
        ASSERT_EQ(run.status, 0) << run.errors;
        bytes = run.output;
        from = to;
    }
    EXPECT_EQ(Canonical(ReadText("chain", bytes, true)), Canonical(Countries()));
}

TEST(RoundTripChain, UnionOfCountriesKeepsTheirArea) {
    const ToolRun run = RunGeomtool({"union", COUNTRIES, "--to", "geojson"});
    ASSERT_EQ(run.status, 0) << run.errors;
    const ToolRun info = RunGeomtool({"info", "-", "--from", "geojson"}, run.output);
    const double area = std::stod(info.output.substr(info.output.find("area") + 5));
    EXPECT_NEAR(area, 21497.010078, 1e-5);
}

} // namespace
} // namespace geomtool
