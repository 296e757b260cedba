// SPDX-License-Identifier: MIT
// The code of docs/lines.md.
#include <geometry/geom.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(LinesGuide, CountryOnASheet) {
    const geom::Vec2d border[] = {{2, 2}, {12, 3}, {11, 9}, {4, 8}};
    const geom::GpcPolygon country(border, 4);
    const geom::Vec2d corners[] = {{0, 0}, {10, 0}, {10, 6}, {5, 10}, {0, 6}};
    const geom::GpcPolygon sheet(corners, 5);

    // The area to fill.
    geom::GpcPolygon land = country;
    land.Intersection(sheet);

    // The border to draw: of the country, not of the area left of it, or the edges of the sheet
    // would be drawn as well.
    std::vector<geom::Vec2d> points;
    std::vector<unsigned int> counts;
    country.GetPolyPolygon(points, counts, true);

    const double pattern[] = {0.8, 0.3, 0.1, 0.3};
    geom::DashLineGenerator dashes(pattern, 4);
    std::vector<geom::Vec2d> dashPoints;
    std::vector<unsigned int> dashCounts;
    geom::ClipDashedPolylinesToPolygon(points.data(), counts.data(), counts.size(), dashes, sheet,
                                       dashPoints, dashCounts);
    EXPECT_EQ(land.GetNumContours(), 1U);
    EXPECT_GE(dashCounts.size(), 10U);
    for (const geom::Vec2d& p : dashPoints) {
        EXPECT_LE(p.x, 10.0 + 1e-9);
    }
}

TEST(LinesGuide, ManyLinesToOnePolygon) {
    const geom::Vec2d corners[] = {{0, 0}, {10, 0}, {5, 8}};
    const geom::GpcPolygon polygon(corners, 3);
    const geom::LineClipPolygon area(polygon); // builds the index once

    const geom::Vec2d line[] = {{-1, 2}, {11, 2}, {11, 4}, {-1, 4}};
    std::vector<geom::LineSegment2> pieces;
    area.Clip(line, 4, pieces); // appends; each piece from left to right

    std::vector<geom::Vec2d> points;
    std::vector<unsigned int> counts;
    area.Clip(line, 4, points, counts); // the same as runs of points
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_EQ(pieces[0].A(), geom::Vec2d(1.25, 2));
    EXPECT_EQ(pieces[1].A(), geom::Vec2d(2.5, 4));
    EXPECT_EQ(counts, (std::vector<unsigned int>{2, 2}));
}

TEST(LinesGuide, Dashes) {
    const double pattern[] = {3, 1}; // 3 visible, 1 hidden, and so on
    geom::DashLineGenerator dashes(pattern, 2);

    const geom::Vec2d first[] = {{0, 0}, {5, 0}};
    const geom::Vec2d second[] = {{5, 0}, {9, 0}};
    std::vector<geom::LineSegment2> visible;
    dashes.Decompose(first, 2, visible);  // 0 to 3, 4 to 5
    dashes.Decompose(second, 2, visible); // 5 to 7, 8 to 9: the dash goes on behind the joint
    ASSERT_EQ(visible.size(), 4U);
    EXPECT_EQ(visible[1], geom::LineSegment2(4, 0, 5, 0));
    EXPECT_EQ(visible[2], geom::LineSegment2(5, 0, 7, 0));
    EXPECT_EQ(visible[3], geom::LineSegment2(8, 0, 9, 0));
}

TEST(LinesGuide, DashesWithoutAnArray) {
    const geom::Vec2d line[] = {{0, 0}, {10, 0}};
    const double pattern[] = {3, 1};
    geom::DashLineGenerator dashes(pattern, 2);
    double inked = 0;
    dashes.Decompose(
        line, 2,
        [](const geom::Vec2d& first, const geom::Vec2d& second, void* context) {
            *static_cast<double*>(context) += geom::LineSegment2(first, second).Length();
        },
        &inked);
    EXPECT_EQ(inked, 8.0);
}

TEST(LinesGuide, NearestSegment) {
    const std::vector<geom::Vec2d> line = {{0, 0}, {10, 0}, {10, 8}};
    geom::Vec2d pointer(6, 1);
    double distanceSquared = 0;
    const std::size_t nearest =
        geom::FindClosestSegment(line.data(), line.size(), pointer, &distanceSquared);

    geom::Vec2d a = line[nearest];
    geom::Vec2d b = line[nearest + 1];
    geom::Vec2d foot;
    geom::GetNormalIntersection(pointer, a, b, foot); // (6, 0)
    EXPECT_EQ(nearest, 0U);
    EXPECT_EQ(distanceSquared, 1.0);
    EXPECT_EQ(foot, geom::Vec2d(6, 0));
}

TEST(LinesGuide, WalkingInEqualSteps) {
    const std::vector<geom::Vec2d> line = {{0, 0}, {10, 0}, {10, 8}};
    const double step = geom::PolylineLength(line.data(), line.size()) / 6;
    std::vector<geom::Vec2d> places = {line[0]};
    std::size_t index = 0;
    geom::Vec2d position = line[0];
    for (int i = 0; i < 5; ++i) {
        geom::AdvanceAlongPolyline(line.data(), line.size(), false, step, index, position);
        places.push_back(position);
    }
    ASSERT_EQ(places.size(), 6U);
    EXPECT_EQ(places[3], geom::Vec2d(9, 0));
    EXPECT_EQ(places[5], geom::Vec2d(10, 5));
}

TEST(LinesGuide, Thinning) {
    const std::vector<geom::Vec2d> line = {{0, 0}, {1, 0.01}, {2, 0}, {3, 0.01}, {4, 0}, {4, 5}};
    std::vector<geom::Vec2d> thinned;
    geom::ThinByAngularDeviation(line.data(), line.size(), 2 * kit::DEG_TO_RAD, thinned);
    EXPECT_EQ(thinned.size(), 3U);
}

TEST(LinesGuide, Predicates) {
    const geom::LineSegment2 s(0, 0, 4, 4);
    const geom::LineSegment2 t(0, 4, 4, 0);
    geom::Vec2d meeting;
    if (geom::Intersects(s, t)) {
        geom::Intersection(s, t, meeting); // (2, 2)
    }
    const bool hit = geom::Intersects(geom::Circle(0, 4, 3), s);
    EXPECT_EQ(meeting, geom::Vec2d(2, 2));
    EXPECT_TRUE(hit);
}

} // namespace
