// SPDX-License-Identifier: MIT
#include "geometry/Thinning.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/commands/Arguments.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace geomtool {

namespace {

using geom::Vec2d;

struct Options {
    InputOptions input;
    OutputOptions output;
    std::string angle;
    bool minimal = false;
};

/// One of the library's two ways to thin a line.
struct Thinning {
    bool minimal;
    double angle; ///< in radians

    Line Apply(const Line& line) const {
        Line out;
        if (minimal) {
            geom::ThinToMinimalDetail(line.data(), line.size(), out);
        } else {
            geom::ThinByAngularDeviation(line.data(), line.size(), angle, out);
        }
        return out;
    }
};

Thinning ThinningOf(const Options& options) {
    if (options.angle.empty() != options.minimal) {
        throw UsageError("needs either --angle or --minimal");
    }
    if (options.minimal) {
        return {true, 0};
    }
    const double degrees = ParseNumber("--angle", options.angle);
    if (!(degrees >= 0 && degrees <= 180)) {
        throw UsageError("--angle: expected degrees from 0 to 180, found '" + options.angle + "'");
    }
    return {false, degrees * kit::DEG_TO_RAD};
}

/// A contour is thinned as the closed line that it is, so its closing edge counts.
void ThinRing(const Thinning& thinning, Ring& ring) {
    if (ring.points.empty()) {
        return;
    }
    const Vec2d first = ring.points.front();
    ring.points.push_back(first);
    ring.points = thinning.Apply(ring.points);
    DropClosingPoint(ring.points);
}

void Run(const Options& options) {
    const Thinning thinning = ThinningOf(options);
    CheckInputs(options.input);
    CheckOutput(options.output);
    Progress progress;
    Figure figure = ReadFigureInput(options.input, 0, progress);
    progress.Begin("thin");
    for (Ring& ring : figure.polygons.rings) {
        ThinRing(thinning, ring);
    }
    for (Line& line : figure.lines.lines) {
        line = thinning.Apply(line);
    }
    WriteOutput(figure, options.output, DEFAULT_FILL, progress);
}

} // namespace

void AddThinCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = *app.add_subcommand(
        "thin", "polygons and lines with fewer vertices; the first vertex stays, the last one of "
                "a line does, too, and up to four are left alone");
    command.footer("Example:\n  geomtool thin coast.wkt --angle 5 -o simple.wkt");
    AddOneInput(command, options->input, "polygons or lines");
    command
        .add_option("--angle", options->angle,
                    "keep the vertices where the direction turns by more than that")
        ->option_text("DEGREES");
    command.add_flag("--minimal", options->minimal,
                     "keep the vertices only where a line turns back in x or in y");
    AddOutputOptions(command, options->output);
    command.callback([&chosen, options] { chosen = [options] { Run(*options); }; });
}

} // namespace geomtool
