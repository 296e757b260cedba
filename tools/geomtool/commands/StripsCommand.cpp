// SPDX-License-Identifier: MIT
#include "tools/geomtool/GpcConversion.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <utility>

namespace geomtool {

namespace {

using geom::Vec2d;

struct Options {
    InputOptions input;
    OutputOptions output;
    bool triangles = false;
};

PolygonSet StripOutlines(const geom::GpcPolygon& polygon) {
    std::vector<std::vector<Vec2d>> outlines;
    polygon.Decompose(outlines);
    PolygonSet shapes;
    shapes.rings.reserve(outlines.size());
    for (std::vector<Vec2d>& outline : outlines) {
        DropClosingPoint(outline);
        shapes.rings.push_back({std::move(outline), false});
    }
    return shapes;
}

/// Appends the triangles of a strip: each vertex from the third on makes one with the two before.
bool AppendTriangles(const Vec2d* points, unsigned int count, void* user) {
    PolygonSet& shapes = *static_cast<PolygonSet*>(user);
    for (unsigned int i = 2; i < count; ++i) {
        shapes.rings.push_back({{points[i - 2], points[i - 1], points[i]}, false});
    }
    return true;
}

PolygonSet Triangles(const geom::GpcPolygon& polygon) {
    PolygonSet shapes;
    polygon.Decompose(AppendTriangles, &shapes);
    return shapes;
}

void Run(const Options& options) {
    CheckOutput(options.output);
    Progress progress;
    const std::vector<PolygonSet> inputs = ReadInputs(options.input, progress);
    progress.Begin("strips");
    const geom::GpcPolygon polygon = ToGpcPolygon(inputs[0]);
    const PolygonSet result = options.triangles ? Triangles(polygon) : StripOutlines(polygon);
    WriteOutput(result, options.output, PALETTE_FILL, progress);
}

} // namespace

void AddStripsCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command =
        *app.add_subcommand("strips", "the triangle strips of a polygon, one contour for each");
    command.footer("Example:\n  geomtool strips lake.geojson --outline -o strips.svg");
    AddInputOptions(command, options->input, 1);
    command.add_flag("--triangles", options->triangles, "one contour for each triangle");
    AddOutputOptions(command, options->output);
    command.callback([&chosen, options] { chosen = [options] { Run(*options); }; });
}

} // namespace geomtool
