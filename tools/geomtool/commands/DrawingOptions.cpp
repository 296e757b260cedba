// SPDX-License-Identifier: MIT
#include "tools/geomtool/commands/DrawingOptions.h"

#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <utility>

namespace geomtool {

namespace {

const char* const GROUP = "Drawing (SVG output)";

/// The entry for a layer; the last one serves all further layers.
template <typename Value>
Value Pick(const std::vector<Value>& values, std::size_t layer, const Value& otherwise) {
    return values.empty() ? otherwise : values[std::min(layer, values.size() - 1)];
}

std::string CheckColour(const std::string& text) {
    return IsColour(text) ? std::string() : "'" + text + "' is no colour such as #aabbcc or teal";
}

std::string CheckFill(const std::string& text) {
    return text == PALETTE_FILL ? std::string() : CheckColour(text);
}

} // namespace

void AddDrawingOptions(CLI::App& command, DrawingOptions& options) {
    command
        .add_option("--fill", options.fills,
                    "a colour, none, or palette: one for each polygon; repeated, for one layer "
                    "after another")
        ->allow_extra_args(false)
        ->check(CheckFill)
        ->group(GROUP);
    command
        .add_flag("--outline{#4a5560}", options.outlines,
                  "draw outlines; --outline=COLOUR in another colour or none, repeated like --fill")
        ->check(CheckColour)
        ->group(GROUP);
    command.add_option("--line-width", options.lineWidths, "width of the outlines in pixels")
        ->allow_extra_args(false)
        ->check(CLI::Range(0.0, 100.0))
        ->group(GROUP);
    command.add_option("--size", options.size, "the longer side of the page in pixels")
        ->check(CLI::Range(50.0, 100000.0))
        ->capture_default_str()
        ->group(GROUP);
    command.add_option("--view", options.view, "draw only minx,miny,maxx,maxy")->group(GROUP);
    command.add_option("--background", options.background, "colour of the page")
        ->check(CheckColour)
        ->group(GROUP);
    command.add_option("--decimals", options.decimals, "digits after the point")
        ->check(CLI::Range(0, 6))
        ->capture_default_str()
        ->group(GROUP);
}

std::vector<SvgLayer> StyleLayers(std::vector<PolygonSet> shapes, const DrawingOptions& options,
                                  const std::vector<std::string>& defaultFills) {
    constexpr double THIN = 0.75;
    std::vector<SvgLayer> layers;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        const std::string& defaultFill = defaultFills[i % defaultFills.size()];
        layers.push_back({std::move(shapes[i]), Pick(options.fills, i, defaultFill),
                          Pick(options.outlines, i, std::string("none")),
                          Pick(options.lineWidths, i, THIN)});
    }
    return layers;
}

SvgPage PageOf(const DrawingOptions& options) {
    SvgPage page;
    page.size = options.size;
    page.background = options.background;
    page.decimals = options.decimals;
    if (!options.view.empty()) {
        page.view = ParseBox("--view", options.view);
        page.margin = 0;
    }
    return page;
}

} // namespace geomtool
