// SPDX-License-Identifier: MIT
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace geomtool {

namespace {

struct Options {
    InputOptions input;
    OutputOptions output;
};

void Run(const Options& options) {
    CheckOutput(options.output);
    Progress progress;
    WriteOutput(ReadFigureInput(options.input, 0, progress), options.output, DEFAULT_FILL,
                progress);
}

} // namespace

void AddConvertCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = *app.add_subcommand(
        "convert",
        "writes polygons and lines in another format, every coordinate unchanged; in WKT "
        "and GeoJSON each hole goes to the smallest contour around it, and contours of "
        "fewer than 3 points are left out; text and binary hold no lines");
    command.footer("Example:\n  geomtool convert countries.txt -o countries.geojson\n"
                   "  geomtool convert - --from wkt --to binary < in.wkt > out.bin");
    AddInputOptions(command, options->input, 1);
    AddOutputOptions(command, options->output);
    command.callback([&chosen, options] { chosen = [options] { Run(*options); }; });
}

} // namespace geomtool
