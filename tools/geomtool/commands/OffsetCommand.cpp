// SPDX-License-Identifier: MIT
#include "geometry/OffsetPolygon.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/RingConversion.h"
#include "tools/geomtool/commands/Arguments.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace geomtool {

namespace {

struct Options {
    InputOptions input;
    OutputOptions output;
    std::string distance;
    bool keepDirections = false;
};

void Run(const Options& options) {
    const double distance = ParseNumber("--distance", options.distance);
    CheckInputs(options.input);
    CheckOutput(options.output);
    Progress progress;
    const geom::Polygon2 polygon =
        ToPolygon2(ReadInput(options.input, 0, progress),
                   options.keepDirections ? RingDirections::Kept : RingDirections::FromHoleFlags);
    progress.Begin("offset");
    geom::Polygon2 result;
    geom::OffsetPolygon(polygon, distance, result);
    WriteOutput(Figure{ToPolygonSet(result), {}}, options.output, DEFAULT_FILL, progress);
}

} // namespace

void AddOffsetCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = *app.add_subcommand(
        "offset", "a polygon grown by a distance, with round corners, or shrunk by a negative "
                  "one. Time grows with the square of the vertices, and faster when a polygon is "
                  "shrunk by far more than half its width: thousands of vertices take seconds, a "
                  "hundred thousand can take hours");
    command.footer("Example:\n  geomtool offset lake.wkt --distance 0.5 -o shore.svg\n"
                   "  geomtool offset lake.wkt --distance=-0.5 -o deep.wkt");
    AddOneInput(command, options->input, "the polygon");
    command.add_option("--distance", options->distance, "how far edges move outwards")
        ->required()
        ->option_text("LENGTH");
    command.add_flag("--keep-directions", options->keepDirections,
                     "take contours that run clockwise for holes, whatever their hole flags say");
    AddOutputOptions(command, options->output);
    command.callback([&chosen, options] { chosen = [options] { Run(*options); }; });
}

} // namespace geomtool
