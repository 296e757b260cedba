// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/SvgWriter.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

/// \file
/// The options that shape a drawing.

namespace geomtool {

struct DrawingOptions {
    /// Styles for the layers in turn, the last one for all further layers.
    std::vector<std::string> fills;
    std::vector<std::string> outlines;
    std::vector<double> lineWidths;
    double size = 1200;
    std::string view;
    std::string background;
    int decimals = 2;
};

void AddDrawingOptions(CLI::App& command, DrawingOptions& options);

/// The colour of lines unless an option chooses one.
inline constexpr const char* DEFAULT_LINE_COLOUR = "#4a5560";

/// The layers with their styles.
/// \param defaultFills fills for the layers in turn, repeated, unless an option chooses them; not
/// empty.
std::vector<SvgLayer> StyleLayers(std::vector<Figure> figures, const DrawingOptions& options,
                                  const std::vector<std::string>& defaultFills);

SvgPage PageOf(const DrawingOptions& options);

} // namespace geomtool
