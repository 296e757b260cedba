// SPDX-License-Identifier: MIT
// Draws a sheet of a map as SVG: the land filled, the coast dashed, both cut to the sheet.
#include <geometry/geom.h>

#include <cstdio>
#include <fstream>
#include <vector>

namespace {

// Polylines or rings: all points, and the number of points of each.
struct Lines {
    std::vector<geom::Vec2d> points;
    std::vector<unsigned int> counts;
};

// Pixels of the page; y grows downwards there.
double Right(double x) {
    return 20 * (x + 12);
}
double Down(double y) {
    return 20 * (72 - y);
}

void WritePath(std::ostream& svg, const Lines& lines, const char* style) {
    svg << "<path " << style << " d='";
    std::size_t at = 0;
    for (const unsigned int count : lines.counts) {
        for (unsigned int i = 0; i < count; ++i, ++at) {
            const geom::Vec2d& p = lines.points[at];
            svg << (i == 0 ? 'M' : 'L') << Right(p.x) << ' ' << Down(p.y);
        }
    }
    svg << "'/>\n";
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: draw_a_map FILE OUTPUT.svg\n");
        return 2;
    }
    try {
        geom::CBufferedFile file(argv[1], "r");
        geom::GpcPolygon land;
        land.LoadFromTextFile(file);
        const geom::Vec2d corners[] = {{-12, 36}, {30, 36}, {30, 65}, {9, 72}, {-12, 65}};
        const geom::GpcPolygon sheet(corners, 5);

        // The area to fill: the rings of what is left, each closed.
        Lines area;
        geom::GpcPolygon visible = land;
        visible.Intersection(sheet);
        visible.GetPolyPolygon(area.points, area.counts, true);

        // The line to draw: the coast itself, or the edges of the sheet would be drawn as well.
        Lines coast;
        land.GetPolyPolygon(coast.points, coast.counts, true);
        const double pattern[] = {0.8, 0.3, 0.1, 0.3};
        geom::DashLineGenerator dashes(pattern, 4);
        Lines dashed;
        geom::ClipDashedPolylinesToPolygon(coast.points.data(), coast.counts.data(),
                                           coast.counts.size(), dashes, sheet, dashed.points,
                                           dashed.counts);

        std::ofstream svg(argv[2]);
        svg << "<svg xmlns='http://www.w3.org/2000/svg' width='840' height='720'>\n";
        WritePath(svg, area, "fill='#c3d3b4' fill-rule='evenodd'");
        WritePath(svg, dashed, "fill='none' stroke='#345'");
        svg << "</svg>\n";
        if (!svg.flush()) {
            std::fprintf(stderr, "%s cannot be written\n", argv[2]);
            return 1;
        }
        std::printf("%zu rings filled, %zu dashes drawn\n", area.counts.size(),
                    dashed.counts.size());
        return 0;
    } catch (const geom::Exception& e) {
        std::fprintf(stderr, "%s\n", e.Message().Narrow().c_str());
        return 1;
    }
}
