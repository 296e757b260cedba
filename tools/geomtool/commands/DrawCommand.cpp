// SPDX-License-Identifier: MIT
#include "tools/geomtool/Files.h"
#include "tools/geomtool/Formats.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <utility>

namespace geomtool {

namespace {

struct Options {
    InputOptions input;
    std::string output = "-";
    DrawingOptions drawing;
};

/// Fills for layers that are not given one, from the ground up.
const std::vector<std::string>& LayerFills() {
    static const std::vector<std::string> fills = {"#d5e3ea", "#c3d3b4", "#e3c08f", "#cf9a8f"};
    return fills;
}

void Run(const Options& options) {
    const SvgPage page = PageOf(options.drawing);
    Progress progress;
    CheckInputs(options.input);
    if (PromisesNoSvg(options.output)) {
        throw UsageError(options.output + ": draws SVG, unlike what the name tells");
    }
    std::vector<Figure> figures;
    for (std::size_t i = 0; i < options.input.paths.size(); ++i) {
        figures.push_back(ReadFigureInput(options.input, i, progress));
    }
    progress.Begin("drawing");
    const std::vector<std::string> fills =
        figures.size() == 1 ? std::vector<std::string>{DEFAULT_FILL} : LayerFills();
    const std::string drawing =
        WriteSvg(StyleLayers(std::move(figures), options.drawing, fills), page);
    progress.Finish();
    WriteFile(options.output, drawing);
}

} // namespace

void AddDrawCommand(CLI::App& app, Action& chosen) {
    constexpr std::size_t MOST_LAYERS = 1000;
    const auto options = std::make_shared<Options>();
    CLI::App& command = *app.add_subcommand(
        "draw", "draws polygons and lines as SVG, each file a layer over the ones before");
    command.footer("Example:\n  geomtool draw sheet.wkt map.txt --fill '#dbe9f0' --fill palette "
                   "--outline=white -o map.svg");
    AddInputOptions(command, options->input, MOST_LAYERS);
    command
        .add_option("-o,--output", options->output,
                    "the drawing, as SVG; - is standard output, and the default")
        ->option_text("FILE");
    AddDrawingOptions(command, options->drawing);
    command.callback([&chosen, options] { chosen = [options] { Run(*options); }; });
}

} // namespace geomtool
