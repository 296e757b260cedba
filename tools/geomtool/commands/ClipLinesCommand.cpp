// SPDX-License-Identifier: MIT
#include "tools/geomtool/Dashing.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/LineStatistics.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/LineClipOptions.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <cstdio>
#include <memory>

namespace geomtool {

namespace {

struct Options {
    InputOptions input;
    LineClipOptions clip;
    OutputOptions output;
    bool statistics = false;
};

void Run(const Options& options) {
    const InputOptions input = WithClip(options.input, options.clip);
    std::optional<PolygonSet> clip = ClipRectangle(options.clip);
    if (!clip && input.paths.size() < 2) {
        throw UsageError("needs something to clip to, a second file or --rect");
    }
    CheckInputs(input);
    CheckLineOutput(options.output);
    Progress progress;
    const LineSet lines = AllLines(ReadFigureInput(input, 0, progress));
    if (!clip) {
        clip = ReadInput(input, 1, progress);
    }
    progress.Begin("clip-lines");
    const auto start = std::chrono::steady_clock::now();
    const LineSet result = ClipLines(lines, *clip);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    WriteOutput(result, options.output, progress);
    if (options.statistics) {
        std::fprintf(stderr, "%s\n", LineStatistics(lines, result, elapsed.count()).c_str());
    }
}

} // namespace

void AddClipLinesCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command =
        *app.add_subcommand("clip-lines", "the parts of the first file's lines within the polygon "
                                          "of the second one, or a rectangle; contours of polygon "
                                          "files are closed lines");
    command.footer("Example:\n  geomtool clip-lines roads.geojson sheet.wkt -o roads.wkt\n"
                   "  geomtool clip-lines countries.txt --rect -25,34,45,72 -o borders.svg");
    AddInputOptions(command, options->input, 2);
    AddClipRectangle(command, options->clip);
    command.add_flag("--stats", options->statistics,
                     "print counts, length and seconds on standard error");
    AddLineOutputOptions(command, options->output);
    command.callback([&chosen, options] { chosen = [options] { Run(*options); }; });
}

} // namespace geomtool
