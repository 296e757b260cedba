// SPDX-License-Identifier: MIT
#include "tools/geomtool/Dashing.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/LineStatistics.h"
#include "tools/geomtool/Numbers.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/commands/Arguments.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/LineClipOptions.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>

namespace geomtool {

namespace {

struct Options {
    InputOptions input;
    LineClipOptions clip;
    OutputOptions output;
    std::string pattern;
    std::string phase = "0";
    bool statistics = false;
};

/// Some gigabytes of coordinates.
constexpr double MOST_DASHES = 2e7;

/// A pattern that is tiny against the lines would fill all memory.
void CheckAmount(const LineSet& lines, const DashStyle& style) {
    const double dashes = EstimateDashes(lines, style);
    if (dashes > MOST_DASHES) {
        std::string amount = "more than any number of";
        if (std::isfinite(dashes)) {
            amount = "about ";
            AppendNumber(amount, std::round(dashes));
        }
        throw InputError("the pattern is too short for the lines: it makes " + amount +
                         " dashes, and 20 million are the most");
    }
}

void Run(const Options& options) {
    const DashStyle style{ParsePattern("--pattern", options.pattern),
                          ParseNumber("--phase", options.phase)};
    const InputOptions input = WithClip(options.input, options.clip);
    std::optional<PolygonSet> clip = ClipRectangle(options.clip);
    CheckInputs(input);
    CheckLineOutput(options.output);
    Progress progress;
    const LineSet lines = AllLines(ReadFigureInput(input, 0, progress));
    if (input.paths.size() > 1) {
        clip = ReadInput(input, 1, progress);
    }
    CheckAmount(lines, style);
    progress.Begin("dash");
    const auto start = std::chrono::steady_clock::now();
    const LineSet result = clip ? DashLines(lines, style, *clip) : DashLines(lines, style);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    WriteOutput(result, options.output, progress);
    if (options.statistics) {
        std::fprintf(stderr, "%s\n", LineStatistics(lines, result, elapsed.count()).c_str());
    }
}

} // namespace

void AddDashCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = *app.add_subcommand(
        "dash", "the dashes of lines, each dash a line; contours of polygon files are closed "
                "lines, and a line that starts where the one before it ended goes on with its "
                "pattern");
    command.footer(
        "Example:\n  geomtool dash roads.wkt --pattern 3,1.5,0.5,1.5 -o dashes.geojson\n"
        "  geomtool dash countries.txt --pattern 0.6,0.3 --clip sheet.wkt -o dashes.svg");
    AddOneInput(command, options->input, "the lines");
    command
        .add_option("--pattern", options->pattern,
                    "lengths of a dash, a gap, a dash and so on, none negative; when their number "
                    "is odd, dashes and gaps change places at each repetition")
        ->required()
        ->option_text("LENGTH,...");
    command
        .add_option("--phase", options->phase,
                    "how much of the pattern lies before a line's start, 0 by default")
        ->option_text("LENGTH");
    command
        .add_option("--clip", options->clip.path,
                    "a polygon to clip the dashes to; a second --from tells its format")
        ->option_text("FILE");
    AddClipRectangle(command, options->clip);
    command.add_flag("--stats", options->statistics,
                     "print counts, length and seconds on standard error");
    AddLineOutputOptions(command, options->output);
    command.callback([&chosen, options] { chosen = [options] { Run(*options); }; });
}

} // namespace geomtool
