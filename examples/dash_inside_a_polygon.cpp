// SPDX-License-Identifier: MIT
// A dashed line, drawn only inside a polygon: the dashes keep their rhythm along the whole line,
// also where it is hidden.
#include <geometry/geom.h>

#include <cstdio>
#include <vector>

int main() {
    const geom::Vec2d corners[] = {{0, 0}, {10, 0}, {5, 8}};
    const geom::LineClipPolygon triangle(corners, std::vector<unsigned int>{3}.data(), 1);

    const double pattern[] = {3, 1}; // 3 visible, 1 hidden, and so on
    geom::DashLineGenerator dashes(pattern, 2);

    const geom::Vec2d line[] = {{-2, 4}, {12, 4}};
    std::vector<geom::LineSegment2> visible;
    dashes.Decompose(line, 2, visible);

    std::vector<geom::LineSegment2> inside;
    for (const geom::LineSegment2& dash : visible) {
        triangle.Clip(dash, inside);
    }
    for (const geom::LineSegment2& piece : inside) {
        std::printf("(%g, %g) to (%g, %g)\n", piece.A().x, piece.A().y, piece.B().x, piece.B().y);
    }
}
