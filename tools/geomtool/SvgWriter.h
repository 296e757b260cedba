// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/Figure.h"

#include <optional>
#include <string>
#include <vector>

/// \file
/// Drawings as Scalable Vector Graphics.

namespace geomtool {

/// The fill of a layer whose polygons are told apart by colour.
inline constexpr const char* PALETTE_FILL = "palette";

/// Shapes drawn in one style; later layers cover earlier ones.
struct SvgLayer {
    PolygonSet shapes;
    /// A colour, "none", or PALETTE_FILL.
    std::string fill;
    /// A colour or "none".
    std::string stroke;
    /// In pixels.
    double strokeWidth = 1;
    /// Drawn over the shapes, without a fill.
    LineSet lines = {};
};

struct SvgPage {
    /// The longer side, in pixels.
    double size = 1200;
    /// The free edge around what is drawn, in pixels.
    double margin = 20;
    /// The part of the plane to draw; by default all of it that the layers fill.
    std::optional<geom::Box2d> view;
    /// A colour; empty for none.
    std::string background;
    /// How many digits after the point the pixel coordinates have.
    int decimals = 2;
};

/// Draws layers, y upwards. Filled by the even-odd rule, so holes show what lies below.
std::string WriteSvg(const std::vector<SvgLayer>& layers, const SvgPage& page);

/// Whether a text is a colour such as "#aabbcc" or "teal", or "none"; nothing else may reach a
/// drawing's attributes.
bool IsColour(const std::string& text);

} // namespace geomtool
