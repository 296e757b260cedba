// SPDX-License-Identifier: MIT
// Draws the pictures of the guide into a folder.
#include "Gallery.h"

#include <cstdio>
#include <fstream>
#include <string>

namespace {

struct Entry {
    const char* name;
    gallery::Picture (*draw)();
};

constexpr Entry PICTURES[] = {
    {"clip-lines-to-rectangle", gallery::ClippedLinesInRectangle},
    {"clip-rings-to-rectangle", gallery::ClippedRingsInRectangle},
    {"set-operations", gallery::SetOperations},
    {"triangle-strips", gallery::TriangleStrips},
    {"clip-lines-to-polygon", gallery::ClippedLinesInPolygon},
    {"dashes", gallery::Dashes},
    {"dashed-borders", gallery::DashedBorders},
    {"nearest-segment", gallery::NearestSegments},
    {"walking", gallery::Walks},
    {"thinning", gallery::Thinning},
    {"primitives", gallery::Primitives},
    {"point-in-polygon", gallery::PointsInPolygons},
    {"clean-up", gallery::CleanedRings},
    {"winding-rules", gallery::WindingRules},
    {"offset", gallery::Offsets},
    {"offset-surprises", gallery::OffsetSurprises},
    {"curves", gallery::Curves},
    {"search-grid", gallery::SearchGrid},
    {"picking", gallery::Picking},
    {"space", gallery::Space},
};

void Write(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file) {
        throw std::ofstream::failure("cannot write " + path);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: gallery FOLDER\n");
        return 2;
    }
    try {
        for (const Entry& entry : PICTURES) {
            Write(std::string(argv[1]) + "/" + entry.name + ".svg", entry.draw().Svg());
        }
        return 0;
    } catch (const geom::Exception& e) {
        std::fprintf(stderr, "gallery: %s (%s, %d)\n", e.Message().Narrow().c_str(),
                     e.File().Narrow().c_str(), e.Line());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "gallery: %s\n", e.what());
    }
    return 1;
}
