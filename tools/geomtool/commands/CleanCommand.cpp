// SPDX-License-Identifier: MIT
#include "geometry/RemoveSelfIntersections.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/RingConversion.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <map>
#include <memory>

namespace geomtool {

namespace {

struct Options {
    InputOptions input;
    OutputOptions output;
    std::string rule = "odd";
};

/// The tessellator's winding rules by name.
const std::map<std::string, unsigned int>& Rules() {
    static const std::map<std::string, unsigned int> rules = {{"odd", 100130},
                                                              {"nonzero", 100131},
                                                              {"positive", 100132},
                                                              {"negative", 100133},
                                                              {"abs-geq-two", 100134}};
    return rules;
}

void Run(const Options& options) {
    CheckInputs(options.input);
    CheckOutput(options.output);
    Progress progress;
    const geom::Polygon2 polygon =
        ToPolygon2(ReadInput(options.input, 0, progress), RingDirections::Kept);
    progress.Begin("clean");
    geom::Polygon2 result;
    geom::RemoveSelfIntersections(polygon, result, Rules().at(options.rule),
                                  geom::RSI_NORMAL_POSITIVE_Z);
    WriteOutput(Figure{ToPolygonSet(result), {}}, options.output, DEFAULT_FILL, progress);
}

} // namespace

void AddCleanCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = *app.add_subcommand(
        "clean", "contours that do not cross, around what a winding rule selects: how often do "
                 "all contours together run around a place counter-clockwise, less clockwise? "
                 "Crossings have about single precision");
    command.footer("Example:\n  geomtool clean scribble.wkt --rule nonzero -o outline.svg");
    AddOneInput(command, options->input, "the polygon");
    command
        .add_option("--rule", options->rule,
                    "inside is where that number is odd (the default), not 0, above 0, below 0, "
                    "or at least 2 either way")
        ->check(CLI::IsMember(Rules()))
        ->option_text("odd|nonzero|positive|negative|abs-geq-two");
    AddOutputOptions(command, options->output);
    command.callback([&chosen, options] { chosen = [options] { Run(*options); }; });
}

} // namespace geomtool
