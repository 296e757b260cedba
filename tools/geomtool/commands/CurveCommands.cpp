// SPDX-License-Identifier: MIT
// Commands that make a shape from numbers alone.
#include "geometry/Curves.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/commands/Arguments.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace geomtool {

namespace {

using geom::Box2d;
using geom::Vec2d;

constexpr std::size_t MOST_POINTS = 10'000'000;

struct ArcOptions {
    OutputOptions output;
    std::string center = "0,0";
    std::string radius;
    std::string start = "0";
    std::string sweep = "360";
    std::string step = "5";
};

double ParseRadius(const std::string& text) {
    const double radius = ParseNumber("--radius", text);
    if (radius < 0) {
        throw UsageError("--radius: must not be negative, unlike '" + text + "'");
    }
    return radius;
}

void RunArc(const ArcOptions& options) {
    const Vec2d center = ParsePoint("--center", options.center);
    const double radius = ParseRadius(options.radius);
    const double start = ParseNumber("--start", options.start);
    const double sweep = ParseNumber("--sweep", options.sweep);
    const double step = ParsePositive("--step", options.step);
    CheckLineOutput(options.output);
    if (!(std::abs(sweep) / step <= static_cast<double>(MOST_POINTS))) {
        throw UsageError("--step: makes more than 10 million points");
    }
    Line arc;
    geom::CircularArc(center, radius, start * kit::DEG_TO_RAD, sweep * kit::DEG_TO_RAD, arc,
                      step * kit::DEG_TO_RAD);
    Progress progress;
    WriteOutput(LineSet{{arc}}, options.output, progress);
}

void AddArcCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<ArcOptions>();
    CLI::App& command = *app.add_subcommand("arc", "a circular arc, as a line");
    command.footer("Example:\n  geomtool arc --center 2,1 --radius 5 --start 30 --sweep -120 "
                   "-o arc.svg");
    command.add_option("--center", options->center, "the centre, 0,0 by default")
        ->option_text("X,Y");
    command.add_option("--radius", options->radius, "the radius")
        ->required()
        ->option_text("LENGTH");
    command
        .add_option("--start", options->start,
                    "where the arc starts, counter-clockwise from the right; 0 by default")
        ->option_text("DEGREES");
    command
        .add_option("--sweep", options->sweep,
                    "how far it turns, counter-clockwise or, if negative, clockwise; 360 by "
                    "default")
        ->option_text("DEGREES");
    command.add_option("--step", options->step, "the angle between points, 5 by default")
        ->option_text("DEGREES");
    AddLineOutputOptions(command, options->output);
    command.callback([&chosen, options] { chosen = [options] { RunArc(*options); }; });
}

/// Pies and chords.
struct SectorOptions {
    OutputOptions output;
    std::string rectangle;
    std::string start = "0";
    std::string end;
    std::string points = "72";
};

using SectorFunction = bool (*)(const Box2d& box, const Vec2d& start, const Vec2d& end,
                                std::size_t n, Vec2d* out, Box2d* outBox);

/// A point of the given direction from the box's centre. Quarter turns are exact.
Vec2d PointTowards(const Box2d& box, double degrees) {
    const double size = std::max(box.maxX - box.minX, box.maxY - box.minY);
    const double turn = std::fmod(degrees, 360);
    const double angle = turn * kit::DEG_TO_RAD;
    const bool isUpright = std::fmod(turn, 180) != 0 && std::fmod(turn, 90) == 0;
    const bool isLevel = std::fmod(turn, 180) == 0;
    const Vec2d direction(isUpright ? 0.0 : std::cos(angle), isLevel ? 0.0 : std::sin(angle));
    return box.Center() + direction * size;
}

/// A closed outline as a contour.
Figure Contour(std::vector<Vec2d> outline) {
    DropClosingPoint(outline);
    Figure figure;
    figure.polygons.rings.push_back({std::move(outline), false});
    return figure;
}

void RunSector(SectorFunction function, const SectorOptions& options) {
    constexpr std::size_t FEWEST_POINTS = 4;
    const Box2d box = ParseBox("--rect", options.rectangle);
    const double start = ParseNumber("--start", options.start);
    const double end = ParseNumber("--end", options.end);
    const std::size_t count = ParseCount("--points", options.points, FEWEST_POINTS, MOST_POINTS);
    CheckOutput(options.output);
    std::vector<Vec2d> outline(count);
    if (!function(box, PointTowards(box, start), PointTowards(box, end), count, outline.data(),
                  nullptr)) {
        throw UsageError("--rect: is too small to hold a curve");
    }
    Progress progress;
    WriteOutput(Contour(std::move(outline)), options.output, DEFAULT_FILL, progress);
}

void AddSectorCommand(CLI::App& app, Action& chosen, const char* name, const char* description,
                      SectorFunction function) {
    const auto options = std::make_shared<SectorOptions>();
    CLI::App& command = *app.add_subcommand(name, description);
    command.footer("Example:\n  geomtool " + std::string(name) +
                   " --rect -4,-3,4,3 --start 30 --end 300 -o " + name + ".svg");
    command.add_option("--rect", options->rectangle, "the box of the ellipse, by two corners")
        ->required()
        ->option_text("X,Y,X,Y");
    command
        .add_option("--start", options->start,
                    "where the arc starts, counter-clockwise from the right; 0 by default")
        ->option_text("DEGREES");
    command
        .add_option("--end", options->end,
                    "where the arc ends, counter-clockwise from its start; a full turn when both "
                    "are equal")
        ->required()
        ->option_text("DEGREES");
    command.add_option("--points", options->points, "points of the closed outline, 72 by default")
        ->option_text("COUNT");
    AddOutputOptions(command, options->output);
    command.callback([&chosen, options, function] {
        chosen = [options, function] { RunSector(function, *options); };
    });
}

struct EllipseOptions {
    OutputOptions output;
    std::string rectangle;
    std::string steps = "16";
};

void RunEllipse(const EllipseOptions& options) {
    const Box2d box = ParseBox("--rect", options.rectangle);
    const std::size_t steps = ParseCount("--steps", options.steps, 1, MOST_POINTS / 4);
    CheckOutput(options.output);
    std::vector<Vec2d> outline(4 * steps + 1);
    geom::GenerateEllipse(box, steps, outline.data());
    Progress progress;
    WriteOutput(Contour(std::move(outline)), options.output, DEFAULT_FILL, progress);
}

void AddEllipseCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<EllipseOptions>();
    CLI::App& command = *app.add_subcommand("ellipse", "the ellipse inscribed in a rectangle");
    command.footer("Example:\n  geomtool ellipse --rect -4,-3,4,3 -o ellipse.wkt");
    command.add_option("--rect", options->rectangle, "the box of the ellipse, by two corners")
        ->required()
        ->option_text("X,Y,X,Y");
    command.add_option("--steps", options->steps, "edges of each quarter, 16 by default")
        ->option_text("COUNT");
    AddOutputOptions(command, options->output);
    command.callback([&chosen, options] { chosen = [options] { RunEllipse(*options); }; });
}

} // namespace

void AddCurveCommands(CLI::App& app, Action& chosen) {
    AddArcCommand(app, chosen);
    AddSectorCommand(app, chosen, "pie",
                     "a slice of the ellipse inscribed in a rectangle, with its centre",
                     &geom::PieToArea);
    AddSectorCommand(app, chosen, "chord",
                     "the part of the ellipse inscribed in a rectangle that a straight cut takes "
                     "off",
                     &geom::ChordToArea);
    AddEllipseCommand(app, chosen);
}

} // namespace geomtool
