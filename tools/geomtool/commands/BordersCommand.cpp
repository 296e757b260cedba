// SPDX-License-Identifier: MIT
#include "tools/geomtool/Borders.h"
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
    std::string kind = "all";
};

BorderKind KindOf(const std::string& name) {
    return name == "shared"  ? BorderKind::Shared
           : name == "coast" ? BorderKind::Coast
                             : BorderKind::All;
}

void Run(const Options& options) {
    CheckLineOutput(options.output);
    Progress progress;
    const PolygonSet shapes = ReadInput(options.input, 0, progress);
    progress.Begin("borders");
    WriteOutput(Borders(shapes, KindOf(options.kind)), options.output, progress);
}

} // namespace

void AddBordersCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = *app.add_subcommand(
        "borders", "the edges of polygons as lines, those that neighbours share once only");
    command.footer("Example:\n  geomtool borders countries.txt --kind shared -o frontiers.wkt");
    AddOneInput(command, options->input, "the polygons");
    command
        .add_option("--kind", options->kind,
                    "all edges (the default), those that contours share, or the coast: those of "
                    "one contour only")
        ->check(CLI::IsMember({"all", "shared", "coast"}))
        ->option_text("all|shared|coast");
    AddLineOutputOptions(command, options->output);
    command.callback([&chosen, options] { chosen = [options] { Run(*options); }; });
}

} // namespace geomtool
