// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/LineSet.h"
#include "tools/geomtool/PolygonSet.h"

namespace geomtool {

/// All that one file may hold.
struct Figure {
    PolygonSet polygons;
    LineSet lines;
};

/// The contours as closed lines, each ending with its first point again, and behind them the
/// lines.
LineSet AllLines(Figure figure);

/// Whether every coordinate is a finite number, which every format asks for.
bool IsFinite(const Figure& figure);

} // namespace geomtool
