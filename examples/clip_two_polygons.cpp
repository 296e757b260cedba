// SPDX-License-Identifier: MIT
// The four set operations on two polygons, one of them with a hole, and what is left of them.
#include <geometry/geom.h>

#include <cstdio>

namespace {

using Operation = void (geom::GpcPolygon::*)(const geom::GpcPolygon&);

void Print(const char* title, const geom::GpcPolygon& polygon) {
    std::printf("%s\n", title);
    for (int i = 0; i < polygon.num_contours; ++i) {
        std::printf("  %s:", polygon.hole[i] != 0 ? "hole" : "ring");
        const geom::gpc_vertex_list& contour = polygon.contour[i];
        for (int k = 0; k < contour.num_vertices; ++k) {
            std::printf(" (%g, %g)", contour.vertex[k].x, contour.vertex[k].y);
        }
        std::printf("\n");
    }
}

// The operations work in place, so each starts from a copy.
void Apply(const char* title, geom::GpcPolygon a, Operation operation, const geom::GpcPolygon& b) {
    (a.*operation)(b);
    Print(title, a);
}

} // namespace

int main() {
    // All rings of a polygon in one array, with the number of points of each. What is inside is
    // decided by parity: a ring within another is a hole.
    const geom::Vec2d frame[] = {{0, 0}, {6, 0}, {6, 6}, {0, 6}, {2, 2}, {4, 2}, {4, 4}, {2, 4}};
    const unsigned int counts[] = {4, 4};
    const geom::GpcPolygon a(frame, counts, 2);

    const geom::Vec2d triangle[] = {{3, 3}, {9, 3}, {9, 9}};
    const geom::GpcPolygon b(triangle, 3);

    Apply("intersection", a, &geom::GpcPolygon::Intersection, b);
    Apply("union", a, &geom::GpcPolygon::Union, b);
    Apply("difference", a, &geom::GpcPolygon::Difference, b);
    Apply("exclusive or", a, &geom::GpcPolygon::XOR, b);
}
