// SPDX-License-Identifier: MIT
// Reads a polygon file, cuts it to a window and sums up what is visible there.
#include <geometry/geom.h>

#include <cstdio>

namespace {

// The area of the polygon from its triangle strips: holes need no care, because the strips
// cover exactly what is inside.
double Area(const geom::GpcPolygon& polygon) {
    double sum = 0;
    polygon.Decompose(
        [](const geom::Vec2d* pts, unsigned int n, void* user) {
            for (unsigned int i = 2; i < n; ++i) {
                const geom::Vec2d a = pts[i - 1] - pts[i - 2];
                const geom::Vec2d b = pts[i] - pts[i - 2];
                const double twice = a.x * b.y - a.y * b.x;
                *static_cast<double*>(user) += 0.5 * (twice < 0 ? -twice : twice);
            }
            return true;
        },
        &sum);
    return sum;
}

void Report(const char* what, const geom::GpcPolygon& polygon) {
    std::printf("%s: %zu rings, %zu vertices, area %.1f\n", what, polygon.GetNumContours(),
                polygon.GetTotalVertexCount(), Area(polygon));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: measure_a_map FILE\n");
        return 2;
    }
    try {
        geom::CBufferedFile file(argv[1], "r");
        geom::GpcPolygon land;
        land.LoadFromTextFile(file);
        Report("whole map", land);

        geom::GpcPolygon window;
        geom::ClipGPolygonToRect(land, geom::Box2d(-20, 30, 50, 75), window);
        Report("window", window);
        return 0;
    } catch (const geom::Exception& e) {
        std::fprintf(stderr, "%s\n", e.Message().Narrow().c_str());
        return 1;
    }
}
