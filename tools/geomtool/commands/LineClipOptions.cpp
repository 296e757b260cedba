// SPDX-License-Identifier: MIT
#include "tools/geomtool/commands/LineClipOptions.h"

#include "tools/geomtool/InputError.h"
#include "tools/geomtool/commands/Arguments.h"

#include <CLI/CLI.hpp>

namespace geomtool {

void AddClipRectangle(CLI::App& command, LineClipOptions& options) {
    command
        .add_option("--rect", options.rectangle,
                    "a rectangle in the place of the polygon, by two of its corners")
        ->option_text("X,Y,X,Y");
}

InputOptions WithClip(InputOptions input, const LineClipOptions& options) {
    if (!options.path.empty()) {
        input.paths.push_back(options.path);
    }
    if (input.paths.size() > 1 && !options.rectangle.empty()) {
        throw UsageError("a clip polygon and --rect exclude each other");
    }
    return input;
}

std::optional<PolygonSet> ClipRectangle(const LineClipOptions& options) {
    if (options.rectangle.empty()) {
        return std::nullopt;
    }
    return Rectangle(ParseBox("--rect", options.rectangle));
}

} // namespace geomtool
