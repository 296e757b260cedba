// SPDX-License-Identifier: MIT
#include "tools/geomtool/commands/DrawingOptions.h"

#include "tools/geomtool/Numbers.h"
#include "tools/geomtool/commands/Arguments.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <functional>
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

/// A check for numbers; the option parser's own lets "nan" pass.
std::function<std::string(const std::string&)> NumberFrom(int least, int most) {
    return [least, most](const std::string& text) {
        std::string_view rest = text;
        double value = 0;
        if (TakeNumber(rest, value) == NumberStatus::Valid && rest.empty() && value >= least &&
            value <= most) {
            return std::string();
        }
        return "expected a number from " + std::to_string(least) + " to " + std::to_string(most) +
               ", found '" + text + "'";
    };
}

} // namespace

void AddDrawingOptions(CLI::App& command, DrawingOptions& options) {
    const auto add = [&command](const char* name, auto& value, const char* text, const char* help) {
        return command.add_option(name, value, help)->option_text(text)->group(GROUP);
    };
    add("--fill", options.fills, "COLOUR",
        "a colour, none, or palette: one for each polygon; repeated, for one layer after another")
        ->allow_extra_args(false)
        ->check(CheckFill);
    command
        .add_flag("--outline{" + std::string(DEFAULT_LINE_COLOUR) + "}", options.outlines,
                  "draw outlines, in a colour of choice or none; repeated like --fill; lines are "
                  "drawn in that colour, too")
        ->check(CheckColour)
        ->option_text("[=COLOUR]")
        ->group(GROUP);
    add("--line-width", options.lineWidths, "PIXELS", "width of the outlines; repeated like --fill")
        ->allow_extra_args(false)
        ->check(NumberFrom(0, 100));
    add("--size", options.size, "PIXELS", "the longer side of the page, 1200 by default")
        ->check(NumberFrom(50, 100000));
    add("--view", options.view, "X,Y,X,Y", "draw only the part between two corners");
    add("--background", options.background, "COLOUR", "colour of the page")->check(CheckColour);
    add("--decimals", options.decimals, "COUNT", "digits after the point, 2 by default")
        ->check(CLI::IsMember({0, 1, 2, 3, 4, 5, 6}));
}

std::vector<SvgLayer> StyleLayers(std::vector<Figure> figures, const DrawingOptions& options,
                                  const std::vector<std::string>& defaultFills) {
    constexpr double THIN = 0.75;
    std::vector<SvgLayer> layers;
    for (std::size_t i = 0; i < figures.size(); ++i) {
        Figure& figure = figures[i];
        const std::string& defaultFill = defaultFills[i % defaultFills.size()];
        const std::string defaultStroke = figure.lines.lines.empty() ? "none" : DEFAULT_LINE_COLOUR;
        layers.push_back({std::move(figure.polygons), Pick(options.fills, i, defaultFill),
                          Pick(options.outlines, i, defaultStroke),
                          Pick(options.lineWidths, i, THIN), std::move(figure.lines)});
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
