// SPDX-License-Identifier: MIT
#include "geometry/ClipUtil.h"
#include "tools/geomtool/Files.h"
#include "tools/geomtool/GpcConversion.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/commands/Arguments.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace geomtool {

namespace {

struct Options {
    InputOptions input;
    std::string point;
};

bool Answer(const Options& options) {
    const bool hasPoint = !options.point.empty();
    if (hasPoint == (options.input.paths.size() == 2)) {
        throw UsageError("needs either a second file or --point");
    }
    const geom::Vec2d point = hasPoint ? ParsePoint("--point", options.point) : geom::Vec2d(0, 0);
    Progress progress;
    const std::vector<PolygonSet> inputs = ReadInputs(options.input, progress);
    progress.Begin("contains");
    const geom::GpcPolygon outer = ToGpcPolygon(inputs[0]);
    return hasPoint ? outer.PointInside(point)
                    : geom::PolygonContains(outer, ToGpcPolygon(inputs[1]));
}

} // namespace

void AddContainsCommand(CLI::App& app, Action& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = *app.add_subcommand(
        "contains", "prints yes when the first polygon holds the second one, or a point; else no");
    command.footer("Example:\n  geomtool contains land.txt island.wkt\n"
                   "  geomtool contains land.txt --point 8.55,47.37");
    AddInputOptions(command, options->input, 2);
    command.add_option("--point", options->point, "a point in the place of the second file")
        ->option_text("X,Y");
    command.callback([&chosen, options] {
        chosen = [options] { WriteFile("-", Answer(*options) ? "yes\n" : "no\n"); };
    });
}

} // namespace geomtool
