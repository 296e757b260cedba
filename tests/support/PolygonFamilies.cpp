// SPDX-License-Identifier: MIT
#include "tests/support/PolygonFamilies.h"

#include <ostream>

namespace geom::test {

void PrintTo(const PolygonFamily& family, std::ostream* stream) {
    *stream << family.name;
}

const std::vector<PolygonFamily>& PolygonFamilies() {
    static const std::vector<PolygonFamily> FAMILIES = {
        {"SmallGrid", SmallGrid, Laws::Contours},
        {"RectilinearGrid", RectilinearGrid, Laws::All},
        {"FineGrid", FineGrid, Laws::Contours},
        {"SelfIntersecting", SelfIntersecting, Laws::All},
        {"MixedScales", MixedScales, Laws::None},
        {"HugeCoordinates", HugeCoordinates, Laws::None},
        {"TinyCoordinates", TinyCoordinates, Laws::None},
        {"FarFromOrigin", FarFromOrigin, Laws::All},
        {"SignedZeros", SignedZeros, Laws::Contours},
        {"DegenerateContours", DegenerateContours, Laws::Contours},
        {"Stars", Stars, Laws::All},
        {"Spikes", Spikes, Laws::All},
        {"NestedHoles", NestedHoles, Laws::All},
        {"Combs", Combs, Laws::All},
        {"Staircases", Staircases, Laws::All},
        {"Saws", Saws, Laws::All},
        {"Squares", Squares, Laws::All},
        {"ScatteredTriangles", ScatteredTriangles, Laws::All},
        {"TriangleMeshes", TriangleMeshes, Laws::Contours},
        {"Pencils", Pencils, Laws::Contours},
        {"RotatedGrids", RotatedGrids, Laws::Contours},
        {"NearCoincidentBy52", NearCoincidentBy52, Laws::Contours},
        {"NearCoincidentBy51", NearCoincidentBy51, Laws::Contours},
        {"CopiesMovedBy52", CopiesMovedBy52, Laws::Contours},
        {"CollinearOverlaps", CollinearOverlaps, Laws::Contours},
        {"AdjacentRows", AdjacentRows, Laws::Contours},
        {"DenormalRows", DenormalRows, Laws::None},
        {"TinyShapes", TinyShapes, Laws::None},
        {"SharedVertices", SharedVertices, Laws::Contours},
    };
    return FAMILIES;
}

} // namespace geom::test
