// SPDX-License-Identifier: MIT
#include "tools/geomtool/Files.h"
#include "tools/geomtool/Numbers.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/SetOperation.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <memory>

namespace geomtool {

namespace {

struct Options {
    InputOptions input;
    bool evenOdd = false;
};

std::string BoxText(const geom::Box2d& box) {
    if (box.IsEmpty()) {
        return "empty";
    }
    std::string text;
    for (const double side : {box.minX, box.minY, box.maxX, box.maxY}) {
        text += text.empty() ? "" : " ";
        AppendNumber(text, side);
    }
    return text;
}

std::string AreaText(double area) {
    if (!std::isfinite(area)) {
        return "beyond the range of numbers";
    }
    std::string text;
    AppendNumber(text, area);
    return text;
}

std::string Describe(const PolygonSet& shapes) {
    return "contours  " + std::to_string(shapes.rings.size()) + "\nholes     " +
           std::to_string(shapes.HoleCount()) + "\nvertices  " +
           std::to_string(shapes.VertexCount()) + "\nbox       " + BoxText(shapes.Box()) +
           "\narea      " + AreaText(shapes.Area()) + "\n";
}

void Run(const Options& options) {
    Progress progress;
    const std::vector<PolygonSet> inputs = ReadInputs(options.input, progress);
    std::string text = Describe(inputs[0]);
    if (options.evenOdd) {
        progress.Begin("even-odd area");
        const PolygonSet inside = Combine(SetOperation::Union, inputs[0], PolygonSet());
        text += "even-odd  " + AreaText(inside.Area()) + "\n";
    }
    progress.Finish();
    WriteFile("-", text);
}

} // namespace

void AddInfoCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = *app.add_subcommand(
        "info", "prints the number of contours, holes and vertices, the box (minimum x and y, "
                "maximum x and y) and the area (external contours less holes)");
    command.footer("Example:\n  geomtool info countries.txt");
    AddInputOptions(command, options->input, 1);
    command.add_flag("--even-odd", options->evenOdd,
                     "print the area inside by even-odd parity, too, whatever overlaps");
    command.callback([&chosen, options] { chosen = [options] { Run(*options); }; });
}

} // namespace geomtool
