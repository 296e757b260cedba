// SPDX-License-Identifier: MIT
// Commands that print one number, or one for each line or contour.
#include "geometry/Geometry.h"
#include "geometry/PolygonMeasures.h"
#include "tools/geomtool/Files.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/Numbers.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/RingConversion.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <memory>

namespace geomtool {

namespace {

struct Options {
    InputOptions input;
    bool each = false;
    bool isSigned = false;
};

void Print(const std::vector<double>& values) {
    std::string text;
    for (const double value : values) {
        if (!std::isfinite(value)) {
            throw InputError("the result is beyond the range of numbers");
        }
        AppendNumber(text, value);
        text += '\n';
    }
    WriteFile("-", text);
}

double LengthOf(const Line& line) {
    return geom::PolylineLength(line.data(), line.size());
}

void RunLength(const Options& options) {
    std::vector<double> lengths;
    double sum = 0;
    {
        Progress progress;
        for (const Line& line : AllLines(ReadFigureInput(options.input, 0, progress)).lines) {
            lengths.push_back(LengthOf(line));
            sum += lengths.back();
        }
    }
    Print(options.each ? lengths : std::vector<double>{sum});
}

/// The measure of all contours together, or of each by itself.
template <typename Measure>
void RunMeasure(const Options& options, Measure measure) {
    std::vector<double> values;
    {
        Progress progress;
        const PolygonSet shapes = ReadInput(options.input, 0, progress);
        progress.Begin("measuring");
        if (!options.each) {
            values.push_back(measure(ToPolygon2(shapes, RingDirections::Kept)));
        }
        for (std::size_t i = 0; options.each && i < shapes.rings.size(); ++i) {
            values.push_back(measure(ToPolygon2({{shapes.rings[i]}}, RingDirections::Kept)));
        }
    }
    Print(values);
}

double EvenOddArea(const geom::Polygon2& polygon) {
    return geom::TriangulatedPolygonArea(polygon.Points().data(), polygon.Counts().data(),
                                         polygon.Counts().size());
}

double SignedSum(const geom::Polygon2& polygon) {
    return geom::PolygonArea(polygon);
}

CLI::App& AddCommand(CLI::App& app, Options& options, const char* name, const char* description,
                     const char* input, const char* each) {
    CLI::App& command = *app.add_subcommand(name, description);
    AddOneInput(command, options.input, input);
    command.add_flag("--each", options.each, each);
    return command;
}

void AddLengthCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = AddCommand(
        app, *options, "length",
        "prints the length of lines; contours of polygon files are closed lines", "the lines",
        "print the length of each line, one below another; contours come first");
    command.footer("Example:\n  geomtool length rivers.geojson");
    command.callback([&chosen, options] { chosen = [options] { RunLength(*options); }; });
}

void AddPerimeterCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command =
        AddCommand(app, *options, "perimeter", "prints the length of all contours, holes included",
                   "the polygon", "print the length of each contour");
    command.footer("Example:\n  geomtool perimeter lake.wkt");
    command.callback(
        [&chosen, options] { chosen = [options] { RunMeasure(*options, &geom::Perimeter); }; });
}

void AddAreaCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command =
        AddCommand(app, *options, "area",
                   "prints the area inside by even-odd parity: what an odd number of contours "
                   "surrounds, whichever way they run",
                   "the polygon", "print the area of each contour by itself");
    command.add_flag("--signed", options->isSigned,
                     "add up the areas of the contours instead, those that run clockwise "
                     "negative; what contours cover twice counts twice");
    command.footer("Example:\n  geomtool area lake.wkt\n  geomtool area rings.txt --signed --each");
    command.callback([&chosen, options] {
        chosen = [options] { RunMeasure(*options, options->isSigned ? &SignedSum : &EvenOddArea); };
    });
}

} // namespace

void AddMeasureCommands(CLI::App& app, Action& chosen) {
    AddLengthCommand(app, chosen);
    AddPerimeterCommand(app, chosen);
    AddAreaCommand(app, chosen);
}

} // namespace geomtool
