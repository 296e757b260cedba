// SPDX-License-Identifier: MIT
//
// Polygons of the size and the untidiness of real maps.
#include "geometry/geom.h"
#include "tests/support/PolygonText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace geom {
namespace {

using test::Area;
using test::IsInside;
using test::SignedDoubleArea;

// As data/README.md gives it, to its six decimals.
constexpr double AREA_OF_COUNTRIES = 21497.010078;
constexpr double LAST_DECIMAL = 1e-6;

const GpcPolygon& Countries() {
    static const GpcPolygon countries = [] {
        CBufferedFile file(GEOM_DATA_DIR "/world_countries_110m.txt", "rb");
        GpcPolygon polygon;
        polygon.LoadFromTextFile(file);
        return polygon;
    }();
    return countries;
}

GpcPolygon Globe() {
    std::vector<Vec2d> pts;
    for (int i = 0; i < 90; ++i) {
        const double angle = kit::TWO_PI * i / 90;
        pts.emplace_back(10 + 70 * std::cos(angle), 20 + 55 * std::sin(angle));
    }
    return GpcPolygon(pts.data(), pts.size());
}

TEST(GpcPolygonWorld, CountriesAreLoaded) {
    EXPECT_EQ(Countries().GetNumContours(), 285u);
    EXPECT_EQ(Countries().GetTotalVertexCount(), 10299u);
    EXPECT_LT(Countries().GetBBox().minX, -180);
    EXPECT_GT(Countries().GetBBox().maxX, 190);
}

TEST(GpcPolygonWorld, UnionWithNothingHasTheArea) {
    GpcPolygon dissolved = Countries();
    dissolved.Union(GpcPolygon());
    EXPECT_NEAR(Area(dissolved), AREA_OF_COUNTRIES, LAST_DECIMAL);
    EXPECT_LT(dissolved.GetNumContours(), Countries().GetNumContours()) << "borders dissolve";
}

TEST(GpcPolygonWorld, IntersectionWithItsBoxHasTheArea) {
    GpcPolygon boxed = Countries();
    boxed.RemoveZeroWidthReturnPaths();
    EXPECT_NEAR(Area(boxed), AREA_OF_COUNTRIES, LAST_DECIMAL);
}

TEST(GpcPolygonWorld, JoinedRingHasTheArea) {
    std::vector<Vec2d> ring;
    Countries().GetPolygon(ring);
    GpcPolygon joined(ring.data(), ring.size());
    ASSERT_EQ(joined.GetNumContours(), 1u);
    joined.RemoveZeroWidthReturnPaths();
    EXPECT_NEAR(Area(joined), AREA_OF_COUNTRIES, LAST_DECIMAL);
}

TEST(GpcPolygonWorld, OperationsAddUp) {
    const GpcPolygon globe = Globe();
    const auto areaAfter = [&globe](void (GpcPolygon::*operation)(const GpcPolygon&)) {
        GpcPolygon result = Countries();
        (result.*operation)(globe);
        return Area(result);
    };
    const double common = areaAfter(&GpcPolygon::Intersection);
    const double all = areaAfter(&GpcPolygon::Union);
    EXPECT_GT(common, 1000);
    EXPECT_NEAR(all, AREA_OF_COUNTRIES + Area(globe) - common, LAST_DECIMAL);
    EXPECT_NEAR(areaAfter(&GpcPolygon::Difference), AREA_OF_COUNTRIES - common, LAST_DECIMAL);
    EXPECT_NEAR(areaAfter(&GpcPolygon::XOR), all - common, LAST_DECIMAL);
}

TEST(GpcPolygonWorld, PointsInsideFollowParity) {
    std::mt19937_64 random(1492);
    std::uniform_real_distribution<double> longitude(-180, 180);
    std::uniform_real_distribution<double> latitude(-60, 75);
    int onLand = 0;
    for (int i = 0; i < 50; ++i) {
        const Vec2d p(longitude(random), latitude(random));
        const bool expected = IsInside(Countries(), p);
        EXPECT_EQ(Countries().PointInside(p), expected) << test::Text(p);
        onLand += expected;
    }
    EXPECT_GT(onLand, 5);
    EXPECT_LT(onLand, 45);
}

TEST(GpcPolygonWorld, StripsCoverTheArea) {
    double area = 0;
    const auto add = [](const Vec2d* pts, unsigned int n, void* user) {
        for (unsigned int i = 2; i < n; ++i) {
            *static_cast<double*>(user) +=
                std::fabs(SignedDoubleArea({pts[i - 2], pts[i - 1], pts[i]})) / 2;
        }
        return true;
    };
    EXPECT_TRUE(Countries().Decompose(add, &area));
    EXPECT_NEAR(area, AREA_OF_COUNTRIES, LAST_DECIMAL);
}

TEST(GpcPolygonWorld, ClipUtilityGivesTheIntersection) {
    std::vector<Vec2d> pts;
    std::vector<unsigned int> counts;
    Countries().GetPolyPolygon(pts, counts, true);
    const std::size_t numParts = counts.size();
    ClipPolyPolygonToGPolygon(std::vector<Vec2d>(pts).data(),
                              std::vector<unsigned int>(counts).data(), numParts, Globe(), pts,
                              counts, false);
    GpcPolygon expected = Countries();
    expected.Intersection(Globe());
    std::vector<Vec2d> expectedPts;
    std::vector<unsigned int> expectedCounts;
    expected.GetPolyPolygon(expectedPts, expectedCounts, false);
    EXPECT_EQ(pts, expectedPts);
    EXPECT_EQ(counts, expectedCounts);
}

} // namespace
} // namespace geom
